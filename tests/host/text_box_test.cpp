#include "host/standard_text.hpp"
#include "tests/host/standard_controls_fixture.hpp"

namespace tarnbrook {
namespace {

// One focused text box, 120 x 21, on a form; its events are logged.
class TextBoxTest : public StandardControlsTest {
protected:
  static constexpr int32_t Width = 120, Height = 21;
  static constexpr int32_t TextLeft = 4; // the sunken border and the margin

  TextBoxTest() : box(Add<TextBox>("txtCustomRange", 20, 30, Width, Height)) {
    box.Connect(&log);
    box.SetFocus();
    log.Take();
  }
  void Key(int key, int shift = 0) { platform.Key(key, shift); }
  // The x of the boundary before character `index` of the box's text, left aligned.
  int32_t EdgeX(int32_t index) { return TextLeft + CharacterEdges(box.Font(), box.Text())[index]; }
  std::string Selection() {
    return std::to_string(box.SelStart()) + "+" + std::to_string(box.SelLength());
  }
  // Whether column x shows the caret: window-text colour down the middle of the line.
  bool CaretAt(int32_t x) {
    for (int32_t y = 6; y < Height - 6; ++y)
      if (Pixel(box, x, y) != Sys(COLOR_WINDOWTEXT))
        return false;
    return true;
  }

