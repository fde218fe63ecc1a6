#include <algorithm>

#include "automation_fixture.hpp"
#include "calendar/month_calendar.hpp"
#include "dateselect/date_select.hpp"
#include "host/persisted_objects.hpp"
#include "picker/date_picker.hpp"

namespace tarnbrook {
namespace {

VbVarType ExpectedVarType(MemberType type) {
  switch (type) {
  case MemberType::Boolean:
    return vbBoolean;
  case MemberType::Integer:
    return vbInteger;
  case MemberType::Long:
  case MemberType::Color:
    return vbLong;
  case MemberType::Double:
    return vbDouble;
  case MemberType::Date:
    return vbDate;
  case MemberType::String:
    return vbString;
  default:
    return vbObject;
  }
}

bool SameValue(const Variant& a, const Variant& b) {
  if (a.IsObject() && b.IsObject()) {
    auto fa = std::dynamic_pointer_cast<Font>(a.ToObject());
    auto fb = std::dynamic_pointer_cast<Font>(b.ToObject());
    return fa && fb ? *fa == *fb : a.ToObject() == b.ToObject();
  }
  return a == b;
}

// Every described property of every creatable class: it reads with its described type, takes
// back what it gave through the dispatch without change, and tells the container under its
// described persistence key.
TEST_F(AutomationTest, EveryDescribedPropertyRoundTripsAndNotifiesUnderItsKey) {
  int index = 0;
  for (const ClassRegistration& registration : RegisteredClasses()) {
    std::string name = "Control" + std::to_string(index++);
    Control& control = Place(registration.progId, name);
    Dispatch object(control);
    for (const PropertyInfo& property : object.Info().properties) {
      SCOPED_TRACE(registration.className + "." + property.name);
      if (!property.index.empty())
        continue;
      Variant before = object.Get(property.name);
      if (property.type != MemberType::Variant && property.type != MemberType::Picture) {
        EXPECT_EQ(before.VarType(), ExpectedVarType(property.type));
      }
      if (!property.CanAssign())
        continue;
      form->ClearChangedKeys();
      if (registration.className == "MonthCalendar" && property.name == "SelectedDay") {
        // Its setter refuses every value with 13, the dispatch passes that on.
        auto& calendar = dynamic_cast<MonthCalendar&>(control);
        EXPECT_EQ(RaisedNumber([&] { calendar.SetSelectedDay(calendar.SelectedDay()); }), 13);
        EXPECT_EQ(RaisedNumber([&] { object.Let(property.name, before); }), 13);
        continue;
      }
      try {
        if (property.IsObject() && before.IsObject())
          object.Set(property.name, before);
        else if (!property.IsObject())
          object.Let(property.name, before);
      } catch (const ControlError& error) {
        ADD_FAILURE() << "refused its own value: " << error.Description();
      }
      EXPECT_TRUE(SameValue(object.Get(property.name), before));
      // A setter that tells its container at all tells it under the described key.
      const auto& keys = form->ChangedKeys(name);
      if (!property.key.empty() && !keys.empty()) {
        EXPECT_NE(std::find(keys.begin(), keys.end(), property.key), keys.end());
      }
    }
  }
}

TEST_F(AutomationTest, NamesIgnoreCaseAndArgumentsLeftOutTakeTheirDefaults) {
  auto& calendar = Place<MonthCalendar>("Tarnbrook.MonthCalendar", "Calendar1");
  Dispatch d(calendar);
  d.Let("todaybuttoncaption", "Heute");
  EXPECT_EQ(d.Get("TODAYBUTTONCAPTION").ToString(), "Heute");
  d.Call("dropdown", {int32_t(100), int32_t(120)});
  EXPECT_TRUE(d.Invoke("isdropdownshown").ToBoolean());
  // No animation by default, and the pop-up stands at the point given.
  EXPECT_TRUE(platform.Animations().empty());
  EXPECT_EQ(platform.GetWindowRect(calendar.hWnd()).left, 100);
  d.Call("HideDropDown");
  d.Call("DropDown", {int32_t(100), int32_t(120), int32_t(0), int32_t(mvwAnimateRoll)});
  EXPECT_EQ(platform.Animations().size(), 1u);
  d.Call("HideDropDown");
  EXPECT_EQ(FindClassInfo("monthcalendar"), &MonthCalendar::TypeInfo());
  // The window handle, published read-only by the calendar and the DateSelect.
  EXPECT_EQ(d.Get("HWND"), Variant(int32_t(calendar.hWnd())));
  auto& select = Place<DateSelect>("Tarnbrook.DateSelect", "Select1");
  EXPECT_EQ(Dispatch(select).Get("hwnd"), Variant(int32_t(select.hWnd())));
  EXPECT_NE(RaisedNumber([&] { d.Let("hwnd", int32_t(1)); }), 0);
  d.Let("selectedyear", "2010"); // strings and numbers convert as the runtime converts them
  EXPECT_EQ(calendar.SelectedYear(), 2010);

  // The picker's value is a Date or Null.
  Dispatch p(Place<DatePicker>("Tarnbrook.DatePicker", "Picker1"));
  p.Let("Value", Variant::Null());
  EXPECT_TRUE(p.Get("value").IsNull());
  p.Let("Value", Variant::Date(DateSerial(2004, 5, 1)));
  EXPECT_EQ(p.Get("DateValue").ToDate(), DateSerial(2004, 5, 1));
}

TEST_F(AutomationTest, EachRuntimeErrorAndTheControlsOwnErrors) {
  auto& calendar = Place<MonthCalendar>("Tarnbrook.MonthCalendar", "Calendar1");
  auto& picker = Place<DatePicker>("Tarnbrook.DatePicker", "Picker1");
  Dispatch d(calendar), p(picker);
  ControlError missing = Raised([&] { d.Get("NoSuchThing"); });
  EXPECT_EQ(missing.Number(), 438);
  EXPECT_EQ(missing.Description(), "Object doesn't support this property or method");
  EXPECT_EQ(RaisedNumber([&] { d.Call("Value"); }), 438); // a property is not a method

  ControlError wrong = Raised([&] { d.Call("DropDown", {int32_t(1)}); });
  EXPECT_EQ(wrong.Number(), 450);
  EXPECT_EQ(wrong.Description(), "Wrong number of arguments or invalid property assignment");
  EXPECT_EQ(RaisedNumber([&] { d.Call("Paint", {int32_t(1)}); }), 450);
  EXPECT_EQ(RaisedNumber([&] { p.Let("IsDropped", true); }), 450); // read-only
  EXPECT_EQ(RaisedNumber([&] { d.Let("Font", "Arial"); }), 450);   // an object needs Set
  EXPECT_EQ(RaisedNumber([&] { d.Set("BackColor", FontVariant(Font())); }), 450);
  EXPECT_EQ(RaisedNumber([&] { d.Get("Value", {int32_t(1)}); }), 450);

  EXPECT_EQ(RaisedNumber([&] { d.Let("Value", "not a date"); }), 13);
  EXPECT_EQ(RaisedNumber([&] { d.Set("BackgroundImage", FontVariant(Font())); }), 13);
  EXPECT_EQ(RaisedNumber([&] {
              Dispatch(Variant(FontVariant(Font())).ToObject(), "DatePicker").Get("Value");
            }),
            13);

  // The control's own error, number, Source and text as it raised them.
  ControlError own = Raised([&] { d.Let("ButtonStyle", int32_t(7)); });
  EXPECT_EQ(own.Number(), 5075);
  EXPECT_EQ(own.Source(), "Tarnbrok.MonthCalendar");
  EXPECT_EQ(own.Description(), "Invalid Button Style");
  p.Let("MaxDate", Variant::Date(DateSerial(2005, 1, 1)));
  ControlError limits = Raised([&] { p.Let("MinDate", Variant::Date(DateSerial(2006, 1, 1))); });
  EXPECT_EQ(limits.Number(), 1068);
  EXPECT_EQ(limits.Source(), "DatePicker");
}

// Each event the object described arrived at least once, with its described arguments.
void ExpectEveryDescribedEvent(const Dispatch& d, const EventLog& log) {
  std::vector<std::string> seen = log.Names();
  for (const EventInfo& event : d.Info().events)
    EXPECT_NE(std::find(seen.begin(), seen.end(), event.name), seen.end())
        << d.Info().name << "." << event.name << " was never raised";
  for (const EventLog::Entry& entry : log.entries) {
    const EventInfo* info = d.Info().FindEvent(entry.name);
    ASSERT_NE(info, nullptr) << entry.name;
    ASSERT_EQ(entry.args.size(), info->args.size()) << entry.name;
    for (size_t i = 0; i < entry.args.size(); ++i)
      EXPECT_EQ(entry.args[i].VarType(), ExpectedVarType(info->args[i].type))
          << entry.name << " " << info->args[i].name;
  }
}

// The program and the person of the removal test raise every event of every class; each
// arrives by name with its described arguments until the connection is dropped.
TEST_F(AutomationTest, EveryDescribedEventArrivesByNameWithItsArguments) {
  for (const ClassRegistration& registration : RegisteredClasses()) {
    SCOPED_TRACE(registration.className);
    form = std::make_unique<Container>(640, 480);
    Control& control = Place(registration.progId, "Control1");
    const Dispatch d(control);
    EventLog log;
    EventConnection connection = d.Connect(log.Handler());
    WorkTheControl(platform, control, [] { return true; });
    ExpectEveryDescribedEvent(d, log);
    connection.reset();
    const size_t before = log.entries.size();
    WorkTheControl(platform, control, [] { return true; });
    EXPECT_EQ(log.entries.size(), before);
  }
}

TEST_F(AutomationTest, ASinkCancelsAndRewritesKeysThroughByReferenceArguments) {
  auto& picker = Place<DatePicker>("Tarnbrook.DatePicker", "Picker1");
  Dispatch p(picker);
  auto cancel = p.Connect([](const std::string& name, std::vector<Variant>& args) {
    if (name == "BeforeCalendarDropDown")
      args[0] = true;
  });
  p.Call("DropDownCalendar");
  EXPECT_FALSE(picker.IsDropped());
  cancel.reset();
  p.Call("DropDownCalendar");
  EXPECT_TRUE(picker.IsDropped());
  p.Call("CloseUpCalendar");

  // A KeyDown whose code the sink clears does nothing to the picker.
  p.Let("Value", Variant::Date(DateSerial(2004, 5, 10)));
  auto swallow = p.Connect([](const std::string& name, std::vector<Variant>& args) {
    if (name == "KeyDown")
      args[0] = int16_t(0);
  });
  picker.SetFocus();
  platform.KeyDown(VK_UP);
  EXPECT_EQ(picker.Value().ToDate(), DateSerial(2004, 5, 10));
  swallow.reset();
  platform.KeyDown(VK_UP);
  EXPECT_NE(picker.Value().ToDate(), DateSerial(2004, 5, 10));

  // A by-reference argument written with the wrong type is a type mismatch.
  auto bad = p.Connect([](const std::string& name, std::vector<Variant>& args) {
    if (name == "BeforeCalendarDropDown")
      args[0] = "maybe";
  });
  EXPECT_EQ(RaisedNumber([&] { p.Call("DropDownCalendar"); }), 13);
}

TEST_F(AutomationTest, DateSelectOptionsAndSqlByName) {
  auto& select = Place<DateSelect>("Tarnbrook.DateSelect", "DateSelect1");
  Dispatch d(select);
  d.Let("Selection", int32_t(dtsLastMonth));
  EXPECT_EQ(d.Call("SQLCriteria").ToString(), select.SQLCriteria());
  EXPECT_EQ(d.Get("StartDate").ToDate(), DateSerial(2004, 4, 1));

  // Options(i) gives a CdtsOption reached by name too, whose events are its own.
  Dispatch option(d.Get("Options", {int32_t(dtsLastMonth)}).ToObject(), "CdtsOption");
  EXPECT_EQ(option.Get("Text").ToString(), select.Options(dtsLastMonth)->Text());
  EventLog log;
  auto connection = option.Connect(log.Handler());
  option.Let("Text", "Previous Month");
  bool listed = false;
  for (int32_t i = 0; i < select.cboSelection().ListCount(); ++i)
    listed = listed || select.cboSelection().List(i) == "Previous Month";
  EXPECT_TRUE(listed);
  option.Let("Visible", false);
  ASSERT_EQ(log.Names(), (std::vector<std::string>{"TextChange", "VisibleChange"}));
  EXPECT_EQ(log.entries[0].args[0].ToLong(), dtsLastMonth);
  ExpectEveryDescribedEvent(option, log);
  EXPECT_EQ(RaisedNumber([&] { d.Get("Options"); }), 450);
  EXPECT_EQ(RaisedNumber([&] { d.Get("Options", {int32_t(40)}); }), 9);
}

} // namespace
} // namespace tarnbrook
