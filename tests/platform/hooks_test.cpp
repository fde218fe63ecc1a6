#include <string>

#include "platform_fixture.hpp"

namespace tarnbrook {
namespace {

std::string hookTrail;
MOUSEHOOKSTRUCT lastMouse;
LRESULT mouseAnswer = 0;

LRESULT MouseHook(int, WPARAM wParam, LPARAM lParam) {
  if (wParam == WM_LBUTTONDOWN || wParam == WM_NCLBUTTONDOWN) {
    lastMouse = *reinterpret_cast<MOUSEHOOKSTRUCT*>(lParam);
  }
  return mouseAnswer;
}

// Each hook notes itself, passes on and adds to the result; B passes a wrong handle, which
// the system ignores.
template <char Name, LRESULT Add> LRESULT ChainHook(int code, WPARAM w, LPARAM l) {
  hookTrail += Name;
  return Platform::Current().CallNextHookEx(Name == 'B' ? 12345 : 0, code, w, l) + Add;
}

LRESULT ConsumeAll(int, WPARAM, LPARAM l) {
  auto* msg = reinterpret_cast<MSG*>(l);
  hookTrail += std::to_string(msg->message);
  return 1;
}

LRESULT CallHook(int, WPARAM, LPARAM l) {
  hookTrail += "call" + std::to_string(reinterpret_cast<CWPSTRUCT*>(l)->message) + ";";
  return 0;
}
LRESULT ReturnHook(int, WPARAM, LPARAM l) {
  hookTrail += "ret" + std::to_string(reinterpret_cast<CWPRETSTRUCT*>(l)->lResult) + ";";
  return 0;
}
LRESULT AnsweringProc(HWND, UINT, WPARAM, LPARAM) {
  hookTrail += "proc;";
  return 42;
}

class HookTest : public PlatformTest {
protected:
  HookTest() {
    hookTrail.clear();
    lastMouse = {};
    mouseAnswer = 0;
  }
  HHOOK Install(int type, HOOKPROC proc) {
    return p.SetWindowsHookEx(type, proc, 0, p.GetCurrentThreadId());
  }
};

TEST_F(HookTest, CaptionClickIsNonClientWithScreenCoordinates) {
  HWND form = Window(100, 100, 200, 150, 0, "Form");
  Install(WH_MOUSE, MouseHook);
  p.Click(150, 110);
  EXPECT_EQ(lastMouse.pt, (Point{150, 110}));
  EXPECT_EQ(lastMouse.wHitTestCode, static_cast<UINT>(HTCAPTION));
  auto down = Take({WM_NCLBUTTONDOWN, WM_LBUTTONDOWN});
  ASSERT_EQ(down.size(), 1u);
  EXPECT_EQ((Seen{down[0].hwnd, down[0].msg, down[0].wParam}),
            (Seen{form, WM_NCLBUTTONDOWN, HTCAPTION}));
  EXPECT_EQ(down[0].lParam, MAKELPARAM(150, 110));
  mouseAnswer = 1; // a hook that consumes the press keeps it from the window
  p.Click(150, 110);
  EXPECT_TRUE(Take({WM_NCLBUTTONDOWN, WM_NCLBUTTONUP, WM_MOUSEMOVE}).empty());
}

TEST_F(HookTest, ChainRunsNewestFirstAndEndsWithZero) {
  Install(WH_KEYBOARD, ChainHook<'A', 1>);
  HHOOK b = Install(WH_KEYBOARD, ChainHook<'B', 10>);
  Install(WH_KEYBOARD, ChainHook<'C', 100>);

  EXPECT_EQ(p.RunHookChain(WH_KEYBOARD, HC_ACTION, 0, 0), 111);
  EXPECT_EQ(hookTrail, "CBA");

  hookTrail.clear();
  EXPECT_TRUE(p.UnhookWindowsHookEx(b));
  EXPECT_FALSE(p.UnhookWindowsHookEx(b));
  EXPECT_EQ(p.RunHookChain(WH_KEYBOARD, HC_ACTION, 0, 0), 101);
  EXPECT_EQ(hookTrail, "CA");
  EXPECT_EQ(p.CallNextHookEx(b, HC_ACTION, 0, 0), 0);
  EXPECT_EQ(p.SetWindowsHookEx(WH_KEYBOARD, ChainHook<'D', 0>, 0, 0), 0u); // global: no module
  EXPECT_EQ(p.HookCount(WH_KEYBOARD), 2u);
}

// A posted message passes the get-message hooks, which cannot stop it; a sent one passes the
// call hooks around the procedure instead.
TEST_F(HookTest, SentMessagesPassTheCallHooksPostedOnesTheGetMessageHooks) {
  HWND form = Window(0, 0, 50, 50, 0, "", AnsweringProc);
  p.PumpMessages();
  Install(WH_CALLWNDPROC, CallHook);
  Install(WH_CALLWNDPROCRET, ReturnHook);
  Install(WH_GETMESSAGE, ConsumeAll);
  hookTrail.clear();
  EXPECT_EQ(p.SendMessage(form, WM_USER, 0, 0), 42);
  EXPECT_EQ(hookTrail, "call1024;proc;ret42;");
  hookTrail.clear();
  p.PostMessage(form, WM_USER, 0, 0);
  p.PumpMessages();
  EXPECT_EQ(hookTrail, "1024proc;");
}

} // namespace
} // namespace tarnbrook
