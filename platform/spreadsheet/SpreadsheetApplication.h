#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace qv {

/// The application refused a call, or is gone. The message is for a person.
class SpreadsheetError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The application refused what was to be put into a cell.
struct CellRefused : SpreadsheetError {
  CellRefused(std::int32_t inRow, std::int32_t inColumn, std::string_view refused, const std::string& reason)
      : SpreadsheetError(reason), row(inRow), column(inColumn), text(refused) {}

  std::int32_t row;
  std::int32_t column;
  std::string text;
};

/// One sheet of a workbook. Rows and columns count from 1; text is narrow, in the platform's code page. Every
/// member throws SpreadsheetError. A sheet must not outlive its workbook.
class Worksheet {
 public:
  virtual ~Worksheet() = default;

  /// How many rows and columns the used range has: counts, not the numbers of the last ones, which differ
  /// where the range does not start at the first cell.
  virtual std::int32_t UsedRows() = 0;
  virtual std::int32_t UsedColumns() = 0;

  /// The row in which the used range starts.
  virtual std::int32_t FirstUsedRow() = 0;

  /// The cell's value as text: 1.5 gives "1.5", 3 gives "3", a boolean "-1" or "0", a date month/day/year (on
  /// Windows in the user's order), an error its name ("#DIV/0!"), an empty cell nothing. A formula counts as
  /// its result.
  virtual std::string ReadCell(std::int32_t row, std::int32_t column) = 0;

  /// Puts the text into the cell. With `number`, which is the text's value, the cell is to hold a number;
  /// without, the text as it is, whatever it looks like. Cells may be held back until Flush(). Throws
  /// CellRefused where the application is still there.
  virtual void WriteCell(std::int32_t row, std::int32_t column, std::string_view text,
                         std::optional<double> number = {}) = 0;

  /// Writes what was held back. Must be called after the last cell. Throws as WriteCell() does.
  virtual void Flush() = 0;

  /// Lets the column's cells keep typed texts as they are. A courtesy: never throws.
  virtual void FormatAsText(std::int32_t column) = 0;

  /// Makes the sheet the one that is shown first. A courtesy: never throws.
  virtual void Activate() = 0;
};

/// An open workbook. Every member throws SpreadsheetError. The destructor closes without saving what has not
/// been closed. A workbook must not outlive its application.
class Workbook {
 public:
  virtual ~Workbook() = default;

  virtual std::unique_ptr<Worksheet> ActiveSheet() = 0;

  /// The sheet of that name, in any case; null when the application has none to give.
  virtual std::unique_ptr<Worksheet> FindSheet(const char* name) = 0;

  /// A new sheet after all others, under a name that the application chooses.
  virtual std::unique_ptr<Worksheet> AddSheet() = 0;

  /// Saves as an Excel 97-2003 workbook. There must be no file at `path`.
  virtual void SaveAs(const std::string& path) = 0;

  virtual void Close() = 0;
};

/// A spreadsheet application of one's own, running beside the process. Every member throws SpreadsheetError.
/// The destructor quits it if nobody has, and leaves no process behind.
class SpreadsheetApplication {
 public:
  virtual ~SpreadsheetApplication() = default;

  /// Opens an existing file. A relative path counts from this process's working folder.
  virtual std::unique_ptr<Workbook> OpenWorkbook(const std::string& path) = 0;

  /// A new workbook, which may have a single sheet.
  virtual std::unique_ptr<Workbook> AddWorkbook() = 0;

  virtual void CloseWorkbooks() = 0;
  virtual void Quit() = 0;
};

/// Starts an application; null, with `reason`, when there is none.
std::unique_ptr<SpreadsheetApplication> StartSpreadsheet(std::string& reason);

using SpreadsheetStarter = std::unique_ptr<SpreadsheetApplication> (*)(std::string& reason);

/// Puts another application in the platform's place, or before it; null brings the platform's back. Returns
/// the one that was set.
SpreadsheetStarter SetSpreadsheetStarter(SpreadsheetStarter starter);

/// While it lives, all who start an application share one. It is started for the first of them, and quit in
/// the end. Not to be nested.
class SharedSpreadsheet {
 public:
  SharedSpreadsheet();
  ~SharedSpreadsheet();
  SharedSpreadsheet(const SharedSpreadsheet&) = delete;
  SharedSpreadsheet& operator=(const SharedSpreadsheet&) = delete;
};

/// The platform's own, whatever starter is set.
std::unique_ptr<SpreadsheetApplication> StartPlatformSpreadsheet(std::string& reason);

}  // namespace qv
