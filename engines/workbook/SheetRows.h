#pragma once

#include "engines/FileDiagnostics.h"
#include "engines/FileSample.h"
#include "platform/spreadsheet/SpreadsheetApplication.h"

#include <cstdint>
#include <memory>
#include <string>

namespace qv {

/// The active sheet of a workbook, open to be read in an application of its own. What goes wrong is reported;
/// without an application a message box is shown too. The application is gone when this is closed.
class OpenedSheet {
 public:
  /// Opens the diagnostics' file.
  explicit OpenedSheet(const FileDiagnostics& diagnostics);
  /// The same from a sample of it.
  OpenedSheet(const FileDiagnostics& diagnostics, std::shared_ptr<const FileSample> sample);
  ~OpenedSheet() { Close(); }
  OpenedSheet(const OpenedSheet&) = delete;
  OpenedSheet& operator=(const OpenedSheet&) = delete;

  bool IsOpen() const { return sheet_ != nullptr || sample_ != nullptr; }
  bool HasFailed() const { return hasFailed_; }

  /// The cell's text; nothing after a failure, which is reported and ends the reading.
  std::string ReadCell(std::int32_t row, std::int32_t column);

  /// How many rows and columns the used range has. Rows and columns count from the sheet's first cell all the
  /// same, so that of a range that starts further down or to the right the end is out of reach.
  std::int32_t Rows() const { return rows_; }
  std::int32_t Columns() const { return columns_; }

  /// The last row of the used range, where diagnostics are wanted; otherwise Rows().
  std::int32_t LastRow() const { return lastRow_; }

  void Close();

 private:
  void Open();
  void Fail(DiagnosticCode code, std::int64_t row, const std::string& message);

  const FileDiagnostics& diagnostics_;
  std::shared_ptr<const FileSample> sample_;
  std::unique_ptr<SpreadsheetApplication> application_;
  std::unique_ptr<Workbook> workbook_;
  std::unique_ptr<Worksheet> sheet_;
  std::int32_t rows_ = 0;
  std::int32_t columns_ = 0;
  std::int32_t lastRow_ = 0;
  bool hasFailed_ = false;
};

}  // namespace qv
