#include <gtest/gtest.h>

#include <filesystem>

#include "common/ole_color.hpp"
#include "host/combo_box.hpp"
#include "host/container.hpp"
#include "platform/memory/memory_platform.hpp"
#include "tests/host/test_support.hpp"

namespace tarnbrook {
namespace {

const char* const Months[] = {"January",   "February", "March",    "April",
                              "May",       "June",     "July",     "August",
                              "September", "October",  "November", "December"};

class ComboBoxTest : public ::testing::Test, public ComboBoxEvents {
protected:
  ComboBoxTest() {
    combo = &static_cast<ComboBox&>(
        form.Add(std::make_unique<ComboBox>(), "cboMonth", 20, 30, 120, 21));
    combo->Connect(this);
  }
  void Click() override { ++clicks; }
  void Fill(int32_t count) {
    for (int32_t i = 0; i < count; ++i)
      combo->AddItem(Months[i]);
  }
  Point FieldPoint(int32_t x, int32_t y) { return platform.ClientToScreen(combo->hWnd(), {x, y}); }
  // The middle of list row `row`, right below the field.
  Point RowPoint(int32_t row) {
    return FieldPoint(90, combo->FieldHeight() + 1 + row * combo->ItemHeight() +
                              combo->ItemHeight() / 2);
  }
  COLORREF ScreenPixel(Point p) { return platform.ComposeScreen()->GetPixel(p.x, p.y); }
  void Open() { platform.SendMessage(combo->hWnd(), CB_SHOWDROPDOWN, 1, 0); }

