#pragma once
#include <cstdint>

#include "platform/platform.hpp"

namespace tarnbrook {

// A client of the thread's hooks.
class IWindowsHook {
public:
  virtual ~IWindowsHook() = default;
  // Fired whenever a Hook receives a notification. Set bConsume to True if you wish to stop
  // the notification from reaching your app.
  virtual void HookProc(int32_t /*eType*/, int32_t /*nCode*/, WPARAM /*wParam*/, LPARAM /*lParam*/,
                        bool& /*bConsume*/) {}
};

// Attaches `client` to hook type `eType` (a WH_ number), installing the thread hook on first
// use. Raises 9 for a type outside -1..14 and ObjectError(1049) for an unsupported type or
// a hook the system refuses.
bool InstallHook(IWindowsHook* client, int32_t eType);
// Detaches it; the hook goes when its last client does. Raises 9 for a type outside -1..14.
void RemoveHook(IWindowsHook* client, int32_t eType);

// The type whose notification a client's HookProc is handling now; 0 outside HookProc.
int32_t CurrentHookType();

} // namespace tarnbrook
