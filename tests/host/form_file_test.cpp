// Form files: every value a control keeps, read back exactly; and files a careless host or a
// hostile user may hand over, and saves that fail half way.
#include <gtest/gtest.h>

#include <sys/resource.h>
#include <sys/stat.h>

#include <cmath>
#include <csignal>
#include <filesystem>
#include <fstream>

#include "common/date_runtime.hpp"
#include "common/font.hpp"
#include "common/picture.hpp"
#include "host/base64.hpp"
#include "host/container.hpp"
#include "host/control_registry.hpp"
#include "host/form_file.hpp"
#include "platform/memory/memory_platform.hpp"
#include "tests/host/test_support.hpp"

namespace tarnbrook {
namespace {

namespace fs = std::filesystem;

std::string ReadFile(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), {});
}

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

// A form holding one probe, in a folder of its own.
class FormFileTest : public ::testing::Test {
protected:
  FormFileTest() {
    RegisterControlClass<ProbeControl>("ProbeControl");
    fs::remove_all(folder);
    fs::create_directories(folder);
    probe.number = 5;
  }
  ~FormFileTest() override { fs::remove_all(folder); }

  ProbeControl& AddProbe(Container& container, const std::string& name) {
    return static_cast<ProbeControl&>(
        container.Add(std::make_unique<ProbeControl>(), name, 10, 20, 120, 40));
  }
  // The description of the refusal of `action`, which must be `number` and leave the form
  // as it was.
  std::string Refusal(int32_t number, const std::function<void()>& action) {
    const std::string before = form.SaveToText();
    ControlError error = Raised(action);
    EXPECT_EQ(error.Number(), number) << error.Description();
    EXPECT_EQ(form.SaveToText(), before);
    EXPECT_EQ(form.Find("Probe"), &probe);
    EXPECT_TRUE(probe.Visible());
    return error.Description();
  }
  std::string ControlText(const std::string& fields, const std::string& properties = "{}") {
    return R"({"version": 1, "controls": [{"class": "ProbeControl", "name": "P", )" + fields +
           R"(, "properties": )" + properties + "}]}";
  }

  MemoryPlatform platform;
  Container form;
  ProbeControl& probe = AddProbe(form, "Probe");
  fs::path folder = fs::temp_directory_path() / ("tarnbrook-forms-" + std::to_string(getpid()));
};

TEST_F(FormFileTest, EveryValueTypeReadsBackExactlyInPlaceOfTheFormsControls) {
  probe.number = 77;
  for (const auto& [key, value] : EveryValue())
    probe.extras.WriteProperty(key, value, ProbeControl::DefaultUnlike(value));

  const std::string path = (folder / "every_value.json").string();
  form.SaveToFile(path);
  Container loaded;
  AddProbe(loaded, "Old"); // replaced by what the file holds
  loaded.LoadFromFile(path);

  ASSERT_EQ(loaded.Count(), 1u);
  EXPECT_EQ(loaded.Name(0), "Probe");
  auto& copy = static_cast<ProbeControl&>(loaded.Item(0));
  EXPECT_EQ(copy.number, 77);
  EXPECT_TRUE(copy.Visible());
  copy.SetNumber(78); // a loaded control tells its new form
  EXPECT_EQ(loaded.ChangedKeys("Probe"), std::vector<std::string>{"Number"});
  EXPECT_EQ(platform.GetWindowRect(copy.hWnd()), platform.GetWindowRect(probe.hWnd()));
  ASSERT_EQ(copy.extras.Entries().size(), EveryValue().size());
  for (const auto& [key, value] : EveryValue()) {
    Variant read = copy.extras.ReadProperty(key, "absent");
    EXPECT_EQ(read.VarType(), value.VarType()) << key;
    EXPECT_TRUE(read == value) << key;
    if (value.VarType() == vbDouble || value.VarType() == vbDate) {
      EXPECT_EQ(std::signbit(read.ToDouble()), std::signbit(value.ToDouble())) << key;
    }
  }
}

