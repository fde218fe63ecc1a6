// The property pages in the designer program on a real display: a custom format typed and
// applied reaches the picker on the form and the saved form.
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

class PropertyPageDesignerTest : public ::testing::Test {
protected:
  void SetUp() override {
    Xvfb& server = Xvfb::Shared();
    if (!server.Running())
      GTEST_SKIP() << "Xvfb could not start (is the xvfb package installed?)";
    setenv("DISPLAY", server.Name().c_str(), 1);
    ASSERT_NE(display = XOpenDisplay(server.Name().c_str()), nullptr);
    std::filesystem::create_directories(TARNBROOK_TEST_OUTPUT);
    formFile = std::string(TARNBROOK_TEST_OUTPUT) + "/property-page-form.json";
    std::ofstream(formFile) << R"({"version": 1, "controls": [
      {"class": "DatePicker", "name": "picker1", "left": 24, "top": 24, "width": 160,
       "height": 21, "properties": {}}]})";
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
    ASSERT_TRUE(WaitUntil([&] {
      return Find("^property-page-form.json - Tarnbrook designer$", form);
    })) << "no designer window";
    ASSERT_TRUE(WaitUntil([&] { return PixelOf(form, 24 + 80, 24 + 10) == 0xFFFFFF; }));
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
  // A visible window by its title, and where its client area starts on the screen.
  bool Find(const std::string& title, Window& found) {
    FILE* search = popen(("xdotool search --onlyvisible --name '" + title + "'").c_str(), "r");
    bool any = std::fscanf(search, "%lu", &found) == 1;
    pclose(search);
    return any;
  }
  Point Origin(Window window) {
    Point at;
    Window child;
    XTranslateCoordinates(display, window, DefaultRootWindow(display), 0, 0, &at.x, &at.y, &child);
    return at;
  }
  unsigned long PixelOf(Window window, int32_t x, int32_t y) {
    Point at = Origin(window);
    return PixelOn(display, at.x + x, at.y + y);
  }
  std::string At(Window window, int32_t x, int32_t y) {
    Point at = Origin(window);
    return std::to_string(at.x + x) + " " + std::to_string(at.y + y);
  }
  static void Xdotool(const std::string& arguments) {
    ASSERT_EQ(std::system(("xdotool " + arguments).c_str()), 0) << "xdotool " << arguments;
  }
  bool Saved() {
    return WaitUntil([&] {
      char buffer[256];
      for (ssize_t n; (n = read(output, buffer, sizeof buffer)) > 0;)
        said.append(buffer, size_t(n));
      return said.find("saved " + formFile + "\n") != std::string::npos;
    });
  }
  ControlRecord SavedPicker() {
    std::string text{std::istreambuf_iterator<char>(std::ifstream(formFile).rdbuf()), {}};
    return ReadFormText(text, formFile).at(0);
  }
  // The picker's pixels on the form, row by row.
  std::vector<unsigned long> PickerPixels() {
    std::vector<unsigned long> pixels;
    for (int32_t y = 26; y < 24 + 19; y += 2)
      for (int32_t x = 26; x < 24 + 140; x += 2)
        pixels.push_back(PixelOf(form, x, y));
    return pixels;
  }

  std::string formFile;
  Display* display = nullptr;
  Window form = 0;
  pid_t pid = 0;
  int output = -1;
  std::string said;
};

TEST_F(PropertyPageDesignerTest, ACustomFormatTypedInThePageIsAppliedToThePickerOnTheForm) {
  std::vector<unsigned long> before = PickerPixels();
  // A double click on the picker asks for its pages.
  Xdotool("mousemove " + At(form, 24 + 80, 24 + 10) + " click --repeat 2 --delay 80 1");
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
  ASSERT_TRUE(WaitUntil([&] {
    Window still = 0;
    return !Find("^DatePicker Properties$", still);
  })) << "the pages stayed open";

  // The picker shows its new text, and the saved form has the format.
  ASSERT_TRUE(WaitUntil([&] { return PickerPixels() != before; }));
  // The form takes the focus back once the sheet is gone; a key sent before then goes
  // nowhere and is pressed again.
  bool saved = false;
  for (int attempt = 0; attempt < 3 && !saved; ++attempt) {
    Xdotool("key ctrl+s");
    saved = Saved();
  }
  ASSERT_TRUE(saved) << said;
  ControlRecord picker = SavedPicker();
  EXPECT_EQ(picker.Properties.ReadProperty("Format").ToLong(), 3);
  EXPECT_EQ(picker.Properties.ReadProperty("CustomFormat").ToString(), "yyyy-MM-dd");
}

} // namespace
} // namespace tarnbrook
