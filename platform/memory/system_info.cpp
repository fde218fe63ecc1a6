#include <map>

#include "platform/memory/memory_platform.hpp"

namespace tarnbrook {

bool MemoryPlatform::SystemParametersInfo(UINT action, Rect* workArea) {
  if (failSystemParameters_ || action != SPI_GETWORKAREA || !workArea) {
    return false;
  }
  *workArea = workArea_;
  return true;
}

int32_t MemoryPlatform::GetSystemMetrics(int index) {
  const Rect& screen = Find(desktop_)->rect;
  switch (index) {
  case SM_CXSCREEN:
    return screen.Width();
  case SM_CYSCREEN:
    return screen.Height();
  case SM_CXDOUBLECLK:
  case SM_CYDOUBLECLK:
    return 4;
  default:
    return 0;
  }
}

int32_t MemoryPlatform::GetDeviceCaps(HDC, int index) {
  return index == LOGPIXELSX || index == LOGPIXELSY ? 96 : 0;
}

void MemoryPlatform::MessageBeep(UINT) {
  ++beeps_;
}

// Answers with the next queued answer, IDOK when none is queued.
int MemoryPlatform::MessageBox(HWND owner, const std::string& text, const std::string& caption,
                               UINT type) {
  messageBoxes_.push_back({owner, text, caption, type});
  if (messageBoxAnswers_.empty()) {
    return IDOK;
  }
  int answer = messageBoxAnswers_.front();
  messageBoxAnswers_.pop_front();
  return answer;
}

// The system's texts for the codes the simulator can produce; empty for others.
std::string MemoryPlatform::FormatMessage(uint32_t errorCode) {
  static const std::map<uint32_t, std::string> texts = {
      {0, "The operation completed successfully.\r\n"},
      {5, "Access is denied.\r\n"},
      {6, "The handle is invalid.\r\n"},
      {8, "Not enough memory resources are available to process this command.\r\n"},
      {87, "The parameter is incorrect.\r\n"},
      {1400, "Invalid window handle.\r\n"},
      {1404, "Invalid hook handle.\r\n"},
      {1426, "Invalid hook procedure type.\r\n"},
      {1427, "Invalid hook procedure.\r\n"},
      {1428, "Cannot set nonlocal hook without a module handle.\r\n"},
  };
  auto it = texts.find(errorCode);
  return it == texts.end() ? std::string() : it->second;
}

} // namespace tarnbrook
