#include <gtest/gtest.h>

#include "common/control_error.hpp"
#include "common/date_runtime.hpp"
#include "common/locale.hpp"

#include "tests/support/raised.hpp"

using namespace tarnbrook;

namespace {

DateValue At(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
  return DateValueFromCivil({year, month, day}, {hour, minute, second});
}

} // namespace

TEST(DateRuntime, DateSerialAndTimeSerialRollOverBothWays) {
  EXPECT_EQ(DateSerial(2004, 13, 1), At(2005, 1, 1));
  EXPECT_EQ(DateSerial(2004, 0, 1), At(2003, 12, 1));
  EXPECT_EQ(DateSerial(2004, 3, 0), At(2004, 2, 29));
  EXPECT_EQ(DateSerial(2004, 1, -1), At(2003, 12, 30));
  EXPECT_EQ(DateSerial(2004, 1, 40), At(2004, 2, 9));
  EXPECT_EQ(DateSerial(10000, 1, -5), At(9999, 12, 26));
  EXPECT_EQ(DateSerial(5, 1, 1), At(2005, 1, 1));
  EXPECT_EQ(DateSerial(30, 1, 1), At(1930, 1, 1));
  EXPECT_EQ(DateSerial(99, 13, 1), At(2000, 1, 1));
  EXPECT_EQ(TimeSerial(12 - 6, -15, 0), At(1899, 12, 30, 5, 45));
  EXPECT_EQ(TimeSerial(0, -1, 0), At(1899, 12, 29, 23, 59));
}

// Days as a command line writes them: only existing days, whole, and never rolled over.
TEST(DateRuntime, IsoDatesAreExistingDaysOnly) {
  EXPECT_EQ(IsoDate("1800-01-01"), At(1800, 1, 1));
  EXPECT_EQ(IsoDate("2004-02-29"), At(2004, 2, 29));
  EXPECT_EQ(IsoDate("9999-12-31"), At(9999, 12, 31));
  for (const char* bad : {"2003-02-29", "2004-13-01", "2004-00-10", "0050-01-01", "2004-1-01",
                          "2004-01-01x", "2004/01/01", "", "abcd-ef-gh"})
    EXPECT_FALSE(IsoDate(bad).has_value()) << bad;
}

TEST(DateRuntime, DateAddClipsToMonthEndAndCarriesAcrossNegativeSerials) {
  EXPECT_EQ(DateAdd("m", 1, At(2004, 1, 31, 18)), At(2004, 2, 29, 18));
  EXPECT_EQ(DateAdd("q", 1, At(2004, 11, 30)), At(2005, 2, 28));
  EXPECT_EQ(DateAdd("YYYY", 1, At(2004, 2, 29)), At(2005, 2, 28));
  EXPECT_EQ(DateAdd("m", -1.9, At(1800, 3, 31, 6)), At(1800, 2, 28, 6));
  EXPECT_EQ(DateAdd("d", 1, -1.25), 0.25);
  EXPECT_EQ(DateAdd("n", 1, At(1899, 12, 29, 23, 59)), 0);
  EXPECT_EQ(DateAdd("s", -1, 0), At(1899, 12, 29, 23, 59, 59));
  EXPECT_EQ(DateAdd("ww", -2, 3.5), At(1899, 12, 19, 12));
  EXPECT_EQ(DateAdd("y", 1.9, -2.5), DateAdd("w", 1, -2.5));
  for (int minutes = 0; minutes <= 2880; minutes += 7) {
    const DateValue value = DateAdd("n", minutes, DateSerial(1899, 12, 29));
    ASSERT_EQ(Day(value), 29 + minutes / 1440);
    ASSERT_EQ(Hour(value) * 60 + Minute(value), minutes % 1440);
  }
}

