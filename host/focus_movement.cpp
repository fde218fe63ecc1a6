// How the focus moves between the controls of one form: Tab and Shift+Tab in tab order, and
// the validation that may keep the focus where it is.
//
// Validation runs at the two places the focus leaves by the user's hand, before anything
// moves: in the Tab handling below, and in the answer to WM_MOUSEACTIVATE, which the window
// system sends to a pressed window before it focuses it. A refusal answers
// MA_NOACTIVATEANDEAT, so the focus stays and the pressed control never sees the press.
#include <algorithm>
#include <unordered_map>
#include <vector>

#include "host/control.hpp"
#include "platform/platform.hpp"

namespace tarnbrook {
namespace {

// Every live control by its window, and the count of controls made so far.
struct Registry {
  std::unordered_map<HWND, Control*> byWindow;
  uint64_t created = 0;
};

Registry& Controls() {
  static Registry registry;
  return registry;
}

// Shown and enabled, itself and every window above it short of the form.
bool Reachable(Platform& platform, HWND hwnd, HWND form) {
  for (; hwnd && hwnd != form; hwnd = platform.GetParent(hwnd)) {
    LONG_PTR style = platform.GetWindowLong(hwnd, GWL_STYLE);
    if (!(style & WS_VISIBLE) || (style & WS_DISABLED))
      return false;
  }
  return hwnd == form;
}

} // namespace

void Control::Enlist() {
  Registry& registry = Controls();
  creationOrder_ = ++registry.created;
  registry.byWindow[hwnd_] = this;
}

void Control::Delist() {
  auto& byWindow = Controls().byWindow;
  if (auto found = byWindow.find(hwnd_); found != byWindow.end() && found->second == this)
    byWindow.erase(found);
}

Control* Control::FromHandle(HWND hwnd) {
  auto& byWindow = Controls().byWindow;
  auto found = byWindow.find(hwnd);
  return found == byWindow.end() ? nullptr : found->second;
}

// Whether the focus may come here from `focused`: the control there validates first when
// both stand on one form and this control causes validation.
bool Control::MayTakeFocusFrom(HWND focused) {
  Control* leaving = FromHandle(focused);
  if (!leaving || leaving == this || !causesValidation_ || FormOf(focused) != FormOf(hwnd_))
    return true;
  bool cancel = false;
  leaving->OnValidate(cancel);
  return !cancel;
}

LRESULT Control::MouseActivate() {
  if (!Focusable())
    return MA_NOACTIVATE;
  return MayTakeFocusFrom(Platform::Current().GetFocus()) ? MA_ACTIVATE : MA_NOACTIVATEANDEAT;
}

// Tab order is a depth-first walk of the form's windows in creation order, so the
// constituents of a composite come where the composite stands. A control's place is the
// list of creation numbers of the controls from the form down to it.
void Control::MoveFocusByTab(bool forward) {
  Platform& platform = Platform::Current();
  HWND form = FormOf(hwnd_);
  struct Stop {
    std::vector<uint64_t> place;
    Control* control;
  };
  std::vector<Stop> stops;
  for (auto [hwnd, control] : Controls().byWindow) {
    if (control != this &&
        !(control->Focusable() && control->tabStop_ && Reachable(platform, hwnd, form)))
      continue;
    if (FormOf(hwnd) != form)
      continue;
    Stop stop{{}, control};
    for (HWND up = hwnd; up && up != form; up = platform.GetParent(up))
      if (Control* owner = FromHandle(up))
        stop.place.push_back(owner->creationOrder_);
    std::reverse(stop.place.begin(), stop.place.end());
    stops.push_back(std::move(stop));
  }
  std::sort(stops.begin(), stops.end(),
            [](const Stop& a, const Stop& b) { return a.place < b.place; });
  auto here = std::find_if(stops.begin(), stops.end(),
                           [this](const Stop& stop) { return stop.control == this; });
  size_t count = stops.size(), at = static_cast<size_t>(here - stops.begin());
  if (count < 2)
    return;
  Control* next = stops[forward ? (at + 1) % count : (at + count - 1) % count].control;
  HWND focused = platform.GetFocus();
  if (focused == next->hwnd_ || !next->MayTakeFocusFrom(focused))
    return;
  platform.SetFocus(next->hwnd_);
}

} // namespace tarnbrook
