// The destination pages of single formats: TIFF (with custom flavours made
// from a sample file), GIF, ICO, JPEG, EPS and fax. Each is the raster
// page's size logic with a few controls of its own; FormatOutPage holds
// what they all do alike, and each page says only how it differs.
#pragma once

#include <windows.h>

#include "dest.h"
#include "format_page_ids.h"
#include "module.h"

// The common run of a format page: the record of the size logic taken at
// WM_INITDIALOG, every command through OnOutputCommand, the retrieval at
// PSN_KILLACTIVE that keeps the page when a value is bad, the size written
// back from the record, and the help of every output page.
class FormatOutPage : public CPropertyPage {
public:
    explicit FormatOutPage(UINT templateId) : CPropertyPage(templateId) {}
    ~FormatOutPage() override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

protected:
    // Before InitOutputPage, after it; both with the record in place.
    virtual void BeforeInit() {}
    virtual void AfterInit() {}
    // After OnOutputCommand.
    virtual void OnCommand(WPARAM, LPARAM) {}
    // After RetrieveOutputPage and before the size is written back.
    virtual void Retrieve() {}
    // Whether the size is written back from the record while the page is valid.
    virtual bool WritesSize() const { return true; }
    // Whether the resolution tags go back to tenths of microns at WM_DESTROY.
    virtual bool ConvertsResolutionBack() const { return true; }
    // Any other message; true with the answer when the page took it.
    virtual bool OnOther(UINT, WPARAM, LPARAM, LRESULT*) { return false; }

    zv::OutputSizeState* m_state = nullptr;
};

class CTIFOutPropPage : public FormatOutPage {
public:
    CTIFOutPropPage() : FormatOutPage(IDD_TIF_OUT) {}

protected:
    void AfterInit() override;
    void OnCommand(WPARAM wParam, LPARAM lParam) override;
    void Retrieve() override;
    bool OnOther(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* answer) override;

private:
    int builtInFlavors = 0;
    // The type text read at the last leaving of the page, written back when
    // the page is shown again; empty before the first leaving.
    char m_lastType[256] = {};
    bool m_haveLastType = false;
};

class CGIFOutPropPage : public FormatOutPage {
public:
    CGIFOutPropPage() : FormatOutPage(IDD_GIF_OUT) {}

protected:
    void BeforeInit() override;
    void Retrieve() override;
};

class CICOOutPropPage : public FormatOutPage {
public:
    CICOOutPropPage() : FormatOutPage(IDD_ICO_OUT) {}

protected:
    void BeforeInit() override;
    void Retrieve() override;
    bool WritesSize() const override { return false; }
    bool ConvertsResolutionBack() const override { return false; }
};

class CJPGOutPropPage : public FormatOutPage {
public:
    CJPGOutPropPage() : FormatOutPage(IDD_JPG_OUT) {}

protected:
    void BeforeInit() override;
    void OnCommand(WPARAM wParam, LPARAM lParam) override;
    void Retrieve() override;
    bool OnOther(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* answer) override;
};

class CEPSOutPropPage : public FormatOutPage {
public:
    CEPSOutPropPage() : FormatOutPage(IDD_EPS_OUT) {}

protected:
    void BeforeInit() override;
    void AfterInit() override;
    void OnCommand(WPARAM wParam, LPARAM lParam) override;
    void Retrieve() override;

private:
    int colorModelButton = IDC_EPS_RGB;
    unsigned short curveList = 0;
    char m_title[256] = {};
};

class CFAXOutPropPage : public FormatOutPage {
public:
    CFAXOutPropPage() : FormatOutPage(IDD_FAX_OUT) {}

protected:
    void BeforeInit() override;
    void AfterInit() override;
    void OnCommand(WPARAM wParam, LPARAM lParam) override;
    void Retrieve() override;
    bool ConvertsResolutionBack() const override { return false; }

private:
    int resolutionButton = IDC_FAX_COARSE;
    char faxType[256] = {};
};

// --- Custom TIFF flavours.
// Stores the flavour selected in combo 1500: a built-in one sets K+"FLAV"
// and, from the registry, "TIFTYPE"; a custom one (index builtInFlavors or
// more) sets only K+"TYPE" from the tag K+"_"+name.
void StoreTiffFlavor(HWND dialog, int builtInFlavors);
// Makes a custom flavour from a sample TIFF chosen in a file dialog; gives
// the file dialog's result, or 0 after a bad file.
int TiffCustDlg(HWND dialog);
UINT_PTR CALLBACK TiffCustHookProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
