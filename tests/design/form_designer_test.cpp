#include <gtest/gtest.h>

#include <filesystem>
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

// Every event a picker raises, by name: in design mode there should be none.
class AnyEvent : public DatePickerEvents {
public:
  std::vector<std::string> events;
  void Change() override { events.push_back("Change"); }
  void MouseDown(int16_t, int16_t, float, float) override { events.push_back("MouseDown"); }
  void MouseMove(int16_t, int16_t, float, float) override { events.push_back("MouseMove"); }
  void MouseUp(int16_t, int16_t, float, float) override { events.push_back("MouseUp"); }
  void KeyDown(int16_t&, int16_t) override { events.push_back("KeyDown"); }
  void KeyPress(int16_t&) override { events.push_back("KeyPress"); }
  void KeyUp(int16_t&, int16_t) override { events.push_back("KeyUp"); }
  void BeforeCalendarDropDown(bool&) override { events.push_back("BeforeCalendarDropDown"); }
};

// A form of two pickers side by side, a calendar and a date selection, in design mode.
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
  Point On(const Control& control, int32_t x, int32_t y) {
    return platform.ClientToScreen(control.hWnd(), {x, y});
  }
  void Click(Point p) { platform.Click(p.x, p.y); }
  void Drag(Point from, Point to) {
    platform.MouseDown(VK_LBUTTON, from.x, from.y);
    platform.MouseMove((from.x + to.x) / 2, (from.y + to.y) / 2);
    platform.MouseMove(to.x, to.y);
    platform.MouseUp(VK_LBUTTON, to.x, to.y);
  }
  void WithKey(int key, const std::function<void()>& action) {
    platform.KeyDown(key);
    action();
    platform.KeyUp(key);
  }

  // A control's place on the form, in its client coordinates.
  Rect Bounds(const Control& control) {
    Rect w = platform.GetWindowRect(control.hWnd());
    Point p = platform.ScreenToClient(form.hWnd(), {w.left, w.top});
    return {p.x, p.y, p.x + w.Width(), p.y + w.Height()};
  }
  // The centre of a handle (0 the top left corner, clockwise) of a selected control, as a
  // screen point.
  Point HandleOf(const Control& control, int handle) {
    Rect r = Bounds(control);
    const int32_t xs[] = {r.left - 1, r.left + r.Width() / 2, r.right};
    const int32_t ys[] = {r.top - 1, r.top + r.Height() / 2, r.bottom};
    const int column[] = {0, 1, 2, 2, 2, 1, 0, 0}, row[] = {0, 0, 0, 1, 2, 2, 2, 1};
    return OnForm(xs[column[handle]], ys[row[handle]]);
  }
  std::vector<Control*> Selected(std::initializer_list<Control*> controls) { return controls; }

  MemoryPlatform platform;
  Container form{640, 400};
  DatePicker* picker1;
  DatePicker* picker2;
  MonthCalendar* calendar;
  DateSelect* select;
  AnyEvent events;
  std::unique_ptr<FormDesigner> designer;
  int selectionChanges = 0;
  int formChanges = 0;
};

TEST_F(FormDesignerTest, ControlsTakeNoInputAndAClickSelectsWithoutFocusing) {
  EXPECT_FALSE(picker1->Site().UserMode());
  // The drop-down button, the day field, then keys that would change the value.
  Click(On(*picker1, 130, 10));
  Click(On(*picker1, 30, 10));
  EXPECT_EQ(designer->Selection(), Selected({picker1}));
  EXPECT_EQ(platform.GetFocus(), form.hWnd());
  platform.Type("7");
  platform.Key(VK_UP, MemoryPlatform::AltKey);
  platform.Key(VK_F4, MemoryPlatform::AltKey);
  EXPECT_EQ(picker1->Value().ToDate(), DateSerial(2026, 11, 21));
  EXPECT_EQ(events.events, std::vector<std::string>{});
  EXPECT_EQ(selectionChanges, 1);

  // Even a control that a program focuses gets no key.
  picker1->SetFocus();
  platform.Type("7");
  EXPECT_EQ(events.events, std::vector<std::string>{});
  EXPECT_EQ(platform.GetFocus(), form.hWnd());
}

