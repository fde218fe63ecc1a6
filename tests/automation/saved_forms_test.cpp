// Forms saved by earlier builds: one control of every class with its settings away from the
// defaults. A form opened and saved again keeps its bytes, and the same settings made afresh
// save to the same bytes, so no key, order, type or default can drift unnoticed.
// TARNBROOK_WRITE_FORMS=1 writes the files anew (only when a Part changes what is saved).
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <set>
#include <sstream>

#include "automation/class_factory.hpp"
#include "automation/type_library.hpp"
#include "automation_fixture.hpp"
#include "calendar/month_calendar.hpp"
#include "common/text.hpp"
#include "constituents/combo_list_x.hpp"
#include "constituents/number_spin.hpp"
#include "dateselect/date_select.hpp"
#include "host/check_box.hpp"
#include "host/control_registry.hpp"
#include "host/label.hpp"
#include "host/standard_controls.hpp"
#include "host/text_box.hpp"
#include "picker/date_picker.hpp"

namespace tarnbrook {
namespace {

const std::string Folder = TARNBROOK_TEST_SOURCE "/forms/";

Font Serif() {
  Font font;
  font.Name = "DejaVu Serif";
  font.Size = 11;
  font.Bold = true;
  return font;
}

auto Pixel() {
  return std::make_shared<Picture>(2, 1, std::vector<uint32_t>{0xFF0000FF, 0xFF00FF00});
}

void Calendar(MonthCalendar& c) {
  c.SetMinDate(DateSerial(2000, 1, 1));
  c.SetMaxDate(DateSerial(2030, 12, 31));
  c.SetValue(DateSerial(2020, 3, 4));
  c.SetFirstDayofWeek(vbMonday);
  c.SetEmptyButton(true);
  c.SetEmptyButtonCaption("Leer");
  c.SetTodayButtonCaption("Heute");
  c.SetActiveMonthColor(1);
  c.SetInactiveMonthColor(2);
  c.SetPresentDateColor(3);
  c.SetWeekDayColor(4);
  c.SetHeaderColor(-1);
  c.SetHeaderForeColor(5);
  c.SetBackColor(6);
  c.SetButtonStyle(2);
  c.SetBackDrawMode(3);
  c.SetBackgroundImage(Pixel());
  c.SetFont(Serif());
  c.SetHoverIcon(false);
  c.SetEnabled(false);
}

void Picker(DatePicker& p) {
  p.SetMinDate(DateSerial(1990, 1, 1));
  p.SetMaxDate(DateSerial(2040, 1, 1));
  p.SetValue(Variant::Date(DateSerial(2004, 5, 10) + TimeSerial(13, 14, 15)));
  p.SetAllowEmpty(true);
  p.SetCustomFormat("dd.MM.yyyy HH:mm");
  p.SetFormat(dtpCustom);
  p.SetChangeOnDrag(false);
  p.SetExitOnReturn(true);
  p.SetLocked(true);
  p.SetButton(3);
  p.SetButtonWidth(20);
  p.SetButtonStyle(1);
  p.SetBorderStyle(5);
  p.SetBackColor(7);
  p.SetForeColor(8);
  p.SetFocusColor(9);
  p.SetUseFocusColor(false);
  p.SetShowFocusRect(false);
  p.SetFont(Serif());
  p.SetCalendarAnimation(0);
  p.SetCalendarButtonStyle(2);
  p.SetCalendarBackColor(10);
  p.SetCalendarActiveMonthColor(11);
  p.SetCalendarInactiveMonthColor(12);
  p.SetCalendarHeaderColor(13);
  p.SetCalendarHeaderForeColor(14);
  p.SetCalendarPresentDateColor(15);
  p.SetCalendarWeekdayColor(16);
  p.SetCalendarFont(Serif());
  p.SetCalendarBackground(Pixel());
  p.SetCalendarBackDrawMode(2);
  p.SetCalendarHoverIcon(false);
  p.SetFirstDayofWeek(vbSaturday);
  p.SetTodayButtonCaption("Heute");
  p.SetEmptyButtonCaption("Leer");
  p.SetEnabled(false);
}

void Selector(DateSelect& d) {
  d.SetVisibleOptions(32767 & ~(1 << dtsToday));
  d.SetButtonWidth(20);
  d.SetShowFocusRect(false);
  d.SetFocusColor(17);
  d.SetUseFocusColor(true);
  d.SetButtonStyle(1);
  d.SetBorderStyle(1);
  d.SetSelectedYear(2001);
  d.SetFirstDayofWeek(vbMonday);
  d.SetInputFormat("dd.MM.yyyy");
  d.SetOperator("<");
  d.SetDisableSelection(true);
  d.SetDisableStartDate(true);
  d.SetDisableEndDate(true);
  d.SetDisableCustomSelection(true);
  d.SetSelection(dtsCustomRange);
  d.SetCustomSelection(dtsWeeks);
  d.SetCustomRange(4);
  d.SetFont(Serif());
  d.SetForeColor(18);
  d.SetBackColor(19);
  d.SetControlBackColor(20);
  d.SetSQLFieldName("OrderDate");
  d.SetSQLDateWrapper("#");
  d.SetSQLUseBETWEEN(false);
  d.SetSQLDateFormat("yyyy-mm-dd");
  d.SetSQLPrefix("SELECT * FROM Orders WHERE");
}

class SavedFormsTest : public AutomationTest {
protected:
  SavedFormsTest() {
    RegisterStandardControls();
    RegisterControlClass<NumberSpin>("NumberSpin");
    RegisterControlClass<ComboListX>("ComboListX");
  }

