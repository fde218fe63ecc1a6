// The control driven as a person drives it: keys and clicks through the window system, the
// events it raises, the dates, the SQL, and the form saved and opened again.
#include <sstream>

#include "date_select_fixture.hpp"

namespace tarnbrook {
namespace {

class UserPathTest : public DateSelectTest {
protected:
  // The names of the constituents shown besides the option list, in creation order.
  std::string Shown() {
    Control* const parts[] = {&ds->cboOperator(),     &ds->lblFrom(),   &ds->dtpFrom(),
                              &ds->lblTo(),           &ds->dtpTo(),     &ds->cboMonth(),
                              &ds->spnYear(),         &ds->lblCustom(), &ds->txtCustomRange(),
                              &ds->cboCustomChoice(), &ds->chkCustom()};
    std::istringstream names("cboOperator lblFrom dtpFrom lblTo dtpTo cboMonth spnYear lblCustom "
                             "txtCustomRange cboCustomChoice chkCustom");
    std::string shown, name;
    for (Control* part : parts)
      if (names >> name && part->Visible())
        shown += (shown.empty() ? "" : " ") + name;
    return shown;
  }
  // Whether the field shows any text: pixels darker than any background.
  bool ShowsText(DatePicker& field) {
    Canvas* canvas = platform.WindowCanvas(field.hWnd());
    if (!canvas || !field.Visible())
      return false;
    for (int32_t x = 4; x < field.ScaleWidth() - 20; ++x)
      for (int32_t y = 4; y < field.ScaleHeight() - 4; ++y)
        if ((canvas->GetPixel(x, y) & 0xFF) < 0xB0) // black, or grey when disabled
          return true;
    return false;
  }
  void TypeYear(const std::string& digits) {
    hand.Click(ds->spnYear(), 8);
    platform.Type(digits);
    platform.Advance(750);
  }
};

// Each option picked in turn with the keyboard from a new control on Monday 10 May 2004, and
// each saved and reloaded on the same day. Last Month and Last Year take the year and month
// with them, so Month and Year after them show April and the year of 2003.
TEST_F(UserPathTest, EveryOptionPickedSavedAndReloaded) {
  struct Case {
    int steps;
    int32_t option;
    Range dates;
    const char* shown;
    bool enabled;
    const char* sql;
    Range reloaded; // the same dates unless the user entered them or the month is not saved
  };
  const Log picked = {"SelectionChange", "Change"};
  const std::string range = "lblFrom dtpFrom lblTo dtpTo";
  const std::string custom = "lblCustom txtCustomRange cboCustomChoice chkCustom";
  const Range today = Days(2004, 5, 10, 2004, 5, 10);
  // clang-format off
  const Case cases[] = {
      {1, dtsDate, today, "dtpFrom", true, "Date=5/10/2004", today},
      {1, dtsDateRange, today, range.c_str(), true, "Date BETWEEN 5/10/2004 AND 5/10/2004", today},
      {1, dtsLast7days, Days(2004, 5, 4, 2004, 5, 10), range.c_str(), false, "Date BETWEEN 5/4/2004 AND 5/10/2004", {}},
      {1, dtsLast30days, Days(2004, 4, 11, 2004, 5, 10), range.c_str(), false, "Date BETWEEN 4/11/2004 AND 5/10/2004", {}},
      {1, dtsThisWeekTillToday, Days(2004, 5, 9, 2004, 5, 10), range.c_str(), false, "Date BETWEEN 5/9/2004 AND 5/10/2004", {}},
      {1, dtsThisMonthTillToday, Days(2004, 5, 1, 2004, 5, 10), range.c_str(), false, "Date BETWEEN 5/1/2004 AND 5/10/2004", {}},
      {1, dtsThisYearTillToday, Days(2004, 1, 1, 2004, 5, 10), range.c_str(), false, "Date BETWEEN 1/1/2004 AND 5/10/2004", {}},
      {1, dtsLastWeek, Days(2004, 5, 2, 2004, 5, 8), range.c_str(), false, "Date BETWEEN 5/2/2004 AND 5/8/2004", {}},
      {1, dtsLastMonth, Days(2004, 4, 1, 2004, 4, 30), "cboMonth spnYear", false, "Date BETWEEN 4/1/2004 AND 4/30/2004", {}},
      {1, dtsLastYear, Days(2003, 1, 1, 2003, 12, 31), "spnYear", false, "Date BETWEEN 1/1/2003 AND 12/31/2003", {}},
      {1, dtsCustomRange, Days(2004, 5, 9, 2004, 5, 9), custom.c_str(), true, "Date BETWEEN 5/9/2004 AND 5/9/2004", {}},
      {1, dtsExpression, Days(2004, 5, 9, 2004, 5, 9), "cboOperator dtpFrom", true, "Date=5/9/2004", today},
      {1, dtsMonth, Days(2003, 4, 1, 2003, 4, 30), "cboMonth spnYear", true, "Date BETWEEN 4/1/2003 AND 4/30/2003", Days(2003, 5, 1, 2003, 5, 31)},
      {1, dtsYear, Days(2003, 1, 1, 2003, 12, 31), "spnYear", true, "Date BETWEEN 1/1/2003 AND 12/31/2003", {}},
      {-14, dtsToday, Days(2004, 5, 10, 2003, 12, 31), "dtpFrom", false, "Date=5/10/2004", today},
  };
  // clang-format on
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << "option " << c.option);
    hand.PickWithKeys(ds->cboSelection().cbo(), c.steps);
    Log expected = picked;
    if (c.option == dtsLastMonth)
      expected = {"YearChange", "Change", "MonthChange", "Change", "SelectionChange", "Change"};
    if (c.option == dtsLastYear)
      expected = {"YearChange", "Change", "SelectionChange", "Change"};
    EXPECT_EQ(log.Take(), expected);
    EXPECT_EQ(ds->Selection(), c.option);
    EXPECT_EQ(Dates(), c.dates);
    EXPECT_EQ(Shown(), c.shown);
    EXPECT_EQ(ds->dtpFrom().Enabled() || ds->spnYear().Enabled() || ds->txtCustomRange().Enabled(),
              c.enabled);
    EXPECT_EQ(ds->SQLCriteria(), c.sql);

