#pragma once
#include <cstdint>
#include <string>

#include "common/date_runtime.hpp"
#include "common/geometry.hpp"
#include "draw/canvas.hpp"
#include "platform/messages.hpp"

namespace tarnbrook {

using WNDPROC = LRESULT (*)(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam);
using HOOKPROC = LRESULT (*)(int nCode, WPARAM wParam, LPARAM lParam);
using TIMERPROC = void (*)(HWND hwnd, UINT msg, uintptr_t idEvent, uint32_t time);
using HHOOK = uintptr_t;

// The record a WH_MOUSE hook receives through lParam.
struct MOUSEHOOKSTRUCT {
  Point pt; // screen coordinates
  HWND hwnd;
  UINT wHitTestCode;
  uintptr_t dwExtraInfo;
};

// The records WH_CALLWNDPROC and WH_CALLWNDPROCRET hooks receive through lParam.
struct CWPSTRUCT {
  LPARAM lParam;
  WPARAM wParam;
  UINT message;
  HWND hwnd;
};
struct CWPRETSTRUCT {
  LRESULT lResult;
  LPARAM lParam;
  WPARAM wParam;
  UINT message;
  HWND hwnd;
};

// The record a WH_GETMESSAGE hook receives through lParam.
struct MSG {
  HWND hwnd = 0;
  UINT message = 0;
  WPARAM wParam = 0;
  LPARAM lParam = 0;
  uint32_t time = 0;
  Point pt;
};

// A small Win32-shaped window system: the controls' behaviour is defined in its terms.
// Handles are pointer-sized; window procedures are replaceable; every window draws into
// its own Canvas (its client area), which GetDC hands out as an HDC.
class Platform {
public:
  virtual ~Platform() = default;

  // The platform the process uses; window procedures and hook procedures reach it here.
  static Platform& Current();
  static bool HasCurrent();
  static void SetCurrent(Platform* platform);

  // Windows. Positions are relative to the parent's client area (screen for top-level).
  virtual HWND CreateWindowEx(uint32_t exStyle, const std::string& title, uint32_t style, int32_t x,
                              int32_t y, int32_t width, int32_t height, HWND parent,
                              WNDPROC proc) = 0;
  virtual bool DestroyWindow(HWND hwnd) = 0;
  virtual bool IsWindow(HWND hwnd) = 0;
  virtual HWND GetParent(HWND hwnd) = 0;
  virtual HWND SetParent(HWND hwnd, HWND newParent) = 0; // returns the former parent
  virtual HWND GetDesktopWindow() = 0;
  virtual LONG_PTR GetWindowLong(HWND hwnd, int index) = 0;
  // Returns the previous value; for GWL_WNDPROC 0 on failure.
  virtual LONG_PTR SetWindowLong(HWND hwnd, int index, LONG_PTR value) = 0;
  virtual LRESULT CallWindowProc(WNDPROC proc, HWND hwnd, UINT msg, WPARAM wParam,
                                 LPARAM lParam) = 0;
  virtual bool MoveWindow(HWND hwnd, int32_t x, int32_t y, int32_t width, int32_t height,
                          bool repaint) = 0;
  virtual bool SetWindowPos(HWND hwnd, HWND insertAfter, int32_t x, int32_t y, int32_t cx,
                            int32_t cy, UINT flags) = 0;
  virtual bool ShowWindow(HWND hwnd, int command) = 0; // returns whether it was visible
  virtual bool IsWindowVisible(HWND hwnd) = 0;
  virtual bool EnableWindow(HWND hwnd, bool enable) = 0;
  virtual bool IsWindowEnabled(HWND hwnd) = 0;
  virtual bool AnimateWindow(HWND hwnd, uint32_t milliseconds, uint32_t flags) = 0;
  virtual Rect GetWindowRect(HWND hwnd) = 0; // screen coordinates
  virtual Rect GetClientRect(HWND hwnd) = 0; // (0, 0, width, height)
  virtual Point ScreenToClient(HWND hwnd, Point p) = 0;
  virtual Point ClientToScreen(HWND hwnd, Point p) = 0;
  virtual HWND WindowFromPoint(Point screen) = 0;
  virtual uint32_t GetWindowThreadProcessId(HWND hwnd, uint32_t* processId) = 0;

