// The offered options and the option objects, and what a program's setters take, refuse and
// raise.
#include "date_select_fixture.hpp"

namespace tarnbrook {
namespace {

TEST_F(DateSelectTest, OfferedOptionsAndTheCurrentOne) {
  ds->SetVisibleOptions(1 << dtsYear | 1 << dtsDate | 1 << dtsLastMonth | 1 << 15 | 1 << 20);
  EXPECT_EQ(ds->cboSelection().ListCount(), 3);
  EXPECT_EQ(ds->cboSelection().List(1), "Last Month");
  EXPECT_EQ(ds->cboSelection().ItemData(2), dtsYear);
  EXPECT_EQ(ds->VisibleOptions(), 1 << dtsYear | 1 << dtsDate | 1 << dtsLastMonth);
  ds->SetVisibleOptions(16777215);
  EXPECT_EQ(ds->VisibleOptions(), 32767);

  ds->SetVisibleOptions(5); // Today and DateRange
  Select(dtsDateRange);
  ds->SetSelection(dtsDate); // not offered: the first offered
  EXPECT_EQ(ds->Selection(), dtsToday);
  ds->SetSelection(15); // one past the options is let in
  EXPECT_EQ(log.Take(), (Log{"SelectionChange", "Change", "SelectionChange", "Change"}));
  for (int32_t bad : {-1, 16}) {
    ControlError error = Raised([&] { ds->SetSelection(bad); });
    EXPECT_EQ(error.Number(), 5055);
    EXPECT_EQ(error.Source() + ": " + error.Description(),
              "Tarnbrook.DateSelect: Invalid Option Index");
  }
  EXPECT_EQ(log.Take(), Log{});
  ds->SetVisibleOptions(0);
  ds->SetSelection(dtsYear);
  EXPECT_EQ(ds->Selection(), 0);
}

TEST_F(DateSelectTest, OneOptionObjectServesEveryIndex) {
  std::shared_ptr<CdtsOption> kept = ds->Options(dtsLast7days);
  EXPECT_EQ(ds->Options(dtsThisWeekTillToday).get(), kept.get());
  Select(dtsThisWeekTillToday);
  kept->SetVisible(false); // acts on the latest index: the current option goes
  EXPECT_EQ(log.Take(), (Log{"SelectionChange", "Change"}));
  EXPECT_EQ(ds->Selection(), dtsToday);
  EXPECT_TRUE(ds->Options(dtsLast7days)->Visible());
  EXPECT_EQ(ds->Options(15)->Text() + (ds->Options(15)->Visible() ? "shown" : ""), "");
  log.Take();
  form.ClearChangedKeys();
  ds->SetEndDate(DateSerial(2004, 5, 20)); // reported under the start date's key
  EXPECT_EQ(form.ChangedKeys(Name), Log{"StartDate"});
  EXPECT_EQ(log.Take(), (Log{"EndDateChange", "Change"}));

  ds->Options(dtsLast30days)->SetText("Past month"); // the entry only, until a rebuild
  EXPECT_EQ(ds->cboSelection().List(dtsLast30days), "Past month");
  EXPECT_EQ(ds->Options(dtsLast30days)->Text(), "Last 30 days");
  ds->SetVisibleOptions(32767);
  EXPECT_EQ(ds->cboSelection().List(dtsLast30days), "Last 30 days");
  EXPECT_EQ(RaisedNumber([&] { ds->Options(16); }), rtSubscriptOutOfRange);
}

// A program's custom range: what it reads, what it refuses before anything changes, and
// that it moves the dates only while it is the current option.
TEST_F(DateSelectTest, CustomRangeSetByAProgram) {
  ds->SetCustomSelection(dtsYears);
  ds->SetCustomRange(3);
  ds->chkCustom().SetValue(vbChecked);
  EXPECT_EQ(log.Take(),
            (Log{"CustomSelectionChange", "Change", "CustomRangeChange", "Change", "Change"}));
  EXPECT_EQ(Dates(), Days(2004, 5, 10, 2004, 5, 10)); // Today's, not the custom range's
  ds->chkCustom().SetValue(vbUnchecked);
  Select(dtsCustomRange);
  EXPECT_EQ(Dates(), Days(2001, 1, 1, 2003, 12, 31));
  EXPECT_EQ(RaisedNumber([&] { ds->SetCustomRange(500); }), 2050); // 1504: not in the fields
  EXPECT_EQ(RaisedNumber([&] { ds->SetCustomRange(999999999); }), rtInvalidProcedureCall);
  EXPECT_EQ(log.Take(), Log{});
  ds->SetCustomSelection(-1); // no unit: the dates stay, and the SQL writes them
  EXPECT_EQ(ds->SQLCriteria(), "Date BETWEEN 1/1/2001 AND 12/31/2003");
  EXPECT_NE(RaisedNumber([&] { ds->SetCustomSelection(4); }), 0);
  ds->txtCustomRange().SetText("2.5");
  EXPECT_EQ(ds->CustomRange(), 2); // rounded half to even
  ds->txtCustomRange().SetText("1e12");
  EXPECT_EQ(RaisedNumber([&] { ds->CustomRange(); }), rtOverflow);
}

TEST_F(DateSelectTest, YearAndMonthSetByAProgram) {
  Select(dtsMonth);
  ds->SetSelectedMonth(dtsOctobor);
  ds->SetSelectedYear(2001);
  EXPECT_EQ(log.Take(), (Log{"MonthChange", "Change", "YearChange", "Change"}));
  EXPECT_EQ(Dates(), Days(2001, 10, 1, 2001, 10, 31));
  ds->SetSelectedMonth(0); // the list takes no entry; the month before January
  EXPECT_EQ(ds->cboMonth().ListIndex(), -1);
  EXPECT_EQ(Dates(), Days(2000, 12, 1, 2000, 12, 31));
  for (int32_t bad : {13, -1, INT32_MIN})
    EXPECT_EQ(Raised([&] { ds->SetSelectedMonth(bad); }).Description(), "Invalid Month Value");
  EXPECT_EQ(RaisedNumber([&] { ds->SetOperator("!="); }), 1000);

  // Any 16-bit year is held; the spin shows only its own years, and an option that cannot
  // make dates for a year refuses it, changing nothing.
  Select(dtsToday);
  ds->SetSelectedYear(32767);
  EXPECT_EQ(ds->spnYear().Value(), 2001);
  EXPECT_EQ(RaisedNumber([&] { ds->SetSelection(dtsYear); }), rtOverflow);
  EXPECT_EQ(RaisedNumber([&] { ds->SetSelection(dtsMonth); }), rtInvalidProcedureCall);
  EXPECT_EQ(ds->Selection(), dtsToday);
  EXPECT_EQ(Reloaded().SelectedYear(), 32767);
  ds->SetSelectedYear(1601);
  Select(dtsYear);
  EXPECT_EQ(RaisedNumber([&] { ds->SetSelectedYear(1600); }), 2050);
  EXPECT_EQ(ds->SelectedYear(), 1601);
}

// At the ends of the range what cannot be made is refused, and nothing of it is kept.
TEST_F(DateSelectTest, TheEndsOfTheRangeKeepNothingOfWhatIsRefused) {
  SetToday(1601, 1, 10);
  for (int32_t option : {dtsLastMonth, dtsLastYear})
    EXPECT_EQ(RaisedNumber([&] { ds->SetSelection(option); }), 2050);
  EXPECT_EQ(ds->Selection(), dtsToday);
  EXPECT_EQ(ds->SelectedYear(), 2004);
  EXPECT_EQ(Reloaded().Selection(), dtsToday);
  SetToday(100, 6, 1); // before any day the fields can show: the control cannot be made
  EXPECT_EQ(RaisedNumber([&] {
              form.Add(std::make_unique<DateSelect>(form.hWnd()), "Later", 0, 0, 300, 60);
            }),
            2050);
  EXPECT_EQ(form.Count(), 1u);
  EXPECT_EQ(platform.Children(form.hWnd()).size(), 1u);
}

TEST_F(DateSelectTest, SettingsReachTheConstituents) {
  ds->SetButtonWidth(20);
  ds->SetButtonWidth(-3); // ignored
  ds->SetInputFormat("dd.MM.yyyy");
  ds->SetFirstDayofWeek(vbMonday);
  ds->SetButtonStyle(-1); // only styles above the last are refused
  EXPECT_EQ(RaisedNumber([&] { ds->SetButtonStyle(3); }), 5065);
  // The date fields refuse a width beyond 16 bits, before any constituent takes it.
  EXPECT_EQ(RaisedNumber([&] { ds->SetButtonWidth(40000); }), rtOverflow);
  for (DatePicker* field : {&ds->dtpFrom(), &ds->dtpTo()}) {
    EXPECT_EQ(field->ButtonWidth(), 20);
    EXPECT_EQ(field->CustomFormat(), "dd.MM.yyyy");
    EXPECT_EQ(field->FirstDayofWeek(), vbMonday);
  }
  EXPECT_EQ(ds->cboMonth().ButtonWidth() + ds->spnYear().ButtonWidth(), 40);
  EXPECT_EQ(ds->spnYear().ButtonStyle() + ds->cboMonth().ButtonStyle() + ds->dtpTo().ButtonStyle(),
            -3);
  Select(dtsCustomRange);
  ds->SetDisableSelection(true);
  ds->SetDisableCustomSelection(true);
  DateSelect& copy = Reloaded();
  EXPECT_FALSE(copy.cboSelection().Enabled() || copy.cboCustomChoice().Enabled());
  EXPECT_TRUE(copy.txtCustomRange().Enabled());
}

TEST_F(DateSelectTest, TheControlEndsSixtyTwipsBelowTheEndFieldAndKeepsItsLeastWidth) {
  ds->Move(10, 10, 400, 60);
  const int32_t bottom = platform.GetWindowRect(ds->dtpTo().hWnd()).bottom -
                         platform.ClientToScreen(ds->hWnd(), {0, 0}).y;
  EXPECT_EQ(ds->Height(), bottom * 15 + 60);
  EXPECT_EQ(ds->cboSelection().ScaleWidth(), 400);
  ds->SetBackColor(RGB(10, 120, 30)); // the strip below the date fields is the control's own
  EXPECT_EQ(platform.WindowCanvas(ds->hWnd())->GetPixel(1, ds->ScaleHeight() - 2),
            COLORREF(RGB(10, 120, 30)));
  ds->Move(10, 10, 40, 60);
  EXPECT_EQ(ds->ScaleWidth(), 134); // 2000 twips
}

} // namespace
} // namespace tarnbrook
