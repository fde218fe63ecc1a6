#include "host/text_box.hpp"

#include <utility>

#include "common/control_error.hpp"
#include "common/text.hpp"
#include "host/persisted_objects.hpp"
#include "host/standard_text.hpp"
#include "platform/platform.hpp"

namespace tarnbrook {
namespace {

constexpr int32_t Margin = 2; // between the border and the text, room for the focus rectangle

std::string& Clipboard() {
  static std::string text;
  return text;
}

bool IsWordByte(char c) {
  return c != ' ' && c != '\t';
}

} // namespace

std::string ClipboardText() {
  return Clipboard();
}

void SetClipboardText(const std::string& text) {
  Clipboard() = text;
}

TextBox::TextBox(HWND parent) : StandardControl(parent, {vbWindowBackground, vbWindowText, 2}) {}

TextBox::~TextBox() = default;

// ---- Properties ----

void TextBox::ReadProperties(PropertyBag& bag) {
  ReadFont(bag);
  SetMaxLength(bag.ReadProperty("MaxLength", int32_t(0)).ToLong());
  SetLocked(bag.ReadProperty("Locked", false).ToBoolean());
  ReadLook(bag);
  SetBorderStyle(bag.ReadProperty("BorderStyle", int32_t(1)).ToLong());
  SetText(bag.ReadProperty("Text", "").ToString());
}

void TextBox::WriteProperties(PropertyBag& bag) {
  WriteFont(bag);
  bag.WriteProperty("MaxLength", maxLength_, int32_t(0));
  bag.WriteProperty("Locked", locked_, false);
  WriteLook(bag);
  bag.WriteProperty("BorderStyle", borderStyle_, int32_t(1));
  bag.WriteProperty("Text", text_, "");
}

void TextBox::SetText(const std::string& text) {
  CheckTextLength(text);
  if (text == text_)
    return;
  text_ = text;
  edges_.clear();
  anchor_ = caret_ = 0;
  scroll_ = 0;
  PropertyChanged("Text");
  Refresh();
  events_.Raise(&TextBoxEvents::Change);
}

int32_t TextBox::SelStart() const {
  return CharOfByte(SelectionBegin());
}

void TextBox::SetSelStart(int32_t start) {
  if (start < 0)
    RaiseRuntimeError(rtInvalidPropertyValue);
  size_t at = ByteOfChar(start);
  Select(at, at);
}

int32_t TextBox::SelLength() const {
  return CharOfByte(SelectionEnd()) - CharOfByte(SelectionBegin());
}

void TextBox::SetSelLength(int32_t length) {
  if (length < 0)
    RaiseRuntimeError(rtInvalidPropertyValue);
  size_t begin = SelectionBegin();
  Select(begin, ByteOfChar(CharOfByte(begin) + length));
}

std::string TextBox::SelText() const {
  return text_.substr(SelectionBegin(), SelectionEnd() - SelectionBegin());
}

void TextBox::SetSelText(const std::string& text) {
  Replace(SelectionBegin(), SelectionEnd(), text);
}

void TextBox::SetMaxLength(int32_t maxLength) {
  if (maxLength < 0)
    RaiseRuntimeError(rtInvalidPropertyValue);
  maxLength_ = maxLength;
  PropertyChanged("MaxLength");
}

void TextBox::SetLocked(bool locked) {
  locked_ = locked;
  PropertyChanged("Locked");
}

void TextBox::OnFontChanged() {
  edges_.clear();
  KeepCaretVisible();
}

void TextBox::SetBorderStyle(int32_t style) {
  if (style < 0 || style > 1)
    RaiseRuntimeError(rtInvalidPropertyValue);
  borderStyle_ = style;
  PropertyChanged("BorderStyle");
  KeepCaretVisible();
  Refresh();
}

void TextBox::SetShowFocusRect(bool show) {
  showFocusRect_ = show;
  Refresh();
}

int32_t TextBox::CaretPosition() const {
  return CharOfByte(caret_);
}

// ---- Editing ----

// Programs and the user both come here; only a changed text is a Change.
void TextBox::Replace(size_t from, size_t to, const std::string& text) {
  std::string edited = text_.substr(0, from) + text + text_.substr(to);
  size_t caret = from + text.size();
  if (edited == text_) {
    Select(caret, caret);
    return;
  }
  text_ = std::move(edited);
  edges_.clear();
  anchor_ = caret_ = caret;
  KeepCaretVisible();
  PropertyChanged("Text");
  Refresh();
  events_.Raise(&TextBoxEvents::Change);
}

// Typed or pasted text over the selection, cut to what MaxLength leaves room for; false
// (and a beep) when nothing of it fits or the box is locked.
bool TextBox::InsertTyped(std::string text) {
  if (locked_) {
    Beep();
    return false;
  }
  if (maxLength_ > 0) {
    size_t kept = Utf8Length(text_) - Utf8Length(SelText());
    size_t room = kept < size_t(maxLength_) ? size_t(maxLength_) - kept : 0;
    if (Utf8Length(text) > room) {
      text = Utf8Left(text, room);
      Beep();
    }
    if (text.empty())
      return false;
  }
  // Nor more than any text may hold.
  const size_t keptBytes = text_.size() - (SelectionEnd() - SelectionBegin());
  if (keptBytes + text.size() > MaxTextBytes) {
    text.resize(Utf8Floor(text, MaxTextBytes - std::min(keptBytes, MaxTextBytes)));
    Beep();
    if (text.empty())
      return false;
  }
  Replace(SelectionBegin(), SelectionEnd(), text);
  return true;
}

// Backspace and Delete: the selection, else the character before or after the caret.
void TextBox::DeleteByKey(bool forward) {
  if (locked_) {
    Beep();
    return;
  }
  size_t from = SelectionBegin(), to = SelectionEnd();
  if (from == to) {
    if (forward)
      to = NextChar(caret_);
    else
      from = PreviousChar(caret_);
  }
  if (from != to)
    Replace(from, to, "");
}

void TextBox::CopySelection() {
  if (anchor_ != caret_)
    Clipboard() = SelText();
}

void TextBox::Select(size_t anchor, size_t caret) {
  anchor = std::min(anchor, text_.size());
  caret = std::min(caret, text_.size());
  if (anchor == anchor_ && caret == caret_)
    return;
  anchor_ = anchor;
  caret_ = caret;
  KeepCaretVisible();
  Refresh();
}

// ---- Characters and positions ----

size_t TextBox::ByteOfChar(int32_t index) const {
  size_t byte = 0;
  for (int32_t i = 0; i < index && byte < text_.size(); ++i)
    byte = NextChar(byte);
  return byte;
}

int32_t TextBox::CharOfByte(size_t byte) const {
  int32_t count = 0;
  for (size_t i = 0; i < byte && i < text_.size(); ++i)
    if (!IsUtf8Continuation(text_[i]))
      ++count;
  return count;
}

size_t TextBox::PreviousChar(size_t byte) const {
  if (byte == 0)
    return 0;
  do
    --byte;
  while (byte > 0 && IsUtf8Continuation(text_[byte]));
  return byte;
}

size_t TextBox::NextChar(size_t byte) const {
  if (byte >= text_.size())
    return text_.size();
  do
    ++byte;
  while (byte < text_.size() && IsUtf8Continuation(text_[byte]));
  return byte;
}

size_t TextBox::WordStart(size_t byte) const {
  while (byte > 0 && IsWordByte(text_[byte - 1]))
    --byte;
  return byte;
}

size_t TextBox::WordEnd(size_t byte) const {
  while (byte < text_.size() && IsWordByte(text_[byte]))
    ++byte;
  return byte;
}

// ---- Geometry ----

const std::vector<int32_t>& TextBox::Edges() {
  if (edges_.empty())
    edges_ = CharacterEdges(Font(), text_);
  return edges_;
}

int32_t TextBox::EdgeOf(size_t byte) {
  return Edges()[CharOfByte(byte)];
}

Rect TextBox::TextArea() const {
  int32_t border = borderStyle_ == 1 ? 2 : 0;
  return {border + Margin, border, std::max(border + Margin, ScaleWidth() - border - Margin),
          std::max(border, ScaleHeight() - border)};
}

// Where the text's first character stands: by the alignment while the text fits (with a
// pixel to spare for the caret at its end), else scrolled to keep the caret in view.
int32_t TextBox::TextLeft() {
  Rect area = TextArea();
  int32_t width = Edges().back(), room = area.Width() - 1;
  if (width > room)
    return area.left - scroll_;
  switch (Alignment()) {
  case 1:
    return area.left + room - width;
  case 2:
    return area.left + (room - width) / 2;
  default:
    return area.left;
  }
}

// The character boundary nearest to x.
size_t TextBox::ByteAtX(float x) {
  const std::vector<int32_t>& edges = Edges();
  float offset = x - float(TextLeft());
  size_t index = 0;
  while (index + 1 < edges.size() && offset > float(edges[index] + edges[index + 1]) / 2)
    ++index;
  return ByteOfChar(static_cast<int32_t>(index));
}

void TextBox::KeepCaretVisible() {
  int32_t width = Edges().back(), room = TextArea().Width() - 1;
  if (width <= room) {
    scroll_ = 0;
    return;
  }
  int32_t caret = EdgeOf(caret_);
  if (caret < scroll_)
    scroll_ = caret;
  else if (caret > scroll_ + room)
    scroll_ = caret - room;
  scroll_ = std::clamp(scroll_, 0, width - room);
}

void TextBox::Beep() {
  Platform::Current().MessageBeep(0);
}

// ---- Painting ----

void TextBox::OnResize() {
  KeepCaretVisible();
}

void TextBox::OnPaint() {
  cMDC& surface = Surface();
  if (!surface.hDC())
    return;
  SelectFont(surface, Font());
  Canvas& canvas = *Canvas::FromHandle(surface.hDC());
  Rect all{0, 0, surface.Width(), surface.Height()};
  Rect inside = borderStyle_ == 1 ? Rect{2, 2, all.right - 2, all.bottom - 2} : all;
  auto back = static_cast<COLORREF>(TranslateColor(BackColor()));
  canvas.FillRect(all, back);

  bool enabled = Enabled();
  bool focused = enabled && Platform::Current().GetFocus() == hWnd();
  Rect area = TextArea();
  int32_t left = TextLeft();
  int32_t lineHeight = MeasureLine(Font(), "").cy;
  Rect line{left, area.top + (area.Height() - lineHeight) / 2, 0, 0};
  line.bottom = line.top + lineHeight;
  line.right = std::max(area.right, left + Edges().back() + 1);
  canvas.SetBkMode(TRANSPARENT);
  canvas.SetTextColor(
      static_cast<COLORREF>(enabled ? TranslateColor(ForeColor()) : GetSysColor(COLOR_GRAYTEXT)));
  constexpr uint32_t TextFlags = DT_LEFT | DT_SINGLELINE | DT_NOPREFIX;
  canvas.DrawText(text_, line, TextFlags);

  // The selection shows only while the box has the focus.
  if (focused && anchor_ != caret_) {
    int32_t from = left + EdgeOf(SelectionBegin()), to = left + EdgeOf(SelectionEnd());
    Rect selected{from, line.top, to, line.bottom};
    canvas.FillRect(selected, static_cast<COLORREF>(GetSysColor(COLOR_HIGHLIGHT)));
    canvas.SetTextColor(static_cast<COLORREF>(GetSysColor(COLOR_HIGHLIGHTTEXT)));
    selected.right = line.right;
    std::string_view text(text_);
    canvas.DrawText(text.substr(SelectionBegin(), SelectionEnd() - SelectionBegin()), selected,
                    TextFlags);
  }
  // The margins and border go over any text scrolled into them.
  canvas.FillRect({inside.left, inside.top, area.left, inside.bottom}, back);
  canvas.FillRect({area.right, inside.top, inside.right, inside.bottom}, back);
  if (borderStyle_ == 1)
    canvas.DrawEdge(all, EDGE_SUNKEN, BF_RECT);
  if (focused) {
    int32_t x = left + EdgeOf(caret_);
    canvas.FillRect({x, line.top, x + 1, line.bottom},
                    static_cast<COLORREF>(TranslateColor(ForeColor())));
    if (showFocusRect_)
      canvas.DrawFocusRect(inside);
  }
}

// ---- Input ----

void TextBox::OnMouseDown(int16_t button, int16_t shift, float x, float) {
  if (button != vbLeftButton)
    return;
  size_t at = ByteAtX(x);
  Select((shift & vbShiftMask) ? anchor_ : at, at);
  dragging_ = true;
}

void TextBox::OnMouseMove(int16_t button, int16_t, float x, float) {
  if (dragging_ && (button & vbLeftButton))
    Select(anchor_, ByteAtX(x));
}

void TextBox::OnMouseUp(int16_t button, int16_t, float, float) {
  if (button == vbLeftButton)
    dragging_ = false;
}

// A double click selects the word under the pointer.
void TextBox::OnDblClick() {
  size_t at = caret_;
  if (at < text_.size() && IsWordByte(text_[at]))
    Select(WordStart(at), WordEnd(at));
  else if (at > 0 && IsWordByte(text_[at - 1]))
    Select(WordStart(at - 1), at);
}

void TextBox::OnKeyDown(int16_t& keyCode, int16_t shift) {
  bool extend = (shift & vbShiftMask) != 0;
  bool ctrl = (shift & vbCtrlMask) != 0;
  auto moveTo = [&](size_t at) { Select(extend ? anchor_ : at, at); };
  switch (keyCode) {
  case VK_LEFT:
    // Without Shift a selection collapses to its start.
    moveTo(!extend && anchor_ != caret_ ? SelectionBegin() : PreviousChar(caret_));
    break;
  case VK_RIGHT:
    moveTo(!extend && anchor_ != caret_ ? SelectionEnd() : NextChar(caret_));
    break;
  case VK_HOME:
    moveTo(0);
    break;
  case VK_END:
    moveTo(text_.size());
    break;
  case VK_DELETE:
    if (extend) { // Shift+Delete cuts
      CopySelection();
      if (anchor_ != caret_)
        DeleteByKey(true);
    } else {
      DeleteByKey(true);
    }
    break;
  case VK_INSERT:
    if (ctrl)
      CopySelection();
    else if (extend)
      InsertTyped(Clipboard().substr(0, Clipboard().find_first_of("\r\n")));
    break;
  case 'A':
    if (ctrl)
      Select(0, text_.size());
    break;
  case 'C':
    if (ctrl)
      CopySelection();
    break;
  case 'X':
    if (ctrl) {
      if (locked_) {
        Beep();
      } else if (anchor_ != caret_) {
        CopySelection();
        DeleteByKey(true);
      }
    }
    break;
  case 'V':
    // One line only: a pasted text stops at its first line break.
    if (ctrl)
      InsertTyped(Clipboard().substr(0, Clipboard().find_first_of("\r\n")));
    break;
  default:
    break;
  }
}

void TextBox::OnKeyPress(int16_t& keyAscii) {
  events_.Raise(&TextBoxEvents::KeyPress, keyAscii);
  auto code = static_cast<uint16_t>(keyAscii);
  if (code == VK_BACK)
    DeleteByKey(false);
  if (code < 0x20 || code == 0x7F)
    return;
  std::string typed;
  AppendUtf8(typed, code);
  InsertTyped(typed);
}

void TextBox::OnGotFocus() {
  Refresh();
  events_.Raise(&TextBoxEvents::GotFocus);
}

void TextBox::OnLostFocus() {
  dragging_ = false;
  Refresh();
  events_.Raise(&TextBoxEvents::LostFocus);
}

void TextBox::OnValidate(bool& cancel) {
  events_.Raise(&TextBoxEvents::Validate, cancel);
}

} // namespace tarnbrook
