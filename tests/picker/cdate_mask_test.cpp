#include <gtest/gtest.h>

#include "common/date_runtime.hpp"
#include "common/locale.hpp"
#include "common/ole_color.hpp"
#include "draw/cmdc.hpp"
#include "picker/cdate_mask.hpp"
#include "tests/support/raised.hpp"

namespace tarnbrook {
namespace {

constexpr int32_t LineHeight = 21;

DateValue At(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
  return DateValueFromCivil({year, month, day}, {hour, minute, second});
}

class CDateMaskTest : public ::testing::Test {
protected:
  CDateMaskTest() {
    surface.Resize(200, LineHeight);
    surface.SetFont("DejaVu Sans", 8);
  }

  CDateMask Field(const std::string& mask, DateValue value = At(2005, 1, 31, 13, 5, 9)) {
    CDateMask field;
    field.SetMask(surface, mask, 10, LineHeight);
    field.SetValue(value);
    return field;
  }

  std::string Typed(const std::string& mask, std::string_view keys, DateValue value = 0) {
    CDateMask field = Field(mask, value);
    for (char key : keys) {
      field.TypeDigit(key);
    }
    return field.TypedText();
  }

  // The field's value after typing `keys` and committing; the old value when refused.
  DateValue Committed(const std::string& mask, std::string_view keys, DateValue value) {
    CDateMask field = Field(mask, value);
    for (char key : keys) {
      field.TypeDigit(key);
    }
    const bool accepted = field.Commit();
    EXPECT_EQ(accepted, field.Value() != value) << mask << " " << keys;
    return field.Value();
  }

