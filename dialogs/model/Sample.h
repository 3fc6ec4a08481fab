#pragma once

#include "dialogs/model/Preview.h"
#include "engines/FileSample.h"
#include "engines/columns/RecordFields.h"
#include "format/Delimiters.h"
#include "format/OptionForm.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qv {

/// Settings that surely fit a sample better.
struct Suggestion {
  std::string sentence;  ///< for a person; empty: there are none
  std::optional<SplitRules> layout;
  std::optional<int> startLine;

  bool CanApply() const { return layout || startLine; }
};

/// The host's data file, of which the dialog shows how a format reads it. Only the file's start is read,
/// once, whatever is tried on it.
class Sample {
 public:
  explicit Sample(std::string path) : path_(std::move(path)) {}

  bool IsGiven() const { return !path_.empty(); }

  /// Reads the start of the file, unless that has been done. What goes wrong is told where it shows.
  void Read();
  /// Reads it again.
  void Refresh();

  /// Why the file cannot have anything to show; empty when it may have.
  const std::string& Trouble() const { return trouble_; }

  /// The fields of the header row.
  std::vector<std::string> Headers(const OptionForm& form) const;

  /// The keywords that the headings surely stand for, with `Ignore` in the places of the others; none where
  /// no heading is known.
  std::vector<std::string> ColumnsForHeaders(const OptionForm& form) const;

  struct Trial {
    Preview preview;  ///< the first rows as an import of them takes them
    Suggestion suggestion;
  };
  Trial Try(const OptionForm& form) const;

 private:
  Suggestion SuggestionFor(const OptionForm& form, const RecordType& type, bool hasMisfits) const;
  Suggestion LayoutForNewFormat(const OptionForm& form, const RecordType& type,
                                const std::vector<std::string_view>& lines) const;
  Suggestion HeaderLineFor(const OptionForm& form, const RecordType& type,
                           const std::vector<std::string_view>& lines) const;
  bool IsWorkbook() const;

  std::string path_;
  std::string trouble_;
  std::string failure_;  // why it could not be read
  std::shared_ptr<const FileSample> start_;
  bool isRead_ = false;
};

}  // namespace qv
