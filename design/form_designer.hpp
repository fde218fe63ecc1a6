#pragma once
#include "host/container.hpp"

namespace tarnbrook {

// Puts a form in design mode while attached: the controls see UserMode false and take no
// input; detaching gives the form back its run mode.
class FormDesigner {
public:
  explicit FormDesigner(Container& form);
  ~FormDesigner();
  FormDesigner(const FormDesigner&) = delete;
  FormDesigner& operator=(const FormDesigner&) = delete;

  Container& Form() const { return form_; }

private:
  Container& form_;
  bool savedUserMode_;
};

} // namespace tarnbrook
