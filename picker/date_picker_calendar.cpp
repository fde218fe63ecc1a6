// The picker's drop-down calendar: showing and closing it, the properties passed to it, and its
// events turned into the picker's own.
#include "common/control_error.hpp"
#include "common/property_bag.hpp"
#include "common/scoped_flag.hpp"
#include "picker/date_picker.hpp"
#include "platform/platform.hpp"

namespace tarnbrook {

// Made as a loaded constituent, so that it paints its drop-down animation in run mode, then
// given what the picker holds for it. Its Change meanwhile is none of the picker's business.
MonthCalendar& DatePicker::Calendar() {
  if (calendar_)
    return *calendar_;
  auto calendar = std::make_unique<MonthCalendar>(hWnd());
  calendar->SetVisible(false);
  MemoryPropertyBag none;
  calendar->ReadProperties(none);
  const CalendarSettings& held = calendarSettings_;
  calendar->SetButtonStyle(held.buttonStyle);
  calendar->SetBackColor(held.backColor);
  calendar->SetActiveMonthColor(held.activeMonthColor);
  calendar->SetInactiveMonthColor(held.inactiveMonthColor);
  calendar->SetHeaderColor(held.headerColor);
  calendar->SetHeaderForeColor(held.headerForeColor);
  calendar->SetPresentDateColor(held.presentDateColor);
  calendar->SetWeekDayColor(held.weekDayColor);
  calendar->SetFont(held.font);
  calendar->SetBackgroundImage(held.backgroundImage);
  calendar->SetBackDrawMode(held.backDrawMode);
  calendar->SetHoverIcon(held.hoverIcon);
  calendar->SetFirstDayofWeek(held.firstDayofWeek);
  calendar->SetTodayButtonCaption(held.todayButtonCaption);
  calendar->SetEmptyButtonCaption(held.emptyButtonCaption);
  calendar->SetEmptyButton(held.emptyButton);
  calendar->Connect(this); // only now: what it raised while being set up is not the picker's
  calendar_ = std::move(calendar);
  return *calendar_;
}

bool DatePicker::IsDropped() const {
  return calendar_ && calendar_->IsDropDownShown();
}

void DatePicker::DropDownCalendar() {
  Calendar();
  {
    const ScopedFlag setting(settingCalendar_);
    calendar_->SetValue(empty_ ? lastDate_ : value_);
  }
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
  if (calendar_)
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
  CloseUpCalendar();
  Platform::Current().SetFocus(hWnd());
}

// The properties passed to the calendar and read back from it, each reported under its key.

int32_t DatePicker::CalendarButtonStyle() const {
  return calendar_ ? calendar_->ButtonStyle() : calendarSettings_.buttonStyle;
}

void DatePicker::SetCalendarButtonStyle(int32_t style) {
  if (style > dtpButtonFlat)
    throw ControlError(5065, "Tarnbrook.DatePicker", "Invalid ButtonStyle!");
  if (calendar_)
    calendar_->SetButtonStyle(style);
  else
    calendarSettings_.buttonStyle = style;
  PropertyChanged("CalendarButtonStyle");
}

OleColor DatePicker::CalendarBackColor() const {
  return calendar_ ? calendar_->BackColor() : calendarSettings_.backColor;
}

void DatePicker::SetCalendarBackColor(OleColor color) {
  if (calendar_)
    calendar_->SetBackColor(color);
  else
    calendarSettings_.backColor = color;
  PropertyChanged("CalendarBackColor");
}

OleColor DatePicker::CalendarActiveMonthColor() const {
  return calendar_ ? calendar_->ActiveMonthColor() : calendarSettings_.activeMonthColor;
}

void DatePicker::SetCalendarActiveMonthColor(OleColor color) {
  if (calendar_)
    calendar_->SetActiveMonthColor(color);
  else
    calendarSettings_.activeMonthColor = color;
  PropertyChanged("CalendarActiveMonthColor");
}

OleColor DatePicker::CalendarInactiveMonthColor() const {
  return calendar_ ? calendar_->InactiveMonthColor() : calendarSettings_.inactiveMonthColor;
}

void DatePicker::SetCalendarInactiveMonthColor(OleColor color) {
  if (calendar_)
    calendar_->SetInactiveMonthColor(color);
  else
    calendarSettings_.inactiveMonthColor = color;
  PropertyChanged("CalendarInactiveMonthColor");
}

OleColor DatePicker::CalendarHeaderColor() const {
  return calendar_ ? calendar_->HeaderColor() : calendarSettings_.headerColor;
}

void DatePicker::SetCalendarHeaderColor(OleColor color) {
  if (calendar_)
    calendar_->SetHeaderColor(color);
  else
    calendarSettings_.headerColor = color;
  PropertyChanged("CalendarHeaderColor");
}

OleColor DatePicker::CalendarHeaderForeColor() const {
  return calendar_ ? calendar_->HeaderForeColor() : calendarSettings_.headerForeColor;
}

void DatePicker::SetCalendarHeaderForeColor(OleColor color) {
  if (calendar_)
    calendar_->SetHeaderForeColor(color);
  else
    calendarSettings_.headerForeColor = color;
  PropertyChanged("CalendarHeaderForeColor");
}

OleColor DatePicker::CalendarPresentDateColor() const {
  return calendar_ ? calendar_->PresentDateColor() : calendarSettings_.presentDateColor;
}

void DatePicker::SetCalendarPresentDateColor(OleColor color) {
  if (calendar_)
    calendar_->SetPresentDateColor(color);
  else
    calendarSettings_.presentDateColor = color;
  PropertyChanged("CalendarPresentDateColor");
}

OleColor DatePicker::CalendarWeekdayColor() const {
  return calendar_ ? calendar_->WeekDayColor() : calendarSettings_.weekDayColor;
}

void DatePicker::SetCalendarWeekdayColor(OleColor color) {
  if (calendar_)
    calendar_->SetWeekDayColor(color);
  else
    calendarSettings_.weekDayColor = color;
  PropertyChanged("CalendarWeekdayColor");
}

const tarnbrook::Font& DatePicker::CalendarFont() const {
  return calendar_ ? calendar_->Font() : calendarSettings_.font;
}

void DatePicker::SetCalendarFont(const tarnbrook::Font& font) {
  if (calendar_)
    calendar_->SetFont(font);
  else
    calendarSettings_.font = CheckedFont(font);
  PropertyChanged("CalendarFont");
}

std::shared_ptr<const Picture> DatePicker::CalendarBackground() const {
  return calendar_ ? calendar_->BackgroundImage() : calendarSettings_.backgroundImage;
}

void DatePicker::SetCalendarBackground(std::shared_ptr<const Picture> picture) {
  if (calendar_)
    calendar_->SetBackgroundImage(std::move(picture));
  else
    calendarSettings_.backgroundImage = std::move(picture);
  PropertyChanged("CalendarBackground");
}

int32_t DatePicker::CalendarBackDrawMode() const {
  return calendar_ ? calendar_->BackDrawMode() : calendarSettings_.backDrawMode;
}

void DatePicker::SetCalendarBackDrawMode(int32_t mode) {
  if (calendar_)
    calendar_->SetBackDrawMode(mode);
  else
    calendarSettings_.backDrawMode = mode;
  PropertyChanged("BackDrawMode");
}

bool DatePicker::CalendarHoverIcon() const {
  return calendar_ ? calendar_->HoverIcon() : calendarSettings_.hoverIcon;
}

void DatePicker::SetCalendarHoverIcon(bool hover) {
  if (calendar_)
    calendar_->SetHoverIcon(hover);
  else
    calendarSettings_.hoverIcon = hover;
  PropertyChanged("HoverIcon");
}

int32_t DatePicker::FirstDayofWeek() const {
  return calendar_ ? calendar_->FirstDayofWeek() : calendarSettings_.firstDayofWeek;
}

void DatePicker::SetFirstDayofWeek(int32_t firstDay) {
  if (calendar_)
    calendar_->SetFirstDayofWeek(firstDay);
  else
    calendarSettings_.firstDayofWeek = CheckedFirstDayOfWeek(firstDay);
  PropertyChanged("FirstDayofWeek");
}

const std::string& DatePicker::TodayButtonCaption() const {
  return calendar_ ? calendar_->TodayButtonCaption() : calendarSettings_.todayButtonCaption;
}

void DatePicker::SetTodayButtonCaption(const std::string& caption) {
  if (calendar_)
    calendar_->SetTodayButtonCaption(caption);
  else
    calendarSettings_.todayButtonCaption = caption;
  PropertyChanged("TodayButtonCaption");
}

const std::string& DatePicker::EmptyButtonCaption() const {
  return calendar_ ? calendar_->EmptyButtonCaption() : calendarSettings_.emptyButtonCaption;
}

void DatePicker::SetEmptyButtonCaption(const std::string& caption) {
  if (calendar_)
    calendar_->SetEmptyButtonCaption(caption);
  else
    calendarSettings_.emptyButtonCaption = caption;
  PropertyChanged("EmptyButtonCaption");
}

void DatePicker::SetCalendarAnimation(int32_t animation) {
  calendarAnimation_ = animation;
  PropertyChanged("CalendarAnimation");
}

} // namespace tarnbrook
