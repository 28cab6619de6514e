// Any bytes as a TIFF file: the structure reader must give a status for
// what is damaged and never read outside the bytes; on what it accepts,
// the facts and the type text of every image must come out, and the text
// must read back as it was written.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "tiff_type_text.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    zvtiff::TiffMemorySource source(data, size);
    zvtiff::TiffStructure tiff;
    zvtiff::TiffStatus status = zvtiff::ReadTiffStructure(source, &tiff);
    if (status != zvtiff::TiffStatus::Ok) {
        if (zvtiff::ScanErrorCode(status) >= 0) std::abort();
        return 0;
    }
    for (const zvtiff::TiffIfd& ifd : tiff.ifds) {
        for (const zvtiff::TiffEntry& entry : ifd.entries)
            for (std::size_t i = 0; i < entry.values.size(); ++i) zvtiff::EntryNumber(entry, i, 0);
        std::string text = zvtiff::TiffTypeText(zvtiff::ReadImageFacts(ifd));
        if (text.size() > zvtiff::kTiffTypeTextMax) std::abort();
        zvtiff::TiffTypeFields spec;
        zvtiff::ParseTiffTypeText(text.c_str(), &spec);
    }
    // The input once more as a type text: the parser must stop at its NUL.
    std::string asText(reinterpret_cast<const char*>(data), size);
    zvtiff::TiffTypeFields spec;
    zvtiff::ParseTiffTypeText(asText.c_str(), &spec);
    return 0;
}
