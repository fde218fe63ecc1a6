#include "host/form_file.hpp"

#include <algorithm>
#include <cmath>
#include <limits>
#include <nlohmann/json.hpp>
#include <optional>
#include <type_traits>

#include "common/control_error.hpp"
#include "common/font.hpp"
#include "common/picture.hpp"
#include "common/text.hpp"
#include "host/base64.hpp"

namespace tarnbrook {
namespace {

using Json = nlohmann::ordered_json;

constexpr int kFormatVersion = 1;

// A fault found in a parsed form, at a place such as "controls[2].properties.Value".
struct FormFault {
  std::string place;
  std::string message;
};

[[noreturn]] void Fail(const std::string& place, const std::string& message) {
  throw FormFault{place, message};
}

// JSON has no NaN or infinities; they go as text.
Json EncodeDouble(double value) {
  if (std::isfinite(value))
    return value;
  return std::isnan(value) ? "NaN" : value > 0 ? "Infinity" : "-Infinity";
}

double DecodeDouble(const Json& json, const std::string& place) {
  if (json.is_number())
    return json.get<double>();
  if (json == "NaN")
    return std::numeric_limits<double>::quiet_NaN();
  if (json == "Infinity" || json == "-Infinity")
    return json == "Infinity" ? INFINITY : -INFINITY;
  Fail(place, "expected a number");
}

int64_t DecodeWhole(const Json& json, int64_t low, int64_t high, const std::string& place) {
  if (!json.is_number_integer() ||
      (json.is_number_unsigned() && json.get<uint64_t>() > uint64_t(high)) ||
      json.get<int64_t>() < low || json.get<int64_t>() > high)
    Fail(place,
         "expected a whole number from " + std::to_string(low) + " to " + std::to_string(high));
  return json.get<int64_t>();
}

Json EncodeFont(const Font& font) {
  return {{"name", font.Name},           {"size", font.Size},
          {"bold", font.Bold},           {"italic", font.Italic},
          {"underline", font.Underline}, {"strikethrough", font.Strikethrough}};
}

Font DecodeFont(const Json& json, const std::string& place) {
  if (!json.is_object())
    Fail(place, "expected a font object");
  Font font;
  auto text = [&](const char* key, std::string& field) {
    if (!json.contains(key))
      return;
    if (!json[key].is_string())
      Fail(place + "." + key, "expected text");
    field = json[key].get<std::string>();
  };
  auto flag = [&](const char* key, bool& field) {
    if (!json.contains(key))
      return;
    if (!json[key].is_boolean())
      Fail(place + "." + key, "expected true or false");
    field = json[key].get<bool>();
  };
  text("name", font.Name);
  if (json.contains("size"))
    font.Size = float(DecodeDouble(json["size"], place + ".size"));
  flag("bold", font.Bold);
  flag("italic", font.Italic);
  flag("underline", font.Underline);
  flag("strikethrough", font.Strikethrough);
  return font;
}

Json EncodeObject(const std::shared_ptr<Object>& object, const std::string& place) {
  if (!object)
    return {{"Nothing", nullptr}};
  if (auto font = std::dynamic_pointer_cast<Font>(object))
    return {{"Font", EncodeFont(*font)}};
  if (auto picture = std::dynamic_pointer_cast<Picture>(object))
    return {{"Picture", EncodeBase64(picture->ToPngBytes())}};
  Fail(place, "holds an object that a form file cannot keep");
}

Json EncodeValue(const Variant& value, const std::string& place) {
  switch (value.VarType()) {
  case vbEmpty:
    return {{"Empty", nullptr}};
  case vbNull:
    return {{"Null", nullptr}};
  case vbBoolean:
    return {{"Boolean", value.ToBoolean()}};
  case vbInteger:
    return {{"Integer", value.ToInteger()}};
  case vbLong:
    return {{"Long", value.ToLong()}};
  case vbDouble:
    return {{"Double", EncodeDouble(value.ToDouble())}};
  case vbDate:
    return {{"Date", EncodeDouble(value.ToDouble())}};
  case vbString: {
    std::string text = value.ToString();
    if (IsValidUtf8(text))
      return {{"String", text}};
    // Text that is not UTF-8 cannot be a JSON string; its bytes go as base64.
    return {{"StringBytes", EncodeBase64(std::vector<uint8_t>(text.begin(), text.end()))}};
  }
  case vbObject:
    return EncodeObject(value.ToObject(), place);
  }
  Fail(place, "has an unknown type");
}

std::vector<uint8_t> DecodeBytes(const Json& json, const std::string& place) {
  std::optional<std::vector<uint8_t>> bytes;
  if (json.is_string())
    bytes = DecodeBase64(json.get<std::string>());
  if (!bytes)
    Fail(place, "expected base64 text");
  return *bytes;
}

// Decodes a picture within what the form's pictures may still take.
std::shared_ptr<Picture> DecodePicture(const Json& value, const std::string& place,
                                       uint64_t& pixelsLeft) {
  std::vector<uint8_t> png = DecodeBytes(value, place);
  if (png.empty())
    return std::make_shared<Picture>();
  const uint64_t claimed = Picture::ClaimedPixels(png);
  if (claimed > Picture::MaxPixels)
    Fail(place, "the picture is too large: " + std::to_string(claimed) + " pixels, more than the " +
                    std::to_string(Picture::MaxPixels) + " one may have");
  if (claimed > pixelsLeft)
    Fail(place, "the form's pictures are too large: more than the " +
                    std::to_string(MaxFormPixels) + " pixels a form may hold in all");
  try {
    auto picture = std::make_shared<Picture>(Picture::FromPngBytes(png));
    pixelsLeft -= std::min<uint64_t>(pixelsLeft, uint64_t(picture->Width()) * picture->Height());
    return picture;
  } catch (const ControlError&) {
    Fail(place, "the picture is not a PNG image");
  }
}

Variant DecodeValue(const Json& json, const std::string& place, uint64_t& pixelsLeft) {
  if (!json.is_object() || json.size() != 1)
    Fail(place, "expected an object with one type name, such as {\"Long\": 5}");
  const std::string& type = json.begin().key();
  const Json& value = json.begin().value();
  auto requireNull = [&] {
    if (!value.is_null())
      Fail(place, "expected null after \"" + type + "\"");
  };
  if (type == "Empty") {
    requireNull();
    return Variant();
  }
  if (type == "Null") {
    requireNull();
    return Variant::Null();
  }
  if (type == "Nothing") {
    requireNull();
    return Variant(std::shared_ptr<Object>());
  }
  if (type == "Boolean") {
    if (!value.is_boolean())
      Fail(place, "expected true or false");
    return Variant(value.get<bool>());
  }
  if (type == "Integer")
    return Variant(int16_t(DecodeWhole(value, INT16_MIN, INT16_MAX, place)));
  if (type == "Long")
    return Variant(int32_t(DecodeWhole(value, INT32_MIN, INT32_MAX, place)));
  if (type == "Double")
    return Variant(DecodeDouble(value, place));
  if (type == "Date")
    return Variant::Date(DecodeDouble(value, place));
  if (type == "String") {
    if (!value.is_string())
      Fail(place, "expected text");
    return Variant(value.get<std::string>());
  }
  if (type == "StringBytes") {
    std::vector<uint8_t> bytes = DecodeBytes(value, place);
    return Variant(std::string(bytes.begin(), bytes.end()));
  }
  if (type == "Font")
    return Variant(std::make_shared<Font>(DecodeFont(value, place)));
  if (type == "Picture")
    return Variant(std::shared_ptr<Object>(DecodePicture(value, place, pixelsLeft)));
  Fail(place, "unknown type \"" + type + "\"");
}

const Json& Member(const Json& object, const char* key, const std::string& place) {
  if (!object.contains(key))
    Fail(place, std::string("missing \"") + key + "\"");
  return object[key];
}

std::string DecodeText(const Json& json, const std::string& place) {
  if (!json.is_string())
    Fail(place, "expected text");
  return json.get<std::string>();
}

ControlRecord DecodeControl(const Json& json, const std::string& place, uint64_t& pixelsLeft) {
  if (!json.is_object())
    Fail(place, "expected a control object");
  ControlRecord record;
  record.ClassName = DecodeText(Member(json, "class", place), place + ".class");
  record.Name = DecodeText(Member(json, "name", place), place + ".name");
  auto coordinate = [&](const char* key) {
    return int32_t(DecodeWhole(Member(json, key, place), INT32_MIN, INT32_MAX, place + "." + key));
  };
  int32_t left = coordinate("left"), top = coordinate("top");
  int32_t width = coordinate("width"), height = coordinate("height");
  // A window is at most MaxControlSize pixels either way, and its far edges must still be
  // coordinates.
  for (auto [key, size] : {std::pair{"width", width}, std::pair{"height", height}}) {
    if (size < 0 || size > MaxControlSize)
      Fail(place + "." + key, "expected a size from 0 to " + std::to_string(MaxControlSize));
  }
  if (int64_t(left) + width > INT32_MAX || int64_t(top) + height > INT32_MAX)
    Fail(place, "the control's far edge lies beyond the largest coordinate");
  record.Bounds = {left, top, left + width, top + height};

  const Json& properties = Member(json, "properties", place);
  if (!properties.is_object())
    Fail(place + ".properties", "expected an object of properties");
  for (const auto& [key, value] : properties.items()) {
    Variant decoded = DecodeValue(value, place + ".properties." + key, pixelsLeft);
    // A default unlike the value, so that the bag keeps every value, Empty included.
    record.Properties.WriteProperty(key, decoded, decoded.IsNull() ? Variant() : Variant::Null());
  }
  return record;
}

// "syntax error while parsing object - unexpected end of input" -> "unexpected end of input".
std::string SyntaxErrorReason(const std::string& what) {
  size_t column = what.find("column ");
  size_t colon = what.find(": ", column == std::string::npos ? 0 : column);
  std::string reason = colon == std::string::npos ? what : what.substr(colon + 2);
  size_t dash = reason.find(" - ");
  if (reason.rfind("syntax error", 0) == 0 && dash != std::string::npos)
    reason = reason.substr(dash + 3);
  return reason;
}

std::string SyntaxErrorMessage(const std::string& text, size_t byte, const std::string& what) {
  // `byte` counts the characters read, the offending one included.
  size_t end = std::min(byte, text.size() + 1);
  size_t line = 1, column = 0;
  for (size_t i = 0; i + 1 < end; ++i) {
    if (text[i] == '\n') {
      ++line;
      column = 0;
    } else {
      ++column;
    }
  }
  return "syntax error at line " + std::to_string(line) + ", column " + std::to_string(column + 1) +
         ": " + SyntaxErrorReason(what);
}

// Builds the document as Json::parse does, but keeps where reading stopped for every error,
// a number too large for a double included (the library raises that one without a place).
class PlacedParser : public nlohmann::detail::json_sax_dom_parser<Json> {
public:
  explicit PlacedParser(Json& root) : json_sax_dom_parser(root, false) {}

