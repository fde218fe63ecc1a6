#pragma once
#include <string>

namespace tarnbrook {

// Where a date picker's format string comes from.
enum dtpFormats : int {
  dtpLongDate = 0,
  dtpShortDate = 1,
  dtpTime = 2,
  dtpCustom = 3,
};

// Reads the user's long date, short date and time patterns once per locale: again only when
// the current locale's name differs from the one they were read for. A picker calls it when
// it is created.
void LoadPickerPatterns();

// The format string for `format`: a kept locale pattern, or `customFormat` for dtpCustom;
// empty for any other number.
std::string PickerFormatString(int format, const std::string& customFormat);

} // namespace tarnbrook
