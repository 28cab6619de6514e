// The listing shows every IFD and entry the reader got, says where and why
// it stopped, and never grows past its room.
#include <gtest/gtest.h>

#include "tiff_bytes.h"
#include "tiff_listing.h"

namespace {

using namespace zvtiff;

std::string ListingOf(const std::vector<std::uint8_t>& bytes, std::size_t limit = kListingSize, TiffStatus* status = nullptr)
{
    TiffMemorySource source(bytes.data(), bytes.size());
    TiffStructure tiff;
    TiffStatus result = ReadTiffStructure(source, &tiff);
    if (status != nullptr) *status = result;
    return TiffListing(tiff, result, limit);
}

TEST(TiffListing, ListsEveryIfdAndEntryOfAFileOfTwoPages)
{
    std::string listing = ListingOf(zvtest::TwoPageTiff());
    EXPECT_EQ(listing.rfind("TIFF, Intel (II) byte order, 2 IFDs\r\n", 0), 0u) << listing;
    EXPECT_NE(listing.find("IFD 0 at offset 8, 10 entries\r\n"), std::string::npos);
    EXPECT_NE(listing.find("IFD 1 at offset 134, 10 entries\r\n"), std::string::npos);
    EXPECT_NE(listing.find("    256 ImageWidth         SHORT           1  64\r\n"), std::string::npos) << listing;
    EXPECT_NE(listing.find("    257 ImageLength        SHORT           1  24\r\n"), std::string::npos);
    EXPECT_NE(listing.find("    305 Software           ASCII           3  \"Zv\"\r\n"), std::string::npos);
    EXPECT_EQ(listing.find("Stopped"), std::string::npos);
}

TEST(TiffListing, ATruncatedFileShowsWhatWasReadAndWhereItStopped)
{
    std::vector<std::uint8_t> bytes = zvtest::TwoPageTiff();
    bytes.resize(bytes.size() - 20);  // the second IFD's table runs past the end
    TiffStatus status = TiffStatus::Ok;
    std::string listing = ListingOf(bytes, kListingSize, &status);
    EXPECT_EQ(status, TiffStatus::Truncated);
    EXPECT_NE(listing.find("IFD 0 at offset 8"), std::string::npos);
    EXPECT_EQ(listing.find("IFD 1"), std::string::npos);
    EXPECT_NE(listing.find("Stopped after 1 IFD: an IFD or a value runs past the end of the file.\r\n"),
              std::string::npos) << listing;
    EXPECT_EQ(ListingErrorCode(status), -256);  // "End of file encountered"
}

TEST(TiffListing, AListingLongerThanItsRoomIsCutAtALineAndSaysSo)
{
    std::vector<std::vector<zvtest::TiffEntrySpec>> many(300, {{256, 3, 1, 1}, {257, 3, 1, 1}, {258, 3, 1, 8}});
    std::string listing = ListingOf(zvtest::LittleTiff(many), 2000);
    EXPECT_LT(listing.size(), 2000u);
    EXPECT_NE(listing.find("... (the listing is cut here)\r\n"), std::string::npos);
    EXPECT_EQ(listing.substr(listing.size() - 2), "\r\n");
    EXPECT_GT(ListingOf(zvtest::LittleTiff(many)).size(), 2000u);  // the full room holds more
}

}  // namespace
