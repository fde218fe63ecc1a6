#include "apps/demo/tour.hpp"

#include <cstdlib>
#include <filesystem>
#include <functional>
#include <stdexcept>

#include "apps/demo/screenshot.hpp"
#include "dateselect/date_select.hpp"
#include "host/container.hpp"
#include "picker/date_picker.hpp"
#include "platform/x11/x11_platform.hpp"

// Last: its macros (None, KeyPress, ...) clash with the names above.
#include <X11/Xlib.h>

namespace tarnbrook {

namespace {

constexpr uint32_t Patience = 5000; // ms for anything the tour waits for
constexpr uint32_t Settle = 150;    // ms for the server to show what was put

class Tour {
public:
  Tour(X11Platform& platform, Container& form, const std::string& directory)
      : platform_(platform), form_(form), directory_(directory) {}

  DatePicker& Picker(const char* name) {
    auto* picker = dynamic_cast<DatePicker*>(form_.Find(name));
    if (!picker)
      throw std::runtime_error(std::string("the tour needs the picker ") + name);
    return *picker;
  }

  void WaitFor(const char* what, const std::function<bool()>& done) {
    if (!platform_.RunUntil(done, Patience))
      throw std::runtime_error(std::string("the tour waited in vain for ") + what);
  }

  // A click of the left button at a point of a window's client area.
  void Click(HWND hwnd, int32_t x, int32_t y) {
    Point p = platform_.ClientToScreen(hwnd, {x, y});
    Xdotool("mousemove " + std::to_string(p.x) + " " + std::to_string(p.y) + " click 1");
  }

  void Xdotool(const std::string& arguments) {
    if (std::system(("xdotool " + arguments).c_str()) != 0)
      throw std::runtime_error("xdotool " + arguments + " failed (is xdotool installed?)");
  }

  void Screenshot(const std::string& name) {
    platform_.RunFor(Settle);
    XSync(platform_.XDisplay(), False);
    std::string path = (std::filesystem::path(directory_) / name).string();
    WriteScreenshot(platform_.XDisplay(), path);
    written_.push_back(path);
  }

  bool Viewable(HWND hwnd) {
    XWindowAttributes attributes{};
    return XGetWindowAttributes(platform_.XDisplay(), platform_.XWindowOf(hwnd), &attributes) &&
           attributes.map_state == IsViewable;
  }

  std::vector<std::string> Run() {
    std::filesystem::create_directories(directory_);
    WaitFor("the form", [&] { return Viewable(form_.hWnd()); });
    Screenshot("demo-form.png");

    DatePicker& shortDate = Picker("picker1");
    const Rect box = platform_.GetClientRect(shortDate.hWnd());
    Click(shortDate.hWnd(), box.right - 8, box.bottom / 2); // the drop-down button
    WaitFor("the calendar", [&] { return shortDate.IsDropped(); });
    Screenshot("demo-calendar.png");

    // The Thursday of the fourth row: the 20th to the 26th, a day of the shown month.
    Click(shortDate.Calendar().hWnd(), 18 + 28 * 4, 60 + 16 * 3);
    WaitFor("the day picked", [&] { return !shortDate.IsDropped(); });

    DatePicker& custom = Picker("picker2");
    const CDateMask& month = custom.Fields().front();
    Click(custom.hWnd(), month.Left() + month.Width() / 2, box.bottom / 2);
    const int typed = Month(custom.DateValue()) == 7 ? 8 : 7;
    Xdotool("type 0" + std::to_string(typed));
    WaitFor("the typed month", [&] { return Month(custom.DateValue()) == typed; });
    Screenshot("demo-typed.png");

    // "Last Month" picked from the date selection's option list, six entries below "Last 7 days".
    if (auto* select = dynamic_cast<DateSelect*>(form_.Find("select1"))) {
      ComboListX& options = select->cboSelection();
      const Rect field = platform_.GetClientRect(options.hWnd());
      Click(options.hWnd(), field.right - 8, field.bottom / 2);
      WaitFor("the option list", [&] { return options.cbo().DroppedDown(); });
      Xdotool("key Down Down Down Down Down Down Return");
      WaitFor("Last Month", [&] { return select->Selection() == dtsLastMonth; });
      Screenshot("demo-dateselect.png");
    }
    return written_;
  }

private:
  X11Platform& platform_;
  Container& form_;
  std::string directory_;
  std::vector<std::string> written_;
};

} // namespace

std::vector<std::string> RunTour(X11Platform& platform, Container& form,
                                 const std::string& directory) {
  return Tour(platform, form, directory).Run();
}

} // namespace tarnbrook
