#pragma once
#include <cstdint>

#include "common/event_source.hpp"
#include "common/geometry.hpp"
#include "platform/platform.hpp"
#include "winplumb/hooks.hpp"

namespace tarnbrook {

// What a cDropDown tells its owner; handlers do nothing by default.
class cDropDownEvents {
public:
  virtual ~cDropDownEvents() = default;
  // A mouse button went down outside the pop-up; set DontHide to keep it open.
  virtual void MouseDownOutside(bool& /*DontHide*/) {}
  // Raised at the end of every Hide.
  virtual void Hidden() {}
};

// Turns a child control window into a temporary pop-up on the desktop, below an anchor (above
// it when the work area has no room), and gives it back to its parent when hidden. With
// AutoHide it watches the thread's mouse through the WH_MOUSE hook and hides itself when a
// button goes down outside the pop-up, after asking its owner.
class cDropDown : private IWindowsHook {
public:
  cDropDown() = default;
  ~cDropDown() override;
  cDropDown(const cDropDown&) = delete;
  cDropDown& operator=(const cDropDown&) = delete;

  void Connect(cDropDownEvents* sink) { events_.Connect(sink); }
  void Disconnect(cDropDownEvents* sink) { events_.Disconnect(sink); }

  // Positions and sizes in screen pixels: (X, Y) the wanted top-left corner, normally the
  // anchor's bottom-left corner; ParentHeight the anchor's height; eType the animation
  // (0 none, 1 blend, 2 slide, 3 roll).
  void Show(HWND Control, int32_t X, int32_t Y, int32_t Width, int32_t Height, int32_t ParentHeight,
            int32_t eType, bool& AutoHide);
  void Hide();
  // True only while a pop-up shown with AutoHide is up.
  bool IsShown() const { return hooked_; }

private:
  void HookProc(int32_t eType, int32_t nCode, WPARAM wParam, LPARAM lParam,
                bool& bConsume) override;
  void MouseTest(LPARAM lParam);

  EventSource<cDropDownEvents> events_;
  HWND control_ = 0;
  HWND formerParent_ = 0;
  bool hooked_ = false;
  Rect popupRect_;
  bool busy_ = false;
};

} // namespace tarnbrook
