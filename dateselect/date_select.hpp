#pragma once
#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "common/date_value.hpp"
#include "common/event_source.hpp"
#include "common/font.hpp"
#include "common/ole_color.hpp"
#include "common/scoped_flag.hpp"
#include "constituents/combo_list_x.hpp"
#include "constituents/number_spin.hpp"
#include "dateselect/cdts_option.hpp"
#include "dateselect/date_spans.hpp"
#include "host/check_box.hpp"
#include "host/control.hpp"
#include "host/label.hpp"
#include "host/text_box.hpp"
#include "picker/date_picker.hpp"

namespace tarnbrook {

struct ClassInfo;

// The spellings dtsJun and dtsOctobor are the published names.
enum dtsMonths {
  dtsJanuary = 1,
  dtsFebruary = 2,
  dtsMarch = 3,
  dtsApril = 4,
  dtsMay = 5,
  dtsJun = 6,
  dtsJuly = 7,
  dtsAugust = 8,
  dtsSeptember = 9,
  dtsOctobor = 10,
  dtsNovember = 11,
  dtsDecember = 12,
};

enum dtsCustomSelections {
  dtsDays = 0,
  dtsWeeks = 1,
  dtsMonths = 2,
  dtsYears = 3,
};

// Declared for hosts; no property takes it.
enum dtsDateFormats {
  dtsSystemDefault = 0,
  dtsCustom = 1,
};

class DateSelectEvents {
public:
  virtual ~DateSelectEvents() = default;
  virtual void Change() {}
  virtual void OperatorChange() {}
  virtual void StartDateChange() {}
  virtual void EndDateChange() {}
  virtual void YearChange() {}
  virtual void MonthChange() {}
  virtual void SelectionChange() {}
  virtual void CustomRangeChange() {}
  virtual void CustomSelectionChange() {}
};

enum DateSelectEventId {
  dtsEventChange = 1,
  dtsEventOperatorChange = 2,
  dtsEventStartDateChange = 3,
  dtsEventEndDateChange = 4,
  dtsEventYearChange = 5,
  dtsEventMonthChange = 6,
  dtsEventSelectionChange = 7,
  dtsEventCustomRangeChange = 8,
  dtsEventCustomSelectionChange = 9,
};

// Picks a date or a date range by a named option ("Today", "Last Month", "Custom Range" ...),
// computes its start and end, and writes SQL criteria for them. Built from constituent
// controls: an option list, two date fields, month, year, operator and custom range inputs.
class DateSelect : public Control {
public:
  static constexpr int32_t OptionCount = 15;
  static constexpr int32_t MinWidthTwips = 2000;

  explicit DateSelect(HWND parent = 0);
  ~DateSelect() override;
  std::string ClassName() const override { return "DateSelect"; }
  // The control's members as hosts reach them by name.
  static const ClassInfo& TypeInfo();

  void Connect(DateSelectEvents* sink) { events_.Connect(sink); }
  void Disconnect(DateSelectEvents* sink) { events_.Disconnect(sink); }

  void InitProperties() override;
  void ReadProperties(PropertyBag& bag) override;
  void WriteProperties(PropertyBag& bag) override;

  // Options.
  int32_t VisibleOptions() const;
  void SetVisibleOptions(int32_t mask);
  std::shared_ptr<CdtsOption> Options(int32_t index); // 9 outside 0..15
  int32_t Selection() const { return selection_; }
  void SetSelection(int32_t option); // 5055 "Tarnbrook.DateSelect" outside 0..15

  // Range.
  DateValue StartDate() const;
  void SetStartDate(DateValue date);
  DateValue EndDate() const;
  void SetEndDate(DateValue date);
  int32_t SelectedMonth() const { return selectedMonth_; }
  void SetSelectedMonth(int32_t month); // 1001 "Invalid Month Value" outside 0..12
  int16_t SelectedYear() const { return selectedYear_; }
  void SetSelectedYear(int16_t year);
  std::string Operator() const;
  void SetOperator(const std::string& op); // 1000 "Invalid Operator"
  int32_t CustomRange() const;             // 6 beyond a Long
  void SetCustomRange(int32_t number);
  int32_t CustomSelection() const;
  void SetCustomSelection(int32_t unit); // -1 chooses no unit
  const std::string& InputFormat() const { return inputFormat_; }
  void SetInputFormat(const std::string& format);
  int32_t FirstDayofWeek() const { return firstDayofWeek_; }
  void SetFirstDayofWeek(int32_t firstDay); // 5 outside 0..7

