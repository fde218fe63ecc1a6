#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "constituents/combo_list_x.hpp"
#include "host/container.hpp"
#include "host/control_registry.hpp"
#include "platform/memory/memory_platform.hpp"
#include "tests/support/raised.hpp"

namespace tarnbrook {
namespace {

using Keys = std::vector<std::string>;

const char* const Months[] = {"January",   "February", "March",    "April",
                              "May",       "June",     "July",     "August",
                              "September", "October",  "November", "December"};

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

// A framed month list of 140 pixels on a form, as high as its font needs.
class ComboListXTest : public ::testing::Test, public ComboListXEvents {
protected:
  static constexpr int32_t Width = 140;

  ComboListXTest() {
    list = &static_cast<ComboListX&>(
        form.Add(std::make_unique<ComboListX>(), "cboMonth", 20, 30, Width, 21));
    list->Move(20, 30, Width, list->PreferredHeight());
    for (const char* month : Months)
      list->AddItem(month);
    list->Connect(this);
    form.ClearChangedKeys();
  }
  ~ComboListXTest() override { DropSpy::onDrop = nullptr; }
  void Click() override { ++clicks; }

  Point At(int32_t x, int32_t y) { return platform.ClientToScreen(list->hWnd(), {x, y}); }
  Point Button() { return At(Width - 8, list->ScaleHeight() / 2); }
  void PressButton() { platform.Click(Button().x, Button().y); }
  // The middle of dropped row `row`, which starts right below the control.
  Point Row(int32_t row) {
    const int32_t itemHeight = list->cbo().ItemHeight();
    return At(40, list->ScaleHeight() + 1 + row * itemHeight + itemHeight / 2);
  }
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
  const Rect dropped = platform.GetWindowRect(platform.WindowFromPoint(Row(0)));
  EXPECT_EQ(dropped.left, frame.left);
  EXPECT_EQ(dropped.right, frame.right);
  EXPECT_EQ(dropped.top, frame.bottom);
  EXPECT_EQ(clicks, 0);
}

TEST_F(ComboListXTest, PickingByClickOrReturnRaisesClickOnce) {
  PressButton();
  platform.Click(Row(2).x, Row(2).y);
  EXPECT_FALSE(list->cbo().DroppedDown());
  EXPECT_EQ(list->Text(), "March");
  EXPECT_EQ(clicks, 1);

  PressButton(); // the keys reach the list through the frame
  platform.Key(VK_DOWN);
  platform.Key(VK_DOWN);
  platform.Key(VK_RETURN);
  EXPECT_FALSE(list->cbo().DroppedDown());
  EXPECT_EQ(list->ListIndex(), 4);
  EXPECT_EQ(clicks, 2);
  EXPECT_EQ(form.ChangedKeys("cboMonth"), Keys{}); // the user's pick is no property write
}

TEST_F(ComboListXTest, ForwardedMembersReportTheirKeysAndPassTheListsErrorsThrough) {
  list->SetListIndex(1);
  list->SetText("april");
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
  same([](ComboBox& c) { c.SetItemData(-1, 0); }, [&] { list->SetItemData(-1, 0); });
  same([](ComboBox& c) { c.RemoveItem(99); }, [&] { list->RemoveItem(99); });
  same([](ComboBox& c) { c.SetListIndex(99); }, [&] { list->SetListIndex(99); });
  same([](ComboBox& c) { c.SetText("Smarch"); }, [&] { list->SetText("Smarch"); });
  EXPECT_EQ(list->ListIndex(), 3);

  EXPECT_EQ(form.ChangedKeys("cboMonth"), (Keys{"ListIndex", "Text"}));
}

TEST_F(ComboListXTest, OwnPropertiesValidateReportAndReachTheInnerList) {
  ControlError error = Raised([&] { list->SetButtonStyle(3); });
  EXPECT_EQ(error.Number(), 5065);
  EXPECT_EQ(error.Source(), "Tarnbrook.DatePicker");
  EXPECT_EQ(error.Description(), "Invalid ButtonStyle!");
  EXPECT_EQ(list->ButtonStyle(), 0);
  list->SetButtonStyle(2);
  list->SetBorderStyle(dtpBorderNone);
  EXPECT_EQ(list->PreferredHeight(), list->cbo().FieldHeight());
  list->SetBackColor(0xE0FFFF);
  Font big = list->Font();
  big.Size = 14;
  list->SetFont(big); // the field grows with its font
  EXPECT_EQ(list->cbo().BackColor(), 0xE0FFFF);
  EXPECT_EQ(list->PreferredHeight(), list->cbo().FieldHeight());
  EXPECT_EQ(form.ChangedKeys("cboMonth"),
            (Keys{"ButtonStyle", "BorderStyle", "BackColor", "Font"}));
}

TEST_F(ComboListXTest, ANewListSavedAndReloadedKeepsOnlyButtonWidthAndEnabled) {
  MemoryPropertyBag fresh;
  list->WriteProperties(fresh);
  EXPECT_TRUE(fresh.Entries().empty());

  list->SetButtonWidth(20);
  list->SetEnabled(false);
  list->SetButtonStyle(1);
  list->SetBorderStyle(dtpBorderEtched);
  list->SetBackColor(0xE0FFFF);
  RegisterControlClass<ComboListX>("ComboListX");
  Container reloaded;
  reloaded.LoadFromText(form.SaveToText());
  auto& copy = static_cast<ComboListX&>(*reloaded.Find("cboMonth"));
  EXPECT_EQ(copy.ButtonWidth(), 20);
  EXPECT_FALSE(copy.Enabled());
  EXPECT_FALSE(copy.cbo().Enabled());
  EXPECT_EQ(copy.ButtonStyle(), 0);
  EXPECT_EQ(copy.BorderStyle(), dtpBorderSunken3D);
  EXPECT_EQ(copy.BackColor(), vbWindowBackground);
  EXPECT_EQ(copy.ListCount(), 0);
}

TEST_F(ComboListXTest, ADisabledListGreysItsButtonAndIgnoresPresses) {
  const std::vector<COLORREF> enabled = ButtonFace();
  list->SetEnabled(false);
  EXPECT_NE(ButtonFace(), enabled);
  PressButton();
  EXPECT_FALSE(list->cbo().DroppedDown());
}

} // namespace
} // namespace tarnbrook
