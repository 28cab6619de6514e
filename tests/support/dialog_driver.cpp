#include "dialog_driver.h"

#include <commctrl.h>
#include <wincodec.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

namespace zvtest {

namespace {

// Wine rounds shorter timer periods up to this anyway.
constexpr UINT kTickMs = 10;
// How long a window may take to close after a polite request before the
// driver ends it less politely.
constexpr ULONGLONG kPoliteMs = 300;
constexpr ULONGLONG kForceMs = 600;

thread_local DialogDriver* g_running = nullptr;

// WaitHandled's markers: posted to a message-only window of the driver,
// counted as they come through.
constexpr UINT kMarker = WM_APP + 0x2A;
thread_local ULONG_PTR g_markersPosted = 0;
thread_local ULONG_PTR g_markerSeen = 0;

LRESULT CALLBACK MarkerProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message != kMarker)
        return DefWindowProcA(window, message, wParam, lParam);
    g_markerSeen = wParam;
    return 0;
}

const char* MarkerClass()
{
    static const ATOM atom = [] {
        WNDCLASSA c = {};
        c.lpfnWndProc = MarkerProc;
        c.hInstance = GetModuleHandleA(nullptr);
        c.lpszClassName = "ZvDialogDriverMarker";
        return RegisterClassA(&c);
    }();
    return MAKEINTATOM(atom);
}

using Result = DialogDriver::Result;
using Outcome = DialogDriver::Outcome;

Result Done() { return {Outcome::Done, {}}; }
Result Retry(std::string why) { return {Outcome::Retry, std::move(why)}; }
Result Failure(std::string why) { return {Outcome::Fail, std::move(why)}; }

bool IsClass(HWND window, const char* name)
{
    char have[64] = {};
    GetClassNameA(window, have, sizeof have);
    return lstrcmpiA(have, name) == 0;
}

std::string Quote(const std::string& text)
{
    return "\"" + text + "\"";
}

// A step's name as the test wrote it, for the failures: Type(1001, "12").
std::string Call(const char* step, int id, const std::string& argument = {})
{
    return std::string(step) + "(" + std::to_string(id) + (argument.empty() ? "" : ", " + argument) + ")";
}

std::string Describe(HWND window)
{
    return window ? Quote(DialogDriver::TextOf(window)) : "(no window up)";
}

// Enumeration callbacks are WINAPI functions, which on 32-bit Windows a
// lambda is not; this runs a function object for each window instead,
// until it answers false.
template <class F>
BOOL CALLBACK CallForWindow(HWND window, LPARAM f)
{
    return (*reinterpret_cast<F*>(f))(window) ? TRUE : FALSE;
}

template <class F>
void ForEachDescendant(HWND root, F f)
{
    EnumChildWindows(root, &CallForWindow<F>, reinterpret_cast<LPARAM>(&f));
}

// A step on control `id` of the target, once the control is there and, for
// what a user does, visible and enabled.
DialogDriver::StepFn OnControl(int id, std::function<Result(HWND control)> act, bool asUser = true)
{
    return [id, act = std::move(act), asUser](DialogDriver&, HWND target) {
        HWND c = target ? DialogDriver::FindControl(target, id) : nullptr;
        if (!c)
            return Retry(Describe(target) + " has no control " + std::to_string(id));
        if (asUser && (!IsWindowVisible(c) || !IsWindowEnabled(c)))
            return Retry("control " + std::to_string(id) + (IsWindowVisible(c) ? " is disabled" : " is hidden"));
        return act(c);
    };
}

void Notify(HWND control, WORD code)
{
    SendMessageA(GetParent(control), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(control), code),
                 reinterpret_cast<LPARAM>(control));
}

void PumpMessages()
{
    MSG msg;
    while (PeekMessageA(&msg, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&msg);
        DispatchMessageA(&msg);
    }
}

