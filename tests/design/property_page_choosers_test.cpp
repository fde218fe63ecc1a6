// The format list with its preview, the colour and font choosers, and the DateSelect pages.
#include <algorithm>

#include "design/pp_pages.hpp"
#include "tests/design/property_page_fixture.hpp"

namespace tarnbrook {
namespace {

TEST_F(PropertyPageTest, TheFormatPreviewShowsTodayAsThePickerWillAsItIsTyped) {
  auto& picker = Place<DatePicker>("Picker1");
  auto sheet = Open({&picker});
  auto& typed = FieldAs<TextBox>(*sheet, "CustomFormat");
  auto& formats = dynamic_cast<FormatList&>(*Control::FromHandle(platform.GetParent(typed.hWnd())));
  hand.TypeOver(formats.txtFormat(), "yyyy");
  EXPECT_EQ(formats.PreviewText(), "2004");
  platform.Type("-MM-dd");
  EXPECT_EQ(formats.PreviewText(), "2004-05-10");
  EXPECT_EQ(formats.cboReadyMade().Text(), "yyyy-MM-dd"); // the list finds a ready-made one

  formats.cboReadyMade().SetText("MMMM dd, yyyy");
  EXPECT_EQ(formats.txtFormat().Text(), "MMMM dd, yyyy");
  EXPECT_EQ(formats.PreviewText(), "May 10, 2004");
  formats.cboReadyMade().SetText("hh:mm:ss tt");
  EXPECT_EQ(formats.PreviewText(), "09:30:00 AM");

  // Applied with dtpCustom, the picker shows what the preview showed.
  formats.cboReadyMade().SetText("dddd, MMMM dd, yyyy");
  std::string preview = formats.PreviewText();
  FieldAs<ComboListX>(*sheet, "Format").SetText("3 - dtpCustom");
  picker.SetValue(Variant::Date(DateSerial(2004, 5, 10)));
  ASSERT_TRUE(sheet->Apply());
  EXPECT_EQ(picker.Format(), dtpCustom);
  EXPECT_EQ(picker.CustomFormat(), "dddd, MMMM dd, yyyy");
  std::string shown;
  for (const CDateMask& field : picker.Fields())
    shown += field.Text();
  EXPECT_EQ(shown, preview);
  EXPECT_EQ(shown, "Monday, May 10, 2004");
}

TEST_F(PropertyPageTest, ColoursByNameOrByRgbEachPropertyKeepingItsOwnUntilApply) {
  auto& calendar = Place<MonthCalendar>("Calendar1");
  auto sheet = Open({&calendar});
  auto& chooser = Member<ColorChooser>(*sheet, "HeaderColor");
  ASSERT_TRUE(chooser.Color().has_value());
  EXPECT_EQ(*chooser.Color(), calendar.HeaderColor());

  chooser.cboSystem().SetText("Highlight");
  EXPECT_EQ(chooser.txtRed().Text(), std::to_string(GetSysColor(COLOR_HIGHLIGHT) & 0xFF));
  // Another property shown meanwhile keeps the first one's choice pending.
  auto& same = Member<ColorChooser>(*sheet, "WeekDayColor");
  hand.TypeOver(same.txtRed(), "255");
  hand.TypeOver(same.txtGreen(), "x"); // refused as every numeric field is, naming itself
  EXPECT_FALSE(sheet->Apply());
  EXPECT_TRUE(HasFocus(same.txtGreen()));
  EXPECT_EQ(Messages().back(), "Please Enter a numeric value for the Green");
  hand.TypeOver(same.txtGreen(), "128");
  hand.TypeOver(same.txtBlue(), "0");
  EXPECT_EQ(same.cboSystem().ListIndex(), -1);
  EXPECT_EQ(platform.WindowCanvas(same.hWnd())->GetPixel(same.Swatch().left + 5, 10),
            static_cast<COLORREF>(RGB(255, 128, 0)));
  ASSERT_TRUE(sheet->Apply());
  EXPECT_EQ(calendar.HeaderColor(), vbHighlight);
  EXPECT_EQ(calendar.WeekDayColor(), RGB(255, 128, 0));
  EXPECT_EQ(ColorName(vbHighlight), "Highlight");
  EXPECT_EQ(ColorName(RGB(255, 128, 0)), "&H000080FF&");

  // A channel beyond 255 is refused when the focus leaves it, and keeps its property shown.
  hand.TypeOver(same.txtBlue(), "300");
  hand.Click(same.txtRed());
  EXPECT_TRUE(HasFocus(same.txtBlue()));
  EXPECT_EQ(Messages().back(), "Please Enter a whole number from 0 to 255 for the Blue");
  sheet->Page(0).FindEditor("BackColor")->MemberList()->SetText("BackColor");
  EXPECT_EQ(sheet->Page(0).FindEditor("BackColor")->MemberList()->Text(), "WeekDayColor");
}

TEST_F(PropertyPageTest, FontPartsLeftBlankStayAsEachControlHasThem) {
  auto& first = Place<MonthCalendar>("Calendar1", 10);
  auto& second = Place<MonthCalendar>("Calendar2", 200);
  Font arial = first.Font();
  arial.Name = "Arial";
  arial.Size = 10;
  first.SetFont(arial);
  const std::string secondName = second.Font().Name;
  auto sheet = Open({&first, &second});
  auto& chooser = Member<FontChooser>(*sheet, "Font");
  EXPECT_EQ(chooser.cboName().ListIndex(), -1);
  EXPECT_EQ(chooser.txtSize().Text(), "");
  EXPECT_EQ(chooser.chkBold().Value(), vbUnchecked);

  hand.Click(chooser.chkBold());
  hand.Click(chooser.chkItalic());
  ASSERT_TRUE(sheet->Apply());
  EXPECT_TRUE(first.Font().Bold && second.Font().Bold);
  EXPECT_TRUE(first.Font().Italic && second.Font().Italic);
  EXPECT_EQ(first.Font().Name, "Arial");
  EXPECT_EQ(first.Font().Size, 10.0f);
  EXPECT_EQ(second.Font().Name, secondName);

  chooser.cboName().SetText("DejaVu Serif");
  hand.TypeOver(chooser.txtSize(), "big");
  EXPECT_FALSE(sheet->Apply());
  EXPECT_EQ(Messages().back(), "Please Enter a numeric value for the Size");
  hand.TypeOver(chooser.txtSize(), "14");
  EXPECT_EQ(chooser.PreviewFont().Name, "DejaVu Serif");
  ASSERT_TRUE(sheet->Apply());
  EXPECT_EQ(first.Font().Name, "DejaVu Serif");
  EXPECT_EQ(second.Font().Size, 14.0f);
  EXPECT_TRUE(second.Font().Bold);
}

TEST_F(PropertyPageTest, DateSelectVisibleOptionsAndALiveSqlPreview) {
  auto& select = Place<DateSelect>("Select1");
  auto sheet = Open({&select});
  ASSERT_EQ(sheet->PageCount(), 2u);
  EXPECT_EQ(sheet->Page(0).Description().caption, "Settings");
  PropertyPage& page = sheet->Page(0);
  PropertyEditor& sql = *page.FindEditor("SQL");
  auto& preview = dynamic_cast<TextBox&>(sql.Input());
  EXPECT_EQ(preview.Text(), select.SQL());

  // The preview follows the fields as they are typed, before anything is applied.
  hand.TypeOver(Field(*sheet, "SQLFieldName"), "OrderDate");
  hand.TypeOver(Field(*sheet, "SQLPrefix"), "WHERE");
  EXPECT_EQ(select.SQLFieldName(), "Date");
  EXPECT_NE(preview.Text().find("OrderDate"), std::string::npos) << preview.Text();
  EXPECT_EQ(preview.Text().rfind("WHERE ", 0), 0u) << preview.Text();
  std::string promised = preview.Text();

  // The options: a check box each, captioned with the option's text, in option order.
  auto& today = FieldAs<CheckBox>(*sheet, "VisibleOptions");
  std::vector<HWND> children = platform.Children(page.hWnd());
  auto at = std::find(children.begin(), children.end(), today.hWnd());
  ASSERT_NE(at, children.end());
  auto* date = dynamic_cast<CheckBox*>(Control::FromHandle(*(at + 1)));
  ASSERT_NE(date, nullptr);
  EXPECT_EQ(today.Caption(), select.Options(dtsToday)->Text());
  EXPECT_EQ(date->Caption(), select.Options(dtsDate)->Text());
  EXPECT_EQ(date->Value(), vbChecked);
  hand.Click(*date);
  ASSERT_TRUE(sheet->Apply());
  EXPECT_EQ(select.SQL(), promised);
  EXPECT_FALSE(select.Options(dtsDate)->Visible());
  EXPECT_TRUE(select.Options(dtsToday)->Visible());
}

} // namespace
} // namespace tarnbrook
