#pragma once
// Small pieces the property pages and their choosers share: the refusal of a field's text,
// number parsing as the pages accept it, and relays that hand one constituent's events to
// a function (a page holds many text boxes and check boxes, each with its own handler).
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>

#include "constituents/combo_list_x.hpp"
#include "host/check_box.hpp"
#include "host/combo_box.hpp"
#include "host/text_box.hpp"
#include "picker/date_picker.hpp"

namespace tarnbrook {

// A field's text that cannot become a value; the page shows the message and keeps the focus
// in the field.
class FieldRefusal : public std::runtime_error {
public:
  explicit FieldRefusal(const std::string& message, Control* field = nullptr)
      : std::runtime_error(message), field_(field) {}
  // The field to put the focus in; null for the editor's own.
  Control* Field() const { return field_; }

private:
  Control* field_;
};

// "Please Enter a numeric value for the <name>": the same sentence for every numeric field.
std::string NumericMessage(const std::string& name);

// The number a field's text holds (blanks around it allowed); none for any other text,
// including an empty one.
std::optional<double> ParseNumber(const std::string& text);

// The text a page shows for a number: integral values without a fraction.
std::string NumberText(double value);

struct TextRelay : TextBoxEvents {
  std::function<void()> change;
  std::function<void(bool&)> validate;
  std::function<void()> gotFocus;
  void GotFocus() override {
    if (gotFocus)
      gotFocus();
  }
  void Change() override {
    if (change)
      change();
  }
  void Validate(bool& cancel) override {
    if (validate)
      validate(cancel);
  }
};

struct CheckRelay : CheckBoxEvents {
  std::function<void()> click;
  void Click() override {
    if (click)
      click();
  }
};

struct ComboRelay : ComboBoxEvents {
  std::function<void()> click;
  void Click() override {
    if (click)
      click();
  }
};

struct ListRelay : ComboListXEvents {
  std::function<void()> click;
  void Click() override {
    if (click)
      click();
  }
};

struct PickerRelay : DatePickerEvents {
  std::function<void()> change;
  void Change() override {
    if (change)
      change();
  }
};

// Selects the whole text of a field the focus comes to, as a dialog does for Tab (a press
// then puts the caret where it was pressed).
inline void SelectAllOnFocus(TextBox& box, TextRelay& relay) {
  relay.gotFocus = [&box] {
    box.SetSelStart(0);
    box.SetSelLength(static_cast<int32_t>(box.Text().size()));
  };
}

} // namespace tarnbrook
