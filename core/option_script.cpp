// The command script: the options of one conversion turned into lines of
// image commands, in a fixed order (colour work, geometry, reduction of
// colours, tracing), written piece by piece to the script file.
#include <cinttypes>
#include <climits>
#include <cmath>
#include <cstdio>
#include <cstring>

#include "bounded_text.h"
#include "option_core.h"

namespace zv {

// ------------------------------------------------------ trace numbers

void TraceMakeTag(TagAccess& tags, const char* prefix, const char* name, char* key)
{
    const char* method = tags.Get(TagKey(prefix, "TRACE"));
    CopyBounded(key, kKeySize, TagKey(prefix, method, name));
}

namespace {

short ListTag(TagAccess& tags, ListSource& lists, const char* prefix, const char* name, int listId)
{
    char key[kKeySize];
    TraceMakeTag(tags, prefix, name, key);
    const char* value = tags.Get(key);
    if (value == nullptr)
        return 0;
    int index = lists.IndexOf(listId, value);
    return static_cast<short>(index < 0 ? 0 : index);
}

int IntTag(TagAccess& tags, const char* prefix, const char* name)
{
    char key[kKeySize];
    TraceMakeTag(tags, prefix, name, key);
    return tags.GetInt(key);
}

short SwitchTag(TagAccess& tags, const char* prefix, const char* name)
{
    char key[kKeySize];
    TraceMakeTag(tags, prefix, name, key);
    return IsOn(tags.Get(key)) ? 1 : 0;
}

}  // namespace

short TraceGetMethod(TagAccess& tags, const char* prefix)
{
    char key[kKeySize];
    MakeKey(key, prefix, "TRACE");
    const char* method = tags.Get(key);
    return (method != nullptr && EqualNoCase(method, "CTR")) ? 1 : 0;
}

short TraceGetUndither(TagAccess& tags, ListSource& lists, const char* prefix)
{
    return ListTag(tags, lists, prefix, "UNDITHER", kUnditherList);
}

short TraceGetDespec(TagAccess& tags, ListSource& lists, const char* prefix)
{
    return ListTag(tags, lists, prefix, "SPECKREM", kSpeckList);
}

short TraceGetMaxColors(TagAccess& tags, const char* prefix)
{
    // The default stands in for a tag that reads as 0, not for whatever
    // happens to narrow to 0.
    int colors = IntTag(tags, prefix, "MAXCOLORS");
    return static_cast<short>(colors == 0 ? 16 : colors);
}

short TraceGetGenTol(TagAccess& tags, const char* prefix)
{
    return static_cast<short>(IntTag(tags, prefix, "GENTOL"));
}

short TraceGetBezGen(TagAccess& tags, const char* prefix)
{
    return SwitchTag(tags, prefix, "BEZGEN");
}

short TraceGetArcGen(TagAccess& tags, const char* prefix)
{
    return SwitchTag(tags, prefix, "ARCGEN");
}

short TraceGetLineWidth(TagAccess& tags, const char* prefix)
{
    return static_cast<short>(IntTag(tags, prefix, "R2VFW"));
}

// ------------------------------------------------------------ the script

void ScriptWrite(ScriptHost& host, const char* text)
{
    host.Write(text, static_cast<unsigned long>(std::strlen(text)));
}

long TruncateToLong(double value)
{
    if (std::isnan(value))
        return 0;
    if (value >= static_cast<double>(LONG_MAX))
        return LONG_MAX;
    if (value <= static_cast<double>(LONG_MIN))
        return LONG_MIN;
    return static_cast<long>(value);
}

void FitRasterizeSize(short* width, short* height)
{
    // One halving of both sides together, so that they keep their ratio:
    // 1700 by 900 becomes 850 by 450 and 801 by 100 becomes 400 by 50,
    // while 800 itself stays.
    if (*width > 800 || *height > 800) {
        *width = static_cast<short>(*width >> 1);
        *height = static_cast<short>(*height >> 1);
    }
}

namespace {

const char kLineEnd[] = "\n\r";

// One line: the word, then each number after a blank, then LF CR; every
// word, number, blank and line end is a write of its own, so the script is
// never held in memory.
void WriteLine(ScriptHost& host, const char* word, const long long* numbers, std::size_t count)
{
    ScriptWrite(host, word);
    for (std::size_t i = 0; i < count; ++i) {
        char text[24];
        std::snprintf(text, sizeof text, "%lld", numbers[i]);
        ScriptWrite(host, " ");
        ScriptWrite(host, text);
    }
    ScriptWrite(host, kLineEnd);
}

void WriteLine(ScriptHost& host, const char* word)
{
    WriteLine(host, word, nullptr, 0);
}

template <std::size_t N>
void WriteLine(ScriptHost& host, const char* word, const long long (&numbers)[N])
{
    WriteLine(host, word, numbers, N);
}

bool IsSwitchOn(TagAccess& tags, const char* key)
{
    return IsOn(tags.Get(key));
}

// A colour text of the tags: exactly six hexadecimal digits, RRGGBB.
// Anything else ("DELETE", a cut key) names no colour and is passed over.
bool ParseColour(const char* text, unsigned long* colour)
{
    if (text == nullptr || std::strlen(text) != 6)
        return false;
    for (const char* p = text; *p; ++p) {
        char c = *p;
        bool hex = (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
        if (!hex)
            return false;
    }
    char buffer[kKeySize];
    CopyBounded(buffer, "0x");
    AppendBounded(buffer, text);
    unsigned long value = 0;
    if (std::sscanf(buffer, "%lx", &value) != 1)
        return false;
    // Red goes to the engine in the low byte: exchange the first and the
    // third byte, and clear the top one.
    *colour = ((value & 0xFF) << 16) | (value & 0xFF00) | ((value >> 16) & 0xFF);
    return true;
}

void WriteColourPairs(ScriptHost& host)
{
    TagAccess& tags = host.Tags();
    void* search = tags.OpenSearch("RGB");
    if (search == nullptr)
        return;
    while (const char* found = tags.NextKey(search)) {
        char key[kKeySize];
        MakeKey(key, "RGB", found);
        const char* to = tags.Get(key);
        if (to == nullptr)
            continue;
        unsigned long fromColour = 0;
        unsigned long toColour = 0;
        if (!ParseColour(found, &fromColour) || !ParseColour(to, &toColour))
            continue;
        WriteLine(host, "ChangeColor",
                  {static_cast<long long>(fromColour), static_cast<long long>(toColour)});
    }
    tags.CloseSearch(search);
}

void WriteGeometry(ScriptHost& host, const char* src, const char* dest, int isRaster)
{
    TagAccess& tags = host.Tags();
    char key[kKeySize];
    MakeKey(key, src, dest, "SMOOTH");
    long long smooth = IsSwitchOn(tags, key) ? 1 : 0;

    long width = 0;
    long height = 0;
    host.GetSize(&width, &height);
    long newWidth = 0;
    long newHeight = 0;
    int resize = host.CalculateResize(dest, width, height, &newWidth, &newHeight);
    short w = static_cast<short>(newWidth);
    short h = static_cast<short>(newHeight);
    bool rasterize = isRaster == 0 && host.IsModRaster(dest) != 0;
    if (resize != 0) {
        if (rasterize)
            WriteLine(host, "Rasterize", {w, h, 8});
        WriteLine(host, "Resize", {w, h, smooth});
        return;
    }
    if (!rasterize)
        return;
    host.GetSize(&width, &height);
    MakeKey(key, dest, "ROT");
    double angle = tags.GetFloat(key);
    if (angle != 0.0) {
        double rotatedWidth = 0;
        double rotatedHeight = 0;
        host.GetRotatedSize(360.0 - angle, static_cast<double>(width), static_cast<double>(height),
                            &rotatedWidth, &rotatedHeight);
        width = TruncateToLong(rotatedWidth);
        height = TruncateToLong(rotatedHeight);
    }
    w = static_cast<short>(width);
    h = static_cast<short>(height);
    FitRasterizeSize(&w, &h);
    WriteLine(host, "Rasterize", {w, h, 8});
}

int ReduceMethod(const char* name)
{
    if (name == nullptr)
        return 3;
    if (std::strcmp(name, "HALF") == 0)
        return 0;
    if (std::strcmp(name, "SNAP") == 0)
        return 1;
    if (std::strcmp(name, "DIFF") == 0)
        return 2;
    return 3;
}

void WriteReduce(ScriptHost& host, const char* src, const char* dest, int depth)
{
    TagAccess& tags = host.Tags();
    char key[kKeySize];
    MakeKey(key, src, dest, "CPROC");
    long long method = ReduceMethod(tags.Get(key));
    MakeKey(key, src, dest, "OPAL");
    // The count of colours of the depth; the low five bits give the shift.
    long long palette = IsSwitchOn(tags, key) ? static_cast<int>(1u << (depth & 31)) : 0;
    MakeKey(key, dest, "SFREQ");
    long long frequency = tags.GetInt(key);
    // Lines per inch to tenths of a micron per line, rounded up.
    long long screen = frequency != 0 ? (frequency + 253999) / frequency : 0;
    WriteLine(host, "Reduce", {depth, method, palette, screen});
}

// Tracing follows when a raster source goes to a vector destination: a
// vector or 3D format, or a metafile that the user forced to vector.
bool WantsTrace(ScriptHost& host, const char* src, const char* dest)
{
    if (!IsRasterType(host.FormatType(src)))
        return false;
    int destType = host.FormatType(dest);
    if (destType == kFormatVector || destType == kFormatEntity)
        return true;
    return destType == kFormatMetafile &&
           MetafileClassType(host.Tags().Get(TagKey(dest, kMetafileClassTag))) == kFormatVector;
}

void WriteTrace(ScriptHost& host, const char* src, const char* dest)
{
    TagAccess& tags = host.Tags();
    char prefix[kKeySize];
    MakeKey(prefix, src, dest);
    short undither = TraceGetUndither(tags, host, prefix);
    short despeckle = TraceGetDespec(tags, host, prefix);
    short maxColors = TraceGetMaxColors(tags, prefix);
    short method = TraceGetMethod(tags, prefix);
    short genTol = TraceGetGenTol(tags, prefix);
    short bezGen = TraceGetBezGen(tags, prefix);
    short arcGen = TraceGetArcGen(tags, prefix);
    short lineWidth = TraceGetLineWidth(tags, prefix);
    // The engine is told directly as well as through the script.
    host.PrepRaster(undither, despeckle, maxColors);
    host.Vectorize(method, genTol, bezGen, arcGen, lineWidth, 0);
    WriteLine(host, "PrepRaster", {undither, despeckle, maxColors});
    WriteLine(host, "Vectorize", {method, genTol, bezGen, arcGen, lineWidth, 0});
}

}  // namespace

short WriteOptionScript(ScriptHost& host, const char* src, const char* dest)
{
    TagAccess& tags = host.Tags();
    int isRaster = host.IsRaster();
    char key[kKeySize];

    MakeKey(key, src, dest, "REVBW");
    if (IsSwitchOn(tags, key))
        WriteLine(host, "ReverseBW");

    MakeKey(key, src, dest, "APPLYCOLORS");
    if (IsSwitchOn(tags, key))
        WriteColourPairs(host);

    // Tested by its first letter, with case: "Black" and "Gray" as the
    // lists write them.
    MakeKey(key, src, dest, "COG");
    if (const char* cog = tags.Get(key)) {
        if (cog[0] == 'B')
            WriteLine(host, "Blackize");
        else if (cog[0] == 'G')
            WriteLine(host, "Grayize");
    }

    MakeKey(key, src, dest, "BRIGHT");
    long long bright = tags.GetInt(key);
    MakeKey(key, src, dest, "CONTRAST");
    long long contrast = tags.GetInt(key);
    MakeKey(key, src, dest, "GAMMA");
    long long gamma = tags.GetInt(key);
    if (bright != 0 || contrast != 0 || gamma != 0)
        WriteLine(host, "Gamma", {contrast, bright, gamma});

    MakeKey(key, src, dest, "INV");
    if (IsSwitchOn(tags, key))
        WriteLine(host, "Invert");

    // The tag holds the angle the user entered; the engine turns the other way.
    MakeKey(key, dest, "ROT");
    long long angle = tags.GetInt(key);
    if (angle != 0)
        angle = static_cast<int>(360LL - angle);  // an int, as the tag is read
    MakeKey(key, src, dest, "FLIPV");
    long long flipV = IsSwitchOn(tags, key) ? 1 : 0;
    MakeKey(key, src, dest, "FLIPH");
    long long flipH = IsSwitchOn(tags, key) ? 1 : 0;
    if (angle != 0 || flipV != 0 || flipH != 0)
        WriteLine(host, "Rotate", {angle, flipV, flipH});

    // A printer sizes the image itself.
    if (!EqualNoCase(dest, "PRN"))
        WriteGeometry(host, src, dest, isRaster);

    MakeKey(key, src, dest, "HIST");
    if (IsSwitchOn(tags, key))
        WriteLine(host, "Equalize");

    MakeKey(key, dest, "DEP");
    int depth = tags.GetInt(key);
    if (depth != 0)
        WriteReduce(host, src, dest, depth);

    if (WantsTrace(host, src, dest))
        WriteTrace(host, src, dest);

    return host.FileError();
}

}  // namespace zv
