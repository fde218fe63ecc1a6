// A picker format cut into fields, then each field typed into, committed and stepped.
// Input: an 8-byte date value, a 4-byte left edge, the format up to a NUL byte, then the
// keys typed (a key byte, then a step amount byte, repeated).
#include <cstring>
#include <string_view>

#include "common/control_error.hpp"
#include "draw/cmdc.hpp"
#include "picker/format_cutter.hpp"

using namespace tarnbrook;

namespace {

constexpr int32_t LineHeight = 21;

cMDC& Surface() {
  static cMDC* surface = [] {
    auto* made = new cMDC;
    made->Resize(400, LineHeight);
    made->SetFont("DejaVu Sans", 8);
    return made;
  }();
  return *surface;
}

void Exercise(CDateMask& field, DateValue value, std::string_view keys) {
  field.SetValue(value);
  field.Text();
  for (size_t i = 0; i + 1 < keys.size(); i += 2) {
    try {
      field.TypeDigit(static_cast<uint8_t>(keys[i]));
      field.Text();
      if (keys[i] == '\r')
        field.Commit();
      if (keys[i] == '+')
        field.Increment(static_cast<int8_t>(keys[i + 1]));
    } catch (const ControlError&) {
    }
  }
  try {
    field.Commit();
    field.Text();
    field.Draw();
  } catch (const ControlError&) {
  }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size < 12)
    return 0;
  DateValue value;
  int32_t left;
  std::memcpy(&value, data, sizeof value);
  std::memcpy(&left, data + 8, sizeof left);
  const std::string_view rest(reinterpret_cast<const char*>(data + 12), size - 12);
  const size_t end = rest.find('\0');
  const std::string_view format = rest.substr(0, end);
  const std::string_view keys = end == rest.npos ? std::string_view() : rest.substr(end + 1);
  try {
    for (CDateMask& field : CutDateFormat(Surface(), format, left, LineHeight))
      Exercise(field, value, keys);
  } catch (const ControlError&) {
  }
  return 0;
}
