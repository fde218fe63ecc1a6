// The control's saved form: its keys come from its description, which gives the order they
// are read and applied and the place each takes when written.
#include <optional>

#include "common/date_runtime.hpp"
#include "dateselect/date_select.hpp"
#include "host/saved_properties.hpp"
#include "platform/platform.hpp"

namespace tarnbrook {

// A new control: today's year and month, "Today" selected, the range ending today.
void DateSelect::InitProperties() {
  const DateValue today = Platform::Current().Today();
  buttonWidth_ = 16;
  foreColor_ = vbButtonText;
  controlBackColor_ = vbWindowBackground;
  SetFocusColor(0xB0FCB0);
  SetBorderStyle(dtpBorderSunken3D);
  SetButtonStyle(dtpButton3D);
  SetShowFocusRect(true);
  SetSelectedYear(static_cast<int16_t>(Year(today)));
  RebuildOptionList();
  SetSelection(dtsToday);
  SetSelectedMonth(Month(today));
  Quietly([&] { cboCustomChoice_->SetListIndex(dtsDays); });
  SetEndDate(today);
  SetSQLFieldName("Date");
  SetSQLUseBETWEEN(true);
}

// Every key is read, even after a refused one; the first refusal is raised at the end.
void DateSelect::ReadProperties(PropertyBag& bag) {
  if (std::optional<ControlError> refused = ReadSavedProperties(*this, TypeInfo(), bag))
    throw *refused;
}

void DateSelect::WriteProperties(PropertyBag& bag) {
  WriteSavedProperties(*this, TypeInfo(), bag);
}

} // namespace tarnbrook
