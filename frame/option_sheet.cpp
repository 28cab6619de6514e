// The common road of every option sheet: one dialog at a time, the pages on
// a child of the host's tags so that Cancel loses what the user did and OK
// keeps it, and the sheet's Apply Now button taken away, since the pages
// write their tags only when they lose the front.
#include "bounded_text.h"
#include "core_win.h"
#include "diagnostics.h"
#include "dialog_guard.h"
#include "frame.h"
#include "module.h"
#include "okaio32.h"
#include "seams.h"
#include "toolkit.h"

void UseLibraryTemplate(CPropertyPage& page)
{
    page.m_psp.hInstance = LibraryModule();
}

int RunSheetEntry(const SheetArgs& a, int wantPreview, UINT captionId, SheetBody body, void* data)
{
    DialogGuard guard(a.entry);
    if (!guard.Held())
        return 0;
    InitOptionContext(a.parent, a.tags, a.appTitle, a.helpFile, a.formats, a.srcExt, a.destExt, a.operation,
                      a.srcType, a.image, wantPreview);
    char caption[128] = {};
    LoadStringA(LibraryModule(), captionId, caption, sizeof caption);
    int result;
    {
        CPropertySheet sheet(caption, nullptr, 0);
        result = body(sheet, data);
    }
    Options()->sheetTags = nullptr;
    Diagnostic("%s: gives %d", a.entry, result);
    return result;
}

int RunOptionSheet(CPropertySheet& sheet, bool childSet)
{
    OptionContext* o = Options();
    TagSet* holder = nullptr;
    if (childSet && o->tags != nullptr) {
        // A sheet opened inside a context that has a child of its own (a
        // sheet of a file dialog's options) hangs below that child.
        o->sheetTags = new TagSet;
        if (o->sheetTags != nullptr) {
            holder = o->tags->GetLastChild();
            if (holder == nullptr)
                holder = o->tags;
            holder->SetChild(o->sheetTags);
        }
    }
    int result = sheet.DoModal();
    if (holder != nullptr) {
        if (result == IDOK)
            o->sheetTags->FuseWithParent();
        delete o->sheetTags;
        holder->SetChild(nullptr);
    }
    o->sheetTags = nullptr;
    return result;
}

void HideApplyButton(HWND page)
{
    HWND sheet = GetParent(page);
    if (sheet == nullptr)
        return;
    HWND apply = GetDlgItem(sheet, kSheetApplyButton);
    if (apply == nullptr)
        return;
    ShowWindow(apply, SW_HIDE);
    HWND ok = GetDlgItem(sheet, IDOK);
    HWND cancel = GetDlgItem(sheet, IDCANCEL);
    if (ok == nullptr || cancel == nullptr)
        return;
    RECT cancelRect, applyRect;
    GetWindowRect(cancel, &cancelRect);
    GetWindowRect(apply, &applyRect);
    // Every page calls this; the first one has moved the buttons already.
    if (EqualRect(&cancelRect, &applyRect))
        return;
    MapWindowPoints(nullptr, sheet, reinterpret_cast<POINT*>(&cancelRect), 2);
    MapWindowPoints(nullptr, sheet, reinterpret_cast<POINT*>(&applyRect), 2);
    MoveWindow(cancel, applyRect.left, applyRect.top, applyRect.right - applyRect.left,
               applyRect.bottom - applyRect.top, FALSE);
    MoveWindow(ok, cancelRect.left, cancelRect.top, cancelRect.right - cancelRect.left,
               cancelRect.bottom - cancelRect.top, FALSE);
}

INT_PTR RunCommonDialog(unsigned short dlgId, HWND parent, DLGPROC proc)
{
    DialogGuard guard("dialog");
    if (!guard.Held())
        return 0;
    INT_PTR result = DialogBoxParamA(LibraryModule(), MAKEINTRESOURCEA(dlgId), parent, proc, 0);
    Diagnostic("dialog %u: gives %d", dlgId, static_cast<int>(result));
    return result;
}