  // Window properties: a name-to-integer map per window; 0 when absent.
  virtual bool SetProp(HWND hwnd, const std::string& name, intptr_t value) = 0;
  virtual intptr_t GetProp(HWND hwnd, const std::string& name) = 0;
  virtual intptr_t RemoveProp(HWND hwnd, const std::string& name) = 0;

  // Messages.
  virtual LRESULT SendMessage(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) = 0;
  virtual bool PostMessage(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) = 0;
  // Delivers queued messages (and due paints) until the queue is empty.
  virtual void PumpMessages() = 0;
  // Waits for the next thing to happen (input, a due timer) and delivers it, for a modal
  // loop. False when nothing ever can happen: the loop should then give up.
  virtual bool WaitMessage() = 0;

  // Painting: each window's canvas is its client area.
  virtual HDC GetDC(HWND hwnd) = 0;
  virtual void InvalidateRect(HWND hwnd) = 0; // a WM_PAINT follows when messages are pumped
  virtual void UpdateWindow(HWND hwnd) = 0;   // sends a pending WM_PAINT now
  // Whether a queued message (input, a timer, a posted message) is being handled: a window
  // invalidated then is painted once, when the queue runs dry.
  virtual bool Dispatching() const = 0;

  // Focus, capture, cursor, keyboard state.
  virtual HWND SetFocus(HWND hwnd) = 0; // returns the window that had the focus
  virtual HWND GetFocus() = 0;
  virtual HWND SetCapture(HWND hwnd) = 0;
  virtual bool ReleaseCapture() = 0;
  virtual HWND GetCapture() = 0;
  virtual Point GetCursorPos() = 0;
  virtual void SetCursor(int shape) = 0;
  virtual int16_t GetKeyState(int virtualKey) = 0; // high bit set while down

  // Timers: WM_TIMER to the window, or the callback when one is given.
  virtual uintptr_t SetTimer(HWND hwnd, uintptr_t id, uint32_t milliseconds,
                             TIMERPROC proc = nullptr) = 0;
  virtual bool KillTimer(HWND hwnd, uintptr_t id) = 0;

  // Thread hooks, most recent first in the chain.
  virtual HHOOK SetWindowsHookEx(int type, HOOKPROC proc, uintptr_t module, uint32_t threadId) = 0;
  virtual bool UnhookWindowsHookEx(HHOOK hook) = 0;
  virtual LRESULT CallNextHookEx(HHOOK hook, int nCode, WPARAM wParam, LPARAM lParam) = 0;

  // Screen and system.
  virtual bool SystemParametersInfo(UINT action, Rect* workArea) = 0;
  virtual int32_t GetSystemMetrics(int index) = 0;
  virtual int32_t GetDeviceCaps(HDC hdc, int index) = 0; // LOGPIXELSX/Y: 96
  virtual int32_t TwipsPerPixelX() = 0;                  // 15 at 96 DPI
  virtual int32_t TwipsPerPixelY() = 0;
  virtual void MessageBeep(UINT type) = 0;
  virtual int MessageBox(HWND owner, const std::string& text, const std::string& caption,
                         UINT type) = 0;
  virtual uint32_t GetCurrentProcessId() = 0;
  virtual uint32_t GetCurrentThreadId() = 0;
  virtual uint32_t GetLastError() = 0;
  virtual std::string FormatMessage(uint32_t errorCode) = 0;

  // Clocks: milliseconds of a monotonic clock, and the wall clock as a date.
  virtual uint32_t GetTickCount() = 0;
  virtual DateValue Now() = 0;
  DateValue Today() { return DateOnly(Now()); }

  // Where pop-ups fit: the work area, or the whole screen (in pixels) when the system does not
  // say.
  Rect WorkAreaOrScreen();
};

} // namespace tarnbrook
