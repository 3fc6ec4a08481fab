#pragma once

#include "engines/text/ByteScanner.h"
#include "format/Delimiters.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <limits>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace qv {

/// Without the spaces at both ends, then without one leading and one trailing double quote. Tabs and single
/// quotes stay.
std::string_view TrimField(std::string_view field);

/// The fields of one line. The views live until the next split or until the line goes.
struct FieldViews {
  std::string_view line;                     ///< without its line end
  std::span<const std::string_view> fields;  ///< at most as many as the splitter keeps
  std::size_t total = 0;                     ///< how many the line has
  bool openQualifier = false;                ///< a qualified field was not closed
  bool droppedEmptyLast = false;             ///< an empty field at the end was dropped
  bool droppedQuote = false;  ///< a field was dropped, as nothing but a double quote was left of it
  std::string_view
      oddQuote{};  ///< the first field that lost a double quote at one end only; empty without one
  std::string_view doubledQuote{};  ///< the first field that ended at a doubled quote; empty without one

  std::vector<std::string_view> storage;  ///< what `fields` shows a part of

  /// Makes the fields views of these texts, at most `max` of them.
  void Show(const std::vector<std::string>& texts, std::size_t max) {
    total = texts.size();
    storage.assign(texts.begin(), texts.begin() + static_cast<std::ptrdiff_t>(std::min(total, max)));
    fields = storage;
  }
};

/// Splits lines into fields. Fields are views of the line wherever their characters stand together in it,
/// which is nearly always; the others are put together in a buffer of the splitter's.
class FieldSplitter {
 public:
  explicit FieldSplitter(const SplitRules& rules);

  /// Later fields are counted but not kept.
  void KeepAtMost(std::size_t fields) { keep_ = fields; }

  /// Splits a text that is one line, whatever characters it holds.
  void Split(std::string_view line, FieldViews& out);

  /// Makes this a splitter of texts of many lines, for SplitRow() instead of Split(). False when it cannot be
  /// one, as the format takes a carriage return for a delimiter.
  bool EndAtLineFeeds();

  /// Starts on a text of many lines, which must stay where it is until the next Start().
  void Start(const char* begin, const char* end);

  /// Splits the line at `begin`, after the end of the last one. Returns its end: a line feed, or the text's
  /// end.
  const char* SplitRow(const char* begin, FieldViews& out);

 private:
  enum CharacterClass : unsigned char { kOrdinary, kDelimiter, kQualifier, kLineFeed };
  class Output;

  void SetClass(char c, CharacterClass characterClass);
  CharacterClass ClassOf(char c) const { return classes_[static_cast<unsigned char>(c)]; }
  CharacterClass ClassAt(const char* at) const { return at == end_ ? kLineFeed : ClassOf(*at); }
  const char* TextEnd(const char* begin, const char* lineEnd) const;
  bool IsLineEnd(const char* at) const;
  bool DropsLast(const char* begin, const char* end, std::string_view last) const;

  using Walk = const char* (FieldSplitter::*)(const char* begin, FieldViews& row);
  const char* WalkQualified(const char* begin, FieldViews& row);
  const char* WalkUnqualified(const char* begin, FieldViews& row);
  const char* WalkCsv(const char* begin, FieldViews& row);

  std::string_view Joined(std::string_view field, const char* from, const char* to);
  std::string_view JoinedApart(std::string_view field, std::string_view more);
  void MakeScratch(const char* from);

  Walk walk_;
  bool treatAsOne_;
  std::array<CharacterClass, 256> classes_{};
  std::size_t keep_ = std::numeric_limits<std::size_t>::max();

  ByteScanner scanner_;
  const char* end_ = nullptr;
  std::string scratch_;
};

/// Appends copies of the line's fields to the list and returns true.
bool SplitInto(const SplitRules& rules, std::string_view line, std::vector<std::string>& fields);

}  // namespace qv
