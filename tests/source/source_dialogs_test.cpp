// The plain source dialogs, each run as the open dialog runs it: the number
// and procedure from GetSrcDlgId, then DoSrcOptionsDlg with the host's tags
// and registry. What they store is read back from the tags and the registry.
#include <gtest/gtest.h>

#include <string>

#include "host_dialogs.h"
#include "source_ids.h"

namespace zvtest {
namespace {

class SourceDialog : public ::testing::Test {
protected:
    // The format's own dialog, or the generic one, as the open dialog
    // without a host title finds it.
    int Run(const char* ext, short type, short operation = 0)
    {
        DLGPROC proc = nullptr;
        unsigned short id = GetSrcDlgId(ZvGetInternalExt(&formats, ext), &proc, type, 1);
        EXPECT_NE(proc, nullptr) << ext;
        return RunDialog(id, proc, ext, type, operation);
    }
    int RunDialog(unsigned short id, DLGPROC proc, const char* ext, short type, short operation)
    {
        return static_cast<int>(d.Run([&] {
            return DoSrcOptionsDlg(nullptr, proc, id, &tags, "Zavrin", nullptr, &formats, ext, nullptr, operation,
                                   type, nullptr);
        }));
    }
    std::string Tag(const char* key) { return TagOf(&tags, key); }
    // The stored reading of a format that can be 2D or 3D; the key is made
    // when value is given, and removed when it is null.
    static void SetClass(const char* format, const char* value)
    {
        std::string path = std::string("Zavrin.Image\\Formats\\") + format + "\\Class";
        RegDeleteKeyA(HKEY_CLASSES_ROOT, path.c_str());
        if (value != nullptr)
            RegSetValueA(HKEY_CLASSES_ROOT, path.c_str(), REG_SZ, value, 1);
    }
    static std::string Class(const char* format)
    {
        std::string path = std::string("Zavrin.Image\\Formats\\") + format + "\\Class";
        char value[40] = {};
        LONG size = sizeof value;
        return RegQueryValueA(HKEY_CLASSES_ROOT, path.c_str(), value, &size) == ERROR_SUCCESS ? value : "<absent>";
    }