  cMDC surface;
};

TEST_F(CDateMaskTest, TokensAreMeasuredByProbeTextLiteralsByTheirOwnText) {
  const std::pair<std::string, std::string> probes[] = {
      {"d", "99"},     {"dd", "99"},   {"ddd", "Wed"},       {"dddd", "Wednesday"},
      {"M", "99"},     {"MMM", "AUG"}, {"MMMM", "December"}, {"y", "0000"},
      {"yyy", "0000"}, {"H", "99"},    {"mm", "99"},         {"s", "99"}};
  for (const auto& [mask, probe] : probes) {
    EXPECT_EQ(Field(mask).Width(), surface.TextWidth(probe) + 2) << mask;
  }
  const CDateMask literal = Field(", ");
  EXPECT_TRUE(literal.isliteral());
  EXPECT_EQ(literal.Width(), surface.TextWidth(", "));
  CDateMask forced;
  forced.SetMask(surface, "dd", 3, LineHeight, true);
  EXPECT_TRUE(forced.isliteral());
  EXPECT_EQ(forced.MaskType(), "");
  EXPECT_EQ(forced.Width(), surface.TextWidth("dd"));
  EXPECT_EQ(forced.Left(), 3);
}

TEST_F(CDateMaskTest, AmPmWidthIsTheWiderAfternoonDesignatorCutToTheToken) {
  const Locale saved = CurrentLocale();
  Locale german = saved;
  german.AmDesignator = "vorm.";
  german.PmDesignator = "nachm.";
  SetCurrentLocale(german);
  EXPECT_EQ(Field("t").Width(), surface.TextWidth("n") + 2);
  EXPECT_EQ(Field("tt").Width(), surface.TextWidth("na") + 2);
  EXPECT_EQ(Field("tt", At(2005, 1, 1, 9)).Text(), "vo");
  EXPECT_EQ(Field("t", At(2005, 1, 1, 21)).Text(), "n");
  SetCurrentLocale(saved);
}

TEST_F(CDateMaskTest, MinuteTokensAreStoredAsNAndEachTokenHasItsType) {
  const std::tuple<std::string, std::string, std::string> cases[] = {
      {"m", "n", "m"},       {"mm", "nn", "m"}, {"MM", "MM", "M"}, {"yyy", "yyyy", "y"},
      {"yy", "yy", "y"},     {"H", "H", "h"},   {"hh", "hh", "h"}, {"tt", "tt", "t"},
      {"dddd", "dddd", "d"}, {"ss", "ss", "s"}, {"x", "x", ""}};
  for (const auto& [mask, stored, type] : cases) {
    const CDateMask field = Field(mask);
    EXPECT_EQ(field.Mask(), stored) << mask;
    EXPECT_EQ(field.MaskType(), type) << mask;
    EXPECT_EQ(field.isliteral(), type.empty()) << mask;
  }
}

TEST_F(CDateMaskTest, TextShowsEachTokenOfTheValue) {
  const DateValue value = At(2005, 3, 7, 13, 5, 9); // a Monday
  const std::pair<std::string, std::string> cases[] = {
      {"d", "7"},      {"dd", "07"},   {"ddd", "Mon"},    {"dddd", "Monday"}, {"M", "3"},
      {"MM", "03"},    {"MMM", "Mar"}, {"MMMM", "March"}, {"y", "5"},         {"yy", "05"},
      {"yyy", "2005"}, {"h", "1"},     {"hh", "01"},      {"H", "13"},        {"HH", "13"},
      {"m", "5"},      {"mm", "05"},   {"s", "9"},        {"ss", "09"},       {"t", "P"},
      {"tt", "PM"},    {"at ", "at "}};
  for (const auto& [mask, text] : cases) {
    EXPECT_EQ(Field(mask, value).Text(), text) << mask;
  }
  EXPECT_EQ(Field("h", At(2005, 1, 1, 0, 30)).Text(), "12");
  EXPECT_EQ(Field("hh", At(2005, 1, 1, 12, 30)).Text(), "12");
  EXPECT_EQ(Field("H", At(2005, 1, 1, 0, 30)).Text(), "0");
  EXPECT_EQ(Field("y", At(2000, 1, 1)).Text(), "0");
  EXPECT_EQ(Field("Time: ").Text(), "Time: ");
}

TEST_F(CDateMaskTest, PendingDigitsAreShownInsteadOfTheValue) {
  CDateMask month = Field("MMMM");
  month.SetTypedText("3");
  EXPECT_EQ(month.Text(), "03");
  CDateMask year = Field("yyyy");
  year.SetTypedText("0020");
  EXPECT_EQ(year.Text(), "0020");
  CDateMask half = Field("tt");
  half.SetTypedText("1");
  EXPECT_EQ(half.Text(), "");
}

TEST_F(CDateMaskTest, IncrementAddsOneUnitOfTheFieldsPartWithCarry) {
  const DateValue jan31 = At(2005, 1, 31, 23, 59, 30);
  const std::tuple<std::string, int16_t, DateValue> cases[] = {
      {"MM", 1, At(2005, 2, 28, 23, 59, 30)},
      {"yyyy", -1, At(2004, 1, 31, 23, 59, 30)},
      {"d", 1, At(2005, 2, 1, 23, 59, 30)},
      {"mm", 1, At(2005, 2, 1, 0, 0, 30)},
      {"HH", 1, At(2005, 2, 1, 0, 59, 30)},
      {"ss", 31, At(2005, 2, 1, 0, 0, 1)},
      {"tt", 1, At(2005, 2, 1, 11, 59, 30)},
      {"t", -1, At(2005, 1, 31, 11, 59, 30)},
      {", ", 1, jan31}};
  for (const auto& [mask, amount, expected] : cases) {
    CDateMask field = Field(mask, jan31);
    field.Increment(amount);
    EXPECT_EQ(field.Value(), expected) << mask << " " << amount;
  }
}

TEST_F(CDateMaskTest, AmPmStepBeyondSixteenBitsOverflows) {
  CDateMask field = Field("tt", At(2005, 1, 1));
  field.Increment(2730); // 32760 hours still fit
  EXPECT_EQ(field.Value(), At(2005, 1, 1) + 1365);
  EXPECT_EQ(RaisedNumber([&] { field.Increment(2731); }), 6);
  EXPECT_EQ(RaisedNumber([&] { field.Increment(-2731); }), 6);
}

TEST_F(CDateMaskTest, TypedDigitsKeepTheirFieldsLength) {
  EXPECT_EQ(Typed("dd", "1"), "1");
  EXPECT_EQ(Typed("dd", "12"), "12");
  EXPECT_EQ(Typed("d", "123"), "23");
  EXPECT_EQ(Typed("mm", "059"), "59");
  EXPECT_EQ(Typed("yyyy", "2"), "0002");
  EXPECT_EQ(Typed("yyyy", "20"), "0020");
  EXPECT_EQ(Typed("yyyy", "202"), "0202");
  EXPECT_EQ(Typed("yyyy", "2024"), "2024");
  EXPECT_EQ(Typed("yyyy", "20245"), "0245");
  EXPECT_EQ(Typed("yy", "1"), "01");
  EXPECT_EQ(Typed("yy", "19"), "19");
  EXPECT_EQ(Typed("yy", "199"), "199");
  EXPECT_EQ(Typed("y", "1999"), "1999");
  EXPECT_EQ(Typed("MMM", "12"), "");
  EXPECT_EQ(Typed("dddd", "12"), "");
  EXPECT_EQ(Typed("tt", "1"), "");
  EXPECT_EQ(Typed("/", "1"), "");
  EXPECT_EQ(Typed("dd", "1a"), "1");
  EXPECT_EQ(Typed("yy", "1a", At(1987, 6, 5)), "1987");
}

TEST_F(CDateMaskTest, CommitWritesOnlyNumbersInRange) {
  const DateValue value = At(2005, 4, 15, 13, 20, 30); // April has 30 days
  EXPECT_EQ(Committed("HH", "0", value), At(2005, 4, 15, 0, 20, 30));
  EXPECT_EQ(Committed("H", "23", value), At(2005, 4, 15, 23, 20, 30));
  EXPECT_EQ(Committed("HH", "24", value), value);
  EXPECT_EQ(Committed("h", "12", value), At(2005, 4, 15, 12, 20, 30));
  EXPECT_EQ(Committed("hh", "3", value), At(2005, 4, 15, 15, 20, 30));
  EXPECT_EQ(Committed("hh", "12", At(2005, 4, 15, 9)), At(2005, 4, 15, 0));
  EXPECT_EQ(Committed("h", "0", value), value);
  EXPECT_EQ(Committed("h", "13", value), value);
  EXPECT_EQ(Committed("mm", "0", value), At(2005, 4, 15, 13, 0, 30));
  EXPECT_EQ(Committed("m", "60", value), value);
  EXPECT_EQ(Committed("ss", "59", value), At(2005, 4, 15, 13, 20, 59));
  EXPECT_EQ(Committed("ss", "60", value), value);
  EXPECT_EQ(Committed("MM", "12", value), At(2005, 12, 15, 13, 20, 30));
  EXPECT_EQ(Committed("MM", "13", value), value);
  EXPECT_EQ(Committed("M", "0", value), value);
  EXPECT_EQ(Committed("MM", "2", At(2005, 3, 31, 8)), At(2005, 3, 3, 8)); // 31 Feb rolls over
  EXPECT_EQ(Committed("dd", "30", value), At(2005, 4, 30, 13, 20, 30));
  EXPECT_EQ(Committed("dd", "32", value), value);
  EXPECT_EQ(Committed("d", "31", value), value);
  const DateValue in2003 = At(2003, 4, 15, 13, 20, 30);
  EXPECT_EQ(Committed("yyyy", "5", in2003), value);
  EXPECT_EQ(Committed("yy", "1999", in2003), At(1999, 4, 15, 13, 20, 30));
  EXPECT_EQ(Committed("yy", "30", in2003), At(1930, 4, 15, 13, 20, 30));
  EXPECT_EQ(Committed("yyyy", "1601", in2003), At(1601, 4, 15, 13, 20, 30));
}

TEST_F(CDateMaskTest, CommitWithoutDigitsOrOnALiteralChangesNothing) {
  CDateMask minutes = Field("mm");
  EXPECT_FALSE(minutes.Commit());
  CDateMask literal = Field(":");
  literal.SetTypedText("5");
  EXPECT_FALSE(literal.Commit());
}

TEST_F(CDateMaskTest, HitTestCoversLeftToLeftPlusWidthOnTheLine) {
  const CDateMask field = Field("dd");
  const int32_t right = field.Left() + field.Width();
  EXPECT_TRUE(field.HitTest(10, 0));
  EXPECT_TRUE(field.HitTest(right - 1, LineHeight - 1));
  EXPECT_FALSE(field.HitTest(9, 5));
  EXPECT_FALSE(field.HitTest(right, 5));
  EXPECT_FALSE(field.HitTest(12, LineHeight));
  EXPECT_FALSE(field.HitTest(12, -1));
}

COLORREF Pixel(const cMDC& surface, int32_t x, int32_t y) {
  return Canvas::FromHandle(surface.hDC())->GetPixel(x, y);
}

TEST_F(CDateMaskTest, SelectedFieldIsDrawnOnTheHighlightInATextHighBox) {
  constexpr COLORREF Back = RGB(176, 252, 176);
  surface.SetBackColor(Back);
  surface.SetForeColor(vbWindowText);
  CDateMask field = Field("MMMM");
  field.SetSelected(true);
  field.Draw();
  const int32_t boxHeight = surface.TextHeight(field.Text());
  const int32_t boxTop = (LineHeight - boxHeight) / 2;
  ASSERT_GT(boxTop, 0);
  for (int32_t x = field.Left(); x < field.Left() + field.Width(); ++x) {
    EXPECT_EQ(Pixel(surface, x, boxTop), static_cast<COLORREF>(GetSysColor(13))) << x;
  }
  EXPECT_EQ(Pixel(surface, field.Left() + 1, boxTop - 1), Back);
  EXPECT_EQ(Pixel(surface, field.Left() + 1, boxTop + boxHeight), Back);

  field.SetSelected(false);
  field.Draw();
  int inked = 0;
  for (int32_t y = 0; y < LineHeight; ++y) {
    EXPECT_EQ(Pixel(surface, field.Left() + 1, y), Back) << y;
    for (int32_t x = field.Left(); x < field.Left() + field.Width(); ++x) {
      ASSERT_NE(Pixel(surface, x, y), 0xFFFFFFu) << x << "," << y; // no white behind the text
      inked += Pixel(surface, x, y) != Back;
    }
  }
  EXPECT_GT(inked, 20);
}

} // namespace
} // namespace tarnbrook
