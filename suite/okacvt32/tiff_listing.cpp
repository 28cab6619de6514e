// The listing of a TIFF file: what a person needs to see why a file reads
// as it does, one line for each entry, in the order of the file.
#include "tiff_listing.h"

#include <cinttypes>
#include <cstdarg>
#include <cstdio>

namespace zvtiff {

namespace {

// Values shown of one entry; the rest are counted.
constexpr std::size_t kValuesShown = 8;
constexpr std::size_t kTextShown = 60;
constexpr char kNewLine[] = "\r\n";
constexpr char kCutNote[] = "... (the listing is cut here)\r\n";

const char* StatusText(TiffStatus status)
{
    switch (status) {
    case TiffStatus::Ok: return "";
    case TiffStatus::NotTiff: return "the file has no TIFF header";
    case TiffStatus::BigTiff: return "the file is a BigTIFF, which is not read";
    case TiffStatus::NoIfd: return "the header names no IFD";
    case TiffStatus::Truncated: return "an IFD or a value runs past the end of the file";
    case TiffStatus::BadOffset: return "an IFD offset points outside the file";
    case TiffStatus::CountOverflow: return "an entry's count is too large for its type";
    case TiffStatus::IfdLoop: return "the IFD chain comes back to an IFD already read";
    case TiffStatus::TooManyIfds: return "the file has more IFDs than are read";
    case TiffStatus::ReadError: return "the file could not be read";
    }
    return "unknown";
}

std::string Format(const char* format, ...) __attribute__((format(printf, 1, 2)));
std::string Format(const char* format, ...)
{
    char line[256];
    va_list args;
    va_start(args, format);
    std::vsnprintf(line, sizeof line, format, args);
    va_end(args);
    return line;
}

std::string ValuesOf(const TiffEntry& entry)
{
    if (entry.type == kAscii) {
        std::string text = entry.text.substr(0, kTextShown);
        for (char& c : text)
            if (static_cast<unsigned char>(c) < 32) c = '.';
        return "\"" + text + (entry.text.size() > kTextShown ? "\"..." : "\"");
    }
    if (entry.values.empty()) return TiffTypeSize(entry.type) == 0 ? "(unknown type)" : "";
    bool pairs = entry.type == kRational || entry.type == kSRational;
    std::string out;
    std::size_t shown = 0;
    for (std::size_t i = 0; i < entry.values.size() && shown < kValuesShown; ++shown) {
        if (!out.empty()) out += " ";
        if (pairs && i + 1 < entry.values.size()) {
            out += Format("%" PRIu32 "/%" PRIu32, entry.values[i], entry.values[i + 1]);
            i += 2;
        } else if (entry.type == kSShort || entry.type == kSByte || entry.type == kSLong) {
            out += Format("%" PRId32, static_cast<int32_t>(entry.values[i]));
            ++i;
        } else {
            out += Format("%" PRIu32, entry.values[i]);
            ++i;
        }
    }
    if (entry.count > shown) out += " ...";
    return out;
}

}  // namespace

short ListingErrorCode(TiffStatus status)
{
    switch (status) {
    case TiffStatus::Ok: return 0;
    case TiffStatus::ReadError: return -252;
    case TiffStatus::Truncated: return -256;
    case TiffStatus::BadOffset: return -257;
    case TiffStatus::NotTiff: return -1040;
    case TiffStatus::BigTiff: return -1041;
    case TiffStatus::NoIfd: return -1042;
    case TiffStatus::CountOverflow: return -1043;
    case TiffStatus::IfdLoop: return -1044;
    case TiffStatus::TooManyIfds: return -1045;
    }
    return -1046;
}

const char* TiffTagName(uint16_t tag)
{
    switch (tag) {
    case 254: return "NewSubfileType";
    case 255: return "SubfileType";
    case 256: return "ImageWidth";
    case 257: return "ImageLength";
    case 258: return "BitsPerSample";
    case 259: return "Compression";
    case 262: return "Photometric";
    case 266: return "FillOrder";
    case 269: return "DocumentName";
    case 270: return "ImageDescription";
    case 271: return "Make";
    case 272: return "Model";
    case 273: return "StripOffsets";
    case 274: return "Orientation";
    case 277: return "SamplesPerPixel";
    case 278: return "RowsPerStrip";
    case 279: return "StripByteCounts";
    case 282: return "XResolution";
    case 283: return "YResolution";
    case 284: return "PlanarConfig";
    case 292: return "T4Options";
    case 293: return "T6Options";
    case 296: return "ResolutionUnit";
    case 297: return "PageNumber";
    case 305: return "Software";
    case 306: return "DateTime";
    case 315: return "Artist";
    case 317: return "Predictor";
    case 320: return "ColorMap";
    case 322: return "TileWidth";
    case 323: return "TileLength";
    case 324: return "TileOffsets";
    case 325: return "TileByteCounts";
    case 338: return "ExtraSamples";
    case 339: return "SampleFormat";
    default: return nullptr;
    }
}

std::string TiffListing(const TiffStructure& tiff, TiffStatus status, std::size_t limit)
{
    std::string out;
    bool cut = false;
    // Whole lines only, and room left for the note that the listing is cut.
    auto add = [&](const std::string& line) {
        if (cut) return;
        std::size_t room = limit > sizeof kCutNote ? limit - sizeof kCutNote : 0;
        if (out.size() + line.size() + 2 > room) {
            cut = true;
            if (out.size() + sizeof kCutNote <= limit) out += kCutNote;
            return;
        }
        out += line;
        out += kNewLine;
    };

    add(Format("TIFF, %s byte order, %lu IFD%s", tiff.bigEndian ? "Motorola (MM)" : "Intel (II)",
               static_cast<unsigned long>(tiff.ifds.size()), tiff.ifds.size() == 1 ? "" : "s"));
    for (std::size_t n = 0; n < tiff.ifds.size(); ++n) {
        const TiffIfd& ifd = tiff.ifds[n];
        add("");
        add(Format("IFD %lu at offset %" PRIu32 ", %lu entries", static_cast<unsigned long>(n), ifd.offset,
                   static_cast<unsigned long>(ifd.entries.size())));
        for (const TiffEntry& entry : ifd.entries) {
            const char* name = TiffTagName(entry.tag);
            add(Format("  %5u %-18s %-9s %7" PRIu32 "  ", unsigned(entry.tag), name ? name : "", TiffTypeName(entry.type),
                       entry.count) +
                ValuesOf(entry));
        }
    }
    if (status != TiffStatus::Ok) {
        add("");
        add(Format("Stopped after %lu IFD%s: %s.", static_cast<unsigned long>(tiff.ifds.size()),
                   tiff.ifds.size() == 1 ? "" : "s",
                   StatusText(status)));
    }
    return out;
}

}  // namespace zvtiff
