#include <atomic>
#include <thread>

#include "tests/x11/x11_fixture.hpp"

#include <X11/Xatom.h>

namespace tarnbrook {
namespace {

constexpr COLORREF Red = 0x0000FF, Blue = 0xFF0000, Green = 0x00FF00; // 0x00BBGGRR
constexpr unsigned long ScreenRed = 0xFF0000, ScreenBlue = 0x0000FF, ScreenGreen = 0x00FF00;

TEST_F(X11Test, XWindowsFollowTheTreeThroughMovesAndAPopUpOnTheRoot) {
  HWND form = NewWindow(100, 120, 300, 200, 0, "Form1"); // a 20-pixel caption above
  HWND child = NewWindow(10, 20, 50, 40, form);
  platform->ProcessPendingEvents();
  Window formX = platform->XWindowOf(form);
  EXPECT_EQ(Geometry(form), (XGeometry{{100, 140, 400, 320}, root, true, false}));
  EXPECT_EQ(Geometry(child), (XGeometry{{110, 160, 160, 200}, formX, true, false}));

  platform->MoveWindow(child, 30, 40, 60, 50, true);
  platform->ShowWindow(child, SW_HIDE);
  platform->ProcessPendingEvents();
  EXPECT_EQ(Geometry(child), (XGeometry{{130, 180, 190, 230}, formX, false, false}));

  platform->MoveWindow(child, 500, 400, 60, 50, false);
  platform->SetParent(child, platform->GetDesktopWindow());
  platform->ShowWindow(child, SW_SHOW);
  platform->ProcessPendingEvents();
  EXPECT_EQ(Geometry(child), (XGeometry{{500, 400, 560, 450}, root, true, true}));

  platform->SetParent(child, form);
  platform->ProcessPendingEvents();
  EXPECT_EQ(Geometry(child), (XGeometry{{600, 540, 660, 590}, formX, true, false}));

  platform->DestroyWindow(form);
  platform->ProcessPendingEvents();
  XWindowAttributes attributes;
  EXPECT_FALSE(XGetWindowAttributes(display, formX, &attributes)); // an error: no such window
  ++errorsBefore;
  EXPECT_EQ(platform->XWindowOf(child), 0u);
}

TEST_F(X11Test, PaintedCanvasesAreOnScreenInTheirZOrder) {
  HWND form = Painted(Red, 50, 50, 200, 150);
  HWND lower = Painted(Blue, 10, 10, 60, 60, form);
  HWND upper = Painted(Green, 40, 40, 60, 60, form);
  platform->ProcessPendingEvents();
  EXPECT_EQ(PixelAt(50 + 150, 50 + 120), ScreenRed);
  EXPECT_EQ(PixelAt(50 + 20, 50 + 20), ScreenBlue);
  EXPECT_EQ(PixelAt(50 + 55, 50 + 55), ScreenGreen); // the overlap

  platform->SetWindowPos(lower, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
  platform->ProcessPendingEvents();
  EXPECT_EQ(PixelAt(50 + 55, 50 + 55), ScreenBlue);

  // A repaint outside WM_PAINT reaches the screen on UpdateWindow.
  platform->SetProp(upper, "Color", Red);
  platform->InvalidateRect(upper);
  platform->UpdateWindow(upper);
  EXPECT_EQ(PixelAt(50 + 95, 50 + 95), ScreenRed);
}

using Seen = std::vector<unsigned long>;

// Runs `action` while a connection of its own keeps each new combination of the colours at
// `points`. The last look starts after the action, so it sees what the server had then.
std::vector<Seen> WatchWhile(const std::vector<Point>& points,
                             const std::function<void()>& action) {
  std::vector<Seen> seen;
  std::atomic<bool> done = false;
  std::thread watcher([&] {
    Display* display = XOpenDisplay(Xvfb::Shared().Name().c_str());
    for (bool last = false; !last;) {
      last = done;
      Seen now;
      for (Point p : points) {
        now.push_back(PixelOn(display, p.x, p.y));
      }
      if (seen.empty() || seen.back() != now) {
        seen.push_back(now);
      }
    }
    XCloseDisplay(display);
  });
  action();
  done = true;
  watcher.join();
  return seen;
}

LRESULT PrintsGreen(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) {
  if (msg == WM_PRINTCLIENT) {
    Canvas* canvas = Canvas::FromHandle(static_cast<HDC>(wParam));
    canvas->FillRect({0, 0, canvas->Width(), canvas->Height()}, Green);
  }
  return RecordingProc(hwnd, msg, wParam, lParam);
}

bool Showed(const std::vector<Seen>& seen, const std::function<bool(const Seen&)>& test) {
  return std::any_of(seen.begin(), seen.end(), test);
}

TEST_F(X11Test, AnimationsRevealThePrintedPictureStepByStep) {
  Painted(Red, 0, 0, 1024, 768); // a known background
  HWND popUp = NewWindow(600, 300, 120, 100, 0, "", PrintsGreen);
  platform->ShowWindow(popUp, SW_HIDE);
  platform->ProcessPendingEvents();

  // A slide downwards uncovers the top row while the bottom row still shows what was under,
  // for the time asked.
  auto start = std::chrono::steady_clock::now();
  std::vector<Seen> seen = WatchWhile({{660, 302}, {660, 397}}, [&] {
    EXPECT_TRUE(platform->AnimateWindow(popUp, 150, AW_SLIDE | AW_VER_POSITIVE));
    platform->ProcessPendingEvents();
  });
  EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(150));
  EXPECT_TRUE(Showed(seen, [](const Seen& s) { return s == Seen{ScreenGreen, ScreenRed}; }));
  EXPECT_EQ(seen.back(), (Seen{ScreenGreen, ScreenGreen}));
  EXPECT_EQ(Geometry(popUp), (XGeometry{{600, 300, 720, 400}, root, true, true}));

  // A blend passes through mixtures of the two.
  platform->ShowWindow(popUp, SW_HIDE);
  platform->ProcessPendingEvents();
  seen = WatchWhile({{660, 350}}, [&] {
    EXPECT_TRUE(platform->AnimateWindow(popUp, 150, AW_BLEND));
    platform->ProcessPendingEvents();
  });
  EXPECT_TRUE(Showed(seen, [](const Seen& s) { return (s[0] & 0xFF0000) && (s[0] & 0x00FF00); }));
  EXPECT_EQ(seen.back(), Seen{ScreenGreen});
  EXPECT_EQ(std::count_if(received.begin(), received.end(),
                          [](const Received& r) { return r.msg == WM_PRINTCLIENT; }),
            2);
}

TEST_F(X11Test, WorkAreaComesFromTheWindowManagerElseTheScreen) {
  Rect area;
  ASSERT_TRUE(platform->SystemParametersInfo(SPI_GETWORKAREA, &area));
  EXPECT_EQ(area, (Rect{0, 0, 1024, 768}));

  Atom workArea = XInternAtom(display, "_NET_WORKAREA", False);
  long values[] = {0, 24, 1024, 720};
  XChangeProperty(display, root, workArea, XA_CARDINAL, 32, PropModeReplace,
                  reinterpret_cast<unsigned char*>(values), 4);
  ASSERT_TRUE(platform->SystemParametersInfo(SPI_GETWORKAREA, &area));
  XDeleteProperty(display, root, workArea);
  EXPECT_EQ(area, (Rect{0, 24, 1024, 744}));
}

} // namespace
} // namespace tarnbrook
