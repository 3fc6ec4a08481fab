#include "cli/records/RecordJson.h"
#include "support/CaseFile.h"
#include "support/FakeFileSystem.h"
#include "support/FilledRecord.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>

namespace qv {
namespace {

struct Outcome {
  std::vector<AnyRecord> records;
  std::string warnings;  ///< "line key code;"
  std::string error;     ///< "line key code: message"
};

std::string Told(const Utf8Diagnostic& diagnostic) {
  return std::to_string(diagnostic.line) + " " + diagnostic.column + " " + diagnostic.code;
}

Outcome Read(const std::string& json, RecordKind kind = RecordKind::Parts, std::size_t step = 7,
             const TextCoding& coding = {}) {
  Outcome outcome;
  FakeFileSystem files;
  const auto file = files.OpenText(json, step);
  try {
    ReadRecordsJson(
        "r.json", *file, RecordTypeOf(kind), coding,
        [&](const Utf8Diagnostic& diagnostic) { outcome.warnings += Told(diagnostic) + ";"; },
        [&](AnyRecord record) { outcome.records.push_back(std::move(record)); });
  } catch (const FileError& error) {
    outcome.error = Told(error.diagnostic) + ": " + error.what();
  }
  return outcome;
}

std::string JsonOf(const std::vector<AnyRecord>& records, const char* separator) {
  std::string json;
  for (const AnyRecord& record : records) {
    if (!json.empty()) json += separator;
    JsonWriter writer(json);
    WriteRecordJson(writer, record.Type(), record.Pointer(), {});
  }
  return json;
}

TEST(RecordJson, WhatIsWrittenIsReadBack) {
  std::mt19937 random(20261121);
  for (const RecordType& type : RecordTypes()) {
    std::vector<AnyRecord> records;
    for (int count = 0; count < 40; ++count)
      FillRecord(records.emplace_back(type).Pointer(), type, static_cast<int>(random() % 1'000'000'000));
    const std::string lines = JsonOf(records, "\n");
    const std::string array = "[" + JsonOf(records, ",") + "]";
    const std::string document = "{\"kind\":\"" + std::string(type.name) + "\",\"records\":" + array + "}";
    for (const std::string& form : {lines, array, document}) {
      const Outcome outcome = Read(form, KindNamed(type.name), 1 + form.size() % 97);
      ASSERT_EQ(outcome.error + outcome.warnings, "") << type.name;
      ASSERT_EQ(JsonOf(outcome.records, "\n"), lines) << type.name;
    }
  }
}

TEST(RecordJson, NumbersThatJsonCannotWriteAreNamed) {
  const RecordType& type = RecordTypeOf(RecordKind::Tools);
  for (const float value :
       {std::numeric_limits<float>::infinity(), std::numeric_limits<float>::quiet_NaN()}) {
    AnyRecord tool(type);
    FindField(type, "ToolSize")->set(tool.Pointer(), value);
    std::string json;
    JsonWriter writer(json);
    EXPECT_EQ(WriteRecordJson(writer, type, tool.Pointer(), {}), "ToolSize");
    EXPECT_NE(json.find("\"ToolSize\":null,"), std::string::npos) << json;
  }
}

// In every way of being handed over, for a value may lie across two blocks.
TEST(RecordJson, GivesRecordsOrSaysWhy) {
  for (const auto& row : ReadTable("cli/tables/json-records.table")) {
    for (const std::size_t step : {std::size_t{1}, std::size_t{2}, std::size_t{5}, std::size_t{4096}}) {
      SCOPED_TRACE(row[1] + " by " + std::to_string(step));
      const Outcome outcome = Read(row[1], KindNamed(row[0]), step);
      const std::string told = outcome.error + outcome.warnings;
      EXPECT_TRUE(MatchesPattern(told, row[3])) << told;
      EXPECT_TRUE(!outcome.error.empty() || std::to_string(outcome.records.size()) == row[2]);
    }
  }
}

TEST(RecordJson, FloatsAreRoundedOnceOnly) {
  // Halfway between two floats but for the last digit, which a double cannot tell.
  const Outcome outcome = Read(R"({"ToolSize":1.00000017881393432617187499})", RecordKind::Tools);
  ASSERT_EQ(outcome.error, "");
  const RecordField* const size = FindField(RecordTypeOf(RecordKind::Tools), "ToolSize");
  EXPECT_EQ(std::get<float>(size->get(outcome.records.front().Pointer())), 1.00000011920928955f);
}

TEST(RecordJson, TextsThatLoseSomethingAreWarnedAbout) {
  const std::string long255(255, 'x');
  EXPECT_EQ(Read("{\"PartName\":\"" + long255 + "\"}").warnings, "");
  EXPECT_EQ(Read("{}\n{\"PartName\":\"" + long255 + "y\"}").warnings, "2 PartName text-cut;");
  // Two hundred characters of two bytes.
  std::string wide;
  for (int count = 0; count < 200; ++count) wide += "ü";
  const TextCoding utf8("utf-8");
  EXPECT_EQ(Read("{\"PartName\":\"" + wide + "\"}", RecordKind::Parts, 7, utf8).warnings,
            "1 PartName text-cut;");
  const TextCoding latin("windows-1252");
  const Outcome outcome = Read("{\"PartName\":\"" + wide + "株\"}", RecordKind::Parts, 7, latin);
  EXPECT_EQ(outcome.warnings, "1 PartName character-lost;");
  EXPECT_EQ(GetText(outcome.records.front().Pointer(), RecordTypeOf(RecordKind::Parts).fields.front()),
            std::string(200, '\xfc') + "?");
}

}  // namespace
}  // namespace qv
