// The year box: its properties, stepping under the range rule, the buttons with auto-repeat,
// typed digits with their delayed commit, and its picture.
#include "constituents/number_spin.hpp"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <string>
#include <thread>

#include "common/control_error.hpp"
#include "common/property_bag.hpp"
#include "platform/platform.hpp"

namespace tarnbrook {
namespace {

constexpr int32_t DefaultWidth = 64; // pixels, until the owner places the box
constexpr int32_t DefaultHeight = 21;
constexpr int32_t DefaultButtonWidth = 16;
constexpr int32_t FlatButtonStyle = 2;
constexpr uint32_t FirstRepeatDelay = 750; // ms; also the pause that ends typing
constexpr uint32_t RepeatInterval = 100;   // ms
constexpr uint32_t DoubleClickPause = 100; // ms the button stays down on a double click
constexpr int32_t TextMargin = 2;          // the focus rectangle lies between border and text
constexpr int32_t TextIndent = 3;          // from the border to the number

const char* const UpTag = "UpButton";
const char* const DownTag = "DownButton";
const char* const TypingTag = "C";

bool InYearRange(int32_t year) {
  return year >= NumberSpin::MinYear && year <= NumberSpin::MaxYear;
}

// Waits `milliseconds` on the platform's tick count. A clock that stands still (the
// simulator's moves only when a test advances it) ends the wait instead of hanging it.
void PauseOnClock(uint32_t milliseconds) {
  Platform& platform = Platform::Current();
  const uint32_t start = platform.GetTickCount();
  uint32_t last = start;
  int still = 0;
  while (platform.GetTickCount() - start < milliseconds && still < 20) {
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
    const uint32_t now = platform.GetTickCount();
    still = now == last ? still + 1 : 0;
    last = now;
  }
}

} // namespace

NumberSpin::NumberSpin(HWND parent) : Control(parent) {
  up_.Name = "Up";
  down_.Name = "Down";
  timer_.SetEnabled(false);
  timer_.SetInterval(FirstRepeatDelay);
  timer_.SetCallback([this] { TimerTick(); });
  Move(0, 0, DefaultWidth, DefaultHeight);
}

NumberSpin::~NumberSpin() = default;

// --- Persistence: only the button width and the enabled state are the container's ---

void NumberSpin::InitProperties() {
  buttonWidth_ = DefaultButtonWidth;
  buttonStyle_ = 0;
  borderStyle_ = dtpBorderSunken3D;
  Control::SetEnabled(true);
  LayoutButtons();
  Redraw();
}

void NumberSpin::ReadProperties(PropertyBag& bag) {
  buttonWidth_ = bag.ReadProperty("ButtonWidth", DefaultButtonWidth).ToLong();
  Control::SetEnabled(bag.ReadProperty("Enabled", true).ToBoolean());
  LayoutButtons();
  Redraw();
}

void NumberSpin::WriteProperties(PropertyBag& bag) {
  bag.WriteProperty("ButtonWidth", buttonWidth_, DefaultButtonWidth);
  bag.WriteProperty("Enabled", Enabled(), true);
}

// --- Properties ---

void NumberSpin::SetValue(int32_t value) {
  if (InYearRange(value)) {
    value_ = value;
    Redraw();
  }
  PropertyChanged("Value");
}

void NumberSpin::SetButtonWidth(int32_t width) {
  buttonWidth_ = width;
  LayoutButtons();
  Redraw();
  PropertyChanged("ButtonWidth");
}

void NumberSpin::SetEnabled(bool enabled) {
  Control::SetEnabled(enabled);
  LayoutButtons();
  Redraw();
  PropertyChanged("Enabled");
}

void NumberSpin::SetButtonStyle(int32_t style) {
  if (style > FlatButtonStyle)
    throw ControlError(5065, "Tarnbrook.DatePicker", "Invalid ButtonStyle!");
  buttonStyle_ = style;
  LayoutButtons();
  Redraw();
  PropertyChanged("ButtonStyle");
}

void NumberSpin::SetBorderStyle(int32_t style) {
  borderStyle_ = style;
  Redraw();
  PropertyChanged("BorderStyle");
}

void NumberSpin::SetForeColor(OleColor color) {
  foreColor_ = color;
  Redraw();
  PropertyChanged("ForeColor");
}

void NumberSpin::SetBackColor(OleColor color) {
  backColor_ = color;
  Redraw();
  PropertyChanged("BackColor");
}

void NumberSpin::SetFont(const tarnbrook::Font& font) {
  font_ = CheckedFont(font);
  Redraw();
  PropertyChanged("Font");
}

int32_t NumberSpin::PreferredHeight() const {
  cMDC probe;
  probe.Resize(1, 1);
  probe.SetFont(font_.Name, font_.Size, font_.Bold, font_.Italic, font_.Strikethrough,
                font_.Underline);
  // A line of text as a list entry measures it, so the box stands as high as a framed list.
  return probe.TextHeight("Ag") + 2 * (TextMargin + BorderWidth());
}

// --- Stepping ---

// The range rule looks at the new value's floor and the old value's ceiling only, so 9999
// still steps up to 10000, from where every step is refused.
bool NumberSpin::Step(int32_t amount) {
  const int64_t next = int64_t(value_) + amount;
  const bool accepted = next >= MinYear && value_ <= MaxYear;
  if (accepted) {
    value_ = static_cast<int32_t>(next);
    events_.Raise(&NumberSpinEvents::Change);
  } else {
    Platform::Current().MessageBeep(0);
  }
  Redraw();
  return accepted;
}

void NumberSpin::TimerTick() {
  const std::string tag = timer_.Tag();
  if (tag == TypingTag) {
    const bool taken = InYearRange(typed_) && typed_ != value_;
    if (taken)
      value_ = typed_;
    typing_ = false;
    Redraw();
    timer_.SetEnabled(false);
    if (taken)
      events_.Raise(&NumberSpinEvents::Typed);
    return;
  }
  if (tag != UpTag && tag != DownTag)
    return;
  const bool up = tag == UpTag;
  timer_.SetInterval(RepeatInterval);
  Platform& platform = Platform::Current();
  const Point pointer = platform.ScreenToClient(hWnd(), platform.GetCursorPos());
  if (!(up ? up_ : down_).CheckPoint(pointer.x, pointer.y)) {
    timer_.SetEnabled(false);
    return;
  }
  if (!Step(up ? 1 : -1))
    timer_.SetEnabled(false);
}

// --- Mouse ---

void NumberSpin::OnMouseDown(int16_t button, int16_t, float x, float y) {
  if (button != vbLeftButton)
    return;
  if (!hasFocus_) {
    hasFocus_ = true;
    Redraw();
  }
  timer_.SetEnabled(false);
  if (typing_) { // the pause that would commit them is gone
    typing_ = false;
    Redraw();
  }
  const auto px = static_cast<int32_t>(x), py = static_cast<int32_t>(y);
  CFrame* pressed = up_.CheckPoint(px, py) ? &up_ : down_.CheckPoint(px, py) ? &down_ : nullptr;
  if (!pressed)
    return;
  const bool up = pressed == &up_;
  pressed->AddState(DFCS_PUSHED);
  Redraw();
  Step(up ? 1 : -1);
  timer_.SetInterval(FirstRepeatDelay);
  timer_.SetTag(up ? UpTag : DownTag);
  timer_.SetEnabled(true);
}

void NumberSpin::OnMouseUp(int16_t, int16_t, float, float) {
  timer_.SetEnabled(false);
  const bool wasPushed = ((up_.State | down_.State) & DFCS_PUSHED) != 0;
  up_.RemoveState(DFCS_PUSHED);
  down_.RemoveState(DFCS_PUSHED);
  if (wasPushed)
    Redraw();
}

void NumberSpin::OnDblClick() {
  Platform& platform = Platform::Current();
  const Point point = platform.ScreenToClient(hWnd(), platform.GetCursorPos());
  CFrame* pressed = up_.CheckPoint(point.x, point.y)     ? &up_
                    : down_.CheckPoint(point.x, point.y) ? &down_
                                                         : nullptr;
  if (!pressed)
    return;
  pressed->AddState(DFCS_PUSHED);
  Step(pressed == &up_ ? 1 : -1); // repaints, pressed
  PauseOnClock(DoubleClickPause);
  pressed->RemoveState(DFCS_PUSHED);
  Redraw();
}

// --- Keys ---

void NumberSpin::OnKeyDown(int16_t& keyCode, int16_t) {
  if (keyCode == VK_UP)
    Step(1);
  else if (keyCode == VK_DOWN)
    Step(-1);
}

// As the arrow keys, and only with the focus, for the same reason as the picker's fields.
bool NumberSpin::OnMouseWheel(int32_t notches, int16_t) {
  if (!hasFocus_)
    return false;
  for (int32_t i = 0; i < std::abs(notches); ++i)
    Step(notches > 0 ? 1 : -1);
  return true;
}

// The last four digits typed make the year: a fifth digit pushes the oldest out.
void NumberSpin::OnKeyPress(int16_t& keyAscii) {
  if (keyAscii < '0' || keyAscii > '9')
    return;
  if (!typing_)
    typed_ = 0;
  typed_ = (typed_ % 1000) * 10 + (keyAscii - '0');
  typing_ = true;
  Redraw();
  timer_.SetEnabled(false);
  timer_.SetInterval(FirstRepeatDelay);
  timer_.SetTag(TypingTag);
  timer_.SetEnabled(true);
}

void NumberSpin::OnGotFocus() {
  hasFocus_ = true;
  Redraw();
}

void NumberSpin::OnLostFocus() {
  hasFocus_ = false;
  Redraw();
}

// --- Layout and painting ---

// The buttons share the right-hand column, the up one over the top half; flat ones stand one
// pixel clear of the edges, as the picker's do.
void NumberSpin::LayoutButtons() {
  const int32_t width = ScaleWidth();
  const int32_t height = ScaleHeight();
  const int32_t half = height / 2;
  const int32_t button = ShownButtonWidth();
  const int32_t left = width - button;
  auto place = [&](CFrame& frame, int32_t style, int32_t top, int32_t bottom) {
    frame.Init(DFC_SCROLL, style, Surface().hDC(), top, left, bottom - top, button);
    frame.Border = buttonStyle_;
    frame.Enabled = Enabled();
    if (buttonStyle_ == FlatButtonStyle)
      frame.Move(top + 1, left + 1, bottom - top - 2, button - 2);
  };
  place(up_, DFCS_SCROLLUP, 0, half);
  place(down_, DFCS_SCROLLDOWN, half, height);
}

// Any width is kept as set; what is drawn stays within the box.
int32_t NumberSpin::ShownButtonWidth() const {
  return std::clamp(buttonWidth_, 0, ScaleWidth());
}

int32_t NumberSpin::BorderWidth() const {
  return BorderStyleWidth(borderStyle_);
}

void NumberSpin::Redraw() {
  Refresh();
}

void NumberSpin::OnResize() {
  LayoutButtons();
  Redraw();
}

// The number sits left in the text area like the picker's fields; digits being typed show
// selected, so that the box says it is waiting for more.
void NumberSpin::OnPaint() {
  cMDC& surface = Surface();
  if (surface.hDC() == 0)
    return;
  const int32_t width = surface.Width();
  const int32_t height = surface.Height();
  const int32_t border = BorderWidth();
  const bool enabled = Enabled();
  surface.SetFont(font_.Name, font_.Size, font_.Bold, font_.Italic, font_.Strikethrough,
                  font_.Underline);
  surface.DrawBox(0, 0, width, height, 1, OleColorNone, backColor_);

  const std::string text = std::to_string(typing_ ? typed_ : value_);
  const int32_t left = border + TextIndent;
  const int32_t top = border;
  const int32_t textHeight = height - 2 * border;
  if (typing_ && enabled) {
    const int32_t textWidth = surface.TextWidth(text) + 2;
    surface.DrawText(text, left - 1, top + 1, textWidth, textHeight - 2, vbHighlightText,
                     vbHighlight, DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX, true);
  } else {
    surface.DrawText(text, left, top, width - ShownButtonWidth() - left, textHeight,
                     enabled ? foreColor_ : vbGrayText, OleColorNone,
                     DT_LEFT | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX, true);
  }

  for (CFrame* frame : {&up_, &down_}) {
    frame->hDC = surface.hDC(); // the surface is new after a resize
    frame->Draw();
  }
  if (hasFocus_ && enabled) {
    const int32_t inset = border + 1;
    Canvas::FromHandle(surface.hDC())
        ->DrawFocusRect({inset, inset, width - inset - ShownButtonWidth(), height - inset});
  }
  DrawBorderStyle(surface, borderStyle_, 0, 0, width, height, SystemColor(COLOR_WINDOWFRAME));
}

} // namespace tarnbrook
