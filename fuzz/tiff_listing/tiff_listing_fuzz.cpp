// Any bytes as a TIFF file: the structure as far as it reads, then its
// listing, which must stay within its room whatever the file holds.
#include <cstdint>
#include <cstdlib>

#include "tiff_listing.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    zvtiff::TiffMemorySource source(data, size);
    zvtiff::TiffStructure tiff;
    zvtiff::TiffStatus status = zvtiff::ReadTiffStructure(source, &tiff);
    // A small room as well as the page's, so that the cut is driven too.
    for (std::size_t limit : {std::size_t(300), zvtiff::kListingSize}) {
        std::string listing = zvtiff::TiffListing(tiff, status, limit);
        if (listing.size() >= limit) std::abort();
    }
    zvtiff::ListingErrorCode(status);
    return 0;
}
