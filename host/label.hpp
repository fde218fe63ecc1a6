#pragma once
#include <cstdint>
#include <string>

#include "common/font.hpp"
#include "common/ole_color.hpp"
#include "host/control.hpp"

namespace tarnbrook {

// The standard label a form offers: one line of text, never a tab stop, never focused by
// a click.
class Label : public Control {
public:
  explicit Label(HWND parent = 0);
  ~Label() override;
  std::string ClassName() const override { return "Label"; }

  void InitProperties() override;
  void ReadProperties(PropertyBag& bag) override;
  void WriteProperties(PropertyBag& bag) override;

  const std::string& Caption() const { return caption_; }
  void SetCaption(const std::string& caption);
  // 0 left, 1 right, 2 centre; 380 otherwise.
  int32_t Alignment() const { return alignment_; }
  void SetAlignment(int32_t alignment);

  OleColor BackColor() const { return backColor_; }
  void SetBackColor(OleColor color);
  OleColor ForeColor() const { return foreColor_; }
  void SetForeColor(OleColor color);
  const tarnbrook::Font& Font() const { return font_; }
  void SetFont(const tarnbrook::Font& font);

  // Pixels the caption takes in the current font (for owners that size labels to fit).
  int32_t CaptionWidth() const;
  int32_t CaptionHeight() const;

  // Repaints in the disabled look.
  void SetEnabled(bool enabled) override;

protected:
  void OnPaint() override;
  bool Focusable() const override { return false; }

private:
  std::string caption_;
  int32_t alignment_ = 0;
  OleColor backColor_ = vbButtonFace;
  OleColor foreColor_ = vbButtonText;
  tarnbrook::Font font_;
};

} // namespace tarnbrook
