#pragma once

#include "engines/workbook/CXLSAssembly.h"
#include "engines/workbook/SheetWriter.h"
#include "support/CaseFile.h"
#include "workbook/RecordRows.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <optional>
#include <random>
#include <string_view>
#include <type_traits>

namespace workbook {

using KindsBothWays = testing::Types<PartInformation, ToolInformation, MaterialInfomation, ShtInfo, PrtInfo>;

template <class Record>
bool Import(CAssemblyFile& engine, const char* path) {
  if constexpr (std::is_same_v<Record, PartInformation>) return engine.ImportParts(path);
  if constexpr (std::is_same_v<Record, ToolInformation>) return engine.ImportTools(path);
  if constexpr (std::is_same_v<Record, MaterialInfomation>) return engine.ImportMaterials(path);
  if constexpr (std::is_same_v<Record, ShtInfo>) return engine.ImportSheets(path);
  if constexpr (std::is_same_v<Record, PrtInfo>) return engine.ImportPartPrograms(path);
}

/// Texts of which applications like to make something else, and any others. What a column takes for its value
/// depends on the column.
inline Texts Samples() {
  Texts samples;
  for (const Texts& row : ReadTable("workbook/tables/samples.table")) samples.push_back(row[0]);
  constexpr std::string_view kAlphabet = "0123456789=+-.,/:%'#@ eEAPM$()";
  std::minstd_rand random(7);
  while (samples.size() < 40) {
    std::string& text = samples.emplace_back();
    for (std::size_t length = 1 + random() % 6; length > 0; --length)
      text += kAlphabet[random() % kAlphabet.size()];
  }
  return samples;
}

/// Stages a record per sample, or the first of them, each with the samples in another order.
template <class Record>
void AddSamples(CAssemblyFile& engine, const Texts& keywords, std::size_t records) {
  const Texts samples = Samples();
  for (std::size_t record = 0; record < std::min(records, samples.size()); ++record) {
    Texts cells;
    for (std::size_t index = 0; index < keywords.size(); ++index) {
      cells.push_back(samples[(record + index) % samples.size()]);
      if (keywords[index] == "PartName" && cells.back().empty())
        cells.back() = "!";  // or it would be no part
    }
    Add<Record>(engine, keywords, cells);
  }
}

/// What kind of cell the text is to be in, and what it shows: "1:0012" in a text, "2:1.5" in a number, "0:"
/// in none.
template <class Record>
std::string CellOf(const qv::Column<Record>& column, const std::string& text) {
  const bool isNumber = column.writtenAs == qv::CellForm::Whole || column.writtenAs == qv::CellForm::Real;
  const std::optional<double> number = isNumber ? qv::SheetNumber(text) : std::nullopt;
  if (!number) return (text.empty() ? "0:" : "1:") + text;
  char digits[32];
  std::snprintf(digits, sizeof digits, "2:%.15g", *number);
  return digits;
}

/// Exports records with every column that can be read back, and imports them again. Returns the cells of the
/// sheet that was written, row by row.
template <class Record>
std::vector<Texts> ExpectRoundTrip(const char* path, std::size_t records = std::string::npos) {
  const RecordKind kind = kRecordKindOf<Record>;
  const Texts keywords = RoundTripKeywords<Record>();
  EXPECT_GT(keywords.size(), 8u);
  CXLSAssembly out, in;
  out.StartLine = in.StartLine = 1;
  out.Columns(kind) = in.Columns(kind) = keywords;
  AddSamples<Record>(out, keywords, records);
  EXPECT_TRUE(out.Export(path));
  EXPECT_TRUE(Import<Record>(in, path));
  // A cell is not always read as what was written into it, so the records are compared with what the texts
  // give without a workbook between.
  std::vector<Texts> rows = RowsOf<Record>(out, keywords);
  std::vector<Texts> expected;
  for (const Texts& written : rows) {
    Record again;
    Fill(again, keywords, written);
    expected.push_back(RowOf(again, keywords));
  }
  EXPECT_EQ(RowsOf<Record>(in, keywords), expected);
  const auto columns = qv::ResolveForWriting<Record>(keywords);
  for (Texts& row : rows)
    for (std::size_t index = 0; index < row.size(); ++index) row[index] = CellOf(*columns[index], row[index]);
  Texts& header = *rows.insert(rows.begin(), keywords);
  for (std::string& cell : header) cell = "1:" + cell;
  return rows;
}

}  // namespace workbook
