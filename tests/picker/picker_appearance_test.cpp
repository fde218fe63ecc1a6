#include "picker_fixture.hpp"

namespace tarnbrook {
namespace {

constexpr COLORREF White = 0xFFFFFF;
constexpr COLORREF LightGreen = 0xB0FCB0; // the default focus colour

// Sunday 15 June 2003 in the long date format, on a picker wide enough for it.
class PickerAppearanceTest : public PickerTest {
protected:
  static constexpr int32_t Width = 220;
  static constexpr int32_t TextRight = Width - 16; // the drop-down button's left edge

  PickerAppearanceTest() {
    picker->Move(Left, Top, Width, PickerHeight);
    picker->SetFormat(dtpLongDate);
    picker->SetValue(Variant::Date(DateSerial(2003, 6, 15)));
  }
  // Where each button is, as a person finds it: which click drops the calendar or steps.
  std::string ButtonAt(int32_t x, int32_t y) {
    const DateValue before = Date();
    ClickAt(x, y);
    std::string hit = picker->IsDropped() ? "DropDown"
                      : Date() > before   ? "Up"
                      : Date() < before   ? "Down"
                                          : "";
    picker->CloseUpCalendar();
    picker->SetValue(Variant::Date(before));
    return hit;
  }
};

TEST_F(PickerAppearanceTest, ButtonsLieAtTheRightEdgeAndFlatOnesAreOnePixelSmaller) {
  picker->SetFormat(dtpShortDate);
  picker->Move(Left, Top, 100, 21);
  picker->SetButton(dtpBoth);
  struct Probe {
    int32_t x, y;
    const char* hit;
  };
  const Probe plain[] = {{84, 0, "DropDown"}, {99, 20, "DropDown"}, {68, 0, "Up"}, {83, 9, "Up"},
                         {68, 10, "Down"},    {83, 20, "Down"},     {67, 5, ""}};
  for (const Probe& probe : plain)
    EXPECT_EQ(ButtonAt(probe.x, probe.y), probe.hit) << probe.x << "," << probe.y;
  picker->SetButtonStyle(dtpButtonFlat);
  const Probe flat[] = {{84, 5, ""},  {85, 1, "DropDown"}, {98, 19, "DropDown"},
                        {99, 5, ""},  {69, 1, "Up"},       {82, 8, "Up"},
                        {82, 9, ""},  {69, 11, "Down"},    {82, 19, "Down"},
                        {83, 15, ""}, {69, 20, ""}};
  for (const Probe& probe : flat)
    EXPECT_EQ(ButtonAt(probe.x, probe.y), probe.hit) << probe.x << "," << probe.y;
  picker->SetButton(dtpUpDown);
  EXPECT_EQ(ButtonAt(90, 5), "Up");
  picker->SetButton(dtpNone);
  EXPECT_EQ(ButtonAt(90, 5), "");
}

TEST_F(PickerAppearanceTest, FocusShowsTheFocusColourUpToTheBorderAndADottedRectangle) {
  EXPECT_EQ(PixelAt(TextRight - 2, 10), White);
  picker->SetFocus();
  EXPECT_EQ(PixelAt(TextRight - 2, 10), LightGreen);
  // Sunken 3D: two pixels of border, then the rectangle from 3 to the buttons' width less 3.
  auto dots = [&](int32_t x) {
    int count = 0;
    for (int32_t y = 3; y < PickerHeight - 3; ++y)
      count += PixelAt(x, y) != LightGreen;
    return count;
  };
  EXPECT_GE(dots(3), 6);
  EXPECT_GE(dots(TextRight - 4), 6);
  EXPECT_EQ(dots(TextRight - 3), 0);
  picker->SetShowFocusRect(false);
  EXPECT_EQ(dots(3) + dots(TextRight - 4), 0);
  // The focus colour reaches the border, and the edge itself without one.
  picker->SetBorderStyle(dtpBorderNone);
  EXPECT_EQ(PixelAt(0, 0), LightGreen);
  picker->SetBorderStyle(dtpBorderFixedSingle);
  EXPECT_EQ(PixelAt(0, 0), 0u);
  EXPECT_EQ(PixelAt(1, 1), LightGreen);
  picker->SetUseFocusColor(false);
  picker->SetValue(Variant::Null()); // shows no text at all
  for (int32_t x = 2; x < TextRight; ++x)
    for (int32_t y = 2; y < PickerHeight - 2; ++y)
      ASSERT_EQ(PixelAt(x, y), White) << x << "," << y;
}

TEST_F(PickerAppearanceTest, AButtonStyleAbove2IsRefused) {
  picker->SetButtonStyle(dtpButtonThin3D);
  const ControlError error = Raised([&] { picker->SetButtonStyle(3); });
  EXPECT_EQ(error.Number(), 5065);
  EXPECT_EQ(error.Source(), "Tarnbrook.DatePicker");
  EXPECT_EQ(error.Description(), "Invalid ButtonStyle!");
  EXPECT_EQ(picker->ButtonStyle(), dtpButtonThin3D);
  picker->SetCalendarButtonStyle(-1); // only styles above the last are refused
  EXPECT_EQ(picker->CalendarButtonStyle(), -1);
}

} // namespace
} // namespace tarnbrook
