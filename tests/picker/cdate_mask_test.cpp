#include <gtest/gtest.h>

#include <tuple>

#include "common/date_format.hpp"
#include "common/locale.hpp"
#include "draw/cmdc.hpp"
#include "picker/cdate_mask.hpp"
#include "tests/support/raised.hpp"

namespace tarnbrook {
namespace {

DateValue At(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
  return DateValueFromCivil({year, month, day}, {hour, minute, second});
}

std::string Iso(DateValue value) {
  return FormatDate(value, "yyyy-mm-dd hh:nn:ss");
}

class CDateMaskTest : public ::testing::Test {
protected:
  CDateMaskTest() {
    surface.Resize(200, 21);
    surface.SetFont("DejaVu Sans", 8);
  }

  // A field on Monday 7 March 2005 13:05:09 unless told otherwise, after typing `keys`.
  CDateMask Field(const std::string& mask, DateValue value = At(2005, 3, 7, 13, 5, 9),
                  std::string_view keys = "") {
    CDateMask field;
    field.SetMask(surface, mask, 10, 21);
    field.SetValue(value);
    for (char key : keys) {
      field.TypeDigit(key);
    }
    return field;
  }

  cMDC surface;
};

TEST_F(CDateMaskTest, TokensMeasureTheirProbeAmPmTheAfternoonDesignatorLiteralsTheirText) {
  // clang-format off
  for (const auto& [mask, probe] : {std::pair{"d", "99"}, {"ddd", "Wed"}, {"dddd", "Wednesday"},
                                    {"MMM", "AUG"}, {"MMMM", "December"}, {"yyy", "0000"}}) {
    // clang-format on
    EXPECT_EQ(Field(mask).Width(), surface.TextWidth(probe) + 2) << mask;
  }
  CDateMask forced;
  forced.SetMask(surface, "dd", 3, 21, true);
  EXPECT_TRUE(forced.isliteral() && forced.MaskType().empty());
  EXPECT_EQ(forced.Width(), surface.TextWidth("dd"));
  const Locale saved = CurrentLocale();
  Locale german = saved;
  german.AmDesignator = "vorm.";
  german.PmDesignator = "nachm.";
  SetCurrentLocale(german);
  EXPECT_EQ(Field("t").Width(), surface.TextWidth("n") + 2);
  EXPECT_EQ(Field("tt").Width(), surface.TextWidth("na") + 2);
  EXPECT_EQ(Field("tt", At(2005, 1, 1, 9)).Text(), "vo");
  SetCurrentLocale(saved);
}

TEST_F(CDateMaskTest, EachTokenHasItsStoredMaskTypeAndText) {
  // clang-format off
  const std::pair<std::string, std::string> cases[] = {
      {"d", "d|d|7"},    {"dd", "dd|d|07"},      {"ddd", "ddd|d|Mon"}, {"dddd", "dddd|d|Monday"},
      {"M", "M|M|3"},    {"MMM", "MMM|M|Mar"},   {"MMMM", "MMMM|M|March"}, {"y", "y|y|5"},
      {"yy", "yy|y|05"}, {"yyy", "yyyy|y|2005"}, {"h", "h|h|1"},       {"hh", "hh|h|01"},
      {"H", "H|h|13"},   {"HH", "HH|h|13"},      {"m", "n|m|5"},       {"mm", "nn|m|05"},
      {"s", "s|s|9"},    {"t", "t|t|P"},         {"tt", "tt|t|PM"},    {"Time ", "Tine ||Time "}};
  // clang-format on
  for (const auto& [mask, expected] : cases) {
    const CDateMask field = Field(mask);
    EXPECT_EQ(field.Mask() + "|" + field.MaskType() + "|" + field.Text(), expected);
    EXPECT_EQ(field.isliteral(), field.MaskType().empty()) << mask;
  }
  EXPECT_EQ(Field("h", At(2005, 1, 1, 0, 30)).Text(), "12");
  EXPECT_EQ(Field("M", 0, "3").Text(), "03"); // pending digits replace the value
  const CDateMask day = Field("dd");
  EXPECT_TRUE(day.HitTest(10, 0) && day.HitTest(9 + day.Width(), 20));
  EXPECT_FALSE(day.HitTest(9, 0) || day.HitTest(10 + day.Width(), 0) || day.HitTest(10, 21));
}

TEST_F(CDateMaskTest, IncrementAddsUnitsOfTheFieldsPartWithCarry) {
  // clang-format off
  const std::tuple<std::string, int16_t, std::string> cases[] = {
      {"MM", 1, "2005-02-28 23:59:30"}, {"yyyy", -1, "2004-01-31 23:59:30"},
      {"d", 1, "2005-02-01 23:59:30"},  {"mm", 1, "2005-02-01 00:00:30"},
      {"HH", 1, "2005-02-01 00:59:30"}, {"ss", 31, "2005-02-01 00:00:01"},
      {"tt", 1, "2005-02-01 11:59:30"}, {"t", -1, "2005-01-31 11:59:30"},
      {", ", 1, "2005-01-31 23:59:30"}};
  // clang-format on
  for (const auto& [mask, amount, expected] : cases) {
    CDateMask field = Field(mask, At(2005, 1, 31, 23, 59, 30));
    field.Increment(amount);
    EXPECT_EQ(Iso(field.Value()), expected) << mask << " " << amount;
  }
  CDateMask half = Field("tt", At(2005, 1, 1));
  half.Increment(2730); // 32760 hours still fit in 16 bits
  EXPECT_EQ(RaisedNumber([&] { half.Increment(-2731); }), 6);
}

TEST_F(CDateMaskTest, TypedDigitsKeepTheFieldsLength) {
  // clang-format off
  const std::tuple<std::string, std::string, std::string> cases[] = {
      {"d", "123", "23"},     {"mm", "59", "59"},      {"yyyy", "2", "0002"},
      {"yyyy", "20", "0020"}, {"yyyy", "202", "0202"}, {"yyyy", "20245", "0245"},
      {"yy", "1", "01"},      {"yy", "199", "199"},    {"y", "1999", "1999"},
      {"MMM", "12", ""},      {"dddd", "1", ""},       {"tt", "1", ""},
      {"dd", "1a", "1"},      {"yy", "1a", "1987"}};
  // clang-format on
  for (const auto& [mask, keys, typed] : cases) {
    EXPECT_EQ(Field(mask, At(1987, 6, 5), keys).TypedText(), typed) << mask << " " << keys;
  }
}

TEST_F(CDateMaskTest, CommitWritesOnlyNumbersInRange) {
  // clang-format off
  const std::tuple<std::string, std::string, std::string> cases[] = {
      {"HH", "0", "2003-04-15 00:20:30"},   {"H", "23", "2003-04-15 23:20:30"},   {"HH", "24", ""},
      {"h", "12", "2003-04-15 12:20:30"},   {"hh", "3", "2003-04-15 15:20:30"},   {"h", "0", ""},
      {"h", "13", ""},                      {"mm", "0", "2003-04-15 13:00:30"},   {"m", "60", ""},
      {"ss", "59", "2003-04-15 13:20:59"},  {"MM", "12", "2003-12-15 13:20:30"},  {"MM", "13", ""},
      {"M", "0", ""},                       {"dd", "30", "2003-04-30 13:20:30"},  {"dd", "32", ""},
      {"d", "31", ""},                      {"yyyy", "5", "2005-04-15 13:20:30"}, {"mm", "", ""},
      {"yy", "1999", "1999-04-15 13:20:30"}, {"yy", "30", "1930-04-15 13:20:30"}, {":", "5", ""},
      {"yyyy", "1601", "1601-04-15 13:20:30"}};
  // clang-format on
  const DateValue april = At(2003, 4, 15, 13, 20, 30); // a month of 30 days
  for (const auto& [mask, keys, expected] : cases) {
    CDateMask field = Field(mask, april, keys);
    EXPECT_EQ(field.Commit(), !expected.empty()) << mask << " " << keys;
    EXPECT_EQ(Iso(field.Value()), expected.empty() ? Iso(april) : expected) << mask << " " << keys;
  }
  CDateMask morning = Field("hh", At(2003, 3, 31, 9), "12"); // keeps the half of the day
  CDateMask month = Field("MM", At(2003, 3, 31, 8), "2");    // 31 February rolls over
  EXPECT_TRUE(morning.Commit() && month.Commit());
  EXPECT_EQ(Iso(morning.Value()) + " " + Iso(month.Value()),
            "2003-03-31 00:00:00 2003-03-03 08:00:00");
}

} // namespace
} // namespace tarnbrook
