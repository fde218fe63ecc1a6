// The widget: the control on a form of its own at its own spot of the hosted simulator's
// screen, so that hit testing, focus and timers stay the simulator's. GTK's input goes in
// as the simulator's injections at the matching screen points; windows the control pops up
// come out as popovers at the same offset from the widget as from the form.
#include "toolkits/gtk/tarnbrook_gtk.hpp"

#include <algorithm>
#include <map>
#include <memory>
#include <optional>

#include "automation/class_factory.hpp"
#include "host/container.hpp"
#include "platform/memory/keysym_keys.hpp"

namespace tarnbrook::gtk {
namespace {

// Each form has a slot this wide and high; pop-ups open within their form's slot.
constexpr int32_t Slot = 3000;
constexpr int32_t SlotsPerRow = 8;
constexpr int32_t SlotMargin = 1000; // room above and left of a form for its pop-ups

struct Popup {
  GtkWidget* popover = nullptr;
  GtkWidget* area = nullptr;
  Rect client; // screen coordinates
};

struct State {
  std::unique_ptr<Container> form;
  Control* control = nullptr;
  Point origin; // the form's client area on the simulator's screen
  GdkTexture* texture = nullptr;
  EventConnection connection;
  EventHandler handler;
  std::map<HWND, Popup> popups;
};

} // namespace
} // namespace tarnbrook::gtk

struct _TarnbrookGtkControl {
  GtkWidget parent_instance;
  tarnbrook::gtk::State* state;
};

G_DEFINE_TYPE(TarnbrookGtkControl, tarnbrook_gtk_control, GTK_TYPE_WIDGET)

namespace tarnbrook::gtk {
namespace {

guint controlEventSignal = 0;

GdkTexture* TextureOf(const Canvas& canvas) {
  GBytes* bytes = g_bytes_new(canvas.Data(), static_cast<gsize>(canvas.Stride()) * canvas.Height());
  // Canvases hold native 0xAARRGGBB words: BGRA bytes on a little-endian machine.
  GdkTexture* texture =
      gdk_memory_texture_new(canvas.Width(), canvas.Height(),
                             G_BYTE_ORDER == G_LITTLE_ENDIAN ? GDK_MEMORY_B8G8R8A8_PREMULTIPLIED
                                                             : GDK_MEMORY_A8R8G8B8_PREMULTIPLIED,
                             bytes, canvas.Stride());
  g_bytes_unref(bytes);
  return texture;
}

const char* CursorName(int shape) {
  switch (shape) {
  case IDC_IBEAM:
    return "text";
  case IDC_HAND:
    return "pointer";
  case IDC_SIZENS:
    return "ns-resize";
  default:
    return "default";
  }
}

// Routes the simulator's reports to the widgets whose forms and pop-ups they concern.
class Router : public HostedPlatform::Host {
public:
  Router() {
    platform_.SetScreenSize(SlotsPerRow * Slot, SlotsPerRow * Slot);
    platform_.SetHost(this);
    RegisterTarnbrookClasses();
  }
  HostedPlatform& Platform() { return platform_; }

  Point NewSlot() {
    int32_t n = nextSlot_++;
    return {(n % SlotsPerRow) * Slot + SlotMargin, (n / SlotsPerRow) * Slot + SlotMargin};
  }
  void Enlist(HWND form, TarnbrookGtkControl* widget) { widgets_[form] = widget; }
  void Delist(HWND form) { widgets_.erase(form); }

  void Process() { platform_.Process(); }

  void TopLevelShown(HWND top, const Rect& client) override;
  void TopLevelMoved(HWND top, const Rect& client) override;
  void TopLevelHidden(HWND top) override;
  void TopLevelDestroyed(HWND top) override;
  void Damaged(HWND top, const Rect& area) override;
  void CursorChanged(int shape) override;
  void WakeIn(std::optional<uint32_t> milliseconds) override;

