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

  // The dates as one pair, so whole ranges compare at once.
  std::pair<DateValue, DateValue> Range() const { return {ds->StartDate(), ds->EndDate()}; }
  static std::pair<DateValue, DateValue> Days(DateValue from, DateValue to) { return {from, to}; }

  // The entries of a list, in list order.
  static Log Items(ComboListX& list) {
    Log texts;
    for (int32_t i = 0; i < list.ListCount(); ++i)
      texts.push_back(list.List(i));
    return texts;
  }
  Log Offered() { return Items(ds->cboSelection()); }

  // A person's click at a point of a constituent's client area, by default its middle.
  void ClickAt(Control& control, int32_t x = -1, int32_t y = -1) {
    const Point p =
        platform.ClientToScreen(control.hWnd(), {x < 0 ? control.ScaleWidth() / 2 : x,
                                                 y < 0 ? control.ScaleHeight() / 2 : y});
    platform.Click(p.x, p.y);
  }

  const Log& ChangedKeys() { return form.ChangedKeys(Name); }

  MemoryPlatform platform;
  Container form;
  DateSelect* ds = nullptr;
  DateSelectLog log;
};

} // namespace tarnbrook
