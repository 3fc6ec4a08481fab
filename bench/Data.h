#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace bench {

enum class Type { Text, Int, Real };

/// One column of a generated file.
struct DataColumn {
  std::string_view keyword;
  Type type;
  /// What the cells are made of: each value of the pool in turn at random; '#' stands for a random digit.
  std::string_view pool;  // values separated by '|'
};

/// The kinds of record for which files are generated.
struct DataTable {
  std::string_view kind;
  std::span<const DataColumn> columns;
};

const DataTable* FindTable(std::string_view kind);
std::span<const DataTable> AllTables();

/// How the cells of a file are dressed.
enum class Dress {
  Csv,   ///< commas; quotes where a cell holds a comma
  Bare,  ///< semicolons; no quotes
};

/// Appends the header row or a row of random cells.
void AppendHeader(std::string& out, const DataTable& table, Dress dress);
void AppendRow(std::string& out, const DataTable& table, Dress dress, std::uint64_t& random);

}  // namespace bench
