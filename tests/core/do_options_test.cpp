// DoOptions on real images: the script's commands change the pixels as the
// engine's own calls would, the script file goes away, codes come back, and
// GetOptionsScript gives the text of the script that runs.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <set>
#include <string>

#include "core_test_support.h"
#include "okamod32.h"
#include "zvopt32.h"

using coretest::StoredSet;

namespace {

// Other test programs run beside this one: this process gets a temporary
// folder of its own, so that what the script leaves (or not) is ours alone.
struct PrivateTempFolder {
    char folder[MAX_PATH] = {};
    PrivateTempFolder()
    {
        char base[MAX_PATH];
        GetTempPathA(sizeof base, base);
        wsprintfA(folder, "%szvopt-%lu", base, GetCurrentProcessId());
        CreateDirectoryA(folder, nullptr);
        SetEnvironmentVariableA("TMP", folder);
        SetEnvironmentVariableA("TEMP", folder);
    }
    ~PrivateTempFolder() { RemoveDirectoryA(folder); }
};

std::set<std::string> TempFiles()
{
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(std::filesystem::temp_directory_path()))
        names.insert(entry.path().filename().string());
    return names;
}

struct Conversion : ::testing::Test {
    PrivateTempFolder temp;
    OKAMOD* formats = new OKAMOD(nullptr);
    StoredSet tags{"DoOptions"};
    Dewey* image = coretest::PatternImage(64, 48, 24);
    Dewey* expected = coretest::PatternImage(64, 48, 24);
    ~Conversion() override
    {
        delete image;
        delete expected;
        delete formats;
    }
};

TEST_F(Conversion, NoTagsRunsAnEmptyScriptAndLeavesThePixels)
{
    auto before = TempFiles();
    EXPECT_EQ(DoOptions(image, tags.tags, "BMP", "TIF", formats), 0);
    EXPECT_EQ(coretest::DibBytes(image), coretest::DibBytes(expected));
    EXPECT_EQ(TempFiles(), before);
}

TEST_F(Conversion, TheScriptTextIsTheScriptThatRuns)
{
    tags.Set("BMPPNGAPPLYCOLORS", "ON");
    tags.Set("RGBFF0000", "00FF00");
    tags.Set("BMPPNGCONTRAST", "10");
    tags.Set("BMPPNGBRIGHT", "-5");
    tags.Set("PNGROT", "90");
    tags.Set("BMPPNGFLIPV", "on");
    tags.Set("BMPPNGINV", "ON");
    tags.Set("PNGDEP", "8");
    tags.Set("BMPPNGCPROC", "HALF");
    const std::string script =
        "ChangeColor 255 65280\n\rGamma 10 -5 0\n\rInvert\n\rRotate 270 1 0\n\rReduce 8 0 0 0\n\r";
    const int length = static_cast<int>(script.size());

    // Too small a buffer gets the head of the script and its zero, and not a
    // byte past its size; the result still tells the room needed.
    char cut[12];
    std::memset(cut, 'x', sizeof cut);
    EXPECT_EQ(GetOptionsScript(image, tags.tags, "BMP", "PNG", formats, cut, 8), length);
    EXPECT_EQ(std::string(cut), script.substr(0, 7));
    EXPECT_EQ(std::string(cut + 8, 4), "xxxx");

    std::string text(script.size() + 1, 'x');
    ASSERT_EQ(GetOptionsScript(image, tags.tags, "BMP", "PNG", formats, text.data(), length + 1), length);
    text.resize(script.size());
    EXPECT_EQ(text, script);
    EXPECT_EQ(coretest::DibBytes(image), coretest::DibBytes(expected));

    // The text, run by the engine, does what DoOptions does.
    char path[MAX_PATH] = {};
    GetTempFileNameA(temp.folder, "zvs", 0, path);
    FILE* file = std::fopen(path, "wb");
    ASSERT_NE(file, nullptr);
    std::fwrite(text.data(), 1, text.size(), file);
    std::fclose(file);
    ASSERT_EQ(expected->Test(path, nullptr, nullptr), 0);
    DeleteFileA(path);
    ASSERT_EQ(DoOptions(image, tags.tags, "BMP", "PNG", formats), 0);
    EXPECT_EQ(coretest::DibBytes(image), coretest::DibBytes(expected));

    // And so do the engine's own calls, one by one in the script's order:
    // each line's numbers mean what the call's do.
    Dewey* byCalls = coretest::PatternImage(64, 48, 24);
    IRGB red = {255, 0, 0};
    IRGB green = {0, 255, 0};
    ASSERT_EQ(byCalls->ChangeColor(&red, &green), 0);
    ASSERT_EQ(byCalls->Gamma(10, -5, 0), 0);
    ASSERT_EQ(byCalls->Invert(), 0);
    ASSERT_EQ(byCalls->Rotate(270, 1, 0), 0);
    ASSERT_EQ(byCalls->Reduce(8, 0, 0, 0), 0);
    EXPECT_EQ(enginetest::Shape(*image), "48 x 64, 8");
    EXPECT_EQ(coretest::DibBytes(image), coretest::DibBytes(byCalls));
    delete byCalls;
}

