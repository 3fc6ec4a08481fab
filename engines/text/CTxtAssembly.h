#pragma once

#include "engines/CAssemblyFile.h"
#include "engines/text/FieldSplitter.h"

#include <optional>
#include <string>
#include <vector>

/// Delimited text (.txt), with the delimiters and the qualifier of the format.
class CTxtAssembly : public CAssemblyFile {
 public:
  bool Export(const char* path) override;
  void ReadFormatName(std::string& name, const char* path) override;
  void WriteFormatName(const char* name, const char* path) override;

  /// Append the fields of a line to the list; always true.
  virtual bool SplitLine(std::string line, std::vector<std::string>& fields);
  virtual bool SplitQualifiedLine(std::string line, std::vector<std::string>& fields);
  virtual bool SplitUnqualifiedLine(std::string line, std::vector<std::string>& fields);

  /// The rules of SplitLine(), for those who split without copying; none for an engine that has its own.
  std::optional<qv::SplitRules> Rules() const;
};

/// Comma-separated values (.csv): comma and double quote, whatever the format says.
class CCSVAssembly : public CTxtAssembly {
 public:
  void QualifyField(std::string& text) const override;
  void AppendDelimiter(std::string& text) const override;
  bool SplitLine(std::string line, std::vector<std::string>& fields) override;
};
