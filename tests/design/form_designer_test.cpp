#include <gtest/gtest.h>

#include "design/form_designer.hpp"
#include "platform/memory/memory_platform.hpp"

namespace tarnbrook {
namespace {

TEST(FormDesigner, AttachingPutsTheFormInDesignModeAndDetachingRestoresIt) {
  MemoryPlatform platform;
  Container form;
  {
    FormDesigner designer(form);
    EXPECT_FALSE(form.UserMode());
  }
  EXPECT_TRUE(form.UserMode());
}

} // namespace
} // namespace tarnbrook
