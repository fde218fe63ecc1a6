#pragma once

// The keys under which the calendar's properties are saved and reported as changed. Its property
// table and its setters both spell them from here, so that the two cannot drift apart.
namespace tarnbrook::CalendarKey {

inline constexpr char ActiveMonthColor[] = "ActiveMonthColor";
inline constexpr char BackColor[] = "BackColor";
inline constexpr char BackDrawMode[] = "BackDrawMode";
// The picture is saved as "BackgroundImage" but reported changed as "BackGroundImage".
inline constexpr char BackGroundImage[] = "BackGroundImage";
inline constexpr char BackgroundImage[] = "BackgroundImage";
inline constexpr char ButtonStyle[] = "ButtonStyle";
inline constexpr char EmptyButton[] = "EmptyButton";
inline constexpr char EmptyButtonCaption[] = "EmptyButtonCaption";
inline constexpr char Enabled[] = "Enabled";
// Capital O, unlike the property's name and the picker's key.
inline constexpr char FirstDayOfWeek[] = "FirstDayOfWeek";
inline constexpr char Font[] = "Font";
inline constexpr char HeaderColor[] = "HeaderColor";
inline constexpr char HeaderForeColor[] = "HeaderForeColor";
inline constexpr char HoverIcon[] = "HoverIcon";
inline constexpr char InactiveMonthColor[] = "InactiveMonthColor";
inline constexpr char MaxDate[] = "MaxDate";
inline constexpr char MinDate[] = "MinDate";
inline constexpr char PresentDateColor[] = "PresentDateColor";
inline constexpr char SelectedDay[] = "SelectedDay";
inline constexpr char SelectedMonth[] = "SelectedMonth";
inline constexpr char SelectedYear[] = "SelectedYear";
inline constexpr char TodayButtonCaption[] = "TodayButtonCaption";
inline constexpr char Value[] = "Value";
inline constexpr char WeekDayColor[] = "WeekDayColor";

} // namespace tarnbrook::CalendarKey
