// The named section of a document. A raster image lies there as a packed
// DIB, a vector image as the bytes of its enhanced metafile, so that another
// object, or another process, can open the section by name and find the
// whole picture. The picture in hand lives in the document's memory; the
// section gets a copy when SaveResurrectionData asks for one, and when a
// picture is first opened or made.
#include <cstdio>
#include <cstring>
#include <new>

#include "engine_state.h"

static_assert(offsetof(Louie, reserved_) == 0, "a Louie's working fields come first");

namespace {

// A section name that no one uses: the engine's stem, our process and a
// counter. It always fits the 32 bytes of GetSectionName.
void MakeSectionName(char (&name)[32])
{
    static LONG counter = 0;
    for (;;) {
        LONG n = InterlockedIncrement(&counter);
        std::snprintf(name, sizeof name, "RaviImage%lx_%ld", GetCurrentProcessId(), long(n));
        HANDLE taken = OpenFileMappingA(FILE_MAP_READ, FALSE, name);
        if (!taken) return;
        CloseHandle(taken);
    }
}

// How many bytes a view really holds: what we may read without a fault,
// whatever a header inside it claims.
std::size_t ViewBytes(const void* view)
{
    MEMORY_BASIC_INFORMATION info = {};
    if (VirtualQuery(view, &info, sizeof info) == 0) return 0;
    return info.RegionSize;
}

bool LooksLikeMetafile(const unsigned char* bytes, std::size_t count)
{
    if (count < sizeof(ENHMETAHEADER)) return false;
    ENHMETAHEADER header;
    std::memcpy(&header, bytes, sizeof header);
    return header.iType == EMR_HEADER && header.dSignature == ENHMETA_SIGNATURE;
}

// Reads the picture that a section holds. 0, or an engine code with image
// and emf untouched.
short PictureFromView(const unsigned char* bytes, std::size_t count, ravi::Image& image, HENHMETAFILE& emf)
{
    if (LooksLikeMetafile(bytes, count)) {
        ENHMETAHEADER header;
        std::memcpy(&header, bytes, sizeof header);
        if (header.nBytes < sizeof header || header.nBytes > count) return ravi::kEngineTruncated;
        HENHMETAFILE picture = SetEnhMetaFileBits(header.nBytes, bytes);
        if (!picture) return ravi::kEngineFileFormat;
        emf = picture;
        return 0;
    }
    ravi::Image copy;
    short code = ravi::ImageFromDib(bytes, count, &copy);
    if (code != 0) return code;
    image = std::move(copy);
    return 0;
}

}  // namespace

namespace ravi {

std::vector<unsigned char> PictureBytes(const Image& raster, HENHMETAFILE emf)
{
    std::vector<unsigned char> bytes;
    if (!raster.Empty()) {
        bytes.assign(raster.Data(), raster.Data() + raster.Size());
    } else if (emf) {
        UINT count = GetEnhMetaFileBits(emf, 0, nullptr);
        bytes.resize(count);
        if (count) GetEnhMetaFileBits(emf, count, bytes.data());
    }
    return bytes;
}

void CloseSection(Louie* louie)
{
    LouieState& state = *louie->state;
    if (state.view) UnmapViewOfFile(state.view);
    if (louie->section) CloseHandle(louie->section);
    state.view = nullptr;
    state.viewBytes = 0;
    louie->section = nullptr;
    state.sectionName[0] = 0;
}

short StoreInSection(Louie* louie, const void* bytes, std::size_t count)
{
    LouieState& state = *louie->state;
    if (count == 0) return kEngineNoImage;
    // A section never grows, but a smaller picture fits the one we have:
    // the header inside says how much of it counts.
    if (state.view && state.viewBytes >= count) {
        std::memcpy(state.view, bytes, count);
        return 0;
    }
    if (count > kMaxImageBytes) return kEngineNoMemory;

    char name[32];
    MakeSectionName(name);
    HANDLE section = CreateFileMappingA(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, DWORD(count), name);
    if (!section) return kEngineNoSection;
    void* view = MapViewOfFile(section, FILE_MAP_WRITE, 0, 0, 0);
    if (!view) {
        CloseHandle(section);
        return kEngineNoSection;
    }
    std::memcpy(view, bytes, count);

    CloseSection(louie);
    louie->section = section;
    state.view = view;
    state.viewBytes = ViewBytes(view);
    lstrcpynA(state.sectionName, name, sizeof state.sectionName);
    return 0;
}

}  // namespace ravi

// The suite's allocators give null rather than throw, and so does this one:
// a document without its state answers every call with "no memory".
Louie::Louie() : reserved_{}, section(nullptr), state(new (std::nothrow) LouieState) {}

Louie::~Louie()
{
    if (!state) return;
    ravi::CloseSection(this);
    if (state->emf) DeleteEnhMetaFile(state->emf);
    if (state->undoEmf) DeleteEnhMetaFile(state->undoEmf);
    delete state;
}

short Louie::SaveResurrectionData()
{
    if (!state) return ravi::kEngineNoMemory;
    std::vector<unsigned char> bytes = ravi::PictureBytes(state->raster, state->emf);
    if (bytes.empty()) return ravi::kEngineNoImage;
    return ravi::StoreInSection(this, bytes.data(), bytes.size());
}

short Dewey::GetSectionName(char* name)
{
    if (!ravi::HasState(this)) return ravi::kEngineNoMemory;
    if (!name) return ravi::kEngineBadArgument;
    LouieState& state = *louie->state;
    if (state.raster.Empty() && state.emf && state.vectorStale && louie->SaveResurrectionData() == 0)
        state.vectorStale = false;
    lstrcpynA(name, state.sectionName, 32);
    return 0;
}

short Dewey::GetFileName(char* name)
{
    if (!ravi::HasState(this)) return ravi::kEngineNoMemory;
    if (!name) return ravi::kEngineBadArgument;
    lstrcpynA(name, louie->state->fileName, 516);
    return 0;
}

short Dewey::ResurrectSection(const char* sectionName, const char* file)
{
    if (!ravi::HasState(this)) return ravi::kEngineNoMemory;
    // Without a section the document can still come from its file.
    if (!sectionName || !*sectionName) {
        if (file && *file) return Open(file);
        return ravi::kEngineBadArgument;
    }
    // The caller closes its own handle at once, so the document holds one
    // of its own for as long as it looks at the section.
    HANDLE section = OpenFileMappingA(FILE_MAP_READ | FILE_MAP_WRITE, FALSE, sectionName);
    if (!section) return ravi::kEngineNoSection;
    void* view = MapViewOfFile(section, FILE_MAP_WRITE, 0, 0, 0);
    if (!view) {
        CloseHandle(section);
        return ravi::kEngineNoSection;
    }
    std::size_t count = ViewBytes(view);

    ravi::Image image;
    HENHMETAFILE emf = nullptr;
    short code = PictureFromView(static_cast<const unsigned char*>(view), count, image, emf);
    if (code != 0) {
        UnmapViewOfFile(view);
        CloseHandle(section);
        return code;
    }

    ravi::CloseSection(louie);
    LouieState& state = *louie->state;
    louie->section = section;
    state.view = view;
    state.viewBytes = count;
    lstrcpynA(state.sectionName, sectionName, sizeof state.sectionName);
    lstrcpynA(state.fileName, file ? file : "", sizeof state.fileName);
    ravi::ReplacePicture(state, std::move(image), emf);
    return 0;
}
