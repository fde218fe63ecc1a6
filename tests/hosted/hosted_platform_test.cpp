#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <thread>
#include <vector>

#include "draw/canvas.hpp"
#include "platform/hosted/hosted_platform.hpp"

namespace tarnbrook {
namespace {

// Every report as a line, and the last wake-up asked for.
struct RecordingHost : HostedPlatform::Host {
  static std::string Text(const Rect& r) {
    return std::to_string(r.left) + "," + std::to_string(r.top) + "," + std::to_string(r.right) +
           "," + std::to_string(r.bottom);
  }
  void TopLevelShown(HWND, const Rect& client) override {
    reports.push_back("shown " + Text(client));
  }
  void TopLevelMoved(HWND, const Rect& client) override {
    reports.push_back("moved " + Text(client));
  }
  void TopLevelHidden(HWND) override { reports.push_back("hidden"); }
  void TopLevelDestroyed(HWND) override { reports.push_back("destroyed"); }
  void Damaged(HWND, const Rect& area) override { reports.push_back("damaged " + Text(area)); }
  void CursorChanged(int shape) override { reports.push_back("cursor " + std::to_string(shape)); }
  void WakeIn(std::optional<uint32_t> milliseconds) override { wake = milliseconds; }

  std::vector<std::string> Take() { return std::exchange(reports, {}); }
  std::vector<std::string> reports;
  std::optional<uint32_t> wake;
};

// Paints its client area in the colour kept in its user data.
LRESULT SolidProc(HWND hwnd, UINT msg, WPARAM, LPARAM) {
  Platform& p = Platform::Current();
  if (msg == WM_PAINT) {
    Canvas* canvas = Canvas::FromHandle(p.GetDC(hwnd));
    canvas->FillRect(p.GetClientRect(hwnd),
                     static_cast<COLORREF>(p.GetWindowLong(hwnd, GWL_USERDATA)));
  }
  return 0;
}

int timerTicks = 0;
void CountTick(HWND, UINT, uintptr_t, uint32_t) {
  ++timerTicks;
}

class HostedPlatformTest : public ::testing::Test {
protected:
  HWND Solid(int32_t x, int32_t y, int32_t w, int32_t h, COLORREF color, HWND parent = 0) {
    HWND hwnd = p.CreateWindowEx(0, "", WS_VISIBLE | (parent ? WS_CHILD : WS_POPUP), x, y, w, h,
                                 parent, SolidProc);
    p.SetWindowLong(hwnd, GWL_USERDATA, static_cast<LONG_PTR>(color));
    p.InvalidateRect(hwnd);
    return hwnd;
  }

