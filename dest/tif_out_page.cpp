// The TIFF page: the raster page whose flavour list holds, after the
// built-in flavours of the format registry, the custom flavours that the
// user made from sample files (the tags K+"_"+name). Either kind of flavour
// ends in a type text, K+"TYPE", which the engine honours when it writes.
#include "core_win.h"
#include "format_pages.h"
#include "source.h"
#include "zvwio32.h"

using zv::TagKey;

namespace {

int FlavorSelection(HWND dialog, char (&text)[256])
{
    int index = static_cast<int>(::SendDlgItemMessageA(dialog, IDC_OUT_FLAVOR, CB_GETCURSEL, 0, 0));
    text[0] = '\0';
    if (index == CB_ERR)
        return CB_ERR;
    LRESULT length = ::SendDlgItemMessageA(dialog, IDC_OUT_FLAVOR, CB_GETLBTEXTLEN, static_cast<WPARAM>(index), 0);
    if (length == CB_ERR || length >= static_cast<LRESULT>(sizeof text))
        return CB_ERR;
    ::SendDlgItemMessageA(dialog, IDC_OUT_FLAVOR, CB_GETLBTEXT, static_cast<WPARAM>(index),
                        reinterpret_cast<LPARAM>(text));
    return index;
}

}  // namespace

void StoreTiffFlavor(HWND dialog, int builtInFlavors)
{
    OptionContext* context = Options();
    TagSet* tags = context->tags;
    const char* k = context->destKey;
    char name[256];
    int index = FlavorSelection(dialog, name);
    if (index == CB_ERR)
        return;
    if (index >= builtInFlavors) {
        // A custom flavour: only its type text changes; the flavour's name
        // stays what the format registry knows.
        char customKey[zv::kKeySize];
        zv::CopyBounded(customKey, k);
        zv::AppendBounded(customKey, "_");
        const char* type = ZvGetTag(tags, TagKey(customKey, name));
        ZvSetTag(tags, TagKey(k, "TYPE"), type != nullptr ? type : "");
        return;
    }
    ZvSetTag(tags, TagKey(k, "FLAV"), name);
    // A flavour without a definition in the registry keeps the type text.
    char definition[kTiffFlavorDefinitionSize + 1];
    if (ReadTiffFlavorDefinition(name, definition))
        ZvSetTag(tags, "TIFTYPE", definition);
}

void CTIFOutPropPage::AfterInit()
{
    OptionContext* context = Options();
    TagSet* tags = context->tags;
    const char* k = context->destKey;
    HWND flavors = ::GetDlgItem(m_hWnd, IDC_OUT_FLAVOR);
    builtInFlavors = static_cast<int>(::SendMessageA(flavors, CB_GETCOUNT, 0, 0));
    if (builtInFlavors < 0)
        builtInFlavors = 0;

    char customPrefix[zv::kKeySize];
    zv::CopyBounded(customPrefix, k);
    zv::AppendBounded(customPrefix, "_");
    if (TagSearch* search = ZvOpenTagSearch(tags, customPrefix)) {
        while (const char* name = ZvTagSearch(search))
            ::SendMessageA(flavors, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(name));
        delete search;
    }

    int index = 0;
    if (const char* chosen = ZvGetTag(tags, TagKey(k, "FLAV"))) {
        LRESULT found = ::SendMessageA(flavors, CB_FINDSTRING, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(chosen));
        if (found != CB_ERR)
            index = static_cast<int>(found);
    }
    ::SendMessageA(flavors, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
}

void CTIFOutPropPage::OnCommand(WPARAM wParam, LPARAM)
{
    if (LOWORD(wParam) == IDC_TIF_CUSTOM)
        TiffCustDlg(m_hWnd);
}

void CTIFOutPropPage::Retrieve()
{
    OptionContext* context = Options();
    StoreTiffFlavor(m_hWnd, builtInFlavors);
    StoreTiffFlavor(m_hWnd, builtInFlavors);
    const char* type = ZvGetTag(context->tags, TagKey(context->destKey, "TYPE"));
    zv::CopyBounded(m_lastType, type != nullptr ? type : "");
    m_haveLastType = true;
}

bool CTIFOutPropPage::OnOther(UINT message, WPARAM, LPARAM lParam, LRESULT*)
{
    // Coming back to the page, the type text is the one it left with, even
    // when another page changed it meanwhile.
    if (message == WM_NOTIFY && reinterpret_cast<const NMHDR*>(lParam)->code == PSN_SETACTIVE && m_haveLastType) {
        OptionContext* context = Options();
        ZvSetTag(context->tags, TagKey(context->destKey, "TYPE"), m_lastType);
    }
    return false;
}
