#pragma once
#include <cstdint>
#include <memory>
#include <string>

namespace tarnbrook {

// Locale items asked for by number, as GetLocaleInfo takes them.
enum LocaleItem : uint32_t {
  LOCALE_SDATE = 29,
  LOCALE_STIME = 30,
  LOCALE_SSHORTDATE = 31,
  LOCALE_SLONGDATE = 32,
  LOCALE_STIMEFORMAT = 4099,
};
constexpr uint32_t LOCALE_USER_DEFAULT = 1024;

// Month and weekday names, AM/PM, date and time patterns and separators, first day of week.
// Patterns use the picker's pattern letters (d, M, y, h, H, m, s, t, quotes).
class Locale {
public:
  std::string Name;                 // "en-US"
  std::string MonthNames[12];       // January ...
  std::string AbbrevMonthNames[12]; // Jan ...
  std::string DayNames[7];          // Sunday ...
  std::string AbbrevDayNames[7];    // Sun ...
  std::string AmDesignator;
  std::string PmDesignator;
  std::string ShortDatePattern; // M/d/yyyy
  std::string LongDatePattern;  // dddd, MMMM d, yyyy
  std::string TimePattern;      // h:mm:ss tt
  std::string DateSeparator;    // "/"
  std::string TimeSeparator;    // ":"
  int FirstDayOfWeek = 1;       // 1 = Sunday ... 7 = Saturday
  int FirstWeekOfYear = 1;      // 1 = the week of 1 January

  // 1..12, 1 = Sunday ... 7 = Saturday.
  const std::string& MonthName(int month, bool abbreviate = false) const;
  const std::string& WeekdayName(int weekday, bool abbreviate = false) const;

  // The built-in English (United States) locale.
  static const Locale& EnglishUS();
  // The locale named by LC_ALL, LC_TIME or LANG through ICU; English (United States) for
  // C, POSIX or an unset environment.
  static Locale FromEnvironment();
  // A locale by ICU name ("de_DE", "fr-FR").
  static Locale FromIcu(const std::string& icuName);
};

// The process's current locale; English (United States) until one is set.
const Locale& CurrentLocale();
void SetCurrentLocale(const Locale& locale);

// GetLocaleInfo: writes the item into `buffer` (at most `bufferSize` - 1 characters and a NUL)
// and returns the number of characters written including the NUL; 0 for an unknown item.
// Sizes count UTF-8 bytes. With `bufferSize` 0 it returns the size needed; a buffer too small
// gets the leading characters that fit, without a NUL, and 0 is returned.
int GetLocaleInfo(uint32_t lcid, uint32_t item, char* buffer, int bufferSize);
// The item as the picker reads it: a 100-character buffer, the text cut at the first NUL.
std::string ReadLocaleItem(uint32_t item);

} // namespace tarnbrook
