#include "script_parser.h"

#include <cstring>

namespace ravi {

namespace {

struct Range {
    int32_t low;
    int32_t high;
};

struct CommandSpec {
    const char* word;
    ScriptOp op;
    int argCount;
    Range ranges[kScriptMaxArgs];
};

// The vocabulary: each word, its number of arguments and the range of each.
// Words are compared with case, as the script is written by a program.
const CommandSpec kCommands[] = {
    {"ReverseBW", ScriptOp::ReverseBW, 0, {}},
    {"ChangeColor", ScriptOp::ChangeColor, 2, {{0, 0xFFFFFF}, {0, 0xFFFFFF}}},
    {"Blackize", ScriptOp::Blackize, 0, {}},
    {"Grayize", ScriptOp::Grayize, 0, {}},
    {"Gamma", ScriptOp::Gamma, 3, {{-100, 100}, {-100, 100}, {-100, 100}}},
    {"Invert", ScriptOp::Invert, 0, {}},
    {"Rotate", ScriptOp::Rotate, 3, {{0, 359}, {0, 1}, {0, 1}}},
    {"Rasterize", ScriptOp::Rasterize, 3, {{1, 32767}, {1, 32767}, {1, 32}}},
    {"Resize", ScriptOp::Resize, 3, {{1, 32767}, {1, 32767}, {0, 1}}},
    {"Equalize", ScriptOp::Equalize, 0, {}},
    {"Reduce", ScriptOp::Reduce, 4, {{1, 32}, {0, 3}, {0, 0x7FFFFFFF}, {0, 254000}}},
    {"PrepRaster", ScriptOp::PrepRaster, 3, {{0, 3}, {0, 3}, {2, 256}}},
    {"Vectorize", ScriptOp::Vectorize, 6, {{0, 1}, {0, 16}, {0, 1}, {0, 1}, {0, 10}, {0, 0}}},
};

// An angle may be any whole number of degrees: a stored angle of -90 comes
// to the engine as 450, and only its place on the circle counts.
bool IsAngle(const CommandSpec& spec, int arg)
{
    return spec.op == ScriptOp::Rotate && arg == 0;
}

// Checks that are not a plain range: the depths an image can have.
bool ValuesFit(const CommandSpec& spec, const int32_t* args)
{
    if (spec.op == ScriptOp::Rasterize) {
        int32_t b = args[2];
        return b == 1 || b == 4 || b == 8 || b == 24 || b == 32;
    }
    if (spec.op == ScriptOp::Reduce)
        return args[0] <= 24 || args[0] == 32;
    return true;
}

// One argument: an optional minus sign, then 1 to 10 digits. Gives 0,
// kScriptBadNumber, or kScriptOutOfRange for a number too big to hold.
short ParseNumber(const uint8_t* p, size_t n, int64_t* value)
{
    size_t i = 0;
    bool negative = false;
    if (n > 0 && p[0] == '-') {
        negative = true;
        i = 1;
    }
    if (i == n)
        return kScriptBadNumber;
    int64_t v = 0;
    for (; i < n; ++i) {
        if (p[i] < '0' || p[i] > '9')
            return kScriptBadNumber;
        if (v > 0xFFFFFFFFll)  // far beyond every range; stop before overflow
            return kScriptOutOfRange;
        v = v * 10 + (p[i] - '0');
    }
    *value = negative ? -v : v;
    return kEngineOk;
}

// One line without its end: the word, then blank-separated arguments.
short ParseLine(const uint8_t* p, size_t n, ScriptCommand* cmd)
{
    if (n == 0)
        return kScriptEmptyLine;
    for (size_t i = 0; i < n; ++i)
        if (p[i] == '\r' || p[i] == '\n')
            return kScriptBadLineEnd;
    if (p[0] == ' ' || p[n - 1] == ' ')
        return kScriptBadBlank;
    size_t wordEnd = 0;
    while (wordEnd < n && p[wordEnd] != ' ')
        ++wordEnd;
    const CommandSpec* spec = nullptr;
    for (const CommandSpec& c : kCommands) {
        if (std::strlen(c.word) == wordEnd && std::memcmp(c.word, p, wordEnd) == 0) {
            spec = &c;
            break;
        }
    }
    if (spec == nullptr)
        return kScriptUnknownWord;

    // Split the rest at single blanks; count first, so that a wrong count is
    // reported as such even when the surplus arguments are not numbers.
    int fields = 0;
    for (size_t i = wordEnd; i < n; ++i) {
        if (p[i] == ' ') {
            if (i + 1 < n && p[i + 1] == ' ')
                return kScriptBadBlank;
            ++fields;
        }
    }
    if (fields != spec->argCount)
        return kScriptArgumentCount;

    cmd->op = spec->op;
    cmd->argCount = spec->argCount;
    std::memset(cmd->args, 0, sizeof cmd->args);
    size_t pos = wordEnd;
    for (int a = 0; a < spec->argCount; ++a) {
        size_t start = pos + 1;
        size_t end = start;
        while (end < n && p[end] != ' ')
            ++end;
        int64_t v = 0;
        short rc = ParseNumber(p + start, end - start, &v);
        if (rc != kEngineOk)
            return rc;
        if (IsAngle(*spec, a))
            v = ((v % 360) + 360) % 360;
        if (v < spec->ranges[a].low || v > spec->ranges[a].high)
            return kScriptOutOfRange;
        cmd->args[a] = int32_t(v);
        pos = end;
    }
    if (!ValuesFit(*spec, cmd->args))
        return kScriptOutOfRange;
    return kEngineOk;
}

}  // namespace

short ParseScript(const uint8_t* data, size_t size, ScriptParse* out)
{
    out->commands.clear();
    out->code = kEngineOk;
    out->badLine = 0;
    size_t pos = 0;
    int line = 0;
    while (pos < size) {
        ++line;
        // A line runs to the next LF, which must be followed by CR.
        size_t lf = pos;
        while (lf < size && data[lf] != '\n')
            ++lf;
        short rc = kEngineOk;
        ScriptCommand cmd{};
        if (lf == size || lf + 1 == size || data[lf + 1] != '\r') {
            rc = kScriptBadLineEnd;
        } else {
            rc = ParseLine(data + pos, lf - pos, &cmd);
        }
        if (rc != kEngineOk) {
            out->code = rc;
            out->badLine = line;
            return rc;
        }
        cmd.line = line;
        out->commands.push_back(cmd);
        pos = lf + 2;
    }
    return kEngineOk;
}

const char* ScriptWord(ScriptOp op)
{
    for (const CommandSpec& c : kCommands)
        if (c.op == op)
            return c.word;
    return "";
}

}  // namespace ravi
