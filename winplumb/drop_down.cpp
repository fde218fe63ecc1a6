#include "winplumb/drop_down.hpp"
#include "common/scoped_flag.hpp"

#include "winplumb/drop_down_placement.hpp"
#include "winplumb/mouse_lparam.hpp"

namespace tarnbrook {

namespace {

constexpr uint32_t AnimationMilliseconds = 100;

bool IsButtonDown(WPARAM message) {
  switch (message) {
  case WM_LBUTTONDOWN:
  case WM_RBUTTONDOWN:
  case WM_MBUTTONDOWN:
  case WM_NCLBUTTONDOWN:
  case WM_NCRBUTTONDOWN:
  case WM_NCMBUTTONDOWN:
    return true;
  default:
    return false;
  }
}

} // namespace

cDropDown::~cDropDown() {
  if (hooked_) {
    Hide();
  }
}

void cDropDown::Show(HWND Control, int32_t X, int32_t Y, int32_t Width, int32_t Height,
                     int32_t ParentHeight, int32_t eType, bool& AutoHide) {
  Platform& platform = Platform::Current();
  if (control_ != Control) { // shown again where it is up: its parent is the desktop now
    control_ = Control;
    formerParent_ = platform.GetParent(Control);
  }

  // A tool window stays off the task bar.
  LONG_PTR exStyle = platform.GetWindowLong(Control, GWL_EXSTYLE);
  exStyle = (exStyle | WS_EX_TOOLWINDOW) & ~static_cast<LONG_PTR>(WS_EX_APPWINDOW);
  platform.SetWindowLong(Control, GWL_EXSTYLE, exStyle);

  DropDownPlacement placement =
      PlaceDropDown(Y, Height, ParentHeight, platform.WorkAreaOrScreen().bottom);
  platform.MoveWindow(Control, X, placement.Y, Width, Height, false);
  platform.SetParent(Control, platform.GetDesktopWindow());

  if (eType != 0) {
    // A window that cannot animate is still shown below.
    platform.AnimateWindow(Control, AnimationMilliseconds,
                           DropDownAnimationFlags(eType, placement.direction));
  }
  platform.ShowWindow(Control, SW_SHOW);

  if (AutoHide && !hooked_) {
    InstallHook(this, WH_MOUSE);
    hooked_ = true;
  }
}

void cDropDown::Hide() {
  Platform& platform = Platform::Current();
  if (hooked_) {
    RemoveHook(this, WH_MOUSE);
    hooked_ = false;
  }
  platform.ShowWindow(control_, SW_HIDE);
  if (formerParent_ != 0) {
    platform.SetParent(control_, formerParent_);
  }
  control_ = 0;
  formerParent_ = 0;
  events_.Raise(&cDropDownEvents::Hidden);
}

// Never consumes: a click outside both closes the pop-up and reaches its target.
void cDropDown::HookProc(int32_t, int32_t, WPARAM wParam, LPARAM lParam, bool&) {
  if (busy_) {
    return; // the hook came back while the owner or Hide runs
  }
  const ScopedFlag busy(busy_);
  if (IsButtonDown(wParam)) {
    MouseTest(lParam);
  }
}

void cDropDown::MouseTest(LPARAM lParam) {
  if (CurrentHookType() != WH_MOUSE) {
    return; // only the mouse hook's lParam is a mouse record
  }
  cMouselParam mouse;
  mouse.Init(lParam);
  popupRect_ = Platform::Current().GetWindowRect(control_);
  if (PtInRect(popupRect_, {mouse.X(), mouse.Y()})) {
    return;
  }
  bool dontHide = false;
  events_.Raise(&cDropDownEvents::MouseDownOutside, dontHide);
  if (!dontHide) {
    Hide();
  }
}

} // namespace tarnbrook
