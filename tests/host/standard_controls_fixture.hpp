#pragma once
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "common/ole_color.hpp"
#include "host/check_box.hpp"
#include "host/container.hpp"
#include "host/label.hpp"
#include "host/text_box.hpp"
#include "platform/memory/memory_platform.hpp"
#include "tests/support/hand.hpp"
#include "tests/support/raised.hpp"

namespace tarnbrook {

using Log = std::vector<std::string>;

// Logs the events of the standard controls by name; Validate answers `refuse`.
class StandardEventLog : public TextBoxEvents, public CheckBoxEvents {
public:
  explicit StandardEventLog(std::string name = "") : name_(std::move(name)) {}
  Log* shared = nullptr; // logs into another log when set
  bool refuse = false;
  int changes = 0;

  Log Take() { return std::exchange(own_, {}); }

  void Change() override {
    ++changes;
    Add("Change");
  }
  void Validate(bool& cancel) override {
    Add("Validate");
    cancel = refuse;
  }
  void GotFocus() override { Add("GotFocus"); }
  void LostFocus() override { Add("LostFocus"); }
  void Click() override { Add("Click"); }

private:
  void Add(const std::string& what) {
    (shared ? *shared : own_).push_back(name_.empty() ? what : name_ + "." + what);
  }
  std::string name_;
  Log own_;
};

// A form of the simulator with helpers that press, drag and read pixels in a control's
// client coordinates.
class StandardControlsTest : public ::testing::Test {
protected:
  template <class C>
  C& Add(const std::string& name, int32_t left, int32_t top, int32_t width, int32_t height) {
    return static_cast<C&>(form.Add(std::make_unique<C>(), name, left, top, width, height));
  }

  void Drag(const Control& control, int32_t fromX, int32_t toX, int y, int shift = 0) {
    if (shift)
      platform.KeyDown(VK_SHIFT);
    Point from = hand.At(control, fromX, y), to = hand.At(control, toX, y);
    platform.MouseDown(VK_LBUTTON, from.x, from.y);
    platform.MouseMove(to.x, to.y);
    platform.MouseUp(VK_LBUTTON, to.x, to.y);
    if (shift)
      platform.KeyUp(VK_SHIFT);
  }

  COLORREF Pixel(const Control& control, int32_t x, int32_t y) {
    return platform.WindowCanvas(control.hWnd())->GetPixel(x, y);
  }
  // The smallest rectangle around the pixels of `control` inside `within` that differ from
  // `background`.
  Rect Ink(const Control& control, COLORREF background, Rect within) {
    const Canvas& canvas = *platform.WindowCanvas(control.hWnd());
    Rect ink{within.right, within.bottom, within.left, within.top};
    for (int32_t y = within.top; y < within.bottom; ++y)
      for (int32_t x = within.left; x < within.right; ++x)
        if (canvas.GetPixel(x, y) != background) {
          ink = {std::min(ink.left, x), std::min(ink.top, y), std::max(ink.right, x + 1),
                 std::max(ink.bottom, y + 1)};
        }
    return ink;
  }
  // How many pixels of the control (inside `within` when given) show `color`.
  int Count(const Control& control, COLORREF color, Rect within = {0, 0, INT32_MAX, INT32_MAX}) {
    const Canvas& canvas = *platform.WindowCanvas(control.hWnd());
    int count = 0;
    for (int32_t y = within.top; y < std::min(within.bottom, canvas.Height()); ++y)
      for (int32_t x = within.left; x < std::min(within.right, canvas.Width()); ++x)
        count += canvas.GetPixel(x, y) == color;
    return count;
  }
  bool HasFocus(const Control& control) { return platform.GetFocus() == control.hWnd(); }

  static COLORREF Sys(int index) { return static_cast<COLORREF>(GetSysColor(index)); }

  MemoryPlatform platform;
  Hand hand{platform};
  Container form;
};

} // namespace tarnbrook
