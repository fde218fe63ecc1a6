#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "constituents/combo_list_x.hpp"
#include "host/container.hpp"
#include "platform/memory/memory_platform.hpp"
#include "tests/support/raised.hpp"

namespace tarnbrook {
namespace {

using Keys = std::vector<std::string>;

// Runs `onDrop` when the inner list is asked to drop, before it does.
struct DropSpy {
  static inline WNDPROC original = nullptr;
  static inline std::function<void()> onDrop;
  static LRESULT Proc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) {
    if (msg == CB_SHOWDROPDOWN && onDrop)
      onDrop();
    return Platform::Current().CallWindowProc(original, hwnd, msg, wParam, lParam);
  }
};

// A framed list of four seasons, 140 pixels wide on a form, as high as its font needs.
class ComboListXTest : public ::testing::Test, public ComboListXEvents {
protected:
  static constexpr int32_t Width = 140;

  ComboListXTest() {
    list = &static_cast<ComboListX&>(
        form.Add(std::make_unique<ComboListX>(), "cboSeason", 20, 30, Width, 21));
    list->Move(20, 30, Width, list->PreferredHeight());
    for (const char* season : {"Spring", "Summer", "Autumn", "Winter"})
      list->AddItem(season);
    list->Connect(this);
    form.ClearChangedKeys();
  }
  ~ComboListXTest() override { DropSpy::onDrop = nullptr; }
  void Click() override { ++clicks; }

  Point At(int32_t x, int32_t y) { return platform.ClientToScreen(list->hWnd(), {x, y}); }
  Point Button() { return At(Width - 8, list->ScaleHeight() / 2); }
  void PressButton() { platform.Click(Button().x, Button().y); }
  // The middle of the first dropped row, right below the control.
  Point FirstRow() { return At(40, list->ScaleHeight() + 1 + list->cbo().ItemHeight() / 2); }
  std::vector<COLORREF> ButtonFace() {
    std::vector<COLORREF> pixels;
    Canvas* canvas = platform.WindowCanvas(list->hWnd());
    for (int32_t y = 2; y < list->ScaleHeight() - 2; ++y)
      for (int32_t x = Width - 16; x < Width - 2; ++x)
        pixels.push_back(canvas->GetPixel(x, y));
    return pixels;
  }

  MemoryPlatform platform;
  Container form;
  ComboListX* list = nullptr;
  int clicks = 0;
};

TEST_F(ComboListXTest, APressShowsTheButtonPressedWhileTheListDropsBelowTheWholeControl) {
  const std::vector<COLORREF> raised = ButtonFace();
  std::vector<COLORREF> whileDropping;
  DropSpy::original = reinterpret_cast<WNDPROC>(platform.SetWindowLong(
      list->cbo().hWnd(), GWL_WNDPROC, reinterpret_cast<LONG_PTR>(&DropSpy::Proc)));
  DropSpy::onDrop = [&] { whileDropping = ButtonFace(); };
  PressButton();
  EXPECT_NE(whileDropping, raised);
  EXPECT_EQ(ButtonFace(), raised);
  ASSERT_TRUE(list->cbo().DroppedDown());

  const Rect frame = platform.GetWindowRect(list->hWnd());
  const Rect dropped = platform.GetWindowRect(platform.WindowFromPoint(FirstRow()));
  EXPECT_EQ(dropped.left, frame.left);
  EXPECT_EQ(dropped.right, frame.right);
  EXPECT_EQ(dropped.top, frame.bottom);
  PressButton(); // and a second press closes it
  EXPECT_FALSE(list->cbo().DroppedDown());
  EXPECT_EQ(clicks, 0);
}

TEST_F(ComboListXTest, ForwardedMembersReportTheirKeysAndPassTheListsErrorsThrough) {
  list->SetListIndex(1);
  list->SetText("winter");
  EXPECT_EQ(list->ListIndex(), 3);
  EXPECT_EQ(clicks, 2);

  ComboBox bare(form.hWnd());
  const auto same = [&](const std::function<void(ComboBox&)>& call,
                        const std::function<void()>& framed) {
    const ControlError expected = Raised([&] { call(bare); });
    const ControlError got = Raised(framed);
    EXPECT_NE(expected.Number(), 0);
    EXPECT_EQ(got.Number(), expected.Number());
    EXPECT_EQ(got.Source(), expected.Source());
    EXPECT_EQ(got.Description(), expected.Description());
  };
  same([](ComboBox& c) { c.List(99); }, [&] { list->List(99); });
  same([](ComboBox& c) { c.SetText("Fall"); }, [&] { list->SetText("Fall"); });
  EXPECT_EQ(list->ListIndex(), 3);

  EXPECT_EQ(form.ChangedKeys("cboSeason"), (Keys{"ListIndex", "Text"}));
}

// What is saved, and that only ButtonWidth and Enabled are, is held by the saved-forms fixture.
TEST_F(ComboListXTest, ADisabledListIsGreyedAndRefusesPressesAndUnknownStyles) {
  EXPECT_EQ(Raised([&] { list->SetButtonStyle(3); }).Description(), "Invalid ButtonStyle!");
  const std::vector<COLORREF> enabled = ButtonFace();
  list->SetEnabled(false);
  EXPECT_NE(ButtonFace(), enabled);
  PressButton();
  EXPECT_FALSE(list->cbo().DroppedDown());
  EXPECT_EQ(form.ChangedKeys("cboSeason"), Keys{"Enabled"});
}

} // namespace
} // namespace tarnbrook
