// Writes a file of random rows, the format file for all of them, or a table's columns as JSON.

#include "Data.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

namespace {

using namespace bench;

constexpr const char* kUsage =
    "usage: qv_bench_data rows KIND csv|bare ROWS SEED   rows to standard output\n"
    "       qv_bench_data formats                        the format file\n"
    "       qv_bench_data columns KIND                   the columns and their types as JSON\n";

int Fail() {
  std::fputs(kUsage, stderr);
  return 2;
}

void Put(std::string& text) {
  std::fwrite(text.data(), 1, text.size(), stdout);
  text.clear();
}

int WriteRows(const DataTable& table, Dress dress, long rows, std::uint64_t random) {
  std::string text;
  AppendHeader(text, table, dress);
  for (long row = 0; row < rows; ++row) {
    AppendRow(text, table, dress, random);
    if (text.size() > 1 << 20) Put(text);
  }
  Put(text);
  return 0;
}

/// Three formats per kind, named KIND-csv, KIND-bare and KIND-qualified. The last is for exports, which put
/// every cell in quotes.
int WriteFormats() {
  std::puts("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<CSVOptionSetting Current=\"\">");
  for (const DataTable& table : AllTables())
    for (const char* dress : {"csv", "qualified", "bare"}) {
      const bool isBare = std::strcmp(dress, "bare") == 0;
      std::printf(
          "<OptionForm Name=\"%s-%s\" Line=\"1\" Delimiters=\"%s\" Other=\"\" Qualifier=\"%d\" "
          "TreatAsOne=\"0\" Part=\"Name\">",
          table.kind.data(), dress, isBare ? "Semicolon" : "Comma", isBare ? 2 : 0);
      for (std::size_t index = 0; index < table.columns.size(); ++index)
        std::printf("<%s Order=\"%zu\"/>", table.columns[index].keyword.data(), index);
      std::puts("</OptionForm>");
    }
  std::puts("</CSVOptionSetting>");
  return 0;
}

int WriteColumns(const DataTable& table) {
  constexpr const char* kNames[] = {"text", "int", "real"};
  const char* separator = "{";
  for (const DataColumn& column : table.columns) {
    std::printf("%s\"%s\":\"%s\"", separator, column.keyword.data(), kNames[static_cast<int>(column.type)]);
    separator = ",";
  }
  std::puts("}");
  return 0;
}

}  // namespace

int main(int count, char** arguments) {
  const std::string_view command = count > 1 ? arguments[1] : "";
  if (command == "formats" && count == 2) return WriteFormats();
  const DataTable* const table = count > 2 ? FindTable(arguments[2]) : nullptr;
  if (table == nullptr) return Fail();
  if (command == "columns" && count == 3) return WriteColumns(*table);
  if (command != "rows" || count != 6) return Fail();
  const std::string_view dress = arguments[3];
  if (dress != "csv" && dress != "bare") return Fail();
  return WriteRows(*table, dress == "csv" ? Dress::Csv : Dress::Bare, std::atol(arguments[4]),
                   std::strtoull(arguments[5], nullptr, 10));
}
