// Result codes of the image engine. Every engine call gives a short: 0 on
// success, one of these otherwise. They go up to the host unchanged, and
// the message library turns them into text with EngineCodeText (the Windows
// side puts the same table into its string resources).
#pragma once

namespace ravi {

enum EngineCode : short {
    kEngineOk = 0,

    // Images.
    kEngineBadHeader = -4101,      // not a 40-byte header, planes not 1, compressed
    kEngineBadSize = -4102,        // width or height zero, negative or too large
    kEngineBadDepth = -4103,       // bits per pixel not 1, 4, 8, 24 or 32
    kEngineTruncated = -4104,      // the buffer is shorter than the header claims
    kEngineNoMemory = -4105,       // the image would not fit in memory
    kEngineBadArgument = -4106,    // an argument of an operation is out of range
    kEngineNoImage = -4107,        // no raster image to work on
    kEngineNotSupported = -4108,   // the operation does not apply to this image

    // Command scripts.
    kScriptUnknownWord = -4120,    // the line starts with no command word we know
    kScriptArgumentCount = -4121,  // too few or too many arguments
    kScriptBadNumber = -4122,      // an argument is not a decimal integer
    kScriptOutOfRange = -4123,     // an argument lies outside its command's range
    kScriptBadLineEnd = -4124,     // a line ends in CR LF, a lone CR, or not at all
    kScriptEmptyLine = -4125,      // a line with nothing on it
    kScriptBadBlank = -4126,       // two blanks, or a blank at the start or the end

    // Files (used by the Windows side).
    kEngineFileOpen = -4140,       // the file cannot be opened or read
    kEngineFileWrite = -4141,      // the file cannot be written
    kEngineFileFormat = -4142,     // the file's format is unknown or damaged
    kEngineNoSection = -4143,      // the named section cannot be opened or mapped
    kEngineCannotWrite = -4144,    // the engine writes no file of this format
};

struct EngineCodeEntry {
    short code;
    const char* text;
};

// The table of all codes above with a short text each, in the order above.
extern const EngineCodeEntry kEngineCodeTable[];
extern const int kEngineCodeCount;

// The text of a code, or null when the code isn't the engine's.
const char* EngineCodeText(short code);

}  // namespace ravi
