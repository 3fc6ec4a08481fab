#pragma once

#include "cli/formats/FormatFile.h"
#include "platform/FileSystem.h"
#include "platform/ReplacingFile.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace qv {

/// Copies lines of a data file to another file, byte for byte with their line ends, in constant memory. The
/// other file appears, or is replaced, when all is done.
class RejectedRows {
 public:
  /// Throws FileError when `target`, which is another file, cannot be written.
  RejectedRows(const Utf8Path& dataFile, Utf8Path target);

  /// Copies the line of this 1-based number, which is greater than that of the last one.
  void Take(std::int64_t line);

  /// Puts the copy in its place, also when no line was taken. Throws FileError.
  void Commit();

 private:
  void Copy(std::string_view bytes);
  void Flush();
  bool Fill();
  bool PassLine(bool isWanted);
  [[noreturn]] void Fail(const std::string& reason) const;

  Utf8Path target_;
  std::string sourceFailure_;
  std::unique_ptr<OpenFile> source_;  // null when the data file cannot be read
  ReplacingFile out_;
  std::string block_;
  std::string_view rest_;    // of the block
  std::int64_t passed_ = 0;  // lines that have been passed by
  std::string waiting_;      // to be written
  std::string failure_;      // the first one of writing
};

}  // namespace qv
