#include "tests/x11/designer_fixture.hpp"

namespace tarnbrook {
namespace {

constexpr unsigned long Navy = 0x000080; // the selection, as the server shows it

// The designer on a picker and a calendar: property pages, selecting, dragging, resizing,
// saving, running.
class DesignerTest : public DesignerProgramTest {
protected:
  void SetUp() override {
    Open("designer-form.json", R"([
      {"class": "DatePicker", "name": "picker1", "left": 24, "top": 24, "width": 140,
       "height": 21, "properties": {}},
      {"class": "MonthCalendar", "name": "calendar1", "left": 24, "top": 80, "width": 204,
       "height": 180, "properties": {}}])",
         {24 + 60, 24 + 10});
  }
  unsigned long Pixel(int32_t x, int32_t y) { return PixelOf(form, x, y); }
  std::string At(int32_t x, int32_t y) { return DesignerProgramTest::At(form, x, y); }
  // A control of the saved form by its name.
  ControlRecord Record(const std::string& name) {
    for (ControlRecord& record : SavedControls())
      if (record.Name == name)
        return record;
    return {};
  }
  // The picker's pixels on the form, row by row, where it starts.
  std::vector<unsigned long> PickerPixels() {
    std::vector<unsigned long> pixels;
    for (int32_t y = 26; y < 24 + 19; y += 2)
      for (int32_t x = 26; x < 24 + 138; x += 2)
        pixels.push_back(Pixel(x, y));
    return pixels;
  }
  // Ctrl+S until the program says it saved: the form may take the keyboard back late.
  void Save() {
    said.clear();
    bool saved = false;
    for (int attempt = 0; attempt < 3 && !saved; ++attempt) {
      Xdotool("key ctrl+s");
      saved = Saved();
    }
    ASSERT_TRUE(saved) << said;
  }
};

TEST_F(DesignerTest, PagesDragsAndResizesReachTheFormSavedByCtrlS) {
  // A double click on the picker asks for its pages; a custom format typed there and applied
  // with OK changes the picker on the form.
  const std::vector<unsigned long> before = PickerPixels();
  Xdotool("mousemove " + At(24 + 80, 24 + 10) + " click --repeat 2 --delay 80 1");
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
  Xdotool("mousemove " + DesignerProgramTest::At(sheet, okX, okY) + " click 1");
  ASSERT_TRUE(WaitUntil([&] { return !Find("^DatePicker Properties$", sheet); }))
      << "the pages stayed open";
  ASSERT_TRUE(WaitUntil([&] { return PickerPixels() != before; }));

  // A press on the picker drags it on the grid: 37 x 22 becomes 40 x 24.
  Xdotool("mousemove " + At(24 + 30, 24 + 10) + " mousedown 1 mousemove " +
          At(24 + 30 + 20, 24 + 10 + 10) + " mousemove " + At(24 + 30 + 37, 24 + 10 + 22) +
          " mouseup 1");
  // Its bottom right handle, centred just outside the corner, now at (204, 69).
  ASSERT_TRUE(WaitUntil([&] { return Pixel(204, 69) == Navy; }));
  // The frame along the top, and the form where the picker was: the X server may show them a
  // moment after the handle.
  EXPECT_TRUE(WaitUntil([&] { return Pixel(100, 48 - 1) == Navy; }));
  EXPECT_TRUE(WaitUntil([&] { return Pixel(24 + 60, 24 + 10) == 0xC0C0C0; }));

  Xdotool("mousemove " + At(204, 69) + " mousedown 1 mousemove " + At(204 + 10, 69) +
          " mousemove " + At(204 + 17, 69 + 3) + " mouseup 1");
  ASSERT_TRUE(WaitUntil([&] { return Pixel(204 + 16, 69) == Navy; }));
  Save();
  EXPECT_EQ(Record("picker1").Bounds, (Rect{64, 48, 220, 69}));
  EXPECT_EQ(Record("calendar1").Bounds, (Rect{24, 80, 228, 260}));
  EXPECT_EQ(Record("picker1").Properties.ReadProperty("Format").ToLong(), 3);
  EXPECT_EQ(Record("picker1").Properties.ReadProperty("CustomFormat").ToString(), "yyyy-MM-dd");

  // Ctrl+R runs the form, without handles.
  Xdotool("key ctrl+r");
  ASSERT_TRUE(WaitUntil([&] { return Pixel(220, 69) != Navy; }));
  // Back in design mode, the selection starts empty; a click selects and arrows nudge.
  Xdotool("key ctrl+r");
  Xdotool("mousemove " + At(64 + 60, 48 + 10) + " click 1");
  ASSERT_TRUE(WaitUntil([&] { return Pixel(220, 69) == Navy; }));
  Xdotool("key Right key Right");
  Save();
  EXPECT_EQ(Record("picker1").Bounds, (Rect{66, 48, 222, 69}));
}

} // namespace
} // namespace tarnbrook
