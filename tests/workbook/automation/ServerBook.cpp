#include "workbook/automation/ServerBook.h"

#include "platform/windows/WideText.h"

#include <oleauto.h>

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace server {
namespace {

bool IsNumber(const std::string& text) {
  double number = 0;
  const char* const end = text.data() + text.size();
  return !text.empty() && std::from_chars(text.data(), end, number).ptr == end;
}

double NumberOf(const std::string& text) {
  double number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

template <class Coordinate>
std::pair<long, long> Bounds(const Sheet& sheet, Coordinate coordinate) {
  if (sheet.cells.empty()) return {1, 1};
  std::pair<long, long> bounds{LONG_MAX, 0};
  for (const auto& [place, value] : sheet.cells) {
    bounds.first = std::min(bounds.first, coordinate(place));
    bounds.second = std::max(bounds.second, coordinate(place));
  }
  return bounds;
}

}  // namespace

void Sheet::Type(long row, long column, const std::string& text) {
  if (text.empty())
    cells.erase({row, column});
  else
    cells[{row, column}] = {IsNumber(text) ? 'n' : 't', text};
}

void Sheet::Read(long row, long column, VARIANT& value) const {
  const auto cell = cells.find({row, column});
  if (cell == cells.end()) return;
  const std::string& text = cell->second.text;
  switch (cell->second.make) {
    case 'n':
      value.vt = VT_R8;
      value.dblVal = NumberOf(text);
      break;
    case 'd':
      value.vt = VT_DATE;
      value.date = NumberOf(text);
      break;
    case 'b':
      value.vt = VT_BOOL;
      value.boolVal = text == "true" ? VARIANT_TRUE : VARIANT_FALSE;
      break;
    case 'e':
      value.vt = VT_ERROR;
      value.scode = MAKE_SCODE(SEVERITY_ERROR, FACILITY_CONTROL, static_cast<int>(NumberOf(text)));
      break;
    case 'c':
      value.vt = VT_CY;
      value.cyVal.int64 = static_cast<LONGLONG>(NumberOf(text) * 10000);
      break;
    default: {
      const std::wstring wide = qv::Widen(text);
      value.vt = VT_BSTR;
      value.bstrVal = SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
    }
  }
}

std::pair<long, long> Sheet::UsedRows() const {
  return Bounds(*this, [](const auto& place) { return place.first; });
}
std::pair<long, long> Sheet::UsedColumns() const {
  return Bounds(*this, [](const auto& place) { return place.second; });
}

std::size_t Book::Find(const std::string& name) const {
  const auto found = std::find_if(sheets.begin(), sheets.end(), [&](const Sheet& sheet) {
    return _stricmp(sheet.name.c_str(), name.c_str()) == 0;
  });
  return static_cast<std::size_t>(found - sheets.begin());
}

std::size_t Book::Add() {
  const std::string name = "Sheet" + std::to_string(sheets.size() + 1);
  sheets.insert(sheets.begin() + static_cast<std::ptrdiff_t>(active), {name, {}});
  return active;
}

bool Book::Load(const std::wstring& path) {
  std::ifstream file{std::filesystem::path(path)};
  for (std::string line; std::getline(file, line);) {
    std::istringstream words(line);
    std::string word;
    words >> word;
    if (word == "active") {
      words >> active;
    } else if (word == "sheet") {
      std::getline(words >> std::ws, sheets.emplace_back().name);
    } else if (word == "cell") {
      long row = 0, column = 0;
      CellValue value;
      words >> row >> column >> value.make;
      words.get();
      std::getline(words, value.text);
      sheets.back().cells[{row, column}] = value;
    }
  }
  return active < sheets.size();
}

bool Book::Save(const std::wstring& path) const {
  std::ofstream file{std::filesystem::path(path)};
  file << "active " << active << '\n';
  for (const Sheet& sheet : sheets) {
    file << "sheet " << sheet.name << '\n';
    for (const auto& [place, value] : sheet.cells)
      file << "cell " << place.first << ' ' << place.second << ' ' << value.make << ' ' << value.text << '\n';
  }
  return static_cast<bool>(file.flush());
}

}  // namespace server
