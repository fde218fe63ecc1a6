// The option records, the offered options and the current one.
#include "dateselect/date_select.hpp"
#include "dateselect/date_select_keys.hpp"

#include "common/control_error.hpp"
#include "common/date_runtime.hpp"
#include "dateselect/date_spans.hpp"
#include "host/about_box.hpp"
#include "platform/platform.hpp"

namespace tarnbrook {
namespace {

constexpr const char* DefaultTexts[DateSelect::OptionCount] = {
    "Today",
    "Date",
    "DateRange",
    "Last 7 days",
    "Last 30 days",
    "This Week Till Today",
    "This Month Till Today",
    "This Year Till Today",
    "Last Week",
    "Last Month",
    "Last Year",
    "Custom Range",
    "Expression",
    "Month",
    "Year",
};

constexpr int32_t LastRecord = 15; // the records' storage goes one past the options

} // namespace

DateSelect::DateSelect(HWND parent) : Control(parent), option_(std::make_shared<CdtsOption>()) {
  PaintBatch batch(false); // painted by its container, once placed
  SetTabStop(false);       // the constituents take the focus
  for (int32_t i = 0; i < OptionCount; ++i)
    records_[i] = {i, DefaultTexts[i], true};
  records_[LastRecord] = {LastRecord, "", false};
  optionRelay_.textChange = [this](int32_t index, const std::string& text) {
    OptionRenamed(index, text);
  };
  optionRelay_.visibleChange = [this](int32_t index, bool visible) { OptionShown(index, visible); };
  option_->Connect(&optionRelay_);
  CreateConstituents();
  ShowToday();
  ConnectConstituents();
  RebuildOptionList();
}

// What a new and a loaded control hold before their properties: dates are not saved, so a
// loaded control's fields show today, its year and month are today's, and its operator "=",
// the operator's default. Every field then has a value that its SQL can use.
void DateSelect::ShowToday() {
  const DateValue today = Platform::Current().Today();
  selectedYear_ = static_cast<int16_t>(Year(today));
  selectedMonth_ = Month(today);
  spnYear_->SetValue(selectedYear_);
  cboMonth_->SetListIndex(selectedMonth_ - 1);
  cboOperator_->SetListIndex(0);
  SetFrom(today);
  SetTo(today);
}

DateSelect::~DateSelect() {
  option_->Disconnect(&optionRelay_);
}

int32_t DateSelect::VisibleOptions() const {
  int32_t mask = 0;
  for (int32_t i = 0; i < OptionCount; ++i) {
    if (records_[i].visible)
      mask |= 1 << i;
  }
  return mask;
}

void DateSelect::SetVisibleOptions(int32_t mask) {
  for (int32_t i = 0; i < OptionCount; ++i)
    records_[i].visible = (mask & (1 << i)) != 0;
  RebuildOptionList();
  PropertyChanged(DateSelectKey::VisibleOptions);
}

std::shared_ptr<CdtsOption> DateSelect::Options(int32_t index) {
  if (index < 0 || index > LastRecord)
    RaiseRuntimeError(rtSubscriptOutOfRange);
  const OptionRecord& record = records_[index];
  option_->Fill(record.index, record.text, record.visible);
  return option_;
}

// The list entry of an option; -1 when the list does not offer it.
int32_t DateSelect::ListEntryOf(int32_t option) const {
  for (int32_t i = 0; i < cboSelection_->ListCount(); ++i) {
    if (cboSelection_->ItemData(i) == option)
      return i;
  }
  return -1;
}

// An option not offered (or 15) gives way to the first offered one. Its dates are made
// before anything is stored, so an option that cannot make them changes nothing.
void DateSelect::SetSelection(int32_t option) {
  if (option < 0 || option > LastRecord)
    throw ControlError(5055, "Tarnbrook.DateSelect", "Invalid Option Index");
  int32_t entry = ListEntryOf(option);
  if (entry < 0 && cboSelection_->ListCount() > 0)
    entry = 0;
  const int32_t chosen = entry >= 0 ? cboSelection_->ItemData(entry) : dtsToday;
  const OptionDates dates = DatesOf(chosen, Inputs());
  selection_ = chosen;
  if (entry >= 0)
    Quietly([&] { cboSelection_->SetListIndex(entry); });
  WriteDates(dates);
  ShowConstituents();
  PropertyChanged(DateSelectKey::Selection);
  RaiseWithChange(&DateSelectEvents::SelectionChange);
}

// The list shows the visible records in option order, whatever the order they were set in.
void DateSelect::RebuildOptionList() {
  Quietly([&] {
    cboSelection_->Clear();
    for (int32_t i = 0; i < OptionCount; ++i) {
      if (!records_[i].visible)
        continue;
      cboSelection_->AddItem(records_[i].text);
      cboSelection_->SetItemData(cboSelection_->NewIndex(), records_[i].index);
    }
  });
}

void DateSelect::OptionShown(int32_t index, bool visible) {
  records_[index].visible = visible;
  RebuildOptionList();
  SetSelection(selection_);
}

// Renames the entry only: the record keeps its text, and the next rebuild shows it again.
void DateSelect::OptionRenamed(int32_t index, const std::string& text) {
  if (!records_[index].visible)
    return;
  if (const int32_t entry = ListEntryOf(index); entry >= 0)
    Quietly([&] { cboSelection_->SetList(entry, text); });
}

void DateSelect::About() {
  ShowAboutBox(ClassName(), Site().ContainerWindow() ? Site().ContainerWindow() : hWnd());
}

} // namespace tarnbrook
