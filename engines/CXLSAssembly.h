#pragma once

#include "engines/CAssemblyFile.h"

/// Workbooks (.xls), through a spreadsheet application.
class CXLSAssembly : public CAssemblyFile {
 public:
  bool ImportParts(const char* path) override;
  bool Export(const char* path) override;
  bool ImportTools(const char* path) override;
  bool ImportMaterials(const char* path) override;
  bool ImportSheets(const char* path) override;
  bool ImportPartPrograms(const char* path) override;
  bool ImportMaterialInventory(const char* path) override;
  bool ImportMaterialLibrary(const char* path) override;
  void ReadFormatName(std::string& name, const char* path) override;
  void WriteFormatName(const char* name, const char* path) override;
};