  TextBox& box;
  StandardEventLog log;
};

TEST_F(TextBoxTest, TypingAndTheEditingKeysChangeTheTextOneChangeAtATime) {
  platform.Type("hello world");
  EXPECT_EQ(box.Text(), "hello world");
  EXPECT_EQ(log.changes, 11);
  EXPECT_EQ(box.CaretPosition(), 11);

  Key(VK_BACK);
  Key(VK_HOME);
  Key(VK_DELETE);
  EXPECT_EQ(box.Text(), "ello worl");
  Key(VK_RIGHT);
  Key(VK_RIGHT);
  Key(VK_RIGHT, MemoryPlatform::ShiftKey);
  Key(VK_RIGHT, MemoryPlatform::ShiftKey);
  EXPECT_EQ(box.SelText(), "lo");
  platform.Type("p"); // replaces the selection
  EXPECT_EQ(box.Text(), "elp worl");
  EXPECT_EQ(Selection(), "3+0");

  Key(VK_END, MemoryPlatform::ShiftKey);
  EXPECT_EQ(box.SelText(), " worl");
  Key(VK_LEFT); // a selection collapses to its start
  EXPECT_EQ(Selection(), "3+0");
  Key(VK_HOME, MemoryPlatform::ShiftKey);
  Key(VK_BACK);
  EXPECT_EQ(box.Text(), " worl");
  Key(VK_BACK); // nothing before the caret: no change
  EXPECT_EQ(log.changes, 11 + 4);

  // Keys that edit nothing reach the box without a change; control characters type nothing.
  for (int key : {VK_UP, VK_DOWN, VK_ESCAPE, VK_RETURN, VK_F4})
    Key(key);
  EXPECT_EQ(box.Text(), " worl");
  EXPECT_EQ(log.changes, 15);
}

TEST_F(TextBoxTest, ProgramSettingsRaiseChangeOnlyWhenTheTextChanges) {
  box.SetText("abc");
  box.SetText("abc");
  EXPECT_EQ(log.Take(), Log{"Change"});
  EXPECT_EQ(Selection(), "0+0");

  box.SetSelStart(1);
  box.SetSelLength(99); // clipped to the text
  EXPECT_EQ(box.SelText(), "bc");
  box.SetSelText("XYZ");
  EXPECT_EQ(box.Text(), "aXYZ");
  EXPECT_EQ(Selection(), "4+0");
  box.SetSelStart(99);
  EXPECT_EQ(Selection(), "4+0");
  box.SetSelText("");
  EXPECT_EQ(log.Take(), Log{"Change"});
}

TEST_F(TextBoxTest, PositionsCountWholeCharactersOfUtf8Text) {
  box.SetText("a\xC3\xB1"
              "b\xE2\x82\xAC"); // a ñ b €
  Key(VK_END);
  EXPECT_EQ(box.CaretPosition(), 4);
  Key(VK_BACK); // the whole euro sign
  EXPECT_EQ(box.Text(), "a\xC3\xB1"
                        "b");
  Key(VK_HOME);
  Key(VK_RIGHT);
  Key(VK_RIGHT, MemoryPlatform::ShiftKey);
  EXPECT_EQ(box.SelText(), "\xC3\xB1");
  EXPECT_EQ(Selection(), "1+1");
  platform.TypeChar('\xE9'); // a Latin-1 character arrives as its code
  EXPECT_EQ(box.Text(), "a\xC3\xA9"
                        "b");
  EXPECT_EQ(box.CaretPosition(), 2);
}

TEST_F(TextBoxTest, TheMouseSetsTheCaretAndDragsOrShiftClicksASelection) {
  box.SetText("one two three");
  const int32_t middle = Height / 2;
  hand.Click(box, EdgeX(4) + 1, middle);
  EXPECT_EQ(Selection(), "4+0");
  Drag(box, EdgeX(4), EdgeX(7) - 1, middle);
  EXPECT_EQ(box.SelText(), "two");
  Drag(box, EdgeX(7), EdgeX(4), middle); // backwards: the caret ends at the left
  EXPECT_EQ(Selection(), "4+3");
  EXPECT_EQ(box.CaretPosition(), 4);
  Drag(box, EdgeX(2), EdgeX(2), middle);
  Drag(box, EdgeX(13) + 30, EdgeX(13) + 30, middle, MemoryPlatform::ShiftKey);
  EXPECT_EQ(box.SelText(), "e two three");

  // A drag past the left edge runs to the start; a double click takes a word.
  Drag(box, EdgeX(9), -40, middle);
  EXPECT_EQ(box.SelText(), "one two t");
  Point word = hand.At(box, EdgeX(5), middle);
  platform.DoubleClick(word.x, word.y);
  EXPECT_EQ(box.SelText(), "two");
  EXPECT_EQ(log.changes, 1);
}

TEST_F(TextBoxTest, TheClipboardKeysCopyCutAndPasteOneLine) {
  const int ctrl = MemoryPlatform::CtrlKey;
  platform.Type("abc");
  Key('A', ctrl);
  Key('C', ctrl);
  EXPECT_EQ(ClipboardText(), "abc");
  Key(VK_END);
  Key('V', ctrl);
  EXPECT_EQ(box.Text(), "abcabc");
  Key(VK_LEFT, MemoryPlatform::ShiftKey);
  Key('X', ctrl);
  EXPECT_EQ(box.Text(), "abcab");
  EXPECT_EQ(ClipboardText(), "c");
  Key('C', ctrl); // nothing selected keeps the clipboard
  EXPECT_EQ(ClipboardText(), "c");

  SetClipboardText("first\r\nsecond");
  Key(VK_HOME);
  Key(VK_INSERT, MemoryPlatform::ShiftKey);
  EXPECT_EQ(box.Text(), "firstabcab");
  EXPECT_EQ(log.changes, 3 + 1 + 1 + 1);
}

TEST_F(TextBoxTest, MaxLengthStopsTypingAndPastingButNotTheProgram) {
  box.SetMaxLength(4);
  platform.Type("12345");
  EXPECT_EQ(box.Text(), "1234");
  EXPECT_EQ(platform.BeepCount(), 1);
  SetClipboardText("abc");
  box.SetSelStart(1);
  box.SetSelLength(2);
  platform.Key('V', MemoryPlatform::CtrlKey); // room for two after the selection goes
  EXPECT_EQ(box.Text(), "1ab4");
  EXPECT_EQ(platform.BeepCount(), 2);
  box.SetText("123456");
  EXPECT_EQ(box.Text(), "123456");
  Key(VK_END);
  platform.Type("7");
  EXPECT_EQ(box.Text(), "123456");
  Key(VK_BACK);
  EXPECT_EQ(box.Text(), "12345");

  // Without a MaxLength, typing stops at the longest text any control keeps.
  box.SetMaxLength(0);
  box.SetText(std::string(MaxTextBytes - 1, 'x'));
  const int beeps = platform.BeepCount();
  platform.Type("ab");
  EXPECT_EQ(box.Text().size(), MaxTextBytes);
  EXPECT_EQ(platform.BeepCount(), beeps + 1);
}

TEST_F(TextBoxTest, ALockedBoxSelectsAndCopiesButRefusesEveryEdit) {
  box.SetText("fixed");
  box.SetLocked(true);
  log.changes = 0;
  const int ctrl = MemoryPlatform::CtrlKey;
  Key(VK_END);
  Key(VK_LEFT, MemoryPlatform::ShiftKey);
  platform.Type("x");
  Key(VK_BACK);
  Key(VK_DELETE);
  Key('X', ctrl);
  Key('V', ctrl);
  Key('C', ctrl);
  EXPECT_EQ(box.Text(), "fixed");
  EXPECT_EQ(box.SelText(), "d");
  EXPECT_EQ(ClipboardText(), "d");
  EXPECT_EQ(log.changes, 0);
  EXPECT_EQ(platform.BeepCount(), 5);
}

TEST_F(TextBoxTest, TheCaretStaysInViewWhenTheTextIsWiderThanTheBox) {
  box.SetText("0123456789 0123456789 0123456789 0123456789");
  EXPECT_TRUE(CaretAt(TextLeft));
  Key(VK_END);
  const int32_t lastColumn = Width - TextLeft - 1;
  EXPECT_TRUE(CaretAt(lastColumn));
  EXPECT_FALSE(CaretAt(TextLeft));
  hand.Click(box, TextLeft + 1, Height / 2); // the start is scrolled away
  EXPECT_GT(box.SelStart(), 10);
  Key(VK_HOME);
  EXPECT_TRUE(CaretAt(TextLeft));
  hand.Click(box, lastColumn, Height / 2);
  EXPECT_LT(box.SelStart(), 30);
}

TEST_F(TextBoxTest, PaintShowsTheFocusColourTheSelectionAndTheAlignment) {
  // An owner recolours the box while it has the focus.
  struct FocusColour : TextBoxEvents {
    TextBox* box;
    void GotFocus() override { box->SetBackColor(0xB0FCB0); }
    void LostFocus() override { box->SetBackColor(vbWindowBackground); }
  } colour;
  colour.box = &box;
  box.Connect(&colour);
  TextBox& other = Add<TextBox>("Text2", 20, 60, Width, Height);
  box.SetText("abc");
  box.SetSelLength(3);
  other.SetFocus();
  EXPECT_EQ(Pixel(box, 3, 3), Sys(COLOR_WINDOW));
  EXPECT_EQ(Pixel(box, 0, 0), Sys(COLOR_BTNSHADOW)); // the sunken edge
  EXPECT_EQ(Pixel(box, Width - 1, Height - 1), Sys(COLOR_BTNHIGHLIGHT));

  box.SetFocus();
  EXPECT_EQ(Pixel(box, Width - 5, 3), 0xB0FCB0u);
  EXPECT_GT(Count(box, Sys(COLOR_HIGHLIGHT)), 3 * 10);
  box.SetShowFocusRect(true);
  EXPECT_NE(Pixel(box, 2, 2), Pixel(box, 3, 2)); // dotted

  other.SetFocus();
  EXPECT_EQ(Pixel(box, Width - 5, 3), Sys(COLOR_WINDOW));
  EXPECT_EQ(Count(box, Sys(COLOR_HIGHLIGHT)), 0); // the selection shows only with the focus

  const Rect inside{3, 3, Width - 3, Height - 3};
  Rect left = Ink(box, Sys(COLOR_WINDOW), inside);
  EXPECT_NEAR(left.left, TextLeft, 1); // the glyph's own bearing
  box.SetAlignment(2);
  Rect centred = Ink(box, Sys(COLOR_WINDOW), inside);
  EXPECT_NEAR(centred.left + centred.right, Width, 2);
  box.SetAlignment(1);
  Rect right = Ink(box, Sys(COLOR_WINDOW), inside);
  EXPECT_EQ(right.Width(), left.Width());
  EXPECT_GE(right.right, Width - TextLeft - 2);
  box.SetBorderStyle(0);
  EXPECT_EQ(Ink(box, Sys(COLOR_WINDOW), inside).right, right.right + 2); // same margin

  EXPECT_GT(Count(box, Sys(COLOR_WINDOWTEXT)), 0);
  box.SetEnabled(false);
  EXPECT_EQ(Count(box, Sys(COLOR_WINDOWTEXT)), 0);
  EXPECT_GT(Count(box, Sys(COLOR_GRAYTEXT)), 0);
}

// Edges come from one layout of the whole text: one per character boundary, growing, ending
// at the text's width, with bytes that are no UTF-8 counted as the characters they show as.
TEST_F(TextBoxTest, CharacterEdgesComeFromOneLayout) {
  const std::string text = "Wave \xC3\xA9t\xC3\xA9 AV\xFF!";
  const std::vector<int32_t> edges = CharacterEdges(box.Font(), text);
  ASSERT_EQ(edges.size(), 14u);
  EXPECT_TRUE(std::is_sorted(edges.begin(), edges.end()));
  EXPECT_NEAR(edges.back(), MeasureLine(box.Font(), text).cx, 1);
  EXPECT_NEAR(edges[4], MeasureLine(box.Font(), "Wave").cx, 1);
}

} // namespace
} // namespace tarnbrook
