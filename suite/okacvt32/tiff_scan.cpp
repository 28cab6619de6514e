// CvtScanTiff: the type text of a sample TIFF, read by the portable
// structure reader, which never trusts an offset or a count of the file.
#include <cstring>

#include "message_codes.h"
#include "okacvt32.h"
#include "tiff_listing.h"
#include "tiff_type_text.h"

namespace {

// Mode 1: the listing of every IFD and entry into buffer (kListingSize
// bytes), as far as the reader got; the code tells whether it got to the end.
char* WriteListing(const char* path, short& result, char* buffer)
{
    if (GetFileAttributesA(path) == INVALID_FILE_ATTRIBUTES) {
        result = -202;  // file or path not found
        return nullptr;
    }
    zvtiff::TiffStructure tiff;
    zvtiff::TiffStatus status = zvtiff::ReadTiffFile(path, &tiff, false);
    std::string listing = zvtiff::TiffListing(tiff, status);
    std::memcpy(buffer, listing.c_str(), listing.size() + 1);
    result = zvtiff::ListingErrorCode(status);
    return buffer;
}

}  // namespace

char* CvtScanTiff(const char* path, short* code, int mode, char* buffer)
{
    short ignored = 0;
    short& result = code != nullptr ? *code : ignored;
    if (path != nullptr && mode == 1 && buffer != nullptr) return WriteListing(path, result, buffer);
    if (path == nullptr || mode != 0) {
        result = zvcvt::kCvtInvalidParameter;
        return nullptr;
    }
    if (GetFileAttributesA(path) == INVALID_FILE_ATTRIBUTES) {
        result = zvtiff::kScanFileNotFound;
        return nullptr;
    }
    zvtiff::TiffStructure tiff;
    zvtiff::TiffStatus status = zvtiff::ReadTiffFile(path, &tiff, true);
    if (status != zvtiff::TiffStatus::Ok) {
        result = zvtiff::ScanErrorCode(status);
        return nullptr;
    }
    std::string text = zvtiff::TiffTypeText(zvtiff::ReadImageFacts(tiff.ifds.front()));
    auto* block = static_cast<char*>(OkiAllocSMem(text.size() + 1));
    if (block == nullptr) {
        result = zvtiff::kScanOutOfMemory;
        return nullptr;
    }
    std::memcpy(block, text.c_str(), text.size() + 1);
    result = zvtiff::kScanNoError;
    return block;
}
