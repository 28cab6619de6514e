// What the library did, for reading a failure in the field: each dialog
// entry that starts or is refused, each dialog's end, every message box and
// help call, and the option core's replays. Off unless the environment
// variable ZVOPT32_DIAGNOSTICS is set to anything but "0" when the call is
// made; then every line goes to OutputDebugStringA, prefixed "ZVOPT32: ",
// where a debugger, DebugView or Wine's debug channel (WINEDEBUG=+debugstr)
// shows it. A line is cut at 511 bytes.
#pragma once

#ifdef __GNUC__
__attribute__((format(printf, 1, 2)))
#endif
void Diagnostic(const char* format, ...);
