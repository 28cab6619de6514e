// Controls bound to tags, and the "~" lists of string tables behind them.
#include <windows.h>

#include <commctrl.h>

#include <string>
#include <vector>

#include "portable/zvw_portable.h"
#include "zvwio32.h"

namespace {

// The text an edit shows for a number tag: empty for 0, else six decimals
// at most.
std::string FloatEditText(double value)
{
    return value == 0.0 ? std::string() : zvw::FormatDouble(value, 6);
}

// A list goes on in the next string id while an entry ends in "~". The
// chain is cut after a generous number of entries, so that a table in which
// every string ends in "~" cannot run on for ever.
std::vector<std::string> LoadListItems(HINSTANCE module, int id)
{
    std::vector<std::string> items;
    if (id <= 0)
        return items;
    char entry[4096];
    for (int i = 0; i < 256; ++i) {
        const int n = LoadStringA(module, static_cast<UINT>(id + i), entry, sizeof entry);
        if (n <= 0 || !zvw::AppendListEntry(entry, items))
            break;
    }
    return items;
}

int IndexOf(const std::vector<std::string>& items, const char* text)
{
    if (!text)
        return -1;
    for (std::size_t i = 0; i < items.size(); ++i)
        if (lstrcmpiA(items[i].c_str(), text) == 0)
            return static_cast<int>(i);
    return -1;
}

std::string Key(const char* prefix, const char* name)
{
    std::string key = prefix ? prefix : "";
    if (name)
        key += name;
    return key;
}

std::string WindowText(HWND window)
{
    char text[512] = {};
    if (window)
        GetWindowTextA(window, text, sizeof text);
    return text;
}

// Combo boxes and list boxes take the same requests under other numbers.
struct ListControl {
    HWND window = nullptr;
    bool combo = false;

    explicit ListControl(HWND w) : window(w)
    {
        char cls[64] = {};
        if (w)
            GetClassNameA(w, cls, sizeof cls);
        combo = lstrcmpiA(cls, "ComboBox") == 0;
    }
    LRESULT Send(UINT comboMsg, UINT listMsg, WPARAM wp = 0, LPARAM lp = 0) const
    {
        return SendMessageA(window, combo ? comboMsg : listMsg, wp, lp);
    }
    void Reset() const { Send(CB_RESETCONTENT, LB_RESETCONTENT); }
    void Add(const std::string& text) const
    {
        Send(CB_ADDSTRING, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
    }
    void Select(int index) const { Send(CB_SETCURSEL, LB_SETCURSEL, static_cast<WPARAM>(index)); }
    int Selection() const { return static_cast<int>(Send(CB_GETCURSEL, LB_GETCURSEL)); }
    std::string Text(int index) const
    {
        const LRESULT n = Send(CB_GETLBTEXTLEN, LB_GETTEXTLEN, static_cast<WPARAM>(index));
        if (n < 0)
            return std::string();
        std::string text(static_cast<std::size_t>(n) + 1, '\0');
        Send(CB_GETLBTEXT, LB_GETTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text.data()));
        text.resize(strlen(text.c_str()));
        return text;
    }
};

// The label's caption as a user reads it: no mnemonic ampersands, no colon.
std::string LabelCaption(HWND dialog, int label)
{
    const std::string raw = WindowText(GetDlgItem(dialog, label));
    std::string caption;
    for (std::size_t i = 0; i < raw.size(); ++i) {
        if (raw[i] == '&' && i + 1 < raw.size() && raw[i + 1] != '&')
            continue;
        if (raw[i] == '&')
            ++i;
        if (i < raw.size())
            caption += raw[i];
    }
    while (!caption.empty() && (caption.back() == ':' || caption.back() == ' '))
        caption.pop_back();
    return caption.empty() ? std::string("This field") : caption;
}

// Tells the user that the value of control is out of bounds, once for each
// retrieval: the pages set *valid to 1 before they retrieve, and the first
// bad value clears it.
void RefuseValue(HWND dialog, HWND control, int label, const std::string& low, const std::string& high, int* valid)
{
    const bool tell = !valid || *valid != 0;
    if (valid)
        *valid = 0;
    if (!tell)
        return;
    const std::string text =
        "The value of \"" + LabelCaption(dialog, label) + "\" must be a number from " + low + " to " + high + ".";
    std::string title = WindowText(GetAncestor(dialog, GA_ROOT));
    if (title.empty())
        title = "Options";
    MessageBeep(0);
    MessageBoxA(dialog, text.c_str(), title.c_str(), MB_OK | MB_ICONEXCLAMATION);
    SetFocus(control);
    SendMessageA(control, EM_SETSEL, 0, -1);
}

std::string Trimmed(const std::string& s)
{
    std::size_t a = s.find_first_not_of(" \t");
    if (a == std::string::npos)
        return std::string();
    std::size_t b = s.find_last_not_of(" \t");
    return s.substr(a, b - a + 1);
}

const char kTrackEditProp[] = "ZvwioTrackBarEdit";

}  // namespace

