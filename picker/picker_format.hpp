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

// Reads the user's long date, short date and time patterns once per process: only while the
// kept long date pattern is still empty, so a later change of locale is not seen. A picker
// calls it when it is created.
void LoadPickerPatterns();

// The format string for `format`: a kept locale pattern, or `customFormat` for dtpCustom;
// empty for any other number.
std::string PickerFormatString(int format, const std::string& customFormat);

} // namespace tarnbrook
