#include "tests/host/standard_controls_fixture.hpp"
#include "tests/host/test_support.hpp"

namespace tarnbrook {
namespace {

// A composite whose two text boxes take the focus in its place; the second one is made
// only when asked, so that it comes after controls the form added in between.
class Pair : public Control {
public:
  explicit Pair(HWND parent) : Control(parent), first(hWnd()) {
    SetTabStop(false);
    first.Move(2, 2, 60, 21);
  }
  std::string ClassName() const override { return "Pair"; }
  void MakeSecond() {
    second = std::make_unique<TextBox>(hWnd());
    second->Move(70, 2, 60, 21);
  }
  TextBox first;
  std::unique_ptr<TextBox> second;
};

// A form in creation order: txtA, a hidden and a disabled text box, a label, the composite,
// a check box and a probe, with the composite's second box made last.
class FocusMovementTest : public StandardControlsTest {
protected:
  FocusMovementTest()
      : a(Add<TextBox>("txtA", 10, 10, 100, 21)),
        hidden(Add<TextBox>("txtHidden", 10, 40, 100, 21)),
        disabled(Add<TextBox>("txtDisabled", 10, 70, 100, 21)),
        label(Add<Label>("lblCaption", 10, 100, 100, 16)),
        pair(static_cast<Pair&>(form.Add(std::make_unique<Pair>(0), "pair", 10, 130, 140, 25))),
        check(Add<CheckBox>("chkOption", 10, 170, 100, 17)),
        probe(Add<ProbeControl>("probe", 10, 200, 50, 21)) {
    hidden.SetVisible(false);
    disabled.SetEnabled(false);
    label.SetCaption("Caption");
    pair.MakeSecond();
    a.SetFocus();
  }
  // Which control has the focus, by a short name.
  std::string Focused() {
    HWND focus = platform.GetFocus();
    const std::pair<const Control*, const char*> names[] = {
        {&a, "a"},        {&hidden, "hidden"},    {&disabled, "disabled"},       {&label, "label"},
        {&pair, "pair"},  {&pair.first, "first"}, {pair.second.get(), "second"}, {&check, "check"},
        {&probe, "probe"}};
    for (auto [control, name] : names)
      if (control->hWnd() == focus)
        return name;
    return "?";
  }
  Log TabThrough(int count, int shift = 0) {
    Log stops;
    for (int i = 0; i < count; ++i) {
      platform.Key(VK_TAB, shift);
      stops.push_back(Focused());
    }
    return stops;
  }

  TextBox& a;
  TextBox& hidden;
  TextBox& disabled;
  Label& label;
  Pair& pair;
  CheckBox& check;
  ProbeControl& probe;
};

TEST_F(FocusMovementTest, TabWalksTheTreeInCreationOrderAndWrapsBothWays) {
  EXPECT_EQ(TabThrough(6), (Log{"first", "second", "check", "probe", "a", "first"}));
  EXPECT_EQ(TabThrough(6, MemoryPlatform::ShiftKey),
            (Log{"a", "probe", "check", "second", "first", "a"}));

  // Whatever hides or disables a composite takes its constituents out of the order.
  pair.SetEnabled(false);
  EXPECT_EQ(TabThrough(2), (Log{"check", "probe"}));
  pair.SetEnabled(true);
  pair.SetVisible(false);
  hidden.SetVisible(true);
  check.SetTabStop(false);
  EXPECT_EQ(TabThrough(3), (Log{"a", "hidden", "probe"}));
}

TEST_F(FocusMovementTest, NoControlSeesTabAsItsKeyAndAPostedTabMovesTheFocusToo) {
  probe.SetFocus();
  probe.log.clear();
  platform.Key(VK_TAB);
  EXPECT_EQ(Focused(), "a");
  // The Tab's release reaches the control it arrived at, and nothing more.
  EXPECT_EQ(probe.log, Log{"LostFocus"});

  probe.SetFocus();
  probe.log.clear();
  platform.PostMessage(probe.hWnd(), WM_KEYDOWN, VK_TAB, 0);
  platform.PumpMessages();
  EXPECT_EQ(Focused(), "a");
  EXPECT_EQ(probe.log, Log{"LostFocus"});
  platform.Key(VK_TAB, MemoryPlatform::CtrlKey); // Ctrl+Tab is the control's own key
  EXPECT_EQ(Focused(), "a");
}

TEST_F(FocusMovementTest, ALabelNeverTakesTheFocusNorTriggersValidation) {
  StandardEventLog events;
  a.Connect(&events);
  label.SetTabStop(true);
  EXPECT_EQ(TabThrough(1), Log{"first"});
  a.SetFocus();
  hand.Click(label, 5, 5);
  EXPECT_EQ(Focused(), "a");
  EXPECT_EQ(events.Take(), (Log{"Validate", "LostFocus", "GotFocus"}));
}

TEST_F(FocusMovementTest, ARefusedValidationKeepsTheFocusFromTabsAndPresses) {
  StandardEventLog events("a");
  Log order;
  events.shared = &order;
  StandardEventLog checkEvents("check");
  checkEvents.shared = &order;
  a.Connect(&events);
  check.Connect(&checkEvents);
  events.refuse = true;

  platform.Key(VK_TAB);
  platform.Key(VK_TAB, MemoryPlatform::ShiftKey);
  hand.Click(check, 5, 8);
  EXPECT_EQ(Focused(), "a");
  EXPECT_EQ(check.Value(), vbUnchecked); // the press never reached the check box
  EXPECT_EQ(order, (Log{"a.Validate", "a.Validate", "a.Validate"}));

  // A control that does not cause validation is reached without asking.
  check.SetCausesValidation(false);
  hand.Click(check, 5, 8);
  EXPECT_EQ(Focused(), "check");
  EXPECT_EQ(check.Value(), vbChecked);
  order.clear();

  a.SetFocus();
  events.refuse = false;
  hand.Click(pair.first, 5, 5);
  EXPECT_EQ(Focused(), "first");
  a.SetFocus();
  order.clear();
  platform.Key(VK_TAB);
  EXPECT_EQ(Focused(), "first");
  EXPECT_EQ(order, (Log{"a.Validate", "a.LostFocus"}));
}

TEST_F(FocusMovementTest, ValidationAsksOnlyAboutControlsOfTheSameForm) {
  StandardEventLog events;
  events.refuse = true;
  a.Connect(&events);
  Container other;
  TextBox& elsewhere =
      static_cast<TextBox&>(other.Add(std::make_unique<TextBox>(), "txtOther", 0, 0, 80, 21));
  other.Add(std::make_unique<TextBox>(), "txtOther2", 0, 30, 80, 21);
  platform.SetWindowPos(other.hWnd(), 0, 300, 300, 200, 100, SWP_NOZORDER);
  hand.Click(elsewhere, 5, 5);
  EXPECT_EQ(platform.GetFocus(), elsewhere.hWnd());
  platform.Key(VK_TAB); // within the other form only
  EXPECT_NE(platform.GetFocus(), elsewhere.hWnd());
  EXPECT_EQ(platform.GetParent(platform.GetFocus()), other.hWnd());
  EXPECT_EQ(events.Take(), (Log{"LostFocus"}));
}

} // namespace
} // namespace tarnbrook
