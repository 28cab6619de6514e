// The exported choice of dialog by format. The rules are in the frame's
// tables; these add the library's state and the dialog procedures.
#include "frame.h"
#include "zvopt32.h"

extern "C" ZVOPT32_API unsigned short GetDestDlgId(const char* destKey, short destType, short srcType)
{
    return zv::DestDialogNumber(destKey, destType, srcType);
}

extern "C" ZVOPT32_API unsigned short GetSrcDlgId(const char* srcExt, DLGPROC* dlgProc, short srcType,
                                                  int wantInputOptions)
{
    if (dlgProc)
        *dlgProc = nullptr;
    zv::SourceDialogChoice choice = zv::SourceDialogFor(srcExt, srcType, wantInputOptions, CurrentOperation());
    if (dlgProc)
        *dlgProc = SourceDialogProcedure(choice.proc);
    return choice.number;
}