// --- Check boxes and radio buttons --------------------------------------------

ZVWIO32_API void DisplayCheckBoxTag(HWND dialog, int control, const char* prefix, const char* name, TagSet* tags)
{
    if (!GetDlgItem(dialog, control))
        return;
    const char* value = ZvGetTag(tags, Key(prefix, name).c_str());
    CheckDlgButton(dialog, control, value && lstrcmpiA(value, "ON") == 0 ? BST_CHECKED : BST_UNCHECKED);
}

ZVWIO32_API int RetrieveCheckBoxTag(HWND dialog, int control, const char* prefix, const char* name, TagSet* tags)
{
    if (!GetDlgItem(dialog, control))
        return 0;
    const bool checked = IsDlgButtonChecked(dialog, control) == BST_CHECKED;
    ZvSetTag(tags, Key(prefix, name).c_str(), checked ? "ON" : "OFF");
    return checked ? 1 : 0;
}

ZVWIO32_API int DisplayRadioButtonTag(HWND dialog, int first, int last, int valuesId, const char* prefix,
                                      const char* name, HINSTANCE module, TagSet* tags)
{
    const int index = IndexOf(LoadListItems(module, valuesId), ZvGetTag(tags, Key(prefix, name).c_str()));
    int id = first + (index < 0 ? 0 : index);
    if (id > last)
        id = first;
    if (!GetDlgItem(dialog, id))
        return 0;
    CheckRadioButton(dialog, first, last, id);
    return id;
}

ZVWIO32_API void RetrieveRadioButtonTag(HWND dialog, int first, int last, int valuesId, const char* prefix,
                                        const char* name, HINSTANCE module, TagSet* tags)
{
    const std::vector<std::string> values = LoadListItems(module, valuesId);
    for (int id = first; id <= last; ++id) {
        if (GetDlgItem(dialog, id) && IsDlgButtonChecked(dialog, id) == BST_CHECKED) {
            const std::size_t position = static_cast<std::size_t>(id - first);
            if (position < values.size())
                ZvSetTag(tags, Key(prefix, name).c_str(), values[position].c_str());
            return;
        }
    }
}

// --- Lists ------------------------------------------------------------------

ZVWIO32_API void LoadList(HWND dialog, int list, int label, int shownId, int valuesId, const char* prefix,
                          const char* name, HINSTANCE module, TagSet* tags)
{
    const ListControl control(GetDlgItem(dialog, list));
    if (!control.window)
        return;
    const std::vector<std::string> shown = LoadListItems(module, shownId);
    const std::vector<std::string> values = valuesId ? LoadListItems(module, valuesId) : shown;
    control.Reset();
    for (const std::string& item : shown)
        control.Add(item);
    if (shown.empty()) {
        // Nothing to choose from: neither the list nor its caption invites a
        // choice.
        EnableWindow(control.window, FALSE);
        if (HWND caption = GetDlgItem(dialog, label))
            EnableWindow(caption, FALSE);
        return;
    }
    const int index = IndexOf(values, ZvGetTag(tags, Key(prefix, name).c_str()));
    control.Select(index >= 0 && index < static_cast<int>(shown.size()) ? index : 0);
}

