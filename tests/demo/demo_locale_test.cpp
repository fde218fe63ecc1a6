// The demo in the user's language: with LC_ALL=de_DE.UTF-8 its tour runs through German
// dates, and it names today in German.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "tests/x11/x11_fixture.hpp"

namespace tarnbrook {

TEST(DemoLocale, GermanFromTheEnvironment) {
  Xvfb& server = Xvfb::Shared();
  if (!server.Running())
    GTEST_SKIP() << "Xvfb could not start (is the xvfb package installed?)";
  const std::string shots = std::string(TARNBROOK_TEST_OUTPUT) + "/demo-de";
  std::filesystem::create_directories(shots);
  const std::string command = "DISPLAY=" + server.Name() + " LC_ALL=de_DE.UTF-8 " + TARNBROOK_DEMO +
                              " --tour --today 2026-03-15 --screenshot-dir " + shots + " 2>&1";
  FILE* demo = popen(command.c_str(), "r");
  ASSERT_NE(demo, nullptr);
  std::string output;
  char line[512];
  while (std::fgets(line, sizeof line, demo))
    output += line;
  EXPECT_EQ(pclose(demo), 0) << output;
  EXPECT_NE(output.find("demo: today is 15. März 2026 (de-DE)"), std::string::npos) << output;
  EXPECT_NE(output.find("select1 SelectionChange"), std::string::npos) << output;
  EXPECT_TRUE(std::filesystem::exists(shots + "/demo-dateselect.png"));
}

} // namespace tarnbrook
