// The sheet's machinery: Apply, OK and Cancel, several controls at once, and refusals.
#include "tests/design/property_page_fixture.hpp"

namespace tarnbrook {
namespace {

TEST_F(PropertyPageTest, ApplyWritesWhatChangedWhileTheSheetStaysAndOkAlsoClosesIt) {
  auto& picker = Place<DatePicker>("Picker1");
  auto sheet = Open({&picker});
  EXPECT_EQ(sheet->Caption(), "DatePicker Properties");
  ASSERT_EQ(sheet->PageCount(), 1u);
  EXPECT_EQ(sheet->Page(0).Description().name, "ppDatePickerProperties");
  EXPECT_FALSE(sheet->ApplyButton().Enabled());
  EXPECT_EQ(FieldAs<TextBox>(*sheet, "ButtonWidth").Text(), "16");

  hand.TypeOver(Field(*sheet, "ButtonWidth"), "24");
  hand.Click(Field(*sheet, "AllowEmpty")); // a check box: on to off
  EXPECT_EQ(picker.ButtonWidth(), 16);     // nothing before Apply
  EXPECT_TRUE(sheet->ApplyButton().Enabled());
  hand.Click(sheet->ApplyButton());
  EXPECT_EQ(picker.ButtonWidth(), 24);
  EXPECT_FALSE(picker.AllowEmpty());
  EXPECT_FALSE(sheet->ApplyButton().Enabled());
  EXPECT_FALSE(sheet->Closed());
  EXPECT_TRUE(Messages().empty());

  // Cancel and the frame's close box write nothing; OK writes and closes.
  for (const char* closer : {"Cancel", "WM_CLOSE", "OK"}) {
    SCOPED_TRACE(closer);
    sheet = Open({&picker});
    hand.TypeOver(Field(*sheet, "ButtonWidth"), "30");
    if (closer == std::string("WM_CLOSE"))
      platform.SendMessage(sheet->hWnd(), WM_CLOSE, 0, 0);
    else
      hand.Click(closer == std::string("OK") ? sheet->OkButton() : sheet->CancelButton());
    EXPECT_TRUE(sheet->Closed());
    EXPECT_FALSE(platform.IsWindowVisible(sheet->hWnd()));
    EXPECT_EQ(picker.ButtonWidth(), closer == std::string("OK") ? 30 : 24);
  }
}

TEST_F(PropertyPageTest, SeveralControlsShowBlankWhereTheyDifferAndBlankLeavesEachAsItWas) {
  auto& first = Place<DatePicker>("Picker1", 10);
  auto& second = Place<DatePicker>("Picker2", 40);
  second.SetButtonWidth(20);
  second.SetExitOnReturn(true);
  second.SetTodayButtonCaption("Now");
  auto sheet = Open({&first, &second});
  EXPECT_EQ(sheet->Caption(), "Property Pages");
  EXPECT_EQ(FieldAs<TextBox>(*sheet, "ButtonWidth").Text(), "");
  EXPECT_EQ(FieldAs<TextBox>(*sheet, "TodayButtonCaption").Text(), "");
  EXPECT_EQ(FieldAs<CheckBox>(*sheet, "ExitOnReturn").Value(), vbGrayed);
  EXPECT_EQ(FieldAs<CheckBox>(*sheet, "AllowEmpty").Value(), vbChecked);

  // Visiting a blank field changes nothing; one field set goes to both.
  hand.Click(Field(*sheet, "ButtonWidth"));
  hand.Click(Field(*sheet, "TodayButtonCaption"));
  EXPECT_FALSE(sheet->ApplyButton().Enabled());
  hand.TypeOver(Field(*sheet, "EmptyButtonCaption"), "None");
  ASSERT_TRUE(sheet->Apply());
  EXPECT_EQ(first.ButtonWidth(), 16);
  EXPECT_EQ(second.ButtonWidth(), 20);
  EXPECT_EQ(first.TodayButtonCaption(), "Today");
  EXPECT_EQ(second.TodayButtonCaption(), "Now");
  EXPECT_FALSE(first.ExitOnReturn());
  EXPECT_TRUE(second.ExitOnReturn());
  EXPECT_EQ(first.EmptyButtonCaption(), "None");
  EXPECT_EQ(second.EmptyButtonCaption(), "None");

  // A grayed check box clicked takes one value for both; an emptied text is a value too.
  hand.Click(Field(*sheet, "ExitOnReturn"));
  hand.TypeOver(Field(*sheet, "TodayButtonCaption"), "x");
  platform.Key(VK_BACK);
  ASSERT_TRUE(sheet->Apply());
  EXPECT_TRUE(first.ExitOnReturn());
  EXPECT_TRUE(second.ExitOnReturn());
  EXPECT_EQ(first.TodayButtonCaption(), "");
  EXPECT_EQ(second.TodayButtonCaption(), "");
}

TEST_F(PropertyPageTest, PagesComeByClassEachEditingOnlyItsOwnControls) {
  auto& calendar = Place<MonthCalendar>("Calendar1", 10);
  auto& picker = Place<DatePicker>("Picker1", 200);
  auto& select = Place<DateSelect>("Select1", 240);
  auto sheet = Open({&calendar, &picker, &select});
  ASSERT_EQ(sheet->PageCount(), 4u);
  EXPECT_NE(sheet->FindPage("ppMonthCalendar"), nullptr);
  EXPECT_NE(sheet->FindPage("ppDateSelectSettings"), nullptr);
  EXPECT_EQ(sheet->FindPage("ppDateSelectAppearance")->Targets(), std::vector<Control*>{&select});

  // A press on a tab shows its page.
  Rect tab = sheet->TabRect(3);
  Point at = platform.ClientToScreen(sheet->hWnd(), {tab.left + 5, tab.top + 5});
  platform.Click(at.x, at.y);
  EXPECT_EQ(sheet->CurrentPage(), 3u);
  EXPECT_TRUE(platform.IsWindowVisible(sheet->Page(3).hWnd()));
  EXPECT_FALSE(platform.IsWindowVisible(sheet->Page(0).hWnd()));
  hand.TypeOver(Field(*sheet, "ButtonWidth"), "22");
  sheet->ShowPage(1);
  hand.TypeOver(Field(*sheet, "ButtonWidth"), "18");
  ASSERT_TRUE(sheet->Apply());
  EXPECT_EQ(select.ButtonWidth(), 22);
  EXPECT_EQ(picker.ButtonWidth(), 18);

  // Controls without pages: nothing to show.
  EXPECT_FALSE(HasPropertyPages({}));
  EXPECT_FALSE(ShowPropertyPages({}));
}

TEST_F(PropertyPageTest, ANumericFieldRefusesOtherTextKeepsTheFocusAndAppliesNothing) {
  auto& picker = Place<DatePicker>("Picker1");
  auto sheet = Open({&picker});
  Control& width = Field(*sheet, "ButtonWidth");
  hand.TypeOver(width, "wide");
  hand.TypeOver(Field(*sheet, "TodayButtonCaption"), "Now"); // the press is refused: focus stays
  EXPECT_TRUE(HasFocus(width));
  ASSERT_EQ(Messages().size(), 1u);
  EXPECT_EQ(Messages()[0], "Please Enter a numeric value for the ButtonWidth");
  EXPECT_EQ(platform.MessageBoxes()[0].owner, sheet->hWnd());

  platform.Key(VK_TAB); // Tab is refused the same way
  EXPECT_TRUE(HasFocus(width));
  EXPECT_EQ(Messages().size(), 2u);

  hand.Click(sheet->ApplyButton()); // the press on Apply never gets there
  EXPECT_EQ(Messages().size(), 3u);
  hand.Click(sheet->OkButton());
  EXPECT_FALSE(sheet->Closed());
  EXPECT_TRUE(sheet->ApplyButton().Enabled());

  // Apply by the program refuses too, and a field changed elsewhere is not written either.
  sheet->ShowPage(0);
  dynamic_cast<TextBox&>(Field(*sheet, "TodayButtonCaption")).SetText("Now");
  EXPECT_FALSE(sheet->Apply());
  EXPECT_EQ(Messages().back(), "Please Enter a numeric value for the ButtonWidth");
  EXPECT_TRUE(HasFocus(width));
  EXPECT_EQ(picker.ButtonWidth(), 16);
  EXPECT_EQ(picker.TodayButtonCaption(), "Today");

  // Cancel does not validate: it closes with the text still there.
  hand.Click(sheet->CancelButton());
  EXPECT_TRUE(sheet->Closed());
  EXPECT_EQ(Messages().size(), 5u);
}

TEST_F(PropertyPageTest, AValueTheControlRefusesShowsItsErrorAndTakesBackEverything) {
  auto& picker = Place<DatePicker>("Picker1");
  picker.SetMaxDate(DateSerial(2010, 12, 31));
  picker.SetMinDate(DateSerial(2000, 1, 1));
  auto sheet = Open({&picker});
  auto& minField = FieldAs<DatePicker>(*sheet, "MinDate");
  auto& maxField = FieldAs<DatePicker>(*sheet, "MaxDate");
  // A limit set in the field, then stepped by the user (the month goes up or down).
  auto setLimit = [&](DatePicker& field, DateValue date, int key) {
    field.SetValue(Variant::Date(date));
    hand.Click(field);
    platform.Key(key);
    return field.Value().ToDate();
  };

  // Both limits moved past each other's old value go in together.
  hand.TypeOver(Field(*sheet, "ButtonWidth"), "20");
  DateValue min = setLimit(minField, DateSerial(2020, 1, 1), VK_UP);
  DateValue max = setLimit(maxField, DateSerial(2030, 6, 1), VK_DOWN);
  EXPECT_EQ(min, DateSerial(2020, 2, 1));
  ASSERT_TRUE(sheet->Apply()) << (Messages().empty() ? "" : Messages().back());
  EXPECT_EQ(picker.MinDate(), min);
  EXPECT_EQ(picker.MaxDate(), max);
  EXPECT_EQ(picker.ButtonWidth(), 20);

  // A minimum above the maximum: the picker's own text, the focus on the field, and the
  // width written before it taken back.
  const std::string refusal = Raised([&] { picker.SetMinDate(max + 40); }).Description();
  ASSERT_FALSE(refusal.empty());
  hand.TypeOver(Field(*sheet, "ButtonWidth"), "40");
  setLimit(minField, max + 10, VK_UP);
  EXPECT_FALSE(sheet->Apply());
  EXPECT_EQ(Messages().back(), refusal);
  EXPECT_TRUE(HasFocus(minField));
  EXPECT_EQ(picker.ButtonWidth(), 20);
  EXPECT_EQ(picker.MinDate(), min);

  // A picture file that is not there: the error of loading it, and no picture.
  sheet->Page(0).Load();
  hand.TypeOver(Field(*sheet, "CalendarBackground"), "/nonexistent/background.png");
  size_t before = Messages().size();
  EXPECT_FALSE(sheet->Apply());
  EXPECT_EQ(Messages().size(), before + 1);
  EXPECT_EQ(picker.CalendarBackground(), nullptr);
}

} // namespace
} // namespace tarnbrook
