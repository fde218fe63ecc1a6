#include "host/standard_text.hpp"
#include "tests/host/standard_controls_fixture.hpp"

namespace tarnbrook {
namespace {

class CheckBoxTest : public StandardControlsTest {
protected:
  static constexpr int32_t Height = 17;
  CheckBoxTest() : check(Add<CheckBox>("chkCustom", 20, 30, 120, Height)) {
    check.SetCaption("&Include today");
    check.Connect(&log);
  }
  // The middle of the box's well, where the check mark's stroke passes.
  COLORREF MarkPixel(int32_t boxLeft = 0) { return Pixel(check, boxLeft + 5, Height / 2 + 1); }

  CheckBox& check;
  StandardEventLog log;
};

TEST_F(CheckBoxTest, AClickOrSpaceTogglesAndRaisesClickButAPressDraggedAwayDoesNot) {
  hand.Click(check, 60, 8); // on the caption
  EXPECT_EQ(check.Value(), vbChecked);
  EXPECT_TRUE(HasFocus(check));
  platform.Key(VK_SPACE);
  EXPECT_EQ(check.Value(), vbUnchecked);
  EXPECT_EQ(log.Take(), (Log{"Click", "Click"}));

  Point inside = hand.At(check, 5, 8), outside = hand.At(check, 5, 40);
  platform.MouseDown(VK_LBUTTON, inside.x, inside.y);
  EXPECT_EQ(Pixel(check, 5, 5), Sys(COLOR_BTNFACE)); // pushed
  platform.MouseMove(outside.x, outside.y);
  EXPECT_EQ(Pixel(check, 5, 5), Sys(COLOR_WINDOW));
  platform.MouseUp(VK_LBUTTON, outside.x, outside.y);
  EXPECT_EQ(check.Value(), vbUnchecked);

  platform.KeyDown(VK_SPACE); // Space toggles on its release
  EXPECT_EQ(check.Value(), vbUnchecked);
  platform.KeyUp(VK_SPACE);
  EXPECT_EQ(check.Value(), vbChecked);

  check.SetValue(vbGrayed);
  check.SetValue(vbGrayed); // no change, no Click
  hand.Click(check, 5, 8);  // grayed goes to checked
  EXPECT_EQ(check.Value(), vbChecked);
  EXPECT_EQ(log.Take(), (Log{"Click", "Click", "Click"}));

  check.SetEnabled(false);
  hand.Click(check, 5, 8);
  EXPECT_EQ(check.Value(), vbChecked);
}

TEST_F(CheckBoxTest, TheBoxShowsItsStateTheFocusAndTheDisabledLook) {
  EXPECT_EQ(Pixel(check, 0, (Height - 13) / 2), Sys(COLOR_BTNSHADOW)); // the sunken edge
  EXPECT_EQ(MarkPixel(), Sys(COLOR_WINDOW));
  check.SetValue(vbChecked);
  EXPECT_EQ(MarkPixel(), Sys(COLOR_WINDOWTEXT));
  check.SetValue(vbGrayed);
  EXPECT_EQ(MarkPixel(), Sys(COLOR_GRAYTEXT));
  EXPECT_EQ(Pixel(check, 4, 5), Sys(COLOR_BTNFACE)); // a grey well

  // The caption stands beside the box: on its right, or on its left with Alignment 1.
  Rect captionRight = Ink(check, Sys(COLOR_BTNFACE), {14, 0, 120, Height});
  EXPECT_GE(captionRight.left, 13 + 3);
  check.SetAlignment(1);
  EXPECT_EQ(MarkPixel(120 - 13), Sys(COLOR_GRAYTEXT));
  Rect captionLeft = Ink(check, Sys(COLOR_BTNFACE), {0, 0, 120 - 14, Height});
  EXPECT_EQ(captionLeft.Width(), captionRight.Width());
  EXPECT_LE(captionLeft.right, 120 - 13 - 3);

  // The focus rectangle goes round the caption.
  const Rect caption{0, 0, 120 - 14, Height};
  int face = Count(check, Sys(COLOR_BTNFACE), caption);
  check.SetFocus();
  EXPECT_GT(face - Count(check, Sys(COLOR_BTNFACE), caption), captionLeft.Width());

  EXPECT_GT(Count(check, Sys(COLOR_BTNTEXT), caption), 0);
  check.SetEnabled(false);
  EXPECT_EQ(Count(check, Sys(COLOR_BTNTEXT), caption), 0);
  EXPECT_GT(Count(check, Sys(COLOR_BTNHIGHLIGHT), caption), 10); // the etched caption
}

class LabelTest : public StandardControlsTest {
protected:
  static constexpr int32_t Width = 150;
  LabelTest() : label(Add<Label>("lblFrom", 10, 10, Width, 16)) { label.SetCaption("From date"); }
  Rect Caption() { return Ink(label, Sys(COLOR_BTNFACE), {0, 0, Width, 16}); }
  Label& label;
};

TEST_F(LabelTest, TheCaptionStandsByItsAlignmentAndMeasuresWhatItDraws) {
  Rect left = Caption();
  EXPECT_LE(left.left, 1);
  EXPECT_NEAR(left.Width(), label.CaptionWidth(), 2);
  EXPECT_LE(left.bottom, label.CaptionHeight());
  label.SetAlignment(2);
  Rect centre = Caption();
  EXPECT_NEAR(centre.left + centre.right, Width, 2);
  label.SetAlignment(1);
  Rect right = Caption();
  EXPECT_GE(right.right, Width - 1);
  EXPECT_EQ(right.Width(), left.Width());

  int32_t narrow = label.CaptionWidth();
  tarnbrook::Font bigger = label.Font();
  bigger.Size = 12;
  label.SetFont(bigger);
  EXPECT_GT(label.CaptionWidth(), narrow);
  label.SetCaption("&&"); // a doubled ampersand shows one
  EXPECT_EQ(label.CaptionWidth(), MeasureLine(bigger, "&").cx);
}

TEST_F(LabelTest, ColoursAndTheDisabledLookAreItsOwn) {
  label.SetBackColor(0x00FFFF);
  label.SetForeColor(0xFF0000);
  EXPECT_EQ(Pixel(label, Width - 1, 15), 0x00FFFFu);
  EXPECT_GT(Count(label, 0xFF0000), 0);
  label.SetEnabled(false);
  EXPECT_EQ(Count(label, 0xFF0000), 0);
  EXPECT_GT(Count(label, Sys(COLOR_GRAYTEXT)), 0);
}

} // namespace
} // namespace tarnbrook