// The text of a message box: its static texts other than the icon.
std::string MessageBoxText(HWND box)
{
    std::string text;
    ForEachDescendant(box, [&](HWND w) {
        std::string part = IsClass(w, "Static") && (GetWindowLongPtrA(w, GWL_STYLE) & SS_TYPEMASK) != SS_ICON
                               ? DialogDriver::TextOf(w)
                               : "";
        if (!part.empty())
            text += (text.empty() ? "" : "\n") + part;
        return true;
    });
    return text;
}

// The gallery file of a screenshot: <folder of the program>\..\gallery.
std::wstring GalleryPath(const std::string& name)
{
    char exe[MAX_PATH] = {};
    GetModuleFileNameA(nullptr, exe, MAX_PATH);
    std::string folder = exe;
    folder.resize(folder.find_last_of("\\/") + 1);
    folder += "..\\gallery";
    CreateDirectoryA(folder.c_str(), nullptr);
    std::string path = folder + "\\" + name + ".png";
    return std::wstring(path.begin(), path.end());
}

// Writes the bitmap as a PNG through WIC; gives the first failing result.
HRESULT WritePng(HBITMAP bitmap, const std::wstring& path)
{
    HRESULT init = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    IWICImagingFactory* factory = nullptr;
    IWICBitmap* source = nullptr;
    IWICStream* stream = nullptr;
    IWICBitmapEncoder* encoder = nullptr;
    IWICBitmapFrameEncode* frame = nullptr;
    HRESULT hr;
    bool written =
        SUCCEEDED(hr = CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER, IID_IWICImagingFactory,
                                    reinterpret_cast<void**>(&factory))) &&
        SUCCEEDED(hr = factory->CreateBitmapFromHBITMAP(bitmap, nullptr, WICBitmapIgnoreAlpha, &source)) &&
        SUCCEEDED(hr = factory->CreateStream(&stream)) &&
        SUCCEEDED(hr = stream->InitializeFromFilename(path.c_str(), GENERIC_WRITE)) &&
        SUCCEEDED(hr = factory->CreateEncoder(GUID_ContainerFormatPng, nullptr, &encoder)) &&
        SUCCEEDED(hr = encoder->Initialize(stream, WICBitmapEncoderNoCache)) &&
        SUCCEEDED(hr = encoder->CreateNewFrame(&frame, nullptr)) && SUCCEEDED(hr = frame->Initialize(nullptr)) &&
        SUCCEEDED(hr = frame->WriteSource(source, nullptr)) && SUCCEEDED(hr = frame->Commit()) &&
        SUCCEEDED(hr = encoder->Commit());
    for (IUnknown* object : std::initializer_list<IUnknown*>{frame, encoder, stream, source, factory})
        if (object)
            object->Release();
    if (SUCCEEDED(init))
        CoUninitialize();
    return written ? S_OK : hr;
}

// Wine keeps each top-level window's picture, children included, in a
// surface of its own, and a window DC reads from it: another program's
// window on top (tests run side by side on one display) does not get into
// the picture as it would when reading the screen. PrintWindow draws a
// blank picture under Xvfb.
HRESULT SaveWindowPng(HWND window, const std::wstring& path)
{
    RECT rect = {};
    GetWindowRect(window, &rect);
    LONG width = rect.right - rect.left, height = rect.bottom - rect.top;
    HDC source = GetWindowDC(window);
    HDC memory = CreateCompatibleDC(source);
    BITMAPINFO info = {};
    info.bmiHeader = {sizeof info.bmiHeader, width, height, 1, 24, BI_RGB, 0, 0, 0, 0, 0};
    void* bits = nullptr;
    HBITMAP picture = CreateDIBSection(source, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    HGDIOBJ old = SelectObject(memory, picture);
    bool copied = picture && BitBlt(memory, 0, 0, width, height, source, 0, 0, SRCCOPY);
    SelectObject(memory, old);
    DeleteDC(memory);
    ReleaseDC(window, source);
    HRESULT hr = copied ? WritePng(picture, path) : E_FAIL;
    DeleteObject(picture);
    return hr;
}

}  // namespace

DialogDriver::~DialogDriver()
{
    if (!steps_.empty())
        ADD_FAILURE() << "dialog driver: steps were queued but never run (" << steps_.front().name << ", ...)";
    if (g_running == this)
        g_running = nullptr;
}

