#include "cli/records/RecordJson.h"
#include "host/CInterface.h"
#include "platform/FileSystem.h"
#include "support/CaseFile.h"
#include "support/DiagnosticLog.h"
#include "support/FakeFileSystem.h"
#include "support/FilledRecord.h"
#include "support/FormatText.h"
#include "support/Host.h"

#include <QVAssemblyFile/QVAssemblyFile.h>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>

// Runs the case files through the public interfaces, in C++ and in C: a format file is written, then the
// case's input is imported, or its records are exported, by a manager. Fields that a case does not name must
// be those of a fresh record, except the availability flags. Cases of the system "windows" hold there alone.

namespace {

using nlohmann::json;

using qv::AnyRecord;

/// What a manager's functions for a kind are called; null for those that it does not have.
struct ListOperations {
  bool (CAssemblyFileMgr::*read)(char* path);
  int (CAssemblyFileMgr::*count)();
  void* (*at)(CAssemblyFileMgr& manager, int index);
  void (*attach)(CAssemblyFileMgr& manager, void* record);
  bool (CAssemblyFileMgr::*write)(char* path);
};

template <auto AtRank>
void* At(CAssemblyFileMgr& manager, int index) {
  return (manager.*AtRank)(index);
}

template <class Record>
void Attach(CAssemblyFileMgr& manager, void* record, void (CAssemblyFileMgr::*attach)(Record*)) {
  (manager.*attach)(static_cast<Record*>(record));
}

template <auto AddAndAttach>
void Attach(CAssemblyFileMgr& manager, void* record) {
  Attach(manager, record, AddAndAttach);
}

using M = CAssemblyFileMgr;

// In the order of RecordKind.
constexpr ListOperations kLists[] = {
    {&M::ImportAssemblyFile, &M::GetPartsCount, At<&M::GetPartInfoAtRank>, Attach<&M::AddAndAttachPart>,
     &M::ExportAssemblyFile},
    {&M::ImportToolsAssemblyFile, &M::GetToolsCount, At<&M::GetToolInfoAtRank>, Attach<&M::AddAndAttachTool>,
     &M::ExportToolsInfoAssemblyFile},
    {&M::ImportMatsAssemblyFile, &M::GetMatsCount, At<&M::GetMatInfoAtRank>, Attach<&M::AddAndAttachMat>,
     &M::ExportMatsInfoAssemblyFile},
    {&M::ImportShtInfoAssemblyFile, &M::GetShtCount, At<&M::GetShtInfoAtRank>,
     Attach<&M::AddAndAttachShtInfo>, &M::ExportShtInfoAssemblyFile},
    {&M::ImportPrtInfoAssemblyFile, &M::GetPrtCountInMenu, At<&M::GetPrtInfoInMenuAtRank>,
     Attach<&M::AddAndAttachPrtInfo>, &M::ExportPrtInfoAssemblyFile},
    {&M::ImportMatAmncITAssemblyFile, &M::GetMatAmncITCount, At<&M::GetMatAmncITInfoAtRank>, nullptr,
     nullptr},
    {&M::ImportMatLibraryAssemblyFile, &M::GetMatLibraryInfoCount, At<&M::GetMatLibraryInfoAtRank>, nullptr,
     nullptr},
    {nullptr, nullptr, nullptr, Attach<&M::AddAndAttachJobProgress>, &M::ExportJobProgressAssemblyFile},
};

std::string XmlText(const std::string& text) {
  std::string out;
  for (const char c : text) out += "&#" + std::to_string(static_cast<unsigned char>(c)) + ";";
  return out;
}

std::vector<std::string> SplitAt(const std::string& text, char separator) {
  std::vector<std::string> parts;
  std::istringstream stream(text);
  for (std::string part; std::getline(stream, part, separator);) parts.push_back(part);
  return parts;
}

/// The format's items: as given one by one, or from the list of its columns.
std::string ItemsOfCase(const TestCase& c) {
  if (c.settings.contains("items")) return c.settings.at("items");
  std::string items, ignored;
  int position = 0;
  for (const std::string& column : SplitAt(c.Setting("columns", ""), ',')) {
    const std::string order = std::to_string(position++);
    if (column == "Ignore")
      ignored += order + ",";
    else
      items += column + "=" + order + " ";
  }
  return ignored.empty() ? items : items + "Ignore=" + ignored;
}

std::string FormatOf(const TestCase& c) {
  static const std::map<std::string, std::string> kQualifiers = {
      {"double", "0"}, {"single", "1"}, {"none", "2"}};
  const std::pair<const char*, std::string> attributes[] = {
      {"Line", c.Setting("start-line", "1")},
      {"Delimiters", c.Setting("delimiters", "Comma")},
      {"Other", c.Setting("other", "")},
      {"Qualifier", kQualifiers.at(c.Setting("qualifier", "double"))},
      {"TreatAsOne", c.Setting("treat-as-one", "no") == "yes" ? "true" : "false"},
      {"Part", "Name"}};
  std::string written;
  for (const auto& [name, value] : attributes) written += std::string(name) + "=\"" + XmlText(value) + "\" ";
  return FormatFile(XmlText(c.Setting("current", "Case")), FormatElement("Case", ItemsOfCase(c), written));
}

const qv::TextCoding kUtf8("utf-8");

json ToJson(void* record, const qv::RecordType& type) {
  std::string text;
  qv::JsonWriter writer(text);
  qv::WriteRecordJson(writer, type, record, kUtf8);
  return json::parse(text);
}

std::vector<AnyRecord> RecordsOf(const TestCase& c, const qv::RecordType& type) {
  std::string text;
  for (const std::string& line : c.Lines("export")) text += line + "\n";
  FakeFileSystem files;
  const auto file = files.OpenText(text, text.size());
  std::vector<AnyRecord> records;
  qv::ReadRecordsJson(
      c.file, *file, type, kUtf8, [](const qv::Utf8Diagnostic&) {},
      [&](AnyRecord record) { records.push_back(std::move(record)); });
  return records;
}

/// What a record differs from a fresh one in, of what the case cares about.
json Difference(void* record, const qv::RecordType& type, const json& expected) {
  json difference = ToJson(record, type);
  const json fresh = ToJson(AnyRecord(type).Pointer(), type);
  for (const auto& [stem, value] : fresh.items()) {
    const bool isFlag = stem.rfind("Is", 0) == 0 && value.is_boolean();
    if (!expected.contains(stem) && (isFlag || difference[stem] == value)) difference.erase(stem);
  }
  return difference;
}

class CaseTest : public testing::TestWithParam<TestCase> {
 protected:
  void SetUp() override {
    formats = folder.Write("formats.xml", FormatOf(GetParam()));
    manager.LoadFormatConfiguration(formats.c_str());
    kind = qv::KindNamed(GetParam().Setting("kind", ""));
    type = &qv::RecordTypeOf(kind);
    list = &kLists[static_cast<std::size_t>(kind)];
    path = folder / GetParam().Setting("file", "");
  }

