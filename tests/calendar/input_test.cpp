#include "tests/calendar/calendar_fixture.hpp"

namespace tarnbrook {

namespace {

// A person's mouse on the calendar of 21 November 2026, in the calendar's own pixels.
class CalendarInputTest : public CalendarTest {
protected:
  static constexpr Point Right{191, 16};
  static constexpr Point Year{127, 15};
  static constexpr Point Grid{100, 100};

  CalendarInputTest() {
    platform.PumpMessages();
    log.withMouse = false;
  }

  Point Screen(Point p) { return platform.ClientToScreen(calendar->hWnd(), p); }
  void Down(Point p, int button = VK_LBUTTON) {
    platform.MouseDown(button, Screen(p).x, Screen(p).y);
  }
  void Up(Point p, int button = VK_LBUTTON) { platform.MouseUp(button, Screen(p).x, Screen(p).y); }
  void MoveTo(Point p) { platform.MouseMove(Screen(p).x, Screen(p).y); }
  std::pair<bool, bool> YearButtons() {
    return {calendar->Button("Up").Visible, calendar->Button("Down").Visible};
  }
};

// Only the left button presses; leaving releases, coming back presses again; a double click
// is one more press.
TEST_F(CalendarInputTest, HeldRightStepsAtOnceThenEvery100msWhileThePointerStaysOnIt) {
  Down(Right);
  EXPECT_EQ(Shown(), std::pair(2026, 12));
  platform.Advance(99);
  EXPECT_EQ(Shown(), std::pair(2026, 12));
  platform.Advance(1);
  EXPECT_EQ(Shown(), std::pair(2027, 1));
  MoveTo(Grid);
  EXPECT_EQ(calendar->Button("Right").State, 0);
  platform.Advance(300);
  EXPECT_EQ(Shown(), std::pair(2027, 1));
  MoveTo(Right);
  EXPECT_EQ(Shown(), std::pair(2027, 2));
  EXPECT_EQ(calendar->Button("Right").State, DFCS_PUSHED);
  platform.Advance(200);
  EXPECT_EQ(Shown(), std::pair(2027, 4));
  Up(Right);
  platform.Advance(500);
  EXPECT_EQ(Shown(), std::pair(2027, 4));
  EXPECT_EQ(calendar->Button("Right").State, 0);

  log.Take();
  Down(Right, VK_RBUTTON);
  platform.Advance(300);
  Up(Right, VK_RBUTTON);
  EXPECT_TRUE(log.Take().empty());
  platform.DoubleClick(Screen(Right).x, Screen(Right).y);
  EXPECT_EQ(Shown(), std::pair(2027, 6));
}

TEST_F(CalendarInputTest, YearDragStepsAfterMoreThanTwoPixels) {
  Down(Year);
  MoveTo({Year.x, Year.y - 2});
  EXPECT_EQ(calendar->SelectedYear(), 2026);
  MoveTo({Year.x, Year.y - 3});
  EXPECT_EQ(calendar->SelectedYear(), 2027);
  MoveTo({Year.x, Year.y + 1}); // 4 down from the last step
  EXPECT_EQ(calendar->SelectedYear(), 2026);
  EXPECT_EQ(log.Take(), (Log{"YearChanged", "YearChanged"}));
  Up({Year.x, Year.y + 1});
  MoveTo({Year.x, Year.y - 20});
  EXPECT_EQ(Shown(), std::pair(2026, 11));
}

TEST_F(CalendarInputTest, APressOnTheYearShowsItsButtonsAndOneOnTheMonthNameItsList) {
  EXPECT_EQ(YearButtons(), std::pair(false, false));
  Click(Year);
  EXPECT_EQ(YearButtons(), std::pair(true, true));
  Click({155, 20}); // "Down" counts the year down and stays
  EXPECT_EQ(calendar->SelectedYear(), 2025);
  Click(Grid);
  EXPECT_EQ(YearButtons(), std::pair(false, false));
  Click({60, 15}); // the month name opens the month list
  EXPECT_TRUE(calendar->cboMonth().DroppedDown());
}

TEST_F(CalendarInputTest, HoverCursorOverTheHeaderAndVisibleButtons) {
  const std::pair<Point, int> places[] = {
      {Year, IDC_HAND},        {Grid, IDC_ARROW},     {{60, 15}, IDC_HAND},  // month name
      {{155, 10}, IDC_HAND},   {{30, 30}, IDC_ARROW}, {{50, 165}, IDC_HAND}, // Today
      {{150, 165}, IDC_ARROW}, {Right, IDC_HAND}};                           // no Empty
  for (auto [point, cursor] : places) {
    MoveTo(point);
    EXPECT_EQ(platform.CursorShape(), cursor) << point.x << "," << point.y;
  }
  calendar->SetEmptyButton(true);
  MoveTo({150, 165});
  EXPECT_EQ(platform.CursorShape(), IDC_HAND);
  MoveTo(Grid);
  calendar->SetHoverIcon(false);
  MoveTo(Year);
  EXPECT_EQ(platform.CursorShape(), IDC_ARROW);
}

TEST_F(CalendarInputTest, MouseEventsComeFirstAndKeysPassOn) {
  log.withMouse = true;
  Click({4 + 28 * 2 + 14, 60}); // Tuesday 3 November
  EXPECT_EQ(log.Take(), (Log{"MouseMove 0 74 60", "MouseDown 1 74 60", "Change", "DateClicked",
                             "MouseUp 1 74 60"}));
  platform.Key(VK_RIGHT);
  platform.Key('A', MemoryPlatform::ShiftKey);
  EXPECT_EQ(log.Take(), (Log{"KeyDown 39 0", "KeyUp 39 0", "KeyDown 16 1", "KeyDown 65 1",
                             "KeyPress 65", "KeyUp 65 1", "KeyUp 16 0"}));
  EXPECT_EQ(calendar->Value(), DateSerial(2026, 11, 3));
}

// Each press, move, release or tick that changes the picture paints it once.
TEST_F(CalendarInputTest, OnePaintPerPressMoveReleaseOrTick) {
  auto paints = [&, last = platform.PaintCount()]() mutable {
    return platform.PaintCount() - std::exchange(last, platform.PaintCount());
  };
  Click(Grid);
  EXPECT_EQ(paints(), 1) << "a day";
  Down(Right);
  EXPECT_EQ(paints(), 1) << "Right pressed: the next month, the face down";
  platform.Advance(100);
  EXPECT_EQ(paints(), 1) << "a repeat";
  Up(Right);
  EXPECT_EQ(paints(), 1) << "the face up";
  MoveTo(Grid);
  EXPECT_EQ(paints(), 0);
  Down(Year);
  EXPECT_EQ(paints(), 1);
  for (int step = 1; step <= 10; ++step)
    MoveTo({Year.x, Year.y - 3 * step});
  EXPECT_EQ(paints(), 10) << "a year drag of ten steps";
  Up({Year.x, Year.y - 30});
  EXPECT_EQ(paints(), 0);
  calendar->SetValue(DateSerial(2020, 2, 3)); // a program's call paints at once, once
  EXPECT_EQ(paints(), 1);
}

} // namespace
} // namespace tarnbrook
