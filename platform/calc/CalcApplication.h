#pragma once

#include "platform/SpreadsheetApplication.h"
#include "platform/calc/OfficeConnection.h"
#include "platform/calc/OfficeText.h"

namespace qv {

class CalcWorkbook;

/// LibreOffice Calc, without a window.
class CalcApplication : public SpreadsheetApplication {
 public:
  /// Throws SpreadsheetError.
  explicit CalcApplication(const std::string& programFolder);
  ~CalcApplication() override;

  std::unique_ptr<Workbook> OpenWorkbook(const std::string& path) override;
  std::unique_ptr<Workbook> AddWorkbook() override;
  void CloseWorkbooks() override;
  void Quit() override;

 private:
  std::unique_ptr<CalcWorkbook> Load(const OUString& url, bool readOnly, sal_Int32 activeSheet);

  std::unique_ptr<OfficeConnection> connection_;  // null after Quit()
};

}  // namespace qv
