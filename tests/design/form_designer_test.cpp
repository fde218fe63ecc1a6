#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "calendar/month_calendar.hpp"
#include "common/date_runtime.hpp"
#include "dateselect/date_select.hpp"
#include "design/form_designer.hpp"
#include "host/control_registry.hpp"
#include "picker/date_picker.hpp"
#include "platform/memory/memory_platform.hpp"
#include "tests/support/raised.hpp"

namespace tarnbrook {
namespace {

using Controls = std::vector<Control*>;

// Counts every event a picker raises.
class AnyEvent : public DatePickerEvents {
public:
  int count = 0;
  void Change() override { ++count; }
  void MouseDown(int16_t, int16_t, float, float) override { ++count; }
  void MouseMove(int16_t, int16_t, float, float) override { ++count; }
  void KeyDown(int16_t&, int16_t) override { ++count; }
  void KeyPress(int16_t&) override { ++count; }
  void BeforeCalendarDropDown(bool&) override { ++count; }
};

// Two pickers side by side, a calendar and a date selection, in design mode.
class FormDesignerTest : public ::testing::Test {
protected:
  FormDesignerTest() {
    platform.SetNow(DateSerial(2026, 11, 21) + 0.5);
    picker1 = &Add<DatePicker>("picker1", {20, 30, 160, 51});
    picker2 = &Add<DatePicker>("picker2", {200, 30, 340, 51});
    calendar = &Add<MonthCalendar>("calendar1", {20, 100, 224, 280});
    select = &Add<DateSelect>("select1", {260, 100, 560, 180});
    picker1->SetValue(Variant::Date(DateSerial(2026, 11, 21)));
    picker1->Connect(&events);
    designer = std::make_unique<FormDesigner>(form);
    designer->SetSelectionChangedHandler([this] { ++selectionChanges; });
    designer->SetFormChangedHandler([this] { ++formChanges; });
  }
  ~FormDesignerTest() override {
    if (picker1)
      picker1->Disconnect(&events);
  }
  template <class C> C& Add(const std::string& name, const Rect& r) {
    return static_cast<C&>(
        form.Add(std::make_unique<C>(), name, r.left, r.top, r.Width(), r.Height()));
  }

  // Screen points of the form's client coordinates, and of a control's.
  Point OnForm(int32_t x, int32_t y) { return platform.ClientToScreen(form.hWnd(), {x, y}); }
  Point On(const Control& c, int32_t x, int32_t y) {
    return platform.ClientToScreen(c.hWnd(), {x, y});
  }
  void Click(Point p, int shiftKey = 0) {
    if (shiftKey)
      platform.KeyDown(shiftKey);
    platform.Click(p.x, p.y);
    if (shiftKey)
      platform.KeyUp(shiftKey);
  }
  void Drag(Point from, Point to) {
    platform.MouseDown(VK_LBUTTON, from.x, from.y);
    platform.MouseMove((from.x + to.x) / 2, (from.y + to.y) / 2);
    platform.MouseUp(VK_LBUTTON, to.x, to.y);
  }
  // A control's place in the form's client area.
  Rect Bounds(const Control& c) {
    Rect w = platform.GetWindowRect(c.hWnd());
    Point p = platform.ScreenToClient(form.hWnd(), {w.left, w.top});
    return {p.x, p.y, p.x + w.Width(), p.y + w.Height()};
  }
  // The centre of a selected control's handle (0 the top left corner, clockwise).
  Point HandleOf(const Control& c, int handle) {
    Rect r = Bounds(c);
    const int32_t xs[] = {r.left - 1, r.left + r.Width() / 2, r.right};
    const int32_t ys[] = {r.top - 1, r.top + r.Height() / 2, r.bottom};
    const int column[] = {0, 1, 2, 2, 2, 1, 0, 0}, row[] = {0, 0, 0, 1, 2, 2, 2, 1};
    return OnForm(xs[column[handle]], ys[row[handle]]);
  }

