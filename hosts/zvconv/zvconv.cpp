// zvconv: the options library's main job without a dialog. It reads an
// image, binds the options of a tag file to a stored tag set, gives the
// engine the options of the conversion (FilterOptions), replays the
// commands (DoOptions) and writes the result in the format of the output
// file's extension.
//
//   zvconv IMAGE OUTPUT TAGFILE
#include <windows.h>

#include <cstdio>
#include <cstring>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "okacvt32.h"
#include "okamod32.h"
#include "option_core.h"
#include "ravicli.h"
#include "tag_file.h"
#include "zvopt32.h"
#include "zvwio32.h"

namespace {

// The tag set through ZVWIO32, for the printout of the script.
class SetTags : public zv::TagAccess {
public:
    explicit SetTags(TagSet* tags) : tags_(tags) {}
    const char* Get(const char* key) override { return ZvGetTag(tags_, key); }
    int GetInt(const char* key) override { return ZvGetIntTag(tags_, key); }
    double GetFloat(const char* key) override { return ZvGetFloatTag(tags_, key); }
    void Set(const char* key, const char* value) override { ZvSetTag(tags_, key, value); }
    void* OpenSearch(const char* prefix) override { return ZvOpenTagSearch(tags_, prefix); }
    const char* NextKey(void* search) override { return ZvTagSearch(static_cast<TagSearch*>(search)); }
    void CloseSearch(void* search) override { delete static_cast<TagSearch*>(search); }

private:
    TagSet* tags_;
};

// Builds the script that DoOptions is about to run, from the same tags,
// image and registry, into text; the engine itself is not touched.
class ScriptPrinter : public zv::ScriptHost {
public:
    ScriptPrinter(Dewey* image, TagSet* tags, OKAMOD* formats) : image_(image), tags_(tags), access_(tags), formats_(formats) {}
    std::string text;

    zv::TagAccess& Tags() override { return access_; }
    int IndexOf(int listId, const char* value) override
    {
        return GetListIndex(listId, value, GetModuleHandleA("ZVOPT32.dll"));
    }
    int IsRaster() override { return image_->IsRaster(); }
    void GetSize(long* width, long* height) override { image_->GetInfo(width, height, nullptr, nullptr, nullptr); }
    int CalculateResize(const char* dest, long width, long height, long* newWidth, long* newHeight) override
    {
        return ::CalculateResize(tags_, dest, width, height, newWidth, newHeight);
    }
    void GetRotatedSize(double angle, double width, double height, double* newWidth, double* newHeight) override
    {
        ::GetRotatedSize(angle, width, height, newWidth, newHeight);
    }
    int IsModRaster(const char* ext) override { return ZvIsModRaster(formats_, ext); }
    int FormatType(const char* ext) override { return formats_->GetType(ZvGetIndex(formats_, ext)); }
    void PrepRaster(short, short, short) override {}
    void Vectorize(short, short, short, short, short, short) override {}
    void Write(const char* bytes, unsigned long length) override { text.append(bytes, length); }
    short FileError() override { return 0; }

private:
    Dewey* image_;
    TagSet* tags_;
    SetTags access_;
    OKAMOD* formats_;
};

std::string ExtensionOf(const char* path)
{
    char ext[MAX_PATH] = {};
    ZvSplitPath(path, nullptr, nullptr, ext);
    std::string upper(ext);
    for (char& c : upper)
        if (c >= 'a' && c <= 'z')
            c = static_cast<char>(c - 'a' + 'A');
    return upper;
}

std::string EngineText(short code)
{
    if (code == 0)
        return "done";
    MsgLib* messages = new MsgLib;
    char text[256] = {};
    messages->GetMessageA(code, text);
    delete messages;
    return text;
}

bool ReadFile(const char* path, std::string* text)
{
    std::ifstream in(path, std::ios::binary);
    if (!in)
        return false;
    std::ostringstream all;
    all << in.rdbuf();
    *text = all.str();
    return true;
}

// Every key of a set, for the printout and for the cleanup.
std::vector<std::string> KeysOf(TagSet* tags)
{
    std::vector<std::string> keys;
    TagSearch* search = ZvOpenTagSearch(tags, "");
    if (search == nullptr)
        return keys;
    while (const char* key = ZvTagSearch(search))
        keys.emplace_back(key);
    delete search;
    return keys;
}

void Clear(TagSet* tags)
{
    for (const std::string& key : KeysOf(tags))
        ZvSetTag(tags, key.c_str(), "");
}

int Fail(const char* what, const char* detail)
{
    std::fprintf(stderr, "zvconv: %s: %s\n", what, detail);
    return 1;
}

}  // namespace

