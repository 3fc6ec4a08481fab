#pragma once

#include <glib.h>

#include <string>

namespace qv {

/// UTF-8 for a widget; bytes of the library's text that are none are replaced.
inline std::string WidgetText(const std::string& text) {
  char* const valid = g_utf8_make_valid(text.data(), static_cast<gssize>(text.size()));
  std::string shown = valid;
  g_free(valid);
  return shown;
}

}  // namespace qv
