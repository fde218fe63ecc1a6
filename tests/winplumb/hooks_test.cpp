#include "winplumb/debug_trace.hpp"
#include "winplumb/hooks.hpp"
#include "winplumb/mouse_lparam.hpp"
#include "winplumb_fixture.hpp"

namespace tarnbrook {
namespace {

std::string lastTrace;

// Notes each notification with the hook type it runs under; consumes when told to.
class Client : public IWindowsHook {
public:
  explicit Client(char name) : name_(name) {}
  bool consume = false;
  cMouselParam mouse;
  void HookProc(int32_t eType, int32_t, WPARAM wParam, LPARAM lParam, bool& bConsume) override {
    trail += std::string(1, name_) + std::to_string(CurrentHookType()) + ";";
    if (eType == WH_MOUSE && wParam == WM_LBUTTONDOWN) {
      mouse.Init(lParam);
    }
    bConsume = consume;
  }

private:
  char name_;
};

// A hook installed before ours, so it runs after them.
LRESULT NextHook(int, WPARAM, LPARAM) {
  trail += "next;";
  return 0;
}

class HookTest : public WinplumbTest {
protected:
  HookTest() {
    lastTrace.clear();
    SetDebugTraceSink([](const std::string& line) { lastTrace = line; });
  }
  ~HookTest() override { SetDebugTraceSink(nullptr); }
  void InstallNext(int type) { p.SetWindowsHookEx(type, NextHook, 0, p.GetCurrentThreadId()); }
  Client a{'A'}, b{'B'};
};

TEST_F(HookTest, ConsumedClickStopsAtTheFirstMouseClient) {
  HWND form = Window(100, 100, 200, 150);
  InstallNext(WH_MOUSE);
  EXPECT_TRUE(InstallHook(&a, WH_MOUSE));
  EXPECT_TRUE(InstallHook(&b, WH_MOUSE));
  EXPECT_EQ(p.HookCount(WH_MOUSE), 2u);

  p.MouseMove(150, 130);
  trail.clear();
  p.MouseDown(VK_LBUTTON, 150, 130);
  EXPECT_EQ(trail, "A7;B7;next;P513;");
  EXPECT_EQ(a.mouse.X(), 150);
  EXPECT_EQ(a.mouse.ClientY(form), 30);
  EXPECT_EQ(a.mouse.hwnd(), form);
  EXPECT_EQ(a.mouse.HitTestCode(), HTCLIENT);
  EXPECT_EQ(CurrentHookType(), 0);

  a.consume = true;
  trail.clear();
  p.MouseDown(VK_LBUTTON, 150, 130);
  EXPECT_EQ(trail, "A7;"); // B, the next hook and the window never see it

  RemoveHook(&a, WH_MOUSE);
  RemoveHook(&b, WH_MOUSE);
  EXPECT_EQ(p.HookCount(WH_MOUSE), 1u);
}

TEST_F(HookTest, ConsumedMessageStillReachesTheNextHookAndTheWindow) {
  HWND form = Window(0, 0, 50, 50);
  p.PumpMessages();
  InstallNext(WH_GETMESSAGE);
  InstallHook(&a, WH_GETMESSAGE);
  InstallHook(&b, WH_GETMESSAGE);
  a.consume = true;
  trail.clear();
  p.PostMessage(form, WM_USER, 0, 0);
  p.PumpMessages();
  EXPECT_EQ(trail, "A3;next;P1024;");

  trail.clear(); // a negative code goes straight to the next hook
  EXPECT_EQ(p.RunHookChain(WH_GETMESSAGE, -1, 0, 0), 0);
  EXPECT_EQ(trail, "next;");
  RemoveHook(&a, WH_GETMESSAGE);
  RemoveHook(&b, WH_GETMESSAGE);
}

TEST_F(HookTest, AFreedEntryIsTakenByTheNextClientInItsPlace) {
  Client c{'C'};
  InstallHook(&a, WH_KEYBOARD);
  InstallHook(&b, WH_KEYBOARD);
  const std::string attached = lastTrace;
  EXPECT_EQ(attached.rfind("mWindowsHook: Number of attached: ", 0), 0u);
  RemoveHook(&a, WH_KEYBOARD);
  InstallHook(&c, WH_KEYBOARD);
  EXPECT_TRUE(InstallHook(&c, WH_KEYBOARD)); // already there: nothing added
  EXPECT_EQ(lastTrace, attached);
  p.SetFocus(Window(0, 0, 50, 50));
  trail.clear();
  p.KeyDown(VK_SPACE);
  EXPECT_EQ(trail, "C2;B2;");

  RemoveHook(&b, WH_KEYBOARD);
  RemoveHook(&a, WH_KEYBOARD); // not attached: changes nothing
  EXPECT_EQ(p.HookCount(WH_KEYBOARD), 1u);
  RemoveHook(&c, WH_KEYBOARD);
  EXPECT_EQ(p.HookCount(WH_KEYBOARD), 0u);
}

TEST_F(HookTest, BadTypesAndRefusedHooksRaise) {
  EXPECT_PLUMBING_ERROR(InstallHook(&a, 15), 9, "Tarnbrook", "Subscript out of range");
  EXPECT_PLUMBING_ERROR(InstallHook(&a, -2), 9, "Tarnbrook", "Subscript out of range");
  EXPECT_PLUMBING_ERROR(InstallHook(&a, WH_CBT), 0x80040419, "Tarnbrook.cBrelHook",
                        "Unsupported Hook Type.");
  p.FailNextHook(8);
  EXPECT_PLUMBING_ERROR(InstallHook(&a, WH_SHELL), 0x80040419, "Tarnbrook.mHook",
                        "Not enough memory resources are available to process this command.\r\n");
  EXPECT_TRUE(lastTrace.empty());
  EXPECT_TRUE(InstallHook(&a, WH_SHELL)); // nothing was stored
  EXPECT_EQ(p.HookCount(WH_SHELL), 1u);
  RemoveHook(&a, WH_SHELL);
}

} // namespace
} // namespace tarnbrook
