// The DateSelect for every option, the custom range, the disable flags and each button style,
// on Monday 10 May 2004.
#include <vector>

#include "apps/gallery/gallery.hpp"
#include "dateselect/date_select.hpp"

namespace tarnbrook::gallery {
namespace {

constexpr int32_t Width = 300;
constexpr int32_t Height = 76; // the control's own height for the gallery's font, and a little

template <int32_t Option> void Select(MemoryPlatform&, DateSelect& control) {
  control.SetSelection(Option);
}

const std::vector<Look<DateSelect>> Options = {
    {"0 Today", Select<0>},
    {"1 Date", Select<1>},
    {"2 DateRange", Select<2>},
    {"3 Last 7 days", Select<3>},
    {"4 Last 30 days", Select<4>},
    {"5 This Week Till Today", Select<5>},
    {"6 This Month Till Today", Select<6>},
    {"7 This Year Till Today", Select<7>},
    {"8 Last Week", Select<8>},
    {"9 Last Month", Select<9>},
    {"10 Last Year", Select<10>},
    {"11 Custom Range", Select<11>},
    {"12 Expression, <>",
     [](MemoryPlatform&, DateSelect& control) {
       control.SetSelection(dtsExpression);
       control.SetOperator("<>");
     }},
    {"13 Month, February 2000",
     [](MemoryPlatform&, DateSelect& control) {
       control.SetSelection(dtsMonth);
       control.SetSelectedMonth(dtsFebruary);
       control.SetSelectedYear(2000);
     }},
    {"14 Year", Select<14>},
};

const std::vector<Look<DateSelect>> Variants = {
    {"Custom: 3 weeks, including today",
     [](MemoryPlatform&, DateSelect& control) {
       control.SetSelection(dtsCustomRange);
       control.SetCustomRange(3);
       control.SetCustomSelection(dtsWeeks);
       control.chkCustom().SetValue(vbChecked);
     }},
    {"Custom, DisableCustomSelection",
     [](MemoryPlatform&, DateSelect& control) {
       control.SetSelection(dtsCustomRange);
       control.SetDisableCustomSelection(true);
     }},
    {"DateRange, DisableStartDate and EndDate",
     [](MemoryPlatform&, DateSelect& control) {
       control.SetSelection(dtsDateRange);
       control.SetDisableStartDate(true);
       control.SetDisableEndDate(true);
     }},
    {"DisableSelection",
     [](MemoryPlatform&, DateSelect& control) { control.SetDisableSelection(true); }},
    {"Thin 3D buttons, sunken thin borders",
     [](MemoryPlatform&, DateSelect& control) {
       control.SetSelection(dtsMonth);
       control.SetButtonStyle(dtpButtonThin3D);
       control.SetBorderStyle(dtpBorderSunkenThin);
     }},
    {"Flat buttons, fixed single borders",
     [](MemoryPlatform&, DateSelect& control) {
       control.SetSelection(dtsMonth);
       control.SetButtonStyle(dtpButtonFlat);
       control.SetBorderStyle(dtpBorderFixedSingle);
     }},
    {"Colours and a long date format",
     [](MemoryPlatform&, DateSelect& control) {
       control.SetSelection(dtsDateRange);
       control.SetBackColor(RGB(230, 236, 248));
       control.SetControlBackColor(RGB(255, 255, 240));
       control.SetForeColor(RGB(0, 0, 128));
       control.SetInputFormat("dddd d MMM yyyy");
     }},
    {"Custom number focused, focus colour",
     [](MemoryPlatform&, DateSelect& control) {
       control.SetUseFocusColor(true);
       control.SetSelection(dtsCustomRange);
       control.txtCustomRange().SetFocus();
     }},
    {"Disabled", [](MemoryPlatform&, DateSelect& control) { control.SetEnabled(false); }},
};

void WriteOptions(const std::string& path) {
  WriteLooks(path, Options, Width, Height);
}

void WriteVariants(const std::string& path) {
  WriteLooks(path, Variants, Width, Height);
}

const bool registered = RegisterPicture("gallery-dateselect.png", WriteOptions) &&
                        RegisterPicture("gallery-dateselect-looks.png", WriteVariants);

} // namespace
} // namespace tarnbrook::gallery
