#pragma once
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <functional>
#include <set>
#include <thread>

#include "apps/demo/demo_layout.hpp"
#include "tests/x11/x11_fixture.hpp"

namespace tarnbrook {

namespace layout = demo_layout;
using Lines = std::vector<std::string>;

// The demo as a person meets it: its own process on the test's Xvfb, driven by xdotool,
// its event log read from its standard output, its pixels read from the server.
class DemoTest : public ::testing::Test {
protected:
  void SetUp() override {
    Xvfb& server = Xvfb::Shared();
    if (!server.Running())
      GTEST_SKIP() << "Xvfb could not start (is the xvfb package installed?)";
    setenv("DISPLAY", server.Name().c_str(), 1); // for the demo and xdotool
    display = XOpenDisplay(server.Name().c_str());
    ASSERT_NE(display, nullptr);
    // One file per test, as CTest may run them side by side.
    const std::filesystem::path folder = std::filesystem::path(TARNBROOK_TEST_OUTPUT) / "demo";
    std::filesystem::create_directories(folder);
    formFile = (folder / ::testing::UnitTest::GetInstance()->current_test_info()->name())
                   .replace_extension(".json")
                   .string();
    std::filesystem::remove(formFile);
    Start();
    ASSERT_TRUE(WaitUntil([&] { return FindForm(); })) << "no demo window";
    ASSERT_TRUE(WaitUntil([&] { return PixelIn(layout::Picker1, 60, 10) == 0xFFFFFF; }))
        << "picker1 not painted";
  }
  void TearDown() override {
    Stop();
    if (display)
      XCloseDisplay(display);
  }

  void Start() {
    int pipeEnds[2];
    ASSERT_EQ(pipe(pipeEnds), 0);
    pid = fork();
    if (pid == 0) {
      dup2(pipeEnds[1], STDOUT_FILENO);
      execl(TARNBROOK_DEMO, "demo", "--today", "2026-11-21", "--form", formFile.c_str(), nullptr);
      _exit(127);
    }
    close(pipeEnds[1]);
    output = pipeEnds[0];
    fcntl(output, F_SETFL, O_NONBLOCK);
  }

  // Closes the form as the window manager's close box does; the demo should exit with 0.
  void Stop() {
    if (pid <= 0)
      return;
    XEvent closing{};
    closing.xclient.type = ClientMessage;
    closing.xclient.window = form;
    closing.xclient.message_type = XInternAtom(display, "WM_PROTOCOLS", False);
    closing.xclient.format = 32;
    closing.xclient.data.l[0] = static_cast<long>(XInternAtom(display, "WM_DELETE_WINDOW", False));
    XSendEvent(display, form, False, 0, &closing);
    XFlush(display);
    int status = -1;
    if (!WaitUntil([&] { return waitpid(pid, &status, WNOHANG) == pid; })) {
      kill(pid, SIGKILL);
      waitpid(pid, &status, 0);
      ADD_FAILURE() << "the demo did not close";
    }
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "status " << status;
    close(output);
    pid = 0;
  }

  static bool WaitUntil(const std::function<bool()>& done) {
    auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(5);
    while (!done()) {
      if (std::chrono::steady_clock::now() > deadline)
        return false;
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return true;
  }

  // The demo's form: a top-level window with its caption, mapped, holding its controls.
  bool FindForm() {
    Window rootReturn, parent, *children = nullptr;
    unsigned int count = 0;
    XQueryTree(display, DefaultRootWindow(display), &rootReturn, &parent, &children, &count);
    for (unsigned int i = 0; i < count && !form; ++i) {
      char* name = nullptr;
      XWindowAttributes attributes{};
      if (XFetchName(display, children[i], &name) && std::string(name) == layout::FormCaption &&
          XGetWindowAttributes(display, children[i], &attributes) &&
          attributes.map_state == IsViewable)
        form = children[i];
      XFree(name);
    }
    XFree(children);
    Window child;
    return form && XTranslateCoordinates(display, form, DefaultRootWindow(display), 0, 0, &origin.x,
                                         &origin.y, &child);
  }

  // Screen points of the form's client coordinates, of a control's, and of the calendar
  // dropped down under picker1.
  Point OnScreen(const Rect& control, int32_t x, int32_t y) const {
    return {origin.x + control.left + x, origin.y + control.top + y};
  }
  Point OnCalendar(int32_t x, int32_t y) const {
    return OnScreen(layout::Picker1, x, layout::Picker1.Height() + y);
  }
  unsigned long PixelIn(const Rect& control, int32_t x, int32_t y) {
    Point p = OnScreen(control, x, y);
    return PixelOn(display, p.x, p.y);
  }
  unsigned long CalendarPixel(int32_t x, int32_t y) {
    Point p = OnCalendar(x, y);
    return PixelOn(display, p.x, p.y);
  }
  // The columns of a part of a control whose pixels differ between now and `before`.
  struct ImageFree {
    void operator()(XImage* image) const { XDestroyImage(image); }
  };
  using Grabbed = std::unique_ptr<XImage, ImageFree>;
  Grabbed Grab(const Rect& control, const Rect& part) {
    Point p = OnScreen(control, part.left, part.top);
    return Grabbed(XGetImage(display, DefaultRootWindow(display), p.x, p.y, part.Width(),
                             part.Height(), AllPlanes, ZPixmap));
  }
  std::set<int32_t> ChangedColumns(const Grabbed& before, const Rect& control, const Rect& part) {
    Grabbed after = Grab(control, part);
    std::set<int32_t> columns;
    for (int32_t y = 0; y < part.Height(); ++y)
      for (int32_t x = 0; x < part.Width(); ++x)
        if (XGetPixel(before.get(), x, y) != XGetPixel(after.get(), x, y))
          columns.insert(part.left + x);
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
  // The lines so far of one control, without those starting with the given words; the
  // log starts afresh.
  Lines Take(const std::string& control, std::initializer_list<const char*> without = {}) {
    Lines taken;
    for (const std::string& line : std::exchange(lines, {})) {
      bool skipped = line.rfind(control + " ", 0) != 0;
      for (const char* word : without)
        skipped |= line.rfind(control + " " + word, 0) == 0;
      if (!skipped)
        taken.push_back(line.substr(control.size() + 1));
    }
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
