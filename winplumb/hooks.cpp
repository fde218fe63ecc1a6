#include "winplumb/hooks.hpp"

#include <array>
#include <string>
#include <vector>

#include "common/control_error.hpp"
#include "platform/escaped_error.hpp"
#include "winplumb/debug_trace.hpp"
#include "winplumb/plumbing_error.hpp"

namespace tarnbrook {

namespace {

constexpr int32_t UnsupportedHookType = 1049;
constexpr int32_t FreeEntryType = -2;
constexpr size_t MaxErrorTextLength = 256;

// One client attachment; a freed one keeps its place with no client and type -2.
struct HookClient {
  IWindowsHook* client = nullptr;
  int32_t type = FreeEntryType;
};

// Everything is per thread: hooks are thread hooks and call back on their thread.
struct ThreadHooks {
  std::array<HHOOK, WH_MOUSE_LL - WH_MSGFILTER + 1> handles{}; // by type, -1..14
  std::vector<HookClient> clients;                             // never shrinks
  int32_t currentType = 0;

  HHOOK& Handle(int32_t type) { return handles[static_cast<size_t>(type - WH_MSGFILTER)]; }
};
thread_local ThreadHooks hooks;

// Runs the clients of `type` in table order until one consumes.
bool DispatchHook(int32_t type, int nCode, WPARAM wParam, LPARAM lParam) {
  // Only the clients there when the notification started are called, and each only while
  // it is still attached: one attached now (even into a freed place) waits for the next.
  const std::vector<HookClient> present = hooks.clients;
  for (size_t i = 0; i < present.size(); ++i) {
    HookClient entry = present[i];
    if (!entry.client || entry.type != type || i >= hooks.clients.size() ||
        hooks.clients[i].client != entry.client || hooks.clients[i].type != type) {
      continue;
    }
    bool consume = false;
    hooks.currentType = type;
    struct ClearType {
      ~ClearType() { hooks.currentType = 0; }
    } clearType;
    entry.client->HookProc(type, nCode, wParam, lParam, consume);
    if (consume) {
      return true;
    }
  }
  return false;
}

// The hook procedure of one type. `NextHandleType` is whose handle goes to CallNextHookEx;
// the system ignores it, and two types pass another type's handle.
template <int32_t Type, bool ConsumeStopsChain, int32_t NextHandleType = Type>
LRESULT HookProcedure(int nCode, WPARAM wParam, LPARAM lParam) {
  bool consumed = false;
  try {
    consumed = nCode >= 0 && DispatchHook(Type, nCode, wParam, lParam);
  } catch (...) {
    // A mouse hook knows the window the message is for; its control is told.
    HWND hwnd = 0;
    if (Type == WH_MOUSE && lParam)
      hwnd = reinterpret_cast<const MOUSEHOOKSTRUCT*>(lParam)->hwnd;
    ReportCurrentException(hwnd);
  }
  if (consumed && ConsumeStopsChain) {
    return 1;
  }
  return Platform::Current().CallNextHookEx(hooks.Handle(NextHandleType), nCode, wParam, lParam);
}

HOOKPROC ProcedureFor(int32_t type) {
  switch (type) {
  case WH_MSGFILTER:
    return HookProcedure<WH_MSGFILTER, true>;
  case WH_KEYBOARD:
    return HookProcedure<WH_KEYBOARD, true>;
  case WH_GETMESSAGE:
    return HookProcedure<WH_GETMESSAGE, false>;
  case WH_CALLWNDPROC:
    return HookProcedure<WH_CALLWNDPROC, true>;
  case WH_MOUSE:
    return HookProcedure<WH_MOUSE, true>;
  case WH_SHELL:
    return HookProcedure<WH_SHELL, false, WH_FOREGROUNDIDLE>;
  case WH_FOREGROUNDIDLE:
    return HookProcedure<WH_FOREGROUNDIDLE, false>;
  case WH_CALLWNDPROCRET:
    return HookProcedure<WH_CALLWNDPROCRET, false, WH_CALLWNDPROC>;
  default:
    return nullptr;
  }
}

// The system's own text for its last error, kept as it comes (line break included) since
// that is what the system reports, only cut to the buffer the message was read into.
std::string LastErrorText(Platform& platform) {
  return platform.FormatMessage(platform.GetLastError()).substr(0, MaxErrorTextLength);
}

} // namespace

bool InstallHook(IWindowsHook* client, int32_t eType) {
  if (eType < WH_MSGFILTER || eType > WH_MOUSE_LL) {
    RaiseRuntimeError(rtSubscriptOutOfRange);
  }
  HHOOK& handle = hooks.Handle(eType);
  if (handle == 0) {
    HOOKPROC procedure = ProcedureFor(eType);
    if (!procedure) {
      RaisePlumbingError(UnsupportedHookType, "cBrelHook", "Unsupported Hook Type.");
    }
    Platform& platform = Platform::Current();
    HHOOK installed = platform.SetWindowsHookEx(eType, procedure, 0, platform.GetCurrentThreadId());
    if (installed == 0) {
      RaisePlumbingError(UnsupportedHookType, "mHook", LastErrorText(platform));
    }
    handle = installed;
  }

  bool attached = false;
  HookClient* free = nullptr;
  for (HookClient& entry : hooks.clients) {
    attached = attached || (entry.client == client && entry.type == eType);
    if (!free && !entry.client) {
      free = &entry;
    }
  }
  if (!attached) {
    if (free) {
      *free = {client, eType};
    } else {
      hooks.clients.push_back({client, eType});
    }
  }
  DebugTrace("mWindowsHook: Number of attached: " + std::to_string(hooks.clients.size()));
  return true;
}

void RemoveHook(IWindowsHook* client, int32_t eType) {
  int remaining = 0;
  for (HookClient& entry : hooks.clients) {
    if (entry.client == client && entry.type == eType) {
      entry = {};
    } else if (entry.client && entry.type == eType) {
      ++remaining;
    }
  }
  if (eType < WH_MSGFILTER || eType > WH_MOUSE_LL) {
    RaiseRuntimeError(rtSubscriptOutOfRange); // no handle slot for it
  }
  HHOOK& handle = hooks.Handle(eType);
  if (remaining == 0 && handle != 0) {
    Platform::Current().UnhookWindowsHookEx(handle);
    handle = 0;
  }
}

int32_t CurrentHookType() {
  return hooks.currentType;
}

} // namespace tarnbrook
