// Resources of the format tests: the label strings that the option library
// passes, and a dialog with the list controls that its pages bind.
#pragma once

#define IDS_ALL_FILES 15092
#define IDS_TIFF_FILTER 15053
#define IDS_TEXT_FILTER 15064
#define IDS_CHAINED_FILTER 15300

#define IDD_LISTS 100
#define IDC_FLAVOR 1500
#define IDC_FLAVOR_LABEL 1502
#define IDC_DEPTH 1700
#define IDC_DEPTH_LABEL 1701
