// String ids of the test program's own table.
#pragma once

#define IDS_UNITS_SHOWN 100
#define IDS_UNITS_SHOWN_2 101
#define IDS_UNITS_SHOWN_3 102
#define IDS_UNITS_VALUES 110
#define IDS_TRANS_VALUES 120
#define IDS_OPEN_CHAIN 130  // ends in "~" with no entry after it
