// zvconv: the options library's main job without a dialog. It reads an
// image, binds the options of a tag file to a stored tag set, gives the
// engine the options of the conversion (FilterOptions), replays the
// commands (DoOptions) and writes the result in the format of the output
// file's extension.
//
//   zvconv IMAGE OUTPUT TAGFILE
//   zvconv --print TAGFILE IMAGE...   prints each image with the tags' print options
#include <windows.h>

#include <cstdio>
#include <cstring>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "okacvt32.h"
#include "okamod32.h"
#include "print_batch.h"
#include "ravicli.h"
#include "tag_file.h"
#include "zvopt32.h"
#include "zvwio32.h"

namespace {

// The script that DoOptions is about to run, from the same tags, image and
// registry; the image is not touched.
std::string ScriptText(Dewey* image, TagSet* tags, const char* src, const char* dest, OKAMOD* formats)
{
    const int length = GetOptionsScript(image, tags, src, dest, formats, nullptr, 0);
    std::string text(static_cast<std::size_t>(length) + 1, '\0');
    GetOptionsScript(image, tags, src, dest, formats, text.data(), length + 1);
    text.resize(static_cast<std::size_t>(length));
    return text;
}

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
    if (argc >= 2 && std::strcmp(argv[1], "--print") == 0)
        return PrintBatch(argc, argv);
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
    // Source options among the tags (a CUT picture's "CUTIPAL") take effect
    // as the image is read.
    image->RefreshOptions(path);
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

        const std::string script = ScriptText(image, root, src.c_str(), dest.c_str(), formats);
        std::printf("script (%u bytes, lines end in LF CR):\n", static_cast<unsigned>(script.size()));
        if (script.empty())
            std::printf("  (no commands)\n");
        for (std::size_t at = 0, end; (end = script.find("\n\r", at)) != std::string::npos; at = end + 2)
            std::printf("  %s\n", script.substr(at, end - at).c_str());

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