DialogDriver& DialogDriver::Queue(std::string name, StepFn fn)
{
    steps_.push_back({"step " + std::to_string(++stepNumber_) + " " + name, std::move(fn), stepTimeout_});
    return *this;
}

// ---- finding windows ----

std::vector<HWND> DialogDriver::ThreadWindows()
{
    std::vector<HWND> windows;
    auto visible = [&](HWND w) {
        if (IsWindowVisible(w))
            windows.push_back(w);
        return true;
    };
    EnumThreadWindows(GetCurrentThreadId(), &CallForWindow<decltype(visible)>, reinterpret_cast<LPARAM>(&visible));
    return windows;
}

HWND DialogDriver::FindControl(HWND root, int id)
{
    // Wine's file dialog nests controls (a combo inside a combo inside the
    // dialog, all of one id), and a sheet's controls sit on its pages, so
    // the search goes through all descendants; a page that is not shown
    // may hold a control of the same id, so a visible one wins.
    HWND visible = nullptr;
    HWND any = nullptr;
    ForEachDescendant(root, [&](HWND w) {
        if (GetDlgCtrlID(w) != id)
            return true;
        if (!any)
            any = w;
        if (IsWindowVisible(w))
            visible = w;
        return !visible;
    });
    return visible ? visible : any;
}

std::string DialogDriver::TextOf(HWND window)
{
    std::string text(static_cast<size_t>(SendMessageA(window, WM_GETTEXTLENGTH, 0, 0)) + 1, '\0');
    LRESULT got = SendMessageA(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<size_t>(std::max<LRESULT>(got, 0)));
    return text;
}

bool DialogDriver::IsPropertySheet(HWND window)
{
    // Only a sheet answers this message; any other dialog returns zero.
    return IsClass(window, "#32770") && PropSheet_GetTabControl(window) != nullptr;
}

HWND DialogDriver::Target()
{
    if (current_ && IsWindow(current_))
        return current_;
    // Not a menu (#32768), nor a tool window such as a tooltip.
    for (HWND w : ThreadWindows())
        if (IsWindowEnabled(w) && !(GetWindowLongPtrA(w, GWL_EXSTYLE) & WS_EX_TOOLWINDOW) && !IsClass(w, "#32768"))
            return w;
    return nullptr;
}

DialogDriver& DialogDriver::WaitWindow(const std::string& caption)
{
    return Queue("WaitWindow(" + Quote(caption) + ")", [caption](DialogDriver& d, HWND) {
        for (HWND w : ThreadWindows()) {
            if (TextOf(w) == caption) {
                d.current_ = w;
                return Done();
            }
        }
        return Retry("no visible window of this thread has the caption " + Quote(caption));
    });
}

DialogDriver& DialogDriver::WaitControl(int id)
{
    return Queue(Call("WaitControl", id), [id](DialogDriver&, HWND target) {
        HWND c = target ? FindControl(target, id) : nullptr;
        return c && IsWindowVisible(c) ? Done() : Retry(Describe(target) + " shows no control " + std::to_string(id));
    });
}

DialogDriver& DialogDriver::WaitUntil(const std::string& what, std::function<bool()> condition)
{
    return Queue("WaitUntil(" + Quote(what) + ")", [what, condition = std::move(condition)](DialogDriver&, HWND) {
        return condition() ? Done() : Retry("still waiting for " + what);
    });
}

DialogDriver& DialogDriver::WaitHandled()
{
    return Queue("WaitHandled()", [posted = ULONG_PTR(0)](DialogDriver& d, HWND) mutable {
        if (!posted) {
            if (!d.marker_)
                d.marker_ = CreateWindowExA(0, MarkerClass(), "", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                            GetModuleHandleA(nullptr), nullptr);
            posted = ++g_markersPosted;
            PostMessageA(d.marker_, kMarker, posted, 0);
        }
        return g_markerSeen >= posted ? Done() : Retry("a message posted before the step is not handled yet");
    });
}

