// DateSelect and CdtsOption as hosts reach them by name: properties, methods, events and
// enumerations.
#include "dateselect/date_select.hpp"
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
  return {
      Property<&D::VisibleOptions, &D::SetVisibleOptions>("VisibleOptions", T::Long,
                                                          "VisibleOptions"),
      options,
      Property<&D::Selection, &D::SetSelection>("Selection", T::Long, "Selection", "dtsOptions"),
      Property<&D::StartDate, &D::SetStartDate>("StartDate", T::Date),
      Property<&D::EndDate, &D::SetEndDate>("EndDate", T::Date),
      Property<&D::SelectedMonth, &D::SetSelectedMonth>("SelectedMonth", T::Long, {}, "dtsMonths"),
      Property<&D::SelectedYear, &D::SetSelectedYear>("SelectedYear", T::Integer, "SelectedYear"),
      Property<&D::Operator, &D::SetOperator>("Operator", T::String, "Operator"),
      Property<&D::CustomRange, &D::SetCustomRange>("CustomRange", T::Long, "CustomRange"),
      Property<&D::CustomSelection, &D::SetCustomSelection>(
          "CustomSelection", T::Long, "CustomSelection", "dtsCustomSelections"),
      Property<&D::InputFormat, &D::SetInputFormat>("InputFormat", T::String, "InputFormat"),
      Property<&D::FirstDayofWeek, &D::SetFirstDayofWeek>("FirstDayofWeek", T::Long,
                                                          "FirstDayofWeek"),
      Property<&D::DisableSelection, &D::SetDisableSelection>("DisableSelection", T::Boolean,
                                                              "DisableSelection"),
      Property<&D::DisableStartDate, &D::SetDisableStartDate>("DisableStartDate", T::Boolean,
                                                              "DisableStartDate"),
      Property<&D::DisableEndDate, &D::SetDisableEndDate>("DisableEndDate", T::Boolean,
                                                          "DisableEndDate"),
      Property<&D::DisableCustomSelection, &D::SetDisableCustomSelection>(
          "DisableCustomSelection", T::Boolean, "DisableCustomSelection"),
      Property<&D::SQLFieldName, &D::SetSQLFieldName>("SQLFieldName", T::String, "SQLFieldName"),
      Property<&D::SQLDateWrapper, &D::SetSQLDateWrapper>("SQLDateWrapper", T::String,
                                                          "SQLDateWrapper"),
      Property<&D::SQLDateFormat, &D::SetSQLDateFormat>("SQLDateFormat", T::String,
                                                        "SQLDateFormat"),
      Property<&D::SQLUseBETWEEN, &D::SetSQLUseBETWEEN>("SQLUseBETWEEN", T::Boolean,
                                                        "SQLUseBETWEEN"),
      Property<&D::SQLPrefix, &D::SetSQLPrefix>("SQLPrefix", T::String, "SQLPrefix"),
      Property<&D::ButtonWidth, &D::SetButtonWidth>("ButtonWidth", T::Long, "ButtonWidth"),
      Property<&D::ButtonStyle, &D::SetButtonStyle>("ButtonStyle", T::Long, "ButtonStyle",
                                                    "dtpButtonStyles"),
      Property<&D::BorderStyle, &D::SetBorderStyle>("BorderStyle", T::Long, "BorderStyle",
                                                    "dtpBorderStyles"),
      Property<&D::BackColor, &D::SetBackColor>("BackColor", T::Color, "BackColor"),
      Property<&D::ControlBackColor, &D::SetControlBackColor>("ControlBackColor", T::Color,
                                                              "ControlBackColor"),
      Property<&D::ForeColor, &D::SetForeColor>("ForeColor", T::Color, "ForeColor"),
      Property<&D::Font, &D::SetFont>("Font", T::Font, "Font"),
      Property<&D::FocusColor, &D::SetFocusColor>("FocusColor", T::Color, "FocusColor"),
      Property<&D::UseFocusColor, &D::SetUseFocusColor>("UseFocusColor", T::Boolean,
                                                        "UseFocusColor"),
      Property<&D::ShowFocusRect, &D::SetShowFocusRect>("ShowFocusRect", T::Boolean,
                                                        "ShowFocusRect"),
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
