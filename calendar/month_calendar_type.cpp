// The calendar as hosts reach it by name: its properties, methods, events and enumerations.
#include "calendar/month_calendar.hpp"
#include "calendar/month_calendar_keys.hpp"
#include <optional>

#include "calendar/month_calendar_defaults.hpp"
#include "host/persisted_objects.hpp"
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

// A key the calendar cannot read is skipped as if it were absent; one it reads but cannot show
// is refused.
template <class Read, class Apply> PropertySetter ReadThenCheck(Read read, Apply apply) {
  return [read, apply](Object& o, const Variant& v) {
    std::optional<decltype(read(v))> value;
    try {
      value = read(v);
    } catch (const ControlError&) {
      return;
    }
    apply(type_info_detail::As<C>(o), *value);
  };
}

DateValue ToDate(const Variant& v) {
  return v.ToDate();
}

// A saved limit is kept as it was, checked only against the runtime's dates.
template <auto Member> PropertySetter StoreDate() {
  return ReadThenCheck(ToDate, [](C& calendar, DateValue limit) {
    CheckDateRange(limit);
    calendar.*Member = limit;
  });
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

} // namespace

// A form restores most keys straight into the fields, as they were saved: limits in the wrong
// order are kept, and only what the calendar cannot show at all is refused. The read order
// and the write order are the form's own.
ClassInfo MonthCalendar::Describe() {
  using namespace month_calendar_defaults;
  auto font = [](Object&) { return FontVariant(DefaultFont()); };
  ClassInfo info;
  info.name = "MonthCalendar";
  info.description = "A one-month calendar with Today and Empty buttons and a pop-up mode";
  info.defaultMember = "Value";
  info.properties = {
      Property<&C::Value, &C::SetValue>("Value", T::Date, CalendarKey::Value)
          .Saved({.read = 5,
                  .write = 7,
                  .byDefault = Variant(), // always written; absent reads as date 0
                  .load = ReadThenCheck(ToDate,
                                        [](C& calendar, DateValue value) {
                                          CheckDateRange(value);
                                          calendar.value_ = value;
                                          calendar.SetDisplayedYear(Year(value));
                                        })}),
      Property<&C::SelectedDay, &C::SetSelectedDay>("SelectedDay", T::Long),
      Property<&C::SelectedMonth, &C::SetSelectedMonth>("SelectedMonth", T::Long),
      Property<&C::SelectedYear, &C::SetSelectedYear>("SelectedYear", T::Long),
      Property<&C::MinDate, &C::SetMinDate>("MinDate", T::Date, CalendarKey::MinDate)
          .Saved(
              {.read = 8, .write = 5, .byDefault = MinDateText, .load = StoreDate<&C::minDate_>()}),
      Property<&C::MaxDate, &C::SetMaxDate>("MaxDate", T::Date, CalendarKey::MaxDate)
          .Saved({.read = 9,
                  .write = 6,
                  .byDefault = Variant::Date(LastDate()),
                  .load = StoreDate<&C::maxDate_>()}),
      Property<&C::FirstDayofWeek, &C::SetFirstDayofWeek>("FirstDayofWeek", T::Long,
                                                          CalendarKey::FirstDayOfWeek)
          .Saved({.read = 13,
                  .write = 15,
                  .byDefault = int32_t(0),
                  .load = ReadThenCheck([](const Variant& v) { return v.ToLong(); },
                                        [](C& calendar, int32_t firstDay) {
                                          calendar.firstDayofWeek_ =
                                              CheckedFirstDayOfWeek(firstDay);
                                        })}),
      Property<&C::EmptyButton, &C::SetEmptyButton>("EmptyButton", T::Boolean,
                                                    CalendarKey::EmptyButton)
          .Saved({.read = 20, .write = 9, .byDefault = true, .quiet = true}),
      Property<&C::EmptyButtonCaption, &C::SetEmptyButtonCaption>("EmptyButtonCaption", T::String,
                                                                  CalendarKey::EmptyButtonCaption)
          .Saved({.read = 10,
                  .write = 17,
                  .byDefault = "Empty",
                  .quiet = true,
                  .load = Store<&C::emptyButtonCaption_>(T::String)}),
      Property<&C::TodayButtonCaption, &C::SetTodayButtonCaption>("TodayButtonCaption", T::String,
                                                                  CalendarKey::TodayButtonCaption)
          .Saved({.read = 11,
                  .write = 18,
                  .byDefault = "Today",
                  .quiet = true,
                  .load = Store<&C::todayButtonCaption_>(T::String)}),
      Property<&C::ActiveMonthColor, &C::SetActiveMonthColor>("ActiveMonthColor", T::Color,
                                                              CalendarKey::ActiveMonthColor)
          .Saved({.read = 14,
                  .write = 12,
                  .byDefault = vbButtonText,
                  .quiet = true,
                  .load = Store<&C::activeMonthColor_>(T::Color)}),
      Property<&C::InactiveMonthColor, &C::SetInactiveMonthColor>("InactiveMonthColor", T::Color,
                                                                  CalendarKey::InactiveMonthColor)
          .Saved({.read = 15,
                  .write = 11,
                  .byDefault = vbGrayText,
                  .quiet = true,
                  .load = Store<&C::inactiveMonthColor_>(T::Color)}),
      Property<&C::PresentDateColor, &C::SetPresentDateColor>("PresentDateColor", T::Color,
                                                              CalendarKey::PresentDateColor)
          .Saved({.read = 16,
                  .write = 10,
                  .byDefault = int32_t(255),
                  .quiet = true,
                  .load = Store<&C::presentDateColor_>(T::Color)}),
      Property<&C::WeekDayColor, &C::SetWeekDayColor>("WeekDayColor", T::Color,
                                                      CalendarKey::WeekDayColor)
          .Saved({.read = 1,
                  .write = 1,
                  .byDefault = vbHighlight,
                  .quiet = true,
                  .load = Store<&C::weekDayColor_>(T::Color)}),
      Property<&C::HeaderColor, &C::SetHeaderColor>("HeaderColor", T::Color,
                                                    CalendarKey::HeaderColor)
          .Saved({.read = 18, .write = 13, .byDefault = vbButtonFace, .quiet = true}),
      Property<&C::HeaderForeColor, &C::SetHeaderForeColor>("HeaderForeColor", T::Color,
                                                            CalendarKey::HeaderForeColor)
          .Saved({.read = 12,
                  .write = 8,
                  .byDefault = vbButtonText,
                  .quiet = true,
                  .load = Store<&C::headerForeColor_>(T::Color)}),
      Property<&C::BackColor, &C::SetBackColor>("BackColor", T::Color, CalendarKey::BackColor)
          .Saved({.read = 17, .write = 14, .byDefault = vbWindowBackground, .quiet = true}),
      Property<&C::ButtonStyle, &C::SetButtonStyle>("ButtonStyle", T::Long,
                                                    CalendarKey::ButtonStyle, "mvwButtonStyles")
          .Saved({.read = 6, .write = 19, .byDefault = int32_t(mvwButton3D), .quiet = true}),
      Property<&C::BackDrawMode, &C::SetBackDrawMode>("BackDrawMode", T::Long,
                                                      CalendarKey::BackDrawMode, "mvwBackDrawModes")
          .Saved({.read = 3,
                  .write = 2,
                  .byDefault = int32_t(mvwBackTile),
                  .quiet = true,
                  .load = Store<&C::backDrawMode_>(T::Long)}),
      Property<&C::BackgroundImage, &C::SetBackgroundImage>("BackgroundImage", T::Picture,
                                                            CalendarKey::BackgroundImage)
          .Saved({.read = 4,
                  .write = 3,
                  .byDefault = Variant(),
                  .quiet = true,
                  .load = Store<&C::backgroundImage_>(T::Picture)}),
      Property<&C::Font, &C::SetFont>("Font", T::Font, CalendarKey::Font)
          .Saved(
              {.read = 2,
               .write = 20,
               .defaultOf = font,
               .load = ReadThenCheck([](const Variant& v) { return *ObjectOf<tarnbrook::Font>(v); },
                                     [](C& calendar, const tarnbrook::Font& font) {
                                       calendar.font_ = CheckedFont(font);
                                     })}),
      Property<&C::HoverIcon, &C::SetHoverIcon>("HoverIcon", T::Boolean, CalendarKey::HoverIcon)
          .Saved({.read = 7,
                  .write = 4,
                  .byDefault = true,
                  .quiet = true,
                  .load = Store<&C::hoverIcon_>(T::Boolean)}),
      Property<&C::Enabled, &C::SetEnabled>("Enabled", T::Boolean, CalendarKey::Enabled)
          .Saved({.read = 19, .write = 16, .byDefault = true, .quiet = true}),
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

const ClassInfo& MonthCalendar::TypeInfo() {
  static const ClassInfo info = Describe();
  return info;
}

} // namespace tarnbrook
