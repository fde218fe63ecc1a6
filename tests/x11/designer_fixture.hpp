#pragma once
// The designer program as a person meets it: its own process on the test's Xvfb, driven by
// xdotool, its pixels read from the server, its saved form read from the file.
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <thread>

#include "host/form_file.hpp"
#include "tests/x11/x11_fixture.hpp"

namespace tarnbrook {

class DesignerProgramTest : public ::testing::Test {
protected:
  // Starts the designer on a form file `name` holding `controls` (a JSON list), and waits for
  // its window, white at `white` once the first control is drawn.
  void Open(const std::string& name, const std::string& controls, Point white) {
    Xvfb& server = Xvfb::Shared();
    if (!server.Running())
      GTEST_SKIP() << "Xvfb could not start (is the xvfb package installed?)";
    setenv("DISPLAY", server.Name().c_str(), 1);
    ASSERT_NE(display = XOpenDisplay(server.Name().c_str()), nullptr);
    std::filesystem::create_directories(TARNBROOK_TEST_OUTPUT);
    formFile = std::string(TARNBROOK_TEST_OUTPUT) + "/" + name;
    std::ofstream(formFile) << R"({"version": 1, "controls": )" << controls << "}";
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    if ((pid = fork()) == 0) {
      dup2(ends[1], STDOUT_FILENO);
      setenv("LC_ALL", "C", 1);
      execl(TARNBROOK_DESIGNER, "designer", formFile.c_str(), nullptr);
      _exit(127);
    }
    close(ends[1]);
    fcntl(output = ends[0], F_SETFL, O_NONBLOCK);
    ASSERT_TRUE(WaitUntil([&] { return Find("^" + name + " - Tarnbrook designer$", form); }))
        << "no designer window";
    ASSERT_TRUE(WaitUntil([&] { return PixelOf(form, white.x, white.y) == 0xFFFFFF; }));
  }
  void TearDown() override {
    if (pid > 0) {
      kill(pid, SIGTERM);
      waitpid(pid, nullptr, 0);
      close(output);
    }
    if (display)
      XCloseDisplay(display);
  }

  static bool WaitUntil(const std::function<bool()>& done) {
    auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(5);
    while (!done() && std::chrono::steady_clock::now() < deadline)
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    return done();
  }
  // A visible window by its title.
  static bool Find(const std::string& title, Window& found) {
    FILE* search = popen(("xdotool search --onlyvisible --name '" + title + "'").c_str(), "r");
    bool any = std::fscanf(search, "%lu", &found) == 1;
    pclose(search);
    return any;
  }
  // Where a window's client area starts on the screen.
  Point Origin(Window window) {
    Point at;
    Window child;
    XTranslateCoordinates(display, window, DefaultRootWindow(display), 0, 0, &at.x, &at.y, &child);
    return at;
  }
  // A pixel of a window's client area, 0x00RRGGBB.
  unsigned long PixelOf(Window window, int32_t x, int32_t y) {
    Point at = Origin(window);
    return PixelOn(display, at.x + x, at.y + y);
  }
  // A point of a window's client area as xdotool takes it.
  std::string At(Window window, int32_t x, int32_t y) {
    Point at = Origin(window);
    return std::to_string(at.x + x) + " " + std::to_string(at.y + y);
  }
  static void Xdotool(const std::string& arguments) {
    ASSERT_EQ(std::system(("xdotool " + arguments).c_str()), 0) << "xdotool " << arguments;
  }
  // Whether the program said it saved the form.
  bool Saved() {
    return WaitUntil([&] {
      char buffer[256];
      for (ssize_t n; (n = read(output, buffer, sizeof buffer)) > 0;)
        said.append(buffer, size_t(n));
      return said.find("saved " + formFile + "\n") != std::string::npos;
    });
  }
  std::vector<ControlRecord> SavedControls() {
    std::string text{std::istreambuf_iterator<char>(std::ifstream(formFile).rdbuf()), {}};
    return ReadFormText(text, formFile);
  }

  std::string formFile;
  Display* display = nullptr;
  Window form = 0;
  pid_t pid = 0;
  int output = -1;
  std::string said;
};

} // namespace tarnbrook