// A stored angle counts clockwise. The pictures written here are read by an
// independent tool in rotation_against_imagemagick.sh, which runs this test
// with ZV_ROTATION_FILES naming a folder; without it they go to the
// temporary folder and only their shape is checked.
TEST_F(Conversion, AStoredAngleOfAnySignTurnsThePicture)
{
    char folder[MAX_PATH] = {};
    if (GetEnvironmentVariableA("ZV_ROTATION_FILES", folder, sizeof folder) == 0)
        lstrcpynA(folder, temp.folder, sizeof folder);
    const std::string base = std::string(folder) + "\\";
    ASSERT_EQ(image->Save((base + "source.bmp").c_str()), 0);
    // -90 reaches the engine as "Rotate 450", which must turn, not fail.
    for (const char* angle : {"90", "-90"}) {
        Dewey* turned = coretest::PatternImage(64, 48, 24);
        tags.Set("PNGROT", angle);
        ASSERT_EQ(DoOptions(turned, tags.tags, "BMP", "PNG", formats), 0) << angle;
        EXPECT_EQ(enginetest::Shape(*turned), "48 x 64, 24");
        EXPECT_EQ(turned->Save((base + "turned" + angle + ".bmp").c_str()), 0);
        delete turned;
    }
    if (lstrcmpiA(folder, temp.folder) == 0) {
        for (const char* name : {"source.bmp", "turned90.bmp", "turned-90.bmp"})
            DeleteFileA((base + name).c_str());
    }
}

TEST_F(Conversion, AnEngineRefusalComesBackAndTheFileStillGoes)
{
    // A raster source traced into a metafile drawing, with a colour depth
    // as well: the image is traced while the script is written, so the
    // script's Reduce line finds a drawing, which the engine refuses.
    tags.Set("WMFRVFORCE", "V");
    tags.Set("WMFDEP", "4");
    auto before = TempFiles();
    short result = DoOptions(image, tags.tags, "BMP", "WMF", formats);
    EXPECT_LT(result, 0);
    EXPECT_EQ(TempFiles(), before);
}

TEST_F(Conversion, NoTemporaryFileNoScript)
{
    tags.Set("BMPTIFINV", "ON");
    char saved[MAX_PATH] = {};
    char savedTemp[MAX_PATH] = {};
    GetEnvironmentVariableA("TMP", saved, sizeof saved);
    GetEnvironmentVariableA("TEMP", savedTemp, sizeof savedTemp);
    SetEnvironmentVariableA("TMP", "C:\\no\\such\\folder");
    SetEnvironmentVariableA("TEMP", "C:\\no\\such\\folder");
    SetEnvironmentVariableA("USERPROFILE", "C:\\no\\such\\folder");
    short result = DoOptions(image, tags.tags, "BMP", "TIF", formats);
    SetEnvironmentVariableA("TMP", saved);
    SetEnvironmentVariableA("TEMP", savedTemp);
    EXPECT_LT(result, 0);
    EXPECT_EQ(coretest::DibBytes(image), coretest::DibBytes(expected));
}

}  // namespace
