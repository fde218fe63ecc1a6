#pragma once
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "design/property_page_support.hpp"
#include "host/combo_box.hpp"
#include "host/control.hpp"
#include "host/text_box.hpp"
#include "picker/date_picker.hpp"

namespace tarnbrook {

// The ready-made custom formats a page offers for a date picker.
const std::vector<std::string>& ReadyMadeFormats();

// A custom date format being typed or picked from the ready-made ones, with the current date
// and time shown in it by a date picker of its own: what a picker with that format shows.
class FormatList : public Control {
public:
  static constexpr int32_t PreferredHeight = 71;

  explicit FormatList(HWND parent);
  ~FormatList() override;
  std::string ClassName() const override { return "FormatList"; }

  const std::string& Format() const { return format_->Text(); }
  void SetFormat(const std::string& format); // raises no change
  void SetOnChange(std::function<void()> handler) { onChange_ = std::move(handler); }
  // Where the format and the list start; the preview, as wide as a picker may need, always
  // takes the whole width.
  void SetIndent(int32_t indent);

  // The preview's text, field by field as the picker shows it.
  std::string PreviewText() const;

  TextBox& txtFormat() { return *format_; }
  ComboBox& cboReadyMade() { return *readyMade_; }
  DatePicker& dtpPreview() { return *preview_; }

protected:
  void OnResize() override;
  void OnPaint() override;

private:
  void Typed();
  void Picked();
  void ShowPreview();

  std::unique_ptr<TextBox> format_;
  std::unique_ptr<ComboBox> readyMade_;
  std::unique_ptr<DatePicker> preview_;
  TextRelay formatRelay_;
  ComboRelay readyMadeRelay_;
  std::function<void()> onChange_;
  bool updating_ = false;
  int32_t indent_ = 0;
};

} // namespace tarnbrook
