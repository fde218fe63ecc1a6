// DateSelect and CdtsOption as hosts reach them by name: properties, methods, events and
// enumerations.
#include "dateselect/date_select.hpp"
#include "dateselect/date_select_keys.hpp"
#include "host/persisted_objects.hpp"
#include "host/sql_parameters_object.hpp"
#include "host/type_info.hpp"

namespace tarnbrook {
namespace {

using T = MemberType;
using D = DateSelect;
using O = CdtsOption;

struct DateSelectEventAdapter : DateSelectEvents {
  explicit DateSelectEventAdapter(EventHandler handler) : h(std::move(handler)) {}
  EventHandler h;
  void Change() override { Forward(h, "Change"); }
  void OperatorChange() override { Forward(h, "OperatorChange"); }
  void StartDateChange() override { Forward(h, "StartDateChange"); }
  void EndDateChange() override { Forward(h, "EndDateChange"); }
  void YearChange() override { Forward(h, "YearChange"); }
  void MonthChange() override { Forward(h, "MonthChange"); }
  void SelectionChange() override { Forward(h, "SelectionChange"); }
  void CustomRangeChange() override { Forward(h, "CustomRangeChange"); }
  void CustomSelectionChange() override { Forward(h, "CustomSelectionChange"); }
};

struct OptionEventAdapter : CdtsOptionEvents {
  explicit OptionEventAdapter(EventHandler handler) : h(std::move(handler)) {}
  EventHandler h;
  void TextChange(int32_t Index, const std::string& Text) override {
    Forward(h, "TextChange", {Variant(Index), Variant(Text)});
  }
  void VisibleChange(int32_t Index, bool Visible) override {
    Forward(h, "VisibleChange", {Variant(Index), Variant(Visible)});
  }
};

std::vector<PropertyInfo> DateSelectProperties() {
  PropertyInfo options{"Options", T::Object, {}, {}, {Arg("Index", T::Long)}, {}, {}, "CdtsOption"};
  options.get = [](Object& o, const std::vector<Variant>& index) {
    return Variant(
        std::shared_ptr<Object>(type_info_detail::As<D>(o).Options(index.at(0).ToLong())));
  };
  // No font stored keeps the control's own; the year is always written, and an absent one
  // keeps the year the control holds.
  auto keepUnlessStored = [](Object& o, const Variant& v) {
    if (!v.IsEmpty())
      type_info_detail::As<D>(o).SetFont(*ObjectOf<tarnbrook::Font>(v));
  };
  auto heldYear = [](Object& o) { return Variant(type_info_detail::As<D>(o).SelectedYear()); };
  return {
      Property<&D::VisibleOptions, &D::SetVisibleOptions>("VisibleOptions", T::Long,
                                                          DateSelectKey::VisibleOptions)
          .Saved({.read = 1, .write = 2, .byDefault = int32_t(16777215)}),
      options,
      Property<&D::Selection, &D::SetSelection>("Selection", T::Long, DateSelectKey::Selection,
                                                "dtsOptions")
          .Saved({.read = 20, .write = 9, .byDefault = int16_t(0), .asInteger = true}),
      Property<&D::StartDate, &D::SetStartDate>("StartDate", T::Date),
      Property<&D::EndDate, &D::SetEndDate>("EndDate", T::Date),
      Property<&D::SelectedMonth, &D::SetSelectedMonth>("SelectedMonth", T::Long, {}, "dtsMonths"),
      Property<&D::SelectedYear, &D::SetSelectedYear>("SelectedYear", T::Integer,
                                                      DateSelectKey::SelectedYear)
          .Saved({.read = 8,
                  .write = 8,
                  .defaultOf = heldYear,
                  .writtenAs = "Selectedyear",
                  .alwaysWritten = true}),
      Property<&D::Operator, &D::SetOperator>("Operator", T::String, DateSelectKey::Operator)
          .Saved({.read = 12, .write = 12, .byDefault = "="}),
      Property<&D::CustomRange, &D::SetCustomRange>("CustomRange", T::Long,
                                                    DateSelectKey::CustomRange)
          .Saved({.read = 19, .write = 18, .byDefault = int16_t(1), .asInteger = true}),
      Property<&D::CustomSelection, &D::SetCustomSelection>(
          "CustomSelection", T::Long, DateSelectKey::CustomSelection, "dtsCustomSelections")
          .Saved({.read = 18, .write = 17, .byDefault = int16_t(0), .asInteger = true}),
      Property<&D::InputFormat, &D::SetInputFormat>("InputFormat", T::String,
                                                    DateSelectKey::InputFormat)
          .Saved({.read = 11, .write = 11, .byDefault = ""}),
      Property<&D::FirstDayofWeek, &D::SetFirstDayofWeek>("FirstDayofWeek", T::Long,
                                                          DateSelectKey::FirstDayofWeek)
          .Saved({.read = 10, .write = 10, .byDefault = int16_t(0), .asInteger = true}),
      Property<&D::DisableSelection, &D::SetDisableSelection>("DisableSelection", T::Boolean,
                                                              DateSelectKey::DisableSelection)
          .Saved({.read = 15, .write = 13, .byDefault = false}),
      Property<&D::DisableStartDate, &D::SetDisableStartDate>("DisableStartDate", T::Boolean,
                                                              DateSelectKey::DisableStartDate)
          .Saved({.read = 13, .write = 14, .byDefault = false}),
      Property<&D::DisableEndDate, &D::SetDisableEndDate>("DisableEndDate", T::Boolean,
                                                          DateSelectKey::DisableEndDate)
          .Saved({.read = 14, .write = 15, .byDefault = false}),
      Property<&D::DisableCustomSelection, &D::SetDisableCustomSelection>(
          "DisableCustomSelection", T::Boolean, DateSelectKey::DisableCustomSelection)
          .Saved({.read = 17, .write = 16, .byDefault = false}),
      Property<&D::SQLFieldName, &D::SetSQLFieldName>("SQLFieldName", T::String,
                                                      DateSelectKey::SQLFieldName)
          .Saved({.read = 9, .write = 23, .byDefault = "Date"}),
      Property<&D::SQLDateWrapper, &D::SetSQLDateWrapper>("SQLDateWrapper", T::String,
                                                          DateSelectKey::SQLDateWrapper)
          .Saved({.read = 16, .write = 24, .byDefault = ""}),
      Property<&D::SQLDateFormat, &D::SetSQLDateFormat>("SQLDateFormat", T::String,
                                                        DateSelectKey::SQLDateFormat)
          .Saved({.read = 26, .write = 26, .byDefault = ""}),
      Property<&D::SQLUseBETWEEN, &D::SetSQLUseBETWEEN>("SQLUseBETWEEN", T::Boolean,
                                                        DateSelectKey::SQLUseBETWEEN)
          .Saved({.read = 25, .write = 25, .byDefault = true}),
      Property<&D::SQLPrefix, &D::SetSQLPrefix>("SQLPrefix", T::String, DateSelectKey::SQLPrefix)
          .Saved({.read = 27, .write = 27, .byDefault = ""}),
      Property<&D::ButtonWidth, &D::SetButtonWidth>("ButtonWidth", T::Long,
                                                    DateSelectKey::ButtonWidth)
          .Saved({.read = 23, .write = 1, .byDefault = int16_t(16), .asInteger = true}),
      Property<&D::ButtonStyle, &D::SetButtonStyle>("ButtonStyle", T::Long,
                                                    DateSelectKey::ButtonStyle, "dtpButtonStyles")
          .Saved({.read = 7, .write = 6, .byDefault = int32_t(0)}),
      Property<&D::BorderStyle, &D::SetBorderStyle>("BorderStyle", T::Long,
                                                    DateSelectKey::BorderStyle, "dtpBorderStyles")
          .Saved({.read = 2, .write = 7, .byDefault = int32_t(3)}),
      Property<&D::BackColor, &D::SetBackColor>("BackColor", T::Color, DateSelectKey::BackColor)
          .Saved({.read = 22, .write = 21, .byDefault = vbButtonFace}),
      Property<&D::ControlBackColor, &D::SetControlBackColor>("ControlBackColor", T::Color,
                                                              DateSelectKey::ControlBackColor)
          .Saved({.read = 24, .write = 22, .byDefault = vbWindowBackground}),
      Property<&D::ForeColor, &D::SetForeColor>("ForeColor", T::Color, DateSelectKey::ForeColor)
          .Saved({.read = 21, .write = 20, .byDefault = vbButtonText}),
      Property<&D::Font, &D::SetFont>("Font", T::Font, DateSelectKey::Font)
          .Saved({.read = 3, .write = 19, .byDefault = Variant(), .load = keepUnlessStored}),
      Property<&D::FocusColor, &D::SetFocusColor>("FocusColor", T::Color, DateSelectKey::FocusColor)
          .Saved({.read = 6, .write = 4, .byDefault = int32_t(0xB0FCB0)}),
      Property<&D::UseFocusColor, &D::SetUseFocusColor>("UseFocusColor", T::Boolean,
                                                        DateSelectKey::UseFocusColor)
          .Saved({.read = 5, .write = 5, .byDefault = false}),
      Property<&D::ShowFocusRect, &D::SetShowFocusRect>("ShowFocusRect", T::Boolean,
                                                        DateSelectKey::ShowFocusRect)
          .Saved({.read = 4, .write = 3, .byDefault = true}),
      Property<&D::Enabled, &D::SetEnabled>("Enabled", T::Boolean),
      Property<&D::hwnd>("hwnd", T::Long),
  };
}

std::vector<MethodInfo> DateSelectMethods() {
  auto text = [](const char* name, std::string (D::*method)() const) {
    return MethodInfo{name, {}, T::String, [method](Object& o, std::vector<Variant>&) {
                        return Variant((type_info_detail::As<D>(o).*method)());
                      }};
  };
  auto plain = [](const char* name, void (D::*method)()) {
    return MethodInfo{name, {}, T::Void, [method](Object& o, std::vector<Variant>&) {
                        (type_info_detail::As<D>(o).*method)();
                        return Variant();
                      }};
  };
  return {text("SQLCriteria", &D::SQLCriteria), text("SQL", &D::SQL), plain("About", &D::About),
          plain("Refresh", &D::Refresh),
          SqlParametersMethod(
              [](Object& o, const SqlOptions& options, bool withPrefix) {
                return type_info_detail::As<D>(o).SQLParameters(options, withPrefix);
              },
              true)};
}

ClassInfo DescribeDateSelect() {
  ClassInfo info;
  info.name = "DateSelect";
  info.description = "Picks a date or a date range by a named option and writes SQL criteria";
  info.defaultMember = "Selection";
  info.properties = DateSelectProperties();
  info.methods = DateSelectMethods();
  info.events = {
      {"Change", dtsEventChange, {}},
      {"OperatorChange", dtsEventOperatorChange, {}},
      {"StartDateChange", dtsEventStartDateChange, {}},
      {"EndDateChange", dtsEventEndDateChange, {}},
      {"YearChange", dtsEventYearChange, {}},
      {"MonthChange", dtsEventMonthChange, {}},
      {"SelectionChange", dtsEventSelectionChange, {}},
      {"CustomRangeChange", dtsEventCustomRangeChange, {}},
      {"CustomSelectionChange", dtsEventCustomSelectionChange, {}},
  };
  info.enums = {
      {"dtsOptions",
       {{"dtsToday", dtsToday},
        {"dtsDate", dtsDate},
        {"dtsDateRange", dtsDateRange},
        {"dtsLast7days", dtsLast7days},
        {"dtsLast30days", dtsLast30days},
        {"dtsThisWeekTillToday", dtsThisWeekTillToday},
        {"dtsThisMonthTillToday", dtsThisMonthTillToday},
        {"dtsThisYearTillToday", dtsThisYearTillToday},
        {"dtsLastWeek", dtsLastWeek},
        {"dtsLastMonth", dtsLastMonth},
        {"dtsLastYear", dtsLastYear},
        {"dtsCustomRange", dtsCustomRange},
        {"dtsExpression", dtsExpression},
        {"dtsMonth", dtsMonth},
        {"dtsYear", dtsYear}}},
      {"dtsMonths",
       {{"dtsJanuary", dtsJanuary},
        {"dtsFebruary", dtsFebruary},
        {"dtsMarch", dtsMarch},
        {"dtsApril", dtsApril},
        {"dtsMay", dtsMay},
        {"dtsJun", dtsJun},
        {"dtsJuly", dtsJuly},
        {"dtsAugust", dtsAugust},
        {"dtsSeptember", dtsSeptember},
        {"dtsOctobor", dtsOctobor},
        {"dtsNovember", dtsNovember},
        {"dtsDecember", dtsDecember}}},
      {"dtsCustomSelections",
       {{"dtsDays", dtsDays},
        {"dtsWeeks", dtsWeeks},
        {"dtsMonths", dtsMonths},
        {"dtsYears", dtsYears}}},
      {"dtsDateFormats", {{"dtsSystemDefault", dtsSystemDefault}, {"dtsCustom", dtsCustom}}},
  };
  info.connect = Connector<D, DateSelectEventAdapter>();
  return info;
}

ClassInfo DescribeOption() {
  ClassInfo info;
  info.name = "CdtsOption";
  info.description = "One DateSelect option: its text and whether the list shows it";
  info.defaultMember = "Text";
  info.properties = {
      Property<&O::Text, &O::SetText>("Text", T::String),
      Property<&O::Visible, &O::SetVisible>("Visible", T::Boolean),
  };
  info.events = {
      {"TextChange", dtsEventTextChange, {Arg("Index", T::Long), Arg("Text", T::String)}},
      {"VisibleChange", dtsEventVisibleChange, {Arg("Index", T::Long), Arg("Visible", T::Boolean)}},
  };
  info.connect = Connector<O, OptionEventAdapter>();
  return info;
}

} // namespace

const ClassInfo& DateSelect::TypeInfo() {
  static const ClassInfo info = DescribeDateSelect();
  return info;
}

const ClassInfo& CdtsOption::TypeInfo() {
  static const ClassInfo info = DescribeOption();
  return info;
}

} // namespace tarnbrook
