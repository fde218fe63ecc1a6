#pragma once
#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "common/event_source.hpp"
#include "host/standard_control.hpp"

namespace tarnbrook {

class TextBoxEvents {
public:
  virtual ~TextBoxEvents() = default;
  // The text changed (typing, paste, SetText with a different text).
  virtual void Change() {}
  // The focus is about to leave for a control whose CausesValidation is true; Cancel keeps
  // it here.
  virtual void Validate(bool& /*Cancel*/) {}
  virtual void GotFocus() {}
  virtual void LostFocus() {}
  // A typed character; setting KeyAscii to 0 drops it.
  virtual void KeyPress(int16_t& /*KeyAscii*/) {}
};

// The process's clipboard, shared by every text box (Ctrl+C, Ctrl+X, Ctrl+V).
std::string ClipboardText();
void SetClipboardText(const std::string& text);

enum TextBoxEventId {
  txtEventChange = 1,
  txtEventValidate = 2,
  txtEventGotFocus = 3,
  txtEventLostFocus = 4,
  txtEventKeyPress = 5
};

// The standard single-line text box a form offers: UTF-8 text edited by typing, the arrows,
// Home and End (with Shift to select), Backspace, Delete, the mouse (press and drag to
// select) and the clipboard keys (Ctrl+C, Ctrl+X, Ctrl+V, Ctrl+A). Positions (SelStart,
// SelLength, MaxLength) count characters (code points), not bytes.
class TextBox : public StandardControl {
public:
  explicit TextBox(HWND parent = 0);
  ~TextBox() override;
  std::string ClassName() const override { return "TextBox"; }

  void Connect(TextBoxEvents* sink) { events_.Connect(sink); }
  void Disconnect(TextBoxEvents* sink) { events_.Disconnect(sink); }

  void ReadProperties(PropertyBag& bag) override;
  void WriteProperties(PropertyBag& bag) override;

  // Setting a different text raises Change; the caret goes to the start. A text longer
  // than MaxLength is kept whole, as the program set it.
  const std::string& Text() const { return text_; }
  void SetText(const std::string& text);

  // The selection, in characters. SelStart past the end goes to the end and empties the
  // selection; SelLength is clipped to the text. Negative values raise 380.
  int32_t SelStart() const;
  void SetSelStart(int32_t start);
  int32_t SelLength() const;
  void SetSelLength(int32_t length);
  std::string SelText() const;
  // Replaces the selection (raising Change when that changes the text); the caret follows
  // the inserted text.
  void SetSelText(const std::string& text);

  // The most characters the user may type or paste; 0 = no limit. Negative raises 380.
  int32_t MaxLength() const { return maxLength_; }
  void SetMaxLength(int32_t maxLength);
  // No edits by the user; moving the caret, selecting and copying still work.
  bool Locked() const { return locked_; }
  void SetLocked(bool locked);
  // 0 none, 1 fixed single (the classic sunken 3D edge); 380 otherwise.
  int32_t BorderStyle() const { return borderStyle_; }
  void SetBorderStyle(int32_t style);
  // A focus rectangle inside the border while the box has the focus (default false).
  bool ShowFocusRect() const { return showFocusRect_; }
  void SetShowFocusRect(bool show);

  // The caret's place in characters (the moving end of the selection).
  int32_t CaretPosition() const;

protected:
  void OnFontChanged() override;
  void OnPaint() override;
  void OnResize() override;
  void OnMouseDown(int16_t button, int16_t shift, float x, float y) override;
  void OnMouseMove(int16_t button, int16_t shift, float x, float y) override;
  void OnMouseUp(int16_t button, int16_t shift, float x, float y) override;
  void OnDblClick() override;
  void OnKeyDown(int16_t& keyCode, int16_t shift) override;
  void OnKeyPress(int16_t& keyAscii) override;
  void OnGotFocus() override;
  void OnLostFocus() override;
  void OnValidate(bool& cancel) override;

private:
  void Select(size_t anchor, size_t caret); // byte offsets
  void Replace(size_t from, size_t to, const std::string& text);
  bool InsertTyped(std::string text);
  void DeleteByKey(bool forward);
  void CopySelection();
  size_t SelectionBegin() const { return std::min(anchor_, caret_); }
  size_t SelectionEnd() const { return std::max(anchor_, caret_); }
  size_t ByteOfChar(int32_t index) const;
  int32_t CharOfByte(size_t byte) const;
  size_t PreviousChar(size_t byte) const;
  size_t NextChar(size_t byte) const;
  size_t WordStart(size_t byte) const;
  size_t WordEnd(size_t byte) const;
  const std::vector<int32_t>& Edges();
  int32_t EdgeOf(size_t byte);
  Rect TextArea() const;
  int32_t TextLeft();
  size_t ByteAtX(float x);
  void KeepCaretVisible();
  void Beep();

  EventSource<TextBoxEvents> events_;
  std::string text_;
  size_t anchor_ = 0;          // the fixed end of the selection, a byte offset
  size_t caret_ = 0;           // the moving end, where the caret stands
  std::vector<int32_t> edges_; // pixel advance of every character boundary; empty when stale
  int32_t maxLength_ = 0;
  bool locked_ = false;
  int32_t borderStyle_ = 1;
  bool showFocusRect_ = false;
  bool dragging_ = false;
  int32_t scroll_ = 0; // pixels of text scrolled off to the left
};

} // namespace tarnbrook
