#include "engines/text/FieldSplitter.h"

#include <cstring>

namespace qv {
namespace {

// Spreadsheets of a certain age end each row with this word in a field of its own.
constexpr std::string_view kRowEndWord = "CRLF";

constexpr std::string_view kQuote = "\"";

// A blank or a double quote, found by one comparison.
bool CanBeTrimmed(char c) { return (c & ~2) == ' '; }

bool HoldsQuote(std::string_view text) { return text.find('"') != std::string_view::npos; }

// A quoted field that ends with an even number of quotes, its own closing one included, ends within a doubled
// one.
[[gnu::noinline]] void NoteQuotes(std::string_view field, std::string_view quoted, FieldViews& row) {
  const std::size_t quotes = quoted.size() - (quoted.find_last_not_of('"') + 1);
  if (quotes % 2 == 1 && row.doubledQuote.empty()) row.doubledQuote = field;
}

// As TrimField(), where a double quote is text like any other: one that is trimmed without a partner is
// noted.
[[gnu::noinline]] std::string_view TrimText(std::string_view field, FieldViews& row) {
  const std::string_view trimmed = TrimField(field);
  const auto front = static_cast<std::size_t>(trimmed.data() - field.data());
  const bool losesOne =
      HoldsQuote(field.substr(0, front)) != HoldsQuote(field.substr(front + trimmed.size()));
  if (losesOne && row.oddQuote.empty()) row.oddQuote = field;
  return trimmed;
}

}  // namespace

std::string_view TrimField(std::string_view field) {
  while (!field.empty() && field.front() == ' ') field.remove_prefix(1);
  while (!field.empty() && field.back() == ' ') field.remove_suffix(1);
  if (!field.empty() && field.front() == '"') field.remove_prefix(1);
  if (!field.empty() && field.back() == '"') field.remove_suffix(1);
  return field;
}

FieldSplitter::FieldSplitter(const SplitRules& rules)
    : walk_(rules.isCsv               ? &FieldSplitter::WalkCsv
            : rules.qualifier == '\0' ? &FieldSplitter::WalkUnqualified
                                      : &FieldSplitter::WalkQualified),
      treatAsOne_(rules.treatAsOne) {
  for (const char c : rules.delimiters) SetClass(c, kDelimiter);
  if (rules.qualifier != '\0') SetClass(rules.qualifier, kQualifier);
}

void FieldSplitter::SetClass(char c, CharacterClass characterClass) {
  classes_[static_cast<unsigned char>(c)] = characterClass;
  scanner_.Set().Add(c);
}

bool FieldSplitter::EndAtLineFeeds() {
  if (ClassOf('\r') != kOrdinary) return false;
  SetClass('\n', kLineFeed);
  return true;
}

void FieldSplitter::Start(const char* begin, const char* end) {
  scanner_.Start(begin, end);
  end_ = end;
}

void FieldSplitter::Split(std::string_view line, FieldViews& out) {
  Start(line.data(), line.data() + line.size());
  SplitRow(line.data(), out);
}

const char* FieldSplitter::SplitRow(const char* begin, FieldViews& out) {
  scratch_.clear();
  out.openQualifier = out.droppedQuote = false;
  out.oddQuote = out.doubledQuote = {};
  const char* const lineEnd = (this->*walk_)(begin, out);
  out.line = {begin, TextEnd(begin, lineEnd)};
  return lineEnd;
}

/// Where the fields go. Its address does not escape, so that the compiler can keep it in registers.
class FieldSplitter::Output {
 public:
  Output(const FieldSplitter& splitter, FieldViews& row)
      : splitter_(splitter), row_(row), next_(row.storage.data()), limit_(Limit()) {
    row.total = 0;
  }

  void Emit(std::string_view field) {
    if (next_ == limit_) {
      std::string_view* const room = MakeRoom(splitter_, row_);
      if (room == nullptr) return;
      next_ = room;
      limit_ = Limit();
    }
    *next_++ = field;
  }

