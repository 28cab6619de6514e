#include "engine_codes.h"

namespace ravi {

const EngineCodeEntry kEngineCodeTable[] = {
    {kEngineBadHeader, "The image header is not valid"},
    {kEngineBadSize, "The image size is out of range"},
    {kEngineBadDepth, "The number of bits per pixel is not supported"},
    {kEngineTruncated, "The image data is shorter than its header says"},
    {kEngineNoMemory, "Not enough memory for the image"},
    {kEngineBadArgument, "An argument of the image operation is out of range"},
    {kEngineNoImage, "There is no raster image to work on"},
    {kEngineNotSupported, "The operation does not apply to this image"},
    {kScriptUnknownWord, "Unknown command in the command script"},
    {kScriptArgumentCount, "Wrong number of arguments in the command script"},
    {kScriptBadNumber, "An argument in the command script is not a number"},
    {kScriptOutOfRange, "An argument in the command script is out of range"},
    {kScriptBadLineEnd, "A line of the command script does not end in LF CR"},
    {kScriptEmptyLine, "Empty line in the command script"},
    {kScriptBadBlank, "Misplaced blank in the command script"},
    {kEngineFileOpen, "The image file cannot be read"},
    {kEngineFileWrite, "The image file cannot be written"},
    {kEngineFileFormat, "The image file format is unknown or damaged"},
    {kEngineNoSection, "The image section cannot be opened"},
    {kEngineCannotWrite, "The engine cannot write files of this format"},
};

const int kEngineCodeCount = int(sizeof kEngineCodeTable / sizeof kEngineCodeTable[0]);

const char* EngineCodeText(short code)
{
    for (int i = 0; i < kEngineCodeCount; ++i)
        if (kEngineCodeTable[i].code == code)
            return kEngineCodeTable[i].text;
    return nullptr;
}

}  // namespace ravi
