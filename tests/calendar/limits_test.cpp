// The calendar at the ends of the runtime's dates, and errors raised while it handles input.
#include <limits>

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

// Every setter refuses what the calendar could not show, and keeps what it had.
TEST_F(CalendarTest, ValuesItCouldNotShowAreRefusedAndNothingIsKept) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double inf = std::numeric_limits<double>::infinity();
  const DateValue value = calendar->Value();
  for (DateValue bad : {nan, inf, -inf, DateSerial(100, 1, 1) - 1, DateSerial(9999, 12, 31) + 1}) {
    EXPECT_EQ(RaisedNumber([&] { calendar->SetValue(bad); }), 5);
    EXPECT_EQ(RaisedNumber([&] { calendar->SetMinDate(bad); }), 5);
    EXPECT_EQ(RaisedNumber([&] { calendar->SetMaxDate(bad); }), 5);
  }
  for (int32_t day : {-1, 8, INT32_MAX, INT32_MIN})
    EXPECT_EQ(RaisedNumber([&] { calendar->SetFirstDayofWeek(day); }), 5);
  for (int32_t year : {-1, 99, 10000, INT32_MAX})
    EXPECT_EQ(RaisedNumber([&] { calendar->SetSelectedYear(year); }), 5);
  Font font = calendar->Font();
  for (float size : {std::numeric_limits<float>::quiet_NaN(), 0.0f, -3.0f, 2049.0f, 1e30f}) {
    Font huge = font;
    huge.Size = size;
    EXPECT_EQ(RaisedNumber([&] { calendar->SetFont(huge); }), 380);
  }
  EXPECT_EQ(calendar->Value(), value);
  EXPECT_EQ(calendar->MinDate(), DateSerial(1601, 1, 1));
  EXPECT_EQ(calendar->MaxDate(), DateSerial(9999, 12, 31));
  EXPECT_EQ(calendar->FirstDayofWeek(), 0);
  EXPECT_EQ(calendar->SelectedYear(), 2026);
  EXPECT_EQ(calendar->Font(), font);
  EXPECT_TRUE(ChangedKeys().empty());
  EXPECT_EQ(RaisedNumber([&] { calendar->Refresh(); }), 0);

  // The ends themselves are taken.
  calendar->SetMinDate(DateSerial(100, 1, 1));
  calendar->SetValue(DateSerial(100, 1, 1));
  calendar->SetFirstDayofWeek(7);
  calendar->SetSelectedYear(9999);
  EXPECT_EQ(calendar->SelectedYear(), 9999);
}

} // namespace
} // namespace tarnbrook
