#include "platform/escaped_error.hpp"

#include <new>

#include "platform/platform.hpp"

namespace tarnbrook {
namespace {

thread_local EscapedErrorReporter reporter = nullptr;
thread_local bool reporting = false; // a reporter that raises again is not asked twice

constexpr int32_t InternalError = 51;

void Beep() noexcept {
  try {
    Platform::Current().MessageBeep(MB_OK);
  } catch (...) {
  }
}

} // namespace

void SetEscapedErrorReporter(EscapedErrorReporter next) {
  reporter = next;
}

void ReportEscapedError(HWND hwnd, const ControlError& error) noexcept {
  if (!reporter || reporting) {
    Beep();
    return;
  }
  reporting = true;
  try {
    reporter(hwnd, error);
  } catch (...) {
    Beep();
  }
  reporting = false;
}

void ReportCurrentException(HWND hwnd) noexcept try {
  try {
    throw;
  } catch (const ControlError& error) {
    ReportEscapedError(hwnd, error);
  } catch (const std::bad_alloc&) {
    ReportEscapedError(hwnd, ControlError(7, "Tarnbrook", RuntimeErrorText(7)));
  } catch (const std::exception& error) {
    ReportEscapedError(hwnd, ControlError(InternalError, "Tarnbrook",
                                          std::string("Internal error: ") + error.what()));
  } catch (...) {
    ReportEscapedError(hwnd, ControlError(InternalError, "Tarnbrook", "Internal error"));
  }
} catch (...) {
  Beep(); // not even the report could be made
}

} // namespace tarnbrook
