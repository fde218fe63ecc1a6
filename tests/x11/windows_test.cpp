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
  XGeometry formX = Geometry(form);
  EXPECT_EQ(formX.parent, root);
  EXPECT_EQ(formX.screen, (Rect{100, 140, 400, 320}));
  EXPECT_TRUE(formX.viewable);
  EXPECT_FALSE(formX.overrideRedirect);
  EXPECT_EQ(Geometry(child).parent, platform->XWindowOf(form));
  EXPECT_EQ(Geometry(child).screen, (Rect{110, 160, 160, 200}));

  platform->MoveWindow(child, 30, 40, 60, 50, true);
  platform->ShowWindow(child, SW_HIDE);
  platform->ProcessPendingEvents();
  EXPECT_EQ(Geometry(child).screen, (Rect{130, 180, 190, 230}));
  EXPECT_FALSE(Geometry(child).viewable);

  platform->MoveWindow(child, 500, 400, 60, 50, false);
  platform->SetParent(child, platform->GetDesktopWindow());
  platform->ShowWindow(child, SW_SHOW);
  platform->ProcessPendingEvents();
  XGeometry popUp = Geometry(child);
  EXPECT_EQ(popUp.parent, root);
  EXPECT_TRUE(popUp.overrideRedirect);
  EXPECT_TRUE(popUp.viewable);
  EXPECT_EQ(popUp.screen, (Rect{500, 400, 560, 450}));

  platform->ShowWindow(child, SW_HIDE);
  platform->SetParent(child, form);
  platform->MoveWindow(child, 10, 20, 50, 40, false);
  platform->ShowWindow(child, SW_SHOW);
  platform->ProcessPendingEvents();
  XGeometry back = Geometry(child);
  EXPECT_EQ(back.parent, platform->XWindowOf(form));
  EXPECT_FALSE(back.overrideRedirect);
  EXPECT_EQ(back.screen, (Rect{110, 160, 160, 200}));

  Window formWindow = platform->XWindowOf(form);
  platform->DestroyWindow(form);
  platform->ProcessPendingEvents();
  std::vector<Window> topLevels = XChildren(root);
  EXPECT_EQ(std::count(topLevels.begin(), topLevels.end(), formWindow), 0);
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
  std::vector<Window> stack = XChildren(platform->XWindowOf(form));
  EXPECT_EQ(stack, (std::vector<Window>{platform->XWindowOf(upper), platform->XWindowOf(lower)}));

  // A repaint outside WM_PAINT reaches the screen on UpdateWindow.
  platform->SetProp(upper, "Color", Red);
  platform->InvalidateRect(upper);
  platform->UpdateWindow(upper);
  EXPECT_EQ(PixelAt(50 + 95, 50 + 95), ScreenRed);
}

// Watches screen points from a connection of its own while the platform animates, keeping
// each new combination of their colours.
class Watcher {
public:
  Watcher(std::vector<Point> points)
      : points_(std::move(points)), thread_([this] { Watch(Xvfb::Shared().Name()); }) {}
  ~Watcher() { Stop(); }
  const std::vector<std::vector<unsigned long>>& Stop() {
    stop_ = true;
    if (thread_.joinable()) {
      thread_.join();
    }
    return seen_;
  }

private:
  void Watch(const std::string& displayName) {
    Display* display = XOpenDisplay(displayName.c_str());
    // The last look starts after Stop, so it sees what the server had by then.
    for (bool last = false; !last;) {
      last = stop_;
      std::vector<unsigned long> now;
      for (Point p : points_) {
        XImage* image =
            XGetImage(display, DefaultRootWindow(display), p.x, p.y, 1, 1, AllPlanes, ZPixmap);
        now.push_back(XGetPixel(image, 0, 0) & 0xFFFFFF);
        XDestroyImage(image);
      }
      if (seen_.empty() || seen_.back() != now) {
        seen_.push_back(now);
      }
    }
    XCloseDisplay(display);
  }

  std::vector<Point> points_;
  std::vector<std::vector<unsigned long>> seen_;
  std::atomic<bool> stop_ = false;
  std::thread thread_;
};

LRESULT PrintsGreen(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) {
  if (msg == WM_PRINTCLIENT) {
    Canvas* canvas = Canvas::FromHandle(static_cast<HDC>(wParam));
    canvas->FillRect({0, 0, canvas->Width(), canvas->Height()}, Green);
  }
  return RecordingProc(hwnd, msg, wParam, lParam);
}

using Seen = std::vector<unsigned long>;

bool Showed(const std::vector<Seen>& seen, const std::function<bool(const Seen&)>& test) {
  return std::any_of(seen.begin(), seen.end(), test);
}

TEST_F(X11Test, AnimationsRevealThePrintedPictureStepByStep) {
  Painted(Red, 0, 0, 1024, 768); // a known background
  HWND popUp = NewWindow(600, 300, 120, 100, 0, "", PrintsGreen);
  platform->ShowWindow(popUp, SW_HIDE);
  platform->ProcessPendingEvents();

  // A slide downwards uncovers the top row while the bottom row still shows what was under.
  Watcher slide({{660, 302}, {660, 397}});
  auto start = std::chrono::steady_clock::now();
  EXPECT_TRUE(platform->AnimateWindow(popUp, 150, AW_SLIDE | AW_VER_POSITIVE));
  EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(150));
  platform->ProcessPendingEvents();
  std::vector<Seen> seen = slide.Stop();
  EXPECT_TRUE(Showed(seen, [](const Seen& s) { return s == Seen{ScreenGreen, ScreenRed}; }));
  EXPECT_EQ(seen.back(), (Seen{ScreenGreen, ScreenGreen}));
  EXPECT_TRUE(Geometry(popUp).overrideRedirect);
  EXPECT_EQ(Geometry(popUp).screen, (Rect{600, 300, 720, 400}));

  // A blend passes through mixtures of the two.
  platform->ShowWindow(popUp, SW_HIDE);
  platform->ProcessPendingEvents();
  Watcher blend({{660, 350}});
  EXPECT_TRUE(platform->AnimateWindow(popUp, 150, AW_BLEND));
  platform->ProcessPendingEvents();
  seen = blend.Stop();
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
