// Every field of every record, through the tables that name them all.

#include "engines/columns/ColumnTables.h"
#include "engines/columns/RecordFields.h"
#include "engines/columns/Words.h"
#include "records/FixedText.h"
#include "tests/support/FilledRecord.h"
#include "text/Ascii.h"

#include <QVAssemblyFile/PrtInfo.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <limits>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>

namespace qv {
namespace {

using Values = std::vector<std::string>;

// What a new record reads where it is not 0, false or empty.
const std::map<std::string_view, std::string> kDefaults = {
    {"PartQuantity", "1"}, {"StackTableId", "-1"}, {"Rotation", "1"}, {"Priority", "1"}};

// Storage that was used before shows what a constructor leaves out.
template <class Record>
void ExpectDefaults(const RecordType& type) {
  alignas(Record) unsigned char storage[sizeof(Record)];
  std::fill(std::begin(storage), std::end(storage), static_cast<unsigned char>(0xA5));
  auto* record = new (storage) Record;
  for (const RecordField& field : type.fields) {
    const auto own = kDefaults.find(field.stem);
    const char* const otherwise = field.type == FieldType::Text   ? ""
                                  : field.type == FieldType::Bool ? "false"
                                                                  : "0";
    EXPECT_EQ(GetText(record, field), own != kDefaults.end() ? own->second : otherwise) << field.stem;
  }
  record->~Record();
}

template <class Record>
class RecordTest : public testing::Test {
 protected:
  const RecordType& type_ = RecordTypeOf(kRecordKindOf<Record>);
};

using Records = testing::Types<PartInformation, ToolInformation, MaterialInfomation, ShtInfo, PrtInfo,
                               JobProgressInfo, MatAmncITInfo, MatLibraryInfo>;
TYPED_TEST_SUITE(RecordTest, Records);

TYPED_TEST(RecordTest, StartsWithItsDefaultsWhateverLayInItsStorage) {
  ExpectDefaults<TypeParam>(this->type_);
  if constexpr (std::is_same_v<TypeParam, PrtInfo>) {
    ExpectDefaults<UsedToolInfo>(*FindField(this->type_, "UsedToolInfo")->elements);
    ExpectDefaults<HoleInfo>(*FindField(this->type_, "HoleInfo")->elements);
    ExpectDefaults<BendInfo>(*FindField(this->type_, "BendInfo")->elements);
  }
}

TYPED_TEST(RecordTest, EachFieldKeepsItsOwnValue) {
  TypeParam record;
  Values expected = ReadRecord(&record, this->type_);
  for (std::size_t index = 0; index < expected.size(); ++index) {
    const RecordField& field = this->type_.fields[index];
    FillField(&record, field, 2 * static_cast<int>(index) + 1);
    EXPECT_NE(std::exchange(expected[index], ReadField(&record, field)), expected[index]) << field.stem;
    EXPECT_EQ(ReadRecord(&record, this->type_), expected) << field.stem;
  }
}

TYPED_TEST(RecordTest, CopiesOutliveTheirSource) {
  auto source = std::make_unique<TypeParam>();
  const Values written = FillRecord(source.get(), this->type_, 1);
  TypeParam copied(*source), assigned;
  FillRecord(&assigned, this->type_, 50);
  assigned = *source;
  TypeParam& itself = assigned;
  assigned = itself;
  FillRecord(source.get(), this->type_, 90);
  source.reset();
  EXPECT_EQ(ReadRecord(&copied, this->type_), written);
  EXPECT_EQ(ReadRecord(&assigned, this->type_), written);
}

TYPED_TEST(RecordTest, TextsAreCutAtTheirCapacity) {
  for (const RecordField& field : this->type_.fields) {
    if (field.capacity == 0) continue;
    for (const std::size_t length : {std::size_t{0}, field.capacity, field.capacity + 1}) {
      TypeParam record;
      const std::string text(length, 'x');
      field.set(&record, text);
      EXPECT_EQ(GetText(&record, field), std::string(std::min(length, field.capacity), 'x')) << field.stem;
    }
  }
}

TEST(FixedTextTest, KeepsToItsBuffersAndTheCallers) {
  FixedText<8> text;
  text.Set("a longer text");
  EXPECT_EQ(text.View(), "a longe");
  text.Set("short");
  text.Set(nullptr);
  text.Get(nullptr);
  EXPECT_EQ(text.View(), "short");
  std::string buffer(9, '#');
  text.Get(buffer.data());
  EXPECT_EQ(buffer, std::string("short\0#\0#", 9));

  // A host may hand over a full buffer that has no room for a terminator.
  const auto full = std::make_unique<char[]>(7);
  std::fill_n(full.get(), 7, 'y');
  text.Set(full.get());
  EXPECT_EQ(text.View(), "yyyyyyy");
}

TEST(ToolInformationTest, PunchConditionsAreKeptWholeAndNeverNull) {
  ToolInformation tool;
  const std::string text(5000, 'p');
  tool.SetToolPunchConditionString(text.c_str());
  tool.SetToolPunchConditionString(nullptr);
  EXPECT_EQ(tool.GetToolPunchConditionString(), text);
  tool.SetToolPunchConditionString(tool.GetToolPunchConditionString() + 4970);
  EXPECT_EQ(tool.GetToolPunchConditionString(), text.substr(4970));
}

// What a format names must not depend on the order of the rows.
TEST(RecordTableTest, HoldsEveryFieldOnceAndEveryKeywordOnceInEachDirection) {
  std::vector<std::size_t> counts;
  for (const RecordType& type : RecordTypes()) {
    std::set<std::string> stems, read, written;
    for (const RecordField& field : type.fields) {
      EXPECT_TRUE(stems.emplace(field.stem).second) << field.stem;
      for (const FieldColumn& column : field.columns) {
        std::string keyword(column.keyword);
        std::transform(keyword.begin(), keyword.end(), keyword.begin(), ToLower);
        EXPECT_TRUE(!column.IsRead() || read.insert(keyword).second) << type.name << " " << keyword;
        EXPECT_TRUE(!column.IsWritten() || written.insert(keyword).second) << type.name << " " << keyword;
      }
    }
    counts.push_back(type.fields.size());
  }
  EXPECT_EQ(counts, (std::vector<std::size_t>{43, 12, 114, 14, 30, 7, 10, 8}));
}

TEST(RecordTableTest, NumbersAreAsShortAsTheyCanBe) {
  const auto text = [](const char* stem, FieldValue value) {
    const AnyRecord record(RecordTypeOf(RecordKind::PartPrograms));
    const RecordField& field = *FindField(record.Type(), stem);
    field.set(record.Pointer(), value);
    return GetText(record.Pointer(), field);
  };
  EXPECT_EQ(text("PartSizeX", 0.1f + 0.2f), "0.3");
  EXPECT_EQ(text("PartSizeX", 16777216.0f), "16777216");
  EXPECT_EQ(text("EstimateTime", 0.1 + 0.2), "0.30000000000000004");
  EXPECT_EQ(text("EstimateTime", -std::numeric_limits<double>::infinity()), "-inf");
}

template <class Record>
std::string Held(Record& record, const char* stem) {
  return GetText(&record, *FindField(RecordTypeOf(kRecordKindOf<Record>), stem));
}

// One pair of accessors of each shape, and those that are unlike the others; macros make the rest.
TEST(AccessorTest, PairsReachTheFieldThatTheyAreNamedFor) {
  PartInformation part;
  part.SetFullPathName(std::string(300, 'x').c_str());
  part.SetStackTableId(7);
  part.SetPriority(8);
  part.SetPartQuantity(9);
  part.SetEstimateTime(2.5);
  part.SetIsBinIDAvailable(true);
  const std::string path = Text(part, &PartInformation::GetFullPathNameA);
  EXPECT_EQ(path, std::string(PartInformation::kTextSize - 1, 'x'));
  EXPECT_EQ(Held(part, "FullPathName"), path);
  EXPECT_EQ(Held(part, "StackTableId") + Held(part, "Priority") + Held(part, "PartQuantity"), "789");
  EXPECT_EQ(part.StackTableId() * 100 + part.GetPriority() * 10 + part.GetPartQuantity(), 789);
  EXPECT_TRUE(Held(part, "EstimateTime") == "2.5" && part.GetEstimateTime() == 2.5);
  EXPECT_TRUE(Held(part, "IsBinIDAvailable") == "true" && part.GetIsBinIDAvailable());

  MaterialInfomation material;
  material.SetMJTool("a tool");
  material.SetInLeadInLength(1.5f);
  EXPECT_TRUE(Held(material, "MJTool") == "a tool" && material.GetMJTool() == "a tool");
  EXPECT_TRUE(Held(material, "InLeadInLength") == "1.5" && material.GetInLeadInLength() == 1.5f);

  JobProgressInfo progress;
  progress.SetJobName("a job");
  EXPECT_TRUE(Held(progress, "JobName") == "a job" && progress.GetJobName() == "a job");
}

TEST(AccessorTest, ListsAreCopiedBothWays) {
  PrtInfo program;
  std::vector<BendInfo> bends(3);
  std::strcpy(bends[2].BendType, "V");
  program.SetBendInfo(bends);
  bends.assign(1, {});
  EXPECT_EQ(Held(program, "BendInfo") + Held(program, "HoleInfo"), "30");
  program.GetBendInfo(bends);  // in place of what the list held
  ASSERT_EQ(bends.size(), 3U);
  EXPECT_STREQ(bends[2].BendType, "V");
}

}  // namespace
}  // namespace qv
