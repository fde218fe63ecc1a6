#include "host/combo_box.hpp"
#include "common/scoped_flag.hpp"

#include <algorithm>
#include <utility>

#include "common/control_error.hpp"
#include "common/ole_color.hpp"
#include "common/text.hpp"
#include "host/combo_drop_list.hpp"
#include "platform/platform.hpp"

namespace tarnbrook {

namespace {

constexpr int32_t rtInvalidPropertyArrayIndex = 381;
constexpr int32_t rtTextReadOnly = 383;

int32_t MeasureItemHeight(const Font& font) {
  cMDC probe;
  probe.Resize(1, 1);
  probe.SetFont(font.Name, font.Size, font.Bold, font.Italic, font.Strikethrough, font.Underline);
  return probe.TextHeight("Ag") + 2;
}

// Where a navigation key moves a selection or a highlight among `count` items; `from` -1
// (none) goes to the first item. -2 for a key that moves nothing.
int32_t Stepped(int32_t from, int16_t keyCode, int32_t count) {
  if (count == 0) {
    return -2;
  }
  switch (keyCode) {
  case VK_UP:
    return std::max(0, from - 1);
  case VK_DOWN:
    return std::min(count - 1, from + 1);
  case VK_HOME:
    return 0;
  case VK_END:
    return count - 1;
  default:
    return -2;
  }
}

} // namespace

ComboBox::ComboBox(HWND parent) : Control(parent), itemHeight_(MeasureItemHeight(font_)) {}

ComboBox::~ComboBox() = default;

void ComboBox::AddItem(const std::string& item, int32_t index) {
  CheckTextLength(item);
  if (index < -1 || index > ListCount()) {
    RaiseRuntimeError(rtInvalidProcedureCall);
  }
  int32_t at = index == -1 ? ListCount() : index;
  items_.insert(items_.begin() + at, Item{item, 0});
  newIndex_ = at;
  if (listIndex_ >= at) {
    ++listIndex_; // the selected item moved down with the others
  }
  ListChanged();
}

void ComboBox::RemoveItem(int32_t index) {
  if (index < 0 || index >= ListCount()) {
    RaiseRuntimeError(rtInvalidProcedureCall);
  }
  items_.erase(items_.begin() + index);
  newIndex_ = -1;
  if (listIndex_ == index) {
    listIndex_ = -1;
  } else if (listIndex_ > index) {
    --listIndex_;
  }
  ListChanged();
}

void ComboBox::Clear() {
  items_.clear();
  newIndex_ = -1;
  listIndex_ = -1;
  ListChanged();
}

int32_t ComboBox::ListCount() const {
  return static_cast<int32_t>(items_.size());
}

int32_t ComboBox::NewIndex() const {
  return newIndex_;
}

std::string ComboBox::List(int32_t index) const {
  CheckIndex(index);
  return items_[index].text;
}

void ComboBox::SetList(int32_t index, const std::string& item) {
  CheckIndex(index);
  CheckTextLength(item);
  items_[index].text = item;
  ListChanged();
}

int32_t ComboBox::ItemData(int32_t index) const {
  CheckIndex(index);
  return items_[index].data;
}

void ComboBox::SetItemData(int32_t index, int32_t data) {
  CheckIndex(index);
  items_[index].data = data;
}

int32_t ComboBox::ListIndex() const {
  return listIndex_;
}

void ComboBox::SetListIndex(int32_t index) {
  if (index < -1 || index >= ListCount()) {
    RaiseRuntimeError(rtInvalidPropertyValue);
  }
  Select(index);
}

std::string ComboBox::Text() const {
  return listIndex_ == -1 ? std::string() : items_[listIndex_].text;
}

void ComboBox::SetText(const std::string& text) {
  auto found = std::find_if(items_.begin(), items_.end(),
                            [&](const Item& item) { return item.text == text; });
  if (found == items_.end()) {
    found = std::find_if(items_.begin(), items_.end(),
                         [&](const Item& item) { return EqualsIgnoreCaseAscii(item.text, text); });
  }
  if (found == items_.end()) {
    RaiseRuntimeError(rtTextReadOnly);
  }
  Select(static_cast<int32_t>(found - items_.begin()));
}

bool ComboBox::DroppedDown() const {
  return dropList_ && dropList_->Visible();
}

void ComboBox::ShowDropDown(bool show) {
  if (show == DroppedDown()) {
    return;
  }
  if (!show) {
    CloseUp(false);
    return;
  }
  if (!dropList_) {
    dropList_ = std::make_unique<DropList>(*this);
  }
  dropList_->Open(ListRows(), listIndex_);
  Refresh();
}

int32_t ComboBox::ItemHeight() const {
  return itemHeight_;
}

void ComboBox::SetFont(const tarnbrook::Font& font) {
  font_ = CheckedFont(font);
  itemHeight_ = MeasureItemHeight(font_);
  KeepFieldHeight();
  ListChanged();
}

const tarnbrook::Font& ComboBox::GetFont() const {
  return font_;
}

void ComboBox::SetFieldOnly(bool fieldOnly) {
  fieldOnly_ = fieldOnly;
  KeepFieldHeight();
  Refresh();
}

void ComboBox::SetBackColor(OleColor color) {
  backColor_ = color;
  ListChanged();
}

void ComboBox::SetForeColor(OleColor color) {
  foreColor_ = color;
  ListChanged();
}

void ComboBox::SetEnabled(bool enabled) {
  if (!enabled) {
    CloseUp(false);
  }
  Control::SetEnabled(enabled);
  Refresh();
}

void ComboBox::OnPaint() {
  cMDC& surface = Surface();
  if (!surface.hDC()) {
    return;
  }
  surface.SetFont(font_.Name, font_.Size, font_.Bold, font_.Italic, font_.Strikethrough,
                  font_.Underline);
  Canvas& canvas = *Canvas::FromHandle(surface.hDC());
  bool enabled = Enabled();
  Rect whole{0, 0, surface.Width(), surface.Height()};
  Rect inside = fieldOnly_ ? whole : canvas.DrawEdge(whole, EDGE_SUNKEN, BF_RECT | BF_ADJUST);
  // A bare field is its owner's: it keeps its colour when disabled, as the owner's frame does.
  canvas.FillRect(inside,
                  static_cast<COLORREF>(enabled || fieldOnly_ ? TranslateColor(backColor_)
                                                              : GetSysColor(COLOR_BTNFACE)));

  Rect button{inside.right, inside.top, inside.right, inside.bottom};
  if (!fieldOnly_) {
    button.left = std::max(inside.left, inside.right - ButtonWidth);
    uint32_t state = DFCS_SCROLLCOMBOBOX;
    if (DroppedDown() || buttonHeld_) {
      state |= DFCS_PUSHED;
    }
    if (!enabled) {
      state |= DFCS_INACTIVE;
    }
    canvas.DrawFrameControl(button, DFC_SCROLL, state);
  }

  // A focused drop-down list shows its text selected, inside a focus rectangle.
  Rect entry{inside.left + 1, inside.top + 1, button.left - 1, inside.bottom - 1};
  bool focused = enabled && Platform::Current().GetFocus() == hWnd();
  DropList::DrawEntry(canvas, Text(), entry, focused, enabled, TranslateColor(foreColor_));
  if (focused) {
    canvas.DrawFocusRect(entry);
  }
}

void ComboBox::OnResize() {
  if (!keepingHeight_) {
    requestedHeight_ = ScaleHeight();
  }
  KeepFieldHeight();
}

void ComboBox::OnMouseDown(int16_t button, int16_t, float, float) {
  if (button != vbLeftButton) {
    return;
  }
  if (DroppedDown()) {
    CloseUp(false); // a press on the field closes the open list without a change
    return;
  }
  buttonHeld_ = true;
  ShowDropDown(true);
}

void ComboBox::OnMouseMove(int16_t, int16_t, float x, float y) {
  if (!DroppedDown()) {
    return;
  }
  Point screen = Platform::Current().ClientToScreen(hWnd(), {int32_t(x), int32_t(y)});
  if (int32_t item = dropList_->ItemAt(screen); item >= 0 && item != dropList_->Hot()) {
    dropList_->SetHot(item);
  }
}

// The list picks an item on the release over it, so that a press on the field dragged onto
// an item picks it too.
void ComboBox::OnMouseUp(int16_t button, int16_t, float x, float y) {
  if (button != vbLeftButton) {
    return;
  }
  bool wasHeld = std::exchange(buttonHeld_, false);
  if (DroppedDown()) {
    Point screen = Platform::Current().ClientToScreen(hWnd(), {int32_t(x), int32_t(y)});
    if (int32_t item = dropList_->ItemAt(screen); item >= 0) {
      dropList_->SetHot(item);
      CloseUp(true);
    }
  } else if (wasHeld) {
    Refresh();
  }
}

void ComboBox::OnKeyDown(int16_t& keyCode, int16_t shift) {
  bool alt = (shift & vbAltMask) != 0;
  if ((keyCode == VK_F4 && !alt) || (alt && (keyCode == VK_DOWN || keyCode == VK_UP))) {
    // Closing with the key that opened the list keeps the highlighted item, as Return does.
    if (DroppedDown()) {
      CloseUp(true);
    } else {
      ShowDropDown(true);
    }
    return;
  }
  if (!DroppedDown()) {
    if (int32_t index = Stepped(listIndex_, keyCode, ListCount()); index >= 0) {
      Select(index);
    }
    return;
  }
  if (keyCode == VK_ESCAPE) {
    CloseUp(false);
  } else if (keyCode == VK_RETURN) {
    CloseUp(true);
  } else if (int32_t index = Stepped(dropList_->Hot(), keyCode, ListCount()); index >= 0) {
    dropList_->SetHot(index);
  }
}

void ComboBox::OnGotFocus() {
  Refresh();
}

void ComboBox::OnLostFocus() {
  CloseUp(false);
  Refresh();
}

LRESULT ComboBox::WindowMessage(UINT msg, WPARAM wParam, LPARAM lParam) {
  switch (msg) {
  case CB_SHOWDROPDOWN:
    ShowDropDown(wParam != 0);
    return 1;
  case CB_GETDROPPEDSTATE:
    return DroppedDown() ? 1 : 0;
  default:
    return Control::WindowMessage(msg, wParam, lParam);
  }
}

void ComboBox::CheckIndex(int32_t index) const {
  if (index < 0 || index >= ListCount()) {
    RaiseRuntimeError(rtInvalidPropertyArrayIndex);
  }
}

// Setting the index the control already has raises no Click: only a change of the
// selection is an event.
void ComboBox::Select(int32_t index) {
  if (index == listIndex_) {
    return;
  }
  listIndex_ = index;
  if (DroppedDown()) {
    dropList_->SetHot(index);
  }
  Refresh();
  events_.Raise(&ComboBoxEvents::Click);
}

// Closes the list; with `pick` its highlighted item becomes the selection.
void ComboBox::CloseUp(bool pick) {
  if (!DroppedDown()) {
    return;
  }
  int32_t hot = dropList_->Hot();
  dropList_->Close();
  if (pick && hot >= 0) {
    Select(hot);
  }
}

void ComboBox::ListChanged() {
  if (DroppedDown()) {
    dropList_->Update(ListRows());
  }
  Refresh();
}

// The window keeps the field's height whatever height Move gives (see the class comment).
void ComboBox::KeepFieldHeight() {
  if (ScaleHeight() == FieldHeight()) {
    return;
  }
  const ScopedFlag keeping(keepingHeight_);
  Platform::Current().SetWindowPos(hWnd(), 0, 0, 0, ScaleWidth(), FieldHeight(),
                                   SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

// The rows the list shows: as many as the height given by Move leaves below the field when
// it is taller than the field, else DefaultRows; never more than the items, at least one.
int32_t ComboBox::ListRows() const {
  int32_t rows = requestedHeight_ > FieldHeight()
                     ? (requestedHeight_ - FieldHeight()) / ItemHeight()
                     : DefaultRows;
  return std::max(1, std::min(ListCount(), rows));
}

} // namespace tarnbrook
