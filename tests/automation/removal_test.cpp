// Handlers that remove their own control from the form, at every event of every class, while
// a person works the control: the control lives until its raiser is done (the sanitizers
// watch), then goes when the form is next idle, and a connection dropped after it is harmless.
#include <set>

#include "automation/class_factory.hpp"
#include "automation/dispatch.hpp"
#include "automation_fixture.hpp"
#include "calendar/month_calendar.hpp"

namespace tarnbrook {
namespace {

using RemovalTest = AutomationTest;

// What a program does while the control is there: settings let by name (each class takes
// those it has), and the calendar's pop-up mode.
void Program(MemoryPlatform& platform, Control& control, const Rect& r,
             const std::function<bool()>& alive) {
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
                                                  {"SelectedMonth", 3},
                                                  {"Selection", 11}};
  for (const auto& [property, value] : lets) {
    if (!alive() || !byName.Info().FindProperty(property))
      continue;
    try {
      byName.Let(property, value);
    } catch (const ControlError&) {
    }
  }
  if (auto* calendar = dynamic_cast<MonthCalendar*>(&control); calendar && alive()) {
    const Rect up = calendar->Button("Up").rectangle; // the year's button
    platform.Click(r.left + (up.left + up.right) / 2, r.top + (up.top + up.bottom) / 2);
  }
}

// The calendar's pop-up mode, closed by a press outside it.
void PopUp(MemoryPlatform& platform, Control& control, const Rect& r) {
  if (auto* calendar = dynamic_cast<MonthCalendar*>(&control)) {
    calendar->DropDown(r.left, r.top);
    platform.Click(600, 460);
  }
}

// A person's session over the control's rectangle on the screen: clicks here and there, a
// double and a right click, holding a button, the keys a date control knows, typing, Tab and
// time passing.
void Work(MemoryPlatform& platform, const Rect& r) {
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
}

TEST_F(RemovalTest, AHandlerMayRemoveItsControlAtAnyOfItsEvents) {
  std::set<std::string> reached, missed;
  for (const ClassRegistration& registration : RegisteredClasses()) {
    for (const EventInfo& event : registration.info->events) {
      SCOPED_TRACE(registration.className + "." + event.name);
      form = std::make_unique<Container>(640, 480);
      Control& control = Place(registration.progId, "Victim");
      const Rect bounds = platform.GetWindowRect(control.hWnd());
      bool removed = false;
      EventConnection connection =
          registration.info->connect(control, [&](const std::string& name, std::vector<Variant>&) {
            if (name == event.name && !removed) {
              removed = true;
              form->Remove("Victim");
            }
          });
      Program(platform, control, bounds, [&] { return !removed; });
      Work(platform, bounds);
      if (!removed)
        PopUp(platform, control, bounds);
      (removed ? reached : missed).insert(registration.className + "." + event.name);
      EXPECT_EQ(form->Find("Victim") == nullptr, removed);
      connection.reset(); // after the control went, when it did
    }
  }
  // Events no session of a person raises: errors, drag and drop, and what needs a program.
  EXPECT_EQ(missed, (std::set<std::string>{})) << reached.size() << " reached";
}

} // namespace
} // namespace tarnbrook
