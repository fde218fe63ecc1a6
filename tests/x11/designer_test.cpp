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
namespace {

constexpr unsigned long Navy = 0x000080; // the selection, as the server shows it

// The designer on a form of a picker and a calendar, once the picker is drawn.
class DesignerTest : public ::testing::Test {
protected:
  void SetUp() override {
    Xvfb& server = Xvfb::Shared();
    if (!server.Running())
      GTEST_SKIP() << "Xvfb could not start (is the xvfb package installed?)";
    setenv("DISPLAY", server.Name().c_str(), 1);
    ASSERT_NE(display = XOpenDisplay(server.Name().c_str()), nullptr);
    std::filesystem::create_directories(TARNBROOK_TEST_OUTPUT);
    formFile = std::string(TARNBROOK_TEST_OUTPUT) + "/designer-form.json";
    std::ofstream(formFile) << R"({"version": 1, "controls": [
      {"class": "DatePicker", "name": "picker1", "left": 24, "top": 24, "width": 140,
       "height": 21, "properties": {}},
      {"class": "MonthCalendar", "name": "calendar1", "left": 24, "top": 80, "width": 204,
       "height": 180, "properties": {}}]})";
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
    ASSERT_TRUE(WaitUntil([&] { return Find("^designer-form.json - Tarnbrook designer$", form); }))
        << "no designer window";
    ASSERT_TRUE(WaitUntil([&] { return Pixel(24 + 60, 24 + 10) == 0xFFFFFF; }));
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
  // A pixel of the form's client area, 0x00RRGGBB.
  unsigned long Pixel(int32_t x, int32_t y) {
    Point at = Origin(form);
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
  // Ctrl+S until the program says it saved: the form may take the keyboard back late.
  void Save() {
    said.clear();
    bool saved = false;
    for (int attempt = 0; attempt < 3 && !saved; ++attempt) {
      Xdotool("key ctrl+s");
      saved = WaitUntil([&] {
        char buffer[256];
        for (ssize_t n; (n = read(output, buffer, sizeof buffer)) > 0;)
          said.append(buffer, size_t(n));
        return said.find("saved " + formFile + "\n") != std::string::npos;
      });
    }
    ASSERT_TRUE(saved) << said;
  }
  // A control of the saved form by its name.
  ControlRecord Record(const std::string& name) {
    std::string text{std::istreambuf_iterator<char>(std::ifstream(formFile).rdbuf()), {}};
    for (ControlRecord& record : ReadFormText(text, formFile))
      if (record.Name == name)
        return record;
    return {};
  }

  std::string formFile;
  Display* display = nullptr;
  Window form = 0;
  pid_t pid = 0;
  int output = -1;
  std::string said;
};

TEST_F(DesignerTest, DragsResizesAndPropertyPagesReachTheFormSavedByCtrlS) {
  // A press on the picker drags it on the grid: 37 x 22 becomes 40 x 24.
  Xdotool("mousemove " + At(form, 24 + 30, 24 + 10) + " mousedown 1 mousemove " +
          At(form, 24 + 30 + 20, 24 + 10 + 10) + " mousemove " +
          At(form, 24 + 30 + 37, 24 + 10 + 22) + " mouseup 1");
  // Its bottom right handle, centred just outside the corner, now at (204, 69).
  ASSERT_TRUE(WaitUntil([&] { return Pixel(204, 69) == Navy; }));
  // The frame along the top, and the form where the picker was: the X server may show them a
  // moment after the handle.
  EXPECT_TRUE(WaitUntil([&] { return Pixel(100, 48 - 1) == Navy; }));
  EXPECT_TRUE(WaitUntil([&] { return Pixel(24 + 60, 24 + 10) == 0xC0C0C0; }));

  Xdotool("mousemove " + At(form, 204, 69) + " mousedown 1 mousemove " + At(form, 204 + 10, 69) +
          " mousemove " + At(form, 204 + 17, 69 + 3) + " mouseup 1");
  ASSERT_TRUE(WaitUntil([&] { return Pixel(204 + 16, 69) == Navy; }));
  Save();
  EXPECT_EQ(Record("picker1").Bounds, (Rect{64, 48, 220, 69}));
  EXPECT_EQ(Record("calendar1").Bounds, (Rect{24, 80, 228, 260}));

  // Ctrl+R runs the form, without handles.
  Xdotool("key ctrl+r");
  ASSERT_TRUE(WaitUntil([&] { return Pixel(220, 69) != Navy; }));
  // Back in design mode, the selection starts empty; a click selects and arrows nudge.
  Xdotool("key ctrl+r");
  Xdotool("mousemove " + At(form, 64 + 60, 48 + 10) + " click 1");
  ASSERT_TRUE(WaitUntil([&] { return Pixel(220, 69) == Navy; }));
  Xdotool("key Right key Right");
  Save();
  EXPECT_EQ(Record("picker1").Bounds, (Rect{66, 48, 222, 69}));

  // A double click on the picker asks for its pages; a custom format typed there and applied
  // with OK reaches the picker and so the saved form.
  Xdotool("mousemove " + At(form, 66 + 80, 48 + 10) + " click --repeat 2 --delay 80 1");
  Window sheet = 0;
  ASSERT_TRUE(WaitUntil([&] { return Find("^DatePicker Properties$", sheet); }))
      << "no property pages";
  // The focus starts on Format: two steps down is dtpCustom; Tab goes on to CustomFormat.
  std::this_thread::sleep_for(std::chrono::milliseconds(200));
  Xdotool("key Down Down Tab");
  Xdotool("type --delay 20 'yyyy-MM-dd'");
  XWindowAttributes size{};
  XGetWindowAttributes(display, sheet, &size);
  // OK stands left of Cancel and Apply at the bottom right.
  int32_t okX = size.width - 8 - 3 * 75 - 2 * 6 + 37, okY = size.height - 8 - 12;
  Xdotool("mousemove " + At(sheet, okX, okY) + " click 1");
  ASSERT_TRUE(WaitUntil([&] { return !Find("^DatePicker Properties$", sheet); }))
      << "the pages stayed open";
  Save();
  EXPECT_EQ(Record("picker1").Properties.ReadProperty("Format").ToLong(), 3);
  EXPECT_EQ(Record("picker1").Properties.ReadProperty("CustomFormat").ToString(), "yyyy-MM-dd");
}

} // namespace
} // namespace tarnbrook
