#pragma once
#include <cstdint>
#include <string_view>

#include "common/date_value.hpp"

namespace tarnbrook {

class Locale;

// The leading number of a text, 0 when there is none ("12abc" -> 12, "&H10" -> 16).
double Val(std::string_view text);
// A whole text as a number; raises 13 (type mismatch) when it is not one.
double CDbl(std::string_view text);
// Round half to even, then range check; raise 6 (overflow).
int16_t CInt(double value);
int32_t CLng(double value);
// Text to date as the runtime reads it: the locale's short date with an optional time,
// yyyy-mm-dd, month names; raises 13 when the text is no date.
DateValue CDate(std::string_view text);
DateValue CDate(std::string_view text, const Locale& locale);
bool IsDate(std::string_view text);

} // namespace tarnbrook
