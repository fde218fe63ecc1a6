#pragma once
#include <gtest/gtest.h>

#include <string>

#include "common/control_error.hpp"
#include "platform/memory/memory_platform.hpp"

namespace tarnbrook {

// The simulator, able to refuse window-procedure changes as a system short of resources does.
class PlumbingPlatform : public MemoryPlatform {
public:
  bool refuseProcedures = false;
  LONG_PTR SetWindowLong(HWND hwnd, int index, LONG_PTR value) override {
    return refuseProcedures && index == GWL_WNDPROC
               ? 0
               : MemoryPlatform::SetWindowLong(hwnd, index, value);
  }
};

// What the test windows and clients did, in order.
inline std::string trail;

// A window procedure that notes button presses and answers 7.
inline LRESULT NotingProc(HWND, UINT msg, WPARAM, LPARAM) {
  if (msg == WM_LBUTTONDOWN || msg == WM_NCLBUTTONDOWN || msg == WM_USER) {
    trail += "P" + std::to_string(msg) + ";";
  }
  return 7;
}

#define EXPECT_PLUMBING_ERROR(statement, number, source, description)                              \
  try {                                                                                            \
    statement;                                                                                     \
    ADD_FAILURE() << "no error from " #statement;                                                  \
  } catch (const ControlError& e) {                                                                \
    EXPECT_EQ(e.Number(), static_cast<int32_t>(number));                                           \
    EXPECT_EQ(e.Source(), source);                                                                 \
    EXPECT_EQ(e.Description(), description);                                                       \
  }

class WinplumbTest : public ::testing::Test {
protected:
  WinplumbTest() { trail.clear(); }
  HWND Window(int32_t x, int32_t y, int32_t width, int32_t height, HWND parent = 0,
              const std::string& title = "", WNDPROC proc = NotingProc) {
    return p.CreateWindowEx(0, title, WS_VISIBLE | (parent ? WS_CHILD : 0u), x, y, width, height,
                            parent, proc);
  }
  PlumbingPlatform p;
};

} // namespace tarnbrook
