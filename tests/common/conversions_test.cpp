#include <cmath>
#include <string_view>

#include <gtest/gtest.h>

#include "common/control_error.hpp"
#include "common/conversions.hpp"

#include "tests/support/raised.hpp"

using namespace tarnbrook;

TEST(Conversions, ValReadsTheLeadingNumber) {
  const struct {
    std::string_view Text;
    double Expected;
  } cases[] = {{"", 0},        {"abc", 0},     {" 1 2 3", 123},     {"12abc", 12},
               {"\t-\n7", -7}, {"+3", 3},      {"  -1.5e2x", -150}, {"2D3", 2000},
               {"1e", 1},      {"1.2.3", 1.2}, {".5", 0.5},         {"-.", 0},
               {"&H1F", 31},   {"&HFFFF", -1}, {"&HFFFF&", 65535},  {"&H10000", 65536},
               {"&O17", 15},   {"&H", 0},      {"1e-400", 0},       {"&HFFFFFFFF", -1}};
  for (const auto& c : cases) {
    EXPECT_EQ(Val(c.Text), c.Expected) << c.Text;
  }
  EXPECT_EQ(RaisedNumber([] { Val("1e400"); }), rtOverflow);
  EXPECT_EQ(RaisedNumber([] { Val("&H100000000"); }), rtOverflow);
}

TEST(Conversions, CDblTakesOnlyAWholeNumber) {
  EXPECT_EQ(CDbl(" 12.5 "), 12.5);
  EXPECT_EQ(CDbl("-3e2"), -300);
  for (std::string_view text : {"", "  ", "12a", "1 2", "-", ".", "1e", "&H"}) {
    EXPECT_EQ(RaisedNumber([text] { CDbl(text); }), rtTypeMismatch) << text;
  }
}

TEST(Conversions, CIntAndCLngRoundHalfToEvenThenCheckRange) {
  const double halves[] = {0.5, 1.5, 2.5, 3.5, -2.5, -3.5, 2.4999, -0.5, -32768.5};
  const int expected[] = {0, 2, 2, 4, -2, -4, 2, 0, -32768};
  for (int i = 0; i < 9; ++i) {
    EXPECT_EQ(CInt(halves[i]), expected[i]) << halves[i];
    EXPECT_EQ(CLng(halves[i]), expected[i]) << halves[i];
  }
  EXPECT_EQ(CLng(-2147483648.5), INT32_MIN);
  for (double value : {32767.5, -32769.0, double(NAN)}) {
    EXPECT_EQ(RaisedNumber([value] { CInt(value); }), rtOverflow) << value;
  }
  for (double value : {2147483647.5, -2147483649.0, double(INFINITY)}) {
    EXPECT_EQ(RaisedNumber([value] { CLng(value); }), rtOverflow) << value;
  }
}
