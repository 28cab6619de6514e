// Numbers of the library's resources: dialog templates from 200, strings from 15000.
#pragma once

#define IDS_OUT_OF_MEMORY 15011
#define IDS_PROCESSING_OPTIONS 15063
#define IDS_PROPERTIES 15065
#define IDS_FILE_NAME_TOO_LONG 15093

// Value lists of the trace numbers.
#define IDS_UNDITHER_VALUES 15048
#define IDS_SPECKREM_VALUES 15052
