// The standard controls a form offers: the text box, the check box and the label, in their
// states.
#include <memory>
#include <string>

#include "apps/gallery/gallery.hpp"
#include "host/standard_controls.hpp"

namespace tarnbrook::gallery {
namespace {

constexpr int32_t Margin = 12;
constexpr int32_t LabelHeight = 18;
constexpr int32_t Columns = 3;
constexpr int32_t CellWidth = 170;
constexpr int32_t FocusColor = 0xB0FCB0;

// One control of the picture: its caption, its kind, its height and how it is set up once
// placed; a null kind starts a new row.
struct Look {
  const char* label;
  std::unique_ptr<Control> (*make)();
  int32_t height;
  void (*setUp)(Control& control);
};

template <class C> std::unique_ptr<Control> Make() {
  return std::make_unique<C>();
}
template <class C> C& As(Control& control) {
  return static_cast<C&>(control);
}

const Look Looks[] = {
    {"Text box: empty", Make<TextBox>, 21, [](Control&) {}},
    {"With text", Make<TextBox>, 21, [](Control& c) { As<TextBox>(c).SetText("Last 30 days"); }},
    {"Selection", Make<TextBox>, 21,
     [](Control& c) {
       auto& box = As<TextBox>(c);
       box.SetText("Last 30 days");
       box.SetFocus();
       box.SetSelStart(5);
       box.SetSelLength(2);
     }},
    {"Focused: the caret", Make<TextBox>, 21,
     [](Control& c) {
       auto& box = As<TextBox>(c);
       box.SetText("30");
       box.SetFocus();
       box.SetSelStart(2);
     }},
    {"Focused: colour and rectangle", Make<TextBox>, 21,
     [](Control& c) {
       auto& box = As<TextBox>(c);
       box.SetText("30");
       box.SetBackColor(FocusColor);
       box.SetShowFocusRect(true);
       box.SetFocus();
       box.SetSelStart(2);
     }},
    {"Right-aligned", Make<TextBox>, 21,
     [](Control& c) {
       auto& box = As<TextBox>(c);
       box.SetAlignment(1);
       box.SetText("1234");
     }},
    {"Centred, no border", Make<TextBox>, 21,
     [](Control& c) {
       auto& box = As<TextBox>(c);
       box.SetAlignment(2);
       box.SetBorderStyle(0);
       box.SetText("centre");
     }},
    {"Scrolled to the caret", Make<TextBox>, 21,
     [](Control& c) {
       auto& box = As<TextBox>(c);
       box.SetText("a text too long for the box shows its end");
       box.SetFocus();
       box.SetSelStart(99);
     }},
    {"Disabled", Make<TextBox>, 21,
     [](Control& c) {
       auto& box = As<TextBox>(c);
       box.SetText("Last 30 days");
       box.SetEnabled(false);
     }},
    {nullptr, nullptr, 0, nullptr},
    {"Check box: unchecked", Make<CheckBox>, 17,
     [](Control& c) { As<CheckBox>(c).SetCaption("Include &today"); }},
    {"Checked", Make<CheckBox>, 17,
     [](Control& c) {
       auto& check = As<CheckBox>(c);
       check.SetCaption("Include &today");
       check.SetValue(vbChecked);
     }},
    {"Grayed", Make<CheckBox>, 17,
     [](Control& c) {
       auto& check = As<CheckBox>(c);
       check.SetCaption("Include &today");
       check.SetValue(vbGrayed);
     }},
    {"Focused", Make<CheckBox>, 17,
     [](Control& c) {
       auto& check = As<CheckBox>(c);
       check.SetCaption("Include &today");
       check.SetValue(vbChecked);
       check.SetFocus();
     }},
    {"Box at the right", Make<CheckBox>, 17,
     [](Control& c) {
       auto& check = As<CheckBox>(c);
       check.SetCaption("Include &today");
       check.SetAlignment(1);
       check.SetValue(vbChecked);
     }},
    {"Disabled", Make<CheckBox>, 17,
     [](Control& c) {
       auto& check = As<CheckBox>(c);
       check.SetCaption("Include &today");
       check.SetValue(vbChecked);
       check.SetEnabled(false);
     }},
    {nullptr, nullptr, 0, nullptr},
    {"Label: left (on white)", Make<tarnbrook::Label>, 16,
     [](Control& c) {
       auto& label = As<tarnbrook::Label>(c);
       label.SetBackColor(vbWindowBackground);
       label.SetCaption("&From:");
     }},
    {"Centred", Make<tarnbrook::Label>, 16,
     [](Control& c) {
       auto& label = As<tarnbrook::Label>(c);
       label.SetBackColor(vbWindowBackground);
       label.SetAlignment(2);
       label.SetCaption("&From:");
     }},
    {"Right", Make<tarnbrook::Label>, 16,
     [](Control& c) {
       auto& label = As<tarnbrook::Label>(c);
       label.SetBackColor(vbWindowBackground);
       label.SetAlignment(1);
       label.SetCaption("&From:");
     }},
    {"Disabled", Make<tarnbrook::Label>, 16,
     [](Control& c) {
       auto& label = As<tarnbrook::Label>(c);
       label.SetCaption("&From:");
       label.SetEnabled(false);
     }},
};

// Each control stands on a form where it stands in the picture and is copied from its
// window once set up.
void WritePicture(const std::string& path) {
  const int32_t width = Margin + Columns * (CellWidth + Margin);
  int32_t height = Margin, column = 0, rowHeight = 0;
  for (const Look& look : Looks) {
    if (!look.make || column == Columns) {
      height += rowHeight;
      column = 0;
      rowHeight = 0;
    }
    if (look.make) {
      rowHeight = std::max(rowHeight, LabelHeight + look.height + Margin);
      ++column;
    }
  }
  height += rowHeight;

  MemoryPlatform platform;
  Container form(width, height + MemoryPlatform::CaptionHeight);
  cMDC surface;
  StartPicture(surface, width, height);
  int32_t top = Margin, index = 0;
  column = 0;
  rowHeight = 0;
  for (const Look& look : Looks) {
    if (!look.make || column == Columns) {
      top += rowHeight;
      column = 0;
      rowHeight = 0;
    }
    if (!look.make)
      continue;
    int32_t left = Margin + column * (CellWidth + Margin);
    Control& control = form.Add(look.make(), "Look" + std::to_string(index++), left,
                                top + LabelHeight, CellWidth, look.height);
    platform.PumpMessages();
    look.setUp(control);
    platform.PumpMessages();
    Label(surface, look.label, left, top, CellWidth, LabelHeight);
    surface.CopyFrom(platform.WindowCanvas(control.hWnd())->Handle(), left, top + LabelHeight,
                     CellWidth, look.height, 0, 0);
    rowHeight = std::max(rowHeight, LabelHeight + look.height + Margin);
    ++column;
  }
  Canvas::FromHandle(surface.hDC())->WritePng(path);
}

const bool registered = RegisterPicture("gallery-standard.png", WritePicture);

} // namespace
} // namespace tarnbrook::gallery
