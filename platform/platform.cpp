#include "platform/platform.hpp"

#include <stdexcept>

#include "common/wall_clock.hpp"

namespace tarnbrook {

namespace {
Platform* current = nullptr;
} // namespace

Platform& Platform::Current() {
  if (!current) {
    throw std::logic_error("no platform is current");
  }
  return *current;
}

Rect Platform::WorkAreaOrScreen() {
  Rect area;
  if (!SystemParametersInfo(SPI_GETWORKAREA, &area))
    area = {0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
  return area;
}

bool Platform::HasCurrent() {
  return current != nullptr;
}

void Platform::SetCurrent(Platform* platform) {
  current = platform;
  SetWallClock(platform ? [] { return current->Now(); } : WallClock{});
}

} // namespace tarnbrook
