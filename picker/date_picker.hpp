#pragma once
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "calendar/month_calendar.hpp"
#include "common/event_source.hpp"
#include "common/font.hpp"
#include "common/ole_color.hpp"
#include "common/picture.hpp"
#include "common/sql_criteria.hpp"
#include "common/variant.hpp"
#include "draw/border_style.hpp"
#include "draw/cframe.hpp"
#include "host/control.hpp"
#include "picker/cdate_mask.hpp"
#include "picker/picker_format.hpp"
#include "platform/timer.hpp"

namespace tarnbrook {

struct ClassInfo;

enum dtpButtons {
  dtpDropDown = 0,
  dtpUpDown = 1,
  dtpNone = 2,
  dtpBoth = 3,
};

enum dtpButtonStyles {
  dtpButton3D = 0,
  dtpButtonThin3D = 1,
  dtpButtonFlat = 2,
};

enum dtpAnimationTypes {
  dtpAnimateNone = 0,
  dtpAnimateBlend = 1,
  dtpAnimateSlide = 2,
  dtpAnimateRoll = 3,
};

// The picker's events, one method each; handlers do nothing by default.
class DatePickerEvents {
public:
  virtual ~DatePickerEvents() = default;
  virtual void Change() {}
  virtual void MouseDown(int16_t /*Button*/, int16_t /*Shift*/, float /*X*/, float /*Y*/) {}
  virtual void MouseMove(int16_t /*Button*/, int16_t /*Shift*/, float /*X*/, float /*Y*/) {}
  virtual void MouseUp(int16_t /*Button*/, int16_t /*Shift*/, float /*X*/, float /*Y*/) {}
  virtual void KeyDown(int16_t& /*KeyCode*/, int16_t /*Shift*/) {}
  virtual void KeyPress(int16_t& /*KeyAscii*/) {}
  virtual void KeyUp(int16_t& /*KeyCode*/, int16_t /*Shift*/) {}
  virtual void EmptyClicked(bool& /*Cancel*/) {}
  virtual void BeforeCalendarDropDown(bool& /*Cancel*/) {}
  virtual void AfterCalendarDropDown() {}
  virtual void BeforeCalendarCloseUp(bool& /*Cancel*/) {}
  virtual void AfterCalendarCloseUp() {}
};

// The ordinals that identify the events to a container.
enum DatePickerEventId {
  dtpEventChange = 1,
  dtpEventMouseDown = 2,
  dtpEventMouseMove = 3,
  dtpEventMouseUp = 4,
  dtpEventKeyDown = 5,
  dtpEventKeyPress = 6,
  dtpEventKeyUp = 7,
  dtpEventEmptyClicked = 8,
  dtpEventBeforeCalendarDropDown = 9,
  dtpEventAfterCalendarDropDown = 10,
  dtpEventBeforeCalendarCloseUp = 11,
  dtpEventAfterCalendarCloseUp = 12,
};

// A one-line date/time entry field cut from a format into fields the user edits by typing,
// by keys, by buttons with auto-repeat or by dragging; optional up/down and drop-down buttons,
// seven border styles, and a drop-down MonthCalendar. Value is a date or Null (empty).
class DatePicker : public Control {
public:
  explicit DatePicker(HWND parent = 0);
  ~DatePicker() override;
  std::string ClassName() const override { return "DatePicker"; }
  // The picker's members as hosts reach them by name.
  static const ClassInfo& TypeInfo();
  // The widest limits, as a saved form's defaults hold them.
  static constexpr const char* MinDateText = "1/1/1601";
  static constexpr const char* MaxDateText = "12/31/9999";

  void Connect(DatePickerEvents* sink) { events_.Connect(sink); }
  void Disconnect(DatePickerEvents* sink) { events_.Disconnect(sink); }

  void InitProperties() override;
  void ReadProperties(PropertyBag& bag) override;
  void WriteProperties(PropertyBag& bag) override;

  // The value: a Date, or Null when empty. Setting raises no Change.
  Variant Value() const;
  void SetValue(const Variant& value); // 2050 "DatePicker" outside the limits
  // Raises SetValue's 2050 for a date outside MinDate..MaxDate.
  void CheckInLimits(tarnbrook::DateValue date) const;
  tarnbrook::DateValue DateValue() const; // the date part
  // The value's day as criteria for the column the options name; 94 when empty.
  ParameterisedSql SQLParameters(const SqlOptions& options) const {
    return RenderParameterised(CompareCriterion("=", Value().ToDate()), options);
  }
  tarnbrook::DateValue TimeValue() const; // the time part
  tarnbrook::DateValue MinDate() const { return minDate_; }
  void SetMinDate(tarnbrook::DateValue value); // 1068 "DatePicker" above MaxDate
  tarnbrook::DateValue MaxDate() const { return maxDate_; }
  void SetMaxDate(tarnbrook::DateValue value); // 1070 "DatePicker" below MinDate
  bool AllowEmpty() const { return allowEmpty_; }
  void SetAllowEmpty(bool allow);
  int32_t Format() const { return format_; }
  void SetFormat(int32_t format);
  const std::string& CustomFormat() const { return customFormat_; }
  void SetCustomFormat(const std::string& format);
  bool ChangeOnDrag() const { return changeOnDrag_; }
  void SetChangeOnDrag(bool on);
  bool ExitOnReturn() const { return exitOnReturn_; }
  void SetExitOnReturn(bool on);
  bool Locked() const { return locked_; }
  void SetLocked(bool locked);
  void SetEnabled(bool enabled) override;

