#include "calendar/month_calendar.hpp"

#include <optional>

#include "calendar/month_calendar_defaults.hpp"
#include "common/control_error.hpp"
#include "common/conversions.hpp"
#include "common/date_runtime.hpp"
#include "host/saved_properties.hpp"
#include "platform/platform.hpp"

namespace tarnbrook {

void MonthCalendar::InitProperties() {
  using namespace month_calendar_defaults;
  font_ = DefaultFont();
  hoverIcon_ = true;
  Control::SetEnabled(true);
  minDate_ = CDate(MinDateText);
  maxDate_ = LastDate();
  firstDayofWeek_ = vbUseSystemDayOfWeek;
  presentDateColor_ = 255;
  inactiveMonthColor_ = vbGrayText;
  weekDayColor_ = vbHighlight;
  SetDisplayedYear(Year(value_));
  emptyButtonCaption_ = "None"; // not the persisted "Empty": a new control saves "None"
  todayButtonCaption_ = "Today";
  SetEmptyButton(false);
  SetValue(Platform::Current().Today());
}

// The keys come from the calendar's description; after them the month list is brought to the
// value's month, which runs the month handling within the limits.
void MonthCalendar::ReadProperties(PropertyBag& bag) {
  std::optional<ControlError> refused = ReadSavedProperties(*this, TypeInfo(), bag);
  try {
    cboMonth_->SetListIndex(Month(value_) - 1);
  } catch (const ControlError&) {
  }
  AttachPrintClient();
  if (refused)
    throw *refused;
}

void MonthCalendar::WriteProperties(PropertyBag& bag) {
  WriteSavedProperties(*this, TypeInfo(), bag);
}

} // namespace tarnbrook
