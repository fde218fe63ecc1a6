#pragma once
#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <initializer_list>
#include <memory>
#include <signal.h>
#include <string>
#include <vector>

#include "platform/x11/x11_platform.hpp"

#include <X11/Xlib.h>
#include <X11/Xutil.h>

namespace tarnbrook {

// One Xvfb for the whole program, on a display number it finds free itself, stopped when
// the program ends. The shell prints its id and becomes the server, which prints its
// number once it accepts connections; no reset, as each test connects afresh.
class Xvfb {
public:
  static Xvfb& Shared() {
    static Xvfb server;
    return server;
  }
  bool Running() const { return !name_.empty(); }
  const std::string& Name() const { return name_; }
  ~Xvfb() {
    if (pid_ > 0) {
      kill(pid_, SIGTERM);
    }
    if (output_) {
      pclose(output_);
    }
  }

private:
  Xvfb()
      : output_(popen("echo $$; exec Xvfb -displayfd 1 -screen 0 1024x768x24 -nolisten tcp "
                      "-noreset 2>/dev/null",
                      "r")) {
    int number = -1;
    if (output_ && fscanf(output_, "%d %d", &pid_, &number) == 2) {
      name_ = ":" + std::to_string(number);
    }
  }

  FILE* output_;
  pid_t pid_ = 0;
  std::string name_;
};

struct Received {
  HWND hwnd;
  UINT msg;
  WPARAM wParam;
  LPARAM lParam;
};

inline std::vector<Received> received;

inline LRESULT RecordingProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) {
  received.push_back({hwnd, msg, wParam, lParam});
  return 0;
}

// Records, and paints the client area in the colour of the window's "Color" property.
inline LRESULT PaintingProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) {
  Platform& platform = Platform::Current();
  if (msg == WM_PAINT) {
    Canvas::FromHandle(platform.GetDC(hwnd))
        ->FillRect(platform.GetClientRect(hwnd),
                   static_cast<COLORREF>(platform.GetProp(hwnd, "Color")));
  }
  return RecordingProc(hwnd, msg, wParam, lParam);
}

// 0x00RRGGBB as the screen shows it.
inline unsigned long PixelOn(Display* display, int x, int y) {
  XImage* image = XGetImage(display, DefaultRootWindow(display), x, y, 1, 1, AllPlanes, ZPixmap);
  unsigned long pixel = XGetPixel(image, 0, 0) & 0xFFFFFF;
  XDestroyImage(image);
  return pixel;
}

// The X side of a window as the server has it.
struct XGeometry {
  Rect screen;
  Window parent = 0;
  bool viewable = false;
  bool overrideRedirect = false;
  bool operator==(const XGeometry&) const = default;
};

class X11Test : public ::testing::Test {
protected:
  void SetUp() override {
    Xvfb& server = Xvfb::Shared();
    if (!server.Running()) {
      GTEST_SKIP() << "Xvfb could not start (is the xvfb package installed?)";
    }
    setenv("DISPLAY", server.Name().c_str(), 1); // for xdotool
    platform = std::make_unique<X11Platform>(server.Name());
    display = platform->XDisplay();
    root = DefaultRootWindow(display);
    errorsBefore = X11Platform::XErrorCount();
    received.clear();
  }
  void TearDown() override {
    EXPECT_EQ(X11Platform::XErrorCount(), errorsBefore) << "X protocol errors";
  }

  HWND NewWindow(int32_t x, int32_t y, int32_t width, int32_t height, HWND parent = 0,
                 const std::string& title = "", WNDPROC proc = RecordingProc) {
    uint32_t style = WS_VISIBLE | (parent ? WS_CHILD : 0u);
    return platform->CreateWindowEx(0, title, style, x, y, width, height, parent, proc);
  }
  HWND Painted(COLORREF color, int32_t x, int32_t y, int32_t width, int32_t height,
               HWND parent = 0) {
    HWND hwnd = NewWindow(x, y, width, height, parent, "", PaintingProc);
    platform->SetProp(hwnd, "Color", color);
    return hwnd;
  }

  XGeometry Geometry(HWND hwnd) {
    XGeometry geometry;
    Window xWindow = platform->XWindowOf(hwnd), rootReturn = 0, child = 0, *children = nullptr;
    unsigned int count = 0;
    XWindowAttributes attributes{};
    XGetWindowAttributes(display, xWindow, &attributes);
    XQueryTree(display, xWindow, &rootReturn, &geometry.parent, &children, &count);
    XFree(children);
    int x = 0, y = 0;
    XTranslateCoordinates(display, xWindow, root, 0, 0, &x, &y, &child);
    geometry.screen = {x, y, x + attributes.width, y + attributes.height};
    geometry.viewable = attributes.map_state == IsViewable;
    geometry.overrideRedirect = attributes.override_redirect;
    return geometry;
  }

  unsigned long PixelAt(int x, int y) { return PixelOn(display, x, y); }

  void Xdotool(const std::string& arguments) {
    ASSERT_EQ(std::system(("xdotool " + arguments).c_str()), 0) << "xdotool " << arguments;
  }
  bool WaitFor(const std::function<bool()>& done) { return platform->RunUntil(done, 3000); }
  // The messages among `kinds` that `hwnd` received, in order.
  static std::vector<UINT> MessagesOf(HWND hwnd, std::initializer_list<UINT> kinds) {
    std::vector<UINT> found;
    for (const Received& r : received) {
      if (r.hwnd == hwnd && std::find(kinds.begin(), kinds.end(), r.msg) != kinds.end()) {
        found.push_back(r.msg);
      }
    }
    return found;
  }

  static std::vector<WPARAM> ParamsOf(HWND hwnd, UINT msg) {
    std::vector<WPARAM> found;
    for (const Received& r : received) {
      if (r.hwnd == hwnd && r.msg == msg) {
        found.push_back(r.wParam);
      }
    }
    return found;
  }

  std::unique_ptr<X11Platform> platform;
  Display* display = nullptr;
  Window root = 0;
  int errorsBefore = 0;
};

} // namespace tarnbrook
