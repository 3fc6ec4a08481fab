#include "platform/spreadsheet/SpreadsheetApplication.h"

#include <utility>

namespace qv {
namespace {

SpreadsheetStarter currentStarter = StartPlatformSpreadsheet;

SpreadsheetStarter starterOfShared = nullptr;
std::unique_ptr<SpreadsheetApplication> shared;

class Borrowed final : public SpreadsheetApplication {
 public:
  std::unique_ptr<Workbook> OpenWorkbook(const std::string& path) override {
    return shared->OpenWorkbook(path);
  }
  std::unique_ptr<Workbook> AddWorkbook() override { return shared->AddWorkbook(); }
  void CloseWorkbooks() override { shared->CloseWorkbooks(); }
  void Quit() override {}
};

std::unique_ptr<SpreadsheetApplication> StartShared(std::string& reason) {
  if (shared == nullptr) shared = starterOfShared(reason);
  return shared == nullptr ? nullptr : std::make_unique<Borrowed>();
}

}  // namespace

std::unique_ptr<SpreadsheetApplication> StartSpreadsheet(std::string& reason) {
  return currentStarter(reason);
}

SpreadsheetStarter SetSpreadsheetStarter(SpreadsheetStarter starter) {
  return std::exchange(currentStarter, starter != nullptr ? starter : StartPlatformSpreadsheet);
}

SharedSpreadsheet::SharedSpreadsheet() { starterOfShared = SetSpreadsheetStarter(StartShared); }

SharedSpreadsheet::~SharedSpreadsheet() {
  SetSpreadsheetStarter(starterOfShared);
  shared.reset();
}

}  // namespace qv
