#include "design/form_designer.hpp"

#include <algorithm>
#include <unordered_map>
#include <utility>

#include "common/control_error.hpp"
#include "platform/platform.hpp"

namespace tarnbrook {
namespace {

constexpr int32_t MaxGrid = 64;
constexpr int HandleCount = 8;

// Which edges a handle moves, clockwise from the top left corner.
struct HandleEdges {
  bool left, top, right, bottom;
};
constexpr HandleEdges Edges[HandleCount] = {
    {true, true, false, false},  {false, true, false, false}, {false, true, true, false},
    {false, false, true, false}, {false, false, true, true},  {false, false, false, true},
    {true, false, false, true},  {true, false, false, false},
};

bool KeyHeld(Platform& platform, int virtualKey) {
  return platform.GetKeyState(virtualKey) < 0;
}

// The nearest multiple of `grid`, halves away from zero.
int32_t Snap(int32_t offset, int32_t grid) {
  int32_t half = grid / 2;
  return offset >= 0 ? (offset + half) / grid * grid : -((-offset + half) / grid * grid);
}

bool IsClientMouseMessage(UINT msg) {
  return msg >= WM_MOUSEMOVE && msg <= WM_MBUTTONDBLCLK;
}

// Handles and frame sides paint themselves in the colour kept in their user data.
LRESULT AdornmentProc(HWND hwnd, UINT msg, WPARAM, LPARAM) {
  if (msg == WM_PAINT) {
    Platform& platform = Platform::Current();
    if (Canvas* canvas = Canvas::FromHandle(platform.GetDC(hwnd)))
      canvas->FillRect(platform.GetClientRect(hwnd),
                       static_cast<COLORREF>(platform.GetWindowLong(hwnd, GWL_USERDATA)));
  }
  return 0;
}

// The frame's four sides (-1) and the eight handles (0..7) around `r`.
std::vector<std::pair<Rect, int>> AdornmentRects(const Rect& r) {
  std::vector<std::pair<Rect, int>> rects = {
      {{r.left - 1, r.top - 1, r.right + 1, r.top}, -1},
      {{r.left - 1, r.bottom, r.right + 1, r.bottom + 1}, -1},
      {{r.left - 1, r.top, r.left, r.bottom}, -1},
      {{r.right, r.top, r.right + 1, r.bottom}, -1},
  };
  const int32_t xs[3] = {r.left - 1, r.left + r.Width() / 2, r.right};
  const int32_t ys[3] = {r.top - 1, r.top + r.Height() / 2, r.bottom};
  const int column[HandleCount] = {0, 1, 2, 2, 2, 1, 0, 0};
  const int row[HandleCount] = {0, 0, 0, 1, 2, 2, 2, 1};
  constexpr int32_t half = FormDesigner::HandleSize / 2;
  for (int i = 0; i < HandleCount; ++i) {
    int32_t x = xs[column[i]], y = ys[row[i]];
    rects.push_back({{x - half, y - half, x - half + FormDesigner::HandleSize,
                      y - half + FormDesigner::HandleSize},
                     i});
  }
  return rects;
}

} // namespace

FormDesigner::FormDesigner(Container& form)
    : form_(form), savedUserMode_(form.UserMode()), savedFocus_(Platform::Current().GetFocus()) {
  form_.SetUserMode(false);
  InstallHook(this, WH_MOUSE);
  try {
    InstallHook(this, WH_KEYBOARD);
  } catch (...) {
    RemoveHook(this, WH_MOUSE);
    form_.SetUserMode(savedUserMode_);
    throw;
  }
  // The keys come to the form, and through the hook to the designer.
  Platform::Current().SetFocus(form_.hWnd());
}

FormDesigner::~FormDesigner() {
  RemoveHook(this, WH_KEYBOARD);
  RemoveHook(this, WH_MOUSE);
  Platform& platform = Platform::Current();
  if (platform.GetCapture() == form_.hWnd())
    platform.ReleaseCapture();
  for (const Adornment& adornment : adornments_)
    platform.DestroyWindow(adornment.hwnd);
  form_.SetUserMode(savedUserMode_);
  if (savedFocus_ && platform.IsWindow(savedFocus_) && InForm(savedFocus_) &&
      platform.GetFocus() == form_.hWnd())
    platform.SetFocus(savedFocus_);
}

// Selection -------------------------------------------------------------------------------

std::vector<Control*> FormDesigner::Selection() const {
  std::unordered_map<HWND, Control*> onForm;
  for (size_t i = 0; i < form_.Count(); ++i)
    onForm[form_.Item(i).hWnd()] = &form_.Item(i);
  std::vector<Control*> controls;
  for (HWND hwnd : selected_)
    if (auto it = onForm.find(hwnd); it != onForm.end())
      controls.push_back(it->second);
  return controls;
}

bool FormDesigner::IsSelected(const Control& control) const {
  return std::find(selected_.begin(), selected_.end(), control.hWnd()) != selected_.end();
}

void FormDesigner::Select(Control& control, bool add) {
  if (ControlOf(control.hWnd()) != &control)
    RaiseRuntimeError(rtInvalidProcedureCall);
  std::vector<HWND> selected = add ? selected_ : std::vector<HWND>{};
  if (std::find(selected.begin(), selected.end(), control.hWnd()) == selected.end())
    selected.push_back(control.hWnd());
  ChangeSelection(std::move(selected));
}

void FormDesigner::Deselect(Control& control) {
  std::vector<HWND> selected = selected_;
  std::erase(selected, control.hWnd());
  ChangeSelection(std::move(selected));
}

void FormDesigner::ClearSelection() {
  ChangeSelection({});
}

void FormDesigner::ChangeSelection(std::vector<HWND> selected) {
  if (selected == selected_) {
    Adorn();
    return;
  }
  selected_ = std::move(selected);
  Adorn();
  if (selectionChanged_)
    selectionChanged_();
}

void FormDesigner::Update() {
  std::vector<HWND> present;
  for (Control* control : Selection())
    present.push_back(control->hWnd());
  ChangeSelection(std::move(present));
}

void FormDesigner::SetGrid(int32_t pixels) {
  if (pixels < 1 || pixels > MaxGrid)
    RaiseRuntimeError(rtInvalidPropertyValue);
  grid_ = pixels;
}

// Geometry --------------------------------------------------------------------------------

Rect FormDesigner::BoundsOf(const Control& control) const {
  Platform& platform = Platform::Current();
  Rect window = platform.GetWindowRect(control.hWnd());
  Point topLeft = platform.ScreenToClient(form_.hWnd(), {window.left, window.top});
  return {topLeft.x, topLeft.y, topLeft.x + window.Width(), topLeft.y + window.Height()};
}

bool FormDesigner::Place(Control& control, const Rect& bounds) {
  if (BoundsOf(control) == bounds)
    return true;
  try {
    control.Move(bounds.left, bounds.top, bounds.Width(), bounds.Height());
    return true;
  } catch (const ControlError& error) {
    // A drag reports its first refusal only, not one per step of the pointer.
    if (drag_ == Drag::None || !refusedInDrag_)
      control.ReportError(error);
    refusedInDrag_ = drag_ != Drag::None;
    return false;
  }
}

void FormDesigner::MoveSelection(int32_t dx, int32_t dy) {
  bool moved = false;
  for (Control* control : Selection()) {
    Rect r = BoundsOf(*control);
    moved |= Place(*control, {r.left + dx, r.top + dy, r.right + dx, r.bottom + dy});
  }
  Adorn();
  if (moved && (dx || dy))
    Changed();
}

// A control of a fixed size keeps it; one that refuses the size stays as it was.
void FormDesigner::ResizeSelection(int32_t dWidth, int32_t dHeight) {
  bool resized = false;
  for (Control* control : Selection()) {
    Rect r = BoundsOf(*control);
    Rect wanted{r.left, r.top, r.left + std::max(1, r.Width() + dWidth),
                r.top + std::max(1, r.Height() + dHeight)};
    resized |= Place(*control, wanted) && BoundsOf(*control) != r;
  }
  Adorn();
  if (resized)
    Changed();
}

void FormDesigner::DeleteSelection() {
  std::vector<std::string> names;
  for (Control* control : Selection())
    for (size_t i = 0; i < form_.Count(); ++i)
      if (&form_.Item(i) == control)
        names.push_back(form_.Name(i));
  if (names.empty())
    return;
  ClearSelection();
  for (const std::string& name : names)
    form_.Remove(name);
  Changed();
}

void FormDesigner::SelectNext(bool forward) {
  size_t count = form_.Count();
  if (count == 0)
    return;
  size_t next = forward ? 0 : count - 1;
  std::vector<Control*> selection = Selection();
  if (!selection.empty()) {
    for (size_t i = 0; i < count; ++i) {
      if (&form_.Item(i) == selection.back()) {
        next = forward ? (i + 1) % count : (i + count - 1) % count;
        break;
      }
    }
  }
  Select(form_.Item(next));
}

void FormDesigner::ShowProperties() {
  std::vector<Control*> selection = Selection();
  if (!selection.empty() && showProperties_)
    showProperties_(selection);
}

void FormDesigner::Changed() {
  if (formChanged_)
    formChanged_();
}

// Handles and frames ----------------------------------------------------------------------

// The windows are kept and reused; each goes above the controls, in the order of the
// selection, and those not needed are hidden.
void FormDesigner::Adorn() {
  Platform& platform = Platform::Current();
  size_t used = 0;
  for (Control* control : Selection()) {
    for (const auto& [rect, handle] : AdornmentRects(BoundsOf(*control))) {
      if (used == adornments_.size()) {
        HWND hwnd = platform.CreateWindowEx(0, "", WS_CHILD, rect.left, rect.top, rect.Width(),
                                            rect.Height(), form_.hWnd(), AdornmentProc);
        adornments_.push_back({hwnd});
      }
      Adornment& adornment = adornments_[used++];
      adornment.control = control->hWnd();
      adornment.handle = handle;
      platform.SetWindowLong(adornment.hwnd, GWL_USERDATA, LONG_PTR(SelectionColor));
      platform.SetWindowPos(adornment.hwnd, HWND_TOP, rect.left, rect.top, rect.Width(),
                            rect.Height(), SWP_SHOWWINDOW | SWP_NOACTIVATE);
      platform.InvalidateRect(adornment.hwnd);
    }
  }
  for (size_t i = used; i < adornments_.size(); ++i) {
    platform.ShowWindow(adornments_[i].hwnd, SW_HIDE);
    adornments_[i].control = 0;
  }
  if (!platform.Dispatching())
    for (size_t i = 0; i < used; ++i)
      platform.UpdateWindow(adornments_[i].hwnd);
}

// Input -----------------------------------------------------------------------------------

bool FormDesigner::InForm(HWND hwnd) const {
  Platform& platform = Platform::Current();
  for (; hwnd; hwnd = platform.GetParent(hwnd))
    if (hwnd == form_.hWnd())
      return true;
  return false;
}

Control* FormDesigner::ControlOf(HWND hwnd) const {
  Platform& platform = Platform::Current();
  for (; hwnd && hwnd != form_.hWnd(); hwnd = platform.GetParent(hwnd))
    for (size_t i = 0; i < form_.Count(); ++i)
      if (form_.Item(i).hWnd() == hwnd)
        return &form_.Item(i);
  return nullptr;
}

const FormDesigner::Adornment* FormDesigner::AdornmentOf(HWND hwnd) const {
  for (const Adornment& adornment : adornments_)
    if (adornment.hwnd == hwnd && adornment.control)
      return &adornment;
  return nullptr;
}

// Every mouse message and key meant for the form or anything on it is the designer's.
void FormDesigner::HookProc(int32_t eType, int32_t, WPARAM wParam, LPARAM lParam, bool& bConsume) {
  Platform& platform = Platform::Current();
  if (eType == WH_MOUSE) {
    const auto& info = *reinterpret_cast<const MOUSEHOOKSTRUCT*>(lParam);
    if (!IsClientMouseMessage(UINT(wParam)) || !InForm(info.hwnd))
      return;
    bConsume = true;
    Mouse(UINT(wParam), info.hwnd, info.pt);
  } else if (eType == WH_KEYBOARD) {
    if (!InForm(platform.GetFocus()))
      return;
    bConsume = true;
    if (platform.GetFocus() != form_.hWnd())
      platform.SetFocus(form_.hWnd());
    constexpr LPARAM Released = LPARAM(1) << 31;
    if (!(lParam & Released))
      Key(int(wParam));
  }
}

void FormDesigner::Mouse(UINT msg, HWND target, Point screen) {
  Platform& platform = Platform::Current();
  switch (msg) {
  case WM_LBUTTONDOWN:
    if (platform.GetFocus() != form_.hWnd())
      platform.SetFocus(form_.hWnd());
    Press(target, screen);
    break;
  case WM_MOUSEMOVE:
    if (drag_ != Drag::None)
      DragTo(screen);
    break;
  case WM_LBUTTONUP:
    drag_ = Drag::None;
    if (platform.GetCapture() == form_.hWnd())
      platform.ReleaseCapture();
    break;
  case WM_LBUTTONDBLCLK: {
    const Adornment* adornment = AdornmentOf(target);
    Control* control = adornment ? ControlOf(adornment->control) : ControlOf(target);
    if (!control)
      break;
    if (!IsSelected(*control))
      Select(*control);
    ShowProperties();
    break;
  }
  default: // other buttons do nothing here
    break;
  }
}

void FormDesigner::Press(HWND target, Point screen) {
  Platform& platform = Platform::Current();
  drag_ = Drag::None;
  const Adornment* adornment = AdornmentOf(target);
  if (adornment && adornment->handle >= 0) {
    Control* control = ControlOf(adornment->control);
    if (!control)
      return;
    drag_ = Drag::Resize;
    dragHandle_ = adornment->handle;
    dragControl_ = control->hWnd();
    dragOrigins_ = {BoundsOf(*control)};
  } else {
    Control* control = ControlOf(adornment ? adornment->control : target);
    bool toggle = KeyHeld(platform, VK_SHIFT) || KeyHeld(platform, VK_CONTROL);
    if (!control) {
      if (!toggle)
        ClearSelection();
      return;
    }
    if (toggle && IsSelected(*control)) {
      Deselect(*control);
      return;
    }
    if (!IsSelected(*control))
      Select(*control, toggle);
    drag_ = Drag::Move;
    dragOrigins_.clear();
    for (Control* selected : Selection())
      dragOrigins_.push_back(BoundsOf(*selected));
  }
  dragStart_ = screen;
  dragOffset_ = {};
  refusedInDrag_ = false;
  platform.SetCapture(form_.hWnd()); // the drag is followed beyond the form
}

void FormDesigner::DragTo(Point screen) {
  Platform& platform = Platform::Current();
  int32_t grid = KeyHeld(platform, VK_MENU) ? 1 : grid_;
  Point offset{Snap(screen.x - dragStart_.x, grid), Snap(screen.y - dragStart_.y, grid)};
  if (offset == dragOffset_)
    return;
  dragOffset_ = offset;

  if (drag_ == Drag::Move) {
    std::vector<Control*> selection = Selection();
    for (size_t i = 0; i < selection.size() && i < dragOrigins_.size(); ++i) {
      const Rect& r = dragOrigins_[i];
      Place(*selection[i],
            {r.left + offset.x, r.top + offset.y, r.right + offset.x, r.bottom + offset.y});
    }
  } else {
    Control* control = ControlOf(dragControl_);
    if (!control || control->hWnd() != dragControl_)
      return;
    const Rect& o = dragOrigins_.front();
    const HandleEdges& edges = Edges[dragHandle_];
    // The far edge stays; no side passes the other.
    Rect r = o;
    if (edges.left)
      r.left = std::min(o.left + offset.x, o.right - 1);
    if (edges.right)
      r.right = std::max(o.right + offset.x, o.left + 1);
    if (edges.top)
      r.top = std::min(o.top + offset.y, o.bottom - 1);
    if (edges.bottom)
      r.bottom = std::max(o.bottom + offset.y, o.top + 1);
    if (Place(*control, r)) {
      // A control that keeps its own size keeps its far edges where they were.
      Rect placed = BoundsOf(*control);
      Rect anchored = placed;
      if (edges.left && placed.Width() != r.Width())
        anchored = {o.right - placed.Width(), anchored.top, o.right, anchored.bottom};
      if (edges.top && placed.Height() != r.Height())
        anchored = {anchored.left, o.bottom - placed.Height(), anchored.right, o.bottom};
      if (anchored != placed)
        Place(*control, anchored);
    }
  }
  Adorn();
  Changed();
}

void FormDesigner::Key(int virtualKey) {
  Platform& platform = Platform::Current();
  bool shift = KeyHeld(platform, VK_SHIFT);
  int32_t dx = virtualKey == VK_LEFT ? -1 : virtualKey == VK_RIGHT ? 1 : 0;
  int32_t dy = virtualKey == VK_UP ? -1 : virtualKey == VK_DOWN ? 1 : 0;
  if (dx || dy) {
    if (shift)
      ResizeSelection(dx, dy);
    else
      MoveSelection(dx, dy);
    return;
  }
  switch (virtualKey) {
  case VK_DELETE:
    DeleteSelection();
    break;
  case VK_TAB:
    SelectNext(!shift);
    break;
  case VK_F4:
    ShowProperties();
    break;
  case VK_ESCAPE:
    ClearSelection();
    break;
  default: // no key reaches a control in design mode
    break;
  }
}

} // namespace tarnbrook
