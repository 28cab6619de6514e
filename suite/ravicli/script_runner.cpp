// Dewey::Test: runs a command file over the document. The parser reads the
// whole file first and gives the good lines before any bad one; those run in
// order, and the bad line's code comes back without that line having run.
#include <cstdio>
#include <vector>

#include "engine_state.h"
#include "portable/script_parser.h"

namespace {

IRGB IrgbFromColorRef(int32_t colour)
{
    IRGB result;
    result.red = BYTE(colour);
    result.green = BYTE(colour >> 8);
    result.blue = BYTE(colour >> 16);
    return result;
}

short RunCommand(Dewey* document, const ravi::ScriptCommand& command)
{
    const int32_t* a = command.args;
    switch (command.op) {
    case ravi::ScriptOp::ReverseBW: return document->ReverseBW();
    case ravi::ScriptOp::ChangeColor: {
        IRGB from = IrgbFromColorRef(a[0]), to = IrgbFromColorRef(a[1]);
        return document->ChangeColor(&from, &to);
    }
    case ravi::ScriptOp::Blackize: return document->Blackize();
    case ravi::ScriptOp::Grayize: return document->Grayize();
    case ravi::ScriptOp::Gamma: return document->Gamma(short(a[0]), short(a[1]), short(a[2]));
    case ravi::ScriptOp::Invert: return document->Invert();
    case ravi::ScriptOp::Rotate: return document->Rotate(short(a[0]), short(a[1]), short(a[2]));
    case ravi::ScriptOp::Rasterize: return document->Rasterize(a[0], a[1], short(a[2]));
    case ravi::ScriptOp::Resize: return document->Resize(a[0], a[1], short(a[2]));
    case ravi::ScriptOp::Equalize: return document->Equalize();
    case ravi::ScriptOp::Reduce: return ravi::RunReduceLine(document, a[0], a[1], a[2], a[3]);
    case ravi::ScriptOp::PrepRaster: return document->PrepRaster(short(a[0]), short(a[1]), short(a[2]));
    case ravi::ScriptOp::Vectorize:
        return document->Vectorize(short(a[0]), short(a[1]), short(a[2]), short(a[3]), short(a[4]), short(a[5]));
    }
    return ravi::kScriptUnknownWord;
}

}  // namespace

short Dewey::Test(const char* script, HWND, HDC)
{
    if (!script || !*script) return ravi::kEngineBadArgument;
    FILE* file = std::fopen(script, "rb");
    if (!file) return ravi::kEngineFileOpen;
    std::vector<uint8_t> bytes;
    uint8_t chunk[4096];
    std::size_t got;
    while ((got = std::fread(chunk, 1, sizeof chunk, file)) > 0) bytes.insert(bytes.end(), chunk, chunk + got);
    bool failed = std::ferror(file) != 0;
    std::fclose(file);
    if (failed) return ravi::kEngineFileOpen;

    ravi::ScriptParse parse;
    ravi::ParseScript(bytes.data(), bytes.size(), &parse);
    for (const ravi::ScriptCommand& command : parse.commands) {
        short code = RunCommand(this, command);
        if (code != 0) return code;
    }
    return parse.code;
}
