// A form file read into a form holding a calendar and a picker: a refused file raises
// ControlError and leaves the form as it was.
#include <cstdlib>
#include <memory>
#include <string>

#include "calendar/month_calendar.hpp"
#include "common/control_error.hpp"
#include "host/container.hpp"
#include "host/control_registry.hpp"
#include "picker/date_picker.hpp"
#include "platform/memory/memory_platform.hpp"

using namespace tarnbrook;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static MemoryPlatform* platform = [] {
    auto* made = new MemoryPlatform;
    RegisterControlClass<MonthCalendar>("MonthCalendar");
    RegisterControlClass<DatePicker>("DatePicker");
    return made;
  }();
  (void)platform;

  Container form;
  form.Add(std::make_unique<MonthCalendar>(form.hWnd()), "MonthCalendar1", 8, 8, 204, 180);
  form.Add(std::make_unique<DatePicker>(form.hWnd()), "DatePicker1", 220, 8, 120, 21);
  const std::string before = form.SaveToText();
  try {
    form.LoadFromText(std::string(reinterpret_cast<const char*>(data), size));
  } catch (const ControlError&) {
    if (form.SaveToText() != before)
      std::abort(); // a refused file changed the form
  }
  return 0;
}
