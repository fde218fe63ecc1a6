// The calendar as hosts reach it by name: its properties, methods, events and enumerations.
#include "calendar/month_calendar.hpp"
#include "host/sql_parameters_object.hpp"
#include "host/type_info.hpp"

namespace tarnbrook {
namespace {

using T = MemberType;
using C = MonthCalendar;

struct CalendarEventAdapter : MonthCalendarEvents {
  explicit CalendarEventAdapter(EventHandler handler) : h(std::move(handler)) {}
  EventHandler h;
  void Change() override { Forward(h, "Change"); }
  void MonthChanged() override { Forward(h, "MonthChanged"); }
  void YearChanged() override { Forward(h, "YearChanged"); }
  void DateClicked() override { Forward(h, "DateClicked"); }
  void EmptyClicked() override { Forward(h, "EmptyClicked"); }
  void BeforeDropDown(bool& Cancel) override { ForwardRef(h, "BeforeDropDown", Cancel); }
  void DroppedDown() override { Forward(h, "DroppedDown"); }
  void BeforeCloseUp(bool& Cancel) override { ForwardRef(h, "BeforeCloseUp", Cancel); }
  void AfterClosedUp() override { Forward(h, "AfterClosedUp"); }
  void MouseMove(int16_t Button, float X, float Y) override {
    Forward(h, "MouseMove", {Variant(Button), Variant(double(X)), Variant(double(Y))});
  }
  void MouseDown(int16_t Button, float X, float Y) override {
    Forward(h, "MouseDown", {Variant(Button), Variant(double(X)), Variant(double(Y))});
  }
  void MouseUp(int16_t Button, float X, float Y) override {
    Forward(h, "MouseUp", {Variant(Button), Variant(double(X)), Variant(double(Y))});
  }
  void KeyDown(int16_t& KeyCode, int16_t Shift) override {
    ForwardRef(h, "KeyDown", KeyCode, {Variant(Shift)});
  }
  void KeyUp(int16_t& KeyCode, int16_t Shift) override {
    ForwardRef(h, "KeyUp", KeyCode, {Variant(Shift)});
  }
  void KeyPress(int16_t& KeyAscii) override { ForwardRef(h, "KeyPress", KeyAscii); }
};

// Stock mouse and key events keep the numbers every host knows them by.
std::vector<EventInfo> CalendarEvents() {
  std::vector<ArgInfo> mouse{Arg("Button", T::Integer), Arg("X", T::Double), Arg("Y", T::Double)};
  std::vector<ArgInfo> key{RefArg("KeyCode", T::Integer), Arg("Shift", T::Integer)};
  return {
      {"Change", mvwEventChange, {}},
      {"MonthChanged", mvwEventMonthChanged, {}},
      {"YearChanged", mvwEventYearChanged, {}},
      {"DateClicked", mvwEventDateClicked, {}},
      {"EmptyClicked", mvwEventEmptyClicked, {}},
      {"BeforeDropDown", mvwEventBeforeDropDown, {RefArg("Cancel", T::Boolean)}},
      {"DroppedDown", mvwEventDroppedDown, {}},
      {"BeforeCloseUp", mvwEventBeforeCloseUp, {RefArg("Cancel", T::Boolean)}},
      {"AfterClosedUp", mvwEventAfterClosedUp, {}},
      {"MouseMove", -606, mouse},
      {"MouseDown", -605, mouse},
      {"MouseUp", -607, mouse},
      {"KeyDown", -602, key},
      {"KeyUp", -604, key},
      {"KeyPress", -603, {RefArg("KeyAscii", T::Integer)}},
  };
}

std::vector<MethodInfo> CalendarMethods() {
  auto plain = [](const char* name, void (C::*method)()) {
    return MethodInfo{name, {}, T::Void, [method](Object& o, std::vector<Variant>&) {
                        (type_info_detail::As<C>(o).*method)();
                        return Variant();
                      }};
  };
  return {
      plain("Paint", &C::Paint),
      plain("HideDropDown", &C::HideDropDown),
      plain("About", &C::About),
      plain("Refresh", &C::Refresh),
      SqlParametersMethod([](Object& o, const SqlOptions& options, bool) {
        return type_info_detail::As<C>(o).SQLParameters(options);
      }),
      {"DropDown",
       {Arg("X", T::Long), Arg("Y", T::Long), OptionalArg("ParentHeight", T::Long, int32_t(0)),
        OptionalArg("Animate", T::Long, int32_t(mvwAnimateNone))},
       T::Void,
       [](Object& o, std::vector<Variant>& a) {
         type_info_detail::As<C>(o).DropDown(a[0].ToLong(), a[1].ToLong(), a[2].ToLong(),
                                             a[3].ToLong());
         return Variant();
       }},
      {"IsDropDownShown",
       {},
       T::Boolean,
       [](Object& o, std::vector<Variant>&) {
         return Variant(type_info_detail::As<C>(o).IsDropDownShown());
       }},
  };
}

ClassInfo Describe() {
  ClassInfo info;
  info.name = "MonthCalendar";
  info.description = "A one-month calendar with Today and Empty buttons and a pop-up mode";
  info.defaultMember = "Value";
  info.properties = {
      Property<&C::Value, &C::SetValue>("Value", T::Date, "Value"),
      Property<&C::SelectedDay, &C::SetSelectedDay>("SelectedDay", T::Long),
      Property<&C::SelectedMonth, &C::SetSelectedMonth>("SelectedMonth", T::Long),
      Property<&C::SelectedYear, &C::SetSelectedYear>("SelectedYear", T::Long),
      Property<&C::MinDate, &C::SetMinDate>("MinDate", T::Date, "MinDate"),
      Property<&C::MaxDate, &C::SetMaxDate>("MaxDate", T::Date, "MaxDate"),
      Property<&C::FirstDayofWeek, &C::SetFirstDayofWeek>("FirstDayofWeek", T::Long,
                                                          "FirstDayOfWeek"),
      Property<&C::EmptyButton, &C::SetEmptyButton>("EmptyButton", T::Boolean, "EmptyButton"),
      Property<&C::EmptyButtonCaption, &C::SetEmptyButtonCaption>("EmptyButtonCaption", T::String,
                                                                  "EmptyButtonCaption"),
      Property<&C::TodayButtonCaption, &C::SetTodayButtonCaption>("TodayButtonCaption", T::String,
                                                                  "TodayButtonCaption"),
      Property<&C::ActiveMonthColor, &C::SetActiveMonthColor>("ActiveMonthColor", T::Color,
                                                              "ActiveMonthColor"),
      Property<&C::InactiveMonthColor, &C::SetInactiveMonthColor>("InactiveMonthColor", T::Color,
                                                                  "InactiveMonthColor"),
      Property<&C::PresentDateColor, &C::SetPresentDateColor>("PresentDateColor", T::Color,
                                                              "PresentDateColor"),
      Property<&C::WeekDayColor, &C::SetWeekDayColor>("WeekDayColor", T::Color, "WeekDayColor"),
      Property<&C::HeaderColor, &C::SetHeaderColor>("HeaderColor", T::Color, "HeaderColor"),
      Property<&C::HeaderForeColor, &C::SetHeaderForeColor>("HeaderForeColor", T::Color,
                                                            "HeaderForeColor"),
      Property<&C::BackColor, &C::SetBackColor>("BackColor", T::Color, "BackColor"),
      Property<&C::ButtonStyle, &C::SetButtonStyle>("ButtonStyle", T::Long, "ButtonStyle",
                                                    "mvwButtonStyles"),
      Property<&C::BackDrawMode, &C::SetBackDrawMode>("BackDrawMode", T::Long, "BackDrawMode",
                                                      "mvwBackDrawModes"),
      Property<&C::BackgroundImage, &C::SetBackgroundImage>("BackgroundImage", T::Picture,
                                                            "BackgroundImage"),
      Property<&C::Font, &C::SetFont>("Font", T::Font, "Font"),
      Property<&C::HoverIcon, &C::SetHoverIcon>("HoverIcon", T::Boolean, "HoverIcon"),
      Property<&C::Enabled, &C::SetEnabled>("Enabled", T::Boolean, "Enabled"),
      Property<&C::hwnd>("hwnd", T::Long),
  };
  info.methods = CalendarMethods();
  info.events = CalendarEvents();
  info.enums = {
      {"mvwAnimationTypes",
       {{"mvwAnimateNone", mvwAnimateNone},
        {"mvwAnimateBlend", mvwAnimateBlend},
        {"mvwAnimateSlide", mvwAnimateSlide},
        {"mvwAnimateRoll", mvwAnimateRoll}}},
      {"mvwButtonStyles",
       {{"mvwButton3D", mvwButton3D},
        {"mvwButtonThin3D", mvwButtonThin3D},
        {"mvwButtonFlat", mvwButtonFlat}}},
      {"mvwBackDrawModes",
       {{"mvwBackTile", mvwBackTile},
        {"mvwBackCentered", mvwBackCentered},
        {"mvwBackRepeatX", mvwBackRepeatX},
        {"mvwBackRepeatY", mvwBackRepeatY}}},
  };
  info.connect = Connector<C, CalendarEventAdapter>();
  return info;
}

} // namespace

const ClassInfo& MonthCalendar::TypeInfo() {
  static const ClassInfo info = Describe();
  return info;
}

} // namespace tarnbrook
