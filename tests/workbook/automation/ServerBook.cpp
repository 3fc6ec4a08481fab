#include "workbook/automation/ServerBook.h"

#include "platform/windows/WideText.h"

#include <oleauto.h>

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <regex>
#include <sstream>

namespace server {
namespace {

// What the application makes of typed text, by the first pattern that fits. What exactly it makes of a date
// does not matter here: it is the text no more.
struct TypedMake {
  const char* pattern;
  char make;
  const char* value;  // null: the text itself
};

constexpr TypedMake kTypedMakes[] = {
    {R"([+-]?(\d+\.?\d*|\.\d+)([eE][+-]?\d+)?)", 'n', nullptr},
    {R"([+-]?\d{1,3}(,\d{3})+(\.\d*)?)", 'n', "1000"},
    {R"([+-]?\d+(\.\d*)?%)", 'n', "0.05"},
    {R"(\d+ \d+/\d+)", 'n', "0.5"},
    {R"([$]\d+(\.\d*)?)", 'c', "5"},
    {R"(\(\d+\))", 'n', "-5"},
    {R"(\d{1,4}[-/]\d{1,2}([-/]\d{1,4})?)", 'd', "45322"},
    {R"(\d{1,2}:\d{1,2}(:\d{1,2})?( ?[AaPp][Mm]?)?)", 'd', "0.5"},
    {"[Tt][Rr][Uu][Ee]", 'b', "true"},
    {"[Ff][Aa][Ll][Ss][Ee]", 'b', "false"},
    {"#N/A", 'e', "2042"},
    {R"([=+-]+\d+([+-]\d+)*)", 'n', "2"},
    {"[+-]\\w+", 'e', "2029"},
};

double NumberOf(const std::string& text) {
  double number = 0;
  const char* const start = text.data() + (text.starts_with('+') ? 1 : 0);
  std::from_chars(start, text.data() + text.size(), number);
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

bool Sheet::Type(long row, long column, const std::string& text) {
  CellValue& cell = cells[{row, column}] = {'t', text};
  if (text.empty()) cells.erase({row, column});
  if (text.empty() || textCells.contains({row, column}) || textCells.contains({0, column})) return true;
  for (const TypedMake& typed : kTypedMakes)
    if (std::regex_match(text, std::regex(typed.pattern))) {
      cell = {typed.make, typed.value == nullptr ? text : typed.value};
      return true;
    }
  if (text.front() == '\'') cell.text.erase(0, 1);
  if (std::string_view("=+-@").find(text.front()) == std::string_view::npos) return true;
  cells.erase({row, column});
  return false;
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

std::size_t Book::AddAfter(std::size_t index) {
  const std::string name = "Sheet" + std::to_string(sheets.size() + 1);
  active = index + 1;
  sheets.insert(sheets.begin() + static_cast<std::ptrdiff_t>(active), {name, {}, {}});
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
  file << "<workbook>\nactive " << active << '\n';
  for (const Sheet& sheet : sheets) {
    file << "sheet " << sheet.name << '\n';
    for (const auto& [place, value] : sheet.cells)
      file << "cell " << place.first << ' ' << place.second << ' ' << value.make << ' ' << value.text << '\n';
  }
  return static_cast<bool>(file.flush());
}

}  // namespace server
