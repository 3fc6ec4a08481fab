#include "manager/FileStart.h"

#include "engines/CAssemblyFile.h"
#include "engines/text/FormatNameLine.h"

namespace qv {

std::string StoredFormatName(const char* path) {
  std::string name;
  if (const auto engine = CreateAssemblyEngine(path)) engine->ReadFormatName(name, path);
  return name;
}

std::string FormatNameIn(std::string_view bytes) {
  const std::size_t lineFeed = bytes.find('\n');
  std::string_view line = bytes.substr(0, lineFeed);
  if (lineFeed != std::string_view::npos && line.ends_with('\r')) line.remove_suffix(1);
  return std::string(NameInLine(line).value_or(""));
}

std::string ExpandFormatName(std::string_view stored) {
  std::string name;
  while (!stored.empty()) {
    const std::size_t percent = stored.find('%');
    name += stored.substr(0, percent);
    if (percent == std::string_view::npos) break;
    stored.remove_prefix(percent + 1);
    // Flags, width, precision and length, then the letter that ends the directive.
    const std::size_t letter = stored.find_first_not_of("-+ #0123456789.*hlLjztIw");
    if (letter == std::string_view::npos) break;
    if (letter == 0 && stored[letter] == '%') name += '%';
    stored.remove_prefix(letter + 1);
  }
  return name;
}

std::vector<std::string> ReadHeaders(const OptionForm& form, const char* path) {
  const auto engine = CreateAssemblyEngine(path);
  if (engine == nullptr) return {};
  // The header row is the same for every kind, and which columns the kind knows does not matter here.
  engine->KindFlags[static_cast<std::size_t>(RecordKind::Parts)] = true;
  ApplyFormat(*engine, form, FileDiagnostics::Silent(path));
  engine->ReadHeaderOnly = true;
  engine->ImportParts(path);
  return engine->HeaderFields.All();
}

}  // namespace qv