// Each refusal says what is wrong and where, echoing the file's bytes as text that can be
// shown; a picture too large is refused before it is decoded.
TEST_F(FormFileTest, BadAndHostileTextsNameWhatIsWrongAndWhere) {
  const std::string good = form.SaveToText();
  const std::string fields = R"("left": 0, "top": 0, "width": 5, "height": 5)";
  const std::vector<uint8_t> hugePng = {0x89, 'P', 'N',  'G',  13,  10,  26, 10, 0,    0,
                                        0,    13,  'I',  'H',  'D', 'R', 0,  0,  0x3E, 0x80,
                                        0,    0,   0x3E, 0x80, 8,   6,   0,  0,  0};
  const std::string largest = EncodeBase64(
      Picture(4096, 4096, std::vector<uint32_t>(4096 * 4096, 0xFF336699)).ToPngBytes());
  std::string three = "{";
  for (const char* key : {"A", "B", "C"}) // two of the largest pictures fit in a form, not three
    three += std::string(three.size() > 1 ? ", " : "") + "\"" + key + "\": {\"Picture\": \"" +
             largest + "\"}";
  const std::pair<std::string, std::string> cases[] = {
      {good.substr(0, good.find("\"left\"")),
       "syntax error at line 7, column 7: unexpected end of input; expected string literal"},
      {"{\n  \"version\": 1,\n  \"controls\": [\n    {\"class\" \"ProbeControl\"}]}",
       "syntax error at line 4, column 27: unexpected string literal; expected ':'"},
      {"", "syntax error at line 1, column 1: unexpected end of input; expected '[', '{', or a "
           "literal"},
      {"{\"version\": 1e999}", "syntax error at line 1, column 13: number too large"},
      {std::string("{\"version\": 1,\n \"co\0", 20),
       "syntax error at line 2, column 5: a NUL byte, which no form file holds"},
      {"{\"a\":" + std::string(150000, '[') + std::string(150000, ']') + "}",
       "syntax error at line 1, column 69: nested more than 64 levels deep"},
      {"{\"version\": 1, \"controls\": [{\"class\": \"No\xFF\xC3\"}]}",
       "syntax error at line 1, column 42: invalid string: ill-formed UTF-8 byte; last read: "
       "'\"No\xEF\xBF\xBD'"},
      {R"({"version": 1, "controls": [{"class": "Unknown", "name": "A", "left": 0, "top": 0,
          "width": 5, "height": 5, "properties": {}}]})",
       "control 'A' has the unknown class 'Unknown'"},
      {ControlText(R"("left": 0, "top": 0, "width": 5)"), "controls[0]: missing \"height\""},
      {ControlText(R"("left": 2147483000, "top": 0, "width": 1000, "height": 10)"),
       "controls[0]: the control's far edge lies beyond the largest coordinate"},
      {ControlText(R"("left": 0, "top": 0, "width": 40000, "height": 10)"),
       "controls[0].width: expected a size from 0 to 32767"},
      {ControlText(R"("left": 0, "top": 0, "width": 10, "height": -1)"),
       "controls[0].height: expected a size from 0 to 32767"},
      {ControlText(fields, R"({"X": {"Integer": 40000}})"),
       "controls[0].properties.X: expected a whole number from -32768 to 32767"},
      {ControlText(fields, R"({"P": {"Picture": "AAAA"}})"),
       "controls[0].properties.P: the picture is not a PNG image"},
      {ControlText(fields, R"({"P": {"Picture": ")" + EncodeBase64(hugePng) + R"("}})"),
       "controls[0].properties.P: the picture is too large: 256000000 pixels, more than the "
       "16777216 one may have"},
      {ControlText(fields, three + "}"),
       "controls[0].properties.C: the form's pictures are too large: more than the 33554432 "
       "pixels a form may hold in all"},
      {ControlText(fields, R"({"Number": {"String": "x"}})"), "control 'P': Type mismatch"},
  };
  for (const auto& [text, message] : cases) {
    SCOPED_TRACE(message);
    EXPECT_EQ(Refusal(31037, [&] { form.LoadFromText(text, "f"); }), "Form file 'f': " + message);
  }
}

TEST_F(FormFileTest, MissingFileAndUnsavableObjectAreRefused) {
  EXPECT_EQ(Refusal(31037, [&] { form.LoadFromFile("/nonexistent/form.json"); }),
            "Form file '/nonexistent/form.json': cannot be opened (No such file or directory)");
  AddProbe(form, "P").extras.WriteProperty("Odd", std::make_shared<Object>(), Variant());
  ControlError unsavable = Raised([&] { form.SaveToText("f.json"); });
  EXPECT_EQ(unsavable.Number(), 31036);
  EXPECT_EQ(unsavable.Description(), "Form file 'f.json': control 'P', property Odd: holds an "
                                     "object that a form file cannot keep");
}

