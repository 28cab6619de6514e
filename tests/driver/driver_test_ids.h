// Ids of the test-only dialog and property sheet page.
#pragma once

#define IDD_DRIVER_TEST 100
#define IDD_PAGE_FIRST 101

#define IDC_COUNT 1002
#define IDC_ASK 1005
