#pragma once

#include "engines/CTxtAssembly.h"
#include "engines/FieldSplitter.h"
#include "engines/LineReader.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qv {

/// Hands out the lines of a file with their fields, split as the engine does: in one pass and without copies
/// where the engine uses the rules of this library, through its virtual operation where it has rules of its
/// own.
class RowReader {
 public:
  /// Goes on where `lines` has stopped, which is not to be used any more but for HasFailed().
  RowReader(CTxtAssembly& engine, LineReader& lines);

  /// Later fields are counted but not kept, where the rules are this library's.
  void KeepAtMost(std::size_t fields);

  /// Goes to the next line; false at the end of the file.
  bool Next();

  /// The line and its fields, valid until the next call of Next().
  const FieldViews& Row() const { return row_; }
  std::int64_t LineNumber() const { return lineNumber_; }

 private:
  bool NextByLine();

  CTxtAssembly& engine_;
  LineReader& lines_;
  std::optional<FieldSplitter> splitter_;
  bool splitsManyLines_ = false;
  const char* next_ = nullptr;  // where the next line begins
  const char* end_ = nullptr;   // of the lines that the splitter is at
  FieldViews row_;
  std::vector<std::string> texts_;
  std::int64_t lineNumber_;
};

}  // namespace qv
