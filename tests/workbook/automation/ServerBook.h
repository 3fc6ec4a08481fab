#pragma once

#include <windows.h>

#include <oaidl.h>

#include <map>
#include <set>
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

  std::set<std::pair<long, long>> textCells;  // of the text format; row 0 stands for the column

  /// Takes text as the application does, which is as if it had been typed: unless the cell is of the text
  /// format, what looks like a number, a date or anything else is that. False when it takes it for a formula
  /// that is none.
  bool Type(long row, long column, const std::string& text);
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
  /// Puts a new sheet after another and makes it the active one. Returns its index.
  std::size_t AddAfter(std::size_t index);

  // A workbook file is lines after one that is markup, as bytes of no kind of workbook would be refused:
  // "active RANK", "sheet NAME" and "cell ROW COLUMN MAKE TEXT".
  bool Load(const std::wstring& path);
  bool Save(const std::wstring& path) const;
};

}  // namespace server
