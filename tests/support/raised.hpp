#pragma once
#include <functional>

#include "common/control_error.hpp"

namespace tarnbrook {

// The error an action raises; number 0 when it raises none.
inline ControlError Raised(const std::function<void()>& action) {
  try {
    action();
  } catch (const ControlError& error) {
    return error;
  }
  return ControlError(0, "", "");
}

inline int RaisedNumber(const std::function<void()>& action) {
  return Raised(action).Number();
}

} // namespace tarnbrook
