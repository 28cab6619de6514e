#pragma once

// Page templates of the test program's own sheet pages.
#define IDD_TEST_FIRST 100
#define IDD_TEST_SECOND 101
#define IDC_TEST_FIRST_EDIT 1601
#define IDC_TEST_SECOND_EDIT 1602
