// The suite's small class layer for dialogs: windows, property sheets and
// their pages, device contexts and pens. It is a thin layer over the
// platform: a sheet is the platform's own property sheet (PropertySheetA),
// a page is a dialog template that the sheet makes into a window, and every
// wrapper does what the platform call of the same name does.
//
// One rule carries the pages: a page does all its work in WindowProc, and
// what it does not handle goes to the base, which turns the sheet's
// notifications into OnSetActive, OnKillActive, OnApply (then OnOK) and
// OnReset (then OnCancel).
//
// Objects that FromHandle gives for a window, a device context or a GDI
// handle that no object owns are temporary: they live until a few dozen more
// such calls have been made, so use them at once and never keep them.
#pragma once

#include <windows.h>
#include <commctrl.h>
#include <prsht.h>

#ifdef ZVTK_BUILD
#define ZVTK_API __declspec(dllexport)
#else
#define ZVTK_API __declspec(dllimport)
#endif

// The buttons of a sheet, by control number.
enum : int {
    kSheetOkButton = IDOK,        // 1
    kSheetCancelButton = IDCANCEL,  // 2
    kSheetHelpButton = IDHELP,    // 9
    kSheetApplyButton = 12321,    // Apply Now
};

class CPropertySheet;

class ZVTK_API CWnd {
public:
    CWnd();
    virtual ~CWnd();
    CWnd(const CWnd&) = delete;
    CWnd& operator=(const CWnd&) = delete;

    HWND m_hWnd;

    // The object that owns the window, or a temporary one around it.
    // Null for a null handle.
    static CWnd* FromHandle(HWND window);

    HWND GetSafeHwnd() const { return m_hWnd; }
    operator HWND() const { return m_hWnd; }

    // The one dispatch of a window that has an object. What a derived class
    // doesn't consume it hands to this base, with its result.
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);

    CWnd* GetParent() const;
    CWnd* GetDlgItem(int id) const;
    LRESULT SendMessageA(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
    BOOL PostMessageA(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);

    int GetDlgItemTextA(int id, LPSTR text, int size) const;
    void SetDlgItemTextA(int id, LPCSTR text);
    UINT GetDlgItemInt(int id, BOOL* translated = nullptr, BOOL isSigned = TRUE) const;
    void SetDlgItemInt(int id, UINT value, BOOL isSigned = TRUE);
    UINT IsDlgButtonChecked(int id) const;
    void CheckDlgButton(int id, UINT check);
    LRESULT SendDlgItemMessageA(int id, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);

    BOOL EnableWindow(BOOL enable = TRUE);
    BOOL IsWindowEnabled() const;
    BOOL ShowWindow(int command);
    void MoveWindow(int x, int y, int width, int height, BOOL repaint = TRUE);
    void MoveWindow(LPCRECT rect, BOOL repaint = TRUE);
    CWnd* SetFocus();
    int GetWindowTextA(LPSTR text, int size) const;
    void SetWindowTextA(LPCSTR text);
    void SetScrollRange(int bar, int minPos, int maxPos, BOOL redraw = TRUE);
    int SetScrollPos(int bar, int pos, BOOL redraw = TRUE);
    // The platform's message box, owned by this window. ZVOPT32 shows its
    // own through its seam instead, where a test can answer it.
    int MessageBoxA(LPCSTR text, LPCSTR caption = nullptr, UINT type = MB_OK);

protected:
    // What a message that nobody handled gets: the window's own procedure
    // from before the object took it over.
    virtual LRESULT DefWindowProcA(UINT message, WPARAM wParam, LPARAM lParam);

    // WM_NOTIFY as it reaches the base. True when handled; *result is then
    // what the sender gets.
    virtual BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result);

    // Ties the object to a window: the window's messages then go to
    // WindowProc. Undone when the window is destroyed.
    void SubclassWindow(HWND window);
    void BindWindow(HWND window);  // the tie without taking over the procedure
    void UnbindWindow();

private:
    static LRESULT CALLBACK ObjectWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    WNDPROC m_previousProc;
    friend class CPropertySheet;
    friend class CPropertyPage;
};

