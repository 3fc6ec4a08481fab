#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace qv {

/// The start of a data file, read once: an engine that is given one reads it in the file's place, as often as
/// a host tries other settings on it.
struct FileSample {
  static constexpr std::size_t kMaxBytes = std::size_t{1} << 18;
  static constexpr int kMaxRows = 200;  ///< of a workbook, whose cells take long to get
  static constexpr int kMaxColumns = 256;

  bool isWhole = true;                          ///< nothing of the file follows
  std::string bytes;                            ///< of a text: whole lines, if it has any that is so short
  std::vector<std::vector<std::string>> cells;  ///< of a workbook's active sheet, rows of one width
};

/// Reads it; null when the file cannot be read, with `reason`, which is empty where the diagnostic handler
/// was told.
std::shared_ptr<const FileSample> ReadSample(const std::string& path, std::string& reason);

}  // namespace qv