  bool DisableSelection() const { return disableSelection_; }
  void SetDisableSelection(bool disable);
  bool DisableStartDate() const { return disableStartDate_; }
  void SetDisableStartDate(bool disable);
  bool DisableEndDate() const { return disableEndDate_; }
  void SetDisableEndDate(bool disable);
  bool DisableCustomSelection() const { return disableCustomSelection_; }
  void SetDisableCustomSelection(bool disable);

  // SQL.
  const std::string& SQLFieldName() const { return sqlFieldName_; }
  void SetSQLFieldName(const std::string& name);
  const std::string& SQLDateWrapper() const { return sqlDateWrapper_; }
  void SetSQLDateWrapper(const std::string& wrapper);
  const std::string& SQLDateFormat() const { return sqlDateFormat_; }
  void SetSQLDateFormat(const std::string& format);
  bool SQLUseBETWEEN() const { return sqlUseBetween_; }
  void SetSQLUseBETWEEN(bool use);
  const std::string& SQLPrefix() const { return sqlPrefix_; }
  void SetSQLPrefix(const std::string& prefix);
  std::string SQLCriteria() const;
  std::string SQL() const;
  // What the current option selects, read as SQLCriteria reads it.
  DateCriterion Criterion() const;
  // The criteria with placeholders and the values to bind; the column is SQLFieldName unless
  // the options name one, and SQLPrefix comes first when asked. The wrapper and the format
  // play no part, yet a wrapper that is no date delimiter is refused (5) as a tampered form.
  ParameterisedSql SQLParameters(SqlOptions options = {}, bool withPrefix = false) const;

  // Appearance, passed on to the constituents.
  int32_t ButtonWidth() const { return buttonWidth_; }
  void SetButtonWidth(int32_t width); // below zero ignored; saved as 16 bits
  int32_t ButtonStyle() const { return buttonStyle_; }
  void SetButtonStyle(int32_t style); // 5065 "Tarnbrook.DatePicker" above 2
  int32_t BorderStyle() const { return borderStyle_; }
  void SetBorderStyle(int32_t style);
  OleColor BackColor() const { return backColor_; }
  void SetBackColor(OleColor color);
  OleColor ControlBackColor() const { return controlBackColor_; }
  void SetControlBackColor(OleColor color);
  OleColor ForeColor() const { return foreColor_; }
  void SetForeColor(OleColor color);
  const tarnbrook::Font& Font() const { return font_; }
  void SetFont(const tarnbrook::Font& font);
  OleColor FocusColor() const { return focusColor_; }
  void SetFocusColor(OleColor color);
  bool UseFocusColor() const { return useFocusColor_; }
  void SetUseFocusColor(bool use);
  bool ShowFocusRect() const { return showFocusRect_; }
  void SetShowFocusRect(bool show);

  // A disabled control shows every constituent disabled.
  void SetEnabled(bool enabled) override;
  int32_t hwnd() const { return static_cast<int32_t>(hWnd()); }
  void About();

  // The constituents, by their names.
  ComboListX& cboSelection() { return *cboSelection_; }
  DatePicker& dtpFrom() { return *dtpFrom_; }
  DatePicker& dtpTo() { return *dtpTo_; }
  tarnbrook::Label& lblFrom() { return *lblFrom_; }
  tarnbrook::Label& lblTo() { return *lblTo_; }
  ComboListX& cboOperator() { return *cboOperator_; }
  ComboListX& cboMonth() { return *cboMonth_; }
  NumberSpin& spnYear() { return *spnYear_; }
  tarnbrook::Label& lblCustom() { return *lblCustom_; }
  TextBox& txtCustomRange() { return *txtCustomRange_; }
  ComboListX& cboCustomChoice() { return *cboCustomChoice_; }
  CheckBox& chkCustom() { return *chkCustom_; }

protected:
  void OnPaint() override;
  void OnResize() override;

private:
  struct OptionRecord {
    int32_t index = 0;
    std::string text;
    bool visible = true;
  };
  // Hands one constituent's event to the member that handles it.
  struct ListRelay : ComboListXEvents {
    std::function<void()> click;
    void Click() override { click(); }
  };
  struct PickerRelay : DatePickerEvents {
    std::function<void()> change;
    void Change() override { change(); }
  };
  struct SpinRelay : NumberSpinEvents {
    std::function<void()> change, typed;
    void Change() override { change(); }
    void Typed() override { typed(); }
  };
  struct TextRelay : TextBoxEvents {
    std::function<void()> change, gotFocus, lostFocus;
    std::function<void(bool&)> validate;
    void Change() override { change(); }
    void Validate(bool& Cancel) override { validate(Cancel); }
    void GotFocus() override { gotFocus(); }
    void LostFocus() override { lostFocus(); }
  };
  struct CheckRelay : CheckBoxEvents {
    std::function<void()> click;
    void Click() override { click(); }
  };
  struct OptionRelay : CdtsOptionEvents {
    std::function<void(int32_t, const std::string&)> textChange;
    std::function<void(int32_t, bool)> visibleChange;
    void TextChange(int32_t Index, const std::string& Text) override { textChange(Index, Text); }
    void VisibleChange(int32_t Index, bool Visible) override { visibleChange(Index, Visible); }
  };

