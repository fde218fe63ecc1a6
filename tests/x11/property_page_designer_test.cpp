// The property pages in the designer program on a real display: a custom format typed and
// applied reaches the picker on the form and the saved form.
#include "tests/x11/designer_fixture.hpp"

namespace tarnbrook {
namespace {

class PropertyPageDesignerTest : public DesignerProgramTest {
protected:
  void SetUp() override {
    Open("property-page-form.json", R"([
      {"class": "DatePicker", "name": "picker1", "left": 24, "top": 24, "width": 160,
       "height": 21, "properties": {}}])",
         {24 + 80, 24 + 10});
  }
  // The picker's pixels on the form, row by row.
  std::vector<unsigned long> PickerPixels() {
    std::vector<unsigned long> pixels;
    for (int32_t y = 26; y < 24 + 19; y += 2)
      for (int32_t x = 26; x < 24 + 140; x += 2)
        pixels.push_back(PixelOf(form, x, y));
    return pixels;
  }
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
  ControlRecord picker = SavedControls().at(0);
  EXPECT_EQ(picker.Properties.ReadProperty("Format").ToLong(), 3);
  EXPECT_EQ(picker.Properties.ReadProperty("CustomFormat").ToString(), "yyyy-MM-dd");
}

} // namespace
} // namespace tarnbrook
