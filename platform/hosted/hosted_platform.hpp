#pragma once
#include <map>
#include <memory>
#include <optional>

#include "platform/memory/memory_platform.hpp"

namespace tarnbrook {

// The simulator driven by a GUI toolkit that shows its top-level windows in widgets of its
// own. The simulator keeps hit testing, focus, capture, hooks and timers; the toolkit feeds
// input through the simulator's injections (MouseDown, KeyDown, MouseWheel ... at screen
// points), calls Process from its main loop after every input and when woken, and hears
// through its Host what to show.
//
// - A top-level window is reported shown, moved (or resized), hidden and destroyed by its
//   client area in screen coordinates; captions are the toolkit's business. One that
//   becomes another window's child is reported destroyed.
// - Damage is reported per top-level window as one rectangle of its client area; Pixels
//   then holds the window with its children composed, up to date in that rectangle.
// - The virtual clock follows the monotonic clock; Now() starts at the local wall clock.
class HostedPlatform : public MemoryPlatform {
public:
  class Host {
  public:
    virtual ~Host() = default;
    virtual void TopLevelShown(HWND top, const Rect& client) = 0;
    virtual void TopLevelMoved(HWND top, const Rect& client) = 0;
    virtual void TopLevelHidden(HWND top) = 0;
    virtual void TopLevelDestroyed(HWND top) = 0;
    virtual void Damaged(HWND top, const Rect& area) = 0; // client coordinates
    virtual void CursorChanged(int shape) = 0;
    // The toolkit calls Process again after this long; none: no timer is set.
    virtual void WakeIn(std::optional<uint32_t> milliseconds) = 0;
  };

  // The host may be set later; nothing is reported without one.
  explicit HostedPlatform(Host* host = nullptr);
  void SetHost(Host* host) { host_ = host; }

  // Moves the clock on (firing due timers), delivers the queued messages, then reports
  // what changed. Calls made while it runs (from a report) return at once.
  void Process();

  // The composed pixels of a shown top-level window; null for any other.
  const Canvas* Pixels(HWND top) const;

  void SetCursor(int shape) override;

private:
  struct Shown {
    Rect client; // screen coordinates
    bool visible = false;
    std::unique_ptr<Canvas> pixels;
  };
  // Where a window's pixels land in its top-level window, clipped by its ancestors.
  struct Placement {
    HWND top = 0;
    Rect area; // empty when not shown
    bool operator==(const Placement&) const = default;
  };

  void Report();
  void Walk(HWND top, HWND hwnd, const Rect& clip, std::map<HWND, Placement>& placements);

  Host* host_ = nullptr;
  bool processing_ = false;
  int reportedCursor_ = -1;
  std::map<HWND, Shown> tops_;
  std::map<HWND, Placement> placements_;
};

} // namespace tarnbrook
