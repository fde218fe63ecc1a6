#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>

#include "common/date_runtime.hpp"
#include "common/font.hpp"
#include "common/picture.hpp"
#include "host/container.hpp"
#include "host/control_registry.hpp"
#include "platform/memory/memory_platform.hpp"
#include "tests/host/test_support.hpp"

namespace tarnbrook {
namespace {

// Every kind of value a form file keeps, under its own key.
std::vector<std::pair<std::string, Variant>> EveryValue() {
  auto font = std::make_shared<Font>();
  font->Name = "Tahoma";
  font->Size = 8.3f;
  font->Bold = font->Strikethrough = true;
  auto picture = std::make_shared<Picture>(
      2, 1, std::vector<uint32_t>{0xFF102030, 0x80402000}); // opaque, half transparent
  return {
      {"Empty", Variant()},
      {"Null", Variant::Null()},
      {"True", true},
      {"Integer", int16_t(-32768)},
      {"Long", int32_t(INT32_MIN)},
      {"LongOne", int32_t(1)},
      {"Double", 0.1},
      {"DoubleWhole", 3.0},
      {"Huge", 1.7976931348623157e308},
      {"Infinity", -INFINITY},
      {"FirstDate", Variant::Date(DateSerial(1601, 1, 1))},
      {"LastDate", Variant::Date(DateSerial(9999, 12, 31) + TimeSerial(23, 59, 59))},
      {"BeforeEpoch", Variant::Date(-1.25)},
      {"Text", "He said \"hi\"\r\nthen \\left\t\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80"},
      {"Nul", std::string("a\0b", 3)},
      {"NotUtf8", std::string("\xFF\xFE x")},
      {"Font", std::shared_ptr<Object>(font)},
      {"Picture", std::shared_ptr<Object>(picture)},
      {"Nothing", std::shared_ptr<Object>()},
  };
}

class FormFileTest : public ::testing::Test {
protected:
  FormFileTest() { RegisterControlClass<ProbeControl>("ProbeControl"); }

  ProbeControl& AddProbe(Container& container, const std::string& name) {
    return static_cast<ProbeControl&>(
        container.Add(std::make_unique<ProbeControl>(), name, 10, 20, 120, 40));
  }

