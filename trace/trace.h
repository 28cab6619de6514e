// Tracing inside the library: the trace page of the option sheets. The
// exported trace routines that it calls are declared in zvopt32.h.
#pragma once

#include <windows.h>

#include "toolkit.h"
#include "trace_ids.h"

// The trace options as a page of a sheet. A thin shell: every control is
// served by the exported trace routines, with what the option context holds.
class CTracePropPage : public CPropertyPage {
public:
    CTracePropPage();
    ~CTracePropPage() override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnOK() override;
    void OnCancel() override;

private:
    void InitPage();
    void Retrieve();
};
