#include "cli/RecordFields.h"

#include "engines/columns/ColumnTables.h"

#include <gtest/gtest.h>

#include <limits>

namespace qv {
namespace {

FieldValue OddValue(const RecordField& field) {
  switch (field.type) {
    case FieldType::Int:
      return 1;  // a number that every table of words has a word for
    case FieldType::Float:
      return 3.5f;
    case FieldType::Double:
      return 3.5;
    case FieldType::Bool:
      return true;
    default:
      return std::string("odd");
  }
}

std::string ChangedFields(const AnyRecord& record) {
  const AnyRecord fresh(record.Type());
  std::string changed;
  for (const RecordField& field : record.Type().fields)
    if (GetText(record.Pointer(), field) != GetText(fresh.Pointer(), field))
      changed.append(field.stem).append(" ");
  return changed;
}

// What a cell may say so that its field changes: a number, or a word of one of the choices.
constexpr const char* kTellingCells[] = {
    "7", "Y", "RO", "Power", "Program Stop", "Part By Part", "top right", "X Direction", "None"};

template <class Record>
std::string FieldsThatAreRead(const Column<Record>& column, const RecordType& type) {
  std::string changed;
  for (const char* cell : kTellingCells) {
    const AnyRecord record(type);
    column.read(*static_cast<Record*>(record.Pointer()), cell, nullptr);
    changed = ChangedFields(record);
    if (!changed.empty()) break;
  }
  return changed;
}

template <class Record>
std::string WrittenCell(const Column<Record>& column, const AnyRecord& record) {
  TextBuffer text;
  column.write(*static_cast<const Record*>(record.Pointer()), 0, text);
  return std::string(text.View());
}

template <class Record>
void ExpectColumnMeetsField(const Column<Record>& column, const RecordType& type) {
  SCOPED_TRACE(std::string(type.name) + " " + std::string(column.keyword));
  const RecordField* const field = FindFieldOfColumn(type, column.keyword);
  ASSERT_NE(field, nullptr);
  // One keyword is read with a blank at its end, and written without.
  EXPECT_EQ(field->isRead, column.read != nullptr || !field->keyword2.empty());
  if (column.read != nullptr) {
    EXPECT_EQ(FieldsThatAreRead(column, type), std::string(field->stem) + " ");
  }
  if (column.write == nullptr) return;
  AnyRecord record(type);
  const std::string fresh = WrittenCell(column, record);
  field->set(record.Pointer(), OddValue(*field));
  // A rotation, a quantity and a priority are 1 in a fresh record.
  if (ChangedFields(record).empty()) field->set(record.Pointer(), 2);
  EXPECT_NE(WrittenCell(column, record), fresh);
}

template <class Record>
void ExpectColumnsMeetFields() {
  for (const Column<Record>& column : ColumnTable<Record>::Columns())
    if (column.keyword != "Ignore" && column.level == ColumnLevel::Record)
      ExpectColumnMeetsField(column, RecordTypeOf(KindTraits<Record>::kKind));
}

TEST(RecordFields, EveryColumnMeetsTheFieldThatIsNamedForIt) {
  ExpectColumnsMeetFields<PartInformation>();
  ExpectColumnsMeetFields<ToolInformation>();
  ExpectColumnsMeetFields<MaterialInfomation>();
  ExpectColumnsMeetFields<ShtInfo>();
  ExpectColumnsMeetFields<PrtInfo>();
  ExpectColumnsMeetFields<MatAmncITInfo>();
  ExpectColumnsMeetFields<MatLibraryInfo>();
  ExpectColumnsMeetFields<JobProgressInfo>();
}

TEST(RecordFields, NumbersAreAsShortAsTheyCanBe) {
  EXPECT_EQ(TextOf(1.1f), "1.1");
  EXPECT_EQ(TextOf(1.1), "1.1");
  EXPECT_EQ(TextOf(0.1f + 0.2f), "0.3");
  EXPECT_EQ(TextOf(0.1 + 0.2), "0.30000000000000004");
  EXPECT_EQ(TextOf(16777216.0f), "16777216");
  EXPECT_EQ(TextOf(-std::numeric_limits<double>::infinity()), "-inf");
}

}  // namespace
}  // namespace qv
