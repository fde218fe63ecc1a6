#pragma once
#include <functional>
#include <sstream>
#include <string>

#include "calendar/month_calendar.hpp"
#include "dateselect/date_select.hpp"
#include "picker/date_picker.hpp"

namespace tarnbrook {

// Where every event line goes: standard output (flushed at once, so a script reading it
// sees each line as it happens) and the form's list, when there is one.
class EventLog {
public:
  void SetListener(std::function<void(const std::string&)> listener) {
    listener_ = std::move(listener);
  }
  void Write(const std::string& line);

  // "<control> <event> <arguments...>": whole numbers without decimals, booleans as the
  // language prints them.
  template <class... Args>
  void Event(const std::string& control, const char* event, const Args&... args) {
    std::ostringstream line;
    line << control << ' ' << event;
    ((line << ' ' << Text(args)), ...);
    Write(line.str());
  }

private:
  static std::string Text(int16_t value) { return std::to_string(value); }
  static std::string Text(bool value) { return value ? "True" : "False"; }
  static std::string Text(float value);

  std::function<void(const std::string&)> listener_;
};

// Logs every event of one calendar under its name.
class CalendarEventLogger : public MonthCalendarEvents {
public:
  CalendarEventLogger(std::string name, EventLog& log) : name_(std::move(name)), log_(log) {}

  void Change() override { log_.Event(name_, "Change"); }
  void MonthChanged() override { log_.Event(name_, "MonthChanged"); }
  void YearChanged() override { log_.Event(name_, "YearChanged"); }
  void DateClicked() override { log_.Event(name_, "DateClicked"); }
  void EmptyClicked() override { log_.Event(name_, "EmptyClicked"); }
  void BeforeDropDown(bool& Cancel) override { log_.Event(name_, "BeforeDropDown", Cancel); }
  void DroppedDown() override { log_.Event(name_, "DroppedDown"); }
  void BeforeCloseUp(bool& Cancel) override { log_.Event(name_, "BeforeCloseUp", Cancel); }
  void AfterClosedUp() override { log_.Event(name_, "AfterClosedUp"); }
  void MouseMove(int16_t Button, float X, float Y) override {
    log_.Event(name_, "MouseMove", Button, X, Y);
  }
  void MouseDown(int16_t Button, float X, float Y) override {
    log_.Event(name_, "MouseDown", Button, X, Y);
  }
  void MouseUp(int16_t Button, float X, float Y) override {
    log_.Event(name_, "MouseUp", Button, X, Y);
  }
  void KeyDown(int16_t& KeyCode, int16_t Shift) override {
    log_.Event(name_, "KeyDown", KeyCode, Shift);
  }
  void KeyUp(int16_t& KeyCode, int16_t Shift) override {
    log_.Event(name_, "KeyUp", KeyCode, Shift);
  }
  void KeyPress(int16_t& KeyAscii) override { log_.Event(name_, "KeyPress", KeyAscii); }

private:
  std::string name_;
  EventLog& log_;
};

// Logs every event of one picker under its name.
class PickerEventLogger : public DatePickerEvents {
public:
  PickerEventLogger(std::string name, EventLog& log) : name_(std::move(name)), log_(log) {}

  void Change() override { log_.Event(name_, "Change"); }
  void MouseDown(int16_t Button, int16_t Shift, float X, float Y) override {
    log_.Event(name_, "MouseDown", Button, Shift, X, Y);
  }
  void MouseMove(int16_t Button, int16_t Shift, float X, float Y) override {
    log_.Event(name_, "MouseMove", Button, Shift, X, Y);
  }
  void MouseUp(int16_t Button, int16_t Shift, float X, float Y) override {
    log_.Event(name_, "MouseUp", Button, Shift, X, Y);
  }
  void KeyDown(int16_t& KeyCode, int16_t Shift) override {
    log_.Event(name_, "KeyDown", KeyCode, Shift);
  }
  void KeyPress(int16_t& KeyAscii) override { log_.Event(name_, "KeyPress", KeyAscii); }
  void KeyUp(int16_t& KeyCode, int16_t Shift) override {
    log_.Event(name_, "KeyUp", KeyCode, Shift);
  }
  void EmptyClicked(bool& Cancel) override { log_.Event(name_, "EmptyClicked", Cancel); }
  void BeforeCalendarDropDown(bool& Cancel) override {
    log_.Event(name_, "BeforeCalendarDropDown", Cancel);
  }
  void AfterCalendarDropDown() override { log_.Event(name_, "AfterCalendarDropDown"); }
  void BeforeCalendarCloseUp(bool& Cancel) override {
    log_.Event(name_, "BeforeCalendarCloseUp", Cancel);
  }
  void AfterCalendarCloseUp() override { log_.Event(name_, "AfterCalendarCloseUp"); }

private:
  std::string name_;
  EventLog& log_;
};

// Logs every event of one date selection under its name.
class DateSelectEventLogger : public DateSelectEvents {
public:
  DateSelectEventLogger(std::string name, EventLog& log) : name_(std::move(name)), log_(log) {}

  void Change() override { log_.Event(name_, "Change"); }
  void OperatorChange() override { log_.Event(name_, "OperatorChange"); }
  void StartDateChange() override { log_.Event(name_, "StartDateChange"); }
  void EndDateChange() override { log_.Event(name_, "EndDateChange"); }
  void YearChange() override { log_.Event(name_, "YearChange"); }
  void MonthChange() override { log_.Event(name_, "MonthChange"); }
  void SelectionChange() override { log_.Event(name_, "SelectionChange"); }
  void CustomRangeChange() override { log_.Event(name_, "CustomRangeChange"); }
  void CustomSelectionChange() override { log_.Event(name_, "CustomSelectionChange"); }

private:
  std::string name_;
  EventLog& log_;
};

} // namespace tarnbrook
