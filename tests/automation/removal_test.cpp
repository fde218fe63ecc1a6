// Handlers that remove their own control from the form, at every event of every class, while
// a person works the control: the control lives until its raiser is done (the sanitizers
// watch), then goes when the form is next idle, and a connection dropped after it is harmless.
#include <set>

#include "automation_fixture.hpp"

namespace tarnbrook {
namespace {

using RemovalTest = AutomationTest;

TEST_F(RemovalTest, AHandlerMayRemoveItsControlAtAnyOfItsEvents) {
  std::set<std::string> reached, missed;
  for (const ClassRegistration& registration : RegisteredClasses()) {
    for (const EventInfo& event : registration.info->events) {
      SCOPED_TRACE(registration.className + "." + event.name);
      form = std::make_unique<Container>(640, 480);
      Control& control = Place(registration.progId, "Victim");
      bool removed = false;
      EventConnection connection =
          registration.info->connect(control, [&](const std::string& name, std::vector<Variant>&) {
            if (name == event.name && !removed) {
              removed = true;
              form->Remove("Victim");
            }
          });
      WorkTheControl(platform, control, [&] { return !removed; });
      (removed ? reached : missed).insert(registration.className + "." + event.name);
      EXPECT_EQ(form->Find("Victim") == nullptr, removed);
      connection.reset(); // after the control went, when it did
    }
  }
  EXPECT_EQ(missed, (std::set<std::string>{})) << reached.size() << " reached";
}

} // namespace
} // namespace tarnbrook
