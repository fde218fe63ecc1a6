#pragma once
#include <chrono>
#include <deque>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/memory/memory_window.hpp"
#include "platform/platform.hpp"

namespace tarnbrook {

// An in-memory window system: a window tree with z-order, a message queue, hit testing,
// thread hooks, focus and capture, timers on a virtual clock, and a screen image. Tests
// drive it as a person would (press at a screen point, type, wait) and look at the result.
//
// Conventions worth knowing:
// - Top-level windows are children of the desktop; GetParent returns 0 for them, while
//   SetParent returns the desktop handle as the former parent, as the real system does.
// - Only a top-level window created with a title has a non-client area: a caption
//   CaptionHeight pixels high above its client area (hit-test HTCAPTION).
// - Input injections queue their messages and pump the queue at once. A mouse message
//   goes to the capture window, else to the window under the point (hidden and disabled
//   windows are passed over); the WH_MOUSE chain runs as it is retrieved and a nonzero
//   result discards it; a button going down then focuses its window. MouseDown and
//   MouseUp move the pointer to their point first when it is elsewhere.
// - Sent messages pass the WH_CALLWNDPROC(RET) hooks; retrieved ones (posted, input,
//   WM_PAINT, WM_TIMER) pass WH_GETMESSAGE instead. Timers tick at least every 10 ms.
// - Key injections follow the US keyboard: KeyDown also posts the WM_CHAR the key makes
//   (as TranslateMessage would) unless Ctrl or Alt is held.
// - FormatMessage texts end with "\r\n", as the system's do.
// Constructing one makes it Platform::Current(); destroying it clears that.
class MemoryPlatform : public Platform {
public:
  static constexpr int32_t CaptionHeight = 20;
  static constexpr uint32_t ProcessId = 4100;
  static constexpr uint32_t ThreadId = 4104;
  static constexpr uint32_t ForeignProcessId = 5200;
  static constexpr COLORREF DesktopColor = 0x808000; // COLOR_BACKGROUND, teal

  // The Shift argument of Key: the classic shift masks.
  enum ShiftMask : int { ShiftKey = 1, CtrlKey = 2, AltKey = 4 };

  struct AnimationRecord {
    HWND hwnd = 0;
    uint32_t milliseconds = 0;
    uint32_t flags = 0;
  };
  struct MessageBoxRecord {
    HWND owner = 0;
    std::string text;
    std::string caption;
    UINT type = 0;
  };

  MemoryPlatform();
  ~MemoryPlatform() override;
  MemoryPlatform(const MemoryPlatform&) = delete;
  MemoryPlatform& operator=(const MemoryPlatform&) = delete;

  // Platform: windows.
  HWND CreateWindowEx(uint32_t exStyle, const std::string& title, uint32_t style, int32_t x,
                      int32_t y, int32_t width, int32_t height, HWND parent, WNDPROC proc) override;
  bool DestroyWindow(HWND hwnd) override;
  bool IsWindow(HWND hwnd) override;
  HWND GetParent(HWND hwnd) override;
  HWND SetParent(HWND hwnd, HWND newParent) override;
  HWND GetDesktopWindow() override;
  LONG_PTR GetWindowLong(HWND hwnd, int index) override;
  LONG_PTR SetWindowLong(HWND hwnd, int index, LONG_PTR value) override;
  LRESULT CallWindowProc(WNDPROC proc, HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) override;
  bool MoveWindow(HWND hwnd, int32_t x, int32_t y, int32_t width, int32_t height,
                  bool repaint) override;
  bool SetWindowPos(HWND hwnd, HWND insertAfter, int32_t x, int32_t y, int32_t cx, int32_t cy,
                    UINT flags) override;
  bool ShowWindow(HWND hwnd, int command) override;
  bool IsWindowVisible(HWND hwnd) override;
  bool EnableWindow(HWND hwnd, bool enable) override;
  bool IsWindowEnabled(HWND hwnd) override;
  bool AnimateWindow(HWND hwnd, uint32_t milliseconds, uint32_t flags) override;
  Rect GetWindowRect(HWND hwnd) override;
  Rect GetClientRect(HWND hwnd) override;
  Point ScreenToClient(HWND hwnd, Point p) override;
  Point ClientToScreen(HWND hwnd, Point p) override;
  HWND WindowFromPoint(Point screen) override;
  uint32_t GetWindowThreadProcessId(HWND hwnd, uint32_t* processId) override;

  // Platform: properties.
  bool SetProp(HWND hwnd, const std::string& name, intptr_t value) override;
  intptr_t GetProp(HWND hwnd, const std::string& name) override;
  intptr_t RemoveProp(HWND hwnd, const std::string& name) override;

