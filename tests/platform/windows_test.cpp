#include <filesystem>

#include "platform_fixture.hpp"

namespace tarnbrook {
namespace {

constexpr COLORREF Red = 0x0000FF;
constexpr COLORREF Green = 0x00FF00;
constexpr COLORREF Blue = 0xFF0000;

using WindowTest = PlatformTest;

TEST_F(WindowTest, ReparentingKeepsThePositionRelativeToTheNewParent) {
  HWND form = Window(100, 100, 300, 200, 0, "Form"); // client starts below the caption
  HWND child = Window(10, 20, 50, 40, form);
  EXPECT_EQ(p.GetWindowRect(child), (Rect{110, 140, 160, 180}));
  EXPECT_EQ(p.ClientToScreen(child, {1, 2}), (Point{111, 142}));
  EXPECT_EQ(p.ScreenToClient(form, {110, 140}), (Point{10, 20}));
  EXPECT_EQ(p.GetClientRect(form), (Rect{0, 0, 300, 180}));

  EXPECT_EQ(p.SetParent(child, p.GetDesktopWindow()), form);
  EXPECT_EQ(p.GetParent(child), 0u);
  EXPECT_EQ(p.GetWindowRect(child), (Rect{10, 20, 60, 60}));
  received.clear();
  p.MoveWindow(child, 300, 400, 60, 30, false);
  auto sizes = Take({WM_SIZE, WM_MOVE});
  ASSERT_EQ(sizes.size(), 2u);
  EXPECT_EQ(sizes[1].lParam, MAKELPARAM(60, 30));
  EXPECT_EQ(p.WindowCanvas(child)->Width(), 60);

  EXPECT_EQ(p.SetParent(child, form), p.GetDesktopWindow());
  EXPECT_EQ(p.GetParent(child), form);
  EXPECT_EQ(p.GetWindowRect(child), (Rect{400, 520, 460, 550}));
  EXPECT_EQ(p.SetParent(form, child), 0u); // not into its own descendant
}

TEST_F(WindowTest, PointFindsTheTopmostEnabledVisibleDeepestWindow) {
  HWND a = Window(0, 0, 200, 200);
  HWND b = Window(100, 100, 200, 200);
  HWND child = Window(10, 10, 50, 50, b);
  EXPECT_EQ(p.WindowFromPoint({180, 180}), b);
  EXPECT_EQ(p.WindowFromPoint({115, 115}), child);
  p.EnableWindow(child, false);
  EXPECT_EQ(p.WindowFromPoint({115, 115}), b);
  p.SetWindowPos(a, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
  EXPECT_EQ(p.WindowFromPoint({180, 180}), a);
  EXPECT_EQ(p.GetWindowRect(a), (Rect{0, 0, 200, 200}));
  p.ShowWindow(a, SW_HIDE);
  EXPECT_EQ(p.WindowFromPoint({180, 180}), b);
  EXPECT_EQ(p.WindowFromPoint({1000, 700}), p.GetDesktopWindow());
}

TEST_F(WindowTest, ScreenShowsEachChildAtItsPlaceClippedToItsParent) {
  HWND form = Window(100, 100, 300, 200, 0, "Form");
  HWND child = Window(20, 30, 40, 20, form);
  HWND overhang = Window(280, 10, 50, 10, form);
  Canvas::FromHandle(p.GetDC(form))->FillRect({0, 0, 300, 180}, Blue);
  Canvas::FromHandle(p.GetDC(child))->FillRect({0, 0, 40, 20}, Green);
  Canvas::FromHandle(p.GetDC(overhang))->FillRect({0, 0, 50, 10}, Red);

  auto screen = p.ComposeScreen();
  EXPECT_EQ(screen->GetPixel(5, 5), MemoryPlatform::DesktopColor);
  EXPECT_EQ(screen->GetPixel(120, 150), Green); // the child's top-left corner
  EXPECT_EQ(screen->GetPixel(119, 150), Blue);
  EXPECT_EQ(screen->GetPixel(395, 135), Red);
  EXPECT_EQ(screen->GetPixel(405, 135), MemoryPlatform::DesktopColor); // clipped
  EXPECT_NE(screen->GetPixel(200, 105), MemoryPlatform::DesktopColor); // caption
  p.AnimateWindow(child, 100, AW_HIDE | AW_VER_NEGATIVE); // what is under it shows again
  EXPECT_FALSE(p.IsWindowVisible(child));
  EXPECT_EQ(p.ComposeScreen()->GetPixel(120, 150), Blue);

  std::filesystem::create_directories(TARNBROOK_TEST_OUTPUT);
  std::string path = std::string(TARNBROOK_TEST_OUTPUT) + "/platform_screen.png";
  p.WriteScreenPng(path);
  EXPECT_TRUE(std::filesystem::exists(path));
}

TEST_F(WindowTest, SystemAnswersFollowTheTestSettings) {
  Rect area;
  EXPECT_TRUE(p.SystemParametersInfo(SPI_GETWORKAREA, &area));
  EXPECT_EQ(area, (Rect{0, 0, 1024, 738}));
  p.SetWorkArea({0, 0, 800, 500});
  p.SystemParametersInfo(SPI_GETWORKAREA, &area);
  EXPECT_EQ(area.bottom, 500);
  p.FailSystemParametersInfo(true);
  EXPECT_FALSE(p.SystemParametersInfo(SPI_GETWORKAREA, &area));
  p.SetScreenSize(800, 600);
  EXPECT_EQ(p.GetSystemMetrics(SM_CYSCREEN), 600);
}

} // namespace
} // namespace tarnbrook
