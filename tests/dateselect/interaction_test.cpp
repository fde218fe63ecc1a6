#include <set>

#include "date_select_fixture.hpp"

namespace tarnbrook {
namespace {

class InteractionTest : public DateSelectTest {
protected:
  // Opens the option list with a press on its button and clicks entry `entry` of the dropped
  // list (counted from the list's top row, which shows the first entry here).
  void PickOption(int32_t entry) {
    ComboListX& list = ds->cboSelection();
    ClickAt(list, list.ScaleWidth() - 2 - list.ButtonWidth() / 2, list.ScaleHeight() / 2);
    const HWND dropped = DroppedWindow();
    ASSERT_NE(dropped, 0u) << "no list dropped down";
    const Rect box = platform.GetWindowRect(dropped);
    const int32_t row = list.cbo().ItemHeight();
    platform.Click(box.left + box.Width() / 2, box.top + 1 + entry * row + row / 2);
  }
  // The topmost visible window of the screen other than the form.
  HWND DroppedWindow() {
    std::vector<HWND> windows = platform.Children(platform.GetDesktopWindow());
    for (auto it = windows.rbegin(); it != windows.rend(); ++it) {
      if (*it != form.hWnd() && platform.IsWindowVisible(*it))
        return *it;
    }
    return 0;
  }
  // Replaces the text of the custom number box as a person would.
  void TypeCustomNumber(const std::string& text) {
    ClickAt(ds->txtCustomRange());
    platform.Key('A', MemoryPlatform::CtrlKey);
    platform.Type(text);
  }
  // The month of the focused date field ("M/d/yyyy"); Left stops at the first field.
  void FirstField() {
    for (int i = 0; i < 3; ++i)
      platform.Key(VK_LEFT);
  }
};

TEST_F(InteractionTest, PickingAnOptionWithTheMouseAppliesItAndRaisesSelectionChange) {
  PickOption(dtsLast30days);
  EXPECT_EQ(ds->Selection(), dtsLast30days);
  EXPECT_EQ(log.Take(), (Log{"SelectionChange", "Change"}));
  EXPECT_EQ(Range(), Days(DateSerial(2004, 4, 11), DateSerial(2004, 5, 10)));
  EXPECT_TRUE(ds->dtpFrom().Visible() && ds->dtpTo().Visible());
  EXPECT_FALSE(ds->dtpFrom().Enabled() || ds->dtpTo().Enabled());
  EXPECT_EQ(ds->dtpFrom().Value().ToDate(), DateSerial(2004, 4, 11));

  PickOption(dtsDateRange);
  EXPECT_EQ(ds->Selection(), dtsDateRange);
  EXPECT_EQ(log.Take(), (Log{"SelectionChange", "Change"}));
  EXPECT_TRUE(ds->dtpFrom().Enabled() && ds->dtpTo().Enabled());
  EXPECT_EQ(Range(), Days(DateSerial(2004, 4, 11), DateSerial(2004, 5, 10)));
  EXPECT_EQ(ChangedKeys(), (Log{"Selection", "Selection"}));
}

TEST_F(InteractionTest, EachOptionShowsItsOwnConstituents) {
  // clang-format off
  const std::vector<std::pair<std::string, Control*>> parts = {
      {"dtpFrom", &ds->dtpFrom()}, {"lblFrom", &ds->lblFrom()}, {"dtpTo", &ds->dtpTo()},
      {"lblTo", &ds->lblTo()}, {"cboOperator", &ds->cboOperator()}, {"cboMonth", &ds->cboMonth()},
      {"spnYear", &ds->spnYear()}, {"lblCustom", &ds->lblCustom()},
      {"txtCustomRange", &ds->txtCustomRange()}, {"cboCustomChoice", &ds->cboCustomChoice()},
      {"chkCustom", &ds->chkCustom()}};
  using Shown = std::set<std::string>;
  const Shown single = {"dtpFrom"}, range = {"lblFrom", "dtpFrom", "lblTo", "dtpTo"};
  const Shown month = {"cboMonth", "spnYear"}, year = {"spnYear"};
  const Shown custom = {"lblCustom", "txtCustomRange", "cboCustomChoice", "chkCustom"};
  const Shown byOption[DateSelect::OptionCount] = {
      single, single, range, range, range, range, range, range, range,
      month, year, custom, {"cboOperator", "dtpFrom"}, month, year};
  // clang-format on
  for (int32_t option = 0; option < DateSelect::OptionCount; ++option) {
    Select(option);
    Shown shown;
    for (const auto& [name, control] : parts) {
      if (control->Visible())
        shown.insert(name);
    }
    EXPECT_EQ(shown, byOption[option]) << "option " << option;
    EXPECT_TRUE(ds->cboSelection().Visible());
  }
}

TEST_F(InteractionTest, SettersRaiseTheirOwnEventThenChangeAndRefuseBadListValues) {
  ds->SetStartDate(DateSerial(2004, 1, 2));
  EXPECT_EQ(log.Take(), (Log{"StartDateChange", "Change"}));
  EXPECT_EQ(ChangedKeys(), Log{"StartDate"});
  form.ClearChangedKeys();
  ds->SetEndDate(DateSerial(2004, 2, 3));
  EXPECT_EQ(log.Take(), (Log{"EndDateChange", "Change"}));
  EXPECT_EQ(ChangedKeys(), Log{"StartDate"}); // the end date reports the start's key
  EXPECT_EQ(ds->dtpTo().Value().ToDate(), DateSerial(2004, 2, 3));

  Select(dtsMonth);
  ds->SetSelectedMonth(dtsOctobor);
  EXPECT_EQ(log.Take(), (Log{"MonthChange", "Change"}));
  EXPECT_EQ(ds->cboMonth().Text(), "October");
  EXPECT_EQ(Range(), Days(DateSerial(2004, 10, 1), DateSerial(2004, 10, 31)));
  ds->SetSelectedYear(2001);
  EXPECT_EQ(log.Take(), (Log{"YearChange", "Change"}));
  EXPECT_EQ(Range(), Days(DateSerial(2001, 10, 1), DateSerial(2001, 10, 31)));
  ds->SetOperator(">=");
  EXPECT_EQ(log.Take(), (Log{"OperatorChange", "Change"}));
  EXPECT_EQ(ds->cboOperator().Text(), ">=");

  Select(dtsCustomRange);
  ds->SetCustomRange(5);
  ds->SetCustomSelection(dtsYears);
  EXPECT_EQ(log.Take(), (Log{"CustomRangeChange", "Change", "CustomSelectionChange", "Change"}));
  EXPECT_EQ(ChangedKeys(), (Log{"CustomRange", "CustomSelection"}));
  EXPECT_EQ(Range(), Days(DateSerial(1999, 1, 1), DateSerial(2003, 12, 31)));

  ControlError month = Raised([&] { ds->SetSelectedMonth(13); });
  EXPECT_EQ(month.Number(), 1001);
  EXPECT_EQ(month.Description(), "Invalid Month Value");
  ControlError op = Raised([&] { ds->SetOperator("!="); });
  EXPECT_EQ(op.Number(), 1000);
  EXPECT_EQ(op.Description(), "Invalid Operator");
  EXPECT_EQ(ds->SelectedMonth(), dtsOctobor);
  EXPECT_EQ(ds->Operator(), ">=");
}

TEST_F(InteractionTest, ConstituentChangesBecomeTheControlsEvents) {
  Select(dtsDateRange);
  ClickAt(ds->dtpFrom());
  FirstField();
  platform.Type("6");
  platform.Advance(750);
  EXPECT_EQ(ds->StartDate(), DateSerial(2004, 6, 10));
  EXPECT_EQ(log.Take(), (Log{"StartDateChange", "Change"}));
  ClickAt(ds->dtpTo());
  FirstField();
  platform.Key(VK_UP);
  EXPECT_EQ(ds->EndDate(), DateSerial(2004, 6, 10));
  EXPECT_EQ(log.Take(), (Log{"EndDateChange", "Change"}));

  Select(dtsMonth);
  ds->cboMonth().SetListIndex(1); // as a pick in the month list
  EXPECT_EQ(ds->SelectedMonth(), 2);
  EXPECT_EQ(log.Take(), (Log{"MonthChange", "Change"}));
  EXPECT_EQ(Range(), Days(DateSerial(2004, 2, 1), DateSerial(2004, 2, 29)));

  Select(dtsYear);
  NumberSpin& spin = ds->spnYear();
  ClickAt(spin, spin.ScaleWidth() - 2 - spin.ButtonWidth() / 2, spin.ScaleHeight() / 4);
  EXPECT_EQ(ds->SelectedYear(), 2005);
  EXPECT_EQ(log.Take(), (Log{"YearChange", "Change"}));
  EXPECT_EQ(Range(), Days(DateSerial(2005, 1, 1), DateSerial(2005, 12, 31)));

  Custom(3, dtsDays, false);
  ClickAt(ds->chkCustom(), 6, ds->chkCustom().ScaleHeight() / 2);
  EXPECT_EQ(ds->chkCustom().Value(), vbChecked);
  EXPECT_EQ(log.Take(), Log{"Change"});
  EXPECT_EQ(Range(), Days(DateSerial(2004, 5, 7), DateSerial(2004, 5, 10)));
  ds->cboCustomChoice().SetListIndex(dtsMonths);
  EXPECT_EQ(log.Take(), (Log{"CustomSelectionChange", "Change"}));
  EXPECT_EQ(Range(), Days(DateSerial(2004, 2, 1), DateSerial(2004, 5, 10)));
  TypeCustomNumber("1");
  EXPECT_EQ(log.Take(), (Log{"CustomRangeChange", "Change"}));
  EXPECT_EQ(Range(), Days(DateSerial(2004, 4, 1), DateSerial(2004, 5, 10)));
}

TEST_F(InteractionTest, LeavingTheCustomNumberWithoutAPositiveNumberKeepsTheFocusThere) {
  ds->SetUseFocusColor(true);
  ds->SetFocusColor(RGB(255, 255, 200));
  Custom(3, dtsDays, false);
  TextBox& box = ds->txtCustomRange();
  for (const char* bad : {"0", "abc", "-2"}) {
    SCOPED_TRACE(bad);
    const size_t shownBefore = platform.MessageBoxes().size();
    TypeCustomNumber(bad);
    EXPECT_EQ(box.BackColor(), RGB(255, 255, 200));
    platform.Key(VK_TAB);
    ASSERT_EQ(platform.MessageBoxes().size(), shownBefore + 1);
    const auto& shown = platform.MessageBoxes().back();
    EXPECT_EQ(shown.text, "Please Enter a value greater than zero");
    EXPECT_EQ(shown.caption, "DateSelect");
    EXPECT_EQ(shown.type & 0xF0, UINT(MB_ICONINFORMATION));
    EXPECT_EQ(platform.GetFocus(), box.hWnd());
  }
  TypeCustomNumber("2");
  platform.Key(VK_TAB);
  EXPECT_NE(platform.GetFocus(), box.hWnd());
  EXPECT_EQ(box.BackColor(), ds->ControlBackColor());
  EXPECT_EQ(ds->CustomRange(), 2);
  EXPECT_EQ(Range(), Days(DateSerial(2004, 5, 8), DateSerial(2004, 5, 9)));
}

TEST_F(InteractionTest, AppearanceReachesEveryConstituentThatHasTheProperty) {
  ds->SetButtonWidth(20);
  ds->SetButtonWidth(-3); // ignored
  Font serif;
  serif.Name = "DejaVu Serif";
  ds->SetFont(serif);
  ds->SetInputFormat("dd.MM.yyyy");
  ds->SetFirstDayofWeek(vbMonday);
  for (DatePicker* field : {&ds->dtpFrom(), &ds->dtpTo()}) {
    EXPECT_TRUE(field->ButtonWidth() == 20 && field->Font() == serif);
    EXPECT_EQ(field->CustomFormat(), "dd.MM.yyyy");
    EXPECT_EQ(field->FirstDayofWeek(), vbMonday);
  }
  for (ComboListX* list :
       {&ds->cboSelection(), &ds->cboOperator(), &ds->cboMonth(), &ds->cboCustomChoice()})
    EXPECT_TRUE(list->ButtonWidth() == 20 && list->Font() == serif);
  EXPECT_TRUE(ds->spnYear().ButtonWidth() == 20 && ds->spnYear().Font() == serif);

  ControlError style = Raised([&] { ds->SetButtonStyle(3); });
  EXPECT_EQ(style.Number(), 5065);
  EXPECT_EQ(style.Source(), "Tarnbrook.DatePicker");
  ds->SetInputFormat("");
  EXPECT_EQ(ds->dtpFrom().Format(), dtpShortDate);
}

TEST_F(InteractionTest, TheControlEndsFourPixelsBelowTheEndFieldAndKeepsItsLeastWidth) {
  auto checkHeight = [&] {
    const int32_t bottom = platform.GetWindowRect(ds->dtpTo().hWnd()).bottom -
                           platform.ClientToScreen(ds->hWnd(), {0, 0}).y;
    EXPECT_EQ(ds->Height(), bottom * 15 + 60);
  };
  checkHeight();
  ds->Move(10, 10, 400, 200);
  checkHeight();
  EXPECT_EQ(ds->ScaleWidth(), 400);
  EXPECT_EQ(ds->cboSelection().ScaleWidth(), 400);
  Font large;
  large.Size = 14;
  ds->SetFont(large);
  ds->Move(10, 10, 400, 60);
  checkHeight();

  ds->SetBackColor(RGB(10, 120, 30)); // the strip below the date fields is the control's own
  EXPECT_EQ(platform.WindowCanvas(ds->hWnd())->GetPixel(1, ds->ScaleHeight() - 2),
            COLORREF(RGB(10, 120, 30)));

  ds->Move(10, 10, 40, 60);
  EXPECT_GE(ds->ScaleWidth(), 133); // 2000 twips
  EXPECT_LE(ds->ScaleWidth(), 134);
}

} // namespace
} // namespace tarnbrook
