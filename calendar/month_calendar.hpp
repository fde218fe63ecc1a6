#pragma once
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>

#include "common/date_value.hpp"
#include "common/event_source.hpp"
#include "common/font.hpp"
#include "common/ole_color.hpp"
#include "common/picture.hpp"
#include "common/sql_criteria.hpp"
#include "draw/cframe.hpp"
#include "host/combo_box.hpp"
#include "host/control.hpp"
#include "platform/timer.hpp"
#include "winplumb/drop_down.hpp"
#include "winplumb/subclass.hpp"

namespace tarnbrook {

struct ClassInfo;

enum mvwAnimationTypes {
  mvwAnimateNone = 0,
  mvwAnimateBlend = 1,
  mvwAnimateSlide = 2,
  mvwAnimateRoll = 3,
};

enum mvwButtonStyles {
  mvwButton3D = 0,
  mvwButtonThin3D = 1,
  mvwButtonFlat = 2,
};

enum mvwBackDrawModes {
  mvwBackTile = 0,
  mvwBackCentered = 1,
  mvwBackRepeatX = 2,
  mvwBackRepeatY = 3,
};

// The calendar's events, one method each; handlers do nothing by default.
class MonthCalendarEvents {
public:
  virtual ~MonthCalendarEvents() = default;
  virtual void Change() {}
  virtual void MonthChanged() {}
  virtual void YearChanged() {}
  virtual void DateClicked() {}
  virtual void EmptyClicked() {}
  virtual void BeforeDropDown(bool& /*Cancel*/) {}
  virtual void DroppedDown() {}
  virtual void BeforeCloseUp(bool& /*Cancel*/) {}
  virtual void AfterClosedUp() {}
  virtual void MouseMove(int16_t /*Button*/, float /*X*/, float /*Y*/) {}
  virtual void MouseDown(int16_t /*Button*/, float /*X*/, float /*Y*/) {}
  virtual void MouseUp(int16_t /*Button*/, float /*X*/, float /*Y*/) {}
  virtual void KeyDown(int16_t& /*KeyCode*/, int16_t /*Shift*/) {}
  virtual void KeyUp(int16_t& /*KeyCode*/, int16_t /*Shift*/) {}
  virtual void KeyPress(int16_t& /*KeyAscii*/) {}
};

// The ordinals that identify the events to a container.
enum MonthCalendarEventId {
  mvwEventChange = 1,
  mvwEventMonthChanged = 2,
  mvwEventYearChanged = 3,
  mvwEventDateClicked = 4,
  mvwEventEmptyClicked = 5,
  mvwEventBeforeDropDown = 6,
  mvwEventDroppedDown = 7,
  mvwEventBeforeCloseUp = 8,
  mvwEventAfterClosedUp = 9,
};

// A first day of the week the calendar can show: 0 (the system's) to 7 (Saturday); raises 5
// for any other.
int32_t CheckedFirstDayOfWeek(int32_t firstDay);

// A one-month calendar: 42 day cells under a header with the month list, the year and the
// navigation buttons, "Today" and "Empty" below. The selected date (Value) and the displayed
// month are separate: navigation moves only the display; a day click, "Today" or an
// assignment changes Value and brings its month into view. Fixed size 204 x 180 pixels.
class MonthCalendar : public Control, private cDropDownEvents, private ISubclass {
public:
  static constexpr int32_t FixedWidth = 204;
  static constexpr int32_t FixedHeight = 180;

  explicit MonthCalendar(HWND parent = 0);
  ~MonthCalendar() override;
  std::string ClassName() const override { return "MonthCalendar"; }
  // The calendar's members as hosts reach them by name.
  static const ClassInfo& TypeInfo();

  void Connect(MonthCalendarEvents* sink) { events_.Connect(sink); }
  void Disconnect(MonthCalendarEvents* sink) { events_.Disconnect(sink); }

  void InitProperties() override;
  void ReadProperties(PropertyBag& bag) override;
  void WriteProperties(PropertyBag& bag) override;

  // The selected date, the control's default member.
  DateValue Value() const { return value_; }
  void SetValue(DateValue value);
  // The value's day as criteria for the column the options name.
  ParameterisedSql SQLParameters(const SqlOptions& options) const {
    return RenderParameterised(CompareCriterion("=", value_), options);
  }
  int32_t SelectedDay() const;
  void SetSelectedDay(int32_t day);
  int32_t SelectedMonth() const; // the displayed month 1..12
  void SetSelectedMonth(int32_t month);
  int32_t SelectedYear() const; // the displayed year
  void SetSelectedYear(int32_t year);

  DateValue MinDate() const { return minDate_; }
  void SetMinDate(DateValue value); // 1068 "DatePicker" when above MaxDate
  DateValue MaxDate() const { return maxDate_; }
  void SetMaxDate(DateValue value); // 1070 "DatePicker" when below MinDate
  int32_t FirstDayofWeek() const { return firstDayofWeek_; }
  void SetFirstDayofWeek(int32_t firstDay);

  bool EmptyButton() const { return emptyButton_; }
  void SetEmptyButton(bool show);
  const std::string& EmptyButtonCaption() const { return emptyButtonCaption_; }
  void SetEmptyButtonCaption(const std::string& caption);
  const std::string& TodayButtonCaption() const { return todayButtonCaption_; }
  void SetTodayButtonCaption(const std::string& caption);