    DateSelect& copy = Reloaded();
    EXPECT_EQ(copy.Selection(), c.option);
    const Range loaded = c.reloaded.first ? c.reloaded : c.dates;
    EXPECT_EQ(Range(copy.StartDate(), copy.EndDate()), loaded);
    if (!c.reloaded.first || c.option == dtsToday) {
      EXPECT_EQ(copy.SQL(), ds->SQL());
    }
    for (DatePicker* field : {&copy.dtpFrom(), &copy.dtpTo()})
      EXPECT_EQ(ShowsText(*field), field->Visible());
  }
  EXPECT_EQ(reported, std::vector<int>{});
}

TEST_F(UserPathTest, TheOptionListPickedWithTheMouse) {
  ComboListX& list = ds->cboSelection();
  auto pick = [&](int32_t entry) {
    hand.Click(list, list.ScaleWidth() - 2 - list.ButtonWidth() / 2);
    const std::vector<HWND> windows = platform.Children(platform.GetDesktopWindow());
    const Rect box = platform.GetWindowRect(windows.back()); // the list, dropped on top
    const int32_t row = list.cbo().ItemHeight();
    platform.Click(box.left + box.Width() / 2, box.top + 1 + entry * row + row / 2);
  };
  pick(dtsLast30days);
  EXPECT_EQ(log.Take(), (Log{"SelectionChange", "Change"}));
  EXPECT_EQ(Dates(), Days(2004, 4, 11, 2004, 5, 10));
  pick(dtsDateRange);
  EXPECT_EQ(ds->Selection(), dtsDateRange);
  EXPECT_TRUE(ds->dtpFrom().Enabled() && ds->dtpTo().Enabled());
  EXPECT_EQ(Dates(), Days(2004, 4, 11, 2004, 5, 10)); // the user's to change now
  EXPECT_EQ(form.ChangedKeys(Name), (Log{"Selection", "Selection"}));
}

