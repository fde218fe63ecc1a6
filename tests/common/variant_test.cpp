#include <gtest/gtest.h>

#include <functional>

#include "common/control_error.hpp"
#include "common/date_runtime.hpp"
#include "common/font.hpp"
#include "common/variant.hpp"
#include "tests/support/raised.hpp"

namespace tarnbrook {
namespace {

TEST(VariantTest, BooleansAndWholeNumbers) {
  EXPECT_TRUE(Variant("True").ToBoolean());
  EXPECT_FALSE(Variant("false").ToBoolean());
  EXPECT_FALSE(Variant("0").ToBoolean());
  EXPECT_TRUE(Variant(0.25).ToBoolean());
  EXPECT_EQ(RaisedNumber([] { Variant("yes").ToBoolean(); }), 13);

  // Through CInt and CLng, whose rounding and ranges the conversions test holds.
  EXPECT_EQ(Variant("12").ToInteger(), 12);
  EXPECT_EQ(Variant(true).ToInteger(), -1);
  EXPECT_EQ(Variant::Date(1.75).ToLong(), 2);
  EXPECT_EQ(RaisedNumber([] { Variant(int32_t(40000)).ToInteger(); }), 6);
  EXPECT_EQ(RaisedNumber([] { Variant("1x").ToLong(); }), 13);
}

TEST(VariantTest, DatesFromTextAndNumbers) {
  EXPECT_EQ(Variant("1/1/1601").ToDate(), DateSerial(1601, 1, 1));
  EXPECT_EQ(Variant(-1.25).ToDate(), -1.25);
  EXPECT_EQ(RaisedNumber([] { Variant(1e10).ToDate(); }), 6);
  EXPECT_EQ(RaisedNumber([] { Variant("not a date").ToDate(); }), 13);
}

TEST(VariantTest, Text) {
  EXPECT_EQ(Variant().ToString(), "");
  EXPECT_EQ(Variant(true).ToString(), "True");
  EXPECT_EQ(Variant::Date(DateSerial(9999, 12, 31) + TimeSerial(23, 59, 59)).ToString(),
            "12/31/9999 11:59:59 PM");
  // Doubles: at most 15 significant digits, exponent form below 1E-04 and from 1E+15.
  EXPECT_EQ(Variant(0.5).ToString(), "0.5");
  EXPECT_EQ(Variant(100.0).ToString(), "100");
  EXPECT_EQ(Variant(0.1 + 0.2).ToString(), "0.3");
  EXPECT_EQ(Variant(-123456789012345.0).ToString(), "-123456789012345");
  EXPECT_EQ(Variant(1e15).ToString(), "1E+15");
  EXPECT_EQ(Variant(0.0001).ToString(), "0.0001");
  EXPECT_EQ(Variant(1.5e-7).ToString(), "1.5E-07");
  EXPECT_EQ(Variant(-0.0).ToString(), "0");
}

TEST(VariantTest, NullAndObjectsConvertToNothingElse) {
  Variant null = Variant::Null();
  for (const auto& convert : std::vector<std::function<void()>>{
           [&] { null.ToBoolean(); }, [&] { null.ToInteger(); }, [&] { null.ToLong(); },
           [&] { null.ToDouble(); }, [&] { null.ToDate(); }, [&] { null.ToString(); }})
    EXPECT_EQ(RaisedNumber(convert), 94);
  EXPECT_EQ(RuntimeErrorText(94), "Invalid use of Null");

  auto font = std::make_shared<Font>();
  EXPECT_EQ(Variant(font).ToObject(), font);
  EXPECT_EQ(Variant(std::shared_ptr<Object>()).ToObject(), nullptr);
  EXPECT_EQ(RaisedNumber([&] { Variant(font).ToLong(); }), 13);
  EXPECT_EQ(RaisedNumber([] { Variant(int32_t(1)).ToObject(); }), 13);
}

TEST(VariantTest, EqualityKeepsTypesApartExceptNumbers) {
  EXPECT_EQ(Variant(int16_t(5)), Variant(int32_t(5)));
  EXPECT_EQ(Variant(int32_t(5)), Variant(5.0));
  EXPECT_NE(Variant::Date(5), Variant(5.0));
  EXPECT_NE(Variant("5"), Variant(int32_t(5)));
  EXPECT_NE(Variant(true), Variant(int16_t(-1)));
  EXPECT_NE(Variant(), Variant::Null());
  EXPECT_EQ(Variant::Null(), Variant::Null());

  // Fonts and pictures compare by value.
  auto tahoma = std::make_shared<Font>();
  tahoma->Name = "Tahoma";
  auto same = std::make_shared<Font>(*tahoma);
  EXPECT_EQ(Variant(tahoma), Variant(same));
  same->Bold = true;
  EXPECT_NE(Variant(tahoma), Variant(same));
}

} // namespace
} // namespace tarnbrook
