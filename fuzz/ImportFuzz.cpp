#include "engines/CAssemblyFile.h"
#include "engines/columns/ColumnTables.h"
#include "fuzz/ByteSource.h"
#include "support/DiagnosticLog.h"
#include "support/FakeFileSystem.h"

#include <algorithm>

// Any file, imported as any kind with any columns: every row read gives a record or a remark that it was left
// out, and how the file arrives in the read buffer changes nothing.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

using Import = bool (CAssemblyFile::*)(const char*);

struct Kind {
  RecordKind kind;
  Import import;
  std::size_t (*count)(const CAssemblyFile&);
  void (*keywords)(std::vector<std::string>&);
};

template <class Record>
constexpr Kind KindOf(Import import) {
  return {qv::KindTraits<Record>::kKind, import,
          [](const CAssemblyFile& engine) { return engine.StagedRecords.Of<Record>().Size(); },
          [](std::vector<std::string>& keywords) {
            for (const auto& column : qv::ColumnTable<Record>::Columns())
              keywords.emplace_back(column.keyword);
          }};
}

const Kind kKinds[] = {KindOf<PartInformation>(&CAssemblyFile::ImportParts),
                       KindOf<ToolInformation>(&CAssemblyFile::ImportTools),
                       KindOf<MaterialInfomation>(&CAssemblyFile::ImportMaterials),
                       KindOf<ShtInfo>(&CAssemblyFile::ImportSheets),
                       KindOf<PrtInfo>(&CAssemblyFile::ImportPartPrograms),
                       KindOf<MatAmncITInfo>(&CAssemblyFile::ImportMaterialInventory),
                       KindOf<MatLibraryInfo>(&CAssemblyFile::ImportMaterialLibrary)};

struct Setting {
  const char* path;
  const Kind* kind;
  OptionForm form;
  std::vector<std::string> columns;
};

Setting SettingFrom(ByteSource& source) {
  Setting setting;
  setting.path = source.Flag() ? "in.csv" : "in.txt";
  setting.kind = &kKinds[source.Below(std::size(kKinds))];
  setting.form.StartLine = static_cast<int>(source.Below(5)) - 1;
  setting.form.Qualifier = static_cast<int>(source.Below(4));
  setting.form.TreatAsOne = source.Flag();
  setting.form.Delimiters = source.Flag() ? "Tab,Semicolon" : "Space,Comma,Other";
  setting.form.OtherDelimiters = "|";
  std::vector<std::string> keywords{"Ignore", "unknown"};
  setting.kind->keywords(keywords);
  for (unsigned count = source.Below(40); count > 0; --count)
    setting.columns.push_back(keywords[source.Below(static_cast<unsigned>(keywords.size()))]);
  return setting;
}

struct Outcome {
  std::size_t records = 0;
  std::vector<std::string> headers;
  std::string remarks;
  std::size_t leftOut = 0;
  bool operator==(const Outcome&) const = default;
};

Outcome Run(const Setting& setting, const std::string& content, std::size_t largestRead) {
  FakeFileSystem files;
  files.Contents[setting.path] = content;
  files.LargestRead = largestRead;
  DiagnosticLog log;
  const auto engine = CreateAssemblyEngine(setting.path);
  ApplyFormat(*engine, setting.form, setting.path);
  engine->Columns(setting.kind->kind) = setting.columns;
  (engine.get()->*setting.kind->import)(setting.path);
  Outcome outcome{setting.kind->count(*engine), {}, log.Codes(), 0};
  for (std::size_t rank = 0; rank < engine->HeaderFields.Size(); ++rank)
    outcome.headers.emplace_back(engine->HeaderFields[rank]);
  for (const Diagnostic& remark : log.Remarks) outcome.leftOut += remark.code == DiagnosticCode::RowLeftOut;
  return outcome;
}

// The lines behind the header row.
std::size_t RowsIn(const std::string& content, int startLine) {
  const std::string text =
      qv::kEndOfText < 0 ? content : content.substr(0, content.find(static_cast<char>(qv::kEndOfText)));
  auto lines = static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
  if (!text.empty() && text.back() != '\n') ++lines;
  const auto header = static_cast<std::size_t>(std::max(startLine, 1));
  return lines > header ? lines - header : 0;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  ByteSource source(data, size);
  const Setting setting = SettingFrom(source);
  const std::size_t step = source.Byte() + 1;
  const std::string content = source.Rest();
  const Outcome whole = Run(setting, content, content.size() + 1);
  Require(whole == Run(setting, content, step));
  Require(RowsIn(content, setting.form.StartLine) == whole.records + whole.leftOut);
  return 0;
}
