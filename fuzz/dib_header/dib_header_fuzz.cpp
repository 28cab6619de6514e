// Any bytes as a DIB, as a damaged section would hand them in: the header
// check must refuse what does not fit, and every kernel must then run on
// what it accepted without reading past it.
#include <memory>
#include <vector>

#include "raster_kernels.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    // The same bytes as a view that a picture keeps as its storage: the
    // kernels then write into exactly the buffer the check accepted.
    std::vector<uint8_t> view(data, data + size);
    ravi::Image borrowed;
    if (ravi::ImageOverDib(view.data(), view.size(), std::make_shared<int>(0), &borrowed) == 0) {
        ravi::Invert(borrowed);
        ravi::ChangeColor(borrowed, 0xFFFFFF, 0x123456);
    }

    ravi::Image image;
    if (ravi::ImageFromDib(data, size, &image) != 0)
        return 0;
    // The last bytes past the header choose the work, so the fuzzer can
    // steer it; images are tiny since they fit in the input.
    uint8_t pick = size > 40 ? data[size - 1] : 0;
    ravi::Image copy = image;
    ravi::Invert(copy);
    ravi::Equalize(copy);
    ravi::Rotate(copy, (pick & 1) ? 90 : 33, pick & 2 ? 1 : 0, pick & 4 ? 1 : 0);
    ravi::Image sized = image;
    ravi::Resize(sized, 1 + (pick & 7), 1 + ((pick >> 3) & 7), pick & 64 ? 1 : 0);
    ravi::Image reduced = image;
    ravi::Reduce(reduced, ravi::ReduceParamsFromScript(1 + (pick % 8), (pick >> 4) & 3, pick & 128 ? 1 : 0, 4234));
    ravi::Image bw = image;
    ravi::Blackize(bw);
    ravi::Grayize(image);
    return 0;
}