    SeamRecorder seams;
    TagSet tags;
    OKAMOD formats{nullptr};
    DialogDriver d;
};

TEST_F(SourceDialog, ScalingIsOnWhenNothingIsStoredAndOkStoresTheRadioShown)
{
    // Opening alone writes the default, which stays even after Cancel.
    d.WaitWindow("PCX Source Options").ExpectChecked(IDC_SRC_SCALE_WINDOW, true).PressCancel();
    EXPECT_EQ(Run("PCX", 1), 0);
    EXPECT_EQ(Tag("PCXSCALE"), "ON");
    EXPECT_EQ(Tag("PCXMAXWIDTH"), "<absent>");
    EXPECT_EQ(Tag("MEMORIZE"), "<absent>");

    // Both stored as on: the window wins.
    ZvSetTag(&tags, "PCXMAXWIDTH", "ON");
    d.WaitWindow("PCX Source Options").ExpectChecked(IDC_SRC_SCALE_WINDOW, true).Screenshot("source_input_options");
    d.Click(IDC_SRC_SCALE_WIDTH).PressOk();
    EXPECT_EQ(Run("PCX", 1), 1);
    EXPECT_EQ(Tag("PCXSCALE"), "OFF");
    EXPECT_EQ(Tag("PCXMAXWIDTH"), "ON");
}

TEST_F(SourceDialog, AHostsOwnTitleWithholdsTheScalingChoice)
{
    d.WaitWindow("PCX Source Options").ExpectEnabled(IDC_SRC_SCALE_WINDOW, false);
    d.ExpectChecked(IDC_SRC_SCALE_WINDOW, false).PressOk();
    EXPECT_EQ(RunDialog(IDD_INPUT_OPTIONS, InputOptionsDlgProc, "PCX", 1, 7), 1);
    EXPECT_EQ(Tag("PCXSCALE"), "<absent>");
    EXPECT_EQ(Tag("PCXMAXWIDTH"), "<absent>");
}

TEST_F(SourceDialog, HelpAndF1OpenTheDialogsTopic)
{
    d.WaitWindow("PCD Source Options").PressHelp().SendHelp();
    d.WaitUntil("two help calls", [&] { return seams.helpCalls.size() == 2; }).PressCancel();
    EXPECT_EQ(Run("PCD", 1), 0);
    ASSERT_EQ(seams.helpCalls.size(), 2u);
    EXPECT_EQ(seams.helpCalls[0].data, 1032u);
    EXPECT_EQ(seams.helpCalls[1].data, 1032u);
}

// The registry decides the kind and the groups; OK writes the kind back and
// stores only the groups of that kind. The class values live in the one
// registry of the run, so every case that changes them is in this test.
TEST_F(SourceDialog, TheStoredClassChoosesTheGroupsAndOkWritesTheChosenKind)
{
    SetClass("CGM", nullptr);
    d.WaitWindow("CGM Source Options").ExpectChecked(IDC_SRC_CLASS_2D, false).ExpectChecked(IDC_SRC_CLASS_3D, false);
    d.PressOk();
    EXPECT_EQ(Run("CGM", 2), 1);
    EXPECT_EQ(Class("CGM"), "<absent>");
    EXPECT_EQ(Tag("CGMSCALE"), "<absent>");
    EXPECT_EQ(Tag("MEMORIZE"), "OFF");

    // A stored class: 3D shown, and OK on 2D writes it back.
    SetClass("CGM", "e");
    d.WaitWindow("CGM Source Options").ExpectChecked(IDC_SRC_CLASS_3D, true);
    d.ExpectEnabled(IDC_SRC_SCALE_OFF, false).ExpectEnabled(IDC_CGM_TRIM, false);
    d.Screenshot("source_cgm").Click(IDC_SRC_CLASS_2D).ExpectEnabled(IDC_SRC_VIEW_CAD, false);
    d.Click(IDC_SRC_SCALE_OFF).Click(IDC_CGM_TRIM).PressOk();
    EXPECT_EQ(Run("CGM", 2), 1);
    EXPECT_EQ(Class("CGM"), "V");
    EXPECT_EQ(Tag("CGMSCALE"), "OFF");
    EXPECT_EQ(Tag("CGMMAXWIDTH"), "OFF");
    EXPECT_EQ(Tag("CGMMINMAX"), "ON");
    EXPECT_EQ(Tag("CGMCADDLG"), "<absent>");

    // Back to 3D in the DXF dialog: the viewpoint is stored, the scaling not.
    SetClass("DXF", "V");
    d.WaitWindow("DXF Source Options").Screenshot("source_2d_or_3d").Click(IDC_SRC_CLASS_3D);
    d.ExpectEnabled(IDC_SRC_PERSPECTIVE, false).Click(IDC_SRC_VIEW_CAD).Click(IDC_SRC_RENDER_FLAT).PressOk();
    EXPECT_EQ(Run("DXF", 6), 1);
    EXPECT_EQ(Class("DXF"), "E");
    EXPECT_EQ(Tag("DXFCADDLG"), "ON");
    EXPECT_EQ(Tag("DXFVRDLG"), "OFF");
    EXPECT_EQ(Tag("DXF3DRENDER"), "1");
    EXPECT_EQ(Tag("DXFSCALE"), "ON");  // the default shown at the start
    EXPECT_EQ(Tag("DXFMAXWIDTH"), "<absent>");
}

TEST_F(SourceDialog, TheGeneric3dDialogShowsVirtualRealityOverCadAndCancelStoresNothing)
{
    ZvSetTag(&tags, "WRLCADDLG", "ON");
    ZvSetTag(&tags, "WRLVRDLG", "on");
    ZvSetTag(&tags, "WRL3DRENDER", "2");
    d.WaitWindow("WRL Source Options").ExpectChecked(IDC_SRC_VIEW_VR, true);
    d.ExpectChecked(IDC_SRC_RENDER_GOURAUD, true).ExpectEnabled(IDC_SRC_PERSPECTIVE, false);
    d.Screenshot("source_3d").Click(IDC_SRC_VIEW_KEYBOARD).PressCancel();
    EXPECT_EQ(Run("WRL", 6), 0);
    EXPECT_EQ(Tag("WRLVRDLG"), "on");

    d.WaitWindow("WRL Source Options").Click(IDC_SRC_VIEW_KEYBOARD).Click(IDC_SRC_RENDER_WIRE).PressOk();
    EXPECT_EQ(Run("WRL", 6), 1);
    EXPECT_EQ(Tag("WRLCADDLG"), "OFF");
    EXPECT_EQ(Tag("WRLVRDLG"), "OFF");
    EXPECT_EQ(Tag("WRL3DRENDER"), "0");
    EXPECT_EQ(Tag("WRL3DPERSPECTIVE"), "OFF");
}

TEST_F(SourceDialog, AnUnknownFontShowsAsFineAndOkStoresTheFineFont)
{
    ZvSetTag(&tags, "PIXSFDEFAULT", "COURIER");
    d.WaitWindow("PIX Source Options").ExpectChecked(IDC_PIX_FINE, true).Screenshot("source_pix_ogf").PressOk();
    EXPECT_EQ(Run("PIX", 3), 1);
    EXPECT_EQ(Tag("PIXSFDEFAULT"), "IBMPC");

    d.WaitWindow("PIX Source Options").Click(IDC_PIX_MEDIUM).ExpectChecked(IDC_PIX_FINE, false).PressOk();
    EXPECT_EQ(Run("PIX", 3), 1);
    EXPECT_EQ(Tag("PIXSFDEFAULT"), "IBMPCMED");
}

TEST_F(SourceDialog, ThePhotoCdResolutionIsShownAndStoredByItsValue)
{
    ZvSetTag(&tags, "PCDRES", "1024x1536");
    d.WaitWindow("PCD Source Options").Do([](HWND dialog) {
        EXPECT_EQ(SendDlgItemMessageA(dialog, IDC_PCD_RESOLUTION, LB_GETCURSEL, 0, 0), 3);
    });
    d.Screenshot("source_pcd").PickList(IDC_PCD_RESOLUTION, "256 x 384").PressOk();
    EXPECT_EQ(Run("PCD", 1), 1);
    EXPECT_EQ(Tag("PCDRES"), "256x384");
}

TEST_F(SourceDialog, TheClipboardFormHasNoFormatKeyAndMemorizeTakesTheHostsChildSet)
{
    ZvSetTag(&tags, "CLPPREF", "tif");
    TagSet child;
    tags.SetChild(&child);
    ZvSetTag(&tags, "KEPT", "yes");  // into the child
    d.WaitWindow("CLP Source Options").ExpectChecked(IDC_CLP_TIF, true).Screenshot("source_clipboard");
    d.Click(IDC_CLP_WMF).SetCheck(IDC_SRC_MEMORIZE, true).PressOk();
    EXPECT_EQ(Run("CLP", 3), 1);
    EXPECT_EQ(Tag("CLPPREF"), "WMF");
    EXPECT_EQ(Tag("MEMORIZE"), "ON");
    tags.SetChild(nullptr);
    EXPECT_EQ(Tag("KEPT"), "yes");
}

// The pen table is written at each change of a list, so Cancel keeps it;
// each format has its own default colours.
TEST_F(SourceDialog, ThePenTableIsWrittenAtEachChangeAndCancelKeepsIt)
{
    d.WaitWindow("PGL Source Options").PickCombo(IDC_PEN_NUMBER, "2").PickCombo(IDC_PEN_COLOR, "Red");
    d.PickCombo(IDC_PEN_NUMBER, "0").ExpectEnabled(IDC_PEN_WIDTH, false);
    d.PickCombo(IDC_PEN_NUMBER, "15").PickCombo(IDC_PEN_WIDTH, "4").Click(IDC_PGL_TRIM);
    d.Screenshot("source_pgl").PressCancel();
    EXPECT_EQ(Run("PGL", 2), 0);
    EXPECT_EQ(Tag("PGLP2"), "AA0000");
    EXPECT_EQ(Tag("PGLW2"), "1");
    EXPECT_EQ(Tag("PGLP0"), "FFFFFF");
    EXPECT_EQ(Tag("PGLW0"), "<absent>");
    EXPECT_EQ(Tag("PGLP15"), "FFFF55");
    EXPECT_EQ(Tag("PGLW15"), "4");
    EXPECT_EQ(Tag("PGLSRCPEN"), "15");
    EXPECT_EQ(Tag("PGLMINMAX"), "ON");

    d.WaitWindow("PIC Source Options").PickCombo(IDC_PEN_NUMBER, "2").PickCombo(IDC_PEN_NUMBER, "15");
    d.Screenshot("source_pic").PressOk();
    EXPECT_EQ(Run("PIC", 2), 1);
    EXPECT_EQ(Tag("PICP2"), "00AA00");
    EXPECT_EQ(Tag("PICP15"), "000000");
    EXPECT_EQ(Tag("PICMINMAX"), "<absent>");
    EXPECT_EQ(Tag("PICSCALE"), "ON");
}

}  // namespace
}  // namespace zvtest
