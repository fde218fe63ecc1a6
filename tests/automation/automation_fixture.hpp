#pragma once
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "automation/class_factory.hpp"
#include "automation/dispatch.hpp"
#include "automation/type_library.hpp"
#include "common/date_runtime.hpp"
#include "host/container.hpp"
#include "platform/memory/memory_platform.hpp"
#include "tests/support/raised.hpp"

namespace tarnbrook {

// A form on the simulator, today 10 May 2004, the library's classes registered.
class AutomationTest : public ::testing::Test {
protected:
  AutomationTest() {
    platform.SetNow(DateSerial(2004, 5, 10) + 0.5);
    RegisterTarnbrookClasses();
    form = std::make_unique<Container>(640, 480);
  }

  // A control made by the factory and placed on the form under `name`.
  template <class C = Control> C& Place(const std::string& progId, const std::string& name) {
    Control& placed = form->Add(CreateObject(progId, form->hWnd()), name, 10, 10, 220, 190);
    return dynamic_cast<C&>(placed);
  }

  MemoryPlatform platform;
  std::unique_ptr<Container> form;
};

// The events an object raised by name, with their arguments as they arrived.
struct EventLog {
  struct Entry {
    std::string name;
    std::vector<Variant> args;
  };
  std::vector<Entry> entries;
  EventHandler Handler() {
    return [this](const std::string& name, std::vector<Variant>& args) {
      entries.push_back({name, args});
    };
  }
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const Entry& e : entries)
      names.push_back(e.name);
    return names;
  }
};

} // namespace tarnbrook
