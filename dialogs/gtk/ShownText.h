#pragma once

#include <glib.h>

#include <string>
#include <string_view>

namespace qv {

/// UTF-8 for a widget; bytes of the library's text that are none are replaced.
inline std::string WidgetText(const std::string& text) {
  char* const valid = g_utf8_make_valid(text.data(), static_cast<gssize>(text.size()));
  const std::string shown = valid;
  g_free(valid);
  return shown;
}

/// A text that a widget shows and that comes back unchanged, odd bytes included, unless the user changes it.
class ShownText {
 public:
  const char* Show(const std::string& text) {
    text_ = text;
    shown_ = WidgetText(text);
    return shown_.c_str();
  }
  std::string Taken(std::string_view widgetText) const {
    return widgetText == shown_ ? text_ : std::string(widgetText);
  }

 private:
  std::string text_;
  std::string shown_;
};

}  // namespace qv
