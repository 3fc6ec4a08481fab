#include <QVAssemblyFile/MaterialInfomation.h>

#include "records/Accessors.h"

#include <utility>

MaterialInfomation::MaterialInfomation() = default;
MaterialInfomation::MaterialInfomation(const MaterialInfomation& other) = default;
MaterialInfomation& MaterialInfomation::operator=(const MaterialInfomation& other) = default;
MaterialInfomation::~MaterialInfomation() = default;

QV_STRING_BY_VALUE(MaterialInfomation, MatType, matType_)
QV_STRING_BY_VALUE(MaterialInfomation, MJTool, mJTool_)
QV_STRING_BY_VALUE(MaterialInfomation, PierceHoleTool, pierceHoleTool_)

QV_TEXT(MaterialInfomation, GetMatFile, SetMatFile, matFile_)
QV_TEXT(MaterialInfomation, GetMachineFile, SetMachineFile, machineFile_)
QV_TEXT(MaterialInfomation, GetMatComment, SetMatComment, matComment_)
QV_TEXT(MaterialInfomation, GetInLeadInType, SetInLeadInType, inLeadInType_)
QV_TEXT(MaterialInfomation, GetInLeadOutType, SetInLeadOutType, inLeadOutType_)
QV_TEXT(MaterialInfomation, GetExLeadInType, SetExLeadInType, exLeadInType_)
QV_TEXT(MaterialInfomation, GetExLeadOutType, SetExLeadOutType, exLeadOutType_)

QV_VALUE(MaterialInfomation, float, InLeadInLength, inLeadInLength_)
QV_VALUE(MaterialInfomation, float, InLeadInAngle, inLeadInAngle_)
QV_VALUE(MaterialInfomation, float, InLeadInAngleRad, inLeadInAngleRad_)
QV_VALUE(MaterialInfomation, float, InLeadInLineToTangentArc, inLeadInLineToTangentArc_)
QV_VALUE(MaterialInfomation, float, InLeadInTwoLineSplit, inLeadInTwoLineSplit_)
QV_VALUE(MaterialInfomation, float, InLeadInFromPierceToCut, inLeadInFromPierceToCut_)
QV_VALUE(MaterialInfomation, float, InLeadOutLength, inLeadOutLength_)
QV_VALUE(MaterialInfomation, float, InLeadOutAngle, inLeadOutAngle_)
QV_VALUE(MaterialInfomation, float, InLeadOutArcRad, inLeadOutArcRad_)
QV_VALUE(MaterialInfomation, float, InLeadOutLineToTangentArc, inLeadOutLineToTangentArc_)
QV_VALUE(MaterialInfomation, float, InLeadOutOverUnderCutAmount, inLeadOutOverUnderCutAmount_)
QV_VALUE(MaterialInfomation, float, InLeadOutFromCutToEnd, inLeadOutFromCutToEnd_)

QV_VALUE(MaterialInfomation, float, ExLeadInLength, exLeadInLength_)
QV_VALUE(MaterialInfomation, float, ExLeadInAngle, exLeadInAngle_)
QV_VALUE(MaterialInfomation, float, ExLeadInAngleRad, exLeadInAngleRad_)
QV_VALUE(MaterialInfomation, float, ExLeadInLineToTangentArc, exLeadInLineToTangentArc_)
QV_VALUE(MaterialInfomation, float, ExLeadInTwoLineSplit, exLeadInTwoLineSplit_)
QV_VALUE(MaterialInfomation, float, ExLeadInFromPierceToCut, exLeadInFromPierceToCut_)
QV_VALUE(MaterialInfomation, float, ExLeadOutLength, exLeadOutLength_)
QV_VALUE(MaterialInfomation, float, ExLeadOutAngle, exLeadOutAngle_)
QV_VALUE(MaterialInfomation, float, ExLeadOutArcRad, exLeadOutArcRad_)
QV_VALUE(MaterialInfomation, float, ExLeadOutLineToTangentArc, exLeadOutLineToTangentArc_)
QV_VALUE(MaterialInfomation, float, ExLeadOutOverUnderCutAmount, exLeadOutOverUnderCutAmount_)
QV_VALUE(MaterialInfomation, float, ExLeadOutFromCutToEnd, exLeadOutFromCutToEnd_)

