#pragma once
#include <cstdint>
#include <string>

#include "common/object.hpp"
#include "common/property_bag.hpp"
#include "draw/cmdc.hpp"
#include "host/control_site.hpp"
#include "platform/messages.hpp"

namespace tarnbrook {

// Mouse buttons and shift state as the control events report them.
enum MouseButtonConstants : int16_t { vbLeftButton = 1, vbRightButton = 2, vbMiddleButton = 4 };
enum ShiftConstants : int16_t { vbShiftMask = 1, vbCtrlMask = 2, vbAltMask = 4 };

// The top-level window (the form) that holds `hwnd`, itself when it has no parent; 0 for a
// window that does not exist.
HWND FormOf(HWND hwnd);

// While one lives, the controls a program's call invalidates are painted once, when the
// outermost batch ends (a setter that repaints in several steps).
class PaintBatch {
public:
  // A control's constructor passes false: what it invalidates waits for its container, or
  // for the queue to run dry, and is not painted at a size it is about to leave.
  explicit PaintBatch(bool paintAtEnd = true);
  ~PaintBatch();
  PaintBatch(const PaintBatch&) = delete;
  PaintBatch& operator=(const PaintBatch&) = delete;

private:
  bool paintAtEnd_;
};

// The base of every control: its window, its site, its off-screen surface, and the routing
// of the window's messages to the handlers below. Lifecycle: construct, then either
// InitProperties() (a new control) or ReadProperties(bag) (a loaded one); WriteProperties(bag)
// saves it.
class Control : public Object {
public:
  // Creates the window, a child of `parent` (visible), or a hidden window of its own.
  explicit Control(HWND parent = 0);
  ~Control() override;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  // The name a form file knows the control by ("MonthCalendar").
  virtual std::string ClassName() const = 0;

  virtual void InitProperties() {}
  virtual void ReadProperties(PropertyBag&) {}
  virtual void WriteProperties(PropertyBag&) {}

  HWND hWnd() const { return hwnd_; }
  HWND Parent() const;
  ControlSite& Site() const { return *site_; }
  void SetSite(ControlSite* site) { site_ = site ? site : &ControlSite::Standalone(); }

  // Size in twips, as the container measures it, and in pixels.
  int32_t Width() const;
  int32_t Height() const;
  int32_t ScaleWidth() const;
  int32_t ScaleHeight() const;
  // Position and size in pixels, relative to the parent's client area. Raises 380 for a size
  // beyond MaxSurfaceSize or negative, or a far edge beyond the largest coordinate; nothing
  // moves then.
  void Move(int32_t left, int32_t top, int32_t width, int32_t height);
  static constexpr int32_t MaxSurfaceSize = 32767;

  bool Visible() const;
  void SetVisible(bool visible);
  bool Enabled() const;
  virtual void SetEnabled(bool enabled);

  // Repaints: OnPaint, then the surface to the window; now, or once at the end of the input,
  // timer or PaintBatch being handled.
  void Refresh();
  // Repaints now even while input is handled: for a look that must show while the handler
  // waits on something else (a button held down while its list drops).
  void PaintNow();
  void SetFocus();

  // Whether Tab and Shift+Tab stop here (default true). A composite whose constituents take
  // the focus sets its own to false; they are reached where the composite stands.
  bool TabStop() const { return tabStop_; }
  void SetTabStop(bool tabStop) { tabStop_ = tabStop; }
  // Whether the control losing the focus to this one validates first (default true).
  bool CausesValidation() const { return causesValidation_; }
  void SetCausesValidation(bool causes) { causesValidation_ = causes; }

  // Tells the site of an error raised while a message was handled; a constituent (which has
  // no container of its own) tells the control it stands in.
  void ReportError(const ControlError& error);

  // The control whose window `hwnd` is; null for any other window.
  static Control* FromHandle(HWND hwnd);

protected:
  // Handlers, in pixels of the client area; x and y as the control events carry them.
  virtual void OnMouseDown(int16_t /*button*/, int16_t /*shift*/, float /*x*/, float /*y*/) {}
  virtual void OnMouseMove(int16_t /*button*/, int16_t /*shift*/, float /*x*/, float /*y*/) {}
  virtual void OnMouseUp(int16_t /*button*/, int16_t /*shift*/, float /*x*/, float /*y*/) {}
  virtual void OnDblClick() {}
  // Whole notches of the wheel, positive away from the user; false passes them on to the
  // parent (a page under a field that ignores the wheel still scrolls).
  virtual bool OnMouseWheel(int32_t /*notches*/, int16_t /*shift*/) { return false; }
  virtual void OnKeyDown(int16_t& /*keyCode*/, int16_t /*shift*/) {}
  virtual void OnKeyPress(int16_t& /*keyAscii*/) {}
  virtual void OnKeyUp(int16_t& /*keyCode*/, int16_t /*shift*/) {}
  virtual void OnGotFocus() {}
  virtual void OnLostFocus() {}
  virtual void OnResize() {} // the surface already has the new size
  virtual void OnPaint() {}  // bring the surface up to date; it is then copied to the window
  virtual void OnTimer(uintptr_t /*id*/) {}
  // The focus is about to leave for a control of the same form whose CausesValidation is
  // true (by Tab, Shift+Tab or a press); setting `cancel` keeps it here.
  virtual void OnValidate(bool& /*cancel*/) {}
  // Whether the control takes the focus at all (a label does not): a press on it leaves the
  // focus where it is, and Tab passes it over whatever its TabStop.
  virtual bool Focusable() const { return true; }

  // A control of a fixed size puts the size it is given to it before it is moved.
  virtual void ConstrainSize(int32_t& /*width*/, int32_t& /*height*/) const {}

  // Messages not routed above; the default handles nothing.
  virtual LRESULT WindowMessage(UINT msg, WPARAM wParam, LPARAM lParam);

  // Notifies the site that the property under `key` changed.
  void PropertyChanged(const std::string& key) { site_->PropertyChanged(key); }

  // Paints the whole control into a context the system supplies (WM_PRINTCLIENT).
  void PrintClient(HDC target);

  // The off-screen surface, the size of the client area.
  cMDC& Surface() { return surface_; }

private:
  static LRESULT WindowProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam);
  LRESULT Route(UINT msg, WPARAM wParam, LPARAM lParam);
  void MouseButton(UINT msg, WPARAM wParam, LPARAM lParam);
  void MouseWheel(WPARAM wParam, LPARAM lParam);
  void CopySurfaceToWindow();
  // Focus movement between the controls of a form (focus_movement.cpp).
  void Enlist();
  void Delist();
  LRESULT MouseActivate();
  bool MayTakeFocusFrom(HWND focused);
  void MoveFocusByTab(bool forward);

  HWND hwnd_ = 0;
  uint64_t creationOrder_ = 0; // tab order follows creation
  bool tabStop_ = true;
  bool causesValidation_ = true;
  int32_t wheelRest_ = 0; // a part of a notch, from a fine wheel
  ControlSite* site_ = &ControlSite::Standalone();
  cMDC surface_;
};

} // namespace tarnbrook
