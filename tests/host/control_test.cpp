#include <gtest/gtest.h>

#include "host/container.hpp"
#include "platform/memory/memory_platform.hpp"
#include "tests/host/test_support.hpp"

namespace tarnbrook {
namespace {

using Log = std::vector<std::string>;

class ControlTest : public ::testing::Test {
protected:
  ControlTest() {
    probe = &static_cast<ProbeControl&>(
        form.Add(std::make_unique<ProbeControl>(), "Probe1", 30, 40, 100, 50));
    probe->log.clear();
  }
  Point ScreenPoint(const Control& control, int32_t x, int32_t y) {
    return platform.ClientToScreen(control.hWnd(), {x, y});
  }

  MemoryPlatform platform;
  Container form;
  ProbeControl* probe;
};

TEST_F(ControlTest, AddPlacesInitialisesAndSizesTheControl) {
  ProbeControl& added = static_cast<ProbeControl&>(
      form.Add(std::make_unique<ProbeControl>(), "Probe3", 5, 6, 70, 20));
  EXPECT_EQ(added.log, (Log{"Resize 70x20", "InitProperties"}));
  EXPECT_EQ(added.Parent(), form.hWnd());
  EXPECT_TRUE(added.Visible());
  EXPECT_EQ(added.Height(), 20 * 15); // twips
  EXPECT_EQ(platform.ScreenToClient(form.hWnd(), ScreenPoint(added, 0, 0)), (Point{5, 6}));
  EXPECT_EQ(form.Find("probe3"), &added);

  EXPECT_EQ(
      Raised([&] { form.Add(std::make_unique<ProbeControl>(), "PROBE1", 0, 0, 9, 9); }).Number(),
      5);
}

TEST_F(ControlTest, PressesArriveInClientCoordinatesWithButtonsShiftAndDoubleClicks) {
  Point p = ScreenPoint(*probe, 3, 4);
  platform.MouseDown(VK_RBUTTON, p.x, p.y);
  platform.MouseUp(VK_RBUTTON, p.x, p.y);
  platform.DoubleClick(p.x, p.y); // the second press is a double click
  platform.KeyDown(VK_SHIFT);
  platform.KeyDown(VK_CONTROL);
  platform.MouseDown(VK_MBUTTON, p.x, p.y);
  EXPECT_EQ(platform.GetCapture(), probe->hWnd()); // held until the release
  platform.MouseUp(VK_MBUTTON, p.x, p.y);
  EXPECT_EQ(platform.GetCapture(), 0u);
  EXPECT_EQ(probe->log,
            (Log{"MouseMove 0 0 3,4", "GotFocus", "MouseDown 2 0 3,4", "MouseUp 2 0 3,4",
                 "MouseDown 1 0 3,4", "MouseUp 1 0 3,4", "DblClick", "MouseUp 1 0 3,4",
                 "KeyDown 16 1", "KeyDown 17 3", "MouseDown 4 3 3,4", "MouseUp 4 3 3,4"}));
}

TEST_F(ControlTest, TimersAndResize) {
  platform.SetTimer(probe->hWnd(), 7, 100);
  platform.Advance(250);
  probe->Move(0, 0, 40, 30);
  EXPECT_EQ(probe->log, (Log{"Timer 7", "Timer 7", "Resize 40x30"}));
}

TEST_F(ControlTest, SiteCarriesChangesAmbientsAndMessageBoxes) {
  probe->SetNumber(5);
  probe->SetNumber(6);
  EXPECT_EQ(form.ChangedKeys("Probe1"), (Log{"Number", "Number"}));
  form.SetUserMode(false);
  EXPECT_FALSE(probe->Site().UserMode());

  platform.QueueMessageBoxAnswer(IDNO);
  EXPECT_EQ(probe->Site().MessageBox("Continue?", "Probe", MB_YESNO), IDNO);
  ASSERT_EQ(platform.MessageBoxes().size(), 1u);
  EXPECT_EQ(platform.MessageBoxes()[0].owner, form.hWnd());
  EXPECT_EQ(platform.MessageBoxes()[0].text, "Continue?");

  ProbeControl loose; // outside any container: run mode, nobody listening
  loose.SetNumber(1);
  EXPECT_TRUE(loose.Site().UserMode());
}

} // namespace
} // namespace tarnbrook
