#pragma once
#include "common/date_value.hpp"

namespace tarnbrook {

// This machine's local wall clock as a date: what a real window system answers for Now(),
// and the one place that reads it.
DateValue SystemNow();

} // namespace tarnbrook
