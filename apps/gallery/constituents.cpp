// The year spin box and the framed drop-down list in their button and border styles and
// states, one list dropped down.
#include <memory>
#include <string>
#include <vector>

#include "apps/gallery/gallery.hpp"
#include "constituents/combo_list_x.hpp"
#include "constituents/number_spin.hpp"

namespace tarnbrook::gallery {
namespace {

constexpr int32_t Margin = 12;
constexpr int32_t LabelHeight = 18;
constexpr int32_t Columns = 4;
constexpr int32_t LookWidth = 150;
constexpr int32_t CellWidth = LookWidth + Margin;
constexpr int32_t Width = Margin + Columns * CellWidth;

const char* const Months[] = {"January",   "February", "March",    "April",
                              "May",       "June",     "July",     "August",
                              "September", "October",  "November", "December"};

void PressAt(MemoryPlatform& platform, Control& control, int32_t x, int32_t y) {
  Point p = platform.ClientToScreen(control.hWnd(), {x, y});
  platform.MouseDown(VK_LBUTTON, p.x, p.y);
}

const std::vector<Look<NumberSpin>> SpinLooks = {
    {"Spin: 3D buttons", [](MemoryPlatform&, NumberSpin&) {}},
    {"Spin: thin 3D buttons", [](MemoryPlatform&, NumberSpin& s) { s.SetButtonStyle(1); }},
    {"Spin: flat buttons", [](MemoryPlatform&, NumberSpin& s) { s.SetButtonStyle(2); }},
    {"Spin: border none", [](MemoryPlatform&, NumberSpin& s) { s.SetBorderStyle(0); }},
    {"Spin: fixed single", [](MemoryPlatform&, NumberSpin& s) { s.SetBorderStyle(1); }},
    {"Spin: raised 3D", [](MemoryPlatform&, NumberSpin& s) { s.SetBorderStyle(2); }},
    {"Spin: sunken thin", [](MemoryPlatform&, NumberSpin& s) { s.SetBorderStyle(4); }},
    {"Spin: etched", [](MemoryPlatform&, NumberSpin& s) { s.SetBorderStyle(6); }},
    {"Spin: focused", [](MemoryPlatform&, NumberSpin& s) { s.SetFocus(); }},
    {"Spin: up held",
     [](MemoryPlatform& platform, NumberSpin& s) { PressAt(platform, s, s.ScaleWidth() - 8, 4); }},
    {"Spin: flat, down held",
     [](MemoryPlatform& platform, NumberSpin& s) {
       s.SetButtonStyle(2);
       PressAt(platform, s, s.ScaleWidth() - 8, s.ScaleHeight() - 5);
     }},
    {"Spin: typing 19..",
     [](MemoryPlatform& platform, NumberSpin& s) {
       s.SetFocus();
       platform.Type("19");
     }},
    {"Spin: disabled", [](MemoryPlatform&, NumberSpin& s) { s.SetEnabled(false); }},
    {"Spin: colours and bold",
     [](MemoryPlatform&, NumberSpin& s) {
       s.SetBackColor(RGB(255, 255, 225));
       s.SetForeColor(RGB(0, 0, 160));
       Font bold = s.Font();
       bold.Bold = true;
       s.SetFont(bold);
     }},
};

const std::vector<Look<ComboListX>> ListLooks = {
    {"List: 3D button", [](MemoryPlatform&, ComboListX&) {}},
    {"List: thin 3D button", [](MemoryPlatform&, ComboListX& l) { l.SetButtonStyle(1); }},
    {"List: flat button", [](MemoryPlatform&, ComboListX& l) { l.SetButtonStyle(2); }},
    {"List: border none", [](MemoryPlatform&, ComboListX& l) { l.SetBorderStyle(0); }},
    {"List: fixed single", [](MemoryPlatform&, ComboListX& l) { l.SetBorderStyle(1); }},
    {"List: raised thin", [](MemoryPlatform&, ComboListX& l) { l.SetBorderStyle(5); }},
    {"List: etched", [](MemoryPlatform&, ComboListX& l) { l.SetBorderStyle(6); }},
    {"List: focused", [](MemoryPlatform&, ComboListX& l) { l.SetFocus(); }},
    {"List: disabled", [](MemoryPlatform&, ComboListX& l) { l.SetEnabled(false); }},
    {"List: colours",
     [](MemoryPlatform&, ComboListX& l) {
       l.SetBackColor(RGB(255, 255, 225));
       l.SetForeColor(RGB(0, 0, 160));
     }},
};

struct Grid {
  MemoryPlatform& platform;
  Container& form;
  cMDC& surface;
  int32_t index = 0;    // in the current block
  int32_t placed = 0;   // on the form, for the names
  int32_t top = Margin; // of the current row

