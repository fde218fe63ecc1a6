#include <utility>

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

// What the random formats of the reference test leave out. An m after an hour is minutes,
// otherwise the month (a seconds code in between or a name makes it the month again); codes
// and named formats ignore case; the empty format and c are the default conversion; AM/PM
// codes keep the case they are written in; quotes and backslashes left open end the format.
TEST(FormatDate, CodesAndNamedFormatsOfASaturdayEvening) {
  const std::pair<const char*, const char*> cases[] = {
      {"h:m", "17:4"},
      {"hh:mm", "17:04"},
      {"hh \"h\" mm", "17 h 04"},
      {"mm/dd hh", "11/21 17"},
      {"hh:ss:mm", "17:09:11"},
      {"hh mmm", "17 Nov"},
      {"HH:MM", "17:04"},
      {"YYYY-MM-DD", "2026-11-21"},
      {"General Date", "11/21/2026 5:04:09 PM"},
      {"Long Date", "Saturday, November 21, 2026"},
      {"medium date", "21-Nov-26"},
      {"Short Date", "11/21/2026"},
      {"Long Time", "5:04:09 PM"},
      {"MEDIUM TIME", "05:04 PM"},
      {"Short Time", "17:04"},
      {"", "11/21/2026 5:04:09 PM"},
      {"c", "11/21/2026 5:04:09 PM"},
      {"ttttt", "5:04:09 PM"},
      {"ddddd | dddddd", "11/21/2026 | Saturday, November 21, 2026"},
      {"h am/pm", "5 pm"},
      {"hh A/P", "05 P"},
      {"h Am/pM", "5 pM"},
      {"\"Day\" d \"of\" mmmm", "Day 21 of November"},
      {"\\d\\a\\y d", "day 21"},
      {"yyyy\\", "2026"},
      {"\"open", "open"}};
  for (const auto& [format, expected] : cases) {
    EXPECT_EQ(FormatDate(kEvening, format), expected) << '"' << format << '"';
  }
}

TEST(FormatDate, MidnightNoonAndDaysWithoutATimeOrADate) {
  const DateValue halfPastMidnight = DateValueFromCivil({2026, 11, 21}, {0, 30, 0});
  EXPECT_EQ(FormatDate(halfPastMidnight, "h:nn AM/PM"), "12:30 AM");
  EXPECT_EQ(FormatDate(halfPastMidnight, "h:nn"), "0:30");
  EXPECT_EQ(FormatDate(DateValueFromCivil({2026, 1, 2}), "General Date"), "1/2/2026");
  EXPECT_EQ(FormatDate(0.75, "General Date"), "6:00:00 PM");
  EXPECT_EQ(DateToText(DateValueFromCivil({1601, 1, 1})), "1/1/1601");
  EXPECT_EQ(DateToText(0.0), "12:00:00 AM");
  EXPECT_EQ(DateToText(-0.5), "12:00:00 PM");
  EXPECT_EQ(DateToText(-1.25), "12/29/1899 6:00:00 AM");
}

TEST(FormatDate, WeeksCountFromTheFirstDayAndWeekAsked) {
  EXPECT_EQ(FormatDate(kEvening, "w", vbMonday), "6");
  EXPECT_EQ(FormatDate(DateValueFromCivil({2026, 1, 3}), "ww"), "1");
  EXPECT_EQ(FormatDate(DateValueFromCivil({2026, 1, 4}), "ww"), "2");
  EXPECT_EQ(FormatDate(DateValueFromCivil({2026, 12, 31}), "ww", vbMonday, vbFirstFourDays), "53");
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
  // The letters of a locale's own patterns.
  Locale custom = Locale::EnglishUS();
  custom.TimePattern = "h 'o''clock' t|tt|H|HH|m|s\\s";
  custom.ShortDatePattern = "y|yy|yyy|MMMMM|ddddd";
  const DateValue morning = DateValueFromCivil({2005, 7, 4}, {0, 5, 6});
  EXPECT_EQ(FormatDate(morning, "Long Time", 0, 0, custom), "12 oclock A|AM|0|00|5|6s");
  EXPECT_EQ(FormatDate(morning, "Short Date", 0, 0, custom), "5|05|2005|July7|Monday");
}

TEST(FormatDate, OutOfRangeValuesAndSettingsRaise5) {
  EXPECT_EQ(FormatError(MaxDateValue + 1, "yyyy"), rtInvalidProcedureCall);
  EXPECT_EQ(FormatError(MinDateValue - 1, ""), rtInvalidProcedureCall);
  EXPECT_EQ(FormatError(kEvening, "w", 8), rtInvalidProcedureCall);
  EXPECT_EQ(FormatError(kEvening, "ww", 1, 4), rtInvalidProcedureCall);
  EXPECT_EQ(FormatError(kEvening, "ww", 0, 0), 0);
}

// A result longer than the space kept for one in place; the reference test's random formats
// run through more formats than are kept compiled.
TEST(FormatDate, LongResultsAreWrittenWhole) {
  const std::string format(40, 'd');
  std::string expected;
  for (int i = 0; i < 6; ++i) {
    expected += "Saturday, November 21, 2026";
  }
  expected += "Saturday";
  EXPECT_EQ(FormatDate(kEvening, format), expected);
}