// ---- acting on controls ----

DialogDriver& DialogDriver::Type(int id, const std::string& text)
{
    return Queue(Call("Type", id, Quote(text)), OnControl(id, [id, text](HWND control) {
        // A combo box takes typing in the edit it holds.
        HWND edit = IsClass(control, "Edit") ? control : nullptr;
        ForEachDescendant(control, [&](HWND w) {
            if (!edit && IsClass(w, "Edit"))
                edit = w;
            return !edit;
        });
        if (!edit)
            return Failure("control " + std::to_string(id) + " has no edit to type into");
        if (GetWindowLongPtrA(edit, GWL_STYLE) & ES_READONLY)
            return Retry("control " + std::to_string(id) + " is read-only");
        // As a user: move the focus there (a dialog selects an edit's text
        // when it gets the focus this way), select everything, then type
        // each character, so that limits and filters of the edit apply
        // and each keystroke raises its own EN_CHANGE.
        SendMessageA(GetParent(control), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control), TRUE);
        SendMessageA(edit, EM_SETSEL, 0, -1);
        if (text.empty())
            SendMessageA(edit, WM_CHAR, VK_BACK, 1);
        for (char c : text)
            SendMessageA(edit, WM_CHAR, static_cast<unsigned char>(c), 1);
        return Done();
    }));
}

DialogDriver& DialogDriver::SetText(int id, const std::string& text)
{
    return Queue(Call("SetText", id, Quote(text)), OnControl(id, [text](HWND control) {
        SendMessageA(control, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
        return Done();
    }));
}

DialogDriver& DialogDriver::Click(int id)
{
    return Queue(Call("Click", id), OnControl(id, [](HWND control) {
        SendMessageA(control, BM_CLICK, 0, 0);
        return Done();
    }));
}

DialogDriver& DialogDriver::SetCheck(int id, bool checked)
{
    return Queue(Call("SetCheck", id, checked ? "true" : "false"), OnControl(id, [id, checked](HWND control) {
        LRESULT want = checked ? BST_CHECKED : BST_UNCHECKED;
        // A three-state box may need two clicks.
        for (int i = 0; i < 3 && SendMessageA(control, BM_GETCHECK, 0, 0) != want; ++i)
            SendMessageA(control, BM_CLICK, 0, 0);
        if (SendMessageA(control, BM_GETCHECK, 0, 0) != want)
            return Failure("clicking control " + std::to_string(id) + " does not change its check state");
        return Done();
    }));
}

DialogDriver& DialogDriver::PickCombo(int id, const std::string& text)
{
    return Queue(Call("PickCombo", id, Quote(text)), OnControl(id, [id, text](HWND control) {
        LRESULT index = SendMessageA(control, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                     reinterpret_cast<LPARAM>(text.c_str()));
        if (index == CB_ERR)
            return Retry("combo " + std::to_string(id) + " has no entry " + Quote(text));
        // A pick with the mouse gives the combo box the focus first (an
        // edit being typed in hears EN_KILLFOCUS before the choice), then
        // ends the drop-down with both notifications. Leaving the focus
        // where it was would make the test hang on the window activation,
        // which other processes on the same display take away at any time.
        SendMessageA(GetParent(control), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control), TRUE);
        SendMessageA(control, CB_SETCURSEL, index, 0);
        Notify(control, CBN_SELENDOK);
        Notify(control, CBN_SELCHANGE);
        return Done();
    }));
}

DialogDriver& DialogDriver::PickList(int id, const std::string& text)
{
    return Queue(Call("PickList", id, Quote(text)), OnControl(id, [id, text](HWND control) {
        LRESULT index = SendMessageA(control, LB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                     reinterpret_cast<LPARAM>(text.c_str()));
        if (index == LB_ERR)
            return Retry("list " + std::to_string(id) + " has no entry " + Quote(text));
        SendMessageA(control, LB_SETCURSEL, index, 0);
        // A list box tells its dialog about a click only when asked to.
        if (GetWindowLongPtrA(control, GWL_STYLE) & LBS_NOTIFY)
            Notify(control, LBN_SELCHANGE);
        return Done();
    }));
}

