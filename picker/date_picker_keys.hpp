#pragma once

// The keys under which the picker's properties are saved and reported as changed. Its property
// table and its setters both spell them from here, so that the two cannot drift apart.
namespace tarnbrook::PickerKey {

inline constexpr char AllowEmpty[] = "AllowEmpty";
inline constexpr char BackColor[] = "BackColor";
inline constexpr char BackDrawMode[] = "BackDrawMode";
inline constexpr char BorderStyle[] = "BorderStyle";
inline constexpr char Button[] = "Button";
inline constexpr char ButtonStyle[] = "ButtonStyle";
inline constexpr char ButtonWidth[] = "ButtonWidth";
inline constexpr char CalendarActiveMonthColor[] = "CalendarActiveMonthColor";
inline constexpr char CalendarAnimation[] = "CalendarAnimation";
inline constexpr char CalendarBackColor[] = "CalendarBackColor";
inline constexpr char CalendarBackground[] = "CalendarBackground";
inline constexpr char CalendarButtonStyle[] = "CalendarButtonStyle";
inline constexpr char CalendarFont[] = "CalendarFont";
inline constexpr char CalendarHeaderColor[] = "CalendarHeaderColor";
inline constexpr char CalendarHeaderForeColor[] = "CalendarHeaderForeColor";
inline constexpr char CalendarInactiveMonthColor[] = "CalendarInactiveMonthColor";
inline constexpr char CalendarPresentDateColor[] = "CalendarPresentDateColor";
inline constexpr char CalendarWeekdayColor[] = "CalendarWeekdayColor";
inline constexpr char ChangeOnDrag[] = "ChangeOnDrag";
inline constexpr char CustomFormat[] = "CustomFormat";
inline constexpr char EmptyButtonCaption[] = "EmptyButtonCaption";
inline constexpr char Enabled[] = "Enabled";
inline constexpr char ExitOnReturn[] = "ExitOnReturn";
// Small o, unlike the calendar's key.
inline constexpr char FirstDayofWeek[] = "FirstDayofWeek";
inline constexpr char FocusColor[] = "FocusColor";
inline constexpr char Font[] = "Font";
inline constexpr char ForeColor[] = "ForeColor";
inline constexpr char Format[] = "Format";
inline constexpr char HoverIcon[] = "HoverIcon";
inline constexpr char Locked[] = "Locked";
inline constexpr char MaxDate[] = "MaxDate";
inline constexpr char MinDate[] = "MinDate";
inline constexpr char ShowFocusRect[] = "ShowFocusRect";
inline constexpr char TodayButtonCaption[] = "TodayButtonCaption";
inline constexpr char UseFocusColor[] = "UseFocusColor";
inline constexpr char Value[] = "Value";

} // namespace tarnbrook::PickerKey
