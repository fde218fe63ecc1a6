#pragma once
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "common/date_runtime.hpp"
#include "common/locale.hpp"
#include "dateselect/date_select.hpp"
#include "host/container.hpp"
#include "platform/memory/memory_platform.hpp"
#include "tests/support/raised.hpp"

namespace tarnbrook {

using Log = std::vector<std::string>;

// Logs the control's events by name, in the order they come.
class DateSelectLog : public DateSelectEvents {
public:
  Log events;
  Log Take() { return std::exchange(events, {}); }

  void Change() override { events.push_back("Change"); }
  void OperatorChange() override { events.push_back("OperatorChange"); }
  void StartDateChange() override { events.push_back("StartDateChange"); }
  void EndDateChange() override { events.push_back("EndDateChange"); }
  void YearChange() override { events.push_back("YearChange"); }
  void MonthChange() override { events.push_back("MonthChange"); }
  void SelectionChange() override { events.push_back("SelectionChange"); }
  void CustomRangeChange() override { events.push_back("CustomRangeChange"); }
  void CustomSelectionChange() override { events.push_back("CustomSelectionChange"); }
};

// Restores the process's locale when a test that changed it ends.
struct LocaleGuard {
  Locale saved = CurrentLocale();
  ~LocaleGuard() { SetCurrentLocale(saved); }
};

// A form holding one new DateSelect on Monday 10 May 2004, 10:00, with the built-in English
// locale (weeks start on Sunday); the log is connected after creation and the changed keys are
// cleared.
class DateSelectTest : public ::testing::Test {
protected:
  static constexpr const char* Name = "DateSelect1";

  DateSelectTest() {
    SetToday(2004, 5, 10);
    ds = &static_cast<DateSelect&>(
        form.Add(std::make_unique<DateSelect>(form.hWnd()), Name, 10, 10, 320, 60));
    ds->Connect(&log);
    form.ClearChangedKeys();
  }

  // "Today" moves; the control notices when an option is applied again.
  void SetToday(int year, int month, int day) {
    platform.SetNow(DateSerial(year, month, day) + 10.0 / 24);
  }
  // Applies an option afresh and forgets what that raised and reported.
  void Select(int32_t option) {
    ds->SetSelection(option);
    log.Take();
    form.ClearChangedKeys();
  }
  void Custom(int32_t number, int32_t unit, bool includeToday) {
    Select(dtsCustomRange);
    ds->SetCustomSelection(unit);
    ds->SetCustomRange(number);
    ds->chkCustom().SetValue(includeToday ? vbChecked : vbUnchecked);
    log.Take();
  }

  // The dates as one pair, for comparing whole ranges at once.
  std::pair<DateValue, DateValue> Range() const { return {ds->StartDate(), ds->EndDate()}; }
  static std::pair<DateValue, DateValue> Days(DateValue start, DateValue end) {
    return {start, end};
  }

  // The texts of the option list, in list order.
  Log Offered() {
    Log texts;
    for (int32_t i = 0; i < ds->cboSelection().ListCount(); ++i)
      texts.push_back(ds->cboSelection().List(i));
    return texts;
  }

  // A person's click in the middle of a constituent, or at a point of its client area.
  void ClickOn(Control& control) {
    ClickAt(control, control.ScaleWidth() / 2, control.ScaleHeight() / 2);
  }
  void ClickAt(Control& control, int32_t x, int32_t y) {
    const Point p = platform.ClientToScreen(control.hWnd(), {x, y});
    platform.Click(p.x, p.y);
  }
  // A constituent's place in the control's client area.
  Rect PlaceOf(Control& control) {
    const Rect screen = platform.GetWindowRect(control.hWnd());
    const Point origin = platform.ClientToScreen(ds->hWnd(), {0, 0});
    return {screen.left - origin.x, screen.top - origin.y, screen.right - origin.x,
            screen.bottom - origin.y};
  }

  const Log& ChangedKeys() { return form.ChangedKeys(Name); }

  MemoryPlatform platform;
  Container form;
  DateSelect* ds = nullptr;
  DateSelectLog log;
};

} // namespace tarnbrook