  int32_t Left() const { return Margin + (index % Columns) * CellWidth; }

  // Places one control, sets it up and copies it from the composed screen under its label;
  // a button still held afterwards is let go, so the next look gets the mouse.
  template <class C> void Add(const Look<C>& look, int32_t height) {
    if (index > 0 && index % Columns == 0)
      top += LabelHeight + height + Margin;
    const int32_t left = Left();
    auto& control = static_cast<C&>(form.Add(std::make_unique<C>(form.hWnd()),
                                             "Look" + std::to_string(placed++), left,
                                             top + LabelHeight, LookWidth, height));
    Prepare(control);
    platform.PumpMessages();
    look.setUp(platform, control);
    platform.PumpMessages();
    Label(surface, look.label, left, top, LookWidth, LabelHeight);
    Copy(control, left, top + LabelHeight, LookWidth, height);
    if (platform.GetKeyState(VK_LBUTTON) < 0) {
      Point p = platform.GetCursorPos();
      platform.MouseUp(VK_LBUTTON, p.x, p.y);
    }
    ++index;
  }
  void Copy(Control& control, int32_t left, int32_t top, int32_t width, int32_t height) {
    Point origin = platform.ClientToScreen(control.hWnd(), {0, 0});
    std::unique_ptr<Canvas> screen = platform.ComposeScreen();
    surface.CopyFrom(screen->Handle(), left, top, width, height, origin.x, origin.y);
  }
  void NextRow(int32_t height) {
    top += LabelHeight + height + Margin;
    index = 0;
  }

  static void Prepare(NumberSpin& spin) { spin.SetValue(2004); }
  static void Prepare(ComboListX& list) {
    for (const char* month : Months)
      list.AddItem(month);
    list.SetListIndex(4);
  }
};

int32_t Rows(size_t count) {
  return static_cast<int32_t>((count + Columns - 1) / Columns);
}

void WritePicture(const std::string& path) {
  MemoryPlatform platform;
  const int32_t spinHeight = NumberSpin().PreferredHeight();
  const int32_t listHeight = ComboListX().PreferredHeight();
  const int32_t spinBlock = Rows(SpinLooks.size()) * (LabelHeight + spinHeight + Margin);
  const int32_t listBlock = Rows(ListLooks.size()) * (LabelHeight + listHeight + Margin);
  // The list drops its default 8 rows below the control, one line around them.
  const int32_t listDrop = ComboBox::DefaultRows * ComboListX().cbo().ItemHeight() + 2;
  const int32_t droppedHeight = LabelHeight + listHeight + listDrop;
  const int32_t height = Margin + spinBlock + listBlock + droppedHeight + Margin;

  Container form(Width, height + MemoryPlatform::CaptionHeight);
  cMDC surface;
  StartPicture(surface, Width, height);
  Grid grid{platform, form, surface};
  for (const Look<NumberSpin>& look : SpinLooks)
    grid.Add(look, spinHeight);
  grid.NextRow(spinHeight);
  for (const Look<ComboListX>& look : ListLooks)
    grid.Add(look, listHeight);
  grid.NextRow(listHeight);

  // The list that drops is a window of its own above the form: copied with the screen below
  // the control.
  const int32_t top = grid.top;
  auto& dropped =
      static_cast<ComboListX&>(form.Add(std::make_unique<ComboListX>(form.hWnd()), "Dropped",
                                        Margin, top + LabelHeight, LookWidth, listHeight));
  Grid::Prepare(dropped);
  platform.PumpMessages();
  Point button = platform.ClientToScreen(dropped.hWnd(), {LookWidth - 8, listHeight / 2});
  platform.Click(button.x, button.y);
  platform.Key(VK_DOWN); // the highlight moves to June
  platform.PumpMessages();
  Label(surface, "List: dropped down, June highlighted", Margin, top, 2 * LookWidth, LabelHeight);
  grid.Copy(dropped, Margin, top + LabelHeight, LookWidth, droppedHeight - LabelHeight);
  Canvas::FromHandle(surface.hDC())->WritePng(path);
}

const bool registered = RegisterPicture("gallery-constituents.png", WritePicture);

} // namespace
} // namespace tarnbrook::gallery