QV_VALUE(MaterialInfomation, int, PierceType, pierceType_)
QV_VALUE(MaterialInfomation, bool, PrePierceYesNo, prePierceYesNo_)
QV_VALUE(MaterialInfomation, float, StandardPierceDataM103Ax, standardPierceDataM103Ax_)
QV_VALUE(MaterialInfomation, float, RecoveryDisM105XY, recoveryDisM105XY_)
QV_VALUE(MaterialInfomation, float, LaserPierceCondition, laserPierceCondition_)
QV_VALUE(MaterialInfomation, int, DwellBeforePierce, dwellBeforePierce_)
QV_VALUE(MaterialInfomation, float, DwellBeforePierceValue, dwellBeforePierceValue_)
QV_VALUE(MaterialInfomation, int, DwellAfterPierce, dwellAfterPierce_)
QV_VALUE(MaterialInfomation, float, DwellAfterPierceValue, dwellAfterPierceValue_)
QV_VALUE(MaterialInfomation, float, CutterCompensationBeamDiameter, cutterCompensationBeamDiameter_)
QV_VALUE(MaterialInfomation, float, CutterCompensationCutterComp, cutterCompensationCutterComp_)

QV_VALUE(MaterialInfomation, int, AfterCutConditionsInformation, afterCutConditionsInformation_)
QV_VALUE(MaterialInfomation, bool, AfterCutConditionsDwell, afterCutConditionsDwell_)
QV_VALUE(MaterialInfomation, bool, AfterCutConditionsRaise, afterCutConditionsRaise_)

QV_VALUE(MaterialInfomation, int, Range1HoleMJID, range1HoleMJID_)
QV_VALUE(MaterialInfomation, int, Range1HoleMJQuantity, range1HoleMJQuantity_)
QV_VALUE(MaterialInfomation, int, Range1PerimeterMJID, range1PerimeterMJID_)
QV_VALUE(MaterialInfomation, int, Range1PerimeterMJQuantity, range1PerimeterMJQuantity_)
QV_VALUE(MaterialInfomation, int, Range2HoleMJID, range2HoleMJID_)
QV_VALUE(MaterialInfomation, int, Range2HoleMJQuantity, range2HoleMJQuantity_)
QV_VALUE(MaterialInfomation, int, Range2PerimeterMJID, range2PerimeterMJID_)
QV_VALUE(MaterialInfomation, int, Range2PerimeterMJQuantity, range2PerimeterMJQuantity_)
QV_VALUE(MaterialInfomation, int, Range3HoleMJID, range3HoleMJID_)
QV_VALUE(MaterialInfomation, int, Range3HoleMJQuantity, range3HoleMJQuantity_)
QV_VALUE(MaterialInfomation, int, Range3PerimeterMJID, range3PerimeterMJID_)
QV_VALUE(MaterialInfomation, int, Range3PerimeterMJQuantity, range3PerimeterMJQuantity_)
QV_VALUE(MaterialInfomation, float, MJLeadInLength, mJLeadInLength_)
QV_VALUE(MaterialInfomation, float, MJLeadInAngle, mJLeadInAngle_)
QV_VALUE(MaterialInfomation, float, MJLeadOutLength, mJLeadOutLength_)
QV_VALUE(MaterialInfomation, float, MJLeadOutAngle, mJLeadOutAngle_)

QV_VALUE(MaterialInfomation, int, CustomPeri_ComCutting_Style, customPeri_ComCutting_Style_)
QV_VALUE(MaterialInfomation, float, CustomPeri_ComCutting_BeamDiameter, customPeri_ComCutting_BeamDiameter_)
QV_VALUE(MaterialInfomation, float, CustomPeri_ComCutting_CuttingOverLength,
         customPeri_ComCutting_CuttingOverLength_)
QV_VALUE(MaterialInfomation, float, CustomPeri_ComCutting_MinimumEdge, customPeri_ComCutting_MinimumEdge_)
QV_VALUE(MaterialInfomation, int, CustomPeri_ComCutting_StartingCorner, customPeri_ComCutting_StartingCorner_)
QV_VALUE(MaterialInfomation, bool, CustomPeri_ComCutting_xDirection, customPeri_ComCutting_xDirection_)
QV_VALUE(MaterialInfomation, float, CustomPeri_ComCutting_BridgeSize, customPeri_ComCutting_BridgeSize_)
QV_VALUE(MaterialInfomation, float, CustomPeri_ComCutting_MaxChanLength, customPeri_ComCutting_MaxChanLength_)
QV_VALUE(MaterialInfomation, float, CustomPeri_ComCutting_DistancetoSkip,
         customPeri_ComCutting_DistancetoSkip_)

QV_VALUE(MaterialInfomation, float, LengthLeadinToSplitCutoutsMinWidth, lengthLeadinToSplitCutoutsMinWidth_)
QV_VALUE(MaterialInfomation, float, LengthLeadinToSplitCutoutsMaxWidth, lengthLeadinToSplitCutoutsMaxWidth_)
QV_VALUE(MaterialInfomation, float, SplitCutoutsSlugDestroyPitch, splitCutoutsSlugDestroyPitch_)
QV_VALUE(MaterialInfomation, bool, SplitCutoutsDoNotPierceNearEdge, splitCutoutsDoNotPierceNearEdge_)
QV_VALUE(MaterialInfomation, float, SplitCutoutsBeamCompensation, splitCutoutsBeamCompensation_)

