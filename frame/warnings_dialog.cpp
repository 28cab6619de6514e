// The warnings dialog: the engine's warnings of a whole session in one
// modeless list, so that a long conversion goes on and the user reads them
// afterwards, and can keep them as a text file. It stands outside the dialog
// guard: a warning may come while any dialog of the library runs, or while
// none does, and the list outlives the entry that was running.
#include <cstdio>

#include "bounded_text.h"
#include "core_win.h"
#include "diagnostics.h"
#include "module.h"
#include "okacvt32.h"
#include "resource_ids.h"
#include "zvopt32.h"
#include "zvwio32.h"

namespace {

// A line of the list and the text of a warning number.
constexpr int kLineSize = 512;
constexpr int kMessageSize = 512;

constexpr char kWarningsFileStem[] = "zvwarn";
constexpr char kWarningsFileExt[] = "txt";

// The list into the file, one line each, in the order the list shows them.
void WriteWarningsFile(HWND dialog, const char* path)
{
    FILE* file = std::fopen(path, "w");
    if (file == nullptr) return;  // nothing is said: the list stays for another try
    LRESULT count = SendDlgItemMessageA(dialog, IDC_WARNINGS_LIST, LB_GETCOUNT, 0, 0);
    if (count != LB_ERR) {
        for (LRESULT i = 0; i < count; ++i) {
            char line[kLineSize] = "";
            // A line longer than the buffer can't be in the list: DoWarning
            // composed every one of them in a buffer of this size.
            if (SendDlgItemMessageA(dialog, IDC_WARNINGS_LIST, LB_GETTEXTLEN, WPARAM(i), 0) >= kLineSize) continue;
            SendDlgItemMessageA(dialog, IDC_WARNINGS_LIST, LB_GETTEXT, WPARAM(i), reinterpret_cast<LPARAM>(line));
            std::fputs(line, file);
            std::fputc('\n', file);
        }
    }
    std::fclose(file);
}

// Save...: the system's save dialog offers "zvwarn.txt" beside the library.
void SaveWarnings(HWND dialog)
{
    int filterCount = 0;
    char** filter = LoadFilterList(LibraryModule(), IDS_WARNINGS_FILTER, &filterCount);

    char folder[zv::kPathSize] = "";
    LibraryFolder(folder);
    char path[zv::kLongPathSize] = "";
    std::snprintf(path, sizeof path, "%s\\%s.%s", folder, kWarningsFileStem, kWarningsFileExt);
    char title[zv::kLongPathSize] = "";
    zv::CopyBounded(title, kWarningsFileStem);

    OPENFILENAMEA ofn = {};
    ofn.lStructSize = sizeof ofn;
    ofn.hwndOwner = dialog;
    ofn.hInstance = LibraryModule();
    ofn.lpstrFilter = filter != nullptr ? filter[0] : nullptr;
    ofn.nFilterIndex = 1;
    ofn.lpstrFile = path;
    ofn.nMaxFile = sizeof path;
    ofn.lpstrFileTitle = title;
    ofn.nMaxFileTitle = sizeof title;
    ofn.lpstrInitialDir = folder;
    ofn.lpstrDefExt = kWarningsFileExt;
    ofn.Flags = OFN_EXPLORER | OFN_PATHMUSTEXIST | OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT;
    if (GetSaveFileNameA(&ofn)) {
        Diagnostic("warnings saved to %s", path);
        WriteWarningsFile(dialog, path);
    }
    if (filter != nullptr) FreeFilterList(filter);
}

}  // namespace

extern "C" {

ZVOPT32_API int DoWarning(HWND parent, int code)
{
    OptionContext* options = Options();
    if (options == nullptr) return 1;
    if (options->warningsDlg == nullptr)
        options->warningsDlg = CreateDialogParamA(LibraryModule(), MAKEINTRESOURCEA(IDD_WARNINGS), parent,
                                                  WarningsDlgProc, 0);
    if (options->warningsDlg == nullptr) return 1;
    ShowWindow(options->warningsDlg, SW_SHOW);

    char text[kMessageSize] = "";
    if (MsgLib* messages = new MsgLib) {
        messages->GetMessageA(static_cast<short>(code), text);
        delete messages;
    }

    char line[kLineSize] = "";
    std::snprintf(line, sizeof line, "%d %s", code, text);
    SendDlgItemMessageA(options->warningsDlg, IDC_WARNINGS_LIST, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(line));
    Diagnostic("DoWarning: %s", line);
    return 1;
}

ZVOPT32_API INT_PTR CALLBACK WarningsDlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM)
{
    switch (message) {
    case WM_DESTROY:
        if (OptionContext* options = Options(); options != nullptr && options->warningsDlg == dialog)
            options->warningsDlg = nullptr;
        break;
    case WM_COMMAND:
        switch (LOWORD(wParam)) {
        case IDOK:
        case IDCANCEL:
            DestroyWindow(dialog);
            break;
        case IDC_WARNINGS_SAVE:
            SaveWarnings(dialog);
            break;
        default:
            break;  // Help has no topic of its own
        }
        break;
    default:
        break;
    }
    return 0;
}

}  // extern "C"
