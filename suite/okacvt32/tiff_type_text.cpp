// The type text of a TIFF flavour, written and read; grammar in
// docs/tiff_type_text.md.
#include "tiff_type_text.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace zvtiff {

namespace {

bool ReadNumber(const char* text, std::size_t length, uint32_t* value)
{
    if (length == 0 || length > 10) return false;
    uint64_t number = 0;
    for (std::size_t i = 0; i < length; ++i) {
        if (text[i] < '0' || text[i] > '9') return false;
        number = number * 10 + static_cast<uint64_t>(text[i] - '0');
    }
    if (number > UINT32_MAX) return false;
    *value = static_cast<uint32_t>(number);
    return true;
}

bool KeyIs(const char* key, std::size_t length, const char* name)
{
    return std::strlen(name) == length && std::strncmp(key, name, length) == 0;
}

}  // namespace

std::string TiffTypeText(const TiffImageFacts& facts)
{
    char text[kTiffTypeTextMax + 1];
    int n = std::snprintf(text, sizeof text, "COMP=%u;PHOTO=%u;BPS=%u;SPP=%u;FILL=%u;PLANAR=%u;PRED=%u;",
                          facts.compression, facts.photometric, facts.bitsPerSample, facts.samplesPerPixel,
                          facts.fillOrder, facts.planarConfig, facts.predictor);
    std::size_t used = n < 0 ? 0 : static_cast<std::size_t>(n);
    if (used < sizeof text) {
        if (facts.tiled)
            std::snprintf(text + used, sizeof text - used, "TILES=%ux%u", facts.tileWidth, facts.tileLength);
        else
            std::snprintf(text + used, sizeof text - used, "STRIPS=%u", facts.rowsPerStrip);
    }
    return text;
}

bool ParseTiffTypeText(const char* text, TiffTypeFields* spec)
{
    if (text == nullptr) return true;
    const char* p = text;
    while (*p != '\0') {
        const char* end = std::strchr(p, ';');
        std::size_t length = end ? static_cast<std::size_t>(end - p) : std::strlen(p);
        const char* equals = static_cast<const char*>(std::memchr(p, '=', length));
        if (equals != nullptr) {
            std::size_t keyLength = static_cast<std::size_t>(equals - p);
            const char* value = equals + 1;
            std::size_t valueLength = length - keyLength - 1;
            uint32_t number = 0;
            struct Field {
                const char* key;
                uint32_t* target;
                uint32_t low, high;
            } fields[] = {
                {"COMP", &spec->compression, 1, 65535},   {"PHOTO", &spec->photometric, 0, 65535},
                {"BPS", &spec->bitsPerSample, 1, 32},     {"SPP", &spec->samplesPerPixel, 1, 16},
                {"FILL", &spec->fillOrder, 1, 2},         {"PLANAR", &spec->planarConfig, 1, 2},
                {"PRED", &spec->predictor, 1, 3},         {"STRIPS", &spec->rowsPerStrip, 0, UINT32_MAX},
            };
            bool known = false;
            for (const Field& field : fields) {
                if (!KeyIs(p, keyLength, field.key)) continue;
                known = true;
                if (!ReadNumber(value, valueLength, &number) || number < field.low || number > field.high)
                    return false;
                *field.target = number;
                if (field.target == &spec->rowsPerStrip) spec->tiled = false;
            }
            if (!known && KeyIs(p, keyLength, "TILES")) {
                const char* x = static_cast<const char*>(std::memchr(value, 'x', valueLength));
                if (x == nullptr) return false;
                std::size_t widthLength = static_cast<std::size_t>(x - value);
                uint32_t width = 0, height = 0;
                if (!ReadNumber(value, widthLength, &width) ||
                    !ReadNumber(x + 1, valueLength - widthLength - 1, &height))
                    return false;
                // Tiles are multiples of 16 pixels each way.
                if (width == 0 || height == 0 || width % 16 != 0 || height % 16 != 0) return false;
                spec->tiled = true;
                spec->tileWidth = width;
                spec->tileLength = height;
            }
        }
        if (end == nullptr) break;
        p = end + 1;
    }
    return true;
}

short ScanErrorCode(TiffStatus status)
{
    switch (status) {
    case TiffStatus::Ok: return kScanNoError;
    case TiffStatus::BigTiff: return kScanBigTiff;
    case TiffStatus::ReadError: return kScanReadError;
    default: return kScanInvalidTiff;
    }
}

}  // namespace zvtiff
