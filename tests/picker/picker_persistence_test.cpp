#include "common/property_bag.hpp"
#include "host/control_registry.hpp"
#include "host/persisted_objects.hpp"
#include "picker_fixture.hpp"

namespace tarnbrook {
namespace {

class PickerPersistenceTest : public PickerTest {
protected:
  PickerPersistenceTest() { RegisterControlClass<DatePicker>("DatePicker"); }

  // Every property away from its default, set as a host program would.
  void SetEverything() {
    Font font;
    font.Name = "DejaVu Sans";
    font.Size = 10;
    font.Bold = true;
    Font calendarFont;
    calendarFont.Name = "DejaVu Serif";
    calendarFont.Italic = true;
    picker->SetChangeOnDrag(false);
    picker->SetFont(font);
    picker->SetBackColor(RGB(250, 250, 210));
    picker->SetForeColor(RGB(0, 0, 128));
    picker->SetButton(dtpBoth);
    picker->SetButtonStyle(dtpButtonThin3D);
    picker->SetButtonWidth(18);
    picker->SetMaxDate(DateSerial(2030, 6, 30) + 0.75);
    picker->SetMinDate(DateSerial(1999, 1, 2) + 0.25);
    picker->SetValue(Variant::Date(DateSerial(2026, 11, 21) + TimeSerial(13, 14, 15)));
    picker->SetCustomFormat("'Week' d, MMMM yyyy hh:mm tt");
    picker->SetFocusColor(RGB(255, 255, 200));
    picker->SetShowFocusRect(false);
    picker->SetUseFocusColor(false);
    picker->SetLocked(true);
    picker->SetBorderStyle(dtpBorderEtched);
    picker->SetEnabled(false);
    picker->SetExitOnReturn(true);
    picker->SetCalendarAnimation(dtpAnimateRoll);
    picker->SetCalendarWeekdayColor(RGB(128, 0, 0));
    picker->SetCalendarFont(calendarFont);
    picker->SetCalendarBackDrawMode(mvwBackCentered);
    picker->SetCalendarBackground(
        std::make_shared<Picture>(2, 1, std::vector<uint32_t>{0xFF102030, 0xFFFFFFFF}));
    picker->SetCalendarButtonStyle(dtpButtonFlat);
    picker->SetAllowEmpty(false);
    picker->SetCalendarBackColor(RGB(255, 255, 240));
    picker->SetCalendarHeaderColor(OleColorNone);
    picker->SetCalendarHeaderForeColor(RGB(255, 255, 255));
    picker->SetCalendarActiveMonthColor(RGB(0, 64, 0));
    picker->SetCalendarInactiveMonthColor(RGB(160, 160, 160));
    picker->SetCalendarPresentDateColor(RGB(0, 0, 255));
    picker->SetFirstDayofWeek(vbMonday);
    picker->SetTodayButtonCaption("Now");
    picker->SetEmptyButtonCaption("");
    picker->SetCalendarHoverIcon(false);
    picker->SetFormat(dtpCustom);
  }

