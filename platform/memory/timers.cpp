#include <algorithm>
#include <cmath>

#include "platform/memory/memory_platform.hpp"

namespace tarnbrook {

namespace {

constexpr uint32_t MinimumInterval = 10; // the system's USER_TIMER_MINIMUM
constexpr double MillisecondsPerDay = 86400000.0;

// Dates before 1899 count their time forward from a negative day; a linear day count makes
// adding milliseconds plain arithmetic.
double LinearDays(DateValue value) {
  double day = std::trunc(value);
  return day + std::fabs(value - day);
}

DateValue FromLinearDays(double days) {
  double day = std::floor(days);
  double time = days - day;
  return day >= 0 ? day + time : day - time;
}

} // namespace

// A window's timer is known by (window, id); a thread timer (window 0) gets a fresh id
// unless `id` names one of its own.
uintptr_t MemoryPlatform::SetTimer(HWND hwnd, uintptr_t id, uint32_t milliseconds, TIMERPROC proc) {
  if (hwnd != 0 && !Find(hwnd)) {
    lastError_ = ErrorInvalidWindowHandle;
    return 0;
  }
  auto it = std::find_if(timers_.begin(), timers_.end(),
                         [hwnd, id](const Timer& t) { return t.hwnd == hwnd && t.id == id; });
  Timer* timer = it == timers_.end() ? nullptr : &*it;
  if (!timer) {
    timers_.push_back({hwnd, hwnd ? id : nextThreadTimerId_++});
    timer = &timers_.back();
  }
  timer->interval = std::max(milliseconds, MinimumInterval);
  timer->proc = proc;
  timer->due = tick_ + timer->interval;
  timer->order = timerOrder_++;
  return hwnd ? std::max<uintptr_t>(timer->id, 1) : timer->id;
}

// Also drops a WM_TIMER of it that waits in the queue.
bool MemoryPlatform::KillTimer(HWND hwnd, uintptr_t id) {
  std::erase_if(queue_, [hwnd, id](const QueuedMessage& q) {
    return q.msg.message == WM_TIMER && q.msg.hwnd == hwnd && q.msg.wParam == id;
  });
  return std::erase_if(timers_,
                       [hwnd, id](const Timer& t) { return t.hwnd == hwnd && t.id == id; }) > 0;
}

MemoryPlatform::Timer* MemoryPlatform::NextDueTimer(uint64_t until) {
  Timer* next = nullptr;
  for (Timer& t : timers_) {
    if (t.due <= until &&
        (!next || t.due < next->due || (t.due == next->due && t.order < next->order))) {
      next = &t;
    }
  }
  return next;
}

// Each due tick is handled at its own moment, so handlers see the clock at that tick and
// may kill or reset any timer.
void MemoryPlatform::Advance(uint32_t milliseconds) {
  uint64_t until = tick_ + milliseconds;
  while (Timer* timer = NextDueTimer(until)) {
    tick_ = timer->due;
    timer->due += timer->interval;
    timer->order = timerOrder_++;
    PostMessage(timer->hwnd, WM_TIMER, timer->id, reinterpret_cast<LPARAM>(timer->proc));
    PumpMessages();
  }
  tick_ = until;
  PumpMessages();
}

bool MemoryPlatform::WaitMessage() {
  PumpMessages();
  Timer* next = NextDueTimer(UINT64_MAX);
  if (!next)
    return false;
  Advance(static_cast<uint32_t>(next->due > tick_ ? next->due - tick_ : 0));
  return true;
}

std::optional<uint32_t> MemoryPlatform::MillisecondsToNextTimer() const {
  std::optional<uint64_t> due;
  for (const Timer& t : timers_) {
    due = due ? std::min(*due, t.due) : t.due;
  }
  if (!due) {
    return std::nullopt;
  }
  return static_cast<uint32_t>(*due > tick_ ? *due - tick_ : 0);
}

void MemoryPlatform::StartRealTime() {
  realTimeBase_ = std::chrono::steady_clock::now();
}

// A timer handler that runs a loop of its own (a message box) holds the clock: it only
// moves forward from the outside.
void MemoryPlatform::FollowRealTime() {
  using namespace std::chrono;
  auto elapsed = duration_cast<milliseconds>(steady_clock::now() - realTimeBase_);
  if (elapsed.count() <= 0 || followingRealTime_) {
    return;
  }
  realTimeBase_ += elapsed;
  followingRealTime_ = true;
  struct Done {
    bool& flag;
    ~Done() { flag = false; }
  } done{followingRealTime_};
  Advance(static_cast<uint32_t>(elapsed.count()));
}

void MemoryPlatform::SetNow(DateValue now) {
  nowBase_ = now;
  nowBaseTick_ = tick_;
}

DateValue MemoryPlatform::Now() {
  return FromLinearDays(LinearDays(nowBase_) +
                        static_cast<double>(tick_ - nowBaseTick_) / MillisecondsPerDay);
}

} // namespace tarnbrook
