#include "platform/platform.hpp"

#include <stdexcept>

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

bool Platform::HasCurrent() {
  return current != nullptr;
}

void Platform::SetCurrent(Platform* platform) {
  current = platform;
}

} // namespace tarnbrook