  MemoryPlatform platform;
  Container form{640, 400};
  DatePicker *picker1, *picker2;
  MonthCalendar* calendar;
  DateSelect* select;
  AnyEvent events;
  std::unique_ptr<FormDesigner> designer;
  int selectionChanges = 0;
  int formChanges = 0;
};

TEST_F(FormDesignerTest, NoInputReachesTheControlsUntilDesignModeEnds) {
  EXPECT_FALSE(picker1->Site().UserMode());
  Click(On(*picker1, 130, 10)); // the drop-down button
  Click(On(*picker1, 30, 10));
  EXPECT_EQ(designer->Selection(), Controls{picker1});
  EXPECT_EQ(platform.GetFocus(), form.hWnd());
  platform.Type("7");
  platform.Key(VK_DOWN, MemoryPlatform::AltKey);
  picker1->SetFocus(); // even a control a program focuses gets no key
  platform.Type("7");
  EXPECT_EQ(picker1->Value().ToDate(), DateSerial(2026, 11, 21));
  EXPECT_EQ(events.count, 0);
  EXPECT_EQ(selectionChanges, 1);

  size_t withHandles = platform.Children(form.hWnd()).size();
  designer.reset();
  EXPECT_TRUE(form.UserMode());
  EXPECT_EQ(platform.Children(form.hWnd()).size(), withHandles - 12);
  Click(On(*picker1, 30, 10));
  EXPECT_EQ(platform.GetFocus(), picker1->hWnd());
  platform.Key(VK_UP);
  EXPECT_NE(picker1->Value().ToDate(), DateSerial(2026, 11, 21));
}

TEST_F(FormDesignerTest, ClicksSelectAddTakeOutAndClear) {
  Click(On(*picker1, 5, 5));
  Click(On(*calendar, 100, 100), VK_SHIFT);
  Rect part = platform.GetWindowRect(platform.Children(select->hWnd()).back());
  Click({part.left + 2, part.top + 2}, VK_CONTROL); // a constituent stands for its control
  EXPECT_EQ(designer->Selection(), (Controls{picker1, calendar, select}));
  Click(On(*picker1, 5, 5), VK_CONTROL);
  EXPECT_EQ(designer->Selection(), (Controls{calendar, select}));
  Click(On(*calendar, 10, 10)); // a plain click on a selected control keeps the group
  EXPECT_EQ(designer->Selection(), (Controls{calendar, select}));
  Click(OnForm(600, 350));
  EXPECT_TRUE(designer->Selection().empty());
  EXPECT_EQ(selectionChanges, 5);
  DatePicker stray;
  EXPECT_EQ(RaisedNumber([&] { designer->Select(stray); }), 5);
}

TEST_F(FormDesignerTest, HandlesAndFrameShowAboveTheControls) {
  Click(On(*picker1, 5, 5));
  Click(On(*picker2, 5, 5), VK_SHIFT);
  std::unique_ptr<Canvas> screen = platform.ComposeScreen();
  for (const DatePicker* picker : {picker1, picker2}) {
    for (int handle = 0; handle < 8; ++handle) {
      Point c = HandleOf(*picker, handle); // a 6 x 6 square over the control's edge
      EXPECT_EQ(screen->GetPixel(c.x + 2, c.y + 2), FormDesigner::SelectionColor) << handle;
      EXPECT_EQ(screen->GetPixel(c.x - 3, c.y - 3), FormDesigner::SelectionColor) << handle;
      EXPECT_NE(screen->GetPixel(c.x - 4, c.y - 4), FormDesigner::SelectionColor) << handle;
    }
  }
  Point side = OnForm(50, 29); // the frame, just outside the top edge
  EXPECT_EQ(screen->GetPixel(side.x, side.y), FormDesigner::SelectionColor);
  EXPECT_NE(screen->GetPixel(side.x, side.y - 1), FormDesigner::SelectionColor);
  EXPECT_NE(screen->GetPixel(side.x, side.y + 1), FormDesigner::SelectionColor);

  Click(OnForm(600, 350));
  screen = platform.ComposeScreen();
  EXPECT_NE(screen->GetPixel(side.x, side.y), FormDesigner::SelectionColor);
}

TEST_F(FormDesignerTest, DragsMoveOnTheGridAndHandlesResize) {
  Click(On(*picker1, 5, 5));
  Click(On(*picker2, 5, 5), VK_SHIFT);
  Drag(On(*picker2, 10, 10), On(*picker2, 10 + 21, 10 - 3));
  EXPECT_EQ(Bounds(*picker1), (Rect{44, 30, 184, 51}));
  EXPECT_EQ(Bounds(*picker2), (Rect{224, 30, 364, 51}));
  EXPECT_GT(formChanges, 0);
  platform.KeyDown(VK_MENU); // Alt: single pixels
  Drag(On(*picker1, 10, 10), On(*picker1, 13, 12));
  platform.KeyUp(VK_MENU);
  EXPECT_EQ(Bounds(*picker1), (Rect{47, 32, 187, 53}));

  // One selected control's handles resize it.
  Click(OnForm(600, 350));
  Click(On(*picker1, 5, 5));
  Point corner = HandleOf(*picker1, 4);
  Drag(corner, {corner.x + 38, corner.y + 11});
  EXPECT_EQ(Bounds(*picker1), (Rect{47, 32, 227, 61}));
  Point left = HandleOf(*picker1, 7);
  Drag(left, {left.x - 16, left.y + 30}); // a side's handle moves only its side
  EXPECT_EQ(Bounds(*picker1), (Rect{31, 32, 227, 61}));
  Drag(HandleOf(*picker1, 3), OnForm(-100, 40)); // never past the other side
  EXPECT_EQ(Bounds(*picker1), (Rect{31, 32, 32, 61}));

  Click(On(*calendar, 5, 5));
  for (int handle : {0, 3, 4, 7}) {
    Point from = HandleOf(*calendar, handle);
    Drag(from, {from.x - 40, from.y + 24});
    EXPECT_EQ(Bounds(*calendar), (Rect{20, 100, 224, 280})) << handle;
  }

  // A size the control refuses goes to the form's error handler.
  std::vector<std::string> errors;
  form.SetErrorHandler([&](const std::string& name, const ControlError& error) {
    errors.push_back(name + " " + std::to_string(error.Number()));
  });
  designer->SetGrid(1);
  Click(On(*picker2, 5, 5));
  Rect before = Bounds(*picker2);
  Point right = HandleOf(*picker2, 3);
  Drag(right, {right.x + 80000, right.y});
  EXPECT_EQ(errors, std::vector<std::string>{"picker2 380"});
  EXPECT_EQ(Bounds(*picker2), before);
  EXPECT_EQ(RaisedNumber([&] { designer->SetGrid(0); }), 380);
}

TEST_F(FormDesignerTest, KeysNudgeResizeCycleDeleteAndAskForProperties) {
  std::vector<Controls> asked;
  designer->SetShowPropertiesHandler([&](const Controls& c) { asked.push_back(c); });
  Click(On(*picker1, 5, 5));
  Click(On(*calendar, 5, 5), VK_SHIFT);
  platform.Key(VK_RIGHT);
  platform.Key(VK_RIGHT);
  platform.Key(VK_UP);
  platform.Key(VK_RIGHT, MemoryPlatform::ShiftKey);
  platform.Key(VK_DOWN, MemoryPlatform::ShiftKey);
  EXPECT_EQ(Bounds(*picker1), (Rect{22, 29, 163, 51}));
  EXPECT_EQ(Bounds(*calendar), (Rect{22, 99, 226, 279}));
  platform.Key(VK_F4);

  // Tab goes on from the last selected control, in creation order, and round.
  platform.Key(VK_TAB);
  EXPECT_EQ(designer->Selection(), Controls{select});
  platform.Key(VK_TAB);
  EXPECT_EQ(designer->Selection(), Controls{picker1});
  platform.Key(VK_TAB, MemoryPlatform::ShiftKey);
  EXPECT_EQ(designer->Selection(), Controls{select});

  Point p = On(*picker2, 30, 10);
  platform.DoubleClick(p.x, p.y);
  EXPECT_EQ(asked, (std::vector<Controls>{{picker1, calendar}, {picker2}}));
  Click(On(*select, 5, 5), VK_SHIFT);
  int changes = formChanges;
  platform.Key(VK_DELETE);
  EXPECT_EQ(form.Count(), 2u);
  EXPECT_EQ(form.Find("picker2"), nullptr);
  EXPECT_EQ(form.Find("select1"), nullptr);
  EXPECT_TRUE(designer->Selection().empty());
  EXPECT_EQ(formChanges, changes + 1);
  for (HWND child : platform.Children(form.hWnd())) // no handle left showing
    EXPECT_TRUE(child == picker1->hWnd() || child == calendar->hWnd() ||
                !platform.IsWindowVisible(child));
  platform.Key(VK_F4); // nothing selected: nothing asked
  EXPECT_EQ(asked.size(), 2u);
}

TEST_F(FormDesignerTest, TheNewGeometryIsSavedAndALoadedFormLeavesTheSelection) {
  RegisterControlClass<DatePicker>("DatePicker");
  RegisterControlClass<MonthCalendar>("MonthCalendar");
  RegisterControlClass<DateSelect>("DateSelect");
  Click(On(*picker2, 5, 5));
  platform.Key(VK_LEFT);
  platform.Key(VK_DOWN, MemoryPlatform::ShiftKey);
  std::string saved = form.SaveToText();
  picker1->Disconnect(&events);
  picker1 = nullptr; // the loaded form has new controls

  form.LoadFromText(saved);
  designer->Update();
  EXPECT_TRUE(designer->Selection().empty());
  EXPECT_EQ(Bounds(*form.Find("picker2")), (Rect{199, 30, 339, 52}));
  EXPECT_EQ(form.Count(), 4u);
}

} // namespace
} // namespace tarnbrook
