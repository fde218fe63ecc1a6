#pragma once
#include <cstdint>

#include "common/font.hpp"
#include "common/ole_color.hpp"
#include "host/control.hpp"

namespace tarnbrook {

class PropertyBag;

// The look the form's standard controls share: the font (the form's until one is given),
// the back and fore colours and the alignment of their text. Each setter refuses a bad value
// before storing it, reports the change under the property's key and repaints.
class StandardControl : public Control {
public:
  const tarnbrook::Font& Font() const { return font_; }
  void SetFont(const tarnbrook::Font& font);
  OleColor BackColor() const { return backColor_; }
  void SetBackColor(OleColor color);
  OleColor ForeColor() const { return foreColor_; }
  void SetForeColor(OleColor color);
  // 0 up to the control's last alignment; 380 otherwise.
  int32_t Alignment() const { return alignment_; }
  void SetAlignment(int32_t alignment);

  void InitProperties() override;
  // Repaints in the disabled look.
  void SetEnabled(bool enabled) override;

protected:
  // A control's own defaults: its colours, and how many alignments it knows.
  struct Look {
    OleColor backColor;
    OleColor foreColor;
    int32_t lastAlignment;
  };
  StandardControl(HWND parent, Look look);

  // The saved font, then (where each control has always put them) the alignment and colours.
  void ReadFont(PropertyBag& bag);
  void WriteFont(PropertyBag& bag);
  void ReadLook(PropertyBag& bag);
  void WriteLook(PropertyBag& bag);

  // What depends on the font's measures is to be measured again.
  virtual void OnFontChanged() {}

private:
  const Look defaults_;
  tarnbrook::Font font_;
  OleColor backColor_;
  OleColor foreColor_;
  int32_t alignment_ = 0;
};

} // namespace tarnbrook
