#pragma once
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "common/ole_color.hpp"
#include "design/property_page_support.hpp"
#include "host/combo_box.hpp"
#include "host/control.hpp"
#include "host/label.hpp"
#include "host/text_box.hpp"

namespace tarnbrook {

// The system colours by the names a property browser shows ("Button Face" ...), in the
// order of their indexes, with "(None)" for a colour that is not drawn first.
const std::vector<std::pair<std::string, OleColor>>& NamedColors();

// A colour as a page names it: a system colour's name, "(None)", or "&H00BBGGRR&".
std::string ColorName(OleColor color);

// Chooses one colour: a system colour from the list by name, or any RGB colour by its red,
// green and blue (0 to 255 each), with a swatch of the result. Blank when it shows no colour
// (the colours of several controls differ).
class ColorChooser : public Control {
public:
  static constexpr int32_t PreferredHeight = 48;

  explicit ColorChooser(HWND parent);
  ~ColorChooser() override;
  std::string ClassName() const override { return "ColorChooser"; }

  // The colour shown; none while blank or while a channel holds no number from 0 to 255.
  std::optional<OleColor> Color() const;
  // Shows a colour or blanks the chooser; raises no change.
  void SetColor(std::optional<OleColor> color);
  // Called when the user changes the colour.
  void SetOnChange(std::function<void()> handler) { onChange_ = std::move(handler); }
  // Raises FieldRefusal for a channel that holds no number from 0 to 255 while the others
  // hold text.
  void Check();
  // Where refusals met while the focus leaves a channel are told (a message box by default).
  void SetOnRefusal(std::function<void(const std::string&)> handler) {
    onRefusal_ = std::move(handler);
  }

  ComboBox& cboSystem() { return *system_; }
  TextBox& txtRed() { return *channels_[0]; }
  TextBox& txtGreen() { return *channels_[1]; }
  TextBox& txtBlue() { return *channels_[2]; }
  // Where the swatch stands (client coordinates).
  Rect Swatch() const;

protected:
  void OnPaint() override;
  void OnResize() override;

private:
  void SystemPicked();
  void ChannelTyped();
  void ShowChannels(std::optional<int32_t> rgb);
  void Changed();
  void CheckChannel(int index, bool allowBlank);

  std::unique_ptr<ComboBox> system_;
  std::unique_ptr<TextBox> channels_[3];
  std::unique_ptr<tarnbrook::Label> captions_[3];
  ComboRelay systemRelay_;
  TextRelay channelRelays_[3];
  std::function<void()> onChange_;
  std::function<void(const std::string&)> onRefusal_;
  bool updating_ = false;
};

} // namespace tarnbrook
