// tarnbrook: the type library and saved forms from the shell.
//   tarnbrook classes
//   tarnbrook describe CLASS [--json]
//   tarnbrook get FORM.json CONTROL PROPERTY [--today YYYY-MM-DD]
//   tarnbrook set FORM.json CONTROL PROPERTY VALUE [--today YYYY-MM-DD]
//     a font as "Name,Size[,Bold][,Italic][,Underline][,Strikethrough]", a picture as the
//     path of a PNG file ("" for none)
//   tarnbrook sql FORM.json CONTROL [--today YYYY-MM-DD]
//     [--params [--dialect sqlite|postgres] [--column-type timestamp|date] [--column NAME]
//      [--named] [--prefix]]
//     the control's SQL text, or with --params its criteria with placeholders and the values
//     to bind, as JSON
// Today is the system's date unless --today names another; the controls compute their dates
// from it when the form is loaded.
#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <nlohmann/json.hpp>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "automation/class_factory.hpp"
#include "automation/dispatch.hpp"
#include "automation/type_library.hpp"
#include "common/date_runtime.hpp"
#include "common/font.hpp"
#include "common/picture.hpp"
#include "host/container.hpp"
#include "host/standard_controls.hpp"
#include "platform/memory/memory_platform.hpp"
#include "platform/system_clock.hpp"

using namespace tarnbrook;

