// A form file of a calendar and a picker whose property values come from the input: dates,
// sizes, fonts, first days, button widths and a custom format. Whatever the values, loading
// either refuses with ControlError or gives a form that paints and saves.
// Input: six 8-byte doubles (value, limits, font size, left, width), two 4-byte integers
// (first day, button width), then the format text.
#include <cstring>
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

template <class T> T Take(const uint8_t*& data, size_t& size) {
  T value{};
  size_t n = std::min(size, sizeof value);
  std::memcpy(&value, data, n);
  data += n;
  size -= n;
  return value;
}

// A double as the form file writes one: a number, or the names of the special values.
std::string Number(double value) {
  if (value != value)
    return "\"NaN\"";
  if (value > 1e308 * 10 || value < -1e308 * 10)
    return value > 0 ? "\"Infinity\"" : "\"-Infinity\"";
  char text[40];
  std::snprintf(text, sizeof text, "%.17g", value);
  return text;
}

std::string Quoted(const std::string& text) {
  std::string quoted = "\"";
  for (unsigned char c : text) {
    if (c == '"' || c == '\\' || c < 0x20) {
      char escape[8];
      std::snprintf(escape, sizeof escape, "\\u%04x", c);
      quoted += escape;
    } else {
      quoted += char(c);
    }
  }
  return quoted + "\"";
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static MemoryPlatform* platform = [] {
    auto* made = new MemoryPlatform;
    RegisterControlClass<MonthCalendar>("MonthCalendar");
    RegisterControlClass<DatePicker>("DatePicker");
    return made;
  }();
  (void)platform;
  double value = Take<double>(data, size), minDate = Take<double>(data, size);
  double maxDate = Take<double>(data, size), fontSize = Take<double>(data, size);
  double left = Take<double>(data, size), width = Take<double>(data, size);
  int32_t firstDay = Take<int32_t>(data, size), buttonWidth = Take<int32_t>(data, size);
  std::string format(reinterpret_cast<const char*>(data), std::min<size_t>(size, 512));

  auto control = [&](const char* cls, const char* name, const std::string& extra) {
    return std::string(R"({"class": ")") + cls + R"(", "name": ")" + name + R"(", "left": )" +
           Number(left) + R"(, "top": 0, "width": )" + Number(width) +
           R"(, "height": 21, "properties": {"Value": {"Date": )" + Number(value) +
           R"(}, "MinDate": {"Date": )" + Number(minDate) + R"(}, "MaxDate": {"Date": )" +
           Number(maxDate) + R"(}, "Font": {"Font": {"name": )" + Quoted(format) + R"(, "size": )" +
           Number(fontSize) + "}}" + extra + "}}";
  };
  std::string text = R"({"version": 1, "controls": [)" +
                     control("MonthCalendar", "C1",
                             R"(, "FirstDayOfWeek": {"Long": )" + std::to_string(firstDay) + "}") +
                     ", " +
                     control("DatePicker", "P1",
                             R"(, "FirstDayofWeek": {"Long": )" + std::to_string(firstDay) +
                                 R"(}, "ButtonWidth": {"Long": )" + std::to_string(buttonWidth) +
                                 R"(}, "Format": {"Long": 3}, "CustomFormat": {"String": )" +
                                 Quoted(format) + "}") +
                     "]}";
  Container form;
  try {
    form.LoadFromText(text);
  } catch (const ControlError&) {
    return 0;
  }
  for (size_t i = 0; i < form.Count(); ++i)
    form.Item(i).Refresh();
  Container again;
  again.LoadFromText(form.SaveToText()); // what was taken saves and reads back
  return 0;
}
