#include <gtest/gtest.h>

#include "common/date_runtime.hpp"
#include "common/property_bag.hpp"

namespace tarnbrook {
namespace {

std::vector<std::string> Keys(const MemoryPropertyBag& bag) {
  std::vector<std::string> keys;
  for (const auto& entry : bag.Entries())
    keys.push_back(entry.first);
  return keys;
}

TEST(PropertyBagTest, KeysIgnoreCaseAndAbsentKeysReadTheirDefault) {
  MemoryPropertyBag bag;
  bag.WriteProperty("Selectedyear", int32_t(2024));
  EXPECT_EQ(bag.ReadProperty("SelectedYear", int32_t(0)), Variant(int32_t(2024)));
  EXPECT_TRUE(bag.Contains("SELECTEDYEAR"));
  bag.WriteProperty("Value", Variant::Date(45000));
  bag.WriteProperty("SELECTEDYEAR", int32_t(2025)); // in the place and spelling it first had
  EXPECT_EQ(Keys(bag), (std::vector<std::string>{"Selectedyear", "Value"}));
  EXPECT_EQ(bag.ReadProperty("selectedyear"), Variant(int32_t(2025)));
  EXPECT_EQ(bag.ReadProperty("MinDate", "1/1/1601"), Variant("1/1/1601"));
}

TEST(PropertyBagTest, ValueEqualToDefaultIsOmittedAndRemovesAnEarlierOne) {
  MemoryPropertyBag bag;
  bag.WriteProperty("HoverIcon", true, true);
  bag.WriteProperty("ButtonWidth", int16_t(15), int32_t(15)); // same number, other width
  EXPECT_TRUE(bag.Entries().empty());

  bag.WriteProperty("EmptyButton", false, true);
  EXPECT_TRUE(bag.Contains("EmptyButton"));
  bag.WriteProperty("emptybutton", true, true);
  EXPECT_FALSE(bag.Contains("EmptyButton"));

  // Types other than numbers never equal each other, but for a date and a text default that
  // reads as the same date.
  bag.WriteProperty("MinDate", Variant::Date(0), 0.0);
  EXPECT_TRUE(bag.Contains("MinDate"));
  bag.WriteProperty("MinDate", Variant::Date(DateSerial(1601, 1, 1)), "1/1/1601");
  EXPECT_FALSE(bag.Contains("MinDate"));
  bag.WriteProperty("MinDate", Variant::Date(DateSerial(1601, 1, 2)), "1/1/1601");
  bag.WriteProperty("Caption", "1/1/1601", Variant::Date(DateSerial(1601, 1, 1)));
  bag.WriteProperty("Text", Variant::Date(DateSerial(1601, 1, 1)), "no date");
  EXPECT_EQ(bag.Entries().size(), 3u);
}

} // namespace
} // namespace tarnbrook
