#include "calendar/month_calendar.hpp"
#include "calendar/month_calendar_keys.hpp"
#include "common/scoped_flag.hpp"

#include "calendar/month_calendar_defaults.hpp"
#include "calendar/month_calendar_layout.hpp"
#include "common/control_error.hpp"
#include "common/conversions.hpp"
#include "common/date_runtime.hpp"
#include "common/locale.hpp"
#include "host/about_box.hpp"
#include "platform/platform.hpp"

namespace tarnbrook {

using namespace month_calendar_defaults;
namespace layout = month_calendar_layout;

MonthCalendar::MonthCalendar(HWND parent) : Control(parent) {
  PaintBatch batch(false);             // painted by its container, once placed
  Move(0, 0, FixedWidth, FixedHeight); // the buttons draw into the surface of this size

  dropDown_.Connect(this);

  // The month list lies hidden under the month's name; a click there opens its list.
  cboMonth_ = std::make_unique<ComboBox>(hWnd());
  cboMonth_->SetVisible(false);
  const Rect& name = layout::MonthNameRect;
  cboMonth_->Move(name.left, name.top, name.Width(), cboMonth_->FieldHeight());
  for (int month = 1; month <= 12; ++month)
    cboMonth_->AddItem(CurrentLocale().MonthName(month));
  monthListRelay_.click = [this] { MonthPicked(); };
  cboMonth_->Connect(&monthListRelay_);

  minDate_ = CDate(MinDateText);
  maxDate_ = LastDate();
  SetDisplayedYear(Year(value_));
  CreateButtons();
  SetEmptyButton(false);
  SetValue(Platform::Current().Today());
}

MonthCalendar::~MonthCalendar() {
  cboMonth_->Disconnect(&monthListRelay_);
  // The pop-up object still hides a shown pop-up when it ends, but tells nobody.
  dropDown_.Disconnect(this);
  if (printClientAttached_)
    DetachMessage(this, hWnd(), WM_PRINTCLIENT);
}

// --- The selected date and the displayed month and year ---

void MonthCalendar::SetValue(DateValue value) {
  CheckDateRange(value); // a date the calendar could not show is never kept
  PaintBatch batch;
  if (value != value_) {
    value_ = value;
    PropertyChanged(CalendarKey::Value);
  }
  const std::string yearText = std::to_string(Year(value));
  const int32_t monthIndex = Month(value) - 1;
  if (yearText != displayedYear_) {
    displayedYear_ = yearText;
    if (cboMonth_->ListIndex() != monthIndex)
      cboMonth_->SetListIndex(monthIndex);
    else
      Paint();
  }
  // Again: a refused month is offered once more.
  if (cboMonth_->ListIndex() != monthIndex)
    cboMonth_->SetListIndex(monthIndex);
  else
    Paint();
  events_.Raise(&MonthCalendarEvents::Change);
}

int32_t MonthCalendar::SelectedDay() const {
  return Day(value_);
}

void MonthCalendar::SetSelectedDay(int32_t day) {
  // The accepted month text is a month's name, so its conversion raises a type mismatch.
  SetValue(DateSerial(CInt(CDbl(displayedYear_)), CInt(CDbl(acceptedMonthText_)), day));
  PropertyChanged(CalendarKey::SelectedDay);
}

int32_t MonthCalendar::SelectedMonth() const {
  return cboMonth_->ListIndex() + 1;
}

void MonthCalendar::SetSelectedMonth(int32_t month) {
  // The list refuses every index below -1, the lowest month's too.
  cboMonth_->SetListIndex(month > INT32_MIN ? month - 1 : month);
  PropertyChanged(CalendarKey::SelectedMonth);
  PropertyChanged(CalendarKey::Value);
}

int32_t MonthCalendar::SelectedYear() const {
  return DisplayedYear();
}

void MonthCalendar::SetSelectedYear(int32_t year) {
  if (year < FirstYear || year > Year(LastDate()))
    RaiseRuntimeError(rtInvalidProcedureCall);
  SetDisplayedYear(year);
  Paint();
  PropertyChanged(CalendarKey::SelectedYear);
  PropertyChanged(CalendarKey::Value);
}

int32_t MonthCalendar::DisplayedYear() const {
  return CLng(CDbl(displayedYear_));
}

void MonthCalendar::SetDisplayedYear(int32_t year) {
  displayedYear_ = std::to_string(year);
}

// --- Limits and plain properties ---

void MonthCalendar::SetMinDate(DateValue value) {
  CheckDateRange(value);
  if (value > maxDate_)
    throw ControlError(1068, "DatePicker", "MinDate can't be larger than MaxDate");
  minDate_ = value;
  PropertyChanged(CalendarKey::MinDate);
}

void MonthCalendar::SetMaxDate(DateValue value) {
  CheckDateRange(value);
  if (value < minDate_)
    throw ControlError(1070, "DatePicker", "MaxDate can't be smaller than MinDate");
  maxDate_ = value;
  PropertyChanged(CalendarKey::MaxDate);
}

int32_t CheckedFirstDayOfWeek(int32_t firstDay) {
  if (firstDay < vbUseSystemDayOfWeek || firstDay > vbSaturday)
    RaiseRuntimeError(rtInvalidProcedureCall);
  return firstDay;
}

void MonthCalendar::SetFirstDayofWeek(int32_t firstDay) {
  firstDayofWeek_ = CheckedFirstDayOfWeek(firstDay);
  Paint();
  PropertyChanged(CalendarKey::FirstDayOfWeek);
}

void MonthCalendar::SetEmptyButton(bool show) {
  emptyButton_ = show;
  Paint();
  PropertyChanged(CalendarKey::EmptyButton);
}

void MonthCalendar::SetEmptyButtonCaption(const std::string& caption) {
  CheckTextLength(caption);
  emptyButtonCaption_ = caption;
  Paint();
  PropertyChanged(CalendarKey::EmptyButtonCaption);
}

void MonthCalendar::SetTodayButtonCaption(const std::string& caption) {
  CheckTextLength(caption);
  todayButtonCaption_ = caption;
  Paint();
  PropertyChanged(CalendarKey::TodayButtonCaption);
}

void MonthCalendar::SetActiveMonthColor(OleColor color) {
  activeMonthColor_ = color;
  Paint();
  PropertyChanged(CalendarKey::ActiveMonthColor);
}

void MonthCalendar::SetInactiveMonthColor(OleColor color) {
  inactiveMonthColor_ = color;
  Paint();
  PropertyChanged(CalendarKey::InactiveMonthColor);
}

void MonthCalendar::SetPresentDateColor(OleColor color) {
  presentDateColor_ = color;
  Paint();
  PropertyChanged(CalendarKey::PresentDateColor);
}

void MonthCalendar::SetWeekDayColor(OleColor color) {
  weekDayColor_ = color;
  Paint();
  PropertyChanged(CalendarKey::WeekDayColor);
}

void MonthCalendar::SetHeaderColor(OleColor color) {
  headerColor_ = color;
  Paint();
  PropertyChanged(CalendarKey::HeaderColor);
}

void MonthCalendar::SetHeaderForeColor(OleColor color) {
  headerForeColor_ = color;
  Paint();
  PropertyChanged(CalendarKey::HeaderForeColor);
}

void MonthCalendar::SetBackColor(OleColor color) {
  backColor_ = color;
  Paint();
  PropertyChanged(CalendarKey::BackColor);
}

void MonthCalendar::SetButtonStyle(int32_t style) {
  if (style > mvwButtonFlat) // negative styles pass: the test is signed
    throw ControlError(5075, "Tarnbrok.MonthCalendar", "Invalid Button Style");
  buttonStyle_ = style;
  for (auto& [name, button] : buttons_)
    button.Border = style;
  Paint();
  PropertyChanged(CalendarKey::ButtonStyle);
}

void MonthCalendar::SetBackDrawMode(int32_t mode) {
  backDrawMode_ = mode;
  Paint();
  PropertyChanged(CalendarKey::BackDrawMode);
}

void MonthCalendar::SetBackgroundImage(std::shared_ptr<const Picture> picture) {
  backgroundImage_ = std::move(picture);
  Paint();
  PropertyChanged(CalendarKey::BackGroundImage);
}

void MonthCalendar::SetFont(const tarnbrook::Font& font) {
  font_ = CheckedFont(font);
  Paint();
  PropertyChanged(CalendarKey::Font);
}

void MonthCalendar::SetHoverIcon(bool hover) {
  hoverIcon_ = hover;
  PropertyChanged(CalendarKey::HoverIcon);
}

void MonthCalendar::SetEnabled(bool enabled) {
  Control::SetEnabled(enabled);
  for (const char* name : {"Left", "Right"}) {
    if (auto it = buttons_.find(name); it != buttons_.end()) {
      if (enabled)
        it->second.RemoveState(DFCS_INACTIVE);
      else
        it->second.AddState(DFCS_INACTIVE);
    }
  }
  Paint();
  PropertyChanged(CalendarKey::Enabled);
}

void MonthCalendar::About() {
  ShowAboutBox(ClassName(), Site().ContainerWindow() ? Site().ContainerWindow() : hWnd());
}

// --- Month handling and navigation ---

void MonthCalendar::MonthPicked() {
  if (restoringMonth_)
    return;
  // Year and month are tested separately, each against its own part of the limit.
  const int32_t year = DisplayedYear();
  const int32_t month = cboMonth_->ListIndex() + 1;
  const bool belowMin = year <= Year(minDate_) && month < Month(minDate_);
  const bool aboveMax = year >= Year(maxDate_) && month > Month(maxDate_);
  if (belowMin || aboveMax) {
    const ScopedFlag restoring(restoringMonth_);
    // No month accepted yet (SelectedMonth 0) is the list without a selection.
    if (acceptedMonthText_.empty())
      cboMonth_->SetListIndex(-1);
    else
      cboMonth_->SetText(acceptedMonthText_);
    return;
  }
  acceptedMonthText_ = cboMonth_->Text();
  events_.Raise(&MonthCalendarEvents::MonthChanged);
  Paint();
}

void MonthCalendar::ButtonAction(const std::string& name) {
  if (name == "Left") {
    MonthStep(-1);
  } else if (name == "Right") {
    MonthStep(1);
  } else if (name == "Up") {
    YearStep(1);
  } else if (name == "Down") {
    YearStep(-1);
  } else if (name == "Today") {
    if (DateValue today = Platform::Current().Today(); InRange(today))
      SetValue(today);
  } else if (name == "Empty") {
    if (emptyButton_)
      events_.Raise(&MonthCalendarEvents::EmptyClicked);
  }
}

void MonthCalendar::MonthStep(int delta) {
  const int32_t index = cboMonth_->ListIndex();
  // No month lies beyond December 9999 or before the runtime's first year: the step is
  // refused with a beep and nothing changes.
  const int32_t year = DisplayedYear();
  if ((delta > 0 && index >= 11 && year >= Year(LastDate())) ||
      (delta < 0 && index < 1 && year <= FirstYear)) {
    Platform::Current().MessageBeep(MB_OK);
    return;
  }
  // The year wraps without a limit test and without YearChanged.
  if (delta > 0) {
    if (index == 11) {
      SetDisplayedYear(DisplayedYear() + 1);
      cboMonth_->SetListIndex(0);
    } else {
      cboMonth_->SetListIndex(index + 1);
    }
  } else {
    if (index < 1) {
      SetDisplayedYear(DisplayedYear() - 1);
      cboMonth_->SetListIndex(11);
    } else {
      cboMonth_->SetListIndex(index - 1);
    }
  }
  events_.Raise(&MonthCalendarEvents::MonthChanged);
}

void MonthCalendar::YearStep(int delta) {
  const int32_t year = DisplayedYear();
  if (delta > 0 ? year >= Year(maxDate_) : year <= Year(minDate_))
    return;
  SetDisplayedYear(year + delta);
  Paint();
  events_.Raise(&MonthCalendarEvents::YearChanged);
}

bool MonthCalendar::InRange(DateValue date) const {
  return minDate_ <= date && date <= maxDate_;
}

void MonthCalendar::ClickDay(DateValue date) {
  if (InRange(date))
    SetValue(date);
  events_.Raise(&MonthCalendarEvents::DateClicked);
}

// --- The grid ---

void MonthCalendar::ComputeGrid() {
  DateValue first = DateSerial(DisplayedYear(), cboMonth_->ListIndex() + 1, 1);
  gridStart_ = first - Weekday(first, firstDayofWeek_) + 1;
  if (gridStart_ > LastDate() - layout::Cells) {
    // The grid would run past the last day: show the month before, while the list's index
    // becomes that month's number, not its index.
    first = DateAdd("m", -1, first);
    cboMonth_->SetListIndex(Month(first));
    gridStart_ = first - Weekday(first, firstDayofWeek_) + 1;
  }
}

DateValue MonthCalendar::DayAt(int32_t x, int32_t y) const {
  const int32_t index = (x - layout::GridRect.left) / layout::CellWidth +
                        ((y - layout::GridRect.top) / layout::CellHeight) * layout::Columns;
  return gridStart_ + index;
}

} // namespace tarnbrook
