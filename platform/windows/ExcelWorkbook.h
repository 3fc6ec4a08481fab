#pragma once

#include "platform/SpreadsheetApplication.h"
#include "platform/windows/Automation.h"

namespace qv {

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

}  // namespace qv
