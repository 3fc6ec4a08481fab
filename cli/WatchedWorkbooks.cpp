#include "cli/WatchedWorkbooks.h"

#include <algorithm>
#include <utility>

namespace qv {
namespace {

WatchedWorkbooks* watcher = nullptr;

class WatchedSheet final : public Worksheet {
 public:
  WatchedSheet(std::unique_ptr<Worksheet> sheet, Progress& progress, std::int32_t rows)
      : sheet_(std::move(sheet)), progress_(progress), most_(rows) {}

  std::int32_t UsedRows() override { return rows_ = std::min(sheet_->UsedRows(), most_); }
  std::int32_t UsedColumns() override {
    const std::int32_t columns = sheet_->UsedColumns();
    progress_.Start("reading the workbook", std::int64_t{rows_} * columns, Progress::Unit::Cells);
    return columns;
  }
  std::string ReadCell(std::int32_t row, std::int32_t column) override {
    progress_.Advance(1);
    return sheet_->ReadCell(row, column);
  }
  void WriteCell(std::int32_t row, std::int32_t column, std::string_view text) override {
    progress_.Advance(1);
    sheet_->WriteCell(row, column, text);
  }
  void Activate() override { sheet_->Activate(); }

 private:
  std::unique_ptr<Worksheet> sheet_;
  Progress& progress_;
  const std::int32_t most_;
  std::int32_t rows_ = 0;
};

class WatchedWorkbook final : public Workbook {
 public:
  WatchedWorkbook(std::unique_ptr<Workbook> workbook, Progress& progress, std::int32_t rows)
      : workbook_(std::move(workbook)), progress_(progress), rows_(rows) {}

  std::unique_ptr<Worksheet> ActiveSheet() override { return Watched(workbook_->ActiveSheet()); }
  std::unique_ptr<Worksheet> FindSheet(const char* name) override {
    return Watched(workbook_->FindSheet(name));
  }
  std::unique_ptr<Worksheet> AddSheet() override { return Watched(workbook_->AddSheet()); }
  void SaveAs(const std::string& path) override { workbook_->SaveAs(path); }
  void Close() override { workbook_->Close(); }

 private:
  std::unique_ptr<Worksheet> Watched(std::unique_ptr<Worksheet> sheet) const {
    if (sheet == nullptr) return sheet;
    return std::make_unique<WatchedSheet>(std::move(sheet), progress_, rows_);
  }

  std::unique_ptr<Workbook> workbook_;
  Progress& progress_;
  const std::int32_t rows_;
};

class WatchedApplication final : public SpreadsheetApplication {
 public:
  WatchedApplication(std::unique_ptr<SpreadsheetApplication> application, Progress& progress,
                     std::int32_t rows)
      : application_(std::move(application)), progress_(progress), rows_(rows) {}

  std::unique_ptr<Workbook> OpenWorkbook(const std::string& path) override {
    return Watched(application_->OpenWorkbook(path));
  }
  std::unique_ptr<Workbook> AddWorkbook() override {
    auto workbook = Watched(application_->AddWorkbook());
    progress_.Start("writing the workbook", 0, Progress::Unit::Cells);
    return workbook;
  }
  void CloseWorkbooks() override { application_->CloseWorkbooks(); }
  void Quit() override { application_->Quit(); }

 private:
  std::unique_ptr<Workbook> Watched(std::unique_ptr<Workbook> workbook) const {
    return std::make_unique<WatchedWorkbook>(std::move(workbook), progress_, rows_);
  }

  std::unique_ptr<SpreadsheetApplication> application_;
  Progress& progress_;
  const std::int32_t rows_;
};

}  // namespace

WatchedWorkbooks::WatchedWorkbooks(Progress& progress, std::int32_t rows)
    : before_(SetSpreadsheetStarter(&Start)), progress_(progress), rows_(rows) {
  watcher = this;
}

WatchedWorkbooks::~WatchedWorkbooks() {
  watcher = nullptr;
  SetSpreadsheetStarter(before_);
}

std::unique_ptr<SpreadsheetApplication> WatchedWorkbooks::Start(std::string& reason) {
  auto application = watcher->before_(reason);
  if (application == nullptr) return application;
  return std::make_unique<WatchedApplication>(std::move(application), watcher->progress_, watcher->rows_);
}

}  // namespace qv
