#pragma once

#include "platform/FileSystem.h"
#include "platform/spreadsheet/SpreadsheetApplication.h"

#include <algorithm>
#include <cctype>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

/// A sheet as rows of cells, from its first cell on.
using SheetRows = std::vector<std::vector<std::string>>;

/// A spreadsheet application in memory, in use from its construction to its destruction. It keeps its
/// workbooks as files of the file system in use, records every call, and can be told to fail one of them.
class FakeSpreadsheet final {
 public:
  struct Sheet {
    std::string name;
    std::map<std::pair<int, int>, std::string> cells;  ///< by row and column; an empty text is no cell
  };
  struct Book {
    std::vector<Sheet> sheets;
    std::size_t active = 0;
  };

  FakeSpreadsheet() {
    current_ = this;
    qv::SetSpreadsheetStarter(&Start);
  }
  ~FakeSpreadsheet() {
    qv::SetSpreadsheetStarter(nullptr);
    current_ = nullptr;
  }
  FakeSpreadsheet(const FakeSpreadsheet&) = delete;
  FakeSpreadsheet& operator=(const FakeSpreadsheet&) = delete;

  bool Installed = true;
  std::vector<std::string> NewSheets = {"Sheet1", "Sheet2", "Sheet3"};  ///< of a new workbook
  std::string Refused = "\x1B";                                         ///< the text that no cell takes
  std::vector<std::string> Calls;  ///< "start", "open a.xls", "read 2 1", ...
  int Objects = 0;                 ///< applications, workbooks and sheets that are still held
  int Running = 0;                 ///< applications that were started and have not quit

  /// Makes the n-th call from now (from 1) fail.
  void FailAt(int n) {
    countdown_ = n;
    failed_ = false;
  }
  bool Failed() const { return failed_; }

  /// The calls of these kinds, in order.
  std::vector<std::string> CallsOf(const std::set<std::string>& kinds) const {
    std::vector<std::string> calls;
    for (const std::string& call : Calls)
      if (kinds.contains(call.substr(0, call.find(' ')))) calls.push_back(call);
    return calls;
  }
  int CountCalls(const std::string& kind) const { return static_cast<int>(CallsOf({kind}).size()); }

  /// Makes a workbook file of one sheet.
  static void Store(const std::string& path, const SheetRows& rows) {
    Book book{{{"Sheet1", {}}}};
    for (std::size_t row = 0; row < rows.size(); ++row)
      for (std::size_t column = 0; column < rows[row].size(); ++column)
        Put(book.sheets[0], static_cast<int>(row + 1), static_cast<int>(column + 1), rows[row][column]);
    Save(book, path);
  }

  /// A sheet of a workbook file, its rows cut behind their last cell.
  static SheetRows Load(const std::string& path, const std::string& sheet) {
    SheetRows rows;
    for (const Sheet& there : Read(path).sheets) {
      if (there.name != sheet) continue;
      for (const auto& [place, text] : there.cells) {
        rows.resize(std::max(rows.size(), static_cast<std::size_t>(place.first)));
        auto& row = rows[static_cast<std::size_t>(place.first - 1)];
        row.resize(static_cast<std::size_t>(place.second));
        row.back() = text;
      }
    }
    return rows;
  }

  static Book Read(const std::string& path) {
    std::string reason;
    const auto file = qv::Files().Open(path, qv::OpenMode::Read, reason);
    if (file == nullptr) throw qv::SpreadsheetError(reason);
    std::string name(64, '\0');
    name.resize(static_cast<std::size_t>(std::max<std::ptrdiff_t>(0, file->Read(name.data(), name.size()))));
    const auto saved = saved_.find(name);
    if (saved == saved_.end()) throw qv::SpreadsheetError("the file is no workbook");
    return saved->second;
  }

 private:
  /// An object that the application has handed out.
  class Held {
   public:
    explicit Held(FakeSpreadsheet& fake) : fake_(fake) { ++fake_.Objects; }
    ~Held() { --fake_.Objects; }
    Held(const Held&) = delete;
    Held& operator=(const Held&) = delete;

   protected:
    FakeSpreadsheet& fake_;
  };

  class FakeSheet final : public qv::Worksheet, Held {
   public:
    FakeSheet(FakeSpreadsheet& fake, Book& book, std::size_t index)
        : Held(fake), book_(book), name_(book.sheets[index].name) {}

    std::int32_t UsedRows() override {
      fake_.Step("used-rows");
      return Used([](const auto& place) { return place.first; });
    }
    std::int32_t UsedColumns() override {
      fake_.Step("used-columns");
      return Used([](const auto& place) { return place.second; });
    }
    std::int32_t FirstUsedRow() override {
      fake_.Step("first-used-row");
      return Cells().empty() ? 1 : Cells().begin()->first.first;
    }
    std::string ReadCell(std::int32_t row, std::int32_t column) override {
      fake_.Step("read " + At(row, column));
      const auto cell = Cells().find({row, column});
      return cell == Cells().end() ? std::string() : cell->second;
    }
    void WriteCell(std::int32_t row, std::int32_t column, std::string_view text,
                   std::optional<double> number) override {
      fake_.Step((number ? "write-number " : "write ") + At(row, column));
      if (text == fake_.Refused) throw qv::CellRefused(row, column, text, "it looks like a formula");
      Put(book_.sheets[Index()], row, column, std::string(text));
    }
    void Flush() override { fake_.Step("flush"); }
    void FormatAsText(std::int32_t column) override {
      fake_.Calls.emplace_back("format-as-text " + std::to_string(column));
    }
    void Activate() override {
      fake_.Calls.emplace_back("activate " + name_);
      book_.active = Index();
    }