int main(int argc, char** argv)
{
    if (argc != 4) {
        std::fprintf(stderr, "usage: zvconv IMAGE OUTPUT TAGFILE\n");
        return 2;
    }
    const char* input = argv[1];
    const char* output = argv[2];

    std::string tagText;
    if (!ReadFile(argv[3], &tagText))
        return Fail("cannot read the tag file", argv[3]);
    std::vector<zvconv::TagLine> lines;
    std::vector<zvconv::TagFileError> errors;
    zvconv::ParseTagFile(tagText, &lines, &errors);
    for (const auto& error : errors)
        std::fprintf(stderr, "zvconv: %s:%d: %s\n", argv[3], error.line, error.message.c_str());
    if (!errors.empty())
        return 1;

    OKAMOD* formats = new OKAMOD(nullptr);
    std::string srcExt = ExtensionOf(input);
    std::string destExt = ExtensionOf(output);
    if (!formats->IsSource(formats->GetIndex(srcExt.c_str())))
        return Fail("not a format that can be read", input);
    if (!formats->IsDest(formats->GetIndex(destExt.c_str())))
        return Fail("not a format that can be written", output);
    // Tag keys and the script use the internal extensions.
    std::string src = ZvGetInternalExt(formats, srcExt.c_str());
    std::string dest = ZvGetInternalExt(formats, destExt.c_str());

    // A stored place of this run's own, so that the wildcard set lies where
    // FilterOptions looks for it: below the root's path.
    char path[128];
    std::snprintf(path, sizeof path, "zvconv\\Run%lu", GetCurrentProcessId());
    std::string wildPath = std::string(path) + "\\Wildcards";
    std::string enginePath = std::string(path) + "\\Engine";
    TagSet* root = new TagSet;
    TagSet* wildcards = new TagSet;
    TagSet* engine = new TagSet;
    root->SetPath(path, 1);
    wildcards->SetPath(wildPath.c_str(), 1);
    engine->SetPath(enginePath.c_str(), 1);
    for (const auto& line : lines)
        ZvSetTag(line.wildcard ? wildcards : root, line.key.c_str(), line.value.c_str());

    int status = 0;
    Dewey* image = new Dewey;
    short result = image->Open(input);
    if (result != 0) {
        status = Fail("cannot open the image", EngineText(result).c_str());
    } else {
        long width = 0, height = 0;
        short bits = 0;
        image->GetInfo(&width, &height, nullptr, nullptr, &bits);
        std::printf("image:   %s, %ld x %ld, %d bits, %s\n", input, width, height, bits,
                    image->IsRaster() ? "raster" : "vector");
        std::printf("convert: %s to %s\n", src.c_str(), dest.c_str());

        FilterOptions(image, root, engine, src.c_str(), dest.c_str());
        std::printf("engine options (%s):\n", engine->GetPath() ? engine->GetPath() : "");
        for (const std::string& key : KeysOf(engine))
            std::printf("  %s=%s\n", key.c_str(), ZvGetTag(engine, key.c_str()));

        ScriptPrinter printer(image, root, formats);
        zv::WriteOptionScript(printer, src.c_str(), dest.c_str());
        std::printf("script (%u bytes, lines end in LF CR):\n", static_cast<unsigned>(printer.text.size()));
        if (printer.text.empty())
            std::printf("  (no commands)\n");
        for (std::size_t at = 0, end; (end = printer.text.find("\n\r", at)) != std::string::npos; at = end + 2)
            std::printf("  %s\n", printer.text.substr(at, end - at).c_str());

        result = DoOptions(image, root, src.c_str(), dest.c_str(), formats);
        std::printf("engine:  %d (%s)\n", result, EngineText(result).c_str());
        if (result == 0) {
            result = image->Save(output);
            if (result == 0) {
                image->GetInfo(&width, &height, nullptr, nullptr, &bits);
                std::printf("wrote:   %s, %ld x %ld, %d bits\n", output, width, height, bits);
            } else {
                status = Fail("cannot write the result", EngineText(result).c_str());
            }
        } else {
            status = 1;
        }
    }
    std::fflush(stdout);

    // The run's stored tags go again.
    Clear(engine);
    Clear(wildcards);
    Clear(root);
    delete image;
    delete engine;
    delete wildcards;
    delete root;
    delete formats;
    // The store keeps each set in a registry key below this one; the keys
    // of the run go as well as their values.
    std::string stored = std::string("Software\\Zavrin\\Tags\\") + path;
    RegDeleteTreeA(HKEY_CURRENT_USER, stored.c_str());
    return status;
}
