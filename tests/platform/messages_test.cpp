#include "platform_fixture.hpp"

namespace tarnbrook {
namespace {

// Answers WM_USER by posting WM_USER + 1 and sending WM_USER + 2 to itself.
LRESULT PostAndSendProc(HWND hwnd, UINT msg, WPARAM w, LPARAM l) {
  RecordingProc(hwnd, msg, w, l);
  if (msg == WM_USER) {
    Platform::Current().PostMessage(hwnd, WM_USER + 1, 0, 0);
    Platform::Current().SendMessage(hwnd, WM_USER + 2, 0, 0);
  }
  return 0;
}

WNDPROC previousProc = nullptr;

LRESULT SubclassProc(HWND hwnd, UINT msg, WPARAM w, LPARAM l) {
  if (msg == WM_USER) {
    received.push_back({hwnd, WM_USER + 100, w, l, 0});
  }
  return Platform::Current().CallWindowProc(previousProc, hwnd, msg, w, l) + 1;
}

using MessageTest = PlatformTest;

TEST_F(MessageTest, SentMessagesOvertakePostedOnes) {
  HWND form = Window(0, 0, 50, 50, 0, "", PostAndSendProc);
  p.PostMessage(form, WM_USER, 0, 0);
  EXPECT_TRUE(Take({WM_USER, WM_USER + 1, WM_USER + 2}).empty()); // nothing before pumping
  p.PumpMessages();
  auto order = Take({WM_USER, WM_USER + 1, WM_USER + 2});
  ASSERT_EQ(order.size(), 3u);
  EXPECT_EQ(order[0].msg, static_cast<UINT>(WM_USER));
  EXPECT_EQ(order[1].msg, static_cast<UINT>(WM_USER + 2));
  EXPECT_EQ(order[2].msg, static_cast<UINT>(WM_USER + 1));
}

TEST_F(MessageTest, ReplacedProcedureCanCallThePreviousOne) {
  HWND form = Window(0, 0, 50, 50);
  previousProc = reinterpret_cast<WNDPROC>(
      p.SetWindowLong(form, GWL_WNDPROC, reinterpret_cast<LONG_PTR>(SubclassProc)));
  EXPECT_EQ(previousProc, RecordingProc);
  EXPECT_EQ(p.SendMessage(form, WM_USER, 7, 8), 1);
  auto seen = Take({WM_USER, WM_USER + 100});
  ASSERT_EQ(seen.size(), 2u);
  EXPECT_EQ(seen[0].msg, static_cast<UINT>(WM_USER + 100));
  EXPECT_EQ(seen[1].wParam, 7u);

  EXPECT_EQ(p.SetWindowLong(form, GWL_WNDPROC, reinterpret_cast<LONG_PTR>(previousProc)),
            reinterpret_cast<LONG_PTR>(SubclassProc));
  EXPECT_EQ(p.SetWindowLong(0xDEAD, GWL_WNDPROC, reinterpret_cast<LONG_PTR>(SubclassProc)), 0);

  HWND foreign = p.CreateForeignWindow(0, 0, 50, 50); // its procedure cannot be replaced
  uint32_t process = 0;
  p.GetWindowThreadProcessId(foreign, &process);
  EXPECT_NE(process, p.GetCurrentProcessId());
  EXPECT_EQ(p.SetWindowLong(foreign, GWL_WNDPROC, reinterpret_cast<LONG_PTR>(SubclassProc)), 0);
}

TEST_F(MessageTest, PropertiesAreKeptPerWindowUntilRemovedOrDestroyed) {
  HWND form = Window(0, 0, 50, 50);
  EXPECT_TRUE(p.SetProp(form, "12345", 77));
  p.SetProp(form, "C12345", 1);
  EXPECT_EQ(p.GetProp(form, "12345"), 77);
  EXPECT_EQ(p.GetProp(form, "c12345"), 1); // names are atoms: any case
  EXPECT_EQ(p.PropertyNames(form), (std::vector<std::string>{"12345", "C12345"}));
  EXPECT_EQ(p.RemoveProp(form, "12345"), 77);
  EXPECT_EQ(p.RemoveProp(form, "12345"), 0);
  EXPECT_EQ(p.PropertyNames(form), std::vector<std::string>{"C12345"});
  p.DestroyWindow(form);
  EXPECT_FALSE(p.SetProp(form, "x", 1));
  EXPECT_TRUE(p.PropertyNames(form).empty());
}

TEST_F(MessageTest, DestroyGoesChildrenFirstAndEndsTimersFocusAndCapture) {
  HWND form = Window(0, 0, 100, 100);
  HWND child = Window(10, 10, 20, 20, form);
  HWND grandchild = Window(1, 1, 5, 5, child);
  p.SetTimer(child, 1, 100);
  p.SetFocus(grandchild);
  p.SetCapture(child);
  received.clear();
  EXPECT_TRUE(p.DestroyWindow(form));
  auto destroyed = Take({WM_DESTROY});
  ASSERT_EQ(destroyed.size(), 3u);
  EXPECT_EQ(destroyed[0].hwnd, grandchild);
  EXPECT_EQ(destroyed[2].hwnd, form);
  EXPECT_FALSE(p.IsWindow(child));
  EXPECT_EQ(p.TimerCount(), 0u);
  EXPECT_EQ(p.GetFocus(), 0u);
  EXPECT_EQ(p.GetCapture(), 0u);
}

TEST_F(MessageTest, VisibleInvalidWindowsArePaintedWhenTheQueueRunsDry) {
  HWND shown = Window(0, 0, 50, 50);
  HWND hidden = p.CreateWindowEx(0, "", 0, 0, 0, 50, 50, 0, RecordingProc);
  p.PostMessage(shown, WM_USER, 0, 0);
  p.PumpMessages();
  auto painted = Take({WM_PAINT, WM_USER});
  ASSERT_EQ(painted.size(), 2u);
  EXPECT_EQ(painted[0].msg, static_cast<UINT>(WM_USER));
  EXPECT_EQ(painted[1].hwnd, shown);

  p.InvalidateRect(shown);
  p.UpdateWindow(shown);
  EXPECT_EQ(Take({WM_PAINT}).size(), 1u);
  p.ShowWindow(hidden, SW_SHOW);
  p.PumpMessages();
  painted = Take({WM_PAINT});
  ASSERT_EQ(painted.size(), 1u);
  EXPECT_EQ(painted[0].hwnd, hidden);
}

} // namespace
} // namespace tarnbrook
