#include "cli/RecordAccess.h"

#include <QVAssemblyFile/JobProgressInfo.h>
#include <QVAssemblyFile/MatAmncITInfo.h>
#include <QVAssemblyFile/MatLibraryInfo.h>
#include <QVAssemblyFile/MaterialInfomation.h>
#include <QVAssemblyFile/PartInformation.h>
#include <QVAssemblyFile/PrtInfo.h>
#include <QVAssemblyFile/ShtInfo.h>
#include <QVAssemblyFile/ToolInformation.h>

// FIELD(stem, keyword...) is a field with a pair of accessors of its name, WRITTEN(...) one that no import
// reads, MEMBER(...) one that is public.
#define FIELD(stem, ...) Field<&Record::Get##stem, &Record::Set##stem>(#stem __VA_OPT__(, ) __VA_ARGS__)
#define WRITTEN(...) OnlyWritten(FIELD(__VA_ARGS__))
#define MEMBER(stem, ...) Member<&Record::stem>(#stem __VA_OPT__(, ) __VA_ARGS__)
#define LIST(stem) ListField<stem, k##stem, &Record::Get##stem, &Record::Set##stem>(#stem)

namespace qv {
namespace {

std::span<const RecordField> PartFields() {
  using Record = PartInformation;
  static constexpr RecordField kFields[] = {
      FIELD(PartName, "PartName"),
      FIELD(PartNumber, "PartNumber"),
      Field<&Record::GetFullPathNameA, &Record::SetFullPathName>("FullPathName", "FullPath"),
      FIELD(PartQuantity, "PartQuantity"),
      FIELD(DueDate, "DueDate"),
      FIELD(MaterialType, "MaterialType"),
      FIELD(MaterialThickness, "MaterialThickness"),
      FIELD(PartComment, "PartComment"),
      FIELD(Revision, "Revision"),
      FIELD(Machine, "Machine"),
      FIELD(ToolInventory, "ToolInventory"),
      FIELD(MaterialGroup, "MaterialGroup"),
      FIELD(Customer, "Customer"),
      FIELD(RouterNumber, "RouterNumber"),
      FIELD(WorkOderNumber, "WorkOrderNumber"),
      FIELD(BinID, "BinID"),
      FIELD(EstimateTime, "EstimateTime"),
      FIELD(GroupName, "GroupName"),
      FIELD(PartPositionInGroup, "PartPositionInGroup"),
      FIELD(MaterialFile, "PreferredMaterial"),
      FIELD(RectangularTrueShape, "Rectangular/TrueShape"),
      Field<&Record::StackTableId, &Record::SetStackTableId>("StackTableId", "StackTable"),
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
      FIELD(IsMachineAvailable),
      FIELD(IsMaterialTypeAvailable),
      FIELD(IsMaterialThicknessAvailable),
      FIELD(IsMaterialGroupAvailable),
      FIELD(IsPreferredMaterialAvailable),
      FIELD(IsPartNumberAvailable),
      FIELD(IsCustomerAvailable),
      FIELD(IsPartCommentAvailable),
      FIELD(IsRevisionAvailable),
      FIELD(IsToolInventoryAvailable),
      FIELD(IsBinIDAvailable),
  };
  return kFields;
}

std::span<const RecordField> ToolFields() {
  using Record = ToolInformation;
  static constexpr RecordField kFields[] = {
      FIELD(ToolID, "ID"),
      FIELD(ToolType, "Type"),
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
  return kFields;
}

std::span<const RecordField> MaterialFields() {
  using Record = MaterialInfomation;
  static constexpr RecordField kFields[] = {
      FIELD(MatType, "MaterialType"),
      FIELD(MatFile, "MaterialFile"),
      FIELD(MachineFile, "MachineFile"),
      FIELD(MatComment, "MaterialComments"),
      FIELD(InLeadInType, "InternalLead-InType"),
      FIELD(InLeadInLength, "InternalLead-InLength"),
      FIELD(InLeadInAngle, "InternalLead-InAngle"),
      FIELD(InLeadInAngleRad, "InternalLead-InArcRadius"),
      FIELD(InLeadInLineToTangentArc, "InternalLead-InLineToTangentArc"),
      FIELD(InLeadInTwoLineSplit, "InternalLead-InTwoLineSplit"),
      FIELD(InLeadInFromPierceToCut, "InternalLead-InFromPierceToCut"),
      FIELD(InLeadOutType, "InternalLead-OutType"),
      FIELD(InLeadOutLength, "InternalLead-OutLength"),
      FIELD(InLeadOutAngle, "InternalLead-OutAngle"),
      FIELD(InLeadOutArcRad, "InternalLead-OutArcRadius"),
      FIELD(InLeadOutLineToTangentArc, "InternalLead-OutLineToTangentArc"),
      FIELD(InLeadOutOverUnderCutAmount, "InternalLead-OutOverUnderCutAmount"),
      FIELD(InLeadOutFromCutToEnd, "InternalLead-OutFromCutToEnd"),
      FIELD(ExLeadInType, "ExternalLead-InType"),
      FIELD(ExLeadInLength, "ExternalLead-InLength"),
      FIELD(ExLeadInAngle, "ExternalLead-InAngle"),
      FIELD(ExLeadInAngleRad, "ExternalLead-InArcRadius"),
      FIELD(ExLeadInLineToTangentArc, "ExternalLead-InLineToTangentArc"),
      FIELD(ExLeadInTwoLineSplit, "ExternalLead-InTwoLineSplit"),
      FIELD(ExLeadInFromPierceToCut, "ExternalLead-InFromPierceToCut"),
      FIELD(ExLeadOutType, "ExternalLead-OutType"),
      FIELD(ExLeadOutLength, "ExternalLead-OutLength"),
      FIELD(ExLeadOutAngle, "ExternalLead-OutAngle"),
      FIELD(ExLeadOutArcRad, "ExternalLead-OutArcRadius"),
      FIELD(ExLeadOutLineToTangentArc, "ExternalLead-OutLineToTangentArc"),
      FIELD(ExLeadOutOverUnderCutAmount, "ExternalLead-OutOverUnderCutAmount"),
      FIELD(ExLeadOutFromCutToEnd, "ExternalLead-OutFromCutToEnd"),
      FIELD(PierceType, "PierceType"),
      FIELD(PrePierceYesNo, "Pre-PierceYesNo"),
      FIELD(StandardPierceDataM103Ax, "StandardPierceDataM103Ax"),
      WRITTEN(RecoveryDisM105XY, "RecoveryDisM105XY"),
      FIELD(LaserPierceCondition, "PierceCondition"),
      FIELD(DwellBeforePierce, "DwellBeforePierce"),
      FIELD(DwellBeforePierceValue, "DwellBeforePierceValue"),
      FIELD(DwellAfterPierce, "DwellAfterPierce"),
      FIELD(DwellAfterPierceValue, "DwellAfterPierceValue"),
      FIELD(CutterCompensationBeamDiameter, "CutterCompensation-BeamDiameter"),
      FIELD(CutterCompensationCutterComp, "CutterCompensation-CutterComp"),
      FIELD(AfterCutConditionsInformation, "AfterCutConditions-Information"),
      FIELD(AfterCutConditionsDwell, "AfterCutConditions-Dwell"),
      FIELD(AfterCutConditionsRaise, "AfterCutConditions-Raise"),
      FIELD(Range1HoleMJID, "Range1HoleMJID"),
      FIELD(Range1HoleMJQuantity, "Range1HoleMJQuantity"),
      FIELD(Range1PerimeterMJID, "Range1PerimeterMJID"),
      FIELD(Range1PerimeterMJQuantity, "Range1PerimeterMJQuantity"),
      FIELD(Range2HoleMJID, "Range2HoleMJID"),
      FIELD(Range2HoleMJQuantity, "Range2HoleMJQuantity"),
      FIELD(Range2PerimeterMJID, "Range2PerimeterMJID"),
      FIELD(Range2PerimeterMJQuantity, "Range2PerimeterMJQuantity"),
      FIELD(Range3HoleMJID, "Range3HoleMJID"),
      FIELD(Range3HoleMJQuantity, "Range3HoleMJQuantity"),
      FIELD(Range3PerimeterMJID, "Range3PerimeterMJID"),
      FIELD(Range3PerimeterMJQuantity, "Range3PerimeterMJQuantity"),
      FIELD(MJLeadInLength, "MJLead-InLength"),
      FIELD(MJLeadInAngle, "MJLead-InAngle"),
      FIELD(MJLeadOutLength, "MJLead-OutLength"),
      FIELD(MJLeadOutAngle, "MJLead-OutAngle"),
      FIELD(CustomPeri_ComCutting_Style, "CustomPerimeterCut-CommonCutting-Style"),
      FIELD(CustomPeri_ComCutting_BeamDiameter, "CustomPerimeterCut-CommonCutting-BeamDiameter"),
      FIELD(CustomPeri_ComCutting_CuttingOverLength, "CustomPerimeterCut-CommonCutting-CuttingOverLength"),
      FIELD(CustomPeri_ComCutting_MinimumEdge, "CustomPerimeterCut-CommonCutting-MinimumEdge"),
      FIELD(CustomPeri_ComCutting_StartingCorner, "CustomPerimeterCut-CommonCutting-StartingCorner"),
      FIELD(CustomPeri_ComCutting_xDirection, "CustomPerimeterCut-ChainBridgeCutting-Direction"),
      FIELD(CustomPeri_ComCutting_BridgeSize, "CustomPerimeterCut-ChainBridgeCutting-BridgeSize"),
      FIELD(CustomPeri_ComCutting_MaxChanLength, "CustomPerimeterCut-ChainBridgeCutting-MaxChainLength"),
      FIELD(CustomPeri_ComCutting_DistancetoSkip, "CustomPerimeterCut-SkipParts-DistancetoSkip"),
      FIELD(LengthLeadinToSplitCutoutsMinWidth, "LengthLead-inToSplitCutouts-MinWidth"),
      FIELD(LengthLeadinToSplitCutoutsMaxWidth, "LengthLead-inToSplitCutouts-MaxWidth"),
      FIELD(SplitCutoutsSlugDestroyPitch, "SplitCutouts-SlugDestroyPitch"),
      FIELD(SplitCutoutsDoNotPierceNearEdge, "SplitCutouts-DoNotPierceNearEdge"),
      FIELD(SplitCutoutsBeamCompensation, "SplitCutouts-BeamCompensation"),
      FIELD(PeriNotchReliefLeadInType, "PerimeterNotchRelief-LeadInType"),
      FIELD(PeriNotchReliefLeadInLength, "PerimeterNotchRelief-LeadInLength"),
      FIELD(PeriNotchReliefLeadInFromPierceToCut, "PerimeterNotchRelief-LeadInFromPierceToCut"),
      FIELD(PeriNotchReliefLeadOutType, "PerimeterNotchRelief-LeadOutType"),
      FIELD(PeriNotchReliefLeadOutLength, "PerimeterNotchRelief-LeadOutLength"),
      FIELD(PeriNotchReliefLeadOutFromPierceToCut, "PerimeterNotchRelief-LeadOutFromPierceToCut"),
      FIELD(PeriNotchReliefNotchSplitCutXPitch, "PerimeterNotchRelief-NotchSplitCutX-Pitch"),
      FIELD(PeriNotchReliefNotchSplitCutYPitch, "PerimeterNotchRelief-NotchSplitCutY-Pitch"),
      FIELD(PeriNotchReliefDoubleCutsOffset, "PerimeterNotchRelief-DoubleCutsOffset"),
      FIELD(PeriNotchReliefAutoPerimeterNotchReliefAutoOffset,
            "PerimeterNotchRelief-AutoPerimeterNotchRelief-AutoOffset"),
      FIELD(PeriNotchReliefAutoPerimeterNotchReliefHeight,
            "PerimeterNotchRelief-AutoPerimeterNotchRelief-Height"),
      FIELD(PeriNotchReliefNotchCutOutRange, "PerimeterNotchRelief-NotchCutOutRange"),
      FIELD(SplitSheetLeadInType, "SplitSheet-LeadInType"),
      FIELD(SplitSheetLeadInLength, "SplitSheet-LeadInLength"),
      FIELD(SplitSheetLeadInAngle, "SplitSheet-LeadInAngle"),
      FIELD(SplitSheetLeadInFromPierceToCut, "SplitSheet-LeadInFromPierceToCut"),
      FIELD(SplitSheetLeadOutType, "SplitSheet-LeadOutType"),
      FIELD(SplitSheetLeadOutLength, "SplitSheet-LeadOutLength"),
      FIELD(SplitSheetLeadOutAngle, "SplitSheet-LeadOutAngle"),
      FIELD(SplitSheetLeadOutFromPierceToCut, "SplitSheet-LeadOutFromPierceToCut"),
      FIELD(SplitSheetHorizontalSplitCuts, "SplitSheet-HorizontalSplitCuts"),
      FIELD(SplitSheetVerticalSplitCuts, "SplitSheet-VerticalSplitCuts"),
      FIELD(SplitSheetBottomLeftEdge, "SplitSheet-BottomLeftEdge"),
      FIELD(SplitSheetTopRightEdge, "SplitSheet-TopRightEdge"),
      FIELD(SplitSheetBetweenParts, "SplitSheet-BetweenParts"),
      FIELD(SplitSheetMinSpace, "SplitSheet-MinSpace"),
      FIELD(InsideCutouts_MJSize, "InsideCutouts-MJSize"),
      FIELD(InsideCutouts_ExceedsX, "InsideCutouts-ExceedsX"),
      FIELD(InsideCutouts_IntervalX, "InsideCutouts-IntervalX"),
      FIELD(InsideCutouts_ExceedsY, "InsideCutouts-ExceedsY"),
      FIELD(InsideCutouts_IntervalY, "InsideCutouts-IntervalY"),
      FIELD(OutsideCutouts_MJSize, "OutsideCutouts-MJSize"),
      FIELD(OutsideCutouts_ExceedsX, "OutsideCutouts-ExceedsX"),
      FIELD(OutsideCutouts_IntervalX, "OutsideCutouts-IntervalX"),
      FIELD(OutsideCutouts_ExceedsY, "OutsideCutouts-ExceedsY ", "OutsideCutouts-ExceedsY"),
      FIELD(OutsideCutouts_IntervalY, "OutsideCutouts-IntervalY"),
      WRITTEN(MJTool, "MJ-Tool"),
      WRITTEN(PierceHoleTool, "PierceHoleTool"),
  };
  return kFields;
}

std::span<const RecordField> SheetFields() {
  using Record = ShtInfo;
  static constexpr RecordField kFields[] = {
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
  return kFields;
}

std::span<const RecordField> UsedToolInfoFields() {
  using Record = UsedToolInfo;
  static constexpr RecordField kFields[] = {
      MEMBER(ToolShape, "ToolShape"),
      MEMBER(ToolType, "ToolType"),
      MEMBER(ToolDescription, "ToolDescription"),
      MEMBER(StaSize, "StaSize"),
      MEMBER(ToolSta, "ToolSta"),
  };
  return kFields;
}

const RecordType kUsedToolInfo = TypeOf<UsedToolInfo>("UsedToolInfo", UsedToolInfoFields());

std::span<const RecordField> HoleInfoFields() {
  using Record = HoleInfo;
  static constexpr RecordField kFields[] = {
      MEMBER(HoleType, "HoleType"), MEMBER(HoleDimX, "HoleDimX"),         MEMBER(HoleDimY, "HoleDimY"),
      MEMBER(HoleDimR, "HoleDimR"), MEMBER(HoleQuantity, "HoleQuantity"),
  };
  return kFields;
}

const RecordType kHoleInfo = TypeOf<HoleInfo>("HoleInfo", HoleInfoFields());

std::span<const RecordField> BendInfoFields() {
  using Record = BendInfo;
  static constexpr RecordField kFields[] = {
      MEMBER(BendAngle, "BendAngle"),         MEMBER(BendRadius, "BendRadius"),
      MEMBER(BendDeduction, "BendDeduction"), MEMBER(BendType, "BendType"),
      MEMBER(BendComments, "BendComments"),
  };
  return kFields;
}

const RecordType kBendInfo = TypeOf<BendInfo>("BendInfo", BendInfoFields());

std::span<const RecordField> PartProgramFields() {
  using Record = PrtInfo;
  static const RecordField kFields[] = {
      WRITTEN(PartName, "PartName"),
      FIELD(Customer, "Customer"),
      FIELD(PartNumber, "PartNumber"),
      WRITTEN(PartSizeX, "PartSizeX"),
      WRITTEN(PartSizeY, "PartSizeY"),
      FIELD(ProgrammerName, "ProgrammerName"),
      FIELD(DefaultRotation, "DefaultRotation"),
      FIELD(Revision, "Revision"),
      WRITTEN(EstimateTime, "PartEstimatedTime"),
      FIELD(Comments, "Comments"),
      WRITTEN(PartDefaultPosition, "PartDefaultPosition"),
      WRITTEN(AverProcessTime, "AveProcTime"),
      WRITTEN(GridSpacingH, "GridSpacingH"),
      WRITTEN(GridSpacingV, "GridSpacingV"),
      WRITTEN(MarginTop, "MarginT"),
      WRITTEN(MarginBottom, "MarginB"),
      WRITTEN(MarginLeft, "MarginL"),
      WRITTEN(MarginRight, "MarginR"),
      FIELD(Machine, "PrefMachine"),
      FIELD(ToolInventory, "PrefInventory"),
      FIELD(MaterialFile, "PrefMaterialFile"),
      FIELD(MaterialGroup, "PrefMaterialGroup"),
      FIELD(MaterialType, "PrefMaterialType"),
      FIELD(SheetSizeX, "SheetSizeX"),
      FIELD(SheetSizeY, "SheetSizeY"),
      FIELD(MaterialThickness, "MaterialThickness"),
      WRITTEN(ClampPosition, "ClampPosition"),
      LIST(UsedToolInfo),
      LIST(HoleInfo),
      LIST(BendInfo),
  };
  return kFields;
}

std::span<const RecordField> MaterialInventoryFields() {
  using Record = MatAmncITInfo;
  static constexpr RecordField kFields[] = {
      FIELD(ShelfNo, "ShelfNo"),       FIELD(Quantity, "Quantity"), FIELD(MaterialName, "MatName"),
      FIELD(Thickness, "Thickness"),   FIELD(SizeX, "SizeX"),       FIELD(SizeY, "SizeY"),
      FIELD(Palletkind, "PalletKind"),
  };
  return kFields;
}

std::span<const RecordField> MaterialLibraryFields() {
  using Record = MatLibraryInfo;
  static constexpr RecordField kFields[] = {
      MEMBER(MaterialCode, "MaterialCode"),
      MEMBER(MaterialDescription, "MaterialDescription"),
      MEMBER(CustomerMaterialType, "CustomerMaterialType"),
      MEMBER(MaterialType, "MaterialType"),
      MEMBER(Thickness, "Thickness", "MaterialThickness"),
      MEMBER(SizeX, "SizeX"),
      MEMBER(SizeY, "SizeY"),
      MEMBER(Coating, "Coating"),
      MEMBER(Quantity, "Quantity"),
      MEMBER(ShelfNo, "ShelfNo"),
  };
  return kFields;
}

std::span<const RecordField> JobProgressFields() {
  using Record = JobProgressInfo;
  static constexpr RecordField kFields[] = {
      WRITTEN(JobName, "JobName"),           WRITTEN(JobProgress, "JobProgress"),
      WRITTEN(StartTime, "StartTime"),       WRITTEN(EndTime, "EndTime"),
      WRITTEN(TotalPartQty, "TotalPartQty"), WRITTEN(TotalDoneQty, "TotalDoneQty"),
      WRITTEN(MatType, "MaterialType"),      WRITTEN(Thickness, "Thickness"),
  };
  return kFields;
}

}  // namespace

std::span<const RecordType> RecordTypes() {
  static const RecordType kTypes[] = {
      TypeOf<PartInformation>("parts", PartFields()),
      TypeOf<ToolInformation>("tools", ToolFields(), true),
      TypeOf<MaterialInfomation>("materials", MaterialFields(), true),
      TypeOf<ShtInfo>("sheets", SheetFields()),
      TypeOf<PrtInfo>("part-programs", PartProgramFields()),
      TypeOf<MatAmncITInfo>("material-inventory", MaterialInventoryFields()),
      TypeOf<MatLibraryInfo>("material-library", MaterialLibraryFields(), true),
      TypeOf<JobProgressInfo>("job-progress", JobProgressFields()),
  };
  return kTypes;
}

}  // namespace qv
