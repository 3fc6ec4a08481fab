#include "cli/Session.h"

#include <CLI/CLI.hpp>

namespace qv {

void AddKindOption(CLI::App& command, FileOptions& options, const std::string& kinds) {
  command.add_option("--kind", options.kind, "what the file lists: " + kinds + " (required)")
      ->type_name("KIND");
}

void AddConfigOption(CLI::App& command, std::optional<std::string>& config) {
  command.add_option("--config", config, "the format file")->type_name("FILE");
}

void AddFormatOption(CLI::App& command, FileOptions& options) {
  command
      .add_option("--format", options.format,
                  "the file's format (default: the one the file names, else the current one)")
      ->type_name("NAME");
}

void AddFileArgument(CLI::App& command, FileOptions& options, const std::string& name,
                     const std::string& what) {
  command.add_option(name, options.file, what)->required()->type_name("");
}

}  // namespace qv
