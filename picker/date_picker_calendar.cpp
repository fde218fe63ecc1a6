// The picker's drop-down calendar: showing and closing it, the properties passed to it, and its
// events turned into the picker's own.
#include "common/control_error.hpp"
#include "common/property_bag.hpp"
#include "common/scoped_flag.hpp"
#include "picker/date_picker.hpp"
#include "picker/date_picker_keys.hpp"
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
  const CalendarLook& held = calendarLook_;
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
  // Only now: what it raised while being set up is not the picker's.
  calendarRelay_.change = [this] { CalendarChanged(); };
  calendarRelay_.emptyClicked = [this] { CalendarEmptyClicked(); };
  calendarRelay_.beforeDropDown = [this](bool& cancel) { CalendarBeforeDropDown(cancel); };
  calendarRelay_.droppedDown = [this] { CalendarDroppedDown(); };
  calendarRelay_.beforeCloseUp = [this](bool& cancel) { CalendarBeforeCloseUp(cancel); };
  calendarRelay_.afterClosedUp = [this] { CalendarAfterClosedUp(); };
  calendar->Connect(&calendarRelay_);
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

void DatePicker::CalendarBeforeDropDown(bool& Cancel) {
  events_.Raise(&DatePickerEvents::BeforeCalendarDropDown, Cancel);
}

void DatePicker::CalendarDroppedDown() {
  events_.Raise(&DatePickerEvents::AfterCalendarDropDown);
}

// A press on the picker's own drop-down button keeps the calendar up here: the button's action
// then closes it, asking nobody, instead of dropping it down again. A locked or disabled
// picker's button does nothing, so the press closes the calendar as any other would.
void DatePicker::CalendarBeforeCloseUp(bool& Cancel) {
  Platform& platform = Platform::Current();
  const Point mouse = platform.ScreenToClient(hWnd(), platform.GetCursorPos());
  const CFrame* button = ButtonAt(mouse.x, mouse.y);
  if (button && button->Name == "DropDown" && !locked_ && Enabled()) {
    Cancel = true;
    return;
  }
  events_.Raise(&DatePickerEvents::BeforeCalendarCloseUp, Cancel);
}

void DatePicker::CalendarAfterClosedUp() {
  events_.Raise(&DatePickerEvents::AfterCalendarCloseUp);
}

// A date chosen in the calendar: taken when within the limits; the close-up runs either way.
void DatePicker::CalendarChanged() {
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

void DatePicker::CalendarEmptyClicked() {
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

// One part of the calendar's look: passed to the calendar while it lives, which refuses what
// it cannot take before the picker holds it, then reported under its key.
template <auto Field, auto CalendarSetter, class Part>
void DatePicker::SetCalendarLook(Part part, const char* key) {
  if (calendar_)
    (calendar_.get()->*CalendarSetter)(part);
  calendarLook_.*Field = std::move(part);
  PropertyChanged(key);
}

void DatePicker::SetAllowEmpty(bool allow) {
  allowEmpty_ = allow;
  SetCalendarLook<&CalendarLook::emptyButton, &MonthCalendar::SetEmptyButton>(
      allow, PickerKey::AllowEmpty);
}

void DatePicker::SetCalendarButtonStyle(int32_t style) {
  if (style > dtpButtonFlat)
    throw ControlError(5065, "Tarnbrook.DatePicker", "Invalid ButtonStyle!");
  SetCalendarLook<&CalendarLook::buttonStyle, &MonthCalendar::SetButtonStyle>(
      style, PickerKey::CalendarButtonStyle);
}

void DatePicker::SetCalendarBackColor(OleColor color) {
  SetCalendarLook<&CalendarLook::backColor, &MonthCalendar::SetBackColor>(
      color, PickerKey::CalendarBackColor);
}

void DatePicker::SetCalendarActiveMonthColor(OleColor color) {
  SetCalendarLook<&CalendarLook::activeMonthColor, &MonthCalendar::SetActiveMonthColor>(
      color, PickerKey::CalendarActiveMonthColor);
}

void DatePicker::SetCalendarInactiveMonthColor(OleColor color) {
  SetCalendarLook<&CalendarLook::inactiveMonthColor, &MonthCalendar::SetInactiveMonthColor>(
      color, PickerKey::CalendarInactiveMonthColor);
}

void DatePicker::SetCalendarHeaderColor(OleColor color) {
  SetCalendarLook<&CalendarLook::headerColor, &MonthCalendar::SetHeaderColor>(
      color, PickerKey::CalendarHeaderColor);
}

void DatePicker::SetCalendarHeaderForeColor(OleColor color) {
  SetCalendarLook<&CalendarLook::headerForeColor, &MonthCalendar::SetHeaderForeColor>(
      color, PickerKey::CalendarHeaderForeColor);
}

void DatePicker::SetCalendarPresentDateColor(OleColor color) {
  SetCalendarLook<&CalendarLook::presentDateColor, &MonthCalendar::SetPresentDateColor>(
      color, PickerKey::CalendarPresentDateColor);
}

void DatePicker::SetCalendarWeekdayColor(OleColor color) {
  SetCalendarLook<&CalendarLook::weekDayColor, &MonthCalendar::SetWeekDayColor>(
      color, PickerKey::CalendarWeekdayColor);
}

void DatePicker::SetCalendarFont(const tarnbrook::Font& font) {
  SetCalendarLook<&CalendarLook::font, &MonthCalendar::SetFont>(CheckedFont(font),
                                                                PickerKey::CalendarFont);
}

void DatePicker::SetCalendarBackground(std::shared_ptr<const Picture> picture) {
  SetCalendarLook<&CalendarLook::backgroundImage, &MonthCalendar::SetBackgroundImage>(
      std::move(picture), PickerKey::CalendarBackground);
}

void DatePicker::SetCalendarBackDrawMode(int32_t mode) {
  SetCalendarLook<&CalendarLook::backDrawMode, &MonthCalendar::SetBackDrawMode>(
      mode, PickerKey::BackDrawMode);
}

void DatePicker::SetCalendarHoverIcon(bool hover) {
  SetCalendarLook<&CalendarLook::hoverIcon, &MonthCalendar::SetHoverIcon>(hover,
                                                                          PickerKey::HoverIcon);
}

void DatePicker::SetFirstDayofWeek(int32_t firstDay) {
  SetCalendarLook<&CalendarLook::firstDayofWeek, &MonthCalendar::SetFirstDayofWeek>(
      CheckedFirstDayOfWeek(firstDay), PickerKey::FirstDayofWeek);
}

void DatePicker::SetTodayButtonCaption(const std::string& caption) {
  SetCalendarLook<&CalendarLook::todayButtonCaption, &MonthCalendar::SetTodayButtonCaption>(
      caption, PickerKey::TodayButtonCaption);
}

void DatePicker::SetEmptyButtonCaption(const std::string& caption) {
  SetCalendarLook<&CalendarLook::emptyButtonCaption, &MonthCalendar::SetEmptyButtonCaption>(
      caption, PickerKey::EmptyButtonCaption);
}

void DatePicker::SetCalendarAnimation(int32_t animation) {
  calendarAnimation_ = animation;
  PropertyChanged(PickerKey::CalendarAnimation);
}

} // namespace tarnbrook
