#pragma once

// Page templates of the test program's own sheet pages. The edit fields
// carry numbers of the library's help table, so that a right click on them
// has a topic.
#define IDD_TEST_FIRST 100
#define IDD_TEST_SECOND 101
#define IDC_TEST_FIRST_EDIT 1601
#define IDC_TEST_SECOND_EDIT 1602
#define IDC_TEST_FIRST_CHECK 1603
