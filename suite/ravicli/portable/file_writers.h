// The file formats that the engine writes itself, or finishes after the
// platform's encoder: TIFF in the layouts and compressions that the
// encoder cannot be asked for or may ignore, the GIF choices (interlace,
// transparent colour) that it cannot be asked for, and Encapsulated
// PostScript, which it does not know. No windows.h: each
// writer gives bytes in memory and is tested natively.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "dib.h"
#include "tiff_type_text.h"

namespace ravi {

// The compressions the engine's TIFF writer codes itself: none (1), CCITT
// Modified Huffman (2), group 3 one-dimensional (3), group 4 (4), LZW (5),
// Deflate (8, and its older number 32946) and PackBits (32773).
bool EngineWritesTiffCompression(uint32_t compression);

// A TIFF of one image in one of those compressions, laid out as the parsed
// type text `type` says: in strips of type.rowsPerStrip rows (0: strips of
// about 8 KB) or in tiles of its size (a tile larger than the image rounded
// up to 16 is cut to that; the last tiles of a row or column are padded
// with zeros), with the samples chunky or, for planar configuration 2 and
// more than one sample a pixel, in separate planes. One bit per sample, a
// CCITT compression, or a bilevel image is written bilevel with black as 1
// (photometric 0), its stored bytes (coded or not) in the type's fill
// order; palette images keep their palette (photometric 3); others become
// 8-bit RGB. Predictor 2 (horizontal differencing) is used with LZW and
// Deflate on 8-bit samples, and left out elsewhere. Gives 0 or an engine
// code (kEngineBadArgument for another compression).
short WriteTiffBytes(const Image& image, const zvtiff::TiffTypeFields& type, std::vector<uint8_t>* out);

// The rows of an image in the order an interlaced GIF stores them: every
// eighth row from 0, every eighth from 4, every fourth from 2, every
// second from 1.
Image InterlacedRows(const Image& image);

// Finishes a GIF that the encoder wrote: marks its first image interlaced
// (its rows must already be in that order), and makes the entry of its
// colour table nearest transparentRgb (0x00RRGGBB, at most 8 off in each
// channel, as a reduced palette may hold white as 253) transparent, adding
// the graphic control block where there is none; a negative colour makes
// nothing transparent. Never reads past the bytes: a GIF it cannot follow
// gives kEngineFileFormat and stays as it was.
short FinishGif(std::vector<uint8_t>& gif, bool interlaced, int64_t transparentRgb);

// Encapsulated PostScript, language level 2: the image as one raster in
// DeviceRGB, or in DeviceCMYK with the share `grayReplacement` (0..1) of
// the common gray of each pixel moved to black. The bounding box is the
// image's size at its resolution (72 dpi when it has none). formFeed ends
// the file in a form feed after showpage, for printers that want one.
// preview is one of "NONE", "COARSEBW", "COARSECOLOR", "FINEBW",
// "FINECOLOR", "WMF": a TIFF preview (coarse: half the pixels each way) or
// a Windows metafile one (the image as one DIB) makes the file a binary
// EPS with the preview behind the PostScript. The binary header has no
// place for the Macintosh ("PICT") and Amiga ("IFF") previews; those
// files have none.
struct EpsOptions {
    bool cmyk = false;
    double grayReplacement = 0.0;
    bool formFeed = false;
    std::string preview = "NONE";
};
short WriteEpsBytes(const Image& image, const EpsOptions& options, std::vector<uint8_t>* out);

// A PCX file of version 5, run-length coded: 1 bit as one plane with its two
// colours in the header, 4 and 8 bits as one plane of 8 bits with the
// 256-colour palette at the end, 24 and 32 bits as three planes (alpha
// dropped). kEngineNoImage, kEngineBadSize (a side above 65535), or 0.
short WritePcxBytes(const Image& image, std::vector<uint8_t>* out);

}  // namespace ravi
