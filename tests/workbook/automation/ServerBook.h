#pragma once

#include <windows.h>

#include <oaidl.h>

#include <map>
#include <string>
#include <utility>
#include <vector>

/// What the test's spreadsheet server keeps of a workbook.
namespace server {

/// A cell's value: of which make, and its text. n number, d date, b boolean, e error, c currency, t text.
struct CellValue {
  char make = 't';
  std::string text;
};

struct Sheet {
  std::string name;
  std::map<std::pair<long, long>, CellValue> cells;  // by row and column

  /// Takes typed text as the application does: what looks like a number is one.
  void Type(long row, long column, const std::string& text);
  /// Into a variant that holds nothing.
  void Read(long row, long column, VARIANT& value) const;
  /// First and last row, or column, of the used range.
  std::pair<long, long> UsedRows() const;
  std::pair<long, long> UsedColumns() const;
};

struct Book {
  std::vector<Sheet> sheets;
  std::size_t active = 0;

  /// Rank of the sheet of that name, in any case; the number of sheets when there is none.
  std::size_t Find(const std::string& name) const;
  /// Puts a new sheet before the active one and makes it that. Returns its rank.
  std::size_t Add();

  // A workbook file is lines: "active RANK", "sheet NAME" and "cell ROW COLUMN MAKE TEXT".
  bool Load(const std::wstring& path);
  bool Save(const std::wstring& path) const;
};

}  // namespace server
