#include "platform/timer.hpp"

#include <map>

namespace tarnbrook {

namespace {

// The running timers by their thread-timer id; everything runs on the one UI thread.
std::map<uintptr_t, Timer*>& RunningTimers() {
  static std::map<uintptr_t, Timer*> timers;
  return timers;
}

} // namespace

Timer::~Timer() {
  Stop();
}

void Timer::SetInterval(uint32_t milliseconds) {
  interval_ = milliseconds;
  Restart();
}

void Timer::SetEnabled(bool enabled) {
  enabled_ = enabled;
  Restart();
}

void Timer::Restart() {
  if (!enabled_ || interval_ == 0 || !Platform::HasCurrent()) {
    Stop();
    return;
  }
  if (platform_ != &Platform::Current()) {
    Stop();
    platform_ = &Platform::Current();
  }
  // Setting a thread timer again under its id resets its period.
  uintptr_t id = platform_->SetTimer(0, id_, interval_, &Timer::Tick);
  if (id != id_) {
    RunningTimers().erase(id_);
    id_ = id;
  }
  if (id_ != 0) {
    RunningTimers()[id_] = this;
  }
}

void Timer::Stop() {
  if (id_ == 0) {
    return;
  }
  if (Platform::HasCurrent() && &Platform::Current() == platform_) {
    platform_->KillTimer(0, id_);
  }
  RunningTimers().erase(id_);
  id_ = 0;
}

void Timer::Tick(HWND, UINT, uintptr_t id, uint32_t) {
  auto it = RunningTimers().find(id);
  if (it == RunningTimers().end() || !it->second->callback_) {
    return;
  }
  // A copy, because the callback may destroy the timer that holds it.
  std::function<void()> callback = it->second->callback_;
  callback();
}

} // namespace tarnbrook
