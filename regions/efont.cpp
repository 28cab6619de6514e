// EFont: the text regions of a mapped file over the host's view. The class
// draws with inverting pens, so a frame or a handle drawn twice is gone
// again and nothing below has to be saved or repainted; the host keeps the
// picture on the screen in step by calling the same drawing twice.
#include <cstring>
#include <initializer_list>

#include "bounded_text.h"
#include "font_key.h"
#include "ravicli.h"
#include "region_geometry.h"
#include "zvopt32.h"

namespace {

static_assert(sizeof(RECTS) == sizeof(zvcvt::RegionRect));

zvreg::Box BoxOf(const RECT& rect) { return zvreg::Box{rect.left, rect.top, rect.right, rect.bottom}; }

zvreg::Sides SidesOf(const RubberSides& s) { return zvreg::Sides{s.top, s.left, s.right, s.bottom}; }
RubberSides RubberOf(const zvreg::Sides& s) { return RubberSides{s.top, s.left, s.right, s.bottom}; }
RubberSides RubberOf(const RECTS& r) { return RubberSides{r.top, r.left, r.right, r.bottom}; }

zvreg::Box OnDevice(taghueyinfo* info, const RubberSides& sides)
{
    return zvreg::SourceToDevice(BoxOf(info->source), BoxOf(info->device), SidesOf(sides));
}

// The device context in device units with both origins at 0, 0 for the
// length of a drawing, whatever mapping the host left on it.
class DeviceUnits {
public:
    explicit DeviceUnits(HDC dc) : dc_(dc), mode_(SetMapMode(dc, MM_TEXT))
    {
        SetWindowOrgEx(dc, 0, 0, &window_);
        SetViewportOrgEx(dc, 0, 0, &viewport_);
    }
    ~DeviceUnits()
    {
        SetMapMode(dc_, mode_);
        SetWindowOrgEx(dc_, window_.x, window_.y, nullptr);
        SetViewportOrgEx(dc_, viewport_.x, viewport_.y, nullptr);
    }
    DeviceUnits(const DeviceUnits&) = delete;
    DeviceUnits& operator=(const DeviceUnits&) = delete;

private:
    HDC dc_;
    int mode_;
    POINT window_ = {};
    POINT viewport_ = {};
};

// A GDI object selected into a device context for a scope, then deleted.
class Selected {
public:
    Selected(HDC dc, HGDIOBJ object) : dc_(dc), object_(object), old_(SelectObject(dc, object)) {}
    ~Selected()
    {
        SelectObject(dc_, old_);
        DeleteObject(object_);
    }
    Selected(const Selected&) = delete;
    Selected& operator=(const Selected&) = delete;

private:
    HDC dc_;
    HGDIOBJ object_;
    HGDIOBJ old_;
};

short Cut16(int value) { return static_cast<short>(static_cast<unsigned short>(value)); }

}  // namespace

EFont::EFont(char* fileName)
    : FMap(fileName, 0, 0),
      rectCount(0),
      rects(nullptr),
      current(nullptr),
      rubber{},
      rubberOld{},
      rubberHandle(0),
      rubberActive(0),
      rubberDone(0),
      selectedSlot(nullptr),
      results{1.0f, 1.0f, "", ""}
{
    if (status != 0) return;
    // A file that doesn't hold what its header says is refused whole: no
    // region of it is shown, and nothing is read past its end.
    zvcvt::RegionTableView view = {};
    status = zvcvt::CheckRegionTable(data, size, &view);
    if (status != 0) return;
    rectCount = view.count;
    selectedSlot = reinterpret_cast<int*>(data + view.selectedOffset);
    rects = reinterpret_cast<RECTS*>(data + view.regionsOffset);
    *selectedSlot = -1;
}

EFont::~EFont() = default;

void EFont::D2S(taghueyinfo* info, int& x, int& y)
{
    zvreg::DeviceToSource(BoxOf(info->source), BoxOf(info->device), x, y);
}

void EFont::S2D(taghueyinfo* info, RECTS* rect, RECT* out)
{
    zvreg::Box box = OnDevice(info, RubberOf(*rect));
    *out = RECT{box.left, box.top, box.right, box.bottom};
}

