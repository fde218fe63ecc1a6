// A seeded hostile session over a form of every class, under the sanitizers. A longer run:
// TARNBROOK_SOAK_EVENTS=100000.
#include <gtest/gtest.h>

#include <cstdlib>
#include <random>

#include "common/date_runtime.hpp"
#include "tests/support/hostile_session.hpp"

namespace tarnbrook {
namespace {

TEST(HostileSoak, AFormOfEveryClassOutlastsHostileProgramsAndUsers) {
  MemoryPlatform platform;
  platform.SetNow(DateSerial(2004, 5, 10) + 0.5);
  std::mt19937 random(20261125);
  HostileSession session(platform, [&] { return uint32_t(random()); });
  const char* wanted = std::getenv("TARNBROOK_SOAK_EVENTS");
  const int events = wanted ? std::atoi(wanted) : 3000;
  for (int i = 0; i < events; ++i)
    session.Step();
  EXPECT_GT(session.Replaced(), 0) << "no handler took its control away";
}

} // namespace
} // namespace tarnbrook
