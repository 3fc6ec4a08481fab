// The kinds whose cells are all read and written as they are.

#include "engines/columns/FieldRows.h"

namespace qv {

template <>
TableOf<ToolInformation> ColumnTable<ToolInformation>::Table() {
  using Record = ToolInformation;
  static constexpr Field<Record> kRows[] = {
      FIELD(ToolID, "ID"),
      WORDS(ToolType, "Type", kToolTypes),
      FIELD(ToolShape, "Shape"),
      FIELD(ToolDimensions, "Dimensions"),
      FIELD(ToolSize, "Size"),
      FIELD(ToolAngles, "Angles"),
      FIELD(ToolClearance, "Clearances"),
      FIELD(StorageInfo, "StorageInfo"),
      FIELD(ToolName, "ToolName"),
      FIELD(ToolComment, "ToolComment"),
      FIELD(ToolDriverName, "DriverName"),
      FIELD(ToolPunchConditionString, "PunchCondition"),
  };
  return MakeTable<Record, kRows>();
}

template <>
TableOf<ShtInfo> ColumnTable<ShtInfo>::Table() {
  using Record = ShtInfo;
  static constexpr Field<Record> kRows[] = {
      WRITTEN(SheetName, "SheetName"),
      FIELD(MaterialGroup, "MaterialGroup"),
      FIELD(MaterialType, "MaterialType"),
      FIELD(SheetSize, "SheetSize"),
      FIELD(Thickness, "Thickness"),
      FIELD(LaserMaterialName, "LaserMaterialName"),
      FIELD(Comments, "Comments"),
      FIELD(Programmer, "Programmer"),
      FIELD(Customer, "Customer"),
      FIELD(MachineFile, "MachineFile"),
      FIELD(InventoryFile, "InventoryFile"),
      FIELD(MaterialFile, "MaterialFile"),
      WRITTEN(ClampPosition, "ClampPosition"),
      WRITTEN(TotalRunTime, "TotalRunTime"),
  };
  return MakeTable<Record, kRows>();
}

template <>
TableOf<MatAmncITInfo> ColumnTable<MatAmncITInfo>::Table() {
  using Record = MatAmncITInfo;
  static constexpr Field<Record> kRows[] = {
      READ(ShelfNo, "ShelfNo"),       READ(Quantity, "Quantity"), READ(MaterialName, "MatName"),
      READ(Thickness, "Thickness"),   READ(SizeX, "SizeX"),       READ(SizeY, "SizeY"),
      READ(Palletkind, "PalletKind"),
  };
  return MakeTable<Record, kRows>();
}

// A library entry's members are public and bear the stems themselves.
#define ENTRY(Stem, keyword) (Row<&Record::Stem>(#Stem, Read<&Record::Stem>(keyword)))

template <>
TableOf<MatLibraryInfo> ColumnTable<MatLibraryInfo>::Table() {
  using Record = MatLibraryInfo;
  static constexpr Field<Record> kRows[] = {
      ENTRY(MaterialCode, "MaterialCode"),
      ENTRY(MaterialDescription, "MaterialDescription"),
      ENTRY(CustomerMaterialType, "CustomerMaterialType"),
      ENTRY(MaterialType, "MaterialType"),
      ENTRY(Thickness, "Thickness").Or("MaterialThickness"),
      ENTRY(SizeX, "SizeX"),
      ENTRY(SizeY, "SizeY"),
      ENTRY(Coating, "Coating"),
      ENTRY(Quantity, "Quantity"),
      ENTRY(ShelfNo, "ShelfNo"),
  };
  return MakeTable<Record, kRows>();
}

template <>
TableOf<JobProgressInfo> ColumnTable<JobProgressInfo>::Table() {
  using Record = JobProgressInfo;
  static constexpr Field<Record> kRows[] = {
      WRITTEN(JobName, "JobName"),           WRITTEN(JobProgress, "JobProgress"),
      WRITTEN(StartTime, "StartTime"),       WRITTEN(EndTime, "EndTime"),
      WRITTEN(TotalPartQty, "TotalPartQty"), WRITTEN(TotalDoneQty, "TotalDoneQty"),
      WRITTEN(MatType, "MaterialType"),      WRITTEN(Thickness, "Thickness"),
  };
  return MakeTable<Record, kRows>();
}

}  // namespace qv
