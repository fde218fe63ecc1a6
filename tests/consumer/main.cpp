// A program built outside the tree against an installed Tarnbrook: a calendar and a picker on
// a form in the simulator; a day picked from the picker's drop-down calendar becomes its value.
#include <cstdio>
#include <memory>

#include "common/date_format.hpp"
#include "common/date_runtime.hpp"
#include "host/container.hpp"
#include "picker/date_picker.hpp"
#include "platform/memory/memory_platform.hpp"

using namespace tarnbrook;

int main() {
  MemoryPlatform screen;
  screen.SetNow(DateSerial(2026, 11, 21) + 0.5);
  Container form(480, 260, "Consumer");
  form.Add(std::make_unique<MonthCalendar>(form.hWnd()), "calendar1", 10, 10, 204, 180);
  auto& picker = static_cast<DatePicker&>(
      form.Add(std::make_unique<DatePicker>(form.hWnd()), "picker1", 230, 10, 140, 21));
  picker.SetValue(Variant::Date(screen.Today()));

  Point button = screen.ClientToScreen(picker.hWnd(), {140 - 8, 10});
  screen.Click(button.x, button.y);
  if (!picker.IsDropped()) {
    std::puts("consumer: the calendar did not drop down");
    return 1;
  }
  // The third day of the third week.
  Point day = screen.ClientToScreen(picker.Calendar().hWnd(), {4 + 2 * 28 + 14, 52 + 2 * 16 + 8});
  screen.Click(day.x, day.y);
  DateValue picked = picker.Value().ToDate();
  if (picker.IsDropped() || picked == screen.Today() ||
      picked != picker.Calendar().Value()) {
    std::puts("consumer: the day clicked did not become the picker's value");
    return 1;
  }
  std::printf("consumer: picked %s\n", DateToText(picked).c_str());
  return 0;
}
