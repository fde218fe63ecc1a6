// The Qt example under its own Xvfb, driven with xdotool as a person would: the picker's
// drop-down and a day on it, Tab from the line edit into the picker and out with a typed date,
// and "Last Month" from the selection's option list.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <poll.h>
#include <signal.h>
#include <sstream>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace {

struct Box {
  int x = 0, y = 0, width = 0, height = 0;
};

class QtExample : public ::testing::Test {
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
    setenv("DISPLAY", (":" + std::to_string(number)).c_str(), 1); // for xdotool

    int toChild[2], fromChild[2];
    ASSERT_EQ(pipe(toChild), 0);
    ASSERT_EQ(pipe(fromChild), 0);
    if ((child_ = fork()) == 0) {
      dup2(toChild[0], 0);
      dup2(fromChild[1], 1);
      close(toChild[1]);
      close(fromChild[0]);
      // Qt keeps what it allocates until exit: leak checks are for our own programs.
      setenv("ASAN_OPTIONS", "detect_leaks=0", 1);
      setenv("QT_QPA_PLATFORM", "xcb", 1);
      execl(TARNBROOK_QT_EXAMPLE, "qt_example", "--today", "2026-03-15", nullptr);
      _exit(127);
    }
    close(toChild[0]);
    close(fromChild[1]);
    commands_ = toChild[1];
    output_ = fromChild[0];
    ASSERT_TRUE(WaitForLine("ready"));
    ReadBounds();
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
    auto until = std::chrono::steady_clock::now() + std::chrono::seconds(5);
    for (;;) {
      size_t end;
      while ((end = pending_.find('\n')) != std::string::npos) {
        line_ = pending_.substr(0, end);
        pending_.erase(0, end + 1);
        if (line_.starts_with(prefix)) {
          return true;
        }
      }
      auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
          until - std::chrono::steady_clock::now());
      pollfd fd{output_, POLLIN, 0};
      if (left.count() <= 0 || poll(&fd, 1, static_cast<int>(left.count())) <= 0) {
        return false;
      }
      char buffer[4096];
      ssize_t got = read(output_, buffer, sizeof buffer);
      if (got <= 0) {
        return false;
      }
      pending_.append(buffer, static_cast<size_t>(got));
    }
  }

  // The widgets and open pop-ups on the screen, by name.
  void ReadBounds() {
    bounds_.clear();
    Command("bounds");
    while (WaitForLine("bounds ") && line_ != "bounds done") {
      std::istringstream in(line_.substr(7));
      std::string name;
      Box box;
      in >> name >> box.x >> box.y >> box.width >> box.height;
      bounds_[name] = box;
    }
  }

  void Xdotool(const std::string& arguments) {
    ASSERT_EQ(std::system(("xdotool " + arguments).c_str()), 0) << "xdotool " << arguments;
  }
  void Click(int x, int y) {
    Xdotool("mousemove " + std::to_string(x) + " " + std::to_string(y) + " click 1");
  }

  std::string inner() {
    Command("inner");
    return WaitForLine("inner ") ? line_.substr(6) : "(no answer)";
  }

  pid_t xvfb_ = 0, child_ = 0;
  FILE* xvfbOutput_ = nullptr;
  int commands_ = -1, output_ = -1;
  std::string pending_, line_;
  std::map<std::string, Box> bounds_;
};

