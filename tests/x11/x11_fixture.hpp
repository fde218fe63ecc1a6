#pragma once
#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <fcntl.h>
#include <initializer_list>
#include <memory>
#include <poll.h>
#include <signal.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include "platform/x11/x11_platform.hpp"

#include <X11/Xlib.h>
#include <X11/Xutil.h>

namespace tarnbrook {

// One Xvfb for the whole program, on a display number it finds free itself (-displayfd),
// stopped when the program ends.
class Xvfb {
public:
  static Xvfb& Shared() {
    static Xvfb server;
    return server;
  }
  bool Running() const { return pid_ > 0; }
  const std::string& Name() const { return name_; }

  ~Xvfb() {
    if (pid_ > 0) {
      kill(pid_, SIGTERM);
      waitpid(pid_, nullptr, 0);
    }
  }

private:
  Xvfb() {
    int ready[2];
    if (pipe(ready) != 0) {
      return;
    }
    pid_ = fork();
    if (pid_ == 0) {
      close(ready[0]);
      int quiet = open("/dev/null", O_WRONLY);
      dup2(quiet, STDOUT_FILENO);
      dup2(quiet, STDERR_FILENO);
      std::string fd = std::to_string(ready[1]);
      // No reset when the last client leaves: each test connects afresh.
      execlp("Xvfb", "Xvfb", "-displayfd", fd.c_str(), "-screen", "0", "1024x768x24", "-nolisten",
             "tcp", "-noreset", static_cast<char*>(nullptr));
      _exit(127);
    }
    close(ready[1]);
    // The server writes its display number once it accepts connections.
    pollfd wait{ready[0], POLLIN, 0};
    char number[16] = {};
    if (pid_ > 0 && poll(&wait, 1, 10000) == 1 && read(ready[0], number, sizeof number - 1) > 0 &&
        Accepts(":" + std::to_string(std::atoi(number)))) {
      name_ = ":" + std::to_string(std::atoi(number));
    } else if (pid_ > 0) {
      kill(pid_, SIGTERM);
      waitpid(pid_, nullptr, 0);
      pid_ = 0;
    }
    close(ready[0]);
  }

  static bool Accepts(const std::string& name) {
    for (int attempt = 0; attempt < 100; ++attempt) {
      if (Display* display = XOpenDisplay(name.c_str())) {
        XCloseDisplay(display);
        return true;
      }
      usleep(20000);
    }
    return false;
  }

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
    HDC hdc = platform.GetDC(hwnd);
    Canvas::FromHandle(hdc)->FillRect(platform.GetClientRect(hwnd),
                                      static_cast<COLORREF>(platform.GetProp(hwnd, "Color")));
  }
  return RecordingProc(hwnd, msg, wParam, lParam);
}

// The X side of a window as the server has it.
struct XGeometry {
  Rect screen;
  Window parent = 0;
  bool viewable = false;
  bool overrideRedirect = false;
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
    if (platform) {
      EXPECT_EQ(X11Platform::XErrorCount(), errorsBefore) << "X protocol errors";
    }
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

  std::vector<Window> XChildren(Window parent) {
    Window rootReturn = 0, parentReturn = 0, *children = nullptr;
    unsigned int count = 0;
    XQueryTree(display, parent, &rootReturn, &parentReturn, &children, &count);
    std::vector<Window> list(children, children + count);
    XFree(children);
    return list;
  }

  // 0x00RRGGBB as the screen shows it.
  unsigned long PixelAt(int x, int y) {
    XImage* image = XGetImage(display, root, x, y, 1, 1, AllPlanes, ZPixmap);
    unsigned long pixel = XGetPixel(image, 0, 0) & 0xFFFFFF;
    XDestroyImage(image);
    return pixel;
  }

  void Xdotool(const std::string& arguments) {
    ASSERT_EQ(std::system(("xdotool " + arguments).c_str()), 0) << "xdotool " << arguments;
  }
  bool WaitFor(const std::function<bool()>& done) { return platform->RunUntil(done, 3000); }
  bool WaitForMessage(UINT msg) {
    return WaitFor([msg] {
      for (const Received& r : received) {
        if (r.msg == msg) {
          return true;
        }
      }
      return false;
    });
  }

  // The received messages among `kinds`, in order, forgetting all seen so far.
  std::vector<UINT> Take(std::initializer_list<UINT> kinds) {
    std::vector<UINT> taken;
    for (const Received& r : received) {
      for (UINT kind : kinds) {
        if (r.msg == kind) {
          taken.push_back(r.msg);
        }
      }
    }
    received.clear();
    return taken;
  }

  std::unique_ptr<X11Platform> platform;
  Display* display = nullptr;
  Window root = 0;
  int errorsBefore = 0;
};

} // namespace tarnbrook
