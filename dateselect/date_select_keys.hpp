#pragma once

// The keys under which DateSelect's properties are saved and reported as changed. Its property
// table and its setters both spell them from here, so that the two cannot drift apart.
namespace tarnbrook::DateSelectKey {

inline constexpr char BackColor[] = "BackColor";
inline constexpr char BorderStyle[] = "BorderStyle";
inline constexpr char ButtonStyle[] = "ButtonStyle";
inline constexpr char ButtonWidth[] = "ButtonWidth";
inline constexpr char ControlBackColor[] = "ControlBackColor";
inline constexpr char CustomRange[] = "CustomRange";
inline constexpr char CustomSelection[] = "CustomSelection";
inline constexpr char DisableCustomSelection[] = "DisableCustomSelection";
inline constexpr char DisableEndDate[] = "DisableEndDate";
inline constexpr char DisableSelection[] = "DisableSelection";
inline constexpr char DisableStartDate[] = "DisableStartDate";
// Small o, unlike the calendar's key.
inline constexpr char FirstDayofWeek[] = "FirstDayofWeek";
inline constexpr char FocusColor[] = "FocusColor";
inline constexpr char Font[] = "Font";
inline constexpr char ForeColor[] = "ForeColor";
inline constexpr char InputFormat[] = "InputFormat";
inline constexpr char Operator[] = "Operator";
inline constexpr char SelectedMonth[] = "SelectedMonth";
inline constexpr char SelectedYear[] = "SelectedYear";
inline constexpr char Selection[] = "Selection";
inline constexpr char ShowFocusRect[] = "ShowFocusRect";
inline constexpr char SQLDateFormat[] = "SQLDateFormat";
inline constexpr char SQLDateWrapper[] = "SQLDateWrapper";
inline constexpr char SQLFieldName[] = "SQLFieldName";
inline constexpr char SQLPrefix[] = "SQLPrefix";
inline constexpr char SQLUseBETWEEN[] = "SQLUseBETWEEN";
inline constexpr char StartDate[] = "StartDate";
inline constexpr char UseFocusColor[] = "UseFocusColor";
inline constexpr char VisibleOptions[] = "VisibleOptions";

} // namespace tarnbrook::DateSelectKey