  // Appearance.
  int32_t Button() const { return button_; }
  void SetButton(int32_t buttons);
  int32_t ButtonWidth() const { return buttonWidth_; }
  void SetButtonWidth(int32_t width);
  int32_t ButtonStyle() const { return buttonStyle_; }
  void SetButtonStyle(int32_t style); // 5065 "Tarnbrook.DatePicker" above 2
  int32_t BorderStyle() const { return borderStyle_; }
  void SetBorderStyle(int32_t style);
  OleColor BackColor() const { return backColor_; }
  void SetBackColor(OleColor color);
  OleColor ForeColor() const { return foreColor_; }
  void SetForeColor(OleColor color);
  OleColor FocusColor() const { return focusColor_; }
  void SetFocusColor(OleColor color);
  bool UseFocusColor() const { return useFocusColor_; }
  void SetUseFocusColor(bool use);
  bool ShowFocusRect() const { return showFocusRect_; }
  void SetShowFocusRect(bool show);
  const tarnbrook::Font& Font() const { return font_; }
  void SetFont(const tarnbrook::Font& font);

  // The drop-down calendar and the properties forwarded to it.
  bool IsDropped() const;
  int32_t CalendarAnimation() const { return calendarAnimation_; }
  void SetCalendarAnimation(int32_t animation);
  // The drop-down calendar's look, held here and passed on while the calendar lives.
  int32_t CalendarButtonStyle() const { return calendarLook_.buttonStyle; }
  void SetCalendarButtonStyle(int32_t style); // 5065 "Tarnbrook.DatePicker" above 2
  OleColor CalendarBackColor() const { return calendarLook_.backColor; }
  void SetCalendarBackColor(OleColor color);
  OleColor CalendarActiveMonthColor() const { return calendarLook_.activeMonthColor; }
  void SetCalendarActiveMonthColor(OleColor color);
  OleColor CalendarInactiveMonthColor() const { return calendarLook_.inactiveMonthColor; }
  void SetCalendarInactiveMonthColor(OleColor color);
  OleColor CalendarHeaderColor() const { return calendarLook_.headerColor; }
  void SetCalendarHeaderColor(OleColor color);
  OleColor CalendarHeaderForeColor() const { return calendarLook_.headerForeColor; }
  void SetCalendarHeaderForeColor(OleColor color);
  OleColor CalendarPresentDateColor() const { return calendarLook_.presentDateColor; }
  void SetCalendarPresentDateColor(OleColor color);
  OleColor CalendarWeekdayColor() const { return calendarLook_.weekDayColor; }
  void SetCalendarWeekdayColor(OleColor color);
  const tarnbrook::Font& CalendarFont() const { return calendarLook_.font; }
  void SetCalendarFont(const tarnbrook::Font& font);
  std::shared_ptr<const Picture> CalendarBackground() const {
    return calendarLook_.backgroundImage;
  }
  void SetCalendarBackground(std::shared_ptr<const Picture> picture);
  int32_t CalendarBackDrawMode() const { return calendarLook_.backDrawMode; }
  void SetCalendarBackDrawMode(int32_t mode);
  bool CalendarHoverIcon() const { return calendarLook_.hoverIcon; }
  void SetCalendarHoverIcon(bool hover);
  int32_t FirstDayofWeek() const { return calendarLook_.firstDayofWeek; }
  void SetFirstDayofWeek(int32_t firstDay); // 5 outside 0..7
  const std::string& TodayButtonCaption() const { return calendarLook_.todayButtonCaption; }
  void SetTodayButtonCaption(const std::string& caption);
  const std::string& EmptyButtonCaption() const { return calendarLook_.emptyButtonCaption; }
  void SetEmptyButtonCaption(const std::string& caption);

  void DropDownCalendar();
  void CloseUpCalendar();
  void About();

