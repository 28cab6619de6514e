// CWnd: a window handle with an object behind it, and the thin wrappers of
// the platform's window calls that the dialogs use.
#include "toolkit.h"
#include "temporaries.h"

namespace {

// The property that ties a window to the object that handles its messages.
const char kObjectProperty[] = "ZvTkObject";

struct TemporaryWindows {
    TemporaryRing<CWnd> ring;
    ~TemporaryWindows()
    {
        ring.Clear([](CWnd& w) { w.m_hWnd = nullptr; });
    }
};

TemporaryWindows g_temporaries;

}  // namespace

CWnd::CWnd() : m_hWnd(nullptr), m_previousProc(nullptr) {}

CWnd::~CWnd()
{
    // An object that goes before its window gives the window its own
    // procedure back, so no message reaches a dead object.
    if (m_hWnd && IsWindow(m_hWnd) && GetPropA(m_hWnd, kObjectProperty) == this)
        UnbindWindow();
}

CWnd* CWnd::FromHandle(HWND window)
{
    if (!window)
        return nullptr;
    if (CWnd* owner = static_cast<CWnd*>(GetPropA(window, kObjectProperty)))
        return owner;
    CWnd& temporary = g_temporaries.ring.Next();
    temporary.m_hWnd = window;
    return &temporary;
}

void CWnd::BindWindow(HWND window)
{
    m_hWnd = window;
    SetPropA(window, kObjectProperty, this);
}

void CWnd::SubclassWindow(HWND window)
{
    BindWindow(window);
    m_previousProc = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&CWnd::ObjectWindowProc)));
}

void CWnd::UnbindWindow()
{
    if (m_previousProc) {
        SetWindowLongPtrA(m_hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(m_previousProc));
        m_previousProc = nullptr;
    }
    RemovePropA(m_hWnd, kObjectProperty);
    m_hWnd = nullptr;
}

LRESULT CALLBACK CWnd::ObjectWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    CWnd* object = static_cast<CWnd*>(GetPropA(window, kObjectProperty));
    if (!object)
        return ::DefWindowProcA(window, message, wParam, lParam);
    LRESULT result = object->WindowProc(message, wParam, lParam);
    // The window is gone after this one: the object no longer has one.
    if (message == WM_NCDESTROY && object->m_hWnd == window)
        object->UnbindWindow();
    return result;
}

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_NOTIFY) {
        LRESULT result = 0;
        if (OnNotify(wParam, lParam, &result))
            return result;
    }
    return DefWindowProcA(message, wParam, lParam);
}

LRESULT CWnd::DefWindowProcA(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (m_previousProc)
        return CallWindowProcA(m_previousProc, m_hWnd, message, wParam, lParam);
    return ::DefWindowProcA(m_hWnd, message, wParam, lParam);
}

BOOL CWnd::OnNotify(WPARAM, LPARAM, LRESULT*)
{
    return FALSE;
}

CWnd* CWnd::GetParent() const
{
    return FromHandle(::GetParent(m_hWnd));
}

CWnd* CWnd::GetDlgItem(int id) const
{
    return FromHandle(::GetDlgItem(m_hWnd, id));
}

LRESULT CWnd::SendMessageA(UINT message, WPARAM wParam, LPARAM lParam)
{
    return ::SendMessageA(m_hWnd, message, wParam, lParam);
}

BOOL CWnd::PostMessageA(UINT message, WPARAM wParam, LPARAM lParam)
{
    return ::PostMessageA(m_hWnd, message, wParam, lParam);
}

int CWnd::GetDlgItemTextA(int id, LPSTR text, int size) const
{
    return static_cast<int>(::GetDlgItemTextA(m_hWnd, id, text, size));
}

void CWnd::SetDlgItemTextA(int id, LPCSTR text)
{
    ::SetDlgItemTextA(m_hWnd, id, text);
}

UINT CWnd::GetDlgItemInt(int id, BOOL* translated, BOOL isSigned) const
{
    return ::GetDlgItemInt(m_hWnd, id, translated, isSigned);
}

void CWnd::SetDlgItemInt(int id, UINT value, BOOL isSigned)
{
    ::SetDlgItemInt(m_hWnd, id, value, isSigned);
}

UINT CWnd::IsDlgButtonChecked(int id) const
{
    return ::IsDlgButtonChecked(m_hWnd, id);
}

void CWnd::CheckDlgButton(int id, UINT check)
{
    ::CheckDlgButton(m_hWnd, id, check);
}

LRESULT CWnd::SendDlgItemMessageA(int id, UINT message, WPARAM wParam, LPARAM lParam)
{
    return ::SendDlgItemMessageA(m_hWnd, id, message, wParam, lParam);
}

BOOL CWnd::EnableWindow(BOOL enable)
{
    return ::EnableWindow(m_hWnd, enable);
}

BOOL CWnd::IsWindowEnabled() const
{
    return ::IsWindowEnabled(m_hWnd);
}

BOOL CWnd::ShowWindow(int command)
{
    return ::ShowWindow(m_hWnd, command);
}

void CWnd::MoveWindow(int x, int y, int width, int height, BOOL repaint)
{
    ::MoveWindow(m_hWnd, x, y, width, height, repaint);
}

void CWnd::MoveWindow(LPCRECT rect, BOOL repaint)
{
    ::MoveWindow(m_hWnd, rect->left, rect->top, rect->right - rect->left, rect->bottom - rect->top, repaint);
}

CWnd* CWnd::SetFocus()
{
    return FromHandle(::SetFocus(m_hWnd));
}

int CWnd::GetWindowTextA(LPSTR text, int size) const
{
    return ::GetWindowTextA(m_hWnd, text, size);
}

void CWnd::SetWindowTextA(LPCSTR text)
{
    ::SetWindowTextA(m_hWnd, text);
}

void CWnd::SetScrollRange(int bar, int minPos, int maxPos, BOOL redraw)
{
    ::SetScrollRange(m_hWnd, bar, minPos, maxPos, redraw);
}

int CWnd::SetScrollPos(int bar, int pos, BOOL redraw)
{
    return ::SetScrollPos(m_hWnd, bar, pos, redraw);
}

int CWnd::MessageBoxA(LPCSTR text, LPCSTR caption, UINT type)
{
    return ::MessageBoxA(m_hWnd, text, caption, type);
}
