#include "dialog_driver.h"

#include <commctrl.h>
#include <prsht.h>
#include <wincodec.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <exception>
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

std::string ClassOf(HWND window)
{
    char name[64] = {};
    GetClassNameA(window, name, sizeof name);
    return name;
}

bool IsClass(HWND window, const char* name)
{
    return lstrcmpiA(ClassOf(window).c_str(), name) == 0;
}

std::string Quote(const std::string& text)
{
    return "\"" + text + "\"";
}

std::string Describe(HWND window)
{
    if (!window)
        return "no window";
    return ClassOf(window) + " " + Quote(DialogDriver::TextOf(window));
}

// The dialog a control belongs to: the page of a property sheet, or the
// dialog itself.
HWND OwningDialog(HWND control)
{
    for (HWND w = GetParent(control); w; w = GetParent(w)) {
        if (IsClass(w, "#32770"))
            return w;
        if (!(GetWindowLongPtrA(w, GWL_STYLE) & WS_CHILD))
            return w;
    }
    return nullptr;
}

// Enumeration callbacks are WINAPI functions, which on 32-bit Windows a
// lambda is not; these run a function object for each window instead,
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

template <class F>
void ForEachThreadWindow(F f)
{
    EnumThreadWindows(GetCurrentThreadId(), &CallForWindow<F>, reinterpret_cast<LPARAM>(&f));
}

HWND FirstDescendantOfClass(HWND root, const char* className)
{
    HWND found = nullptr;
    ForEachDescendant(root, [&](HWND w) {
        if (IsClass(w, className))
            found = w;
        return !found;
    });
    return found;
}

// A control a user can act on now; otherwise why not, for the retry.
Result Usable(HWND target, int id, HWND* control)
{
    *control = nullptr;
    if (!target)
        return Retry("no window of this thread is up");
    HWND c = DialogDriver::FindControl(target, id);
    if (!c)
        return Retry(Describe(target) + " has no control " + std::to_string(id));
    if (!IsWindowVisible(c))
        return Retry("control " + std::to_string(id) + " is hidden");
    if (!IsWindowEnabled(c))
        return Retry("control " + std::to_string(id) + " is disabled");
    *control = c;
    return Done();
}

// A step that acts on control `id` of the target once a user could.
DialogDriver::StepFn OnControl(int id, std::function<Result(HWND control)> act)
{
    return [id, act = std::move(act)](DialogDriver&, HWND target) {
        HWND control;
        Result r = Usable(target, id, &control);
        return r.outcome == Outcome::Done ? act(control) : r;
    };
}

// A step that checks control `id` of the target once it exists.
DialogDriver::StepFn CheckControl(int id, std::function<void(HWND control)> check)
{
    return [id, check = std::move(check)](DialogDriver&, HWND target) {
        HWND c = target ? DialogDriver::FindControl(target, id) : nullptr;
        if (!c)
            return Retry(Describe(target) + " has no control " + std::to_string(id));
        check(c);
        return Done();
    };
}

void Notify(HWND control, WORD code)
{
    SendMessageA(GetParent(control), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(control), code),
                 reinterpret_cast<LPARAM>(control));
}

// A pick with the mouse ends the drop-down with both notifications.
Result PickComboEntry(HWND control, LRESULT index)
{
    SendMessageA(control, CB_SETCURSEL, index, 0);
    Notify(control, CBN_SELENDOK);
    Notify(control, CBN_SELCHANGE);
    return Done();
}

void PumpMessages()
{
    MSG msg;
    while (PeekMessageA(&msg, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&msg);
        DispatchMessageA(&msg);
    }
}

// Presses a dialog's or sheet's button of this id as a user would: only
// when it shows and is enabled.
Result PressButton(HWND target, int id, int sheetButton, const char* label)
{
    if (!target)
        return Retry("no window of this thread is up");
    HWND button = GetDlgItem(target, id);
    if (button && !IsWindowVisible(button))
        return Retry(std::string("the ") + label + " button is hidden");
    if (button && !IsWindowEnabled(button))
        return Retry(std::string("the ") + label + " button is disabled");
    if (DialogDriver::IsPropertySheet(target)) {
        PropSheet_PressButton(target, sheetButton);
        return Done();
    }
    if (button) {
        SendMessageA(button, BM_CLICK, 0, 0);
        return Done();
    }
    // Enter and Esc reach a dialog with no such button as this command.
    if (id == IDOK || id == IDCANCEL) {
        SendMessageA(target, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), 0);
        return Done();
    }
    return Failure(Describe(target) + " has no " + label + " button");
}

