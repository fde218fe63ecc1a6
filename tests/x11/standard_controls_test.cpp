#include "host/container.hpp"
#include "host/standard_controls.hpp"
#include "tests/x11/x11_fixture.hpp"

namespace tarnbrook {
namespace {

// Answers the message box a refused validation shows, as a person would.
void AnswerTheBox(HWND, UINT, uintptr_t id, uint32_t) {
  Platform::Current().KillTimer(0, id);
  std::system("xdotool key Return");
}

// Refuses to let the focus go while its box holds no number above zero, saying so in a
// message box.
class NumberRequired : public TextBoxEvents {
public:
  explicit NumberRequired(TextBox& box) : box_(box) {}
  int refusals = 0;
  void Validate(bool& cancel) override {
    if (std::atoi(box_.Text().c_str()) > 0)
      return;
    Platform& platform = Platform::Current();
    platform.SetTimer(0, 0, 100, AnswerTheBox);
    platform.MessageBox(box_.hWnd(), "Please Enter a value greater than zero", "DateSelect",
                        MB_ICONINFORMATION);
    ++refusals;
    cancel = true;
  }

private:
  TextBox& box_;
};

TEST_F(X11Test, RealKeysTabThroughAFormAndTypeIntoATextBox) {
  Container form(300, 160, "Tabs");
  platform->SetWindowPos(form.hWnd(), 0, 100, 100, 300, 160, SWP_NOZORDER);
  auto& number =
      static_cast<TextBox&>(form.Add(std::make_unique<TextBox>(), "txtNumber", 10, 10, 80, 21));
  auto& today =
      static_cast<CheckBox&>(form.Add(std::make_unique<CheckBox>(), "chkToday", 10, 40, 120, 17));
  NumberRequired rule(number);
  number.Connect(&rule);
  platform->ProcessPendingEvents();
  Point inside = platform->ClientToScreen(number.hWnd(), {5, 10});
  Xdotool("mousemove " + std::to_string(inside.x) + " " + std::to_string(inside.y) + " click 1");
  ASSERT_TRUE(WaitFor([&] { return platform->GetFocus() == number.hWnd(); }));

  // An empty box keeps the focus from a Tab, after its message has been answered.
  Xdotool("key Tab");
  ASSERT_TRUE(WaitFor([&] { return rule.refusals == 1; }));
  platform->RunFor(100);
  EXPECT_EQ(platform->GetFocus(), number.hWnd());
  // So does a click on the check box, which never sees the press.
  Point box = platform->ClientToScreen(today.hWnd(), {5, 8});
  Xdotool("mousemove " + std::to_string(box.x) + " " + std::to_string(box.y) + " click 1");
  ASSERT_TRUE(WaitFor([&] { return rule.refusals == 2; }));
  platform->RunFor(100);
  EXPECT_EQ(platform->GetFocus(), number.hWnd());
  EXPECT_EQ(today.Value(), vbUnchecked);

  Xdotool("type 12");
  ASSERT_TRUE(WaitFor([&] { return number.Text() == "12"; }));
  Xdotool("key Tab");
  ASSERT_TRUE(WaitFor([&] { return platform->GetFocus() == today.hWnd(); }));
  Xdotool("key space");
  ASSERT_TRUE(WaitFor([&] { return today.Value() == vbChecked; }));
  Xdotool("key shift+Tab");
  ASSERT_TRUE(WaitFor([&] { return platform->GetFocus() == number.hWnd(); }));
  EXPECT_EQ(number.Text(), "12");
  EXPECT_EQ(rule.refusals, 2);
}

} // namespace
} // namespace tarnbrook
