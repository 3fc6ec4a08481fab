#pragma once

#include "cli/TextCoding.h"

#include <cstddef>
#include <optional>
#include <string>
#include <utility>

namespace qv {

/// Paths in this program are UTF-8 until the library is called.
using Utf8Path = std::string;

/// Whether the path leads to a pipe or a device, whose bytes can be read only once.
bool IsStream(const Utf8Path& file);

/// Whether both paths lead to one file.
bool IsSameFile(const Utf8Path& left, const Utf8Path& right);

/// What the path's extension (".xls", ".csv") says of the file, in any case.
bool IsWorkbook(const Utf8Path& file);
bool IsCsv(const Utf8Path& file);

/// What the first bytes of a data file say. They are read once, when they are first needed.
class DataStart {
 public:
  static constexpr std::size_t kSize = std::size_t{1} << 18;

  DataStart(Utf8Path file) : file_(std::move(file)) {}

  const Utf8Path& File() const { return file_; }

  /// The first bytes of a text file, up to one that ends a text on this platform. Throws FileError.
  const std::string& Bytes() const;

  /// The name of a format that the file carries, as format files have it; empty when there is none. Names are
  /// written in the system's code page; one that is not of it has come from elsewhere, in `coding`. Throws
  /// FileError; what a workbook's application says goes to the diagnostic handler.
  std::string FormatName(const TextCoding& coding) const;

 private:
  Utf8Path file_;
  mutable std::optional<std::string> bytes_;
};

}  // namespace qv
