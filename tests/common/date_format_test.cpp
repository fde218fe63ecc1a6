#include <chrono>
#include <cstdio>

#include <gtest/gtest.h>

#include "common/control_error.hpp"
#include "common/date_format.hpp"
#include "common/locale.hpp"

#include "tests/support/raised.hpp"

using namespace tarnbrook;

namespace {

// 21 November 2026 (a Saturday), 17:04:09.
const DateValue kEvening = DateValueFromCivil({2026, 11, 21}, {17, 4, 9});

int FormatError(DateValue value, std::string_view format, int firstDay = 1, int firstWeek = 1) {
  return RaisedNumber([&] { FormatDate(value, format, firstDay, firstWeek); });
}

} // namespace

// Serial days counted with std::chrono, the time added forward from midnight even before 1899.
TEST(FormatDate, NumericCodesAndMediumDateAgreeWithChronoFrom1601) {
  using namespace std::chrono;
  static const char* const months[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                       "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  const sys_days epoch = sys_days(year(1899) / December / 30);
  for (long serial = -109205; serial <= 2958465; serial += 97) {
    const year_month_day date(epoch + days(serial));
    const int y = int(date.year()), m = int(unsigned(date.month())), d = int(unsigned(date.day()));
    const int seconds = int(((serial * 7919) % 86400 + 86400) % 86400);
    const double fraction = seconds / 86400.0;
    const DateValue value = serial < 0 ? serial - fraction : serial + fraction;
    char expected[64];
    std::snprintf(expected, sizeof expected, "%04d-%02d-%02d %02d:%02d:%02d", y, m, d,
                  seconds / 3600, seconds / 60 % 60, seconds % 60);
    ASSERT_EQ(FormatDate(value, "yyyy-mm-dd hh:nn:ss"), expected) << serial;
    std::snprintf(expected, sizeof expected, "%02d-%s-%02d", d, months[m - 1], y % 100);
    ASSERT_EQ(FormatDate(value, "Medium Date"), expected) << serial;
  }
}

TEST(FormatDate, MAfterAnHourIsMinutesOtherwiseMonth) {
  EXPECT_EQ(FormatDate(kEvening, "h:m"), "17:4");
  EXPECT_EQ(FormatDate(kEvening, "hh:mm"), "17:04");
  EXPECT_EQ(FormatDate(kEvening, "hh \"h\" mm"), "17 h 04");
  EXPECT_EQ(FormatDate(kEvening, "mm/dd hh"), "11/21 17");
  EXPECT_EQ(FormatDate(kEvening, "hh:ss:mm"), "17:09:11"); // a seconds code in between
  EXPECT_EQ(FormatDate(kEvening, "hh mmm"), "17 Nov");     // names are always months
  EXPECT_EQ(FormatDate(kEvening, "HH:MM"), "17:04");       // codes ignore case
  EXPECT_EQ(FormatDate(kEvening, "YYYY-MM-DD"), "2026-11-21");
}

TEST(FormatDate, NamedFormatsIgnoreCase) {
  EXPECT_EQ(FormatDate(kEvening, "General Date"), "11/21/2026 5:04:09 PM");
  EXPECT_EQ(FormatDate(kEvening, "Long Date"), "Saturday, November 21, 2026");
  EXPECT_EQ(FormatDate(kEvening, "medium date"), "21-Nov-26");
  EXPECT_EQ(FormatDate(kEvening, "Short Date"), "11/21/2026");
  EXPECT_EQ(FormatDate(kEvening, "Long Time"), "5:04:09 PM");
  EXPECT_EQ(FormatDate(kEvening, "MEDIUM TIME"), "05:04 PM");
  EXPECT_EQ(FormatDate(kEvening, "Short Time"), "17:04");
  EXPECT_EQ(FormatDate(DateValueFromCivil({2026, 1, 2}), "General Date"), "1/2/2026");
  EXPECT_EQ(FormatDate(0.75, "General Date"), "6:00:00 PM");
}

TEST(FormatDate, EmptyFormatIsTheDefaultConversion) {
  EXPECT_EQ(FormatDate(kEvening, ""), "11/21/2026 5:04:09 PM");
  EXPECT_EQ(DateToText(DateValueFromCivil({1601, 1, 1})), "1/1/1601");
  EXPECT_EQ(DateToText(0.0), "12:00:00 AM");
  EXPECT_EQ(DateToText(-0.5), "12:00:00 PM");
  EXPECT_EQ(DateToText(-1.25), "12/29/1899 6:00:00 AM");
}

TEST(FormatDate, AmPmCodesSwitchToTwelveHours) {
  const DateValue halfPastMidnight = DateValueFromCivil({2026, 11, 21}, {0, 30, 0});
  EXPECT_EQ(FormatDate(halfPastMidnight, "h:nn AM/PM"), "12:30 AM");
  EXPECT_EQ(FormatDate(halfPastMidnight, "h:nn"), "0:30");
  EXPECT_EQ(FormatDate(kEvening, "h am/pm"), "5 pm");
  EXPECT_EQ(FormatDate(kEvening, "hh A/P"), "05 P");
  EXPECT_EQ(FormatDate(halfPastMidnight, "h a/p"), "12 a");
  EXPECT_EQ(FormatDate(kEvening, "h Am/pM"), "5 pM");
  EXPECT_EQ(FormatDate(kEvening, "h ampm"), "5 PM");
  EXPECT_EQ(FormatDate(kEvening, "ttttt"), "5:04:09 PM");
}

TEST(FormatDate, LiteralsQuotesAndBackslash) {
  EXPECT_EQ(FormatDate(kEvening, "\"Day\" d \"of\" mmmm"), "Day 21 of November");
  EXPECT_EQ(FormatDate(kEvening, "\\d\\a\\y d"), "day 21");
  EXPECT_EQ(FormatDate(kEvening, "yyyy\\"), "2026");
  EXPECT_EQ(FormatDate(kEvening, "\"open"), "open");
  EXPECT_EQ(FormatDate(kEvening, "d-x-m"), "21-x-11");
}

TEST(FormatDate, WeekdayWeekQuarterAndDayOfYear) {
  EXPECT_EQ(FormatDate(kEvening, "ddd dddd"), "Sat Saturday");
  EXPECT_EQ(FormatDate(kEvening, "w"), "7");
  EXPECT_EQ(FormatDate(kEvening, "w", vbMonday), "6");
  EXPECT_EQ(FormatDate(kEvening, "q y"), "4 325");
  EXPECT_EQ(FormatDate(DateValueFromCivil({2026, 1, 3}), "ww"), "1");
  EXPECT_EQ(FormatDate(DateValueFromCivil({2026, 1, 4}), "ww"), "2");
  EXPECT_EQ(FormatDate(DateValueFromCivil({2026, 12, 31}), "ww", vbMonday, vbFirstFourDays), "53");
  EXPECT_EQ(FormatDate(kEvening, "ddddd | dddddd"), "11/21/2026 | Saturday, November 21, 2026");
  EXPECT_EQ(FormatDate(kEvening, "c"), "11/21/2026 5:04:09 PM");
}

TEST(FormatDate, SeparatorsAndNamesComeFromTheLocale) {
  Locale dotted = Locale::EnglishUS();
  dotted.DateSeparator = ".";
  dotted.TimeSeparator = "-";
  dotted.ShortDatePattern = "dd/MM/yy";
  dotted.TimePattern = "HH:mm 'h'";
  dotted.MonthNames[10] = "Novembre";
  EXPECT_EQ(FormatDate(kEvening, "d/m/yyyy h:nn mmmm", 0, 0, dotted), "21.11.2026 17-04 Novembre");
  EXPECT_EQ(FormatDate(kEvening, "General Date", 0, 0, dotted), "21.11.26 17-04 h");
  EXPECT_EQ(DateToText(kEvening, dotted), "21.11.26 17-04 h");
}

TEST(FormatDate, GermanLocaleFromIcu) {
  const Locale german = Locale::FromIcu("de_DE");
  if (german.MonthName(1) != "Januar") {
    GTEST_SKIP() << "ICU on this machine has no German (de_DE) date data";
  }
  EXPECT_EQ(FormatDate(kEvening, "Long Date", 0, 0, german), "21. November 2026");
  EXPECT_EQ(FormatDate(kEvening, "General Date", 0, 0, german), "21.11.26 17:04:09");
  EXPECT_EQ(FormatDate(kEvening, "dddd, d. mmmm", 0, 0, german), "Samstag, 21. November");
  EXPECT_EQ(FormatDate(DateValueFromCivil({2026, 3, 2}), "w ddd mmm", 0, 0, german), "1 Mo. März");
}

TEST(FormatDate, OutOfRangeValuesAndSettingsRaise5) {
  EXPECT_EQ(FormatError(MaxDateValue + 1, "yyyy"), rtInvalidProcedureCall);
  EXPECT_EQ(FormatError(MinDateValue - 1, ""), rtInvalidProcedureCall);
  EXPECT_EQ(FormatError(kEvening, "w", 8), rtInvalidProcedureCall);
  EXPECT_EQ(FormatError(kEvening, "ww", 1, 4), rtInvalidProcedureCall);
  EXPECT_EQ(FormatError(kEvening, "ww", 0, 0), 0);
}

TEST(FormatDate, LocalePatternLetters) {
  Locale custom = Locale::EnglishUS();
  custom.TimePattern = "h 'o''clock' t|tt|H|HH|m|s\\s";
  custom.ShortDatePattern = "y|yy|yyy|MMMMM|ddddd";
  const DateValue morning = DateValueFromCivil({2005, 7, 4}, {0, 5, 6});
  EXPECT_EQ(FormatDate(morning, "Long Time", 0, 0, custom), "12 oclock A|AM|0|00|5|6s");
  EXPECT_EQ(FormatDate(morning, "Short Date", 0, 0, custom), "5|05|2005|July7|Monday");
}

TEST(FormatDate, LongResultsAndManyFormatsInTurn) {
  const std::string format(40, 'd');
  std::string expected;
  for (int i = 0; i < 6; ++i) {
    expected += "Saturday, November 21, 2026";
  }
  expected += "Saturday";
  EXPECT_EQ(FormatDate(kEvening, format), expected);
  // More formats than are kept compiled, then the first ones again.
  for (int round = 0; round < 2; ++round) {
    for (int width = 1; width <= 40; ++width) {
      const std::string yearDashes = "yyyy" + std::string(static_cast<size_t>(width), '-');
      ASSERT_EQ(FormatDate(kEvening, yearDashes), "2026" + std::string(size_t(width), '-'));
    }
  }
}
