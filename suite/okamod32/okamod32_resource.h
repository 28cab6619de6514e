// Resource ids of okamod32.dll.
#pragma once

#define IDR_FORMAT_TABLE 1  // RCDATA: the format table, formats.tab
