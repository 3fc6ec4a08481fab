// Every field of every record, through the tables that know them all.

#include "cli/RecordFields.h"
#include "engines/columns/ColumnTables.h"
#include "records/FixedText.h"
#include "tests/support/FilledRecord.h"

#include <QVAssemblyFile/PrtInfo.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <memory>
#include <string>

namespace qv {
namespace {

using Values = std::vector<std::string>;

// A list is the number of its elements, followed by what they hold.
Values Read(void* record, const RecordType& type) {
  Values values;
  for (const RecordField& field : type.fields) {
    values.push_back(GetText(record, field));
    if (field.type != FieldType::List) continue;
    for (const AnyRecord& element : field.getList(record))
      for (const std::string& value : Read(element.Pointer(), element.Type())) values.back() += " " + value;
  }
  return values;
}

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
  const RecordType& type_ = RecordTypeOf(KindTraits<Record>::kKind);
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
  Values expected = Read(&record, this->type_);
  for (std::size_t rank = 0; rank < expected.size(); ++rank) {
    expected[rank] = FillField(&record, this->type_.fields[rank], 2 * static_cast<int>(rank) + 1);
    EXPECT_EQ(Read(&record, this->type_), expected) << this->type_.fields[rank].stem;
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
  EXPECT_EQ(Read(&copied, this->type_), written);
  EXPECT_EQ(Read(&assigned, this->type_), written);
}

TYPED_TEST(RecordTest, TextsAreCutAtTheirCapacity) {
  for (const RecordField& field : this->type_.fields) {
    if (field.capacity == 0) continue;
    for (const std::size_t length : {std::size_t{0}, field.capacity, field.capacity + 1}) {
      TypeParam record;
      field.set(&record, std::string(length, 'x'));
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

TEST(PrtInfoTest, AListThatIsAskedForIsReplaced) {
  PrtInfo record;
  std::vector<UsedToolInfo> tools(2);
  record.GetUsedToolInfo(tools);
  std::vector<HoleInfo> holes(2);
  record.GetHoleInfo(holes);
  std::vector<BendInfo> bends(2);
  record.GetBendInfo(bends);
  EXPECT_EQ(tools.size() + holes.size() + bends.size(), 0U);
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

TEST(RecordTableTest, HoldsEveryFieldOfEveryRecord) {
  std::vector<std::size_t> counts;
  for (const RecordType& type : RecordTypes()) counts.push_back(type.fields.size());
  EXPECT_EQ(counts, (std::vector<std::size_t>{43, 12, 114, 14, 30, 7, 10, 8}));
}

}  // namespace
}  // namespace qv
