// The calendar at the ends of the runtime's dates, and errors raised while it handles input.
#include "tests/calendar/calendar_fixture.hpp"

namespace tarnbrook {

namespace {

class CalendarLimitsTest : public CalendarTest {
protected:
  static constexpr Point Left{13, 16};
  static constexpr Point Right{191, 16};

  CalendarLimitsTest() {
    form.SetErrorHandler([this](const std::string& name, const ControlError& error) {
      reported.push_back(name + " " + std::to_string(error.Number()));
      descriptions.push_back(error.Description());
    });
    platform.PumpMessages();
    log.withMouse = false;
  }
  void Click(Point p) {
    Point screen = platform.ClientToScreen(calendar->hWnd(), p);
    platform.Click(screen.x, screen.y);
  }
  std::pair<int, int> Shown() { return {calendar->SelectedYear(), calendar->SelectedMonth()}; }

  std::vector<std::string> reported;
  std::vector<std::string> descriptions;
};

TEST_F(CalendarLimitsTest, NoMonthBeyondTheRuntimesDatesEitherWay) {
  calendar->SetValue(DateSerial(9999, 12, 31));
  log.Take();
  int beeps = platform.BeepCount();
  Click(Right);
  EXPECT_EQ(Shown(), std::make_pair(9999, 12));
  EXPECT_EQ(calendar->Value(), DateSerial(9999, 12, 31));
  EXPECT_EQ(platform.BeepCount(), beeps + 1);
  EXPECT_TRUE(log.Take().empty()) << "no MonthChanged for a refused step";
  Click(Left);
  EXPECT_EQ(Shown(), std::make_pair(9999, 11));

  calendar->SetMinDate(DateSerial(100, 1, 1));
  calendar->SetValue(DateSerial(100, 1, 1));
  beeps = platform.BeepCount();
  Click(Left);
  EXPECT_EQ(Shown(), std::make_pair(100, 1));
  EXPECT_EQ(platform.BeepCount(), beeps + 1);
  Click(Right);
  EXPECT_EQ(Shown(), std::make_pair(100, 2));
  EXPECT_TRUE(reported.empty()) << reported.front() << descriptions.front();
}

// A handler of the program's that raises is answered by the form, not by the end of the
// program; the calendar goes on taking input.
class RaisingLog : public CalendarEventLog {
public:
  void DateClicked() override { throw ControlError(1234, "Program", "refused"); }
  void MonthChanged() override { throw std::runtime_error("not a ControlError"); }
};

TEST_F(CalendarLimitsTest, ErrorsRaisedInHandlersReachTheFormWithTheControlsName) {
  RaisingLog raising;
  calendar->Connect(&raising);
  Click({100, 100});
  Click(Right);
  EXPECT_EQ(reported, (std::vector<std::string>{"MonthCalendar1 1234", "MonthCalendar1 51"}));
  calendar->Disconnect(&raising);
  Click(Right);
  EXPECT_EQ(Shown(), std::make_pair(2027, 1));
  EXPECT_EQ(reported.size(), 2u);
}

TEST(CalendarWithoutForm, AnErrorInAHandlerBeeps) {
  MemoryPlatform platform;
  MonthCalendar calendar;
  RaisingLog raising;
  calendar.Connect(&raising);
  calendar.SetVisible(true);
  platform.PumpMessages();
  Point cell = platform.ClientToScreen(calendar.hWnd(), {100, 100});
  int beeps = platform.BeepCount();
  platform.Click(cell.x, cell.y);
  EXPECT_EQ(platform.BeepCount(), beeps + 1);
}

} // namespace

} // namespace tarnbrook
