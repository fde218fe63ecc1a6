// What the text box, check box and label share: the same refusals and the colours the
// saved-forms fixture leaves at their defaults.
#include "host/standard_controls.hpp"
#include "tests/host/standard_controls_fixture.hpp"

namespace tarnbrook {
namespace {

class ThreeControlsTest : public StandardControlsTest {
protected:
  TextBox& box = Add<TextBox>("txtCustomRange", 10, 10, 120, 21);
  CheckBox& check = Add<CheckBox>("chkCustom", 10, 40, 120, 17);
  Label& label = Add<Label>("lblFrom", 10, 70, 120, 16);
};

// No text a control keeps, and so measures, is longer than MaxTextBytes.
TEST_F(ThreeControlsTest, ValuesOutOfRangeAreRefusedWith380AndChangeNothing) {
  const std::string longest(MaxTextBytes, 'x'), longer(MaxTextBytes + 1, 'x');
  box.SetText("kept");
  check.SetValue(vbChecked);
  const std::vector<std::function<void()>> refused = {
      [&] { box.SetSelStart(-1); },   [&] { box.SetSelLength(-1); },
      [&] { box.SetMaxLength(-1); },  [&] { box.SetAlignment(3); },
      [&] { box.SetBorderStyle(2); }, [&] { box.SetText(longer); },
      [&] { check.SetValue(3); },     [&] { check.SetValue(-1); },
      [&] { check.SetAlignment(2); }, [&] { check.SetCaption(longer); },
      [&] { label.SetAlignment(3); }, [&] { label.SetCaption(longer); }};
  for (size_t i = 0; i < refused.size(); ++i) {
    SCOPED_TRACE(i);
    EXPECT_EQ(RaisedNumber(refused[i]), 380);
  }
  EXPECT_EQ(box.Text(), "kept");
  EXPECT_EQ(check.Value(), vbChecked);
  box.SetText(longest);
  check.SetCaption(longest);
  label.SetCaption(longest);
}

TEST_F(ThreeControlsTest, ColoursAndAGrayedCheckBoxAreSavedAndReadBack) {
  RegisterStandardControls();
  box.SetBackColor(0x123456);
  box.SetForeColor(vbHighlight);
  check.SetBackColor(0x234567);
  check.SetForeColor(0x0000FF);
  check.SetValue(vbGrayed);
  label.SetBackColor(0x345678);
  label.SetForeColor(0xFF0000);
  Container loaded;
  loaded.LoadFromText(form.SaveToText());
  using Colours = std::pair<OleColor, OleColor>;
  auto colours = [&]<class C>(const C&, const char* name) {
    const C& copy = dynamic_cast<const C&>(*loaded.Find(name));
    return Colours{copy.BackColor(), copy.ForeColor()};
  };
  EXPECT_EQ(colours(box, "txtCustomRange"), (Colours{0x123456, vbHighlight}));
  EXPECT_EQ(colours(check, "chkCustom"), (Colours{0x234567, 0x0000FF}));
  EXPECT_EQ(colours(label, "lblFrom"), (Colours{0x345678, 0xFF0000}));
  EXPECT_EQ(dynamic_cast<CheckBox&>(*loaded.Find("chkCustom")).Value(), vbGrayed);
}

} // namespace
} // namespace tarnbrook
