#include "platform/SpreadsheetApplication.h"

#include "platform/windows/ExcelApplication.h"

namespace qv {

std::unique_ptr<SpreadsheetApplication> StartPlatformSpreadsheet(std::string& reason) {
  try {
    return std::make_unique<ExcelApplication>();
  } catch (const SpreadsheetError& error) {
    reason = error.what();
    return nullptr;
  }
}

}  // namespace qv
