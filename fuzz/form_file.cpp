// A form file read into a form holding a calendar and a picker: a refused file raises
// ControlError and leaves the form as it was; a file taken saves and reads back the same.
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

namespace {

// The form the files are read into, with its file as first made; made again after a file
// is taken, since that replaces its controls.
struct Form {
  Container container;
  std::string saved;
  Form() {
    container.Add(std::make_unique<MonthCalendar>(container.hWnd()), "MonthCalendar1", 8, 8, 204,
                  180);
    container.Add(std::make_unique<DatePicker>(container.hWnd()), "DatePicker1", 220, 8, 120, 21);
    saved = container.SaveToText();
  }
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static MemoryPlatform* platform = [] {
    auto* made = new MemoryPlatform;
    RegisterControlClass<MonthCalendar>("MonthCalendar");
    RegisterControlClass<DatePicker>("DatePicker");
    return made;
  }();
  (void)platform;
  static auto form = std::make_unique<Form>();

  try {
    form->container.LoadFromText(std::string(reinterpret_cast<const char*>(data), size));
  } catch (const ControlError&) {
    if (form->container.SaveToText() != form->saved)
      std::abort(); // a refused file changed the form
    return 0;
  }
  // A form that was read saves, and what it saves reads back the same (no ControlError).
  const std::string saved = form->container.SaveToText();
  form = std::make_unique<Form>();
  Container again;
  again.LoadFromText(saved);
  if (again.SaveToText() != saved)
    std::abort();
  return 0;
}
