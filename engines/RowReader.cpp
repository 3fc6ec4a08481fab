#include "engines/RowReader.h"

namespace qv {

RowReader::RowReader(CTxtAssembly& engine, LineReader& lines)
    : engine_(engine), lines_(lines), splitter_(engine.ViewSplitter()), lineNumber_(lines.LineNumber()) {
  splitsManyLines_ = splitter_ && splitter_->EndAtLineFeeds();
}

void RowReader::KeepAtMost(std::size_t fields) {
  if (splitter_) splitter_->KeepAtMost(fields);
}

bool RowReader::Next() {
  if (!splitsManyLines_) return NextByLine();
  if (next_ == end_) {
    std::string_view lines;
    if (!lines_.NextLines(lines)) return false;
    next_ = lines.data();
    end_ = next_ + lines.size();
    splitter_->Start(next_, end_);
  }
  const char* const lineEnd = splitter_->SplitRow(next_, row_);
  next_ = lineEnd == end_ ? end_ : lineEnd + 1;
  ++lineNumber_;
  return true;
}

bool RowReader::NextByLine() {
  std::string_view line;
  if (!lines_.Next(line)) return false;
  ++lineNumber_;
  if (splitter_) {
    splitter_->Split(line, row_);
    return true;
  }
  texts_.clear();
  engine_.SplitLine(std::string(line), texts_);
  row_.Show(texts_, texts_.size());
  row_.line = line;
  return true;
}

}  // namespace qv
