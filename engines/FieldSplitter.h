#pragma once

#include <array>
#include <cstddef>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

class CAssemblyFile;

namespace qv {

/// The fields of one line. The views live until the next Split() or until the line goes.
struct FieldViews {
  std::vector<std::string_view> fields;  ///< at most as many as the splitter keeps
  std::size_t total = 0;                 ///< how many the line has
  bool openQualifier = false;            ///< a qualified field was not closed
  bool droppedEmptyLast = false;         ///< an empty field at the end was dropped
};

/// Splits lines into fields. Fields are views of the line wherever their characters stand together in it,
/// which is nearly always; the others are put together in a buffer of the splitter's.
class FieldSplitter {
 public:
  enum class Rule {
    Qualified,    ///< delimited text with a text qualifier
    Unqualified,  ///< delimited text without
    Csv,          ///< comma and double quote, whatever the format says
  };

  /// The rule and the characters that the engine's format asks for.
  static FieldSplitter Qualified(const CAssemblyFile& engine);
  static FieldSplitter Unqualified(const CAssemblyFile& engine);
  static FieldSplitter Csv();

  /// Later fields are counted but not kept.
  void KeepAtMost(std::size_t fields) { keep_ = fields; }

  void Split(std::string_view line, FieldViews& out);

 private:
  enum CharacterClass : unsigned char { kOrdinary, kDelimiter, kQualifier };

  explicit FieldSplitter(Rule rule) : rule_(rule) {}
  void SetDelimiters(const CAssemblyFile& engine);
  CharacterClass ClassOf(char c) const { return classes_[static_cast<unsigned char>(c)]; }
  bool ClosesQualified(const char* next, const char* end) const;

  void SplitQualified(const char* at, const char* end);
  void SplitUnqualified(const char* at, const char* end);
  void SplitCsv(const char* at, const char* end);

  void Take(const char* from, const char* to);
  std::string_view Trimmed() const;
  void Emit(std::string_view field);
  void EmitUnlessQuote(std::string_view field);
  void Clear() { size_ = 0; }

  Rule rule_;
  bool treatAsOne_ = false;
  std::array<CharacterClass, 256> classes_{};
  std::size_t keep_ = std::numeric_limits<std::size_t>::max();

  FieldViews* out_ = nullptr;
  std::size_t lineSize_ = 0;
  const char* start_ = nullptr;  // the field collected so far
  std::size_t size_ = 0;
  std::string scratch_;
};

/// Appends copies of the line's fields to the list and returns true.
bool SplitInto(FieldSplitter splitter, std::string_view line, std::vector<std::string>& fields);

}  // namespace qv
