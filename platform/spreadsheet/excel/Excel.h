#pragma once

#include "platform/spreadsheet/SpreadsheetApplication.h"
#include "platform/spreadsheet/excel/Automation.h"

#include <set>

/// The application that is registered as "Excel.Application", driven by automation.
namespace qv {

/// A worksheet of the automated application.
class ExcelSheet : public Worksheet {
 public:
  explicit ExcelSheet(AutomationObject sheet) : sheet_(std::move(sheet)) {}

  std::int32_t UsedRows() override;
  std::int32_t UsedColumns() override;
  std::int32_t FirstUsedRow() override;
  std::string ReadCell(std::int32_t row, std::int32_t column) override;
  void WriteCell(std::int32_t row, std::int32_t column, std::string_view text,
                 std::optional<double> number) override;
  void Flush() override {}
  void FormatAsText(std::int32_t column) override;
  void Activate() override;

 private:
  const AutomationObject& UsedRange();
  std::int32_t CountOfUsed(DISPID part);
  void CellAt(std::int32_t row, std::int32_t column, Variant& cell);

  AutomationObject sheet_;
  AutomationObject usedRange_;  // asked for once
  AutomationObject cells_;      // likewise
  AutomationObject columns_;    // likewise
  std::set<std::int32_t> textColumns_;
};

/// A workbook of the automated application.
class ExcelWorkbook : public Workbook {
 public:
  /// `path` is the file that the workbook was opened from; empty for a new one.
  ExcelWorkbook(AutomationObject workbook, std::wstring path)
      : workbook_(std::move(workbook)), path_(std::move(path)) {}
  ~ExcelWorkbook() override;

  std::unique_ptr<Worksheet> ActiveSheet() override;
  std::unique_ptr<Worksheet> FindSheet(const char* name) override;
  std::unique_ptr<Worksheet> AddSheet() override;
  void SaveAs(const std::string& path) override;
  void Close() override;

 private:
  const AutomationObject& Sheets();
  void CloseWith(const VARIANT& saveChanges, const VARIANT& fileName);

  AutomationObject workbook_;
  AutomationObject sheets_;  // asked for once
  std::wstring path_;
  bool isOpen_ = true;
};

class ExcelApplication : public SpreadsheetApplication {
 public:
  /// Throws SpreadsheetError when there is none, or it does not start.
  ExcelApplication();
  ~ExcelApplication() override;

  std::unique_ptr<Workbook> OpenWorkbook(const std::string& path) override;
  std::unique_ptr<Workbook> AddWorkbook() override;
  void CloseWorkbooks() override;
  void Quit() override;

 private:
  void TakeWorkbooks();

  ComScope com_;  // first, so that it goes last
  AutomationObject application_;
  AutomationObject workbooks_;  // null until they are needed, and after they were closed
  bool isRunning_ = true;
};

}  // namespace qv
