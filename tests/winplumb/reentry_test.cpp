// Clients that attach, detach, free themselves or raise while they are being called.
#include <memory>

#include "platform/escaped_error.hpp"
#include "winplumb/hooks.hpp"
#include "winplumb/subclass.hpp"
#include "winplumb_fixture.hpp"

namespace tarnbrook {
namespace {

std::vector<std::string> escaped;

class ReentryTest : public WinplumbTest {
protected:
  ReentryTest() {
    escaped.clear();
    SetEscapedErrorReporter([](HWND, const ControlError& error) {
      escaped.push_back(std::to_string(error.Number()) + " " + error.Description());
    });
  }
  ~ReentryTest() override { SetEscapedErrorReporter(nullptr); }
};

// A mouse hook that, on its first press, installs another (as a drop-down opened from a
// close-up handler does), or raises.
struct OpeningHook : IWindowsHook {
  char name;
  IWindowsHook* opens = nullptr;
  bool raises = false;
  explicit OpeningHook(char name) : name(name) {}
  void HookProc(int32_t, int32_t, WPARAM wParam, LPARAM, bool&) override {
    if (wParam != WM_LBUTTONDOWN)
      return;
    trail += name;
    if (opens)
      InstallHook(std::exchange(opens, nullptr), WH_MOUSE);
    if (raises)
      throw ControlError(1234, "Program", "refused in a hook");
  }
};

TEST_F(ReentryTest, AHookInstalledDuringANotificationWaitsForTheNextOne) {
  Window(0, 0, 200, 200);
  OpeningHook first('A'), second('B'), third('C');
  InstallHook(&first, WH_MOUSE);
  InstallHook(&third, WH_MOUSE);
  RemoveHook(&third, WH_MOUSE); // its place is free, before any new entry
  first.opens = &second;        // takes that freed place during the press
  p.MouseDown(VK_LBUTTON, 50, 50);
  p.MouseUp(VK_LBUTTON, 50, 50);
  EXPECT_EQ(trail, "AP513;");
  p.MouseDown(VK_LBUTTON, 50, 50);
  EXPECT_EQ(trail, "AP513;ABP513;");

  second.raises = true;
  p.MouseDown(VK_LBUTTON, 50, 50);
  EXPECT_EQ(escaped, std::vector<std::string>{"1234 refused in a hook"});
  EXPECT_EQ(trail, "AP513;ABP513;ABP513;") << "the window still gets its press";
  RemoveHook(&first, WH_MOUSE);
  RemoveHook(&second, WH_MOUSE);
}

// Detaches and frees itself in its own handler, as an object released by its last owner.
struct SelfFreeing : ISubclass {
  HWND hwnd;
  int32_t msg;
  SelfFreeing(HWND hwnd, int32_t msg) : hwnd(hwnd), msg(msg) { AttachMessage(this, hwnd, msg); }
  EMsgResponse MsgResponse() override { return emrPostProcess; }
  LRESULT WindowProc(HWND, int32_t, WPARAM wParam, LPARAM) override {
    trail += "S;";
    if (wParam == 1) {
      DetachMessage(this, hwnd, msg);
      delete this;
    } else if (wParam == 2) {
      throw std::runtime_error("broken client");
    }
    return 5;
  }
};

TEST_F(ReentryTest, ASubclassClientMayFreeItselfOrRaiseWhileCalled) {
  HWND w = Window(10, 10, 100, 100);
  new SelfFreeing(w, WM_USER);
  EXPECT_EQ(p.SendMessage(w, WM_USER, 2, 0), 0);
  EXPECT_EQ(escaped, std::vector<std::string>{"51 Internal error: broken client"});
  // Its post-processing answer, read before the call, still stands: the window sees it.
  EXPECT_EQ(p.SendMessage(w, WM_USER, 1, 0), 7);
  EXPECT_EQ(trail, "S;S;P1024;");
  EXPECT_EQ(p.SendMessage(w, WM_USER, 0, 0), 7); // gone: the window's own procedure answers
  EXPECT_TRUE(p.PropertyNames(w).empty());
}

} // namespace
} // namespace tarnbrook
