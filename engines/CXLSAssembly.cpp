#include "engines/CXLSAssembly.h"

#include "engines/columns/ColumnTables.h"
#include "engines/workbook/WorkbookExport.h"
#include "engines/workbook/WorkbookImport.h"
#include "engines/workbook/WorkbookReading.h"

bool CXLSAssembly::ImportParts(const char* path) { return qv::ImportWorkbook<PartInformation>(*this, path); }
bool CXLSAssembly::ImportTools(const char* path) { return qv::ImportWorkbook<ToolInformation>(*this, path); }
bool CXLSAssembly::ImportMaterials(const char* path) {
  return qv::ImportWorkbook<MaterialInfomation>(*this, path);
}
bool CXLSAssembly::ImportSheets(const char* path) { return qv::ImportWorkbook<ShtInfo>(*this, path); }
bool CXLSAssembly::ImportPartPrograms(const char* path) { return qv::ImportWorkbook<PrtInfo>(*this, path); }

// Workbooks carry neither inventories nor libraries.
bool CXLSAssembly::ImportMaterialInventory(const char*) { return true; }
bool CXLSAssembly::ImportMaterialLibrary(const char*) { return true; }

bool CXLSAssembly::Export(const char* path) { return qv::ExportWorkbook(*this, path); }

void CXLSAssembly::ReadFormatName(std::string& name, const char* path) {
  qv::ReadWorkbookFormatName(name, path);
}

// The name is part of what an export writes; a finished workbook is not opened again for it.
void CXLSAssembly::WriteFormatName(const char*, const char*) {}
