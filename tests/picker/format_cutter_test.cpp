#include <gtest/gtest.h>

#include "common/date_runtime.hpp"
#include "common/locale.hpp"
#include "draw/cmdc.hpp"
#include "picker/format_cutter.hpp"
#include "picker/picker_format.hpp"
#include "tests/support/raised.hpp"

namespace tarnbrook {
namespace {

constexpr int32_t LineHeight = 21;

class FormatCutterTest : public ::testing::Test {
protected:
  FormatCutterTest() {
    surface.Resize(400, LineHeight);
    surface.SetFont("DejaVu Sans", 8);
  }
  ~FormatCutterTest() override { SetCurrentLocale(savedLocale); }

  std::vector<CDateMask> Cut(std::string_view format) {
    return CutDateFormat(surface, format, 3, LineHeight);
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
  const Locale savedLocale = CurrentLocale();
};

TEST_F(FormatCutterTest, TokensTakeTheLongestMatchLiteralsGatherWithTheLocalesSeparators) {
  // clang-format off
  const std::pair<std::string, std::string> cases[] = {
      {"dd/MM/yyyy", "dd [/] MM [/] yyyy"}, {"'Week' d", "[Week ] d"}, {"d\\", "d"},
      {"\\d\\a\\y d 'o''clock", "[day ] d [ oclock]"}, {"'' d 'x\\", "[ ] d [ x\\]"},
      {"\\\xC3\xA9 d", "[\xC3\xA9 ] d"}, {"ddddd", "dddd"}, {"MMMMM", "MMMM M"}, {"yyyyy", "yyyy y"},
      {"yyy", "yyyy"}, {"hhhh:mmm:sss ttt HHH", "hh [:] nn [:] ss [ ] tt [ ] HH"},
      {"mm MM", "nn [ ] MM"}, {"", ""}};
  // clang-format on
  for (const auto& [format, masks] : cases) {
    EXPECT_EQ(Masks(format), masks) << format;
  }
  EXPECT_EQ(RaisedNumber([&] { CutDateFormat(surface, "dd/MM", INT32_MAX - 10, 21); }), 6);
  Locale dotted = CurrentLocale();
  dotted.DateSeparator = ".";
  dotted.TimeSeparator = "-";
  SetCurrentLocale(dotted);
  EXPECT_EQ(Masks("dd/MM/yyyy HH:mm \\/"), "dd [.] MM [.] yyyy [ ] HH [-] nn [ /]");
}

TEST_F(FormatCutterTest, LocalePatternsAreReadOncePerLocale) {
  const std::string longDate = PickerFormatString(dtpLongDate, "");
  const std::string time = PickerFormatString(dtpTime, "");
  Locale other = CurrentLocale();
  other.LongDatePattern = "yyyy MMMM";
  other.TimePattern = "HH.mm";
  SetCurrentLocale(other);
  LoadPickerPatterns();
  EXPECT_EQ(PickerFormatString(dtpLongDate, "") + PickerFormatString(dtpTime, ""), longDate + time);
  EXPECT_EQ(PickerFormatString(dtpCustom, "'Week' d"), "'Week' d");
  EXPECT_EQ(PickerFormatString(4, "d"), "");
  other.Name = "xx-XX"; // another locale: its own patterns
  SetCurrentLocale(other);
  EXPECT_EQ(PickerFormatString(dtpLongDate, ""), "yyyy MMMM");
  SetCurrentLocale(Locale::EnglishUS());
  EXPECT_EQ(PickerFormatString(dtpLongDate, ""), longDate);
}

// A long date with its month selected: the selected field on the highlight in a box as high as the
// text, the others on the surface's back colour.
TEST_F(FormatCutterTest, LongDateDrawsWithTheSelectedFieldHighlighted) {
  constexpr COLORREF Back = RGB(176, 252, 176);
  surface.SetBackColor(Back);
  surface.SetForeColor(vbWindowText);
  std::vector<CDateMask> fields = Cut("dddd, MMMM dd, yyyy 'at' hh:mm tt");
  ASSERT_EQ(fields.size(), 13u);
  for (size_t i = 0; i < fields.size(); ++i) { // placed one after the other from the left edge
    EXPECT_EQ(fields[i].Left(), i == 0 ? 3 : fields[i - 1].Left() + fields[i - 1].Width()) << i;
  }
  fields[2].SetSelected(true);
  for (CDateMask& field : fields) {
    field.SetValue(DateSerial(2005, 3, 7) + TimeSerial(14, 5, 0));
    field.Draw();
  }
  const Canvas& canvas = *Canvas::FromHandle(surface.hDC());
  const int32_t boxTop = (LineHeight - surface.TextHeight("March")) / 2;
  for (int32_t x = fields[2].Left(); x < fields[2].Left() + fields[2].Width(); ++x) {
    EXPECT_EQ(canvas.GetPixel(x, boxTop), static_cast<COLORREF>(GetSysColor(13))) << x;
    EXPECT_EQ(canvas.GetPixel(x, boxTop - 1), Back) << x;
  }
  for (int32_t y = 0; y < LineHeight; ++y) { // "Monday" straight on the back colour
    EXPECT_NE(canvas.GetPixel(fields[0].Left() + fields[0].Width() / 2, y), 0xFFFFFFu) << y;
  }
}

} // namespace
} // namespace tarnbrook
