#include "cli/JsonText.h"

#include <algorithm>
#include <nlohmann/json.hpp>

namespace qv {
namespace {

bool NeedsEscape(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte < 0x20 || byte >= 0x7F || c == '"' || c == '\\';
}

}  // namespace

void AppendJsonText(std::string& out, std::string_view utf8) {
  if (std::any_of(utf8.begin(), utf8.end(), NeedsEscape)) {
    out += nlohmann::json(utf8).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
    return;
  }
  out += '"';
  out += utf8;
  out += '"';
}

}  // namespace qv
