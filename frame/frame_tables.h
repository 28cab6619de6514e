// The dialog frame's tables, free of the platform: which dialog belongs to a
// format, and which help topic belongs to a control or a whole dialog.
#pragma once

namespace zv {

// --- Dialog numbers: the resource numbers of the library's dialog templates.
enum DialogNumber : unsigned short {
    kDlgNone = 0,
    kDlgCutSource = 1,  // not a template: the CUT source has a dialog of its own making
    kDlgRasterOut = 200,
    kDlgVectorOut = 201,
    kDlgEditColors = 202,
    kDlgRotate = 203,
    kDlgAdjColors = 204,
    kDlgNumColors = 205,
    kDlgFaxOut = 206,
    kDlgTifOut = 207,
    kDlgEpsOut = 208,
    kDlgIcoOut = 209,
    kDlgJpgOut = 210,
    kDlgPicSource = 211,
    kDlgPglSource = 212,
    kDlgPixOgfSource = 213,
    kDlgPclSource = 214,
    kDlgCgmSource = 215,
    kDlgPcdSource = 216,
    kDlgClipboardSource = 217,
    kDlgInputOptions = 218,
    kDlgTiffCustomFlavors = 219,
    kDlgPrintPos = 220,
    kDlgTrace = 221,
    kDlgResize = 222,
    kDlgMetafileClass = 223,
    kDlgGifOut = 224,
    kDlgTargetApp = 225,
    kDlgWarnings = 226,
    kDlg3dSource = 227,
    kDlgEntityOut = 228,
    kDlgInfoRaster = 229,
    kDlgInfoVector = 230,
    kDlgInfoTiff = 231,
    kDlg2dOr3dSource = 232,
};

// The first page of a destination's option sheet, or kDlgNone when the
// destination has no options. destKey is the internal extension; a null key
// matches no name and leaves the choice to the types.
unsigned short DestDialogNumber(const char* destKey, short destType, short srcType);

// The dialog procedures that a source dialog number comes with. The frame
// turns them into the procedures themselves.
enum class SourceDialogProc {
    kNone,  // no procedure: no dialog, or one that its caller runs itself (CUT)
    kCgm,
    kClipboard,
    k2dOr3d,
    kPixOgf,
    kPcd,
    kPcl,
    kPicPgl,
    k3d,
    kInputOptions,
};

struct SourceDialogChoice {
    unsigned short number;
    SourceDialogProc proc;
};

// The dialog of a source format. Formats without one of their own get the
// input options, or the 3D source options for a 3D entity, when the caller
// wants them and no save is under way (operation 2); otherwise none.
SourceDialogChoice SourceDialogFor(const char* srcExt, short srcType, int wantInputOptions, short operation);

// --- Context help.

// The control table handed to the help viewer: control number and context
// in pairs, ending in a pair of zeros as the viewer needs.
constexpr int kHelpPairCount = 204;
constexpr int kHelpTableWords = 2 * kHelpPairCount + 2;

// Builds the table into words. unsigned long is the platform's DWORD, so the
// array goes to the viewer as it is.
void FillHelpTable(unsigned long (&words)[kHelpTableWords]);

// Topics of whole dialogs and pages: what their Help button and F1 open.
enum HelpContext : unsigned long {
    kHelpTiffCustomFiles = 1009,
    kHelpTiffApplications = 1010,
    kHelpCutSource = 1011,
    kHelpPclSource = 1022,
    kHelpPclFonts = 1027,
    kHelpClipboardSource = 1030,
    kHelpCgmSource = 1031,
    kHelpPcdSource = 1032,
    kHelpPicPglSource = 1033,
    kHelpPixOgfSource = 1034,
    kHelpInputOptions = 1035,
    kHelpPrintDialog = 1042,
    kHelpPrintPosPage = 1057,
    kHelp3dSource = 1065,
    kHelp2dOr3dSource = 1066,
    kHelpRotatePage = 1111,
    kHelpResizePage = 1119,
    kHelpColorPicker = 1200,
    kHelpEditColorsPage = 1214,
    kHelpAdjColorsPage = 1220,
    kHelpNumColorsPage = 1226,
    kHelpOutputPages = 1400,  // every output page, raster, vector, 3D and by format
    kHelpTargetApp = 1424,
    kHelpMetafileClass = 1428,
    kHelpInfoPage = 1601,
};

}  // namespace zv