  MemoryPlatform platform;
  Container form;
  ComboBox* combo;
  int clicks = 0;
};

TEST_F(ComboBoxTest, ListIndexAndTextRaiseClickOnlyOnAChangeAndRefuseBadValues) {
  Fill(3);
  combo->SetListIndex(1);
  combo->SetListIndex(1);
  EXPECT_EQ(clicks, 1);
  for (int32_t bad : {3, -2}) {
    ControlError error = Raised([&] { combo->SetListIndex(bad); });
    EXPECT_EQ(error.Number(), 380);
    EXPECT_EQ(error.Description(), "Invalid property value");
  }
  EXPECT_EQ(combo->ListIndex(), 1);
  EXPECT_EQ(combo->Text(), "February");

  combo->SetText("march"); // without regard to case
  EXPECT_EQ(combo->ListIndex(), 2);
  ControlError error = Raised([&] { combo->SetText("Smarch"); });
  EXPECT_EQ(error.Number(), 383);
  EXPECT_EQ(error.Description(), "'Text' property is read-only");
  combo->SetListIndex(-1);
  EXPECT_EQ(combo->Text(), "");
  EXPECT_EQ(clicks, 3);
}

TEST_F(ComboBoxTest, ItemsShiftTheSelectionAsTheyComeAndGo) {
  combo->AddItem("b");
  combo->AddItem("a", 0);
  EXPECT_EQ(combo->NewIndex(), 0);
  EXPECT_EQ(combo->List(1), "b");
  combo->SetItemData(1, 42);
  EXPECT_EQ(combo->ItemData(1), 42);
  EXPECT_EQ(RaisedNumber([&] { combo->AddItem("c", 3); }), 5);
  EXPECT_EQ(RaisedNumber([&] { combo->List(2); }), 381);
  EXPECT_EQ(RaisedNumber([&] { combo->ItemData(-1); }), 381);

  combo->SetListIndex(1); // "b"
  combo->AddItem("before", 0);
  EXPECT_EQ(combo->ListIndex(), 2);
  combo->RemoveItem(0);
  EXPECT_EQ(combo->ListIndex(), 1);
  EXPECT_EQ(combo->NewIndex(), -1);
  combo->RemoveItem(1);
  EXPECT_EQ(combo->ListIndex(), -1);
  EXPECT_EQ(RaisedNumber([&] { combo->RemoveItem(1); }), 5);
  EXPECT_EQ(clicks, 1); // only the assignment
  combo->SetListIndex(0);
  combo->Clear();
  EXPECT_EQ(combo->ListCount(), 0);
  EXPECT_EQ(combo->ListIndex(), -1);
}

TEST_F(ComboBoxTest, ShowDropDownMessageOpensTheListUnderTheFieldAndAClickPicks) {
  Fill(12);
  combo->SetListIndex(0);
  clicks = 0;
  Open();
  EXPECT_EQ(platform.SendMessage(combo->hWnd(), CB_GETDROPPEDSTATE, 0, 0), 1);
  Point border = FieldPoint(60, combo->FieldHeight());
  EXPECT_EQ(ScreenPixel(border), 0x000000u);
  EXPECT_EQ(ScreenPixel(RowPoint(0)), COLORREF(GetSysColor(COLOR_HIGHLIGHT))); // the selection
  EXPECT_EQ(ScreenPixel(RowPoint(7)), COLORREF(GetSysColor(COLOR_WINDOW)));
  // 8 rows, then the bottom line.
  EXPECT_EQ(ScreenPixel(FieldPoint(60, combo->FieldHeight() + 8 * combo->ItemHeight() + 1)), 0u);

  platform.MouseMove(RowPoint(3).x, RowPoint(3).y); // the highlight follows the mouse
  EXPECT_EQ(ScreenPixel(RowPoint(3)), COLORREF(GetSysColor(COLOR_HIGHLIGHT)));
  std::filesystem::create_directories(TARNBROOK_TEST_OUTPUT);
  platform.WriteScreenPng(std::string(TARNBROOK_TEST_OUTPUT) + "/combo_box_open.png");

  HWND list = platform.WindowFromPoint(RowPoint(3));
  EXPECT_EQ(platform.GetParent(list), 0u); // a top-level pop-up
  platform.Click(RowPoint(3).x, RowPoint(3).y);
  EXPECT_EQ(combo->ListIndex(), 3);
  EXPECT_EQ(clicks, 1);
  EXPECT_FALSE(combo->DroppedDown());
  EXPECT_FALSE(platform.IsWindowVisible(list));
  EXPECT_EQ(platform.GetCapture(), 0u);
}

// A press outside closes the list as every drop-down's does, and still reaches its target.
TEST_F(ComboBoxTest, EscapeTheFieldAndAnOutsidePressCloseWithoutAChangeReturnPicks) {
  Fill(5);
  auto& other = static_cast<ProbeControl&>(
      form.Add(std::make_unique<ProbeControl>(), "Other", 300, 30, 50, 20));
  combo->SetFocus();
  Open();
  platform.Key(VK_DOWN);
  platform.Key(VK_ESCAPE);
  EXPECT_FALSE(combo->DroppedDown());

  Point field = FieldPoint(10, 10); // a click on the field opens the list, a second closes it
  platform.Click(field.x, field.y);
  EXPECT_TRUE(combo->DroppedDown());
  platform.Click(field.x, field.y);
  EXPECT_FALSE(combo->DroppedDown());

  platform.Click(field.x, field.y);
  Point outside = platform.ClientToScreen(other.hWnd(), {5, 5});
  platform.Click(outside.x, outside.y);
  EXPECT_FALSE(combo->DroppedDown());
  EXPECT_EQ(other.log.back(), "MouseUp 1 0 5,5");
  EXPECT_EQ(clicks, 0);

  combo->SetFocus();
  platform.Key(VK_F4);
  platform.Key(VK_DOWN);
  platform.Key(VK_DOWN);
  platform.Key(VK_RETURN);
  EXPECT_FALSE(combo->DroppedDown());
  EXPECT_EQ(combo->ListIndex(), 1);
  EXPECT_EQ(clicks, 1);
}

// As the month calendar does: its press opens the list, which must outlast the release.
TEST_F(ComboBoxTest, ListOpenedDuringAnotherControlsPressStaysOpenAfterTheRelease) {
  Fill(3);
  Control& owner = form.Add(std::make_unique<ProbeControl>(), "Owner", 200, 30, 100, 40);
  Point press = platform.ClientToScreen(owner.hWnd(), {5, 5});
  platform.MouseDown(VK_LBUTTON, press.x, press.y);
  Open();
  platform.MouseUp(VK_LBUTTON, press.x, press.y);
  EXPECT_TRUE(combo->DroppedDown());
  platform.Click(RowPoint(2).x, RowPoint(2).y);
  EXPECT_EQ(combo->ListIndex(), 2);
}

TEST_F(ComboBoxTest, ScrollBarPressesScrollTheRowsAndKeepTheListOpen) {
  Fill(12);
  Open();
  Point downArrow = FieldPoint(120 - 9, combo->FieldHeight() + 8 * combo->ItemHeight() - 4);
  for (int i = 0; i < 5; ++i) // one more than there is to scroll
    platform.Click(downArrow.x, downArrow.y);
  EXPECT_TRUE(combo->DroppedDown());
  platform.Click(RowPoint(0).x, RowPoint(0).y);
  EXPECT_EQ(combo->Text(), "May");
}

TEST_F(ComboBoxTest, KeysMoveTheSelectionOfTheClosedList) {
  Fill(4);
  combo->SetFocus();
  platform.Key(VK_DOWN);
  EXPECT_EQ(combo->ListIndex(), 0);
  platform.Key(VK_END);
  platform.Key(VK_DOWN); // already last: no change, no Click
  EXPECT_EQ(combo->ListIndex(), 3);
  platform.Key(VK_UP);
  platform.Key(VK_HOME);
  EXPECT_EQ(combo->ListIndex(), 0);
  EXPECT_EQ(clicks, 4);
  platform.Key(VK_DOWN, MemoryPlatform::AltKey);
  EXPECT_TRUE(combo->DroppedDown());
}

TEST_F(ComboBoxTest, HeightGivenByMoveBoundsTheListAndTheWorkAreaPlacesIt) {
  Fill(12);
  combo->Move(20, 30, 120, 350);
  EXPECT_EQ(combo->ScaleHeight(), combo->FieldHeight());
  Open();
  Rect list = platform.GetWindowRect(platform.WindowFromPoint(RowPoint(0)));
  EXPECT_EQ(list.Height(), 12 * combo->ItemHeight() + 2);
  EXPECT_EQ(list.Width(), 120);
  combo->ShowDropDown(false);

  combo->Move(20, 300, 120, 21);
  Rect field = platform.GetWindowRect(combo->hWnd());
  platform.SetWorkArea({0, 0, 1024, field.bottom + 50});
  Open();
  list = platform.GetWindowRect(platform.WindowFromPoint(FieldPoint(30, -10)));
  EXPECT_EQ(list.bottom, field.top);
  EXPECT_EQ(list.Height(), 8 * combo->ItemHeight() + 2);
}

TEST_F(ComboBoxTest, FocusedFieldShowsItsTextSelected) {
  Fill(2);
  combo->SetListIndex(1);
  Point inside = FieldPoint(4, combo->FieldHeight() / 2);
  EXPECT_EQ(ScreenPixel(inside), COLORREF(GetSysColor(COLOR_WINDOW)));
  combo->SetFocus();
  EXPECT_EQ(ScreenPixel(inside), COLORREF(GetSysColor(COLOR_HIGHLIGHT)));
}

} // namespace
} // namespace tarnbrook
