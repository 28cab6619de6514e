// Numbers of the destination pages of single formats (TIFF, GIF, ICO, JPEG,
// EPS, fax), their own controls and strings. The size controls they share
// with the generic pages stand in output_ids.h.
#pragma once

#define IDD_FAX_OUT 206
#define IDD_TIF_OUT 207
#define IDD_EPS_OUT 208
#define IDD_ICO_OUT 209
#define IDD_JPG_OUT 210
#define IDD_GIF_OUT 224

// TIFF: the button that makes a custom flavour from a sample file.
#define IDC_TIF_CUSTOM 3300

// Fax.
#define IDC_FAX_HOFF 3200
#define IDC_FAX_HOFF_LABEL 3201
#define IDC_FAX_VOFF 3202
#define IDC_FAX_VOFF_LABEL 3203
#define IDC_FAX_MPAGE 3204
#define IDC_FAX_RES_GROUP 3205
#define IDC_FAX_FINE 3206
#define IDC_FAX_COARSE 3207

// EPS.
#define IDC_EPS_FORMFEED 3400
#define IDC_EPS_UCR_LABEL 3401
#define IDC_EPS_UCR 3402
#define IDC_EPS_MODEL_GROUP 3403
#define IDC_EPS_RGB 3404
#define IDC_EPS_CMYK 3405
#define IDC_EPS_VIEW_LABEL 3406
#define IDC_EPS_VIEW 3407

// ICO.
#define IDC_ICO_SIZE_LABEL 4100
#define IDC_ICO_SIZE 4101

// JPEG.
#define IDC_JPG_QUALITY_LABEL 4700
#define IDC_JPG_QUALITY_BAR 4701
#define IDC_JPG_QUALITY 4702
#define IDC_JPG_HIGH 4703
#define IDC_JPG_LOW 4704

// GIF.
#define IDC_GIF_TRANS_GROUP 5200
#define IDC_GIF_TRANS_NONE 5201
#define IDC_GIF_TRANS_BLACK 5202
#define IDC_GIF_TRANS_WHITE 5203
#define IDC_GIF_INTERLACE 5204
#define IDC_GIF_MPAGE 5205

// The custom TIFF file dialog's template, by name, and its controls.
#define IDC_FILE_NAME_EDIT 1152

// Strings.
#define IDS_INVALID_TIFF 15022
#define IDS_RASTER_OPTIONS 15023
#define IDS_VECTOR_OPTIONS 15024
#define IDS_EMBVIEW_SHOWN 15026
#define IDS_EMBVIEW_VALUES 15027
#define IDS_TIFF_FILTER 15053
#define IDS_GIF_TRANS_VALUES 15061
#define IDS_ICO_SIZES 15062
#define IDS_BIGTIFF 15094
