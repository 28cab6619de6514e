// Holds Wine's desktop open for a whole test run. Wine ends the desktop
// process as soon as no program uses the desktop, and the next program that
// makes a window starts it again as its own child, handing it that test's
// output: ctest then waits for the output to close until the test's time
// runs out. Started before the tests with its output elsewhere, this
// program keeps the first desktop process alive until the run's wineserver
// ends. It says it holds the desktop by creating the file named by its
// argument.
#include <windows.h>

int main(int argc, char** argv)
{
    // A message-only window: it joins the desktop but never shows or takes
    // the activation from the windows under test.
    HWND window = CreateWindowExA(0, "STATIC", "", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    if (window == nullptr || GetDesktopWindow() == nullptr)
        return 1;
    if (argc > 1) {
        HANDLE ready = CreateFileA(argv[1], GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
        if (ready != INVALID_HANDLE_VALUE)
            CloseHandle(ready);
    }
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0)
        DispatchMessageA(&message);
    return 0;
}
