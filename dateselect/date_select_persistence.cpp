// The control's persisted keys: one table in the order they are read and applied, with the
// place each takes when written (the two orders differ, and so do two spellings of the year).
#include <algorithm>
#include <optional>
#include <vector>

#include "common/date_runtime.hpp"
#include "dateselect/date_select.hpp"
#include "host/persisted_objects.hpp"
#include "platform/platform.hpp"

namespace tarnbrook {
namespace {

struct PersistedKey {
  const char* readName;
  const char* writeName;
  int writeRank;
  Variant defaultValue;
  Variant (*get)(const DateSelect&);
  void (*set)(DateSelect&, const Variant&);
  bool alwaysWritten = false;
};

template <auto Get, auto Set> PersistedKey Boolean(const char* name, int rank, bool defaultValue) {
  return {name,
          name,
          rank,
          defaultValue,
          [](const DateSelect& d) { return Variant((d.*Get)()); },
          [](DateSelect& d, const Variant& v) { (d.*Set)(v.ToBoolean()); }};
}

template <auto Get, auto Set> PersistedKey Long(const char* name, int rank, int32_t defaultValue) {
  return {name,
          name,
          rank,
          defaultValue,
          [](const DateSelect& d) { return Variant(int32_t((d.*Get)())); },
          [](DateSelect& d, const Variant& v) { (d.*Set)(v.ToLong()); }};
}

template <auto Get, auto Set>
PersistedKey Integer(const char* name, int rank, int16_t defaultValue) {
  return {name,
          name,
          rank,
          defaultValue,
          [](const DateSelect& d) { return Variant(Variant(int32_t((d.*Get)())).ToInteger()); },
          [](DateSelect& d, const Variant& v) { (d.*Set)(v.ToInteger()); }};
}

template <auto Get, auto Set>
PersistedKey Text(const char* name, int rank, const char* defaultValue) {
  return {name,
          name,
          rank,
          defaultValue,
          [](const DateSelect& d) { return Variant((d.*Get)()); },
          [](DateSelect& d, const Variant& v) { (d.*Set)(v.ToString()); }};
}

// Every key in the order it is read; the rank is its place when written.
std::vector<PersistedKey> PersistedKeys(const DateSelect& control) {
  using D = DateSelect;
  return {
      Long<&D::VisibleOptions, &D::SetVisibleOptions>("VisibleOptions", 2, 16777215),
      Long<&D::BorderStyle, &D::SetBorderStyle>("BorderStyle", 7, 3),
      // No font stored keeps the control's own.
      {"Font", "Font", 19, Variant(), [](const D& d) { return FontVariant(d.Font()); },
       [](D& d, const Variant& v) {
         if (!v.IsEmpty())
           d.SetFont(*ObjectOf<tarnbrook::Font>(v));
       }},
      Boolean<&D::ShowFocusRect, &D::SetShowFocusRect>("ShowFocusRect", 3, true),
      Boolean<&D::UseFocusColor, &D::SetUseFocusColor>("UseFocusColor", 5, false),
      Long<&D::FocusColor, &D::SetFocusColor>("FocusColor", 4, 0xB0FCB0),
      Long<&D::ButtonStyle, &D::SetButtonStyle>("ButtonStyle", 6, 0),
      // Always written: its default is whatever year the control holds.
      {"SelectedYear", "Selectedyear", 8, Variant(control.SelectedYear()),
       [](const D& d) { return Variant(d.SelectedYear()); },
       [](D& d, const Variant& v) { d.SetSelectedYear(v.ToInteger()); }, true},
      Text<&D::SQLFieldName, &D::SetSQLFieldName>("SQLFieldName", 23, "Date"),
      Integer<&D::FirstDayofWeek, &D::SetFirstDayofWeek>("FirstDayofWeek", 10, 0),
      Text<&D::InputFormat, &D::SetInputFormat>("InputFormat", 11, ""),
      Text<&D::Operator, &D::SetOperator>("Operator", 12, "="),
      Boolean<&D::DisableStartDate, &D::SetDisableStartDate>("DisableStartDate", 14, false),
      Boolean<&D::DisableEndDate, &D::SetDisableEndDate>("DisableEndDate", 15, false),
      Boolean<&D::DisableSelection, &D::SetDisableSelection>("DisableSelection", 13, false),
      Text<&D::SQLDateWrapper, &D::SetSQLDateWrapper>("SQLDateWrapper", 24, ""),
      Boolean<&D::DisableCustomSelection, &D::SetDisableCustomSelection>("DisableCustomSelection",
                                                                         16, false),
      Integer<&D::CustomSelection, &D::SetCustomSelection>("CustomSelection", 17, 0),
      Integer<&D::CustomRange, &D::SetCustomRange>("CustomRange", 18, 1),
      Integer<&D::Selection, &D::SetSelection>("Selection", 9, 0),
      Long<&D::ForeColor, &D::SetForeColor>("ForeColor", 20, vbButtonText),
      Long<&D::BackColor, &D::SetBackColor>("BackColor", 21, vbButtonFace),
      Integer<&D::ButtonWidth, &D::SetButtonWidth>("ButtonWidth", 1, 16),
      Long<&D::ControlBackColor, &D::SetControlBackColor>("ControlBackColor", 22,
                                                          vbWindowBackground),
      Boolean<&D::SQLUseBETWEEN, &D::SetSQLUseBETWEEN>("SQLUseBETWEEN", 25, true),
      Text<&D::SQLDateFormat, &D::SetSQLDateFormat>("SQLDateFormat", 26, ""),
      Text<&D::SQLPrefix, &D::SetSQLPrefix>("SQLPrefix", 27, ""),
  };
}

} // namespace

// A new control: today's year and month, "Today" selected, the range ending today.
void DateSelect::InitProperties() {
  const DateValue today = Platform::Current().Today();
  buttonWidth_ = 16;
  foreColor_ = vbButtonText;
  controlBackColor_ = vbWindowBackground;
  SetFocusColor(0xB0FCB0);
  SetBorderStyle(dtpBorderSunken3D);
  SetButtonStyle(dtpButton3D);
  SetShowFocusRect(true);
  SetSelectedYear(static_cast<int16_t>(Year(today)));
  RebuildOptionList();
  SetSelection(dtsToday);
  SetSelectedMonth(Month(today));
  Quietly([&] { cboCustomChoice_->SetListIndex(dtsDays); });
  SetEndDate(today);
  SetSQLFieldName("Date");
  SetSQLUseBETWEEN(true);
}

// Every key is read, even after a refused one; the first refusal is raised at the end.
void DateSelect::ReadProperties(PropertyBag& bag) {
  std::optional<ControlError> refused;
  for (const PersistedKey& key : PersistedKeys(*this)) {
    try {
      key.set(*this, bag.ReadProperty(key.readName, key.defaultValue));
    } catch (const ControlError& error) {
      if (!refused)
        refused = error;
    }
  }
  if (refused)
    throw *refused;
}

void DateSelect::WriteProperties(PropertyBag& bag) {
  std::vector<PersistedKey> keys = PersistedKeys(*this);
  std::sort(keys.begin(), keys.end(),
            [](const PersistedKey& a, const PersistedKey& b) { return a.writeRank < b.writeRank; });
  for (const PersistedKey& key : keys)
    bag.WriteProperty(key.writeName, key.get(*this),
                      key.alwaysWritten ? Variant() : key.defaultValue);
}

} // namespace tarnbrook
