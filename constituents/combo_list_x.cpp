// The framed drop-down list: the picker's border and button drawn around an inner ComboBox
// that shows only its text field, and the list members passed through to it.
#include "constituents/combo_list_x.hpp"

#include <algorithm>

#include "common/control_error.hpp"
#include "common/property_bag.hpp"
#include "platform/platform.hpp"

namespace tarnbrook {
namespace {

constexpr int32_t DefaultWidth = 120; // pixels, until the owner places the list
constexpr int32_t DefaultButtonWidth = 16;
constexpr int32_t FlatButtonStyle = 2;

} // namespace

ComboListX::ComboListX(HWND parent) : Control(parent), cbo_(std::make_unique<ComboBox>(hWnd())) {
  cbo_->SetFieldOnly(true);
  cbo_->SetDropAnchor(hWnd()); // the list drops below the whole frame, as wide as it
  cbo_->Connect(this);
  button_.Name = "DropDown";
  SetTabStop(false); // the inner list takes the focus where this control stands
  Move(0, 0, DefaultWidth, PreferredHeight());
}

ComboListX::~ComboListX() {
  cbo_->Disconnect(this);
}

// --- Persistence: only the button width and the enabled state are the container's ---

void ComboListX::InitProperties() {
  buttonWidth_ = DefaultButtonWidth;
  buttonStyle_ = 0;
  borderStyle_ = dtpBorderSunken3D;
  Control::SetEnabled(true);
  cbo_->SetEnabled(true);
  Layout();
  Redraw();
}

void ComboListX::ReadProperties(PropertyBag& bag) {
  buttonWidth_ = bag.ReadProperty("ButtonWidth", DefaultButtonWidth).ToLong();
  const bool enabled = bag.ReadProperty("Enabled", true).ToBoolean();
  Control::SetEnabled(enabled);
  cbo_->SetEnabled(enabled);
  Layout();
  Redraw();
}

void ComboListX::WriteProperties(PropertyBag& bag) {
  bag.WriteProperty("ButtonWidth", buttonWidth_, DefaultButtonWidth);
  bag.WriteProperty("Enabled", Enabled(), true);
}

// --- Own properties ---

void ComboListX::SetButtonWidth(int32_t width) {
  buttonWidth_ = width;
  Layout();
  Redraw();
  PropertyChanged("ButtonWidth");
}

void ComboListX::SetEnabled(bool enabled) {
  Control::SetEnabled(enabled);
  cbo_->SetEnabled(enabled);
  button_.Enabled = enabled;
  Redraw();
  PropertyChanged("Enabled");
}

void ComboListX::SetButtonStyle(int32_t style) {
  if (style > FlatButtonStyle)
    throw ControlError(5065, "Tarnbrook.DatePicker", "Invalid ButtonStyle!");
  buttonStyle_ = style;
  Layout();
  Redraw();
  PropertyChanged("ButtonStyle");
}

void ComboListX::SetBorderStyle(int32_t style) {
  borderStyle_ = style;
  Layout(); // the inner list sits inside the border
  Redraw();
  PropertyChanged("BorderStyle");
}

OleColor ComboListX::ForeColor() const {
  return cbo_->ForeColor();
}

void ComboListX::SetForeColor(OleColor color) {
  cbo_->SetForeColor(color);
  PropertyChanged("ForeColor");
}

OleColor ComboListX::BackColor() const {
  return cbo_->BackColor();
}

void ComboListX::SetBackColor(OleColor color) {
  cbo_->SetBackColor(color);
  Redraw(); // the frame's inside shows around the field
  PropertyChanged("BackColor");
}

const tarnbrook::Font& ComboListX::Font() const {
  return cbo_->GetFont();
}

void ComboListX::SetFont(const tarnbrook::Font& font) {
  cbo_->SetFont(font);
  Layout(); // the field's height follows the font
  Redraw();
  PropertyChanged("Font");
}

int32_t ComboListX::PreferredHeight() const {
  return cbo_->FieldHeight() + 2 * BorderWidth();
}

// --- The list members, passed through with their errors ---

std::string ComboListX::Text() const {
  return cbo_->Text();
}

void ComboListX::SetText(const std::string& text) {
  cbo_->SetText(text);
  PropertyChanged("Text");
}

int32_t ComboListX::ListIndex() const {
  return cbo_->ListIndex();
}

void ComboListX::SetListIndex(int32_t index) {
  cbo_->SetListIndex(index);
  PropertyChanged("ListIndex");
}

void ComboListX::AddItem(const std::string& item, int32_t index) {
  cbo_->AddItem(item, index);
}

void ComboListX::RemoveItem(int32_t index) {
  cbo_->RemoveItem(index);
}

void ComboListX::Clear() {
  cbo_->Clear();
}

std::string ComboListX::List(int32_t index) const {
  return cbo_->List(index);
}

void ComboListX::SetList(int32_t index, const std::string& item) {
  cbo_->SetList(index, item);
}

int32_t ComboListX::ListCount() const {
  return cbo_->ListCount();
}

int32_t ComboListX::ItemData(int32_t index) const {
  return cbo_->ItemData(index);
}

void ComboListX::SetItemData(int32_t index, int32_t data) {
  cbo_->SetItemData(index, data);
}

int32_t ComboListX::NewIndex() const {
  return cbo_->NewIndex();
}

void ComboListX::Click() {
  events_.Raise(&ComboListXEvents::Click);
}

// --- Input ---

// A press on the frame or the button opens the list, or closes it when open; the button shows
// pressed while the list is asked to drop.
void ComboListX::OnMouseDown(int16_t button, int16_t, float, float) {
  if (button != vbLeftButton)
    return;
  if (!hasFocus_) {
    hasFocus_ = true;
    Redraw();
  }
  button_.AddState(DFCS_PUSHED);
  PaintNow();
  Platform::Current().SendMessage(cbo_->hWnd(), CB_SHOWDROPDOWN, !cbo_->DroppedDown(), 0);
  button_.RemoveState(DFCS_PUSHED);
  Redraw();
}

bool ComboListX::Focusable() const {
  return Platform::Current().GetFocus() != cbo_->hWnd();
}

// The keys belong to the inner list.
void ComboListX::OnGotFocus() {
  hasFocus_ = true;
  cbo_->SetFocus();
}

void ComboListX::OnLostFocus() {
  hasFocus_ = false;
}

// --- Layout and painting ---

void ComboListX::Layout() {
  const int32_t width = ScaleWidth();
  const int32_t height = ScaleHeight();
  const int32_t border = BorderWidth();
  // Any width is kept as set; what is drawn stays within the frame.
  const int32_t button = std::clamp(buttonWidth_, 0, width);
  const int32_t left = width - button;
  button_.Init(DFC_SCROLL, DFCS_SCROLLCOMBOBOX, Surface().hDC(), 0, left, height, button);
  button_.Border = buttonStyle_;
  button_.Enabled = Enabled();
  if (buttonStyle_ == FlatButtonStyle)
    button_.Move(1, left + 1, height - 2, button - 2);
  // The field's height is its own (set by its font); Move only places it, in the middle of
  // a frame taller than it needs.
  const int32_t field = cbo_->FieldHeight();
  cbo_->Move(border, std::max(border, (height - field) / 2), std::max(0, left - border), field);
}

int32_t ComboListX::BorderWidth() const {
  return BorderStyleWidth(borderStyle_);
}

void ComboListX::Redraw() {
  Refresh();
}

void ComboListX::OnResize() {
  const tarnbrook::Font& font = cbo_->GetFont();
  Surface().SetFont(font.Name, font.Size, font.Bold, font.Italic, font.Strikethrough,
                    font.Underline);
  Layout();
  Redraw();
}

void ComboListX::OnPaint() {
  cMDC& surface = Surface();
  if (surface.hDC() == 0)
    return;
  const int32_t width = surface.Width();
  const int32_t height = surface.Height();
  surface.DrawBox(0, 0, width, height, 1, OleColorNone, cbo_->BackColor());
  button_.hDC = surface.hDC(); // the surface is new after a resize
  button_.Draw();
  DrawBorderStyle(surface, borderStyle_, 0, 0, width, height, SystemColor(COLOR_WINDOWFRAME));
}

} // namespace tarnbrook
