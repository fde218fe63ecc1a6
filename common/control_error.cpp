#include "common/control_error.hpp"

namespace tarnbrook {

ControlError::ControlError(int32_t number, std::string source, std::string description)
    : std::runtime_error(description), number_(number), source_(std::move(source)),
      description_(std::move(description)) {}

std::string RuntimeErrorText(int32_t number) {
  switch (number) {
  case rtInvalidProcedureCall:
    return "Invalid procedure call or argument";
  case rtOverflow:
    return "Overflow";
  case 7:
    return "Out of memory";
  case rtSubscriptOutOfRange:
    return "Subscript out of range";
  case 11:
    return "Division by zero";
  case rtTypeMismatch:
    return "Type mismatch";
  case 53:
    return "File not found";
  case 94:
    return "Invalid use of Null";
  case rtInvalidPropertyValue:
    return "Invalid property value";
  case 381:
    return "Invalid property array index";
  case 383:
    return "'Text' property is read-only";
  case 481:
    return "Invalid picture";
  default:
    return "Application-defined or object-defined error";
  }
}

void RaiseRuntimeError(int32_t number, const std::string& source) {
  throw ControlError(number, source, RuntimeErrorText(number));
}

void CheckTextLength(std::string_view text) {
  if (text.size() > MaxTextBytes)
    RaiseRuntimeError(rtInvalidPropertyValue);
}

} // namespace tarnbrook
