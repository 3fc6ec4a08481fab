#include "engines/CAssemblyFile.h"
#include "engines/RecordStreams.h"
#include "engines/columns/ColumnTables.h"
#include "fuzz/ByteSource.h"
#include "support/DiagnosticLog.h"
#include "support/FakeFileSystem.h"

#include <algorithm>

// Any file, imported as any kind with any columns: every row read gives a record or a remark that it was left
// out, and how the file arrives in the read buffer changes nothing.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

struct Setting {
  const char* path;
  RecordKind kind;
  OptionForm form;
  std::vector<std::string> columns;
};

Setting SettingFrom(ByteSource& source) {
  Setting setting;
  setting.path = source.Flag() ? "in.csv" : "in.txt";
  setting.kind = static_cast<RecordKind>(source.Below(kRecordKindCount - 1));  // the last is never read
  setting.form.StartLine = static_cast<int>(source.Below(5)) - 1;
  setting.form.Qualifier = static_cast<int>(source.Below(4));
  setting.form.TreatAsOne = source.Flag();
  setting.form.Delimiters = source.Flag() ? "Tab,Semicolon" : "Space,Comma,Other";
  setting.form.OtherDelimiters = "|";
  std::vector<std::string> keywords{"Ignore", "unknown"};
  qv::VisitRecordClass(setting.kind, [&]<class Record>(std::type_identity<Record>) {
    for (const auto& column : qv::ColumnTable<Record>::Columns()) keywords.emplace_back(column.keyword);
  });
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
  engine->Columns(setting.kind) = setting.columns;
  const qv::FileDiagnostics diagnostics(setting.path);
  Outcome outcome;
  for (const auto source = qv::OpenRecords(*engine, setting.kind, diagnostics); source->Next() != nullptr;)
    ++outcome.records;
  outcome.headers = engine->HeaderFields.All();
  outcome.remarks = log.Codes();
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
