#include "engines/FileSample.h"

#include "engines/workbook/SheetRows.h"
#include "platform/FileSystem.h"
#include "text/Ascii.h"

#include <algorithm>

namespace qv {
namespace {

std::shared_ptr<const FileSample> ReadText(const std::string& path, std::string& reason) {
  auto bytes = ReadFile(path, reason, FileSample::kMaxBytes + 1);
  if (!bytes) return nullptr;
  auto sample = std::make_shared<FileSample>();
  sample->isWhole = bytes->size() <= FileSample::kMaxBytes;
  if (!sample->isWhole) {
    // The end of the last line is in what was not read.
    const std::size_t lineFeed = bytes->rfind('\n');
    bytes->resize(lineFeed == std::string::npos ? FileSample::kMaxBytes : lineFeed + 1);
  }
  sample->bytes = std::move(*bytes);
  return sample;
}

std::shared_ptr<const FileSample> ReadSheet(const std::string& path) {
  const FileDiagnostics diagnostics(path.c_str());
  OpenedSheet sheet(diagnostics);
  if (!sheet.IsOpen()) return nullptr;
  auto sample = std::make_shared<FileSample>();
  const std::int32_t rows = std::min(sheet.Rows(), FileSample::kMaxRows);
  const std::int32_t columns = std::min(sheet.Columns(), FileSample::kMaxColumns);
  sample->isWhole = rows == sheet.Rows();
  for (std::int32_t row = 1; row <= rows; ++row) {
    std::vector<std::string>& cells = sample->cells.emplace_back();
    for (std::int32_t column = 1; column <= columns; ++column) cells.push_back(sheet.ReadCell(row, column));
  }
  return sheet.HasFailed() ? nullptr : sample;
}

}  // namespace

std::shared_ptr<const FileSample> ReadSample(const std::string& path, std::string& reason) {
  return EndsWithIgnoringCase(path, ".xls") ? ReadSheet(path) : ReadText(path, reason);
}

}  // namespace qv
