// The library as a host finds it: a DLL that carries its version.
#include <gtest/gtest.h>

#include <windows.h>

TEST(Library, CarriesItsVersionResource)
{
    HMODULE library = LoadLibraryA("ZVOPT32.dll");
    ASSERT_NE(library, nullptr);
    char path[MAX_PATH] = {};
    ASSERT_GT(GetModuleFileNameA(library, path, sizeof path), 0u);
    DWORD handle = 0;
    EXPECT_GT(GetFileVersionInfoSizeA(path, &handle), 0u);
    FreeLibrary(library);
}
