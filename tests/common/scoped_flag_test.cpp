#include <gtest/gtest.h>

#include <stdexcept>

#include "common/scoped_flag.hpp"

namespace tarnbrook {
namespace {

TEST(ScopedFlag, PutsBackWhatTheFlagHeldWhenItsScopeEndsByAnErrorToo) {
  bool flag = false;
  try {
    const ScopedFlag outer(flag);
    {
      const ScopedFlag inner(flag);
      EXPECT_TRUE(flag);
    }
    EXPECT_TRUE(flag); // the inner guard gives back the outer one's state
    throw std::runtime_error("handler failed");
  } catch (const std::runtime_error&) {
  }
  EXPECT_FALSE(flag);
}

} // namespace
} // namespace tarnbrook