  void EmitUnlessQuote(std::string_view field) {
    if (field == kQuote)
      row_.droppedQuote = true;
    else
      Emit(field);
  }

  /// Emits the field without the blanks and quotes around it, unless a lone quote is left.
  void EmitTrimmed(std::string_view field) {
    if (!field.empty() && !CanBeTrimmed(field.front()) && !CanBeTrimmed(field.back())) return Emit(field);
    EmitUnlessQuote(Trim(field));
  }

  std::string_view Trim(std::string_view field) {
    return splitter_.ClassOf('"') == kOrdinary ? TrimText(field, row_) : TrimField(field);
  }

  void Finish() {
    row_.fields = {row_.storage.data(), next_};
    row_.total += row_.fields.size();
  }

 private:
  std::string_view* Limit() const {
    return row_.storage.data() + std::min(splitter_.keep_, row_.storage.size());
  }

  /// For when the storage is full: where the next field goes; null, with one more in `total`, when it is not
  /// to be kept.
  [[gnu::noinline]] static std::string_view* MakeRoom(const FieldSplitter& splitter, FieldViews& row) {
    const std::size_t kept = row.storage.size();
    if (kept >= splitter.keep_) {
      ++row.total;
      return nullptr;
    }
    row.storage.resize(std::min(splitter.keep_, std::max<std::size_t>(64, 2 * kept)));
    return row.storage.data() + kept;
  }