  // The fields as last cut, the current one (-1 for none), and the drop-down calendar, made
  // on first use.
  const std::vector<CDateMask>& Fields() const { return fields_; }
  int32_t CurrentField() const { return currentField_; }
  MonthCalendar& Calendar();

protected:
  void OnPaint() override;
  void OnResize() override;
  void OnMouseDown(int16_t button, int16_t shift, float x, float y) override;
  void OnMouseMove(int16_t button, int16_t shift, float x, float y) override;
  void OnMouseUp(int16_t button, int16_t shift, float x, float y) override;
  void OnKeyDown(int16_t& keyCode, int16_t shift) override;
  bool OnMouseWheel(int32_t notches, int16_t shift) override;
  void OnKeyPress(int16_t& keyAscii) override;
  void OnKeyUp(int16_t& keyCode, int16_t shift) override;
  void OnGotFocus() override;
  void OnLostFocus() override;

private:
  template <auto Field, auto CalendarSetter, class Part>
  void SetCalendarLook(Part part, const char* key);
  // Editing.
  void SelectField(int32_t index);
  void StepCurrent(int16_t Amount);
  void ButtonAction(const std::string& part);
  void ClampToLimits();
  void TimerTick();
  void CommitTyped();
  void SetFieldsValue(tarnbrook::DateValue value);
  tarnbrook::DateValue Clamp(tarnbrook::DateValue value) const;
  int32_t NextEditableField(int32_t from, int direction) const;
  void RestoreLastDate(); // an empty picker takes its last date again (pickeredit)

  // Layout and painting.
  void RebuildFields();
  void LayoutButtons();
  int32_t ButtonsWidth() const;
  int32_t BorderWidth() const;
  CFrame* ButtonAt(int32_t x, int32_t y);
  void Redraw();

  // The drop-down calendar's events, heard by name.
  struct CalendarRelay : MonthCalendarEvents {
    std::function<void()> change, emptyClicked, droppedDown, afterClosedUp;
    std::function<void(bool&)> beforeDropDown, beforeCloseUp;
    void Change() override { change(); }
    void EmptyClicked() override { emptyClicked(); }
    void BeforeDropDown(bool& Cancel) override { beforeDropDown(Cancel); }
    void DroppedDown() override { droppedDown(); }
    void BeforeCloseUp(bool& Cancel) override { beforeCloseUp(Cancel); }
    void AfterClosedUp() override { afterClosedUp(); }
  };
  void CalendarChanged();
  void CalendarEmptyClicked();
  void CalendarBeforeDropDown(bool& cancel);
  void CalendarDroppedDown();
  void CalendarBeforeCloseUp(bool& cancel);
  void CalendarAfterClosedUp();
  void ChooseEmpty();

  // What the calendar shows, held here until the calendar is first made: most pickers never
  // drop one down. The values are those of a calendar read from an empty bag.
  // What the picker holds for its calendar, as the calendar's own defaults start it.
  struct CalendarLook {
    int32_t buttonStyle = mvwButton3D;
    OleColor backColor = vbWindowBackground;
    OleColor activeMonthColor = vbButtonText;
    OleColor inactiveMonthColor = vbGrayText;
    OleColor headerColor = vbButtonFace;
    OleColor headerForeColor = vbButtonText;
    OleColor presentDateColor = 255;
    OleColor weekDayColor = vbHighlight;
    tarnbrook::Font font; // the calendar's default, set by the constructor
    std::shared_ptr<const Picture> backgroundImage;
    int32_t backDrawMode = mvwBackTile;
    bool hoverIcon = true;
    int32_t firstDayofWeek = vbUseSystemDayOfWeek;
    std::string todayButtonCaption = "Today";
    std::string emptyButtonCaption = "Empty";
    bool emptyButton = true;
  };

  EventSource<DatePickerEvents> events_;
  CalendarLook calendarLook_;
  std::unique_ptr<MonthCalendar> calendar_; // none until first needed
  CalendarRelay calendarRelay_;
  std::vector<CDateMask> fields_;
  int32_t currentField_ = -1;
  std::vector<CFrame> buttons_;
  Timer timer_;

  bool empty_ = true;
  tarnbrook::DateValue value_ = 0;
  tarnbrook::DateValue lastDate_ = 0;
  tarnbrook::DateValue minDate_ = 0;
  tarnbrook::DateValue maxDate_ = 0;
  bool allowEmpty_ = true;
  int32_t format_ = dtpShortDate;
  std::string customFormat_;
  bool changeOnDrag_ = true;
  bool exitOnReturn_ = false;
  bool locked_ = false;
  int32_t dragY_ = 0;
  bool settingCalendar_ = false; // the picker writes the calendar's value: ignore its Change
  bool loading_ = false;         // no repaint while the properties are read

  int32_t button_ = dtpDropDown;
  int32_t buttonWidth_ = 16;
  int32_t buttonStyle_ = dtpButton3D;
  int32_t borderStyle_ = dtpBorderSunken3D;
  OleColor backColor_ = vbWindowBackground;
  OleColor foreColor_ = vbButtonText;
  OleColor focusColor_ = 0xB0FCB0;
  bool useFocusColor_ = true;
  bool showFocusRect_ = true;
  tarnbrook::Font font_;
  int32_t calendarAnimation_ = dtpAnimateBlend;
};

} // namespace tarnbrook
