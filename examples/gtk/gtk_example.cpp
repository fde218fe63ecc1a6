// A GTK 4 window with an entry, a hosted DatePicker and DateSelect, and another entry. It
// prints each control event, the picker's value after a change, the selection's SQL and
// where the focus goes, one line each; on standard input it takes "bounds", "shot PATH"
// (the window and any open pop-up as PNG files) and "quit".
#include <cstdio>
#include <cstring>
#include <string>

#include "common/date_runtime.hpp"
#include "toolkits/gtk/tarnbrook_gtk.hpp"

namespace {

using namespace tarnbrook;

GtkWidget* window = nullptr;

void Say(const std::string& line) {
  std::printf("%s\n", line.c_str());
  std::fflush(stdout);
}

void OnControlEvent(GtkWidget* widget, const char* name, const char* arguments, gpointer) {
  std::string who = gtk_widget_get_name(widget);
  Say(who + " " + name + (*arguments ? " " : "") + arguments);
  Dispatch control = gtk::DispatchOf(TARNBROOK_GTK_CONTROL(widget));
  if (who == "picker1" && std::strcmp(name, "Change") == 0) {
    Say("picker1 Value " + control.Get("Value").ToString());
  } else if (who == "select1" && std::strcmp(name, "SelectionChange") == 0) {
    Say("select1 SQL " + control.Call("SQL").ToString());
  }
}

void OnFocus(GObject*, GParamSpec*, gpointer) {
  GtkWidget* focus = gtk_root_get_focus(GTK_ROOT(window));
  // The entry's text part holds the focus within it.
  while (focus && !gtk_widget_get_name(focus)[0]) {
    focus = gtk_widget_get_parent(focus);
  }
  for (GtkWidget* w = focus; w; w = gtk_widget_get_parent(w)) {
    std::string name = gtk_widget_get_name(w);
    if (name.ends_with("1") || name.ends_with("2")) {
      Say("focus " + name);
      return;
    }
  }
}

void SayBounds() {
  double sx = 0, sy = 0;
  gtk_native_get_surface_transform(GTK_NATIVE(window), &sx, &sy);
  for (GtkWidget* w = gtk_widget_get_first_child(gtk_window_get_child(GTK_WINDOW(window))); w;
       w = gtk_widget_get_next_sibling(w)) {
    graphene_rect_t r;
    if (gtk_widget_compute_bounds(w, window, &r)) {
      Say(std::string("bounds ") + gtk_widget_get_name(w) + " " +
          std::to_string(static_cast<int>(r.origin.x + sx)) + " " +
          std::to_string(static_cast<int>(r.origin.y + sy)) + " " +
          std::to_string(static_cast<int>(r.size.width)) + " " +
          std::to_string(static_cast<int>(r.size.height)));
    }
  }
  Say("bounds done");
}

void WritePng(GtkWidget* widget, const std::string& path) {
  GdkPaintable* paintable = gtk_widget_paintable_new(widget);
  int w = gtk_widget_get_width(widget), h = gtk_widget_get_height(widget);
  GtkSnapshot* snapshot = gtk_snapshot_new();
  gdk_paintable_snapshot(paintable, snapshot, w, h);
  GskRenderNode* node = gtk_snapshot_free_to_node(snapshot);
  if (node) {
    GskRenderer* renderer = gtk_native_get_renderer(gtk_widget_get_native(widget));
    GdkTexture* texture = gsk_renderer_render_texture(renderer, node, nullptr);
    gdk_texture_save_to_png(texture, path.c_str());
    g_object_unref(texture);
    gsk_render_node_unref(node);
  }
  g_object_unref(paintable);
}

// The window, and each open popover of a control beside it as PATH-N.png.
void Shot(const std::string& path) {
  WritePng(window, path + ".png");
  int n = 0;
  for (GtkWidget *box = gtk_window_get_child(GTK_WINDOW(window)),
                 *w = gtk_widget_get_first_child(box);
       w; w = gtk_widget_get_next_sibling(w)) {
    for (GtkWidget* c = gtk_widget_get_first_child(w); c; c = gtk_widget_get_next_sibling(c)) {
      if (GTK_IS_POPOVER(c) && gtk_widget_get_visible(c)) {
        WritePng(c, path + "-" + std::to_string(++n) + ".png");
      }
    }
  }
  Say("shot " + path);
}

gboolean OnInput(GIOChannel* channel, GIOCondition, gpointer) {
  gchar* line = nullptr;
  if (g_io_channel_read_line(channel, &line, nullptr, nullptr, nullptr) != G_IO_STATUS_NORMAL) {
    gtk_window_destroy(GTK_WINDOW(window));
    return G_SOURCE_REMOVE;
  }
  std::string command = g_strstrip(line);
  g_free(line);
  if (command == "bounds") {
    SayBounds();
  } else if (command.starts_with("shot ")) {
    Shot(command.substr(5));
  } else if (command == "quit") {
    gtk_window_destroy(GTK_WINDOW(window));
    return G_SOURCE_REMOVE;
  }
  return G_SOURCE_CONTINUE;
}

GtkWidget* Named(GtkWidget* widget, const char* name) {
  gtk_widget_set_name(widget, name);
  return widget;
}

} // namespace

