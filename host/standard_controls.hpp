#pragma once
// The standard controls a form offers, all in one include.
#include "host/check_box.hpp"
#include "host/combo_box.hpp"
#include "host/label.hpp"
#include "host/text_box.hpp"

namespace tarnbrook {

// Lets form files name "TextBox", "CheckBox", "Label" and "ComboBox".
void RegisterStandardControls();

} // namespace tarnbrook
