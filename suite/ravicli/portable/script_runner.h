// Runs parsed script commands over a raster image in memory. The Windows
// side (Dewey::Test) can use this for every raster command and keep to
// itself only what needs the platform (vector images, tracing).
#pragma once

#include "dib.h"
#include "script_parser.h"

namespace ravi {

// One command on a raster image. Rasterize on an image that is raster
// already does nothing. PrepRaster and Vectorize give kEngineNotSupported:
// tracing is not a pixel operation.
short ApplyCommand(Image& image, const ScriptCommand& command);

// Parses a script and runs its commands in order. On a bad line the lines
// before it still run and that line does not; on a failing command the
// commands before it stay applied. Gives 0 or the first code met;
// `failedLine` (may be null) gets its 1-based line number, 0 when none.
short RunScript(Image& image, const uint8_t* data, size_t size, int* failedLine);

}  // namespace ravi