TEST(DateRuntime, ErrorsAreInvalidProcedureCall) {
  EXPECT_EQ(RaisedNumber([] { DateAdd("x", 1, 0); }), rtInvalidProcedureCall);
  EXPECT_EQ(RaisedNumber([] { DateSerial(100, 1, 0); }), rtInvalidProcedureCall);
  EXPECT_EQ(RaisedNumber([] { DateAdd("yyyy", 1, At(9999, 12, 31)); }), rtInvalidProcedureCall);
  EXPECT_EQ(RaisedNumber([] { DateAdd("d", -1, At(100, 1, 1)); }), rtInvalidProcedureCall);
  EXPECT_EQ(RaisedNumber([] { DatePart("ww", 0, 8); }), rtInvalidProcedureCall);
  EXPECT_EQ(RaisedNumber([] { DatePart("ww", 0, 1, 4); }), rtInvalidProcedureCall);
}

TEST(DateRuntime, DatePartsOfADate) {
  const DateValue value = At(2004, 5, 10, 13, 45, 30);
  const char* intervals[] = {"yyyy", "q", "m", "y", "d", "w", "h", "n", "s"};
  const int expected[] = {2004, 2, 5, 131, 10, 2, 13, 45, 30};
  const int expectedBefore1899[] = {1899, 4, 12, 363, 29, 6, 6, 0, 0};
  for (int i = 0; i < 9; ++i) {
    EXPECT_EQ(DatePart(intervals[i], value), expected[i]) << intervals[i];
    EXPECT_EQ(DatePart(intervals[i], -1.25), expectedBefore1899[i]) << intervals[i];
  }
  EXPECT_EQ(DateOnly(-1.25), -1);
  EXPECT_EQ(TimeOfDay(-1.25), 0.25);
  EXPECT_EQ(DateOnly(2.999999999), 3);
  EXPECT_EQ(Weekday(value, vbUseSystemDayOfWeek), Weekday(value, CurrentLocale().FirstDayOfWeek));
}

// Walks every day of a 400-year cycle (plus a warm-up year) for each first day of the week
// and week-of-year mode, counting weeks as a calendar reader would. Late December stays in
// its own year's week 53 or 54 as the runtime counts it.
TEST(DateRuntime, WeekdayAndWeekOfYearAgreeWithACountingWalk) {
  EXPECT_EQ(DatePart("ww", At(2003, 12, 29), vbMonday, vbFirstFourDays), 53);
  EXPECT_EQ(DatePart("ww", At(2000, 12, 31), vbSunday, vbFirstJan1), 54);
  for (int firstDay = 1; firstDay <= 7; ++firstDay) {
    for (int mode = 1; mode <= 3; ++mode) {
      int sundayBased = 2; // 1 January 1601 was a Monday
      int week = 0;
      bool inLastYearsWeek = false;
      for (long serial = DaysFromCivil(1601, 1, 1); serial <= DaysFromCivil(2001, 12, 31);
           ++serial, sundayBased = sundayBased % 7 + 1) {
        if (CivilFromDays(serial).Month == 1 && CivilFromDays(serial).Day == 1) {
          int daysInFirstWeek = 1;
          for (int w = sundayBased % 7 + 1; w != firstDay; w = w % 7 + 1) {
            ++daysInFirstWeek;
          }
          inLastYearsWeek =
              !(mode == 1 || (mode == 2 && daysInFirstWeek >= 4) || daysInFirstWeek == 7);
          week = inLastYearsWeek ? week : 1;
        } else if (sundayBased == firstDay) {
          week = inLastYearsWeek ? 1 : week + 1;
          inLastYearsWeek = false;
        }
        const DateValue noon = serial >= 0 ? serial + 0.5 : serial - 0.5;
        ASSERT_EQ(Weekday(noon, firstDay), (sundayBased - firstDay + 7) % 7 + 1);
        if (serial >= DaysFromCivil(1602, 1, 1)) {
          ASSERT_EQ(DatePart("ww", noon, firstDay, mode), week)
              << serial << " first day " << firstDay << " mode " << mode;
        }
      }
    }
  }
}
