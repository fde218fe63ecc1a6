// The picker's editing: the current field, keys, typing with its delayed commit, stepping,
// the buttons with auto-repeat, and dragging to change.
#include "common/scoped_flag.hpp"
#include "picker/date_picker.hpp"
#include "picker/date_picker_keys.hpp"

#include "common/control_error.hpp"
#include "platform/platform.hpp"

#include <cstdlib>

namespace tarnbrook {
namespace {

constexpr uint32_t FirstRepeatDelay = 750; // ms; also the wait before typed digits count
constexpr uint32_t RepeatInterval = 100;   // ms
constexpr int32_t DragThreshold = 2;       // pixels a drag must pass to step

constexpr int16_t VkCapsLock = 20; // keys the message names leave out
constexpr int16_t VkNumLock = 144;

bool IsStepButton(const std::string& name) {
  return name == "Up" || name == "Down";
}

} // namespace

// --- The current field ---

void DatePicker::SelectField(int32_t index) {
  if (timer_.Enabled() && timer_.Tag() == "Validate")
    CommitTyped();
  if (currentField_ >= 0 && currentField_ < static_cast<int32_t>(fields_.size())) {
    fields_[currentField_].SetSelected(false);
    fields_[currentField_].SetTypedText("");
  }
  currentField_ = index;
  if (index >= 0)
    fields_[index].SetSelected(true);
  Redraw();
}

// The nearest field that is not a literal after (direction 1) or before (-1) `from`; -1 when
// there is none, since the selection does not wrap.
int32_t DatePicker::NextEditableField(int32_t from, int direction) const {
  for (int32_t i = from + direction; i >= 0 && i < static_cast<int32_t>(fields_.size());
       i += direction)
    if (!fields_[i].isliteral())
      return i;
  return -1;
}

void DatePicker::SetFieldsValue(tarnbrook::DateValue value) {
  for (CDateMask& field : fields_)
    field.SetValue(value);
}

// --- Stepping and limits ---

tarnbrook::DateValue DatePicker::Clamp(tarnbrook::DateValue value) const {
  if (value > maxDate_)
    return maxDate_;
  if (value < minDate_)
    return minDate_;
  return value;
}

void DatePicker::StepCurrent(int16_t Amount) {
  if (empty_ || currentField_ < 0 || locked_)
    return;
  CDateMask& field = fields_[currentField_];
  try {
    field.Increment(Amount);
  } catch (const ControlError&) {
    // Past the runtime's last or first date: as far as the limits go.
    field.SetValue(Amount > 0 ? maxDate_ : minDate_);
  }
  value_ = Clamp(field.Value());
  SetFieldsValue(value_);
  Redraw();
  if (IsDropped()) {
    const ScopedFlag setting(settingCalendar_);
    calendar_->SetValue(value_);
  }
  events_.Raise(&DatePickerEvents::Change);
}

void DatePicker::ClampToLimits() {
  if (!empty_) {
    value_ = Clamp(value_);
    SetFieldsValue(value_);
  }
  lastDate_ = Clamp(lastDate_);
  Redraw();
}

// An empty picker takes up its last date again when the user starts editing it.
void DatePicker::RestoreLastDate() {
  if (!empty_)
    return;
  empty_ = false;
  value_ = lastDate_;
  SetFieldsValue(value_);
  PropertyChanged(PickerKey::Value);
}

void DatePicker::ButtonAction(const std::string& part) {
  if (locked_)
    return;
  if (IsStepButton(part)) {
    RestoreLastDate();
    StepCurrent(part == "Up" ? 1 : -1);
    PropertyChanged(PickerKey::Value);
  } else if (part == "DropDown") {
    if (IsDropped())
      CloseUpCalendar();
    else
      DropDownCalendar();
  }
}

// --- The timer: typed digits and auto-repeat ---

void DatePicker::TimerTick() {
  if (timer_.Tag() == "Validate") {
    CommitTyped();
    return;
  }
  Platform& platform = Platform::Current();
  Point point = platform.ScreenToClient(hWnd(), platform.GetCursorPos());
  CFrame* over = ButtonAt(point.x, point.y);
  if (over && IsStepButton(over->Name)) {
    ButtonAction(over->Name);
    if (timer_.Interval() != RepeatInterval)
      timer_.SetInterval(RepeatInterval);
  } else {
    timer_.SetInterval(FirstRepeatDelay);
    timer_.SetEnabled(false);
  }
}

void DatePicker::CommitTyped() {
  timer_.SetEnabled(false);
  if (currentField_ < 0)
    return;
  CDateMask& field = fields_[currentField_];
  const bool accepted = !empty_ && field.Commit();
  field.SetTypedText("");
  if (accepted) {
    value_ = Clamp(field.Value());
    SetFieldsValue(value_);
    Redraw();
    PropertyChanged(PickerKey::Value);
    events_.Raise(&DatePickerEvents::Change);
  } else {
    Redraw();
  }
}

// --- Keys ---

void DatePicker::OnKeyDown(int16_t& keyCode, int16_t shift) {
  events_.Raise(&DatePickerEvents::KeyDown, keyCode, shift);
  if (keyCode == VK_RETURN) {
    if (IsDropped())
      CloseUpCalendar();
    else if (exitOnReturn_)
      Platform::Current().PostMessage(hWnd(), WM_KEYDOWN, VK_TAB, 0);
    return;
  }
  if (keyCode == VkCapsLock || keyCode == VK_SPACE || keyCode == VkNumLock)
    return;
  if (shift == vbShiftMask || shift == vbCtrlMask)
    return;
  if (!locked_)
    RestoreLastDate();

  switch (keyCode) {
  case VK_LEFT:
    if (int32_t before = NextEditableField(currentField_, -1); before >= 0)
      SelectField(before);
    break;
  case VK_RIGHT:
  case VK_DIVIDE:
  case VK_DECIMAL:
  case VK_OEM_2:
    if (int32_t after = NextEditableField(currentField_, 1); after >= 0)
      SelectField(after);
    break;
  case VK_UP:
  case VK_DOWN:
    if (!locked_) {
      StepCurrent(keyCode == VK_UP ? 1 : -1);
      PropertyChanged(PickerKey::Value);
    }
    break;
  case VK_F4:
    if (!locked_ && (button_ == dtpDropDown || button_ == dtpBoth))
      DropDownCalendar();
    break;
  case VK_ESCAPE:
    CloseUpCalendar();
    break;
  case VK_DELETE:
    if (!locked_ && allowEmpty_)
      ChooseEmpty();
    break;
  default:
    break;
  }
  Redraw();
}

// Without the focus the wheel is the page's: a date must not change as a page scrolls past.
bool DatePicker::OnMouseWheel(int32_t notches, int16_t) {
  if (Platform::Current().GetFocus() != hWnd())
    return false;
  if (locked_)
    return true;
  RestoreLastDate();
  for (int32_t i = 0; i < std::abs(notches); ++i)
    StepCurrent(notches > 0 ? 1 : -1);
  PropertyChanged(PickerKey::Value);
  Redraw();
  return true;
}

void DatePicker::OnKeyPress(int16_t& keyAscii) {
  events_.Raise(&DatePickerEvents::KeyPress, keyAscii);
  if (empty_ || locked_ || currentField_ < 0)
    return;
  fields_[currentField_].TypeDigit(keyAscii);
  Redraw();
  timer_.SetEnabled(false);
  if (timer_.Interval() != FirstRepeatDelay) // typed while a button repeats
    timer_.SetInterval(FirstRepeatDelay);
  timer_.SetTag("Validate");
  timer_.SetEnabled(true);
}

void DatePicker::OnKeyUp(int16_t& keyCode, int16_t shift) {
  events_.Raise(&DatePickerEvents::KeyUp, keyCode, shift);
}

// --- Mouse ---

void DatePicker::OnMouseDown(int16_t button, int16_t shift, float x, float y) {
  events_.Raise(&DatePickerEvents::MouseDown, button, shift, x, y);
  const auto px = static_cast<int32_t>(x), py = static_cast<int32_t>(y);
  if (!empty_) {
    for (size_t i = 0; i < fields_.size(); ++i) {
      if (fields_[i].HitTest(px, py)) {
        if (!fields_[i].isliteral())
          SelectField(static_cast<int32_t>(i));
        break;
      }
    }
  }
  if (CFrame* pressed = ButtonAt(px, py); pressed && !locked_) {
    const std::string name = pressed->Name; // the action may lay the buttons out again
    pressed->AddState(DFCS_PUSHED);
    Redraw();
    ButtonAction(name);
    if (IsStepButton(name)) {
      timer_.SetEnabled(false);
      timer_.SetTag("RapidFire");
      timer_.SetEnabled(true);
    }
  }
  if (button & vbLeftButton)
    dragY_ = py;
}

void DatePicker::OnMouseMove(int16_t button, int16_t shift, float x, float y) {
  events_.Raise(&DatePickerEvents::MouseMove, button, shift, x, y);
  const auto px = static_cast<int32_t>(x), py = static_cast<int32_t>(y);
  if (!changeOnDrag_ || locked_ || !(button & vbLeftButton) || px >= ScaleWidth() - ButtonsWidth())
    return;
  int16_t amount = 0;
  if (py - dragY_ > DragThreshold)
    amount = -1; // down decreases
  else if (dragY_ - py > DragThreshold)
    amount = 1;
  if (amount == 0)
    return;
  StepCurrent(amount);
  PropertyChanged(PickerKey::Value);
  dragY_ = py;
  Redraw();
}

void DatePicker::OnMouseUp(int16_t button, int16_t shift, float x, float y) {
  events_.Raise(&DatePickerEvents::MouseUp, button, shift, x, y);
  bool released = false;
  for (CFrame& frame : buttons_) {
    if (frame.State & DFCS_PUSHED) {
      frame.RemoveState(DFCS_PUSHED);
      released = true;
    }
  }
  // Only the repeat ends here; pending digits keep their own countdown.
  if (timer_.Tag() == "RapidFire") {
    timer_.SetInterval(FirstRepeatDelay);
    timer_.SetEnabled(false);
  }
  if (released)
    Redraw();
}

// --- Focus ---

void DatePicker::OnGotFocus() {
  if (currentField_ < 0)
    SelectField(NextEditableField(-1, 1));
  Redraw();
}

void DatePicker::OnLostFocus() {
  Redraw();
}

} // namespace tarnbrook