// The year spin: typed, stepped with its buttons and keys, and one step past 9999.
TEST_F(UserPathTest, TheYearTypedOrSteppedIsTheYearOfTheDatesAndTheSql) {
  hand.PickWithKeys(ds->cboSelection().cbo(), dtsYear);
  log.Take();
  TypeYear("1999");
  EXPECT_EQ(log.Take(), (Log{"YearChange", "Change"}));
  EXPECT_EQ(ds->SelectedYear(), 1999);
  EXPECT_EQ(Dates(), Days(1999, 1, 1, 1999, 12, 31));
  EXPECT_EQ(ds->SQLCriteria(), "Date BETWEEN 1/1/1999 AND 12/31/1999");
  EXPECT_EQ(Reloaded().SQL(), ds->SQL());
  EXPECT_EQ(Reloaded().SelectedYear(), 1999);

  platform.Key(VK_UP);
  ClickSpin(true);
  ClickSpin(false);
  EXPECT_EQ(log.Take(),
            (Log{"YearChange", "Change", "YearChange", "Change", "YearChange", "Change"}));
  EXPECT_EQ(ds->SelectedYear(), 2000);

  // A press ends the typing pause, and with it the digits typed so far.
  hand.Click(ds->spnYear(), 8);
  platform.Type("18");
  ClickSpin(true);
  platform.Advance(2000);
  EXPECT_EQ(ds->SelectedYear(), 2001);
  EXPECT_EQ(ds->spnYear().Value(), 2001);
  EXPECT_EQ(log.Take(), (Log{"YearChange", "Change"}));

  // 9999 steps to 10000, which has no dates: the error goes to the form and the spin shows
  // the year the control keeps.
  TypeYear("9999");
  log.Take();
  ClickSpin(true);
  EXPECT_EQ(reported, std::vector<int>{rtInvalidProcedureCall});
  EXPECT_EQ(log.Take(), Log{});
  EXPECT_EQ(ds->spnYear().Value(), 9999);
  EXPECT_EQ(ds->SQLCriteria(), "Date BETWEEN 1/1/9999 AND 12/31/9999");
  ClickSpin(true); // and again, as often as the user tries
  EXPECT_EQ(reported.size(), 2u);
}

TEST_F(UserPathTest, MonthAndOperatorPickedFromTheirLists) {
  hand.PickWithKeys(ds->cboSelection().cbo(), dtsMonth);
  log.Take();
  hand.PickWithKeys(ds->cboMonth().cbo(), -2);
  EXPECT_EQ(log.Take(), (Log{"MonthChange", "Change"}));
  EXPECT_EQ(ds->SelectedMonth(), dtsMarch);
  EXPECT_EQ(Dates(), Days(2004, 3, 1, 2004, 3, 31));

  // December 9999 ends past the last date: refused, and the list shows March again.
  TypeYear("9999");
  log.Take();
  hand.PickWithKeys(ds->cboMonth().cbo(), 9);
  EXPECT_EQ(reported, std::vector<int>{rtInvalidProcedureCall});
  EXPECT_EQ(ds->cboMonth().ListIndex(), 2);
  EXPECT_EQ(ds->SQLCriteria(), "Date BETWEEN 3/1/9999 AND 3/31/9999");
  EXPECT_EQ(log.Take(), Log{});

  // A new control's operator is the list's "=", as a reloaded one's is. Expression keeps the
  // start date that Month left; a reloaded control's is today.
  hand.PickWithKeys(ds->cboSelection().cbo(), dtsExpression - dtsMonth);
  EXPECT_EQ(ds->cboOperator().Text(), "=");
  EXPECT_EQ(ds->SQLCriteria(), "Date=3/1/9999");
  log.Take();
  hand.PickWithKeys(ds->cboOperator().cbo(), 2);
  EXPECT_EQ(log.Take(), (Log{"OperatorChange", "Change"}));
  EXPECT_EQ(ds->Operator(), ">=");
  EXPECT_EQ(ds->SQLCriteria(), "Date>=3/1/9999");
  EXPECT_EQ(Reloaded().cboOperator().Text(), ">=");
  EXPECT_EQ(Reloaded().SQLCriteria(), "Date>=5/10/2004");
}

