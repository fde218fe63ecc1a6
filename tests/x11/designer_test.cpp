#include "tests/x11/designer_fixture.hpp"

namespace tarnbrook {
namespace {

constexpr unsigned long Navy = 0x000080; // the selection, as the server shows it

// The designer on a picker and a calendar: selecting, dragging, resizing, saving, running.
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
  Rect SavedBounds(const std::string& name) {
    for (const ControlRecord& record : SavedControls())
      if (record.Name == name)
        return record.Bounds;
    return {};
  }
};

TEST_F(DesignerTest, ADraggedAndResizedPickerIsSavedByCtrlS) {
  // A press on the picker selects it and drags it on the grid: 37 x 22 becomes 40 x 24.
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
  Xdotool("key ctrl+s");
  ASSERT_TRUE(Saved()) << said;
  EXPECT_EQ(SavedBounds("picker1"), (Rect{64, 48, 220, 69}));
  EXPECT_EQ(SavedBounds("calendar1"), (Rect{24, 80, 228, 260}));

  // Ctrl+R runs the form, without handles.
  Xdotool("key ctrl+r");
  ASSERT_TRUE(WaitUntil([&] { return Pixel(220, 69) != Navy; }));
  // Back in design mode, the selection starts empty and arrows do nothing to the picker.
  Xdotool("key ctrl+r");
  Xdotool("mousemove " + At(64 + 60, 48 + 10) + " click 1");
  ASSERT_TRUE(WaitUntil([&] { return Pixel(220, 69) == Navy; }));
  Xdotool("key Right key Right key ctrl+s");
  said.clear();
  ASSERT_TRUE(Saved()) << said;
  EXPECT_EQ(SavedBounds("picker1"), (Rect{66, 48, 222, 69}));
}

} // namespace
} // namespace tarnbrook
