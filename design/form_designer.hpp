#pragma once
#include <cstdint>
#include <functional>
#include <vector>

#include "common/geometry.hpp"
#include "host/container.hpp"
#include "winplumb/hooks.hpp"

namespace tarnbrook {

// Puts a form in design mode while attached, as a form designer does: the controls see
// UserMode false and take no input at all (the form's mouse and keyboard input is taken by
// the thread's mouse and keyboard hooks before any control sees it, and the form holds the
// focus); the designer turns that input into editing instead. Detaching restores run mode.
//
// The mouse: a click selects the control under the pointer (a constituent counts as the
// control it stands in); Shift+click or Ctrl+click adds it to the selection or takes it out;
// a click on the empty form clears the selection. Dragging a selected control moves all the
// selected ones; dragging one of its handles resizes it. The pointer's offset from the press
// is rounded to the nearest multiple of Grid() (8 px by default); a grid of 1, or Alt held
// while dragging, moves by single pixels. A double click on a control asks for its
// properties.
//
// The keyboard: arrows move the selection by 1 px, Shift+arrows resize it by 1 px, Delete
// removes the selected controls from the form, Tab and Shift+Tab select the next or previous
// control in creation order, F4 asks for the selection's properties, Escape clears the
// selection.
//
// A selected control shows a frame, a 1-px line just outside its edges, and eight handles,
// HandleSize-px squares centred on the frame's corners and the middles of its sides. They are
// small windows of their own above the controls, so a screen shows them wherever the controls
// are drawn.
//
// Every change is a real one (Control::Move, Container::Remove): saving the form keeps it.
// A size the control refuses (ControlError from Move) goes to the form's error handler with
// the control's name instead of being thrown, once per drag; the control stays as it was.
// The form must outlive its designer.
class FormDesigner : private IWindowsHook {
public:
  explicit FormDesigner(Container& form);
  ~FormDesigner() override;
  FormDesigner(const FormDesigner&) = delete;
  FormDesigner& operator=(const FormDesigner&) = delete;

  Container& Form() const { return form_; }

  static constexpr int32_t HandleSize = 6;
  // Handles and frame in the colour of selected items, navy, unlike any control's border.
  static constexpr COLORREF SelectionColor = 0x800000;

  // The selected controls, in the order they were selected.
  std::vector<Control*> Selection() const;
  bool IsSelected(const Control& control) const;
  // Selects `control` alone, or adds it to the selection. Raises 5 for a control that is not
  // on the form.
  void Select(Control& control, bool add = false);
  void Deselect(Control& control);
  void ClearSelection();
  // Called after every change of the selection, by the mouse, the keyboard or a call.
  void SetSelectionChangedHandler(std::function<void()> handler) {
    selectionChanged_ = std::move(handler);
  }

  // Called after the designer moved, resized or removed controls.
  void SetFormChangedHandler(std::function<void()> handler) { formChanged_ = std::move(handler); }

  // Called with the selection when a control is double-clicked or F4 is pressed.
  using ShowPropertiesHandler = std::function<void(const std::vector<Control*>&)>;
  void SetShowPropertiesHandler(ShowPropertiesHandler handler) {
    showProperties_ = std::move(handler);
  }

  // Pixels a drag moves or resizes by: 1 to 64; 380 otherwise.
  int32_t Grid() const { return grid_; }
  void SetGrid(int32_t pixels);

  // What the keys do, for a host's menus as well.
  void MoveSelection(int32_t dx, int32_t dy);
  void ResizeSelection(int32_t dWidth, int32_t dHeight);
  void DeleteSelection();
  void SelectNext(bool forward = true);
  void ShowProperties();

  // Brings the selection and its handles up to date after the form changed by other means
  // (a control moved by a program or a property page, a form loaded): controls no longer on
  // the form leave the selection.
  void Update();

private:
  enum class Drag { None, Move, Resize };
  struct Adornment {
    HWND hwnd = 0;
    HWND control = 0;
    int handle = -1; // 0..7 clockwise from the top left corner; -1 a side of the frame
  };

  void HookProc(int32_t eType, int32_t nCode, WPARAM wParam, LPARAM lParam,
                bool& bConsume) override;
  void Mouse(UINT msg, HWND target, Point screen);
  void Key(int virtualKey);
  void Press(HWND target, Point screen);
  void DragTo(Point screen);

  bool InForm(HWND hwnd) const;
  Control* ControlOf(HWND hwnd) const; // the form's control that `hwnd` is or stands in
  const Adornment* AdornmentOf(HWND hwnd) const;
  Rect BoundsOf(const Control& control) const;      // in the form's client area
  bool Place(Control& control, const Rect& bounds); // false when refused (and reported)
  void ChangeSelection(std::vector<HWND> selected);
  void Adorn();
  void Changed();

  Container& form_;
  bool savedUserMode_;
  HWND savedFocus_;
  int32_t grid_ = 8;
  std::vector<HWND> selected_;
  std::vector<Adornment> adornments_;
  std::function<void()> selectionChanged_;
  std::function<void()> formChanged_;
  ShowPropertiesHandler showProperties_;

  Drag drag_ = Drag::None;
  int dragHandle_ = -1;
  HWND dragControl_ = 0;
  Point dragStart_;
  Point dragOffset_;
  bool refusedInDrag_ = false;
  std::vector<Rect> dragOrigins_; // of the selection, or of the control being resized
};

} // namespace tarnbrook
