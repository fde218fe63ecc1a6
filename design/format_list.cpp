#include "design/format_list.hpp"

#include "draw/canvas.hpp"
#include "platform/platform.hpp"

namespace tarnbrook {

namespace {
constexpr int32_t RowHeight = 21;
constexpr int32_t RowGap = 4;
} // namespace

const std::vector<std::string>& ReadyMadeFormats() {
  static const std::vector<std::string> formats{
      "M/d/yy",
      "MM/dd/yy",
      "MM/dd/yyyy",
      "dd/MM/yyyy",
      "dd.MM.yyyy",
      "yyyy-MM-dd",
      "dd-MMM-yy",
      "d MMMM yyyy",
      "MMMM dd, yyyy",
      "dddd, MMMM dd, yyyy",
      "ddd, MMM d, yyyy",
      "MMMM yyyy",
      "hh:mm:ss tt",
      "h:mm tt",
      "HH:mm",
      "HH:mm:ss",
      "MM/dd/yyyy hh:mm tt",
      "yyyy-MM-dd HH:mm:ss",
  };
  return formats;
}

FormatList::FormatList(HWND parent) : Control(parent) {
  SetTabStop(false);
  format_ = std::make_unique<TextBox>(hWnd());
  format_->InitProperties();
  formatRelay_.change = [this] { Typed(); };
  SelectAllOnFocus(*format_, formatRelay_);
  format_->Connect(&formatRelay_);

  readyMade_ = std::make_unique<ComboBox>(hWnd());
  for (const std::string& format : ReadyMadeFormats())
    readyMade_->AddItem(format);
  readyMadeRelay_.click = [this] { Picked(); };
  readyMade_->Connect(&readyMadeRelay_);

  preview_ = std::make_unique<DatePicker>(hWnd());
  preview_->InitProperties();
  preview_->SetButton(dtpNone);
  preview_->SetLocked(true);
  preview_->SetTabStop(false);
  preview_->SetEnabled(false); // only shown: no field of it stands selected
  preview_->SetUseFocusColor(false);
  ShowPreview();
}

FormatList::~FormatList() {
  format_->Disconnect(&formatRelay_);
  readyMade_->Disconnect(&readyMadeRelay_);
}

void FormatList::SetIndent(int32_t indent) {
  indent_ = indent;
  OnResize();
}

void FormatList::OnResize() {
  int32_t width = ScaleWidth();
  format_->Move(indent_, 0, width - indent_, RowHeight);
  readyMade_->Move(indent_, RowHeight + RowGap, width - indent_, RowHeight);
  preview_->Move(0, 2 * (RowHeight + RowGap), width, RowHeight);
}

void FormatList::OnPaint() {
  cMDC& surface = Surface();
  if (surface.hDC())
    Canvas::FromHandle(surface.hDC())
        ->FillRect({0, 0, surface.Width(), surface.Height()},
                   static_cast<COLORREF>(GetSysColor(COLOR_BTNFACE)));
}

void FormatList::SetFormat(const std::string& format) {
  updating_ = true;
  format_->SetText(format);
  updating_ = false;
  Typed();
}

std::string FormatList::PreviewText() const {
  std::string text;
  for (const CDateMask& field : preview_->Fields())
    text += field.Text();
  return text;
}

void FormatList::Typed() {
  // The list shows the ready-made format being typed, if it is one.
  int32_t match = -1;
  for (int32_t i = 0; i < readyMade_->ListCount() && match < 0; ++i)
    if (readyMade_->List(i) == format_->Text())
      match = i;
  bool wasUpdating = updating_;
  updating_ = true;
  readyMade_->SetListIndex(match);
  updating_ = wasUpdating;
  ShowPreview();
  if (!updating_ && onChange_)
    onChange_();
}

void FormatList::Picked() {
  if (updating_ || readyMade_->ListIndex() < 0)
    return;
  format_->SetText(readyMade_->Text()); // Change follows: the preview and the page hear it
}

void FormatList::ShowPreview() {
  try {
    // No format at all is the picker's short date.
    preview_->SetFormat(format_->Text().empty() ? dtpShortDate : dtpCustom);
    preview_->SetCustomFormat(format_->Text());
    preview_->SetValue(Variant::Date(Platform::Current().Now()));
  } catch (const ControlError&) {
    // A format the picker cannot cut shows nothing new; the picker refuses it on Apply.
  }
}

} // namespace tarnbrook
