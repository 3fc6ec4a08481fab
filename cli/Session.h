#pragma once

#include "cli/DiagnosticPrinter.h"
#include "cli/StandardStreams.h"
#include "cli/TextCoding.h"
#include "cli/terminal/Progress.h"
#include "platform/spreadsheet/SpreadsheetApplication.h"

#include <functional>
#include <optional>
#include <string>

namespace CLI {
class App;
}

namespace qv {

/// One run of the program: what all commands share.
struct Session {
  explicit Session(const Streams& given)
      : streams(given), progress(streams), diagnostics(streams, progress) {}

  const Streams& streams;
  Progress progress;
  DiagnosticPrinter diagnostics;
  TextCoding coding;  ///< of data files and records
  SharedSpreadsheet spreadsheet;
  std::optional<StandardStreams> standardStreams;  ///< where the command reads or writes one as a file

  /// The command that the command line asks for; set while it is parsed. Returns an exit code.
  std::function<int()> command;

  /// Throws ReportedFileError when standard output does not take all of the text.
  void Write(std::string_view text);
};

/// The options that most commands have.
struct FileOptions {
  std::string kind;
  std::optional<std::string> config;
  std::optional<std::string> format;
  std::optional<std::string> type;
  std::string file;
  bool hasDecimalComma = false;
};

void AddKindOption(CLI::App& command, FileOptions& options, const std::string& kinds);
void AddConfigOption(CLI::App& command, std::optional<std::string>& config);
void AddFormatOption(CLI::App& command, FileOptions& options);
void AddTypeOption(CLI::App& command, std::optional<std::string>& type);
/// Of commands that read data files, and of those that write them.
void AddDecimalCommaOption(CLI::App& command, bool& hasDecimalComma);
void AddToDecimalCommaOption(CLI::App& command, bool& hasDecimalComma);
/// The data file as the command's positional argument.
void AddFileArgument(CLI::App& command, FileOptions& options, const std::string& name,
                     const std::string& what);

/// Makes standard input the file that is read and standard output the one that is written where these are
/// "-". Either may be null. Throws UsageError where --type, which tells what they hold, is missing or has no
/// use.
void TakeStreams(Session& session, const std::optional<std::string>& type, std::string* read,
                 std::string* written);

/// Each adds one command to the program.
void AddImportCommand(CLI::App& program, Session& session);
void AddExportCommand(CLI::App& program, Session& session);
void AddConvertCommand(CLI::App& program, Session& session);
void AddHeadersCommand(CLI::App& program, Session& session);
void AddCheckCommand(CLI::App& program, Session& session);
void AddFormatsCommand(CLI::App& program, Session& session);
void AddKeywordsCommand(CLI::App& program, Session& session);
void AddFormatNameCommand(CLI::App& program, Session& session);
void AddOptionsCommand(CLI::App& program, Session& session);

}  // namespace qv
