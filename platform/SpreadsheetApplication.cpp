#include "platform/SpreadsheetApplication.h"

#include <utility>

namespace qv {
namespace {

SpreadsheetStarter currentStarter = nullptr;

}  // namespace

std::unique_ptr<SpreadsheetApplication> StartSpreadsheet(std::string& reason) {
  return currentStarter != nullptr ? currentStarter(reason) : StartPlatformSpreadsheet(reason);
}

SpreadsheetStarter SetSpreadsheetStarter(SpreadsheetStarter starter) {
  return std::exchange(currentStarter, starter);
}

}  // namespace qv
