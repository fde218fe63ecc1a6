#include <gtest/gtest.h>

#include "common/control_error.hpp"
#include "common/conversions.hpp"
#include "common/date_format.hpp"
#include "common/date_runtime.hpp"
#include "common/locale.hpp"

#include "common/wall_clock.hpp"
#include "tests/support/raised.hpp"

using namespace tarnbrook;

namespace {

DateValue At(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
  return DateValueFromCivil({year, month, day}, {hour, minute, second});
}

int ParseError(std::string_view text) {
  return RaisedNumber([&] { CDate(text); });
}

} // namespace

TEST(CDate, ShortDatesWithOptionalTimes) {
  EXPECT_EQ(CDate("11/21/2026"), At(2026, 11, 21));
  EXPECT_EQ(CDate("  11/21/2026 5:04 PM "), At(2026, 11, 21, 17, 4));
  EXPECT_EQ(CDate("11/21/2026 17:04:09"), At(2026, 11, 21, 17, 4, 9));
  EXPECT_EQ(CDate("11/21/2026 12:15 am"), At(2026, 11, 21, 0, 15));
  EXPECT_EQ(CDate("11/21/2026 12 PM"), At(2026, 11, 21, 12));
  EXPECT_EQ(CDate("1/1/1601"), At(1601, 1, 1));
  EXPECT_EQ(CDate("12/31/9999"), At(9999, 12, 31));
  EXPECT_EQ(CDate("12/29/1899 6:00:00 AM"), -1.25);
  EXPECT_EQ(CDate("13/12/2026"), At(2026, 12, 13)); // a month over 12 is taken as the day
}

TEST(CDate, IsoDatesMonthNamesAndTimesAlone) {
  EXPECT_EQ(CDate("2026-11-21"), At(2026, 11, 21));
  EXPECT_EQ(CDate("2026-11-21 17:04:09"), At(2026, 11, 21, 17, 4, 9));
  EXPECT_EQ(CDate("November 21, 2026"), At(2026, 11, 21));
  EXPECT_EQ(CDate("21 Nov 2026"), At(2026, 11, 21));
  EXPECT_EQ(CDate("21-nov-26"), At(2026, 11, 21));
  EXPECT_EQ(CDate("Saturday, November 21, 2026"), At(2026, 11, 21));
  EXPECT_EQ(CDate("November 2026"), At(2026, 11, 1));
  EXPECT_EQ(CDate("17:04"), At(1899, 12, 30, 17, 4));
  EXPECT_EQ(CDate("5:04:09 PM"), At(1899, 12, 30, 17, 4, 9));
}

TEST(CDate, TwoDigitYearsPivotAtThirty) {
  EXPECT_EQ(CDate("1/2/00"), At(2000, 1, 2));
  EXPECT_EQ(CDate("1/2/29"), At(2029, 1, 2));
  EXPECT_EQ(CDate("1/2/30"), At(1930, 1, 2));
  EXPECT_EQ(CDate("1/2/99"), At(1999, 1, 2));
}

TEST(CDate, TextThatIsNoDateRaises13) {
  for (const char* text : {"", "   ", "hello", "2/30/2026", "13/13/2026", "2/29/2027", "25:00",
                           "10:61", "13:00 PM", "5", "1/1/10000", "11/21/2026 x",
                           "11/21/2026 5:00 6:00", "Smarch 3, 2026", "11/21/2026;"}) {
    EXPECT_EQ(ParseError(text), rtTypeMismatch) << '"' << text << '"';
    EXPECT_FALSE(IsDate(text)) << text;
  }
  EXPECT_TRUE(IsDate("11/21/2026"));
}

TEST(CDate, DatesWithoutAYearTakeTheWallClocksYear) {
  EXPECT_EQ(ParseError("11/21"), rtTypeMismatch); // no clock installed: no current year
  SetWallClock([] { return At(2031, 5, 6, 7, 8); });
  EXPECT_EQ(CDate("11/21"), At(2031, 11, 21));
  EXPECT_EQ(CDate("Nov 21"), At(2031, 11, 21));
  EXPECT_EQ(CDate("21 November 5:04 PM"), At(2031, 11, 21, 17, 4));
  EXPECT_EQ(ParseError("2/29"), rtTypeMismatch); // 2031 is no leap year
  Locale dayFirst = Locale::EnglishUS();
  dayFirst.ShortDatePattern = "d/M/yyyy";
  EXPECT_EQ(CDate("3/4", dayFirst), At(2031, 4, 3));
  SetWallClock(nullptr);
}

TEST(CDate, DayMonthOrderFollowsTheShortDatePattern) {
  Locale dayFirst = Locale::EnglishUS();
  dayFirst.ShortDatePattern = "dd.MM.yyyy";
  dayFirst.DateSeparator = ".";
  dayFirst.MonthNames[10] = "November";
  EXPECT_EQ(CDate("1/2/2026", dayFirst), At(2026, 2, 1));
  EXPECT_EQ(CDate("21.11.2026 17:04", dayFirst), At(2026, 11, 21, 17, 4));
  Locale yearFirst = Locale::EnglishUS();
  yearFirst.ShortDatePattern = "yy/MM/dd";
  EXPECT_EQ(CDate("26/11/21", yearFirst), At(2026, 11, 21));
  // A four-digit year written last is the year whatever the order: the controls' limits.
  EXPECT_EQ(CDate("1/1/1601", yearFirst), At(1601, 1, 1));
  EXPECT_EQ(CDate("12/31/9999", yearFirst), At(9999, 12, 31));
  yearFirst.ShortDatePattern = "yyyy/dd/MM"; // day before month, after the year
  EXPECT_EQ(CDate("2/1/2026", yearFirst), At(2026, 1, 2));
}

TEST(CDate, ReadsBackWhatFormatDateWrites) {
  for (const DateValue value : {At(2026, 11, 21, 17, 4, 9), At(1601, 1, 1, 0, 0, 1),
                                At(1899, 12, 30, 23, 59, 59), At(9999, 12, 31, 12)}) {
    EXPECT_EQ(CDate(FormatDate(value, "General Date")), value) << value;
    EXPECT_EQ(CDate(FormatDate(value, "yyyy-mm-dd hh:nn:ss")), value) << value;
    EXPECT_EQ(CDate(FormatDate(value, "Long Date")), DateOnly(value)) << value;
  }
}
