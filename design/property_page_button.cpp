#include "design/property_page_button.hpp"

#include "common/font.hpp"
#include "common/ole_color.hpp"
#include "draw/canvas.hpp"
#include "host/standard_text.hpp"
#include "platform/platform.hpp"

namespace tarnbrook {

PageButton::PageButton(HWND parent, std::string caption)
    : Control(parent), caption_(std::move(caption)) {}

void PageButton::SetCaption(const std::string& caption) {
  caption_ = caption;
  Refresh();
}

void PageButton::Click() {
  if (!Enabled() || !onClick_)
    return;
  // The handler may close the dialog that owns this button: keep it alive for the call.
  auto handler = onClick_;
  handler();
}

void PageButton::SetEnabled(bool enabled) {
  Control::SetEnabled(enabled);
  mouse_.Cancel();
  Refresh();
}

bool PageButton::Inside(float x, float y) const {
  return x >= 0 && y >= 0 && x < ScaleWidth() && y < ScaleHeight();
}

void PageButton::OnPaint() {
  cMDC& surface = Surface();
  if (!surface.hDC())
    return;
  Canvas& canvas = *Canvas::FromHandle(surface.hDC());
  Rect all{0, 0, surface.Width(), surface.Height()};
  canvas.FillRect(all, static_cast<COLORREF>(GetSysColor(COLOR_BTNFACE)));
  canvas.DrawFrameControl(all, DFC_BUTTON,
                          mouse_.Pushed() ? DFCS_BUTTONPUSH | DFCS_PUSHED : DFCS_BUTTONPUSH);
  SelectFont(surface, Font());
  canvas.SetBkMode(TRANSPARENT);
  Rect text = all;
  if (mouse_.Pushed())
    text = {all.left + 1, all.top + 1, all.right + 1, all.bottom + 1};
  constexpr uint32_t Flags = DT_CENTER | DT_VCENTER | DT_SINGLELINE;
  if (!Enabled()) {
    canvas.SetTextColor(static_cast<COLORREF>(GetSysColor(COLOR_BTNHIGHLIGHT)));
    canvas.DrawText(caption_, Rect{text.left + 1, text.top + 1, text.right + 1, text.bottom + 1},
                    Flags);
    canvas.SetTextColor(static_cast<COLORREF>(GetSysColor(COLOR_GRAYTEXT)));
  } else {
    canvas.SetTextColor(static_cast<COLORREF>(GetSysColor(COLOR_BTNTEXT)));
  }
  canvas.DrawText(caption_, text, Flags);
  if (Platform::Current().GetFocus() == hWnd())
    canvas.DrawFocusRect(Rect{all.left + 4, all.top + 4, all.right - 4, all.bottom - 4});
}

void PageButton::OnMouseDown(int16_t button, int16_t, float x, float y) {
  if (button != vbLeftButton || !Enabled())
    return;
  mouse_.Press(Inside(x, y)); // the control holds the capture while the button is down
  Refresh();
}

void PageButton::OnMouseMove(int16_t, int16_t, float x, float y) {
  if (mouse_.Move(Inside(x, y)))
    Refresh();
}

void PageButton::OnMouseUp(int16_t button, int16_t, float x, float y) {
  if (button != vbLeftButton || !mouse_.Held())
    return;
  const bool pressed = mouse_.Release(Inside(x, y));
  Refresh();
  if (pressed)
    Click();
}

void PageButton::OnKeyDown(int16_t& keyCode, int16_t) {
  if (keyCode == VK_SPACE || keyCode == VK_RETURN)
    Click();
}

} // namespace tarnbrook
