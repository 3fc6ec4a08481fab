#include "engines/CXLSAssembly.h"

#include "engines/FileReport.h"
#include "platform/MessageBox.h"

namespace {

void TellNoApplication(const char* path) {
  qv::FileReport(path).Tell(DiagnosticCode::NoSpreadsheet, 0, {}, {}, {},
                            "no spreadsheet application is available for workbooks");
}

bool ReadWithoutApplication(const char* path) {
  TellNoApplication(path);
  qv::ShowMessage("Error");
  return true;
}

}  // namespace

bool CXLSAssembly::ImportParts(const char* path) { return ReadWithoutApplication(path); }
bool CXLSAssembly::ImportTools(const char* path) { return ReadWithoutApplication(path); }
bool CXLSAssembly::ImportMaterials(const char* path) { return ReadWithoutApplication(path); }
bool CXLSAssembly::ImportSheets(const char* path) { return ReadWithoutApplication(path); }
bool CXLSAssembly::ImportPartPrograms(const char* path) { return ReadWithoutApplication(path); }

// Workbooks carry neither inventories nor libraries.
bool CXLSAssembly::ImportMaterialInventory(const char*) { return true; }
bool CXLSAssembly::ImportMaterialLibrary(const char*) { return true; }

bool CXLSAssembly::Export(const char* path) {
  TellNoApplication(path);
  return false;
}

void CXLSAssembly::ReadFormatName(std::string&, const char* path) { ReadWithoutApplication(path); }

void CXLSAssembly::WriteFormatName(const char*, const char*) {}
