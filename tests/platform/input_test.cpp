#include <utility>

#include "platform_fixture.hpp"

namespace tarnbrook {
namespace {

using InputTest = PlatformTest;

std::vector<std::pair<UINT, WPARAM>> Keys(const std::vector<Received>& messages) {
  std::vector<std::pair<UINT, WPARAM>> keys;
  for (const Received& r : messages) {
    keys.emplace_back(r.msg, r.wParam);
  }
  return keys;
}

TEST_F(InputTest, ClickMovesTheFocusKillBeforeSet) {
  HWND a = Window(0, 0, 100, 100);
  HWND b = Window(200, 0, 100, 100);
  p.Click(10, 10);
  p.Click(210, 10);
  EXPECT_EQ(TakeSeen({WM_SETFOCUS, WM_KILLFOCUS, WM_LBUTTONDOWN}),
            (std::vector<Seen>{{a, WM_SETFOCUS, 0},
                               {a, WM_LBUTTONDOWN, MK_LBUTTON},
                               {a, WM_KILLFOCUS, b},
                               {b, WM_SETFOCUS, a},
                               {b, WM_LBUTTONDOWN, MK_LBUTTON}}));
  p.SetClickFocus(false);
  p.Click(10, 10);
  EXPECT_EQ(p.GetFocus(), b);
}

TEST_F(InputTest, DoubleClickArrivesAsDownUpDoubleUp) {
  HWND a = Window(0, 0, 100, 100);
  p.DoubleClick(30, 40);
  EXPECT_EQ(TakeSeen({WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK}),
            (std::vector<Seen>{{a, WM_LBUTTONDOWN, MK_LBUTTON},
                               {a, WM_LBUTTONUP, 0},
                               {a, WM_LBUTTONDBLCLK, MK_LBUTTON},
                               {a, WM_LBUTTONUP, 0}}));
  EXPECT_EQ(p.GetCursorPos(), (Point{30, 40}));
}

TEST_F(InputTest, TypedTextReachesTheFocusedWindowWithShift) {
  HWND field = Window(0, 0, 100, 20);
  p.SetFocus(field);
  p.Type("a?");
  auto keys = Take({WM_KEYDOWN, WM_CHAR, WM_KEYUP});
  for (const Received& r : keys) {
    EXPECT_EQ(r.hwnd, field);
  }
  using K = std::pair<UINT, WPARAM>;
  EXPECT_EQ(Keys(keys), (std::vector<K>{{WM_KEYDOWN, 'A'},
                                        {WM_CHAR, 'a'},
                                        {WM_KEYUP, 'A'},
                                        {WM_KEYDOWN, VK_SHIFT},
                                        {WM_KEYDOWN, VK_OEM_2},
                                        {WM_CHAR, '?'},
                                        {WM_KEYUP, VK_OEM_2},
                                        {WM_KEYUP, VK_SHIFT}}));

  p.Key(VK_DELETE);
  p.Key('C', MemoryPlatform::CtrlKey); // no character with Ctrl held
  EXPECT_EQ(Take({WM_CHAR}).size(), 0u);
  p.KeyDown(VK_SHIFT);
  EXPECT_LT(p.GetKeyState(VK_SHIFT), 0);
  p.KeyUp(VK_SHIFT);
  EXPECT_EQ(p.GetKeyState(VK_SHIFT), 0);
}

TEST_F(InputTest, CaptureTakesTheMouseWhereverItGoes) {
  HWND a = Window(100, 100, 100, 100);
  HWND b = Window(300, 100, 100, 100);
  p.MouseDown(VK_LBUTTON, 150, 150);
  EXPECT_LT(p.GetKeyState(VK_LBUTTON), 0);
  p.SetCapture(a);
  received.clear();
  p.MouseMove(320, 90);
  auto moves = Take({WM_MOUSEMOVE});
  ASSERT_EQ(moves.size(), 1u);
  EXPECT_EQ(moves[0].hwnd, a);
  EXPECT_EQ(GET_X_LPARAM(moves[0].lParam), 220);
  EXPECT_EQ(GET_Y_LPARAM(moves[0].lParam), -10);
  EXPECT_EQ(moves[0].wParam, static_cast<WPARAM>(MK_LBUTTON));

  EXPECT_TRUE(p.ReleaseCapture());
  p.MouseUp(VK_LBUTTON, 350, 150);
  EXPECT_EQ(TakeSeen({WM_CAPTURECHANGED, WM_LBUTTONUP}),
            (std::vector<Seen>{{a, WM_CAPTURECHANGED, 0}, {b, WM_LBUTTONUP, 0}}));
}

} // namespace
} // namespace tarnbrook