class ZVTK_API CPropertyPage : public CWnd {
public:
    // A page on the dialog template templateId. With a captionId the tab
    // shows that string instead of the template's caption.
    explicit CPropertyPage(UINT templateId, UINT captionId = 0);
    ~CPropertyPage() override;

    // Puts the page on another template; only before the page is added.
    void Construct(UINT templateId, UINT captionId = 0);

    // What the sheet hands to the platform for this page. hInstance is the
    // module that holds the template (the program's own by default); set it
    // before AddPage.
    PROPSHEETPAGEA m_psp;

    virtual BOOL OnSetActive();    // true lets the page come to the front
    virtual BOOL OnKillActive();   // false keeps the page in front
    virtual BOOL OnApply();        // calls OnOK; false would refuse the apply
    virtual void OnReset();        // calls OnCancel
    virtual void OnOK();
    virtual void OnCancel();
    virtual BOOL OnQueryCancel();  // false refuses the cancel

protected:
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) override;

private:
    static INT_PTR CALLBACK PageDialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
    UINT m_captionId;
    char m_caption[128];
    CPropertySheet* m_sheet;
    friend class CPropertySheet;
};

class ZVTK_API CPropertySheet : public CWnd {
public:
    // A sheet with this caption over parent (null: no owner), opening on the
    // page with the index selectPage.
    explicit CPropertySheet(LPCSTR caption, CWnd* parent = nullptr, UINT selectPage = 0);
    ~CPropertySheet() override;

    enum { kMaxPages = 16 };

    // Pages show as tabs in the order of these calls. The sheet doesn't own
    // them.
    void AddPage(CPropertyPage* page);
    int GetPageCount() const { return m_pageCount; }
    CPropertyPage* GetPage(int index) const;

    // Runs the sheet in its own modal loop: IDOK (1) when it was closed by
    // OK, IDCANCEL (2) when by Cancel, -1 when it could not be shown (no
    // pages, too many pages, a template that is missing).
    int DoModal();

private:
    static int CALLBACK SheetCallback(HWND sheet, UINT message, LPARAM lParam);
    char m_caption[128];
    CWnd* m_parent;
    UINT m_startPage;
    CPropertyPage* m_pages[kMaxPages];
    int m_pageCount;
    BOOL m_overflow;
    int m_result;
    friend class CPropertyPage;
};

class ZVTK_API CGdiObject {
public:
    CGdiObject();
    virtual ~CGdiObject();  // deletes the object it holds
    CGdiObject(const CGdiObject&) = delete;
    CGdiObject& operator=(const CGdiObject&) = delete;

    HGDIOBJ m_hObject;

    // A temporary object around a handle; it never deletes the handle.
    static CGdiObject* FromHandle(HGDIOBJ object);

    HGDIOBJ GetSafeHandle() const { return m_hObject; }
    operator HGDIOBJ() const { return m_hObject; }

    BOOL Attach(HGDIOBJ object);  // false when it holds one already or object is null
    HGDIOBJ Detach();
    BOOL DeleteObject();          // deletes and forgets the object; false when there was none
};

class ZVTK_API CPen : public CGdiObject {
public:
    CPen();
    CPen(int style, int width, COLORREF color);
    BOOL CreatePen(int style, int width, COLORREF color);
    static CPen* FromHandle(HPEN pen);
    operator HPEN() const { return static_cast<HPEN>(m_hObject); }
};

class ZVTK_API CDC {
public:
    CDC();
    virtual ~CDC();
    CDC(const CDC&) = delete;
    CDC& operator=(const CDC&) = delete;

    HDC m_hDC;

    // A temporary object around a device context; it never releases it.
    static CDC* FromHandle(HDC dc);

    HDC GetSafeHdc() const { return m_hDC; }
    operator HDC() const { return m_hDC; }

    // Selects the object into the context and gives the one it replaced, as
    // a temporary object (null on failure).
    CPen* SelectObject(CPen* pen);
    CGdiObject* SelectObject(CGdiObject* object);
    int SetROP2(int mode);
};