  const FieldSplitter& splitter_;
  FieldViews& row_;
  std::string_view* next_;
  std::string_view* limit_;
};

// The line without the carriage return that belongs to its line feed.
const char* FieldSplitter::TextEnd(const char* begin, const char* lineEnd) const {
  return lineEnd != end_ && lineEnd != begin && lineEnd[-1] == '\r' ? lineEnd - 1 : lineEnd;
}

bool FieldSplitter::IsLineEnd(const char* at) const {
  return ClassAt(at) == kLineFeed || (*at == '\r' && at + 1 != end_ && ClassOf(at[1]) == kLineFeed);
}

// Whether the line's last field is dropped because nothing is left of it when it is trimmed. An empty one is
// there only after a delimiter.
bool FieldSplitter::DropsLast(const char* begin, const char* end, std::string_view last) const {
  if (last.empty()) return end != begin && ClassOf(end[-1]) == kDelimiter;
  return TrimField(last).empty();
}

const char* FieldSplitter::WalkUnqualified(const char* begin, FieldViews& row) {
  ByteScanner::Cursor cursor(scanner_);
  Output out(*this, row);
  const char* field = begin;
  const char* at = cursor.Next();
  for (; ClassAt(at) != kLineFeed; at = cursor.Next()) {
    if (at != field)
      out.EmitTrimmed({field, at});
    else if (!treatAsOne_)
      out.Emit({});
    field = at + 1;
  }
  const char* const end = TextEnd(field, at);
  row.droppedEmptyLast = DropsLast(begin, end, {field, end});
  if (const auto last = out.Trim({field, end}); !last.empty()) out.Emit(last);
  out.Finish();
  return at;
}

// A qualifier closes its field before a delimiter, at the end of the line, and before another qualifier:
// doubling is no escape here. It takes the character after it along.
const char* FieldSplitter::WalkQualified(const char* begin, FieldViews& row) {
  ByteScanner::Cursor cursor(scanner_);
  Output out(*this, row);
  std::string_view field;
  const char* run = begin;  // what belongs to the field but has not been added
  bool inside = false;
  const char* at = cursor.Next();
  for (CharacterClass found; (found = ClassAt(at)) != kLineFeed; at = cursor.Next()) {
    if (found == kDelimiter) {
      if (inside) continue;
      field = Joined(field, run, at);
      if (!field.empty())
        out.EmitTrimmed(field);
      else if (!treatAsOne_)
        out.Emit({});
      field = {};
      run = at + 1;
    } else if (!inside) {
      field = Joined(field, run, at);
      run = at + 1;
      inside = true;
    } else {
      const char* const next = at + 1;
      const bool isLast = IsLineEnd(next);
      if (!isLast && *next != '\0' && ClassOf(*next) == kOrdinary) continue;
      out.EmitTrimmed(Joined(field, run, at));
      field = {};
      run = isLast ? next : next + 1;
      inside = false;
      if (!isLast) cursor.Skip(next);
    }
  }
  row.openQualifier = inside;
  const char* const end = TextEnd(run, at);
  field = Joined(field, run, end);
  row.droppedEmptyLast = DropsLast(begin, end, field);
  if (const auto last = out.Trim(field); !last.empty()) out.EmitUnlessQuote(last);
  out.Finish();
  return at;
}

const char* FieldSplitter::WalkCsv(const char* begin, FieldViews& row) {
  ByteScanner::Cursor cursor(scanner_);
  Output out(*this, row);
  std::string_view field;         // of the last field, what precedes its quote
  const char* run = begin;        // what belongs to the field but has not been added
  const char* closing = nullptr;  // the last quote in a quoted field
  bool inside = false;
  const char* at = cursor.Next();
  for (CharacterClass found;;) {
    for (; (found = ClassAt(at)) == kDelimiter; at = cursor.Next()) {
      out.EmitTrimmed({run, at});
      run = at + 1;
    }
    if (found == kLineFeed) break;
    field = {run, at};
    run = at + 1;
    closing = nullptr;
    inside = true;
    for (at = cursor.Next(); inside && (found = ClassAt(at)) != kLineFeed; at = cursor.Next()) {
      if (found == kDelimiter) continue;
      closing = at;
      if (at + 1 == end_ || at[1] != ',') continue;
      field = Joined(field, run, at);
      if (at != run && at[-1] == '"') NoteQuotes(field, {run, at}, row);
      out.Emit(field);
      field = {};
      run = at + 2;
      inside = false;
      cursor.Skip(at + 1);
    }
    if (inside) break;
  }
  const char* const end = TextEnd(run, at);
  // The closing quote of a last field is still part of it here; trimming takes it away.
  row.openQualifier = inside && (closing == nullptr || !TrimField({closing + 1, end}).empty());
  field = Joined(field, run, end);
  row.droppedEmptyLast = DropsLast(begin, end, field);
  const std::string_view last = TrimField(field);
  if (!last.empty() && last != kRowEndWord) out.EmitUnlessQuote(last);
  out.Finish();
  return at;
}

// Adds characters to a field. As long as they stand side by side in the line, the field is a view of the
// line.
std::string_view FieldSplitter::Joined(std::string_view field, const char* from, const char* to) {
  if (field.empty()) return {from, to};
  return from == to ? field : JoinedApart(field, {from, to});
}

std::string_view FieldSplitter::JoinedApart(std::string_view field, std::string_view more) {
  if (field.data() + field.size() == more.data()) return {field.data(), field.size() + more.size()};
  const char* const scratch = scratch_.data();
  if (field.data() < scratch || field.data() >= scratch + scratch_.size()) {
    if (scratch_.empty()) MakeScratch(field.data());
    scratch_.append(field);
    field = {scratch_.data() + scratch_.size() - field.size(), field.size()};
  }
  scratch_.append(more);
  return {field.data(), field.size() + more.size()};
}

// The rest of the line has room in the buffer, so that it never moves under the line's earlier fields.
void FieldSplitter::MakeScratch(const char* from) {
  auto size = static_cast<std::size_t>(end_ - from);
  if (ClassOf('\n') == kLineFeed)
    if (const void* const lineEnd = std::memchr(from, '\n', size))
      size = static_cast<std::size_t>(static_cast<const char*>(lineEnd) - from);
  scratch_.reserve(size);
}

bool SplitInto(const SplitRules& rules, std::string_view line, std::vector<std::string>& fields) {
  FieldSplitter splitter(rules);
  FieldViews row;
  splitter.Split(line, row);
  fields.insert(fields.end(), row.fields.begin(), row.fields.end());
  return true;
}

}  // namespace qv
