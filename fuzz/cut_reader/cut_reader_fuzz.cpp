// Any bytes as a CUT picture and its palette file: the first two bytes
// give the palette's length, the palette follows, the picture is the rest.
// Neither reader may read past its bytes, and a picture it accepts has the
// size its header gives.
#include <cstdint>
#include <cstdlib>
#include <vector>

#include "engine_codes.h"
#include "source_readers.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size < 2)
        return 0;
    size_t paletteBytes = size_t(data[0] | (data[1] << 8));
    if (paletteBytes > size - 2)
        paletteBytes = size - 2;
    // Copies of exactly their length, so that a read past either end is
    // caught on its own.
    std::vector<uint8_t> paletteFile(data + 2, data + 2 + paletteBytes);
    std::vector<uint8_t> picture(data + 2 + paletteBytes, data + size);

    ravi::CutPalette palette;
    const bool coloured = ravi::ReadCutPalette(paletteFile.data(), paletteFile.size(), &palette) == 0;
    if (coloured && (palette.count < 1 || palette.count > 256))
        std::abort();
    ravi::Image image;
    if (ravi::ReadCutPicture(picture.data(), picture.size(), coloured ? &palette : nullptr, &image) != 0) {
        if (!image.Empty())
            std::abort();  // a refusal leaves the image alone
        return 0;
    }
    if (image.Bits() != 8 || image.Width() != (picture[0] | (picture[1] << 8)) ||
        image.Height() != (picture[2] | (picture[3] << 8)))
        std::abort();
    // Without a palette every index reads as its grey.
    if (!coloured)
        for (int32_t y = 0; y < image.Height(); ++y)
            for (int32_t x = 0; x < image.Width(); ++x)
                if (image.PixelRgb(x, y) != image.PixelValue(x, y) * 0x010101u)
                    std::abort();
    return 0;
}
