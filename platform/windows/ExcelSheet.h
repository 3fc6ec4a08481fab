#pragma once

#include "platform/SpreadsheetApplication.h"
#include "platform/windows/Automation.h"

namespace qv {

/// A worksheet of the automated application.
class ExcelSheet : public Worksheet {
 public:
  explicit ExcelSheet(AutomationObject sheet) : sheet_(std::move(sheet)) {}

  std::int32_t UsedRows() override;
  std::int32_t UsedColumns() override;
  std::string ReadCell(std::int32_t row, std::int32_t column) override;
  void WriteCell(std::int32_t row, std::int32_t column, std::string_view text) override;
  void Activate() override;

 private:
  std::int32_t CountOfUsed(DISPID part);
  void CellAt(std::int32_t row, std::int32_t column, Variant& cell);

  AutomationObject sheet_;
  AutomationObject usedRange_;  // asked for once
  AutomationObject cells_;      // likewise
};

}  // namespace qv
