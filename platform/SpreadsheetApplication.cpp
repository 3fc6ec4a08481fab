#include "platform/SpreadsheetApplication.h"

namespace qv {
namespace {

SpreadsheetStarter currentStarter = nullptr;

}  // namespace

std::unique_ptr<SpreadsheetApplication> StartSpreadsheet(std::string& reason) {
  return currentStarter != nullptr ? currentStarter(reason) : StartPlatformSpreadsheet(reason);
}

void SetSpreadsheetStarter(SpreadsheetStarter starter) { currentStarter = starter; }

}  // namespace qv
