#include "dialogs/gtk/Icons.h"

#include "dialogs/gtk/IconBytes.h"

#include <algorithm>
#include <span>

namespace qv {

namespace {

constexpr int kIconSize = 16;

constexpr std::span<const unsigned char> kBytes[] = {kUpPng, kDownPng, kRefreshPng};  // by Icon

GdkPixbuf* NewPixbuf(Icon icon, int size) {
  const std::span<const unsigned char> bytes = kBytes[static_cast<int>(icon)];
  GInputStream* const stream =
      g_memory_input_stream_new_from_data(bytes.data(), static_cast<gssize>(bytes.size()), nullptr);
  GdkPixbuf* const pixbuf = gdk_pixbuf_new_from_stream_at_scale(stream, size, size, TRUE, nullptr, nullptr);
  g_object_unref(stream);
  return pixbuf;
}

GtkWidget* NewImage(Icon icon, int scale) {
  GdkPixbuf* const pixbuf = NewPixbuf(icon, kIconSize * scale);
  cairo_surface_t* const surface = gdk_cairo_surface_create_from_pixbuf(pixbuf, scale, nullptr);
  GtkWidget* const image = gtk_image_new_from_surface(surface);
  cairo_surface_destroy(surface);
  g_object_unref(pixbuf);
  // An image of one's own does not pale by itself with its button.
  AddStyle(image, "image:disabled { opacity: 0.35; }");
  return image;
}

}  // namespace

void AddStyle(GtkWidget* widget, const char* css) {
  GtkCssProvider* const style = gtk_css_provider_new();
  gtk_css_provider_load_from_data(style, css, -1, nullptr);
  gtk_style_context_add_provider(gtk_widget_get_style_context(widget), GTK_STYLE_PROVIDER(style),
                                 GTK_STYLE_PROVIDER_PRIORITY_APPLICATION);
  g_object_unref(style);
}

GtkWidget* NewIconButton(Icon icon, const char* text) {
  GtkWidget* const button = gtk_button_new();
  gtk_widget_set_name(button, text);
  gtk_widget_set_tooltip_text(button, text);
  atk_object_set_name(gtk_widget_get_accessible(button), text);
  gtk_button_set_image(GTK_BUTTON(button), NewImage(icon, std::max(1, gtk_widget_get_scale_factor(button))));
  gtk_button_set_always_show_image(GTK_BUTTON(button), TRUE);
  return button;
}

}  // namespace qv
