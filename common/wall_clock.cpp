#include "common/wall_clock.hpp"

namespace tarnbrook {

namespace {
WallClock installed = nullptr;
} // namespace

void SetWallClock(WallClock clock) {
  installed = clock;
}

std::optional<DateValue> WallClockNow() {
  if (!installed) {
    return std::nullopt;
  }
  return installed();
}

} // namespace tarnbrook
