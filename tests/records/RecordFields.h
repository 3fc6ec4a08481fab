#pragma once

#include <QVAssemblyFile/JobProgressInfo.h>
#include <QVAssemblyFile/MatAmncITInfo.h>
#include <QVAssemblyFile/MatLibraryInfo.h>
#include <QVAssemblyFile/MaterialInfomation.h>
#include <QVAssemblyFile/PartInformation.h>
#include <QVAssemblyFile/PrtInfo.h>
#include <QVAssemblyFile/ShtInfo.h>
#include <QVAssemblyFile/ToolInformation.h>

#include <functional>
#include <sstream>
#include <string>
#include <type_traits>
#include <vector>

/// One field of a record as a host reaches it, with values as texts, so that fields of all types stand in one
/// table.
template <class Record>
struct Field {
  std::string name;
  std::function<std::string(Record&)> read;
  std::function<void(Record&, int seed)> write;  ///< another value for each seed above 0
  std::string fresh;                             ///< what a new record reads
  void (Record::*getText)(char*) = nullptr;      ///< of bounded texts only
  void (Record::*setText)(const char*) = nullptr;
};

template <class Value>
std::string TextOf(const Value& value) {
  std::ostringstream text;
  text << value;
  return text.str();
}

template <class Value>
Value ValueOf(int seed) {
  if constexpr (std::is_same_v<Value, CString>) {
    return ("a text that does not lie inside the object " + std::to_string(seed)).c_str();
  } else if constexpr (std::is_same_v<Value, bool>) {
    return seed > 0;
  } else {
    return static_cast<Value>(1000 + seed) + static_cast<Value>(0.5);
  }
}

template <class Record>
Field<Record> FieldOf(std::string name, void (Record::*get)(char*), void (Record::*set)(const char*),
                      std::string fresh) {
  const auto read = [get](Record& record) {
    char buffer[260];
    (record.*get)(buffer);
    return std::string(buffer);
  };
  const auto write = [set](Record& record, int seed) {
    (record.*set)(("text " + std::to_string(seed)).c_str());
  };
  return {std::move(name), read, write, std::move(fresh), get, set};
}

template <class Record, class Getter, class Setter, class Value>
Field<Record> ValueField(std::string name, Getter get, Setter set, std::string fresh, Value (*make)(int)) {
  return {std::move(name), [get](Record& record) { return TextOf((record.*get)()); },
          [set, make](Record& record, int seed) { (record.*set)(make(seed)); }, std::move(fresh)};
}

template <class Record, class Value>
Field<Record> FieldOf(std::string name, Value (Record::*get)(), void (Record::*set)(Value),
                      std::string fresh) {
  return ValueField<Record>(std::move(name), get, set, std::move(fresh), &ValueOf<Value>);
}

template <class Record, class Value>
Field<Record> FieldOf(std::string name, Value (Record::*get)() const, void (Record::*set)(Value),
                      std::string fresh) {
  return ValueField<Record>(std::move(name), get, set, std::move(fresh), &ValueOf<Value>);
}

template <class Record>
Field<Record> FieldOf(std::string name, CString (Record::*get)(), void (Record::*set)(const CString&),
                      std::string fresh) {
  return ValueField<Record>(std::move(name), get, set, std::move(fresh), &ValueOf<CString>);
}

template <class Record, class Value>
Field<Record> FieldOf(std::string name, Value Record::*member, std::string fresh) {
  return {std::move(name), [member](Record& record) { return TextOf(record.*member); },
          [member](Record& record, int seed) { record.*member = ValueOf<Value>(seed); }, std::move(fresh)};
}

/// The fields of a record class, and the capacity of its bounded texts.
template <class Record>
const std::vector<Field<Record>>& FieldsOf();

template <class Record>
inline constexpr std::size_t kTextCapacity = 260;
template <>
inline constexpr std::size_t kTextCapacity<PartInformation> = 256;
template <>
inline constexpr std::size_t kTextCapacity<ToolInformation> = 256;

#define QV_FIELD(Class, Stem, fresh) FieldOf(#Stem, &Class::Get##Stem, &Class::Set##Stem, fresh)

