// Any bytes as a PCX picture: the reader may not read past them, and a
// picture it accepts has the size and a depth its header gives.
#include <cstdint>
#include <cstdlib>
#include <vector>

#include "engine_codes.h"
#include "source_readers.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    std::vector<uint8_t> file(data, data + size);
    ravi::Image image;
    if (ravi::ReadPcxPicture(file.data(), file.size(), &image) != 0) {
        if (!image.Empty())
            std::abort();  // a refusal leaves the image alone
        return 0;
    }
    const int width = (file[8] | (file[9] << 8)) - (file[4] | (file[5] << 8)) + 1;
    const int height = (file[10] | (file[11] << 8)) - (file[6] | (file[7] << 8)) + 1;
    const int depth = file[3] * file[65];
    if (image.Width() != width || image.Height() != height || image.Bits() != depth)
        std::abort();
    return 0;
}
