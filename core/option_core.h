// The option core without the platform: how tag keys are spelled, how the
// stored options of a conversion are filtered and carried from one
// destination to another, how the command script is written, and how a
// shared section is described. Everything here reaches tags, the image and
// the script file through small abstract interfaces, so that it builds and
// runs anywhere; the DLL wraps TagSet, Dewey, OKAMOD and tagSFILE around it.
#pragma once

#include <cstddef>
#include <cstdint>

#include "format_types.h"

namespace zv {

// ---------------------------------------------------------------- keys

// Every reader composes its key in a buffer of this size: a key holds at
// most 63 characters and a longer one is cut, so it matches no reader.
constexpr std::size_t kKeySize = 64;

// Joins the parts (null parts count as empty) into key. Gives false when
// the result had to be cut.
bool MakeKey(char (&key)[kKeySize], const char* a, const char* b = nullptr, const char* c = nullptr,
             const char* d = nullptr);

// The four forms of a key and the trace form, for a conversion from the
// source part S to the destination part K ("~~~" with no destination,
// "CLP" for the clipboard).
inline bool MakeConversionKey(char (&key)[kKeySize], const char* s, const char* k, const char* name)
{
    return MakeKey(key, s, k, name);
}
inline bool MakeDestinationKey(char (&key)[kKeySize], const char* k, const char* name)
{
    return MakeKey(key, k, name);
}
inline bool MakeSourceKey(char (&key)[kKeySize], const char* s, const char* name)
{
    return MakeKey(key, s, name);
}
inline bool MakeGlobalKey(char (&key)[kKeySize], const char* name)
{
    return MakeKey(key, name);
}
inline bool MakeTraceKey(char (&key)[kKeySize], const char* s, const char* k, const char* method, const char* name)
{
    return MakeKey(key, s, k, method, name);
}

// A key of two to four parts in the buffer every reader uses, for a call
// that takes the key at once: ZvGetTag(tags, TagKey(destKey, "UNITS")).
struct TagKey {
    char text[kKeySize];
    TagKey(const char* a, const char* b) { MakeKey(text, a, b); }
    TagKey(const char* a, const char* b, const char* c) { MakeKey(text, a, b, c); }
    TagKey(const char* a, const char* b, const char* c, const char* d) { MakeKey(text, a, b, c, d); }
    operator const char*() const { return text; }
};

// The name of the tag, behind the destination part, that says what a
// metafile destination holds, and the format type its value stands for:
// "R" raster, "V" vector, "M" both (a metafile), in any case; kFormatNone
// for no value or any other text.
constexpr char kMetafileClassTag[] = "RVFORCE";
int MetafileClassType(const char* value);

// The prefix under which a choice made for one conversion is kept for any
// destination: the prefix with every "~" turned into "?" (BMP~~~ gives
// BMP???).
void MakeWildcardPrefix(char (&out)[kKeySize], const char* prefix);

// A switch is on only for "ON", in any case; no tag and any other text is off.
bool IsOn(const char* value);

// Comparisons of key texts ignore the case of ASCII letters only, so that
// they mean the same on every code page.
bool EqualNoCase(const char* a, const char* b);
bool StartsWithNoCase(const char* text, const char* prefix);

// ------------------------------------------------------------- tag access

// What the rules need of a tag store. Get gives the value or null when the
// tag doesn't exist; the text stays readable until the next write. Set with
// "" removes the tag. A search gives the keys that begin with a prefix,
// without the prefix, and is not disturbed by reads and writes meanwhile.
class TagAccess {
public:
    virtual ~TagAccess() = default;
    virtual const char* Get(const char* key) = 0;
    virtual int GetInt(const char* key) = 0;       // 0 when absent or not a number
    virtual double GetFloat(const char* key) = 0;  // 0 when absent or not a number
    virtual void Set(const char* key, const char* value) = 0;
    virtual void* OpenSearch(const char* prefix) = 0;  // null when none can be had
    virtual const char* NextKey(void* search) = 0;     // null at the end
    virtual void CloseSearch(void* search) = 0;
};

// The value lists of the string table: the position of a text in a list,
// or -1.
class ListSource {
public:
    virtual ~ListSource() = default;
    virtual int IndexOf(int listId, const char* text) = 0;
};

// The position of text among the items of a "~"-separated list, or -1.
int ListPosition(const char* list, const char* text);

// ------------------------------------------------- filtering, translation

// Copies the tags of list into out, resolved for the extensions src and
// dest: wildcard keys become conversion keys, and the tags that the command
// script carries are left out.
void FilterTagList(TagAccess& list, TagAccess& out, const char* src, const char* dest);

// True for a key that rule 4 keeps out of the engine's options: a colour
// pair, or a tag that becomes a command of the script.
bool IsScriptTag(const char* key, std::size_t srcLength, std::size_t destLength);

// Moves the tag prefix+oldKey+name to prefix+newKey+name unless the new one
// exists; takes the old one away unless it was the neutral "~~~".
void TranslateOneTag(TagAccess& tags, const char* prefix, const char* oldKey, const char* newKey,
                     const char* name);

// The size of the last-translated destination that the caller keeps.
constexpr std::size_t kTranslatedKeySize = 256;

// Moves all conversion tags from oldKey to newKey when oldKey is "~~~" or
// newKey is the destination last translated (kept in translatedKey).
void TranslateAllTags(TagAccess& tags, char (&translatedKey)[kTranslatedKeySize], const char* prefix,
                      const char* oldKey, const char* newKey);

// The rows of the translation, in order: a name, and whether it carries the
// source part.
struct TranslationRow {
    const char* name;
    bool withPrefix;
};
extern const TranslationRow kTranslationRows[];
extern const std::size_t kTranslationRowCount;

// ---------------------------------------------------------- trace numbers

constexpr int kUnditherList = 15048;  // "0~2x2~3x3~4x4"
constexpr int kSpeckList = 15052;     // "OFF~S~M~L"

// key (64 bytes) = prefix + the value of prefix+"TRACE" + name.
void TraceMakeTag(TagAccess& tags, const char* prefix, const char* name, char* key);
short TraceGetMethod(TagAccess& tags, const char* prefix);
short TraceGetUndither(TagAccess& tags, ListSource& lists, const char* prefix);
short TraceGetDespec(TagAccess& tags, ListSource& lists, const char* prefix);
short TraceGetMaxColors(TagAccess& tags, const char* prefix);
short TraceGetGenTol(TagAccess& tags, const char* prefix);
short TraceGetBezGen(TagAccess& tags, const char* prefix);
short TraceGetArcGen(TagAccess& tags, const char* prefix);
short TraceGetLineWidth(TagAccess& tags, const char* prefix);

// ----------------------------------------------------------- the script

// Everything the script builder needs besides the tags: the image, the
// format registry, the size arithmetic of ZVWIO32 and the script file.
class ScriptHost : public ListSource {
public:
    virtual TagAccess& Tags() = 0;
    virtual int IsRaster() = 0;
    virtual void GetSize(long* width, long* height) = 0;
    virtual int CalculateResize(const char* destExt, long width, long height, long* newWidth,
                                long* newHeight) = 0;
    virtual void GetRotatedSize(double angle, double width, double height, double* newWidth,
                                double* newHeight) = 0;
    virtual int IsModRaster(const char* ext) = 0;
    virtual int FormatType(const char* ext) = 0;  // 0 when unknown
    virtual void PrepRaster(short undither, short despeckle, short maxColors) = 0;
    virtual void Vectorize(short method, short genTol, short bezGen, short arcGen, short lineWidth,
                           short reserved) = 0;
    // The script file: one call per piece; the file keeps its first error.
    virtual void Write(const char* bytes, unsigned long length) = 0;
    virtual short FileError() = 0;
};

// Writes text to the script file with one write of its length.
void ScriptWrite(ScriptHost& host, const char* text);

// Writes the commands that the tags of src to dest ask for, one line each,
// ended by LF CR. Gives the file's error after the last write.
short WriteOptionScript(ScriptHost& host, const char* src, const char* dest);

// The width and height of a raster version of a vector image with no new
// size asked for: a side above 800 halves both together.
void FitRasterizeSize(short* width, short* height);

// A double cut towards zero into a long, with values outside the range of
// a long (and NaN) pinned rather than left undefined.
long TruncateToLong(double value);

// -------------------------------------------------------- shared sections

constexpr std::size_t kSectionNameSize = 50;   // CapSection::name
constexpr std::size_t kCandidateSize = 32;     // a candidate section name
constexpr std::size_t kDescriptionHead = 16;   // 8 hex digits of id, 8 of owner

struct SectionDescription {
    unsigned long id;
    unsigned long owner;
    char name[kSectionNameSize];
};

enum class DescriptionResult {
    kOk,          // all three parts
    kTooShort,    // fewer than 16 characters: nothing taken
    kNameTooLong, // id and owner taken, the name left empty
};

// Splits a description: the id in 8 hex digits, the owner window in 8, and
// the section name to the end. Reads nothing past the terminator.
DescriptionResult ParseSectionDescription(const char* text, SectionDescription* out);

// The name in 16-bit characters, each byte sign-extended as a char is, and
// terminated; wide holds kSectionNameSize characters.
void WidenSectionName(const char* name, std::uint16_t* wide);

// stem + counter in decimal into candidate (kCandidateSize bytes). Gives
// false when it doesn't fit whole.
bool MakeSectionCandidate(const char* stem, unsigned long counter, char (&candidate)[kCandidateSize]);

// The bytes of a raster image at the head of a section: the 40-byte header,
// the colour table for 8 bits or fewer, then the rows padded to four bytes.
// Gives false for a header that doesn't describe an image or that claims
// more than the available bytes.
bool DibByteCount(const unsigned char* view, std::size_t available, std::size_t* bytes);

}  // namespace zv
