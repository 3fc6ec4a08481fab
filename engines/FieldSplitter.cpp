#include "engines/FieldSplitter.h"

#include "engines/CAssemblyFile.h"
#include "engines/FieldTrim.h"

#include <cstring>

namespace qv {
namespace {

// Spreadsheets of a certain age end each row with this word in a field of its own.
constexpr std::string_view kRowEndWord = "CRLF";

constexpr std::string_view kQuote = "\"";

}  // namespace

FieldSplitter FieldSplitter::Qualified(const CAssemblyFile& engine) {
  FieldSplitter splitter(Rule::Qualified);
  splitter.SetDelimiters(engine);
  splitter.classes_[static_cast<unsigned char>(engine.Qualifier == 1 ? '\'' : '"')] = kQualifier;
  return splitter;
}

FieldSplitter FieldSplitter::Unqualified(const CAssemblyFile& engine) {
  FieldSplitter splitter(Rule::Unqualified);
  splitter.SetDelimiters(engine);
  return splitter;
}

FieldSplitter FieldSplitter::Csv() {
  FieldSplitter splitter(Rule::Csv);
  splitter.classes_[','] = kDelimiter;
  splitter.classes_['"'] = kQualifier;
  return splitter;
}

void FieldSplitter::SetDelimiters(const CAssemblyFile& engine) {
  const auto names = [&](std::string_view name) { return engine.Delimiters.find(name) != std::string::npos; };
  if (names("Tab")) classes_['\t'] = kDelimiter;
  if (names("Semicolon")) classes_[';'] = kDelimiter;
  if (names("Comma")) classes_[','] = kDelimiter;
  if (names("Space")) classes_[' '] = kDelimiter;
  if (names("Other"))
    for (const char c : engine.OtherDelimiters) classes_[static_cast<unsigned char>(c)] = kDelimiter;
  treatAsOne_ = engine.TreatAsOne;
}

void FieldSplitter::Split(std::string_view line, FieldViews& out) {
  out_ = &out;
  out.fields.clear();
  out.total = 0;
  out.openQualifier = false;
  lineSize_ = line.size();
  scratch_.clear();
  Clear();
  const char* const begin = line.data();
  const char* const end = begin + line.size();
  switch (rule_) {
    case Rule::Qualified:
      SplitQualified(begin, end);
      break;
    case Rule::Unqualified:
      SplitUnqualified(begin, end);
      break;
    case Rule::Csv:
      SplitCsv(begin, end);
      break;
  }
  const bool afterDelimiter = !line.empty() && ClassOf(line.back()) == kDelimiter;
  out.droppedEmptyLast = Trimmed().empty() && (size_ != 0 || afterDelimiter);
}

// Adds characters to the field. As long as they stand side by side in the line, the field is a view of the
// line.
void FieldSplitter::Take(const char* from, const char* to) {
  const auto count = static_cast<std::size_t>(to - from);
  if (count == 0) return;
  if (size_ == 0) {
    start_ = from;
  } else if (start_ + size_ != from) {
    const bool inScratch = start_ >= scratch_.data() && start_ <= scratch_.data() + scratch_.size();
    if (!inScratch) {
      // All fields of a line together are no longer than the line, so the buffer never moves under earlier
      // views.
      if (scratch_.empty()) scratch_.reserve(lineSize_);
      const std::size_t place = scratch_.size();
      scratch_.append(start_, size_);
      start_ = scratch_.data() + place;
    }
    scratch_.append(from, count);
  }
  size_ += count;
}

std::string_view FieldSplitter::Trimmed() const { return TrimField({start_, size_}); }

void FieldSplitter::Emit(std::string_view field) {
  if (out_->total < keep_) out_->fields.push_back(field);
  ++out_->total;
}

void FieldSplitter::EmitUnlessQuote(std::string_view field) {
  if (field != kQuote) Emit(field);
}

// A qualifier closes its field before a delimiter, at the end of the line, and before another qualifier:
// doubling is no escape here.
bool FieldSplitter::ClosesQualified(const char* next, const char* end) const {
  return next == end || *next == '\0' || ClassOf(*next) != kOrdinary;
}

void FieldSplitter::SplitQualified(const char* at, const char* end) {
  bool inside = false;
  while (at < end) {
    const char* const run = at;
    while (at < end && (inside ? ClassOf(*at) != kQualifier : ClassOf(*at) == kOrdinary)) ++at;
    Take(run, at);
    if (at == end) break;
    if (!inside && ClassOf(*at) == kDelimiter) {
      if (size_ != 0)
        EmitUnlessQuote(Trimmed());
      else if (!treatAsOne_)
        Emit({});
      Clear();
      ++at;
    } else if (!inside) {
      inside = true;
      ++at;
    } else if (ClosesQualified(at + 1, end)) {
      EmitUnlessQuote(Trimmed());
      Clear();
      inside = false;
      at += 2;
    } else {
      Take(at, at + 1);
      ++at;
    }
  }
  out_->openQualifier = inside;
  if (const std::string_view last = Trimmed(); !last.empty()) EmitUnlessQuote(last);
}

void FieldSplitter::SplitUnqualified(const char* at, const char* end) {
  while (true) {
    const char* const run = at;
    while (at < end && ClassOf(*at) == kOrdinary) ++at;
    Take(run, at);
    if (at == end) break;
    if (size_ != 0)
      EmitUnlessQuote(Trimmed());
    else if (!treatAsOne_)
      Emit({});
    Clear();
    ++at;
  }
  if (const std::string_view last = Trimmed(); !last.empty()) Emit(last);
}

void FieldSplitter::SplitCsv(const char* at, const char* end) {
  bool inside = false;
  bool closed = false;
  while (at < end) {
    const char* const run = at;
    while (at < end && (inside ? *at != '"' : ClassOf(*at) == kOrdinary)) ++at;
    Take(run, at);
    if (at == end) break;
    closed = false;
    if (!inside && *at == ',') {
      EmitUnlessQuote(Trimmed());
      Clear();
      ++at;
    } else if (!inside) {
      inside = true;
      ++at;
    } else if (at + 1 < end && at[1] == ',') {
      Emit({start_, size_});
      Clear();
      inside = false;
      at += 2;
    } else {
      Take(at, at + 1);
      ++at;
      closed = true;
    }
  }
  // The closing quote of a last field is still part of it here; trimming takes it away.
  while (closed && end[-1] == ' ') --end;
  out_->openQualifier = inside && !(closed && end[-1] == '"');
  const std::string_view last = Trimmed();
  if (!last.empty() && last != kRowEndWord) EmitUnlessQuote(last);
}

bool SplitInto(FieldSplitter splitter, std::string_view line, std::vector<std::string>& fields) {
  FieldViews row;
  splitter.Split(line, row);
  fields.insert(fields.end(), row.fields.begin(), row.fields.end());
  return true;
}

}  // namespace qv
