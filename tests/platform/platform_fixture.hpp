#pragma once
#include <gtest/gtest.h>

#include <initializer_list>
#include <tuple>
#include <vector>

#include "platform/memory/memory_platform.hpp"

namespace tarnbrook {

// A message as a window received it, with the virtual clock at that moment.
struct Received {
  HWND hwnd;
  UINT msg;
  WPARAM wParam;
  LPARAM lParam;
  uint32_t tick;
};

inline std::vector<Received> received;

inline LRESULT RecordingProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) {
  received.push_back({hwnd, msg, wParam, lParam, Platform::Current().GetTickCount()});
  return 0;
}

class PlatformTest : public ::testing::Test {
protected:
  PlatformTest() { received.clear(); }

  HWND Window(int32_t x, int32_t y, int32_t width, int32_t height, HWND parent = 0,
              const std::string& title = "", WNDPROC proc = RecordingProc) {
    uint32_t style = WS_VISIBLE | (parent ? WS_CHILD : 0u);
    return p.CreateWindowEx(0, title, style, x, y, width, height, parent, proc);
  }

  // The received messages among `kinds`, in order, forgetting those seen so far.
  std::vector<Received> Take(std::initializer_list<UINT> kinds) {
    std::vector<Received> taken;
    for (const Received& r : received) {
      for (UINT kind : kinds) {
        if (r.msg == kind) {
          taken.push_back(r);
        }
      }
    }
    received.clear();
    return taken;
  }
  // The same, as (window, message, wParam).
  using Seen = std::tuple<HWND, UINT, WPARAM>;
  std::vector<Seen> TakeSeen(std::initializer_list<UINT> kinds) {
    std::vector<Seen> seen;
    for (const Received& r : Take(kinds)) {
      seen.emplace_back(r.hwnd, r.msg, r.wParam);
    }
    return seen;
  }

  MemoryPlatform p;
};

} // namespace tarnbrook
