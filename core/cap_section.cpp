// CapSection: a host's side of a section that another process made and
// described in one text. When the host lets go, the owner hears of it by
// message, with the id it gave, so that it can free the section.
#include <cstring>

#include "bounded_text.h"
#include "option_core.h"
#include "zvopt32.h"

CapSection::CapSection(char* description)
    : view(nullptr), wideName(nullptr), id(0), mapping(nullptr), owner(nullptr)
{
    name[0] = '\0';
    zv::SectionDescription parts;
    zv::DescriptionResult parsed = zv::ParseSectionDescription(description, &parts);
    id = parts.id;
    owner = reinterpret_cast<HWND>(static_cast<ULONG_PTR>(parts.owner));
    if (parsed != zv::DescriptionResult::kOk)
        return;
    zv::CopyBounded(name, parts.name);

    std::uint16_t wide[zv::kSectionNameSize];
    zv::WidenSectionName(name, wide);
    OLECHAR text[zv::kSectionNameSize];
    for (std::size_t i = 0; i < zv::kSectionNameSize; ++i)
        text[i] = static_cast<OLECHAR>(wide[i]);
    wideName = SysAllocString(text);

    mapping = OpenFileMappingA(FILE_MAP_READ | FILE_MAP_WRITE, FALSE, name);
    if (mapping != nullptr)
        view = MapViewOfFile(mapping, FILE_MAP_READ | FILE_MAP_WRITE, 0, 0, 0);
}

CapSection::~CapSection()
{
    if (wideName != nullptr)
        SysFreeString(wideName);
    if (view != nullptr)
        UnmapViewOfFile(view);
    if (mapping != nullptr)
        CloseHandle(mapping);
    // Only a window that still exists hears of it.
    if (owner != nullptr && GetWindowThreadProcessId(owner, nullptr) != 0)
        PostMessageA(owner, ZV_WM_SECTION_RELEASED, 0, static_cast<LPARAM>(id));
}

CapSection& CapSection::operator=(const CapSection& other)
{
    view = other.view;
    std::memcpy(name, other.name, sizeof name);
    wideName = other.wideName;
    id = other.id;
    mapping = other.mapping;
    owner = other.owner;
    return *this;
}

void* CapSection::operator new(size_t size)
{
    return HeapAlloc(GetProcessHeap(), HEAP_ZERO_MEMORY, size);
}

void CapSection::operator delete(void* object)
{
    if (object != nullptr)
        HeapFree(GetProcessHeap(), 0, object);
}
