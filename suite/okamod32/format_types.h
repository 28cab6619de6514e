// The suite's format types, as the format table and the registry give them.
// Needs no windows.h, so that the portable rules of the suite use the same
// numbers and the same raster test as the registry.
#pragma once

enum ZvFormatType {
    kFormatNone = 0,
    kFormatRaster = 1,
    kFormatVector = 2,
    kFormatMetafile = 3,  // raster or vector content; the tag "RVFORCE" decides
    kFormatFax = 5,       // a raster kind with a fax page
    kFormatEntity = 6,    // 3D entity
};

// Raster data, whichever page the format has: raster and fax formats.
constexpr bool IsRasterType(int type)
{
    return type == kFormatRaster || type == kFormatFax;
}
