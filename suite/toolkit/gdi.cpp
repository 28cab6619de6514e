// CGdiObject, CPen and CDC: GDI handles with an object around them. An
// object made by the caller owns its handle and deletes it; one that
// FromHandle or SelectObject gives is temporary and owns nothing.
#include "toolkit.h"
#include "temporaries.h"

namespace {

struct TemporaryObjects {
    TemporaryRing<CGdiObject> objects;
    TemporaryRing<CPen> pens;
    TemporaryRing<CDC> contexts;
    ~TemporaryObjects()
    {
        objects.Clear([](CGdiObject& o) { o.Detach(); });
        pens.Clear([](CPen& p) { p.Detach(); });
        contexts.Clear([](CDC& c) { c.m_hDC = nullptr; });
    }
};

TemporaryObjects g_temporaries;

}  // namespace

// --- CGdiObject

CGdiObject::CGdiObject() : m_hObject(nullptr) {}

CGdiObject::~CGdiObject()
{
    DeleteObject();
}

CGdiObject* CGdiObject::FromHandle(HGDIOBJ object)
{
    if (!object)
        return nullptr;
    CGdiObject& temporary = g_temporaries.objects.Next();
    temporary.m_hObject = object;
    return &temporary;
}

BOOL CGdiObject::Attach(HGDIOBJ object)
{
    if (!object || m_hObject)
        return FALSE;
    m_hObject = object;
    return TRUE;
}

HGDIOBJ CGdiObject::Detach()
{
    HGDIOBJ object = m_hObject;
    m_hObject = nullptr;
    return object;
}

BOOL CGdiObject::DeleteObject()
{
    if (!m_hObject)
        return FALSE;
    return ::DeleteObject(Detach());
}

// --- CPen

CPen::CPen() = default;

CPen::CPen(int style, int width, COLORREF color)
{
    CreatePen(style, width, color);
}

BOOL CPen::CreatePen(int style, int width, COLORREF color)
{
    return Attach(::CreatePen(style, width, color));
}

CPen* CPen::FromHandle(HPEN pen)
{
    if (!pen)
        return nullptr;
    CPen& temporary = g_temporaries.pens.Next();
    temporary.m_hObject = pen;
    return &temporary;
}

// --- CDC

CDC::CDC() : m_hDC(nullptr) {}

CDC::~CDC() = default;

CDC* CDC::FromHandle(HDC dc)
{
    if (!dc)
        return nullptr;
    CDC& temporary = g_temporaries.contexts.Next();
    temporary.m_hDC = dc;
    return &temporary;
}

CPen* CDC::SelectObject(CPen* pen)
{
    if (!pen || !m_hDC)
        return nullptr;
    return CPen::FromHandle(static_cast<HPEN>(::SelectObject(m_hDC, pen->m_hObject)));
}

CGdiObject* CDC::SelectObject(CGdiObject* object)
{
    if (!object || !m_hDC)
        return nullptr;
    return CGdiObject::FromHandle(::SelectObject(m_hDC, object->m_hObject));
}

int CDC::SetROP2(int mode)
{
    return ::SetROP2(m_hDC, mode);
}
