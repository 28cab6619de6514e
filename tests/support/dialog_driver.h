// Drives a modal dialog or property sheet from inside its own message loop,
// the way a user would: a test queues steps, then calls the modal entry
// through Run(). A thread timer runs one step per tick; any modal loop of
// the thread dispatches it, including nested ones (a message box opened by
// a click), so the steps after such a click run inside the nested loop.
//
//   DialogDriver d;
//   d.WaitWindow("Options").Type(1001, "12").Click(1002).PressOk();
//   INT_PTR r = d.Run([&] { return DialogBoxParamA(...); });
//
// A step that finds nothing to act on waits and retries, up to the step
// bound. A step that never succeeds fails the test (a non-fatal gtest
// failure naming the step); the driver then closes every window the thread
// still shows, so the modal entry returns and the test goes on.
#pragma once

#include <windows.h>

#include <prsht.h>

#include <deque>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace zvtest {

class DialogDriver {
public:
    // What a step tells the driver after one try.
    enum class Outcome { Done, Retry, Fail };
    struct Result {
        Outcome outcome;
        std::string why;  // for Retry: what is missing; for Fail: what went wrong
    };
    // A step gets the driver and the window it targets (null when none).
    using StepFn = std::function<Result(DialogDriver&, HWND target)>;

    DialogDriver() = default;
    ~DialogDriver();
    DialogDriver(const DialogDriver&) = delete;
    DialogDriver& operator=(const DialogDriver&) = delete;

    // Bounds, in milliseconds: for each step queued after this call that
    // waits (default 5000), and for the whole run (default 30000).
    DialogDriver& SetStepTimeout(DWORD ms) { stepTimeout_ = ms; return *this; }
    DialogDriver& SetRunTimeout(DWORD ms) { runTimeout_ = ms; return *this; }

    // A top-level window of this thread that is visible becomes the target
    // of the steps that follow. Without one, steps target the topmost
    // visible, enabled window of the thread.
    DialogDriver& WaitWindow(const std::string& caption);
    // Waits until the target holds a visible control with this id.
    DialogDriver& WaitControl(int id);
    // Waits until the condition holds (a help call recorded, a tag written):
    // the evidence that an action was handled. `what` names it in failures.
    DialogDriver& WaitUntil(const std::string& what, std::function<bool()> condition);
    // Waits until the thread has handled every message posted to it before
    // this step (a marker posted behind them comes through), so that a check
    // that something did not happen runs after the handling that could
    // have made it happen.
    DialogDriver& WaitHandled();

    // Acting on controls of the target (searched through nested children;
    // a visible control wins over a hidden one of the same id). Each waits
    // until the control is there, visible and enabled, as a user would.
    // Type replaces the text as a user does: focus, select all, one
    // WM_CHAR per character (the edit's limit and filters apply, and each
    // character raises EN_CHANGE). SetText sends WM_SETTEXT: one EN_CHANGE,
    // no limit.
    DialogDriver& Type(int id, const std::string& text);
    DialogDriver& SetText(int id, const std::string& text);
    DialogDriver& Click(int id);                          // BM_CLICK
    DialogDriver& SetCheck(int id, bool checked);         // clicks until the box shows the state
    DialogDriver& PickCombo(int id, const std::string& text);  // focus, CB_SETCURSEL, CBN_SELENDOK, CBN_SELCHANGE
    DialogDriver& PickList(int id, const std::string& text);  // LB_SETCURSEL (+ LBN_SELCHANGE with LBS_NOTIFY)

    // Property sheets (PropSheet_SetCurSel: the page may refuse to leave).
    DialogDriver& SelectTab(int index);

    // OK, Cancel, Help: PropSheet_PressButton on a sheet, else the dialog's
    // button of that id (or, for OK and Cancel, its WM_COMMAND when it has
    // none, as Enter and Esc give it).
    DialogDriver& PressOk() { return Press("PressOk()", "OK", IDOK, PSBTN_OK); }
    DialogDriver& PressCancel() { return Press("PressCancel()", "Cancel", IDCANCEL, PSBTN_CANCEL); }
    DialogDriver& PressHelp() { return Press("PressHelp()", "Help", IDHELP, PSBTN_HELP); }

    // WM_HELP with a HELPINFO for the control (0: the target window itself),
    // as F1 does; WM_CONTEXTMENU as a right click on the control does.
    DialogDriver& SendHelp(int id = 0);
    DialogDriver& ContextMenu(int id);

    // Waits for a message box whose text contains `textContains`, stores
    // its text in *textOut, and presses the button `button` (IDOK, IDYES,
    // ...). A message box is any dialog of this thread other than a sheet
    // and the window WaitWindow chose, topmost first: pick the dialog with
    // WaitWindow, or give a text, so that the dialog is not taken for one.
    DialogDriver& AnswerMessageBox(int button, const std::string& textContains = {},
                                   std::string* textOut = nullptr);

    // Checks made while the dialog is up. A mismatch is a non-fatal
    // failure, and the run goes on.
    DialogDriver& ExpectText(int id, const std::string& text);
    DialogDriver& ExpectChecked(int id, bool checked);
    DialogDriver& ExpectEnabled(int id, bool enabled);
    DialogDriver& ExpectPage(int index);

    // Writes the target window as the user sees it to the gallery:
    // <folder of the test program>\..\gallery\NAME.png
    DialogDriver& Screenshot(const std::string& name);

    // Anything else: Do runs once, when a target is up; Step retries until
    // it answers Done.
    DialogDriver& Do(std::function<void(HWND target)> action);
    DialogDriver& Step(std::string name, StepFn step) { return Queue(std::move(name), std::move(step)); }

    // Calls the modal entry with the steps running inside it, and returns
    // what the entry returns. Every failure is a gtest failure already.
    INT_PTR Run(const std::function<INT_PTR()>& entry);

    // Helpers also used by tests and free-form steps.
    static HWND FindControl(HWND root, int id);  // recursive, prefers a visible one
    static std::string TextOf(HWND window);
    static bool IsPropertySheet(HWND window);
    static std::vector<HWND> ThreadWindows();  // visible top-level windows, topmost first

    // A modeless window of this caption is meant to outlive the entry: the
    // closing of what the entry left behind passes it over.
    DialogDriver& LeaveOpen(const std::string& caption)
    {
        leaveOpen_.push_back(caption);
        return *this;
    }

private:
    struct QueuedStep {
        std::string name;
        StepFn fn;
        DWORD timeout = 0;
        ULONGLONG firstTry = 0;
    };

    DialogDriver& Queue(std::string name, StepFn fn);
    DialogDriver& Press(const char* step, const char* label, int id, int sheetButton);
    HWND Target();
    void Tick();
    void Fail(const std::string& message);
    HWND FindMessageBox(const std::string& textContains, std::string* why) const;
    void DismissOne();
    std::vector<HWND> LeftBehind() const;  // ThreadWindows but those left open
    static void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD);

    std::deque<QueuedStep> steps_;
    std::vector<std::string> leaveOpen_;
    std::map<HWND, ULONGLONG> dismissing_;  // window -> when its closing began
    HWND current_ = nullptr;
    HWND marker_ = nullptr;  // receives WaitHandled's markers while a run lasts
    DWORD stepTimeout_ = 5000;
    DWORD runTimeout_ = 30000;
    ULONGLONG runStart_ = 0;
    ULONGLONG idleSince_ = 0;
    int stepNumber_ = 0;
    bool aborting_ = false;
    bool quiet_ = false;  // set while a step pumps messages itself
};

}  // namespace zvtest