  TarnbrookGtkControl* OwnerOf(const Rect& client) const;
  Popup* FindPopup(HWND top, TarnbrookGtkControl** owner = nullptr);

private:
  HostedPlatform platform_;
  std::map<HWND, TarnbrookGtkControl*> widgets_; // by form
  int32_t nextSlot_ = 0;
  guint wake_ = 0;
};

Router& TheRouter() {
  static Router* router = new Router; // lives as long as GTK, which never goes
  return *router;
}

void PlacePopover(TarnbrookGtkControl* owner, Popup& popup) {
  const Point& origin = owner->state->origin;
  GdkRectangle at{popup.client.left - origin.x, popup.client.top - origin.y, 1, 1};
  gtk_popover_set_pointing_to(GTK_POPOVER(popup.popover), &at);
  gtk_popover_set_position(GTK_POPOVER(popup.popover), GTK_POS_BOTTOM);
  // The popover's corner goes to the point, not its middle.
  gtk_popover_set_offset(GTK_POPOVER(popup.popover), popup.client.Width() / 2, -1);
  gtk_widget_set_size_request(popup.area, popup.client.Width(), popup.client.Height());
}

// Screen point of a point of a widget showing the window whose client area starts at
// `origin`.
Point ScreenPoint(Point origin, double x, double y) {
  return {origin.x + static_cast<int32_t>(x), origin.y + static_cast<int32_t>(y)};
}

int VirtualButton(guint button) {
  switch (button) {
  case GDK_BUTTON_PRIMARY:
    return VK_LBUTTON;
  case GDK_BUTTON_MIDDLE:
    return VK_MBUTTON;
  case GDK_BUTTON_SECONDARY:
    return VK_RBUTTON;
  default:
    return 0;
  }
}

// Pointer input on a widget showing a window at `*origin` (the form's or a pop-up's).
struct PointerTarget {
  TarnbrookGtkControl* owner;
  HWND top; // 0: the form
};

Point OriginOf(const PointerTarget& target) {
  if (!target.top) {
    return target.owner->state->origin;
  }
  auto& popups = target.owner->state->popups;
  auto it = popups.find(target.top);
  return it == popups.end() ? Point{} : Point{it->second.client.left, it->second.client.top};
}

void OnPressed(GtkGestureClick* gesture, int count, double x, double y, gpointer data) {
  auto* target = static_cast<PointerTarget*>(data);
  guint button = gtk_gesture_single_get_current_button(GTK_GESTURE_SINGLE(gesture));
  int virtualButton = VirtualButton(button);
  if (!virtualButton) {
    return;
  }
  if (!target->top) {
    gtk_widget_grab_focus(GTK_WIDGET(target->owner));
  }
  Point at = ScreenPoint(OriginOf(*target), x, y);
  HostedPlatform& platform = TheRouter().Platform();
  if (count % 2 == 0) {
    platform.MouseDoubleClick(virtualButton, at.x, at.y);
  } else {
    platform.MouseDown(virtualButton, at.x, at.y);
  }
  TheRouter().Process();
}

void OnReleased(GtkGestureClick* gesture, int, double x, double y, gpointer data) {
  auto* target = static_cast<PointerTarget*>(data);
  int virtualButton =
      VirtualButton(gtk_gesture_single_get_current_button(GTK_GESTURE_SINGLE(gesture)));
  if (!virtualButton) {
    return;
  }
  Point at = ScreenPoint(OriginOf(*target), x, y);
  TheRouter().Platform().MouseUp(virtualButton, at.x, at.y);
  TheRouter().Process();
}

void OnMotion(GtkEventControllerMotion*, double x, double y, gpointer data) {
  Point at = ScreenPoint(OriginOf(*static_cast<PointerTarget*>(data)), x, y);
  TheRouter().Platform().MouseMove(at.x, at.y);
  TheRouter().Process();
}

gboolean OnScroll(GtkEventControllerScroll* scroll, double, double dy, gpointer data) {
  auto* target = static_cast<PointerTarget*>(data);
  double x = 0, y = 0;
  GdkEvent* event = gtk_event_controller_get_current_event(GTK_EVENT_CONTROLLER(scroll));
  if (!event || !gdk_event_get_position(event, &x, &y)) {
    return FALSE;
  }
  // Event positions are in the surface's coordinates.
  GtkWidget* widget = gtk_event_controller_get_widget(GTK_EVENT_CONTROLLER(scroll));
  GtkNative* native = gtk_widget_get_native(widget);
  double sx = 0, sy = 0;
  gtk_native_get_surface_transform(native, &sx, &sy);
  graphene_point_t in{static_cast<float>(x - sx), static_cast<float>(y - sy)}, out;
  if (!gtk_widget_compute_point(GTK_WIDGET(native), widget, &in, &out)) {
    return FALSE;
  }
  Point at = ScreenPoint(OriginOf(*target), out.x, out.y);
  // A notch scrolls by one; smooth scrolling comes in parts of one.
  TheRouter().Platform().MouseWheel(static_cast<int32_t>(-dy * WHEEL_DELTA), at.x, at.y);
  TheRouter().Process();
  return TRUE;
}

void AddPointerControllers(GtkWidget* widget, PointerTarget* target) {
  GtkGesture* click = gtk_gesture_click_new();
  gtk_gesture_single_set_button(GTK_GESTURE_SINGLE(click), 0);
  g_signal_connect(click, "pressed", G_CALLBACK(OnPressed), target);
  g_signal_connect(click, "released", G_CALLBACK(OnReleased), target);
  gtk_widget_add_controller(widget, GTK_EVENT_CONTROLLER(click));
  GtkEventController* motion = gtk_event_controller_motion_new();
  g_signal_connect(motion, "motion", G_CALLBACK(OnMotion), target);
  gtk_widget_add_controller(widget, motion);
  GtkEventController* scroll = gtk_event_controller_scroll_new(
      static_cast<GtkEventControllerScrollFlags>(GTK_EVENT_CONTROLLER_SCROLL_VERTICAL));
  g_signal_connect(scroll, "scroll", G_CALLBACK(OnScroll), target);
  gtk_widget_add_controller(widget, scroll);
}

void DrawPopup(GtkDrawingArea*, cairo_t* cr, int, int, gpointer data) {
  HWND top = static_cast<HWND>(reinterpret_cast<uintptr_t>(data));
  const Canvas* pixels = TheRouter().Platform().Pixels(top);
  if (!pixels) {
    return;
  }
  cairo_surface_t* surface = cairo_image_surface_create_for_data(
      reinterpret_cast<unsigned char*>(const_cast<uint32_t*>(pixels->Data())), CAIRO_FORMAT_ARGB32,
      pixels->Width(), pixels->Height(), pixels->Stride());
  cairo_set_source_surface(cr, surface, 0, 0);
  cairo_paint(cr);
  cairo_surface_destroy(surface);
}

void Router::TopLevelShown(HWND top, const Rect& client) {
  if (widgets_.count(top)) {
    return;
  }
  TarnbrookGtkControl* owner = OwnerOf(client);
  if (!owner) {
    return; // a window of no widget's (a message box ...) stays in the simulator
  }
  Popup* popup = FindPopup(top);
  if (!popup) {
    Popup made;
    made.popover = gtk_popover_new();
    gtk_widget_add_css_class(made.popover, "tarnbrook-popup");
    gtk_popover_set_autohide(GTK_POPOVER(made.popover), FALSE);
    gtk_popover_set_has_arrow(GTK_POPOVER(made.popover), FALSE);
    made.area = gtk_drawing_area_new();
    gtk_drawing_area_set_draw_func(GTK_DRAWING_AREA(made.area), DrawPopup,
                                   reinterpret_cast<gpointer>(static_cast<uintptr_t>(top)),
                                   nullptr);
    auto* target = new PointerTarget{owner, top};
    AddPointerControllers(made.area, target);
    g_object_set_data_full(G_OBJECT(made.area), "tarnbrook-target", target,
                           [](gpointer p) { delete static_cast<PointerTarget*>(p); });
    gtk_popover_set_child(GTK_POPOVER(made.popover), made.area);
    gtk_widget_set_parent(made.popover, GTK_WIDGET(owner));
    popup = &(owner->state->popups[top] = made);
  }
  popup->client = client;
  PlacePopover(owner, *popup);
  gtk_popover_popup(GTK_POPOVER(popup->popover));
}

void Router::TopLevelMoved(HWND top, const Rect& client) {
  TarnbrookGtkControl* owner = nullptr;
  if (Popup* popup = FindPopup(top, &owner)) {
    popup->client = client;
    PlacePopover(owner, *popup);
    gtk_popover_present(GTK_POPOVER(popup->popover));
  }
}

void Router::TopLevelHidden(HWND top) {
  if (Popup* popup = FindPopup(top)) {
    gtk_popover_popdown(GTK_POPOVER(popup->popover));
  }
}

void Router::TopLevelDestroyed(HWND top) {
  TarnbrookGtkControl* owner = nullptr;
  if (Popup* popup = FindPopup(top, &owner)) {
    gtk_widget_unparent(popup->popover);
    owner->state->popups.erase(top);
  }
}

void Router::Damaged(HWND top, const Rect&) {
  if (auto it = widgets_.find(top); it != widgets_.end()) {
    g_clear_object(&it->second->state->texture);
    gtk_widget_queue_draw(GTK_WIDGET(it->second));
  } else if (Popup* popup = FindPopup(top)) {
    gtk_widget_queue_draw(popup->area);
  }
}

void Router::CursorChanged(int shape) {
  for (auto& [form, widget] : widgets_) {
    gtk_widget_set_cursor_from_name(GTK_WIDGET(widget), CursorName(shape));
    for (auto& [top, popup] : widget->state->popups) {
      gtk_widget_set_cursor_from_name(popup.area, CursorName(shape));
    }
  }
}

void Router::WakeIn(std::optional<uint32_t> milliseconds) {
  if (wake_) {
    g_source_remove(wake_);
    wake_ = 0;
  }
  if (milliseconds) {
    wake_ = g_timeout_add(
        std::max<uint32_t>(*milliseconds, 1),
        [](gpointer data) -> gboolean {
          auto* router = static_cast<Router*>(data);
          router->wake_ = 0;
          router->Process();
          return G_SOURCE_REMOVE;
        },
        this);
  }
}

// A pop-up belongs to the widget whose slot it opens in.
TarnbrookGtkControl* Router::OwnerOf(const Rect& client) const {
  for (auto& [form, widget] : widgets_) {
    Point slot{widget->state->origin.x - SlotMargin, widget->state->origin.y - SlotMargin};
    if (client.left >= slot.x && client.left < slot.x + Slot && client.top >= slot.y &&
        client.top < slot.y + Slot) {
      return widget;
    }
  }
  return nullptr;
}

Popup* Router::FindPopup(HWND top, TarnbrookGtkControl** owner) {
  for (auto& [form, widget] : widgets_) {
    auto it = widget->state->popups.find(top);
    if (it != widget->state->popups.end()) {
      if (owner) {
        *owner = widget;
      }
      return &it->second;
    }
  }
  return nullptr;
}

// Tab order as the form walks it: by the handles from the form down, which grow with
// creation.
std::vector<HWND> PlaceOf(HWND hwnd, HWND form) {
  std::vector<HWND> place;
  HostedPlatform& platform = TheRouter().Platform();
  for (; hwnd && hwnd != form; hwnd = platform.GetParent(hwnd)) {
    place.insert(place.begin(), hwnd);
  }
  return place;
}

bool OwnsFocus(TarnbrookGtkControl* self) {
  HostedPlatform& platform = TheRouter().Platform();
  HWND form = self->state->form->hWnd();
  for (HWND hwnd = platform.GetFocus(); hwnd; hwnd = platform.GetParent(hwnd)) {
    if (hwnd == form) {
      return true;
    }
  }
  return false;
}

// Tab moves the focus within the control while there is a stop further on; past the last,
// the key goes on to GTK, which moves the focus to the next widget.
gboolean OnKeyPressed(GtkEventControllerKey*, guint keyval, guint, GdkModifierType state,
                      gpointer data) {
  auto* self = static_cast<TarnbrookGtkControl*>(data);
  HostedPlatform& platform = TheRouter().Platform();
  int virtualKey = VirtualKeyFromKeysym(keyval);
  if (virtualKey == VK_TAB) {
    if (state & (GDK_CONTROL_MASK | GDK_ALT_MASK)) {
      return FALSE;
    }
    bool forward = !(state & GDK_SHIFT_MASK);
    HWND form = self->state->form->hWnd();
    HWND before = platform.GetFocus();
    platform.KeyDown(VK_TAB);
    platform.KeyUp(VK_TAB);
    TheRouter().Process();
    HWND after = platform.GetFocus();
    bool movedOn = after != before && OwnsFocus(self) &&
                   (forward ? PlaceOf(after, form) > PlaceOf(before, form)
                            : PlaceOf(after, form) < PlaceOf(before, form));
    return movedOn;
  }
  if (virtualKey) {
    platform.KeyDown(virtualKey);
  } else if (keyval >= 0xA0 && keyval <= 0xFF) {
    platform.TypeChar(static_cast<char>(keyval));
  } else {
    return FALSE;
  }
  TheRouter().Process();
  return TRUE;
}

void OnKeyReleased(GtkEventControllerKey*, guint keyval, guint, GdkModifierType, gpointer) {
  int virtualKey = VirtualKeyFromKeysym(keyval);
  if (virtualKey && virtualKey != VK_TAB) {
    TheRouter().Platform().KeyUp(virtualKey);
    TheRouter().Process();
  }
}

void OnFocusEnter(GtkEventControllerFocus*, gpointer data) {
  auto* self = static_cast<TarnbrookGtkControl*>(data);
  if (!OwnsFocus(self)) {
    self->state->control->SetFocus();
    TheRouter().Process();
  }
}

void OnFocusLeave(GtkEventControllerFocus*, gpointer data) {
  auto* self = static_cast<TarnbrookGtkControl*>(data);
  if (OwnsFocus(self)) {
    TheRouter().Platform().SetFocus(0);
    TheRouter().Process();
  }
}

void Measure(GtkWidget* widget, GtkOrientation orientation, int, int* minimum, int* natural, int*,
             int*) {
  auto* self = TARNBROOK_GTK_CONTROL(widget);
  Rect client = TheRouter().Platform().GetClientRect(self->state->form->hWnd());
  *minimum = *natural =
      orientation == GTK_ORIENTATION_HORIZONTAL ? client.Width() : client.Height();
}

void Snapshot(GtkWidget* widget, GtkSnapshot* snapshot) {
  auto* self = TARNBROOK_GTK_CONTROL(widget);
  State& state = *self->state;
  if (!state.texture) {
    if (const Canvas* pixels = TheRouter().Platform().Pixels(state.form->hWnd())) {
      state.texture = TextureOf(*pixels);
    }
  }
  if (state.texture) {
    graphene_rect_t bounds =
        GRAPHENE_RECT_INIT(0, 0, static_cast<float>(gdk_texture_get_width(state.texture)),
                           static_cast<float>(gdk_texture_get_height(state.texture)));
    gtk_snapshot_append_texture(snapshot, state.texture, &bounds);
  }
}

// Popovers are children of the widget: they are placed with it.
void SizeAllocate(GtkWidget* widget, int, int, int) {
  for (auto& [top, popup] : TARNBROOK_GTK_CONTROL(widget)->state->popups) {
    gtk_popover_present(GTK_POPOVER(popup.popover));
  }
}

void Dispose(GObject* object) {
  auto* self = TARNBROOK_GTK_CONTROL(object);
  if (State* state = self->state) {
    for (auto& [top, popup] : state->popups) {
      gtk_widget_unparent(popup.popover);
    }
    state->popups.clear();
    state->connection.reset();
    if (state->form) {
      TheRouter().Delist(state->form->hWnd());
      state->form.reset();
      TheRouter().Process();
    }
    g_clear_object(&state->texture);
    delete state;
    self->state = nullptr;
  }
  G_OBJECT_CLASS(tarnbrook_gtk_control_parent_class)->dispose(object);
}

std::string ArgumentsText(const std::vector<Variant>& args) {
  std::string text;
  for (const Variant& arg : args) {
    if (!text.empty()) {
      text += ' ';
    }
    text += arg.ToString();
  }
  return text;
}

// Each class's size on a new form.
Size DefaultSize(const std::string& className) {
  if (className == "MonthCalendar") {
    return {204, 180};
  }
  if (className == "DateSelect") {
    return {300, 74};
  }
  return {150, 21};
}

} // namespace

Control& ControlOf(TarnbrookGtkControl* widget) {
  return *widget->state->control;
}

Dispatch DispatchOf(TarnbrookGtkControl* widget) {
  return Dispatch(*widget->state->control);
}

void SetEventHandler(TarnbrookGtkControl* widget, EventHandler handler) {
  widget->state->handler = std::move(handler);
}

HostedPlatform& SharedPlatform() {
  return TheRouter().Platform();
}

} // namespace tarnbrook::gtk

