#pragma once
#include <exception>

#include "common/control_error.hpp"
#include "platform/messages.hpp"

namespace tarnbrook {

// An error raised while a window procedure or a hook runs must not unwind into the window
// system's dispatch (the program would end at one click). Each procedure catches it and hands
// it here; the host sets the reporter that tells the control's container. Without one the
// error is answered with a beep.
using EscapedErrorReporter = void (*)(HWND hwnd, const ControlError& error);
void SetEscapedErrorReporter(EscapedErrorReporter reporter);
// `hwnd` is the window whose procedure raised (0 when none is known). Never raises.
void ReportEscapedError(HWND hwnd, const ControlError& error) noexcept;
// The same for the exception being handled: a ControlError as it is, std::bad_alloc as
// error 7, anything else as error 51.
void ReportCurrentException(HWND hwnd) noexcept;

} // namespace tarnbrook
