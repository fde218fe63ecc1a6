#pragma once
#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <unordered_map>

#include "platform/memory/memory_platform.hpp"

// Xlib's own types, declared here so that its macros (None, KeyPress, ...) stay out of
// every file that only needs the platform.
typedef struct _XDisplay Display;
union _XEvent;
struct _XGC;

namespace tarnbrook {

// The simulator's window system shown on a real X display. The simulator keeps the window
// tree, properties, queue, hooks, timers and focus; every window is mirrored by an X window
// covering its client area, and X input comes back as the simulator's injections at the
// same screen points, so hit testing, capture, hooks and double clicks behave as in the
// tests.
//
// - A top-level window with a caption is a managed X window (the window manager draws the
//   title); any other top-level window, such as a control re-parented to the desktop, is an
//   override-redirect pop-up on the root window.
// - X follows the simulator at once when a window is created or destroyed, restacked,
//   updated, animated or focused, else when messages are pumped (after every input and in
//   ProcessPendingEvents). A window's canvas goes on screen after it was handed out by
//   GetDC (a paint), and again on Expose.
// - The virtual clock follows the monotonic clock while events are processed, so timers
//   fire in real time; Now() starts at the local wall clock.
// - Closing a form through the window manager sends it WM_CLOSE and hides it; its owner
//   destroys it. Run() returns once no form is shown.
class X11Platform : public MemoryPlatform {
public:
  // Opens `displayName`, or DISPLAY when empty. Throws std::runtime_error when no display
  // opens or its default visual is not 24-bit TrueColor.
  explicit X11Platform(const std::string& displayName = "");
  ~X11Platform() override;

  Display* XDisplay() const { return display_; }
  unsigned long XWindowOf(HWND hwnd) const; // 0 when none is made yet
  HWND WindowOfX(unsigned long xWindow) const;
  // X protocol errors seen since the process started; they are reported, never fatal.
  static int XErrorCount();

  // The event loop: handles X events, fires due timers, delivers messages, updates X.
  void ProcessPendingEvents();
  void Run(); // until no form is shown or Quit is called
  void Quit() { quit_ = true; }
  // Runs the loop until `done` holds or `milliseconds` pass; returns done().
  bool RunUntil(const std::function<bool()>& done, uint32_t milliseconds);
  void RunFor(uint32_t milliseconds) {
    RunUntil([] { return false; }, milliseconds);
  }

  // Platform: what the real display changes.
  HWND CreateWindowEx(uint32_t exStyle, const std::string& title, uint32_t style, int32_t x,
                      int32_t y, int32_t width, int32_t height, HWND parent, WNDPROC proc) override;
  bool DestroyWindow(HWND hwnd) override;
  bool SetWindowPos(HWND hwnd, HWND insertAfter, int32_t x, int32_t y, int32_t cx, int32_t cy,
                    UINT flags) override;
  bool AnimateWindow(HWND hwnd, uint32_t milliseconds, uint32_t flags) override;
  void PumpMessages() override;
  bool WaitMessage() override;
  void UpdateWindow(HWND hwnd) override;
  HWND SetFocus(HWND hwnd) override;
  void SetCursor(int shape) override;
  bool SystemParametersInfo(UINT action, Rect* workArea) override;
  void MessageBeep(UINT type) override;
  int MessageBox(HWND owner, const std::string& text, const std::string& caption,
                 UINT type) override;

private:
  // The X window standing for one simulator window, as last told to the server.
  struct Mirror {
    unsigned long window = 0;
    unsigned long parent = 0;
    Rect placed; // in the X parent's coordinates
    bool mapped = false;
    bool popup = false; // override-redirect
    bool dirty = true;  // the canvas changed since it was put on screen
  };
  struct LastPress {
    unsigned int button = 0;
    unsigned long time = 0;
    Point at;
    bool wasDouble = false;
  };

  // Mirroring (window_mirror.cpp).
  void Sync();
  void Reconcile(HWND hwnd);
  void CreateMirror(HWND hwnd, Mirror& mirror, unsigned long xParent);
  void ForgetDestroyed();
  void PutCanvas(HWND hwnd, const Mirror& mirror);
  void PutPixels(unsigned long window, const uint32_t* pixels, int32_t stride, Rect source,
                 Point at);
  Mirror* FindMirror(HWND hwnd);
  HWND TopLevelOf(HWND hwnd);
  bool AnyFormShown();

  // X events (event_translation.cpp).
  void HandleEvent(_XEvent& event);
  void HandleButton(_XEvent& event);
  void HandleKey(_XEvent& event);
  void HandleFocus(_XEvent& event);
  void HandleConfigure(_XEvent& event);
  void HandleClose(_XEvent& event);
  void FocusXWindow();

  // The loop (x11_platform.cpp).
  void WaitForEvents(int timeoutMilliseconds);

  // Animation (animation.cpp).
  void Unroll(Mirror& mirror, const Canvas& picture, uint32_t milliseconds, uint32_t flags);
  void Blend(HWND hwnd, Mirror& mirror, const Canvas& picture, uint32_t milliseconds);

  Display* display_ = nullptr;
  unsigned long root_ = 0;
  void* visual_ = nullptr; // Visual*
  int depth_ = 0;
  _XGC* gc_ = nullptr;
  unsigned long deleteWindowAtom_ = 0;
  unsigned long protocolsAtom_ = 0;

  std::map<HWND, Mirror> mirrors_;
  std::unordered_map<unsigned long, HWND> byXWindow_;
  std::map<int, unsigned long> cursors_;
  LastPress lastPress_;
  HWND focusBeforeLeaving_ = 0;

  bool quit_ = false;
};

} // namespace tarnbrook
