#pragma once

#include "cli/Progress.h"
#include "cli/Remarks.h"
#include "cli/Streams.h"
#include "cli/TextCoding.h"

#include <functional>
#include <optional>
#include <string>

namespace CLI {
class App;
}

namespace qv {

/// One run of the program: what all commands share.
struct Session {
  explicit Session(const Streams& given) : streams(given), progress(streams), remarks(streams, progress) {}

  const Streams& streams;
  Progress progress;
  Remarks remarks;
  TextCoding coding;  ///< of data files and records

  /// The command that the command line asks for; set while it is parsed. Returns an exit code.
  std::function<int()> command;

  /// Throws FileErrorTold when standard output does not take all of the text.
  void Write(std::string_view text) const;
};

/// The options that most commands have.
struct FileOptions {
  std::string kind;
  std::optional<std::string> config;
  std::optional<std::string> format;
  std::string file;
};

void AddKindOption(CLI::App& command, FileOptions& options, const std::string& kinds);
void AddConfigOption(CLI::App& command, std::optional<std::string>& config);
void AddFormatOption(CLI::App& command, FileOptions& options);
/// The data file as the command's positional argument.
void AddFileArgument(CLI::App& command, FileOptions& options, const std::string& name,
                     const std::string& what);

/// Each adds one command to the program.
void AddImportCommand(CLI::App& program, Session& session);
void AddExportCommand(CLI::App& program, Session& session);
void AddConvertCommand(CLI::App& program, Session& session);
void AddHeadersCommand(CLI::App& program, Session& session);
void AddCheckCommand(CLI::App& program, Session& session);
void AddFormatsCommand(CLI::App& program, Session& session);
void AddFormatNameCommand(CLI::App& program, Session& session);
void AddOptionsCommand(CLI::App& program, Session& session);

}  // namespace qv
