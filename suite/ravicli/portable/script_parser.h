// The command script that Dewey::Test runs: one command a line, each line
// the command word, then its arguments, decimal integers with one blank
// before each, and the two bytes LF CR (0x0A 0x0D) at its end. An empty
// file holds no command. The parser is strict: the first line that breaks
// any rule stops it with an engine code and the line's number, and the
// commands before that line are given, so the runner can run them and not
// the bad one.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "engine_codes.h"

namespace ravi {

enum class ScriptOp : uint8_t {
    ReverseBW,    // no arguments
    ChangeColor,  // from to: COLORREF values, 0..0xFFFFFF
    Blackize,     // no arguments
    Grayize,      // no arguments
    Gamma,        // contrast bright gamma: each -100..100
    Invert,       // no arguments
    Rotate,       // angle any whole number, kept as 0..359 counter-clockwise; flipV 0..1, flipH 0..1
    Rasterize,    // width 1..32767, height 1..32767, bits 1, 4, 8, 24 or 32
    Resize,       // width 1..32767, height 1..32767, smooth 0..1
    Equalize,     // no arguments
    Reduce,       // depth 1..24 or 32, method 0..3, palette 0..2^31-1, screen 0..254000
    PrepRaster,   // undither 0..3, despeckle 0..3, maxColors 2..256
    Vectorize,    // method 0..1, genTol 0..16, bezGen 0..1, arcGen 0..1, lineWidth 0..10, 0
};

constexpr int kScriptMaxArgs = 6;

struct ScriptCommand {
    ScriptOp op;
    int argCount;
    int32_t args[kScriptMaxArgs];
    int line;  // 1-based line number in the file
};

struct ScriptParse {
    std::vector<ScriptCommand> commands;  // the good lines before any bad one
    short code = 0;                       // 0, or the engine code of the bad line
    int badLine = 0;                      // 1-based; 0 when all lines were good
};

// Parses a whole script. Gives the same code as out->code.
short ParseScript(const uint8_t* data, size_t size, ScriptParse* out);

// The command word of an operation, as it stands in a script ("Gamma").
const char* ScriptWord(ScriptOp op);

}  // namespace ravi
