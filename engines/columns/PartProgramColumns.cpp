#include "engines/columns/Cells.h"
#include "engines/columns/ColumnTables.h"

namespace qv {
namespace {

using P = PrtInfo;

template <auto List>
std::size_t CountOf(const P& program) {
  return (program.*List).size();
}

template <auto List, auto Field>
bool WriteElement(const P& program, std::size_t element, TextBuffer& out) {
  if (element >= (program.*List).size()) return true;
  const auto& value = (program.*List)[element].*Field;
  if constexpr (std::is_same_v<std::remove_cvref_t<decltype(value)>, int>) {
    AppendInt(out, value);
    return true;
  } else {
    return AppendField(out, value);
  }
}

template <auto List, auto Field>
constexpr Column<P> Element(std::string_view keyword, ColumnLevel level) {
  return {keyword, nullptr, WriteElement<List, Field>, nullptr, level, CountOf<List>};
}

}  // namespace

std::span<const Column<P>> ColumnTable<P>::Columns() {
  using enum ColumnLevel;
  static constexpr Column<P> kColumns[] = {
      TextWritten<&P::partName_>("PartName"),
      Text<&P::customer_>("Customer"),
      Text<&P::partNumber_>("PartNumber"),
      RealWritten<&P::partSizeX_, 3>("PartSizeX"),
      RealWritten<&P::partSizeY_, 3>("PartSizeY"),
      Text<&P::programmerName_>("ProgrammerName"),
      Real<&P::defaultRotation_, 3>("DefaultRotation"),
      Text<&P::revision_>("Revision"),
      RealWritten<&P::estimateTime_, 6>("PartEstimatedTime"),
      Text<&P::comments_>("Comments"),
      IntWritten<&P::partDefaultPosition_>("PartDefaultPosition"),
      RealWritten<&P::averProcessTime_, 6>("AveProcTime"),
      RealWritten<&P::gridSpacingH_, 3>("GridSpacingH"),
      RealWritten<&P::gridSpacingV_, 3>("GridSpacingV"),
      RealWritten<&P::marginTop_, 3>("MarginT"),
      RealWritten<&P::marginBottom_, 3>("MarginB"),
      RealWritten<&P::marginLeft_, 3>("MarginL"),
      RealWritten<&P::marginRight_, 3>("MarginR"),
      Text<&P::machine_>("PrefMachine"),
      Text<&P::toolInventory_>("PrefInventory"),
      Text<&P::materialFile_>("PrefMaterialFile"),
      Text<&P::materialGroup_>("PrefMaterialGroup"),
      Text<&P::materialType_>("PrefMaterialType"),
      Real<&P::sheetSizeX_, 3>("SheetSizeX"),
      Real<&P::sheetSizeY_, 3>("SheetSizeY"),
      Real<&P::materialThickness_, 3>("MaterialThickness"),
      TextWritten<&P::clampPosition_>("ClampPosition"),
      Element<&P::usedToolInfo_, &UsedToolInfo::ToolShape>("ToolShape", UsedTools),
      Element<&P::usedToolInfo_, &UsedToolInfo::ToolType>("ToolType", UsedTools),
      Element<&P::usedToolInfo_, &UsedToolInfo::ToolDescription>("ToolDescription", UsedTools),
      Element<&P::usedToolInfo_, &UsedToolInfo::StaSize>("StaSize", UsedTools),
      Element<&P::usedToolInfo_, &UsedToolInfo::ToolSta>("ToolSta", UsedTools),
      Element<&P::holeInfo_, &HoleInfo::HoleType>("HoleType", Holes),
      Element<&P::holeInfo_, &HoleInfo::HoleDimX>("HoleDimX", Holes),
      Element<&P::holeInfo_, &HoleInfo::HoleDimY>("HoleDimY", Holes),
      Element<&P::holeInfo_, &HoleInfo::HoleDimR>("HoleDimR", Holes),
      Element<&P::holeInfo_, &HoleInfo::HoleQuantity>("HoleQuantity", Holes),
      Element<&P::bendInfo_, &BendInfo::BendAngle>("BendAngle", Bends),
      Element<&P::bendInfo_, &BendInfo::BendRadius>("BendRadius", Bends),
      Element<&P::bendInfo_, &BendInfo::BendDeduction>("BendDeduction", Bends),
      Element<&P::bendInfo_, &BendInfo::BendType>("BendType", Bends),
      Element<&P::bendInfo_, &BendInfo::BendComments>("BendComments", Bends),
  };
  return kColumns;
}

}  // namespace qv
