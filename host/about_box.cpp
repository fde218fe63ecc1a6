#include "host/about_box.hpp"

#include <algorithm>

#include "common/ole_color.hpp"
#include "draw/canvas.hpp"
#include "host/standard_text.hpp"
#include "platform/platform.hpp"

#ifndef TARNBROOK_VERSION
#define TARNBROOK_VERSION "0.0.0"
#endif

namespace tarnbrook {

std::string LibraryName() {
  return "Tarnbrook";
}

std::string LibraryVersion() {
  return TARNBROOK_VERSION;
}

std::string LibraryCopyright() {
  return "Copyright (c) 2026 Tarnbrook";
}

namespace {

constexpr int32_t Margin = 14;
constexpr int32_t LineHeight = 20;
constexpr int32_t OkWidth = 75;
constexpr int32_t OkHeight = 23;

std::vector<AboutBox*>& OpenBoxes() {
  static std::vector<AboutBox*> boxes;
  return boxes;
}

// The captioned frame around the box: closing it by the window manager closes the box.
LRESULT FrameProc(HWND hwnd, UINT msg, WPARAM, LPARAM) {
  Platform& platform = Platform::Current();
  auto* box = reinterpret_cast<AboutBox*>(platform.GetWindowLong(hwnd, GWL_USERDATA));
  if (msg == WM_CLOSE && box)
    box->Close();
  return 0;
}

} // namespace

AboutBox::AboutBox(HWND parent, std::string className)
    : Control(parent), lines_{LibraryName() + " " + LibraryVersion(), className + " control",
                              "Date-entry controls", LibraryCopyright()} {}

Rect AboutBox::OkButton() const {
  int32_t left = (ScaleWidth() - OkWidth) / 2, top = ScaleHeight() - Margin - OkHeight;
  return {left, top, left + OkWidth, top + OkHeight};
}

void AboutBox::Close() {
  closed_ = true;
}

AboutBox* AboutBox::Current() {
  return OpenBoxes().empty() ? nullptr : OpenBoxes().back();
}

void AboutBox::OnPaint() {
  cMDC& surface = Surface();
  if (!surface.hDC())
    return;
  Canvas& canvas = *Canvas::FromHandle(surface.hDC());
  Rect all{0, 0, surface.Width(), surface.Height()};
  canvas.FillRect(all, static_cast<COLORREF>(TranslateColor(vbButtonFace)));
  canvas.SetBkMode(TRANSPARENT);
  canvas.SetTextColor(static_cast<COLORREF>(TranslateColor(vbButtonText)));
  Font font;
  for (size_t i = 0; i < lines_.size(); ++i) {
    font.Bold = i == 0; // the library's name and version stand out
    SelectFont(surface, font);
    int32_t top = Margin + static_cast<int32_t>(i) * LineHeight;
    canvas.DrawText(lines_[i], Rect{Margin, top, all.right - Margin, top + LineHeight},
                    DT_LEFT | DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
  }
  Rect ok = OkButton();
  canvas.DrawFrameControl(ok, DFC_BUTTON,
                          ok_.Pushed() ? DFCS_BUTTONPUSH | DFCS_PUSHED : DFCS_BUTTONPUSH);
  font.Bold = false;
  SelectFont(surface, font);
  canvas.DrawText("OK", ok, DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
  // OK is the default button: it holds the focus rectangle.
  canvas.DrawFocusRect(Rect{ok.left + 4, ok.top + 4, ok.right - 4, ok.bottom - 4});
}

bool AboutBox::OnOk(float x, float y) const {
  return OkButton().Contains(Point{static_cast<int32_t>(x), static_cast<int32_t>(y)});
}

// OK shows pushed while the pointer stays on it, and closes the box when let go there.
void AboutBox::OnMouseDown(int16_t button, int16_t, float x, float y) {
  if (button == vbLeftButton && OnOk(x, y)) {
    ok_.Press(true);
    Refresh();
  }
}

void AboutBox::OnMouseMove(int16_t, int16_t, float x, float y) {
  if (ok_.Move(OnOk(x, y)))
    Refresh();
}

void AboutBox::OnMouseUp(int16_t button, int16_t, float x, float y) {
  if (button != vbLeftButton || !ok_.Held())
    return;
  const bool pressed = ok_.Release(OnOk(x, y));
  Refresh();
  if (pressed)
    Close();
}

void AboutBox::OnKeyDown(int16_t& keyCode, int16_t) {
  if (keyCode == VK_RETURN || keyCode == VK_ESCAPE)
    Close();
}

void ShowAboutBox(const std::string& className, HWND owner) {
  Platform& platform = Platform::Current();
  HWND form = FormOf(owner);
  Rect around = form ? platform.GetWindowRect(form)
                     : Rect{0, 0, platform.GetSystemMetrics(SM_CXSCREEN),
                            platform.GetSystemMetrics(SM_CYSCREEN)};
  HWND frame = platform.CreateWindowEx(0, "About " + className, WS_POPUP, 0, 0, AboutBox::BoxWidth,
                                       AboutBox::BoxHeight, 0, FrameProc);
  // The caption comes on top of the client area: grow the frame by it.
  Rect client = platform.GetClientRect(frame);
  int32_t width = 2 * AboutBox::BoxWidth - client.Width();
  int32_t height = 2 * AboutBox::BoxHeight - client.Height();
  platform.MoveWindow(frame, around.left + (around.Width() - width) / 2,
                      around.top + (around.Height() - height) / 2, width, height, false);

  AboutBox box(frame, className);
  box.Move(0, 0, AboutBox::BoxWidth, AboutBox::BoxHeight);
  platform.SetWindowLong(frame, GWL_USERDATA, reinterpret_cast<LONG_PTR>(&box));
  OpenBoxes().push_back(&box);

  HWND focus = platform.GetFocus();
  bool formWasEnabled = form && !platform.EnableWindow(form, false);
  platform.ShowWindow(frame, SW_SHOW);
  box.SetFocus();
  box.Refresh();
  while (!box.Closed() && platform.IsWindow(frame)) {
    platform.PumpMessages();
    if (box.Closed() || !platform.WaitMessage())
      break;
  }

  std::erase(OpenBoxes(), &box);
  if (platform.IsWindow(frame)) {
    platform.SetWindowLong(frame, GWL_USERDATA, 0);
    platform.ShowWindow(frame, SW_HIDE);
  }
  if (formWasEnabled)
    platform.EnableWindow(form, true);
  if (focus && platform.IsWindow(focus))
    platform.SetFocus(focus);
  platform.DestroyWindow(frame); // the box's window goes with it
}

} // namespace tarnbrook
