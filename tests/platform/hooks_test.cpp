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

// Each hook notes itself and passes on; B passes a wrong handle, which the system ignores.
LRESULT HookA(int code, WPARAM w, LPARAM l) {
  hookTrail += "A";
  return Platform::Current().CallNextHookEx(0, code, w, l) + 1;
}
LRESULT HookB(int code, WPARAM w, LPARAM l) {
  hookTrail += "B";
  return Platform::Current().CallNextHookEx(12345, code, w, l) + 10;
}
LRESULT HookC(int code, WPARAM w, LPARAM l) {
  hookTrail += "C";
  return Platform::Current().CallNextHookEx(0, code, w, l) + 100;
}

LRESULT ConsumeAll(int, WPARAM, LPARAM l) {
  auto* msg = reinterpret_cast<MSG*>(l);
  hookTrail += std::to_string(msg->message);
  return 1;
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
  EXPECT_EQ(lastMouse.pt, (Point{160, 140}));
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
  Install(WH_KEYBOARD, HookA);
  HHOOK b = Install(WH_KEYBOARD, HookB);
  Install(WH_KEYBOARD, HookC);
  Install(WH_MOUSE, MouseHook); // another chain, not called

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
  EXPECT_EQ(Install(15, MouseHook), 0u);
  EXPECT_EQ(p.HookCount(WH_MOUSE), 1u);
}

TEST_F(HookTest, GetMessageHookCannotStopDelivery) {
  HWND form = Window(0, 0, 50, 50);
  Install(WH_GETMESSAGE, ConsumeAll);
  p.PostMessage(form, WM_USER + 1, 0, 0);
  p.SendMessage(form, WM_USER + 2, 0, 0); // sent messages pass no queue
  p.PumpMessages();
  EXPECT_EQ(hookTrail, std::to_string(WM_USER + 1));
  EXPECT_EQ(Take({WM_USER + 1, WM_USER + 2}).size(), 2u);
}

} // namespace
} // namespace tarnbrook
