#include "engines/FieldTrim.h"

namespace qv {

std::string_view TrimField(std::string_view field) {
  while (!field.empty() && field.front() == ' ') field.remove_prefix(1);
  while (!field.empty() && field.back() == ' ') field.remove_suffix(1);
  if (!field.empty() && field.front() == '"') field.remove_prefix(1);
  if (!field.empty() && field.back() == '"') field.remove_suffix(1);
  return field;
}

}  // namespace qv
