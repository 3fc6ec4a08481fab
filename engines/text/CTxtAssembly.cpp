#include "engines/text/CTxtAssembly.h"

#include "engines/RecordStreams.h"
#include "engines/text/FormatNameLine.h"

#include <typeinfo>

namespace {

constexpr int kNoQualifier = 2;

qv::SplitRules RulesOf(const CAssemblyFile& engine, int qualifier) {
  return qv::SplitRulesOf(engine.Delimiters, engine.OtherDelimiters, qualifier, engine.TreatAsOne);
}

}  // namespace

bool CTxtAssembly::Export(const char* path) {
  qv::ExportRecords(*this, path);
  return true;
}

void CTxtAssembly::ReadFormatName(std::string& name, const char* path) {
  qv::ReadStoredFormatName(name, path);
}

void CTxtAssembly::WriteFormatName(const char* name, const char* path) {
  qv::WriteStoredFormatName(name, path);
}

bool CTxtAssembly::SplitLine(std::string line, std::vector<std::string>& fields) {
  return Qualifier == kNoQualifier ? SplitUnqualifiedLine(std::move(line), fields)
                                   : SplitQualifiedLine(std::move(line), fields);
}

bool CTxtAssembly::SplitQualifiedLine(std::string line, std::vector<std::string>& fields) {
  return qv::SplitInto(RulesOf(*this, Qualifier == 1), line, fields);
}

bool CTxtAssembly::SplitUnqualifiedLine(std::string line, std::vector<std::string>& fields) {
  return qv::SplitInto(RulesOf(*this, kNoQualifier), line, fields);
}

std::optional<qv::SplitRules> CTxtAssembly::Rules() const {
  const std::type_info& type = typeid(*this);
  if (type == typeid(CCSVAssembly)) return qv::SplitRules::Csv();
  if (type != typeid(CTxtAssembly)) return std::nullopt;
  return RulesOf(*this, Qualifier);
}

void CCSVAssembly::QualifyField(std::string& text) const {
  text.insert(text.begin(), '"');
  text += '"';
}

void CCSVAssembly::AppendDelimiter(std::string& text) const { text += ','; }

bool CCSVAssembly::SplitLine(std::string line, std::vector<std::string>& fields) {
  return qv::SplitInto(qv::SplitRules::Csv(), line, fields);
}
