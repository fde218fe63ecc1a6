#include "host/control.hpp"

#include <algorithm>
#include <utility>
#include <vector>

#include "common/dispatch_depth.hpp"
#include "platform/escaped_error.hpp"
#include "platform/platform.hpp"

namespace tarnbrook {
namespace {

int16_t ShiftState(Platform& platform) {
  int16_t shift = 0;
  if (platform.GetKeyState(VK_SHIFT) < 0)
    shift |= vbShiftMask;
  if (platform.GetKeyState(VK_CONTROL) < 0)
    shift |= vbCtrlMask;
  if (platform.GetKeyState(VK_MENU) < 0)
    shift |= vbAltMask;
  return shift;
}

int16_t ButtonsHeld(WPARAM wParam) {
  int16_t buttons = 0;
  if (wParam & MK_LBUTTON)
    buttons |= vbLeftButton;
  if (wParam & MK_RBUTTON)
    buttons |= vbRightButton;
  if (wParam & MK_MBUTTON)
    buttons |= vbMiddleButton;
  return buttons;
}

// Errors escaping a window procedure or hook go to the site of the control they came from.
void ReportToControl(HWND hwnd, const ControlError& error) {
  Platform& platform = Platform::Current();
  for (HWND window = hwnd; window && platform.IsWindow(window);
       window = platform.GetParent(window)) {
    if (Control* control = Control::FromHandle(window)) {
      control->ReportError(error);
      return;
    }
  }
  ControlSite::Standalone().ReportError(error);
}

} // namespace

Control::Control(HWND parent) {
  SetEscapedErrorReporter(ReportToControl);
  Platform& platform = Platform::Current();
  uint32_t style = parent ? WS_CHILD | WS_VISIBLE : WS_POPUP;
  hwnd_ = platform.CreateWindowEx(0, "", style, 0, 0, 0, 0, parent, WindowProc);
  platform.SetWindowLong(hwnd_, GWL_USERDATA, reinterpret_cast<LONG_PTR>(this));
  Enlist();
}

Control::~Control() {
  Delist();
  Platform& platform = Platform::Current();
  if (!platform.IsWindow(hwnd_))
    return;
  // Messages sent while the window goes must not reach a half-destroyed object.
  platform.SetWindowLong(hwnd_, GWL_USERDATA, 0);
  if (platform.GetCapture() == hwnd_)
    platform.ReleaseCapture();
  platform.DestroyWindow(hwnd_);
}

HWND Control::Parent() const {
  return Platform::Current().GetParent(hwnd_);
}

int32_t Control::Width() const {
  return ScaleWidth() * site_->TwipsPerPixelX();
}

int32_t Control::Height() const {
  return ScaleHeight() * site_->TwipsPerPixelY();
}

int32_t Control::ScaleWidth() const {
  return Platform::Current().GetClientRect(hwnd_).Width();
}

int32_t Control::ScaleHeight() const {
  return Platform::Current().GetClientRect(hwnd_).Height();
}

void Control::Move(int32_t left, int32_t top, int32_t width, int32_t height) {
  ConstrainSize(width, height);
  // No surface is larger; a far edge beyond the coordinates would not be one.
  if (width < 0 || height < 0 || width > MaxSurfaceSize || height > MaxSurfaceSize ||
      int64_t(left) + width > INT32_MAX || int64_t(top) + height > INT32_MAX)
    RaiseRuntimeError(rtInvalidPropertyValue);
  Platform::Current().MoveWindow(hwnd_, left, top, width, height, true);
}

bool Control::Visible() const {
  return Platform::Current().IsWindowVisible(hwnd_);
}

void Control::SetVisible(bool visible) {
  Platform::Current().ShowWindow(hwnd_, visible ? SW_SHOW : SW_HIDE);
}

bool Control::Enabled() const {
  return Platform::Current().IsWindowEnabled(hwnd_);
}

void Control::SetEnabled(bool enabled) {
  Platform::Current().EnableWindow(hwnd_, enabled);
}

namespace {

struct PendingPaints {
  int depth = 0;
  std::vector<HWND> windows;
};

PendingPaints& Pending() {
  thread_local PendingPaints pending;
  return pending;
}

} // namespace

HWND FormOf(HWND hwnd) {
  Platform& platform = Platform::Current();
  if (!hwnd || !platform.IsWindow(hwnd))
    return 0;
  while (HWND parent = platform.GetParent(hwnd))
    hwnd = parent;
  return hwnd;
}

PaintBatch::PaintBatch(bool paintAtEnd) : paintAtEnd_(paintAtEnd) {
  ++Pending().depth;
}

PaintBatch::~PaintBatch() {
  PendingPaints& pending = Pending();
  if (--pending.depth > 0)
    return;
  std::vector<HWND> windows = std::exchange(pending.windows, {});
  Platform& platform = Platform::Current();
  if (!paintAtEnd_ || platform.Dispatching())
    return; // the windows stay invalid
  for (HWND hwnd : windows)
    platform.UpdateWindow(hwnd); // nothing for a window gone or already painted
}

// While a person's action or a timer is handled, the control is painted once, when the
// queue runs dry; a program's own call paints at once, or at the end of its batch.
void Control::Refresh() {
  Platform& platform = Platform::Current();
  platform.InvalidateRect(hwnd_);
  if (PendingPaints& pending = Pending(); pending.depth > 0) {
    if (std::find(pending.windows.begin(), pending.windows.end(), hwnd_) == pending.windows.end())
      pending.windows.push_back(hwnd_);
  } else if (!platform.Dispatching()) {
    platform.UpdateWindow(hwnd_);
  }
}

void Control::PaintNow() {
  Platform& platform = Platform::Current();
  platform.InvalidateRect(hwnd_);
  platform.UpdateWindow(hwnd_);
}

void Control::SetFocus() {
  Platform::Current().SetFocus(hwnd_);
}

LRESULT Control::WindowMessage(UINT, WPARAM, LPARAM) {
  return 0;
}

void Control::ReportError(const ControlError& error) {
  if (site_ == &ControlSite::Standalone()) {
    Platform& platform = Platform::Current();
    for (HWND window = Parent(); window; window = platform.GetParent(window)) {
      if (Control* owner = FromHandle(window)) {
        owner->ReportError(error);
        return;
      }
    }
  }
  site_->ReportError(error);
}

LRESULT Control::WindowProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) {
  auto* control = reinterpret_cast<Control*>(Platform::Current().GetWindowLong(hwnd, GWL_USERDATA));
  if (!control)
    return 0;
  DispatchDepth running; // a handler below may remove the control: it stays until this returns
  try {
    return control->Route(msg, wParam, lParam);
  } catch (...) {
    // The control may have gone in its own handler; the window's user data says.
    ReportCurrentException(hwnd);
    return 0;
  }
}

