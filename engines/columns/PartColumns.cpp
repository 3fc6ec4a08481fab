#include "engines/FieldTrim.h"
#include "engines/columns/Cells.h"
#include "engines/columns/ColumnTables.h"

#include <cmath>

namespace qv {
namespace {

using P = PartInformation;

// A part without a name is no part. A name of blanks is one, if an odd one.
template <auto Field>
Remark ReadPartName(P& part, std::string_view text, std::string* stored) {
  if (text.empty()) return Remark::AbandonRow;
  return ReadText<Field>(part, TrimField(text), stored);
}

template <auto Field>
Remark ReadTrimmedText(P& part, std::string_view text, std::string* stored) {
  return ReadText<Field>(part, TrimField(text), stored);
}

void AppendTwoDigits(TextBuffer& out, std::int64_t number) {
  if (number < 10) out += '0';
  AppendInt(out, number);
}

// Seconds as hours:minutes:seconds. An estimate of a second or less leaves the cell blank, as nobody has
// estimated anything then.
template <auto Field>
bool WriteDuration(const P& part, std::size_t, TextBuffer& out) {
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

}  // namespace

std::span<const Column<P>> ColumnTable<P>::Columns() {
  static constexpr Column<P> kColumns[] = {
      {"Ignore", nullptr, WriteNothing<P>},
      {"PartName", ReadPartName<&P::partName_>, WriteText<&P::partName_>},
      Text<&P::partNumber_>("PartNumber", &P::isPartNumberAvailable_),
      Text<&P::fullPathName_>("FullPath"),
      Int<&P::partQuantity_>("PartQuantity"),
      Text<&P::dueDate_>("DueDate"),
      Text<&P::materialType_>("MaterialType", &P::isMaterialTypeAvailable_),
      Real<&P::materialThickness_>("MaterialThickness", &P::isMaterialThicknessAvailable_),
      Text<&P::partComment_>("PartComment", &P::isPartCommentAvailable_),
      Text<&P::revision_>("Revision", &P::isRevisionAvailable_),
      Text<&P::machine_>("Machine", &P::isMachineAvailable_),
      Text<&P::toolInventory_>("ToolInventory", &P::isToolInventoryAvailable_),
      Text<&P::materialGroup_>("MaterialGroup", &P::isMaterialGroupAvailable_),
      Text<&P::customer_>("Customer", &P::isCustomerAvailable_),
      Text<&P::routerNumber_>("RouterNumber"),
      Text<&P::workOderNumber_>("WorkOrderNumber"),
      Int<&P::binID_>("BinID", &P::isBinIDAvailable_),
      {"EstimateTime", ReadReal<&P::estimateTime_>, WriteDuration<&P::estimateTime_>},
      Text<&P::partPositionInGroup_>("PartPositionInGroup"),
      Text<&P::groupName_>("GroupName"),
      {"PreferredMaterial", ReadTrimmedText<&P::materialFile_>, WriteText<&P::materialFile_>,
       &P::isPreferredMaterialAvailable_},
      Text<&P::rectangularTrueShape_>("Rectangular/TrueShape"),
      Int<&P::stackTableId_>("StackTable"),
      Int<&P::rotation_>("Rotation"),
      Int<&P::commonCutting_>("CommonCutting"),
      Text<&P::cCutPunch_>("C-Cut/Punch"),
      Text<&P::grainDirection_>("GrainDirection"),
      Text<&P::rotateSpecificAngle_>("RotateSpecificAngle"),
      Text<&P::materialCode_>("MaterialCode"),
      Text<&P::materialDescription_>("MaterialDescription"),
      Text<&P::customerMaterialType_>("CustomerMaterialType"),
      Text<&P::coating_>("Coating"),
      Int<&P::priority_>("Priority"),
  };
  return kColumns;
}

}  // namespace qv
