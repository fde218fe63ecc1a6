#include "calendar/month_calendar.hpp"

#include <functional>
#include <optional>

#include "calendar/month_calendar_defaults.hpp"
#include "common/control_error.hpp"
#include "common/conversions.hpp"
#include "common/date_runtime.hpp"
#include "host/persisted_objects.hpp"
#include "platform/platform.hpp"

namespace tarnbrook {
namespace {

using namespace month_calendar_defaults;

// A bad or unreadable key leaves its property as it was; reading goes on.
void Tolerant(const std::function<void()>& read) {
  try {
    read();
  } catch (const ControlError&) {
  }
}

// A value the calendar could not show (a date outside the runtime's, a first day of the week
// outside 0..7, an absurd font) is not kept either, but the load is refused for it once every
// key has been read: the first such refusal, naming its key.
class Refusals {
public:
  void Check(const char* key, const std::function<void()>& read) {
    try {
      read();
    } catch (const ControlError& error) {
      if (!first_)
        first_ = ControlError(error.Number(), error.Source(),
                              std::string("property '") + key + "': " + error.Description());
    }
  }
  void RaiseFirst() const {
    if (first_)
      throw *first_;
  }

private:
  std::optional<ControlError> first_;
};

} // namespace

void MonthCalendar::InitProperties() {
  font_ = DefaultFont();
  hoverIcon_ = true;
  Control::SetEnabled(true);
  minDate_ = CDate(MinDateText);
  maxDate_ = LastDate();
  firstDayofWeek_ = vbUseSystemDayOfWeek;
  presentDateColor_ = 255;
  inactiveMonthColor_ = vbGrayText;
  weekDayColor_ = vbHighlight;
  SetDisplayedYear(Year(value_));
  emptyButtonCaption_ = "None"; // not the persisted "Empty": a new control saves "None"
  todayButtonCaption_ = "Today";
  SetEmptyButton(false);
  SetValue(Platform::Current().Today());
}

void MonthCalendar::ReadProperties(PropertyBag& bag) {
  auto read = [&bag](const char* key, const Variant& defaultValue) {
    return bag.ReadProperty(key, defaultValue);
  };

  Tolerant([&] { weekDayColor_ = read("WeekDayColor", vbHighlight).ToLong(); });
  Refusals refusals;
  Tolerant([&] {
    Variant font = read("Font", FontVariant(DefaultFont()));
    refusals.Check("Font", [&] { font_ = CheckedFont(*ObjectOf<tarnbrook::Font>(font)); });
  });
  Tolerant([&] { backDrawMode_ = read("BackDrawMode", int32_t(mvwBackTile)).ToLong(); });
  Tolerant([&] {
    Variant picture = read("BackgroundImage", Variant());
    backgroundImage_ = picture.IsEmpty() ? nullptr : ObjectOf<Picture>(picture);
  });

  // An absent "Value" reads as Empty, which is date 0.
  Tolerant([&] {
    DateValue value = read("Value", Variant()).ToDate();
    refusals.Check("Value", [&] {
      CheckDateRange(value);
      value_ = value;
      SetDisplayedYear(Year(value_));
    });
  });

  Tolerant([&] { SetButtonStyle(read("ButtonStyle", int32_t(mvwButton3D)).ToLong()); });

  // Stored as they are: limits saved in the wrong order are kept.
  Tolerant([&] { hoverIcon_ = read("HoverIcon", true).ToBoolean(); });
  Tolerant([&] {
    DateValue limit = read("MinDate", MinDateText).ToDate();
    refusals.Check("MinDate", [&] {
      CheckDateRange(limit);
      minDate_ = limit;
    });
  });
  Tolerant([&] {
    DateValue limit = read("MaxDate", Variant::Date(LastDate())).ToDate();
    refusals.Check("MaxDate", [&] {
      CheckDateRange(limit);
      maxDate_ = limit;
    });
  });
  Tolerant([&] { emptyButtonCaption_ = read("EmptyButtonCaption", "Empty").ToString(); });
  Tolerant([&] { todayButtonCaption_ = read("TodayButtonCaption", "Today").ToString(); });
  Tolerant([&] { headerForeColor_ = read("HeaderForeColor", vbButtonText).ToLong(); });
  Tolerant([&] {
    int32_t firstDay = read("FirstDayOfWeek", int32_t(0)).ToLong();
    refusals.Check("FirstDayOfWeek", [&] { firstDayofWeek_ = CheckedFirstDayOfWeek(firstDay); });
  });
  Tolerant([&] { activeMonthColor_ = read("ActiveMonthColor", vbButtonText).ToLong(); });
  Tolerant([&] { inactiveMonthColor_ = read("InactiveMonthColor", vbGrayText).ToLong(); });
  Tolerant([&] { presentDateColor_ = read("PresentDateColor", int32_t(255)).ToLong(); });

  Tolerant([&] { SetBackColor(read("BackColor", vbWindowBackground).ToLong()); });
  Tolerant([&] { SetHeaderColor(read("HeaderColor", vbButtonFace).ToLong()); });
  Tolerant([&] { SetEnabled(read("Enabled", true).ToBoolean()); });
  Tolerant([&] { SetEmptyButton(read("EmptyButton", true).ToBoolean()); });

  // The month handling brings the displayed month to the value's, within the limits.
  Tolerant([&] { cboMonth_->SetListIndex(Month(value_) - 1); });

  AttachPrintClient();
  refusals.RaiseFirst();
}

void MonthCalendar::WriteProperties(PropertyBag& bag) {
  bag.WriteProperty("WeekDayColor", weekDayColor_, vbHighlight);
  bag.WriteProperty("BackDrawMode", backDrawMode_, int32_t(mvwBackTile));
  bag.WriteProperty("BackgroundImage", PictureVariant(backgroundImage_), Variant());
  bag.WriteProperty("HoverIcon", hoverIcon_, true);
  bag.WriteProperty("MinDate", Variant::Date(minDate_), MinDateText);
  bag.WriteProperty("MaxDate", Variant::Date(maxDate_), Variant::Date(LastDate()));
  bag.WriteProperty("Value", Variant::Date(value_), Variant()); // no default: always written
  bag.WriteProperty("HeaderForeColor", headerForeColor_, vbButtonText);
  bag.WriteProperty("EmptyButton", emptyButton_, true);
  bag.WriteProperty("PresentDateColor", presentDateColor_, int32_t(255));
  bag.WriteProperty("InactiveMonthColor", inactiveMonthColor_, vbGrayText);
  bag.WriteProperty("ActiveMonthColor", activeMonthColor_, vbButtonText);
  bag.WriteProperty("HeaderColor", headerColor_, vbButtonFace);
  bag.WriteProperty("BackColor", backColor_, vbWindowBackground);
  bag.WriteProperty("FirstDayOfWeek", firstDayofWeek_, int32_t(0));
  bag.WriteProperty("Enabled", Enabled(), true);
  bag.WriteProperty("EmptyButtonCaption", emptyButtonCaption_, "Empty");
  bag.WriteProperty("TodayButtonCaption", todayButtonCaption_, "Today");
  bag.WriteProperty("ButtonStyle", buttonStyle_, int32_t(mvwButton3D));
  bag.WriteProperty("Font", FontVariant(font_), FontVariant(DefaultFont()));
}

} // namespace tarnbrook
