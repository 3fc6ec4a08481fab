#pragma once

#include "engines/CXLSAssembly.h"
#include "workbook/RecordRows.h"

#include <gtest/gtest.h>

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

/// Cells of every make; what a column takes for its value depends on the column.
inline const Texts kSamples = {"12", "3.5", "Y", "0012 Zürich", "=1+1", "Line", "", " x ", "no prefer", "-7"};

/// Stages a record per sample, each with the samples in another order.
template <class Record>
void AddSamples(CAssemblyFile& engine, const Texts& keywords) {
  for (std::size_t record = 0; record < kSamples.size(); ++record) {
    Texts cells;
    for (std::size_t rank = 0; rank < keywords.size(); ++rank) {
      cells.push_back(kSamples[(record + rank) % kSamples.size()]);
      if (keywords[rank] == "PartName") cells.back() += "!";  // without a name it would be no part
    }
    Add<Record>(engine, keywords, cells);
  }
}

/// Exports records with every column that can be read back, and imports them again. Returns the rows of the
/// sheet that was written.
template <class Record>
std::vector<Texts> ExpectRoundTrip(const char* path) {
  const RecordKind kind = qv::KindTraits<Record>::kKind;
  const Texts keywords = RoundTripKeywords<Record>();
  EXPECT_GT(keywords.size(), 8u);
  CXLSAssembly out, in;
  out.StartLine = in.StartLine = 1;
  out.Columns(kind) = in.Columns(kind) = keywords;
  AddSamples<Record>(out, keywords);
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
  rows.insert(rows.begin(), keywords);
  return rows;
}

}  // namespace workbook