DialogDriver& DialogDriver::SendHelp(int id)
{
    return Queue(Call("SendHelp", id), [id](DialogDriver& d, HWND target) {
        // The target window itself, or its control as a user could point at it.
        auto help = [](HWND control) {
            RECT rect;
            GetWindowRect(control, &rect);
            POINT centre = {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
            HELPINFO info = {sizeof info, HELPINFO_WINDOW, GetDlgCtrlID(control), control,
                             GetWindowContextHelpId(control), centre};
            // F1 sends it to the window with the focus; the default handling
            // passes it up to the dialog.
            SendMessageA(control, WM_HELP, 0, reinterpret_cast<LPARAM>(&info));
            return Done();
        };
        if (id != 0)
            return OnControl(id, help)(d, target);
        return target ? help(target) : Retry("no window of this thread is up");
    });
}

DialogDriver& DialogDriver::ContextMenu(int id)
{
    return Queue(Call("ContextMenu", id), OnControl(id, [](HWND control) {
        RECT rect;
        GetWindowRect(control, &rect);
        // A right click sends it to the control under the mouse, which
        // passes it to its parent unless it has a menu of its own.
        SendMessageA(control, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(control),
                     MAKELPARAM((rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2));
        return Done();
    }));
}

// ---- property sheets, buttons and message boxes ----

DialogDriver& DialogDriver::SelectTab(int index)
{
    return Queue(Call("SelectTab", index), [index](DialogDriver&, HWND target) {
        if (!target || !IsPropertySheet(target))
            return Retry(Describe(target) + " is not a property sheet");
        int count = TabCtrl_GetItemCount(PropSheet_GetTabControl(target));
        if (index < 0 || index >= count)
            return Failure("the sheet has " + std::to_string(count) + " pages");
        // The page that is left gets PSN_KILLACTIVE and may refuse.
        PropSheet_SetCurSel(target, nullptr, index);
        return Done();
    });
}

// Presses a dialog's or sheet's button of this id as a user would: only
// when it shows and is enabled.
DialogDriver& DialogDriver::Press(const char* step, const char* label, int id, int sheetButton)
{
    return Queue(step, [label, id, sheetButton](DialogDriver&, HWND target) {
        if (!target)
            return Retry("no window of this thread is up");
        HWND button = GetDlgItem(target, id);
        if (button && (!IsWindowVisible(button) || !IsWindowEnabled(button)))
            return Retry(std::string("the ") + label + " button is hidden or disabled");
        if (IsPropertySheet(target))
            PropSheet_PressButton(target, sheetButton);
        else if (button)
            SendMessageA(button, BM_CLICK, 0, 0);
        else if (id == IDOK || id == IDCANCEL)  // Enter and Esc reach a dialog with no such button
            SendMessageA(target, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), 0);
        else
            return Failure(Describe(target) + " has no " + label + " button");
        return Done();
    });
}

DialogDriver& DialogDriver::AnswerMessageBox(int button, const std::string& textContains, std::string* textOut)
{
    return Queue(Call("AnswerMessageBox", button, textContains.empty() ? "" : Quote(textContains)),
                 [button, textContains, textOut](DialogDriver& d, HWND) {
        std::string why;
        HWND box = d.FindMessageBox(textContains, &why);
        if (!box)
            return Retry(why);
        HWND b = GetDlgItem(box, button);
        if (!b)
            return Failure("the message box " + Quote(MessageBoxText(box)) + " has no such button");
        if (textOut)
            *textOut = MessageBoxText(box);
        SendMessageA(b, BM_CLICK, 0, 0);
        return Done();
    });
}

HWND DialogDriver::FindMessageBox(const std::string& textContains, std::string* why) const
{
    std::string seen;
    for (HWND w : ThreadWindows()) {
        if (w == current_ || !IsClass(w, "#32770") || IsPropertySheet(w))
            continue;
        std::string text = MessageBoxText(w);
        if (text.find(textContains) != std::string::npos)
            return w;
        seen += (seen.empty() ? "" : ", ") + Quote(text);
    }
    *why = seen.empty() ? "no message box is up" : "the message boxes up say " + seen;
    return nullptr;
}

// ---- checks ----

DialogDriver& DialogDriver::ExpectText(int id, const std::string& text)
{
    return Queue(Call("ExpectText", id, Quote(text)), OnControl(id, [id, text](HWND c) {
        EXPECT_EQ(TextOf(c), text) << "text of control " << id;
        return Done();
    }, false));
}

DialogDriver& DialogDriver::ExpectChecked(int id, bool checked)
{
    return Queue(Call("ExpectChecked", id), OnControl(id, [id, checked](HWND c) {
        EXPECT_EQ(SendMessageA(c, BM_GETCHECK, 0, 0) == BST_CHECKED, checked) << "check state of control " << id;
        return Done();
    }, false));
}

DialogDriver& DialogDriver::ExpectEnabled(int id, bool enabled)
{
    return Queue(Call("ExpectEnabled", id), OnControl(id, [id, enabled](HWND c) {
        EXPECT_EQ(IsWindowEnabled(c) != FALSE, enabled) << "enabled state of control " << id;
        return Done();
    }, false));
}

DialogDriver& DialogDriver::ExpectPage(int index)
{
    return Queue(Call("ExpectPage", index), [index](DialogDriver&, HWND target) {
        if (!target || !IsPropertySheet(target))
            return Retry(Describe(target) + " is not a property sheet");
        EXPECT_EQ(TabCtrl_GetCurSel(PropSheet_GetTabControl(target)), index) << "current page of the sheet";
        return Done();
    });
}

// ---- screenshots and free-form steps ----

DialogDriver& DialogDriver::Screenshot(const std::string& name)
{
    return Queue("Screenshot(" + Quote(name) + ")", [name](DialogDriver& d, HWND target) {
        // The user looks at the active window, with the focus inside it.
        if (!target || GetActiveWindow() != target)
            return Retry("the window to take is not active yet");
        // With no window manager, Wine may draw the caption of the very
        // first window of a process as inactive although the window is
        // active; the picture shows what the user of a desktop would see.
        SendMessageA(target, WM_NCACTIVATE, TRUE, 0);
        // Paints the window and its children now, into the surface that
        // Wine keeps for it, and handles what the painting posted.
        RedrawWindow(target, nullptr, nullptr,
                     RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN | RDW_UPDATENOW);
        d.quiet_ = true;
        PumpMessages();
        d.quiet_ = false;
        GdiFlush();
        char failed[16] = {};
        HRESULT hr = SaveWindowPng(target, GalleryPath(name));
        wsprintfA(failed, "0x%08lX", static_cast<unsigned long>(hr));
        return SUCCEEDED(hr) ? Done() : Failure("writing the picture of " + Describe(target) + " gave " + failed);
    });
}

DialogDriver& DialogDriver::Do(std::function<void(HWND target)> action)
{
    return Queue("Do(...)", [action = std::move(action)](DialogDriver&, HWND target) {
        if (!target)
            return Retry("no window of this thread is up");
        action(target);
        return Done();
    });
}

// ---- running ----

void DialogDriver::Fail(const std::string& message)
{
    ADD_FAILURE() << "dialog driver: " << message;
    aborting_ = true;
    steps_.clear();
}

// Closes the topmost window of the thread: a menu with EndMenu, a sheet
// with its Cancel, a dialog with IDCANCEL, any other window with WM_CLOSE;
// a dialog that stays is ended with EndDialog, and what still stays is
// destroyed.
std::vector<HWND> DialogDriver::LeftBehind() const
{
    std::vector<HWND> windows;
    for (HWND w : ThreadWindows())
        if (std::find(leaveOpen_.begin(), leaveOpen_.end(), TextOf(w)) == leaveOpen_.end())
            windows.push_back(w);
    return windows;
}

void DialogDriver::DismissOne()
{
    std::vector<HWND> windows = LeftBehind();
    if (windows.empty())
        return;
    HWND w = windows.front();
    bool sheet = IsPropertySheet(w), dialog = IsClass(w, "#32770") && !sheet;
    auto [since, first] = dismissing_.try_emplace(w, GetTickCount64());
    ULONGLONG waited = GetTickCount64() - since->second;
    if (first && IsClass(w, "#32768"))
        EndMenu();
    else if (first && sheet)
        PropSheet_PressButton(w, PSBTN_CANCEL);
    else if (first && dialog)
        PostMessageA(w, WM_COMMAND, MAKEWPARAM(IDCANCEL, BN_CLICKED), 0);
    else if (first)
        PostMessageA(w, WM_CLOSE, 0, 0);
    else if (waited >= kForceMs)
        DestroyWindow(w);
    else if (waited >= kPoliteMs && dialog)
        EndDialog(w, IDCANCEL);
}

void CALLBACK DialogDriver::OnTimer(HWND, UINT, UINT_PTR, DWORD)
{
    if (g_running)
        g_running->Tick();
}

void DialogDriver::Tick()
{
    if (quiet_)
        return;
    if (aborting_) {
        DismissOne();
        return;
    }
    ULONGLONG now = GetTickCount64();
    if (now - runStart_ > runTimeout_) {
        std::string next = steps_.empty() ? std::string("none") : steps_.front().name;
        Fail("the run did not end within " + std::to_string(runTimeout_) + " ms (next step: " + next + ")");
        return;
    }
    if (steps_.empty()) {
        if (!idleSince_) {
            idleSince_ = now;
        } else if (now - idleSince_ > stepTimeout_) {
            std::string up;
            for (HWND w : ThreadWindows())
                up += (up.empty() ? "" : ", ") + Describe(w);
            Fail("still up " + std::to_string(stepTimeout_) + " ms after the last step: " + up);
        }
        return;
    }
    idleSince_ = 0;
    // Taken off the queue before it runs: a step that opens a nested modal
    // loop (a click that shows a message box) lets the next step run in it.
    QueuedStep step = std::move(steps_.front());
    steps_.pop_front();
    if (!step.firstTry)
        step.firstTry = now;
    Result result = step.fn(*this, Target());
    if (result.outcome == Outcome::Fail)
        Fail(step.name + " failed: " + result.why);
    else if (result.outcome == Outcome::Retry && !aborting_ && GetTickCount64() - step.firstTry >= step.timeout)
        Fail(step.name + " did not succeed within " + std::to_string(step.timeout) + " ms: " + result.why);
    else if (result.outcome == Outcome::Retry && !aborting_)
        steps_.push_front(std::move(step));
}

INT_PTR DialogDriver::Run(const std::function<INT_PTR()>& entry)
{
    if (g_running) {
        ADD_FAILURE() << "dialog driver: Run called while another run is going on";
        return entry();
    }
    g_running = this;
    runStart_ = GetTickCount64();
    idleSince_ = 0;
    aborting_ = false;
    dismissing_.clear();
    UINT_PTR timer = SetTimer(nullptr, 0, kTickMs, &DialogDriver::OnTimer);
    INT_PTR result = entry();
    KillTimer(nullptr, timer);
    g_running = nullptr;
    if (!steps_.empty()) {
        std::string left;
        for (const QueuedStep& s : steps_)
            left += (left.empty() ? "" : ", ") + s.name;
        ADD_FAILURE() << "dialog driver: the modal entry returned with steps still queued: " << left;
        steps_.clear();
    }
    // Closes what the entry left behind, within a bound.
    for (ULONGLONG until = GetTickCount64() + 2000; GetTickCount64() < until && !LeftBehind().empty();) {
        DismissOne();
        PumpMessages();
        MsgWaitForMultipleObjects(0, nullptr, FALSE, kTickMs, QS_ALLINPUT);
    }
    dismissing_.clear();
    if (marker_)
        DestroyWindow(marker_);
    marker_ = nullptr;
    current_ = nullptr;
    return result;
}

}  // namespace zvtest
