#include "picker_fixture.hpp"

#include "host/text_box.hpp"

namespace tarnbrook {
namespace {

// Fields of "MM/dd/yyyy": month 0, day 2, year 4; Sunday 15 June 2003 to start with.
class PickerEditTest : public PickerTest {
protected:
  static constexpr int32_t Month = 0, Day = 2, Year = 4;
  PickerEditTest() { Start(DateSerial(2003, 6, 15)); }
};

TEST_F(PickerEditTest, TypedDigitsCountAfter750msOrAtOnceWhenTheFieldIsLeft) {
  platform.Type("02");
  EXPECT_EQ(Shown(), "02/15/2003");
  EXPECT_EQ(Date(), DateSerial(2003, 6, 15));
  platform.Key(VK_RIGHT);
  EXPECT_EQ(Date(), DateSerial(2003, 2, 15));
  EXPECT_EQ(picker->CurrentField(), Day);
  EXPECT_EQ(log.Take(), Log{"Change"});

  platform.Key(VK_LEFT);
  platform.Type("13"); // no month 13
  platform.Advance(749);
  EXPECT_EQ(Shown(), "13/15/2003");
  platform.Advance(1);
  EXPECT_EQ(Shown(), "02/15/2003");
  EXPECT_EQ(log.Take(), Log{});
  EXPECT_EQ(ChangedKeys(), Log{"Value"});

  picker->SetMinDate(DateSerial(2000, 1, 1)); // typed values are clamped, never refused
  platform.Key(VK_RIGHT);
  platform.Key(VK_RIGHT);
  platform.Type("1999");
  platform.Advance(750);
  EXPECT_EQ(Date(), DateSerial(2000, 1, 1));
  EXPECT_EQ(log.Take(), Log{"Change"});
}

TEST_F(PickerEditTest, KeysMoveBetweenFieldsWithoutWrapAndStepWithinTheLimits) {
  picker->SetMaxDate(DateSerial(2003, 12, 31));
  platform.Key(VK_LEFT);
  EXPECT_EQ(picker->CurrentField(), Month);
  for (int key : {VK_DIVIDE, VK_DECIMAL, VK_OEM_2, VK_RIGHT}) // the last one finds no field
    platform.Key(key);
  EXPECT_EQ(picker->CurrentField(), Year);
  form.ClearChangedKeys();
  platform.Key(VK_UP);
  EXPECT_EQ(Date(), DateSerial(2003, 12, 31));
  EXPECT_EQ(log.Take(), Log{"Change"});
  EXPECT_EQ(ChangedKeys(), Log{"Value"});
  platform.Key(VK_DOWN);
  EXPECT_EQ(Date(), DateSerial(2002, 12, 31));

  for (int shift : {MemoryPlatform::ShiftKey, MemoryPlatform::CtrlKey})
    platform.Key(VK_UP, shift);
  platform.Key('Z', MemoryPlatform::CtrlKey);
  EXPECT_EQ(Date(), DateSerial(2002, 12, 31));
  EXPECT_EQ(log.Take(), Log{"Change"});
  // Only Shift alone or Ctrl alone block a key: both together step, as they always have.
  platform.Key(VK_UP, MemoryPlatform::ShiftKey | MemoryPlatform::CtrlKey);
  EXPECT_EQ(Date(), DateSerial(2003, 12, 31));
  EXPECT_EQ(log.Take(), Log{"Change"});
}

TEST_F(PickerEditTest, AnEmptyPickerTakesItsLastDateAgainWhenAKeyReachesIt) {
  picker->SetValue(Variant::Null());
  for (int ignored : {32, 20, 144}) // Space, Caps Lock, Num Lock
    platform.Key(ignored);
  platform.Key(VK_UP, MemoryPlatform::ShiftKey);
  EXPECT_TRUE(picker->Value().IsNull());
  platform.Key(VK_UP);
  EXPECT_EQ(Date(), DateSerial(2003, 7, 15));
  EXPECT_EQ(log.Take(), Log{"Change"});
  platform.Key(VK_DELETE); // the calendar's Empty button
  EXPECT_EQ(log.Take(), (Log{"EmptyClicked", "Change"}));
  EXPECT_TRUE(picker->Value().IsNull());
}

TEST_F(PickerEditTest, ReturnWithExitOnReturnOnlyMovesTheFocusToTheNextControl) {
  Control& next = form.Add(std::make_unique<TextBox>(), "Text1", Left, Top + 40, 100, 21);
  picker->SetValue(Variant::Null());
  log.withKeys = true;
  log.Take();
  platform.Key(VK_RETURN);
  EXPECT_EQ(platform.GetFocus(), picker->hWnd());
  picker->SetExitOnReturn(true);
  platform.Key(VK_RETURN);
  EXPECT_EQ(platform.GetFocus(), next.hWnd());
  // No Tab reaches the picker as a key; the key's release goes to the next control.
  EXPECT_EQ(log.Take(),
            (Log{"KeyDown 13 0", "KeyPress 13", "KeyUp 13 0", "KeyDown 13 0", "KeyPress 13"}));
  EXPECT_TRUE(picker->Value().IsNull());
}

TEST_F(PickerEditTest, CodeSetsTheValueWithinTheLimitsAndRaisesNoChange) {
  picker->SetValue(Variant::Date(DateSerial(2004, 2, 29) + 0.75));
  EXPECT_EQ(Shown(), "02/29/2004");
  EXPECT_EQ(picker->DateValue(), DateSerial(2004, 2, 29));
  EXPECT_EQ(picker->TimeValue(), 0.75);
  picker->SetMaxDate(DateSerial(2004, 1, 31)); // clamps the value
  EXPECT_EQ(Date(), DateSerial(2004, 1, 31));
  EXPECT_EQ(ChangedKeys(), (Log{"Value", "MaxDate"}));

  ControlError error = Raised([&] { picker->SetValue(Variant::Date(DateSerial(2004, 2, 1))); });
  EXPECT_EQ(error.Number(), 2050);
  EXPECT_EQ(error.Source(), "DatePicker");
  EXPECT_EQ(error.Description(), "The Date specified doesn't fall within the Min/Max Values");
  EXPECT_EQ(RaisedNumber([&] { picker->SetMinDate(DateSerial(2004, 2, 1)); }), 1068);
  EXPECT_EQ(RaisedNumber([&] { picker->SetMaxDate(DateSerial(1600, 1, 1)); }), 1070);
  EXPECT_EQ(Date(), DateSerial(2004, 1, 31));
  picker->SetValue("");
  EXPECT_TRUE(picker->Value().IsNull());
  EXPECT_EQ(log.Take(), Log{});
}

TEST_F(PickerEditTest, HoldingTheUpButtonRepeatsAfter750msThenEvery100msUntilThePointerLeaves) {
  picker->SetButton(dtpUpDown); // Up: x 124..140, y 0..10
  PressAt(130, 5);
  EXPECT_EQ(Date(), DateSerial(2003, 7, 15));
  platform.Advance(749);
  EXPECT_EQ(Date(), DateSerial(2003, 7, 15));
  platform.Advance(1);
  platform.Advance(200);
  EXPECT_EQ(Date(), DateSerial(2003, 10, 15));
  MoveTo(60, 5);
  platform.Advance(1000);
  ReleaseAt(60, 5);
  EXPECT_EQ(Date(), DateSerial(2003, 10, 15));
  EXPECT_EQ(log.Take(), (Log{"Change", "Change", "Change", "Change"}));
}

TEST_F(PickerEditTest, DraggingMoreThanTwoPixelsSteps) {
  const CDateMask& day = picker->Fields()[Day];
  const int32_t x = day.Left() + day.Width() / 2;
  PressAt(x, 10);
  EXPECT_EQ(picker->CurrentField(), Day);
  MoveTo(x, 12);
  EXPECT_EQ(Date(), DateSerial(2003, 6, 15));
  MoveTo(x, 13);
  EXPECT_EQ(Date(), DateSerial(2003, 6, 14));
  MoveTo(x, 9);
  ReleaseAt(x, 9);
  EXPECT_EQ(Date(), DateSerial(2003, 6, 15));
}

TEST_F(PickerEditTest, LockedRefusesTypingSteppingDraggingButtonsAndTheDropDown) {
  picker->SetButton(dtpBoth);
  picker->SetLocked(true);
  platform.Type("1");
  platform.Advance(750);
  for (int key : {VK_UP, VK_F4, VK_DELETE})
    platform.Key(key);
  PressAt(10, 10);
  MoveTo(10, 20);
  ReleaseAt(10, 20);
  for (int32_t x : {115, 130}) // Up, then the drop-down button
    ClickAt(x, 5);
  platform.Advance(1000);
  EXPECT_EQ(Date(), DateSerial(2003, 6, 15));
  EXPECT_FALSE(picker->IsDropped());
  EXPECT_EQ(log.Take(), Log{});
}

// A key, a typed digit or a press on a field paints the picker once.
TEST_F(PickerEditTest, OnePaintPerKeyDigitOrPress) {
  platform.PumpMessages();
  auto paints = [&, last = platform.PaintCount()]() mutable {
    return platform.PaintCount() - std::exchange(last, platform.PaintCount());
  };
  platform.Key(VK_UP);
  EXPECT_EQ(paints(), 1) << "Up";
  platform.Type("7");
  EXPECT_EQ(paints(), 1);
  platform.Key(VK_RIGHT);
  EXPECT_EQ(paints(), 1);
  ClickAt(4, 10);
  EXPECT_EQ(paints(), 1);
  picker->SetValue(Variant::Date(DateSerial(2020, 2, 3)));
  EXPECT_EQ(paints(), 1);
}

} // namespace
} // namespace tarnbrook
