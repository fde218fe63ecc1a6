#include "design/color_chooser.hpp"

#include <cstdio>

#include "draw/canvas.hpp"
#include "platform/platform.hpp"

namespace tarnbrook {

namespace {

constexpr int32_t RowHeight = 21;
constexpr int32_t RowGap = 4;
constexpr int32_t SwatchWidth = 30;
constexpr const char* ChannelNames[3] = {"Red", "Green", "Blue"};

} // namespace

const std::vector<std::pair<std::string, OleColor>>& NamedColors() {
  static const std::vector<std::pair<std::string, OleColor>> colors{
      {"(None)", OleColorNone},
      {"Scroll Bars", SystemColor(COLOR_SCROLLBAR)},
      {"Desktop", SystemColor(COLOR_BACKGROUND)},
      {"Active Title Bar", SystemColor(COLOR_ACTIVECAPTION)},
      {"Inactive Title Bar", SystemColor(COLOR_INACTIVECAPTION)},
      {"Menu Bar", SystemColor(COLOR_MENU)},
      {"Window Background", SystemColor(COLOR_WINDOW)},
      {"Window Frame", SystemColor(COLOR_WINDOWFRAME)},
      {"Menu Text", SystemColor(COLOR_MENUTEXT)},
      {"Window Text", SystemColor(COLOR_WINDOWTEXT)},
      {"Active Title Bar Text", SystemColor(COLOR_CAPTIONTEXT)},
      {"Active Border", SystemColor(COLOR_ACTIVEBORDER)},
      {"Inactive Border", SystemColor(COLOR_INACTIVEBORDER)},
      {"Application Workspace", SystemColor(COLOR_APPWORKSPACE)},
      {"Highlight", SystemColor(COLOR_HIGHLIGHT)},
      {"Highlight Text", SystemColor(COLOR_HIGHLIGHTTEXT)},
      {"Button Face", SystemColor(COLOR_BTNFACE)},
      {"Button Shadow", SystemColor(COLOR_BTNSHADOW)},
      {"Disabled Text", SystemColor(COLOR_GRAYTEXT)},
      {"Button Text", SystemColor(COLOR_BTNTEXT)},
      {"Inactive Title Bar Text", SystemColor(COLOR_INACTIVECAPTIONTEXT)},
      {"Button Highlight", SystemColor(COLOR_BTNHIGHLIGHT)},
      {"Button Dark Shadow", SystemColor(COLOR_3DDKSHADOW)},
      {"Button Light Shadow", SystemColor(COLOR_3DLIGHT)},
      {"ToolTip Text", SystemColor(COLOR_INFOTEXT)},
      {"ToolTip", SystemColor(COLOR_INFOBK)},
  };
  return colors;
}

std::string ColorName(OleColor color) {
  for (const auto& [name, value] : NamedColors())
    if (value == color)
      return name;
  char text[16];
  std::snprintf(text, sizeof text, "&H%08X&", static_cast<uint32_t>(color));
  return text;
}

ColorChooser::ColorChooser(HWND parent) : Control(parent) {
  SetTabStop(false); // its fields take the focus
  system_ = std::make_unique<ComboBox>(hWnd());
  for (const auto& [name, value] : NamedColors())
    system_->AddItem(name);
  systemRelay_.click = [this] { SystemPicked(); };
  system_->Connect(&systemRelay_);
  for (int i = 0; i < 3; ++i) {
    captions_[i] = std::make_unique<tarnbrook::Label>(hWnd());
    captions_[i]->SetCaption(std::string(1, ChannelNames[i][0]) + ":");
    channels_[i] = std::make_unique<TextBox>(hWnd());
    channels_[i]->InitProperties();
    channels_[i]->SetMaxLength(3);
    channels_[i]->SetAlignment(1);
    channelRelays_[i].change = [this] { ChannelTyped(); };
    SelectAllOnFocus(*channels_[i], channelRelays_[i]);
    // Leaving a channel checks only its own text: the next one may still be blank.
    channelRelays_[i].validate = [this, i](bool& cancel) {
      try {
        CheckChannel(i, true);
      } catch (const FieldRefusal& refusal) {
        if (onRefusal_)
          onRefusal_(refusal.what());
        else
          Platform::Current().MessageBox(0, refusal.what(), "Property Pages",
                                         MB_OK | MB_ICONWARNING);
        cancel = true;
      }
    };
    channels_[i]->Connect(&channelRelays_[i]);
  }
}

ColorChooser::~ColorChooser() {
  system_->Disconnect(&systemRelay_);
  for (int i = 0; i < 3; ++i)
    channels_[i]->Disconnect(&channelRelays_[i]);
}

Rect ColorChooser::Swatch() const {
  int32_t width = ScaleWidth();
  return {width - SwatchWidth, 0, width, RowHeight};
}

void ColorChooser::OnResize() {
  int32_t width = ScaleWidth();
  system_->Move(0, 0, width - SwatchWidth - 6, RowHeight);
  int32_t cell = width / 3, top = RowHeight + RowGap;
  for (int i = 0; i < 3; ++i) {
    captions_[i]->Move(i * cell, top + 3, 16, 16);
    channels_[i]->Move(i * cell + 16, top, cell - 24, RowHeight);
  }
  Refresh();
}

void ColorChooser::OnPaint() {
  cMDC& surface = Surface();
  if (!surface.hDC())
    return;
  Canvas& canvas = *Canvas::FromHandle(surface.hDC());
  canvas.FillRect({0, 0, surface.Width(), surface.Height()},
                  static_cast<COLORREF>(GetSysColor(COLOR_BTNFACE)));
  Rect swatch = Swatch();
  Rect well = canvas.DrawEdge(swatch, EDGE_SUNKEN, BF_RECT | BF_ADJUST);
  std::optional<OleColor> color = Color();
  int32_t rgb = color ? TranslateColor(*color) : -1;
  if (rgb >= 0) {
    canvas.FillRect(well, static_cast<COLORREF>(rgb));
  } else {
    // No colour (blank, "(None)" or a channel being typed): a cross on the face.
    canvas.FillRect(well, static_cast<COLORREF>(GetSysColor(COLOR_BTNFACE)));
    canvas.SelectPen(PS_SOLID, 1, static_cast<COLORREF>(GetSysColor(COLOR_BTNSHADOW)));
    canvas.MoveTo(well.left, well.top);
    canvas.LineTo(well.right, well.bottom);
    canvas.MoveTo(well.right - 1, well.top);
    canvas.LineTo(well.left - 1, well.bottom);
  }
}

std::optional<OleColor> ColorChooser::Color() const {
  if (int32_t index = system_->ListIndex(); index >= 0)
    return NamedColors().at(static_cast<size_t>(index)).second;
  int32_t rgb[3];
  for (int i = 0; i < 3; ++i) {
    std::optional<double> value = ParseNumber(channels_[i]->Text());
    if (!value || *value < 0 || *value > 255 || *value != static_cast<int32_t>(*value))
      return std::nullopt;
    rgb[i] = static_cast<int32_t>(*value);
  }
  return RGB(rgb[0], rgb[1], rgb[2]);
}

void ColorChooser::SetColor(std::optional<OleColor> color) {
  updating_ = true;
  int32_t index = -1;
  if (color) {
    const auto& named = NamedColors();
    for (size_t i = 0; i < named.size(); ++i)
      if (named[i].second == *color)
        index = static_cast<int32_t>(i);
  }
  system_->SetListIndex(index);
  std::optional<int32_t> rgb;
  if (color && TranslateColor(*color) >= 0)
    rgb = TranslateColor(*color);
  ShowChannels(rgb);
  updating_ = false;
  Refresh();
}

void ColorChooser::Check() {
  if (system_->ListIndex() >= 0)
    return;
  bool blank = true;
  for (auto& channel : channels_)
    blank = blank && channel->Text().empty();
  if (blank)
    return; // nothing chosen: nothing to apply
  for (int i = 0; i < 3; ++i)
    CheckChannel(i, false);
}

void ColorChooser::CheckChannel(int index, bool allowBlank) {
  TextBox& channel = *channels_[index];
  if (allowBlank && channel.Text().empty())
    return;
  std::optional<double> value = ParseNumber(channel.Text());
  if (!value)
    throw FieldRefusal(NumericMessage(ChannelNames[index]), &channel);
  if (*value < 0 || *value > 255 || *value != static_cast<int32_t>(*value))
    throw FieldRefusal(std::string("Please Enter a whole number from 0 to 255 for the ") +
                           ChannelNames[index],
                       &channel);
}

void ColorChooser::ShowChannels(std::optional<int32_t> rgb) {
  for (int i = 0; i < 3; ++i)
    channels_[i]->SetText(rgb ? std::to_string((*rgb >> (8 * i)) & 0xFF) : "");
}

void ColorChooser::SystemPicked() {
  if (updating_)
    return;
  updating_ = true;
  std::optional<OleColor> color = Color();
  ShowChannels(color && TranslateColor(*color) >= 0 ? std::optional(TranslateColor(*color))
                                                    : std::nullopt);
  updating_ = false;
  Changed();
}

void ColorChooser::ChannelTyped() {
  if (updating_)
    return;
  // Typed channels make an RGB colour: the list lets go of its system colour.
  updating_ = true;
  system_->SetListIndex(-1);
  updating_ = false;
  Changed();
}

void ColorChooser::Changed() {
  Refresh();
  if (onChange_)
    onChange_();
}

} // namespace tarnbrook
