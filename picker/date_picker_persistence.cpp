// The picker's persisted keys: one table read in its order and written under the same names
// and defaults, so that every value written reads back unchanged.
#include "common/scoped_flag.hpp"
#include <optional>
#include <vector>

#include "common/control_error.hpp"
#include "common/conversions.hpp"
#include "common/property_bag.hpp"
#include "host/persisted_objects.hpp"
#include "picker/date_picker.hpp"
#include "platform/platform.hpp"

namespace tarnbrook {
namespace {

constexpr const char* MinDateText = "1/1/1601";
constexpr const char* MaxDateText = "12/31/9999";

struct PersistedKey {
  const char* name;
  Variant defaultValue;
  Variant (*get)(const DatePicker&);
  void (*set)(DatePicker&, const Variant&);
};

template <auto Get, auto Set> PersistedKey Boolean(const char* name, bool defaultValue) {
  return {name, defaultValue, [](const DatePicker& p) { return Variant((p.*Get)()); },
          [](DatePicker& p, const Variant& v) { (p.*Set)(v.ToBoolean()); }};
}

template <auto Get, auto Set> PersistedKey Long(const char* name, int32_t defaultValue) {
  return {name, defaultValue, [](const DatePicker& p) { return Variant(int32_t((p.*Get)())); },
          [](DatePicker& p, const Variant& v) { (p.*Set)(v.ToLong()); }};
}

template <auto Get, auto Set> PersistedKey Text(const char* name, const char* defaultValue) {
  return {name, defaultValue, [](const DatePicker& p) { return Variant((p.*Get)()); },
          [](DatePicker& p, const Variant& v) { (p.*Set)(v.ToString()); }};
}

template <auto Get, auto Set> PersistedKey Date(const char* name, const char* defaultValue) {
  return {name, defaultValue, [](const DatePicker& p) { return Variant::Date((p.*Get)()); },
          [](DatePicker& p, const Variant& v) { (p.*Set)(v.ToDate()); }};
}

// Every key in the order it is read. The font's default is the container's font.
std::vector<PersistedKey> PersistedKeys(const DatePicker& picker) {
  using P = DatePicker;
  return {
      Boolean<&P::ChangeOnDrag, &P::SetChangeOnDrag>("ChangeOnDrag", true),
      {"Font", FontVariant(picker.Site().AmbientFont()),
       [](const P& p) { return FontVariant(p.Font()); },
       [](P& p, const Variant& v) { p.SetFont(*ObjectOf<tarnbrook::Font>(v)); }},
      Long<&P::BackColor, &P::SetBackColor>("BackColor", vbWindowBackground),
      Long<&P::ForeColor, &P::SetForeColor>("ForeColor", vbButtonText),
      Long<&P::Button, &P::SetButton>("Button", dtpDropDown),
      Long<&P::ButtonStyle, &P::SetButtonStyle>("ButtonStyle", dtpButton3D),
      {"ButtonWidth", int16_t(16),
       [](const P& p) { return Variant(Variant(p.ButtonWidth()).ToInteger()); },
       [](P& p, const Variant& v) { p.SetButtonWidth(v.ToInteger()); }},
      Date<&P::MaxDate, &P::SetMaxDate>("MaxDate", MaxDateText),
      Date<&P::MinDate, &P::SetMinDate>("MinDate", MinDateText),
      {"Value", Variant::Null(), [](const P& p) { return p.Value(); },
       [](P& p, const Variant& v) { p.SetValue(v); }},
      Text<&P::CustomFormat, &P::SetCustomFormat>("CustomFormat", ""),
      Long<&P::FocusColor, &P::SetFocusColor>("FocusColor", 0xB0FCB0),
      Boolean<&P::ShowFocusRect, &P::SetShowFocusRect>("ShowFocusRect", true),
      Boolean<&P::UseFocusColor, &P::SetUseFocusColor>("UseFocusColor", true),
      Boolean<&P::Locked, &P::SetLocked>("Locked", false),
      Long<&P::BorderStyle, &P::SetBorderStyle>("BorderStyle", dtpBorderSunken3D),
      Boolean<&P::Enabled, &P::SetEnabled>("Enabled", true),
      Boolean<&P::ExitOnReturn, &P::SetExitOnReturn>("ExitOnReturn", false),
      Long<&P::CalendarAnimation, &P::SetCalendarAnimation>("CalendarAnimation", dtpAnimateBlend),
      Long<&P::CalendarWeekdayColor, &P::SetCalendarWeekdayColor>("CalendarWeekdayColor",
                                                                  vbHighlight),
      // No font stored keeps the calendar's own.
      {"CalendarFont", Variant(), [](const P& p) { return FontVariant(p.CalendarFont()); },
       [](P& p, const Variant& v) {
         if (!v.IsEmpty())
           p.SetCalendarFont(*ObjectOf<tarnbrook::Font>(v));
       }},
      Long<&P::CalendarBackDrawMode, &P::SetCalendarBackDrawMode>("BackDrawMode", 0),
      {"CalendarBackground", Variant(),
       [](const P& p) { return PictureVariant(p.CalendarBackground()); },
       [](P& p, const Variant& v) {
         p.SetCalendarBackground(v.IsEmpty() ? nullptr : ObjectOf<Picture>(v));
       }},
      Long<&P::CalendarButtonStyle, &P::SetCalendarButtonStyle>("CalendarButtonStyle", dtpButton3D),
      Boolean<&P::AllowEmpty, &P::SetAllowEmpty>("AllowEmpty", true),
      Long<&P::CalendarBackColor, &P::SetCalendarBackColor>("CalendarBackColor",
                                                            vbWindowBackground),
      Long<&P::CalendarHeaderColor, &P::SetCalendarHeaderColor>("CalendarHeaderColor",
                                                                vbButtonFace),
      Long<&P::CalendarHeaderForeColor, &P::SetCalendarHeaderForeColor>("CalendarHeaderForeColor",
                                                                        vbWindowText),
      Long<&P::CalendarActiveMonthColor, &P::SetCalendarActiveMonthColor>(
          "CalendarActiveMonthColor", vbWindowText),
      Long<&P::CalendarInactiveMonthColor, &P::SetCalendarInactiveMonthColor>(
          "CalendarInactiveMonthColor", vbButtonFace),
      Long<&P::CalendarPresentDateColor, &P::SetCalendarPresentDateColor>(
          "CalendarPresentDateColor", 255),
      Long<&P::FirstDayofWeek, &P::SetFirstDayofWeek>("FirstDayofWeek", 0),
      Text<&P::TodayButtonCaption, &P::SetTodayButtonCaption>("TodayButtonCaption", "Today"),
      Text<&P::EmptyButtonCaption, &P::SetEmptyButtonCaption>("EmptyButtonCaption", "Empty"),
      Boolean<&P::CalendarHoverIcon, &P::SetCalendarHoverIcon>("HoverIcon", true),
      Long<&P::Format, &P::SetFormat>("Format", dtpShortDate),
  };
}

} // namespace

// A new control: the table's defaults, the user's short date as its custom format, and the
// calendar in Tahoma.
void DatePicker::InitProperties() {
  MemoryPropertyBag defaults;
  ReadProperties(defaults);
  SetCustomFormat(PickerFormatString(dtpShortDate, ""));
  tarnbrook::Font calendarFont = CalendarFont();
  calendarFont.Name = "Tahoma";
  SetCalendarFont(calendarFont);
}

// Every key is read, even after a refused one (a limit crossing the other, a value outside
// them, a wrong type); the first refusal is raised once the control is laid out.
void DatePicker::ReadProperties(PropertyBag& bag) {
  empty_ = true; // so that the empty default keeps this LastDate
  lastDate_ = Platform::Current().Now();
  // The widest limits, so that a stored limit is checked against the other stored one only.
  minDate_ = CDate(MinDateText);
  maxDate_ = CDate(MaxDateText);
  std::optional<ControlError> refused;
  {
    const ScopedFlag loading(loading_);
    for (const PersistedKey& key : PersistedKeys(*this)) {
      try {
        key.set(*this, bag.ReadProperty(key.name, key.defaultValue));
      } catch (const ControlError& error) {
        if (!refused)
          refused =
              ControlError(error.Number(), error.Source(),
                           std::string("property '") + key.name + "': " + error.Description());
      }
    }
  }
  RebuildFields();
  LayoutButtons();
  Redraw();
  if (refused)
    throw *refused;
}

void DatePicker::WriteProperties(PropertyBag& bag) {
  for (const PersistedKey& key : PersistedKeys(*this))
    bag.WriteProperty(key.name, key.get(*this), key.defaultValue);
}

} // namespace tarnbrook
