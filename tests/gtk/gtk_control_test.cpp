// The GTK example under its own Xvfb, driven with xdotool as a person would: the picker's
// drop-down, Tab through the controls with typing, and the selection's option list.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <poll.h>
#include <signal.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace {

class GtkExample : public ::testing::Test {
protected:
  void SetUp() override {
    FILE* server = popen("echo $$; exec Xvfb -displayfd 1 -screen 0 800x600x24 -nolisten tcp "
                         "2>/dev/null",
                         "r");
    int number = -1;
    if (!server || std::fscanf(server, "%d %d", &xvfb_, &number) != 2) {
      GTEST_SKIP() << "Xvfb could not start (is the xvfb package installed?)";
    }
    xvfbOutput_ = server;
    display_ = ":" + std::to_string(number);
    setenv("DISPLAY", display_.c_str(), 1); // for xdotool

    int toChild[2], fromChild[2];
    ASSERT_EQ(pipe(toChild), 0);
    ASSERT_EQ(pipe(fromChild), 0);
    if ((child_ = fork()) == 0) {
      dup2(toChild[0], 0);
      dup2(fromChild[1], 1);
      close(toChild[1]);
      close(fromChild[0]);
      // GTK keeps what it allocates until exit: leak checks are for our own programs.
      setenv("ASAN_OPTIONS", "detect_leaks=0", 1);
      setenv("GDK_BACKEND", "x11", 1);
      setenv("GSK_RENDERER", "cairo", 1);
      setenv("NO_AT_BRIDGE", "1", 1);
      setenv("GTK_A11Y", "none", 1);
      execl(TARNBROOK_GTK_EXAMPLE, "gtk_example", "--today", "2026-03-15", nullptr);
      _exit(127);
    }
    close(toChild[0]);
    close(fromChild[1]);
    commands_ = toChild[1];
    output_ = fromChild[0];
    ASSERT_TRUE(WaitForLine("ready"));
    Command("bounds");
    ASSERT_TRUE(WaitForLine("bounds done"));
  }

  void TearDown() override {
    if (child_ > 0) {
      Command("quit");
      int status = 0;
      for (int i = 0; i < 50 && waitpid(child_, &status, WNOHANG) == 0; ++i) {
        usleep(100000);
      }
      kill(child_, SIGKILL);
      waitpid(child_, &status, 0);
      close(commands_);
      close(output_);
    }
    if (xvfb_ > 0) {
      kill(xvfb_, SIGTERM);
      pclose(xvfbOutput_);
    }
  }

  void Command(const std::string& line) {
    std::string text = line + "\n";
    ASSERT_EQ(write(commands_, text.data(), text.size()), static_cast<ssize_t>(text.size()));
  }

  // Reads lines until one starts with `prefix` (kept in `line_`); false after 5 s.
  bool WaitForLine(const std::string& prefix) {
    auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(5);
    for (;;) {
      size_t end;
      while ((end = buffer_.find('\n')) != std::string::npos) {
        line_ = buffer_.substr(0, end);
        buffer_.erase(0, end + 1);
        seen_ += line_ + "\n";
        if (line_.starts_with(prefix)) {
          ParseBounds();
          return true;
        }
        ParseBounds();
      }
      auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
                      deadline - std::chrono::steady_clock::now())
                      .count();
      pollfd fd{output_, POLLIN, 0};
      if (left <= 0 || poll(&fd, 1, static_cast<int>(left)) <= 0) {
        return false;
      }
      char chunk[4096];
      ssize_t n = read(output_, chunk, sizeof chunk);
      if (n <= 0) {
        return false;
      }
      buffer_.append(chunk, static_cast<size_t>(n));
    }
  }

  void ParseBounds() {
    char name[32];
    int x, y, w, h;
    if (std::sscanf(line_.c_str(), "bounds %31s %d %d %d %d", name, &x, &y, &w, &h) == 5) {
      std::string n = name;
      (n == "picker1"   ? picker_
       : n == "select1" ? select_
       : n == "entry1"  ? entry_
                        : other_) = {x, y, w, h};
    }
  }

  void Xdotool(const std::string& arguments) {
    ASSERT_EQ(std::system(("xdotool " + arguments).c_str()), 0) << "xdotool " << arguments;
    usleep(150000);
  }
  // Window-relative points: the example's window is the only one, at the screen's corner
  // without a window manager.
  void ClickAt(int x, int y) {
    Xdotool("mousemove " + std::to_string(x) + " " + std::to_string(y) + " click 1");
  }

  struct Box {
    int x = 0, y = 0, w = 0, h = 0;
  };
  Box picker_, select_, entry_, other_;
  std::string line_, buffer_, seen_;

