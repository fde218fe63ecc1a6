#include <functional>
#include <set>

#include "automation_fixture.hpp"
#include "calendar/month_calendar.hpp"
#include "dateselect/date_select.hpp"
#include "host/about_box.hpp"
#include "picker/date_picker.hpp"

namespace tarnbrook {
namespace {

TEST_F(AutomationTest, TheFactoryCreatesByProgIdOrClassIdAndListsItsClasses) {
  const auto& classes = RegisteredClasses();
  ASSERT_EQ(classes.size(), 3u);
  std::set<std::string> ids;
  for (const ClassRegistration& r : classes) {
    EXPECT_EQ(r.progId, "Tarnbrook." + r.className);
    EXPECT_EQ(r.version, "0.1.0");
    ASSERT_EQ(r.classId.size(), 38u); // {8-4-4-4-12}
    EXPECT_EQ(r.classId[9], '-');
    ids.insert(r.classId);
    // By ProgID in any case and by class id with or without braces: the same class.
    EXPECT_EQ(CreateObject(r.progId)->ClassName(), r.className);
    EXPECT_EQ(CreateObject(r.classId.substr(1, r.classId.size() - 2))->ClassName(), r.className);
    EXPECT_EQ(FindRegistration("tarnbrook." + r.className)->classId, r.classId);
    EXPECT_EQ(r.info, FindClassInfo(r.className));
  }
  EXPECT_EQ(ids.size(), 3u);
  ControlError unknown = Raised([] { CreateObject("Tarnbrook.CdtsOption"); });
  EXPECT_EQ(unknown.Number(), 429);
  EXPECT_EQ(FindRegistration("{00000000-0000-0000-0000-000000000000}"), nullptr);
}

// What a person does while the box is open, run from a timer of the modal loop.
std::function<void()> whileOpen;
void RunWhileOpen(HWND, UINT, uintptr_t, uint32_t) {
  auto action = std::move(whileOpen);
  whileOpen = nullptr;
  if (action)
    action();
}

class AboutBoxTest : public AutomationTest {
protected:
  // Calls About() by name on a new control; `action` runs 200 ms later with the box open.
  // Returns how many times the action ran.
  void AboutWhile(const std::string& progId, std::function<void(AboutBox&)> action) {
    Control& control = Place(progId, "Control" + std::to_string(count_++));
    opened = false;
    whileOpen = [this, action] {
      AboutBox* box = AboutBox::Current();
      ASSERT_NE(box, nullptr);
      opened = true;
      lines = box->Lines();
      formEnabledWhileOpen = platform.IsWindowEnabled(form->hWnd());
      action(*box);
    };
    platform.SetTimer(0, 77, 200, RunWhileOpen);
    uint32_t before = platform.GetTickCount();
    Dispatch(control).Call("About");
    elapsed = platform.GetTickCount() - before;
    platform.KillTimer(0, 77);
  }

  bool opened = false;
  bool formEnabledWhileOpen = true;
  uint32_t elapsed = 0;
  std::vector<std::string> lines;

private:
  int count_ = 0;
};

TEST_F(AboutBoxTest, ReturnEscapeAndOkCloseTheBoxButOtherKeysAndAPressDraggedOffOkDoNot) {
  bool stayedOpen = false;
  AboutWhile("Tarnbrook.MonthCalendar", [&](AboutBox& box) {
    platform.Key('A');
    platform.Key(VK_SPACE);
    Rect ok = box.OkButton();
    Point on = platform.ClientToScreen(box.hWnd(), {ok.left + 5, ok.top + 5});
    Point off = platform.ClientToScreen(box.hWnd(), {5, 5});
    platform.MouseDown(VK_LBUTTON, on.x, on.y);
    platform.MouseUp(VK_LBUTTON, off.x, off.y);
    stayedOpen = !box.Closed();
    // The box draws its OK button where it says it is.
    Canvas* canvas = platform.WindowCanvas(box.hWnd());
    ASSERT_NE(canvas, nullptr);
    EXPECT_NE(canvas->GetPixel(ok.right - 1, ok.bottom - 1), canvas->GetPixel(2, 2));
    platform.Key(VK_RETURN);
  });
  EXPECT_TRUE(opened && stayedOpen);
  EXPECT_GE(elapsed, 200u); // the caller waited for the box
  EXPECT_EQ(lines,
            (std::vector<std::string>{"Tarnbrook 0.1.0", "MonthCalendar control",
                                      "Date-entry controls", "Copyright (c) 2026 Tarnbrook"}));
  EXPECT_FALSE(formEnabledWhileOpen);
  EXPECT_TRUE(platform.IsWindowEnabled(form->hWnd()));
  EXPECT_EQ(AboutBox::Current(), nullptr);

  AboutWhile("Tarnbrook.DatePicker", [this](AboutBox&) { platform.Key(VK_ESCAPE); });
  EXPECT_TRUE(opened);
  EXPECT_EQ(lines.at(1), "DatePicker control");

  AboutWhile("Tarnbrook.DateSelect", [this](AboutBox& box) {
    Rect ok = box.OkButton();
    Point at = platform.ClientToScreen(box.hWnd(), {ok.left + 10, ok.top + 10});
    platform.Click(at.x, at.y);
  });
  EXPECT_TRUE(opened);
  EXPECT_EQ(lines.at(1), "DateSelect control");
}

} // namespace
} // namespace tarnbrook
