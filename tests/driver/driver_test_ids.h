// Ids of the test-only dialog and property sheet pages.
#pragma once

#define IDD_DRIVER_TEST 100
#define IDD_PAGE_FIRST 101
#define IDD_PAGE_SECOND 102

#define IDC_NAME 1001
#define IDC_COUNT 1002
#define IDC_KEEP 1003
#define IDC_COLOUR 1004
#define IDC_ASK 1005
#define IDC_SIZES 1006
#define IDC_SHORT 1007

#define IDC_HOLD 1101
#define IDC_FIRST_EDIT 1102
#define IDC_SECOND_EDIT 1201
