#pragma once
#include <cstdint>

namespace tarnbrook {

using HWND = uintptr_t;
using UINT = uint32_t;
using WPARAM = uintptr_t;
using LPARAM = intptr_t;
using LRESULT = intptr_t;
using LONG_PTR = intptr_t;

// Window messages, with the platform's numbers.
enum : UINT {
  WM_NULL = 0x0000,
  WM_CREATE = 0x0001,
  WM_DESTROY = 0x0002,
  WM_MOVE = 0x0003,
  WM_SIZE = 0x0005,
  WM_SETFOCUS = 0x0007,
  WM_KILLFOCUS = 0x0008,
  WM_ENABLE = 0x000A,
  WM_PAINT = 0x000F,
  WM_CLOSE = 0x0010,
  WM_ERASEBKGND = 0x0014,
  WM_SHOWWINDOW = 0x0018,
  WM_SETCURSOR = 0x0020,
  WM_MOUSEACTIVATE = 0x0021,
  WM_WINDOWPOSCHANGED = 0x0047,
  WM_NCHITTEST = 0x0084,
  WM_NCMOUSEMOVE = 0x00A0,
  WM_NCLBUTTONDOWN = 0x00A1,
  WM_NCLBUTTONUP = 0x00A2,
  WM_NCLBUTTONDBLCLK = 0x00A3,
  WM_NCRBUTTONDOWN = 0x00A4,
  WM_NCRBUTTONUP = 0x00A5,
  WM_NCRBUTTONDBLCLK = 0x00A6,
  WM_NCMBUTTONDOWN = 0x00A7,
  WM_NCMBUTTONUP = 0x00A8,
  WM_NCMBUTTONDBLCLK = 0x00A9,
  WM_KEYDOWN = 0x0100,
  WM_KEYUP = 0x0101,
  WM_CHAR = 0x0102,
  WM_TIMER = 0x0113,
  WM_MOUSEMOVE = 0x0200,
  WM_LBUTTONDOWN = 0x0201,
  WM_LBUTTONUP = 0x0202,
  WM_LBUTTONDBLCLK = 0x0203,
  WM_RBUTTONDOWN = 0x0204,
  WM_RBUTTONUP = 0x0205,
  WM_RBUTTONDBLCLK = 0x0206,
  WM_MBUTTONDOWN = 0x0207,
  WM_MBUTTONUP = 0x0208,
  WM_MBUTTONDBLCLK = 0x0209,
  WM_MOUSEWHEEL = 0x020A,
  WM_CAPTURECHANGED = 0x0215,
  WM_PRINTCLIENT = 0x0318,
  WM_USER = 0x0400,
  CB_SHOWDROPDOWN = 0x014F,
  CB_GETDROPPEDSTATE = 0x0157,
};

// WM_PRINTCLIENT drawing options in lParam.
enum : LPARAM { PRF_CLIENT = 0x4 };

// Key and button state bits in wParam of mouse messages.
enum : WPARAM {
  MK_LBUTTON = 0x0001,
  MK_RBUTTON = 0x0002,
  MK_SHIFT = 0x0004,
  MK_CONTROL = 0x0008,
  MK_MBUTTON = 0x0010,
};

// Virtual-key codes.
enum : int {
  VK_LBUTTON = 0x01,
  VK_RBUTTON = 0x02,
  VK_MBUTTON = 0x04,
  VK_BACK = 0x08,
  VK_TAB = 0x09,
  VK_RETURN = 0x0D,
  VK_SHIFT = 0x10,
  VK_CONTROL = 0x11,
  VK_MENU = 0x12,
  VK_ESCAPE = 0x1B,
  VK_SPACE = 0x20,
  VK_PRIOR = 0x21,
  VK_NEXT = 0x22,
  VK_END = 0x23,
  VK_HOME = 0x24,
  VK_LEFT = 0x25,
  VK_UP = 0x26,
  VK_RIGHT = 0x27,
  VK_DOWN = 0x28,
  VK_INSERT = 0x2D,
  VK_DELETE = 0x2E,
  VK_F4 = 0x73,
  VK_OEM_2 = 0xBF,      // "/?"
  VK_OEM_1 = 0xBA,      // ";:"
  VK_OEM_PERIOD = 0xBE, // "."
  VK_OEM_MINUS = 0xBD,  // "-"
  VK_SUBTRACT = 0x6D,
  VK_DIVIDE = 0x6F,
  VK_DECIMAL = 0x6E,
};

// Window styles.
enum : uint32_t {
  WS_CHILD = 0x40000000,
  WS_VISIBLE = 0x10000000,
  WS_DISABLED = 0x08000000,
  WS_POPUP = 0x80000000,
  WS_EX_TOOLWINDOW = 0x00000080,
  WS_EX_APPWINDOW = 0x00040000,
};

// GetWindowLong/SetWindowLong indexes.
enum : int {
  GWL_WNDPROC = -4,
  GWL_USERDATA = -21,
  GWL_EXSTYLE = -20,
  GWL_STYLE = -16,
};

// ShowWindow commands.
enum : int { SW_HIDE = 0, SW_SHOWNORMAL = 1, SW_SHOW = 5, SW_SHOWNOACTIVATE = 4 };

// SetWindowPos.
constexpr HWND HWND_TOP = 0;
constexpr HWND HWND_TOPMOST = static_cast<HWND>(-1);
enum : UINT {
  SWP_NOSIZE = 0x0001,
  SWP_NOMOVE = 0x0002,
  SWP_NOZORDER = 0x0004,
  SWP_NOACTIVATE = 0x0010,
  SWP_SHOWWINDOW = 0x0040,
  SWP_HIDEWINDOW = 0x0080,
};

// AnimateWindow flags.
enum : uint32_t {
  AW_HOR_POSITIVE = 0x1,
  AW_HOR_NEGATIVE = 0x2,
  AW_VER_POSITIVE = 0x4,
  AW_VER_NEGATIVE = 0x8,
  AW_CENTER = 0x10,
  AW_HIDE = 0x10000,
  AW_ACTIVATE = 0x20000,
  AW_SLIDE = 0x40000,
  AW_BLEND = 0x80000,
};

// Hooks.
enum : int {
  WH_MSGFILTER = -1,
  WH_JOURNALRECORD = 0,
  WH_JOURNALPLAYBACK = 1,
  WH_KEYBOARD = 2,
  WH_GETMESSAGE = 3,
  WH_CALLWNDPROC = 4,
  WH_CBT = 5,
  WH_SYSMSGFILTER = 6,
  WH_MOUSE = 7,
  WH_DEBUG = 9,
  WH_SHELL = 10,
  WH_FOREGROUNDIDLE = 11,
  WH_CALLWNDPROCRET = 12,
  WH_KEYBOARD_LL = 13,
  WH_MOUSE_LL = 14,
};
enum : int { HC_ACTION = 0, HC_NOREMOVE = 3 };
enum : UINT { PM_NOREMOVE = 0, PM_REMOVE = 1 };

// Hit-test codes.
enum : int { HTNOWHERE = 0, HTCLIENT = 1, HTCAPTION = 2 };

// WM_MOUSEACTIVATE answers: whether a press focuses its window, and whether it is dropped.
enum : LRESULT {
  MA_ACTIVATE = 1,
  MA_ACTIVATEANDEAT = 2,
  MA_NOACTIVATE = 3,
  MA_NOACTIVATEANDEAT = 4
};

// SystemParametersInfo and GetSystemMetrics.
enum : UINT { SPI_GETWORKAREA = 48 };
enum : int { SM_CXSCREEN = 0, SM_CYSCREEN = 1, SM_CXDOUBLECLK = 36, SM_CYDOUBLECLK = 37 };

// GetDeviceCaps.
enum : int { LOGPIXELSX = 88, LOGPIXELSY = 90 };

// MessageBox buttons and answers.
enum : UINT {
  MB_OK = 0x0,
  MB_OKCANCEL = 0x1,
  MB_YESNO = 0x4,
  MB_ICONERROR = 0x10,
  MB_ICONQUESTION = 0x20,
  MB_ICONWARNING = 0x30,
  MB_ICONINFORMATION = 0x40,
};
enum : int { IDOK = 1, IDCANCEL = 2, IDYES = 6, IDNO = 7 };

// Cursor shapes a window can ask for.
enum CursorShape : int {
  IDC_ARROW = 32512,
  IDC_IBEAM = 32513,
  IDC_HAND = 32649,
  IDC_SIZENS = 32645
};

constexpr int32_t LOWORD(uintptr_t v) {
  return static_cast<int32_t>(v & 0xFFFF);
}
constexpr int32_t HIWORD(uintptr_t v) {
  return static_cast<int32_t>((v >> 16) & 0xFFFF);
}
// Signed client coordinates packed in lParam of mouse messages.
constexpr int32_t GET_X_LPARAM(LPARAM lp) {
  return static_cast<int16_t>(lp & 0xFFFF);
}
constexpr int32_t GET_Y_LPARAM(LPARAM lp) {
  return static_cast<int16_t>((lp >> 16) & 0xFFFF);
}
// One notch of a mouse wheel; finer wheels send parts of it.
constexpr int32_t WHEEL_DELTA = 120;
// The wheel's turn in WM_MOUSEWHEEL's wParam: positive away from the user.
constexpr int32_t GET_WHEEL_DELTA_WPARAM(WPARAM wp) {
  return static_cast<int16_t>((wp >> 16) & 0xFFFF);
}
constexpr LPARAM MAKELPARAM(int32_t lo, int32_t hi) {
  return static_cast<LPARAM>((static_cast<uint32_t>(lo) & 0xFFFF) |
                             ((static_cast<uint32_t>(hi) & 0xFFFF) << 16));
}

} // namespace tarnbrook
