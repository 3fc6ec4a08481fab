#include "engines/columns/FieldRows.h"

#include <array>

namespace qv {
namespace {

using Record = MaterialInfomation;

// Which corners a common-cutting style offers, and so what a corner number is called, depends on the style.
constexpr std::array<std::array<std::string_view, 4>, 3> kStartingCornersByStyle = {{
    {"top left", "top right", "bottom left", "bottom right"},
    {"top left", "top right"},
    {"top left", "top right", "no prefer"},
}};

template <auto Corner, auto Style>
bool WriteStartingCorner(const Record& material, std::size_t, TextBuffer& out) {
  const int corner = material.*Corner;
  const int style = material.*Style;
  if (style < 0 || style > 2 || corner < 1 || corner > 4) return true;
  out += kStartingCornersByStyle[static_cast<std::size_t>(style)][static_cast<std::size_t>(corner - 1)];
  return true;
}

}  // namespace

template <>
TableOf<Record> ColumnTable<Record>::Table() {
  static constexpr Field<Record> kRows[] = {
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
      WORDS(PierceType, "PierceType", kPierceTypesRead, kPierceTypesWritten),
      WORDS(PrePierceYesNo, "Pre-PierceYesNo", kYesNo),
      FIELD(StandardPierceDataM103Ax, "StandardPierceDataM103Ax"),
      WRITTEN(RecoveryDisM105XY, "RecoveryDisM105XY"),
      FIELD(LaserPierceCondition, "PierceCondition"),
      WORDS(DwellBeforePierce, "DwellBeforePierce", kYesNo),
      FIELD(DwellBeforePierceValue, "DwellBeforePierceValue"),
      WORDS(DwellAfterPierce, "DwellAfterPierce", kYesNo),
      FIELD(DwellAfterPierceValue, "DwellAfterPierceValue"),
      FIELD(CutterCompensationBeamDiameter, "CutterCompensation-BeamDiameter"),
      FIELD(CutterCompensationCutterComp, "CutterCompensation-CutterComp"),
      WORDS(AfterCutConditionsInformation, "AfterCutConditions-Information", kAfterCutInformation),
      WORDS(AfterCutConditionsDwell, "AfterCutConditions-Dwell", kYesNo),
      WORDS(AfterCutConditionsRaise, "AfterCutConditions-Raise", kYesNo),
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
      WORDS(CustomPeri_ComCutting_Style, "CustomPerimeterCut-CommonCutting-Style", kCommonCuttingStyles),
      FIELD(CustomPeri_ComCutting_BeamDiameter, "CustomPerimeterCut-CommonCutting-BeamDiameter"),
      FIELD(CustomPeri_ComCutting_CuttingOverLength, "CustomPerimeterCut-CommonCutting-CuttingOverLength"),
      FIELD(CustomPeri_ComCutting_MinimumEdge, "CustomPerimeterCut-CommonCutting-MinimumEdge"),
      WORDS(CustomPeri_ComCutting_StartingCorner, "CustomPerimeterCut-CommonCutting-StartingCorner",
            kStartingCornersRead)
          .WrittenBy(WriteStartingCorner<&Record::CustomPeri_ComCutting_StartingCorner_,
                                         &Record::CustomPeri_ComCutting_Style_>),
      WORDS(CustomPeri_ComCutting_xDirection, "CustomPerimeterCut-ChainBridgeCutting-Direction",
            kChainDirections),
      FIELD(CustomPeri_ComCutting_BridgeSize, "CustomPerimeterCut-ChainBridgeCutting-BridgeSize"),
      FIELD(CustomPeri_ComCutting_MaxChanLength, "CustomPerimeterCut-ChainBridgeCutting-MaxChainLength"),
      FIELD(CustomPeri_ComCutting_DistancetoSkip, "CustomPerimeterCut-SkipParts-DistancetoSkip"),
      FIELD(LengthLeadinToSplitCutoutsMinWidth, "LengthLead-inToSplitCutouts-MinWidth"),
      FIELD(LengthLeadinToSplitCutoutsMaxWidth, "LengthLead-inToSplitCutouts-MaxWidth"),
      FIELD(SplitCutoutsSlugDestroyPitch, "SplitCutouts-SlugDestroyPitch"),
      WORDS(SplitCutoutsDoNotPierceNearEdge, "SplitCutouts-DoNotPierceNearEdge", kYesUnlessNo),
      FIELD(SplitCutoutsBeamCompensation, "SplitCutouts-BeamCompensation"),
      WORDS(PeriNotchReliefLeadInType, "PerimeterNotchRelief-LeadInType", kLeadTypes),
      FIELD(PeriNotchReliefLeadInLength, "PerimeterNotchRelief-LeadInLength"),
      FIELD(PeriNotchReliefLeadInFromPierceToCut, "PerimeterNotchRelief-LeadInFromPierceToCut"),
      WORDS(PeriNotchReliefLeadOutType, "PerimeterNotchRelief-LeadOutType", kLeadTypes),
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
      WORDS(SplitSheetLeadInType, "SplitSheet-LeadInType", kLeadTypes),
      FIELD(SplitSheetLeadInLength, "SplitSheet-LeadInLength"),
      FIELD(SplitSheetLeadInAngle, "SplitSheet-LeadInAngle"),
      FIELD(SplitSheetLeadInFromPierceToCut, "SplitSheet-LeadInFromPierceToCut"),
      WORDS(SplitSheetLeadOutType, "SplitSheet-LeadOutType", kLeadTypes),
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
      // Read under a keyword that ends with a blank, written under one that does not: the files that carry
      // the blank have always been the only ones read.
      READ(OutsideCutouts_ExceedsY, "OutsideCutouts-ExceedsY ")
          .And(Written<&Record::OutsideCutouts_ExceedsY_>("OutsideCutouts-ExceedsY")),
      FIELD(OutsideCutouts_IntervalY, "OutsideCutouts-IntervalY"),
      WRITTEN(MJTool, "MJ-Tool"),
      WRITTEN(PierceHoleTool, "PierceHoleTool"),
  };
  return MakeTable<Record, kRows>();
}

}  // namespace qv
