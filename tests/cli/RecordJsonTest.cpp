#include "cli/RecordJson.h"
#include "cli/RecordJsonReader.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <sstream>

namespace qv {
namespace {

JsonSource SourceOf(const std::string& json, std::size_t step = 7) {
  return JsonSource([json, step, at = std::size_t{0}](char* buffer, std::size_t capacity) mutable {
    const std::size_t count = std::string_view(json).substr(at).copy(buffer, std::min(step, capacity));
    at += count;
    return static_cast<std::ptrdiff_t>(count);
  });
}

struct Outcome {
  std::vector<AnyRecord> records;
  std::string warnings;  ///< "line key code;"
  std::string error;     ///< "line key code: message"
};

std::string Told(const JsonRemark& remark) {
  return std::to_string(remark.line) + " " + remark.key + " " + remark.code;
}

Outcome Read(const std::string& json, RecordKind kind = RecordKind::Parts, std::size_t step = 7,
             const TextCoding& coding = {}) {
  Outcome outcome;
  JsonSource source = SourceOf(json, step);
  try {
    outcome.records = ReadRecordsJson(source, RecordTypeOf(kind), coding, [&](const JsonRemark& remark) {
      outcome.warnings += Told(remark) + ";";
    });
  } catch (const JsonError& error) {
    outcome.error = Told(error.remark) + ": " + error.what();
  }
  return outcome;
}

/// Records with values of all sorts, always the same ones for a seed.
class RandomRecords {
 public:
  explicit RandomRecords(unsigned seed) : random_(seed) {}

  AnyRecord Make(const RecordType& type) {
    AnyRecord record(type);
    for (const RecordField& field : type.fields) {
      if (field.type == FieldType::List) {
        std::vector<AnyRecord> elements;
        for (unsigned count = Below(4); count > 0; --count) elements.push_back(Make(*field.elements));
        field.setList(record.Pointer(), elements);
      } else {
        field.set(record.Pointer(), Value(field));
      }
    }
    return record;
  }

 private:
  unsigned Below(unsigned limit) { return static_cast<unsigned>(random_() % limit); }

  FieldValue Value(const RecordField& field) {
    switch (field.type) {
      case FieldType::Int:
        return static_cast<int>(random_());
      case FieldType::Float:
        return Real<float>();
      case FieldType::Double:
        return Real<double>();
      case FieldType::Bool:
        return Below(2) == 1;
      default:
        return Text();
    }
  }

  // Any pattern of bits, as long as it is a number.
  template <class Number>
  Number Real() {
    const double value =
        std::ldexp(static_cast<double>(random_()) - 2147483648.0, static_cast<int>(Below(60)) - 60);
    return static_cast<Number>(value);
  }

  std::string Text() {
    constexpr const char* kPieces[] = {"a", "\"", "\\", "\n", "\x01", "ü", "株", "𝄞", " ", "{", "/"};
    std::string text;
    for (unsigned count = Below(12); count > 0; --count) text += kPieces[Below(std::size(kPieces))];
    return text;
  }