  static DatePicker& Loaded(const Container& form) {
    return static_cast<DatePicker&>(*form.Find(Name));
  }
};

// Every property of two pickers, one line each, so a difference names its property.
std::vector<std::string> Properties(DatePicker& p) {
  auto font = [](const Font& f) {
    return f.Name + " " + std::to_string(f.Size) + (f.Bold ? " bold" : "") +
           (f.Italic ? " italic" : "");
  };
  auto n = [](double v) { return std::to_string(v); };
  auto background = p.CalendarBackground();
  return {"ChangeOnDrag " + n(p.ChangeOnDrag()),
          "Font " + font(p.Font()),
          "BackColor " + n(p.BackColor()),
          "ForeColor " + n(p.ForeColor()),
          "Button " + n(p.Button()),
          "ButtonStyle " + n(p.ButtonStyle()),
          "ButtonWidth " + n(p.ButtonWidth()),
          "MaxDate " + n(p.MaxDate()),
          "MinDate " + n(p.MinDate()),
          "Value " + (p.Value().IsNull() ? "Null" : n(p.Value().ToDate())),
          "CustomFormat " + p.CustomFormat(),
          "FocusColor " + n(p.FocusColor()),
          "ShowFocusRect " + n(p.ShowFocusRect()),
          "UseFocusColor " + n(p.UseFocusColor()),
          "Locked " + n(p.Locked()),
          "BorderStyle " + n(p.BorderStyle()),
          "Enabled " + n(p.Enabled()),
          "ExitOnReturn " + n(p.ExitOnReturn()),
          "CalendarAnimation " + n(p.CalendarAnimation()),
          "CalendarWeekdayColor " + n(p.CalendarWeekdayColor()),
          "CalendarFont " + font(p.CalendarFont()),
          "CalendarBackDrawMode " + n(p.CalendarBackDrawMode()),
          "CalendarBackground " + (background ? n(background->Pixels().at(0)) : "none"),
          "CalendarButtonStyle " + n(p.CalendarButtonStyle()),
          "AllowEmpty " + n(p.AllowEmpty()),
          "CalendarBackColor " + n(p.CalendarBackColor()),
          "CalendarHeaderColor " + n(p.CalendarHeaderColor()),
          "CalendarHeaderForeColor " + n(p.CalendarHeaderForeColor()),
          "CalendarActiveMonthColor " + n(p.CalendarActiveMonthColor()),
          "CalendarInactiveMonthColor " + n(p.CalendarInactiveMonthColor()),
          "CalendarPresentDateColor " + n(p.CalendarPresentDateColor()),
          "FirstDayofWeek " + n(p.FirstDayofWeek()),
          "TodayButtonCaption " + p.TodayButtonCaption(),
          "EmptyButtonCaption " + p.EmptyButtonCaption(),
          "CalendarHoverIcon " + n(p.CalendarHoverIcon()),
          "Format " + n(p.Format())};
}

TEST_F(PickerPersistenceTest, AnEmptyBagGivesTheDefaultsAndAnEmptyPickerAtTheCurrentTime) {
  platform.SetNow(DateSerial(2027, 3, 4) + 0.25);
  MemoryPropertyBag empty;
  picker->ReadProperties(empty);
  EXPECT_EQ(picker->Format(), dtpShortDate);
  EXPECT_EQ(picker->BorderStyle(), dtpBorderSunken3D);
  EXPECT_EQ(picker->Button(), dtpDropDown);
  EXPECT_EQ(picker->ButtonWidth(), 16);
  EXPECT_TRUE(picker->AllowEmpty());
  EXPECT_TRUE(picker->ChangeOnDrag());
  EXPECT_FALSE(picker->ExitOnReturn());
  EXPECT_FALSE(picker->Locked());
  EXPECT_TRUE(picker->Value().IsNull());
  EXPECT_EQ(picker->MinDate(), DateSerial(1601, 1, 1));
  EXPECT_EQ(picker->MaxDate(), DateSerial(9999, 12, 31));
  EXPECT_EQ(picker->CalendarHeaderColor(), vbButtonFace);
  EXPECT_EQ(picker->EmptyButtonCaption(), "Empty");

  // The 16 pixels at the right are the drop-down button; it shows the time of loading.
  ClickAt(PickerWidth - 16, PickerHeight / 2);
  EXPECT_TRUE(picker->IsDropped());
  EXPECT_EQ(picker->Calendar().Value(), DateSerial(2027, 3, 4) + 0.25);
}

TEST_F(PickerPersistenceTest, TheCalendarKeysKeepTheirOldNamesAndBooleansMayBeNumbers) {
  MemoryPropertyBag bag;
  bag.WriteProperty("BackDrawMode", int32_t(2));
  bag.WriteProperty("CalendarBackDrawMode", int32_t(3));
  bag.WriteProperty("hovericon", int32_t(0));
  bag.WriteProperty("CalendarHoverIcon", true);
  bag.WriteProperty("Locked", int32_t(-1));
  picker->ReadProperties(bag);
  EXPECT_EQ(picker->CalendarBackDrawMode(), 2);
  EXPECT_FALSE(picker->CalendarHoverIcon());
  EXPECT_TRUE(picker->Locked());

  MemoryPropertyBag written;
  picker->WriteProperties(written);
  EXPECT_EQ(written.ReadProperty("BackDrawMode"), Variant(int32_t(2)));
  EXPECT_EQ(written.ReadProperty("HoverIcon"), Variant(false));
  EXPECT_EQ(written.ReadProperty("Locked"), Variant(true));
  EXPECT_FALSE(written.Contains("CalendarBackDrawMode"));
  EXPECT_FALSE(written.Contains("CalendarHoverIcon"));
}

TEST_F(PickerPersistenceTest, EveryPropertyComesBackFromASavedForm) {
  SetEverything();
  MemoryPropertyBag bag;
  picker->WriteProperties(bag);
  std::vector<std::string> keys;
  for (const auto& [key, value] : bag.Entries())
    keys.push_back(key);
  EXPECT_EQ(keys, (Log{"ChangeOnDrag",
                       "Font",
                       "BackColor",
                       "ForeColor",
                       "Button",
                       "ButtonStyle",
                       "ButtonWidth",
                       "MaxDate",
                       "MinDate",
                       "Value",
                       "CustomFormat",
                       "FocusColor",
                       "ShowFocusRect",
                       "UseFocusColor",
                       "Locked",
                       "BorderStyle",
                       "Enabled",
                       "ExitOnReturn",
                       "CalendarAnimation",
                       "CalendarWeekdayColor",
                       "CalendarFont",
                       "BackDrawMode",
                       "CalendarBackground",
                       "CalendarButtonStyle",
                       "AllowEmpty",
                       "CalendarBackColor",
                       "CalendarHeaderColor",
                       "CalendarHeaderForeColor",
                       "CalendarActiveMonthColor",
                       "CalendarInactiveMonthColor",
                       "CalendarPresentDateColor",
                       "FirstDayofWeek",
                       "TodayButtonCaption",
                       "EmptyButtonCaption",
                       "HoverIcon",
                       "Format"}));
  EXPECT_EQ(bag.ReadProperty("Value").VarType(), vbDate);

  Container reloaded;
  reloaded.LoadFromText(form.SaveToText());
  EXPECT_EQ(Properties(Loaded(reloaded)), Properties(*picker));
  EXPECT_EQ(platform.GetWindowRect(Loaded(reloaded).hWnd()),
            platform.GetWindowRect(picker->hWnd()));
}

TEST_F(PickerPersistenceTest, ANewPickerSavesOnlyWhatDiffersAndLoadsBackTheSame) {
  MemoryPropertyBag bag;
  picker->WriteProperties(bag);
  EXPECT_EQ(bag.ReadProperty("CustomFormat"), Variant("M/d/yyyy"));
  EXPECT_EQ(picker->CalendarFont().Name, "Tahoma");
  EXPECT_FALSE(bag.Contains("Value")); // Null, the default
  EXPECT_FALSE(bag.Contains("Format"));

  Container reloaded;
  reloaded.LoadFromText(form.SaveToText());
  EXPECT_EQ(Properties(Loaded(reloaded)), Properties(*picker));
}

TEST_F(PickerPersistenceTest, LimitsThatContradictEachOtherRaiseAfterTheRestIsRead) {
  MemoryPropertyBag bag;
  bag.WriteProperty("MaxDate", Variant::Date(DateSerial(2000, 1, 1)));
  bag.WriteProperty("MinDate", "1/1/2010");
  bag.WriteProperty("Format", int32_t(dtpLongDate));
  ControlError refused = Raised([&] { picker->ReadProperties(bag); });
  EXPECT_EQ(refused.Number(), 1068);
  EXPECT_EQ(refused.Source(), "DatePicker");
  EXPECT_EQ(picker->MaxDate(), DateSerial(2000, 1, 1));
  EXPECT_EQ(picker->MinDate(), DateSerial(1601, 1, 1));
  EXPECT_EQ(picker->Format(), dtpLongDate);

  // Limits wholly before 1899 load: each is checked against the other only.
  bag.Clear();
  bag.WriteProperty("MaxDate", "12/31/1750");
  bag.WriteProperty("MinDate", "1/1/1700");
  bag.WriteProperty("Value", Variant::Date(DateSerial(1720, 7, 1)));
  EXPECT_EQ(Raised([&] { picker->ReadProperties(bag); }).Number(), 0);
  EXPECT_EQ(picker->Value().ToDate(), DateSerial(1720, 7, 1));

  // In a form file the load is refused, naming the control, and nothing is lost.
  picker->SetMaxDate(DateSerial(2000, 12, 31)); // 36891
  picker->SetMinDate(DateSerial(2000, 1, 1));
  picker->SetValue(Variant::Date(DateSerial(2000, 6, 1)));
  std::string text = form.SaveToText();
  text.replace(text.find("36891"), 5, "36600"); // MaxDate now before the value
  ControlError load = Raised([&] { form.LoadFromText(text); });
  EXPECT_EQ(load.Number(), 31037);
  EXPECT_NE(load.Description().find("DatePicker1"), std::string::npos);
  EXPECT_EQ(form.Find(Name), picker);
}

} // namespace
} // namespace tarnbrook