  // Platform: messages and painting.
  LRESULT SendMessage(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) override;
  bool PostMessage(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) override;
  void PumpMessages() override;
  // Moves the virtual clock on to the next due timer and fires it; false without timers.
  bool WaitMessage() override;
  HDC GetDC(HWND hwnd) override;
  void InvalidateRect(HWND hwnd) override;
  void UpdateWindow(HWND hwnd) override;
  bool Dispatching() const override { return dispatching_ > 0; }

  // Platform: focus, capture, cursor, keyboard.
  HWND SetFocus(HWND hwnd) override;
  HWND GetFocus() override;
  HWND SetCapture(HWND hwnd) override;
  bool ReleaseCapture() override;
  HWND GetCapture() override;
  Point GetCursorPos() override;
  void SetCursor(int shape) override;
  int16_t GetKeyState(int virtualKey) override;

  // Platform: timers and hooks.
  uintptr_t SetTimer(HWND hwnd, uintptr_t id, uint32_t milliseconds,
                     TIMERPROC proc = nullptr) override;
  bool KillTimer(HWND hwnd, uintptr_t id) override;
  HHOOK SetWindowsHookEx(int type, HOOKPROC proc, uintptr_t module, uint32_t threadId) override;
  bool UnhookWindowsHookEx(HHOOK hook) override;
  LRESULT CallNextHookEx(HHOOK hook, int nCode, WPARAM wParam, LPARAM lParam) override;

  // Platform: screen and system.
  bool SystemParametersInfo(UINT action, Rect* workArea) override;
  int32_t GetSystemMetrics(int index) override;
  int32_t GetDeviceCaps(HDC hdc, int index) override;
  int32_t TwipsPerPixelX() override { return 15; }
  int32_t TwipsPerPixelY() override { return 15; }
  void MessageBeep(UINT type) override;
  int MessageBox(HWND owner, const std::string& text, const std::string& caption,
                 UINT type) override;
  uint32_t GetCurrentProcessId() override { return ProcessId; }
  uint32_t GetCurrentThreadId() override { return ThreadId; }
  uint32_t GetLastError() override { return lastError_; }
  std::string FormatMessage(uint32_t errorCode) override;
  uint32_t GetTickCount() override { return static_cast<uint32_t>(tick_); }
  DateValue Now() override;

  // Test side: mouse, in screen coordinates. `button` is VK_LBUTTON, VK_RBUTTON or
  // VK_MBUTTON.
  void MouseMove(int32_t x, int32_t y);
  void MouseDown(int button, int32_t x, int32_t y);
  void MouseUp(int button, int32_t x, int32_t y);
  void Click(int32_t x, int32_t y);
  void DoubleClick(int32_t x, int32_t y);                  // down, up, WM_LBUTTONDBLCLK, up
  void MouseDoubleClick(int button, int32_t x, int32_t y); // the second press of a double click
  // Turns the wheel by `delta` (WHEEL_DELTA a notch, positive away from the user).
  void MouseWheel(int32_t delta, int32_t x, int32_t y);
  void SetClickFocus(bool on) { clickFocus_ = on; } // a click focuses its window (default)

  // Test side: keyboard, to the focused window.
  void KeyDown(int virtualKey);
  void KeyUp(int virtualKey);
  void Key(int virtualKey, int shift = 0); // presses the ShiftMask keys around it
  void TypeChar(char ch);
  void Type(const std::string& text);

  // Test side: clocks. Advance fires every due timer in time order.
  void Advance(uint32_t milliseconds);
  void SetNow(DateValue now);
  size_t TimerCount() const { return timers_.size(); }
  // How long until the next timer is due on the virtual clock; none without timers.
  std::optional<uint32_t> MillisecondsToNextTimer() const;

  // Test side: windows.
  HWND CreateForeignWindow(int32_t x, int32_t y, int32_t width, int32_t height);
  std::vector<std::string> PropertyNames(HWND hwnd);
  Canvas* WindowCanvas(HWND hwnd);
  std::vector<HWND> Children(HWND hwnd); // bottom of the z-order first

  // Test side: hooks.
  void FailNextHook(uint32_t errorCode) { failNextHook_ = errorCode; }
  size_t HookCount(int type) const;
  // Runs a hook chain as the system would for a notification of that type.
  LRESULT RunHookChain(int type, int nCode, WPARAM wParam, LPARAM lParam);

