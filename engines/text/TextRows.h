#pragma once

#include "engines/RecordStreams.h"
#include "engines/text/CTxtAssembly.h"
#include "engines/text/FieldSplitter.h"
#include "engines/text/LineReader.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qv {

/// The rows of a text file, split as the engine does: in one pass and without copies where the engine uses
/// the rules of this library, through its virtual operation where it has rules of its own.
class TextRows {
 public:
  static constexpr bool kHasTexts = true;  // of numbers too

  /// Opens the diagnostics' file and skips the lines before the header row.
  TextRows(CTxtAssembly& engine, const FileDiagnostics& diagnostics);

  /// Reads the header row; false when the file has none. A text file's headers are never the keywords.
  bool ReadHeader(TextList& headers, const std::vector<std::string>& keywords);

  /// Later fields are counted but not kept, where the rules are this library's.
  void KeepAtMost(std::size_t fields);

  /// Goes to the next line; false, with the file closed, when there is none.
  bool Next();

  /// The line and its fields, valid until the next call of Next().
  const FieldViews& Row() const { return row_; }
  std::int64_t LineNumber() const { return lineNumber_; }

  bool HasFailed() const { return hasFailed_; }

 private:
  void SkipTo(int line);
  bool Advance();
  bool AdvanceByLine();
  bool Finish();
  void CheckStart(std::string_view line) const;
  void CheckLine() const;

  CTxtAssembly& engine_;
  const FileDiagnostics& diagnostics_;
  ProgressMeter meter_;
  std::unique_ptr<OpenFile> file_;  // null when nothing can be read (any more)
  std::optional<LineReader> lines_;
  std::optional<FieldSplitter> splitter_;
  bool splitsManyLines_ = false;
  const char* next_ = nullptr;  // where the next line begins
  const char* end_ = nullptr;   // of the lines that the splitter is at
  FieldViews row_;
  std::vector<std::string> texts_;
  std::int64_t lineNumber_ = 0;
  bool hasFailed_ = false;
};

}  // namespace qv
