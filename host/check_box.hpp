#pragma once
#include <cstdint>
#include <string>

#include "common/event_source.hpp"
#include "common/push_tracker.hpp"
#include "host/standard_control.hpp"

namespace tarnbrook {

class CheckBoxEvents {
public:
  virtual ~CheckBoxEvents() = default;
  // The value changed: by a click, Space, or the program setting Value.
  virtual void Click() {}
};

enum CheckBoxEventId { chkEventClick = 1 };

enum CheckBoxConstants { vbUnchecked = 0, vbChecked = 1, vbGrayed = 2 };

// The standard check box a form offers: a 13 x 13 sunken box with its caption beside it.
// A click (press and release over it) or Space toggles between unchecked and checked.
class CheckBox : public StandardControl {
public:
  static constexpr int32_t BoxSize = 13;

  explicit CheckBox(HWND parent = 0);
  ~CheckBox() override;
  std::string ClassName() const override { return "CheckBox"; }

  void Connect(CheckBoxEvents* sink) { events_.Connect(sink); }
  void Disconnect(CheckBoxEvents* sink) { events_.Disconnect(sink); }

  void ReadProperties(PropertyBag& bag) override;
  void WriteProperties(PropertyBag& bag) override;

  // '&' marks the next character as the mnemonic (underlined); "&&" is a plain '&'.
  const std::string& Caption() const { return caption_; }
  void SetCaption(const std::string& caption);
  // vbUnchecked, vbChecked or vbGrayed; 380 otherwise. A change raises Click.
  int32_t Value() const { return value_; }
  void SetValue(int32_t value);

  // A press or Space held is let go as well.
  void SetEnabled(bool enabled) override;

protected:
  void OnPaint() override;
  void OnMouseDown(int16_t button, int16_t shift, float x, float y) override;
  void OnMouseMove(int16_t button, int16_t shift, float x, float y) override;
  void OnMouseUp(int16_t button, int16_t shift, float x, float y) override;
  void OnDblClick() override;
  void OnKeyDown(int16_t& keyCode, int16_t shift) override;
  void OnKeyUp(int16_t& keyCode, int16_t shift) override;
  void OnGotFocus() override;
  void OnLostFocus() override;

private:
  void Toggle();
  void ShowPushed(); // by the mouse or a held Space

  EventSource<CheckBoxEvents> events_;
  std::string caption_;
  int32_t value_ = vbUnchecked;
  PushTracker mouse_;
  bool spaceHeld_ = false;
  bool pushed_ = false; // as drawn
};

} // namespace tarnbrook
