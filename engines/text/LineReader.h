#pragma once

#include "platform/FileSystem.h"
#include "platform/Handlers.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace qv {

/// Hands out the lines of a text file as views of a block of it. A line ends with LF or CR LF, on every
/// platform; a CR anywhere else is a character. The last line needs no line end.
class LineReader {
 public:
  /// `endOfText` is the byte that ends a text where it stands, or negative for none. A `meter` is told of
  /// every block, and can cancel before the lines of a block are handed out.
  explicit LineReader(OpenFile& file, int endOfText = kEndOfText, ProgressMeter* meter = nullptr);

  /// The next line without its line end, valid until the next call; false at the end of the file or on
  /// failure.
  bool Next(std::string_view& line);

  /// The 1-based number of the line that Next() handed out last.
  std::int64_t LineNumber() const { return lineNumber_; }

  /// All whole lines that the block holds, as they are in the file, valid until the next call; false at the
  /// end of the file or on failure. Counting them is the caller's.
  bool NextLines(std::string_view& lines);

  /// True when reading stopped because the system reported an error.
  bool HasFailed() const { return failed_; }

  /// True when reading stopped at the byte that ends a text with text after it.
  bool WasCutOff() const { return cutOff_; }

 private:
  bool FillToLineEnd();
  std::string_view Fill();
  bool GoesOn(std::string_view rest);

  OpenFile& file_;
  const int endOfText_;
  ProgressMeter* const meter_;
  std::vector<char> block_;
  std::size_t begin_ = 0;  // of what has not been handed out
  std::size_t whole_ = 0;  // the end of the last whole line
  std::size_t end_ = 0;
  std::int64_t lineNumber_ = 0;
  bool atEnd_ = false;
  bool failed_ = false;
  bool cutOff_ = false;
};

}  // namespace qv