unsigned short EFont::TextRectHit(taghueyinfo* info, int x, int y)
{
    D2S(info, x, y);
    int hit = zvreg::RegionAt(reinterpret_cast<const zvcvt::RegionRect*>(rects), rectCount, x, y);
    if (hit < 0) {
        current = nullptr;
        return 0;
    }
    current = rects + hit;
    *selectedSlot = hit;
    GetFontNameAt(current->fontIndex, results.oldFont, sizeof results.oldFont);
    zv::CopyBounded(results.newFont, results.oldFont);
    return 1;
}

unsigned short EFont::HandleHit(taghueyinfo* info, int x, int y)
{
    if (current == nullptr) return 0;
    return zvreg::HandleAt(OnDevice(info, RubberOf(*current)), x, y);
}

void EFont::DrawSides(HDC dc, taghueyinfo* info, const RubberSides& sides)
{
    DeviceUnits units(dc);
    zvreg::Box box = OnDevice(info, sides);
    SetROP2(dc, R2_NOT);
    {
        Selected pen(dc, CreatePen(PS_SOLID, 1, RGB(0, 0, 0)));
        MoveToEx(dc, box.left, box.top, nullptr);
        LineTo(dc, box.right, box.top);
        LineTo(dc, box.right, box.bottom);
        LineTo(dc, box.left, box.bottom);
        LineTo(dc, box.left, box.top);
    }
    SetROP2(dc, R2_COPYPEN);
}

void EFont::DrawRect(HDC dc, taghueyinfo* info, RECTS* rect)
{
    DrawSides(dc, info, RubberOf(*rect));
}

void EFont::DrawAllRects(HDC dc, taghueyinfo* info)
{
    for (int i = 0; i < rectCount; ++i) DrawRect(dc, info, rects + i);
}

void EFont::DrawFontRects(HDC dc, taghueyinfo* info)
{
    if (current == nullptr) return;
    for (int i = 0; i < rectCount; ++i)
        if (rects[i].fontIndex == current->fontIndex) DrawRect(dc, info, rects + i);
}

void EFont::DrawHandles(HDC dc, taghueyinfo* info)
{
    if (current == nullptr) return;
    DeviceUnits units(dc);
    zvreg::Box onDevice = OnDevice(info, RubberOf(*current));
    SetROP2(dc, R2_NOT);
    Selected pen(dc, CreatePen(PS_SOLID, 1, RGB(0, 0, 0)));
    Selected brush(dc, CreateSolidBrush(RGB(0, 0, 0)));
    for (zvreg::Handle handle : {zvreg::kTopHandle, zvreg::kCornerHandle, zvreg::kRightHandle}) {
        zvreg::Box square = zvreg::HandleSquare(onDevice, handle);
        Rectangle(dc, Cut16(square.left), Cut16(square.top), Cut16(square.right), Cut16(square.bottom));
    }
    // The raster operation stays at R2_NOT: the host's next handle drawing
    // inverts again.
}

void EFont::StartRubberRect(HDC dc, taghueyinfo* info, unsigned short handle, int x, int y)
{
    if (current == nullptr) return;
    DrawHandles(dc, info);
    rubberActive = 1;
    rubberDone = 0;
    rubber = RubberOf(*current);
    rubberHandle = handle;
    rubberOld = rubber;
    UpdateRubberRect(dc, info, x, y);
}

void EFont::UpdateRubberRect(HDC dc, taghueyinfo* info, int x, int y)
{
    D2S(info, x, y);
    zvreg::Sides frame = SidesOf(rubber);
    zvreg::DragSides(frame, rubberHandle, x, y);
    rubber = RubberOf(frame);
    DrawSides(dc, info, rubberOld);
    DrawSides(dc, info, rubber);
    rubberOld = rubber;
}

void EFont::EndRubberRect(HDC dc, taghueyinfo* info, int x, int y)
{
    if (current == nullptr) return;
    UpdateRubberRect(dc, info, x, y);
    rubberActive = 0;
    results.widthRatio = zvreg::SideRatio(rubber.right - rubber.left, current->right - current->left);
    results.heightRatio = zvreg::SideRatio(rubber.bottom - rubber.top, current->bottom - current->top);
    rubberDone = 1;
}

FontChange* EFont::GetResults() { return &results; }

unsigned short EFont::SetNewFont(char* name)
{
    zv::CopyBounded(results.newFont, name != nullptr ? name : "");
    return FindFontIndex(results.newFont) != -1 ? 1 : 0;
}

void EFont::SetFontHeightRatio(float ratio)
{
    if (current != nullptr) results.heightRatio = ratio;
}

long EFont::GetFontHeight(float)
{
    return current != nullptr ? long(current->bottom) - current->top : 0;
}
