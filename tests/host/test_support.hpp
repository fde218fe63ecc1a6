#pragma once
#include <functional>
#include <string>
#include <vector>

#include "common/control_error.hpp"
#include "host/control.hpp"
#include "tests/support/raised.hpp"

namespace tarnbrook {

// A control for the host tests: logs what reaches it, and keeps any property it is given so
// that form files can be checked value by value.
class ProbeControl : public Control {
public:
  using Control::Control;
  std::string ClassName() const override { return "ProbeControl"; }

  std::vector<std::string> log;
  int32_t number = 0;
  MemoryPropertyBag extras; // the properties other than "Number", as read

  void SetNumber(int32_t value) {
    number = value;
    PropertyChanged("Number");
  }
  static Variant DefaultUnlike(const Variant& v) {
    return v.IsNull() ? Variant() : Variant::Null();
  }

  void InitProperties() override { log.push_back("InitProperties"); }
  void ReadProperties(PropertyBag& bag) override {
    number = bag.ReadProperty("Number", int32_t(0)).ToLong(); // a bad type raises 13
    for (const auto& [key, value] : dynamic_cast<MemoryPropertyBag&>(bag).Entries())
      if (key != "Number")
        extras.WriteProperty(key, value, DefaultUnlike(value));
  }
  void WriteProperties(PropertyBag& bag) override {
    bag.WriteProperty("Number", number, int32_t(0));
    for (const auto& [key, value] : extras.Entries())
      bag.WriteProperty(key, value, DefaultUnlike(value));
  }

protected:
  void OnMouseDown(int16_t button, int16_t shift, float x, float y) override {
    Mouse("MouseDown", button, shift, x, y);
  }
  void OnMouseMove(int16_t button, int16_t shift, float x, float y) override {
    Mouse("MouseMove", button, shift, x, y);
  }
  void OnMouseUp(int16_t button, int16_t shift, float x, float y) override {
    Mouse("MouseUp", button, shift, x, y);
  }
  void OnDblClick() override { log.push_back("DblClick"); }
  void OnKeyDown(int16_t& keyCode, int16_t shift) override { Key("KeyDown", keyCode, shift); }
  void OnKeyPress(int16_t& keyAscii) override {
    log.push_back("KeyPress " + std::string(1, char(keyAscii)));
  }
  void OnKeyUp(int16_t& keyCode, int16_t shift) override { Key("KeyUp", keyCode, shift); }
  void OnGotFocus() override { log.push_back("GotFocus"); }
  void OnLostFocus() override { log.push_back("LostFocus"); }
  void OnResize() override {
    log.push_back("Resize " + std::to_string(Surface().Width()) + "x" +
                  std::to_string(Surface().Height()));
  }
  void OnTimer(uintptr_t id) override { log.push_back("Timer " + std::to_string(id)); }

private:
  void Mouse(const char* what, int16_t button, int16_t shift, float x, float y) {
    log.push_back(std::string(what) + " " + std::to_string(button) + " " + std::to_string(shift) +
                  " " + std::to_string(int(x)) + "," + std::to_string(int(y)));
  }
  void Key(const char* what, int16_t keyCode, int16_t shift) {
    log.push_back(std::string(what) + " " + std::to_string(keyCode) + " " + std::to_string(shift));
  }
};

} // namespace tarnbrook