  int Count() { return (manager.*list->count)(); }

  void CheckImport(const TestCase& c) {
    folder.Write(c.Setting("file", ""), c.Text("input"));
    EXPECT_TRUE((manager.*list->read)(host::Path(path)));
    if (c.Has("headers")) {
      std::vector<std::string> headers;
      manager.GetPartHeaders(headers);
      EXPECT_EQ(headers, c.Texts("headers"));
    }
    std::vector<void*> records;
    for (int index = 0; index < Count(); ++index) records.push_back(list->at(manager, index));
    CheckRecords(c, records);
  }

  void CheckRecords(const TestCase& c, const std::vector<void*>& records) {
    if (!c.Has("records")) return;
    const std::vector<std::string> lines = c.Lines("records");
    EXPECT_EQ(records.size(), lines.size());
    for (std::size_t index = 0; index < std::min(records.size(), lines.size()); ++index) {
      const json expected = json::parse(lines[index]);
      EXPECT_EQ(Difference(records[index], *type, expected).dump(), expected.dump()) << "record " << index;
    }
  }

  /// Reading through the C interface; returns its remarks.
  std::vector<std::string> CheckImportInC(const TestCase& c) {
    qva::Manager through;
    through.loadFormats(formats);
    qva::Reader reader = through.read(path, static_cast<qva::Kind>(kind));
    if (c.Has("headers")) {
      std::vector<std::string> headers = reader.headers();
      for (std::string& header : headers) header = qv::FromUtf8(header);
      EXPECT_EQ(headers, c.Texts("headers"));
    }
    std::vector<AnyRecord> records;
    std::vector<void*> pointers;
    for (qva::Record& record : reader) {
      c_interface::Take(record, *type, records.emplace_back(*type).Pointer());
      pointers.push_back(records.back().Pointer());
    }
    CheckRecords(c, pointers);
    return RemarksOf(through);
  }

