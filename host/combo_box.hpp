#pragma once
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "common/event_source.hpp"
#include "common/font.hpp"
#include "common/ole_color.hpp"
#include "host/control.hpp"

namespace tarnbrook {

class ComboBoxEvents {
public:
  virtual ~ComboBoxEvents() = default;
  // The selection changed (ListIndex set by the program or chosen by the user).
  virtual void Click() {}
};

enum ComboBoxEventId { cbClick = 1 };

// The standard drop-down list a form offers (a combo box whose text is always one of its
// items): items with item data, ListIndex -1 for no selection, Click on a change of the
// selection. Its list drops down on CB_SHOWDROPDOWN or a click on the field; a click or
// Return picks an entry, Escape or a click outside closes the list.
//
// The window is always as high as the field (ItemHeight() + 6). A Move to another height
// only sets how far the list may drop: as a real combo box's window height does, it bounds
// the list to (height - field height) / ItemHeight() rows; a Move to the field's own height
// lets it show 8 rows.
class ComboBox : public Control {
public:
  static constexpr int32_t ButtonWidth = 16; // the system's scroll-bar width
  static constexpr int32_t DefaultRows = 8;

  explicit ComboBox(HWND parent = 0);
  ~ComboBox() override;
  std::string ClassName() const override { return "ComboBox"; }

  void Connect(ComboBoxEvents* sink) { events_.Connect(sink); }
  void Disconnect(ComboBoxEvents* sink) { events_.Disconnect(sink); }

  // Adds an item at `index` (at the end when -1, 5 outside -1..ListCount); NewIndex tells
  // where it went.
  void AddItem(const std::string& item, int32_t index = -1);
  // Raises 5 for an index outside 0..ListCount-1. NewIndex becomes -1.
  void RemoveItem(int32_t index);
  void Clear();
  int32_t ListCount() const;
  // The index of the item added last; -1 after RemoveItem or Clear.
  int32_t NewIndex() const;
  // Raise 381 for an index outside 0..ListCount-1.
  std::string List(int32_t index) const;
  void SetList(int32_t index, const std::string& item);
  int32_t ItemData(int32_t index) const;
  void SetItemData(int32_t index, int32_t data);

  // -1 for no selection; raises 380 outside -1..ListCount-1. Setting it raises Click.
  int32_t ListIndex() const;
  void SetListIndex(int32_t index);
  // The selected item's text ("" for none). Setting selects the item of that text (exact
  // match first, then without regard to case) and raises 383 when there is none.
  std::string Text() const;
  void SetText(const std::string& text);

  // The drop-down list.
  bool DroppedDown() const;
  void ShowDropDown(bool show);
  // Height of one entry of the list: the font's text height + 2 pixels.
  int32_t ItemHeight() const;
  int32_t FieldHeight() const { return ItemHeight() + (fieldOnly_ ? 2 : 6); }

  // Only the text field, without the 3D edge and the button, for an owner that draws its
  // own frame around it; the field is then 4 pixels lower.
  bool FieldOnly() const { return fieldOnly_; }
  void SetFieldOnly(bool fieldOnly);
  // The window the list drops below and takes its width from: this one unless set (0).
  void SetDropAnchor(HWND anchor) { dropAnchor_ = anchor; }
  HWND DropAnchor() const { return dropAnchor_ ? dropAnchor_ : hWnd(); }

  // The colours of the field and the list (window background and window text by default).
  OleColor BackColor() const { return backColor_; }
  void SetBackColor(OleColor color);
  OleColor ForeColor() const { return foreColor_; }
  void SetForeColor(OleColor color);

  void SetFont(const tarnbrook::Font& font);
  const tarnbrook::Font& GetFont() const;
  void SetEnabled(bool enabled) override;

protected:
  void OnPaint() override;
  void OnResize() override;
  void OnMouseDown(int16_t button, int16_t shift, float x, float y) override;
  void OnMouseMove(int16_t button, int16_t shift, float x, float y) override;
  void OnMouseUp(int16_t button, int16_t shift, float x, float y) override;
  void OnKeyDown(int16_t& keyCode, int16_t shift) override;
  void OnGotFocus() override;
  void OnLostFocus() override;
  LRESULT WindowMessage(UINT msg, WPARAM wParam, LPARAM lParam) override;

private:
  struct Item {
    std::string text;
    int32_t data = 0;
  };
  class DropList;

  void CheckIndex(int32_t index) const;
  void Select(int32_t index);
  void CloseUp(bool pick);
  void ListChanged();
  void KeepFieldHeight();
  int32_t ListRows() const;

  EventSource<ComboBoxEvents> events_;
  std::vector<Item> items_;
  int32_t listIndex_ = -1;
  int32_t newIndex_ = -1;
  tarnbrook::Font font_;
  int32_t itemHeight_ = 0;
  int32_t requestedHeight_ = 0; // the height last given by Move: bounds the list
  bool keepingHeight_ = false;
  bool buttonHeld_ = false;
  bool fieldOnly_ = false;
  HWND dropAnchor_ = 0;
  OleColor backColor_ = vbWindowBackground;
  OleColor foreColor_ = vbWindowText;
  std::unique_ptr<DropList> dropList_;
};

} // namespace tarnbrook