private:
  FILE* xvfbOutput_ = nullptr;
  pid_t xvfb_ = 0;
  pid_t child_ = 0;
  int commands_ = -1, output_ = -1;
  std::string display_;
};

TEST_F(GtkExample, PickerDropsItsCalendarAsAPopoverAndTakesTheClickedDay) {
  ASSERT_GT(picker_.w, 0);
  ClickAt(picker_.x + picker_.w - 8, picker_.y + picker_.h / 2); // the drop-down button
  ASSERT_TRUE(WaitForLine("picker1 AfterCalendarDropDown")) << seen_;
  Command("shot " TARNBROOK_TEST_OUTPUT "/gtk-dropdown");
  ASSERT_TRUE(WaitForLine("shot")) << seen_;

  // The calendar opens under the picker, its left edge at the picker's: March 2026 with
  // 1 March on the first Sunday, rows about 16 pixels apart; Friday 20 March is on the third.
  ClickAt(picker_.x + 157, picker_.y + picker_.h + 93);
  ASSERT_TRUE(WaitForLine("picker1 Value")) << seen_;
  EXPECT_EQ(line_, "picker1 Value 3/20/2026");
  EXPECT_TRUE(WaitForLine("picker1 AfterCalendarCloseUp")) << seen_;
}

TEST_F(GtkExample, TabGoesIntoThePickerWhichTakesTypingAndOutToTheNextWidget) {
  ClickAt(picker_.x + 20, picker_.y + picker_.h / 2);
  ASSERT_TRUE(WaitForLine("focus picker1")) << seen_;
  ClickAt(entry_.x + 20, entry_.y + entry_.h / 2);
  ASSERT_TRUE(WaitForLine("focus entry1")) << seen_;
  Xdotool("key Tab");
  ASSERT_TRUE(WaitForLine("focus picker1")) << seen_;
  Xdotool("type --delay 40 4/1/2026");
  Xdotool("key Tab");
  ASSERT_TRUE(WaitForLine("focus select1")) << seen_;
  Command("shot " TARNBROOK_TEST_OUTPUT "/gtk-typed");
  ASSERT_TRUE(WaitForLine("shot")) << seen_;
  EXPECT_NE(seen_.find("picker1 Value 4/1/2026"), std::string::npos) << seen_;
  // Shift+Tab comes back to the picker.
  Xdotool("key shift+Tab");
  EXPECT_TRUE(WaitForLine("focus picker1")) << seen_;
}

TEST_F(GtkExample, LastMonthFromTheOptionListWritesItsCriteria) {
  ClickAt(select_.x + select_.w - 8, select_.y + 10); // the option list's button
  Command("shot " TARNBROOK_TEST_OUTPUT "/gtk-options");
  ASSERT_TRUE(WaitForLine("shot")) << seen_;
  // Nine entries below "Today", then Return.
  Xdotool("key --delay 40 Down Down Down Down Down Down Down Down Down Return");
  ASSERT_TRUE(WaitForLine("select1 SQL")) << seen_;
  EXPECT_EQ(line_, "select1 SQL  Date BETWEEN 2/1/2026 AND 2/28/2026 ");
}

} // namespace
