#include "common/conversions.hpp"
#include "platform/timer.hpp"
#include "platform_fixture.hpp"

namespace tarnbrook {
namespace {

int procTicks = 0;

// Kills itself on its second tick.
void SelfKillingProc(HWND, UINT, uintptr_t id, uint32_t) {
  if (++procTicks == 2) {
    Platform::Current().KillTimer(0, id);
  }
}

using TimerTest = PlatformTest;

TEST_F(TimerTest, WindowTimerFiresExactlyEveryInterval) {
  HWND form = Window(0, 0, 50, 50);
  EXPECT_EQ(p.SetTimer(form, 7, 100), 7u);
  p.Advance(99);
  EXPECT_TRUE(Take({WM_TIMER}).empty());
  p.Advance(1);
  p.Advance(250);
  auto ticks = Take({WM_TIMER});
  ASSERT_EQ(ticks.size(), 3u);
  EXPECT_EQ(ticks[0].tick, 100u);
  EXPECT_EQ(ticks[1].tick, 200u);
  EXPECT_EQ(ticks[2].tick, 300u);
  EXPECT_EQ(ticks[2].wParam, 7u);
  EXPECT_EQ(p.GetTickCount(), 350u);

  EXPECT_TRUE(p.KillTimer(form, 7));
  p.Advance(1000);
  EXPECT_TRUE(Take({WM_TIMER}).empty());
}

TEST_F(TimerTest, TimersInterleaveInTimeOrderAndMayKillThemselves) {
  HWND fast = Window(0, 0, 50, 50);
  HWND slow = Window(0, 0, 50, 50);
  p.SetTimer(slow, 1, 250);
  p.SetTimer(fast, 1, 100);
  procTicks = 0;
  uintptr_t id = p.SetTimer(0, 0, 30, SelfKillingProc);
  EXPECT_NE(id, 0u);
  p.Advance(500);
  EXPECT_EQ(procTicks, 2);
  std::vector<HWND> order;
  for (const Received& r : Take({WM_TIMER})) {
    order.push_back(r.hwnd);
  }
  EXPECT_EQ(order, (std::vector<HWND>{fast, fast, slow, fast, fast, slow, fast}));
}

TEST_F(TimerTest, TimerObjectRestartsWhenEnabledOrIntervalIsSet) {
  int ticks = 0;
  Timer timer;
  timer.SetCallback([&] { ++ticks; });
  timer.SetInterval(100);
  p.Advance(150);
  EXPECT_EQ(ticks, 1);
  timer.SetEnabled(false);
  timer.SetEnabled(true); // restarts the period at 150
  p.Advance(99);
  EXPECT_EQ(ticks, 1);
  p.Advance(1);
  EXPECT_EQ(ticks, 2);
  timer.SetInterval(0);
  p.Advance(1000);
  EXPECT_EQ(ticks, 2);
  EXPECT_EQ(p.TimerCount(), 0u);

  auto owned = std::make_unique<Timer>();
  owned->SetCallback([&] { owned.reset(); });
  owned->SetInterval(10);
  p.Advance(30);
  EXPECT_EQ(owned, nullptr);
  EXPECT_EQ(p.TimerCount(), 0u);
}

TEST_F(TimerTest, WallClockMovesWithTheVirtualClockAndGivesTheRuntimeItsYear) {
  p.SetNow(45356.5); // 5 March 2024, noon
  p.Advance(6 * 3600 * 1000);
  EXPECT_DOUBLE_EQ(p.Now(), 45356.75);
  p.SetNow(-1.25); // 29 December 1899, 06:00: the time counts forward from day -1
  p.Advance(12 * 3600 * 1000);
  EXPECT_DOUBLE_EQ(p.Now(), -1.75);
  p.Advance(12 * 3600 * 1000);
  EXPECT_DOUBLE_EQ(p.Now(), 0.25);
  p.SetNow(45356.5); // the runtime reads the current year from the platform
  EXPECT_EQ(CDate("11/21"), DateSerial(2024, 11, 21));
}

} // namespace
} // namespace tarnbrook
