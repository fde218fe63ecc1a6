#pragma once
#include <string>

#include "host/control.hpp"

namespace tarnbrook {

// A line of text on the form's background, kept in the form file as "Caption".
class CaptionLabel : public Control {
public:
  using Control::Control;
  std::string ClassName() const override { return "CaptionLabel"; }

  void ReadProperties(PropertyBag& bag) override;
  void WriteProperties(PropertyBag& bag) override;

  const std::string& Caption() const { return caption_; }
  void SetCaption(const std::string& caption);

protected:
  void OnPaint() override;

private:
  std::string caption_;
};

} // namespace tarnbrook
