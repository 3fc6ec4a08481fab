#pragma once

#include "engines/CAssemblyFile.h"
#include "engines/FieldSplitter.h"

#include <optional>
#include <string>
#include <vector>

/// Delimited text (.txt), with the delimiters and the qualifier of the format.
class CTxtAssembly : public CAssemblyFile {
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

  /// Append the fields of a line to the list; always true.
  virtual bool SplitLine(std::string line, std::vector<std::string>& fields);
  virtual bool SplitQualifiedLine(std::string line, std::vector<std::string>& fields);
  virtual bool SplitUnqualifiedLine(std::string line, std::vector<std::string>& fields);

  /// A splitter that gives the fields of SplitLine() without copying them; none for an engine with splitting
  /// rules of its own.
  std::optional<qv::FieldSplitter> ViewSplitter() const;
};
