#pragma once

#include "cli/DiagnosticPrinter.h"
#include "cli/StandardStreams.h"
#include "cli/TextCoding.h"
#include "cli/terminal/Progress.h"
#include "platform/spreadsheet/SpreadsheetApplication.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace qv {

/// One run of the program: what all commands share.
struct Session {
  explicit Session(const Streams& given)
      : streams(given), progress(streams), diagnostics(streams, progress, coding) {}

  const Streams& streams;
  TextCoding coding;  ///< of data files and records
  Progress progress;
  DiagnosticPrinter diagnostics;
  SharedSpreadsheet spreadsheet;
  std::unique_ptr<FileSystem> standardStreams;  ///< where the command reads or writes one as a file

  /// The command that the command line asks for; set while it is parsed. Returns an exit code.
  std::function<int()> command;

  /// Throws ReportedFileError when standard output does not take all of the text.
  void Write(std::string_view text);
};

/// Puts the standard streams in the place of files that are "-". Either file may be null. Throws UsageError
/// where --type, which tells what they hold, is missing or has no use.
void TakeStreams(Session& session, const std::optional<std::string>& type, std::string* read,
                 std::string* written);

}  // namespace qv
