#include "engines/columns/FieldRows.h"

namespace qv {
namespace {

using Record = PrtInfo;

template <auto List>
std::size_t CountOf(const Record& program) {
  return (program.*List).size();
}

template <auto List, auto Member>
bool WriteElement(const Record& program, std::size_t element, TextBuffer& out) {
  if (element >= (program.*List).size()) return true;
  const auto& value = (program.*List)[element].*Member;
  if constexpr (FormOf<Member>() == CellForm::Whole) {
    AppendInt(out, value);
    return true;
  } else {
    return AppendField(out, value);
  }
}

/// A field of a list's elements. It is the keyword of its column too, which belongs to the program.
template <auto List, auto Member>
constexpr Field<Record> Element(std::string_view stem, ColumnLevel level) {
  Column<Record> column;
  column.keyword = stem;
  column.writtenAs = FormOf<Member>();
  column.write = WriteElement<List, Member>;
  column.level = level;
  column.count = CountOf<List>;
  return {Access<Member>(stem), {column}};
}

}  // namespace

#define REAL(Stem, keyword) (Row<&Record::Stem##_>(#Stem, Both<&Record::Stem##_, 3>(keyword)))
#define REAL_WRITTEN(Stem, keyword) (Row<&Record::Stem##_>(#Stem, Written<&Record::Stem##_, 3>(keyword)))
#define LIST(Stem, type) (ListRow<&Record::Stem##_>(#Stem, type))
#define TOOL(Stem) (Element<&Record::UsedToolInfo_, &UsedToolInfo::Stem>(#Stem, ColumnLevel::UsedTools))
#define HOLE(Stem) (Element<&Record::HoleInfo_, &HoleInfo::Stem>(#Stem, ColumnLevel::Holes))
#define BEND(Stem) (Element<&Record::BendInfo_, &BendInfo::Stem>(#Stem, ColumnLevel::Bends))

template <>
TableOf<Record> ColumnTable<Record>::Table() {
  static constexpr Field<Record> kTools[] = {
      TOOL(ToolShape), TOOL(ToolType), TOOL(ToolDescription), TOOL(StaSize), TOOL(ToolSta),
  };
  static constexpr Field<Record> kHoles[] = {
      HOLE(HoleType), HOLE(HoleDimX), HOLE(HoleDimY), HOLE(HoleDimR), HOLE(HoleQuantity),
  };
  static constexpr Field<Record> kBends[] = {
      BEND(BendAngle), BEND(BendRadius), BEND(BendDeduction), BEND(BendType), BEND(BendComments),
  };
  static constexpr RecordType kTool = TypeOf<UsedToolInfo>("UsedToolInfo", kFieldsOf<kTools>);
  static constexpr RecordType kHole = TypeOf<HoleInfo>("HoleInfo", kFieldsOf<kHoles>);
  static constexpr RecordType kBend = TypeOf<BendInfo>("BendInfo", kFieldsOf<kBends>);
  static constexpr Field<Record> kRows[] = {
      WRITTEN(PartName, "PartName"),
      FIELD(Customer, "Customer"),
      FIELD(PartNumber, "PartNumber"),
      REAL_WRITTEN(PartSizeX, "PartSizeX"),
      REAL_WRITTEN(PartSizeY, "PartSizeY"),
      FIELD(ProgrammerName, "ProgrammerName"),
      REAL(DefaultRotation, "DefaultRotation"),
      FIELD(Revision, "Revision"),
      WRITTEN(EstimateTime, "PartEstimatedTime"),
      FIELD(Comments, "Comments"),
      WRITTEN(PartDefaultPosition, "PartDefaultPosition"),
      WRITTEN(AverProcessTime, "AveProcTime"),
      REAL_WRITTEN(GridSpacingH, "GridSpacingH"),
      REAL_WRITTEN(GridSpacingV, "GridSpacingV"),
      REAL_WRITTEN(MarginTop, "MarginT"),
      REAL_WRITTEN(MarginBottom, "MarginB"),
      REAL_WRITTEN(MarginLeft, "MarginL"),
      REAL_WRITTEN(MarginRight, "MarginR"),
      FIELD(Machine, "PrefMachine"),
      FIELD(ToolInventory, "PrefInventory"),
      FIELD(MaterialFile, "PrefMaterialFile"),
      FIELD(MaterialGroup, "PrefMaterialGroup"),
      FIELD(MaterialType, "PrefMaterialType"),
      REAL(SheetSizeX, "SheetSizeX"),
      REAL(SheetSizeY, "SheetSizeY"),
      REAL(MaterialThickness, "MaterialThickness"),
      WRITTEN(ClampPosition, "ClampPosition"),
      LIST(UsedToolInfo, kTool),
      LIST(HoleInfo, kHole),
      LIST(BendInfo, kBend),
  };
  return MakeTable<Record, kRows, kTools, kHoles, kBends>();
}

}  // namespace qv