  // Test side: screen and system.
  void SetScreenSize(int32_t width, int32_t height); // also resets the work area
  void SetWorkArea(const Rect& area) { workArea_ = area; }
  void FailSystemParametersInfo(bool fail) { failSystemParameters_ = fail; }
  int CursorShape() const { return cursor_; }
  const std::vector<AnimationRecord>& Animations() const { return animations_; }
  int BeepCount() const { return beeps_; }
  // WM_PAINT messages delivered so far, to any window.
  int PaintCount() const { return paints_; }
  const std::vector<MessageBoxRecord>& MessageBoxes() const { return messageBoxes_; }
  void QueueMessageBoxAnswer(int answer) { messageBoxAnswers_.push_back(answer); }
  std::unique_ptr<Canvas> ComposeScreen();
  // Draws the part `area` (client coordinates) of a window's client area with its visible
  // children onto `target` at the same coordinates.
  void ComposeWindow(HWND hwnd, Canvas& target, const Rect& area);
  void WriteScreenPng(const std::string& path);

  // For a backend that shows the windows: those whose drawing context was handed out (so
  // whose pixels may have changed) since the last call.
  std::vector<HWND> TakePaintedWindows();

protected:
  // For a backend on a real display: from StartRealTime on, FollowRealTime moves the virtual
  // clock on by the monotonic time that passed, firing the timers due meanwhile.
  void StartRealTime();
  void FollowRealTime();

private:
  struct QueuedMessage {
    MSG msg;
    bool input = false; // injected by a person, so the input hooks run on it
    int hitTest = HTCLIENT;
  };
  struct Timer {
    HWND hwnd = 0;
    uintptr_t id = 0;
    uint32_t interval = 0;
    TIMERPROC proc = nullptr;
    uint64_t due = 0;
    uint64_t order = 0; // ties fire in the order they were set
  };
  struct Hook {
    HHOOK handle = 0;
    int type = 0;
    HOOKPROC proc = nullptr;
  };

  MemoryWindow* Find(HWND hwnd);
  bool IsDesktop(HWND hwnd) const { return hwnd == desktop_; }
  void DestroyTree(HWND hwnd);
  void Unlink(MemoryWindow& window);
  void Raise(MemoryWindow& window, HWND insertAfter);
  Size ClientSize(const MemoryWindow& window) const;
  Point ClientOrigin(const MemoryWindow& window); // screen coordinates
  Rect ClientScreenRect(const MemoryWindow& window);
  HWND ChildFromPoint(const MemoryWindow& parent, Point screen);
  int HitTest(HWND hwnd, Point screen);
  bool SetVisible(HWND hwnd, bool visible);
  void Dispatch(const MSG& msg);
  void Translate(const MSG& keyDown);
  bool RunInputHooks(QueuedMessage& entry);
  HWND NextToPaint(const MemoryWindow& window);
  void InjectMouse(UINT clientMessage, Point screen);
  void InjectKey(UINT message, int virtualKey);
  WPARAM MouseKeyFlags();
  // `origin` is the screen point drawn at the target's (0, 0).
  void DrawTree(Canvas& target, const MemoryWindow& window, const Rect& clip, Point origin);
  Timer* NextDueTimer(uint64_t until);
  LRESULT RunHook(Hook hook, int nCode, WPARAM wParam, LPARAM lParam);

  std::map<HWND, std::unique_ptr<MemoryWindow>> windows_;
  HWND desktop_ = 0;
  HWND nextHandle_ = 0x10010;
  std::deque<QueuedMessage> queue_;
  HWND focus_ = 0;
  HWND capture_ = 0;
  Point cursorPos_;
  int cursor_ = IDC_ARROW;
  bool clickFocus_ = true;
  std::map<int, bool> keysDown_;

  std::vector<Timer> timers_;
  uint64_t tick_ = 0;
  uint64_t timerOrder_ = 0;
  uintptr_t nextThreadTimerId_ = 0x7FF0;
  DateValue nowBase_ = 36526.5; // 1 January 2000, noon
  uint64_t nowBaseTick_ = 0;

  std::vector<Hook> hooks_;        // in installation order
  std::vector<Hook> runningHooks_; // the hooks running now, innermost last
  HHOOK nextHook_ = 0x2000;
  uint32_t failNextHook_ = 0;
  uint32_t lastError_ = 0;

  Rect workArea_;
  bool failSystemParameters_ = false;
  std::vector<AnimationRecord> animations_;
  int beeps_ = 0;
  int paints_ = 0;
  int dispatching_ = 0;
  std::vector<MessageBoxRecord> messageBoxes_;
  std::deque<int> messageBoxAnswers_;

  std::chrono::steady_clock::time_point realTimeBase_;
  bool followingRealTime_ = false; // within FollowRealTime's Advance
};

} // namespace tarnbrook
