#include "platform/x11/x11_platform.hpp"

#include <X11/XKBlib.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <limits>
#include <poll.h>
#include <stdexcept>

#include "platform/system_clock.hpp"

namespace tarnbrook {

namespace {

int xErrors = 0;

// A request that fails (a window gone meanwhile, a focus refused) is counted, not fatal.
int CountError(Display*, XErrorEvent*) {
  ++xErrors;
  return 0;
}

// Canvases hold 32-bit pixels 0xAARRGGBB; the screen must take them as they are.
bool TakesCanvasPixels(Display* display, Visual* visual, int depth) {
  if (visual->c_class != TrueColor || (depth != 24 && depth != 32) ||
      visual->red_mask != 0xFF0000 || visual->green_mask != 0xFF00 || visual->blue_mask != 0xFF) {
    return false;
  }
  int count = 0;
  XPixmapFormatValues* formats = XListPixmapFormats(display, &count);
  bool thirtyTwoBits = false;
  for (int i = 0; i < count; ++i) {
    thirtyTwoBits |= formats[i].depth == depth && formats[i].bits_per_pixel == 32;
  }
  XFree(formats);
  return thirtyTwoBits;
}

} // namespace

int X11Platform::XErrorCount() {
  return xErrors;
}

X11Platform::X11Platform(const std::string& displayName) {
  const char* name = displayName.empty() ? std::getenv("DISPLAY") : displayName.c_str();
  if (!name || !*name) {
    throw std::runtime_error("no X display: DISPLAY is not set");
  }
  display_ = XOpenDisplay(name);
  if (!display_) {
    throw std::runtime_error(std::string("cannot open the X display \"") + name + "\"");
  }
  int screen = DefaultScreen(display_);
  Visual* visual = DefaultVisual(display_, screen);
  depth_ = DefaultDepth(display_, screen);
  if (!TakesCanvasPixels(display_, visual, depth_)) {
    XCloseDisplay(display_);
    throw std::runtime_error(std::string("the X display \"") + name +
                             "\" has no 24-bit TrueColor visual");
  }
  XSetErrorHandler(CountError);
  visual_ = visual;
  root_ = RootWindow(display_, screen);
  gc_ = XCreateGC(display_, root_, 0, nullptr);
  deleteWindowAtom_ = XInternAtom(display_, "WM_DELETE_WINDOW", False);
  protocolsAtom_ = XInternAtom(display_, "WM_PROTOCOLS", False);
  // A held key repeats as presses alone, as key-down messages with the repeat bit.
  XkbSetDetectableAutoRepeat(display_, True, nullptr);

  SetScreenSize(DisplayWidth(display_, screen), DisplayHeight(display_, screen));
  SetNow(SystemNow());
  StartRealTime();
}

// Closing the connection destroys the X windows.
X11Platform::~X11Platform() {
  for (auto& [shape, cursor] : cursors_) {
    XFreeCursor(display_, cursor);
  }
  XFreeGC(display_, gc_);
  XCloseDisplay(display_);
}

// The clock moves before the events too, so that their handlers time from the present.
void X11Platform::ProcessPendingEvents() {
  FollowRealTime();
  XSync(display_, False);
  while (XPending(display_) > 0) {
    XEvent event;
    XNextEvent(display_, &event);
    HandleEvent(event);
  }
  FollowRealTime();
  PumpMessages();
}

// Sleeps until an X event arrives or the timeout passes (-1: no timeout).
void X11Platform::WaitForEvents(int timeoutMilliseconds) {
  XFlush(display_);
  if (XPending(display_) > 0) {
    return;
  }
  pollfd connection{ConnectionNumber(display_), POLLIN, 0};
  poll(&connection, 1, timeoutMilliseconds);
}

// Timers tick at least every 10 ms, so a loop with timers wakes that often.
// Blocks until X has an event or a timer is due (at most a second, so a caller's
// condition is looked at again), then handles what came.
bool X11Platform::WaitMessage() {
  ProcessPendingEvents();
  WaitForEvents(TimerCount() > 0 ? 10 : 1000);
  ProcessPendingEvents();
  return true;
}

bool X11Platform::RunUntil(const std::function<bool()>& done, uint32_t milliseconds) {
  auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
  for (;;) {
    ProcessPendingEvents();
    if (done()) {
      return true;
    }
    auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
                    deadline - std::chrono::steady_clock::now())
                    .count();
    if (left <= 0) {
      return false;
    }
    long longest = TimerCount() > 0 ? 10 : std::numeric_limits<int>::max();
    WaitForEvents(static_cast<int>(std::min<long>(left, longest)));
  }
}

void X11Platform::Run() {
  quit_ = false;
  for (;;) {
    ProcessPendingEvents();
    if (quit_ || !AnyFormShown()) {
      return;
    }
    WaitForEvents(TimerCount() > 0 ? 10 : -1);
  }
}

} // namespace tarnbrook