// Paints the window and its children now, into the surface that Wine keeps
// for it, and handles what the painting posted.
void PaintNow(HWND window)
{
    RedrawWindow(window, nullptr, nullptr,
                 RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN | RDW_UPDATENOW);
    PumpMessages();
    GdiFlush();
}

// Writes 24-bit top-down BGR rows as a PNG through WIC; on failure, says
// which call failed.
bool WritePng(const std::string& path, UINT width, UINT height, UINT stride, BYTE* bits, std::string* error)
{
    HRESULT init = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    IWICImagingFactory* factory = nullptr;
    IWICStream* stream = nullptr;
    IWICBitmapEncoder* encoder = nullptr;
    IWICBitmapFrameEncode* frame = nullptr;
    WICPixelFormatGUID format = GUID_WICPixelFormat24bppBGR;
    HRESULT hr = S_OK;
    const char* step = "";
    auto next = [&](const char* name, auto call) {
        if (SUCCEEDED(hr)) {
            step = name;
            hr = call();
        }
    };
    next("CoCreateInstance(WICImagingFactory)", [&] {
        return CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER, IID_IWICImagingFactory,
                                reinterpret_cast<void**>(&factory));
    });
    next("CreateStream", [&] { return factory->CreateStream(&stream); });
    next("InitializeFromFilename", [&] {
        return stream->InitializeFromFilename(std::wstring(path.begin(), path.end()).c_str(), GENERIC_WRITE);
    });
    next("CreateEncoder(PNG)", [&] { return factory->CreateEncoder(GUID_ContainerFormatPng, nullptr, &encoder); });
    next("Initialize", [&] { return encoder->Initialize(stream, WICBitmapEncoderNoCache); });
    next("CreateNewFrame", [&] { return encoder->CreateNewFrame(&frame, nullptr); });
    next("Initialize(frame)", [&] { return frame->Initialize(nullptr); });
    next("SetSize", [&] { return frame->SetSize(width, height); });
    next("SetPixelFormat", [&] {
        HRESULT r = frame->SetPixelFormat(&format);
        return SUCCEEDED(r) && !IsEqualGUID(format, GUID_WICPixelFormat24bppBGR) ? WINCODEC_ERR_UNSUPPORTEDPIXELFORMAT
                                                                                 : r;
    });
    next("WritePixels", [&] { return frame->WritePixels(height, stride, stride * height, bits); });
    next("Commit", [&] { return frame->Commit(); });
    next("Commit(encoder)", [&] { return encoder->Commit(); });
    for (IUnknown* object : std::initializer_list<IUnknown*>{frame, encoder, stream, factory})
        if (object)
            object->Release();
    if (SUCCEEDED(init))
        CoUninitialize();
    if (FAILED(hr) && error) {
        char code[16];
        wsprintfA(code, "0x%08lX", static_cast<unsigned long>(hr));
        *error = std::string(step) + " failed with " + code;
    }
    return SUCCEEDED(hr);
}

// The text of a message box: its static texts other than the icon.
std::string MessageBoxText(HWND box)
{
    std::string text;
    ForEachDescendant(box, [&](HWND w) {
        LONG_PTR style = GetWindowLongPtrA(w, GWL_STYLE);
        if (IsClass(w, "Static") && (style & SS_TYPEMASK) != SS_ICON) {
            std::string part = DialogDriver::TextOf(w);
            if (!part.empty())
                text += (text.empty() ? "" : "\n") + part;
        }
        return true;
    });
    return text;
}