  std::mt19937 random_;
};

std::string JsonOf(const std::vector<AnyRecord>& records, const char* separator) {
  std::string json;
  for (const AnyRecord& record : records) {
    if (!json.empty()) json += separator;
    AppendRecordJson(json, record.Type(), record.Pointer(), {});
  }
  return json;
}

TEST(RecordJson, WhatIsWrittenIsReadBack) {
  RandomRecords random(20261121);
  for (const RecordType& type : RecordTypes()) {
    std::vector<AnyRecord> records;
    for (int count = 0; count < 40; ++count) records.push_back(random.Make(type));
    const std::string lines = JsonOf(records, "\n");
    const std::string array = "[" + JsonOf(records, ",") + "]";
    const std::string document = "{\"kind\":\"" + std::string(type.name) + "\",\"records\":" + array + "}";
    for (const std::string& form : {lines, array, document}) {
      const Outcome outcome =
          Read(form, static_cast<RecordKind>(&type - RecordTypes().data()), 1 + form.size() % 97);
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
    EXPECT_EQ(AppendRecordJson(json, type, tool.Pointer(), {}), "ToolSize");
    EXPECT_NE(json.find("\"ToolSize\":null,"), std::string::npos) << json;
  }
}

struct ReadingCase {
  const char* json;
  std::size_t records;
  const char* told;  // the error or the warnings
};

void PrintTo(const ReadingCase& c, std::ostream* out) { *out << c.json; }

class ReadingTest : public testing::TestWithParam<ReadingCase> {};

// In every way of being handed over, for a value may lie across two blocks.
TEST_P(ReadingTest, GivesRecordsOrSaysWhy) {
  for (const std::size_t step : {std::size_t{1}, std::size_t{2}, std::size_t{5}, std::size_t{4096}}) {
    const Outcome outcome = Read(GetParam().json, RecordKind::Parts, step);
    EXPECT_EQ(outcome.error + outcome.warnings, GetParam().told) << step;
    if (!outcome.error.empty()) continue;
    EXPECT_EQ(outcome.records.size(), GetParam().records);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Forms, ReadingTest,
    testing::Values(
        ReadingCase{"[]", 0, ""}, ReadingCase{" \r\n\t[ ]\n\n", 0, ""}, ReadingCase{"{}", 1, ""},
        ReadingCase{"{} {}\n{}", 3, ""}, ReadingCase{"[{},{}]", 2, ""}, ReadingCase{"", 0, "0  no-records;"},
        ReadingCase{"\xEF\xBB\xBF[{\"PartName\":\"x\"}]", 1, ""},
        ReadingCase{R"({"records":[{}],"kind":"parts","headers":["a"],"format":"f"})", 1, ""},
        ReadingCase{R"({"kind":"tools","records":[]})", 0,
                    "1 kind json-wrong-kind: the records are of the kind \"tools\", not \"parts\""},
        ReadingCase{R"({"kind":"parts"})", 0, "1 records json-missing-key: the document has no records"},
        ReadingCase{R"({"records":[],"records":[]})", 0,
                    "1 records json-duplicate-key: the key is there twice"},
        ReadingCase{R"({"records":[],"more":1})", 0,
                    "1 more json-unknown-key: a document of records has no such key"},
        ReadingCase{R"({"records":{}})", 0, "1 records json-wrong-type: this value does not belong here"},
        ReadingCase{R"({"format":5,"records":[]})", 0,
                    "1 format json-wrong-type: this value does not belong here"},
        ReadingCase{"[1]", 0, "1  json-wrong-type: record 1: this is no object with the fields of a record"},
        ReadingCase{"[[]]", 0, "1  json-wrong-type: record 1: this is no object with the fields of a record"},
        ReadingCase{"\"x\"", 0,
                    "1  json-wrong-type: record 1: this is no object with the fields of a record"},
        ReadingCase{"[]\n[]", 0, "1  json-malformed: there is more after the end of the records"}));

INSTANTIATE_TEST_SUITE_P(
    Values, ReadingTest,
    testing::Values(
        ReadingCase{R"({"PartQuantity":5.0,"MaterialThickness":2,"EstimateTime":1e3,"Rotation":-0.0})", 1,
                    ""},
        ReadingCase{R"({"PartQuantity":2147483647,"BinID":-2147483648})", 1, ""},
        ReadingCase{R"({"PartQuantity":2147483648})", 0,
                    "1 PartQuantity json-wrong-type: record 1: \"2147483648\" is a number that the field "
                    "cannot hold"},
        ReadingCase{
            R"({"PartQuantity":1e10})", 0,
            "1 PartQuantity json-wrong-type: record 1: \"1e10\" is a number that the field cannot hold"},
        ReadingCase{
            R"({"PartQuantity":99999999999999999999})", 0,
            "1 PartQuantity json-wrong-type: record 1: \"99999999999999999999\" is a number that the field "
            "cannot hold"},
        ReadingCase{
            R"({"PartQuantity":18446744073709551615})", 0,
            "1 PartQuantity json-wrong-type: record 1: \"18446744073709551615\" is a number that the field "
            "cannot hold"},
        ReadingCase{R"({"PartQuantity":1.5})", 0,
                    "1 PartQuantity json-wrong-type: record 1: \"1.5\" is not a whole number"},
        ReadingCase{R"({"PartQuantity":null})", 0,
                    "1 PartQuantity json-wrong-type: record 1: \"null\" is not a whole number"},
        ReadingCase{R"({"PartQuantity":true})", 0,
                    "1 PartQuantity json-wrong-type: record 1: \"true\" is not a whole number"},
        ReadingCase{R"({"PartQuantity":[]})", 0,
                    "1 PartQuantity json-wrong-type: record 1: \"[\" is not a whole number"},
        ReadingCase{R"({"MaterialThickness":"1.5"})", 0,
                    "1 MaterialThickness json-wrong-type: record 1: \"1.5\" is not a number"},
        ReadingCase{R"({"IsBinIDAvailable":1})", 0,
                    "1 IsBinIDAvailable json-wrong-type: record 1: \"1\" is not true or false"},
        ReadingCase{R"({"PartName":7})", 0, "1 PartName json-wrong-type: record 1: \"7\" is not a text"},
        ReadingCase{
            R"({"EstimateTime":1e999})", 0,
            "1 EstimateTime json-wrong-type: record 1: \"1e999\" is a number that the field cannot hold"},
        ReadingCase{"{}\n{\n \"PartName\"\n :\n {}}", 0,
                    "5 PartName json-wrong-type: record 2: \"{\" is not a text"},
        ReadingCase{
            R"({"PartName":"a\u0000b"})", 0,
            "1 PartName json-wrong-type: record 1: \"a\\u0000b\" holds a NUL character, which no record can "
            "keep"},
        ReadingCase{R"({"partname":"a"})", 0,
                    "1 partname json-unknown-key: record 1: there is no such key in parts; did you mean "
                    "\"PartName\"?"},
        ReadingCase{R"({"Name":"a"})", 0, "1 Name json-unknown-key: record 1: there is no such key in parts"},
        ReadingCase{R"({"Priority":1,"PartName":"a","Priority":1})", 0,
                    "1 Priority json-duplicate-key: record 1: the key is there twice"}));

TEST(RecordJson, MalformedInputIsToldWithItsLine) {
  for (const char* json : {"{}\n{", "{}\n[}", "{}\n{\"PartName\":\"\xff\"}", "{}\n{\"PartName\":\"\\ud800\"}",
                           "{}\n{'PartName':1}", "{}\n{\"PartName\":nul}", "{}\n{\"BinID\":01}"}) {
    const std::string error = Read(json).error;
    EXPECT_TRUE(error.starts_with("2  json-malformed: not well-formed JSON: ")) << json << "\n" << error;
  }
}

TEST(RecordJson, ListsAreReadAndTheirFaultsFound) {
  const char* const programs =
      R"([{"HoleInfo":[{"HoleType":"a"},{}],"UsedToolInfo":[{"ToolShape":7}]},{"BendInfo":[{"BendAngle":9}]}])";
  EXPECT_EQ(Read(programs, RecordKind::PartPrograms).error,
            "1 BendAngle json-wrong-type: record 2, element 1 of BendInfo: \"9\" is not a text");
  EXPECT_EQ(Read(R"([{"HoleInfo":[{},{"Hole":""}]}])", RecordKind::PartPrograms).error,
            "1 Hole json-unknown-key: record 1, element 2 of HoleInfo: there is no such key in HoleInfo");
  EXPECT_EQ(
      Read(R"([{"HoleInfo":[5]}])", RecordKind::PartPrograms).error,
      "1  json-wrong-type: record 1, element 1 of HoleInfo: this is no object with the fields of a record");
  EXPECT_EQ(Read(R"([{"HoleInfo":{}}])", RecordKind::PartPrograms).error,
            "1 HoleInfo json-wrong-type: record 1: \"{\" is not an array of objects");
}

TEST(RecordJson, FloatsAreRoundedOnceOnly) {
  // Halfway between two floats but for the last digit, which a double cannot tell.
  const Outcome outcome = Read(R"({"ToolSize":1.00000017881393432617187499})", RecordKind::Tools);
  ASSERT_EQ(outcome.error, "");
  const RecordField* const size = FindField(RecordTypeOf(RecordKind::Tools), "ToolSize");
  EXPECT_EQ(std::get<float>(size->get(outcome.records.front().Pointer())), 1.00000011920928955f);
  EXPECT_EQ(Read(R"({"ToolSize":1e39})", RecordKind::Tools).error,
            "1 ToolSize json-wrong-type: record 1: \"1e39\" is a number that the field cannot hold");
  EXPECT_EQ(Read(R"({"ToolSize":1e-60})", RecordKind::Tools).error, "");
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
