#include "host/container.hpp"
#include "tests/x11/x11_fixture.hpp"

namespace tarnbrook {
namespace {

std::vector<UINT> MessagesOf(HWND hwnd, std::initializer_list<UINT> kinds) {
  std::vector<UINT> found;
  for (const Received& r : received) {
    if (r.hwnd == hwnd && std::find(kinds.begin(), kinds.end(), r.msg) != kinds.end()) {
      found.push_back(r.msg);
    }
  }
  return found;
}

size_t CountOf(UINT msg, WPARAM wParam) {
  return std::count_if(received.begin(), received.end(),
                       [&](const Received& r) { return r.msg == msg && r.wParam == wParam; });
}

TEST_F(X11Test, RealClicksArriveAsMessagesAndATimelySecondPressAsADoubleClick) {
  HWND form = NewWindow(100, 100, 300, 200);
  HWND child = NewWindow(20, 30, 100, 80, form);
  platform->ProcessPendingEvents();
  Xdotool("mousemove 150 160 click 1");
  ASSERT_TRUE(WaitFor([&] { return MessagesOf(child, {WM_LBUTTONUP}).size() == 1; }));
  EXPECT_EQ(MessagesOf(child, {WM_MOUSEMOVE, WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK}),
            (std::vector<UINT>{WM_MOUSEMOVE, WM_LBUTTONDOWN, WM_LBUTTONUP}));
  auto down = std::find_if(received.begin(), received.end(),
                           [](const Received& r) { return r.msg == WM_LBUTTONDOWN; });
  EXPECT_EQ(GET_X_LPARAM(down->lParam), 30);
  EXPECT_EQ(GET_Y_LPARAM(down->lParam), 30);
  EXPECT_EQ(platform->GetFocus(), child);

  // Elsewhere, so the first of these presses does not pair with the click above; the
  // third press starts over.
  received.clear();
  Xdotool("mousemove 160 170 click --repeat 3 --delay 60 1");
  ASSERT_TRUE(WaitFor([&] { return MessagesOf(child, {WM_LBUTTONUP}).size() == 3; }));
  EXPECT_EQ(MessagesOf(child, {WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK}),
            (std::vector<UINT>{WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK, WM_LBUTTONUP,
                               WM_LBUTTONDOWN, WM_LBUTTONUP}));
}

TEST_F(X11Test, TypedKeysReachTheFocusedWindowAsKeysAndCharacters) {
  HWND form = NewWindow(100, 100, 300, 200, 0, "Keys");
  NewWindow(10, 10, 50, 50, form);
  HWND field = NewWindow(70, 10, 50, 50, form);
  platform->SetFocus(field);
  platform->ProcessPendingEvents();
  received.clear();
  Xdotool("type aB1");
  Xdotool("key Left KP_7");
  ASSERT_TRUE(WaitFor([] { return CountOf(WM_KEYUP, 0x67) == 1; }));

  std::string typed;
  std::vector<WPARAM> keys;
  for (const Received& r : received) {
    EXPECT_EQ(r.hwnd, field);
    if (r.msg == WM_CHAR) {
      typed += static_cast<char>(r.wParam);
    } else if (r.msg == WM_KEYDOWN) {
      keys.push_back(r.wParam);
    }
  }
  EXPECT_EQ(typed, "aB17");
  EXPECT_EQ(keys, (std::vector<WPARAM>{'A', VK_SHIFT, 'B', '1', VK_LEFT, 0x67}));
}

TEST_F(X11Test, TheFocusLeavesWithTheKeyboardAndComesBackWithIt) {
  HWND form = NewWindow(100, 100, 300, 200, 0, "Focus");
  HWND field = NewWindow(10, 10, 50, 50, form);
  platform->SetFocus(field);
  platform->ProcessPendingEvents();
  received.clear();
  XSetInputFocus(display, root, RevertToParent, CurrentTime);
  ASSERT_TRUE(WaitForMessage(WM_KILLFOCUS));
  EXPECT_EQ(platform->GetFocus(), 0u);
  XSetInputFocus(display, platform->XWindowOf(form), RevertToParent, CurrentTime);
  ASSERT_TRUE(WaitForMessage(WM_SETFOCUS));
  EXPECT_EQ(platform->GetFocus(), field);
}

TEST_F(X11Test, TimersFireInRealTime) {
  HWND hwnd = NewWindow(0, 0, 10, 10);
  platform->ProcessPendingEvents();
  auto start = std::chrono::steady_clock::now();
  platform->SetTimer(hwnd, 7, 50);
  ASSERT_TRUE(WaitForMessage(WM_TIMER));
  auto elapsed = std::chrono::steady_clock::now() - start;
  EXPECT_GE(elapsed, std::chrono::milliseconds(30));
  EXPECT_LE(elapsed, std::chrono::milliseconds(500));
}

// A drop-down's way with an outside click: the hook sees the press first, closes the
// pop-up and gives it back; the press still reaches its target.
HWND popUp = 0, popUpHome = 0;

LRESULT OutsideClickHook(int nCode, WPARAM wParam, LPARAM lParam) {
  const auto& mouse = *reinterpret_cast<const MOUSEHOOKSTRUCT*>(lParam);
  Platform& platform = Platform::Current();
  if (wParam == WM_LBUTTONDOWN) {
    received.push_back({0, WM_USER, wParam, MAKELPARAM(mouse.pt.x, mouse.pt.y)});
    if (!platform.GetWindowRect(popUp).Contains(mouse.pt)) {
      platform.ShowWindow(popUp, SW_HIDE);
      platform.SetParent(popUp, popUpHome);
    }
  }
  return platform.CallNextHookEx(0, nCode, wParam, lParam);
}

TEST_F(X11Test, AnOutsideClickPassesTheMouseHookAndStillReachesItsTarget) {
  popUpHome = NewWindow(100, 100, 400, 300, 0, "Form");
  HWND target = NewWindow(10, 10, 80, 40, popUpHome);
  popUp = NewWindow(200, 50, 100, 100, popUpHome);
  platform->ShowWindow(popUp, SW_HIDE);
  platform->MoveWindow(popUp, 600, 500, 100, 100, false);
  platform->SetParent(popUp, platform->GetDesktopWindow());
  platform->ShowWindow(popUp, SW_SHOW);
  HHOOK hook =
      platform->SetWindowsHookEx(WH_MOUSE, OutsideClickHook, 0, platform->GetCurrentThreadId());
  platform->ProcessPendingEvents();
  EXPECT_EQ(Geometry(popUp).parent, root);
  received.clear();

  Xdotool("mousemove 130 150 click 1");
  ASSERT_TRUE(WaitFor([&] { return MessagesOf(target, {WM_LBUTTONUP}).size() == 1; }));
  platform->UnhookWindowsHookEx(hook);
  std::vector<Received> presses;
  std::copy_if(received.begin(), received.end(), std::back_inserter(presses),
               [](const Received& r) { return r.msg == WM_USER || r.msg == WM_LBUTTONDOWN; });
  ASSERT_EQ(presses.size(), 2u);
  EXPECT_EQ(presses[0].msg, WM_USER);
  EXPECT_EQ(presses[0].lParam, MAKELPARAM(130, 150));
  EXPECT_EQ(presses[1].hwnd, target);
  XGeometry given = Geometry(popUp);
  EXPECT_EQ(given.parent, platform->XWindowOf(popUpHome));
  EXPECT_FALSE(given.viewable);
  EXPECT_FALSE(given.overrideRedirect);
}

class Probe : public Control {
public:
  using Control::Control;
  std::string ClassName() const override { return "Probe"; }
  std::string typed;

protected:
  void OnKeyPress(int16_t& keyAscii) override { typed += static_cast<char>(keyAscii); }
};

HWND scriptedForm = 0;

// A script run from a thread timer, as a demo would: type, then close the form from the
// window manager's side.
void FormScript(HWND, UINT, uintptr_t id, uint32_t) {
  static int step = 0;
  auto& platform = static_cast<X11Platform&>(Platform::Current());
  if (step++ == 0) {
    std::system("xdotool type ok");
    return;
  }
  platform.KillTimer(0, id);
  Display* display = platform.XDisplay();
  XEvent close{};
  close.xclient.type = ClientMessage;
  close.xclient.window = platform.XWindowOf(scriptedForm);
  close.xclient.message_type = XInternAtom(display, "WM_PROTOCOLS", False);
  close.xclient.format = 32;
  close.xclient.data.l[0] = static_cast<long>(XInternAtom(display, "WM_DELETE_WINDOW", False));
  XSendEvent(display, close.xclient.window, False, 0, &close);
}

TEST_F(X11Test, AFormRunsUntilTheWindowManagerClosesIt) {
  Container form(300, 200, "Demo");
  auto& probe = static_cast<Probe&>(form.Add(std::make_unique<Probe>(), "Probe1", 10, 10, 100, 30));
  probe.SetFocus();
  scriptedForm = form.hWnd();
  platform->SetTimer(0, 0, 100, FormScript);
  platform->Run();
  EXPECT_EQ(probe.typed, "ok");
  EXPECT_FALSE(platform->IsWindowVisible(form.hWnd()));
}

HWND boxOwner = 0;
std::string boxCaption;
bool ownerEnabled = true;

// Answers the message box on the screen with a key, noting what has the keyboard.
template <const char* Key> void AnswerWith(HWND, UINT, uintptr_t id, uint32_t) {
  auto& platform = static_cast<X11Platform&>(Platform::Current());
  platform.KillTimer(0, id);
  Window focused = 0;
  int revertTo = 0;
  XGetInputFocus(platform.XDisplay(), &focused, &revertTo);
  char* name = nullptr;
  XFetchName(platform.XDisplay(), focused, &name);
  boxCaption = name ? name : "";
  XFree(name);
  ownerEnabled = platform.IsWindowEnabled(boxOwner);
  std::system((std::string("xdotool key ") + Key).c_str());
}

constexpr char Return[] = "Return";
constexpr char Escape[] = "Escape";

TEST_F(X11Test, AMessageBoxOnScreenWaitsForItsAnswerAndGivesTheFocusBack) {
  HWND form = boxOwner = NewWindow(100, 100, 300, 200, 0, "Owner");
  HWND field = NewWindow(10, 10, 50, 50, form);
  platform->SetFocus(field);
  platform->ProcessPendingEvents();

  platform->SetTimer(0, 0, 100, AnswerWith<Return>);
  EXPECT_EQ(platform->MessageBox(field, "Saved.", "Demo", MB_OK), IDOK);
  EXPECT_EQ(boxCaption, "Demo");
  EXPECT_FALSE(ownerEnabled);
  EXPECT_TRUE(platform->IsWindowEnabled(form));
  EXPECT_EQ(platform->GetFocus(), field);

  platform->SetTimer(0, 0, 100, AnswerWith<Escape>);
  EXPECT_EQ(platform->MessageBox(field, "Keep the changes?", "Demo", MB_YESNO), IDNO);
}

} // namespace
} // namespace tarnbrook