// The gallery file of a screenshot: <folder of the program>\..\gallery.
std::string GalleryPath(const std::string& name)
{
    char exe[MAX_PATH] = {};
    GetModuleFileNameA(nullptr, exe, MAX_PATH);
    std::string folder = exe;
    folder.resize(folder.find_last_of("\\/") + 1);
    folder += "..\\gallery";
    char full[MAX_PATH] = {};
    if (GetFullPathNameA(folder.c_str(), MAX_PATH, full, nullptr))
        folder = full;
    CreateDirectoryA(folder.c_str(), nullptr);
    return folder + "\\" + name + ".png";
}

// Wine keeps each top-level window's picture, children included, in a
// surface of its own, and a window DC reads from it: another program's
// window on top (tests run side by side on one display) does not get into
// the picture as it would when reading the screen. PrintWindow draws a
// blank picture under Xvfb.
bool SaveWindowPng(HWND window, const std::string& path, std::string* error)
{
    RECT rect = {};
    GetWindowRect(window, &rect);
    int width = rect.right - rect.left, height = rect.bottom - rect.top;
    if (width <= 0 || height <= 0) {
        *error = "the window is gone or has no area";
        return false;
    }
    HDC source = GetWindowDC(window);
    HDC memory = CreateCompatibleDC(source);
    BITMAPINFO info = {};
    // Top-down rows, as WIC wants them.
    info.bmiHeader = {static_cast<DWORD>(sizeof info.bmiHeader), width, -height, 1, 24, BI_RGB, 0, 0, 0, 0, 0};
    void* bits = nullptr;
    HBITMAP dib = CreateDIBSection(source, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    HGDIOBJ old = dib ? SelectObject(memory, dib) : nullptr;
    bool ok = dib && BitBlt(memory, 0, 0, width, height, source, 0, 0, SRCCOPY);
    GdiFlush();
    if (!ok)
        *error = "copying the window's picture failed";
    else
        ok = WritePng(path, width, height, (static_cast<UINT>(width) * 3 + 3) & ~3u, static_cast<BYTE*>(bits), error);
    if (dib) {
        SelectObject(memory, old);
        DeleteObject(dib);
    }
    DeleteDC(memory);
    ReleaseDC(window, source);
    return ok;
}

}  // namespace

DialogDriver::~DialogDriver()
{
    if (!steps_.empty())
        ADD_FAILURE() << "dialog driver: steps were queued but never run (" << steps_.front().name << ", ...)";
    if (g_running == this)
        g_running = nullptr;
}

DialogDriver& DialogDriver::SetStepTimeout(DWORD ms)
{
    stepTimeout_ = ms;
    return *this;
}

DialogDriver& DialogDriver::SetRunTimeout(DWORD ms)
{
    runTimeout_ = ms;
    return *this;
}

DialogDriver& DialogDriver::Queue(std::string name, StepFn fn)
{
    QueuedStep step;
    step.name = "step " + std::to_string(++stepNumber_) + " " + name;
    step.fn = std::move(fn);
    step.timeout = stepTimeout_;
    steps_.push_back(std::move(step));
    return *this;
}

// ---- finding windows ----

