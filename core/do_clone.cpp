// DoClone: the previews work on a copy of the host's raster image, in a
// section of its own; a vector image is only looked at, so it is shared.
#include <cstring>

#include "bounded_text.h"
#include "diagnostics.h"
#include "option_core.h"
#include "ravicli.h"
#include "zvopt32.h"

namespace {

const short kSectionFailed = -1007;

short ShareVector(Dewey* source, Dewey* clone)
{
    char section[kDeweySectionNameSize] = {};
    char file[kDeweyFileNameSize] = {};
    source->GetSectionName(section);
    source->GetFileName(file);
    return clone->ResurrectSection(section, file);
}

// The bytes that a view can be read at: the whole region of the mapping,
// so that a header that claims more than the section holds is refused
// before anything is copied.
std::size_t ViewSize(const void* view)
{
    MEMORY_BASIC_INFORMATION info = {};
    if (VirtualQuery(view, &info, sizeof info) == 0)
        return 0;
    std::size_t offset = static_cast<const char*>(view) - static_cast<const char*>(info.BaseAddress);
    return info.RegionSize > offset ? info.RegionSize - offset : 0;
}

short CopyFromView(Dewey* source, Dewey* clone, const void* view)
{
    std::size_t bytes = 0;
    if (!zv::DibByteCount(static_cast<const unsigned char*>(view), ViewSize(view), &bytes) ||
        bytes > 0xFFFFFFFFu)
        return kSectionFailed;

    char name[32] = "r";
    short result = CreateUniqueStatusSectionName(name, 30);
    if (result != 0)
        return result;

    HANDLE section = CreateFileMappingA(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0,
                                        static_cast<DWORD>(bytes), name);
    if (section == nullptr)
        return kSectionFailed;
    void* copy = MapViewOfFile(section, FILE_MAP_WRITE, 0, 0, 0);
    if (copy == nullptr) {
        CloseHandle(section);
        return kSectionFailed;
    }
    std::memcpy(copy, view, bytes);

    char file[kDeweyFileNameSize] = {};
    source->GetFileName(file);
    result = clone->ResurrectSection(name, file);

    // The clone opened the section by itself, which keeps it alive.
    UnmapViewOfFile(copy);
    CloseHandle(section);
    return result;
}

short CloneRaster(Dewey* source, Dewey* clone)
{
    Louie* louie = source->louie;
    if (louie == nullptr)
        return kSectionFailed;
    louie->SaveResurrectionData();
    if (louie->section == nullptr)
        return kSectionFailed;

    void* view = MapViewOfFile(louie->section, FILE_MAP_WRITE, 0, 0, 0);
    if (view == nullptr)
        return kSectionFailed;
    short result = CopyFromView(source, clone, view);
    UnmapViewOfFile(view);
    return result;
}

}  // namespace

extern "C" ZVOPT32_API short DoClone(Dewey* source, Dewey** clone)
{
    const bool raster = source->IsRaster() != 0;
    short result = raster ? CloneRaster(source, *clone) : ShareVector(source, *clone);
    Diagnostic("DoClone: %s image, gives %d", raster ? "raster" : "vector", result);
    return result;
}
