#include "host/combo_drop_list.hpp"

#include <algorithm>

#include "common/ole_color.hpp"
#include "platform/platform.hpp"

namespace tarnbrook {

namespace {

constexpr int32_t Border = 1;
constexpr int32_t ScrollBarWidth = ComboBox::ButtonWidth;
constexpr int32_t ScrollArrowHeight = 16;
constexpr int32_t MinThumbHeight = 8;

COLORREF Sys(int index) {
  return static_cast<COLORREF>(GetSysColor(index));
}

} // namespace

ComboBox::DropList::DropList(ComboBox& owner) : owner_(owner) {
  popup_.Connect(this);
}

ComboBox::DropList::~DropList() {
  popup_.Disconnect(this);
}

void ComboBox::DropList::Open(int32_t rows, int32_t hot) {
  top_ = 0;
  hot_ = -1;
  Update(rows);
  SetHot(hot);
}

void ComboBox::DropList::Close() {
  if (popup_.IsShown()) {
    popup_.Hide();
  }
}

void ComboBox::DropList::Update(int32_t rows) {
  rows_ = rows;
  if (hot_ >= owner_.ListCount()) {
    hot_ = -1;
  }
  top_ = std::clamp(top_, 0, std::max(0, owner_.ListCount() - rows_));

  Rect field = Platform::Current().GetWindowRect(owner_.DropAnchor());
  int32_t height = rows_ * owner_.ItemHeight() + 2 * Border;
  bool autoHide = true;
  popup_.Show(hWnd(), field.left, field.bottom, field.Width(), height, field.Height(), 0, autoHide);
  Refresh();
}

void ComboBox::DropList::SetHot(int32_t index) {
  hot_ = index;
  if (index >= 0 && index < top_) {
    top_ = index;
  } else if (index >= top_ + rows_) {
    top_ = index - rows_ + 1;
  }
  Refresh();
}

int32_t ComboBox::DropList::ItemAt(Point screen) {
  Point client = Platform::Current().ScreenToClient(hWnd(), screen);
  if (!Visible() || !RowsRect().Contains(client)) {
    return -1;
  }
  int32_t index = top_ + (client.y - Border) / owner_.ItemHeight();
  return index < owner_.ListCount() ? index : -1;
}

// The arrows scroll by one row, the track above or below the thumb by a page.
bool ComboBox::DropList::ScrollAt(Point client) {
  Rect bar = ScrollBarRect();
  if (!HasScrollBar() || !bar.Contains(client)) {
    return false;
  }
  if (client.y < bar.top + ScrollArrowHeight) {
    ScrollTo(top_ - 1);
  } else if (client.y >= bar.bottom - ScrollArrowHeight) {
    ScrollTo(top_ + 1);
  } else {
    Rect thumb = ThumbRect();
    if (client.y < thumb.top) {
      ScrollTo(top_ - rows_);
    } else if (client.y >= thumb.bottom) {
      ScrollTo(top_ + rows_);
    }
  }
  return true;
}

// A press on the field or its owner's frame is theirs to answer: it closes the list, and a
// press there must not open it again at once.
void ComboBox::DropList::MouseDownOutside(bool& dontHide) {
  Platform& platform = Platform::Current();
  HWND pressed = platform.WindowFromPoint(platform.GetCursorPos());
  dontHide = pressed == owner_.hWnd() || pressed == owner_.DropAnchor();
}

void ComboBox::DropList::Hidden() {
  owner_.Refresh(); // the button comes up
}

Point ComboBox::DropList::ToScreen(float x, float y) {
  return Platform::Current().ClientToScreen(hWnd(), {int32_t(x), int32_t(y)});
}

void ComboBox::DropList::OnMouseDown(int16_t button, int16_t, float x, float y) {
  if (button != vbLeftButton || ScrollAt({int32_t(x), int32_t(y)})) {
    return;
  }
  if (int32_t item = ItemAt(ToScreen(x, y)); item >= 0) {
    SetHot(item);
  }
}

void ComboBox::DropList::OnMouseMove(int16_t, int16_t, float x, float y) {
  if (int32_t item = ItemAt(ToScreen(x, y)); item >= 0 && item != hot_) {
    SetHot(item);
  }
}

// An item is picked on the release over it.
void ComboBox::DropList::OnMouseUp(int16_t button, int16_t, float x, float y) {
  if (button == vbLeftButton && ItemAt(ToScreen(x, y)) >= 0) {
    owner_.CloseUp(true);
  }
}

bool ComboBox::DropList::OnMouseWheel(int32_t notches, int16_t) {
  constexpr int32_t RowsPerNotch = 3;
  ScrollTo(top_ - notches * RowsPerNotch);
  return true;
}

void ComboBox::DropList::DrawEntry(Canvas& canvas, std::string_view text, const Rect& rect,
                                   bool highlighted, bool enabled, int32_t textColor) {
  if (highlighted) {
    canvas.FillRect(rect, Sys(COLOR_HIGHLIGHT));
  }
  COLORREF color = highlighted       ? Sys(COLOR_HIGHLIGHTTEXT)
                   : !enabled        ? Sys(COLOR_GRAYTEXT)
                   : textColor == -1 ? Sys(COLOR_WINDOWTEXT)
                                     : static_cast<COLORREF>(textColor);
  canvas.SetTextColor(color);
  int previousMode = canvas.SetBkMode(TRANSPARENT);
  canvas.DrawText(text, Rect{rect.left + 2, rect.top, rect.right, rect.bottom},
                  DT_LEFT | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
  canvas.SetBkMode(previousMode);
}

void ComboBox::DropList::OnPaint() {
  cMDC& surface = Surface();
  if (!surface.hDC()) {
    return;
  }
  const Font& font = owner_.font_;
  surface.SetFont(font.Name, font.Size, font.Bold, font.Italic, font.Strikethrough, font.Underline);
  Canvas& canvas = *Canvas::FromHandle(surface.hDC());
  canvas.FillRect({0, 0, surface.Width(), surface.Height()}, Sys(COLOR_WINDOWFRAME));
  Rect rows = RowsRect();
  canvas.FillRect({Border, Border, surface.Width() - Border, surface.Height() - Border},
                  static_cast<COLORREF>(TranslateColor(owner_.backColor_)));
  int32_t itemHeight = owner_.ItemHeight();
  for (int32_t row = 0; row < rows_ && top_ + row < owner_.ListCount(); ++row) {
    int32_t index = top_ + row;
    Rect entry{rows.left, rows.top + row * itemHeight, rows.right,
               rows.top + (row + 1) * itemHeight};
    DrawEntry(canvas, owner_.items_[index].text, entry, index == hot_, true,
              TranslateColor(owner_.foreColor_));
  }
  if (HasScrollBar()) {
    DrawScrollBar(canvas);
  }
}

bool ComboBox::DropList::HasScrollBar() const {
  return owner_.ListCount() > rows_;
}

Rect ComboBox::DropList::RowsRect() {
  int32_t right = ScaleWidth() - Border - (HasScrollBar() ? ScrollBarWidth : 0);
  return {Border, Border, right, Border + rows_ * owner_.ItemHeight()};
}

Rect ComboBox::DropList::ScrollBarRect() {
  return {ScaleWidth() - Border - ScrollBarWidth, Border, ScaleWidth() - Border,
          ScaleHeight() - Border};
}

// The thumb's length shows the share of the items in view, its place the first one in view.
Rect ComboBox::DropList::ThumbRect() {
  Rect bar = ScrollBarRect();
  int32_t trackTop = bar.top + ScrollArrowHeight;
  int32_t track = std::max(0, bar.Height() - 2 * ScrollArrowHeight);
  int32_t count = owner_.ListCount();
  int32_t length = std::min(track, std::max(MinThumbHeight, track * rows_ / count));
  int32_t top = trackTop + (track - length) * top_ / std::max(1, count - rows_);
  return {bar.left, top, bar.right, top + length};
}

void ComboBox::DropList::ScrollTo(int32_t top) {
  top_ = std::clamp(top, 0, std::max(0, owner_.ListCount() - rows_));
  Refresh();
}

void ComboBox::DropList::DrawScrollBar(Canvas& canvas) {
  Rect bar = ScrollBarRect();
  // The track is the classic checkerboard of the light and face colours.
  for (int32_t y = bar.top; y < bar.bottom; ++y) {
    for (int32_t x = bar.left; x < bar.right; ++x) {
      canvas.SetPixel(x, y, Sys((x + y) % 2 ? COLOR_BTNFACE : COLOR_BTNHIGHLIGHT));
    }
  }
  canvas.DrawFrameControl({bar.left, bar.top, bar.right, bar.top + ScrollArrowHeight}, DFC_SCROLL,
                          DFCS_SCROLLUP);
  canvas.DrawFrameControl({bar.left, bar.bottom - ScrollArrowHeight, bar.right, bar.bottom},
                          DFC_SCROLL, DFCS_SCROLLDOWN);
  canvas.DrawEdge(ThumbRect(), EDGE_RAISED, BF_RECT | BF_MIDDLE);
}

} // namespace tarnbrook
