#pragma once
// The pages of the library's controls.
#include "design/property_page.hpp"

namespace tarnbrook {

// MonthCalendar: colours, captions, the Empty button, first day of the week, button style,
// fonts, the background picture and how it is drawn, the date limits.
PageDescription ppMonthCalendar();
// DatePicker: format and custom format, buttons, border, limits, empty and Return handling,
// the focus colour, and the properties it passes on to its drop-down calendar.
PageDescription ppDatePickerProperties();
// DateSelect: the options and their texts, the selection, first day of the week, the input
// format, what is disabled, and the SQL properties with the SQL they make.
PageDescription ppDateSelectSettings();
// DateSelect: colours, font, buttons, border, focus colour and rectangle.
PageDescription ppDateSelectAppearance();

// The choices of a FirstDayofWeek field.
std::vector<std::pair<std::string, int32_t>> FirstDayChoices();

} // namespace tarnbrook