LRESULT Control::Route(UINT msg, WPARAM wParam, LPARAM lParam) {
  Platform& platform = Platform::Current();
  switch (msg) {
  case WM_LBUTTONDOWN:
  case WM_RBUTTONDOWN:
  case WM_MBUTTONDOWN:
  case WM_RBUTTONDBLCLK:
  case WM_MBUTTONDBLCLK:
  case WM_LBUTTONDBLCLK:
  case WM_LBUTTONUP:
  case WM_RBUTTONUP:
  case WM_MBUTTONUP:
    MouseButton(msg, wParam, lParam);
    return 0;
  case WM_MOUSEWHEEL:
    MouseWheel(wParam, lParam);
    return 0;
  case WM_MOUSEMOVE:
    OnMouseMove(ButtonsHeld(wParam), ShiftState(platform), float(GET_X_LPARAM(lParam)),
                float(GET_Y_LPARAM(lParam)));
    return 0;
  case WM_KEYDOWN:
  case WM_KEYUP: {
    auto keyCode = static_cast<int16_t>(wParam);
    // Tab, typed or posted, moves the focus on the form; no control sees it as its key.
    if (msg == WM_KEYDOWN && keyCode == VK_TAB && !(ShiftState(platform) & ~vbShiftMask)) {
      MoveFocusByTab(!(ShiftState(platform) & vbShiftMask));
      return 0;
    }
    if (msg == WM_KEYDOWN)
      OnKeyDown(keyCode, ShiftState(platform));
    else
      OnKeyUp(keyCode, ShiftState(platform));
    return 0;
  }
  case WM_CHAR: {
    if (wParam == '\t')
      return 0;
    auto keyAscii = static_cast<int16_t>(wParam);
    OnKeyPress(keyAscii);
    return 0;
  }
  case WM_SETFOCUS:
    OnGotFocus();
    return 0;
  case WM_KILLFOCUS:
    OnLostFocus();
    return 0;
  case WM_SIZE: {
    Rect client = platform.GetClientRect(hwnd_);
    surface_.Resize(client.Width(), client.Height());
    OnResize();
    return 0;
  }
  case WM_PAINT:
    OnPaint();
    CopySurfaceToWindow();
    return 0;
  case WM_PRINTCLIENT:
    PrintClient(static_cast<HDC>(wParam));
    return 0;
  case WM_TIMER:
    OnTimer(wParam);
    return 0;
  case WM_MOUSEACTIVATE:
    return MouseActivate();
  default:
    return WindowMessage(msg, wParam, lParam);
  }
}

