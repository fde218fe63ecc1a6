#pragma once
#include <cstdint>
#include <string>
#include <string_view>

#include "host/combo_box.hpp"
#include "winplumb/drop_down.hpp"

namespace tarnbrook {

// The list a ComboBox drops down: a pop-up shown as every drop-down is (below the field,
// above it when the work area has no room below, closed by a press outside it), as wide as
// the combo box, one black line around its rows, the hot row highlighted, and a scroll bar
// when the items outnumber the rows. It never takes the focus: the keys stay with the combo
// box, which also passes on a drag begun on its field, in screen coordinates.
class ComboBox::DropList : public Control, private cDropDownEvents {
public:
  explicit DropList(ComboBox& owner);
  ~DropList() override;
  std::string ClassName() const override { return "ComboLBox"; }

  // Shows `rows` rows below or above the field, the hot row in view.
  void Open(int32_t rows, int32_t hot);
  void Close();
  // Lays the open list out again after its items changed.
  void Update(int32_t rows);

  // The hot row follows the mouse and the arrow keys; -1 for none.
  int32_t Hot() const { return hot_; }
  void SetHot(int32_t index);
  // The item at a screen point on the rows, -1 elsewhere (the scroll bar included).
  int32_t ItemAt(Point screen);

  // One entry of the field or the list: its text with a small left margin, highlighted or in
  // the text colour (-1: the window text colour).
  static void DrawEntry(Canvas& canvas, std::string_view text, const Rect& rect, bool highlighted,
                        bool enabled = true, int32_t textColor = -1);

protected:
  bool Focusable() const override { return false; }
  void OnPaint() override;
  void OnMouseDown(int16_t button, int16_t shift, float x, float y) override;
  void OnMouseMove(int16_t button, int16_t shift, float x, float y) override;
  void OnMouseUp(int16_t button, int16_t shift, float x, float y) override;
  bool OnMouseWheel(int32_t notches, int16_t shift) override;

private:
  void MouseDownOutside(bool& dontHide) override;
  void Hidden() override;
  Point ToScreen(float x, float y);
  // A press on the scroll bar scrolls the rows; false when not on it.
  bool ScrollAt(Point client);
  bool HasScrollBar() const;
  Rect RowsRect();
  Rect ScrollBarRect();
  Rect ThumbRect();
  void ScrollTo(int32_t top);
  void DrawScrollBar(Canvas& canvas);

  ComboBox& owner_;
  cDropDown popup_;
  int32_t rows_ = 0;
  int32_t top_ = 0; // the first item in view
  int32_t hot_ = -1;
};

} // namespace tarnbrook
