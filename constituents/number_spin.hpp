#pragma once
#include <cstdint>
#include <string>

#include "common/event_source.hpp"
#include "common/font.hpp"
#include "common/ole_color.hpp"
#include "draw/border_style.hpp"
#include "draw/cframe.hpp"
#include "host/control.hpp"
#include "platform/timer.hpp"

namespace tarnbrook {

class NumberSpinEvents {
public:
  virtual ~NumberSpinEvents() = default;
  // An accepted step (button, arrow key, double click); a typed year raises none.
  virtual void Change() {}
  // Not an event of the control: tells the owner that a typed year became the value.
  virtual void Typed() {}
};

enum NumberSpinEventId { nsEventChange = 1 };

// A year box: the number with an up and a down button stacked at the right. The year changes
// by the buttons (held: auto-repeat after 750 ms, then every 100 ms), the Up and Down keys,
// or typed digits committed after a 750 ms pause.
class NumberSpin : public Control {
public:
  static constexpr int32_t MinYear = 1601;
  static constexpr int32_t MaxYear = 9999;

  explicit NumberSpin(HWND parent = 0);
  ~NumberSpin() override;
  std::string ClassName() const override { return "NumberSpin"; }

  void Connect(NumberSpinEvents* sink) { events_.Connect(sink); }
  void Disconnect(NumberSpinEvents* sink) { events_.Disconnect(sink); }

  void InitProperties() override;
  void ReadProperties(PropertyBag& bag) override;
  void WriteProperties(PropertyBag& bag) override;

  // Taken only within 1601..9999, otherwise ignored; "Value" is reported either way and no
  // Change is raised.
  int32_t Value() const { return value_; }
  void SetValue(int32_t value);
  int32_t ButtonWidth() const { return buttonWidth_; }
  void SetButtonWidth(int32_t width);
  void SetEnabled(bool enabled) override;
  int32_t ButtonStyle() const { return buttonStyle_; }
  void SetButtonStyle(int32_t style); // 5065 "Tarnbrook.DatePicker" above 2
  int32_t BorderStyle() const { return borderStyle_; }
  void SetBorderStyle(int32_t style);
  OleColor ForeColor() const { return foreColor_; }
  void SetForeColor(OleColor color);
  OleColor BackColor() const { return backColor_; }
  void SetBackColor(OleColor color);
  const tarnbrook::Font& Font() const { return font_; }
  void SetFont(const tarnbrook::Font& font);

  // The height that fits the font and the border, for an owner's layout.
  int32_t PreferredHeight() const;

  // True while typed digits wait for their pause to end; Typed() is what they make so far.
  bool Typing() const { return typing_; }
  int32_t Typed() const { return typed_; }

protected:
  void OnPaint() override;
  void OnResize() override;
  void OnMouseDown(int16_t button, int16_t shift, float x, float y) override;
  void OnMouseUp(int16_t button, int16_t shift, float x, float y) override;
  void OnDblClick() override;
  void OnKeyDown(int16_t& keyCode, int16_t shift) override;
  bool OnMouseWheel(int32_t notches, int16_t shift) override;
  void OnKeyPress(int16_t& keyAscii) override;
  void OnGotFocus() override;
  void OnLostFocus() override;

private:
  bool Step(int32_t amount);
  void TimerTick();
  void LayoutButtons();
  int32_t BorderWidth() const;
  int32_t ShownButtonWidth() const;
  void Redraw();

  EventSource<NumberSpinEvents> events_;
  Timer timer_;
  CFrame up_;
  CFrame down_;
  int32_t value_ = 0;
  int32_t typed_ = 0;
  bool typing_ = false;
  bool hasFocus_ = false;
  int32_t lastX_ = 0; // where the last press was, for a double click
  int32_t lastY_ = 0;
  int32_t buttonWidth_ = 16;
  int32_t buttonStyle_ = 0;
  int32_t borderStyle_ = dtpBorderSunken3D;
  OleColor foreColor_ = vbButtonText;
  OleColor backColor_ = vbWindowBackground;
  tarnbrook::Font font_;
};

} // namespace tarnbrook