TEST_F(UserPathTest, TheCustomRangeTypedTickedAndItsUnitPicked) {
  hand.PickWithKeys(ds->cboSelection().cbo(), dtsCustomRange);
  log.Take();
  hand.TypeOver(ds->txtCustomRange(), "3");
  EXPECT_EQ(log.Take(), (Log{"CustomRangeChange", "Change"}));
  EXPECT_EQ(Dates(), Days(2004, 5, 7, 2004, 5, 9));
  CheckBox& box = ds->chkCustom();
  hand.Click(box, 6);
  EXPECT_EQ(log.Take(), Log{"Change"});
  EXPECT_EQ(Dates(), Days(2004, 5, 7, 2004, 5, 10));
  hand.PickWithKeys(ds->cboCustomChoice().cbo(), 1);
  EXPECT_EQ(log.Take(), (Log{"CustomSelectionChange", "Change"}));
  EXPECT_EQ(Dates(), Days(2004, 4, 19, 2004, 5, 10));
  // The box is not saved: a reloaded range ends before today again.
  EXPECT_EQ(Reloaded().SQLCriteria(), "Date BETWEEN 4/19/2004 AND 5/9/2004");

  // Not a number: the dates count it as none, the SQL refuses it, leaving it is refused.
  for (const char* bad : {"abc", "0"}) {
    SCOPED_TRACE(bad);
    const size_t boxes = platform.MessageBoxes().size();
    hand.TypeOver(ds->txtCustomRange(), bad);
    EXPECT_EQ(Dates(), Days(2004, 5, 10, 2004, 5, 10));
    EXPECT_EQ(RaisedNumber([&] { ds->SQL(); }), std::string(bad) == "abc" ? rtTypeMismatch : 0);
    platform.Key(VK_TAB);
    ASSERT_EQ(platform.MessageBoxes().size(), boxes + 1);
    EXPECT_EQ(platform.MessageBoxes().back().text, "Please Enter a value greater than zero");
    EXPECT_EQ(platform.MessageBoxes().back().caption, "DateSelect");
    EXPECT_EQ(platform.GetFocus(), ds->txtCustomRange().hWnd());
  }
  // Each digit changes the text. A range the fields cannot show gives their error and keeps
  // the last dates they could: 9999 weeks back, in 1812.
  log.Take();
  hand.TypeOver(ds->txtCustomRange(), "99999999");
  EXPECT_EQ(reported, (std::vector<int>{2050, 2050, 2050, 2050}));
  EXPECT_EQ(log.Take().size(), 16u);
  EXPECT_EQ(Dates(), Range(DateSerial(2004, 5, 9) - 7 * 9999 + 1, DateSerial(2004, 5, 10)));
  EXPECT_EQ(ds->CustomRange(), 99999999);
  EXPECT_EQ(RaisedNumber([&] { form.SaveToText(); }), rtOverflow); // saved as 16 bits
}

TEST_F(UserPathTest, TabVisitsTheShownFieldsInOrder) {
  hand.PickWithKeys(ds->cboSelection().cbo(), dtsDateRange);
  platform.Key(VK_TAB);
  EXPECT_EQ(platform.GetFocus(), ds->dtpFrom().hWnd());
  platform.Key(VK_TAB);
  EXPECT_EQ(platform.GetFocus(), ds->dtpTo().hWnd());
  platform.Key(VK_TAB);
  EXPECT_EQ(platform.GetFocus(), ds->cboSelection().cbo().hWnd());
  platform.Key(VK_TAB, MemoryPlatform::ShiftKey);
  platform.Key(VK_UP); // the end date's month
  EXPECT_EQ(log.Take(), (Log{"SelectionChange", "Change", "EndDateChange", "Change"}));
  EXPECT_EQ(ds->EndDate(), DateSerial(2004, 6, 10));
}

} // namespace
} // namespace tarnbrook