  RecordingHost host;
  HostedPlatform p{&host};
};

TEST_F(HostedPlatformTest, ShownWindowIsToldThenComposedWithItsChildren) {
  HWND form = Solid(100, 50, 40, 30, 0x0000FF);
  Solid(10, 5, 8, 6, 0x00FF00, form);
  p.Process();
  EXPECT_EQ(host.Take(), (std::vector<std::string>{"shown 100,50,140,80", "damaged 0,0,40,30"}));
  const Canvas* pixels = p.Pixels(form);
  ASSERT_NE(pixels, nullptr);
  EXPECT_EQ(pixels->GetPixel(0, 0), 0x0000FFu);
  EXPECT_EQ(pixels->GetPixel(12, 7), 0x00FF00u);
  EXPECT_EQ(pixels->GetPixel(18, 7), 0x0000FFu); // just right of the child

  p.Process(); // nothing changed, nothing told
  EXPECT_TRUE(host.Take().empty());
}

TEST_F(HostedPlatformTest, DamageCoversOnlyWhatChanged) {
  HWND form = Solid(0, 0, 100, 80, 0xFFFFFF);
  HWND child = Solid(10, 20, 30, 10, 0x000000, form);
  p.Process();
  host.Take();

  p.SetWindowLong(child, GWL_USERDATA, 0x808080);
  p.InvalidateRect(child);
  p.Process();
  EXPECT_EQ(host.Take(), (std::vector<std::string>{"damaged 10,20,40,30"}));
  EXPECT_EQ(p.Pixels(form)->GetPixel(15, 25), 0x808080u);

  // A move uncovers the old place and covers the new one, without a paint of its own.
  p.MoveWindow(child, 50, 20, 30, 10, false);
  p.Process();
  EXPECT_EQ(host.Take(), (std::vector<std::string>{"damaged 10,20,80,30"}));
  EXPECT_EQ(p.Pixels(form)->GetPixel(15, 25), 0xFFFFFFu);
  EXPECT_EQ(p.Pixels(form)->GetPixel(55, 25), 0x808080u);

  // A child is clipped to its parent's client area.
  p.MoveWindow(child, 90, 70, 30, 10, false);
  p.Process();
  EXPECT_EQ(host.Take(), (std::vector<std::string>{"damaged 50,20,100,80"}));

  p.ShowWindow(child, SW_HIDE);
  p.Process();
  EXPECT_EQ(host.Take(), (std::vector<std::string>{"damaged 90,70,100,80"}));
  EXPECT_EQ(p.Pixels(form)->GetPixel(95, 75), 0xFFFFFFu);
}

TEST_F(HostedPlatformTest, TopLevelWindowsMoveHideShowAndGo) {
  HWND popup = Solid(300, 200, 50, 40, 0x00FFFF);
  p.Process();
  host.Take();

  p.MoveWindow(popup, 310, 220, 50, 40, false);
  p.Process();
  EXPECT_EQ(host.Take(), (std::vector<std::string>{"moved 310,220,360,260"}));

  p.ShowWindow(popup, SW_HIDE);
  p.Process();
  EXPECT_EQ(host.Take(), (std::vector<std::string>{"hidden"}));
  EXPECT_EQ(p.Pixels(popup), nullptr);

  p.MoveWindow(popup, 0, 0, 20, 10, false);
  p.ShowWindow(popup, SW_SHOW);
  p.Process();
  EXPECT_EQ(host.Take(), (std::vector<std::string>{"shown 0,0,20,10", "damaged 0,0,20,10"}));

  p.DestroyWindow(popup);
  p.Process();
  EXPECT_EQ(host.Take(), (std::vector<std::string>{"destroyed"}));

  // A drop-down taken back into its control is no longer a top-level window.
  HWND form = Solid(0, 0, 100, 100, 0xFFFFFF);
  HWND dropDown = Solid(0, 0, 10, 10, 0);
  p.Process();
  host.Take();
  p.SetParent(dropDown, form);
  p.SetWindowLong(dropDown, GWL_STYLE, WS_CHILD);
  p.Process();
  EXPECT_EQ(host.Take(), (std::vector<std::string>{"destroyed"}));

  // A window never shown is never told of.
  HWND hidden = p.CreateWindowEx(0, "", WS_POPUP, 0, 0, 10, 10, 0, SolidProc);
  p.Process();
  p.DestroyWindow(hidden);
  p.Process();
  EXPECT_TRUE(host.Take().empty());
}

TEST_F(HostedPlatformTest, TimersWakeTheToolkitAndRunOnTheRealClock) {
  HWND form = Solid(0, 0, 10, 10, 0);
  p.Process();
  EXPECT_FALSE(host.wake.has_value());

  timerTicks = 0;
  p.SetTimer(form, 7, 40, CountTick);
  p.Process();
  ASSERT_TRUE(host.wake.has_value());
  EXPECT_LE(*host.wake, 40u);

  std::this_thread::sleep_for(std::chrono::milliseconds(60));
  p.Process();
  EXPECT_EQ(timerTicks, 1);
  EXPECT_LE(*host.wake, 40u);

  p.KillTimer(form, 7);
  p.Process();
  EXPECT_FALSE(host.wake.has_value());
}

TEST_F(HostedPlatformTest, InputGoesThroughTheSimulatorAndCursorChangesAreToldOnce) {
  HWND form = Solid(100, 100, 50, 50, 0);
  HWND child = Solid(10, 10, 20, 20, 0, form);
  p.Process();
  host.Take();

  p.Click(115, 115); // the simulator's own hit testing puts it on the child
  EXPECT_EQ(p.GetFocus(), child);

  p.SetCursor(IDC_HAND);
  p.SetCursor(IDC_HAND);
  p.SetCursor(IDC_ARROW);
  EXPECT_EQ(host.Take(), (std::vector<std::string>{"cursor " + std::to_string(IDC_HAND),
                                                   "cursor " + std::to_string(IDC_ARROW)}));
}

} // namespace
} // namespace tarnbrook
