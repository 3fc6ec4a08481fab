#pragma once

#include "engines/CTxtAssembly.h"

/// Comma-separated values (.csv): comma and double quote, whatever the format says.
class CCSVAssembly : public CTxtAssembly {
 public:
  void QualifyField(std::string& text) const override;
  void AppendDelimiter(std::string& text) const override;
  bool SplitLine(std::string line, std::vector<std::string>& fields) override;
};
