#include "engines/CTxtAssembly.h"

#include "engines/CCSVAssembly.h"
#include "engines/FormatNameLine.h"
#include "engines/TextExport.h"
#include "engines/TextImport.h"
#include "engines/columns/ColumnTables.h"

#include <typeinfo>

bool CTxtAssembly::ImportParts(const char* path) { return qv::ImportRows<PartInformation>(*this, path); }

bool CTxtAssembly::Export(const char* path) { return qv::ExportRows(*this, path); }

bool CTxtAssembly::ImportTools(const char* path) { return qv::ImportRows<ToolInformation>(*this, path); }

bool CTxtAssembly::ImportMaterials(const char* path) {
  return qv::ImportRows<MaterialInfomation>(*this, path);
}

bool CTxtAssembly::ImportSheets(const char* path) { return qv::ImportRows<ShtInfo>(*this, path); }

bool CTxtAssembly::ImportPartPrograms(const char* path) { return qv::ImportRows<PrtInfo>(*this, path); }

bool CTxtAssembly::ImportMaterialInventory(const char* path) {
  return qv::ImportRows<MatAmncITInfo>(*this, path);
}

bool CTxtAssembly::ImportMaterialLibrary(const char* path) {
  return qv::ImportRows<MatLibraryInfo>(*this, path);
}

void CTxtAssembly::ReadFormatName(std::string& name, const char* path) {
  qv::ReadStoredFormatName(name, path);
}

void CTxtAssembly::WriteFormatName(const char* name, const char* path) {
  qv::WriteStoredFormatName(name, path);
}

bool CTxtAssembly::SplitLine(std::string line, std::vector<std::string>& fields) {
  return Qualifier == 2 ? SplitUnqualifiedLine(std::move(line), fields)
                        : SplitQualifiedLine(std::move(line), fields);
}

bool CTxtAssembly::SplitQualifiedLine(std::string line, std::vector<std::string>& fields) {
  return qv::SplitInto(qv::FieldSplitter::Qualified(*this), line, fields);
}

bool CTxtAssembly::SplitUnqualifiedLine(std::string line, std::vector<std::string>& fields) {
  return qv::SplitInto(qv::FieldSplitter::Unqualified(*this), line, fields);
}

std::optional<qv::FieldSplitter> CTxtAssembly::ViewSplitter() const {
  const std::type_info& type = typeid(*this);
  if (type == typeid(CCSVAssembly)) return qv::FieldSplitter::Csv();
  if (type != typeid(CTxtAssembly)) return std::nullopt;
  return Qualifier == 2 ? qv::FieldSplitter::Unqualified(*this) : qv::FieldSplitter::Qualified(*this);
}
