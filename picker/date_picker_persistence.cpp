// The picker's saved form: its keys come from its description, read and written in one order,
// so that every value written reads back unchanged.
#include <optional>

#include "common/control_error.hpp"
#include "common/conversions.hpp"
#include "common/scoped_flag.hpp"
#include "host/saved_properties.hpp"
#include "picker/date_picker.hpp"
#include "platform/platform.hpp"

namespace tarnbrook {
// A new control: the table's defaults, the user's short date as its custom format, and the
// calendar in Tahoma.
void DatePicker::InitProperties() {
  MemoryPropertyBag defaults;
  ReadProperties(defaults);
  SetCustomFormat(PickerFormatString(dtpShortDate, ""));
  tarnbrook::Font calendarFont = CalendarFont();
  calendarFont.Name = "Tahoma";
  SetCalendarFont(calendarFont);
}

// Every key is read, even after a refused one (a limit crossing the other, a value outside
// them, a wrong type); the first refusal is raised once the control is laid out.
void DatePicker::ReadProperties(PropertyBag& bag) {
  empty_ = true; // so that the empty default keeps this LastDate
  lastDate_ = Platform::Current().Now();
  // The widest limits, so that a stored limit is checked against the other stored one only.
  minDate_ = CDate(MinDateText);
  maxDate_ = CDate(MaxDateText);
  std::optional<ControlError> refused;
  {
    const ScopedFlag loading(loading_);
    refused = ReadSavedProperties(*this, TypeInfo(), bag);
  }
  RebuildFields();
  LayoutButtons();
  Redraw();
  if (refused)
    throw *refused;
}

void DatePicker::WriteProperties(PropertyBag& bag) {
  WriteSavedProperties(*this, TypeInfo(), bag);
}

} // namespace tarnbrook
