#include <gtest/gtest.h>

#include <filesystem>

#include "common/date_runtime.hpp"
#include "common/locale.hpp"
#include "common/ole_color.hpp"
#include "draw/cmdc.hpp"
#include "picker/format_cutter.hpp"
#include "picker/picker_format.hpp"
#include "tests/support/raised.hpp"

namespace tarnbrook {
namespace {

constexpr int32_t TextLeft = 3;
constexpr int32_t LineHeight = 21;

// Puts the process locale back when a test has changed it.
class LocaleRestorer {
public:
  ~LocaleRestorer() { SetCurrentLocale(saved_); }

private:
  Locale saved_ = CurrentLocale();
};

class FormatCutterTest : public ::testing::Test {
protected:
  FormatCutterTest() {
    surface.Resize(400, LineHeight);
    surface.SetFont("DejaVu Sans", 8);
  }

  std::vector<CDateMask> Cut(std::string_view format) {
    return CutDateFormat(surface, format, TextLeft, LineHeight);
  }

  // Each field's Mask, literals in brackets: "dd [/] MM".
  std::string Masks(std::string_view format) {
    std::string masks;
    for (const CDateMask& field : Cut(format)) {
      masks += (masks.empty() ? "" : " ") +
               (field.isliteral() ? "[" + field.Mask() + "]" : field.Mask());
    }
    return masks;
  }

