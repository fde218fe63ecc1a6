#pragma once
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <functional>
#include <thread>

#include "apps/demo/demo_layout.hpp"
#include "tests/x11/x11_fixture.hpp"

namespace tarnbrook {

namespace layout = demo_layout;
using Lines = std::vector<std::string>;
constexpr unsigned long ButtonFace = 0xC0C0C0, White = 0xFFFFFF, Navy = 0x000080;

// The demo as a person meets it: its own process on the test's Xvfb, driven by xdotool,
// its event log read from its standard output, its pixels read from the server.
class DemoTest : public ::testing::Test {
protected:
  void SetUp() override {
    Xvfb& server = Xvfb::Shared();
    if (!server.Running())
      GTEST_SKIP() << "Xvfb could not start (is the xvfb package installed?)";
    setenv("DISPLAY", server.Name().c_str(), 1); // for the demo and xdotool
    ASSERT_NE(display = XOpenDisplay(server.Name().c_str()), nullptr);
    // One form file per test, as CTest may run them side by side.
    std::filesystem::create_directories(TARNBROOK_TEST_OUTPUT);
    formFile = std::string(TARNBROOK_TEST_OUTPUT) + "/demo-" +
               ::testing::UnitTest::GetInstance()->current_test_info()->name() + ".json";
    std::filesystem::remove(formFile);
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    if ((pid = fork()) == 0) {
      dup2(ends[1], STDOUT_FILENO);
      setenv("LC_ALL", "C", 1); // the built-in English, whatever the machine's language
      execl(TARNBROOK_DEMO, "demo", "--today", "2026-11-21", "--form", formFile.c_str(), nullptr);
      _exit(127);
    }
    close(ends[1]);
    fcntl(output = ends[0], F_SETFL, O_NONBLOCK);
    ASSERT_TRUE(WaitUntil([&] { return FindForm(); })) << "no demo window";
    ASSERT_TRUE(WaitUntil([&] { return Pixel(In(layout::Picker1, 60, 10)) == White; }));
  }
  void TearDown() override {
    Stop();
    if (display)
      XCloseDisplay(display);
  }

  // Closes the form as the window manager's close box does; the demo should exit with 0.
  void Stop() {
    if (pid <= 0)
      return;
    Atom protocols = XInternAtom(display, "WM_PROTOCOLS", False);
    XEvent closing{.xclient = {ClientMessage, 0, True, display, form, protocols, 32, {}}};
    closing.xclient.data.l[0] = long(XInternAtom(display, "WM_DELETE_WINDOW", False));
    XSendEvent(display, form, False, 0, &closing);
    XFlush(display);
    int status = -1;
    if (!WaitUntil([&] { return waitpid(pid, &status, WNOHANG) == pid; })) {
      kill(pid, SIGKILL);
      waitpid(pid, &status, 0);
    }
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "status " << status;
    close(output);
    pid = 0;
  }

  static bool WaitUntil(const std::function<bool()>& done) {
    auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(5);
    while (!done() && std::chrono::steady_clock::now() < deadline)
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    return done();
  }

  // The demo's form, found by xdotool as a shown window with its caption.
  bool FindForm() {
    FILE* search = popen("xdotool search --onlyvisible --name '^Tarnbrook demo$'", "r");
    bool found = std::fscanf(search, "%lu", &form) == 1;
    pclose(search);
    Window child;
    return found && XTranslateCoordinates(display, form, DefaultRootWindow(display), 0, 0,
                                          &origin.x, &origin.y, &child);
  }

  // Screen points of a control's client coordinates, and of the calendar under picker1.
  Point In(const Rect& control, int32_t x, int32_t y) const {
    return {origin.x + control.left + x, origin.y + control.top + y};
  }
  Point OnCalendar(int32_t x, int32_t y) const {
    return In(layout::Picker1, x, layout::Picker1.Height() + y);
  }
  unsigned long Pixel(Point p) { return PixelOn(display, p.x, p.y); }

  // A part of the screen now, and the first and last columns in which it changed since.
  struct ImageFree {
    void operator()(XImage* image) const { XDestroyImage(image); }
  };
  using Grabbed = std::unique_ptr<XImage, ImageFree>;
  Grabbed Grab(Point at, int32_t width, int32_t height) {
    return Grabbed(XGetImage(display, DefaultRootWindow(display), at.x, at.y, width, height,
                             AllPlanes, ZPixmap));
  }
  std::pair<int32_t, int32_t> ChangedColumns(const Grabbed& before, Point at) {
    Grabbed after = Grab(at, before->width, before->height);
    std::pair<int32_t, int32_t> columns{before->width, -1};
    for (int32_t y = 0; y < before->height; ++y)
      for (int32_t x = 0; x < before->width; ++x)
        if (XGetPixel(before.get(), x, y) != XGetPixel(after.get(), x, y))
          columns = {std::min(columns.first, x), std::max(columns.second, x)};
    return columns;
  }

  void Click(Point p) {
    Xdotool("mousemove " + std::to_string(p.x) + " " + std::to_string(p.y) + " click 1");
  }
  static void Xdotool(const std::string& arguments) {
    ASSERT_EQ(std::system(("xdotool " + arguments).c_str()), 0) << "xdotool " << arguments;
  }

  // Waits for a line among those not yet taken.
  bool WaitForLine(const std::string& line) {
    return WaitUntil([&] {
      char buffer[4096];
      for (ssize_t n; (n = read(output, buffer, sizeof buffer)) > 0;)
        pending.append(buffer, static_cast<size_t>(n));
      for (size_t end; (end = pending.find('\n')) != std::string::npos; pending.erase(0, end + 1))
        lines.push_back(pending.substr(0, end));
      return std::find(lines.begin(), lines.end(), line) != lines.end();
    });
  }
  // The lines so far of one control, without those of events starting with `without`;
  // the log starts afresh.
  Lines Take(const std::string& control, const std::string& without) {
    Lines taken;
    for (const std::string& line : std::exchange(lines, {}))
      if (line.rfind(control + " ", 0) == 0 && line.rfind(control + " " + without, 0) != 0)
        taken.push_back(line.substr(control.size() + 1));
    return taken;
  }

  std::string formFile;
  Display* display = nullptr;
  Window form = 0;
  Point origin;
  pid_t pid = 0;
  int output = -1;
  std::string pending;
  Lines lines;
};

} // namespace tarnbrook
