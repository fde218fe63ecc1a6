#include "design/form_designer.hpp"

namespace tarnbrook {

FormDesigner::FormDesigner(Container& form) : form_(form), savedUserMode_(form.UserMode()) {
  form_.SetUserMode(false);
}

FormDesigner::~FormDesigner() {
  form_.SetUserMode(savedUserMode_);
}

} // namespace tarnbrook
