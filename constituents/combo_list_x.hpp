#pragma once
#include <cstdint>
#include <memory>
#include <string>

#include "common/event_source.hpp"
#include "common/font.hpp"
#include "common/ole_color.hpp"
#include "draw/border_style.hpp"
#include "draw/cframe.hpp"
#include "host/combo_box.hpp"
#include "host/control.hpp"

namespace tarnbrook {

class ComboListXEvents {
public:
  virtual ~ComboListXEvents() = default;
  // The inner list's selection changed.
  virtual void Click() {}
};

enum ComboListXEventId { clxEventClick = 1 };

// A drop-down list in the date picker's border and button look: the list itself is an
// inner ComboBox (`cbo`), placed inside the frame, to which the list members are forwarded
// unchanged (its errors included).
class ComboListX : public Control, private ComboBoxEvents {
public:
  explicit ComboListX(HWND parent = 0);
  ~ComboListX() override;
  std::string ClassName() const override { return "ComboListX"; }

  void Connect(ComboListXEvents* sink) { events_.Connect(sink); }
  void Disconnect(ComboListXEvents* sink) { events_.Disconnect(sink); }

  void InitProperties() override;
  void ReadProperties(PropertyBag& bag) override;
  void WriteProperties(PropertyBag& bag) override;

  int32_t ButtonWidth() const { return buttonWidth_; }
  void SetButtonWidth(int32_t width);
  void SetEnabled(bool enabled) override;
  int32_t ButtonStyle() const { return buttonStyle_; }
  void SetButtonStyle(int32_t style); // 5065 "Tarnbrook.DatePicker" above 2
  int32_t BorderStyle() const { return borderStyle_; }
  void SetBorderStyle(int32_t style);
  OleColor ForeColor() const;
  void SetForeColor(OleColor color);
  OleColor BackColor() const;
  void SetBackColor(OleColor color);
  const tarnbrook::Font& Font() const;
  void SetFont(const tarnbrook::Font& font);

  std::string Text() const;
  void SetText(const std::string& text);
  int32_t ListIndex() const;
  void SetListIndex(int32_t index);
  void AddItem(const std::string& item, int32_t index = -1);
  void RemoveItem(int32_t index);
  void Clear();
  std::string List(int32_t index) const;
  void SetList(int32_t index, const std::string& item);
  int32_t ListCount() const;
  int32_t ItemData(int32_t index) const;
  void SetItemData(int32_t index, int32_t data);
  int32_t NewIndex() const;
  ComboBox& cbo() { return *cbo_; }

  // The height the control needs for its font: the inner list's field height plus the border.
  int32_t PreferredHeight() const;

protected:
  // The frame only passes the focus on to the inner list: while the list has it, a press on
  // the frame leaves it there (and so does not close the open list on the way).
  bool Focusable() const override;
  void OnPaint() override;
  void OnResize() override;
  void OnMouseDown(int16_t button, int16_t shift, float x, float y) override;
  void OnGotFocus() override;
  void OnLostFocus() override;

private:
  void Click() override; // the inner list's
  void Layout();
  int32_t BorderWidth() const;
  void Redraw();

  EventSource<ComboListXEvents> events_;
  std::unique_ptr<ComboBox> cbo_;
  CFrame button_;
  bool hasFocus_ = false;
  int32_t buttonWidth_ = 16;
  int32_t buttonStyle_ = 0;
  int32_t borderStyle_ = dtpBorderSunken3D;
};

} // namespace tarnbrook
