#include "picker_fixture.hpp"

#include "common/property_bag.hpp"

namespace tarnbrook {
namespace {

// A focused picker showing 21 November 2026, and a person's clicks on its calendar.
class PickerCalendarTest : public PickerTest {
protected:
  PickerCalendarTest() { Start(DateSerial(2026, 11, 21)); }

  MonthCalendar& Calendar() { return picker->Calendar(); }
  Rect RectOf(HWND hwnd) { return platform.GetWindowRect(hwnd); }
  void DropDown() {
    platform.Key(VK_F4);
    log.Take();
    form.ClearChangedKeys();
  }
  void ClickCalendarAt(int32_t x, int32_t y) {
    Point p = platform.ClientToScreen(Calendar().hWnd(), {x, y});
    platform.Click(p.x, p.y);
  }
  void ClickDay(int day) { // in November 2026, whose grid starts on 1 November
    ClickCalendarAt(18 + 28 * ((day - 1) % 7), 60 + 16 * ((day - 1) / 7));
  }
  void ClickEmpty() { ClickCalendarAt(153, 164); }
};

TEST_F(PickerCalendarTest, F4DropsItUnderThePickerAndADayClickTakesTheDateAndClosesIt) {
  platform.Key(VK_F4);
  EXPECT_EQ(log.Take(), (Log{"BeforeCalendarDropDown", "AfterCalendarDropDown"}));
  ASSERT_TRUE(picker->IsDropped());
  const Rect r = RectOf(picker->hWnd());
  EXPECT_EQ(RectOf(Calendar().hWnd()), (Rect{r.left, r.bottom, r.left + 204, r.bottom + 180}));
  EXPECT_EQ(Calendar().Value(), DateSerial(2026, 11, 21));
  EXPECT_EQ(platform.Animations().size(), 1u); // blended in, the default

  ClickDay(26);
  EXPECT_EQ(log.Take(), (Log{"Change", "BeforeCalendarCloseUp", "AfterCalendarCloseUp"}));
  EXPECT_FALSE(picker->IsDropped());
  EXPECT_EQ(platform.GetFocus(), picker->hWnd());
  EXPECT_EQ(Shown(), "11/26/2026");
  EXPECT_EQ(ChangedKeys(), (Log{"Value"}));

  // Near the bottom of the work area it opens above.
  Rect work;
  platform.SystemParametersInfo(SPI_GETWORKAREA, &work);
  platform.SetWorkArea({work.left, work.top, work.right, r.bottom + 100});
  picker->DropDownCalendar();
  EXPECT_EQ(RectOf(Calendar().hWnd()), (Rect{r.left, r.top - 180, r.left + 204, r.top}));
  log.Take();
  platform.Key(VK_UP); // a step moves the shown calendar along and leaves it open
  EXPECT_EQ(log.Take(), (Log{"Change"}));
  EXPECT_TRUE(picker->IsDropped());
  EXPECT_EQ(Calendar().Value(), DateSerial(2026, 12, 26));
}

TEST_F(PickerCalendarTest, EachCancellableEventStopsWhatItAnnounces) {
  log.cancelDropDown = true;
  platform.Key(VK_F4);
  EXPECT_EQ(log.Take(), (Log{"BeforeCalendarDropDown"}));
  EXPECT_FALSE(picker->IsDropped());

  log.cancelDropDown = false;
  DropDown();
  log.cancelCloseUp = true;
  ClickDay(9);
  EXPECT_EQ(log.Take(), (Log{"Change", "BeforeCalendarCloseUp"}));
  EXPECT_TRUE(picker->IsDropped());
  EXPECT_EQ(Date(), DateSerial(2026, 11, 9)); // taken all the same

  log.cancelEmpty = true;
  ClickEmpty();
  EXPECT_EQ(log.Take(), (Log{"EmptyClicked"}));
  EXPECT_TRUE(picker->IsDropped());
  EXPECT_EQ(Date(), DateSerial(2026, 11, 9));
}

TEST_F(PickerCalendarTest, TheEmptyButtonEmptiesThePickerAndTheNextDropDownShowsTheLastDate) {
  DropDown();
  ClickEmpty();
  EXPECT_EQ(log.Take(), (Log{"EmptyClicked", "Change", "AfterCalendarCloseUp"}));
  EXPECT_TRUE(picker->Value().IsNull());
  EXPECT_EQ(ChangedKeys(), (Log{"Value"}));
  EXPECT_EQ(platform.GetFocus(), picker->hWnd());

  picker->DropDownCalendar();
  EXPECT_EQ(Calendar().Value(), DateSerial(2026, 11, 21));
}

TEST_F(PickerCalendarTest, ItClosesWithoutAskingOnItsButtonAndOnEscapeAndAsksOnOtherClicks) {
  ClickAt(PickerWidth - 8, 10); // the drop-down button
  EXPECT_EQ(log.Take(), (Log{"BeforeCalendarDropDown", "AfterCalendarDropDown"}));
  ClickAt(PickerWidth - 8, 10);
  EXPECT_EQ(log.Take(), (Log{"AfterCalendarCloseUp"}));
  EXPECT_FALSE(picker->IsDropped());

  DropDown();
  platform.Key(VK_ESCAPE);
  EXPECT_EQ(log.Take(), (Log{"AfterCalendarCloseUp"}));

  DropDown();
  Point elsewhere = platform.ClientToScreen(form.hWnd(), {400, 300});
  log.cancelCloseUp = true;
  platform.Click(elsewhere.x, elsewhere.y);
  EXPECT_EQ(log.Take(), (Log{"BeforeCalendarCloseUp"}));
  EXPECT_TRUE(picker->IsDropped());
}

TEST_F(PickerCalendarTest, ADateOutsideThePickersLimitsIsIgnoredButTheCalendarStillCloses) {
  DropDown();
  picker->SetMaxDate(DateSerial(2026, 11, 25)); // narrowed while the calendar is shown
  log.Take();
  ClickDay(27);
  EXPECT_EQ(log.Take(), (Log{"BeforeCalendarCloseUp", "AfterCalendarCloseUp"}));
  EXPECT_EQ(Date(), DateSerial(2026, 11, 21));
}

TEST_F(PickerCalendarTest, TheCalendarTakesLimitsBeyondItsOwnOnEitherSide) {
  for (int year : {1700, 8000}) {
    picker->SetMaxDate(DateSerial(year + 50, 1, 1));
    picker->SetMinDate(DateSerial(year, 1, 1));
    picker->DropDownCalendar();
    EXPECT_EQ(Calendar().MinDate(), DateSerial(year, 1, 1));
    EXPECT_EQ(Calendar().MaxDate(), DateSerial(year + 50, 1, 1));
    picker->CloseUpCalendar();
  }
}

TEST_F(PickerCalendarTest, ForwardedPropertiesReachTheCalendarUnderTheirOwnKeys) {
  picker->SetCalendarHeaderColor(OleColorNone);
  picker->SetCalendarBackDrawMode(mvwBackRepeatX);
  picker->SetCalendarHoverIcon(false);
  EXPECT_EQ(Calendar().BackDrawMode(), mvwBackRepeatX);
  EXPECT_EQ(ChangedKeys(), (Log{"CalendarHeaderColor", "BackDrawMode", "HoverIcon"}));

  ControlError refused = Raised([&] { picker->SetCalendarButtonStyle(3); });
  EXPECT_EQ(refused.Number(), 5065);
  EXPECT_EQ(refused.Source(), "Tarnbrook.DatePicker");
  EXPECT_EQ(refused.Description(), "Invalid ButtonStyle!");
  EXPECT_EQ(picker->CalendarButtonStyle(), dtpButton3D);
}

// Until a picker first drops its calendar down it holds what a calendar read from an empty
// bag would show, so that a form saves the same before and after.
TEST_F(PickerTest, BeforeItsCalendarIsMadeAPickerHoldsWhatANewCalendarShows) {
  DatePicker fresh;
  MonthCalendar calendar;
  MemoryPropertyBag none;
  calendar.ReadProperties(none);
  EXPECT_TRUE(platform.Children(fresh.hWnd()).empty());
  EXPECT_EQ(fresh.CalendarButtonStyle(), calendar.ButtonStyle());
  EXPECT_EQ(fresh.CalendarBackColor(), calendar.BackColor());
  EXPECT_EQ(fresh.CalendarActiveMonthColor(), calendar.ActiveMonthColor());
  EXPECT_EQ(fresh.CalendarInactiveMonthColor(), calendar.InactiveMonthColor());
  EXPECT_EQ(fresh.CalendarHeaderColor(), calendar.HeaderColor());
  EXPECT_EQ(fresh.CalendarHeaderForeColor(), calendar.HeaderForeColor());
  EXPECT_EQ(fresh.CalendarPresentDateColor(), calendar.PresentDateColor());
  EXPECT_EQ(fresh.CalendarWeekdayColor(), calendar.WeekDayColor());
  EXPECT_EQ(fresh.CalendarFont(), calendar.Font());
  EXPECT_EQ(fresh.CalendarBackground(), calendar.BackgroundImage());
  EXPECT_EQ(fresh.CalendarBackDrawMode(), calendar.BackDrawMode());
  EXPECT_EQ(fresh.CalendarHoverIcon(), calendar.HoverIcon());
  EXPECT_EQ(fresh.FirstDayofWeek(), calendar.FirstDayofWeek());
  EXPECT_EQ(fresh.TodayButtonCaption(), calendar.TodayButtonCaption());
  EXPECT_EQ(fresh.EmptyButtonCaption(), calendar.EmptyButtonCaption());
  EXPECT_EQ(fresh.Calendar().EmptyButton(), calendar.EmptyButton());
}

TEST_F(PickerCalendarTest, TheCalendarIsMadeOnTheFirstDropDownWithWhatThePickerHeldForIt) {
  picker->SetFirstDayofWeek(vbMonday);
  tarnbrook::Font bold = picker->CalendarFont();
  bold.Bold = true;
  picker->SetCalendarFont(bold);
  picker->SetTodayButtonCaption("Now");
  picker->SetCalendarBackColor(0x00FFEE);
  picker->SetAllowEmpty(false);
  // Refused as the calendar would refuse them, the old values kept.
  EXPECT_EQ(RaisedNumber([&] { picker->SetFirstDayofWeek(8); }), 5);
  tarnbrook::Font huge = bold;
  huge.Size = 1e9f;
  EXPECT_EQ(RaisedNumber([&] { picker->SetCalendarFont(huge); }), 380);
  EXPECT_EQ(picker->FirstDayofWeek(), vbMonday);
  EXPECT_EQ(picker->CalendarFont(), bold);
  const std::string saved = form.SaveToText();
  EXPECT_TRUE(platform.Children(picker->hWnd()).empty());
  log.Take();

  platform.Key(VK_F4);
  EXPECT_EQ(log.Take(), (Log{"BeforeCalendarDropDown", "AfterCalendarDropDown"}));
  ASSERT_TRUE(picker->IsDropped());
  EXPECT_EQ(Calendar().FirstDayofWeek(), vbMonday);
  EXPECT_EQ(Calendar().Font(), bold);
  EXPECT_EQ(Calendar().TodayButtonCaption(), "Now");
  EXPECT_EQ(Calendar().BackColor(), 0x00FFEE);
  EXPECT_FALSE(Calendar().EmptyButton());
  EXPECT_EQ(Calendar().Value(), DateSerial(2026, 11, 21));
  platform.Key(VK_ESCAPE);
  EXPECT_FALSE(picker->IsDropped());
  EXPECT_EQ(form.SaveToText(), saved);
}

} // namespace
} // namespace tarnbrook