template <>
inline const std::vector<Field<PartInformation>>& FieldsOf<PartInformation>() {
  static const std::vector<Field<PartInformation>> fields = {
      QV_FIELD(PartInformation, PartName, ""),
      QV_FIELD(PartInformation, PartNumber, ""),
      FieldOf("FullPathNameA", &PartInformation::GetFullPathNameA, &PartInformation::SetFullPathName, ""),
      QV_FIELD(PartInformation, DueDate, ""),
      QV_FIELD(PartInformation, MaterialType, ""),
      QV_FIELD(PartInformation, PartComment, ""),
      QV_FIELD(PartInformation, Revision, ""),
      QV_FIELD(PartInformation, Machine, ""),
      QV_FIELD(PartInformation, ToolInventory, ""),
      QV_FIELD(PartInformation, MaterialGroup, ""),
      QV_FIELD(PartInformation, Customer, ""),
      QV_FIELD(PartInformation, RouterNumber, ""),
      QV_FIELD(PartInformation, WorkOderNumber, ""),
      QV_FIELD(PartInformation, GroupName, ""),
      QV_FIELD(PartInformation, PartPositionInGroup, ""),
      QV_FIELD(PartInformation, MaterialFile, ""),
      QV_FIELD(PartInformation, RectangularTrueShape, ""),
      QV_FIELD(PartInformation, CCutPunch, ""),
      QV_FIELD(PartInformation, GrainDirection, ""),
      QV_FIELD(PartInformation, RotateSpecificAngle, ""),
      QV_FIELD(PartInformation, MaterialCode, ""),
      QV_FIELD(PartInformation, MaterialDescription, ""),
      QV_FIELD(PartInformation, CustomerMaterialType, ""),
      QV_FIELD(PartInformation, Coating, ""),
      QV_FIELD(PartInformation, PartQuantity, "1"),
      QV_FIELD(PartInformation, MaterialThickness, "0"),
      QV_FIELD(PartInformation, BinID, "0"),
      QV_FIELD(PartInformation, EstimateTime, "0"),
      FieldOf("StackTableId", &PartInformation::StackTableId, &PartInformation::SetStackTableId, "-1"),
      QV_FIELD(PartInformation, Rotation, "1"),
      QV_FIELD(PartInformation, CommonCutting, "0"),
      QV_FIELD(PartInformation, Priority, "1"),
      QV_FIELD(PartInformation, IsMachineAvailable, "0"),
      QV_FIELD(PartInformation, IsMaterialTypeAvailable, "0"),
      QV_FIELD(PartInformation, IsMaterialThicknessAvailable, "0"),
      QV_FIELD(PartInformation, IsMaterialGroupAvailable, "0"),
      QV_FIELD(PartInformation, IsPreferredMaterialAvailable, "0"),
      QV_FIELD(PartInformation, IsPartNumberAvailable, "0"),
      QV_FIELD(PartInformation, IsCustomerAvailable, "0"),
      QV_FIELD(PartInformation, IsPartCommentAvailable, "0"),
      QV_FIELD(PartInformation, IsRevisionAvailable, "0"),
      QV_FIELD(PartInformation, IsToolInventoryAvailable, "0"),
      QV_FIELD(PartInformation, IsBinIDAvailable, "0"),
  };
  return fields;
}

template <>
inline const std::vector<Field<ToolInformation>>& FieldsOf<ToolInformation>() {
  static const std::vector<Field<ToolInformation>> fields = {
      QV_FIELD(ToolInformation, ToolShape, ""),   QV_FIELD(ToolInformation, ToolDimensions, ""),
      QV_FIELD(ToolInformation, ToolAngles, ""),  QV_FIELD(ToolInformation, ToolClearance, ""),
      QV_FIELD(ToolInformation, StorageInfo, ""), QV_FIELD(ToolInformation, ToolName, ""),
      QV_FIELD(ToolInformation, ToolComment, ""), QV_FIELD(ToolInformation, ToolDriverName, ""),
      QV_FIELD(ToolInformation, ToolID, "0"),     QV_FIELD(ToolInformation, ToolType, "0"),
      QV_FIELD(ToolInformation, ToolSize, "0"),
  };
  return fields;
}