ZVWIO32_API char* RetrieveList(HWND dialog, int list, int valuesId, const char* prefix, const char* name,
                               HINSTANCE module, TagSet* tags)
{
    static char result[256];
    const ListControl control(GetDlgItem(dialog, list));
    if (!control.window)
        return nullptr;
    const int selection = control.Selection();
    if (selection < 0)
        return nullptr;
    std::string value;
    if (valuesId) {
        const std::vector<std::string> values = LoadListItems(module, valuesId);
        if (static_cast<std::size_t>(selection) >= values.size())
            return nullptr;
        value = values[static_cast<std::size_t>(selection)];
    } else {
        value = control.Text(selection);
    }
    ZvSetTag(tags, Key(prefix, name).c_str(), value.c_str());
    zvw::CopyText(result, sizeof result, value.c_str());
    return result;
}

ZVWIO32_API int GetListItem(int id, int index, HINSTANCE module, char* item, int size)
{
    const std::vector<std::string> items = LoadListItems(module, id);
    const bool found = index >= 0 && static_cast<std::size_t>(index) < items.size();
    if (item && size > 0)
        zvw::CopyText(item, static_cast<std::size_t>(size), found ? items[static_cast<std::size_t>(index)].c_str() : "");
    if (!found)
        return -1;
    const int length = static_cast<int>(items[static_cast<std::size_t>(index)].size());
    return size > 0 && length >= size ? size - 1 : length;
}

ZVWIO32_API int GetListIndex(int id, const char* text, HINSTANCE module)
{
    return IndexOf(LoadListItems(module, id), text);
}

// --- Track bars -------------------------------------------------------------

ZVWIO32_API void DisplayTrackBarTag(HWND dialog, int trackBar, int edit, const char* prefix, const char* name,
                                    int min, int max, TagSet* tags)
{
    const int value = ZvGetIntTag(tags, Key(prefix, name).c_str());
    if (HWND bar = GetDlgItem(dialog, trackBar)) {
        // The range goes in two requests: TBM_SETRANGE packs both ends into
        // 16-bit halves, which a negative minimum doesn't survive.
        SendMessageA(bar, TBM_SETRANGEMIN, FALSE, min);
        SendMessageA(bar, TBM_SETRANGEMAX, TRUE, max);
        // Some bars place the thumb anew only when the position changes, not
        // when the range does: the position moves off and back.
        SendMessageA(bar, TBM_SETPOS, TRUE, value == min ? max : min);
        SendMessageA(bar, TBM_SETPOS, TRUE, value);
        SetPropA(bar, kTrackEditProp, reinterpret_cast<HANDLE>(static_cast<INT_PTR>(edit)));
    }
    if (GetDlgItem(dialog, edit))
        SetDlgItemInt(dialog, edit, static_cast<UINT>(value), TRUE);
}

ZVWIO32_API void RetrieveTrackBarTag(HWND dialog, int trackBar, int edit, int label, const char* prefix,
                                     const char* name, int min, int max, TagSet* tags, int* valid)
{
    HWND bar = GetDlgItem(dialog, trackBar);
    HWND field = GetDlgItem(dialog, edit);
    long value = 0;
    if (field) {
        if (!zvw::ParseLongStrict(WindowText(field).c_str(), &value) || value < min || value > max) {
            if (IsWindowEnabled(field))
                RefuseValue(dialog, field, label, std::to_string(min), std::to_string(max), valid);
            return;
        }
    } else if (bar) {
        value = static_cast<long>(SendMessageA(bar, TBM_GETPOS, 0, 0));
    } else {
        return;
    }
    if (bar)
        SendMessageA(bar, TBM_SETPOS, TRUE, value);
    ZvSetIntTag(tags, Key(prefix, name).c_str(), static_cast<int>(value));
}

