#pragma once
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

namespace tarnbrook {

// An automation error: number, Source and description, raised to the caller.
class ControlError : public std::runtime_error {
public:
  ControlError(int32_t number, std::string source, std::string description);

  int32_t Number() const { return number_; }
  const std::string& Source() const { return source_; }
  const std::string& Description() const { return description_; }

private:
  int32_t number_;
  std::string source_;
  std::string description_;
};

// Numbers the runtime itself raises.
enum RuntimeErrorNumber : int32_t {
  rtInvalidProcedureCall = 5,
  rtOverflow = 6,
  rtSubscriptOutOfRange = 9,
  rtTypeMismatch = 13,
  rtInvalidPropertyValue = 380,
};

// The runtime's usual description for one of its error numbers ("Type mismatch", ...).
std::string RuntimeErrorText(int32_t number);

// The longest text a control keeps (a text box's text, a caption, a list entry, a format), in
// bytes: text is measured to be shown, and a longer one is refused with 380.
constexpr size_t MaxTextBytes = 65535;
void CheckTextLength(std::string_view text);

// Raises a runtime error with its usual text.
[[noreturn]] void RaiseRuntimeError(int32_t number, const std::string& source = "Tarnbrook");

// 0x80040000 + code, the number an object raises for its own error `code`.
constexpr int32_t ObjectError(int32_t code) {
  return static_cast<int32_t>(0x80040000u + static_cast<uint32_t>(code));
}

} // namespace tarnbrook