  // Nesting is bounded: no form needs more, and deeper would only cost stack later.
  bool start_object(size_t elements) {
    return Deeper() && json_sax_dom_parser::start_object(elements);
  }
  bool end_object() {
    --depth_;
    return json_sax_dom_parser::end_object();
  }
  bool start_array(size_t elements) {
    return Deeper() && json_sax_dom_parser::start_array(elements);
  }
  bool end_array() {
    --depth_;
    return json_sax_dom_parser::end_array();
  }

  template <class Exception>
  bool parse_error(size_t byte, const std::string& token, const Exception& error) {
    if constexpr (std::is_same_v<Exception, Json::out_of_range>) {
      byte_ = byte + 1 - std::min(byte, token.size()); // the number's first character
      what_ = "number too large";
    } else {
      byte_ = byte;
      what_ = error.what();
    }
    return false;
  }

  size_t Byte() const { return byte_; }
  const std::string& What() const { return what_; }

  bool TooDeep() const { return tooDeep_; }

private:
  bool Deeper() {
    if (++depth_ <= MaxFormNesting)
      return true;
    tooDeep_ = true;
    return false;
  }

  size_t byte_ = 0;
  std::string what_;
  size_t depth_ = 0;
  bool tooDeep_ = false;
};

// Where the first too-deep bracket stands: the byte after MaxFormNesting open brackets not yet
// closed, outside strings.
size_t TooDeepByte(const std::string& text) {
  size_t depth = 0;
  bool inString = false;
  for (size_t i = 0; i < text.size(); ++i) {
    char c = text[i];
    if (inString) {
      if (c == '\\')
        ++i;
      else if (c == '"')
        inString = false;
    } else if (c == '"') {
      inString = true;
    } else if (c == '[' || c == '{') {
      if (++depth > MaxFormNesting)
        return i + 1;
    } else if (c == ']' || c == '}') {
      --depth;
    }
  }
  return text.size();
}

std::string FilePrefix(const std::string& fileName) {
  return "Form file '" + fileName + "': ";
}

} // namespace

std::string WriteFormText(const std::vector<ControlRecord>& controls, const std::string& fileName) {
  Json list = Json::array();
  try {
    for (const ControlRecord& record : controls) {
      Json properties = Json::object();
      for (const auto& [key, value] : record.Properties.Entries())
        properties[key] = EncodeValue(value, "control '" + record.Name + "', property " + key);
      list.push_back({{"class", record.ClassName},
                      {"name", record.Name},
                      {"left", record.Bounds.left},
                      {"top", record.Bounds.top},
                      {"width", record.Bounds.Width()},
                      {"height", record.Bounds.Height()},
                      {"properties", std::move(properties)}});
    }
  } catch (const FormFault& fault) {
    throw ControlError(errFormFileSave, "Tarnbrook",
                       FilePrefix(fileName) + fault.place + ": " + fault.message);
  }
  Json form = {{"version", kFormatVersion}, {"controls", std::move(list)}};
  return form.dump(2) + "\n";
}

std::vector<ControlRecord> ReadFormText(const std::string& text, const std::string& fileName) {
  // Text of a form file: its bytes are echoed in messages only as mended UTF-8.
  auto refuse = [&](const std::string& message) -> ControlError {
    return ControlError(errFormFileLoad, "Tarnbrook", MendUtf8(FilePrefix(fileName) + message));
  };
  if (size_t nul = text.find('\0'); nul != std::string::npos)
    throw refuse(SyntaxErrorMessage(text, nul + 1, "a NUL byte, which no form file holds"));
  Json form;
  PlacedParser parser(form);
  if (!Json::sax_parse(text, &parser)) {
    if (parser.TooDeep())
      throw refuse(SyntaxErrorMessage(text, TooDeepByte(text),
                                      "nested more than " + std::to_string(MaxFormNesting) +
                                          " levels deep"));
    throw refuse(SyntaxErrorMessage(text, parser.Byte(), parser.What()));
  }
  try {
    if (!form.is_object())
      Fail("the form", "expected an object");
    if (DecodeWhole(Member(form, "version", "the form"), 0, INT32_MAX, "version") != kFormatVersion)
      Fail("version", "this form format version is not known");
    const Json& list = Member(form, "controls", "the form");
    if (!list.is_array())
      Fail("controls", "expected a list of controls");
    std::vector<ControlRecord> controls;
    uint64_t pixelsLeft = MaxFormPixels;
    for (size_t i = 0; i < list.size(); ++i)
      controls.push_back(DecodeControl(list[i], "controls[" + std::to_string(i) + "]", pixelsLeft));
    return controls;
  } catch (const FormFault& fault) {
    throw refuse(fault.place + ": " + fault.message);
  }
}

} // namespace tarnbrook