static void tarnbrook_gtk_control_class_init(TarnbrookGtkControlClass* klass) {
  using namespace tarnbrook::gtk;
  GtkWidgetClass* widgetClass = GTK_WIDGET_CLASS(klass);
  widgetClass->measure = Measure;
  widgetClass->snapshot = Snapshot;
  widgetClass->size_allocate = SizeAllocate;
  G_OBJECT_CLASS(klass)->dispose = Dispose;
  controlEventSignal =
      g_signal_new("control-event", G_TYPE_FROM_CLASS(klass), G_SIGNAL_RUN_LAST, 0, nullptr,
                   nullptr, nullptr, G_TYPE_NONE, 2, G_TYPE_STRING, G_TYPE_STRING);

  GtkCssProvider* css = gtk_css_provider_new();
  gtk_css_provider_load_from_data(css,
                                  "popover.tarnbrook-popup > contents { padding: 0; margin: 0;"
                                  " border: none; border-radius: 0; box-shadow: none; }",
                                  -1);
  if (GdkDisplay* display = gdk_display_get_default()) {
    gtk_style_context_add_provider_for_display(display, GTK_STYLE_PROVIDER(css),
                                               GTK_STYLE_PROVIDER_PRIORITY_APPLICATION);
  }
  g_object_unref(css);
}

