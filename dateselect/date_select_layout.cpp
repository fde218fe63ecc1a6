// The constituents: created once, shown per option, laid out in rows under the option list,
// and given the control's appearance.
#include "dateselect/date_select_keys.hpp"
#include <algorithm>
#include <cstdint>

#include "common/control_error.hpp"
#include "common/locale.hpp"
#include "common/scoped_flag.hpp"
#include "dateselect/date_select.hpp"
#include "host/standard_text.hpp"

namespace tarnbrook {
namespace {

constexpr int32_t RowGap = 3;             // pixels between the rows
constexpr int32_t TextPadding = 6;        // pixels around a measured text inside a field
constexpr int32_t BottomMarginTwips = 60; // below the date fields

} // namespace

void DateSelect::CreateConstituents() {
  const HWND self = hWnd();
  // Created in the order Tab visits them: left to right, row by row.
  cboSelection_ = std::make_unique<ComboListX>(self);
  cboOperator_ = std::make_unique<ComboListX>(self);
  lblFrom_ = std::make_unique<tarnbrook::Label>(self);
  dtpFrom_ = std::make_unique<DatePicker>(self);
  lblTo_ = std::make_unique<tarnbrook::Label>(self);
  dtpTo_ = std::make_unique<DatePicker>(self);
  cboMonth_ = std::make_unique<ComboListX>(self);
  spnYear_ = std::make_unique<NumberSpin>(self);
  lblCustom_ = std::make_unique<tarnbrook::Label>(self);
  txtCustomRange_ = std::make_unique<TextBox>(self);
  cboCustomChoice_ = std::make_unique<ComboListX>(self);
  chkCustom_ = std::make_unique<CheckBox>(self);

  cboSelection_->InitProperties();
  cboOperator_->InitProperties();
  cboMonth_->InitProperties();
  cboCustomChoice_->InitProperties();
  spnYear_->InitProperties();
  for (DatePicker* picker : {dtpFrom_.get(), dtpTo_.get()}) {
    picker->InitProperties();
    picker->SetAllowEmpty(false); // a range always has both ends
  }
  lblFrom_->SetCaption("From");
  lblTo_->SetCaption("To");
  lblCustom_->SetCaption("Last");
  chkCustom_->SetCaption("Including today");
  txtCustomRange_->SetBorderStyle(1);
  txtCustomRange_->SetAlignment(1);
  txtCustomRange_->SetText("1"); // the number a new control saves as its default
  for (const char* op : {"=", ">", ">=", "<", "<=", "<>"})
    cboOperator_->AddItem(op);
  for (int month = 1; month <= 12; ++month)
    cboMonth_->AddItem(CurrentLocale().MonthName(month));
  for (const char* unit : {"Days", "Weeks", "Months", "Years"})
    cboCustomChoice_->AddItem(unit);
}

// Every constituent, the option list first, in the order the user tabs through them.
template <class Each> void DateSelect::ForEachConstituent(Each each) {
  Control* all[] = {cboSelection_.get(),   cboOperator_.get(),     lblFrom_.get(),
                    dtpFrom_.get(),        lblTo_.get(),           dtpTo_.get(),
                    cboMonth_.get(),       spnYear_.get(),         lblCustom_.get(),
                    txtCustomRange_.get(), cboCustomChoice_.get(), chkCustom_.get()};
  for (Control* control : all)
    each(*control);
}

std::array<ComboListX*, 4> DateSelect::Lists() {
  return {cboSelection_.get(), cboOperator_.get(), cboMonth_.get(), cboCustomChoice_.get()};
}

std::array<tarnbrook::Label*, 3> DateSelect::Labels() {
  return {lblFrom_.get(), lblTo_.get(), lblCustom_.get()};
}

// Shows the constituents of the current option, enabled when the option takes the user's
// input; the disable flags can only take that away.
void DateSelect::ShowConstituents() {
  const int32_t option = selection_;
  std::vector<Control*> shown;
  switch (ShapeOf(option)) {
  case OptionShape::Day:
    shown = {dtpFrom_.get()};
    break;
  case OptionShape::Fields:
    shown = {lblFrom_.get(), dtpFrom_.get(), lblTo_.get(), dtpTo_.get()};
    break;
  case OptionShape::Month:
    shown = {cboMonth_.get(), spnYear_.get()};
    break;
  case OptionShape::Year:
    shown = {spnYear_.get()};
    break;
  case OptionShape::Custom:
    shown = {lblCustom_.get(), txtCustomRange_.get(), cboCustomChoice_.get(), chkCustom_.get()};
    break;
  case OptionShape::Operator:
    shown = {cboOperator_.get(), dtpFrom_.get()};
    break;
  default:
    break;
  }
  const bool takesInput = option == dtsDate || option == dtsDateRange || option == dtsCustomRange ||
                          option == dtsExpression || option == dtsMonth || option == dtsYear;
  ForEachConstituent([&](Control& control) {
    if (&control == cboSelection_.get()) {
      control.SetEnabled(Enabled() && !disableSelection_);
      return;
    }
    control.SetEnabled(takesInput);
    control.SetVisible(std::find(shown.begin(), shown.end(), &control) != shown.end());
  });
  dtpFrom_->SetEnabled(takesInput && !disableStartDate_);
  dtpTo_->SetEnabled(takesInput && !disableEndDate_);
  cboCustomChoice_->SetEnabled(takesInput && !disableCustomSelection_);
  LayoutConstituents();
}

void DateSelect::OnResize() {
  if (laying_)
    return;
  LayoutConstituents();
}

// Rows of one field height: the option list, then the option's inputs, then the end date;
// the control ends a little under the date fields. Field widths come from sample texts.
void DateSelect::LayoutConstituents() {
  const int32_t twips = Site().TwipsPerPixelX();
  const int32_t minWidth = (MinWidthTwips + twips - 1) / twips;
  const int32_t width = std::max(ScaleWidth(), minWidth);
  auto textWidth = [&](std::string_view sample) { return MeasureLine(font_, sample).cx; };
  const int32_t space = textWidth("9");
  // A button wider than the control takes no more than its width.
  const int32_t chrome =
      std::clamp(buttonWidth_, 0, width) + 2 * BorderStyleWidth(borderStyle_) + TextPadding;
  const int32_t rowHeight = cboSelection_->PreferredHeight();
  const int32_t row2 = rowHeight + RowGap;
  const int32_t row3 = row2 + rowHeight + RowGap;

  cboSelection_->Move(0, 0, width, rowHeight);
  // Labels as high as their text, centred on their row.
  const int32_t labelHeight = lblFrom_->CaptionHeight();
  const int32_t labelDrop = std::max(rowHeight - labelHeight, 0) / 2;
  const int32_t labelWidth = std::max(lblFrom_->CaptionWidth(), lblTo_->CaptionWidth()) + space;
  lblFrom_->Move(0, row2 + labelDrop, labelWidth, labelHeight);
  lblTo_->Move(0, row3 + labelDrop, labelWidth, labelHeight);
  dtpTo_->Move(labelWidth, row3, std::max(width - labelWidth, 0), rowHeight);

  const int32_t operatorWidth = textWidth("<=") + chrome;
  const int32_t yearWidth = textWidth("9999") + chrome;
  if (selection_ == dtsExpression)
    dtpFrom_->Move(operatorWidth + space, row2, std::max(width - operatorWidth - space, 0),
                   rowHeight);
  else if (lblFrom_->Visible())
    dtpFrom_->Move(labelWidth, row2, std::max(width - labelWidth, 0), rowHeight);
  else
    dtpFrom_->Move(0, row2, width, rowHeight);
  cboOperator_->Move(0, row2, operatorWidth, rowHeight);
  cboMonth_->Move(0, row2, std::max(width - yearWidth - space, 0), rowHeight);
  spnYear_->Move(selection_ == dtsMonth || selection_ == dtsLastMonth ? width - yearWidth : 0, row2,
                 yearWidth, rowHeight);

  const int32_t customLabelWidth = lblCustom_->CaptionWidth() + space;
  const int32_t numberWidth = textWidth("999") + TextPadding + 4;
  lblCustom_->Move(0, row2 + labelDrop, customLabelWidth, labelHeight);
  txtCustomRange_->Move(customLabelWidth, row2, numberWidth, rowHeight);
  cboCustomChoice_->Move(customLabelWidth + numberWidth + space, row2, textWidth("Months") + chrome,
                         rowHeight);
  chkCustom_->Move(customLabelWidth, row3, std::max(width - customLabelWidth, 0), rowHeight);

  // The control's own size follows: at least 2000 twips wide, 60 twips under the date fields.
  const int32_t height = row3 + rowHeight + BottomMarginTwips / Site().TwipsPerPixelY();
  if (width != ScaleWidth() || height != ScaleHeight()) {
    const ScopedFlag laying(laying_);
    Rect bounds = Platform::Current().GetWindowRect(hWnd());
    Point topLeft = {bounds.left, bounds.top};
    if (HWND parent = Parent())
      topLeft = Platform::Current().ScreenToClient(parent, topLeft);
    Move(topLeft.x, topLeft.y, width, height);
  }
}

void DateSelect::OnPaint() {
  Surface().DrawBox(0, 0, Surface().Width(), Surface().Height(), 1, OleColorNone, backColor_);
}

// The date fields go first: their refusal of a width (beyond 16 bits) leaves all as it was.
void DateSelect::SetButtonWidth(int32_t width) {
  if (width < 0)
    return;
  dtpFrom_->SetButtonWidth(width);
  dtpTo_->SetButtonWidth(width);
  buttonWidth_ = width;
  for (ComboListX* list : Lists())
    list->SetButtonWidth(width);
  spnYear_->SetButtonWidth(width);
  LayoutConstituents();
  PropertyChanged(DateSelectKey::ButtonWidth);
}

void DateSelect::SetButtonStyle(int32_t style) {
  if (style > 2)
    throw ControlError(5065, "Tarnbrook.DatePicker", "Invalid ButtonStyle!");
  buttonStyle_ = style;
  for (ComboListX* list : Lists())
    list->SetButtonStyle(style);
  spnYear_->SetButtonStyle(style);
  dtpFrom_->SetButtonStyle(style);
  dtpTo_->SetButtonStyle(style);
  PropertyChanged(DateSelectKey::ButtonStyle);
}

void DateSelect::SetBorderStyle(int32_t style) {
  borderStyle_ = style;
  for (ComboListX* list : Lists())
    list->SetBorderStyle(style);
  spnYear_->SetBorderStyle(style);
  dtpFrom_->SetBorderStyle(style);
  dtpTo_->SetBorderStyle(style);
  LayoutConstituents();
  PropertyChanged(DateSelectKey::BorderStyle);
}

void DateSelect::SetBackColor(OleColor color) {
  backColor_ = color;
  for (tarnbrook::Label* label : Labels())
    label->SetBackColor(color);
  chkCustom_->SetBackColor(color);
  Refresh();
  PropertyChanged(DateSelectKey::BackColor);
}

void DateSelect::SetControlBackColor(OleColor color) {
  controlBackColor_ = color;
  for (ComboListX* list : Lists())
    list->SetBackColor(color);
  spnYear_->SetBackColor(color);
  dtpFrom_->SetBackColor(color);
  dtpTo_->SetBackColor(color);
  txtCustomRange_->SetBackColor(color);
  PropertyChanged(DateSelectKey::ControlBackColor);
}

void DateSelect::SetForeColor(OleColor color) {
  foreColor_ = color;
  for (ComboListX* list : Lists())
    list->SetForeColor(color);
  spnYear_->SetForeColor(color);
  dtpFrom_->SetForeColor(color);
  dtpTo_->SetForeColor(color);
  txtCustomRange_->SetForeColor(color);
  for (tarnbrook::Label* label : Labels())
    label->SetForeColor(color);
  chkCustom_->SetForeColor(color);
  PropertyChanged(DateSelectKey::ForeColor);
}

// Checked once, before any constituent takes it: a refused font leaves every one as it was.
void DateSelect::SetFont(const tarnbrook::Font& requested) {
  const tarnbrook::Font font = CheckedFont(requested);
  font_ = font;
  for (ComboListX* list : Lists())
    list->SetFont(font);
  spnYear_->SetFont(font);
  dtpFrom_->SetFont(font);
  dtpTo_->SetFont(font);
  txtCustomRange_->SetFont(font);
  for (tarnbrook::Label* label : Labels())
    label->SetFont(font);
  chkCustom_->SetFont(font);
  LayoutConstituents();
  PropertyChanged(DateSelectKey::Font);
}

void DateSelect::SetFocusColor(OleColor color) {
  focusColor_ = color;
  dtpFrom_->SetFocusColor(color);
  dtpTo_->SetFocusColor(color);
  PropertyChanged(DateSelectKey::FocusColor);
}

void DateSelect::SetUseFocusColor(bool use) {
  useFocusColor_ = use;
  dtpFrom_->SetUseFocusColor(use);
  dtpTo_->SetUseFocusColor(use);
  PropertyChanged(DateSelectKey::UseFocusColor);
}

void DateSelect::SetShowFocusRect(bool show) {
  showFocusRect_ = show;
  dtpFrom_->SetShowFocusRect(show);
  dtpTo_->SetShowFocusRect(show);
  PropertyChanged(DateSelectKey::ShowFocusRect);
}

// An empty format is the user's short date.
void DateSelect::SetInputFormat(const std::string& format) {
  CheckTextLength(format); // before either field takes it
  for (DatePicker* picker : {dtpFrom_.get(), dtpTo_.get()}) {
    if (format.empty()) {
      picker->SetFormat(dtpShortDate);
    } else {
      picker->SetCustomFormat(format);
      picker->SetFormat(dtpCustom);
    }
  }
  inputFormat_ = format;
  PropertyChanged(DateSelectKey::InputFormat);
}

void DateSelect::SetFirstDayofWeek(int32_t firstDay) {
  if (firstDay < vbUseSystemDayOfWeek || firstDay > vbSaturday)
    RaiseRuntimeError(rtInvalidProcedureCall, "Tarnbrook.DateSelect");
  firstDayofWeek_ = firstDay;
  dtpFrom_->SetFirstDayofWeek(firstDay);
  dtpTo_->SetFirstDayofWeek(firstDay);
  PropertyChanged(DateSelectKey::FirstDayofWeek);
}

void DateSelect::SetEnabled(bool enabled) {
  Control::SetEnabled(enabled);
  ShowConstituents();
}

void DateSelect::SetDisableSelection(bool disable) {
  disableSelection_ = disable;
  cboSelection_->SetEnabled(Enabled() && !disable);
  PropertyChanged(DateSelectKey::DisableSelection);
}

void DateSelect::SetDisableStartDate(bool disable) {
  disableStartDate_ = disable;
  ShowConstituents();
  PropertyChanged(DateSelectKey::DisableStartDate);
}

void DateSelect::SetDisableEndDate(bool disable) {
  disableEndDate_ = disable;
  ShowConstituents();
  PropertyChanged(DateSelectKey::DisableEndDate);
}

void DateSelect::SetDisableCustomSelection(bool disable) {
  disableCustomSelection_ = disable;
  ShowConstituents();
  PropertyChanged(DateSelectKey::DisableCustomSelection);
}

} // namespace tarnbrook
