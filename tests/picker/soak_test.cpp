// Random input (mouse, keys, typed characters, time) over a calendar at December 9999 and a
// picker at its limits: nothing escapes to the window system and the invariants hold.
#include <cstdlib>
#include <random>

#include "tests/picker/picker_fixture.hpp"

namespace tarnbrook {
namespace {

TEST_F(PickerTest, RandomInputAtTheLimitsKeepsEveryInvariant) {
  auto& calendar = static_cast<MonthCalendar&>(
      form.Add(std::make_unique<MonthCalendar>(), "MonthCalendar1", 200, 30, 204, 180));
  calendar.SetValue(DateSerial(9999, 12, 31));
  picker->SetMaxDate(DateSerial(9999, 12, 31));
  picker->SetMinDate(DateSerial(9999, 12, 1));
  picker->SetValue(Variant::Date(DateSerial(9999, 12, 31)));
  picker->SetFormat(dtpCustom);
  picker->SetCustomFormat("dd MMMM yyyy hh:mm:ss tt");
  std::vector<std::string> escaped;
  form.SetErrorHandler([&](const std::string& name, const ControlError& error) {
    escaped.push_back(name + ": " + std::to_string(error.Number()) + " " + error.Description());
  });
  platform.PumpMessages();

  // A longer run: TARNBROOK_SOAK_EVENTS=100000.
  const char* wanted = std::getenv("TARNBROOK_SOAK_EVENTS");
  const int events = wanted ? std::atoi(wanted) : 3000;
  std::mt19937 random(20261121);
  auto below = [&](int n) { return int(random() % unsigned(n)); };
  const int keys[] = {VK_LEFT,   VK_RIGHT, VK_UP,   VK_DOWN, VK_F4,    VK_ESCAPE, VK_RETURN,
                      VK_DELETE, VK_BACK,  VK_HOME, VK_END,  VK_PRIOR, VK_NEXT,   VK_SPACE};
  for (int i = 0; i < events; ++i) {
    // Mostly over the two controls and the picker's drop-down, now and then anywhere.
    int x = below(10) == 0 ? below(640) : 20 + below(390);
    int y = below(10) == 0 ? below(480) : 30 + below(220);
    Point screen = platform.ClientToScreen(form.hWnd(), {x, y});
    switch (below(8)) {
    case 0:
      platform.Click(screen.x, screen.y);
      break;
    case 1:
      platform.MouseDown(VK_LBUTTON, screen.x, screen.y);
      break;
    case 2:
      platform.MouseMove(screen.x, screen.y);
      break;
    case 3:
      platform.MouseUp(VK_LBUTTON, screen.x, screen.y);
      break;
    case 4:
      platform.KeyDown(keys[below(std::size(keys))]);
      platform.KeyUp(VK_LEFT);
      break;
    case 5:
      platform.TypeChar(char(32 + below(95)));
      break;
    case 6:
      platform.Advance(uint32_t(below(900)));
      break;
    default:
      platform.PumpMessages();
      break;
    }
    ASSERT_TRUE(escaped.empty()) << "event " << i << ": " << escaped.front();
    ASSERT_EQ(calendar.ScaleWidth(), MonthCalendar::FixedWidth) << "event " << i;
    ASSERT_EQ(calendar.ScaleHeight(), MonthCalendar::FixedHeight) << "event " << i;
    Variant value = picker->Value();
    ASSERT_TRUE(value.IsNull() ||
                (value.ToDate() >= picker->MinDate() && value.ToDate() <= picker->MaxDate() + 1))
        << "event " << i;
  }
}

} // namespace
} // namespace tarnbrook