  OleColor ActiveMonthColor() const { return activeMonthColor_; }
  void SetActiveMonthColor(OleColor color);
  OleColor InactiveMonthColor() const { return inactiveMonthColor_; }
  void SetInactiveMonthColor(OleColor color);
  OleColor PresentDateColor() const { return presentDateColor_; }
  void SetPresentDateColor(OleColor color);
  OleColor WeekDayColor() const { return weekDayColor_; }
  void SetWeekDayColor(OleColor color);
  OleColor HeaderColor() const { return headerColor_; } // -1: transparent
  void SetHeaderColor(OleColor color);
  OleColor HeaderForeColor() const { return headerForeColor_; }
  void SetHeaderForeColor(OleColor color);
  OleColor BackColor() const { return backColor_; }
  void SetBackColor(OleColor color);

  int32_t ButtonStyle() const { return buttonStyle_; }
  void SetButtonStyle(int32_t style); // 5075 "Tarnbrok.MonthCalendar" above 2
  int32_t BackDrawMode() const { return backDrawMode_; }
  void SetBackDrawMode(int32_t mode);
  std::shared_ptr<const Picture> BackgroundImage() const { return backgroundImage_; }
  void SetBackgroundImage(std::shared_ptr<const Picture> picture);
  const tarnbrook::Font& Font() const { return font_; }
  void SetFont(const tarnbrook::Font& font);
  bool HoverIcon() const { return hoverIcon_; }
  void SetHoverIcon(bool hover);
  void SetEnabled(bool enabled) override;
  int32_t hwnd() const { return static_cast<int32_t>(hWnd()); }

  // Redraws the whole calendar.
  void Paint();
  // The pop-up mode.
  void DropDown(int32_t X, int32_t Y, int32_t ParentHeight = 0, int32_t Animate = mvwAnimateNone);
  void HideDropDown();
  bool IsDropDownShown() const;
  void About();

  // The month list and the date of the first cell, as the grid was last computed.
  ComboBox& cboMonth() { return *cboMonth_; }
  DateValue GridStart() const { return gridStart_; }
  // The buttons by name: "Left", "Right", "Up", "Down", "Today", "Empty".
  CFrame& Button(const std::string& name) { return buttons_.at(name); }

protected:
  void OnPaint() override;
  void OnResize() override;
  void ConstrainSize(int32_t& width, int32_t& height) const override {
    width = FixedWidth;
    height = FixedHeight;
  }
  void OnMouseDown(int16_t button, int16_t shift, float x, float y) override;
  void OnMouseMove(int16_t button, int16_t shift, float x, float y) override;
  void OnMouseUp(int16_t button, int16_t shift, float x, float y) override;
  void OnDblClick() override;
  void OnKeyDown(int16_t& keyCode, int16_t shift) override;
  bool OnMouseWheel(int32_t notches, int16_t shift) override;
  void OnKeyPress(int16_t& keyAscii) override;
  void OnKeyUp(int16_t& keyCode, int16_t shift) override;

private:
  // Its description, saved form included; a member, because some keys load straight into
  // the fields.
  static ClassInfo Describe();

  // Model and navigation.
  struct MonthListRelay : ComboBoxEvents {
    std::function<void()> click;
    void Click() override { click(); }
  };
  void MonthPicked();
  void ButtonAction(const std::string& name);
  void MonthStep(int delta);
  void YearStep(int delta);
  bool InRange(DateValue date) const;
  void ClickDay(DateValue date);
  void ComputeGrid();
  DateValue DayAt(int32_t x, int32_t y) const;
  int32_t DisplayedYear() const;
  void SetDisplayedYear(int32_t year);

  // Painting and input.
  void CreateButtons();
  void PaintDayCells();
  void PressButtonsAt(int32_t x, int32_t y);
  void TimerTick();
  void UpdateHoverCursor(int32_t x, int32_t y);
  void KeepFixedSize(); // added for painting: back to 204 x 180 pixels

  EventSource<MonthCalendarEvents> events_;
  std::unique_ptr<ComboBox> cboMonth_;
  MonthListRelay monthListRelay_;
  std::map<std::string, CFrame> buttons_;
  Timer t_;

  // Pop-up mode: the pop-up object's events, and WM_PRINTCLIENT of the own window while
  // attached (run mode, after the properties are read).
  void MouseDownOutside(bool& DontHide) override;
  void Hidden() override;
  LRESULT WindowProc(HWND hwnd, int32_t iMsg, WPARAM wParam, LPARAM lParam) override;
  void AttachPrintClient();
  cDropDown dropDown_;
  bool printClientAttached_ = false;

  DateValue value_ = 0;
  std::string displayedYear_;
  std::string acceptedMonthText_;
  bool restoringMonth_ = false; // setting the list back raises no event
  DateValue gridStart_ = 0;
  DateValue minDate_ = 0;
  DateValue maxDate_ = 0;
  int32_t firstDayofWeek_ = 0;
  bool emptyButton_ = true;
  std::string emptyButtonCaption_ = "None";
  std::string todayButtonCaption_ = "Today";
  OleColor activeMonthColor_ = vbButtonText;
  OleColor inactiveMonthColor_ = vbGrayText;
  OleColor presentDateColor_ = 255;
  OleColor weekDayColor_ = vbHighlight;
  OleColor headerColor_ = vbButtonFace;
  OleColor headerForeColor_ = vbButtonText;
  OleColor backColor_ = vbWindowBackground;
  int32_t buttonStyle_ = mvwButton3D;
  int32_t backDrawMode_ = mvwBackTile;
  std::shared_ptr<const Picture> backgroundImage_;
  tarnbrook::Font font_;
  bool hoverIcon_ = true;

  // Input state.
  CFrame* pressedButton_ = nullptr;
  bool yearDrag_ = false;
  int32_t lastDragY_ = 0;
  bool keepingSize_ = false; // added for painting: OnResize is putting the size back
};

} // namespace tarnbrook
