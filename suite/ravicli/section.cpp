// The named section of a document. A raster image lies there as a packed
// DIB, a vector image as the bytes of its enhanced metafile, so that another
// object, or another process, can open the section by name and find the
// whole picture. The picture in hand lives in the document's memory; the
// section gets a copy when SaveResurrectionData asks for one (and only when
// the picture changed since), and when a picture is first opened or made.
//
// A document that opens a section by name maps it copy-on-write, and a
// raster picture it reads there keeps that view as its storage instead of
// copying the rows: a clone of a large picture then costs one copy, the one
// into the new section. Two rules keep such a picture the document's own:
// the engine only ever writes in place into a section that the same
// document made (one that it opened gets a new section of its own when a
// changed picture is stored), and the sections that documents make, which
// their makers do write in place, are copied when another document opens
// them (and are not trusted to still hold its picture). What the document
// writes goes into private pages of its view. A section handed to
// ResurrectSection makes the document a view of it: whoever made it by
// hand must not write it again while the document looks at it, as DoClone
// doesn't.
#include <cstdio>
#include <cstring>
#include <new>

#include "engine_state.h"

static_assert(offsetof(Louie, reserved_) == 0, "a Louie's working fields come first");

namespace {

// Every section that a document makes is named from this stem.
const char kSectionStem[] = "RaviImage";

// A section name that no one uses: the engine's stem, our process and a
// counter. It always fits the 32 bytes of GetSectionName.
void MakeSectionName(char (&name)[kDeweySectionNameSize])
{
    static LONG counter = 0;
    for (;;) {
        LONG n = InterlockedIncrement(&counter);
        std::snprintf(name, sizeof name, "%s%lx_%ld", kSectionStem, GetCurrentProcessId(), long(n));
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

// A section that a document made: its maker writes the next picture there
// in place, so a reader must not keep the section's bytes as its own.
bool MadeByADocument(const char* name)
{
    return std::strncmp(name, kSectionStem, sizeof kSectionStem - 1) == 0;
}

// A view that stays mapped for as long as a document or a picture holds it.
std::shared_ptr<void> KeepView(void* view)
{
    return std::shared_ptr<void>(view, [](void* v) { UnmapViewOfFile(v); });
}

// Reads the picture that a section holds. A raster keeps the view as its
// storage when `keeper` is given, and is copied otherwise. 0, or an engine
// code with image and emf untouched.
short PictureFromView(unsigned char* bytes, std::size_t count, const std::shared_ptr<void>& keeper,
                      ravi::Image& image, HENHMETAFILE& emf)
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
    ravi::Image picture;
    short code = keeper ? ravi::ImageOverDib(bytes, count, keeper, &picture) : ravi::ImageFromDib(bytes, count, &picture);
    if (code != 0) return code;
    image = std::move(picture);
    return 0;
}

}  // namespace

namespace ravi {

void CloseSection(Louie* louie)
{
    LouieState& state = *louie->state;
    // A picture that still borrows the view keeps it mapped by itself.
    state.view.reset();
    if (louie->section) CloseHandle(louie->section);
    state.viewBytes = 0;
    state.ownSection = false;
    state.makerWrites = false;
    louie->section = nullptr;
    state.sectionName[0] = 0;
}

short StorePicture(Louie* louie, const Image& raster, HENHMETAFILE emf)
{
    LouieState& state = *louie->state;
    std::size_t count = 0;
    if (!raster.Empty())
        count = raster.Size();
    else if (emf)
        count = GetEnhMetaFileBits(emf, 0, nullptr);
    if (count == 0) return kEngineNoImage;
    // Straight from the picture into the section, with nothing in between.
    auto write = [&](void* to) {
        if (!raster.Empty())
            std::memcpy(to, raster.Data(), count);
        else
            GetEnhMetaFileBits(emf, UINT(count), static_cast<BYTE*>(to));
    };

    // A section never grows, but a smaller picture fits the one we have:
    // the header inside says how much of it counts.
    if (state.ownSection && state.view && state.viewBytes >= count) {
        write(state.view.get());
        return 0;
    }
    if (count > kMaxImageBytes) return kEngineNoMemory;

    char name[kDeweySectionNameSize];
    MakeSectionName(name);
    HANDLE section = CreateFileMappingA(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, DWORD(count), name);
    if (!section) return kEngineNoSection;
    void* view = MapViewOfFile(section, FILE_MAP_WRITE, 0, 0, 0);
    if (!view) {
        CloseHandle(section);
        return kEngineNoSection;
    }
    write(view);

    CloseSection(louie);
    louie->section = section;
    state.view = KeepView(view);
    state.viewBytes = ViewBytes(view);
    state.ownSection = true;
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
    if (state->raster.Empty() && !state->emf) return ravi::kEngineNoImage;
    // Nothing changed since the section last got the picture, and no one
    // else writes there: it still holds it.
    if (state->sectionCurrent && section && !state->makerWrites) return 0;
    short code = ravi::StorePicture(this, state->raster, state->emf);
    if (code == 0) state->sectionCurrent = true;
    return code;
}

short Dewey::GetSectionName(char* name)
{
    if (!ravi::HasState(this)) return ravi::kEngineNoMemory;
    if (!name) return ravi::kEngineBadArgument;
    LouieState& state = *louie->state;
    if (state.raster.Empty() && state.emf && !state.sectionCurrent) louie->SaveResurrectionData();
    lstrcpynA(name, state.sectionName, kDeweySectionNameSize);
    return 0;
}

short Dewey::GetFileName(char* name)
{
    if (!ravi::HasState(this)) return ravi::kEngineNoMemory;
    if (!name) return ravi::kEngineBadArgument;
    lstrcpynA(name, louie->state->fileName, kDeweyFileNameSize);
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
    void* mapped = MapViewOfFile(section, FILE_MAP_COPY, 0, 0, 0);
    if (!mapped) {
        CloseHandle(section);
        return ravi::kEngineNoSection;
    }
    std::shared_ptr<void> view = KeepView(mapped);
    unsigned char* bytes = static_cast<unsigned char*>(mapped);
    std::size_t count = ViewBytes(mapped);
    unsigned char header[sizeof(BITMAPINFOHEADER)] = {};
    std::memcpy(header, bytes, count < sizeof header ? count : sizeof header);

    bool makerWrites = MadeByADocument(sectionName);
    ravi::Image image;
    HENHMETAFILE emf = nullptr;
    short code = PictureFromView(bytes, count, makerWrites ? nullptr : view, image, emf);
    if (code != 0) {
        CloseHandle(section);
        return code;
    }

    ravi::CloseSection(louie);
    LouieState& state = *louie->state;
    louie->section = section;
    state.view = std::move(view);
    state.viewBytes = count;
    state.makerWrites = makerWrites;
    lstrcpynA(state.sectionName, sectionName, sizeof state.sectionName);
    lstrcpynA(state.fileName, file ? file : "", sizeof state.fileName);
    ravi::ReplacePicture(state, std::move(image), emf);
    // The picture is the section's unless reading it had to tidy its header.
    state.sectionCurrent = emf || std::memcmp(state.raster.Data(), header, sizeof header) == 0;
    return 0;
}
