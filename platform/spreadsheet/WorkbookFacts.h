#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace qv {

/// What the bytes of a workbook tell that a spreadsheet application does not, of the make that Excel 5 to
/// 2003 write. Of others nothing is known.
struct WorkbookFacts {
  bool isEncrypted = false;

  /// The index of the sheet that was active when the workbook was saved, among those that are no code.
  std::int32_t activeSheet = 0;

  /// The cells of the active sheet that hold an error or a truth value, constant or as the result of a
  /// formula when the workbook was saved: the error's name, or null for a truth value.
  using Marks = std::unordered_map<std::uint32_t, const char*>;  // by PlaceOf()
  std::optional<Marks> marks;

  /// Rows and columns count from 1.
  static std::uint32_t PlaceOf(std::int32_t row, std::int32_t column) {
    return static_cast<std::uint32_t>(row) << 16 | static_cast<std::uint32_t>(column);
  }
};

/// Looks at the bytes of a workbook. Throws SpreadsheetError for what is damaged or no workbook.
WorkbookFacts InspectBytes(std::string_view bytes);

/// The same for a file that is to be opened as a workbook. Throws SpreadsheetError also when it cannot be
/// read.
WorkbookFacts InspectWorkbook(const std::string& path);
using WorkbookInspector = WorkbookFacts (*)(const std::string& path);

/// What a sheet shows for an error, by its number in files: 7 gives "#DIV/0!". Null for no known one.
const char* ErrorName(int number);

}  // namespace qv
