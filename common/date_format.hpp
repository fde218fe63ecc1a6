#pragma once
#include <string>
#include <string_view>

#include "common/date_runtime.hpp"

namespace tarnbrook {

class Locale;

// Formats a date with the runtime's user-defined format language or one of its named
// formats ("General Date", "Long Date", "Medium Date", "Short Date", "Long Time",
// "Medium Time", "Short Time"). An empty format gives the default conversion.
// Formats are compiled once and kept in a small per-thread cache.
std::string FormatDate(DateValue value, std::string_view format, int firstDayOfWeek = vbSunday,
                       int firstWeekOfYear = vbFirstJan1);
std::string FormatDate(DateValue value, std::string_view format, int firstDayOfWeek,
                       int firstWeekOfYear, const Locale& locale);

// The default date-to-text conversion: the short date, plus the long time when the time is
// not zero; a value with no date part (day 0) shows only its time.
std::string DateToText(DateValue value);
std::string DateToText(DateValue value, const Locale& locale);

// A format read once, for a caller that formats with it again and again (a picker field, a
// calendar's value line). It gives exactly FormatDate's text. It holds no locale data: names,
// separators and the locale's patterns are looked up when it runs, so one compiled format
// stays right when the locale changes.
class CompiledDateFormat {
public:
  // The empty format: the default conversion.
  CompiledDateFormat() = default;
  explicit CompiledDateFormat(std::string_view format);

  std::string Format(DateValue value, int firstDayOfWeek = vbSunday,
                     int firstWeekOfYear = vbFirstJan1) const;
  std::string Format(DateValue value, int firstDayOfWeek, int firstWeekOfYear,
                     const Locale& locale) const;

private:
  bool default_ = true; // the empty format
  std::string program_; // one code byte per step, literal text inline
};

} // namespace tarnbrook
