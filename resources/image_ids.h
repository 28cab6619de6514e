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

#define IDD_ADJ_COLORS 204

// The contrast and brightness page: three bars with their numbers, the
// equalise box, and either the intensity curve (1610 to 1615) or the
// thumbnail (1616, 1617).
#define IDC_ADJ_CONTRAST_LABEL 1600
#define IDC_ADJ_CONTRAST 1601
#define IDC_ADJ_CONTRAST_EDIT 1602
#define IDC_ADJ_BRIGHT_LABEL 1603
#define IDC_ADJ_BRIGHT 1604
#define IDC_ADJ_BRIGHT_EDIT 1605
#define IDC_ADJ_GAMMA_LABEL 1606
#define IDC_ADJ_GAMMA 1607
#define IDC_ADJ_GAMMA_EDIT 1608
#define IDC_ADJ_HIST 1609
#define IDC_ADJ_CURVE 1610
#define IDC_ADJ_CURVE_IN 1611
#define IDC_ADJ_CURVE_O 1612
#define IDC_ADJ_CURVE_U 1613
#define IDC_ADJ_CURVE_T 1614
#define IDC_ADJ_CURVE_TITLE 1615
#define IDC_ADJ_PREVIEW 1616
#define IDC_ADJ_PREVIEW_FRAME 1617

#define IDD_NUM_COLORS 205

// The number of colours page.
#define IDC_NUM_LIST 1700
#define IDC_NUM_LIST_LABEL 1701
#define IDC_NUM_METHOD_GROUP 1702
#define IDC_NUM_SFREQ_LABEL 1703
#define IDC_NUM_SFREQ 1704
#define IDC_NUM_OPAL 1705
#define IDC_NUM_SNAP 1710
#define IDC_NUM_DITHER 1711
#define IDC_NUM_HALFTONE 1712
#define IDC_NUM_DIFFUSE 1713

#define IDS_TWO_COLOURS 15012
#define IDS_REDUCTION_VALUES 15013
#define IDS_OPAL_NEEDS_256 15014
#define IDS_BIT_SUFFIX 15015
#define IDS_SAME_DEPTH 15016

#define IDD_EDIT_COLORS 202

// The colour changes page.
#define IDC_EDC_MODIFY 3100
#define IDC_EDC_DELETE 3101
#define IDC_EDC_CLEAR 3102
#define IDC_EDC_LIST 3103
#define IDC_EDC_FROM_TITLE 3104
#define IDC_EDC_TO_TITLE 3105
#define IDC_EDC_APPLY 3106
