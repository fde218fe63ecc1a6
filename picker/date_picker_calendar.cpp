// The picker's drop-down calendar: showing and closing it, the properties passed to it, and its
// events turned into the picker's own.
#include "common/control_error.hpp"
#include "picker/date_picker.hpp"
#include "platform/platform.hpp"

namespace tarnbrook {

bool DatePicker::IsDropped() const {
  return calendar_->IsDropDownShown();
}

void DatePicker::DropDownCalendar() {
  settingCalendar_ = true;
  calendar_->SetValue(empty_ ? lastDate_ : value_);
  settingCalendar_ = false;
  // Widen before narrowing, so that the calendar never sees its limits crossed on the way.
  if (maxDate_ >= calendar_->MinDate()) {
    calendar_->SetMaxDate(maxDate_);
    calendar_->SetMinDate(minDate_);
  } else {
    calendar_->SetMinDate(minDate_);
    calendar_->SetMaxDate(maxDate_);
  }
  const Rect window = Platform::Current().GetWindowRect(hWnd());
  calendar_->DropDown(window.left, window.bottom, window.bottom - window.top, calendarAnimation_);
}

void DatePicker::CloseUpCalendar() {
  calendar_->HideDropDown();
}

// The calendar's events.

void DatePicker::BeforeDropDown(bool& Cancel) {
  events_.Raise(&DatePickerEvents::BeforeCalendarDropDown, Cancel);
}

void DatePicker::DroppedDown() {
  events_.Raise(&DatePickerEvents::AfterCalendarDropDown);
}

// A press on the picker's own drop-down button keeps the calendar up here: the button's action
// then closes it, asking nobody, instead of dropping it down again. A locked or disabled
// picker's button does nothing, so the press closes the calendar as any other would.
void DatePicker::BeforeCloseUp(bool& Cancel) {
  Platform& platform = Platform::Current();
  const Point mouse = platform.ScreenToClient(hWnd(), platform.GetCursorPos());
  const CFrame* button = ButtonAt(mouse.x, mouse.y);
  if (button && button->Name == "DropDown" && !locked_ && Enabled()) {
    Cancel = true;
    return;
  }
  events_.Raise(&DatePickerEvents::BeforeCalendarCloseUp, Cancel);
}

void DatePicker::AfterClosedUp() {
  events_.Raise(&DatePickerEvents::AfterCalendarCloseUp);
}

// A date chosen in the calendar: taken when within the limits; the close-up runs either way.
void DatePicker::Change() {
  if (settingCalendar_)
    return;
  const tarnbrook::DateValue chosen = calendar_->Value();
  if (chosen >= minDate_ && chosen <= maxDate_) {
    SetValue(Variant::Date(chosen)); // reports "Value"
    events_.Raise(&DatePickerEvents::Change);
  }
  bool cancel = false;
  events_.Raise(&DatePickerEvents::BeforeCalendarCloseUp, cancel);
  if (cancel)
    return;
  Platform::Current().SetFocus(hWnd());
  calendar_->HideDropDown();
}

void DatePicker::EmptyClicked() {
  ChooseEmpty();
}

// The Empty button, or Delete in the picker.
void DatePicker::ChooseEmpty() {
  bool cancel = false;
  events_.Raise(&DatePickerEvents::EmptyClicked, cancel);
  if (cancel)
    return;
  SetValue(Variant::Null()); // reports "Value"
  events_.Raise(&DatePickerEvents::Change);
  calendar_->HideDropDown();
  Platform::Current().SetFocus(hWnd());
}

// The properties passed to the calendar and read back from it, each reported under its key.

int32_t DatePicker::CalendarButtonStyle() const {
  return calendar_->ButtonStyle();
}

void DatePicker::SetCalendarButtonStyle(int32_t style) {
  if (style > dtpButtonFlat)
    throw ControlError(5065, "Tarnbrook.DatePicker", "Invalid ButtonStyle!");
  calendar_->SetButtonStyle(style);
  PropertyChanged("CalendarButtonStyle");
}

OleColor DatePicker::CalendarBackColor() const {
  return calendar_->BackColor();
}

void DatePicker::SetCalendarBackColor(OleColor color) {
  calendar_->SetBackColor(color);
  PropertyChanged("CalendarBackColor");
}

OleColor DatePicker::CalendarActiveMonthColor() const {
  return calendar_->ActiveMonthColor();
}

void DatePicker::SetCalendarActiveMonthColor(OleColor color) {
  calendar_->SetActiveMonthColor(color);
  PropertyChanged("CalendarActiveMonthColor");
}

OleColor DatePicker::CalendarInactiveMonthColor() const {
  return calendar_->InactiveMonthColor();
}

void DatePicker::SetCalendarInactiveMonthColor(OleColor color) {
  calendar_->SetInactiveMonthColor(color);
  PropertyChanged("CalendarInactiveMonthColor");
}

OleColor DatePicker::CalendarHeaderColor() const {
  return calendar_->HeaderColor();
}

void DatePicker::SetCalendarHeaderColor(OleColor color) {
  calendar_->SetHeaderColor(color);
  PropertyChanged("CalendarHeaderColor");
}

OleColor DatePicker::CalendarHeaderForeColor() const {
  return calendar_->HeaderForeColor();
}

void DatePicker::SetCalendarHeaderForeColor(OleColor color) {
  calendar_->SetHeaderForeColor(color);
  PropertyChanged("CalendarHeaderForeColor");
}

OleColor DatePicker::CalendarPresentDateColor() const {
  return calendar_->PresentDateColor();
}

void DatePicker::SetCalendarPresentDateColor(OleColor color) {
  calendar_->SetPresentDateColor(color);
  PropertyChanged("CalendarPresentDateColor");
}

OleColor DatePicker::CalendarWeekdayColor() const {
  return calendar_->WeekDayColor();
}

void DatePicker::SetCalendarWeekdayColor(OleColor color) {
  calendar_->SetWeekDayColor(color);
  PropertyChanged("CalendarWeekdayColor");
}

const tarnbrook::Font& DatePicker::CalendarFont() const {
  return calendar_->Font();
}

void DatePicker::SetCalendarFont(const tarnbrook::Font& font) {
  calendar_->SetFont(font);
  PropertyChanged("CalendarFont");
}

std::shared_ptr<const Picture> DatePicker::CalendarBackground() const {
  return calendar_->BackgroundImage();
}

void DatePicker::SetCalendarBackground(std::shared_ptr<const Picture> picture) {
  calendar_->SetBackgroundImage(std::move(picture));
  PropertyChanged("CalendarBackground");
}

int32_t DatePicker::CalendarBackDrawMode() const {
  return calendar_->BackDrawMode();
}

void DatePicker::SetCalendarBackDrawMode(int32_t mode) {
  calendar_->SetBackDrawMode(mode);
  PropertyChanged("BackDrawMode");
}

bool DatePicker::CalendarHoverIcon() const {
  return calendar_->HoverIcon();
}

void DatePicker::SetCalendarHoverIcon(bool hover) {
  calendar_->SetHoverIcon(hover);
  PropertyChanged("HoverIcon");
}

int32_t DatePicker::FirstDayofWeek() const {
  return calendar_->FirstDayofWeek();
}

void DatePicker::SetFirstDayofWeek(int32_t firstDay) {
  calendar_->SetFirstDayofWeek(firstDay);
  PropertyChanged("FirstDayofWeek");
}

const std::string& DatePicker::TodayButtonCaption() const {
  return calendar_->TodayButtonCaption();
}

void DatePicker::SetTodayButtonCaption(const std::string& caption) {
  calendar_->SetTodayButtonCaption(caption);
  PropertyChanged("TodayButtonCaption");
}

const std::string& DatePicker::EmptyButtonCaption() const {
  return calendar_->EmptyButtonCaption();
}

void DatePicker::SetEmptyButtonCaption(const std::string& caption) {
  calendar_->SetEmptyButtonCaption(caption);
  PropertyChanged("EmptyButtonCaption");
}

void DatePicker::SetCalendarAnimation(int32_t animation) {
  calendarAnimation_ = animation;
  PropertyChanged("CalendarAnimation");
}

} // namespace tarnbrook
