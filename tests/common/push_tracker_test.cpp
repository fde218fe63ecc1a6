#include <gtest/gtest.h>

#include "common/push_tracker.hpp"

namespace tarnbrook {
namespace {

// Pushed only while held and on the button; pressed only by a release on it.
TEST(PushTracker, PushedWhileHeldOnTheButtonAndPressedByAReleaseThere) {
  PushTracker button;
  EXPECT_FALSE(button.Move(true)); // not held: the pointer passing over changes nothing
  EXPECT_TRUE(button.Press(true));
  EXPECT_TRUE(button.Pushed());
  EXPECT_TRUE(button.Move(false)); // slid off: raised again
  EXPECT_FALSE(button.Move(false));
  EXPECT_FALSE(button.Release(false));
  EXPECT_FALSE(button.Held() || button.Pushed());

  button.Press(true);
  button.Move(false);
  button.Move(true); // back on it before letting go
  EXPECT_TRUE(button.Release(true));
  button.Press(true);
  button.Cancel();
  EXPECT_FALSE(button.Release(true)); // a cancelled press presses nothing
}

} // namespace
} // namespace tarnbrook