TEST_F(FormDesignerTest, ShiftAndCtrlClicksAddAndTakeOutAndTheEmptyFormClears) {
  Click(On(*picker1, 5, 5));
  WithKey(VK_SHIFT, [&] { Click(On(*calendar, 100, 100)); });
  // A constituent stands for the control it is part of.
  std::vector<HWND> parts = platform.Children(select->hWnd());
  ASSERT_FALSE(parts.empty());
  Rect part = platform.GetWindowRect(parts.back());
  WithKey(VK_CONTROL, [&] { platform.Click(part.left + 2, part.top + 2); });
  EXPECT_EQ(designer->Selection(), Selected({picker1, calendar, select}));

  WithKey(VK_CONTROL, [&] { Click(On(*picker1, 5, 5)); });
  EXPECT_EQ(designer->Selection(), Selected({calendar, select}));
  // A plain click on a selected control keeps the group, to drag it.
  Click(On(*calendar, 10, 10));
  EXPECT_EQ(designer->Selection(), Selected({calendar, select}));
  Click(OnForm(600, 350));
  EXPECT_TRUE(designer->Selection().empty());
  EXPECT_EQ(selectionChanges, 5);

  EXPECT_EQ(RaisedNumber([&] {
              DatePicker stray;
              designer->Select(stray);
            }),
            5);
}

TEST_F(FormDesignerTest, HandlesAndFrameShowAboveTheControlsOnTheScreen) {
  Click(On(*picker1, 5, 5));
  WithKey(VK_SHIFT, [&] { Click(On(*picker2, 5, 5)); });
  std::unique_ptr<Canvas> screen = platform.ComposeScreen();
  for (const DatePicker* picker : {picker1, picker2}) {
    for (int handle = 0; handle < 8; ++handle) {
      Point centre = HandleOf(*picker, handle);
      EXPECT_EQ(screen->GetPixel(centre.x, centre.y), FormDesigner::SelectionColor) << handle;
      // Inside the control's own edge, and two pixels out where the square still reaches.
      EXPECT_EQ(screen->GetPixel(centre.x + 2, centre.y + 2), FormDesigner::SelectionColor);
      EXPECT_EQ(screen->GetPixel(centre.x - 3, centre.y - 3), FormDesigner::SelectionColor);
      EXPECT_NE(screen->GetPixel(centre.x - 4, centre.y - 4), FormDesigner::SelectionColor);
    }
  }
  // The frame runs along the sides between the handles, just outside the control.
  Rect r = Bounds(*picker1);
  Point side = OnForm(r.left + 30, r.top - 1);
  EXPECT_EQ(screen->GetPixel(side.x, side.y), FormDesigner::SelectionColor);
  EXPECT_NE(screen->GetPixel(side.x, side.y - 1), FormDesigner::SelectionColor);
  EXPECT_NE(screen->GetPixel(side.x, side.y + 1), FormDesigner::SelectionColor);
  Point unselected = HandleOf(*calendar, 0);
  EXPECT_NE(screen->GetPixel(unselected.x, unselected.y), FormDesigner::SelectionColor);
  std::filesystem::create_directories(std::string(TARNBROOK_TEST_OUTPUT) + "/design");
  platform.WriteScreenPng(std::string(TARNBROOK_TEST_OUTPUT) + "/design/selection.png");

  Click(OnForm(600, 350));
  screen = platform.ComposeScreen();
  Point gone = HandleOf(*picker1, 0);
  EXPECT_NE(screen->GetPixel(gone.x, gone.y), FormDesigner::SelectionColor);
}

