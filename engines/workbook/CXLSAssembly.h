#pragma once

#include "engines/CAssemblyFile.h"

/// Workbooks (.xls), through a spreadsheet application. They carry neither inventories nor libraries.
class CXLSAssembly : public CAssemblyFile {
 public:
  bool Export(const char* path) override;
  void ReadFormatName(std::string& name, const char* path) override;
  void WriteFormatName(const char* name, const char* path) override;
};
