#pragma once
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "common/date_runtime.hpp"
#include "dateselect/date_select.hpp"
#include "host/container.hpp"
#include "host/control_registry.hpp"
#include "host/type_info.hpp"
#include "platform/memory/memory_platform.hpp"
#include "tests/support/hand.hpp"
#include "tests/support/raised.hpp"

namespace tarnbrook {

using Log = std::vector<std::string>;
using Range = std::pair<DateValue, DateValue>;

// The control's events by name, in the order they come.
struct EventLog {
  Log events;
  Log Take() { return std::exchange(events, {}); }
};

inline Range Days(int y1, int m1, int d1, int y2, int m2, int d2) {
  return {DateSerial(y1, m1, d1), DateSerial(y2, m2, d2)};
}

// A form holding one new DateSelect on Monday 10 May 2004, 10:00, in the built-in English
// locale (weeks start on Sunday). The log is connected after creation; errors the control
// reports to the form are kept.
class DateSelectTest : public ::testing::Test {
protected:
  static constexpr const char* Name = "DateSelect1";

  DateSelectTest() {
    RegisterControlClass<DateSelect>("DateSelect");
    SetToday(2004, 5, 10);
    form.SetErrorHandler(
        [this](const std::string&, const ControlError& e) { reported.push_back(e.Number()); });
    ds = &static_cast<DateSelect&>(
        form.Add(std::make_unique<DateSelect>(form.hWnd()), Name, 10, 10, 320, 60));
    events = DateSelect::TypeInfo().connect(
        *ds,
        [this](const std::string& event, std::vector<Variant>&) { log.events.push_back(event); });
    form.ClearChangedKeys();
  }

  void SetToday(int year, int month, int day) {
    platform.SetNow(DateSerial(year, month, day) + 10.0 / 24);
  }
  // Applies an option and forgets what that raised.
  void Select(int32_t option) {
    ds->SetSelection(option);
    log.Take();
  }
  Range Dates() const { return {ds->StartDate(), ds->EndDate()}; }

  // A click on the spin's up or down button.
  void ClickSpin(bool up) {
    NumberSpin& spin = ds->spnYear();
    hand.Click(spin, spin.ScaleWidth() - 2 - spin.ButtonWidth() / 2,
               up ? spin.ScaleHeight() / 4 : spin.ScaleHeight() * 3 / 4);
  }
  // The form saved and opened again in a form of its own, beside the first one so that
  // clicks still reach that, which keeps the focus.
  DateSelect& Reloaded() {
    const HWND focus = platform.GetFocus();
    reloaded = std::make_unique<Container>();
    reloaded->LoadFromText(form.SaveToText());
    const Rect bounds = platform.GetWindowRect(reloaded->hWnd());
    platform.MoveWindow(reloaded->hWnd(), bounds.right, bounds.top, bounds.Width(), bounds.Height(),
                        true);
    platform.SetFocus(focus);
    return static_cast<DateSelect&>(*reloaded->Find(Name));
  }

  MemoryPlatform platform;
  Hand hand{platform};
  Container form;
  DateSelect* ds = nullptr;
  EventLog log;
  EventConnection events;
  std::vector<int> reported;
  std::unique_ptr<Container> reloaded;
};

} // namespace tarnbrook
