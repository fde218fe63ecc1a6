// The calendar's mouse, timer and key input: day clicks, the month list, year drags and
// buttons that repeat while held.
#include "calendar/month_calendar.hpp"
#include "calendar/month_calendar_layout.hpp"

#include <cstdlib>

namespace tarnbrook {

namespace layout = month_calendar_layout;

namespace {

bool LeftButtonDown(int16_t button) {
  return (button & vbLeftButton) != 0;
}

// The month list keeps its place and width and opens 350 pixels high.
void OpenMonthList(ComboBox& list) {
  Platform& platform = Platform::Current();
  Rect onScreen = platform.GetWindowRect(list.hWnd());
  Point topLeft{onScreen.left, onScreen.top};
  if (HWND parent = list.Parent()) {
    topLeft = platform.ScreenToClient(parent, topLeft);
  }
  list.Move(topLeft.x, topLeft.y, onScreen.Width(), 350);
  platform.SendMessage(list.hWnd(), CB_SHOWDROPDOWN, 1, 0); // wParam TRUE: open
}

} // namespace

void MonthCalendar::OnMouseDown(int16_t button, int16_t, float x, float y) {
  events_.Raise(&MonthCalendarEvents::MouseDown, button, x, y);
  Point point{static_cast<int32_t>(x), static_cast<int32_t>(y)};
  if (layout::GridRect.Contains(point)) {
    ClickDay(DayAt(point.x, point.y));
  } else if (layout::MonthNameArea.Contains(point)) {
    OpenMonthList(*cboMonth_);
  } else if (layout::YearArea.Contains(point)) {
    yearDrag_ = true;
    lastDragY_ = point.y;
  } else if (LeftButtonDown(button)) {
    PressButtonsAt(point.x, point.y);
  }
  CFrame& up = buttons_.at("Up");
  CFrame& down = buttons_.at("Down");
  bool overYear = layout::YearArea.Contains(point) || up.CheckPoint(point.x, point.y) ||
                  down.CheckPoint(point.x, point.y);
  up.Visible = overYear;
  down.Visible = overYear;
  Paint();
}

// A notch is a press of a month button: turned away from the user, the month before.
bool MonthCalendar::OnMouseWheel(int32_t notches, int16_t) {
  for (int32_t i = 0; i < std::abs(notches); ++i)
    ButtonAction(notches > 0 ? "Left" : "Right");
  Paint();
  return true;
}

void MonthCalendar::OnMouseMove(int16_t button, int16_t, float x, float y) {
  events_.Raise(&MonthCalendarEvents::MouseMove, button, x, y);
  Point point{static_cast<int32_t>(x), static_cast<int32_t>(y)};
  if (yearDrag_ && LeftButtonDown(button)) {
    // Dragging up counts the year up, one year per step of more than the threshold.
    if (lastDragY_ - point.y > layout::DragThreshold) {
      ButtonAction("Up");
      lastDragY_ = point.y;
      Paint();
    } else if (point.y - lastDragY_ > layout::DragThreshold) {
      ButtonAction("Down");
      lastDragY_ = point.y;
      Paint();
    }
  }
  if (LeftButtonDown(button)) {
    PressButtonsAt(point.x, point.y);
  }
  if (hoverIcon_) {
    UpdateHoverCursor(point.x, point.y);
  }
}

void MonthCalendar::OnMouseUp(int16_t button, int16_t, float x, float y) {
  events_.Raise(&MonthCalendarEvents::MouseUp, button, x, y);
  yearDrag_ = false;
  bool released = false;
  for (auto& [name, frame] : buttons_) {
    if (frame.State & DFCS_PUSHED) {
      frame.RemoveState(DFCS_PUSHED);
      released = true;
    }
  }
  t_.SetEnabled(false);
  if (released) {
    Paint();
  }
}

// The second press of a double click presses the button under the pointer once more. No
// wait is needed: the face stays pushed until the button comes up.
void MonthCalendar::OnDblClick() {
  Platform& platform = Platform::Current();
  Point point = platform.ScreenToClient(hWnd(), platform.GetCursorPos());
  PressButtonsAt(point.x, point.y);
}

void MonthCalendar::OnKeyDown(int16_t& keyCode, int16_t shift) {
  events_.Raise(&MonthCalendarEvents::KeyDown, keyCode, shift);
}

void MonthCalendar::OnKeyPress(int16_t& keyAscii) {
  events_.Raise(&MonthCalendarEvents::KeyPress, keyAscii);
}

void MonthCalendar::OnKeyUp(int16_t& keyCode, int16_t shift) {
  events_.Raise(&MonthCalendarEvents::KeyUp, keyCode, shift);
}

// Presses the button under the point, running its action at once and starting the repeat;
// a button the pointer has left comes up.
void MonthCalendar::PressButtonsAt(int32_t x, int32_t y) {
  bool changed = false;
  for (auto& [name, frame] : buttons_) {
    if (frame.CheckPoint(x, y) && !(frame.State & DFCS_PUSHED)) {
      frame.AddState(DFCS_PUSHED);
      Paint();
      ButtonAction(name);
      pressedButton_ = &frame;
      t_.SetEnabled(false);
      t_.SetEnabled(true);
      changed = true;
    } else if (!frame.CheckPoint(x, y) && frame.State == DFCS_PUSHED) {
      frame.RemoveState(DFCS_PUSHED);
      changed = true;
    }
  }
  if (changed) {
    Paint();
  }
}

// Auto-repeat while the pointer stays on the held button; off it, the button comes up.
void MonthCalendar::TimerTick() {
  if (!pressedButton_ || !(pressedButton_->State & DFCS_PUSHED)) {
    t_.SetEnabled(false);
    return;
  }
  Platform& platform = Platform::Current();
  Point point = platform.ScreenToClient(hWnd(), platform.GetCursorPos());
  if (pressedButton_->CheckPoint(point.x, point.y)) {
    t_.SetInterval(layout::RepeatInterval);
    ButtonAction(pressedButton_->Name);
  } else {
    pressedButton_->RemoveState(DFCS_PUSHED);
    Paint();
  }
}

// The hand over the year, the month name, the year buttons' place and any visible button.
void MonthCalendar::UpdateHoverCursor(int32_t x, int32_t y) {
  Point point{x, y};
  bool overTarget = layout::YearArea.Contains(point) || layout::MonthNameArea.Contains(point) ||
                    layout::YearButtonArea.Contains(point);
  for (const auto& [name, frame] : buttons_) {
    bool shown = frame.Visible && (emptyButton_ || name != "Empty");
    overTarget = overTarget || (shown && frame.CheckPoint(x, y));
  }
  Platform::Current().SetCursor(overTarget ? IDC_HAND : IDC_ARROW);
}

} // namespace tarnbrook
