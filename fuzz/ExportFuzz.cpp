#include "engines/AttachedRecord.h"
#include "engines/CAssemblyFile.h"
#include "engines/columns/ColumnTables.h"
#include "fuzz/ByteSource.h"
#include "support/DiagnosticLog.h"
#include "support/FakeFileSystem.h"

#include <cstring>

// Any parts, tools, programs: an export without a remark on its cells reads back as the same cells.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

template <class Record>
void Stage(CAssemblyFile& engine, Record* record) {
  engine.StagedRecords.Of<Record>().Stage(qv::AttachedRecord::Of(record));
}

double Real(ByteSource& source) {
  char bytes[sizeof(double)];
  for (char& byte : bytes) byte = static_cast<char>(source.Byte());
  double value;
  std::memcpy(&value, bytes, sizeof value);
  return value;
}

void StagePart(CAssemblyFile& engine, ByteSource& source) {
  auto* part = new PartInformation;
  part->SetPartName(source.Text().c_str());
  part->SetPartComment(source.Text().c_str());
  part->SetPartQuantity(static_cast<int>(source.Byte() * 16777259u));
  part->SetMaterialThickness(Real(source));
  part->SetEstimateTime(Real(source));
  Stage(engine, part);
}

void StageTool(CAssemblyFile& engine, ByteSource& source) {
  auto* tool = new ToolInformation;
  tool->SetToolType(static_cast<int>(source.Byte()));
  tool->SetToolSize(static_cast<float>(Real(source)));
  tool->SetToolPunchConditionString(source.Text().c_str());
  Stage(engine, tool);
}

void StageProgram(CAssemblyFile& engine, ByteSource& source) {
  auto* program = new PrtInfo;
  program->SetPartName(source.Text().c_str());
  std::vector<UsedToolInfo> tools(source.Below(4));
  for (UsedToolInfo& tool : tools)
    std::strncpy(tool.ToolType, source.Text().c_str(), sizeof tool.ToolType - 1);
  program->SetUsedToolInfo(tools);
  std::vector<BendInfo> bends(source.Below(4));
  // The host fills these itself and may forget the terminator.
  for (BendInfo& bend : bends) std::memset(bend.BendAngle, 'x', sizeof bend.BendAngle);
  program->SetBendInfo(bends);
  Stage(engine, program);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  ByteSource source(data, size);
  FakeFileSystem files;
  const char* const path = source.Flag() ? "out.csv" : "out.txt";
  const auto engine = CreateAssemblyEngine(path);
  engine->Qualifier = static_cast<int>(source.Below(4));
  engine->Delimiters = source.Flag() ? "Tab" : "Other";
  engine->OtherDelimiters = source.Text();
  engine->StartLine = static_cast<int>(source.Below(4));
  engine->FormatName = "F";
  const unsigned kind = source.Below(3);
  if (kind == 0)
    engine->Columns(RecordKind::Parts) = {"PartName", "PartQuantity", "MaterialThickness", "EstimateTime",
                                          "PartComment"};
  if (kind == 1) engine->Columns(RecordKind::Tools) = {"ID", "Type", "GroupName", "Size", "PunchCondition"};
  if (kind == 2) engine->Columns(RecordKind::PartPrograms) = {"PartName", "ToolType", "BendAngle", "unknown"};
  for (unsigned count = source.Below(5); count > 0; --count)
    (kind == 0 ? StagePart : kind == 1 ? StageTool : StageProgram)(*engine, source);
  DiagnosticLog log;
  Require(engine->Export(path));
  const std::string& written = files.Contents[path];
  Require(written.size() >= qv::kLineEnd.size() && written.ends_with(qv::kLineEnd));

  const auto reader = CreateAssemblyEngine(path);
  reader->StartLine = engine->StartLine;
  reader->Qualifier = engine->Qualifier;
  reader->Delimiters = engine->Delimiters;
  reader->OtherDelimiters = engine->OtherDelimiters;
  reader->Columns(RecordKind::Parts) = {"PartComment"};
  reader->ImportParts(path);
  return 0;
}
