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

struct KindOperations {
  RecordKind kind;
  std::function<bool(CAssemblyFileMgr&, char*)> import;
  std::function<int(CAssemblyFileMgr&)> count;
  std::function<void*(CAssemblyFileMgr&, int)> at;
  std::function<void(CAssemblyFileMgr&, void*)> attach;
  std::function<bool(CAssemblyFileMgr&, char*)> write;
};

template <class Record>
std::function<void(CAssemblyFileMgr&, void*)> AttachWith(void (CAssemblyFileMgr::*attach)(Record*)) {
  return
      [attach](CAssemblyFileMgr& manager, void* record) { (manager.*attach)(static_cast<Record*>(record)); };
}

const std::map<std::string, KindOperations>& Kinds() {
  using M = CAssemblyFileMgr;
  static const std::map<std::string, KindOperations> kinds = {
      {"parts",
       {RecordKind::Parts, &M::ImportAssemblyFile, &M::GetPartsCount, &M::GetPartInfoAtRank,
        AttachWith(&M::AddAndAttachPart), &M::ExportAssemblyFile}},
      {"tools",
       {RecordKind::Tools, &M::ImportToolsAssemblyFile, &M::GetToolsCount, &M::GetToolInfoAtRank,
        AttachWith(&M::AddAndAttachTool), &M::ExportToolsInfoAssemblyFile}},
      {"materials",
       {RecordKind::Materials, &M::ImportMatsAssemblyFile, &M::GetMatsCount, &M::GetMatInfoAtRank,
        AttachWith(&M::AddAndAttachMat), &M::ExportMatsInfoAssemblyFile}},
      {"sheets",
       {RecordKind::Sheets, &M::ImportShtInfoAssemblyFile, &M::GetShtCount, &M::GetShtInfoAtRank,
        AttachWith(&M::AddAndAttachShtInfo), &M::ExportShtInfoAssemblyFile}},
      {"part-programs",
       {RecordKind::PartPrograms, &M::ImportPrtInfoAssemblyFile, &M::GetPrtCountInMenu,
        &M::GetPrtInfoInMenuAtRank, AttachWith(&M::AddAndAttachPrtInfo), &M::ExportPrtInfoAssemblyFile}},
      {"material-inventory",
       {RecordKind::MaterialInventory, &M::ImportMatAmncITAssemblyFile, &M::GetMatAmncITCount,
        &M::GetMatAmncITInfoAtRank, nullptr, nullptr}},
      {"material-library",
       {RecordKind::MaterialLibrary, &M::ImportMatLibraryAssemblyFile, &M::GetMatLibraryInfoCount,
        &M::GetMatLibraryInfoAtRank, nullptr, nullptr}},
      {"job-progress",
       {RecordKind::JobProgress, nullptr, nullptr, nullptr, AttachWith(&M::AddAndAttachJobProgress),
        &M::ExportJobProgressAssemblyFile}},
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

  void CheckExport(const TestCase& c) {
    for (const std::string& line : c.Lines("export"))
      kind->attach(manager, FromJson(json::parse(line), qv::RecordTypeOf(kind->kind)).Release());
    EXPECT_TRUE(kind->write(manager, host::Path(path)));
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
  const DiagnosticLog log;
  if (c.Has("export"))
    CheckExport(c);
  else
    CheckImport(c);
  EXPECT_EQ(RemarksOf(log), c.Lines("diagnostics"));
}

std::string NameOf(const testing::TestParamInfo<TestCase>& info) {
  std::string name = info.param.file + "_" + info.param.name;
  std::replace_if(
      name.begin(), name.end(), [](char c) { return !std::isalnum(static_cast<unsigned char>(c)); }, '_');
  return name;
}

INSTANTIATE_TEST_SUITE_P(Files, CaseTest, testing::ValuesIn(ReadTestCases(QV_CASES)), NameOf);

}  // namespace
