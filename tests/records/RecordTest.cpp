#include "records/RecordFields.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>

namespace {

template <class Record>
class RecordTest : public testing::Test {
 protected:
  static std::vector<std::string> Read(Record& record) {
    std::vector<std::string> values;
    for (const auto& field : FieldsOf<Record>()) values.push_back(field.read(record));
    return values;
  }

  static std::vector<std::string> Fresh() {
    std::vector<std::string> values;
    for (const auto& field : FieldsOf<Record>()) values.push_back(field.fresh);
    return values;
  }

  static void WriteAll(Record& record, int seed) {
    for (const auto& field : FieldsOf<Record>()) field.write(record, seed++);
  }
};

using Records = testing::Types<PartInformation, ToolInformation, MaterialInfomation, ShtInfo, PrtInfo,
                               JobProgressInfo, MatAmncITInfo, MatLibraryInfo>;
TYPED_TEST_SUITE(RecordTest, Records);

// Storage that was used before shows what a constructor leaves out.
TYPED_TEST(RecordTest, StartsWithItsDefaultsWhateverLayInItsStorage) {
  alignas(TypeParam) unsigned char storage[sizeof(TypeParam)];
  std::fill(std::begin(storage), std::end(storage), static_cast<unsigned char>(0xA5));
  auto* record = new (storage) TypeParam;
  EXPECT_EQ(this->Read(*record), this->Fresh());
  record->~TypeParam();
}

TYPED_TEST(RecordTest, EachSetterChangesItsOwnFieldOnly) {
  const auto& fields = FieldsOf<TypeParam>();
  for (std::size_t rank = 0; rank < fields.size(); ++rank) {
    TypeParam record;
    fields[rank].write(record, 7);
    auto expected = this->Fresh();
    ASSERT_NE(fields[rank].read(record), expected[rank]) << fields[rank].name;
    expected[rank] = fields[rank].read(record);
    EXPECT_EQ(this->Read(record), expected) << fields[rank].name;
  }
}

TYPED_TEST(RecordTest, KeepsWhatWasWritten) {
  TypeParam record;
  this->WriteAll(record, 1);
  TypeParam other;
  this->WriteAll(other, 2);
  const auto& fields = FieldsOf<TypeParam>();
  for (const auto& field : fields) {
    const bool isFlag = field.read(record) == "1" && field.read(other) == "1";
    EXPECT_TRUE(isFlag || field.read(record) != field.read(other)) << field.name;
  }
}

TYPED_TEST(RecordTest, CopiesOutliveTheirSource) {
  auto source = std::make_unique<TypeParam>();
  this->WriteAll(*source, 1);
  const auto written = this->Read(*source);

  TypeParam copied(*source);
  TypeParam assigned;
  this->WriteAll(assigned, 50);
  assigned = *source;
  TypeParam& itself = assigned;
  assigned = itself;

  this->WriteAll(*source, 90);
  source.reset();
  EXPECT_EQ(this->Read(copied), written);
  EXPECT_EQ(this->Read(assigned), written);
}

TYPED_TEST(RecordTest, BoundedTextsAreCutAtTheirCapacity) {
  constexpr std::size_t capacity = kTextCapacity<TypeParam>;
  for (const auto& field : FieldsOf<TypeParam>()) {
    if (field.getText == nullptr) continue;
    for (const std::size_t length :
         {std::size_t{0}, std::size_t{1}, capacity - 2, capacity - 1, capacity, capacity + 44}) {
      TypeParam record;
      (record.*field.setText)(std::string(length, 'x').c_str());
      EXPECT_EQ(field.read(record), std::string(std::min(length, capacity - 1), 'x')) << field.name;
    }
  }
}

// A host may hand over a full buffer that has no room for a terminator.
TYPED_TEST(RecordTest, NothingIsReadBehindTheLastCharacterThatFits) {
  constexpr std::size_t length = kTextCapacity<TypeParam> - 1;
  const auto text = std::make_unique<char[]>(length);
  std::fill_n(text.get(), length, 'y');
  for (const auto& field : FieldsOf<TypeParam>()) {
    if (field.setText == nullptr) continue;
    TypeParam record;
    (record.*field.setText)(text.get());
    EXPECT_EQ(field.read(record), std::string(length, 'y')) << field.name;
  }
}

TYPED_TEST(RecordTest, AGetterEndsTheBufferAndWritesNothingBehindIt) {
  constexpr std::size_t capacity = kTextCapacity<TypeParam>;
  for (const auto& field : FieldsOf<TypeParam>()) {
    if (field.getText == nullptr) continue;
    TypeParam record;
    (record.*field.setText)("ten bytes.");
    std::string buffer(capacity + 1, '#');
    (record.*field.getText)(buffer.data());
    EXPECT_STREQ(buffer.c_str(), "ten bytes.") << field.name;
    EXPECT_EQ(buffer[capacity - 1], '\0') << field.name;
    EXPECT_EQ(buffer[capacity], '#') << field.name;
  }
}

TYPED_TEST(RecordTest, NullIsIgnored) {
  for (const auto& field : FieldsOf<TypeParam>()) {
    if (field.getText == nullptr) continue;
    TypeParam record;
    (record.*field.setText)("kept");
    (record.*field.setText)(nullptr);
    (record.*field.getText)(nullptr);
    EXPECT_EQ(field.read(record), "kept") << field.name;
  }
}

TYPED_TEST(RecordTest, AShorterTextReplacesALongerOne) {
  for (const auto& field : FieldsOf<TypeParam>()) {
    if (field.getText == nullptr) continue;
    TypeParam record;
    (record.*field.setText)("a longer text");
    (record.*field.setText)("short");
    EXPECT_EQ(field.read(record), "short") << field.name;
  }
}

// Hosts link against the exact signatures; the table holds all others.
static_assert(std::is_same_v<decltype(&PartInformation::GetPriority), int (PartInformation::*)() const>);
static_assert(std::is_same_v<decltype(&PartInformation::StackTableId), int (PartInformation::*)() const>);
static_assert(std::is_same_v<decltype(&MatAmncITInfo::SetPalletkind), void (MatAmncITInfo::*)(CString)>);
static_assert(
    std::is_same_v<decltype(&JobProgressInfo::SetJobName), void (JobProgressInfo::*)(const CString&)>);

TEST(RecordTableTest, HoldsEveryFieldOfEveryRecord) {
  EXPECT_EQ(FieldsOf<PartInformation>().size(), 43u);
  EXPECT_EQ(FieldsOf<ToolInformation>().size(), 11u);
  EXPECT_EQ(FieldsOf<MaterialInfomation>().size(), 114u);
  EXPECT_EQ(FieldsOf<ShtInfo>().size(), 14u);
  EXPECT_EQ(FieldsOf<PrtInfo>().size(), 27u);
  EXPECT_EQ(FieldsOf<JobProgressInfo>().size(), 8u);
  EXPECT_EQ(FieldsOf<MatAmncITInfo>().size(), 7u);
  EXPECT_EQ(FieldsOf<MatLibraryInfo>().size(), 10u);
}

}  // namespace
