#pragma once
#include <gtk/gtk.h>

// A Tarnbrook control as a GTK 4 widget. The control runs on the hosted simulator; the
// widget shows its pixels, feeds it GTK's input and shows the windows it pops up as
// popovers beside the widget.
G_BEGIN_DECLS

#define TARNBROOK_TYPE_GTK_CONTROL (tarnbrook_gtk_control_get_type())
G_DECLARE_FINAL_TYPE(TarnbrookGtkControl, tarnbrook_gtk_control, TARNBROOK, GTK_CONTROL, GtkWidget)

// A control made by ProgID ("Tarnbrook.DatePicker", "Tarnbrook.DateSelect",
// "Tarnbrook.MonthCalendar"); NULL, with a warning, for one the library does not make.
// Its signal "control-event" (const char* name, const char* arguments) tells each event of
// the control, its arguments as text separated by spaces.
GtkWidget* tarnbrook_gtk_control_new(const char* prog_id);

G_END_DECLS

#ifdef __cplusplus
#include <functional>
#include <string>
#include <vector>

#include "automation/dispatch.hpp"
#include "host/control.hpp"
#include "platform/hosted/hosted_platform.hpp"

namespace tarnbrook::gtk {

// The control inside the widget.
Control& ControlOf(TarnbrookGtkControl* widget);
// Calls by name on it (Get("Value"), Let, Call ...).
Dispatch DispatchOf(TarnbrookGtkControl* widget);
// Each event of the control by name, before the "control-event" signal; by-reference
// arguments written here go back to the control.
void SetEventHandler(TarnbrookGtkControl* widget, EventHandler handler);
// The simulator every widget of the program shares.
HostedPlatform& SharedPlatform();

} // namespace tarnbrook::gtk
#endif
