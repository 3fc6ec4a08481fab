#include "cli/RecordFields.h"

#include "support/CaseFile.h"
#include "support/DiagnosticLog.h"
#include "support/Host.h"

#include <QVAssemblyFile/QVAssemblyFile.h>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <functional>
#include <map>

// Runs the case files through the public interface: a format file is written, then the case's input is
// imported, or its records are exported, by a manager. Fields that a case does not name must be those of a
// fresh record, except the availability flags.

namespace {

using nlohmann::json;

using Take = std::function<bool(void*)>;

struct KindOperations {
  RecordKind kind;
  std::function<bool(CAssemblyFileMgr&, char*)> import;
  std::function<int(CAssemblyFileMgr&)> count;
  std::function<void*(CAssemblyFileMgr&, int)> at;
  std::function<bool(CAssemblyFileMgr&, char*, Take&)> read;
  std::function<void(CAssemblyFileMgr&, void*)> attach;
  std::function<bool(CAssemblyFileMgr&, char*)> write;
  std::function<bool(CAssemblyFileMgr&, char*, std::vector<void*>&)> writeSingly;
};

template <class Record>
std::function<void(CAssemblyFileMgr&, void*)> AttachWith(void (CAssemblyFileMgr::*attach)(Record*)) {
  return
      [attach](CAssemblyFileMgr& manager, void* record) { (manager.*attach)(static_cast<Record*>(record)); };
}

template <class Record>
std::function<bool(CAssemblyFileMgr&, char*, Take&)> ReadWith(
    bool (CAssemblyFileMgr::*read)(char*, RecordHandler<Record>, void*)) {
  return [read](CAssemblyFileMgr& manager, char* path, Take& take) {
    const auto handler = [](Record* record, void* context) { return (*static_cast<Take*>(context))(record); };
    return (manager.*read)(path, handler, &take);
  };
}

template <class Record>
std::function<bool(CAssemblyFileMgr&, char*, std::vector<void*>&)> WriteWith(
    bool (CAssemblyFileMgr::*write)(char*, RecordFeed<Record>, void*)) {
  return [write](CAssemblyFileMgr& manager, char* path, std::vector<void*>& records) {
    const auto feed = [](RecordSink<Record>& sink, void* context) {
      for (void* record : *static_cast<std::vector<void*>*>(context))
        sink.Write(*static_cast<Record*>(record));
      return true;
    };
    return (manager.*write)(path, feed, &records);
  };
}

const std::map<std::string, KindOperations>& Kinds() {
  using M = CAssemblyFileMgr;
  static const std::map<std::string, KindOperations> kinds = {
      {"parts",
       {RecordKind::Parts, &M::ImportAssemblyFile, &M::GetPartsCount, &M::GetPartInfoAtRank,
        ReadWith(&M::ReadAssemblyFile), AttachWith(&M::AddAndAttachPart), &M::ExportAssemblyFile,
        WriteWith(&M::WriteAssemblyFile)}},
      {"tools",
       {RecordKind::Tools, &M::ImportToolsAssemblyFile, &M::GetToolsCount, &M::GetToolInfoAtRank,
        ReadWith(&M::ReadToolsAssemblyFile), AttachWith(&M::AddAndAttachTool),
        &M::ExportToolsInfoAssemblyFile, WriteWith(&M::WriteToolsInfoAssemblyFile)}},
      {"materials",
       {RecordKind::Materials, &M::ImportMatsAssemblyFile, &M::GetMatsCount, &M::GetMatInfoAtRank,
        ReadWith(&M::ReadMatsAssemblyFile), AttachWith(&M::AddAndAttachMat), &M::ExportMatsInfoAssemblyFile,
        WriteWith(&M::WriteMatsInfoAssemblyFile)}},
      {"sheets",
       {RecordKind::Sheets, &M::ImportShtInfoAssemblyFile, &M::GetShtCount, &M::GetShtInfoAtRank,
        ReadWith(&M::ReadShtInfoAssemblyFile), AttachWith(&M::AddAndAttachShtInfo),
        &M::ExportShtInfoAssemblyFile, WriteWith(&M::WriteShtInfoAssemblyFile)}},
      {"part-programs",
       {RecordKind::PartPrograms, &M::ImportPrtInfoAssemblyFile, &M::GetPrtCountInMenu,
        &M::GetPrtInfoInMenuAtRank, ReadWith(&M::ReadPrtInfoAssemblyFile),
        AttachWith(&M::AddAndAttachPrtInfo), &M::ExportPrtInfoAssemblyFile,
        WriteWith(&M::WritePrtInfoAssemblyFile)}},
      {"material-inventory",
       {RecordKind::MaterialInventory, &M::ImportMatAmncITAssemblyFile, &M::GetMatAmncITCount,
        &M::GetMatAmncITInfoAtRank, ReadWith(&M::ReadMatAmncITAssemblyFile), nullptr, nullptr, nullptr}},
      {"material-library",
       {RecordKind::MaterialLibrary, &M::ImportMatLibraryAssemblyFile, &M::GetMatLibraryInfoCount,
        &M::GetMatLibraryInfoAtRank, ReadWith(&M::ReadMatLibraryAssemblyFile), nullptr, nullptr, nullptr}},
      {"job-progress",
       {RecordKind::JobProgress, nullptr, nullptr, nullptr, nullptr, AttachWith(&M::AddAndAttachJobProgress),
        &M::ExportJobProgressAssemblyFile, WriteWith(&M::WriteJobProgressAssemblyFile)}},
  };
  return kinds;
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
std::string ItemsOf(const TestCase& c) {
  std::string items;
  const auto add = [&](const std::string& name, const std::string& order) {
    items += "<" + name + " Order=\"" + XmlText(order) + "\"/>";
  };
  if (const auto given = c.settings.find("items"); given != c.settings.end()) {
    for (const std::string& item : SplitAt(given->second, ' ')) {
      const std::size_t equals = item.find('=');
      add(item.substr(0, equals), item.substr(equals + 1));
    }
    return items;
  }
  std::string ignored;
  int position = 0;
  for (const std::string& column : SplitAt(c.Setting("columns", ""), ',')) {
    if (column == "Ignore")
      ignored += std::to_string(position) + ",";
    else
      add(column, std::to_string(position));
    ++position;
  }
  if (!ignored.empty()) add("Ignore", ignored);
  return items;
}

std::string FormatFile(const TestCase& c) {
  static const std::map<std::string, std::string> kQualifiers = {
      {"double", "0"}, {"single", "1"}, {"none", "2"}};
  const auto attribute = [](const char* name, const std::string& value) {
    return std::string(" ") + name + "=\"" + XmlText(value) + "\"";
  };
  return "<CSVOptionSetting" + attribute("Current", c.Setting("current", "Case")) + "><OptionForm" +
         attribute("Name", "Case") + attribute("Line", c.Setting("start-line", "1")) +
         attribute("Delimiters", c.Setting("delimiters", "Comma")) +
         attribute("Other", c.Setting("other", "")) +
         attribute("Qualifier", kQualifiers.at(c.Setting("qualifier", "double"))) +
         attribute("TreatAsOne", c.Setting("treat-as-one", "no") == "yes" ? "true" : "false") +
         attribute("Part", "Name") + ">" + ItemsOf(c) + "</OptionForm></CSVOptionSetting>";
}

/// Bytes that are no UTF-8 are shown as \xHH.
std::string Shown(const std::string& text) {
  std::string out;
  for (std::size_t at = 0; at < text.size();) {
    std::size_t length = 1;
    while (length < 4 && at + length < text.size() &&
           (static_cast<unsigned char>(text[at + length]) & 0xC0) == 0x80)
      ++length;
    const auto lead = static_cast<unsigned char>(text[at]);
    const std::size_t expected = lead < 0x80 ? 1 : lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC0 ? 2 : 0;
    if (length == expected) {
      out += text.substr(at, length);
    } else {
      char hex[8];
      std::snprintf(hex, sizeof hex, "\\x%02X", lead);
      out += hex;
      length = 1;
    }
    at += length;
  }
  return out;
}

json ToJson(const qv::AnyRecord& record);

json ToJson(void* record, const qv::RecordField& field) {
  if (field.type == qv::FieldType::List) {
    json list = json::array();
    for (const qv::AnyRecord& element : field.getList(record)) list.push_back(ToJson(element));
    return list;
  }
  const qv::FieldValue value = field.get(record);
  if (const auto* text = std::get_if<std::string>(&value)) return Shown(*text);
  if (const auto* number = std::get_if<float>(&value)) return std::stod(qv::TextOf(*number));
  return std::visit([](const auto& plain) { return json(plain); }, value);
}

json ToJson(const qv::AnyRecord& record) {
  json object = json::object();
  for (const qv::RecordField& field : record.Type().fields)
    object[std::string(field.stem)] = ToJson(record.Pointer(), field);
  return object;
}

qv::FieldValue ValueFrom(const json& value, qv::FieldType type) {
  switch (type) {
    case qv::FieldType::Int:
      return value.get<int>();
    case qv::FieldType::Float:
      return value.get<float>();
    case qv::FieldType::Double:
      return value.get<double>();
    case qv::FieldType::Bool:
      return value.get<bool>();
    default:
      return value.get<std::string>();
  }
}

qv::AnyRecord FromJson(const json& object, const qv::RecordType& type) {
  qv::AnyRecord record(type);
  for (const auto& [stem, value] : object.items()) {
    const qv::RecordField* const field = qv::FindField(type, stem);
    if (field == nullptr) throw std::runtime_error("no field " + stem);
    if (field->type != qv::FieldType::List) {
      field->set(record.Pointer(), ValueFrom(value, field->type));
      continue;
    }
    std::vector<qv::AnyRecord> elements;
    for (const json& element : value) elements.push_back(FromJson(element, *field->elements));
    field->setList(record.Pointer(), elements);
  }
  return record;
}

/// What a record differs from a fresh one in, of what the case cares about.
json Difference(void* record, const qv::RecordType& type, const json& expected) {
  const qv::AnyRecord fresh(type);
  json object = json::object();
  for (const qv::RecordField& field : type.fields) {
    const std::string stem(field.stem);
    const json value = ToJson(record, field);
    const bool isFlag = stem.rfind("Is", 0) == 0 && field.type == qv::FieldType::Bool;
    const bool isSame = value == ToJson(fresh.Pointer(), field);
    if (expected.contains(stem) || (!isFlag && !isSame)) object[stem] = value;
  }
  return object;
}

class CaseTest : public testing::TestWithParam<TestCase> {
 protected:
  void SetUp() override {
    manager.LoadFormatConfiguration(folder.Write("formats.xml", FormatFile(GetParam())).c_str());
    kind = &Kinds().at(GetParam().Setting("kind", ""));
    path = folder / GetParam().Setting("file", "");
  }

  void CheckImport(const TestCase& c) {
    folder.Write(c.Setting("file", ""), c.Text("input"));
    EXPECT_TRUE(kind->import(manager, host::Path(path)));
    if (c.Has("headers")) {
      std::vector<std::string> headers;
      manager.GetPartHeaders(headers);
      EXPECT_EQ(headers, c.Texts("headers"));
    }
    if (!c.Has("records")) return;
    const std::vector<std::string> lines = c.Lines("records");
    const qv::RecordType& type = qv::RecordTypeOf(kind->kind);
    EXPECT_EQ(kind->count(manager), static_cast<int>(lines.size()));
    for (int rank = 0; rank < std::min(kind->count(manager), static_cast<int>(lines.size())); ++rank) {
      const json expected = json::parse(lines[static_cast<std::size_t>(rank)]);
      EXPECT_EQ(Difference(kind->at(manager, rank), type, expected).dump(), expected.dump())
          << "record " << rank;
    }
  }

  /// Reading record by record gives what the list held.
  void CheckReading() {
    std::vector<std::string> held, read;
    for (int rank = 0; rank < kind->count(manager); ++rank) held.push_back(AllOf(kind->at(manager, rank)));
    Take take = [&](void* record) {
      read.push_back(AllOf(record));
      return true;
    };
    EXPECT_TRUE(kind->read(manager, host::Path(path), take));
    EXPECT_EQ(read, held);
    EXPECT_EQ(kind->count(manager), 0);
  }

  std::string AllOf(void* record) const {
    std::string all;
    for (const qv::RecordField& field : qv::RecordTypeOf(kind->kind).fields)
      all.append(field.stem).append(" ").append(ToJson(record, field).dump()).append("\n");
    return all;
  }

  static std::vector<qv::AnyRecord> ExportedRecords(const TestCase& c, const qv::RecordType& type) {
    std::vector<qv::AnyRecord> records;
    for (const std::string& line : c.Lines("export")) records.push_back(FromJson(json::parse(line), type));
    return records;
  }

  void CheckExport(const TestCase& c) {
    for (qv::AnyRecord& record : ExportedRecords(c, qv::RecordTypeOf(kind->kind)))
      kind->attach(manager, record.Release());
    EXPECT_TRUE(kind->write(manager, host::Path(path)));
    EXPECT_EQ(TemporaryFolder::Read(path), host::AsTextFile(c.Text("output")));
  }

  /// Records that are fed one by one give the file that attached ones give.
  void CheckWriting(const TestCase& c) {
    std::vector<void*> fed;
    const auto records = ExportedRecords(c, qv::RecordTypeOf(kind->kind));
    for (const qv::AnyRecord& record : records) fed.push_back(record.Pointer());
    EXPECT_TRUE(kind->writeSingly(manager, host::Path(path), fed));
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
  const KindOperations* kind = nullptr;
  std::string path;
};

TEST_P(CaseTest, Holds) {
  const TestCase& c = GetParam();
  SCOPED_TRACE(c.file + ":" + std::to_string(c.lineNumber) + ": " + c.name);
  for (const bool singly : {false, true}) {
    const DiagnosticLog log;
    if (c.Has("export"))
      singly ? CheckWriting(c) : CheckExport(c);
    else
      singly ? CheckReading() : CheckImport(c);
    EXPECT_EQ(RemarksOf(log), c.Lines("diagnostics")) << (singly ? "one by one" : "as a list");
  }
}

std::string NameOf(const testing::TestParamInfo<TestCase>& info) {
  std::string name = info.param.file + "_" + info.param.name;
  std::replace_if(
      name.begin(), name.end(), [](char c) { return !std::isalnum(static_cast<unsigned char>(c)); }, '_');
  return name;
}

INSTANTIATE_TEST_SUITE_P(Files, CaseTest, testing::ValuesIn(ReadTestCases(QV_CASES)), NameOf);

}  // namespace
