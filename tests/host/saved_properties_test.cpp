// How a class's description reads a saved form: the mechanism once, on a small class of its
// own. What each real class's table writes is pinned byte for byte by the saved-forms fixture.
#include <gtest/gtest.h>

#include "host/saved_properties.hpp"

namespace tarnbrook {
namespace {

struct Gauge : Object {
  int32_t level = 0, raw = 0;
  int16_t year = 2000;
  std::string label = "none";
  std::vector<std::string> applied; // the setters in the order they ran

  int32_t Level() const { return level; }
  void SetLevel(int32_t value) {
    if (value < 0)
      RaiseRuntimeError(rtInvalidProcedureCall, "Gauge");
    level = value;
    applied.push_back("Level");
  }
  int32_t Raw() const { return raw; }
  void SetRaw(int32_t value) { raw = value + 1000; } // never called: Raw loads straight in
  int16_t Year() const { return year; }
  void SetYear(int16_t value) {
    year = value;
    applied.push_back("Year");
  }
  const std::string& Label() const { return label; }
  void SetLabel(std::string value) {
    if (value == "bad")
      RaiseRuntimeError(rtInvalidProcedureCall, "Gauge");
    label = std::move(value);
    applied.push_back("Label");
  }

  static const ClassInfo& Info() {
    using T = MemberType;
    static const ClassInfo info = [] {
      ClassInfo c;
      c.name = "Gauge";
      c.properties = {
          Property<&Gauge::Level, &Gauge::SetLevel>("Level", T::Long, "Level")
              .Saved({.read = 3, .byDefault = int32_t(0)}),
          Property<&Gauge::Label, &Gauge::SetLabel>("Label", T::String, "Label")
              .Saved({.read = 1, .byDefault = "none", .quiet = true}),
          Property<&Gauge::Year, &Gauge::SetYear>("Year", T::Integer, "Year")
              .Saved({.read = 2,
                      .defaultOf = [](Object& o) { return Variant(static_cast<Gauge&>(o).year); }}),
          Property<&Gauge::Raw, &Gauge::SetRaw>("Raw", T::Long, "Raw")
              .Saved({.read = 4, .byDefault = int32_t(0), .load = Store<&Gauge::raw>(T::Long)}),
          Property<&Gauge::Level>("Unsaved", T::Long),
      };
      return c;
    }();
    return info;
  }
};

TEST(SavedPropertiesTest, KeysAreReadInTheirOrderSomeStraightIntoTheirField) {
  Gauge gauge;
  MemoryPropertyBag bag;
  bag.WriteProperty("Level", int32_t(7));
  bag.WriteProperty("YEAR", int16_t(1999)); // keys match without regard to case
  bag.WriteProperty("Label", "north");
  bag.WriteProperty("Raw", int32_t(5));
  bag.WriteProperty("Unsaved", int32_t(9));
  EXPECT_FALSE(ReadSavedProperties(gauge, Gauge::Info(), bag));
  EXPECT_EQ(gauge.applied, (std::vector<std::string>{"Label", "Year", "Level"}));
  EXPECT_EQ(gauge.raw, 5); // straight into the field, not through its setter

  // An absent year keeps the one the control holds.
  MemoryPropertyBag noYear;
  EXPECT_FALSE(ReadSavedProperties(gauge, Gauge::Info(), noYear));
  EXPECT_EQ(gauge.year, 1999);
  EXPECT_EQ(gauge.level, 0);
}

TEST(SavedPropertiesTest, EveryKeyIsReadAndTheFirstRefusalIsNamedUnlessQuiet) {
  Gauge gauge;
  MemoryPropertyBag bag;
  bag.WriteProperty("Label", "bad");       // refused quietly
  bag.WriteProperty("Year", "no year");    // refused: the first that is not quiet
  bag.WriteProperty("Level", int32_t(-1)); // refused too, but not the first
  bag.WriteProperty("Raw", int32_t(3));
  std::optional<ControlError> refused = ReadSavedProperties(gauge, Gauge::Info(), bag);
  ASSERT_TRUE(refused);
  EXPECT_EQ(refused->Number(), rtTypeMismatch);
  EXPECT_EQ(refused->Description().rfind("property 'Year': ", 0), 0u) << refused->Description();
  EXPECT_EQ(gauge.label, "none");
  EXPECT_EQ(gauge.level, 0);
  EXPECT_EQ(gauge.raw, 3);
}

} // namespace
} // namespace tarnbrook
