// Numbers of the source dialogs: their templates, their controls and the
// strings they load.
#pragma once

#define IDD_PIXOGF_SOURCE 213
#define IDD_CGM_SOURCE 215
#define IDD_PCD_SOURCE 216
#define IDD_CLIPBOARD_SOURCE 217
#define IDD_INPUT_OPTIONS 218
#define IDD_3D_SOURCE 227
#define IDD_2D_OR_3D_SOURCE 232

// Scaling and memorize, in every dialog that reads pages of a document.
#define IDC_SRC_SCALING 1900
#define IDC_SRC_SCALE_OFF 1901
#define IDC_SRC_SCALE_WINDOW 1902
#define IDC_SRC_SCALE_WIDTH 1903
#define IDC_SRC_MEMORIZE 1904
// How a format that holds either kind is read.
#define IDC_SRC_CLASS_GROUP 65535
#define IDC_SRC_CLASS_2D 1905
#define IDC_SRC_CLASS_3D 1906
// Viewpoint and rendering of a three-dimensional reading.
#define IDC_SRC_VIEWPOINT 2000
#define IDC_SRC_VIEW_KEYBOARD 2001
#define IDC_SRC_VIEW_VR 2002
#define IDC_SRC_VIEW_CAD 2003
#define IDC_SRC_RENDERING 2004
#define IDC_SRC_RENDER_WIRE 2005
#define IDC_SRC_RENDER_FLAT 2006
#define IDC_SRC_RENDER_GOURAUD 2007
#define IDC_SRC_PERSPECTIVE 2008
// Own controls.
#define IDC_CGM_TRIM 4400
#define IDC_PIX_COARSE 2700
#define IDC_PIX_MEDIUM 2701
#define IDC_PIX_FINE 2702
#define IDC_PIX_AUTO 2703
#define IDC_PCD_RESOLUTION 2600
#define IDC_PCD_RESOLUTION_LABEL 2601
#define IDC_CLP_GROUP 1300
#define IDC_CLP_DIB 1301
#define IDC_CLP_WMF 1302
#define IDC_CLP_DDB 1303
#define IDC_CLP_TXT 1304
#define IDC_CLP_TIF 1305

#define IDS_PCD_RESOLUTIONS 15028
#define IDS_PCD_RESOLUTION_VALUES 15029

// The open dialog's child template below the system's dialog.
#define IDD_OPEN_CHILD 1536
#define IDC_OPEN_WARNINGS 1052
#define IDC_OPEN_OPTIONS 1036
#define IDS_ALL_FILES 15092

// The CUT reading: a classic file dialog for the palette, with the scaling
// choice beside it. The template goes by name.
#define IDS_CUT_PALETTE_FILTER 15021
#define IDC_CUT_NAME_LABEL 1090
#define IDC_CUT_FILES 1120
#define IDC_CUT_DIR_LABEL 65535
#define IDC_CUT_DIR 1088
#define IDC_CUT_DIRS 1121
#define IDC_CUT_TYPE_LABEL 1089
#define IDC_CUT_TYPES 1136
#define IDC_CUT_DRIVE_LABEL 1091
#define IDC_CUT_DRIVES 1137
#define IDC_CUT_READ_ONLY 1040

// The PCL font list, and the classic file dialog that asks for a font file
// (its template goes by name).
#define IDD_PCL_SOURCE 214
#define IDC_PCL_ADD 3700
#define IDC_PCL_DELETE 3701
#define IDC_PCL_CLEAR 3702
#define IDC_PCL_FONTS 3703
#define IDC_PCL_FONTS_LABEL 3704
#define IDC_PCL_TRIM 3705
#define IDS_PCL_FONT_FILTER 15030
#define IDS_PCL_FONT_FILES 15032

// The pen table dialogs of the plotter formats.
#define IDD_PIC_SOURCE 211
#define IDD_PGL_SOURCE 212
#define IDC_PEN_NUMBER_LABEL 5300
#define IDC_PEN_NUMBER 5301
#define IDC_PEN_WIDTH_LABEL 5302
#define IDC_PEN_WIDTH 5303
#define IDC_PEN_COLOR_LABEL 5304
#define IDC_PEN_COLOR 5305
#define IDC_PGL_TRIM 1040
#define IDS_PEN_COLORS 15033
#define IDS_PEN_COLOR_VALUES 15034
#define IDS_PEN_WIDTHS 15035
#define IDS_PEN_NUMBERS 15036
#define IDS_PGL_COLOR_MAP 15037
#define IDS_PIC_COLOR_MAP 15038
