// tarnbrook: the type library and saved forms from the shell.
//   tarnbrook classes
//   tarnbrook describe CLASS [--json]
//   tarnbrook get FORM.json CONTROL PROPERTY
//   tarnbrook set FORM.json CONTROL PROPERTY VALUE
//     a font as "Name,Size[,Bold][,Italic][,Underline][,Strikethrough]", a picture as the
//     path of a PNG file ("" for none)
//   tarnbrook sql FORM.json CONTROL [--today YYYY-MM-DD]
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <sstream>
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
               "       tarnbrook get FORM.json CONTROL PROPERTY\n"
               "       tarnbrook set FORM.json CONTROL PROPERTY VALUE\n"
               "       tarnbrook sql FORM.json CONTROL [--today YYYY-MM-DD]\n";
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

// A saved form, loaded in the simulator, run mode.
struct LoadedForm {
  explicit LoadedForm(const std::string& path) {
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

int Get(const std::vector<std::string>& args) {
  if (args.size() != 3)
    return Usage();
  LoadedForm loaded(args[0]);
  std::cout << ValueText(Dispatch(loaded.Find(args[1])).Get(args[2])) << "\n";
  return 0;
}

// The control's own setter judges the value; the file is replaced only when it took it.
int Set(const std::vector<std::string>& args) {
  if (args.size() != 4)
    return Usage();
  LoadedForm loaded(args[0]);
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

int Sql(const std::vector<std::string>& args) {
  if (args.size() != 2 && !(args.size() == 4 && args[2] == "--today"))
    return Usage();
  DateValue today = SystemNow();
  if (args.size() == 4) {
    int year = 0, month = 0, day = 0;
    char rest = 0;
    if (std::sscanf(args[3].c_str(), "%d-%d-%d%c", &year, &month, &day, &rest) != 3 || month < 1 ||
        month > 12 || day < 1 || day > 31)
      return Fail("--today wants a date as YYYY-MM-DD, not \"" + args[3] + "\"");
    today = DateSerial(year, month, day) + 0.5;
  }
  // The day is set before the form loads: options such as Last Month are computed then.
  RegisterTarnbrookClasses();
  RegisterStandardControls();
  MemoryPlatform platform;
  platform.SetNow(today);
  Container form;
  form.LoadFromFile(args[0]);
  Control* control = form.Find(args[1]);
  if (!control)
    return Fail("The form has no control named \"" + args[1] + "\"");
  std::cout << Dispatch(*control).Call("SQL").ToString() << "\n";
  return 0;
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
    if (command == "get")
      return Get(args);
    if (command == "set")
      return Set(args);
    if (command == "sql")
      return Sql(args);
  } catch (const ControlError& error) {
    return Fail(ErrorText(error));
  } catch (const std::exception& error) {
    return Fail(error.what());
  }
  return Usage();
}
