#pragma once
#include <optional>

#include "common/date_value.hpp"

namespace tarnbrook {

// The wall clock the runtime reads for the current year (a text date without a year).
// The current platform installs itself here; nothing in common reads the system clock.
using WallClock = DateValue (*)();
void SetWallClock(WallClock clock);
// Empty while no clock is installed.
std::optional<DateValue> WallClockNow();

} // namespace tarnbrook
