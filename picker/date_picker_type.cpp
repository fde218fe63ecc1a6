// The picker as hosts reach it by name: its properties, methods, events and enumerations.
#include "host/persisted_objects.hpp"
#include "host/sql_parameters_object.hpp"
#include "host/type_info.hpp"
#include "picker/date_picker.hpp"
#include "picker/date_picker_keys.hpp"

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

// Saved in one order, read and written alike. The font's default is the container's font; no
// calendar font stored keeps the calendar's own.
std::vector<PropertyInfo> PickerProperties() {
  auto ambientFont = [](Object& o) {
    return FontVariant(type_info_detail::As<P>(o).Site().AmbientFont());
  };
  auto keepUnlessStored = [](Object& o, const Variant& v) {
    if (!v.IsEmpty())
      type_info_detail::As<P>(o).SetCalendarFont(*ObjectOf<tarnbrook::Font>(v));
  };
  return {
      Property<&P::Value, &P::SetValue>("Value", T::Variant, PickerKey::Value)
          .Saved({.read = 10, .byDefault = Variant::Null()}),
      Property<&P::DateValue>("DateValue", T::Date),
      Property<&P::TimeValue>("TimeValue", T::Date),
      Property<&P::MinDate, &P::SetMinDate>("MinDate", T::Date, PickerKey::MinDate)
          .Saved({.read = 9, .byDefault = P::MinDateText}),
      Property<&P::MaxDate, &P::SetMaxDate>("MaxDate", T::Date, PickerKey::MaxDate)
          .Saved({.read = 8, .byDefault = P::MaxDateText}),
      Property<&P::AllowEmpty, &P::SetAllowEmpty>("AllowEmpty", T::Boolean, PickerKey::AllowEmpty)
          .Saved({.read = 25, .byDefault = true}),
      Property<&P::Format, &P::SetFormat>("Format", T::Long, PickerKey::Format, "dtpFormats")
          .Saved({.read = 36, .byDefault = int32_t(dtpShortDate)}),
      Property<&P::CustomFormat, &P::SetCustomFormat>("CustomFormat", T::String,
                                                      PickerKey::CustomFormat)
          .Saved({.read = 11, .byDefault = ""}),
      Property<&P::ChangeOnDrag, &P::SetChangeOnDrag>("ChangeOnDrag", T::Boolean,
                                                      PickerKey::ChangeOnDrag)
          .Saved({.read = 1, .byDefault = true}),
      Property<&P::ExitOnReturn, &P::SetExitOnReturn>("ExitOnReturn", T::Boolean,
                                                      PickerKey::ExitOnReturn)
          .Saved({.read = 18, .byDefault = false}),
      Property<&P::Locked, &P::SetLocked>("Locked", T::Boolean, PickerKey::Locked)
          .Saved({.read = 15, .byDefault = false}),
      Property<&P::Enabled, &P::SetEnabled>("Enabled", T::Boolean, PickerKey::Enabled)
          .Saved({.read = 17, .byDefault = true}),
      Property<&P::Button, &P::SetButton>("Button", T::Long, PickerKey::Button, "dtpButtons")
          .Saved({.read = 5, .byDefault = int32_t(dtpDropDown)}),
      Property<&P::ButtonWidth, &P::SetButtonWidth>("ButtonWidth", T::Long, PickerKey::ButtonWidth)
          .Saved({.read = 7, .byDefault = int16_t(16), .asInteger = true}),
      Property<&P::ButtonStyle, &P::SetButtonStyle>("ButtonStyle", T::Long, PickerKey::ButtonStyle,
                                                    "dtpButtonStyles")
          .Saved({.read = 6, .byDefault = int32_t(dtpButton3D)}),
      Property<&P::BorderStyle, &P::SetBorderStyle>("BorderStyle", T::Long, PickerKey::BorderStyle,
                                                    "dtpBorderStyles")
          .Saved({.read = 16, .byDefault = int32_t(dtpBorderSunken3D)}),
      Property<&P::BackColor, &P::SetBackColor>("BackColor", T::Color, PickerKey::BackColor)
          .Saved({.read = 3, .byDefault = vbWindowBackground}),
      Property<&P::ForeColor, &P::SetForeColor>("ForeColor", T::Color, PickerKey::ForeColor)
          .Saved({.read = 4, .byDefault = vbButtonText}),
      Property<&P::FocusColor, &P::SetFocusColor>("FocusColor", T::Color, PickerKey::FocusColor)
          .Saved({.read = 12, .byDefault = int32_t(0xB0FCB0)}),
      Property<&P::UseFocusColor, &P::SetUseFocusColor>("UseFocusColor", T::Boolean,
                                                        PickerKey::UseFocusColor)
          .Saved({.read = 14, .byDefault = true}),
      Property<&P::ShowFocusRect, &P::SetShowFocusRect>("ShowFocusRect", T::Boolean,
                                                        PickerKey::ShowFocusRect)
          .Saved({.read = 13, .byDefault = true}),
      Property<&P::Font, &P::SetFont>("Font", T::Font, PickerKey::Font)
          .Saved({.read = 2, .defaultOf = ambientFont}),
      Property<&P::IsDropped>("IsDropped", T::Boolean),
      Property<&P::CalendarAnimation, &P::SetCalendarAnimation>(
          "CalendarAnimation", T::Long, PickerKey::CalendarAnimation, "dtpAnimationTypes")
          .Saved({.read = 19, .byDefault = int32_t(dtpAnimateBlend)}),
      Property<&P::CalendarButtonStyle, &P::SetCalendarButtonStyle>(
          "CalendarButtonStyle", T::Long, PickerKey::CalendarButtonStyle, "dtpButtonStyles")
          .Saved({.read = 24, .byDefault = int32_t(dtpButton3D)}),
      Property<&P::CalendarBackColor, &P::SetCalendarBackColor>("CalendarBackColor", T::Color,
                                                                PickerKey::CalendarBackColor)
          .Saved({.read = 26, .byDefault = vbWindowBackground}),
      Property<&P::CalendarActiveMonthColor, &P::SetCalendarActiveMonthColor>(
          "CalendarActiveMonthColor", T::Color, PickerKey::CalendarActiveMonthColor)
          .Saved({.read = 29, .byDefault = vbWindowText}),
      Property<&P::CalendarInactiveMonthColor, &P::SetCalendarInactiveMonthColor>(
          "CalendarInactiveMonthColor", T::Color, PickerKey::CalendarInactiveMonthColor)
          .Saved({.read = 30, .byDefault = vbButtonFace}),
      Property<&P::CalendarHeaderColor, &P::SetCalendarHeaderColor>("CalendarHeaderColor", T::Color,
                                                                    PickerKey::CalendarHeaderColor)
          .Saved({.read = 27, .byDefault = vbButtonFace}),
      Property<&P::CalendarHeaderForeColor, &P::SetCalendarHeaderForeColor>(
          "CalendarHeaderForeColor", T::Color, PickerKey::CalendarHeaderForeColor)
          .Saved({.read = 28, .byDefault = vbWindowText}),
      Property<&P::CalendarPresentDateColor, &P::SetCalendarPresentDateColor>(
          "CalendarPresentDateColor", T::Color, PickerKey::CalendarPresentDateColor)
          .Saved({.read = 31, .byDefault = int32_t(255)}),
      Property<&P::CalendarWeekdayColor, &P::SetCalendarWeekdayColor>(
          "CalendarWeekdayColor", T::Color, PickerKey::CalendarWeekdayColor)
          .Saved({.read = 20, .byDefault = vbHighlight}),
      Property<&P::CalendarFont, &P::SetCalendarFont>("CalendarFont", T::Font,
                                                      PickerKey::CalendarFont)
          .Saved({.read = 21, .byDefault = Variant(), .load = keepUnlessStored}),
      Property<&P::CalendarBackground, &P::SetCalendarBackground>("CalendarBackground", T::Picture,
                                                                  PickerKey::CalendarBackground)
          .Saved({.read = 23, .byDefault = Variant()}),
      Property<&P::CalendarBackDrawMode, &P::SetCalendarBackDrawMode>(
          "CalendarBackDrawMode", T::Long, PickerKey::BackDrawMode, "mvwBackDrawModes")
          .Saved({.read = 22, .byDefault = int32_t(0)}),
      Property<&P::CalendarHoverIcon, &P::SetCalendarHoverIcon>("CalendarHoverIcon", T::Boolean,
                                                                PickerKey::HoverIcon)
          .Saved({.read = 35, .byDefault = true}),
      Property<&P::FirstDayofWeek, &P::SetFirstDayofWeek>("FirstDayofWeek", T::Long,
                                                          PickerKey::FirstDayofWeek)
          .Saved({.read = 32, .byDefault = int32_t(0)}),
      Property<&P::TodayButtonCaption, &P::SetTodayButtonCaption>("TodayButtonCaption", T::String,
                                                                  PickerKey::TodayButtonCaption)
          .Saved({.read = 33, .byDefault = "Today"}),
      Property<&P::EmptyButtonCaption, &P::SetEmptyButtonCaption>("EmptyButtonCaption", T::String,
                                                                  PickerKey::EmptyButtonCaption)
          .Saved({.read = 34, .byDefault = "Empty"}),
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
