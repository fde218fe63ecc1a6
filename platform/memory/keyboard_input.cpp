#include <iterator>
#include <utility>

#include "platform/memory/key_map.hpp"
#include "platform/memory/memory_platform.hpp"

namespace tarnbrook {

namespace {

// lParam of key messages: a repeat count of 1, bit 30 the previous state, bit 31 release.
constexpr LPARAM RepeatBit = 0x40000000;
constexpr LPARAM KeyDownParam = 1;
constexpr LPARAM KeyUpParam = 0xC0000001;

} // namespace

// Key messages go to the focused window; the key state changes even when none has it.
void MemoryPlatform::InjectKey(UINT message, int virtualKey) {
  bool wasDown = keysDown_[virtualKey];
  keysDown_[virtualKey] = message == WM_KEYDOWN;
  if (focus_) {
    LPARAM lParam = message == WM_KEYUP ? KeyUpParam : KeyDownParam | (wasDown ? RepeatBit : 0);
    queue_.push_back(
        {{focus_, message, static_cast<WPARAM>(virtualKey), lParam, GetTickCount(), cursorPos_},
         true});
  }
  PumpMessages();
}

void MemoryPlatform::KeyDown(int virtualKey) {
  InjectKey(WM_KEYDOWN, virtualKey);
}

void MemoryPlatform::KeyUp(int virtualKey) {
  InjectKey(WM_KEYUP, virtualKey);
}

void MemoryPlatform::Key(int virtualKey, int shift) {
  constexpr std::pair<int, int> Modifiers[] = {
      {ShiftKey, VK_SHIFT}, {CtrlKey, VK_CONTROL}, {AltKey, VK_MENU}};
  for (auto [mask, key] : Modifiers) {
    if (shift & mask) {
      KeyDown(key);
    }
  }
  KeyDown(virtualKey);
  KeyUp(virtualKey);
  for (auto it = std::rbegin(Modifiers); it != std::rend(Modifiers); ++it) {
    if (shift & it->first) {
      KeyUp(it->second);
    }
  }
}

// A character no key types arrives as a bare WM_CHAR.
void MemoryPlatform::TypeChar(char ch) {
  KeyStroke stroke;
  if (!KeyForChar(ch, stroke)) {
    if (focus_) {
      PostMessage(focus_, WM_CHAR, static_cast<unsigned char>(ch), KeyDownParam);
    }
    PumpMessages();
    return;
  }
  bool pressShift = stroke.shift && !keysDown_[VK_SHIFT];
  if (pressShift) {
    KeyDown(VK_SHIFT);
  }
  KeyDown(stroke.virtualKey);
  KeyUp(stroke.virtualKey);
  if (pressShift) {
    KeyUp(VK_SHIFT);
  }
}

void MemoryPlatform::Type(const std::string& text) {
  for (char ch : text) {
    TypeChar(ch);
  }
}

} // namespace tarnbrook
