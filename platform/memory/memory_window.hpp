#pragma once
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "draw/canvas.hpp"
#include "platform/platform.hpp"

namespace tarnbrook {

// Last-error codes the simulator sets.
constexpr uint32_t ErrorAccessDenied = 5;
constexpr uint32_t ErrorInvalidWindowHandle = 1400;
constexpr uint32_t ErrorInvalidHookHandle = 1404;
constexpr uint32_t ErrorInvalidHookFilter = 1426;
constexpr uint32_t ErrorInvalidFilterProc = 1427;

// Property names are atoms on the real system, matched without regard to case.
struct PropNameLess {
  bool operator()(const std::string& a, const std::string& b) const;
};

// One window of the simulator. Positions are relative to the parent's client area.
struct MemoryWindow {
  HWND handle = 0;
  HWND parent = 0;            // 0 only for the desktop
  std::vector<HWND> children; // bottom of the z-order first
  std::string title;
  uint32_t style = 0;
  uint32_t exStyle = 0;
  LONG_PTR userData = 0;
  WNDPROC proc = nullptr;
  Rect rect;            // the window rectangle in the parent's client coordinates
  bool caption = false; // a title bar above the client area
  uint32_t processId = 0;
  uint32_t threadId = 0;
  bool invalid = false; // a WM_PAINT is due
  bool painted = false; // its drawing context was handed out since a backend last looked
  std::map<std::string, intptr_t, PropNameLess> props;
  std::unique_ptr<Canvas> canvas; // the client area's pixels
};

} // namespace tarnbrook