QV_VALUE(MaterialInfomation, int, PeriNotchReliefLeadInType, periNotchReliefLeadInType_)
QV_VALUE(MaterialInfomation, float, PeriNotchReliefLeadInLength, periNotchReliefLeadInLength_)
QV_VALUE(MaterialInfomation, float, PeriNotchReliefLeadInFromPierceToCut,
         periNotchReliefLeadInFromPierceToCut_)
QV_VALUE(MaterialInfomation, int, PeriNotchReliefLeadOutType, periNotchReliefLeadOutType_)
QV_VALUE(MaterialInfomation, float, PeriNotchReliefLeadOutLength, periNotchReliefLeadOutLength_)
QV_VALUE(MaterialInfomation, float, PeriNotchReliefLeadOutFromPierceToCut,
         periNotchReliefLeadOutFromPierceToCut_)
QV_VALUE(MaterialInfomation, float, PeriNotchReliefNotchSplitCutXPitch, periNotchReliefNotchSplitCutXPitch_)
QV_VALUE(MaterialInfomation, float, PeriNotchReliefNotchSplitCutYPitch, periNotchReliefNotchSplitCutYPitch_)
QV_VALUE(MaterialInfomation, float, PeriNotchReliefDoubleCutsOffset, periNotchReliefDoubleCutsOffset_)
QV_VALUE(MaterialInfomation, float, PeriNotchReliefAutoPerimeterNotchReliefAutoOffset,
         periNotchReliefAutoPerimeterNotchReliefAutoOffset_)
QV_VALUE(MaterialInfomation, float, PeriNotchReliefAutoPerimeterNotchReliefHeight,
         periNotchReliefAutoPerimeterNotchReliefHeight_)
QV_VALUE(MaterialInfomation, float, PeriNotchReliefNotchCutOutRange, periNotchReliefNotchCutOutRange_)

QV_VALUE(MaterialInfomation, int, SplitSheetLeadInType, splitSheetLeadInType_)
QV_VALUE(MaterialInfomation, float, SplitSheetLeadInLength, splitSheetLeadInLength_)
QV_VALUE(MaterialInfomation, float, SplitSheetLeadInAngle, splitSheetLeadInAngle_)
QV_VALUE(MaterialInfomation, float, SplitSheetLeadInFromPierceToCut, splitSheetLeadInFromPierceToCut_)
QV_VALUE(MaterialInfomation, int, SplitSheetLeadOutType, splitSheetLeadOutType_)
QV_VALUE(MaterialInfomation, float, SplitSheetLeadOutLength, splitSheetLeadOutLength_)
QV_VALUE(MaterialInfomation, float, SplitSheetLeadOutAngle, splitSheetLeadOutAngle_)
QV_VALUE(MaterialInfomation, float, SplitSheetLeadOutFromPierceToCut, splitSheetLeadOutFromPierceToCut_)
QV_VALUE(MaterialInfomation, float, SplitSheetHorizontalSplitCuts, splitSheetHorizontalSplitCuts_)
QV_VALUE(MaterialInfomation, float, SplitSheetVerticalSplitCuts, splitSheetVerticalSplitCuts_)
QV_VALUE(MaterialInfomation, float, SplitSheetBottomLeftEdge, splitSheetBottomLeftEdge_)
QV_VALUE(MaterialInfomation, float, SplitSheetTopRightEdge, splitSheetTopRightEdge_)
QV_VALUE(MaterialInfomation, float, SplitSheetBetweenParts, splitSheetBetweenParts_)
QV_VALUE(MaterialInfomation, float, SplitSheetMinSpace, splitSheetMinSpace_)

QV_VALUE(MaterialInfomation, float, InsideCutouts_MJSize, insideCutouts_MJSize_)
QV_VALUE(MaterialInfomation, float, InsideCutouts_ExceedsX, insideCutouts_ExceedsX_)
QV_VALUE(MaterialInfomation, float, InsideCutouts_IntervalX, insideCutouts_IntervalX_)
QV_VALUE(MaterialInfomation, float, InsideCutouts_ExceedsY, insideCutouts_ExceedsY_)
QV_VALUE(MaterialInfomation, float, InsideCutouts_IntervalY, insideCutouts_IntervalY_)
QV_VALUE(MaterialInfomation, float, OutsideCutouts_MJSize, outsideCutouts_MJSize_)
QV_VALUE(MaterialInfomation, float, OutsideCutouts_ExceedsX, outsideCutouts_ExceedsX_)
QV_VALUE(MaterialInfomation, float, OutsideCutouts_IntervalX, outsideCutouts_IntervalX_)
QV_VALUE(MaterialInfomation, float, OutsideCutouts_ExceedsY, outsideCutouts_ExceedsY_)
QV_VALUE(MaterialInfomation, float, OutsideCutouts_IntervalY, outsideCutouts_IntervalY_)
