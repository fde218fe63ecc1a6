#include "winplumb/debug_trace.hpp"
#include "winplumb/hooks.hpp"
#include "winplumb/mouse_lparam.hpp"
#include "winplumb_fixture.hpp"

namespace tarnbrook {
namespace {

std::string lastTrace;

// Notes each notification with the hook type it runs under; consumes when told to.
struct Client : IWindowsHook {
  explicit Client(char name) : name(name) {}
  void HookProc(int32_t eType, int32_t, WPARAM wParam, LPARAM lParam, bool& bConsume) override {
    trail += name + std::to_string(CurrentHookType()) + ";";
    if (eType == WH_MOUSE && wParam == WM_LBUTTONDOWN) {
      mouse.Init(lParam);
    }
    bConsume = consume;
  }
  char name;
  bool consume = false;
  cMouselParam mouse;
};

// A hook installed before ours, so it runs after them.
LRESULT NextHook(int, WPARAM, LPARAM) {
  trail += "next;";
  return 0;
}

class HookTest : public WinplumbTest {
protected:
  HookTest() {
    SetDebugTraceSink([](const std::string& line) { lastTrace = line; });
  }
  ~HookTest() override { SetDebugTraceSink(nullptr); }
  void Attach(int type) {
    p.SetWindowsHookEx(type, NextHook, 0, p.GetCurrentThreadId());
    InstallHook(&a, type);
    InstallHook(&b, type);
    trail.clear();
  }
  void Detach(int type) {
    RemoveHook(&a, type);
    RemoveHook(&b, type);
    EXPECT_EQ(p.HookCount(type), 1u); // the next hook only
  }
  Client a{'A'}, b{'B'};
};

TEST_F(HookTest, ConsumingStopsTheMouseChainButNotTheGetMessageChain) {
  HWND form = Window(100, 100, 200, 150);
  p.MouseMove(150, 130);
  Attach(WH_MOUSE);
  p.MouseDown(VK_LBUTTON, 150, 130);
  a.consume = true;
  p.MouseDown(VK_LBUTTON, 150, 130); // B, the next hook and the window never see it
  EXPECT_EQ(trail, "A7;B7;next;P513;A7;");
  EXPECT_EQ(a.mouse.X() + a.mouse.ClientY(form) + a.mouse.HitTestCode(), 150 + 30 + HTCLIENT);
  EXPECT_EQ(a.mouse.hwnd(), form);
  EXPECT_EQ(CurrentHookType(), 0);
  Detach(WH_MOUSE);

  Attach(WH_GETMESSAGE);
  p.PostMessage(form, WM_USER, 0, 0);
  p.PumpMessages();
  p.RunHookChain(WH_GETMESSAGE, -1, 0, 0); // a negative code goes straight on
  EXPECT_EQ(trail, "A3;next;P1024;next;");
  Detach(WH_GETMESSAGE);
}

TEST_F(HookTest, AFreedEntryIsTakenByTheNextClientInItsPlace) {
  Client c{'C'};
  Attach(WH_KEYBOARD);
  const std::string attached = lastTrace;
  EXPECT_EQ(attached.rfind("mWindowsHook: Number of attached: ", 0), 0u);
  RemoveHook(&a, WH_KEYBOARD);
  InstallHook(&c, WH_KEYBOARD);
  InstallHook(&c, WH_KEYBOARD); // already there: nothing added
  EXPECT_EQ(lastTrace, attached);
  p.SetFocus(Window(0, 0, 50, 50));
  p.KeyDown(VK_SPACE);
  EXPECT_EQ(trail, "C2;B2;next;");
  RemoveHook(&c, WH_KEYBOARD);
  Detach(WH_KEYBOARD); // a is not attached: changes nothing
}

TEST_F(HookTest, BadTypesAndRefusedHooksRaise) {
  EXPECT_EQ(ErrorText([&] { InstallHook(&a, 15); }), "9 Tarnbrook: Subscript out of range");
  EXPECT_EQ(ErrorText([&] { InstallHook(&a, -2); }), "9 Tarnbrook: Subscript out of range");
  EXPECT_EQ(ErrorText([&] { InstallHook(&a, WH_CBT); }),
            "80040419 Tarnbrook.cBrelHook: Unsupported Hook Type.");
  p.FailNextHook(1426);
  EXPECT_EQ(ErrorText([&] { InstallHook(&a, WH_SHELL); }),
            "80040419 Tarnbrook.mHook: Invalid hook procedure type.\r\n");
  EXPECT_TRUE(InstallHook(&a, WH_SHELL)); // nothing was stored
  RemoveHook(&a, WH_SHELL);
  EXPECT_EQ(p.HookCount(WH_SHELL), 0u);
}

} // namespace
} // namespace tarnbrook
