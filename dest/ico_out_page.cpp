// The ICO page: no size edits; the icon size in pixels decides the size.
#include <cstring>

#include "core_win.h"
#include "format_pages.h"
#include "zvwio32.h"

using zv::TagKey;

namespace {
constexpr char kDefaultIconSize[] = "32 x 32";
}

void CICOOutPropPage::BeforeInit()
{
    OptionContext* context = Options();
    const char* k = context->destKey;
    if (ZvGetTag(context->tags, TagKey(k, "SIZE")) == nullptr)
        ZvSetTag(context->tags, TagKey(k, "SIZE"), kDefaultIconSize);
    LoadList(m_hWnd, IDC_ICO_SIZE, IDC_ICO_SIZE_LABEL, IDS_ICO_SIZES, 0, k, "SIZE", LibraryModule(),
             context->tags);
}

void CICOOutPropPage::Retrieve()
{
    OptionContext* context = Options();
    const char* k = context->destKey;
    const char* chosen = RetrieveList(m_hWnd, IDC_ICO_SIZE, 0, k, "SIZE", LibraryModule(), context->tags);
    if (chosen == nullptr)
        return;
    // "48 x 48" gives "48": icons are square.
    char side[16];
    zv::CopyBounded(side, chosen);
    if (char* blank = std::strchr(side, ' '))
        *blank = '\0';
    // What RetrieveOutputPage made of these three is replaced, valid or not:
    // the icon size decides.
    ZvSetTag(context->tags, TagKey(k, "W"), side);
    ZvSetTag(context->tags, TagKey(k, "H"), side);
    ZvSetTag(context->tags, TagKey(k, "UNITS"), "PIX");
}