  cMDC surface;
};

TEST_F(FormatCutterTest, ShortDateGivesFiveFieldsPlacedLeftToRight) {
  const std::vector<CDateMask> fields = Cut("dd/MM/yyyy");
  ASSERT_EQ(fields.size(), 5u);
  EXPECT_EQ(Masks("dd/MM/yyyy"), "dd [/] MM [/] yyyy");
  EXPECT_EQ(fields[0].Left(), TextLeft);
  for (size_t i = 1; i < fields.size(); ++i) {
    EXPECT_EQ(fields[i].Left(), fields[i - 1].Left() + fields[i - 1].Width()) << i;
    EXPECT_EQ(fields[i].Height(), LineHeight);
  }
  EXPECT_EQ(fields[1].Width(), surface.TextWidth("/"));
  EXPECT_EQ(fields[4].Width(), surface.TextWidth("0000") + 2);
}

TEST_F(FormatCutterTest, LiteralTextBetweenTokensBecomesOneField) {
  EXPECT_EQ(Masks("'Week' d"), "[Week ] d");
  EXPECT_EQ(Masks("dddd, MMMM d, yyyy"), "dddd [, ] MMMM [ ] d [, ] yyyy");
  EXPECT_EQ(Masks("\\d\\a\\y d 'o''clock"), "[day ] d [ oclock]");
  EXPECT_EQ(Masks("HH 'h"), "HH [ h]");
  EXPECT_EQ(Masks("d\\"), "d");
  EXPECT_EQ(Masks("d 'x\\"), "d [ x\\]");
  EXPECT_EQ(Masks("'' d"), "[ ] d");
  EXPECT_EQ(Masks("\\\xC3\xA9 d"), "[\xC3\xA9 ] d");
  EXPECT_EQ(Masks("Week"), "[Week]");
  EXPECT_TRUE(Cut("").empty());
}

TEST_F(FormatCutterTest, LongestTokenWinsAndOnlySomeLettersSwallowRepeats) {
  EXPECT_EQ(Masks("ddddd"), "dddd");
  EXPECT_EQ(Masks("MMMMM"), "MMMM M");
  EXPECT_EQ(Masks("yyyyy"), "yyyy y");
  EXPECT_EQ(Masks("yyy"), "yyyy");
  EXPECT_EQ(Masks("hhhh:mmm:sss ttt"), "hh [:] nn [:] ss [ ] tt");
  EXPECT_EQ(Masks("HHH"), "HH");
  EXPECT_EQ(Masks("hH"), "h H");
  EXPECT_EQ(Masks("mm MM"), "nn [ ] MM");
}

TEST_F(FormatCutterTest, MinutesAndMonthsAreToldByCase) {
  const std::vector<CDateMask> fields = Cut("mm MM");
  EXPECT_EQ(fields[0].MaskType(), "m");
  EXPECT_EQ(fields[2].MaskType(), "M");
}

TEST_F(FormatCutterTest, SeparatorsComeFromTheLocaleAtEachCut) {
  EXPECT_EQ(Masks("d/M H:m"), "d [/] M [ ] H [:] n");
  {
    LocaleRestorer restore;
    Locale dotted = CurrentLocale();
    dotted.DateSeparator = ".";
    dotted.TimeSeparator = "-";
    SetCurrentLocale(dotted);
    EXPECT_EQ(Masks("dd/MM/yyyy HH:mm"), "dd [.] MM [.] yyyy [ ] HH [-] nn");
    EXPECT_EQ(Masks("dd\\/MM"), "dd [/] MM");
  }
  EXPECT_EQ(Masks("d/M"), "d [/] M");
}

TEST_F(FormatCutterTest, WidthsBeyondThirtyTwoBitsOverflow) {
  EXPECT_EQ(RaisedNumber([&] { CutDateFormat(surface, "dd/MM", INT32_MAX - 10, 21); }), 6);
}

TEST(PickerFormatString, LocalePatternsAreReadOnceCustomTextIsPassedThrough) {
  LocaleRestorer restore;
  const std::string longDate = PickerFormatString(dtpLongDate, "x");
  const std::string shortDate = PickerFormatString(dtpShortDate, "x");
  const std::string time = PickerFormatString(dtpTime, "x");
  EXPECT_FALSE(longDate.empty());
  Locale other = CurrentLocale();
  other.LongDatePattern = "yyyy MMMM";
  other.ShortDatePattern = "yy-M-d";
  other.TimePattern = "HH.mm";
  SetCurrentLocale(other);
  LoadPickerPatterns();
  EXPECT_EQ(PickerFormatString(dtpLongDate, ""), longDate);
  EXPECT_EQ(PickerFormatString(dtpShortDate, ""), shortDate);
  EXPECT_EQ(PickerFormatString(dtpTime, ""), time);
  EXPECT_EQ(PickerFormatString(dtpCustom, "'Week' d"), "'Week' d");
  EXPECT_EQ(PickerFormatString(4, "d"), "");
  EXPECT_EQ(PickerFormatString(-1, "d"), "");
}

// A long date with its month selected, written out to be looked at.
TEST_F(FormatCutterTest, LongDateDrawsWithTheSelectedFieldHighlighted) {
  constexpr COLORREF Back = 0xFFFFFF;
  surface.SetBackColor(Back);
  surface.SetForeColor(vbWindowText);
  std::vector<CDateMask> fields = Cut("dddd, MMMM dd, yyyy 'at' hh:mm tt");
  ASSERT_EQ(fields.size(), 13u);
  CDateMask& month = fields[2];
  month.SetSelected(true);
  for (CDateMask& field : fields) {
    field.SetValue(DateSerial(2005, 3, 7) + TimeSerial(14, 5, 0));
    field.Draw();
  }
  const std::filesystem::path out = std::filesystem::path(TARNBROOK_TEST_OUTPUT) / "picker";
  std::filesystem::create_directories(out);
  Canvas* canvas = Canvas::FromHandle(surface.hDC());
  canvas->WritePng((out / "long_date_fields.png").string());

  const int32_t middle = LineHeight / 2;
  EXPECT_EQ(canvas->GetPixel(month.Left() + 1, middle), static_cast<COLORREF>(GetSysColor(13)));
  EXPECT_EQ(canvas->GetPixel(month.Left() + 1, 0), Back);
  EXPECT_EQ(canvas->GetPixel(fields[0].Left() + 1, middle), Back);
  EXPECT_EQ(fields.back().Text(), "PM");
}

} // namespace
} // namespace tarnbrook