TEST_F(QtExample, DropDownCalendarTakesADayAndShowsOnTheScreen) {
  const Box picker = bounds_["picker1"];
  ASSERT_EQ(picker.height, 21) << "the control's size is the widget's";
  ASSERT_EQ(bounds_.count("popup"), 0u);

  Click(picker.x + picker.width - 8, picker.y + picker.height / 2); // the drop-down button
  ASSERT_TRUE(WaitForLine("picker1 AfterCalendarDropDown"));
  ReadBounds();
  ASSERT_EQ(bounds_.count("popup"), 1u) << "the calendar shows as a window of its own";
  const Box calendar = bounds_["popup"];
  EXPECT_EQ(calendar.x, picker.x);
  EXPECT_EQ(calendar.y, picker.y + picker.height) << "right under the picker";

  const std::string shot = std::string(TARNBROOK_TEST_OUTPUT) + "/qt-calendar.png";
  std::filesystem::create_directories(TARNBROOK_TEST_OUTPUT);
  Command("shot " + shot);
  ASSERT_TRUE(WaitForLine("shot "));
  EXPECT_EQ(line_, "shot done");

  // The Thursday of the fourth row: March 2026 starts on a Sunday, so the 26th.
  Click(calendar.x + 18 + 28 * 4, calendar.y + 60 + 16 * 3);
  ASSERT_TRUE(WaitForLine("picker1 Value "));
  EXPECT_EQ(line_, "picker1 Value 3/26/2026");
  ASSERT_TRUE(WaitForLine("picker1 AfterCalendarCloseUp"));
  ReadBounds();
  EXPECT_EQ(bounds_.count("popup"), 0u);

  // The click that picked the day hid the window it was on; the picker still takes the next.
  Click(picker.x + picker.width - 8, picker.y + picker.height / 2);
  ASSERT_TRUE(WaitForLine("picker1 AfterCalendarDropDown")) << "the calendar drops down again";
  ReadBounds();
  ASSERT_EQ(bounds_.count("popup"), 1u);

  // A press on another Qt widget is a press outside the calendar, which closes.
  const Box edit = bounds_["edit1"];
  Click(edit.x + 20, edit.y + edit.height / 2);
  ASSERT_TRUE(WaitForLine("picker1 AfterCalendarCloseUp"));
  ReadBounds();
  EXPECT_EQ(bounds_.count("popup"), 0u);
  Command("value");
  ASSERT_TRUE(WaitForLine("picker1 Value "));
  EXPECT_EQ(line_, "picker1 Value 3/26/2026") << "closing without a pick keeps the day";
}

TEST_F(QtExample, TabGoesIntoThePickerTakesATypedDateAndGoesOn) {
  const Box edit = bounds_["edit1"];
  Click(edit.x + 20, edit.y + edit.height / 2);
  ASSERT_TRUE(WaitForLine("focus edit1"));
  EXPECT_EQ(inner(), "none");

  Xdotool("key Tab");
  ASSERT_TRUE(WaitForLine("focus picker1"));
  EXPECT_EQ(inner(), "DatePicker");
  Xdotool("type 04/05/2027");
  ASSERT_TRUE(WaitForLine("picker1 Value 4/5/2027"));

  // Out of the picker to the DateSelect's option list, its one stop on "Today", and on.
  Xdotool("key Tab");
  ASSERT_TRUE(WaitForLine("focus select1"));
  EXPECT_EQ(inner(), "ComboBox");
  Xdotool("key Tab");
  ASSERT_TRUE(WaitForLine("focus edit2"));
  EXPECT_EQ(inner(), "none") << "the simulator lets the focus go with Qt's";

  // Shift+Tab comes back in at the last stop and out again the other way.
  Xdotool("key shift+Tab");
  ASSERT_TRUE(WaitForLine("focus select1"));
  EXPECT_EQ(inner(), "ComboBox");
  Xdotool("key shift+Tab");
  ASSERT_TRUE(WaitForLine("focus picker1"));
  EXPECT_EQ(inner(), "DatePicker");
  Xdotool("key shift+Tab");
  ASSERT_TRUE(WaitForLine("focus edit1"));
  Command("value");
  ASSERT_TRUE(WaitForLine("picker1 Value "));
  EXPECT_EQ(line_, "picker1 Value 4/5/2027");
}

TEST_F(QtExample, LastMonthFromTheOptionListWritesItsCriteria) {
  const Box options = bounds_["options"];
  Click(options.x + options.width - 8, options.y + options.height / 2);
  ReadBounds();
  ASSERT_EQ(bounds_.count("popup"), 1u) << "the option list drops down";
  // "Last Month" nine entries below "Today", chosen with keys as the list is open.
  Xdotool("key --delay 40 Down Down Down Down Down Down Down Down Down Return");
  ASSERT_TRUE(WaitForLine("select1 SelectionChange"));
  Command("value");
  ASSERT_TRUE(WaitForLine("select1 Selection "));
  EXPECT_EQ(line_, "select1 Selection 9") << "Last Month";
  ASSERT_TRUE(WaitForLine("select1 SQL "));
  EXPECT_EQ(line_, "select1 SQL  Date BETWEEN 2/1/2026 AND 2/28/2026 ");
  ReadBounds();
  EXPECT_EQ(bounds_.count("popup"), 0u);
}

} // namespace
