#include "engines/CAssemblyFile.h"

#include "engines/RecordStreams.h"
#include "engines/text/CTxtAssembly.h"
#include "engines/workbook/CXLSAssembly.h"
#include "format/Delimiters.h"
#include "format/FormatColumns.h"
#include "text/Ascii.h"

#include <algorithm>

namespace {

bool Import(CAssemblyFile& engine, RecordKind kind, const char* path) {
  qv::ImportRecords(engine, kind, path);
  return true;
}

template <class Engine>
std::unique_ptr<CAssemblyFile> Make() {
  return std::make_unique<Engine>();
}

struct FileType {
  std::string_view extension;
  std::unique_ptr<CAssemblyFile> (*make)();
};

constexpr FileType kFileTypes[] = {
    {".xls", Make<CXLSAssembly>}, {".csv", Make<CCSVAssembly>}, {".txt", Make<CTxtAssembly>}};

// From the last dot of the file name on.
std::string_view ExtensionOf(std::string_view path) {
  const std::size_t dot = path.find_last_of("./\\:");
  return dot == std::string_view::npos || path[dot] != '.' ? std::string_view() : path.substr(dot);
}

using qv::ClaimState;

// How comments of the format file are called among the items.
constexpr std::string_view kComment = "#comment";

void ReportClaim(const OptionForm& form, const qv::ColumnClaim& claim,
                 const qv::FileDiagnostics& diagnostics) {
  const auto report = [&](DiagnosticCode code, const std::string& what) {
    diagnostics.Report(code, 0, claim.item->Name, claim.item->Order, {},
                       "in the format " + qv::QuotedBriefly(form.Name) + ", " + what);
  };
  const std::string order = "its position " + qv::QuotedBriefly(claim.order);
  const std::string position = std::to_string(claim.position);
  if (claim.state == ClaimState::Unended)
    return report(DiagnosticCode::InvalidPosition, order + " is not used, as no comma follows it");
  if (claim.item->Name == kComment)
    report(DiagnosticCode::InvalidPosition,
           "a comment counts as an item, which claims position 0; put it outside the format");
  else if (claim.fault != qv::NumberFault::None)
    report(DiagnosticCode::InvalidPosition, order + " is taken as " + position);
  if (claim.state == ClaimState::Taken)
    report(DiagnosticCode::PositionTaken, "its position " + position + " is taken by " +
                                              std::string(claim.holder) + " already; it is no column");
}

}  // namespace

CAssemblyFile::CAssemblyFile() = default;
CAssemblyFile::~CAssemblyFile() = default;

bool CAssemblyFile::ImportParts(const char* path) { return Import(*this, RecordKind::Parts, path); }
bool CAssemblyFile::ImportTools(const char* path) { return Import(*this, RecordKind::Tools, path); }
bool CAssemblyFile::ImportMaterials(const char* path) { return Import(*this, RecordKind::Materials, path); }
bool CAssemblyFile::ImportSheets(const char* path) { return Import(*this, RecordKind::Sheets, path); }
bool CAssemblyFile::ImportPartPrograms(const char* path) {
  return Import(*this, RecordKind::PartPrograms, path);
}
bool CAssemblyFile::ImportMaterialInventory(const char* path) {
  return Import(*this, RecordKind::MaterialInventory, path);
}
bool CAssemblyFile::ImportMaterialLibrary(const char* path) {
  return Import(*this, RecordKind::MaterialLibrary, path);
}

void CAssemblyFile::QualifyField(std::string& text) const {
  if (Qualifier != 0 && Qualifier != 1) return;
  const char qualifier = Qualifier == 0 ? '"' : '\'';
  text.insert(text.begin(), qualifier);
  text += qualifier;
}

void CAssemblyFile::AppendDelimiter(std::string& text) const {
  text += qv::DelimiterWritten(Delimiters, OtherDelimiters);
}

std::unique_ptr<CAssemblyFile> CreateAssemblyEngine(const char* path) {
  const qv::FileDiagnostics diagnostics(path);
  const std::string_view extension = ExtensionOf(diagnostics.File());
  for (const FileType& type : kFileTypes)
    if (qv::EqualsIgnoringCase(extension, type.extension)) return type.make();
  diagnostics.Report(DiagnosticCode::UnsupportedFileType, 0, {}, extension, {},
                     "the file type is none of .txt, .csv and .xls; save it as one of these");
  qv::ShowMessage("File Format Error!");
  return nullptr;
}

void ApplyFormat(CAssemblyFile& engine, const OptionForm& form, const qv::FileDiagnostics& diagnostics) {
  engine.StartLine = form.StartLine;
  engine.Qualifier = form.Qualifier;
  engine.Delimiters = form.Delimiters;
  engine.OtherDelimiters = form.OtherDelimiters;
  engine.TreatAsOne = form.TreatAsOne;
  engine.PartKeyIsName = form.PartKey == "Name";

  const auto claims = qv::ClaimsOf(form.Items);
  if (diagnostics.IsWanted())
    for (const qv::ColumnClaim& claim : claims) ReportClaim(form, claim, diagnostics);
  const auto flag = std::find(engine.KindFlags.begin(), engine.KindFlags.end(), true);
  if (flag == engine.KindFlags.end()) return;
  auto& columns = engine.ColumnOrder[static_cast<std::size_t>(flag - engine.KindFlags.begin())];
  for (qv::FormatColumn& column : qv::ColumnsOf(claims)) columns.push_back(std::move(column.keyword));
}
