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

TEST_F(HookTest, MouseHookSeesTheClickFirstAndCanConsumeIt) {
  HWND form = Window(100, 100, 200, 150);
  Install(WH_MOUSE, MouseHook);

  p.Click(150, 130);
  EXPECT_EQ(lastMouse.pt, (Point{150, 130}));
  EXPECT_EQ(lastMouse.hwnd, form);
  EXPECT_EQ(lastMouse.wHitTestCode, static_cast<UINT>(HTCLIENT));
  auto clicks = Take({WM_LBUTTONDOWN, WM_LBUTTONUP});
  ASSERT_EQ(clicks.size(), 2u);
  EXPECT_EQ(clicks[0].lParam, MAKELPARAM(50, 30));
  EXPECT_EQ(clicks[0].wParam, static_cast<WPARAM>(MK_LBUTTON));
  EXPECT_EQ(clicks[1].wParam, 0u);

  mouseAnswer = 1;
  p.Click(160, 140);
  EXPECT_TRUE(Take({WM_LBUTTONDOWN, WM_LBUTTONUP, WM_MOUSEMOVE}).empty());
}

TEST_F(HookTest, CaptionClickIsNonClientWithScreenCoordinates) {
  HWND form = Window(100, 100, 200, 150, 0, "Form");
  Install(WH_MOUSE, MouseHook);
  p.Click(150, 110);
  EXPECT_EQ(lastMouse.wHitTestCode, static_cast<UINT>(HTCAPTION));
  auto down = Take({WM_NCLBUTTONDOWN, WM_LBUTTONDOWN});
  ASSERT_EQ(down.size(), 1u);
  EXPECT_EQ(down[0].msg, static_cast<UINT>(WM_NCLBUTTONDOWN));
  EXPECT_EQ(down[0].hwnd, form);
  EXPECT_EQ(down[0].wParam, static_cast<WPARAM>(HTCAPTION));
  EXPECT_EQ(down[0].lParam, MAKELPARAM(150, 110));
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
}

TEST_F(HookTest, FailedInstallationLeavesAnErrorText) {
  p.FailNextHook(8);
  EXPECT_EQ(Install(WH_MOUSE, MouseHook), 0u);
  EXPECT_EQ(p.GetLastError(), 8u);
  EXPECT_EQ(p.FormatMessage(8),
            "Not enough memory resources are available to process this command.\r\n");
  EXPECT_NE(Install(WH_MOUSE, MouseHook), 0u);
  EXPECT_EQ(p.SetWindowsHookEx(WH_MOUSE, MouseHook, 0, 0), 0u); // global needs a module
  EXPECT_EQ(p.HookCount(WH_MOUSE), 1u);
}

TEST_F(HookTest, SentMessagesPassTheCallHooksPostedOnesDoNot) {
  HWND form = Window(0, 0, 50, 50, 0, "", AnsweringProc);
  p.PumpMessages();
  Install(WH_CALLWNDPROC, CallHook);
  Install(WH_CALLWNDPROCRET, ReturnHook);
  hookTrail.clear();
  EXPECT_EQ(p.SendMessage(form, WM_USER, 0, 0), 42);
  EXPECT_EQ(hookTrail, "call1024;proc;ret42;");
  hookTrail.clear();
  p.PostMessage(form, WM_USER, 0, 0);
  p.PumpMessages();
  EXPECT_EQ(hookTrail, "proc;");
}

TEST_F(HookTest, GetMessageHookCannotStopDelivery) {
  HWND form = Window(0, 0, 50, 50);
  p.PumpMessages();
  Install(WH_GETMESSAGE, ConsumeAll);
  p.PostMessage(form, WM_USER + 1, 0, 0);
  p.SendMessage(form, WM_USER + 2, 0, 0); // sent messages pass no queue
  p.PumpMessages();
  EXPECT_EQ(hookTrail, std::to_string(WM_USER + 1));
  EXPECT_EQ(Take({WM_USER + 1, WM_USER + 2}).size(), 2u);
}

} // namespace
} // namespace tarnbrook
