#include "common/locale.hpp"
#include "common/text.hpp"

#include <cstdlib>
#include <cstring>

namespace tarnbrook {

namespace {

Locale MakeEnglishUS() {
  return Locale{
      .Name = "en-US",
      .MonthNames = {"January", "February", "March", "April", "May", "June", "July", "August",
                     "September", "October", "November", "December"},
      .AbbrevMonthNames = {"Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct",
                           "Nov", "Dec"},
      .DayNames = {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"},
      .AbbrevDayNames = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"},
      .AmDesignator = "AM",
      .PmDesignator = "PM",
      .ShortDatePattern = "M/d/yyyy",
      .LongDatePattern = "dddd, MMMM d, yyyy",
      .TimePattern = "h:mm:ss tt",
      .DateSeparator = "/",
      .TimeSeparator = ":",
      .FirstDayOfWeek = 1,
      .FirstWeekOfYear = 1,
  };
}

Locale& CurrentLocaleStorage() {
  static Locale current = Locale::EnglishUS();
  return current;
}

// The first non-empty of LC_ALL, LC_TIME and LANG, without codeset or modifier.
std::string EnvironmentLocaleName() {
  for (const char* variable : {"LC_ALL", "LC_TIME", "LANG"}) {
    const char* value = std::getenv(variable);
    if (value != nullptr && *value != '\0') {
      std::string name(value);
      return name.substr(0, name.find_first_of(".@"));
    }
  }
  return {};
}

const std::string* LocaleItemText(const Locale& locale, uint32_t item) {
  switch (item) {
  case LOCALE_SDATE:
    return &locale.DateSeparator;
  case LOCALE_STIME:
    return &locale.TimeSeparator;
  case LOCALE_SSHORTDATE:
    return &locale.ShortDatePattern;
  case LOCALE_SLONGDATE:
    return &locale.LongDatePattern;
  case LOCALE_STIMEFORMAT:
    return &locale.TimePattern;
  default:
    return nullptr;
  }
}

// Bytes of `text` that fit in `limit` without splitting a UTF-8 character.
size_t FittingBytes(const std::string& text, size_t limit) {
  return Utf8Floor(text, limit);
}

} // namespace

const std::string& Locale::MonthName(int month, bool abbreviate) const {
  const int index = ((month - 1) % 12 + 12) % 12;
  return abbreviate ? AbbrevMonthNames[index] : MonthNames[index];
}

const std::string& Locale::WeekdayName(int weekday, bool abbreviate) const {
  const int index = ((weekday - 1) % 7 + 7) % 7;
  return abbreviate ? AbbrevDayNames[index] : DayNames[index];
}

const Locale& Locale::EnglishUS() {
  static const Locale english = MakeEnglishUS();
  return english;
}

Locale Locale::FromEnvironment() {
  const std::string name = EnvironmentLocaleName();
  if (name.empty() || name == "C" || name == "POSIX") {
    return EnglishUS();
  }
  return FromIcu(name);
}

const Locale& CurrentLocale() {
  return CurrentLocaleStorage();
}

void SetCurrentLocale(const Locale& locale) {
  CurrentLocaleStorage() = locale;
}

// Like the system's: with a zero size only the needed size is returned; a buffer too small
// receives the leading characters that fit, without a NUL, and 0 is returned.
int GetLocaleInfo(uint32_t /*lcid*/, uint32_t item, char* buffer, int bufferSize) {
  const std::string* text = LocaleItemText(CurrentLocale(), item);
  if (text == nullptr || bufferSize < 0) {
    return 0;
  }
  const int needed = static_cast<int>(text->size()) + 1;
  if (bufferSize == 0) {
    return needed;
  }
  if (buffer == nullptr) {
    return 0;
  }
  if (bufferSize < needed) {
    std::memcpy(buffer, text->data(), FittingBytes(*text, static_cast<size_t>(bufferSize)));
    return 0;
  }
  std::memcpy(buffer, text->c_str(), static_cast<size_t>(needed));
  return needed;
}

std::string ReadLocaleItem(uint32_t item) {
  char buffer[100] = {};
  GetLocaleInfo(LOCALE_USER_DEFAULT, item, buffer, 99);
  return std::string(buffer, strnlen(buffer, sizeof buffer));
}

} // namespace tarnbrook
