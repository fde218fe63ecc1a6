// X events become the simulator's input at the same screen points, and window-manager
// changes become the simulator's own.

#include "platform/memory/keysym_keys.hpp"
#include "platform/x11/x11_platform.hpp"

#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <cstdlib>
#include <utility>

namespace tarnbrook {

namespace {

constexpr unsigned long DoubleClickTime = 500; // milliseconds, the system's default

int VirtualButton(unsigned int button) {
  switch (button) {
  case Button1:
    return VK_LBUTTON;
  case Button2:
    return VK_MBUTTON;
  case Button3:
    return VK_RBUTTON;
  default:
    return 0; // the wheel
  }
}

} // namespace

void X11Platform::HandleEvent(XEvent& event) {
  switch (event.type) {
  case ButtonPress:
  case ButtonRelease:
    HandleButton(event);
    break;
  case MotionNotify: {
    // Only the last place of a run of moves counts.
    XEvent next;
    while (XPending(display_) > 0 && (XPeekEvent(display_, &next), next.type == MotionNotify)) {
      XNextEvent(display_, &event);
    }
    MouseMove(event.xmotion.x_root, event.xmotion.y_root);
    break;
  }
  case KeyPress:
  case KeyRelease:
    HandleKey(event);
    break;
  case FocusIn:
  case FocusOut:
    HandleFocus(event);
    break;
  case Expose:
    if (Mirror* mirror = FindMirror(WindowOfX(event.xexpose.window))) {
      mirror->dirty = true;
    }
    break;
  case ConfigureNotify:
    HandleConfigure(event);
    break;
  case MapNotify:
    // A form the window manager shows only now can take the focus it was given.
    if (GetFocus() && XWindowOf(TopLevelOf(GetFocus())) == event.xmap.window) {
      FocusXWindow();
    }
    break;
  case ClientMessage:
    HandleClose(event);
    break;
  default:
    break;
  }
}

// The server reports single presses; a second press of the same button soon enough and
// close enough is a double click, and a third starts over.
void X11Platform::HandleButton(XEvent& event) {
  const XButtonEvent& button = event.xbutton;
  Point at{button.x_root, button.y_root};
  if (button.button == Button4 || button.button == Button5) {
    if (event.type == ButtonPress) { // a notch comes as a press and a release
      MouseWheel(button.button == Button4 ? WHEEL_DELTA : -WHEEL_DELTA, at.x, at.y);
    }
    return;
  }
  int virtualButton = VirtualButton(button.button);
  if (!virtualButton) {
    return;
  }
  if (event.type == ButtonRelease) {
    MouseUp(virtualButton, at.x, at.y);
    return;
  }
  bool isDouble = !lastPress_.wasDouble && lastPress_.button == button.button &&
                  ((button.time - lastPress_.time) & 0xFFFFFFFF) <= DoubleClickTime &&
                  std::abs(at.x - lastPress_.at.x) <= GetSystemMetrics(SM_CXDOUBLECLK) / 2 &&
                  std::abs(at.y - lastPress_.at.y) <= GetSystemMetrics(SM_CYDOUBLECLK) / 2;
  lastPress_ = {button.button, button.time, at, isDouble};
  if (isDouble) {
    MouseDoubleClick(virtualButton, at.x, at.y);
  } else {
    MouseDown(virtualButton, at.x, at.y);
  }
}

// The key goes to the simulator's focus, whichever X window reported it. A Latin-1
// character no US key types arrives as a character alone.
void X11Platform::HandleKey(XEvent& event) {
  KeySym keysym = NoSymbol;
  XLookupString(&event.xkey, nullptr, 0, &keysym, nullptr);
  int virtualKey = VirtualKeyFromKeysym(keysym);
  if (event.type == KeyRelease) {
    if (virtualKey) {
      KeyUp(virtualKey);
    }
  } else if (virtualKey) {
    KeyDown(virtualKey);
  } else if (keysym >= 0xA0 && keysym <= 0xFF) {
    TypeChar(static_cast<char>(keysym));
  }
}

// The application losing the keyboard to another takes the focus from its window, and
// gives it back when the keyboard returns; moves between its own windows change nothing.
void X11Platform::HandleFocus(XEvent& event) {
  const XFocusChangeEvent& change = event.xfocus;
  if (change.detail == NotifyInferior || change.detail == NotifyPointer ||
      change.mode == NotifyGrab || change.mode == NotifyUngrab) {
    return;
  }
  Window focused = 0;
  int revertTo = 0;
  XGetInputFocus(display_, &focused, &revertTo);
  bool ours = WindowOfX(focused) != 0;
  if (!ours && GetFocus()) {
    focusBeforeLeaving_ = GetFocus();
    MemoryPlatform::SetFocus(0);
  } else if (ours && !GetFocus() && IsWindow(focusBeforeLeaving_)) {
    MemoryPlatform::SetFocus(std::exchange(focusBeforeLeaving_, 0));
  }
}

// Only the window manager moves or sizes a form behind the simulator's back; the last
// change of a run counts.
void X11Platform::HandleConfigure(XEvent& event) {
  XConfigureEvent configure = event.xconfigure;
  HWND hwnd = WindowOfX(configure.window);
  Mirror* mirror = FindMirror(hwnd);
  if (!mirror || mirror->popup || mirror->parent != root_) {
    return;
  }
  XEvent later;
  while (XCheckTypedWindowEvent(display_, configure.window, ConfigureNotify, &later)) {
    configure = later.xconfigure;
  }
  Window child = 0;
  int x = 0, y = 0;
  XTranslateCoordinates(display_, configure.window, root_, 0, 0, &x, &y, &child);
  Rect placed{x, y, x + configure.width, y + configure.height};
  if (placed == mirror->placed) {
    return;
  }
  mirror->placed = placed;
  Rect outer = GetWindowRect(hwnd);
  Point client = ClientToScreen(hwnd, {0, 0});
  Rect clientRect = GetClientRect(hwnd);
  MoveWindow(hwnd, x - (client.x - outer.left), y - (client.y - outer.top),
             configure.width + outer.Width() - clientRect.Width(),
             configure.height + outer.Height() - clientRect.Height(), true);
}

// The window manager's close box: the form hears WM_CLOSE and is hidden; its owner
// destroys it.
void X11Platform::HandleClose(XEvent& event) {
  const XClientMessageEvent& message = event.xclient;
  HWND hwnd = WindowOfX(message.window);
  if (!hwnd || message.message_type != protocolsAtom_ ||
      static_cast<unsigned long>(message.data.l[0]) != deleteWindowAtom_) {
    return;
  }
  SendMessage(hwnd, WM_CLOSE, 0, 0);
  ShowWindow(hwnd, SW_HIDE);
  Sync();
}

HWND X11Platform::SetFocus(HWND hwnd) {
  HWND old = MemoryPlatform::SetFocus(hwnd);
  FocusXWindow();
  return old;
}

// The keyboard goes to the X window of the focused window's top-level window, once the
// server shows it.
void X11Platform::FocusXWindow() {
  HWND focus = GetFocus();
  if (!focus) {
    return;
  }
  Sync();
  Mirror* top = FindMirror(TopLevelOf(focus));
  XWindowAttributes attributes{};
  if (top && top->mapped && XGetWindowAttributes(display_, top->window, &attributes) &&
      attributes.map_state == IsViewable) {
    XSetInputFocus(display_, top->window, RevertToParent, CurrentTime);
  }
}

} // namespace tarnbrook