  MemoryPlatform platform;
  Container form;
};

TEST_F(FormFileTest, EveryValueTypeReadsBackExactly) {
  ProbeControl& saved = AddProbe(form, "Probe1");
  saved.number = 77;
  for (const auto& [key, value] : EveryValue())
    saved.extras.WriteProperty(key, value, ProbeControl::DefaultUnlike(value));

  std::string path = std::string(TARNBROOK_TEST_OUTPUT) + "/every_value.json";
  std::filesystem::create_directories(TARNBROOK_TEST_OUTPUT);
  form.SaveToFile(path);
  Container loaded;
  loaded.LoadFromFile(path);

  ASSERT_EQ(loaded.Count(), 1u);
  EXPECT_EQ(loaded.Name(0), "Probe1");
  auto& probe = static_cast<ProbeControl&>(loaded.Item(0));
  EXPECT_EQ(probe.number, 77);
  EXPECT_EQ(platform.GetWindowRect(probe.hWnd()), platform.GetWindowRect(saved.hWnd()));
  ASSERT_EQ(probe.extras.Entries().size(), EveryValue().size());
  for (const auto& [key, value] : EveryValue()) {
    Variant read = probe.extras.ReadProperty(key, "absent");
    EXPECT_EQ(read.VarType(), value.VarType()) << key;
    EXPECT_TRUE(read == value) << key;
    if (value.VarType() == vbDouble || value.VarType() == vbDate) {
      EXPECT_EQ(std::signbit(read.ToDouble()), std::signbit(value.ToDouble())) << key;
    }
  }
}

TEST_F(FormFileTest, BadFilesNameThePlaceAndLeaveTheFormAsItWas) {
  ProbeControl& kept = AddProbe(form, "Kept");
  kept.number = 5;
  std::string good = form.SaveToText();

  struct Case {
    std::string text;
    std::string message;
  };
  std::vector<Case> cases = {
      {good.substr(0, good.find("\"left\"")),
       "Form file 'form.json': syntax error at line 7, column 7: unexpected end of input"},
      {"{\n  \"version\": 1,\n  \"controls\": [\n    {\"class\" \"ProbeControl\"}]}",
       "Form file 'form.json': syntax error at line 4, column 27: unexpected string literal"},
      {"", "Form file 'form.json': syntax error at line 1, column 1: unexpected end of input"},
      {"{\"version\": 1e999}",
       "Form file 'form.json': syntax error at line 1, column 13: number too large"},
      {R"({"version": 1, "controls": [{"class": "Unknown", "name": "A", "left": 0, "top": 0,
          "width": 5, "height": 5, "properties": {}}]})",
       "Form file 'form.json': control 'A' has the unknown class 'Unknown'"},
      {R"({"version": 1, "controls": [{"class": "ProbeControl", "name": "A", "left": 0,
          "top": 0, "width": 5, "height": 5, "properties": {"X": {"Integer": 40000}}}]})",
       "Form file 'form.json': controls[0].properties.X: expected a whole number from -32768 "
       "to 32767"},
      {R"({"version": 1, "controls": [{"class": "ProbeControl", "name": "A", "left": 0,
          "top": 0, "width": 5, "properties": {}}]})",
       "Form file 'form.json': controls[0]: missing \"height\""},
      {R"({"version": 1, "controls": [{"class": "ProbeControl", "name": "A", "left": 0,
          "top": 0, "width": 5, "height": 5, "properties": {"P": {"Picture": "AAAA"}}}]})",
       "Form file 'form.json': controls[0].properties.P: the picture is not a PNG image"},
      {R"({"version": 1, "controls": [{"class": "ProbeControl", "name": "A", "left": 0,
          "top": 0, "width": 5, "height": 5, "properties": {"Number": {"String": "x"}}}]})",
       "Form file 'form.json': control 'A': Type mismatch"},
  };
  for (const Case& c : cases) {
    ControlError error = Raised([&] { form.LoadFromText(c.text, "form.json"); });
    EXPECT_EQ(error.Number(), 31037);
    EXPECT_EQ(error.Description().substr(0, c.message.size()), c.message) << c.text;
    ASSERT_EQ(form.Count(), 1u);
    EXPECT_EQ(&form.Item(0), &kept);
    EXPECT_EQ(kept.number, 5);
    EXPECT_TRUE(kept.Visible());
  }
  EXPECT_EQ(form.SaveToText(), good);
}

TEST_F(FormFileTest, LoadingReplacesTheControlsInTheFileOrder) {
  AddProbe(form, "Old");
  Container other;
  AddProbe(other, "Second").number = 9;
  AddProbe(other, "First");
  std::string text = other.SaveToText();
  EXPECT_EQ(text.find("\"Number\"", text.find("\"First\"")), std::string::npos); // default
  form.LoadFromText(text);
  ASSERT_EQ(form.Count(), 2u);
  EXPECT_EQ(form.Name(0), "Second");
  EXPECT_EQ(form.Find("Old"), nullptr);
  auto& loaded = static_cast<ProbeControl&>(form.Item(0));
  EXPECT_EQ(loaded.number, 9);
  EXPECT_TRUE(loaded.Visible());
  loaded.SetNumber(10);
  EXPECT_EQ(form.ChangedKeys("Second"), std::vector<std::string>{"Number"});
}

TEST_F(FormFileTest, MissingFileAndUnsavableObjectAreRefused) {
  ControlError missing = Raised([&] { form.LoadFromFile("/nonexistent/form.json"); });
  EXPECT_EQ(missing.Number(), 31037);
  EXPECT_EQ(missing.Description(),
            "Form file '/nonexistent/form.json': cannot be opened (No such file or directory)");
  AddProbe(form, "P").extras.WriteProperty("Odd", std::make_shared<Object>(), Variant());
  ControlError unsavable = Raised([&] { form.SaveToText("f.json"); });
  EXPECT_EQ(unsavable.Number(), 31036);
  EXPECT_EQ(unsavable.Description(), "Form file 'f.json': control 'P', property Odd: holds an "
                                     "object that a form file cannot keep");
}

} // namespace
} // namespace tarnbrook
