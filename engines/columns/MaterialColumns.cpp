#include "engines/columns/Cells.h"
#include "engines/columns/ColumnTables.h"

#include <array>

namespace qv {
namespace {

using M = MaterialInfomation;

// Which corners a common-cutting style offers, and so what a corner number is called, depends on the style.
constexpr std::array<std::array<std::string_view, 4>, 3> kStartingCornersByStyle = {{
    {"top left", "top right", "bottom left", "bottom right"},
    {"top left", "top right"},
    {"top left", "top right", "no prefer"},
}};

template <auto Corner, auto Style>
bool WriteStartingCorner(const M& material, std::size_t, TextBuffer& out) {
  const int corner = material.*Corner;
  const int style = material.*Style;
  if (style < 0 || style > 2 || corner < 1 || corner > 4) return true;
  out += kStartingCornersByStyle[static_cast<std::size_t>(style)][static_cast<std::size_t>(corner - 1)];
  return true;
}

}  // namespace

std::span<const Column<M>> ColumnTable<M>::Columns() {
  static constexpr Column<M> kColumns[] = {
      Text<&M::matType_>("MaterialType"),
      Text<&M::machineFile_>("MachineFile"),
      Text<&M::matFile_>("MaterialFile"),
      Text<&M::matComment_>("MaterialComments"),
      Text<&M::inLeadInType_>("InternalLead-InType"),
      Real<&M::inLeadInLength_>("InternalLead-InLength"),
      Real<&M::inLeadInAngle_>("InternalLead-InAngle"),
      Real<&M::inLeadInAngleRad_>("InternalLead-InArcRadius"),
      Real<&M::inLeadInLineToTangentArc_>("InternalLead-InLineToTangentArc"),
      Real<&M::inLeadInTwoLineSplit_>("InternalLead-InTwoLineSplit"),
      Real<&M::inLeadInFromPierceToCut_>("InternalLead-InFromPierceToCut"),
      Text<&M::inLeadOutType_>("InternalLead-OutType"),
      Real<&M::inLeadOutLength_>("InternalLead-OutLength"),
      Real<&M::inLeadOutAngle_>("InternalLead-OutAngle"),
      Real<&M::inLeadOutArcRad_>("InternalLead-OutArcRadius"),
      Real<&M::inLeadOutLineToTangentArc_>("InternalLead-OutLineToTangentArc"),
      Real<&M::inLeadOutOverUnderCutAmount_>("InternalLead-OutOverUnderCutAmount"),
      Real<&M::inLeadOutFromCutToEnd_>("InternalLead-OutFromCutToEnd"),
      Text<&M::exLeadInType_>("ExternalLead-InType"),
      Real<&M::exLeadInLength_>("ExternalLead-InLength"),
      Real<&M::exLeadInAngle_>("ExternalLead-InAngle"),
      Real<&M::exLeadInAngleRad_>("ExternalLead-InArcRadius"),
      Real<&M::exLeadInLineToTangentArc_>("ExternalLead-InLineToTangentArc"),
      Real<&M::exLeadInTwoLineSplit_>("ExternalLead-InTwoLineSplit"),
      Real<&M::exLeadInFromPierceToCut_>("ExternalLead-InFromPierceToCut"),
      Text<&M::exLeadOutType_>("ExternalLead-OutType"),
      Real<&M::exLeadOutLength_>("ExternalLead-OutLength"),
      Real<&M::exLeadOutAngle_>("ExternalLead-OutAngle"),
      Real<&M::exLeadOutArcRad_>("ExternalLead-OutArcRadius"),
      Real<&M::exLeadOutLineToTangentArc_>("ExternalLead-OutLineToTangentArc"),
      Real<&M::exLeadOutOverUnderCutAmount_>("ExternalLead-OutOverUnderCutAmount"),
      Real<&M::exLeadOutFromCutToEnd_>("ExternalLead-OutFromCutToEnd"),
      Words<&M::pierceType_, kPierceTypesRead, kPierceTypesWritten>("PierceType"),
      Words<&M::prePierceYesNo_, kYesNo>("Pre-PierceYesNo"),
      Real<&M::standardPierceDataM103Ax_>("StandardPierceDataM103Ax"),
      RealWritten<&M::recoveryDisM105XY_>("RecoveryDisM105XY"),
      Real<&M::laserPierceCondition_>("PierceCondition"),
      Words<&M::dwellBeforePierce_, kYesNo>("DwellBeforePierce"),
      Real<&M::dwellBeforePierceValue_>("DwellBeforePierceValue"),
      Words<&M::dwellAfterPierce_, kYesNo>("DwellAfterPierce"),
      Real<&M::dwellAfterPierceValue_>("DwellAfterPierceValue"),
      Real<&M::cutterCompensationBeamDiameter_>("CutterCompensation-BeamDiameter"),
      Real<&M::cutterCompensationCutterComp_>("CutterCompensation-CutterComp"),
      Words<&M::afterCutConditionsInformation_, kAfterCutInformation>("AfterCutConditions-Information"),
      Words<&M::afterCutConditionsDwell_, kYesNo>("AfterCutConditions-Dwell"),
      Words<&M::afterCutConditionsRaise_, kYesNo>("AfterCutConditions-Raise"),
      Int<&M::range1HoleMJID_>("Range1HoleMJID"),
      Int<&M::range1HoleMJQuantity_>("Range1HoleMJQuantity"),
      Int<&M::range1PerimeterMJID_>("Range1PerimeterMJID"),
      Int<&M::range1PerimeterMJQuantity_>("Range1PerimeterMJQuantity"),
      Int<&M::range2HoleMJID_>("Range2HoleMJID"),
      Int<&M::range2HoleMJQuantity_>("Range2HoleMJQuantity"),
      Int<&M::range2PerimeterMJID_>("Range2PerimeterMJID"),
      Int<&M::range2PerimeterMJQuantity_>("Range2PerimeterMJQuantity"),
      Int<&M::range3HoleMJID_>("Range3HoleMJID"),
      Int<&M::range3HoleMJQuantity_>("Range3HoleMJQuantity"),
      Int<&M::range3PerimeterMJID_>("Range3PerimeterMJID"),
      Int<&M::range3PerimeterMJQuantity_>("Range3PerimeterMJQuantity"),
      Real<&M::mJLeadInLength_>("MJLead-InLength"),
      Real<&M::mJLeadInAngle_>("MJLead-InAngle"),
      Real<&M::mJLeadOutLength_>("MJLead-OutLength"),
      Real<&M::mJLeadOutAngle_>("MJLead-OutAngle"),
      Words<&M::customPeri_ComCutting_Style_, kCommonCuttingStyles>("CustomPerimeterCut-CommonCutting-Style"),
      Real<&M::customPeri_ComCutting_BeamDiameter_>("CustomPerimeterCut-CommonCutting-BeamDiameter"),
      Real<&M::customPeri_ComCutting_CuttingOverLength_>(
          "CustomPerimeterCut-CommonCutting-CuttingOverLength"),
      Real<&M::customPeri_ComCutting_MinimumEdge_>("CustomPerimeterCut-CommonCutting-MinimumEdge"),
      {"CustomPerimeterCut-CommonCutting-StartingCorner",
       ReadWord<&M::customPeri_ComCutting_StartingCorner_, kStartingCornersRead>,
       WriteStartingCorner<&M::customPeri_ComCutting_StartingCorner_, &M::customPeri_ComCutting_Style_>},
      Words<&M::customPeri_ComCutting_xDirection_, kChainDirections>(
          "CustomPerimeterCut-ChainBridgeCutting-Direction"),
      Real<&M::customPeri_ComCutting_BridgeSize_>("CustomPerimeterCut-ChainBridgeCutting-BridgeSize"),
      Real<&M::customPeri_ComCutting_MaxChanLength_>("CustomPerimeterCut-ChainBridgeCutting-MaxChainLength"),
      Real<&M::customPeri_ComCutting_DistancetoSkip_>("CustomPerimeterCut-SkipParts-DistancetoSkip"),
      Real<&M::lengthLeadinToSplitCutoutsMinWidth_>("LengthLead-inToSplitCutouts-MinWidth"),
      Real<&M::lengthLeadinToSplitCutoutsMaxWidth_>("LengthLead-inToSplitCutouts-MaxWidth"),
      Real<&M::splitCutoutsSlugDestroyPitch_>("SplitCutouts-SlugDestroyPitch"),
      Words<&M::splitCutoutsDoNotPierceNearEdge_, kYesUnlessNo>("SplitCutouts-DoNotPierceNearEdge"),
      Real<&M::splitCutoutsBeamCompensation_>("SplitCutouts-BeamCompensation"),
      Words<&M::periNotchReliefLeadInType_, kLeadTypes>("PerimeterNotchRelief-LeadInType"),
      Real<&M::periNotchReliefLeadInLength_>("PerimeterNotchRelief-LeadInLength"),
      Real<&M::periNotchReliefLeadInFromPierceToCut_>("PerimeterNotchRelief-LeadInFromPierceToCut"),
      Words<&M::periNotchReliefLeadOutType_, kLeadTypes>("PerimeterNotchRelief-LeadOutType"),
      Real<&M::periNotchReliefLeadOutLength_>("PerimeterNotchRelief-LeadOutLength"),
      Real<&M::periNotchReliefLeadOutFromPierceToCut_>("PerimeterNotchRelief-LeadOutFromPierceToCut"),
      Real<&M::periNotchReliefNotchSplitCutXPitch_>("PerimeterNotchRelief-NotchSplitCutX-Pitch"),
      Real<&M::periNotchReliefNotchSplitCutYPitch_>("PerimeterNotchRelief-NotchSplitCutY-Pitch"),
      Real<&M::periNotchReliefDoubleCutsOffset_>("PerimeterNotchRelief-DoubleCutsOffset"),
      Real<&M::periNotchReliefAutoPerimeterNotchReliefAutoOffset_>(
          "PerimeterNotchRelief-AutoPerimeterNotchRelief-AutoOffset"),
      Real<&M::periNotchReliefAutoPerimeterNotchReliefHeight_>(
          "PerimeterNotchRelief-AutoPerimeterNotchRelief-Height"),
      Real<&M::periNotchReliefNotchCutOutRange_>("PerimeterNotchRelief-NotchCutOutRange"),
      Words<&M::splitSheetLeadInType_, kLeadTypes>("SplitSheet-LeadInType"),
      Real<&M::splitSheetLeadInLength_>("SplitSheet-LeadInLength"),
      Real<&M::splitSheetLeadInAngle_>("SplitSheet-LeadInAngle"),
      Real<&M::splitSheetLeadInFromPierceToCut_>("SplitSheet-LeadInFromPierceToCut"),
      Words<&M::splitSheetLeadOutType_, kLeadTypes>("SplitSheet-LeadOutType"),
      Real<&M::splitSheetLeadOutLength_>("SplitSheet-LeadOutLength"),
      Real<&M::splitSheetLeadOutAngle_>("SplitSheet-LeadOutAngle"),
      Real<&M::splitSheetLeadOutFromPierceToCut_>("SplitSheet-LeadOutFromPierceToCut"),
      Real<&M::splitSheetHorizontalSplitCuts_>("SplitSheet-HorizontalSplitCuts"),
      Real<&M::splitSheetVerticalSplitCuts_>("SplitSheet-VerticalSplitCuts"),
      Real<&M::splitSheetBottomLeftEdge_>("SplitSheet-BottomLeftEdge"),
      Real<&M::splitSheetTopRightEdge_>("SplitSheet-TopRightEdge"),
      Real<&M::splitSheetBetweenParts_>("SplitSheet-BetweenParts"),
      Real<&M::splitSheetMinSpace_>("SplitSheet-MinSpace"),
      Real<&M::insideCutouts_MJSize_>("InsideCutouts-MJSize"),
      Real<&M::insideCutouts_ExceedsX_>("InsideCutouts-ExceedsX"),
      Real<&M::insideCutouts_IntervalX_>("InsideCutouts-IntervalX"),
      Real<&M::insideCutouts_ExceedsY_>("InsideCutouts-ExceedsY"),
      Real<&M::insideCutouts_IntervalY_>("InsideCutouts-IntervalY"),
      Real<&M::outsideCutouts_MJSize_>("OutsideCutouts-MJSize"),
      Real<&M::outsideCutouts_ExceedsX_>("OutsideCutouts-ExceedsX"),
      Real<&M::outsideCutouts_IntervalX_>("OutsideCutouts-IntervalX"),
      // Read under a keyword that ends with a blank, written under one that does not: the files that carry
      // the blank have always been the only ones read.
      RealRead<&M::outsideCutouts_ExceedsY_>("OutsideCutouts-ExceedsY "),
      RealWritten<&M::outsideCutouts_ExceedsY_>("OutsideCutouts-ExceedsY"),
      Real<&M::outsideCutouts_IntervalY_>("OutsideCutouts-IntervalY"),
      TextWritten<&M::pierceHoleTool_>("PierceHoleTool"),
      TextWritten<&M::mJTool_>("MJ-Tool"),
  };
  return kColumns;
}

}  // namespace qv
