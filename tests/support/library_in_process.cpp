// A test program that links the library's objects has no DLL entry point
// to start the library: the program's own module holds its templates and
// strings, and this environment starts and ends it around the tests.
#include <gtest/gtest.h>

#include "module.h"

namespace {

class LibraryInProcess : public ::testing::Environment {
public:
    void SetUp() override { ASSERT_TRUE(AttachLibrary(GetModuleHandleA(nullptr))); }
    void TearDown() override { DetachLibrary(); }
};

const ::testing::Environment* const g_library = ::testing::AddGlobalTestEnvironment(new LibraryInProcess);

}  // namespace
