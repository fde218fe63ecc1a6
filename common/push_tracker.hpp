#pragma once

namespace tarnbrook {

// A push button held down with the mouse: shown pushed while the pointer stays on it, and
// pressed when the button comes up over it. The owner says whether each point is on it; each
// call but Release answers whether the look changed.
class PushTracker {
public:
  bool Press(bool on) {
    held_ = true;
    return Show(on);
  }
  bool Move(bool on) { return held_ && Show(on); }
  // Whether this release presses the button.
  bool Release(bool on) {
    const bool pressed = held_ && on;
    held_ = false;
    Show(false);
    return pressed;
  }
  void Cancel() {
    held_ = false;
    Show(false);
  }
  bool Held() const { return held_; }
  bool Pushed() const { return pushed_; }

private:
  bool Show(bool pushed) {
    const bool changed = pushed != pushed_;
    pushed_ = pushed;
    return changed;
  }
  bool held_ = false;
  bool pushed_ = false;
};

} // namespace tarnbrook
