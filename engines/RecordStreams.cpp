#include "engines/RecordStreams.h"

#include "engines/text/CTxtAssembly.h"
#include "engines/workbook/CXLSAssembly.h"

#include <algorithm>
#include <array>

namespace qv {
namespace {

// The kinds that are written, in the order in which an export looks for one that has columns. Text files have
// job progress last, workbooks part programs.
constexpr std::array kWrittenKinds = {RecordKind::Parts,  RecordKind::Tools,        RecordKind::Materials,
                                      RecordKind::Sheets, RecordKind::PartPrograms, RecordKind::JobProgress};

RecordKind FirstKindWithColumns(const CAssemblyFile& engine) {
  auto kinds = kWrittenKinds;
  if (dynamic_cast<const CXLSAssembly*>(&engine) != nullptr) std::swap(kinds[4], kinds[5]);
  const auto found = std::find_if(kinds.begin(), kinds.end(),
                                  [&](RecordKind kind) { return !engine.Columns(kind).empty(); });
  return found == kinds.end() ? kinds.front() : *found;
}

}  // namespace

std::unique_ptr<RecordSource> OpenRecords(CAssemblyFile& engine, RecordKind kind,
                                          const FileDiagnostics& diagnostics) {
  if (auto* const text = dynamic_cast<CTxtAssembly*>(&engine))
    return OpenTextRecords(*text, kind, diagnostics);
  return OpenWorkbookRecords(engine, kind, diagnostics);
}

std::unique_ptr<RecordTarget> BeginRecords(CAssemblyFile& engine, RecordKind kind,
                                           const FileDiagnostics& diagnostics) {
  if (dynamic_cast<CTxtAssembly*>(&engine) != nullptr) return BeginTextRecords(engine, kind, diagnostics);
  return BeginWorkbookRecords(engine, kind, diagnostics);
}

void ImportRecords(CAssemblyFile& engine, RecordKind kind, const FileDiagnostics& diagnostics) {
  if (const auto source = OpenRecords(engine, kind, diagnostics)) source->KeepAll();
}

bool ExportRecords(CAssemblyFile& engine, const FileDiagnostics& diagnostics) {
  const auto target = BeginRecords(engine, FirstKindWithColumns(engine), diagnostics);
  target->PutStaged();
  return target->Commit();
}

}  // namespace qv
