#include "winplumb/subclass.hpp"

#include <string>

#include "platform/escaped_error.hpp"
#include "winplumb/plumbing_error.hpp"

namespace tarnbrook {

namespace {

enum SubclassErrorCode : int32_t {
  CantSubclassWindow = 13081,
  MessageAlreadyHandled = 13082,
  InvalidWindow = 13083,
  ExternalWindow = 13084,
};

thread_local int32_t currentMessage = 0;
thread_local WNDPROC currentPreviousProc = nullptr;

[[noreturn]] void Raise(int32_t code, const std::string& description) {
  RaisePlumbingError(code, "WindowProc", description);
}

// The names of the window's properties that hold the subclassing state. Handles and
// messages are written as signed 32-bit decimals, as the system's handles are.
struct StoreNames {
  StoreNames(HWND hwnd, int32_t msg)
      : window(std::to_string(static_cast<int32_t>(static_cast<uint32_t>(hwnd)))),
        message(window + "#" + std::to_string(msg)) {}

  const std::string& PreviousProc() const { return window; }
  std::string WindowCount() const { return "C" + window; }
  std::string MessageCount() const { return message + "C"; }
  std::string Entry(intptr_t i) const { return message + "#" + std::to_string(i); }

  std::string window;
  std::string message;
};

intptr_t Identity(ISubclass* client) {
  return reinterpret_cast<intptr_t>(client);
}

} // namespace

void AttachMessage(ISubclass* client, HWND hwnd, int32_t iMsg) {
  Platform& platform = Platform::Current();
  if (!platform.IsWindow(hwnd)) {
    Raise(InvalidWindow, "Invalid window");
  }
  uint32_t processId = 0;
  platform.GetWindowThreadProcessId(hwnd, &processId);
  if (processId != platform.GetCurrentProcessId()) {
    Raise(ExternalWindow, "Can't modify external window");
  }

  const StoreNames names(hwnd, iMsg);
  // The window count goes up before the duplicate check below and stays up when it fails.
  intptr_t windowCount = platform.GetProp(hwnd, names.WindowCount());
  if (windowCount != 0) {
    platform.SetProp(hwnd, names.WindowCount(), windowCount + 1);
  } else {
    LONG_PTR previous =
        platform.SetWindowLong(hwnd, GWL_WNDPROC, reinterpret_cast<LONG_PTR>(&SubclassDispatcher));
    if (previous == 0) {
      Raise(CantSubclassWindow, "Can't subclass window");
    }
    platform.SetProp(hwnd, names.PreviousProc(), previous);
    platform.SetProp(hwnd, names.WindowCount(), 1);
  }

  intptr_t count = platform.GetProp(hwnd, names.MessageCount());
  for (intptr_t i = 1; i <= count; ++i) {
    if (platform.GetProp(hwnd, names.Entry(i)) == Identity(client)) {
      Raise(MessageAlreadyHandled, "Message already handled by another class");
    }
  }
  ++count;
  platform.SetProp(hwnd, names.MessageCount(), count);
  platform.SetProp(hwnd, names.Entry(count), Identity(client));
}

void DetachMessage(ISubclass* client, HWND hwnd, int32_t iMsg) {
  Platform& platform = Platform::Current();
  const StoreNames names(hwnd, iMsg);

  // The window-level count comes down whether or not this client was attached.
  intptr_t windowCount = platform.GetProp(hwnd, names.WindowCount());
  if (windowCount == 1) {
    platform.SetWindowLong(hwnd, GWL_WNDPROC, platform.GetProp(hwnd, names.PreviousProc()));
    platform.RemoveProp(hwnd, names.PreviousProc());
    platform.RemoveProp(hwnd, names.WindowCount());
  } else {
    platform.SetProp(hwnd, names.WindowCount(), windowCount - 1);
  }

  intptr_t count = platform.GetProp(hwnd, names.MessageCount());
  if (count < 1) {
    return;
  }
  intptr_t position = 0;
  for (intptr_t i = 1; i <= count && position == 0; ++i) {
    if (platform.GetProp(hwnd, names.Entry(i)) == Identity(client)) {
      position = i;
    }
  }
  if (position != 0) {
    for (intptr_t i = position + 1; i <= count; ++i) {
      platform.SetProp(hwnd, names.Entry(i - 1), platform.GetProp(hwnd, names.Entry(i)));
    }
  }
  // The last entry goes even when the client was not found.
  platform.RemoveProp(hwnd, names.Entry(count));
  // A count of 0 reads the same as no property, so none is left behind.
  if (count == 1) {
    platform.RemoveProp(hwnd, names.MessageCount());
  } else {
    platform.SetProp(hwnd, names.MessageCount(), count - 1);
  }
}

LRESULT SubclassDispatcher(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) try {
  Platform& platform = Platform::Current();
  const int32_t message = static_cast<int32_t>(msg);
  const StoreNames names(hwnd, message);
  auto previous = reinterpret_cast<WNDPROC>(platform.GetProp(hwnd, names.PreviousProc()));
  const intptr_t count = platform.GetProp(hwnd, names.MessageCount());
  auto callPrevious = [&] { return platform.CallWindowProc(previous, hwnd, msg, wParam, lParam); };
  if (count <= 0) {
    return callPrevious();
  }

  bool previousCalled = false;
  LRESULT result = 0;
  for (intptr_t i = 1; i <= count; ++i) {
    auto* client = reinterpret_cast<ISubclass*>(platform.GetProp(hwnd, names.Entry(i)));
    if (!client) {
      result = callPrevious();
      continue;
    }
    currentMessage = message;
    currentPreviousProc = previous;
    // Only the first client can pre-process and only the last can post-process.
    if (i == 1 && client->MsgResponse() == emrPreprocess && !previousCalled) {
      callPrevious();
      previousCalled = true;
    }
    // A client may detach, and be freed, in its own handler: it is asked for its response
    // afterwards only while it is still attached here, else its answer from before stands.
    EMsgResponse response = client->MsgResponse();
    result = client->WindowProc(hwnd, message, wParam, lParam);
    if (platform.GetProp(hwnd, names.Entry(i)) == Identity(client))
      response = client->MsgResponse();
    if (i == count && response == emrPostProcess && !previousCalled) {
      result = callPrevious();
      previousCalled = true;
    }
  }
  return result;
} catch (...) {
  ReportCurrentException(hwnd);
  return 0;
}

int32_t CurrentMessage() {
  return currentMessage;
}

WNDPROC CurrentPreviousProc() {
  return currentPreviousProc;
}

} // namespace tarnbrook