template <>
inline const std::vector<Field<MaterialInfomation>>& FieldsOf<MaterialInfomation>() {
  static const std::vector<Field<MaterialInfomation>> fields = {
      QV_FIELD(MaterialInfomation, MatType, ""),
      QV_FIELD(MaterialInfomation, MJTool, ""),
      QV_FIELD(MaterialInfomation, PierceHoleTool, ""),
      QV_FIELD(MaterialInfomation, MatFile, ""),
      QV_FIELD(MaterialInfomation, MachineFile, ""),
      QV_FIELD(MaterialInfomation, MatComment, ""),
      QV_FIELD(MaterialInfomation, InLeadInType, ""),
      QV_FIELD(MaterialInfomation, InLeadOutType, ""),
      QV_FIELD(MaterialInfomation, ExLeadInType, ""),
      QV_FIELD(MaterialInfomation, ExLeadOutType, ""),
      QV_FIELD(MaterialInfomation, InLeadInLength, "0"),
      QV_FIELD(MaterialInfomation, InLeadInAngle, "0"),
      QV_FIELD(MaterialInfomation, InLeadInAngleRad, "0"),
      QV_FIELD(MaterialInfomation, InLeadInLineToTangentArc, "0"),
      QV_FIELD(MaterialInfomation, InLeadInTwoLineSplit, "0"),
      QV_FIELD(MaterialInfomation, InLeadInFromPierceToCut, "0"),
      QV_FIELD(MaterialInfomation, InLeadOutLength, "0"),
      QV_FIELD(MaterialInfomation, InLeadOutAngle, "0"),
      QV_FIELD(MaterialInfomation, InLeadOutArcRad, "0"),
      QV_FIELD(MaterialInfomation, InLeadOutLineToTangentArc, "0"),
      QV_FIELD(MaterialInfomation, InLeadOutOverUnderCutAmount, "0"),
      QV_FIELD(MaterialInfomation, InLeadOutFromCutToEnd, "0"),
      QV_FIELD(MaterialInfomation, ExLeadInLength, "0"),
      QV_FIELD(MaterialInfomation, ExLeadInAngle, "0"),
      QV_FIELD(MaterialInfomation, ExLeadInAngleRad, "0"),
      QV_FIELD(MaterialInfomation, ExLeadInLineToTangentArc, "0"),
      QV_FIELD(MaterialInfomation, ExLeadInTwoLineSplit, "0"),
      QV_FIELD(MaterialInfomation, ExLeadInFromPierceToCut, "0"),
      QV_FIELD(MaterialInfomation, ExLeadOutLength, "0"),
      QV_FIELD(MaterialInfomation, ExLeadOutAngle, "0"),
      QV_FIELD(MaterialInfomation, ExLeadOutArcRad, "0"),
      QV_FIELD(MaterialInfomation, ExLeadOutLineToTangentArc, "0"),
      QV_FIELD(MaterialInfomation, ExLeadOutOverUnderCutAmount, "0"),
      QV_FIELD(MaterialInfomation, ExLeadOutFromCutToEnd, "0"),
      QV_FIELD(MaterialInfomation, PierceType, "0"),
      QV_FIELD(MaterialInfomation, PrePierceYesNo, "0"),
      QV_FIELD(MaterialInfomation, StandardPierceDataM103Ax, "0"),
      QV_FIELD(MaterialInfomation, RecoveryDisM105XY, "0"),
      QV_FIELD(MaterialInfomation, LaserPierceCondition, "0"),
      QV_FIELD(MaterialInfomation, DwellBeforePierce, "0"),
      QV_FIELD(MaterialInfomation, DwellBeforePierceValue, "0"),
      QV_FIELD(MaterialInfomation, DwellAfterPierce, "0"),
      QV_FIELD(MaterialInfomation, DwellAfterPierceValue, "0"),
      QV_FIELD(MaterialInfomation, CutterCompensationBeamDiameter, "0"),
      QV_FIELD(MaterialInfomation, CutterCompensationCutterComp, "0"),
      QV_FIELD(MaterialInfomation, AfterCutConditionsInformation, "0"),
      QV_FIELD(MaterialInfomation, AfterCutConditionsDwell, "0"),
      QV_FIELD(MaterialInfomation, AfterCutConditionsRaise, "0"),
      QV_FIELD(MaterialInfomation, Range1HoleMJID, "0"),
      QV_FIELD(MaterialInfomation, Range1HoleMJQuantity, "0"),
      QV_FIELD(MaterialInfomation, Range1PerimeterMJID, "0"),
      QV_FIELD(MaterialInfomation, Range1PerimeterMJQuantity, "0"),
      QV_FIELD(MaterialInfomation, Range2HoleMJID, "0"),
      QV_FIELD(MaterialInfomation, Range2HoleMJQuantity, "0"),
      QV_FIELD(MaterialInfomation, Range2PerimeterMJID, "0"),
      QV_FIELD(MaterialInfomation, Range2PerimeterMJQuantity, "0"),
      QV_FIELD(MaterialInfomation, Range3HoleMJID, "0"),
      QV_FIELD(MaterialInfomation, Range3HoleMJQuantity, "0"),
      QV_FIELD(MaterialInfomation, Range3PerimeterMJID, "0"),
      QV_FIELD(MaterialInfomation, Range3PerimeterMJQuantity, "0"),
      QV_FIELD(MaterialInfomation, MJLeadInLength, "0"),
      QV_FIELD(MaterialInfomation, MJLeadInAngle, "0"),
      QV_FIELD(MaterialInfomation, MJLeadOutLength, "0"),
      QV_FIELD(MaterialInfomation, MJLeadOutAngle, "0"),
      QV_FIELD(MaterialInfomation, CustomPeri_ComCutting_Style, "0"),
      QV_FIELD(MaterialInfomation, CustomPeri_ComCutting_BeamDiameter, "0"),
      QV_FIELD(MaterialInfomation, CustomPeri_ComCutting_CuttingOverLength, "0"),
      QV_FIELD(MaterialInfomation, CustomPeri_ComCutting_MinimumEdge, "0"),
      QV_FIELD(MaterialInfomation, CustomPeri_ComCutting_StartingCorner, "0"),
      QV_FIELD(MaterialInfomation, CustomPeri_ComCutting_xDirection, "0"),
      QV_FIELD(MaterialInfomation, CustomPeri_ComCutting_BridgeSize, "0"),
      QV_FIELD(MaterialInfomation, CustomPeri_ComCutting_MaxChanLength, "0"),
      QV_FIELD(MaterialInfomation, CustomPeri_ComCutting_DistancetoSkip, "0"),
      QV_FIELD(MaterialInfomation, LengthLeadinToSplitCutoutsMinWidth, "0"),
      QV_FIELD(MaterialInfomation, LengthLeadinToSplitCutoutsMaxWidth, "0"),
      QV_FIELD(MaterialInfomation, SplitCutoutsSlugDestroyPitch, "0"),
      QV_FIELD(MaterialInfomation, SplitCutoutsDoNotPierceNearEdge, "0"),
      QV_FIELD(MaterialInfomation, SplitCutoutsBeamCompensation, "0"),
      QV_FIELD(MaterialInfomation, PeriNotchReliefLeadInType, "0"),
      QV_FIELD(MaterialInfomation, PeriNotchReliefLeadInLength, "0"),
      QV_FIELD(MaterialInfomation, PeriNotchReliefLeadInFromPierceToCut, "0"),
      QV_FIELD(MaterialInfomation, PeriNotchReliefLeadOutType, "0"),
      QV_FIELD(MaterialInfomation, PeriNotchReliefLeadOutLength, "0"),
      QV_FIELD(MaterialInfomation, PeriNotchReliefLeadOutFromPierceToCut, "0"),
      QV_FIELD(MaterialInfomation, PeriNotchReliefNotchSplitCutXPitch, "0"),
      QV_FIELD(MaterialInfomation, PeriNotchReliefNotchSplitCutYPitch, "0"),
      QV_FIELD(MaterialInfomation, PeriNotchReliefDoubleCutsOffset, "0"),
      QV_FIELD(MaterialInfomation, PeriNotchReliefAutoPerimeterNotchReliefAutoOffset, "0"),
      QV_FIELD(MaterialInfomation, PeriNotchReliefAutoPerimeterNotchReliefHeight, "0"),
      QV_FIELD(MaterialInfomation, PeriNotchReliefNotchCutOutRange, "0"),
      QV_FIELD(MaterialInfomation, SplitSheetLeadInType, "0"),
      QV_FIELD(MaterialInfomation, SplitSheetLeadInLength, "0"),
      QV_FIELD(MaterialInfomation, SplitSheetLeadInAngle, "0"),
      QV_FIELD(MaterialInfomation, SplitSheetLeadInFromPierceToCut, "0"),
      QV_FIELD(MaterialInfomation, SplitSheetLeadOutType, "0"),
      QV_FIELD(MaterialInfomation, SplitSheetLeadOutLength, "0"),
      QV_FIELD(MaterialInfomation, SplitSheetLeadOutAngle, "0"),
      QV_FIELD(MaterialInfomation, SplitSheetLeadOutFromPierceToCut, "0"),
      QV_FIELD(MaterialInfomation, SplitSheetHorizontalSplitCuts, "0"),
      QV_FIELD(MaterialInfomation, SplitSheetVerticalSplitCuts, "0"),
      QV_FIELD(MaterialInfomation, SplitSheetBottomLeftEdge, "0"),
      QV_FIELD(MaterialInfomation, SplitSheetTopRightEdge, "0"),
      QV_FIELD(MaterialInfomation, SplitSheetBetweenParts, "0"),
      QV_FIELD(MaterialInfomation, SplitSheetMinSpace, "0"),
      QV_FIELD(MaterialInfomation, InsideCutouts_MJSize, "0"),
      QV_FIELD(MaterialInfomation, InsideCutouts_ExceedsX, "0"),
      QV_FIELD(MaterialInfomation, InsideCutouts_IntervalX, "0"),
      QV_FIELD(MaterialInfomation, InsideCutouts_ExceedsY, "0"),
      QV_FIELD(MaterialInfomation, InsideCutouts_IntervalY, "0"),
      QV_FIELD(MaterialInfomation, OutsideCutouts_MJSize, "0"),
      QV_FIELD(MaterialInfomation, OutsideCutouts_ExceedsX, "0"),
      QV_FIELD(MaterialInfomation, OutsideCutouts_IntervalX, "0"),
      QV_FIELD(MaterialInfomation, OutsideCutouts_ExceedsY, "0"),
      QV_FIELD(MaterialInfomation, OutsideCutouts_IntervalY, "0"),
  };
  return fields;
}

