// String ids of the test program's own table.
#pragma once

#define IDS_UNITS_SHOWN 100
#define IDS_UNITS_SHOWN_2 101
#define IDS_UNITS_SHOWN_3 102
#define IDS_UNITS_VALUES 110
#define IDS_TRANS_VALUES 120
#define IDS_OPEN_CHAIN 130  // ends in "~" with no entry after it

// The options dialog that bound controls are tried on.
#define IDD_TEST_OPTIONS 200
#define IDC_UNITS 1501
#define IDC_UNITS_LABEL 1503
#define IDC_SMOOTH 1506
#define IDC_WIDTH 1507
#define IDC_WIDTH_LABEL 1508
#define IDC_QUALITY_LABEL 4700
#define IDC_QUALITY_BAR 4701
#define IDC_QUALITY 4702
#define IDC_TRANS_FIRST 5201
#define IDC_TRANS_LAST 5203
