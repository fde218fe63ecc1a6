#pragma once
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "calendar/month_calendar.hpp"
#include "host/container.hpp"
#include "platform/memory/memory_platform.hpp"
#include "tests/support/raised.hpp"

namespace tarnbrook {

using Log = std::vector<std::string>;

// Logs the calendar's events by name, with their arguments, in the order they come.
class CalendarEventLog : public MonthCalendarEvents {
public:
  Log events;
  bool withMouse = true; // false leaves the mouse events out
  bool cancelDropDown = false;
  bool cancelCloseUp = false;

  Log Take() { return std::exchange(events, {}); } // the events so far; the log starts afresh

  void Change() override { events.push_back("Change"); }
  void MonthChanged() override { events.push_back("MonthChanged"); }
  void YearChanged() override { events.push_back("YearChanged"); }
  void DateClicked() override { events.push_back("DateClicked"); }
  void EmptyClicked() override { events.push_back("EmptyClicked"); }
  void BeforeDropDown(bool& cancel) override { Cancellable("BeforeDropDown", cancel); }
  void DroppedDown() override { events.push_back("DroppedDown"); }
  void BeforeCloseUp(bool& cancel) override { Cancellable("BeforeCloseUp", cancel); }
  void AfterClosedUp() override { events.push_back("AfterClosedUp"); }
  void MouseMove(int16_t b, float x, float y) override { Mouse("MouseMove", b, x, y); }
  void MouseDown(int16_t b, float x, float y) override { Mouse("MouseDown", b, x, y); }
  void MouseUp(int16_t b, float x, float y) override { Mouse("MouseUp", b, x, y); }
  void KeyDown(int16_t& k, int16_t s) override { Add("KeyDown", k, s); }
  void KeyUp(int16_t& k, int16_t s) override { Add("KeyUp", k, s); }
  void KeyPress(int16_t& k) override { events.push_back("KeyPress " + std::to_string(k)); }

private:
  void Cancellable(const std::string& what, bool& cancel) {
    events.push_back(what);
    cancel = what == "BeforeDropDown" ? cancelDropDown : cancelCloseUp;
  }
  void Add(const std::string& what, int a, int b) {
    events.push_back(what + " " + std::to_string(a) + " " + std::to_string(b));
  }
  void Mouse(const std::string& what, int16_t b, float x, float y) {
    if (withMouse)
      Add(what + " " + std::to_string(b), int(x), int(y));
  }
};

// A form holding one new calendar on Saturday 21 November 2026, noon; the event log is
// connected after creation and the changed keys are cleared.
class CalendarTest : public ::testing::Test {
protected:
  static constexpr const char* Name = "MonthCalendar1";

  CalendarTest() {
    platform.SetNow(DateSerial(2026, 11, 21) + 0.5);
    calendar = &static_cast<MonthCalendar&>(form.Add(std::make_unique<MonthCalendar>(), Name, 20,
                                                     30, MonthCalendar::FixedWidth,
                                                     MonthCalendar::FixedHeight));
    calendar->Connect(&log);
    form.ClearChangedKeys();
  }

  // A person's click at a point of the calendar's client area, or on a day cell's centre.
  void ClickAt(int32_t x, int32_t y) {
    Point p = platform.ClientToScreen(calendar->hWnd(), {x, y});
    platform.Click(p.x, p.y);
  }
  void Click(Point p) { ClickAt(p.x, p.y); }
  void ClickCell(int row, int column) { ClickAt(4 + 28 * column + 14, 52 + 16 * row + 8); }
  std::pair<int, int> Shown() { return {calendar->SelectedYear(), calendar->SelectedMonth()}; }
  const Log& ChangedKeys() { return form.ChangedKeys(Name); }

  MemoryPlatform platform;
  Container form;
  MonthCalendar* calendar = nullptr;
  CalendarEventLog log;
};

} // namespace tarnbrook
