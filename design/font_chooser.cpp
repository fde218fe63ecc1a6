#include "design/font_chooser.hpp"

#include <algorithm>

#include "draw/canvas.hpp"
#include "host/standard_text.hpp"
#include "platform/platform.hpp"

namespace tarnbrook {

namespace {

constexpr int32_t RowHeight = 21;
constexpr int32_t RowGap = 4;
constexpr int32_t SizeWidth = 44;
constexpr const char* StyleCaptions[4] = {"Bold", "Italic", "Underline", "Strikeout"};
constexpr int32_t StyleWidths[4] = {56, 56, 82, 82};

template <class T, class Part> std::optional<T> Shared(const std::vector<Font>& fonts, Part part) {
  if (fonts.empty())
    return std::nullopt;
  T first = part(fonts.front());
  for (const Font& font : fonts)
    if (!(part(font) == first))
      return std::nullopt;
  return first;
}

int32_t CheckValue(const std::optional<bool>& on) {
  return !on ? vbGrayed : *on ? vbChecked : vbUnchecked;
}

std::optional<bool> FromCheck(int32_t value) {
  if (value == vbGrayed)
    return std::nullopt;
  return value == vbChecked;
}

} // namespace

FontChoice FontChoice::Common(const std::vector<Font>& fonts) {
  FontChoice choice;
  choice.name = Shared<std::string>(fonts, [](const Font& f) { return f.Name; });
  choice.size = Shared<float>(fonts, [](const Font& f) { return f.Size; });
  choice.bold = Shared<bool>(fonts, [](const Font& f) { return f.Bold; });
  choice.italic = Shared<bool>(fonts, [](const Font& f) { return f.Italic; });
  choice.underline = Shared<bool>(fonts, [](const Font& f) { return f.Underline; });
  choice.strikethrough = Shared<bool>(fonts, [](const Font& f) { return f.Strikethrough; });
  return choice;
}

Font FontChoice::Over(Font base) const {
  if (name)
    base.Name = *name;
  if (size)
    base.Size = *size;
  if (bold)
    base.Bold = *bold;
  if (italic)
    base.Italic = *italic;
  if (underline)
    base.Underline = *underline;
  if (strikethrough)
    base.Strikethrough = *strikethrough;
  return base;
}

const std::vector<std::string>& FontFamilies() {
  static const std::vector<std::string> families{
      "Arial",         "Courier New", "DejaVu Sans",     "DejaVu Sans Mono", "DejaVu Serif",
      "MS Sans Serif", "Tahoma",      "Times New Roman", "Verdana",
  };
  return families;
}

FontChooser::FontChooser(HWND parent) : Control(parent) {
  SetTabStop(false);
  name_ = std::make_unique<ComboBox>(hWnd());
  for (const std::string& family : FontFamilies())
    name_->AddItem(family);
  nameRelay_.click = [this] { Changed(); };
  name_->Connect(&nameRelay_);

  size_ = std::make_unique<TextBox>(hWnd());
  size_->InitProperties();
  size_->SetAlignment(1);
  sizeRelay_.change = [this] { Changed(); };
  SelectAllOnFocus(*size_, sizeRelay_);
  sizeRelay_.validate = [this](bool& cancel) {
    if (size_->Text().empty())
      return;
    try {
      Check();
    } catch (const FieldRefusal& refusal) {
      if (onRefusal_)
        onRefusal_(refusal.what());
      else
        Platform::Current().MessageBox(0, refusal.what(), "Property Pages", MB_OK | MB_ICONWARNING);
      cancel = true;
    }
  };
  size_->Connect(&sizeRelay_);

  for (int i = 0; i < 4; ++i) {
    styles_[i] = std::make_unique<CheckBox>(hWnd());
    styles_[i]->InitProperties();
    styles_[i]->SetCaption(StyleCaptions[i]);
    styleRelays_[i].click = [this] { Changed(); };
    styles_[i]->Connect(&styleRelays_[i]);
  }
}

FontChooser::~FontChooser() {
  name_->Disconnect(&nameRelay_);
  size_->Disconnect(&sizeRelay_);
  for (int i = 0; i < 4; ++i)
    styles_[i]->Disconnect(&styleRelays_[i]);
}

Rect FontChooser::Preview() const {
  int32_t top = 2 * (RowHeight + RowGap);
  return {0, top, ScaleWidth(), std::max(top, ScaleHeight())};
}

void FontChooser::OnResize() {
  int32_t width = ScaleWidth();
  name_->Move(0, 0, width - SizeWidth - 6, RowHeight);
  size_->Move(width - SizeWidth, 0, SizeWidth, RowHeight);
  int32_t left = 0, top = RowHeight + RowGap;
  for (int i = 0; i < 4; ++i) {
    styles_[i]->Move(left, top + 2, StyleWidths[i], 17);
    left += StyleWidths[i];
  }
  Refresh();
}

void FontChooser::OnPaint() {
  cMDC& surface = Surface();
  if (!surface.hDC())
    return;
  Canvas& canvas = *Canvas::FromHandle(surface.hDC());
  canvas.FillRect({0, 0, surface.Width(), surface.Height()},
                  static_cast<COLORREF>(GetSysColor(COLOR_BTNFACE)));
  Rect preview = Preview();
  if (preview.Height() <= 4)
    return;
  Rect well = canvas.DrawEdge(preview, EDGE_SUNKEN, BF_RECT | BF_ADJUST);
  canvas.FillRect(well, static_cast<COLORREF>(GetSysColor(COLOR_WINDOW)));
  Font font = PreviewFont();
  // A size the preview cannot hold is shown at the largest that fits.
  font.Size = std::clamp(font.Size, 1.0f, static_cast<float>(well.Height()) * 0.75f);
  SelectFont(surface, font);
  canvas.SetBkMode(TRANSPARENT);
  canvas.SetTextColor(static_cast<COLORREF>(GetSysColor(COLOR_WINDOWTEXT)));
  canvas.DrawText("AaBbYyZz 123", well, DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
}

FontChoice FontChooser::Choice() const {
  FontChoice choice;
  if (name_->ListIndex() >= 0)
    choice.name = name_->Text();
  if (std::optional<double> size = ParseNumber(size_->Text());
      size && *size > 0 && *size <= MaxFontSize)
    choice.size = static_cast<float>(*size);
  choice.bold = FromCheck(styles_[0]->Value());
  choice.italic = FromCheck(styles_[1]->Value());
  choice.underline = FromCheck(styles_[2]->Value());
  choice.strikethrough = FromCheck(styles_[3]->Value());
  return choice;
}

void FontChooser::SetChoice(const FontChoice& choice) {
  updating_ = true;
  if (choice.name) {
    bool known = false;
    for (int32_t i = 0; i < name_->ListCount() && !known; ++i)
      known = name_->List(i) == *choice.name;
    if (!known)
      name_->AddItem(*choice.name);
    name_->SetText(*choice.name);
  } else {
    name_->SetListIndex(-1);
  }
  size_->SetText(choice.size ? NumberText(*choice.size) : "");
  styles_[0]->SetValue(CheckValue(choice.bold));
  styles_[1]->SetValue(CheckValue(choice.italic));
  styles_[2]->SetValue(CheckValue(choice.underline));
  styles_[3]->SetValue(CheckValue(choice.strikethrough));
  updating_ = false;
  Refresh();
}

void FontChooser::Check() {
  const std::string& text = size_->Text();
  if (text.empty())
    return; // blank: each control keeps its size
  std::optional<double> size = ParseNumber(text);
  if (!size)
    throw FieldRefusal(NumericMessage("Size"), size_.get());
  if (*size <= 0 || *size > MaxFontSize)
    throw FieldRefusal("Please Enter a size above 0 and up to 2048 for the Size", size_.get());
}

void FontChooser::Changed() {
  if (updating_)
    return;
  Refresh();
  if (onChange_)
    onChange_();
}

} // namespace tarnbrook