ZVWIO32_API int HandleTrackBarScroll(HWND dialog, WPARAM wParam, LPARAM lParam)
{
    (void)wParam;
    HWND bar = reinterpret_cast<HWND>(lParam);
    if (!bar || !IsWindow(bar))
        return 0;
    char cls[64] = {};
    GetClassNameA(bar, cls, sizeof cls);
    if (lstrcmpiA(cls, TRACKBAR_CLASSA) != 0)
        return 0;
    const int edit = static_cast<int>(reinterpret_cast<INT_PTR>(GetPropA(bar, kTrackEditProp)));
    if (!edit || !GetDlgItem(dialog, edit))
        return 0;
    const int position = static_cast<int>(SendMessageA(bar, TBM_GETPOS, 0, 0));
    SetDlgItemInt(dialog, edit, static_cast<UINT>(position), TRUE);
    return 1;
}

// --- Edits ------------------------------------------------------------------

ZVWIO32_API void DisplayEditIntTag(HWND dialog, int edit, const char* prefix, const char* name, TagSet* tags)
{
    if (!GetDlgItem(dialog, edit))
        return;
    const std::string key = Key(prefix, name);
    if (!ZvGetTag(tags, key.c_str()))
        SetDlgItemTextA(dialog, edit, "");
    else
        SetDlgItemInt(dialog, edit, static_cast<UINT>(ZvGetIntTag(tags, key.c_str())), TRUE);
}

ZVWIO32_API void RetrieveEditIntTag(HWND dialog, int edit, int label, const char* prefix, const char* name,
                                    int min, int max, TagSet* tags, int* valid)
{
    HWND field = GetDlgItem(dialog, edit);
    if (!field)
        return;
    const std::string key = Key(prefix, name);
    const std::string text = Trimmed(WindowText(field));
    if (text.empty()) {
        ZvSetTag(tags, key.c_str(), "");
        return;
    }
    long value = 0;
    if (!zvw::ParseLongStrict(text.c_str(), &value) || value < min || value > max) {
        if (IsWindowEnabled(field))
            RefuseValue(dialog, field, label, std::to_string(min), std::to_string(max), valid);
        return;
    }
    ZvSetIntTag(tags, key.c_str(), static_cast<int>(value));
}

ZVWIO32_API double DisplayEditFloatTag(HWND dialog, int edit, const char* prefix, const char* name, TagSet* tags)
{
    const double value = ZvGetFloatTag(tags, Key(prefix, name).c_str());
    if (GetDlgItem(dialog, edit))
        SetDlgItemTextA(dialog, edit, FloatEditText(value).c_str());
    return value;
}

ZVWIO32_API double RetrieveEditFloatTag(HWND dialog, int edit, int label, const char* prefix, const char* name,
                                        double min, double max, TagSet* tags, int* valid)
{
    const std::string key = Key(prefix, name);
    HWND field = GetDlgItem(dialog, edit);
    if (!field)
        return ZvGetFloatTag(tags, key.c_str());
    const std::string text = Trimmed(WindowText(field));
    if (text.empty()) {
        ZvSetTag(tags, key.c_str(), "");
        return 0.0;
    }
    double value = 0.0;
    const bool number = zvw::ParseDoubleStrict(text.c_str(), &value);
    if (!number || value < min || value > max) {
        if (IsWindowEnabled(field))
            RefuseValue(dialog, field, label, zvw::FormatDouble(min, 6), zvw::FormatDouble(max, 6), valid);
        return number ? value : 0.0;
    }
    // An edit that still shows the tag as DisplayEditFloatTag wrote it was
    // not changed: the tag keeps its own text, with all its digits, rather
    // than the shorter one the edit shows.
    const double stored = ZvGetFloatTag(tags, key.c_str());
    if (ZvGetTag(tags, key.c_str()) != nullptr && text == FloatEditText(stored))
        return stored;
    ZvSetFloatTag(tags, key.c_str(), value, 32);
    return value;
}
