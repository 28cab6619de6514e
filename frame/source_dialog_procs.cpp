// The procedures behind the source dialog numbers. A number without a
// procedure in this library gives null: the number alone still says whether
// the format has a dialog.
#include "frame.h"

DLGPROC SourceDialogProcedure(zv::SourceDialogProc which)
{
    switch (which) {
    case zv::SourceDialogProc::kCgm:
        return CGMSrcDlgProc;
    case zv::SourceDialogProc::kClipboard:
        return CLPSrcDlgProc;
    case zv::SourceDialogProc::k2dOr3d:
        return Src2dOr3dDlgProc;
    case zv::SourceDialogProc::kPixOgf:
        return PIXOGFSrcDlgProc;
    case zv::SourceDialogProc::kPcd:
        return PCDSrcDlgProc;
    case zv::SourceDialogProc::k3d:
        return Zv3dSrcOptionsDlgProc;
    case zv::SourceDialogProc::kInputOptions:
        return InputOptionsDlgProc;
    case zv::SourceDialogProc::kPicPgl:
        return PICPGLSrcDlgProc;
    case zv::SourceDialogProc::kPcl:
        return PCLSrcDlgProc;
    case zv::SourceDialogProc::kNone:
        break;
    }
    return nullptr;
}
