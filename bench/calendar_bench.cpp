// A 204 x 180 MonthCalendar repainted with one day changed per frame, beside the same
// drawing done directly with Cairo and Pango (one layout kept per string).
#include <benchmark/benchmark.h>
#include <pango/pangocairo.h>

#include <array>
#include <map>
#include <string>

#include "calendar/month_calendar.hpp"
#include "common/date_runtime.hpp"
#include "platform/memory/memory_platform.hpp"

using namespace tarnbrook;

namespace {

// A shown calendar on Saturday 21 November 2026.
struct ShownCalendar {
  ShownCalendar() {
    platform.SetNow(DateSerial(2026, 11, 21) + 0.5);
    calendar.SetValue(platform.Today());
    calendar.Move(10, 10, MonthCalendar::FixedWidth, MonthCalendar::FixedHeight);
    calendar.SetVisible(true);
    platform.PumpMessages();
  }
  MemoryPlatform platform;
  MonthCalendar calendar;
};

} // namespace

// Setting Value to another day of the displayed month repaints the whole calendar once.
static void BM_MonthCalendar_Paint(benchmark::State& state) {
  ShownCalendar shown;
  const DateValue days[] = {DateSerial(2026, 11, 10), DateSerial(2026, 11, 11)};
  int frame = 0;
  for (auto _ : state) {
    shown.calendar.SetValue(days[frame++ & 1]);
    benchmark::DoNotOptimize(shown.platform.WindowCanvas(shown.calendar.hWnd())->Data());
  }
}
BENCHMARK(BM_MonthCalendar_Paint);

// A person's click on a day cell, through the simulator, to the pixels on the window.
static void BM_MonthCalendar_ClickToWindow(benchmark::State& state) {
  ShownCalendar shown;
  Point cells[] = {shown.platform.ClientToScreen(shown.calendar.hWnd(), {4 + 28 * 2 + 14, 84}),
                   shown.platform.ClientToScreen(shown.calendar.hWnd(), {4 + 28 * 3 + 14, 84})};
  int frame = 0;
  for (auto _ : state) {
    Point p = cells[frame++ & 1];
    shown.platform.Click(p.x, p.y);
    benchmark::DoNotOptimize(shown.platform.WindowCanvas(shown.calendar.hWnd())->Data());
  }
}
BENCHMARK(BM_MonthCalendar_ClickToWindow);

namespace {

// The calendar's drawing in plain Cairo and Pango; each string is shaped once, in its layout.
class CairoPangoCalendar {
public:
  CairoPangoCalendar()
      : surface_(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, 204, 180)),
        cr_(cairo_create(surface_)), font_(pango_font_description_from_string("DejaVu Sans 8")),
        bold_(pango_font_description_from_string("DejaVu Sans Bold 8")) {
    cairo_set_antialias(cr_, CAIRO_ANTIALIAS_NONE);
    cairo_set_line_width(cr_, 1);
  }
  ~CairoPangoCalendar() {
    for (auto& [key, layout] : layouts_) {
      g_object_unref(layout);
    }
    pango_font_description_free(font_);
    pango_font_description_free(bold_);
    cairo_destroy(cr_);
    cairo_surface_destroy(surface_);
  }

  void Frame(int selectedDay) {
    Fill(0, 0, 204, 180, 1, 1, 1);
    static const char* const weekdays[] = {"Su", "Mo", "Tu", "We", "Th", "Fr", "Sa"};
    for (int i = 0; i < 7; ++i) {
      Text(weekdays[i], false, 4 + 28 * i, 36, 28, 16, 0, 0, 0.5);
    }
    for (int i = 0; i < 42; ++i) {
      int day = i < 30 ? i + 1 : i - 29; // November 2026 starts on a Sunday
      int left = 4 + 28 * (i % 7);
      int top = 52 + 16 * (i / 7);
      bool selected = i < 30 && day == selectedDay;
      if (selected) {
        cairo_save(cr_);
        cairo_translate(cr_, left + 2 + 11.5, top + 8);
        cairo_scale(cr_, 11.5, 8);
        cairo_arc(cr_, 0, 0, 1, 0, 6.2832);
        cairo_restore(cr_);
        cairo_set_source_rgb(cr_, 0, 0, 0.5);
        cairo_fill(cr_);
      }
      double grey = i < 30 ? 0 : 0.5;
      Text(std::to_string(day), selected || day == 21, left, top, 28, 16, selected ? 1 : grey,
           selected ? 1 : grey, selected ? 1 : grey);
    }
    Line(4, 51.5, 198, 51.5);
    Line(4, 148.5, 198, 148.5);
    Fill(0, 0, 208, 33, 0.75, 0.75, 0.75);
    for (auto [x, y, w, h] : {std::array{4, 6, 14, 20}, {184, 6, 14, 20}, {16, 156, 65, 17}}) {
      Fill(x, y, w, h, 0.75, 0.75, 0.75);
      cairo_set_source_rgb(cr_, 1, 1, 1);
      cairo_rectangle(cr_, x + 0.5, y + 0.5, w - 1, h - 1);
      cairo_stroke(cr_);
    }
    Text("November", false, 24, 5, 80, 21, 0, 0, 0);
    Text("2026", false, 110, 5, 34, 21, 0, 0, 0);
    Text("Today", false, 16, 156, 65, 17, 0, 0, 0);
    Text("21-Nov-26", false, 72, 156, 120, 17, 0, 0, 0);
    cairo_set_source_rgb(cr_, 0.5, 0.5, 0.5);
    cairo_rectangle(cr_, 0.5, 0.5, 203, 179);
    cairo_stroke(cr_);
    cairo_surface_flush(surface_);
  }
  cairo_surface_t* Surface() const { return surface_; }

private:
  void Fill(int x, int y, int w, int h, double r, double g, double b) {
    cairo_set_source_rgb(cr_, r, g, b);
    cairo_rectangle(cr_, x, y, w, h);
    cairo_fill(cr_);
  }
  void Line(double x1, double y1, double x2, double y2) {
    cairo_set_source_rgb(cr_, 0.5, 0.5, 0.5);
    cairo_move_to(cr_, x1, y1);
    cairo_line_to(cr_, x2, y2);
    cairo_stroke(cr_);
  }
  void Text(const std::string& text, bool bold, int x, int y, int w, int h, double r, double g,
            double b) {
    PangoLayout*& layout = layouts_[{text, bold}];
    if (!layout) {
      layout = pango_cairo_create_layout(cr_);
      pango_layout_set_font_description(layout, bold ? bold_ : font_);
      pango_layout_set_text(layout, text.c_str(), -1);
    }
    int width = 0;
    int height = 0;
    pango_layout_get_pixel_size(layout, &width, &height);
    cairo_set_source_rgb(cr_, r, g, b);
    cairo_move_to(cr_, x + (w - width) / 2, y + (h - height) / 2);
    pango_cairo_show_layout(cr_, layout);
  }

  cairo_surface_t* surface_;
  cairo_t* cr_;
  PangoFontDescription* font_;
  PangoFontDescription* bold_;
  std::map<std::pair<std::string, bool>, PangoLayout*> layouts_;
};

} // namespace

// The floor: the same picture straight from Cairo and Pango, a day changed per frame.
static void BM_CairoPango_Floor(benchmark::State& state) {
  CairoPangoCalendar calendar;
  int frame = 0;
  for (auto _ : state) {
    calendar.Frame((frame++ & 1) ? 10 : 11);
    benchmark::DoNotOptimize(cairo_image_surface_get_data(calendar.Surface()));
  }
}
BENCHMARK(BM_CairoPango_Floor);
