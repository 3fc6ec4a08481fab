#include "engines/text/TextRows.h"

#include "engines/RecordBuilder.h"

namespace qv {
namespace {

bool StartsWithByteOrderMark(std::string_view line) {
  return line.starts_with("\xEF\xBB\xBF") || line.starts_with("\xFF\xFE") || line.starts_with("\xFE\xFF");
}

/// Hands out the bytes of a sample.
class SampleFile final : public OpenFile {
 public:
  explicit SampleFile(std::shared_ptr<const FileSample> sample)
      : sample_(std::move(sample)), rest_(sample_->bytes) {}

  std::ptrdiff_t Read(char* buffer, std::size_t capacity) override {
    const std::size_t count = rest_.copy(buffer, capacity);
    rest_.remove_prefix(count);
    return static_cast<std::ptrdiff_t>(count);
  }
  std::int64_t Size() override { return static_cast<std::int64_t>(sample_->bytes.size()); }
  bool Write(std::string_view) override { return false; }
  bool Flush() override { return false; }
  bool Close() override { return true; }

 private:
  const std::shared_ptr<const FileSample> sample_;
  std::string_view rest_;
};

std::unique_ptr<OpenFile> Open(const CTxtAssembly& engine, const std::string& path, std::string& reason) {
  if (engine.Sample != nullptr) return std::make_unique<SampleFile>(engine.Sample);
  return Files().Open(path, OpenMode::Read, reason);
}

template <class Record>
using TextRecords = BuiltRecords<Record, TextRows>;

}  // namespace

TextRows::TextRows(CTxtAssembly& engine, const FileDiagnostics& diagnostics)
    : engine_(engine),
      diagnostics_(diagnostics),
      meter_(diagnostics.File(), FileProgress::Work::Reading, FileProgress::Unit::Bytes) {
  std::string reason;
  file_ = Open(engine, diagnostics.File(), reason);
  hasFailed_ = file_ == nullptr;
  if (hasFailed_) {
    diagnostics.Report(DiagnosticCode::FileNotOpened, 0, "cannot be read: " + reason);
    return;
  }
  meter_.Expect(file_->Size());
  lines_.emplace(*file_, kEndOfText, &meter_);
  SkipTo(engine.StartLine);
  if (const auto rules = engine.Rules()) splitter_.emplace(*rules);
  splitsManyLines_ = splitter_ && splitter_->EndAtLineFeeds();
}

void TextRows::SkipTo(int line) {
  std::string_view skipped;
  while (lineNumber_ + 1 < line && lines_->Next(skipped))
    if (++lineNumber_ == 1) CheckStart(skipped);
}

bool TextRows::ReadHeader(TextList& headers, const std::vector<std::string>&) {
  headers.Clear();
  if (!Next()) {
    if (!hasFailed_ && lineNumber_ > 0) diagnostics_.ReportNoHeaderRow(lineNumber_, engine_.StartLine);
    return false;
  }
  for (const std::string_view field : row_.fields) headers.Append(field);
  return true;
}

void TextRows::KeepAtMost(std::size_t fields) {
  if (splitter_) splitter_->KeepAtMost(fields);
}

bool TextRows::Next() {
  if (!Advance()) return Finish();
  if (diagnostics_.IsWanted()) CheckLine();
  return true;
}

bool TextRows::Advance() {
  if (!splitsManyLines_) return AdvanceByLine();
  if (next_ == end_) {
    std::string_view lines;
    if (!lines_ || !lines_->NextLines(lines)) return false;
    next_ = lines.data();
    end_ = next_ + lines.size();
    splitter_->Start(next_, end_);
  }
  const char* const lineEnd = splitter_->SplitRow(next_, row_);
  next_ = lineEnd == end_ ? end_ : lineEnd + 1;
  ++lineNumber_;
  return true;
}

bool TextRows::AdvanceByLine() {
  std::string_view line;
  if (!lines_ || !lines_->Next(line)) return false;
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

// Says why there is no more; always false.
bool TextRows::Finish() {
  if (file_ == nullptr) return false;
  hasFailed_ = lines_->HasFailed() || meter_.IsCancelled();
  if (meter_.IsCancelled())
    diagnostics_.Report(DiagnosticCode::Cancelled, lineNumber_, "cancelled; reading stopped here");
  else if (lines_->HasFailed())
    diagnostics_.Report(DiagnosticCode::FileNotOpened, lineNumber_,
                        "reading stopped here: the system reports an error");
  else if (lines_->WasCutOff())
    diagnostics_.Report(
        DiagnosticCode::EndOfText, lineNumber_,
        "the text ends here with the byte 1A (hex); what the file holds after it is not read");
  lines_.reset();
  file_.reset();  // it may be about to be replaced
  return false;
}

void TextRows::CheckStart(std::string_view line) const {
  if (StartsWithByteOrderMark(line))
    diagnostics_.Report(DiagnosticCode::ByteOrderMark, 1, {}, line.substr(0, 3), {},
                        "the file starts with a byte-order mark; it is kept as part of the line");
}

// What does not concern a single column.
void TextRows::CheckLine() const {
  const auto report = [&](DiagnosticCode code, std::string_view text, std::string message) {
    diagnostics_.Report(code, lineNumber_, {}, text, {}, std::move(message));
  };
  const std::string_view line = row_.line;
  if (lineNumber_ == 1) CheckStart(line);
  if (line.find('\0') != std::string_view::npos)
    report(DiagnosticCode::NulByte, line, "the line holds NUL bytes; a text ends at the first");
  else if (line.find('\r') != std::string_view::npos)
    report(DiagnosticCode::CarriageReturn, line,
           "the line holds a carriage return, which ends no line; it is kept as a character");
  if (row_.openQualifier)
    report(DiagnosticCode::OpenQualifier, line,
           "a text qualifier is still open at the end of the line; it took the delimiters after it");
  if (row_.droppedQuote)
    report(DiagnosticCode::StrayQuote, line,
           "a field that is nothing but a double quote is dropped; the cells after it move up");
  if (!row_.oddQuote.empty())
    report(DiagnosticCode::StrayQuote, row_.oddQuote,
           QuotedBriefly(row_.oddQuote) + " loses its double quote, which has no partner there");
  if (!row_.doubledQuote.empty())
    report(DiagnosticCode::DoubledQuote, row_.doubledQuote,
           QuotedBriefly(row_.doubledQuote) +
               " ends at a doubled quote, which is no escape here; what follows is a cell of its own");
}

std::unique_ptr<RecordSource> OpenTextRecords(CTxtAssembly& engine, RecordKind kind,
                                              const FileDiagnostics& diagnostics) {
  return MakeForKind<RecordSource, TextRecords, IsImported>(kind, engine, diagnostics);
}

}  // namespace qv
