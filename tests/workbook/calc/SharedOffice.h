#pragma once

#include "platform/spreadsheet/SpreadsheetApplication.h"
#include "platform/spreadsheet/calc/CalcPlugin.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

/// One real office for all tests that only need any: starting one takes more than a second. Every engine that
/// wants an application gets this one, which it cannot end.
class SharedOffice : public testing::Test {
 protected:
  void SetUp() override {
    if (qv::FindOfficeFolder().empty()) GTEST_SKIP() << "NOT TESTED: LibreOffice Calc is not installed";
    std::string reason;
    if (office_ == nullptr) office_ = qv::StartPlatformSpreadsheet(reason);
    ASSERT_NE(office_, nullptr) << reason;
    qv::SetSpreadsheetStarter([](std::string&) -> std::unique_ptr<qv::SpreadsheetApplication> {
      return std::make_unique<Borrowed>();
    });
  }
  void TearDown() override { qv::SetSpreadsheetStarter(nullptr); }

  static qv::SpreadsheetApplication& Office() { return *office_; }

 private:
  class Borrowed final : public qv::SpreadsheetApplication {
   public:
    std::unique_ptr<qv::Workbook> OpenWorkbook(const std::string& path) override {
      return office_->OpenWorkbook(path);
    }
    std::unique_ptr<qv::Workbook> AddWorkbook() override { return office_->AddWorkbook(); }
    void CloseWorkbooks() override {}
    void Quit() override {}
  };

  struct Ending : testing::Environment {
    void TearDown() override { office_.reset(); }
  };

  static inline std::unique_ptr<qv::SpreadsheetApplication> office_;
  static inline testing::Environment* const ending_ = testing::AddGlobalTestEnvironment(new Ending);
};
