#pragma once

#include "platform/SpreadsheetApplication.h"
#include "platform/windows/Automation.h"
#include "platform/windows/ComScope.h"

namespace qv {

/// The application that is registered as "Excel.Application", driven by automation.
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
