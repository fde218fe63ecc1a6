// The demo: a form with a month calendar, a short-date picker with its drop-down calendar, a
// picker in a custom date-and-time format with up/down buttons, and a date selection whose SQL
// is shown live with the sample orders it selects from a small SQLite database, on a real X
// display, with every event of every control in a list on the form and on standard output.
//
//   demo [--form FILE] [--tour] [--screenshot-dir DIR] [--today YYYY-MM-DD]
//
// Month and day names and the date order are the user's, from LC_ALL, LC_TIME or LANG.
// --form loads FILE at the start when it exists and saves the form to it on exit; --tour runs
// a short scripted tour with xdotool, writes screenshots (default out/) and exits; --today
// sets the date the controls take for today (at noon), for pictures that stay the same.
#include <cstdio>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "apps/demo/caption_label.hpp"
#include "apps/demo/demo_layout.hpp"
#include "apps/demo/event_list.hpp"
#include "apps/demo/event_log.hpp"
#include "apps/demo/orders_view.hpp"
#include "apps/demo/tour.hpp"
#include "automation/class_factory.hpp"
#include "common/control_error.hpp"
#include "common/date_format.hpp"
#include "common/date_runtime.hpp"
#include "common/locale.hpp"
#include "host/container.hpp"
#include "host/control_registry.hpp"
#include "platform/x11/x11_platform.hpp"

using namespace tarnbrook;
namespace layout = tarnbrook::demo_layout;

namespace {

struct Options {
  std::string formFile;
  std::string screenshotDir = "out";
  bool tour = false;
  std::optional<DateValue> today;
};

const char* const Usage =
    "usage: demo [--form FILE] [--tour] [--screenshot-dir DIR] [--today YYYY-MM-DD]\n";

std::optional<Options> ParseOptions(int argc, char** argv) {
  Options options;
  for (int i = 1; i < argc; ++i) {
    std::string option = argv[i];
    const char* value = i + 1 < argc ? argv[i + 1] : nullptr;
    if (option == "--tour") {
      options.tour = true;
    } else if (option == "--form" && value) {
      options.formFile = argv[++i];
    } else if (option == "--screenshot-dir" && value) {
      options.screenshotDir = argv[++i];
    } else if (option == "--today" && value && IsoDate(value)) {
      options.today = IsoDate(value);
      ++i;
    } else {
      return std::nullopt;
    }
  }
  return options;
}

void RegisterClasses() {
  RegisterTarnbrookClasses();
  RegisterControlClass<EventList>("EventList");
  RegisterControlClass<CaptionLabel>("CaptionLabel");
}

template <class T> T& Add(Container& form, const std::string& name, const Rect& r) {
  return static_cast<T&>(
      form.Add(std::make_unique<T>(form.hWnd()), name, r.left, r.top, r.Width(), r.Height()));
}

void AddLabel(Container& form, const std::string& name, const Rect& control,
              const std::string& caption) {
  Add<CaptionLabel>(form, name, {control.left, control.top - 18, control.right, control.top - 2})
      .SetCaption(caption);
}

void BuildForm(Container& form, X11Platform& platform) {
  AddLabel(form, "label1", layout::Calendar1, "calendar1: MonthCalendar");
  Add<MonthCalendar>(form, "calendar1", layout::Calendar1);

  AddLabel(form, "label2", layout::Picker1, "picker1: short date");
  Add<DatePicker>(form, "picker1", layout::Picker1).SetValue(Variant::Date(platform.Today()));

  AddLabel(form, "label3", layout::Picker2, "picker2: custom format, up/down");
  auto& custom = Add<DatePicker>(form, "picker2", layout::Picker2);
  custom.SetFormat(dtpCustom);
  custom.SetCustomFormat(layout::CustomFormat);
  custom.SetButton(dtpUpDown);
  custom.SetValue(Variant::Date(platform.Now()));

  AddLabel(form, "label5", layout::Select1, "select1: DateSelect over sample orders");
  auto& select = Add<DateSelect>(form, "select1", layout::Select1);
  select.SetSQLPrefix("SELECT * FROM Orders WHERE");
  select.SetSQLFieldName("OrderDate");
  select.SetSQLDateWrapper("'");
  select.SetSQLDateFormat("yyyy-mm-dd");
  select.SetSelection(dtsLast7days);
  Add<CaptionLabel>(form, "sql1", layout::Sql1);
  Add<EventList>(form, "rows1", layout::Rows1);

  AddLabel(form, "label4", layout::Log1, "Events (also on standard output)");
  Add<EventList>(form, "log1", layout::Log1);
  form.ClearChangedKeys();
}

// Every calendar, picker and date selection on the form reports to the log; "log1" shows it.
// The controls outlive the logging, so it disconnects them when it goes.
class Logging {
public:
  explicit Logging(Container& form) {
    for (size_t i = 0; i < form.Count(); ++i) {
      Control& control = form.Item(i);
      if (auto* calendar = dynamic_cast<MonthCalendar*>(&control))
        Log<CalendarEventLogger>(*calendar, form.Name(i));
      else if (auto* picker = dynamic_cast<DatePicker*>(&control))
        Log<PickerEventLogger>(*picker, form.Name(i));
      else if (auto* select = dynamic_cast<DateSelect*>(&control))
        Log<DateSelectEventLogger>(*select, form.Name(i));
      else if (auto* list = dynamic_cast<EventList*>(&control); list && form.Name(i) == "log1")
        log_.SetListener([list](const std::string& line) { list->AddLine(line); });
    }
  }
  ~Logging() {
    for (auto& disconnect : disconnections_)
      disconnect();
  }
  Logging(const Logging&) = delete;
  Logging& operator=(const Logging&) = delete;

