// A page as the library's pages are written, on a template of the test
// program, and a sheet of such pages run through the library's own road.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "core_win.h"
#include "frame.h"
#include "okamod32.h"
#include "resource_ids.h"
#include "toolkit.h"
#include "zvwio32.h"

namespace frametest {

using Events = std::vector<std::string>;

// One edit field bound to one tag. The text "bad" is a value out of range:
// the retrieval refuses it and keeps the sheet on the page.
class TagPage : public CPropertyPage {
public:
    TagPage(UINT templateId, int editId, const char* key, Events* events)
        : CPropertyPage(templateId), editId_(editId), key_(key), events_(events)
    {
    }

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        OptionContext* o = CurrentOptionContext();
        switch (message) {
        case WM_INITDIALOG: {
            const char* value = ZvGetTag(o->tags, key_.c_str());
            SetDlgItemTextA(editId_, value ? value : "");
            HideApplyButton(m_hWnd);
            Note("init");
            return 0;
        }
        case WM_NOTIFY:
            if (reinterpret_cast<NMHDR*>(lParam)->code == PSN_KILLACTIVE) {
                o->pageValid = 1;
                Retrieve(o);
                if (!o->pageValid)
                    return 1;
            }
            break;
        }
        return CPropertyPage::WindowProc(message, wParam, lParam);
    }

    void OnOK() override
    {
        Note("ok");
        CPropertyPage::OnOK();
    }

private:
    void Retrieve(OptionContext* o)
    {
        char text[64] = {};
        GetDlgItemTextA(editId_, text, sizeof text);
        if (std::string(text) == "bad") {
            o->pageValid = 0;
            return;
        }
        ZvSetTag(o->tags, key_.c_str(), text);
        Note("retrieved");
    }
    void Note(const char* what) { events_->push_back(key_ + ":" + what); }

    int editId_;
    std::string key_;
    Events* events_;
};

// The pages that a test hands to the common road, and what DoModal gave.
struct TestSheet {
    std::vector<CPropertyPage*> pages;
    int modal = 0;
};

inline int AddAndRun(CPropertySheet& sheet, void* data)
{
    TestSheet* test = static_cast<TestSheet*>(data);
    for (CPropertyPage* page : test->pages)
        sheet.AddPage(page);
    test->modal = RunOptionSheet(sheet, true);
    return test->modal == IDOK ? 1 : 0;
}

inline int RunTestSheet(const SheetArgs& args, TestSheet* sheet)
{
    return RunSheetEntry(args, 0, IDS_PROCESSING_OPTIONS, AddAndRun, sheet);
}

// The folder of the test program, which holds the library's objects, with a
// final backslash.
inline std::string LibraryFolder()
{
    char path[MAX_PATH] = {};
    GetModuleFileNameA(GetModuleHandleA(nullptr), path, sizeof path);
    std::string text = path;
    return text.substr(0, text.rfind('\\') + 1);
}

inline std::string Tag(TagSet* tags, const char* key)
{
    const char* value = ZvGetTag(tags, key);
    return value ? value : "<absent>";
}

}  // namespace frametest