TEST_F(FormDesignerTest, DraggingMovesTheSelectionByWholeGridSteps) {
  Click(On(*picker1, 5, 5));
  WithKey(VK_SHIFT, [&] { Click(On(*picker2, 5, 5)); });
  Drag(On(*picker2, 10, 10), On(*picker2, 10 + 21, 10 - 3));
  EXPECT_EQ(Bounds(*picker1), (Rect{44, 30, 184, 51}));
  EXPECT_EQ(Bounds(*picker2), (Rect{224, 30, 364, 51}));
  EXPECT_GT(formChanges, 0);
  EXPECT_EQ(picker1->Value().ToDate(), DateSerial(2026, 11, 21));

  // Alt held, or a grid of 1, moves by single pixels; a press on an unselected control
  // selects it alone and drags it.
  WithKey(VK_MENU, [&] { Drag(On(*picker1, 10, 10), On(*picker1, 13, 12)); });
  EXPECT_EQ(Bounds(*picker1), (Rect{47, 32, 187, 53}));
  designer->SetGrid(1);
  Drag(On(*calendar, 50, 50), On(*calendar, 45, 51));
  EXPECT_EQ(designer->Selection(), Selected({calendar}));
  EXPECT_EQ(Bounds(*calendar), (Rect{15, 101, 219, 281}));
  EXPECT_EQ(RaisedNumber([&] { designer->SetGrid(0); }), 380);
}

TEST_F(FormDesignerTest, HandleDragsResizeAndTheCalendarKeepsItsSize) {
  Click(On(*picker1, 5, 5));
  Point rightBottom = HandleOf(*picker1, 4);
  Drag(rightBottom, {rightBottom.x + 38, rightBottom.y + 11});
  EXPECT_EQ(Bounds(*picker1), (Rect{20, 30, 200, 59}));
  Point left = HandleOf(*picker1, 7);
  Drag(left, {left.x - 16, left.y + 30}); // the side handle moves only its side
  EXPECT_EQ(Bounds(*picker1), (Rect{4, 30, 200, 59}));
  Point handleAfter = HandleOf(*picker1, 7);
  std::unique_ptr<Canvas> screen = platform.ComposeScreen();
  EXPECT_EQ(screen->GetPixel(handleAfter.x, handleAfter.y), FormDesigner::SelectionColor);
  // A side is never dragged past the other.
  Drag(HandleOf(*picker1, 3), OnForm(-100, 40));
  EXPECT_EQ(Bounds(*picker1), (Rect{4, 30, 5, 59}));

  Click(On(*calendar, 5, 5));
  for (int handle : {0, 3, 4, 7}) {
    Point from = HandleOf(*calendar, handle);
    Drag(from, {from.x - 40, from.y + 24});
    EXPECT_EQ(Bounds(*calendar), (Rect{20, 100, 224, 280})) << handle;
  }
}

TEST_F(FormDesignerTest, ARefusedSizeGoesToTheErrorHandler) {
  std::vector<std::string> errors;
  form.SetErrorHandler([&](const std::string& name, const ControlError& error) {
    errors.push_back(name + " " + std::to_string(error.Number()));
  });
  designer->SetGrid(1);
  Click(On(*picker2, 5, 5));
  Point right = HandleOf(*picker2, 3);
  platform.MouseDown(VK_LBUTTON, right.x, right.y);
  platform.MouseMove(right.x + 40000, right.y);
  platform.MouseUp(VK_LBUTTON, right.x + 40000, right.y);
  EXPECT_EQ(errors, std::vector<std::string>{"picker2 380"});
  EXPECT_EQ(Bounds(*picker2), (Rect{200, 30, 340, 51}));
}

