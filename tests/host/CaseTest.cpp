#include "cli/Kinds.h"
#include "cli/RecordJson.h"
#include "cli/RecordJsonReader.h"
#include "support/CaseFile.h"
#include "support/DiagnosticLog.h"
#include "support/FormatText.h"
#include "support/Host.h"

#include <QVAssemblyFile/QVAssemblyFile.h>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <map>

// Runs the case files through the public interface: a format file is written, then the case's input is
// imported, or its records are exported, by a manager. Fields that a case does not name must be those of a
// fresh record, except the availability flags.

namespace {

using nlohmann::json;

using qv::AnyRecord;

/// What a kind's list functions are called. The other ones come from the program's own table.
struct ListOperations {
  void (*attach)(CAssemblyFileMgr& manager, void* record);
  bool (CAssemblyFileMgr::*write)(char* path);
};

template <auto Attach>
struct Attaching;
template <class Record, void (CAssemblyFileMgr::*Attach)(Record*)>
struct Attaching<Attach> {
  static void Run(CAssemblyFileMgr& manager, void* record) {
    (manager.*Attach)(static_cast<Record*>(record));
  }
};

const std::map<RecordKind, ListOperations>& Lists() {
  using M = CAssemblyFileMgr;
  static const std::map<RecordKind, ListOperations> lists = {
      {RecordKind::Parts, {Attaching<&M::AddAndAttachPart>::Run, &M::ExportAssemblyFile}},
      {RecordKind::Tools, {Attaching<&M::AddAndAttachTool>::Run, &M::ExportToolsInfoAssemblyFile}},
      {RecordKind::Materials, {Attaching<&M::AddAndAttachMat>::Run, &M::ExportMatsInfoAssemblyFile}},
      {RecordKind::Sheets, {Attaching<&M::AddAndAttachShtInfo>::Run, &M::ExportShtInfoAssemblyFile}},
      {RecordKind::PartPrograms, {Attaching<&M::AddAndAttachPrtInfo>::Run, &M::ExportPrtInfoAssemblyFile}},
      {RecordKind::JobProgress,
       {Attaching<&M::AddAndAttachJobProgress>::Run, &M::ExportJobProgressAssemblyFile}},
  };
  return lists;
}

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
  qv::AppendRecordJson(text, type, record, kUtf8);
  return json::parse(text);
}

std::vector<AnyRecord> RecordsOf(const TestCase& c, const qv::RecordType& type) {
  std::string text;
  for (const std::string& line : c.Lines("export")) text += line + "\n";
  qv::JsonSource source([&text](char* buffer, std::size_t capacity) {
    const std::size_t count = text.copy(buffer, capacity);
    text.erase(0, count);
    return static_cast<std::ptrdiff_t>(count);
  });
  return qv::ReadRecordsJson(source, type, kUtf8, [](const qv::JsonRemark&) {});
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
    manager.LoadFormatConfiguration(folder.Write("formats.xml", FormatOf(GetParam())).c_str());
    const std::string name = GetParam().Setting("kind", "");
    for (const qv::RecordType& known : qv::RecordTypes())
      if (known.name == name) type = &known;
    ASSERT_NE(type, nullptr) << name;
    kind = &qv::OperationsOf(static_cast<RecordKind>(type - qv::RecordTypes().data()));
    path = folder / GetParam().Setting("file", "");
  }

  void CheckImport(const TestCase& c) {
    folder.Write(c.Setting("file", ""), c.Text("input"));
    EXPECT_TRUE(kind->importFile(manager, host::Path(path)));
    if (c.Has("headers")) {
      std::vector<std::string> headers;
      manager.GetPartHeaders(headers);
      EXPECT_EQ(headers, c.Texts("headers"));
    }
    if (!c.Has("records")) return;
    const std::vector<std::string> lines = c.Lines("records");
    EXPECT_EQ(kind->count(manager), static_cast<int>(lines.size()));
    for (int rank = 0; rank < std::min(kind->count(manager), static_cast<int>(lines.size())); ++rank) {
      const json expected = json::parse(lines[static_cast<std::size_t>(rank)]);
      EXPECT_EQ(Difference(kind->at(manager, rank), *type, expected).dump(), expected.dump())
          << "record " << rank;
    }
  }

  /// Reading record by record gives what the list held.
  void CheckReading() {
    std::vector<json> held, read;
    for (int rank = 0; rank < kind->count(manager); ++rank)
      held.push_back(ToJson(kind->at(manager, rank), *type));
    EXPECT_TRUE(kind->readFile(manager, host::Path(path), [&](void* record) {
      read.push_back(ToJson(record, *type));
      return true;
    }));
    EXPECT_EQ(read, held);
    EXPECT_EQ(kind->count(manager), 0);
  }

  /// Records that are fed one by one give the file that attached ones give.
  void CheckExport(const TestCase& c, bool singly) {
    std::vector<AnyRecord> records = RecordsOf(c, *type);
    const ListOperations& list = Lists().at(kind->kind);
    if (!singly)
      for (AnyRecord& record : records) list.attach(manager, record.Release());
    EXPECT_TRUE(!singly ? (manager.*list.write)(host::Path(path))
                        : kind->writeFile(manager, host::Path(path), [&](const qv::TakeRecord& write) {
                            for (const AnyRecord& record : records) write(record.Pointer());
                            return true;
                          }));
    EXPECT_EQ(TemporaryFolder::Read(path), host::AsTextFile(c.Text("output")));
  }

  static std::vector<std::string> RemarksOf(const DiagnosticLog& log) {
    std::vector<std::string> remarks;
    for (const Diagnostic& remark : log.Remarks) {
      remarks.push_back(std::to_string(remark.line) + " " + (remark.column.empty() ? "-" : remark.column) +
                        " " + DiagnosticCodeName(remark.code));
      EXPECT_FALSE(remark.message.empty());
    }
    return remarks;
  }

  TemporaryFolder folder;
  CAssemblyFileMgr manager;
  const qv::RecordType* type = nullptr;
  const qv::KindOperations* kind = nullptr;
  std::string path;
};

TEST_P(CaseTest, Holds) {
  const TestCase& c = GetParam();
  SCOPED_TRACE(c.file + ":" + std::to_string(c.lineNumber) + ": " + c.name);
  for (const bool singly : {false, true}) {
    const DiagnosticLog log;
    if (c.Has("export"))
      CheckExport(c, singly);
    else
      singly ? CheckReading() : CheckImport(c);
    EXPECT_EQ(RemarksOf(log), c.Lines("diagnostics")) << (singly ? "one by one" : "as a list");
  }
}

INSTANTIATE_TEST_SUITE_P(Files, CaseTest, testing::ValuesIn(ReadTestCases("cases")), NameOfCase);

}  // namespace