  // One control of each class, placed and set as a program would.
  std::string MadeAfresh() {
    Calendar(Place<MonthCalendar>("Tarnbrook.MonthCalendar", "Calendar1"));
    Picker(Place<DatePicker>("Tarnbrook.DatePicker", "Picker1"));
    Selector(Place<DateSelect>("Tarnbrook.DateSelect", "Select1"));
    auto& spin = Add<NumberSpin>("Spin1");
    spin.SetButtonWidth(12);
    spin.SetEnabled(false);
    spin.SetValue(1999); // these and the list's looks are not saved
    spin.SetButtonStyle(1);
    spin.SetBorderStyle(dtpBorderNone);
    auto& list = Add<ComboListX>("List1");
    list.SetButtonWidth(14);
    list.SetEnabled(false);
    list.SetButtonStyle(1);
    list.SetBorderStyle(dtpBorderNone);
    list.SetBackColor(22);
    list.AddItem("Unsaved");
    auto& text = Add<TextBox>("Text1");
    text.SetText("Hello\n\"quoted\" \xC3\xA9");
    text.SetMaxLength(40);
    text.SetLocked(true);
    text.SetAlignment(2);
    text.SetBorderStyle(0);
    text.SetFont(Serif());
    auto& check = Add<CheckBox>("Check1");
    check.SetCaption("Including today");
    check.SetValue(vbChecked);
    check.SetAlignment(1);
    auto& label = Add<Label>("Label1");
    label.SetCaption("From");
    label.SetAlignment(2);
    label.SetBackColor(21);
    auto& combo = Add<ComboBox>("Combo1");
    combo.AddItem("One");
    combo.AddItem("Two");
    combo.SetListIndex(1);
    return form->SaveToText();
  }
  template <class C> C& Add(const std::string& name) {
    return static_cast<C&>(form->Add(std::make_unique<C>(form->hWnd()), name, 5, 5, 120, 24));
  }
};

TEST_F(SavedFormsTest, EveryClassSavesTheBytesItSavedBefore) {
  const std::string path = Folder + "every_class.json";
  const std::string made = MadeAfresh();
  if (std::getenv("TARNBROOK_WRITE_FORMS"))
    std::ofstream(path, std::ios::binary) << made;
  std::stringstream saved;
  saved << std::ifstream(path, std::ios::binary).rdbuf();
  ASSERT_FALSE(saved.str().empty()) << path;
  EXPECT_EQ(made, saved.str());

  Container reopened(640, 480);
  reopened.LoadFromText(saved.str());
  EXPECT_EQ(reopened.SaveToText(), saved.str());
}

// Each class's saved keys as data: every one can be read back into the control, and no two
// share a key or a place in either order.
TEST_F(SavedFormsTest, EachClassesSavedKeysHaveOnePlaceAndAWayBackIn) {
  for (const ClassRegistration& registration : RegisteredClasses()) {
    const ClassInfo* info = FindClassInfo(registration.className);
    ASSERT_NE(info, nullptr) << registration.className;
    std::set<std::string> keys;
    std::set<int> reads, writes;
    for (const PropertyInfo& property : info->properties) {
      if (!property.saved.IsSaved())
        continue;
      SCOPED_TRACE(info->name + "." + property.name);
      EXPECT_TRUE(property.saved.load || property.CanAssign());
      EXPECT_FALSE(property.key.empty());
      std::string key = property.key; // a bag matches keys without regard to case
      std::transform(key.begin(), key.end(), key.begin(), [](char c) { return ToLowerAscii(c); });
      EXPECT_TRUE(keys.insert(key).second);
      EXPECT_TRUE(reads.insert(property.saved.read).second);
      EXPECT_TRUE(
          writes.insert(property.saved.write < 0 ? property.saved.read : property.saved.write)
              .second);
    }
    EXPECT_FALSE(keys.empty()) << info->name;
  }
}

// One font check for every control, before anything is stored; a mended name still saves
// and loads.
TEST_F(SavedFormsTest, EveryControlChecksAFontBeforeItStoresIt) {
  MadeAfresh();
  auto refuses = [&](const char* name, auto& control) {
    const Font before = control.Font();
    for (float size : {std::nanf(""), 1e30f, 0.0f, -8.0f}) {
      Font bad = Serif();
      bad.Size = size;
      EXPECT_EQ(RaisedNumber([&] { control.SetFont(bad); }), rtInvalidPropertyValue)
          << name << " " << size;
    }
    EXPECT_EQ(control.Font(), before) << name;
  };
  auto& select = static_cast<DateSelect&>(*form->Find("Select1"));
  refuses("Picker1", static_cast<DatePicker&>(*form->Find("Picker1")));
  refuses("Select1", select);
  refuses("Spin1", static_cast<NumberSpin&>(*form->Find("Spin1")));
  refuses("List1", static_cast<ComboListX&>(*form->Find("List1")));
  refuses("Text1", static_cast<TextBox&>(*form->Find("Text1")));
  refuses("Check1", static_cast<CheckBox&>(*form->Find("Check1")));
  refuses("Label1", static_cast<Label&>(*form->Find("Label1")));
  EXPECT_EQ(select.txtCustomRange().Font(), select.Font()); // no constituent took a bad one

  Font odd = Serif();
  odd.Name = "Serif\xFF";
  static_cast<Label&>(*form->Find("Label1")).SetFont(odd);
  Container reopened(640, 480);
  reopened.LoadFromText(form->SaveToText());
  EXPECT_EQ(static_cast<Label&>(*reopened.Find("Label1")).Font().Name, "Serif\xEF\xBF\xBD");
}

} // namespace
} // namespace tarnbrook
