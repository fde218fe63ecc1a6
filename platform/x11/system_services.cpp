// Cursor shapes, the work area and the beep from the X server.

#include "platform/x11/x11_platform.hpp"

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/cursorfont.h>

#include <vector>

namespace tarnbrook {

namespace {

unsigned int CursorFontShape(int shape) {
  switch (shape) {
  case IDC_HAND:
    return XC_hand2;
  case IDC_IBEAM:
    return XC_xterm;
  case IDC_SIZENS:
    return XC_sb_v_double_arrow;
  default:
    return XC_left_ptr;
  }
}

// A CARDINAL list property of the root window; empty when absent.
std::vector<long> RootCardinals(Display* display, Window root, const char* name) {
  Atom property = XInternAtom(display, name, True);
  std::vector<long> values;
  Atom type = 0;
  int format = 0;
  unsigned long count = 0, after = 0;
  unsigned char* data = nullptr;
  if (property != None &&
      XGetWindowProperty(display, root, property, 0, 1024, False, XA_CARDINAL, &type, &format,
                         &count, &after, &data) == Success &&
      data) {
    if (format == 32) {
      const long* cardinals = reinterpret_cast<const long*>(data); // Xlib widens to long
      values.assign(cardinals, cardinals + count);
    }
    XFree(data);
  }
  return values;
}

} // namespace

// The shape shows over the window under the pointer, as long as the pointer stays there.
void X11Platform::SetCursor(int shape) {
  MemoryPlatform::SetCursor(shape);
  HWND hwnd = GetCapture() ? GetCapture() : WindowFromPoint(GetCursorPos());
  Mirror* mirror = FindMirror(hwnd);
  if (!mirror || !mirror->window) {
    return;
  }
  unsigned long& cursor = cursors_[shape];
  if (!cursor) {
    cursor = XCreateFontCursor(display_, CursorFontShape(shape));
  }
  XDefineCursor(display_, mirror->window, cursor);
  XFlush(display_);
}

// The window manager's work area on the current desktop (_NET_WORKAREA), else the screen.
bool X11Platform::SystemParametersInfo(UINT action, Rect* workArea) {
  if (action == SPI_GETWORKAREA) {
    Rect area{0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
    std::vector<long> areas = RootCardinals(display_, root_, "_NET_WORKAREA");
    std::vector<long> desktop = RootCardinals(display_, root_, "_NET_CURRENT_DESKTOP");
    size_t index = desktop.empty() ? 0 : static_cast<size_t>(desktop[0]) * 4;
    if (index + 4 <= areas.size()) {
      int32_t x = static_cast<int32_t>(areas[index]), y = static_cast<int32_t>(areas[index + 1]);
      area = {x, y, x + static_cast<int32_t>(areas[index + 2]),
              y + static_cast<int32_t>(areas[index + 3])};
    }
    SetWorkArea(area);
  }
  return MemoryPlatform::SystemParametersInfo(action, workArea);
}

void X11Platform::MessageBeep(UINT type) {
  MemoryPlatform::MessageBeep(type);
  XBell(display_, 0);
  XFlush(display_);
}

} // namespace tarnbrook