TEST_F(FormFileTest, AFailedSaveLeavesTheOldFileAndNoLitter) {
  const fs::path path = folder / "form.json";
  form.SaveToFile(path.string());
  const std::string good = ReadFile(path);
  probe.extras.WriteProperty("Long", std::string(4096, 'x'), Variant());

  // The disk fills up half way through the new text (a file size limit does it here).
  std::signal(SIGXFSZ, SIG_IGN);
  rlimit old{};
  getrlimit(RLIMIT_FSIZE, &old);
  rlimit small = old;
  small.rlim_cur = 1024;
  setrlimit(RLIMIT_FSIZE, &small);
  ControlError refused = Raised([&] { form.SaveToFile(path.string()); });
  setrlimit(RLIMIT_FSIZE, &old);
  std::signal(SIGXFSZ, SIG_DFL);

  EXPECT_EQ(refused.Number(), 31036);
  EXPECT_NE(refused.Description().find("cannot be written (File too large)"), std::string::npos);
  EXPECT_EQ(ReadFile(path), good);
  EXPECT_EQ(std::distance(fs::directory_iterator(folder), {}), 1) << "the temporary file went";

  form.SaveToFile(path.string()); // and a save that can be made replaces it
  EXPECT_NE(ReadFile(path), good);
  EXPECT_EQ(std::distance(fs::directory_iterator(folder), {}), 1);
  EXPECT_EQ(Refusal(31036, [&] { form.SaveToFile((folder / "no" / "form.json").string()); }),
            "Form file '" + (folder / "no" / "form.json").string() +
                "': cannot be written (No such file or directory)");
}

// A save keeps what the file was: its mode, the symlink it is reached by, and being read-only.
TEST_F(FormFileTest, ASaveKeepsTheFilesModeLinkAndReadOnlyState) {
  const fs::path path = folder / "form.json";
  form.SaveToFile(path.string());
  fs::permissions(path, fs::perms(0640));
  form.SaveToFile(path.string());
  EXPECT_EQ(fs::status(path).permissions(), fs::perms(0640));

  const fs::path link = folder / "link.json";
  fs::create_symlink("form.json", link);
  form.SaveToFile(link.string());
  EXPECT_TRUE(fs::is_symlink(fs::symlink_status(link)));

  fs::permissions(path, fs::perms(0444));
  const std::string before = ReadFile(path);
  probe.extras.WriteProperty("More", "text", Variant());
  EXPECT_EQ(Refusal(31036, [&] { form.SaveToFile(link.string()); }),
            "Form file '" + link.string() + "': cannot be written (Permission denied)");
  EXPECT_EQ(ReadFile(path), before);

  // A temporary that a save cut off left behind is plainly ours, and the next save removes it.
  fs::permissions(path, fs::perms(0644));
  std::ofstream(folder / ".form.json.tarnbrook-save-AbC123") << "half a form";
  form.SaveToFile(path.string());
  EXPECT_EQ(std::distance(fs::directory_iterator(folder), {}), 2) << "form.json and link.json";
}

TEST_F(FormFileTest, OnlyRegularFilesOfBoundedSizeAreRead) {
  const std::string dir = folder.string();
  EXPECT_EQ(Refusal(31037, [&] { form.LoadFromFile(dir); }),
            "Form file '" + dir + "': is a folder, not a form file");
  const std::string fifo = (folder / "pipe").string();
  ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
  EXPECT_EQ(Refusal(31037, [&] { form.LoadFromFile(fifo); }),
            "Form file '" + fifo + "': is not a regular file (a device, pipe or socket)");
  EXPECT_NE(Refusal(31037, [&] { form.LoadFromFile("/dev/zero"); }).find("not a regular file"),
            std::string::npos);
  const fs::path big = folder / "big.json";
  std::ofstream(big).put(' ');
  fs::resize_file(big, MaxFormFileBytes + 1); // sparse: nothing is written
  EXPECT_NE(Refusal(31037, [&] { form.LoadFromFile(big.string()); }).find("larger than 64 MiB"),
            std::string::npos);
}

TEST_F(FormFileTest, AControlRefusesASizeNoSurfaceCanHold) {
  EXPECT_EQ(RaisedNumber([&] { probe.Move(0, 0, 40000, 180); }), 380);
  EXPECT_EQ(RaisedNumber([&] { probe.Move(INT32_MAX, 0, 10, 10); }), 380);
  EXPECT_EQ(RaisedNumber([&] { probe.Move(0, 0, -5, 10); }), 380);
  EXPECT_EQ(probe.ScaleWidth(), 120);
  probe.Move(0, 0, 32767, 1);
  EXPECT_EQ(probe.ScaleWidth(), 32767);
}

} // namespace
} // namespace tarnbrook
