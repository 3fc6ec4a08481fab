#include "engines/columns/FieldRows.h"
#include "engines/text/FieldSplitter.h"
#include "format/FormatColumns.h"

namespace qv {
namespace {

using Record = PartInformation;

// A part without a name is no part. A name of blanks is one, if an odd one.
template <auto Field>
CellRemark ReadPartName(Record& part, std::string_view text, std::string* stored) {
  if (text.empty()) return CellRemark::AbandonRow;
  return ReadText<Field>(part, TrimField(text), stored);
}

template <auto Field>
CellRemark ReadTrimmedText(Record& part, std::string_view text, std::string* stored) {
  return ReadText<Field>(part, TrimField(text), stored);
}

void AppendTwoDigits(TextBuffer& out, std::int64_t number) {
  if (number < 10) out += '0';
  AppendInt(out, number);
}

// Seconds as hours:minutes:seconds. An estimate of a second or less leaves the cell blank, as nobody has
// estimated anything then.
template <auto Field>
bool WriteDuration(const Record& part, std::size_t, TextBuffer& out) {
  const double rounded = part.*Field + 0.5;
  if (!(rounded < 9e15)) return false;
  const auto seconds = rounded < 2 ? 0 : static_cast<std::int64_t>(rounded);
  if (seconds <= 1) return true;
  AppendTwoDigits(out, seconds / 3600);
  out += ':';
  AppendTwoDigits(out, seconds / 60 % 60);
  out += ':';
  AppendTwoDigits(out, seconds % 60);
  return true;
}

constexpr Field<Record> IgnoredColumn() {
  Field<Record> row;
  row.columns[0].keyword = kIgnore;
  row.columns[0].writtenAs = CellForm::Text;
  row.columns[0].write = WriteNothing<Record>;
  return row;
}

}  // namespace

template <>
TableOf<Record> ColumnTable<Record>::Table() {
  static constexpr Field<Record> kRows[] = {
      FIELD(PartName, "PartName").ReadBy(ReadPartName<&Record::PartName_>),
      FIELD(PartNumber, "PartNumber").Raises(&Record::IsPartNumberAvailable_),
      FIELD(FullPathName, "FullPath"),
      FIELD(PartQuantity, "PartQuantity"),
      FIELD(DueDate, "DueDate"),
      FIELD(MaterialType, "MaterialType").Raises(&Record::IsMaterialTypeAvailable_),
      FIELD(MaterialThickness, "MaterialThickness").Raises(&Record::IsMaterialThicknessAvailable_),
      FIELD(PartComment, "PartComment").Raises(&Record::IsPartCommentAvailable_),
      FIELD(Revision, "Revision").Raises(&Record::IsRevisionAvailable_),
      FIELD(Machine, "Machine").Raises(&Record::IsMachineAvailable_),
      FIELD(ToolInventory, "ToolInventory").Raises(&Record::IsToolInventoryAvailable_),
      FIELD(MaterialGroup, "MaterialGroup").Raises(&Record::IsMaterialGroupAvailable_),
      FIELD(Customer, "Customer").Raises(&Record::IsCustomerAvailable_),
      FIELD(RouterNumber, "RouterNumber"),
      FIELD(WorkOderNumber, "WorkOrderNumber"),
      FIELD(BinID, "BinID").Raises(&Record::IsBinIDAvailable_),
      FIELD(EstimateTime, "EstimateTime")
          .WrittenBy(WriteDuration<&Record::EstimateTime_>, CellForm::Duration),
      FIELD(GroupName, "GroupName"),
      FIELD(PartPositionInGroup, "PartPositionInGroup"),
      FIELD(MaterialFile, "PreferredMaterial")
          .ReadBy(ReadTrimmedText<&Record::MaterialFile_>)
          .Raises(&Record::IsPreferredMaterialAvailable_),
      FIELD(RectangularTrueShape, "Rectangular/TrueShape"),
      FIELD(StackTableId, "StackTable"),
      FIELD(Rotation, "Rotation"),
      FIELD(CommonCutting, "CommonCutting"),
      FIELD(CCutPunch, "C-Cut/Punch"),
      FIELD(GrainDirection, "GrainDirection"),
      FIELD(RotateSpecificAngle, "RotateSpecificAngle"),
      FIELD(MaterialCode, "MaterialCode"),
      FIELD(MaterialDescription, "MaterialDescription"),
      FIELD(CustomerMaterialType, "CustomerMaterialType"),
      FIELD(Coating, "Coating"),
      FIELD(Priority, "Priority"),
      BARE(IsMachineAvailable),
      BARE(IsMaterialTypeAvailable),
      BARE(IsMaterialThicknessAvailable),
      BARE(IsMaterialGroupAvailable),
      BARE(IsPreferredMaterialAvailable),
      BARE(IsPartNumberAvailable),
      BARE(IsCustomerAvailable),
      BARE(IsPartCommentAvailable),
      BARE(IsRevisionAvailable),
      BARE(IsToolInventoryAvailable),
      BARE(IsBinIDAvailable),
  };
  static constexpr Field<Record> kIgnored[] = {IgnoredColumn()};  // in the list of parts alone
  return MakeTable<Record, kRows, kIgnored>();
}

}  // namespace qv
