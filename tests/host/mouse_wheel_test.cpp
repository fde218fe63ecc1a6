#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "host/combo_box.hpp"
#include "host/container.hpp"
#include "platform/memory/memory_platform.hpp"
#include "tests/host/test_support.hpp"

namespace tarnbrook {
namespace {

// Logs the notches it is given, and uses them only when told to.
class WheelProbe : public ProbeControl {
public:
  using ProbeControl::ProbeControl;
  bool takes = false;

protected:
  bool OnMouseWheel(int32_t notches, int16_t) override {
    log.push_back("Wheel " + std::to_string(notches));
    return takes;
  }
};

// The wheel turns what is under the pointer, in whole notches (a fine wheel's parts add up);
// what a control does not use goes on to its parent, as a page scrolls past a field.
TEST(MouseWheelTest, NotchesReachWhatIsUnderThePointerAndWhatItIgnoresGoesToItsParent) {
  MemoryPlatform platform;
  Container form;
  auto& outer =
      static_cast<WheelProbe&>(form.Add(std::make_unique<WheelProbe>(), "Outer", 10, 10, 200, 100));
  outer.takes = true;
  WheelProbe inner(outer.hWnd());
  platform.MoveWindow(inner.hWnd(), 20, 20, 60, 30, true);
  const Point onInner = platform.ClientToScreen(inner.hWnd(), {5, 5});

  platform.MouseWheel(WHEEL_DELTA, onInner.x, onInner.y);
  EXPECT_EQ(inner.log.back(), "Wheel 1");
  EXPECT_EQ(outer.log.back(), "Wheel 1");

  inner.takes = true;
  outer.log.clear();
  platform.MouseWheel(-2 * WHEEL_DELTA, onInner.x, onInner.y);
  platform.MouseWheel(WHEEL_DELTA / 2, onInner.x, onInner.y);
  EXPECT_EQ(inner.log.back(), "Wheel -2");
  platform.MouseWheel(WHEEL_DELTA / 2, onInner.x, onInner.y);
  EXPECT_EQ(inner.log.back(), "Wheel 1");
  EXPECT_TRUE(outer.log.empty());
}

// An open list scrolls three rows a notch, and stays open.
TEST(MouseWheelTest, ADroppedListScrollsUnderTheWheel) {
  MemoryPlatform platform;
  Container form;
  auto& combo =
      static_cast<ComboBox&>(form.Add(std::make_unique<ComboBox>(), "cbo", 20, 30, 120, 21));
  for (const char* month : {"January", "February", "March", "April", "May", "June", "July",
                            "August", "September", "October", "November", "December"})
    combo.AddItem(month);
  combo.ShowDropDown(true);
  const Point firstRow =
      platform.ClientToScreen(combo.hWnd(), {40, combo.FieldHeight() + 1 + combo.ItemHeight() / 2});
  platform.MouseWheel(-WHEEL_DELTA, firstRow.x, firstRow.y);
  platform.MouseWheel(-WHEEL_DELTA, firstRow.x, firstRow.y); // only four can scroll into view
  platform.MouseWheel(WHEEL_DELTA, firstRow.x, firstRow.y);
  EXPECT_TRUE(combo.DroppedDown());
  platform.Click(firstRow.x, firstRow.y);
  EXPECT_EQ(combo.Text(), "February");
}

} // namespace
} // namespace tarnbrook
