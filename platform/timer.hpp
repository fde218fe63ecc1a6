#pragma once
#include <cstdint>
#include <functional>
#include <string>

#include "platform/platform.hpp"

namespace tarnbrook {

// The timer a control owns, like the classic Timer control: it ticks every Interval
// milliseconds while Enabled and Interval is not 0. Setting Interval or Enabled starts the
// period afresh, so disabling and enabling again restarts the countdown. Runs on the
// current platform's timers.
class Timer {
public:
  Timer() = default;
  ~Timer();
  Timer(const Timer&) = delete;
  Timer& operator=(const Timer&) = delete;

  uint32_t Interval() const { return interval_; }
  void SetInterval(uint32_t milliseconds);
  bool Enabled() const { return enabled_; }
  void SetEnabled(bool enabled);
  const std::string& Tag() const { return tag_; }
  void SetTag(const std::string& tag) { tag_ = tag; }
  // Runs on each tick; it may change or destroy this timer.
  void SetCallback(std::function<void()> callback) { callback_ = std::move(callback); }

private:
  void Restart();
  void Stop();
  static void Tick(HWND hwnd, UINT msg, uintptr_t id, uint32_t time);

  uint32_t interval_ = 0;
  bool enabled_ = true;
  std::string tag_;
  std::function<void()> callback_;
  Platform* platform_ = nullptr; // where the running timer lives
  uintptr_t id_ = 0;             // 0 while stopped
};

} // namespace tarnbrook
