// The option records, the offered options and the current one.
#include "dateselect/date_select.hpp"

#include "common/control_error.hpp"
#include "common/date_runtime.hpp"
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
  option_->Connect(this);
  CreateConstituents();
  // This year until another is set or read, so a saved form without a year still loads.
  selectedYear_ = static_cast<int16_t>(Year(Platform::Current().Today()));
  spnYear_->SetValue(selectedYear_);
  ConnectConstituents();
  RebuildOptionList();
}

DateSelect::~DateSelect() {
  option_->Disconnect(this);
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
  PropertyChanged("VisibleOptions");
}

std::shared_ptr<CdtsOption> DateSelect::Options(int32_t index) {
  if (index < 0 || index > LastRecord)
    RaiseRuntimeError(rtSubscriptOutOfRange);
  const OptionRecord& record = records_[index];
  option_->Fill(record.index, record.text, record.visible);
  return option_;
}

void DateSelect::SetSelection(int32_t option) {
  if (option < 0 || option > LastRecord)
    throw ControlError(5055, "Tarnbrook.DateSelect", "Invalid Option Index");
  selection_ = option;
  ComboListX& list = *cboSelection_;
  int32_t found = -1;
  for (int32_t i = 0; i < list.ListCount() && found < 0; ++i) {
    if (list.ItemData(i) == option)
      found = i;
  }
  if (found < 0 && list.ListCount() > 0) {
    found = 0;
    selection_ = list.ItemData(0);
  } else if (found < 0) {
    selection_ = dtsToday;
  }
  if (found >= 0)
    Quietly([&] { list.SetListIndex(found); });
  ApplyOption(selection_);
  PropertyChanged("Selection");
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

void DateSelect::VisibleChange(int32_t index, bool visible) {
  records_[index].visible = visible;
  RebuildOptionList();
  SetSelection(selection_);
}

// Renames the entry only: the record keeps its text, and the next rebuild shows it again.
void DateSelect::TextChange(int32_t index, const std::string& text) {
  if (!records_[index].visible)
    return;
  for (int32_t i = 0; i < cboSelection_->ListCount(); ++i) {
    if (cboSelection_->ItemData(i) == index) {
      Quietly([&] { cboSelection_->SetList(i, text); });
      return;
    }
  }
}

void DateSelect::About() {
  ShowAboutBox(ClassName(), Site().ContainerWindow() ? Site().ContainerWindow() : hWnd());
}

} // namespace tarnbrook
