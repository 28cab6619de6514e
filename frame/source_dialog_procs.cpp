// The procedures behind the source dialog numbers. A number without a
// procedure in this library gives null: the number alone still says whether
// the format has a dialog.
#include "frame.h"

DLGPROC SourceDialogProcedure(zv::SourceDialogProc which)
{
    switch (which) {
    case zv::SourceDialogProc::kNone:
    case zv::SourceDialogProc::kCgm:          // CGMSrcDlgProc
    case zv::SourceDialogProc::kClipboard:    // CLPSrcDlgProc
    case zv::SourceDialogProc::k2dOr3d:       // Src2dOr3dDlgProc
    case zv::SourceDialogProc::kPixOgf:       // PIXOGFSrcDlgProc
    case zv::SourceDialogProc::kPcd:          // PCDSrcDlgProc
    case zv::SourceDialogProc::kPcl:          // PCLSrcDlgProc
    case zv::SourceDialogProc::kPicPgl:       // PICPGLSrcDlgProc
    case zv::SourceDialogProc::k3d:           // Zv3dSrcOptionsDlgProc
    case zv::SourceDialogProc::kInputOptions: // InputOptionsDlgProc
        break;
    }
    return nullptr;
}
