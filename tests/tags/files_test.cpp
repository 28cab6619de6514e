// Temporary files keep or lose their file by the name field at close; the
// list service and the shared allocator.
#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "okaio32.h"

namespace {

bool FileExists(const char* path)
{
    return GetFileAttributesA(path) != INVALID_FILE_ATTRIBUTES;
}

TEST(TempFile, ACallerThatTakesTheNameOutKeepsTheFileAndThePath)
{
    tagSFILE* file = nullptr;
    ASSERT_EQ(OkiOpenTempFile(&file, 0x302, 0), OKI_OK);
    file->write(file, "ReverseBW\n\r", 11);
    file->write(file, "Grayize\n\r", 9);
    char* path = file->name;
    file->name = nullptr;
    EXPECT_EQ(file->close(file), 0);
    std::ifstream written(path, std::ios::binary);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(written), {}), "ReverseBW\n\rGrayize\n\r");
    written.close();
    EXPECT_TRUE(DeleteFileA(path));
    OkiFreeSMem(path);  // the path is the caller's now
}

TEST(TempFile, TheFirstErrorStaysAndClosingWithTheNameSetRemovesTheFile)
{
    tagSFILE* file = nullptr;
    ASSERT_EQ(OkiOpenTempFile(&file, 0x302, 0), OKI_OK);
    ASSERT_NE(file->name, nullptr);
    const std::string path = file->name;
    EXPECT_TRUE(FileExists(path.c_str()));
    // A write from no buffer fails; later good writes don't clear the error.
    EXPECT_EQ(file->write(file, nullptr, 4), OKI_ERR_WRITE);
    EXPECT_EQ(file->write(file, "ok", 2), OKI_OK);
    EXPECT_EQ(file->error, OKI_ERR_WRITE);
    EXPECT_EQ(file->close(file), OKI_ERR_WRITE);
    EXPECT_FALSE(FileExists(path.c_str()));
    EXPECT_EQ(OkiOpenTempFile(nullptr, 0x302, 0), OKI_ERR_ARGUMENT);
}

struct ColourPair {
    COLORREF from, to;
};

TEST(ListService, NodesKeepTheirOrderAndComeOutCleanly)
{
    OkiList* list = OkiCreateList();
    ASSERT_NE(list, nullptr);
    std::vector<OkiNode*> nodes;
    for (COLORREF c = 1; c <= 4; ++c) {
        OkiNode* node = OkiCreateNode(sizeof(ColourPair));
        ASSERT_NE(node, nullptr);
        auto* pair = static_cast<ColourPair*>(OkiNodeData(node));
        pair->from = c;
        pair->to = c * 10;
        OkiAddTail(list, node);
        nodes.push_back(node);
    }
    EXPECT_EQ(OkiExtractNode(list, nodes[1]), nodes[1]);
    EXPECT_EQ(OkiExtractNode(list, nodes[1]), nullptr);  // not in the list any more
    OkiDestroyNode(nodes[1]);
    OkiDestroyNode(nodes[3]);  // still linked: it leaves the list first

    std::vector<COLORREF> order;
    for (OkiNode* n = OkiNextNode(list, nullptr); n; n = OkiNextNode(list, n))
        order.push_back(reinterpret_cast<ColourPair*>(n)->to);  // the node is its payload
    EXPECT_EQ(order, (std::vector<COLORREF>{10, 30}));
    OkiDestroyList(list);
}

TEST(SharedMemory, BlocksAreZeroedAndEvenAnEmptyOneIsABlock)
{
    // A block freed dirty is the likeliest to come back for the same size.
    auto* block = static_cast<unsigned char*>(OkiAllocSMem(4096));
    ASSERT_NE(block, nullptr);
    std::memset(block, 0xFF, 4096);
    OkiFreeSMem(block);
    block = static_cast<unsigned char*>(OkiAllocSMem(4096));
    ASSERT_NE(block, nullptr);
    EXPECT_EQ(std::count(block, block + 4096, 0), 4096);
    OkiFreeSMem(block);
    void* empty = OkiAllocSMem(0);
    EXPECT_NE(empty, nullptr);
    OkiFreeSMem(empty);
}

}  // namespace
