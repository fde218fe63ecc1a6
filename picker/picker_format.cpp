#include "picker/picker_format.hpp"

#include "common/locale.hpp"

namespace tarnbrook {

namespace {

struct PickerPatterns {
  std::string Locale; // the locale they were read for
  std::string LongDate;
  std::string ShortDate;
  std::string Time;
};

PickerPatterns& Patterns() {
  static PickerPatterns patterns;
  return patterns;
}

} // namespace

// Read once per locale: a program that changes its locale gets the new patterns.
void LoadPickerPatterns() {
  PickerPatterns& patterns = Patterns();
  if (patterns.LongDate.empty() || patterns.Locale != CurrentLocale().Name) {
    patterns.Locale = CurrentLocale().Name;
    patterns.LongDate = ReadLocaleItem(LOCALE_SLONGDATE);
    patterns.ShortDate = ReadLocaleItem(LOCALE_SSHORTDATE);
    patterns.Time = ReadLocaleItem(LOCALE_STIMEFORMAT);
  }
}

std::string PickerFormatString(int format, const std::string& customFormat) {
  LoadPickerPatterns();
  switch (format) {
  case dtpLongDate:
    return Patterns().LongDate;
  case dtpShortDate:
    return Patterns().ShortDate;
  case dtpTime:
    return Patterns().Time;
  case dtpCustom:
    return customFormat;
  default:
    return {};
  }
}

} // namespace tarnbrook
