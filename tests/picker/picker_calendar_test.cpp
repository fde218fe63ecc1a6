#include "picker_fixture.hpp"

namespace tarnbrook {
namespace {

// A picker showing 21 November 2026 with the focus, its calendar dropped down as a person does
// it, and clicks on the calendar's days and buttons.
class PickerCalendarTest : public PickerTest {
protected:
  PickerCalendarTest() { Start(DateSerial(2026, 11, 21)); }

  MonthCalendar& Calendar() { return picker->Calendar(); }
  Rect CalendarRect() { return platform.GetWindowRect(Calendar().hWnd()); }
  Rect PickerRect() { return platform.GetWindowRect(picker->hWnd()); }

  void DropDownWithF4() {
    platform.Key(VK_F4);
    ASSERT_TRUE(picker->IsDropped());
    log.Take();
    form.ClearChangedKeys();
  }
  void ClickCalendarAt(int32_t x, int32_t y) {
    Point p = platform.ClientToScreen(Calendar().hWnd(), {x, y});
    platform.Click(p.x, p.y);
  }
  void ClickDay(DateValue date) {
    const int32_t cell = static_cast<int32_t>(date - Calendar().GridStart());
    ClickCalendarAt(4 + 28 * (cell % 7) + 14, 52 + 16 * (cell / 7) + 8);
  }
  void ClickCalendarButton(const std::string& name) {
    const Rect& r = Calendar().Button(name).rectangle;
    ClickCalendarAt((r.left + r.right) / 2, (r.top + r.bottom) / 2);
  }
  void ClickDropDownButton() { ClickAt(PickerWidth - 8, PickerHeight / 2); }
};

TEST_F(PickerCalendarTest, F4DropsItUnderThePickerAndADayClickTakesTheDateAndClosesIt) {
  platform.Key(VK_F4);
  EXPECT_EQ(log.Take(), (Log{"BeforeCalendarDropDown", "AfterCalendarDropDown"}));
  ASSERT_TRUE(picker->IsDropped());
  const Rect under = PickerRect();
  EXPECT_EQ(CalendarRect(), (Rect{under.left, under.bottom, under.left + 204, under.bottom + 180}));
  EXPECT_EQ(Calendar().Value(), DateSerial(2026, 11, 21));
  ASSERT_EQ(platform.Animations().size(), 1u); // blended in, the default animation
  platform.PumpMessages();
  WriteScreen("calendar_dropped_down");

  ClickDay(DateSerial(2026, 11, 26));
  EXPECT_EQ(log.Take(), (Log{"Change", "BeforeCalendarCloseUp", "AfterCalendarCloseUp"}));
  EXPECT_FALSE(picker->IsDropped());
  EXPECT_FALSE(Calendar().Visible());
  EXPECT_EQ(platform.GetFocus(), picker->hWnd());
  EXPECT_EQ(Date(), DateSerial(2026, 11, 26));
  EXPECT_EQ(Shown(), "11/26/2026");
  EXPECT_EQ(ChangedKeys(), (Log{"Value"}));
}

TEST_F(PickerCalendarTest, NearTheBottomOfTheWorkAreaItOpensAbove) {
  Rect work;
  platform.SystemParametersInfo(SPI_GETWORKAREA, &work);
  platform.SetWorkArea({work.left, work.top, work.right, PickerRect().bottom + 100});
  picker->DropDownCalendar();
  const Rect above = PickerRect();
  EXPECT_EQ(CalendarRect(), (Rect{above.left, above.top - 180, above.left + 204, above.top}));
}

TEST_F(PickerCalendarTest, EachCancellableEventStopsWhatItAnnounces) {
  log.cancelDropDown = true;
  platform.Key(VK_F4);
  EXPECT_EQ(log.Take(), (Log{"BeforeCalendarDropDown"}));
  EXPECT_FALSE(picker->IsDropped());
  EXPECT_TRUE(platform.Animations().empty());

  log.cancelDropDown = false;
  DropDownWithF4();
  log.cancelCloseUp = true;
  ClickDay(DateSerial(2026, 11, 9));
  EXPECT_EQ(log.Take(), (Log{"Change", "BeforeCalendarCloseUp"}));
  EXPECT_TRUE(picker->IsDropped());
  EXPECT_EQ(Date(), DateSerial(2026, 11, 9)); // taken all the same

  log.cancelEmpty = true;
  ClickCalendarButton("Empty");
  EXPECT_EQ(log.Take(), (Log{"EmptyClicked"}));
  EXPECT_TRUE(picker->IsDropped());
  EXPECT_EQ(Date(), DateSerial(2026, 11, 9));
}

TEST_F(PickerCalendarTest, TheEmptyButtonEmptiesThePickerAndTheNextDropDownShowsTheLastDate) {
  DropDownWithF4();
  ClickCalendarButton("Empty");
  EXPECT_EQ(log.Take(), (Log{"EmptyClicked", "Change", "AfterCalendarCloseUp"}));
  EXPECT_TRUE(picker->Value().IsNull());
  EXPECT_EQ(ChangedKeys(), (Log{"Value"}));
  EXPECT_FALSE(picker->IsDropped());
  EXPECT_EQ(platform.GetFocus(), picker->hWnd());

  picker->DropDownCalendar();
  EXPECT_TRUE(picker->Value().IsNull());
  EXPECT_EQ(Calendar().Value(), DateSerial(2026, 11, 21));
}

TEST_F(PickerCalendarTest, TheDropDownButtonTogglesItWithoutAskingBeforeClosing) {
  ClickDropDownButton();
  EXPECT_EQ(log.Take(), (Log{"BeforeCalendarDropDown", "AfterCalendarDropDown"}));
  ASSERT_TRUE(picker->IsDropped());
  ClickDropDownButton();
  EXPECT_EQ(log.Take(), (Log{"AfterCalendarCloseUp"}));
  EXPECT_FALSE(picker->IsDropped());
}

TEST_F(PickerCalendarTest, ItClosesOnEscapeAndOnAClickElsewhereThatIsNotCancelled) {
  DropDownWithF4();
  platform.Key(VK_ESCAPE);
  EXPECT_EQ(log.Take(), (Log{"AfterCalendarCloseUp"}));
  EXPECT_FALSE(picker->IsDropped());

  DropDownWithF4();
  Point elsewhere = platform.ClientToScreen(form.hWnd(), {400, 300});
  log.cancelCloseUp = true;
  platform.Click(elsewhere.x, elsewhere.y);
  EXPECT_EQ(log.Take(), (Log{"BeforeCalendarCloseUp"}));
  EXPECT_TRUE(picker->IsDropped());
  log.cancelCloseUp = false;
  platform.Click(elsewhere.x, elsewhere.y);
  EXPECT_EQ(log.Take(), (Log{"BeforeCalendarCloseUp", "AfterCalendarCloseUp"}));
  EXPECT_FALSE(picker->IsDropped());
  EXPECT_EQ(Date(), DateSerial(2026, 11, 21));
}

TEST_F(PickerCalendarTest, ADateOutsideThePickersLimitsIsIgnoredButTheCalendarStillCloses) {
  DropDownWithF4();
  picker->SetMaxDate(DateSerial(2026, 11, 25)); // narrowed while the calendar is shown
  log.Take();
  ClickDay(DateSerial(2026, 11, 27));
  EXPECT_EQ(log.Take(), (Log{"BeforeCalendarCloseUp", "AfterCalendarCloseUp"}));
  EXPECT_EQ(Date(), DateSerial(2026, 11, 21));
  EXPECT_FALSE(picker->IsDropped());
}

TEST_F(PickerCalendarTest, SteppingWhileShownMovesTheCalendarWithoutClosingIt) {
  DropDownWithF4();
  platform.Key(VK_UP);
  EXPECT_EQ(log.Take(), (Log{"Change"}));
  EXPECT_TRUE(picker->IsDropped());
  EXPECT_EQ(Calendar().Value(), DateSerial(2026, 12, 21));
}

TEST_F(PickerCalendarTest, TheCalendarTakesThePickersLimitsWhereverTheyLie) {
  picker->SetMaxDate(DateSerial(1750, 1, 1)); // below the calendar's own minimum after this
  picker->SetMinDate(DateSerial(1700, 1, 1));
  picker->SetValue(Variant::Date(DateSerial(1720, 5, 5)));
  picker->DropDownCalendar();
  EXPECT_EQ(Calendar().MinDate(), DateSerial(1700, 1, 1));
  EXPECT_EQ(Calendar().MaxDate(), DateSerial(1750, 1, 1));
  picker->CloseUpCalendar();

  picker->SetMaxDate(DateSerial(9000, 1, 1));
  picker->SetMinDate(DateSerial(8000, 1, 1)); // above the calendar's maximum of before
  picker->DropDownCalendar();
  EXPECT_EQ(Calendar().MinDate(), DateSerial(8000, 1, 1));
  EXPECT_EQ(Calendar().MaxDate(), DateSerial(9000, 1, 1));
  EXPECT_EQ(Calendar().Value(), DateSerial(8000, 1, 1));
}

TEST_F(PickerCalendarTest, ForwardedPropertiesReachTheCalendarUnderTheirKeys) {
  picker->SetCalendarBackColor(RGB(1, 2, 3));
  picker->SetCalendarHeaderColor(OleColorNone);
  picker->SetCalendarWeekdayColor(RGB(4, 5, 6));
  picker->SetCalendarBackDrawMode(mvwBackRepeatX);
  picker->SetCalendarHoverIcon(false);
  picker->SetFirstDayofWeek(vbMonday);
  picker->SetEmptyButtonCaption("Clear");
  EXPECT_EQ(Calendar().BackColor(), RGB(1, 2, 3));
  EXPECT_EQ(Calendar().HeaderColor(), OleColorNone);
  EXPECT_EQ(Calendar().WeekDayColor(), RGB(4, 5, 6));
  EXPECT_EQ(Calendar().BackDrawMode(), mvwBackRepeatX);
  EXPECT_FALSE(Calendar().HoverIcon());
  EXPECT_EQ(Calendar().FirstDayofWeek(), vbMonday);
  EXPECT_EQ(Calendar().EmptyButtonCaption(), "Clear");
  EXPECT_EQ(ChangedKeys(),
            (Log{"CalendarBackColor", "CalendarHeaderColor", "CalendarWeekdayColor", "BackDrawMode",
                 "HoverIcon", "FirstDayofWeek", "EmptyButtonCaption"}));

  picker->SetCalendarButtonStyle(dtpButtonFlat);
  EXPECT_EQ(Calendar().ButtonStyle(), mvwButtonFlat);
  ControlError refused = Raised([&] { picker->SetCalendarButtonStyle(3); });
  EXPECT_EQ(refused.Number(), 5065);
  EXPECT_EQ(refused.Source(), "Tarnbrook.DatePicker");
  EXPECT_EQ(refused.Description(), "Invalid ButtonStyle!");
  EXPECT_EQ(picker->CalendarButtonStyle(), dtpButtonFlat);
}

} // namespace
} // namespace tarnbrook
