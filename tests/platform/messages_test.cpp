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

using MessageTest = PlatformTest;

TEST_F(MessageTest, SentMessagesOvertakePostedOnes) {
  HWND form = Window(0, 0, 50, 50, 0, "", PostAndSendProc);
  p.PostMessage(form, WM_USER, 0, 0);
  EXPECT_TRUE(Take({WM_USER, WM_USER + 1, WM_USER + 2}).empty()); // nothing before pumping
  p.PumpMessages();
  EXPECT_EQ(
      TakeSeen({WM_USER, WM_USER + 1, WM_USER + 2}),
      (std::vector<Seen>{{form, WM_USER, 0}, {form, WM_USER + 2, 0}, {form, WM_USER + 1, 0}}));
}

// Replacing a procedure and calling the one before it is what winplumb's subclassing does, and
// its tests follow it; the system itself refuses a window that is none or another process's.
TEST_F(MessageTest, NoProcedureIsReplacedForAMissingOrForeignWindow) {
  const auto proc = reinterpret_cast<LONG_PTR>(PostAndSendProc);
  EXPECT_EQ(p.SetWindowLong(0xDEAD, GWL_WNDPROC, proc), 0);
  HWND foreign = p.CreateForeignWindow(0, 0, 50, 50);
  uint32_t process = 0;
  p.GetWindowThreadProcessId(foreign, &process);
  EXPECT_NE(process, p.GetCurrentProcessId());
  EXPECT_EQ(p.SetWindowLong(foreign, GWL_WNDPROC, proc), 0);
}

// Their order and upkeep are followed by winplumb's subclassing tests.
TEST_F(MessageTest, PropertiesAreKeptPerWindowUntilRemovedOrDestroyed) {
  HWND form = Window(0, 0, 50, 50);
  p.SetProp(form, "C12345", 1);
  EXPECT_EQ(p.GetProp(form, "c12345"), 1); // names are atoms: any case
  EXPECT_EQ(p.RemoveProp(form, "c12345"), 1);
  EXPECT_EQ(p.RemoveProp(form, "C12345"), 0);
  p.SetProp(form, "x", 2);
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
  EXPECT_EQ(TakeSeen({WM_DESTROY}),
            (std::vector<Seen>{
                {grandchild, WM_DESTROY, 0}, {child, WM_DESTROY, 0}, {form, WM_DESTROY, 0}}));
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
  EXPECT_EQ(TakeSeen({WM_PAINT, WM_USER}),
            (std::vector<Seen>{{shown, WM_USER, 0}, {shown, WM_PAINT, 0}}));

  p.InvalidateRect(shown);
  p.UpdateWindow(shown);
  EXPECT_EQ(Take({WM_PAINT}).size(), 1u);
  p.ShowWindow(hidden, SW_SHOW);
  p.PumpMessages();
  EXPECT_EQ(TakeSeen({WM_PAINT}), (std::vector<Seen>{{hidden, WM_PAINT, 0}}));
}

} // namespace
} // namespace tarnbrook