template <>
inline const std::vector<Field<ShtInfo>>& FieldsOf<ShtInfo>() {
  static const std::vector<Field<ShtInfo>> fields = {
      QV_FIELD(ShtInfo, SheetName, ""),     QV_FIELD(ShtInfo, MaterialGroup, ""),
      QV_FIELD(ShtInfo, MaterialType, ""),  QV_FIELD(ShtInfo, SheetSize, ""),
      QV_FIELD(ShtInfo, Thickness, ""),     QV_FIELD(ShtInfo, LaserMaterialName, ""),
      QV_FIELD(ShtInfo, Comments, ""),      QV_FIELD(ShtInfo, Programmer, ""),
      QV_FIELD(ShtInfo, Customer, ""),      QV_FIELD(ShtInfo, MachineFile, ""),
      QV_FIELD(ShtInfo, InventoryFile, ""), QV_FIELD(ShtInfo, MaterialFile, ""),
      QV_FIELD(ShtInfo, ClampPosition, ""), QV_FIELD(ShtInfo, TotalRunTime, ""),
  };
  return fields;
}

template <>
inline const std::vector<Field<PrtInfo>>& FieldsOf<PrtInfo>() {
  static const std::vector<Field<PrtInfo>> fields = {
      QV_FIELD(PrtInfo, PartName, ""),
      QV_FIELD(PrtInfo, Customer, ""),
      QV_FIELD(PrtInfo, PartNumber, ""),
      QV_FIELD(PrtInfo, ProgrammerName, ""),
      QV_FIELD(PrtInfo, Revision, ""),
      QV_FIELD(PrtInfo, Comments, ""),
      QV_FIELD(PrtInfo, Machine, ""),
      QV_FIELD(PrtInfo, ToolInventory, ""),
      QV_FIELD(PrtInfo, MaterialFile, ""),
      QV_FIELD(PrtInfo, MaterialGroup, ""),
      QV_FIELD(PrtInfo, MaterialType, ""),
      QV_FIELD(PrtInfo, ClampPosition, ""),
      QV_FIELD(PrtInfo, PartSizeX, "0"),
      QV_FIELD(PrtInfo, PartSizeY, "0"),
      QV_FIELD(PrtInfo, DefaultRotation, "0"),
      QV_FIELD(PrtInfo, EstimateTime, "0"),
      QV_FIELD(PrtInfo, PartDefaultPosition, "0"),
      QV_FIELD(PrtInfo, AverProcessTime, "0"),
      QV_FIELD(PrtInfo, GridSpacingH, "0"),
      QV_FIELD(PrtInfo, GridSpacingV, "0"),
      QV_FIELD(PrtInfo, MarginTop, "0"),
      QV_FIELD(PrtInfo, MarginBottom, "0"),
      QV_FIELD(PrtInfo, MarginLeft, "0"),
      QV_FIELD(PrtInfo, MarginRight, "0"),
      QV_FIELD(PrtInfo, SheetSizeX, "0"),
      QV_FIELD(PrtInfo, SheetSizeY, "0"),
      QV_FIELD(PrtInfo, MaterialThickness, "0"),
  };
  return fields;
}

