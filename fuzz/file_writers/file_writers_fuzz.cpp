// The engine's own writers on a small picture made from the input, in
// the layout of any type text and with any fax, JPEG and EPS options:
// whatever the text asks (tiles larger than the picture, planes of a
// bilevel image, CCITT of a colour one), no write past a row, tile or
// buffer, and every TIFF and PCX written reads back whole.
#include <algorithm>
#include <string>
#include <vector>

#include "engine_codes.h"
#include "fax_writer.h"
#include "file_writers.h"
#include "jpeg_writer.h"
#include "source_readers.h"
#include "tiff_reader.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size < 4) return 0;
    // Four bytes choose the picture: width, height, depth, and options.
    static const int kDepths[] = {1, 4, 8, 24, 32};
    const int32_t width = 1 + data[0] % 70, height = 1 + data[1] % 50;
    const int bits = kDepths[data[2] % 5];
    const uint8_t pick = data[3];
    data += 4, size -= 4;
    ravi::Image image;
    if (ravi::MakeImage(width, height, bits, &image) != 0) return 0;
    // The pixels from the input, over and over; the text after a NUL.
    size_t at = 0;
    for (int32_t y = 0; y < height; ++y)
        for (int32_t x = 0; x < width; ++x, ++at) {
            const uint8_t b = size != 0 ? data[at % size] : 0;
            image.SetPixelValue(x, y, bits > 8 ? uint32_t(b) * 0x010305u : uint32_t(b) % (1u << bits));
        }
    const auto nul = std::find(data, data + size, uint8_t(0));
    const std::string text(data, nul);

    std::vector<uint8_t> out;
    zvtiff::TiffTypeFields spec;
    if (zvtiff::ParseTiffTypeText(text.c_str(), &spec) && ravi::WriteTiffBytes(image, spec, &out) == ravi::kEngineOk) {
        zvtiff::TiffMemorySource source(out.data(), out.size());
        zvtiff::TiffStructure structure;
        if (zvtiff::ReadTiffStructure(source, &structure) != zvtiff::TiffStatus::Ok) __builtin_trap();
    }
    ravi::WriteJpegBytes(image, pick % 101, &out);
    ravi::FaxOptions fax;
    fax.fine = pick & 1;
    fax.multiPage = pick & 2;
    fax.horizontalOffsetMm = (int(pick) - 128) * 1.3;
    fax.verticalOffsetMm = (pick >> 2) * 2.5;
    ravi::WriteFaxTiffBytes(image, fax, &out);
    static const char* const kPreviews[] = {"NONE", "COARSEBW", "FINECOLOR", "WMF", "PICT"};
    ravi::EpsOptions eps;
    eps.cmyk = pick & 4;
    eps.grayReplacement = (pick >> 3) / 31.0;
    eps.preview = kPreviews[pick % 5];
    ravi::WriteEpsBytes(image, eps, &out);
    if (ravi::WritePcxBytes(image, &out) == ravi::kEngineOk) {
        ravi::Image back;
        if (ravi::ReadPcxPicture(out.data(), out.size(), &back) != ravi::kEngineOk || back.Width() != width ||
            back.Height() != height)
            __builtin_trap();
    }
    return 0;
}
