#include "host/about_box.hpp"
#include "host/container.hpp"
#include "tests/x11/x11_fixture.hpp"

namespace tarnbrook {
namespace {

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
  EXPECT_EQ(down->lParam, MAKELPARAM(30, 30));

  // Elsewhere, so the first of these presses does not pair with the click above; the
  // third press starts over.
  received.clear();
  Xdotool("mousemove 160 170 click --repeat 3 --delay 60 1");
  ASSERT_TRUE(WaitFor([&] { return MessagesOf(child, {WM_LBUTTONUP}).size() == 3; }));
  EXPECT_EQ(MessagesOf(child, {WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK}),
            (std::vector<UINT>{WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK, WM_LBUTTONUP,
                               WM_LBUTTONDOWN, WM_LBUTTONUP}));

  // Buttons 4 and 5 are the wheel's notches, away from the user and back, not presses.
  received.clear();
  Xdotool("click 4 click 5");
  ASSERT_TRUE(WaitFor([&] { return MessagesOf(child, {WM_MOUSEWHEEL}).size() == 2; }));
  std::vector<int32_t> deltas;
  for (WPARAM wParam : ParamsOf(child, WM_MOUSEWHEEL))
    deltas.push_back(GET_WHEEL_DELTA_WPARAM(wParam));
  EXPECT_EQ(deltas, (std::vector<int32_t>{WHEEL_DELTA, -WHEEL_DELTA}));
  EXPECT_TRUE(MessagesOf(child, {WM_LBUTTONDOWN, WM_LBUTTONUP}).empty());
}

TEST_F(X11Test, KeysReachTheFocusedWindowWhichLosesTheFocusWithTheKeyboard) {
  HWND form = NewWindow(100, 100, 300, 200, 0, "Keys");
  HWND field = NewWindow(70, 10, 50, 50, form);
  platform->SetFocus(field);
  platform->ProcessPendingEvents();
  received.clear();
  Xdotool("type aB1");
  Xdotool("key Left KP_7");
  ASSERT_TRUE(WaitFor([&] { return MessagesOf(field, {WM_KEYUP}).size() == 6; }));
  EXPECT_EQ(ParamsOf(field, WM_CHAR), (std::vector<WPARAM>{'a', 'B', '1', '7'}));
  EXPECT_EQ(ParamsOf(field, WM_KEYDOWN),
            (std::vector<WPARAM>{'A', VK_SHIFT, 'B', '1', VK_LEFT, 0x67}));

  received.clear();
  XSetInputFocus(display, root, RevertToParent, CurrentTime);
  ASSERT_TRUE(WaitFor([&] { return platform->GetFocus() == 0; }));
  XSetInputFocus(display, platform->XWindowOf(form), RevertToParent, CurrentTime);
  ASSERT_TRUE(WaitFor([&] { return platform->GetFocus() == field; }));
  EXPECT_EQ(MessagesOf(field, {WM_KILLFOCUS, WM_SETFOCUS}),
            (std::vector<UINT>{WM_KILLFOCUS, WM_SETFOCUS}));
}

// A drop-down's way with an outside click: the hook sees the press first (noted as a
// WM_USER of the target), hides the pop-up and gives it back; the press still arrives.
HWND popUp = 0, popUpHome = 0;

LRESULT OutsideClickHook(int nCode, WPARAM wParam, LPARAM lParam) {
  const auto& mouse = *reinterpret_cast<const MOUSEHOOKSTRUCT*>(lParam);
  Platform& platform = Platform::Current();
  if (wParam == WM_LBUTTONDOWN && !platform.GetWindowRect(popUp).Contains(mouse.pt)) {
    received.push_back({mouse.hwnd, WM_USER, wParam, MAKELPARAM(mouse.pt.x, mouse.pt.y)});
    platform.ShowWindow(popUp, SW_HIDE);
    platform.SetParent(popUp, popUpHome);
  }
  return platform.CallNextHookEx(0, nCode, wParam, lParam);
}

TEST_F(X11Test, AnOutsideClickPassesTheMouseHookAndStillReachesItsTarget) {
  popUpHome = NewWindow(100, 100, 400, 300, 0, "Form");
  HWND target = NewWindow(10, 10, 80, 40, popUpHome);
  popUp = NewWindow(600, 500, 100, 100);
  platform->SetWindowsHookEx(WH_MOUSE, OutsideClickHook, 0, platform->GetCurrentThreadId());
  platform->ProcessPendingEvents();
  received.clear();
  Xdotool("mousemove 130 150 click 1");
  ASSERT_TRUE(WaitFor([&] { return MessagesOf(target, {WM_LBUTTONUP}).size() == 1; }));
  EXPECT_EQ(MessagesOf(target, {WM_USER, WM_LBUTTONDOWN}),
            (std::vector<UINT>{WM_USER, WM_LBUTTONDOWN}));
  EXPECT_EQ(Geometry(popUp),
            (XGeometry{{700, 620, 800, 720}, platform->XWindowOf(popUpHome), false, false}));
}

HWND scriptedForm = 0;

// What the window manager does for the close box, from a timer as a demo's script would.
void CloseTheForm(HWND, UINT, uintptr_t id, uint32_t) {
  auto& platform = static_cast<X11Platform&>(Platform::Current());
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
  scriptedForm = form.hWnd();
  platform->SetTimer(0, 0, 100, CloseTheForm);
  platform->Run();
  EXPECT_FALSE(platform->IsWindowVisible(form.hWnd()));
}

HWND boxOwner = 0;
bool ownerEnabled = true, aboutHadTheFocus = false;

// Notes what the open box left of its owner and presses Return on the real keyboard, which
// the box has.
void PressReturn(HWND, UINT, uintptr_t id, uint32_t) {
  Platform::Current().KillTimer(0, id);
  ownerEnabled = Platform::Current().IsWindowEnabled(boxOwner);
  aboutHadTheFocus = AboutBox::Current() != nullptr &&
                     Platform::Current().GetFocus() == AboutBox::Current()->hWnd();
  std::system("xdotool key Return");
}

TEST_F(X11Test, BoxesOnScreenWaitForReturnAndGiveTheFocusBack) {
  HWND form = boxOwner = NewWindow(100, 100, 300, 200, 0, "Owner");
  HWND field = NewWindow(10, 10, 50, 50, form);
  platform->SetFocus(field);
  // The timer that answers fires in real time, neither at once nor much later.
  const auto start = std::chrono::steady_clock::now();
  platform->SetTimer(0, 0, 100, PressReturn);
  EXPECT_EQ(platform->MessageBox(field, "Keep the changes?", "Demo", MB_YESNO), IDYES);
  const auto waited = std::chrono::steady_clock::now() - start;
  EXPECT_GE(waited, std::chrono::milliseconds(100));
  EXPECT_LE(waited, std::chrono::milliseconds(1000));
  EXPECT_FALSE(ownerEnabled);
  EXPECT_TRUE(platform->IsWindowEnabled(form));
  EXPECT_EQ(platform->GetFocus(), field);

  ownerEnabled = true;
  platform->SetTimer(0, 0, 150, PressReturn);
  ShowAboutBox("MonthCalendar", field);
  EXPECT_TRUE(aboutHadTheFocus);
  EXPECT_FALSE(ownerEnabled);
  EXPECT_EQ(AboutBox::Current(), nullptr);
  EXPECT_TRUE(platform->IsWindowEnabled(form));
  EXPECT_EQ(platform->GetFocus(), field);
}

} // namespace
} // namespace tarnbrook
