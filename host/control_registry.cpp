#include "host/control_registry.hpp"

#include <map>

namespace tarnbrook {
namespace {

std::map<std::string, ControlFactory>& Registry() {
  static std::map<std::string, ControlFactory> registry;
  return registry;
}

} // namespace

void RegisterControlClass(const std::string& className, ControlFactory factory) {
  Registry()[className] = std::move(factory);
}

const ControlFactory* FindControlClass(const std::string& className) {
  auto found = Registry().find(className);
  return found == Registry().end() ? nullptr : &found->second;
}

} // namespace tarnbrook
