#include <gtest/gtest.h>

#include <algorithm>

#include "common/control_error.hpp"
#include "host/container.hpp"
#include "platform/memory/memory_platform.hpp"
#include "tests/host/probe_control.hpp"

namespace tarnbrook {
namespace {

using Log = std::vector<std::string>;

class ControlTest : public ::testing::Test {
protected:
  ControlTest() {
    probe = &static_cast<ProbeControl&>(
        form.Add(std::make_unique<ProbeControl>(), "Probe1", 30, 40, 100, 50));
    other = &static_cast<ProbeControl&>(
        form.Add(std::make_unique<ProbeControl>(), "Probe2", 200, 40, 60, 30));
    probe->log.clear();
    other->log.clear();
  }
  Point ScreenPoint(const Control& control, int32_t x, int32_t y) {
    return platform.ClientToScreen(control.hWnd(), {x, y});
  }

  MemoryPlatform platform;
  Container form;
  ProbeControl* probe;
  ProbeControl* other;
};

TEST_F(ControlTest, AddPlacesInitialisesAndSizesTheControl) {
  ProbeControl& added = static_cast<ProbeControl&>(
      form.Add(std::make_unique<ProbeControl>(), "Probe3", 5, 6, 70, 20));
  EXPECT_EQ(added.log, (Log{"Resize 70x20", "InitProperties"}));
  EXPECT_EQ(added.Parent(), form.hWnd());
  EXPECT_TRUE(added.Visible());
  EXPECT_EQ(added.ScaleWidth(), 70);
  EXPECT_EQ(added.Width(), 70 * 15);
  EXPECT_EQ(added.Height(), 20 * 15);
  EXPECT_EQ(platform.ScreenToClient(form.hWnd(), ScreenPoint(added, 0, 0)), (Point{5, 6}));
  EXPECT_EQ(form.Find("probe3"), &added);

  try {
    form.Add(std::make_unique<ProbeControl>(), "PROBE1", 0, 0, 10, 10);
    FAIL() << "a second control took the name Probe1";
  } catch (const ControlError& error) {
    EXPECT_EQ(error.Number(), 5);
  }
}

TEST_F(ControlTest, ClickReachesTheControlInClientCoordinatesAndFocusesIt) {
  Point p = ScreenPoint(*probe, 12, 7);
  platform.Click(p.x, p.y);
  EXPECT_EQ(probe->log,
            (Log{"MouseMove 0 0 12,7", "GotFocus", "MouseDown 1 0 12,7", "MouseUp 1 0 12,7"}));
  EXPECT_EQ(platform.GetFocus(), probe->hWnd());
  EXPECT_EQ(platform.GetCapture(), 0u);

  Point q = ScreenPoint(*other, 1, 2);
  platform.Click(q.x, q.y);
  EXPECT_EQ(probe->log.back(), "LostFocus");
  EXPECT_EQ(other->log[1], "GotFocus");
}

TEST_F(ControlTest, DragIsFollowedOutsideTheWindowUntilRelease) {
  Point start = ScreenPoint(*probe, 10, 10);
  platform.MouseDown(VK_LBUTTON, start.x, start.y);
  EXPECT_EQ(platform.GetCapture(), probe->hWnd());
  platform.MouseMove(start.x + 200, start.y - 30); // over the other control
  platform.MouseUp(VK_LBUTTON, start.x + 200, start.y - 30);
  EXPECT_EQ(probe->log, (Log{"MouseMove 0 0 10,10", "GotFocus", "MouseDown 1 0 10,10",
                             "MouseMove 1 0 210,-20", "MouseUp 1 0 210,-20"}));
  EXPECT_TRUE(other->log.empty());
  EXPECT_EQ(platform.GetCapture(), 0u);
}

TEST_F(ControlTest, ButtonsAndShiftStateAreReported) {
  Point p = ScreenPoint(*probe, 3, 4);
  platform.MouseDown(VK_RBUTTON, p.x, p.y);
  platform.MouseUp(VK_RBUTTON, p.x, p.y);
  platform.KeyDown(VK_SHIFT);
  platform.KeyDown(VK_CONTROL);
  platform.MouseDown(VK_MBUTTON, p.x, p.y);
  platform.MouseUp(VK_MBUTTON, p.x, p.y);
  EXPECT_EQ(probe->log,
            (Log{"MouseMove 0 0 3,4", "GotFocus", "MouseDown 2 0 3,4", "MouseUp 2 0 3,4",
                 "KeyDown 16 1", "KeyDown 17 3", "MouseDown 4 3 3,4", "MouseUp 4 3 3,4"}));
}

TEST_F(ControlTest, DoubleClickRaisesDblClickForTheSecondPress) {
  Point p = ScreenPoint(*probe, 8, 8);
  platform.DoubleClick(p.x, p.y);
  EXPECT_EQ(probe->log, (Log{"MouseMove 0 0 8,8", "GotFocus", "MouseDown 1 0 8,8",
                             "MouseUp 1 0 8,8", "DblClick", "MouseUp 1 0 8,8"}));
}

TEST_F(ControlTest, TypingReachesTheFocusedControl) {
  probe->SetFocus();
  platform.TypeChar('a');
  platform.Key(VK_LEFT, MemoryPlatform::ShiftKey);
  std::vector<std::string> typed(probe->log.begin() + 1, probe->log.end());
  EXPECT_EQ(typed[0], "KeyDown 65 0");
  EXPECT_EQ(typed[1], "KeyPress a");
  EXPECT_EQ(typed[2], "KeyUp 65 0");
  EXPECT_NE(std::find(typed.begin(), typed.end(), "KeyDown 37 1"), typed.end());
  EXPECT_TRUE(other->log.empty());
}

TEST_F(ControlTest, TimersResizeAndEnabledState) {
  platform.SetTimer(probe->hWnd(), 7, 100);
  platform.Advance(250);
  probe->Move(0, 0, 40, 30);
  EXPECT_EQ(probe->log, (Log{"Timer 7", "Timer 7", "Resize 40x30"}));

  probe->SetEnabled(false);
  EXPECT_FALSE(probe->Enabled());
  probe->SetVisible(false);
  EXPECT_FALSE(probe->Visible());
}

TEST_F(ControlTest, PaintCopiesTheSurfaceToTheScreen) {
  probe->color = 0x00FF00;
  probe->Refresh();
  Point inside = ScreenPoint(*probe, 50, 25);
  EXPECT_EQ(platform.ComposeScreen()->GetPixel(inside.x, inside.y), 0x00FF00u);
  Point corner = ScreenPoint(*probe, 99, 49);
  EXPECT_EQ(platform.ComposeScreen()->GetPixel(corner.x, corner.y), 0x00FF00u);
}

TEST_F(ControlTest, SiteCarriesChangesAmbientsAndMessageBoxes) {
  probe->SetNumber(5);
  probe->SetNumber(6);
  EXPECT_EQ(form.ChangedKeys("Probe1"), (Log{"Number", "Number"}));
  EXPECT_TRUE(form.ChangedKeys("Probe2").empty());
  form.ClearChangedKeys();
  EXPECT_TRUE(form.ChangedKeys("Probe1").empty());

  EXPECT_TRUE(probe->Site().UserMode());
  form.SetUserMode(false);
  EXPECT_FALSE(probe->Site().UserMode());
  EXPECT_EQ(probe->Site().TwipsPerPixelX(), 15);

  platform.QueueMessageBoxAnswer(IDNO);
  EXPECT_EQ(probe->Site().MessageBox("Continue?", "Probe", MB_YESNO), IDNO);
  ASSERT_EQ(platform.MessageBoxes().size(), 1u);
  EXPECT_EQ(platform.MessageBoxes()[0].owner, form.hWnd());
  EXPECT_EQ(platform.MessageBoxes()[0].text, "Continue?");

  ProbeControl loose; // outside any container: run mode, nobody listening
  loose.SetNumber(1);
  EXPECT_TRUE(loose.Site().UserMode());
  EXPECT_FALSE(loose.Visible());
}

} // namespace
} // namespace tarnbrook
