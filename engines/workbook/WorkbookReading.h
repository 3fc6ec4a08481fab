#pragma once

#include "engines/FileReport.h"
#include "platform/SpreadsheetApplication.h"

#include <cstdint>
#include <functional>

namespace qv {

/// The active sheet of a workbook that was opened to be read. Its size is that of the used range, but rows
/// and columns count from the sheet's first cell all the same.
struct OpenedSheet {
  Worksheet& cells;
  const std::int32_t rows;
  const std::int32_t columns;
  std::int64_t row = 0;  ///< the row at work, for remarks
};

using SheetReader = std::function<void(OpenedSheet&)>;

/// Opens the workbook in an application of its own, hands its active sheet to `read`, closes and quits. What
/// goes wrong is told to the report; without an application a message box is shown too. The application is
/// gone when this returns.
void ReadWorkbook(const char* path, const FileReport& report, const SheetReader& read);

/// Sets `name` to the format name in the first cell; leaves it alone where there is none.
void ReadWorkbookFormatName(std::string& name, const char* path);

}  // namespace qv
