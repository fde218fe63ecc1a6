#pragma once
#include <functional>
#include <memory>
#include <string>

#include "host/control.hpp"

namespace tarnbrook {

// Makes a control whose window is a child of `parent`.
using ControlFactory = std::function<std::unique_ptr<Control>(HWND parent)>;

// The classes a form file can name, by class name (case-sensitive, as ClassName() gives it).
void RegisterControlClass(const std::string& className, ControlFactory factory);
template <class T> void RegisterControlClass(const std::string& className) {
  RegisterControlClass(className, [](HWND parent) { return std::make_unique<T>(parent); });
}

// Null when no class of that name was registered.
const ControlFactory* FindControlClass(const std::string& className);

} // namespace tarnbrook
