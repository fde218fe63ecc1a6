#pragma once
#include <string>
#include <string_view>

#include "common/date_runtime.hpp"

namespace tarnbrook {

class Locale;

// Formats a date with the runtime's user-defined format language or one of its named
// formats ("General Date", "Long Date", "Medium Date", "Short Date", "Long Time",
// "Medium Time", "Short Time"). An empty format gives the default conversion.
std::string FormatDate(DateValue value, std::string_view format, int firstDayOfWeek = vbSunday,
                       int firstWeekOfYear = vbFirstJan1);
std::string FormatDate(DateValue value, std::string_view format, int firstDayOfWeek,
                       int firstWeekOfYear, const Locale& locale);

// The default date-to-text conversion: the short date, plus the long time when the time is
// not zero; a value with no date part (day 0) shows only its time.
std::string DateToText(DateValue value);
std::string DateToText(DateValue value, const Locale& locale);

} // namespace tarnbrook