namespace {

int Usage() {
  std::cerr << "usage: tarnbrook classes\n"
               "       tarnbrook describe CLASS [--json]\n"
               "       tarnbrook get FORM.json CONTROL PROPERTY [--today YYYY-MM-DD]\n"
               "       tarnbrook set FORM.json CONTROL PROPERTY VALUE [--today YYYY-MM-DD]\n"
               "       tarnbrook sql FORM.json CONTROL [--today YYYY-MM-DD]\n"
               "           [--params [--dialect sqlite|postgres] [--column-type timestamp|date]\n"
               "                     [--column NAME] [--named] [--prefix]]\n";
  return 2;
}

int Fail(const std::string& message) {
  std::cerr << "tarnbrook: " << message << "\n";
  return 1;
}

std::string ErrorText(const ControlError& error) {
  return error.Description() + " (error " + std::to_string(error.Number()) + ", " + error.Source() +
         ")";
}

// A saved form, loaded in the simulator, run mode, on the day given.
struct LoadedForm {
  LoadedForm(const std::string& path, DateValue now) {
    platform.SetNow(now);
    RegisterTarnbrookClasses();
    RegisterStandardControls();
    form.LoadFromFile(path);
  }
  Control& Find(const std::string& name) const {
    Control* control = form.Find(name);
    if (!control)
      throw ControlError(5, "tarnbrook", "The form has no control named \"" + name + "\"");
    return *control;
  }
  MemoryPlatform platform;
  Container form;
};

int Classes() {
  for (const ClassRegistration& r : RegisteredClasses())
    std::cout << r.progId << "\t" << r.classId << "\t" << r.version << "\n";
  return 0;
}

int Describe(const std::vector<std::string>& args) {
  if (args.empty() || args.size() > 2 || (args.size() == 2 && args[1] != "--json"))
    return Usage();
  const ClassInfo* info = FindClassInfo(args[0]);
  if (!info)
    return Fail("no class \"" + args[0] + "\" in the type library " + TypeLibraryName());
  std::cout << (args.size() == 2 ? DescribeClassJson(*info) : DescribeClass(*info));
  return 0;
}

// The text `set` takes for the same value.
std::string ValueText(const Variant& value) {
  if (!value.IsObject())
    return value.IsEmpty() ? "Nothing" : value.IsNull() ? "Null" : value.ToString();
  if (auto font = std::dynamic_pointer_cast<Font>(value.ToObject())) {
    std::ostringstream text;
    text << font->Name << "," << font->Size;
    for (auto [on, name] : {std::pair{font->Bold, "Bold"},
                            {font->Italic, "Italic"},
                            {font->Underline, "Underline"},
                            {font->Strikethrough, "Strikethrough"}})
      if (on)
        text << "," << name;
    return text.str();
  }
  if (auto picture = std::dynamic_pointer_cast<Picture>(value.ToObject()))
    return "(picture " + std::to_string(picture->Width()) + "x" +
           std::to_string(picture->Height()) + ")";
  return "Nothing";
}

[[noreturn]] void BadValue(const std::string& what) {
  throw ControlError(rtTypeMismatch, "tarnbrook", what);
}

Variant FontFromText(const std::string& text) {
  auto font = std::make_shared<Font>();
  std::istringstream parts(text);
  std::string part;
  std::getline(parts, font->Name, ',');
  std::getline(parts, part, ',');
  char* end = nullptr;
  font->Size = std::strtof(part.c_str(), &end);
  if (font->Name.empty() || part.empty() || *end)
    BadValue("A font is \"Name,Size[,Bold][,Italic][,Underline][,Strikethrough]\", not \"" + text +
             "\"");
  while (std::getline(parts, part, ',')) {
    bool* flag = part == "Bold"            ? &font->Bold
                 : part == "Italic"        ? &font->Italic
                 : part == "Underline"     ? &font->Underline
                 : part == "Strikethrough" ? &font->Strikethrough
                                           : nullptr;
    if (!flag)
      BadValue("Unknown font style \"" + part + "\"");
    *flag = true;
  }
  return Variant(std::shared_ptr<Object>(font));
}

Variant PictureFromFile(const std::string& path) {
  if (path.empty())
    return Variant();
  return Variant(std::shared_ptr<Object>(std::make_shared<Picture>(Picture::FromPngFile(path))));
}

int Get(const std::vector<std::string>& args, DateValue now) {
  if (args.size() != 3)
    return Usage();
  LoadedForm loaded(args[0], now);
  std::cout << ValueText(Dispatch(loaded.Find(args[1])).Get(args[2])) << "\n";
  return 0;
}

// The control's own setter judges the value; the file is replaced only when it took it.
int Set(const std::vector<std::string>& args, DateValue now) {
  if (args.size() != 4)
    return Usage();
  LoadedForm loaded(args[0], now);
  Dispatch control(loaded.Find(args[1]));
  const PropertyInfo* property = control.Info().FindProperty(args[2]);
  if (property && property->type == MemberType::Font)
    control.Set(args[2], FontFromText(args[3]));
  else if (property && property->type == MemberType::Picture)
    control.Set(args[2], PictureFromFile(args[3]));
  else
    control.Let(args[2], args[3]);
  loaded.form.SaveToFile(args[0]);
  return 0;
}

// Takes "--NAME VALUE" out of the arguments: the value, `fallback` when absent, nullopt when
// the value is missing.
std::optional<std::string> TakeOption(std::vector<std::string>& args, const std::string& name,
                                      const std::string& fallback) {
  const auto option = std::find(args.begin(), args.end(), "--" + name);
  if (option == args.end())
    return fallback;
  if (option + 1 == args.end())
    return std::nullopt;
  std::string value = *(option + 1);
  args.erase(option, option + 2);
  return value;
}

bool TakeFlag(std::vector<std::string>& args, const std::string& name) {
  const auto flag = std::find(args.begin(), args.end(), "--" + name);
  if (flag == args.end())
    return false;
  args.erase(flag);
  return true;
}

// The criteria with placeholders as JSON: {"text": ..., "parameters": [{"number": 1,
// "name": "first", "value": "2004-05-01 00:00:00"}, ...]}.
std::string ParametersJson(const Dispatch& control, std::vector<Variant> options) {
  const Dispatch sql(control.Call("SQLParameters", std::move(options)).ToObject(), "SQLParameters");
  nlohmann::json parameters = nlohmann::json::array();
  for (int32_t i = 0; i < sql.Get("Count").ToLong(); ++i) {
    const std::vector<Variant> index{Variant(i)};
    parameters.push_back({{"number", sql.Get("Number", index).ToLong()},
                          {"name", sql.Get("Name", index).ToString()},
                          {"value", sql.Get("Value", index).ToString()}});
  }
  return nlohmann::json{{"text", sql.Get("Text").ToString()}, {"parameters", parameters}}.dump(2);
}

int Sql(std::vector<std::string> args, DateValue now) {
  const bool params = TakeFlag(args, "params");
  const size_t before = args.size();
  const bool named = TakeFlag(args, "named");
  const bool prefix = TakeFlag(args, "prefix");
  const auto dialect = TakeOption(args, "dialect", "sqlite");
  const auto type = TakeOption(args, "column-type", "timestamp");
  const auto column = TakeOption(args, "column", "");
  const bool shaped = args.size() != before; // options only --params takes
  if (args.size() != 2 || !dialect || !type || !column || (shaped && !params))
    return Usage();
  LoadedForm loaded(args[0], now);
  const Dispatch control(loaded.Find(args[1]));
  std::vector<Variant> options{*dialect, *type, *column, named};
  if (prefix)
    options.push_back(true); // a DateSelect's SQLPrefix first; other classes have none (450)
  if (params)
    std::cout << ParametersJson(control, std::move(options)) << "\n";
  else
    std::cout << control.Call("SQL").ToString() << "\n";
  return 0;
}

// Takes "--today YYYY-MM-DD" out of the arguments: that day at noon, else the system's now.
// A day that is no day is the argument's fault, said before any file is read.
std::optional<DateValue> TakeToday(std::vector<std::string>& args) {
  const auto option = std::find(args.begin(), args.end(), "--today");
  if (option == args.end())
    return SystemNow();
  if (option + 1 == args.end())
    return std::nullopt;
  const std::optional<DateValue> day = IsoDate(*(option + 1));
  if (!day)
    throw std::invalid_argument("--today wants an existing day as YYYY-MM-DD, not \"" +
                                *(option + 1) + "\"");
  args.erase(option, option + 2);
  return DateAdd("h", 12, *day);
}

} // namespace

int main(int argc, char** argv) {
  std::vector<std::string> args(argv + 1, argv + argc);
  if (args.empty())
    return Usage();
  std::string command = args.front();
  args.erase(args.begin());
  try {
    if (command == "classes" && args.empty())
      return Classes();
    if (command == "describe")
      return Describe(args);
    if (command == "get" || command == "set" || command == "sql") {
      const std::optional<DateValue> now = TakeToday(args);
      if (!now)
        return Usage();
      return command == "get"   ? Get(args, *now)
             : command == "set" ? Set(args, *now)
                                : Sql(args, *now);
    }
  } catch (const ControlError& error) {
    return Fail(ErrorText(error));
  } catch (const std::exception& error) {
    return Fail(error.what());
  }
  return Usage();
}