std::vector<HWND> DialogDriver::ThreadWindows()
{
    std::vector<HWND> windows;
    ForEachThreadWindow([&](HWND w) {
        if (IsWindowVisible(w))
            windows.push_back(w);
        return true;
    });
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
    LRESULT length = SendMessageA(window, WM_GETTEXTLENGTH, 0, 0);
    std::string text(static_cast<size_t>(length) + 1, '\0');
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
    for (HWND w : ThreadWindows()) {
        if (!IsWindowEnabled(w) || (GetWindowLongPtrA(w, GWL_EXSTYLE) & WS_EX_TOOLWINDOW))
            continue;
        if (IsClass(w, "#32768"))  // a menu
            continue;
        return w;
    }
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
    return Queue("WaitControl(" + std::to_string(id) + ")", [id](DialogDriver&, HWND target) {
        if (!target)
            return Retry("no window of this thread is up");
        HWND c = FindControl(target, id);
        if (!c || !IsWindowVisible(c))
            return Retry(Describe(target) + " shows no control " + std::to_string(id));
        return Done();
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
    return Queue("Type(" + std::to_string(id) + ", " + Quote(text) + ")", OnControl(id, [id, text](HWND control) {
        // A combo box takes typing in the edit it holds.
        HWND edit = IsClass(control, "Edit") ? control : FirstDescendantOfClass(control, "Edit");
        if (!edit)
            return Failure("control " + std::to_string(id) + " (" + ClassOf(control) + ") has no edit to type into");
        if (GetWindowLongPtrA(edit, GWL_STYLE) & ES_READONLY)
            return Retry("control " + std::to_string(id) + " is read-only");
        // As a user: move the focus there (a dialog selects an edit's text
        // when it gets the focus this way), select everything, then type
        // each character, so that limits and filters of the edit apply
        // and each keystroke raises its own EN_CHANGE.
        if (HWND dialog = OwningDialog(control))
            SendMessageA(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control), TRUE);
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
    return Queue("SetText(" + std::to_string(id) + ", " + Quote(text) + ")", OnControl(id, [text](HWND control) {
        SendMessageA(control, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
        return Done();
    }));
}

DialogDriver& DialogDriver::Click(int id)
{
    return Queue("Click(" + std::to_string(id) + ")", OnControl(id, [](HWND control) {
        SendMessageA(control, BM_CLICK, 0, 0);
        return Done();
    }));
}

DialogDriver& DialogDriver::SetCheck(int id, bool checked)
{
    return Queue("SetCheck(" + std::to_string(id) + ", " + (checked ? "true" : "false") + ")",
                 OnControl(id, [id, checked](HWND control) {
        WPARAM want = checked ? BST_CHECKED : BST_UNCHECKED;
        // A three-state box may need two clicks.
        for (int i = 0; i < 3 && SendMessageA(control, BM_GETCHECK, 0, 0) != static_cast<LRESULT>(want); ++i)
            SendMessageA(control, BM_CLICK, 0, 0);
        if (SendMessageA(control, BM_GETCHECK, 0, 0) != static_cast<LRESULT>(want))
            return Failure("clicking control " + std::to_string(id) + " does not change its check state");
        return Done();
    }));
}

DialogDriver& DialogDriver::PickCombo(int id, int index)
{
    return Queue("PickCombo(" + std::to_string(id) + ", " + std::to_string(index) + ")",
                 OnControl(id, [id, index](HWND control) {
        LRESULT count = SendMessageA(control, CB_GETCOUNT, 0, 0);
        if (index < 0 || index >= count)
            return Retry("combo " + std::to_string(id) + " has " + std::to_string(count) + " entries");
        return PickComboEntry(control, index);
    }));
}

DialogDriver& DialogDriver::PickCombo(int id, const std::string& text)
{
    return Queue("PickCombo(" + std::to_string(id) + ", " + Quote(text) + ")",
                 OnControl(id, [id, text](HWND control) {
        LRESULT index = SendMessageA(control, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                     reinterpret_cast<LPARAM>(text.c_str()));
        if (index == CB_ERR) {
            std::string entries;
            LRESULT count = SendMessageA(control, CB_GETCOUNT, 0, 0);
            for (LRESULT i = 0; i < count; ++i) {
                char item[256] = {};
                if (SendMessageA(control, CB_GETLBTEXTLEN, i, 0) < static_cast<LRESULT>(sizeof item))
                    SendMessageA(control, CB_GETLBTEXT, i, reinterpret_cast<LPARAM>(item));
                entries += (i ? ", " : "") + Quote(item);
            }
            return Retry("combo " + std::to_string(id) + " has no entry " + Quote(text) + " (it has " +
                         (entries.empty() ? "none" : entries) + ")");
        }
        return PickComboEntry(control, index);
    }));
}

DialogDriver& DialogDriver::PickList(int id, const std::string& text)
{
    return Queue("PickList(" + std::to_string(id) + ", " + Quote(text) + ")", OnControl(id, [id, text](HWND control) {
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

// ---- property sheets and buttons ----

DialogDriver& DialogDriver::SelectTab(int index)
{
    return Queue("SelectTab(" + std::to_string(index) + ")", [index](DialogDriver&, HWND target) {
        if (!target || !IsPropertySheet(target))
            return Retry(Describe(target) + " is not a property sheet");
        HWND tab = PropSheet_GetTabControl(target);
        int count = TabCtrl_GetItemCount(tab);
        if (index < 0 || index >= count)
            return Failure("the sheet has " + std::to_string(count) + " pages");
        // The page that is left gets PSN_KILLACTIVE and may refuse.
        PropSheet_SetCurSel(target, nullptr, index);
        return Done();
    });
}

DialogDriver& DialogDriver::PressOk()
{
    return Queue("PressOk()", [](DialogDriver&, HWND t) { return PressButton(t, IDOK, PSBTN_OK, "OK"); });
}

DialogDriver& DialogDriver::PressCancel()
{
    return Queue("PressCancel()",
                 [](DialogDriver&, HWND t) { return PressButton(t, IDCANCEL, PSBTN_CANCEL, "Cancel"); });
}

DialogDriver& DialogDriver::PressHelp()
{
    return Queue("PressHelp()", [](DialogDriver&, HWND t) { return PressButton(t, IDHELP, PSBTN_HELP, "Help"); });
}

DialogDriver& DialogDriver::PressApply()
{
    // The sheet's Apply button has this id in every implementation.
    constexpr int kApplyButton = 0x3021;
    return Queue("PressApply()",
                 [](DialogDriver&, HWND t) { return PressButton(t, kApplyButton, PSBTN_APPLYNOW, "Apply"); });
}

DialogDriver& DialogDriver::SendHelp(int id)
{
    return Queue("SendHelp(" + std::to_string(id) + ")", [id](DialogDriver&, HWND target) {
        HWND control = target;
        if (id != 0) {
            Result r = Usable(target, id, &control);
            if (r.outcome != Outcome::Done)
                return r;
        } else if (!target) {
            return Retry("no window of this thread is up");
        }
        RECT rect;
        GetWindowRect(control, &rect);
        HELPINFO info = {};
        info.cbSize = sizeof info;
        info.iContextType = HELPINFO_WINDOW;
        info.iCtrlId = GetDlgCtrlID(control);
        info.hItemHandle = control;
        info.dwContextId = GetWindowContextHelpId(control);
        info.MousePos = {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
        // F1 sends it to the window with the focus; the default handling
        // passes it up to the dialog.
        SendMessageA(control, WM_HELP, 0, reinterpret_cast<LPARAM>(&info));
        return Done();
    });
}

DialogDriver& DialogDriver::ContextMenu(int id)
{
    return Queue("ContextMenu(" + std::to_string(id) + ")", OnControl(id, [](HWND control) {
        RECT rect;
        GetWindowRect(control, &rect);
        int x = (rect.left + rect.right) / 2;
        int y = (rect.top + rect.bottom) / 2;
        // A right click sends it to the control under the mouse, which
        // passes it to its parent unless it has a menu of its own.
        SendMessageA(control, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(control), MAKELPARAM(x, y));
        return Done();
    }));
}

DialogDriver& DialogDriver::AnswerMessageBox(int button, const std::string& textContains, std::string* textOut)
{
    std::string name = "AnswerMessageBox(" + std::to_string(button);
    if (!textContains.empty())
        name += ", " + Quote(textContains);
    name += ")";
    return Queue(name, [button, textContains, textOut](DialogDriver& d, HWND) {
        std::string why;
        HWND box = d.FindMessageBox(textContains, &why);
        if (!box)
            return Retry(why);
        std::string text = MessageBoxText(box);
        HWND b = GetDlgItem(box, button);
        if (!b)
            return Failure("the message box " + Quote(text) + " has no button " + std::to_string(button));
        if (textOut)
            *textOut = text;
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
    return Queue("ExpectText(" + std::to_string(id) + ", " + Quote(text) + ")", CheckControl(id, [id, text](HWND c) {
        EXPECT_EQ(TextOf(c), text) << "text of control " << id;
    }));
}

DialogDriver& DialogDriver::ExpectChecked(int id, bool checked)
{
    return Queue("ExpectChecked(" + std::to_string(id) + ")", CheckControl(id, [id, checked](HWND c) {
        EXPECT_EQ(SendMessageA(c, BM_GETCHECK, 0, 0) == BST_CHECKED, checked) << "check state of control " << id;
    }));
}

DialogDriver& DialogDriver::ExpectEnabled(int id, bool enabled)
{
    return Queue("ExpectEnabled(" + std::to_string(id) + ")", CheckControl(id, [id, enabled](HWND c) {
        EXPECT_EQ(IsWindowEnabled(c) != FALSE, enabled) << "enabled state of control " << id;
    }));
}

DialogDriver& DialogDriver::ExpectPage(int index)
{
    return Queue("ExpectPage(" + std::to_string(index) + ")", [index](DialogDriver&, HWND target) {
        if (!target || !IsPropertySheet(target))
            return Retry(Describe(target) + " is not a property sheet");
        EXPECT_EQ(TabCtrl_GetCurSel(PropSheet_GetTabControl(target)), index) << "current page of the sheet";
        return Done();
    });
}

// ---- screenshots ----

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
        d.quiet_ = true;
        PaintNow(target);
        d.quiet_ = false;
        std::string error;
        if (!SaveWindowPng(target, GalleryPath(name), &error))
            return Failure("screenshot of " + Describe(target) + ": " + error);
        return Done();
    });
}

// ---- free-form steps ----

DialogDriver& DialogDriver::Do(std::function<void(HWND target)> action)
{
    return Queue("Do(...)", [action = std::move(action)](DialogDriver&, HWND target) {
        if (!target)
            return Retry("no window of this thread is up");
        action(target);
        return Done();
    });
}

DialogDriver& DialogDriver::Step(std::string name, StepFn step)
{
    return Queue(std::move(name), std::move(step));
}

// ---- running ----

void DialogDriver::Fail(const std::string& message)
{
    failures_.push_back(message);
    ADD_FAILURE() << "dialog driver: " << message;
    aborting_ = true;
    steps_.clear();
}

void DialogDriver::DismissOne()
{
    std::vector<HWND> windows = ThreadWindows();
    if (windows.empty())
        return;
    HWND w = windows.front();
    ULONGLONG now = GetTickCount64();
    auto found = dismissing_.find(w);
    if (found == dismissing_.end()) {
        dismissing_[w] = now;
        if (IsClass(w, "#32768"))
            EndMenu();
        else if (IsPropertySheet(w))
            PropSheet_PressButton(w, PSBTN_CANCEL);
        else if (IsClass(w, "#32770"))
            PostMessageA(w, WM_COMMAND, MAKEWPARAM(IDCANCEL, BN_CLICKED), 0);
        else
            PostMessageA(w, WM_CLOSE, 0, 0);
        return;
    }
    ULONGLONG waited = now - found->second;
    if (waited >= kForceMs) {
        DestroyWindow(w);
    } else if (waited >= kPoliteMs && IsClass(w, "#32770") && !IsPropertySheet(w)) {
        EndDialog(w, IDCANCEL);
    }
}

void DialogDriver::DismissLeftovers()
{
    ULONGLONG until = GetTickCount64() + 2000;
    while (GetTickCount64() < until && !ThreadWindows().empty()) {
        DismissOne();
        PumpMessages();
        MsgWaitForMultipleObjects(0, nullptr, FALSE, kTickMs, QS_ALLINPUT);
    }
    dismissing_.clear();
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
    Result result;
    try {
        result = step.fn(*this, Target());
    } catch (const std::exception& e) {
        result = Failure(std::string("threw ") + e.what());
    } catch (...) {
        result = Failure("threw");
    }
    switch (result.outcome) {
    case Outcome::Done:
        break;
    case Outcome::Retry:
        if (aborting_)
            break;
        if (GetTickCount64() - step.firstTry >= step.timeout) {
            Fail(step.name + " did not succeed within " + std::to_string(step.timeout) + " ms: " + result.why);
            break;
        }
        steps_.push_front(std::move(step));
        break;
    case Outcome::Fail:
        Fail(step.name + " failed: " + result.why);
        break;
    }
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
        failures_.push_back("the modal entry returned with steps still queued: " + left);
        ADD_FAILURE() << "dialog driver: " << failures_.back();
        steps_.clear();
    }
    DismissLeftovers();
    if (marker_)
        DestroyWindow(marker_);
    marker_ = nullptr;
    current_ = nullptr;
    return result;
}

}  // namespace zvtest
