#pragma once
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "automation/class_factory.hpp"
#include "automation/dispatch.hpp"
#include "automation/type_library.hpp"
#include "calendar/month_calendar.hpp"
#include "common/date_runtime.hpp"
#include "dateselect/date_select.hpp"
#include "host/container.hpp"
#include "platform/memory/memory_platform.hpp"
#include "tests/support/raised.hpp"

namespace tarnbrook {

// A form on the simulator, today 10 May 2004, the library's classes registered.
class AutomationTest : public ::testing::Test {
protected:
  AutomationTest() {
    platform.SetNow(DateSerial(2004, 5, 10) + 0.5);
    RegisterTarnbrookClasses();
    form = std::make_unique<Container>(640, 480);
  }

  // A control made by the factory and placed on the form under `name`.
  template <class C = Control> C& Place(const std::string& progId, const std::string& name) {
    Control& placed = form->Add(CreateObject(progId, form->hWnd()), name, 10, 10, 220, 190);
    return dynamic_cast<C&>(placed);
  }

  MemoryPlatform platform;
  std::unique_ptr<Container> form;
};

// The events an object raised by name, with their arguments as they arrived.
struct EventLog {
  struct Entry {
    std::string name;
    std::vector<Variant> args;
  };
  std::vector<Entry> entries;
  EventHandler Handler() {
    return [this](const std::string& name, std::vector<Variant>& args) {
      entries.push_back({name, args});
    };
  }
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const Entry& e : entries)
      names.push_back(e.name);
    return names;
  }
};

// A program's settings by name and a person's session over a control, which between them raise
// every event of every class. `alive` turns false once a handler has removed the control: the
// program stops touching it, the person's input goes on over the place it stood.
inline void WorkTheControl(MemoryPlatform& platform, Control& control,
                           const std::function<bool()>& alive) {
  const Rect r = platform.GetWindowRect(control.hWnd());
  const Dispatch byName(control);
  const std::pair<const char*, Variant> lets[] = {{"EmptyButton", true},
                                                  {"Selection", 2},
                                                  {"StartDate", Variant::Date(38000)},
                                                  {"EndDate", Variant::Date(38200)},
                                                  {"Operator", ">"},
                                                  {"CustomSelection", 1},
                                                  {"CustomRange", 3},
                                                  {"Value", Variant::Date(36000)},
                                                  {"SelectedYear", 2001},
                                                  {"SelectedMonth", int32_t(dtsJun)},
                                                  {"Selection", 11}};
  for (const auto& [property, value] : lets) {
    if (!alive() || !byName.Info().FindProperty(property))
      continue;
    try {
      byName.Let(property, value);
    } catch (const ControlError&) {
    }
  }
  auto* calendar = dynamic_cast<MonthCalendar*>(&control);
  if (calendar && alive()) {
    const Rect up = calendar->Button("Up").rectangle; // the year's button
    platform.Click(r.left + (up.left + up.right) / 2, r.top + (up.top + up.bottom) / 2);
  }
  // Clicks here and there, a double and a right click, holding a button, the keys a date
  // control knows, typing, Tab and time passing.
  const int32_t midX = (r.left + r.right) / 2, midY = (r.top + r.bottom) / 2;
  platform.Click(midX, midY);
  for (int32_t x : {r.left + 12, r.right - 8, r.left + 30, r.right - 30})
    for (int32_t y : {r.top + 8, r.bottom - 10})
      platform.Click(x, y);
  platform.DoubleClick(midX, r.top + 30);
  platform.MouseDown(VK_RBUTTON, midX, midY);
  platform.MouseUp(VK_RBUTTON, midX, midY);
  platform.MouseDown(VK_LBUTTON, r.left + 12, r.top + 40);
  platform.MouseMove(r.left + 40, r.top + 60);
  platform.Advance(800);
  platform.MouseUp(VK_LBUTTON, r.left + 40, r.top + 60);
  for (int key : {VK_DOWN, VK_UP, VK_LEFT, VK_RIGHT, VK_HOME, VK_END, VK_PRIOR, VK_NEXT, VK_F4,
                  VK_DOWN, VK_RETURN, VK_F4, VK_ESCAPE, VK_SPACE, VK_DELETE, VK_BACK})
    platform.Key(key);
  for (int month = 0; month < 13; ++month)
    platform.Key(VK_PRIOR);
  platform.Key(VK_F4);
  platform.Click(600, 460); // outside, where a dropped calendar closes
  platform.Type("12a");
  platform.Advance(1000);
  platform.Key(VK_TAB);
  platform.Key(VK_TAB, MemoryPlatform::ShiftKey);
  platform.PumpMessages();
  // The calendar's pop-up mode, closed by a press outside it.
  if (calendar && alive()) {
    calendar->DropDown(r.left, r.top);
    platform.Click(600, 460);
  }
}

} // namespace tarnbrook
