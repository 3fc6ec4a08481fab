#include "engines/CCSVAssembly.h"

void CCSVAssembly::QualifyField(std::string& text) const {
  text.insert(text.begin(), '"');
  text += '"';
}

void CCSVAssembly::AppendDelimiter(std::string& text) const { text += ','; }

bool CCSVAssembly::SplitLine(std::string line, std::vector<std::string>& fields) {
  return qv::SplitInto(qv::FieldSplitter::Csv(), line, fields);
}
