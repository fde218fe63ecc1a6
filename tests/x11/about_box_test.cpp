#include "host/about_box.hpp"
#include "tests/x11/x11_fixture.hpp"

namespace tarnbrook {
namespace {

bool aboutWasOpen = false;

// Presses Return on the real keyboard while the box has it.
void PressReturnOnTheBox(HWND, UINT, uintptr_t id, uint32_t) {
  Platform::Current().KillTimer(0, id);
  aboutWasOpen = AboutBox::Current() != nullptr &&
                 Platform::Current().GetFocus() == AboutBox::Current()->hWnd();
  std::system("xdotool key Return");
}

TEST_F(X11Test, TheAboutBoxOnScreenWaitsUntilReturnClosesIt) {
  HWND form = NewWindow(100, 100, 300, 200, 0, "Owner");
  HWND field = NewWindow(10, 10, 50, 50, form);
  platform->SetFocus(field);
  platform->SetTimer(0, 0, 150, PressReturnOnTheBox);
  ShowAboutBox("MonthCalendar", field);
  EXPECT_TRUE(aboutWasOpen);
  EXPECT_EQ(AboutBox::Current(), nullptr);
  EXPECT_TRUE(platform->IsWindowEnabled(form));
  EXPECT_EQ(platform->GetFocus(), field);
}

} // namespace
} // namespace tarnbrook
