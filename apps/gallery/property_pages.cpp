// The property pages as a designer shows them: each page on the controls it edits, copied
// from the composed screen with the dialog's caption.
#include <memory>
#include <string>
#include <vector>

#include "apps/gallery/gallery.hpp"
#include "automation/class_factory.hpp"
#include "calendar/month_calendar.hpp"
#include "dateselect/date_select.hpp"
#include "design/color_chooser.hpp"
#include "design/font_chooser.hpp"
#include "design/format_list.hpp"
#include "design/property_page.hpp"
#include "picker/date_picker.hpp"

namespace tarnbrook::gallery {
namespace {

// Opens the pages of the form's controls, lets `setUp` work them, and writes the dialog.
void WriteSheet(const std::string& path, std::vector<std::string> classes, size_t page,
                void (*setUp)(MemoryPlatform&, PropertySheet&, std::vector<Control*>&)) {
  MemoryPlatform platform;
  platform.SetScreenSize(1280, 900);
  platform.SetNow(DateSerial(2004, 5, 10) + TimeSerial(9, 30, 0));
  RegisterTarnbrookClasses();
  Container form(400, 300);
  std::vector<Control*> selection;
  for (size_t i = 0; i < classes.size(); ++i)
    selection.push_back(&form.Add(CreateObject(classes[i], form.hWnd()),
                                  classes[i] + std::to_string(i + 1), 10,
                                  10 + 30 * static_cast<int32_t>(i), 200, 24));
  PropertySheet sheet(selection, form.hWnd());
  sheet.ShowPage(page);
  platform.PumpMessages();
  if (setUp)
    setUp(platform, sheet, selection);
  platform.PumpMessages();
  Rect frame = platform.GetWindowRect(sheet.hWnd());
  std::unique_ptr<Canvas> screen = platform.ComposeScreen();
  cMDC surface;
  StartPicture(surface, frame.Width(), frame.Height());
  surface.CopyFrom(screen->Handle(), 0, 0, frame.Width(), frame.Height(), frame.left, frame.top);
  Canvas::FromHandle(surface.hDC())->WritePng(path);
}

void Type(MemoryPlatform& platform, Control& field, const std::string& text) {
  field.SetFocus();
  platform.Key('A', MemoryPlatform::CtrlKey);
  platform.Type(text);
}

const bool registered = [] {
  RegisterPicture("gallery-pp-month-calendar.png", [](const std::string& path) {
    WriteSheet(path, {"MonthCalendar"}, 0,
               [](MemoryPlatform&, PropertySheet& sheet, std::vector<Control*>&) {
                 PropertyEditor& colors = *sheet.Page(0).FindEditor("HeaderColor");
                 colors.MemberList()->SetText("HeaderColor");
               });
  });
  // Two pickers that differ in their button width and captions: those fields are blank.
  RegisterPicture("gallery-pp-date-picker.png", [](const std::string& path) {
    WriteSheet(path, {"DatePicker", "DatePicker"}, 0,
               [](MemoryPlatform& platform, PropertySheet& sheet, std::vector<Control*>& picked) {
                 auto& second = static_cast<DatePicker&>(*picked[1]);
                 second.SetButtonWidth(20);
                 second.SetTodayButtonCaption("Now");
                 sheet.Page(0).Load();
                 Type(platform, sheet.Page(0).FindEditor("CustomFormat")->Input(),
                      "dddd, MMMM dd, yyyy");
               });
  });
  RegisterPicture("gallery-pp-date-select-settings.png", [](const std::string& path) {
    WriteSheet(path, {"DateSelect"}, 0,
               [](MemoryPlatform& platform, PropertySheet& sheet, std::vector<Control*>&) {
                 Type(platform, sheet.Page(0).FindEditor("SQLFieldName")->Input(), "OrderDate");
                 Type(platform, sheet.Page(0).FindEditor("SQLDateWrapper")->Input(), "#");
               });
  });
  RegisterPicture("gallery-pp-date-select-appearance.png", [](const std::string& path) {
    WriteSheet(path, {"DateSelect"}, 1,
               [](MemoryPlatform& platform, PropertySheet& sheet, std::vector<Control*>&) {
                 PropertyEditor& colors = *sheet.Page(1).FindEditor("FocusColor");
                 colors.MemberList()->SetText("FocusColor");
                 Type(platform, sheet.Page(1).FindEditor("ButtonWidth")->Input(), "wide");
               });
  });
  return true;
}();

} // namespace
} // namespace tarnbrook::gallery