  // Options (date_select.cpp).
  void ShowToday();
  int32_t ListEntryOf(int32_t option) const;
  void RebuildOptionList();
  void OptionRenamed(int32_t index, const std::string& text);
  void OptionShown(int32_t index, bool visible);

  // Ranges (date_select_range.cpp).
  RangeInputs Inputs() const;
  OptionDates DatesOf(int32_t option, const RangeInputs& in) const;
  void WriteDates(const OptionDates& dates);
  bool FollowsYearAndMonth() const;
  template <class Set>
  void SetCustomInput(const RangeInputs& in, Set set, const char* key,
                      void (DateSelectEvents::*event)());
  void SetFrom(DateValue date);
  void SetTo(DateValue date);
  std::string SqlDate(DateValue date) const;

  // Constituents and their layout (date_select_layout.cpp).
  void CreateConstituents();
  void ShowConstituents();
  void LayoutConstituents();
  template <class Each> void ForEachConstituent(Each each);
  std::array<ComboListX*, 4> Lists();
  std::array<tarnbrook::Label*, 3> Labels();

  // The constituents' events (date_select_input.cpp).
  void ConnectConstituents();
  void OptionPicked();
  void OperatorPicked();
  void MonthPicked();
  void CustomChoicePicked();
  void CustomInputChanged(void (DateSelectEvents::*event)());
  void FromChanged();
  void ToChanged();
  void SpinChanged();
  void CustomNumberValidate(bool& cancel);
  void CustomNumberGotFocus();
  void CustomNumberLostFocus();
  void RaiseWithChange(void (DateSelectEvents::*event)());
  template <class Action> void Quietly(Action action);
  template <class Action, class Undo> void Take(Action action, Undo undo);

  EventSource<DateSelectEvents> events_;
  std::array<OptionRecord, 16> records_;
  std::shared_ptr<CdtsOption> option_;
  int32_t selection_ = dtsToday;

  std::unique_ptr<ComboListX> cboSelection_, cboOperator_, cboMonth_, cboCustomChoice_;
  std::unique_ptr<DatePicker> dtpFrom_, dtpTo_;
  std::unique_ptr<tarnbrook::Label> lblFrom_, lblTo_, lblCustom_;
  std::unique_ptr<NumberSpin> spnYear_;
  std::unique_ptr<TextBox> txtCustomRange_;
  std::unique_ptr<CheckBox> chkCustom_;
  ListRelay selectionRelay_, operatorRelay_, monthRelay_, customChoiceRelay_;
  PickerRelay fromRelay_, toRelay_;
  SpinRelay yearRelay_;
  TextRelay customNumberRelay_;
  CheckRelay includeTodayRelay_;
  OptionRelay optionRelay_;
  bool quiet_ = false;  // constituents being set by the control itself: their events are its own
  bool laying_ = false; // the control is setting its own height

  int16_t selectedYear_ = 1601;
  int32_t selectedMonth_ = 1;
  std::string inputFormat_;
  int32_t firstDayofWeek_ = 0;
  bool disableSelection_ = false;
  bool disableStartDate_ = false;
  bool disableEndDate_ = false;
  bool disableCustomSelection_ = false;

  std::string sqlFieldName_ = "Date";
  std::string sqlDateWrapper_;
  std::string sqlDateFormat_;
  bool sqlUseBetween_ = true;
  std::string sqlPrefix_;

  int32_t buttonWidth_ = 16;
  int32_t buttonStyle_ = 0;
  int32_t borderStyle_ = 3;
  OleColor backColor_ = vbButtonFace;
  OleColor controlBackColor_ = vbWindowBackground;
  OleColor foreColor_ = vbButtonText;
  tarnbrook::Font font_;
  OleColor focusColor_ = 0xB0FCB0;
  bool useFocusColor_ = false;
  bool showFocusRect_ = true;
};

template <class Action> void DateSelect::Quietly(Action action) {
  const ScopedFlag quiet(quiet_);
  action();
}

} // namespace tarnbrook
