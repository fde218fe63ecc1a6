#include <cmath>

#include <gtest/gtest.h>

#include "common/control_error.hpp"
#include "common/date_value.hpp"

using namespace tarnbrook;

namespace {

// Deliberately not the library's formulas: leap years as "divisible by 4 xor by 100, or
// by 400", month lengths by the alternation of 31 and 30 that flips after July.
int ReferenceMonthLength(int year, int month) {
  const bool leap = ((year % 4 == 0) != (year % 100 == 0)) || year % 400 == 0;
  return month == 2 ? 28 + leap : 30 + (month + month / 8) % 2;
}

} // namespace

// Counts forward one day at a time from 1 January 1601 (day -109205) to 31 December 9999.
TEST(DateValue, AgreesWithDayByDayCountOverWholeRange) {
  CivilDate date{1601, 1, 1};
  long serial = -109205;
  for (;; ++serial) {
    ASSERT_EQ(CivilFromDays(serial), date) << serial;
    ASSERT_EQ(DaysFromCivil(date.Year, date.Month, date.Day), serial);
    const CivilTime time{static_cast<int>(serial % 24 + 23) % 24, 59, 59};
    ASSERT_EQ(CivilFromDateValue(DateValueFromCivil(date, time)), (CivilDateTime{date, time}));
    if (date.Day == ReferenceMonthLength(date.Year, date.Month)) {
      ASSERT_EQ(DaysInMonth(date.Year, date.Month), date.Day) << date.Year;
      date = date.Month == 12 ? CivilDate{date.Year + 1, 1, 1}
                              : CivilDate{date.Year, date.Month + 1, 1};
      if (date.Year == 10000) {
        break;
      }
    } else {
      ++date.Day;
    }
  }
  EXPECT_EQ(serial, 2958465);
}

TEST(DateValue, TimeCountsForwardAndRoundsToTheSecondIntoTheNextDay) {
  EXPECT_EQ(CivilFromDateValue(-1.25), (CivilDateTime{{1899, 12, 29}, {6, 0, 0}}));
  EXPECT_EQ(DateValueFromCivil({1899, 12, 29}, {6, 0, 0}), -1.25);
  EXPECT_EQ(CivilFromDateValue(-0.5), (CivilDateTime{{1899, 12, 30}, {12, 0, 0}}));
  EXPECT_EQ(DateValueFromCivil({1899, 12, 30}, {25, 0, 0}), 1 + 1 / 24.0);
  EXPECT_EQ(DateValueFromCivil({1899, 12, 30}, {-6, 0, 0}), -1.75);
  const double almostMidnight = 86399.6 / 86400;
  EXPECT_EQ(CivilFromDateValue(1 + almostMidnight), (CivilDateTime{{1900, 1, 1}, {0, 0, 0}}));
  EXPECT_EQ(CivilFromDateValue(-1 - almostMidnight), (CivilDateTime{{1899, 12, 30}, {0, 0, 0}}));
}

TEST(DateValue, RangeIsFirstDayOfYear100ToLastSecondOf9999) {
  EXPECT_EQ(CivilFromDateValue(-657434.5), (CivilDateTime{{100, 1, 1}, {12, 0, 0}}));
  EXPECT_EQ(CivilFromDateValue(MaxDateValue), (CivilDateTime{{9999, 12, 31}, {23, 59, 59}}));
  for (DateValue outside : {MinDateValue - 1, MaxDateValue + 1e-5, double(NAN)}) {
    EXPECT_THROW(CivilFromDateValue(outside), ControlError) << outside;
  }
}
