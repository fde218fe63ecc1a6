#pragma once
#include <functional>
#include <utility>
#include <vector>

namespace tarnbrook {

// Counts the events being raised and the controls' window procedures running on this thread.
// While any runs, a control that a handler removes must stay alive: its raiser is still using
// it further up the stack.
class DispatchDepth {
public:
  DispatchDepth() { ++depth_; }
  ~DispatchDepth() {
    if (--depth_ == 0 && !quiet_.empty())
      for (auto& task : std::exchange(quiet_, {}))
        task();
  }
  DispatchDepth(const DispatchDepth&) = delete;
  DispatchDepth& operator=(const DispatchDepth&) = delete;

  static bool Active() { return depth_ > 0; }
  // Runs `task` when the outermost dispatch returns (now, when none runs).
  static void WhenQuiet(std::function<void()> task) {
    if (Active())
      quiet_.push_back(std::move(task));
    else
      task();
  }

private:
  static inline thread_local int depth_ = 0;
  static inline thread_local std::vector<std::function<void()>> quiet_;
};

} // namespace tarnbrook