   private:
    static std::string At(std::int32_t row, std::int32_t column) {
      if (row < 1 || column < 1) throw qv::SpreadsheetError("there is no such cell");
      return std::to_string(row) + " " + std::to_string(column);
    }
    std::size_t Index() const {
      std::size_t index = 0;
      while (book_.sheets[index].name != name_) ++index;
      return index;
    }
    std::map<std::pair<int, int>, std::string>& Cells() { return book_.sheets[Index()].cells; }

    template <class Coordinate>
    std::int32_t Used(Coordinate coordinate) {
      if (Cells().empty()) return 1;
      const auto [least, most] = std::minmax_element(
          Cells().begin(), Cells().end(),
          [&](const auto& a, const auto& b) { return coordinate(a.first) < coordinate(b.first); });
      return coordinate(most->first) - coordinate(least->first) + 1;
    }

    Book& book_;
    std::string name_;
  };

  class FakeWorkbook final : public qv::Workbook, Held {
   public:
    FakeWorkbook(FakeSpreadsheet& fake, Book book) : Held(fake), book_(std::move(book)) {}

    std::unique_ptr<qv::Worksheet> ActiveSheet() override {
      fake_.Step("active-sheet");
      return std::make_unique<FakeSheet>(fake_, book_, book_.active);
    }
    std::unique_ptr<qv::Worksheet> FindSheet(const char* name) override {
      fake_.Step("find-sheet " + std::string(name));
      for (std::size_t index = 0; index < book_.sheets.size(); ++index)
        if (AreEqualIgnoringCase(book_.sheets[index].name, name))
          return std::make_unique<FakeSheet>(fake_, book_, index);
      return nullptr;
    }
    std::unique_ptr<qv::Worksheet> AddSheet() override {
      fake_.Step("add-sheet");
      // Named as the application names them: "Sheet4" or, in another language, "Tabelle4".
      std::string name = book_.sheets.front().name;
      while (std::isdigit(static_cast<unsigned char>(name.back())) != 0) name.pop_back();
      name += std::to_string(book_.sheets.size() + 1);
      book_.sheets.push_back({name, {}});
      book_.active = book_.sheets.size() - 1;
      return std::make_unique<FakeSheet>(fake_, book_, book_.active);
    }
    void SaveAs(const std::string& path) override {
      fake_.Step("save");
      if (qv::Files().Exists(path)) throw qv::SpreadsheetError("there is such a file already");
      Save(book_, path);
    }
    void Close() override { fake_.Step("close"); }

   private:
    static bool AreEqualIgnoringCase(std::string_view a, std::string_view b) {
      return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                        [](unsigned char x, unsigned char y) { return std::tolower(x) == std::tolower(y); });
    }
    Book book_;
  };

  class FakeApplication final : public qv::SpreadsheetApplication, Held {
   public:
    explicit FakeApplication(FakeSpreadsheet& fake) : Held(fake) { ++fake_.Running; }
    ~FakeApplication() override {
      if (running_) --fake_.Running;
    }

    std::unique_ptr<qv::Workbook> OpenWorkbook(const std::string& path) override {
      fake_.Step("open " + path);
      return std::make_unique<FakeWorkbook>(fake_, Read(path));
    }
    std::unique_ptr<qv::Workbook> AddWorkbook() override {
      fake_.Step("add");
      Book book;
      for (const std::string& name : fake_.NewSheets) book.sheets.push_back({name, {}});
      return std::make_unique<FakeWorkbook>(fake_, std::move(book));
    }
    void CloseWorkbooks() override { fake_.Step("close-workbooks"); }
    void Quit() override {
      fake_.Step("quit");
      running_ = false;
      --fake_.Running;
    }

   private:
    bool running_ = true;
  };

  static std::unique_ptr<qv::SpreadsheetApplication> Start(std::string& reason) {
    reason = "there is none";
    try {
      current_->Step("start");
    } catch (const qv::SpreadsheetError&) {
      return nullptr;
    }
    if (!current_->Installed) return nullptr;
    return std::make_unique<FakeApplication>(*current_);
  }

  void Step(std::string call) {
    Calls.push_back(std::move(call));
    if (countdown_ == 0 || --countdown_ != 0) return;
    failed_ = true;
    throw qv::SpreadsheetError("the application is on strike");
  }

  static void Put(Sheet& sheet, int row, int column, std::string text) {
    if (text.empty())
      sheet.cells.erase({row, column});
    else
      sheet.cells[{row, column}] = std::move(text);
  }

  // A file holds the name under which its book is kept.
  static void Save(const Book& book, const std::string& path) {
    const std::string name = "workbook " + std::to_string(saved_.size());
    saved_[name] = book;
    std::string reason;
    const auto file = qv::Files().Open(path, qv::OpenMode::Write, reason);
    if (file == nullptr || !file->Write(name) || !file->Close())
      throw qv::SpreadsheetError("cannot be saved");
  }

  static inline std::map<std::string, Book> saved_;
  static inline FakeSpreadsheet* current_ = nullptr;
  int countdown_ = 0;  // calls until the failing one; 0 for none
  bool failed_ = false;
};
