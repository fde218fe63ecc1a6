#pragma once
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "common/date_runtime.hpp"
#include "host/container.hpp"
#include "picker/date_picker.hpp"
#include "platform/memory/memory_platform.hpp"
#include "tests/support/raised.hpp"

namespace tarnbrook {

using Log = std::vector<std::string>;

// Logs the picker's events by name, with their arguments, in the order they come.
class PickerEventLog : public DatePickerEvents {
public:
  Log events;
  bool withKeys = false; // key events are logged only when asked for
  bool cancelEmpty = false;
  bool cancelDropDown = false;
  bool cancelCloseUp = false;

  Log Take() { return std::exchange(events, {}); } // the events so far; the log starts afresh

  void Change() override { events.push_back("Change"); }
  void KeyDown(int16_t& k, int16_t s) override { Key("KeyDown " + Text(k) + " " + Text(s)); }
  void KeyPress(int16_t& k) override { Key("KeyPress " + Text(k)); }
  void KeyUp(int16_t& k, int16_t s) override { Key("KeyUp " + Text(k) + " " + Text(s)); }
  void EmptyClicked(bool& cancel) override { Cancellable("EmptyClicked", cancel, cancelEmpty); }
  void BeforeCalendarDropDown(bool& cancel) override {
    Cancellable("BeforeCalendarDropDown", cancel, cancelDropDown);
  }
  void AfterCalendarDropDown() override { events.push_back("AfterCalendarDropDown"); }
  void BeforeCalendarCloseUp(bool& cancel) override {
    Cancellable("BeforeCalendarCloseUp", cancel, cancelCloseUp);
  }
  void AfterCalendarCloseUp() override { events.push_back("AfterCalendarCloseUp"); }

private:
  static std::string Text(int n) { return std::to_string(n); }
  void Cancellable(const std::string& what, bool& cancel, bool answer) {
    events.push_back(what);
    cancel = answer;
  }
  void Key(const std::string& text) {
    if (withKeys)
      events.push_back(text);
  }
};

// A form holding one new picker (140 x 21 at 20, 30) on Saturday 21 November 2026, noon, with
// the built-in English locale; the event log is connected after creation and the changed keys
// are cleared.
class PickerTest : public ::testing::Test {
protected:
  static constexpr const char* Name = "DatePicker1";
  static constexpr int32_t Left = 20;
  static constexpr int32_t Top = 30;
  static constexpr int32_t PickerWidth = 140;
  static constexpr int32_t PickerHeight = 21;

  PickerTest() {
    platform.SetNow(DateSerial(2026, 11, 21) + 0.5);
    picker = &static_cast<DatePicker&>(
        form.Add(std::make_unique<DatePicker>(), Name, Left, Top, PickerWidth, PickerHeight));
    picker->Connect(&log);
    form.ClearChangedKeys();
  }

  // A value, a custom format and the focus: the usual start of an editing test.
  void Start(DateValue value, const std::string& format = "MM/dd/yyyy") {
    picker->SetFormat(dtpCustom);
    picker->SetCustomFormat(format);
    picker->SetValue(Variant::Date(value));
    picker->SetFocus();
    form.ClearChangedKeys();
    log.Take();
  }

  // A person's mouse at a point of the picker's client area.
  Point ScreenPoint(int32_t x, int32_t y) {
    return platform.ClientToScreen(picker->hWnd(), {x, y});
  }
  void PressAt(int32_t x, int32_t y) {
    platform.MouseDown(VK_LBUTTON, ScreenPoint(x, y).x, ScreenPoint(x, y).y);
  }
  void MoveTo(int32_t x, int32_t y) {
    platform.MouseMove(ScreenPoint(x, y).x, ScreenPoint(x, y).y);
  }
  void ReleaseAt(int32_t x, int32_t y) {
    platform.MouseUp(VK_LBUTTON, ScreenPoint(x, y).x, ScreenPoint(x, y).y);
  }
  void ClickAt(int32_t x, int32_t y) { platform.Click(ScreenPoint(x, y).x, ScreenPoint(x, y).y); }

  // The text the fields show, one after the other.
  std::string Shown() const {
    std::string text;
    for (const CDateMask& field : picker->Fields())
      text += field.Text();
    return text;
  }
  DateValue Date() const { return picker->Value().ToDate(); }

  // The picker's pixels as its window shows them.
  COLORREF PixelAt(int32_t x, int32_t y) {
    return platform.WindowCanvas(picker->hWnd())->GetPixel(x, y);
  }

  const Log& ChangedKeys() { return form.ChangedKeys(Name); }

  MemoryPlatform platform;
  Container form;
  DatePicker* picker = nullptr;
  PickerEventLog log;
};

} // namespace tarnbrook
