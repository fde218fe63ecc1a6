#pragma once
#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "platform/memory/memory_platform.hpp"
#include "tests/support/raised.hpp"

namespace tarnbrook {

// The simulator, able to refuse window-procedure changes as a system short of resources does.
struct PlumbingPlatform : MemoryPlatform {
  bool refuseProcedures = false;
  LONG_PTR SetWindowLong(HWND hwnd, int index, LONG_PTR value) override {
    bool refuse = refuseProcedures && index == GWL_WNDPROC;
    return refuse ? 0 : MemoryPlatform::SetWindowLong(hwnd, index, value);
  }
};

// What the test windows and clients did, in order.
inline std::string trail;

// Paints itself in one colour, on screen and into a supplied context; notes WM_USER and button
// presses with its name; answers 7.
template <char Name, COLORREF Color = 0xC0C0C0>
LRESULT TestProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM) {
  if (msg == WM_PAINT || msg == WM_PRINTCLIENT) {
    HDC dc = msg == WM_PAINT ? Platform::Current().GetDC(hwnd) : static_cast<HDC>(wParam);
    Canvas::FromHandle(dc)->FillRect({0, 0, 1024, 768}, Color);
  } else if (msg == WM_USER || msg == WM_LBUTTONDOWN || msg == WM_RBUTTONDOWN ||
             msg == WM_NCLBUTTONDOWN) {
    trail += Name + std::to_string(msg) + ";";
  }
  return 7;
}

// The error an action raises as "number Source: description", the number in hex.
inline std::string ErrorText(const std::function<void()>& action) {
  ControlError error = Raised(action);
  char number[16];
  std::snprintf(number, sizeof number, "%X", static_cast<uint32_t>(error.Number()));
  return number + (" " + error.Source() + ": " + error.Description());
}

class WinplumbTest : public ::testing::Test {
protected:
  WinplumbTest() { trail.clear(); }
  HWND Window(int32_t x, int32_t y, int32_t width, int32_t height, HWND parent = 0,
              const std::string& title = "", WNDPROC proc = TestProc<'P'>) {
    return p.CreateWindowEx(0, title, WS_VISIBLE | (parent ? WS_CHILD : 0u), x, y, width, height,
                            parent, proc);
  }
  PlumbingPlatform p;
};

} // namespace tarnbrook
