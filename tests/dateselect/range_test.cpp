#include "date_select_fixture.hpp"

namespace tarnbrook {
namespace {

// Monday 10 May 2004, weeks from Sunday (the locale's first day) or from Monday. Each option is
// applied after Month May 2004, whose end date Today leaves as it is.
TEST_F(DateSelectTest, EveryComputedOptionFromAMonday) {
  struct Case {
    int firstDay;
    int32_t option;
    DateValue start, end;
  };
  const DateValue may10 = DateSerial(2004, 5, 10);
  const Case cases[] = {
      {vbUseSystemDayOfWeek, dtsToday, may10, DateSerial(2004, 5, 31)},
      {vbUseSystemDayOfWeek, dtsLast7days, DateSerial(2004, 5, 4), may10},
      {vbUseSystemDayOfWeek, dtsLast30days, DateSerial(2004, 4, 11), may10},
      {vbUseSystemDayOfWeek, dtsThisWeekTillToday, DateSerial(2004, 5, 9), may10},
      {vbUseSystemDayOfWeek, dtsThisMonthTillToday, DateSerial(2004, 5, 1), may10},
      {vbUseSystemDayOfWeek, dtsThisYearTillToday, DateSerial(2004, 1, 1), may10},
      {vbUseSystemDayOfWeek, dtsLastWeek, DateSerial(2004, 5, 2), DateSerial(2004, 5, 8)},
      {vbUseSystemDayOfWeek, dtsLastMonth, DateSerial(2004, 4, 1), DateSerial(2004, 4, 30)},
      {vbUseSystemDayOfWeek, dtsLastYear, DateSerial(2003, 1, 1), DateSerial(2003, 12, 31)},
      {vbUseSystemDayOfWeek, dtsMonth, DateSerial(2004, 5, 1), DateSerial(2004, 5, 31)},
      {vbUseSystemDayOfWeek, dtsYear, DateSerial(2004, 1, 1), DateSerial(2004, 12, 31)},
      {vbMonday, dtsThisWeekTillToday, may10, may10},
      {vbMonday, dtsLastWeek, DateSerial(2004, 5, 3), DateSerial(2004, 5, 9)},
      {vbMonday, dtsLast7days, DateSerial(2004, 5, 4), may10},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << "first day " << c.firstDay << ", option " << c.option);
    ds->SetFirstDayofWeek(c.firstDay);
    Select(dtsMonth);
    ds->SetSelectedMonth(5);
    ds->SetSelectedYear(2004);
    Select(c.option);
    EXPECT_EQ(Range(), Days(c.start, c.end));
  }
}

TEST_F(DateSelectTest, WeeksStartOnTheLocalesDayUnlessTheControlNamesOne) {
  LocaleGuard guard;
  Locale mondays = Locale::EnglishUS();
  mondays.FirstDayOfWeek = vbMonday;
  SetCurrentLocale(mondays);
  Select(dtsThisWeekTillToday);
  EXPECT_EQ(Range(), Days(DateSerial(2004, 5, 10), DateSerial(2004, 5, 10)));
  ds->SetFirstDayofWeek(vbSaturday);
  Select(dtsLastWeek);
  EXPECT_EQ(Range(), Days(DateSerial(2004, 5, 1), DateSerial(2004, 5, 7)));
}

TEST_F(DateSelectTest, TheLastOptionsTakeTheControlsYearAndMonthWithThem) {
  SetToday(2004, 1, 15);
  Select(dtsLastMonth);
  EXPECT_EQ(Range(), Days(DateSerial(2003, 12, 1), DateSerial(2003, 12, 31)));
  EXPECT_EQ(ds->SelectedYear(), 2003);
  EXPECT_EQ(ds->SelectedMonth(), 12);
  EXPECT_EQ(ds->spnYear().Value(), 2003);
  EXPECT_EQ(ds->cboMonth().ListIndex(), 11);

  // Only the Month option follows a new month; Last Month keeps its dates.
  ds->SetSelectedMonth(7);
  EXPECT_EQ(ds->StartDate(), DateSerial(2003, 12, 1));

  ds->SetSelectedYear(2010);
  Select(dtsLastYear);
  EXPECT_EQ(ds->SelectedYear(), 2003);
  EXPECT_EQ(Range(), Days(DateSerial(2003, 1, 1), DateSerial(2003, 12, 31)));
}

TEST_F(DateSelectTest, TheFirstDayOfTheWeekMonthAndYear) {
  SetToday(2004, 5, 9); // a Sunday, the first day of the week
  Select(dtsThisWeekTillToday);
  EXPECT_EQ(Range(), Days(DateSerial(2004, 5, 9), DateSerial(2004, 5, 9)));
  Select(dtsLastWeek);
  EXPECT_EQ(Range(), Days(DateSerial(2004, 5, 2), DateSerial(2004, 5, 8)));
  Custom(1, dtsWeeks, false);
  EXPECT_EQ(Range(), Days(DateSerial(2004, 5, 3), DateSerial(2004, 5, 9)));

  SetToday(2004, 3, 1);
  Select(dtsThisMonthTillToday);
  EXPECT_EQ(Range(), Days(DateSerial(2004, 3, 1), DateSerial(2004, 3, 1)));
  Select(dtsLastMonth);
  EXPECT_EQ(Range(), Days(DateSerial(2004, 2, 1), DateSerial(2004, 2, 29)));
  Custom(1, dtsMonths, false);
  EXPECT_EQ(Range(), Days(DateSerial(2004, 2, 1), DateSerial(2004, 2, 29)));

  SetToday(2004, 1, 1);
  Select(dtsThisYearTillToday);
  EXPECT_EQ(Range(), Days(DateSerial(2004, 1, 1), DateSerial(2004, 1, 1)));
  Select(dtsLastYear);
  EXPECT_EQ(Range(), Days(DateSerial(2003, 1, 1), DateSerial(2003, 12, 31)));
  Custom(2, dtsYears, false);
  EXPECT_EQ(Range(), Days(DateSerial(2002, 1, 1), DateSerial(2003, 12, 31)));
  Custom(2, dtsYears, true);
  EXPECT_EQ(Range(), Days(DateSerial(2002, 1, 1), DateSerial(2004, 1, 1)));
}

TEST_F(DateSelectTest, CustomRangesEndYesterdayOrTodayAndWeeksKeepTheirOneDayShift) {
  Custom(3, dtsDays, false);
  EXPECT_EQ(Range(), Days(DateSerial(2004, 5, 7), DateSerial(2004, 5, 9)));
  Custom(3, dtsDays, true);
  EXPECT_EQ(Range(), Days(DateSerial(2004, 5, 7), DateSerial(2004, 5, 10)));
  // Weeks end on the first day of this week, not the last day of the previous one.
  Custom(1, dtsWeeks, false);
  EXPECT_EQ(Range(), Days(DateSerial(2004, 5, 3), DateSerial(2004, 5, 9)));
  ds->SetFirstDayofWeek(vbMonday);
  Custom(2, dtsWeeks, false);
  EXPECT_EQ(Range(), Days(DateSerial(2004, 4, 27), DateSerial(2004, 5, 10)));
  Custom(3, dtsMonths, true);
  EXPECT_EQ(Range(), Days(DateSerial(2004, 2, 1), DateSerial(2004, 5, 10)));

  // A number that is not one counts as nothing: no days back, ending yesterday.
  Custom(3, dtsDays, false);
  ds->txtCustomRange().SetText("abc");
  EXPECT_EQ(Range(), Days(DateSerial(2004, 5, 10), DateSerial(2004, 5, 9)));
  EXPECT_EQ(ds->CustomRange(), 0);
  ds->txtCustomRange().SetText("2.5");
  EXPECT_EQ(ds->CustomRange(), 2); // rounded half to even
  ds->txtCustomRange().SetText("3.5");
  EXPECT_EQ(ds->CustomRange(), 4);

  // A number whose range leaves the dates the fields can hold keeps the dates they show, and
  // neither setting it nor choosing the option raises.
  for (int32_t unit : {dtsDays, dtsWeeks, dtsMonths, dtsYears}) {
    Custom(3, unit, false);
    const auto shown = Range();
    EXPECT_EQ(RaisedNumber([&] { ds->SetCustomRange(999999999); }), 0) << unit;
    EXPECT_EQ(RaisedNumber([&] { ds->SetSelection(dtsCustomRange); }), 0) << unit;
    EXPECT_EQ(Range(), shown) << unit;
  }
  ds->txtCustomRange().SetText("1e300");
  EXPECT_EQ(ds->CustomRange(), INT32_MAX); // read as the nearest Long, so it can be saved
}

TEST_F(DateSelectTest, MonthAndYearComeFromTheSelectedValuesAndDatesTheUserEntersAreKept) {
  ds->SetSelectedYear(2000);
  ds->SetSelectedMonth(2);
  Select(dtsMonth);
  EXPECT_EQ(Range(), Days(DateSerial(2000, 2, 1), DateSerial(2000, 2, 29)));
  ds->SetSelectedMonth(12);
  EXPECT_EQ(Range(), Days(DateSerial(2000, 12, 1), DateSerial(2000, 12, 31)));
  Select(dtsYear);
  EXPECT_EQ(Range(), Days(DateSerial(2000, 1, 1), DateSerial(2000, 12, 31)));

  Select(dtsLast30days);
  for (int32_t option : {dtsDate, dtsDateRange, dtsExpression}) {
    Select(option);
    EXPECT_EQ(Range(), Days(DateSerial(2004, 4, 11), DateSerial(2004, 5, 10))) << option;
  }
}

TEST_F(DateSelectTest, ComputedOptionsDisableTheirFieldsAndTheFlagsOnlyTakeEnablingAway) {
  auto enabled = [&](int32_t option, Control& control) {
    Select(option);
    return control.Enabled();
  };
  for (int32_t option : {dtsToday, dtsLast7days, dtsLastWeek, dtsLastMonth, dtsLastYear})
    EXPECT_FALSE(enabled(option, ds->dtpFrom()) || enabled(option, ds->spnYear())) << option;
  EXPECT_FALSE(enabled(dtsLastMonth, ds->cboMonth()));
  for (int32_t option : {dtsDate, dtsDateRange, dtsExpression})
    EXPECT_TRUE(enabled(option, ds->dtpFrom())) << option;
  EXPECT_TRUE(enabled(dtsDateRange, ds->dtpTo()));
  EXPECT_TRUE(enabled(dtsExpression, ds->cboOperator()));
  EXPECT_TRUE(enabled(dtsMonth, ds->cboMonth()) && enabled(dtsMonth, ds->spnYear()));
  EXPECT_TRUE(enabled(dtsYear, ds->spnYear()));
  EXPECT_TRUE(enabled(dtsCustomRange, ds->txtCustomRange()) &&
              enabled(dtsCustomRange, ds->cboCustomChoice()) &&
              enabled(dtsCustomRange, ds->chkCustom()));

  ds->SetDisableStartDate(true);
  ds->SetDisableEndDate(true);
  ds->SetDisableCustomSelection(true);
  EXPECT_FALSE(enabled(dtsDate, ds->dtpFrom()));
  EXPECT_FALSE(enabled(dtsExpression, ds->dtpFrom()));
  EXPECT_FALSE(enabled(dtsDateRange, ds->dtpTo()));
  EXPECT_FALSE(enabled(dtsCustomRange, ds->cboCustomChoice()));
  EXPECT_TRUE(ds->txtCustomRange().Enabled());

  ds->SetDisableStartDate(false); // a cleared flag gives back only what the option allows
  EXPECT_FALSE(enabled(dtsLast30days, ds->dtpFrom()));
  EXPECT_TRUE(enabled(dtsDateRange, ds->dtpFrom()));
  EXPECT_FALSE(ds->dtpTo().Enabled());

  ds->SetDisableSelection(true);
  EXPECT_FALSE(ds->cboSelection().Enabled());
}

} // namespace
} // namespace tarnbrook