template <>
inline const std::vector<Field<JobProgressInfo>>& FieldsOf<JobProgressInfo>() {
  static const std::vector<Field<JobProgressInfo>> fields = {
      QV_FIELD(JobProgressInfo, JobName, ""),      QV_FIELD(JobProgressInfo, JobProgress, ""),
      QV_FIELD(JobProgressInfo, StartTime, ""),    QV_FIELD(JobProgressInfo, EndTime, ""),
      QV_FIELD(JobProgressInfo, TotalPartQty, ""), QV_FIELD(JobProgressInfo, TotalDoneQty, ""),
      QV_FIELD(JobProgressInfo, MatType, ""),      QV_FIELD(JobProgressInfo, Thickness, ""),
  };
  return fields;
}

template <>
inline const std::vector<Field<MatAmncITInfo>>& FieldsOf<MatAmncITInfo>() {
  static const std::vector<Field<MatAmncITInfo>> fields = {
      QV_FIELD(MatAmncITInfo, ShelfNo, "0"),     QV_FIELD(MatAmncITInfo, Quantity, "0"),
      QV_FIELD(MatAmncITInfo, MaterialName, ""), QV_FIELD(MatAmncITInfo, Thickness, "0"),
      QV_FIELD(MatAmncITInfo, SizeX, "0"),       QV_FIELD(MatAmncITInfo, SizeY, "0"),
      QV_FIELD(MatAmncITInfo, Palletkind, ""),
  };
  return fields;
}

template <>
inline const std::vector<Field<MatLibraryInfo>>& FieldsOf<MatLibraryInfo>() {
  static const std::vector<Field<MatLibraryInfo>> fields = {
      FieldOf("MaterialCode", &MatLibraryInfo::MaterialCode, ""),
      FieldOf("MaterialDescription", &MatLibraryInfo::MaterialDescription, ""),
      FieldOf("CustomerMaterialType", &MatLibraryInfo::CustomerMaterialType, ""),
      FieldOf("MaterialType", &MatLibraryInfo::MaterialType, ""),
      FieldOf("Thickness", &MatLibraryInfo::Thickness, "0"),
      FieldOf("SizeX", &MatLibraryInfo::SizeX, "0"),
      FieldOf("SizeY", &MatLibraryInfo::SizeY, "0"),
      FieldOf("Coating", &MatLibraryInfo::Coating, "0"),
      FieldOf("Quantity", &MatLibraryInfo::Quantity, "0"),
      FieldOf("ShelfNo", &MatLibraryInfo::ShelfNo, "0"),
  };
  return fields;
}

#undef QV_FIELD