  std::vector<std::string> CheckExportInC(const TestCase& c) {
    qva::Manager through;
    through.loadFormats(formats);
    qva::Writer writer = through.write(path, static_cast<qva::Kind>(kind));
    for (const AnyRecord& record : RecordsOf(c, *type)) {
      qva::Record given(static_cast<qva::Kind>(kind));
      c_interface::Give(*type, record.Pointer(), given);
      writer.put(given);
    }
    writer.commit();
    EXPECT_EQ(TemporaryFolder::Read(path), host::AsTextFile(c.Text("output")));
    return RemarksOf(through);
  }

  /// Reading record by record gives what the list held.
  void CheckReading() {
    std::vector<json> held, read;
    for (int index = 0; index < Count(); ++index) held.push_back(ToJson(list->at(manager, index), *type));
    AnyRecordReader reader(manager, kind, path.c_str());
    while (void* const record = reader.Next()) read.push_back(ToJson(record, *type));
    EXPECT_FALSE(reader.HasFailed());
    EXPECT_EQ(read, held);
    EXPECT_EQ(Count(), 0);
  }

  /// Records that are written one by one give the file that attached ones give.
  void CheckExport(const TestCase& c, bool singly) {
    std::vector<AnyRecord> records = RecordsOf(c, *type);
    if (singly) {
      AnyRecordWriter writer(manager, kind, path.c_str());
      for (const AnyRecord& record : records) EXPECT_TRUE(writer.Put(record.Pointer()));
      EXPECT_TRUE(writer.Commit());
    } else {
      for (AnyRecord& record : records) list->attach(manager, record.Release());
      EXPECT_TRUE((manager.*list->write)(host::Path(path)));
    }
    EXPECT_EQ(TemporaryFolder::Read(path), host::AsTextFile(c.Text("output")));
  }

  static std::vector<std::string> RemarksOf(qva::Manager& through) {
    std::vector<std::string> remarks;
    for (const qva::Diagnostic& remark : through.takeDiagnostics())
      remarks.push_back(std::to_string(remark.line) + " " + (remark.column.empty() ? "-" : remark.column) +
                        " " + remark.code);
    return remarks;
  }

  TemporaryFolder folder;
  std::string formats;
  CAssemblyFileMgr manager;
  RecordKind kind{};
  const qv::RecordType* type = nullptr;
  const ListOperations* list = nullptr;
  std::string path;
};

TEST_P(CaseTest, Holds) {
  const TestCase& c = GetParam();
  if (c.Setting("system", "") == "windows" && qv::kEndOfText < 0) GTEST_SKIP() << "no byte ends a text here";
  SCOPED_TRACE(c.file + ":" + std::to_string(c.lineNumber) + ": " + c.name);
  for (const bool singly : {false, true}) {
    const DiagnosticLog log;
    if (c.Has("export"))
      CheckExport(c, singly);
    else
      singly ? CheckReading() : CheckImport(c);
    EXPECT_EQ(log.Lines(), c.Lines("diagnostics")) << (singly ? "one by one" : "as a list");
  }
  EXPECT_EQ(c.Has("export") ? CheckExportInC(c) : CheckImportInC(c), c.Lines("diagnostics")) << "in C";
}

// A kind that is only read is not read from workbooks.
TEST(KindTest, CanDoInCWhatTheManagerCan) {
  for (const ListOperations& list : kLists) {
    const auto kind = static_cast<std::int32_t>(&list - kLists);
    const int reads = list.read == nullptr ? 0 : QVA_CAN_READ;
    const int writes = list.write == nullptr ? 0 : QVA_CAN_WRITE | QVA_CAN_WRITE_WORKBOOK;
    std::int32_t abilities = 0;
    EXPECT_EQ(qva_kind_abilities(kind, &abilities), QVA_OK);
    EXPECT_EQ(abilities, reads | writes | (reads != 0 && writes != 0 ? QVA_CAN_READ_WORKBOOK : 0)) << kind;
  }
}

INSTANTIATE_TEST_SUITE_P(Files, CaseTest, testing::ValuesIn(ReadTestCases("cases")), NameOfCase);

}  // namespace