void Control::MouseButton(UINT msg, WPARAM wParam, LPARAM lParam) {
  Platform& platform = Platform::Current();
  int16_t shift = ShiftState(platform);
  float x = float(GET_X_LPARAM(lParam)), y = float(GET_Y_LPARAM(lParam));
  int16_t button =
      (msg == WM_LBUTTONDOWN || msg == WM_LBUTTONUP || msg == WM_LBUTTONDBLCLK)   ? vbLeftButton
      : (msg == WM_RBUTTONDOWN || msg == WM_RBUTTONUP || msg == WM_RBUTTONDBLCLK) ? vbRightButton
                                                                                  : vbMiddleButton;

  if (msg == WM_LBUTTONUP || msg == WM_RBUTTONUP || msg == WM_MBUTTONUP) {
    OnMouseUp(button, shift, x, y);
    // The capture taken on the first press ends with the last release.
    if (ButtonsHeld(wParam) == 0 && platform.GetCapture() == hwnd_)
      platform.ReleaseCapture();
    return;
  }
  // A press takes the focus and the mouse, so that a drag is followed outside the window.
  if (HWND focused = platform.GetFocus(); focused != hwnd_ && Focusable()) {
    if (!MayTakeFocusFrom(focused))
      return;
    platform.SetFocus(hwnd_);
  }
  platform.SetCapture(hwnd_);
  if (msg == WM_LBUTTONDBLCLK)
    OnDblClick();
  else
    OnMouseDown(button, shift, x, y);
}

void Control::MouseWheel(WPARAM wParam, LPARAM lParam) {
  wheelRest_ += GET_WHEEL_DELTA_WPARAM(wParam);
  const int32_t notches = wheelRest_ / WHEEL_DELTA;
  wheelRest_ %= WHEEL_DELTA;
  Platform& platform = Platform::Current();
  if (notches == 0 || OnMouseWheel(notches, ShiftState(platform)))
    return;
  if (HWND parent = Parent())
    platform.SendMessage(parent, WM_MOUSEWHEEL, wParam, lParam);
}

void Control::PrintClient(HDC target) {
  OnPaint();
  if (target && surface_.hDC())
    surface_.Draw(target);
}

void Control::CopySurfaceToWindow() {
  if (HDC window = Platform::Current().GetDC(hwnd_); window && surface_.hDC())
    surface_.Draw(window);
}

} // namespace tarnbrook
