#include "tests/calendar/calendar_fixture.hpp"

namespace tarnbrook {
namespace {

// Points of the buttons in client pixels.
constexpr Point LeftButton{10, 15}, RightButton{190, 15}, UpButton{155, 10}, DownButton{155, 20};
constexpr Point YearText{127, 15}, TodayButton{48, 164}, EmptyButton{150, 164};

class ModelTest : public CalendarTest {
protected:
  ModelTest() { log.withMouse = false; }
  void Press(Point p) { ClickAt(p.x, p.y); }
};

TEST_F(ModelTest, NewCalendarShowsTodayBetweenTheWidestLimits) {
  EXPECT_EQ(calendar->Value(), DateSerial(2026, 11, 21));
  EXPECT_EQ(calendar->SelectedYear(), 2026);
  EXPECT_EQ(calendar->cboMonth().Text(), "November");
  ASSERT_EQ(calendar->cboMonth().ListCount(), 12);
  EXPECT_EQ(calendar->cboMonth().List(0), "January");
  EXPECT_EQ(calendar->MinDate(), DateSerial(1601, 1, 1));
  EXPECT_EQ(calendar->MaxDate(), DateSerial(9999, 12, 31));
  EXPECT_FALSE(calendar->EmptyButton());
}

TEST_F(ModelTest, GridStartsOnTheWeeksFirstDayOnOrBeforeTheFirst) {
  calendar->SetValue(DateSerial(2026, 2, 10)); // 1 February 2026 is a Sunday
  EXPECT_EQ(calendar->GridStart(), DateSerial(2026, 2, 1));
  ClickCell(5, 6); // the last of 14 trailing days
  EXPECT_EQ(calendar->Value(), DateSerial(2026, 3, 14));

  calendar->SetValue(DateSerial(2026, 2, 10));
  calendar->SetFirstDayofWeek(vbMonday);
  EXPECT_EQ(calendar->GridStart(), DateSerial(2026, 1, 26));
  EXPECT_EQ(ChangedKeys().back(), "FirstDayOfWeek");
}

TEST_F(ModelTest, DecemberOfTheLastYearIsDrawnFromNovember) {
  calendar->SetValue(DateSerial(9999, 12, 15));
  EXPECT_EQ(calendar->GridStart(), DateSerial(9999, 10, 31));
  EXPECT_EQ(calendar->SelectedMonth(), 12);
  ClickCell(5, 6);
  EXPECT_EQ(calendar->Value(), DateSerial(9999, 12, 11));
}

TEST_F(ModelTest, ClickingADaySelectsItOnlyWithinTheLimitsButAlwaysReports) {
  ClickCell(5, 6); // 12 December, a trailing day
  EXPECT_EQ(log.Take(), (Log{"MonthChanged", "Change", "DateClicked"}));
  EXPECT_EQ(calendar->SelectedMonth(), 12);

  calendar->SetMinDate(DateSerial(2026, 12, 10));
  ClickCell(0, 0); // 29 November
  EXPECT_EQ(log.Take(), (Log{"DateClicked"}));
  EXPECT_EQ(calendar->Value(), DateSerial(2026, 12, 12));
}

TEST_F(ModelTest, EveryAssignmentOfValueRaisesChangeButNeverYearChanged) {
  calendar->SetValue(DateSerial(2026, 11, 3));
  calendar->SetValue(DateSerial(2026, 11, 3));
  calendar->SetValue(DateSerial(2031, 5, 2));
  EXPECT_EQ(log.Take(), (Log{"Change", "Change", "MonthChanged", "Change"}));
  EXPECT_EQ(ChangedKeys(), (Log{"Value", "Value"}));
  EXPECT_EQ(calendar->SelectedYear(), 2031);
}

TEST_F(ModelTest, MonthStepsWrapTheYearWithoutLimitsOrYearChanged) {
  calendar->SetMaxDate(DateSerial(2026, 12, 31));
  calendar->SetValue(DateSerial(2026, 12, 5));
  log.Take();
  Press(RightButton);
  EXPECT_EQ(log.Take(), (Log{"MonthChanged", "MonthChanged"}));
  EXPECT_EQ(calendar->SelectedYear() * 100 + calendar->SelectedMonth(), 202701);
  Press(LeftButton);
  EXPECT_EQ(log.Take(), (Log{"MonthChanged", "MonthChanged"}));
  EXPECT_EQ(calendar->SelectedYear() * 100 + calendar->SelectedMonth(), 202612);

  calendar->SetMaxDate(DateSerial(2027, 1, 31)); // a refused step still reports once
  Press(RightButton);
  Press(RightButton);
  EXPECT_EQ(log.Take(), (Log{"MonthChanged", "MonthChanged", "MonthChanged"}));
  EXPECT_EQ(calendar->SelectedYear() * 100 + calendar->SelectedMonth(), 202701);
}

TEST_F(ModelTest, MonthAndYearAreTestedAgainstTheLimitSeparately) {
  calendar->SetMinDate(DateSerial(2000, 6, 15));
  calendar->SetSelectedYear(1999);
  calendar->SetSelectedMonth(3); // refused and set back without an event
  EXPECT_EQ(calendar->SelectedMonth(), 11);
  calendar->SetSelectedMonth(8);
  EXPECT_EQ(calendar->SelectedMonth(), 8);
  EXPECT_EQ(log.Take(), (Log{"MonthChanged"}));
  EXPECT_EQ(ChangedKeys(), (Log{"MinDate", "SelectedYear", "Value", "SelectedMonth", "Value",
                                "SelectedMonth", "Value"}));
  EXPECT_EQ(calendar->Value(), DateSerial(2026, 11, 21));
}

TEST_F(ModelTest, YearStepsStayWithinTheLimitsYears) {
  calendar->SetMaxDate(DateSerial(2026, 3, 1));
  calendar->SetMinDate(DateSerial(2025, 1, 1));
  Press(YearText); // shows the year buttons
  Press(UpButton);
  EXPECT_EQ(log.Take(), Log{});
  Press(DownButton);
  Press(DownButton);
  EXPECT_EQ(log.Take(), (Log{"YearChanged"}));
  EXPECT_EQ(calendar->SelectedYear() * 100 + calendar->SelectedMonth(), 202511);
}

TEST_F(ModelTest, TodayWithinTheLimitsAndEmptyOnlyWhenShown) {
  calendar->SetValue(DateSerial(2026, 3, 3));
  calendar->SetMaxDate(DateSerial(2026, 6, 30));
  log.Take();
  Press(TodayButton);
  Press(EmptyButton);
  EXPECT_EQ(log.Take(), Log{});
  EXPECT_EQ(calendar->Value(), DateSerial(2026, 3, 3));

  calendar->SetMaxDate(DateSerial(2026, 12, 31));
  calendar->SetEmptyButton(true);
  Press(TodayButton);
  Press(EmptyButton);
  EXPECT_EQ(log.Take(), (Log{"MonthChanged", "Change", "EmptyClicked"}));
  EXPECT_EQ(calendar->Value(), DateSerial(2026, 11, 21));
}

TEST_F(ModelTest, SelectedPartsMoveOnlyTheDisplay) {
  EXPECT_EQ(RaisedNumber([&] { calendar->SetSelectedMonth(13); }), 380);
  EXPECT_EQ(RaisedNumber([&] { calendar->SetSelectedMonth(-1); }), 380);
  EXPECT_EQ(RaisedNumber([&] { calendar->SetSelectedDay(5); }), 13); // the month is a name
  calendar->SetSelectedYear(1990);
  EXPECT_EQ(log.Take(), Log{});
  calendar->SetSelectedMonth(0); // no selection: month number 0
  EXPECT_EQ(calendar->SelectedMonth(), 0);
  EXPECT_EQ(log.Take(), (Log{"MonthChanged"}));
  EXPECT_EQ(calendar->SelectedYear(), 1990);
  EXPECT_EQ(calendar->SelectedDay(), 21);
}

TEST_F(ModelTest, RefusedSettersRaiseTheirErrorsAndKeepTheirValues) {
  ControlError e = Raised([&] { calendar->SetMaxDate(DateSerial(1600, 12, 31)); });
  EXPECT_EQ(e.Number(), 1070);
  EXPECT_EQ(e.Source(), "DatePicker");
  EXPECT_EQ(e.Description(), "MaxDate can't be smaller than MinDate");
  e = Raised([&] { calendar->SetMinDate(DateSerial(9999, 12, 31) + 0.5); });
  EXPECT_EQ(e.Number(), 1068);
  EXPECT_EQ(e.Description(), "MinDate can't be larger than MaxDate");
  calendar->SetMinDate(calendar->MaxDate());
  EXPECT_EQ(calendar->MinDate(), DateSerial(9999, 12, 31));

  e = Raised([&] { calendar->SetButtonStyle(3); });
  EXPECT_EQ(e.Number(), 5075);
  EXPECT_EQ(e.Source(), "Tarnbrok.MonthCalendar");
  EXPECT_EQ(e.Description(), "Invalid Button Style");
  EXPECT_EQ(calendar->ButtonStyle(), mvwButton3D);
  calendar->SetButtonStyle(-1);
  EXPECT_EQ(calendar->Button("Left").Border, -1);
  calendar->SetBackgroundImage(nullptr);
  EXPECT_EQ(ChangedKeys(), (Log{"MinDate", "ButtonStyle", "BackGroundImage"}));
}

} // namespace
} // namespace tarnbrook
