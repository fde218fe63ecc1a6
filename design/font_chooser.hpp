#pragma once
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "common/font.hpp"
#include "design/property_page_support.hpp"
#include "host/check_box.hpp"
#include "host/combo_box.hpp"
#include "host/control.hpp"
#include "host/text_box.hpp"

namespace tarnbrook {

// A font as a chooser holds it for one or more controls: each part set, or none where the
// controls differ (and the part stays as each control has it).
struct FontChoice {
  std::optional<std::string> name;
  std::optional<float> size;
  std::optional<bool> bold, italic, underline, strikethrough;

  // The parts the fonts share.
  static FontChoice Common(const std::vector<Font>& fonts);
  // `base` with the parts that are set put in.
  Font Over(Font base) const;
  bool operator==(const FontChoice&) const = default;
};

// The font families the chooser offers (the name of a font being shown is added when it is
// not among them).
const std::vector<std::string>& FontFamilies();

// Chooses a font: family, size in points, bold, italic, underline and strike-through, with a
// preview of the text in it.
class FontChooser : public Control {
public:
  static constexpr int32_t PreferredHeight = 96;

  explicit FontChooser(HWND parent);
  ~FontChooser() override;
  std::string ClassName() const override { return "FontChooser"; }

  // What the fields show. The size is none while its field is blank or holds no number.
  FontChoice Choice() const;
  void SetChoice(const FontChoice& choice); // raises no change
  void SetOnChange(std::function<void()> handler) { onChange_ = std::move(handler); }
  // Raises FieldRefusal for a size field that holds text but no size.
  void Check();
  void SetOnRefusal(std::function<void(const std::string&)> handler) {
    onRefusal_ = std::move(handler);
  }
  // The font the preview shows: the choice over the font it was shown with.
  Font PreviewFont() const { return Choice().Over(base_); }
  void SetPreviewBase(const Font& base) {
    base_ = base;
    Refresh();
  }

  ComboBox& cboName() { return *name_; }
  TextBox& txtSize() { return *size_; }
  CheckBox& chkBold() { return *styles_[0]; }
  CheckBox& chkItalic() { return *styles_[1]; }
  CheckBox& chkUnderline() { return *styles_[2]; }
  CheckBox& chkStrikethrough() { return *styles_[3]; }
  Rect Preview() const; // client coordinates

protected:
  void OnPaint() override;
  void OnResize() override;

private:
  void Changed();

  std::unique_ptr<ComboBox> name_;
  std::unique_ptr<TextBox> size_;
  std::unique_ptr<CheckBox> styles_[4];
  ComboRelay nameRelay_;
  TextRelay sizeRelay_;
  CheckRelay styleRelays_[4];
  std::function<void()> onChange_;
  std::function<void(const std::string&)> onRefusal_;
  Font base_;
  bool updating_ = false;
};

} // namespace tarnbrook
