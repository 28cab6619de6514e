// DoOptions: the stored options of a conversion replayed on an image. The
// commands go to a temporary file that the engine runs with Dewey::Test;
// GetOptionsScript gives a host the same commands as text. The trace
// numbers are exported so that hosts can build the same commands.
#include <io.h>

#include <climits>

#include "bounded_text.h"
#include "core_win.h"
#include "diagnostics.h"
#include "okamod32.h"
#include "ravicli.h"
#include "zvopt32.h"
#include "zvwio32.h"

namespace {

// The image, the registry and the tags of one call, as the script writer
// sees them. Where the script goes is the sink's, below: DoOptions and
// GetOptionsScript share everything else, so their commands cannot differ.
class DeweyScriptHost : public zv::ScriptHost {
public:
    DeweyScriptHost(Dewey* image, TagSet* tags, OKAMOD* formats)
        : image_(image), tags_(tags), access_(tags), formats_(formats)
    {
    }

    zv::TagAccess& Tags() override { return access_; }
    int IndexOf(int listId, const char* text) override { return lists_.IndexOf(listId, text); }
    int IsRaster() override { return image_->IsRaster(); }
    void GetSize(long* width, long* height) override
    {
        image_->GetInfo(width, height, nullptr, nullptr, nullptr);
    }
    int CalculateResize(const char* destExt, long width, long height, long* newWidth, long* newHeight) override
    {
        return ::CalculateResize(tags_, destExt, width, height, newWidth, newHeight);
    }
    void GetRotatedSize(double angle, double width, double height, double* newWidth, double* newHeight) override
    {
        ::GetRotatedSize(angle, width, height, newWidth, newHeight);
    }
    int IsModRaster(const char* ext) override { return ZvIsModRaster(formats_, ext); }
    int FormatType(const char* ext) override { return formats_->GetType(ZvGetIndex(formats_, ext)); }

protected:
    Dewey* image_;

private:
    TagSet* tags_;
    TagSetAccess access_;
    StringTableLists lists_;
    OKAMOD* formats_;
};

// DoOptions' sink: the open script file, and the engine, which is told the
// trace settings directly as well.
class FileScriptHost final : public DeweyScriptHost {
public:
    FileScriptHost(Dewey* image, TagSet* tags, OKAMOD* formats, tagSFILE* file)
        : DeweyScriptHost(image, tags, formats), file_(file)
    {
    }

    void PrepRaster(short undither, short despeckle, short maxColors) override
    {
        image_->PrepRaster(undither, despeckle, maxColors);
    }
    void Vectorize(short method, short genTol, short bezGen, short arcGen, short lineWidth, short reserved) override
    {
        image_->Vectorize(method, genTol, bezGen, arcGen, lineWidth, reserved);
    }
    void Write(const char* bytes, unsigned long length) override { file_->write(file_, bytes, length); }
    short FileError() override { return file_->error; }

private:
    tagSFILE* file_;
};

// GetOptionsScript's sink: a host's buffer, which gets what fits while the
// whole length is counted. The host only reads the script, so its image is
// not told anything.
class TextScriptHost final : public DeweyScriptHost {
public:
    TextScriptHost(Dewey* image, TagSet* tags, OKAMOD* formats, char* text, int size)
        : DeweyScriptHost(image, tags, formats), text_(text), size_(text != nullptr && size > 0 ? size : 0)
    {
        zv::CopyBounded(text_, size_, "");
    }

    void PrepRaster(short, short, short) override {}
    void Vectorize(short, short, short, short, short, short) override {}
    void Write(const char* bytes, unsigned long length) override
    {
        zv::AppendBoundedN(text_, size_, bytes, length);
        length_ += length;
    }
    short FileError() override { return 0; }

    int Length() const { return length_ < INT_MAX ? static_cast<int>(length_) : INT_MAX; }

private:
    char* text_;
    std::size_t size_;
    unsigned long long length_ = 0;
};

}  // namespace

extern "C" ZVOPT32_API short DoOptions(Dewey* image, TagSet* tags, const char* srcExt, const char* destExt,
                                       OKAMOD* formats)
{
    tagSFILE* file = nullptr;
    short result = OkiOpenTempFile(&file, 0x302, 0);
    if (result != 0)
        return result;

    FileScriptHost host(image, tags, formats, file);
    result = zv::WriteOptionScript(host, srcExt, destExt);
    if (result != 0) {
        Diagnostic("DoOptions: %s to %s, the script could not be written (%d)", srcExt, destExt, result);
        // The file's own close removes a file that still has its name.
        file->close(file);
        return result;
    }

    // With its name taken out, the close leaves the file for the engine.
    char* path = file->name;
    file->name = nullptr;
    file->close(file);
    if (path == nullptr)
        return -1;

    result = image->Test(path, nullptr, nullptr);
    Diagnostic("DoOptions: %s to %s, the engine runs the script and gives %d", srcExt, destExt, result);
    _unlink(path);
    // The path came from the file's allocator and is ours since it left
    // the record.
    OkiFreeSMem(path);
    return result;
}

extern "C" ZVOPT32_API int GetOptionsScript(Dewey* image, TagSet* tags, const char* srcExt, const char* destExt,
                                            OKAMOD* formats, char* text, int size)
{
    TextScriptHost host(image, tags, formats, text, size);
    zv::WriteOptionScript(host, srcExt, destExt);
    return host.Length();
}

extern "C" ZVOPT32_API short TraceGetMethod(TagSet* tags, const char* prefix)
{
    TagSetAccess access(tags);
    return zv::TraceGetMethod(access, prefix);
}

extern "C" ZVOPT32_API short TraceGetUndither(TagSet* tags, const char* prefix)
{
    TagSetAccess access(tags);
    StringTableLists lists;
    return zv::TraceGetUndither(access, lists, prefix);
}

extern "C" ZVOPT32_API short TraceGetDespec(TagSet* tags, const char* prefix)
{
    TagSetAccess access(tags);
    StringTableLists lists;
    return zv::TraceGetDespec(access, lists, prefix);
}

extern "C" ZVOPT32_API short TraceGetMaxColors(TagSet* tags, const char* prefix)
{
    TagSetAccess access(tags);
    return zv::TraceGetMaxColors(access, prefix);
}

extern "C" ZVOPT32_API short TraceGetGenTol(TagSet* tags, const char* prefix)
{
    TagSetAccess access(tags);
    return zv::TraceGetGenTol(access, prefix);
}

extern "C" ZVOPT32_API short TraceGetBezGen(TagSet* tags, const char* prefix)
{
    TagSetAccess access(tags);
    return zv::TraceGetBezGen(access, prefix);
}

extern "C" ZVOPT32_API short TraceGetArcGen(TagSet* tags, const char* prefix)
{
    TagSetAccess access(tags);
    return zv::TraceGetArcGen(access, prefix);
}

extern "C" ZVOPT32_API short TraceGetLineWidth(TagSet* tags, const char* prefix)
{
    TagSetAccess access(tags);
    return zv::TraceGetLineWidth(access, prefix);
}

extern "C" ZVOPT32_API void TraceMakeTag(TagSet* tags, const char* prefix, const char* name, char* key)
{
    TagSetAccess access(tags);
    zv::TraceMakeTag(access, prefix, name, key);
}