int main(int argc, char** argv) {
  gtk_init();
  for (int i = 1; i + 1 < argc; ++i) {
    int y = 0, m = 0, d = 0;
    if (std::strcmp(argv[i], "--today") == 0 &&
        std::sscanf(argv[i + 1], "%d-%d-%d", &y, &m, &d) == 3) {
      gtk::SharedPlatform().SetNow(DateSerial(y, m, d) + 0.5);
    }
  }
  window = gtk_window_new();
  gtk_window_set_title(GTK_WINDOW(window), "Tarnbrook in GTK");
  gtk_window_set_default_size(GTK_WINDOW(window), 360, 240);
  GtkWidget* box = gtk_box_new(GTK_ORIENTATION_VERTICAL, 8);
  gtk_widget_set_margin_start(box, 12);
  gtk_widget_set_margin_top(box, 12);
  gtk_widget_set_margin_end(box, 12);
  gtk_widget_set_margin_bottom(box, 12);
  gtk_box_append(GTK_BOX(box), Named(gtk_entry_new(), "entry1"));
  GtkWidget* picker = Named(tarnbrook_gtk_control_new("Tarnbrook.DatePicker"), "picker1");
  GtkWidget* select = Named(tarnbrook_gtk_control_new("Tarnbrook.DateSelect"), "select1");
  for (GtkWidget* control : {picker, select}) {
    gtk_widget_set_halign(control, GTK_ALIGN_START);
    g_signal_connect(control, "control-event", G_CALLBACK(OnControlEvent), nullptr);
    gtk_box_append(GTK_BOX(box), control);
  }
  gtk_box_append(GTK_BOX(box), Named(gtk_entry_new(), "entry2"));
  gtk_window_set_child(GTK_WINDOW(window), box);
  g_signal_connect(window, "notify::focus-widget", G_CALLBACK(OnFocus), nullptr);

  GIOChannel* input = g_io_channel_unix_new(0);
  g_io_add_watch(input, static_cast<GIOCondition>(G_IO_IN | G_IO_HUP), OnInput, nullptr);
  gtk_window_present(GTK_WINDOW(window));
  // Ready once the window is laid out and painted.
  GdkFrameClock* clock = gdk_surface_get_frame_clock(gtk_native_get_surface(GTK_NATIVE(window)));
  g_signal_connect(clock, "after-paint", G_CALLBACK(+[](GdkFrameClock* clock, gpointer) {
                     g_signal_handlers_disconnect_matched(clock, G_SIGNAL_MATCH_DATA, 0, 0, nullptr,
                                                          nullptr, window);
                     Say("ready");
                   }),
                   window);

  while (g_list_model_get_n_items(gtk_window_get_toplevels()) > 0) {
    g_main_context_iteration(nullptr, TRUE);
  }
  g_io_channel_unref(input);
  return 0;
}
