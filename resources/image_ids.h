// Numbers of the image adjustment pages: their templates and controls.
#pragma once

#define IDD_ROTATE 203

// The rotation page.
#define IDC_ROT_FLIP_GROUP 1800
#define IDC_ROT_FLIPV 1801
#define IDC_ROT_FLIPH 1802
#define IDC_ROT_GROUP 1803
#define IDC_ROT_ANGLE_LABEL 1804
#define IDC_ROT_ANGLE 1805
#define IDC_ROT_SCROLL 1806
#define IDC_ROT_SPIN_UP 1807
#define IDC_ROT_SPIN_DOWN 1808
#define IDC_ROT_DIAL 1809
#define IDC_ROT_PREVIEW 1810
#define IDC_ROT_PREVIEW_FRAME 1811
#define IDC_ROT_AT_0 1812
#define IDC_ROT_AT_90 1813
#define IDC_ROT_AT_180 1814
#define IDC_ROT_AT_270 1815
