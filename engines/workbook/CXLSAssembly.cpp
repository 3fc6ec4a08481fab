#include "engines/workbook/CXLSAssembly.h"

#include "engines/RecordStreams.h"
#include "engines/text/FormatNameLine.h"
#include "engines/workbook/SheetRows.h"

bool CXLSAssembly::Export(const char* path) { return qv::ExportRecords(*this, path); }

// The name stands in the first cell.
void CXLSAssembly::ReadFormatName(std::string& name, const char* path) {
  const qv::FileDiagnostics diagnostics(path);
  qv::OpenedSheet sheet(diagnostics);
  if (!sheet.IsOpen()) return;
  const std::string text = sheet.ReadCell(1, 1);
  const std::size_t equals = text.find('=');
  const std::size_t bracket = text.find(']');
  if (qv::IsFormatNameLine(text) && bracket != std::string::npos && equals < bracket)
    name = text.substr(equals + 1, bracket - equals - 1);
}

// It is part of what an export writes; a finished workbook is not opened again for it.
void CXLSAssembly::WriteFormatName(const char*, const char*) {}