static void tarnbrook_gtk_control_init(TarnbrookGtkControl* self) {
  self->state = nullptr;
  gtk_widget_set_focusable(GTK_WIDGET(self), TRUE);
}

GtkWidget* tarnbrook_gtk_control_new(const char* prog_id) {
  using namespace tarnbrook;
  using namespace tarnbrook::gtk;
  Router& router = TheRouter();
  const ClassRegistration* registration = FindRegistration(prog_id ? prog_id : "");
  if (!registration) {
    g_warning("Tarnbrook makes no control \"%s\"", prog_id ? prog_id : "(null)");
    return nullptr;
  }
  auto* self = TARNBROOK_GTK_CONTROL(g_object_new(TARNBROOK_TYPE_GTK_CONTROL, nullptr));
  auto* state = self->state = new State;
  HostedPlatform& platform = router.Platform();
  Size size = DefaultSize(registration->className);
  state->form = std::make_unique<Container>(size.cx, size.cy, "");
  state->origin = router.NewSlot();
  HWND form = state->form->hWnd();
  state->control = &state->form->Add(CreateObject(prog_id, form), registration->className + "1", 0,
                                     0, size.cx, size.cy);
  // The control may take a size of its own; the form follows it.
  Rect bounds = platform.GetWindowRect(state->control->hWnd());
  platform.MoveWindow(form, state->origin.x, state->origin.y, bounds.Width(), bounds.Height(),
                      true);
  router.Enlist(form, self);

  state->connection = Dispatch(*state->control)
                          .Connect([self](const std::string& event, std::vector<Variant>& args) {
                            if (self->state->handler) {
                              self->state->handler(event, args);
                            }
                            std::string text = ArgumentsText(args);
                            g_signal_emit(self, controlEventSignal, 0, event.c_str(), text.c_str());
                          });

  auto* target = new PointerTarget{self, 0};
  AddPointerControllers(GTK_WIDGET(self), target);
  g_object_set_data_full(G_OBJECT(self), "tarnbrook-target", target,
                         [](gpointer p) { delete static_cast<PointerTarget*>(p); });
  GtkEventController* keys = gtk_event_controller_key_new();
  g_signal_connect(keys, "key-pressed", G_CALLBACK(OnKeyPressed), self);
  g_signal_connect(keys, "key-released", G_CALLBACK(OnKeyReleased), self);
  gtk_widget_add_controller(GTK_WIDGET(self), keys);
  GtkEventController* focus = gtk_event_controller_focus_new();
  g_signal_connect(focus, "enter", G_CALLBACK(OnFocusEnter), self);
  g_signal_connect(focus, "leave", G_CALLBACK(OnFocusLeave), self);
  gtk_widget_add_controller(GTK_WIDGET(self), focus);

  router.Process();
  return GTK_WIDGET(self);
}
