#include "host/standard_controls.hpp"

#include "host/control_registry.hpp"

namespace tarnbrook {

void RegisterStandardControls() {
  RegisterControlClass<TextBox>("TextBox");
  RegisterControlClass<CheckBox>("CheckBox");
  RegisterControlClass<Label>("Label");
  RegisterControlClass<ComboBox>("ComboBox");
}

} // namespace tarnbrook
