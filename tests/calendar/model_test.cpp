#include "tests/calendar/calendar_fixture.hpp"

namespace tarnbrook {
namespace {

class ModelTest : public CalendarTest {
protected:
  ModelTest() { log.withMouse = false; }
  void Left() { ClickAt(10, 15); }
  void Right() { ClickAt(190, 15); }
  void Up() { ClickAt(155, 10); }
  void Down() { ClickAt(155, 20); }
  void Today() { ClickAt(48, 164); }
  void Empty() { ClickAt(150, 164); }
  std::string Failure(const std::function<void()>& action) {
    ControlError e = Raised(action);
    return std::to_string(e.Number()) + " " + e.Source() + " " + e.Description();
  }
};

TEST_F(ModelTest, GridStartsOnTheWeeksFirstDayOnOrBeforeTheFirst) {
  calendar->SetValue(DateSerial(2026, 2, 10)); // 1 February 2026 is a Sunday
  EXPECT_EQ(calendar->GridStart(), DateSerial(2026, 2, 1));
  ClickCell(5, 6); // the last of 14 trailing days
  EXPECT_EQ(calendar->Value(), DateSerial(2026, 3, 14));
  calendar->SetFirstDayofWeek(vbMonday); // 1 March 2026 is a Sunday too
  EXPECT_EQ(calendar->GridStart(), DateSerial(2026, 2, 23));
  calendar->SetFirstDayofWeek(vbSunday);
  calendar->SetValue(DateSerial(9999, 12, 15)); // the grid would run past the last day
  EXPECT_EQ(calendar->GridStart(), DateSerial(9999, 10, 31));
  EXPECT_EQ(Shown(), std::pair(9999, 12));
}

TEST_F(ModelTest, DayClicksSelectWithinTheLimitsAndAlwaysReport) {
  ClickCell(5, 6); // 12 December, a trailing day
  calendar->SetMinDate(DateSerial(2026, 12, 10));
  ClickCell(0, 0); // 29 November
  calendar->SetValue(DateSerial(2026, 12, 12));
  EXPECT_EQ(log.Take(), (Log{"MonthChanged", "Change", "DateClicked", "DateClicked", "Change"}));
  EXPECT_EQ(ChangedKeys(), (Log{"Value", "MinDate"}));
  EXPECT_EQ(Shown(), std::pair(2026, 12));
}

TEST_F(ModelTest, MonthStepsWrapTheYearWithoutLimitsOrYearChanged) {
  calendar->SetMaxDate(DateSerial(2026, 12, 31));
  calendar->SetSelectedMonth(12);
  Right();
  EXPECT_EQ(Shown(), std::pair(2027, 1));
  Left();
  Left();
  EXPECT_EQ(Shown(), std::pair(2026, 11));
  EXPECT_EQ(log.Take(), Log(7, "MonthChanged"));
  calendar->SetMaxDate(DateSerial(2026, 11, 30)); // refused: set back, the step still reports
  Right();
  EXPECT_EQ(log.Take(), (Log{"MonthChanged"}));
  EXPECT_EQ(Shown(), std::pair(2026, 11));
}

TEST_F(ModelTest, LimitsTestYearAndMonthSeparately) {
  calendar->SetMinDate(DateSerial(2000, 6, 15));
  calendar->SetSelectedYear(1999);
  calendar->SetSelectedMonth(3); // refused without an event
  EXPECT_EQ(Shown(), std::pair(1999, 11));
  calendar->SetSelectedMonth(8);
  EXPECT_EQ(Shown(), std::pair(1999, 8));
  Down(); // 1999 is below MinDate's year
  calendar->SetMaxDate(DateSerial(2001, 1, 1));
  calendar->SetSelectedYear(2001);
  Up();
  EXPECT_EQ(log.Take(), (Log{"MonthChanged"}));
  Down();
  EXPECT_EQ(log.Take(), (Log{"YearChanged"}));
  EXPECT_EQ(calendar->Value(), DateSerial(2026, 11, 21));
  EXPECT_EQ(ChangedKeys(), (Log{"MinDate", "SelectedYear", "Value", "SelectedMonth", "Value",
                                "SelectedMonth", "Value", "MaxDate", "SelectedYear", "Value"}));
  calendar->SetValue(DateSerial(2027, 5, 5)); // a program's value is taken past the limits
  EXPECT_EQ(calendar->Value(), DateSerial(2027, 5, 5));
  EXPECT_EQ(log.Take(), (Log{"Change"}));
}

TEST_F(ModelTest, TodayOnlyWithinTheLimitsAndEmptyOnlyWhileShown) {
  calendar->SetValue(DateSerial(2026, 3, 3));
  calendar->SetMaxDate(DateSerial(2026, 6, 30));
  Today(); // today lies after MaxDate
  Empty();
  calendar->SetEmptyButton(true);
  calendar->SetMaxDate(DateSerial(2026, 12, 31));
  Empty();
  Today();
  EXPECT_EQ(log.Take(), (Log{"MonthChanged", "Change", "EmptyClicked", "MonthChanged", "Change"}));
}

TEST_F(ModelTest, RefusedSettersRaiseTheirErrorsAndKeepTheirValues) {
  EXPECT_EQ(RaisedNumber([&] { calendar->SetSelectedMonth(13); }), 380);
  EXPECT_EQ(RaisedNumber([&] { calendar->SetSelectedMonth(-1); }), 380);
  EXPECT_EQ(RaisedNumber([&] { calendar->SetSelectedDay(5); }), 13); // the month is a name
  EXPECT_EQ(Failure([&] { calendar->SetMaxDate(DateSerial(1600, 12, 31)); }),
            "1070 DatePicker MaxDate can't be smaller than MinDate");
  EXPECT_EQ(Failure([&] { calendar->SetMinDate(DateSerial(9999, 12, 31) + 0.5); }),
            "1068 DatePicker MinDate can't be larger than MaxDate");
  EXPECT_EQ(Failure([&] { calendar->SetButtonStyle(3); }),
            "5075 Tarnbrok.MonthCalendar Invalid Button Style");
  EXPECT_EQ(ChangedKeys(), Log{});
  calendar->SetSelectedMonth(0); // no selection: month number 0
  calendar->SetMinDate(calendar->MaxDate());
  calendar->SetButtonStyle(-1);
  EXPECT_EQ(calendar->Button("Left").Border + calendar->SelectedMonth(), -1);
  calendar->SetBackgroundImage(nullptr);
  EXPECT_EQ(ChangedKeys().back(), "BackGroundImage");
}

// With no month accepted yet (month 0), a refused month sets the list back to none, silently.
TEST_F(ModelTest, ARefusedMonthAfterMonthZeroGoesBackToNoMonth) {
  calendar->SetMaxDate(DateSerial(2026, 11, 30));
  calendar->SetSelectedMonth(0);
  log.Take();
  EXPECT_EQ(RaisedNumber([&] { calendar->SetSelectedMonth(12); }), 0);
  EXPECT_EQ(calendar->SelectedMonth(), 0);
  EXPECT_EQ(log.Take(), Log{});
  calendar->SetSelectedMonth(10);
  EXPECT_EQ(calendar->SelectedMonth(), 10);
}

} // namespace
} // namespace tarnbrook
