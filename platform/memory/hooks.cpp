#include <algorithm>
#include <utility>

#include "platform/memory/memory_platform.hpp"

namespace tarnbrook {

namespace {
constexpr uint32_t ErrorHookNeedsModule = 1428;
} // namespace

// Thread hooks only: a global hook (thread 0) needs a module, as on the real system.
HHOOK MemoryPlatform::SetWindowsHookEx(int type, HOOKPROC proc, uintptr_t module,
                                       uint32_t threadId) {
  uint32_t error = 0;
  if (failNextHook_) {
    error = std::exchange(failNextHook_, 0);
  } else if (type < WH_MSGFILTER || type > WH_MOUSE_LL) {
    error = ErrorInvalidHookFilter;
  } else if (!proc) {
    error = ErrorInvalidFilterProc;
  } else if (threadId == 0 && module == 0) {
    error = ErrorHookNeedsModule;
  }
  if (error) {
    lastError_ = error;
    return 0;
  }
  hooks_.push_back({nextHook_, type, proc});
  nextHook_ += 4;
  return hooks_.back().handle;
}

bool MemoryPlatform::UnhookWindowsHookEx(HHOOK hook) {
  if (std::erase_if(hooks_, [hook](const Hook& h) { return h.handle == hook; }) == 0) {
    lastError_ = ErrorInvalidHookHandle;
    return false;
  }
  return true;
}

size_t MemoryPlatform::HookCount(int type) const {
  return std::count_if(hooks_.begin(), hooks_.end(),
                       [type](const Hook& h) { return h.type == type; });
}

// The most recently installed hook of the type runs first.
LRESULT MemoryPlatform::RunHookChain(int type, int nCode, WPARAM wParam, LPARAM lParam) {
  auto latest = std::find_if(hooks_.rbegin(), hooks_.rend(),
                             [type](const Hook& h) { return h.type == type; });
  if (latest == hooks_.rend()) {
    return 0;
  }
  return RunHook(*latest, nCode, wParam, lParam);
}

// Like the real system, the chain position comes from the hook that is running; the handle
// only matters when no hook runs.
LRESULT MemoryPlatform::CallNextHookEx(HHOOK hook, int nCode, WPARAM wParam, LPARAM lParam) {
  Hook current;
  if (!runningHooks_.empty()) {
    current = runningHooks_.back();
  } else {
    auto it = std::find_if(hooks_.begin(), hooks_.end(),
                           [hook](const Hook& h) { return h.handle == hook; });
    if (it == hooks_.end()) {
      return 0;
    }
    current = *it;
  }
  auto next = std::find_if(hooks_.rbegin(), hooks_.rend(), [&current](const Hook& h) {
    return h.type == current.type && h.handle < current.handle;
  });
  if (next == hooks_.rend()) {
    return 0;
  }
  return RunHook(*next, nCode, wParam, lParam);
}

// Keeps the running hook known while it runs, even when it throws.
LRESULT MemoryPlatform::RunHook(Hook hook, int nCode, WPARAM wParam, LPARAM lParam) {
  struct Running {
    std::vector<Hook>& stack;
    ~Running() { stack.pop_back(); }
  } running{runningHooks_};
  runningHooks_.push_back(hook);
  return hook.proc(nCode, wParam, lParam);
}

} // namespace tarnbrook
