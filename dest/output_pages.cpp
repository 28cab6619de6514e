// The generic output pages by dialog number, for the sheet of a destination.
#include "dest.h"
#include "module.h"

CPropertyPage* NewGenericOutputPage(unsigned short dlgId)
{
    CPropertyPage* page = nullptr;
    switch (dlgId) {
    case IDD_RASTER_OUT: page = new CRasterOutPropPage; break;
    case IDD_VECTOR_OUT: page = new CVectorOutPropPage; break;
    case IDD_ENTITY_OUT: page = new CEntityOutPropPage; break;
    default: return nullptr;
    }
    // The template lies in this library, not in the host's program.
    page->m_psp.hInstance = LibraryModule();
    return page;
}