  void Note(const std::string& line) { log_.Write(line); }

  // An error a control raised while handling input is logged, and the demo goes on.
  void ReportErrorsOf(Container& form) {
    form.SetErrorHandler([this](const std::string& control, const ControlError& error) {
      log_.Write(control + ": error " + std::to_string(error.Number()) + " (" + error.Source() +
                 "): " + error.Description());
    });
  }

private:
  // Connects a logger of the control's events for as long as the logging lasts.
  template <class Logger, class C> void Log(C& control, const std::string& name) {
    auto logger = std::make_shared<Logger>(name, log_);
    control.Connect(logger.get());
    disconnections_.push_back([&control, logger] { control.Disconnect(logger.get()); });
  }

  EventLog log_;
  std::vector<std::function<void()>> disconnections_;
};

int RunDemo(const Options& options) {
  SetCurrentLocale(Locale::FromEnvironment()); // LC_ALL, LC_TIME or LANG, as users expect
  X11Platform platform;
  if (options.today)
    platform.SetNow(DateAdd("h", 12, *options.today)); // noon, whatever side of 1899
  RegisterClasses();

  Container form(layout::FormWidth, layout::FormHeight + MemoryPlatform::CaptionHeight,
                 layout::FormCaption);
  platform.MoveWindow(form.hWnd(), layout::FormLeft, layout::FormTop, layout::FormWidth,
                      layout::FormHeight + MemoryPlatform::CaptionHeight, true);
  if (!options.formFile.empty() && std::filesystem::exists(options.formFile))
    form.LoadFromFile(options.formFile);
  else
    BuildForm(form, platform);
  Logging logging(form);
  logging.ReportErrorsOf(form);
  logging.Note("demo: today is " + FormatDate(platform.Today(), "Long Date") + " (" +
               CurrentLocale().Name + ")");
  std::optional<OrdersView> orders;
  auto* select = dynamic_cast<DateSelect*>(form.Find("select1"));
  auto* sql = dynamic_cast<CaptionLabel*>(form.Find("sql1"));
  auto* rows = dynamic_cast<EventList*>(form.Find("rows1"));
  if (select && sql && rows)
    orders.emplace(*select, *sql, *rows, platform.Today());

  if (options.tour) {
    for (const std::string& path : RunTour(platform, form, options.screenshotDir))
      std::printf("screenshot %s\n", path.c_str());
  } else {
    platform.Run();
  }
  form.SetErrorHandler(nullptr); // the logging goes before the form
  if (!options.formFile.empty())
    form.SaveToFile(options.formFile);
  return 0;
}

} // namespace

int main(int argc, char** argv) {
  std::optional<Options> options = ParseOptions(argc, argv);
  if (!options) {
    std::fputs(Usage, stderr);
    return 2;
  }
  try {
    return RunDemo(*options);
  } catch (const ControlError& error) {
    std::fprintf(stderr, "demo: %s\n", error.Description().c_str());
  } catch (const std::exception& error) {
    std::fprintf(stderr, "demo: %s\n", error.what());
  }
  return 1;
}
