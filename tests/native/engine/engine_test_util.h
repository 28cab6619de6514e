// Small builders shared by the engine tests.
#pragma once

#include <gtest/gtest.h>

#include "dib.h"

namespace ravi::test {

inline Image MakeOrDie(int32_t w, int32_t h, int bits)
{
    Image image;
    EXPECT_EQ(MakeImage(w, h, bits, &image), 0);
    return image;
}

// Fills every pixel with one colour (0x00RRGGBB); on palette images the
// colour goes into entry 1 of the table and every pixel takes it.
inline void FillRgb(Image& image, uint32_t rgb)
{
    for (int32_t y = 0; y < image.Height(); ++y)
        for (int32_t x = 0; x < image.Width(); ++x)
            image.SetPixelValue(x, y, image.Bits() > 8 ? rgb : 1);
    if (image.Bits() <= 8)
        image.Table()[1] = {uint8_t(rgb), uint8_t(rgb >> 8), uint8_t(rgb >> 16), 0};
}

constexpr int kDepths[] = {1, 4, 8, 24, 32};

}  // namespace ravi::test
