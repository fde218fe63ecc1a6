// A modal message box: a window of the platform's own with the text and a row of buttons,
// answered by a click on a button, Enter (the first button) or Escape (the last).
#include <algorithm>
#include <limits>
#include <vector>

#include "common/ole_color.hpp"
#include "common/push_tracker.hpp"
#include "platform/x11/x11_platform.hpp"

namespace tarnbrook {

namespace {

constexpr int32_t Margin = 12;
constexpr int32_t ButtonWidth = 75;
constexpr int32_t ButtonHeight = 23;
constexpr int32_t ButtonGap = 6;
constexpr int32_t WidestText = 400;
constexpr uint32_t Forever = std::numeric_limits<uint32_t>::max();

struct Button {
  std::string label;
  int answer;
  Rect rect;
};

struct MessageBoxState {
  std::string text;
  std::vector<Button> buttons;
  Rect textRect;
  int held = -1; // the button the mouse went down on
  PushTracker push;
  int answer = 0;
};

std::vector<Button> ButtonsFor(UINT type) {
  switch (type & 0xF) {
  case MB_OKCANCEL:
    return {{"OK", IDOK, {}}, {"Cancel", IDCANCEL, {}}};
  case MB_YESNO:
    return {{"Yes", IDYES, {}}, {"No", IDNO, {}}};
  default:
    return {{"OK", IDOK, {}}};
  }
}

// The text on top, the buttons centred below it; returns the client size.
Size Layout(MessageBoxState& box) {
  Canvas measure(1, 1);
  Rect text{0, 0, WidestText, 0};
  measure.DrawText(box.text, &text, DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX);
  int32_t count = static_cast<int32_t>(box.buttons.size());
  int32_t row = count * ButtonWidth + (count - 1) * ButtonGap;
  int32_t width = std::max(text.Width(), row) + 2 * Margin;
  box.textRect = {Margin, Margin, Margin + text.Width(), Margin + text.Height()};
  int32_t left = (width - row) / 2, top = box.textRect.bottom + Margin;
  for (Button& button : box.buttons) {
    button.rect = {left, top, left + ButtonWidth, top + ButtonHeight};
    left += ButtonWidth + ButtonGap;
  }
  return {width, top + ButtonHeight + Margin};
}

int ButtonAt(const MessageBoxState& box, LPARAM lParam) {
  Point at{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
  for (size_t i = 0; i < box.buttons.size(); ++i) {
    if (box.buttons[i].rect.Contains(at)) {
      return static_cast<int>(i);
    }
  }
  return -1;
}

void Paint(const MessageBoxState& box, Canvas& canvas, const Rect& client) {
  canvas.FillRect(client, static_cast<COLORREF>(TranslateColor(vbButtonFace)));
  canvas.SetBkMode(TRANSPARENT);
  canvas.SetTextColor(static_cast<COLORREF>(TranslateColor(vbButtonText)));
  canvas.DrawText(box.text, box.textRect, DT_LEFT | DT_WORDBREAK | DT_NOPREFIX);
  for (size_t i = 0; i < box.buttons.size(); ++i) {
    const Button& button = box.buttons[i];
    uint32_t state = DFCS_BUTTONPUSH;
    if (box.held == static_cast<int>(i) && box.push.Pushed()) {
      state |= DFCS_PUSHED;
    }
    canvas.DrawFrameControl(button.rect, DFC_BUTTON, state);
    canvas.DrawText(button.label, button.rect,
                    DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
  }
}

LRESULT MessageBoxProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) {
  Platform& platform = Platform::Current();
  auto* box = reinterpret_cast<MessageBoxState*>(platform.GetWindowLong(hwnd, GWL_USERDATA));
  if (!box) {
    return 0;
  }
  switch (msg) {
  case WM_PAINT:
    Paint(*box, *Canvas::FromHandle(platform.GetDC(hwnd)), platform.GetClientRect(hwnd));
    break;
  case WM_LBUTTONDOWN:
    box->held = ButtonAt(*box, lParam);
    if (box->held >= 0 && box->push.Press(true)) {
      platform.InvalidateRect(hwnd);
    }
    break;
  case WM_MOUSEMOVE:
    if (box->push.Move(box->held >= 0 && ButtonAt(*box, lParam) == box->held)) {
      platform.InvalidateRect(hwnd);
    }
    break;
  case WM_LBUTTONUP:
    if (box->push.Release(box->held >= 0 && ButtonAt(*box, lParam) == box->held)) {
      box->answer = box->buttons[box->held].answer;
    }
    box->held = -1;
    platform.InvalidateRect(hwnd);
    break;
  case WM_KEYDOWN:
    if (wParam == VK_RETURN) {
      box->answer = box->buttons.front().answer;
    } else if (wParam == VK_ESCAPE) {
      box->answer = box->buttons.back().answer;
    }
    break;
  case WM_CLOSE:
    box->answer = box->buttons.back().answer;
    break;
  default:
    break;
  }
  return 0;
}

} // namespace

// Centred on the owner's form (else the screen), which takes no input meanwhile; the
// focus returns where it was.
int X11Platform::MessageBox(HWND owner, const std::string& text, const std::string& caption,
                            UINT type) {
  MessageBoxState box;
  box.text = text;
  box.buttons = ButtonsFor(type);
  Size client = Layout(box);
  HWND form = IsWindow(owner) ? TopLevelOf(owner) : 0;
  Rect around = form ? GetWindowRect(form)
                     : Rect{0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
  int32_t height = client.cy + (caption.empty() ? 0 : CaptionHeight);
  HWND hwnd = CreateWindowEx(0, caption, WS_POPUP, around.left + (around.Width() - client.cx) / 2,
                             around.top + (around.Height() - height) / 2, client.cx, height, 0,
                             MessageBoxProc);
  SetWindowLong(hwnd, GWL_USERDATA, reinterpret_cast<LONG_PTR>(&box));

  HWND focus = GetFocus();
  bool formWasEnabled = form && !EnableWindow(form, false);
  ShowWindow(hwnd, SW_SHOW);
  SetFocus(hwnd);
  RunUntil([&] { return box.answer != 0 || !IsWindow(hwnd); }, Forever);
  if (IsWindow(hwnd)) {
    SetWindowLong(hwnd, GWL_USERDATA, 0);
    DestroyWindow(hwnd);
  }
  if (formWasEnabled) {
    EnableWindow(form, true);
  }
  if (IsWindow(focus)) {
    SetFocus(focus);
  }
  return box.answer ? box.answer : box.buttons.back().answer;
}

} // namespace tarnbrook
