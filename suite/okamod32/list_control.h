// A list control of a dialog, combo box or list box alike: the format
// helpers fill combo boxes on most pages and a list box on the colour depth
// page, and read the file type combo of the file dialogs.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "format_table.h"

namespace zvlist {

inline bool IsListBox(HWND control)
{
    char name[32] = "";
    GetClassNameA(control, name, sizeof name);
    return lstrcmpiA(name, "ListBox") == 0;
}

inline void Reset(HWND control)
{
    SendMessageA(control, IsListBox(control) ? LB_RESETCONTENT : CB_RESETCONTENT, 0, 0);
}

inline void Add(HWND control, const char* text)
{
    SendMessageA(control, IsListBox(control) ? LB_ADDSTRING : CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
}

inline int Count(HWND control)
{
    return static_cast<int>(SendMessageA(control, IsListBox(control) ? LB_GETCOUNT : CB_GETCOUNT, 0, 0));
}

inline int Selection(HWND control)
{
    return static_cast<int>(SendMessageA(control, IsListBox(control) ? LB_GETCURSEL : CB_GETCURSEL, 0, 0));
}

inline void Select(HWND control, int index)
{
    SendMessageA(control, IsListBox(control) ? LB_SETCURSEL : CB_SETCURSEL, static_cast<WPARAM>(index), 0);
}

// The text of one entry; empty when there is no such entry.
inline std::string Text(HWND control, int index)
{
    bool listBox = IsListBox(control);
    LRESULT length = SendMessageA(control, listBox ? LB_GETTEXTLEN : CB_GETLBTEXTLEN, static_cast<WPARAM>(index), 0);
    if (length < 0) return {};
    std::string text(static_cast<std::size_t>(length) + 1, '\0');
    LRESULT got = SendMessageA(control, listBox ? LB_GETTEXT : CB_GETLBTEXT, static_cast<WPARAM>(index),
                               reinterpret_cast<LPARAM>(text.data()));
    text.resize(got < 0 ? 0 : static_cast<std::size_t>(got));
    return text;
}

inline std::vector<std::string> Texts(HWND control)
{
    std::vector<std::string> texts;
    int count = Count(control);
    for (int i = 0; i < count; ++i) texts.push_back(Text(control, i));
    return texts;
}

// Selects the entry that equals text without regard to case, or entry 0.
inline void SelectText(HWND control, const char* text)
{
    int count = Count(control);
    int chosen = 0;
    for (int i = 0; text != nullptr && i < count; ++i)
        if (zvfmt::EqualNoCase(Text(control, i), text)) { chosen = i; break; }
    if (count > 0) Select(control, chosen);
}

}  // namespace zvlist
