#pragma once
#include <cstdint>
#include <string>

#include "host/standard_control.hpp"

namespace tarnbrook {

// The standard label a form offers: one line of text (aligned 0 left, 1 right, 2 centre),
// never a tab stop, never focused by a click.
class Label : public StandardControl {
public:
  explicit Label(HWND parent = 0);
  ~Label() override;
  std::string ClassName() const override { return "Label"; }

  void ReadProperties(PropertyBag& bag) override;
  void WriteProperties(PropertyBag& bag) override;

  const std::string& Caption() const { return caption_; }
  void SetCaption(const std::string& caption);

  // Pixels the caption takes in the current font (for owners that size labels to fit).
  int32_t CaptionWidth() const;
  int32_t CaptionHeight() const;

protected:
  void OnPaint() override;
  bool Focusable() const override { return false; }

private:
  std::string caption_;
};

} // namespace tarnbrook