TEST_F(FormDesignerTest, KeysNudgeResizeCycleAndDelete) {
  Click(On(*picker1, 5, 5));
  WithKey(VK_SHIFT, [&] { Click(On(*calendar, 5, 5)); });
  platform.Key(VK_RIGHT);
  platform.Key(VK_RIGHT);
  platform.Key(VK_UP);
  EXPECT_EQ(Bounds(*picker1), (Rect{22, 29, 162, 50}));
  EXPECT_EQ(Bounds(*calendar), (Rect{22, 99, 226, 279}));
  platform.Key(VK_RIGHT, MemoryPlatform::ShiftKey);
  platform.Key(VK_DOWN, MemoryPlatform::ShiftKey);
  EXPECT_EQ(Bounds(*picker1), (Rect{22, 29, 163, 51}));
  EXPECT_EQ(Bounds(*calendar), (Rect{22, 99, 226, 279}));

  // Tab goes on from the last selected control, in creation order, and round.
  platform.Key(VK_TAB);
  EXPECT_EQ(designer->Selection(), Selected({select}));
  platform.Key(VK_TAB);
  EXPECT_EQ(designer->Selection(), Selected({picker1}));
  platform.Key(VK_TAB, MemoryPlatform::ShiftKey);
  EXPECT_EQ(designer->Selection(), Selected({select}));
  platform.Key(VK_ESCAPE);
  EXPECT_TRUE(designer->Selection().empty());

  Click(On(*picker2, 5, 5));
  WithKey(VK_SHIFT, [&] { Click(On(*select, 5, 5)); });
  int changes = formChanges;
  platform.Key(VK_DELETE);
  EXPECT_EQ(form.Count(), 2u);
  EXPECT_EQ(form.Find("picker2"), nullptr);
  EXPECT_EQ(form.Find("select1"), nullptr);
  EXPECT_TRUE(designer->Selection().empty());
  EXPECT_EQ(formChanges, changes + 1);
  // Only the controls left and the hidden handles are on the form.
  for (HWND child : platform.Children(form.hWnd()))
    EXPECT_TRUE(child == picker1->hWnd() || child == calendar->hWnd() ||
                !platform.IsWindowVisible(child));
  platform.Key(VK_DELETE); // nothing selected: nothing happens
  EXPECT_EQ(form.Count(), 2u);
}

TEST_F(FormDesignerTest, DoubleClickAndF4AskForTheSelectionsProperties) {
  std::vector<std::vector<Control*>> asked;
  designer->SetShowPropertiesHandler([&](const std::vector<Control*>& c) { asked.push_back(c); });
  platform.Key(VK_F4); // nothing selected
  Point p = On(*calendar, 30, 60);
  platform.DoubleClick(p.x, p.y);
  WithKey(VK_SHIFT, [&] { Click(On(*picker2, 5, 5)); });
  platform.Key(VK_F4);
  ASSERT_EQ(asked.size(), 2u);
  EXPECT_EQ(asked[0], Selected({calendar}));
  EXPECT_EQ(asked[1], Selected({calendar, picker2}));
  EXPECT_EQ(calendar->Value(), DateSerial(2026, 11, 21)); // no day was clicked
}

TEST_F(FormDesignerTest, TheNewGeometryIsSavedAndALoadedFormLeavesTheSelection) {
  RegisterControlClass<DatePicker>("DatePicker");
  RegisterControlClass<MonthCalendar>("MonthCalendar");
  RegisterControlClass<DateSelect>("DateSelect");
  Click(On(*picker2, 5, 5));
  Drag(On(*picker2, 5, 5), On(*picker2, 5 + 16, 5 + 64));
  Point corner = HandleOf(*picker2, 4);
  Drag(corner, {corner.x + 24, corner.y + 8});
  platform.Key(VK_LEFT);
  std::string saved = form.SaveToText();
  picker1->Disconnect(&events);
  picker1 = nullptr; // the loaded form has new controls

  Container copy;
  copy.LoadFromText(saved);
  EXPECT_EQ(platform.GetWindowRect(copy.Find("picker2")->hWnd()).Width(), 164);
  form.LoadFromText(saved);
  designer->Update();
  EXPECT_TRUE(designer->Selection().empty());
  EXPECT_EQ(Bounds(*form.Find("picker2")), (Rect{215, 94, 379, 123}));
  EXPECT_EQ(form.Count(), 4u);
}

TEST_F(FormDesignerTest, LeavingDesignModeGivesTheControlsTheirInputBack) {
  Click(On(*picker1, 5, 5));
  size_t withHandles = platform.Children(form.hWnd()).size();
  designer.reset();
  EXPECT_TRUE(form.UserMode());
  EXPECT_EQ(platform.Children(form.hWnd()).size(), withHandles - 12);
  Click(On(*picker1, 30, 10));
  EXPECT_EQ(platform.GetFocus(), picker1->hWnd());
  platform.Key(VK_UP);
  EXPECT_NE(picker1->Value().ToDate(), DateSerial(2026, 11, 21));
  EXPECT_NE(events.events, std::vector<std::string>{});
}

} // namespace
} // namespace tarnbrook
