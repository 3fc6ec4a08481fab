#include "platform/SpreadsheetApplication.h"

#include <utility>

namespace qv {
namespace {

SpreadsheetStarter currentStarter = StartPlatformSpreadsheet;

}  // namespace

std::unique_ptr<SpreadsheetApplication> StartSpreadsheet(std::string& reason) {
  return currentStarter(reason);
}

SpreadsheetStarter SetSpreadsheetStarter(SpreadsheetStarter starter) {
  return std::exchange(currentStarter, starter != nullptr ? starter : StartPlatformSpreadsheet);
}

}  // namespace qv
