// The picker as hosts reach it by name: its properties, methods, events and enumerations.
#include "host/sql_parameters_object.hpp"
#include "host/type_info.hpp"
#include "picker/date_picker.hpp"

namespace tarnbrook {
namespace {

using T = MemberType;
using P = DatePicker;

struct PickerEventAdapter : DatePickerEvents {
  explicit PickerEventAdapter(EventHandler handler) : h(std::move(handler)) {}
  EventHandler h;
  static std::vector<Variant> Mouse(int16_t Button, int16_t Shift, float X, float Y) {
    return {Variant(Button), Variant(Shift), Variant(double(X)), Variant(double(Y))};
  }
  void Change() override { Forward(h, "Change"); }
  void MouseDown(int16_t Button, int16_t Shift, float X, float Y) override {
    Forward(h, "MouseDown", Mouse(Button, Shift, X, Y));
  }
  void MouseMove(int16_t Button, int16_t Shift, float X, float Y) override {
    Forward(h, "MouseMove", Mouse(Button, Shift, X, Y));
  }
  void MouseUp(int16_t Button, int16_t Shift, float X, float Y) override {
    Forward(h, "MouseUp", Mouse(Button, Shift, X, Y));
  }
  void KeyDown(int16_t& KeyCode, int16_t Shift) override {
    ForwardRef(h, "KeyDown", KeyCode, {Variant(Shift)});
  }
  void KeyPress(int16_t& KeyAscii) override { ForwardRef(h, "KeyPress", KeyAscii); }
  void KeyUp(int16_t& KeyCode, int16_t Shift) override {
    ForwardRef(h, "KeyUp", KeyCode, {Variant(Shift)});
  }
  void EmptyClicked(bool& Cancel) override { ForwardRef(h, "EmptyClicked", Cancel); }
  void BeforeCalendarDropDown(bool& Cancel) override {
    ForwardRef(h, "BeforeCalendarDropDown", Cancel);
  }
  void AfterCalendarDropDown() override { Forward(h, "AfterCalendarDropDown"); }
  void BeforeCalendarCloseUp(bool& Cancel) override {
    ForwardRef(h, "BeforeCalendarCloseUp", Cancel);
  }
  void AfterCalendarCloseUp() override { Forward(h, "AfterCalendarCloseUp"); }
};

std::vector<EventInfo> PickerEvents() {
  std::vector<ArgInfo> mouse{Arg("Button", T::Integer), Arg("Shift", T::Integer),
                             Arg("X", T::Double), Arg("Y", T::Double)};
  std::vector<ArgInfo> key{RefArg("KeyCode", T::Integer), Arg("Shift", T::Integer)};
  std::vector<ArgInfo> cancel{RefArg("Cancel", T::Boolean)};
  return {
      {"Change", dtpEventChange, {}},
      {"MouseDown", dtpEventMouseDown, mouse},
      {"MouseMove", dtpEventMouseMove, mouse},
      {"MouseUp", dtpEventMouseUp, mouse},
      {"KeyDown", dtpEventKeyDown, key},
      {"KeyPress", dtpEventKeyPress, {RefArg("KeyAscii", T::Integer)}},
      {"KeyUp", dtpEventKeyUp, key},
      {"EmptyClicked", dtpEventEmptyClicked, cancel},
      {"BeforeCalendarDropDown", dtpEventBeforeCalendarDropDown, cancel},
      {"AfterCalendarDropDown", dtpEventAfterCalendarDropDown, {}},
      {"BeforeCalendarCloseUp", dtpEventBeforeCalendarCloseUp, cancel},
      {"AfterCalendarCloseUp", dtpEventAfterCalendarCloseUp, {}},
  };
}

std::vector<MethodInfo> PickerMethods() {
  auto plain = [](const char* name, void (P::*method)()) {
    return MethodInfo{name, {}, T::Void, [method](Object& o, std::vector<Variant>&) {
                        (type_info_detail::As<P>(o).*method)();
                        return Variant();
                      }};
  };
  return {plain("DropDownCalendar", &P::DropDownCalendar),
          plain("CloseUpCalendar", &P::CloseUpCalendar), plain("About", &P::About),
          plain("Refresh", &P::Refresh),
          SqlParametersMethod([](Object& o, const SqlOptions& options, bool) {
            return type_info_detail::As<P>(o).SQLParameters(options);
          })};
}

std::vector<PropertyInfo> PickerProperties() {
  return {
      Property<&P::Value, &P::SetValue>("Value", T::Variant, "Value"),
      Property<&P::DateValue>("DateValue", T::Date),
      Property<&P::TimeValue>("TimeValue", T::Date),
      Property<&P::MinDate, &P::SetMinDate>("MinDate", T::Date, "MinDate"),
      Property<&P::MaxDate, &P::SetMaxDate>("MaxDate", T::Date, "MaxDate"),
      Property<&P::AllowEmpty, &P::SetAllowEmpty>("AllowEmpty", T::Boolean, "AllowEmpty"),
      Property<&P::Format, &P::SetFormat>("Format", T::Long, "Format", "dtpFormats"),
      Property<&P::CustomFormat, &P::SetCustomFormat>("CustomFormat", T::String, "CustomFormat"),
      Property<&P::ChangeOnDrag, &P::SetChangeOnDrag>("ChangeOnDrag", T::Boolean, "ChangeOnDrag"),
      Property<&P::ExitOnReturn, &P::SetExitOnReturn>("ExitOnReturn", T::Boolean, "ExitOnReturn"),
      Property<&P::Locked, &P::SetLocked>("Locked", T::Boolean, "Locked"),
      Property<&P::Enabled, &P::SetEnabled>("Enabled", T::Boolean, "Enabled"),
      Property<&P::Button, &P::SetButton>("Button", T::Long, "Button", "dtpButtons"),
      Property<&P::ButtonWidth, &P::SetButtonWidth>("ButtonWidth", T::Long, "ButtonWidth"),
      Property<&P::ButtonStyle, &P::SetButtonStyle>("ButtonStyle", T::Long, "ButtonStyle",
                                                    "dtpButtonStyles"),
      Property<&P::BorderStyle, &P::SetBorderStyle>("BorderStyle", T::Long, "BorderStyle",
                                                    "dtpBorderStyles"),
      Property<&P::BackColor, &P::SetBackColor>("BackColor", T::Color, "BackColor"),
      Property<&P::ForeColor, &P::SetForeColor>("ForeColor", T::Color, "ForeColor"),
      Property<&P::FocusColor, &P::SetFocusColor>("FocusColor", T::Color, "FocusColor"),
      Property<&P::UseFocusColor, &P::SetUseFocusColor>("UseFocusColor", T::Boolean,
                                                        "UseFocusColor"),
      Property<&P::ShowFocusRect, &P::SetShowFocusRect>("ShowFocusRect", T::Boolean,
                                                        "ShowFocusRect"),
      Property<&P::Font, &P::SetFont>("Font", T::Font, "Font"),
      Property<&P::IsDropped>("IsDropped", T::Boolean),
      Property<&P::CalendarAnimation, &P::SetCalendarAnimation>(
          "CalendarAnimation", T::Long, "CalendarAnimation", "dtpAnimationTypes"),
      Property<&P::CalendarButtonStyle, &P::SetCalendarButtonStyle>(
          "CalendarButtonStyle", T::Long, "CalendarButtonStyle", "dtpButtonStyles"),
      Property<&P::CalendarBackColor, &P::SetCalendarBackColor>("CalendarBackColor", T::Color,
                                                                "CalendarBackColor"),
      Property<&P::CalendarActiveMonthColor, &P::SetCalendarActiveMonthColor>(
          "CalendarActiveMonthColor", T::Color, "CalendarActiveMonthColor"),
      Property<&P::CalendarInactiveMonthColor, &P::SetCalendarInactiveMonthColor>(
          "CalendarInactiveMonthColor", T::Color, "CalendarInactiveMonthColor"),
      Property<&P::CalendarHeaderColor, &P::SetCalendarHeaderColor>("CalendarHeaderColor", T::Color,
                                                                    "CalendarHeaderColor"),
      Property<&P::CalendarHeaderForeColor, &P::SetCalendarHeaderForeColor>(
          "CalendarHeaderForeColor", T::Color, "CalendarHeaderForeColor"),
      Property<&P::CalendarPresentDateColor, &P::SetCalendarPresentDateColor>(
          "CalendarPresentDateColor", T::Color, "CalendarPresentDateColor"),
      Property<&P::CalendarWeekdayColor, &P::SetCalendarWeekdayColor>(
          "CalendarWeekdayColor", T::Color, "CalendarWeekdayColor"),
      Property<&P::CalendarFont, &P::SetCalendarFont>("CalendarFont", T::Font, "CalendarFont"),
      Property<&P::CalendarBackground, &P::SetCalendarBackground>("CalendarBackground", T::Picture,
                                                                  "CalendarBackground"),
      Property<&P::CalendarBackDrawMode, &P::SetCalendarBackDrawMode>(
          "CalendarBackDrawMode", T::Long, "BackDrawMode", "mvwBackDrawModes"),
      Property<&P::CalendarHoverIcon, &P::SetCalendarHoverIcon>("CalendarHoverIcon", T::Boolean,
                                                                "HoverIcon"),
      Property<&P::FirstDayofWeek, &P::SetFirstDayofWeek>("FirstDayofWeek", T::Long,
                                                          "FirstDayofWeek"),
      Property<&P::TodayButtonCaption, &P::SetTodayButtonCaption>("TodayButtonCaption", T::String,
                                                                  "TodayButtonCaption"),
      Property<&P::EmptyButtonCaption, &P::SetEmptyButtonCaption>("EmptyButtonCaption", T::String,
                                                                  "EmptyButtonCaption"),
  };
}

ClassInfo Describe() {
  ClassInfo info;
  info.name = "DatePicker";
  info.description = "A one-line date and time field with buttons and a drop-down calendar";
  info.defaultMember = "Value";
  info.properties = PickerProperties();
  info.methods = PickerMethods();
  info.events = PickerEvents();
  info.enums = {
      {"dtpButtons",
       {{"dtpDropDown", dtpDropDown},
        {"dtpUpDown", dtpUpDown},
        {"dtpNone", dtpNone},
        {"dtpBoth", dtpBoth}}},
      {"dtpButtonStyles",
       {{"dtpButton3D", dtpButton3D},
        {"dtpButtonThin3D", dtpButtonThin3D},
        {"dtpButtonFlat", dtpButtonFlat}}},
      {"dtpFormats",
       {{"dtpLongDate", dtpLongDate},
        {"dtpShortDate", dtpShortDate},
        {"dtpTime", dtpTime},
        {"dtpCustom", dtpCustom}}},
      {"dtpBorderStyles",
       {{"dtpBorderNone", dtpBorderNone},
        {"dtpBorderFixedSingle", dtpBorderFixedSingle},
        {"dtpBorderRaised3D", dtpBorderRaised3D},
        {"dtpBorderSunken3D", dtpBorderSunken3D},
        {"dtpBorderSunkenThin", dtpBorderSunkenThin},
        {"dtpBorderRaisedThin", dtpBorderRaisedThin},
        {"dtpBorderEtched", dtpBorderEtched}}},
      {"dtpAnimationTypes",
       {{"dtpAnimateNone", dtpAnimateNone},
        {"dtpAnimateBlend", dtpAnimateBlend},
        {"dtpAnimateSlide", dtpAnimateSlide},
        {"dtpAnimateRoll", dtpAnimateRoll}}},
  };
  info.connect = Connector<P, PickerEventAdapter>();
  return info;
}

} // namespace

const ClassInfo& DatePicker::TypeInfo() {
  static const ClassInfo info = Describe();
  return info;
}

} // namespace tarnbrook
