#pragma once

#include <QVAssemblyFile/CString.h>
#include <QVAssemblyFile/Export.h>
#include <QVAssemblyFile/FixedText.h>
#include <QVAssemblyFile/RecordStorage.h>

/// The laser cutting conditions of one material: one row of a materials file.
///
/// Texts are narrow, in the system's code page. Units and type codes are the host's; nothing is checked.
/// Everything in a fresh record is empty, 0 or false. A copy is independent of its source. A record belongs
/// to one thread at a time.
class QVASSEMBLY_API MaterialInfomation {
 public:
  MaterialInfomation();
  MaterialInfomation(const MaterialInfomation& other);
  MaterialInfomation& operator=(const MaterialInfomation& other);
  ~MaterialInfomation();

  /// Texts of any length.
  CString GetMatType();
  void SetMatType(CString text);
  CString GetMJTool();
  void SetMJTool(CString text);
  CString GetPierceHoleTool();
  void SetPierceHoleTool(CString text);

  /// A text setter keeps the first 259 bytes and ignores null. A text getter needs a buffer of 260
  /// bytes, writes the text with its terminator and a NUL into the last byte, and ignores null.
  void GetMatFile(char* buffer);
  void SetMatFile(const char* text);
  void GetMachineFile(char* buffer);
  void SetMachineFile(const char* text);
  void GetMatComment(char* buffer);
  void SetMatComment(const char* text);
  void GetInLeadInType(char* buffer);
  void SetInLeadInType(const char* text);
  void GetInLeadOutType(char* buffer);
  void SetInLeadOutType(const char* text);
  void GetExLeadInType(char* buffer);
  void SetExLeadInType(const char* text);
  void GetExLeadOutType(char* buffer);
  void SetExLeadOutType(const char* text);

  /// Lead-in and lead-out of inside contours.
  float GetInLeadInLength();
  void SetInLeadInLength(float value);
  float GetInLeadInAngle();
  void SetInLeadInAngle(float value);
  float GetInLeadInAngleRad();
  void SetInLeadInAngleRad(float value);
  float GetInLeadInLineToTangentArc();
  void SetInLeadInLineToTangentArc(float value);
  float GetInLeadInTwoLineSplit();
  void SetInLeadInTwoLineSplit(float value);
  float GetInLeadInFromPierceToCut();
  void SetInLeadInFromPierceToCut(float value);
  float GetInLeadOutLength();
  void SetInLeadOutLength(float value);
  float GetInLeadOutAngle();
  void SetInLeadOutAngle(float value);
  float GetInLeadOutArcRad();
  void SetInLeadOutArcRad(float value);
  float GetInLeadOutLineToTangentArc();
  void SetInLeadOutLineToTangentArc(float value);
  float GetInLeadOutOverUnderCutAmount();
  void SetInLeadOutOverUnderCutAmount(float value);
  float GetInLeadOutFromCutToEnd();
  void SetInLeadOutFromCutToEnd(float value);

  /// Lead-in and lead-out of outside contours.
  float GetExLeadInLength();
  void SetExLeadInLength(float value);
  float GetExLeadInAngle();
  void SetExLeadInAngle(float value);
  float GetExLeadInAngleRad();
  void SetExLeadInAngleRad(float value);
  float GetExLeadInLineToTangentArc();
  void SetExLeadInLineToTangentArc(float value);
  float GetExLeadInTwoLineSplit();
  void SetExLeadInTwoLineSplit(float value);
  float GetExLeadInFromPierceToCut();
  void SetExLeadInFromPierceToCut(float value);
  float GetExLeadOutLength();
  void SetExLeadOutLength(float value);
  float GetExLeadOutAngle();
  void SetExLeadOutAngle(float value);
  float GetExLeadOutArcRad();
  void SetExLeadOutArcRad(float value);
  float GetExLeadOutLineToTangentArc();
  void SetExLeadOutLineToTangentArc(float value);
  float GetExLeadOutOverUnderCutAmount();
  void SetExLeadOutOverUnderCutAmount(float value);
  float GetExLeadOutFromCutToEnd();
  void SetExLeadOutFromCutToEnd(float value);

  /// Piercing, dwell and cutter compensation.
  int GetPierceType();
  void SetPierceType(int value);
  bool GetPrePierceYesNo();
  void SetPrePierceYesNo(bool value);
  float GetStandardPierceDataM103Ax();
  void SetStandardPierceDataM103Ax(float value);
  float GetRecoveryDisM105XY();
  void SetRecoveryDisM105XY(float value);
  float GetLaserPierceCondition();
  void SetLaserPierceCondition(float value);
  int GetDwellBeforePierce();
  void SetDwellBeforePierce(int value);
  float GetDwellBeforePierceValue();
  void SetDwellBeforePierceValue(float value);
  int GetDwellAfterPierce();
  void SetDwellAfterPierce(int value);
  float GetDwellAfterPierceValue();
  void SetDwellAfterPierceValue(float value);
  float GetCutterCompensationBeamDiameter();
  void SetCutterCompensationBeamDiameter(float value);
  float GetCutterCompensationCutterComp();
  void SetCutterCompensationCutterComp(float value);

  /// What happens after a cut.
  int GetAfterCutConditionsInformation();
  void SetAfterCutConditionsInformation(int value);
  bool GetAfterCutConditionsDwell();
  void SetAfterCutConditionsDwell(bool value);
  bool GetAfterCutConditionsRaise();
  void SetAfterCutConditionsRaise(bool value);

  /// Micro-joint ranges and lead-ins.
  int GetRange1HoleMJID();
  void SetRange1HoleMJID(int value);
  int GetRange1HoleMJQuantity();
  void SetRange1HoleMJQuantity(int value);
  int GetRange1PerimeterMJID();
  void SetRange1PerimeterMJID(int value);
  int GetRange1PerimeterMJQuantity();
  void SetRange1PerimeterMJQuantity(int value);
  int GetRange2HoleMJID();
  void SetRange2HoleMJID(int value);
  int GetRange2HoleMJQuantity();
  void SetRange2HoleMJQuantity(int value);
  int GetRange2PerimeterMJID();
  void SetRange2PerimeterMJID(int value);
  int GetRange2PerimeterMJQuantity();
  void SetRange2PerimeterMJQuantity(int value);
  int GetRange3HoleMJID();
  void SetRange3HoleMJID(int value);
  int GetRange3HoleMJQuantity();
  void SetRange3HoleMJQuantity(int value);
  int GetRange3PerimeterMJID();
  void SetRange3PerimeterMJID(int value);
  int GetRange3PerimeterMJQuantity();
  void SetRange3PerimeterMJQuantity(int value);
  float GetMJLeadInLength();
  void SetMJLeadInLength(float value);
  float GetMJLeadInAngle();
  void SetMJLeadInAngle(float value);
  float GetMJLeadOutLength();
  void SetMJLeadOutLength(float value);
  float GetMJLeadOutAngle();
  void SetMJLeadOutAngle(float value);

  /// Common cutting with a custom perimeter.
  int GetCustomPeri_ComCutting_Style();
  void SetCustomPeri_ComCutting_Style(int value);
  float GetCustomPeri_ComCutting_BeamDiameter();
  void SetCustomPeri_ComCutting_BeamDiameter(float value);
  float GetCustomPeri_ComCutting_CuttingOverLength();
  void SetCustomPeri_ComCutting_CuttingOverLength(float value);
  float GetCustomPeri_ComCutting_MinimumEdge();
  void SetCustomPeri_ComCutting_MinimumEdge(float value);
  int GetCustomPeri_ComCutting_StartingCorner();
  void SetCustomPeri_ComCutting_StartingCorner(int value);
  bool GetCustomPeri_ComCutting_xDirection();
  void SetCustomPeri_ComCutting_xDirection(bool value);
  float GetCustomPeri_ComCutting_BridgeSize();
  void SetCustomPeri_ComCutting_BridgeSize(float value);
  float GetCustomPeri_ComCutting_MaxChanLength();
  void SetCustomPeri_ComCutting_MaxChanLength(float value);
  float GetCustomPeri_ComCutting_DistancetoSkip();
  void SetCustomPeri_ComCutting_DistancetoSkip(float value);

  /// Split cutouts.
  float GetLengthLeadinToSplitCutoutsMinWidth();
  void SetLengthLeadinToSplitCutoutsMinWidth(float value);
  float GetLengthLeadinToSplitCutoutsMaxWidth();
  void SetLengthLeadinToSplitCutoutsMaxWidth(float value);
  float GetSplitCutoutsSlugDestroyPitch();
  void SetSplitCutoutsSlugDestroyPitch(float value);
  bool GetSplitCutoutsDoNotPierceNearEdge();
  void SetSplitCutoutsDoNotPierceNearEdge(bool value);
  float GetSplitCutoutsBeamCompensation();
  void SetSplitCutoutsBeamCompensation(float value);

  /// Perimeter notch relief.
  int GetPeriNotchReliefLeadInType();
  void SetPeriNotchReliefLeadInType(int value);
  float GetPeriNotchReliefLeadInLength();
  void SetPeriNotchReliefLeadInLength(float value);
  float GetPeriNotchReliefLeadInFromPierceToCut();
  void SetPeriNotchReliefLeadInFromPierceToCut(float value);
  int GetPeriNotchReliefLeadOutType();
  void SetPeriNotchReliefLeadOutType(int value);
  float GetPeriNotchReliefLeadOutLength();
  void SetPeriNotchReliefLeadOutLength(float value);
  float GetPeriNotchReliefLeadOutFromPierceToCut();
  void SetPeriNotchReliefLeadOutFromPierceToCut(float value);
  float GetPeriNotchReliefNotchSplitCutXPitch();
  void SetPeriNotchReliefNotchSplitCutXPitch(float value);
  float GetPeriNotchReliefNotchSplitCutYPitch();
  void SetPeriNotchReliefNotchSplitCutYPitch(float value);
  float GetPeriNotchReliefDoubleCutsOffset();
  void SetPeriNotchReliefDoubleCutsOffset(float value);
  float GetPeriNotchReliefAutoPerimeterNotchReliefAutoOffset();
  void SetPeriNotchReliefAutoPerimeterNotchReliefAutoOffset(float value);
  float GetPeriNotchReliefAutoPerimeterNotchReliefHeight();
  void SetPeriNotchReliefAutoPerimeterNotchReliefHeight(float value);
  float GetPeriNotchReliefNotchCutOutRange();
  void SetPeriNotchReliefNotchCutOutRange(float value);

  /// Split sheet.
  int GetSplitSheetLeadInType();
  void SetSplitSheetLeadInType(int value);
  float GetSplitSheetLeadInLength();
  void SetSplitSheetLeadInLength(float value);
  float GetSplitSheetLeadInAngle();
  void SetSplitSheetLeadInAngle(float value);
  float GetSplitSheetLeadInFromPierceToCut();
  void SetSplitSheetLeadInFromPierceToCut(float value);
  int GetSplitSheetLeadOutType();
  void SetSplitSheetLeadOutType(int value);
  float GetSplitSheetLeadOutLength();
  void SetSplitSheetLeadOutLength(float value);
  float GetSplitSheetLeadOutAngle();
  void SetSplitSheetLeadOutAngle(float value);
  float GetSplitSheetLeadOutFromPierceToCut();
  void SetSplitSheetLeadOutFromPierceToCut(float value);
  float GetSplitSheetHorizontalSplitCuts();
  void SetSplitSheetHorizontalSplitCuts(float value);
  float GetSplitSheetVerticalSplitCuts();
  void SetSplitSheetVerticalSplitCuts(float value);
  float GetSplitSheetBottomLeftEdge();
  void SetSplitSheetBottomLeftEdge(float value);
  float GetSplitSheetTopRightEdge();
  void SetSplitSheetTopRightEdge(float value);
  float GetSplitSheetBetweenParts();
  void SetSplitSheetBetweenParts(float value);
  float GetSplitSheetMinSpace();
  void SetSplitSheetMinSpace(float value);

  /// Inside and outside cutouts.
  float GetInsideCutouts_MJSize();
  void SetInsideCutouts_MJSize(float value);
  float GetInsideCutouts_ExceedsX();
  void SetInsideCutouts_ExceedsX(float value);
  float GetInsideCutouts_IntervalX();
  void SetInsideCutouts_IntervalX(float value);
  float GetInsideCutouts_ExceedsY();
  void SetInsideCutouts_ExceedsY(float value);
  float GetInsideCutouts_IntervalY();
  void SetInsideCutouts_IntervalY(float value);
  float GetOutsideCutouts_MJSize();
  void SetOutsideCutouts_MJSize(float value);
  float GetOutsideCutouts_ExceedsX();
  void SetOutsideCutouts_ExceedsX(float value);
  float GetOutsideCutouts_IntervalX();
  void SetOutsideCutouts_IntervalX(float value);
  float GetOutsideCutouts_ExceedsY();
  void SetOutsideCutouts_ExceedsY(float value);
  float GetOutsideCutouts_IntervalY();
  void SetOutsideCutouts_IntervalY(float value);

  QVASSEMBLY_RECORD_STORAGE

 private:
  friend struct qv::ColumnTable<MaterialInfomation>;

  CString matType_;
  qv::FixedText<260> matFile_;
  qv::FixedText<260> machineFile_;
  qv::FixedText<260> matComment_;
  qv::FixedText<260> inLeadInType_;
  float inLeadInLength_ = 0.0f;
  float inLeadInAngle_ = 0.0f;
  float inLeadInAngleRad_ = 0.0f;
  float inLeadInLineToTangentArc_ = 0.0f;
  float inLeadInTwoLineSplit_ = 0.0f;
  float inLeadInFromPierceToCut_ = 0.0f;
  qv::FixedText<260> inLeadOutType_;
  float inLeadOutLength_ = 0.0f;
  float inLeadOutAngle_ = 0.0f;
  float inLeadOutArcRad_ = 0.0f;
  float inLeadOutLineToTangentArc_ = 0.0f;
  float inLeadOutOverUnderCutAmount_ = 0.0f;
  float inLeadOutFromCutToEnd_ = 0.0f;
  qv::FixedText<260> exLeadInType_;
  float exLeadInLength_ = 0.0f;
  float exLeadInAngle_ = 0.0f;
  float exLeadInAngleRad_ = 0.0f;
  float exLeadInLineToTangentArc_ = 0.0f;
  float exLeadInTwoLineSplit_ = 0.0f;
  float exLeadInFromPierceToCut_ = 0.0f;
  qv::FixedText<260> exLeadOutType_;
  float exLeadOutLength_ = 0.0f;
  float exLeadOutAngle_ = 0.0f;
  float exLeadOutArcRad_ = 0.0f;
  float exLeadOutLineToTangentArc_ = 0.0f;
  float exLeadOutOverUnderCutAmount_ = 0.0f;
  float exLeadOutFromCutToEnd_ = 0.0f;
  int pierceType_ = 0;
  bool prePierceYesNo_ = false;
  float standardPierceDataM103Ax_ = 0.0f;
  float recoveryDisM105XY_ = 0.0f;
  float laserPierceCondition_ = 0.0f;
  int dwellBeforePierce_ = 0;
  float dwellBeforePierceValue_ = 0.0f;
  int dwellAfterPierce_ = 0;
  float dwellAfterPierceValue_ = 0.0f;
  float cutterCompensationBeamDiameter_ = 0.0f;
  float cutterCompensationCutterComp_ = 0.0f;
  int afterCutConditionsInformation_ = 0;
  bool afterCutConditionsDwell_ = false;
  bool afterCutConditionsRaise_ = false;
  int range1HoleMJID_ = 0;
  int range1HoleMJQuantity_ = 0;
  int range1PerimeterMJID_ = 0;
  int range1PerimeterMJQuantity_ = 0;
  int range2HoleMJID_ = 0;
  int range2HoleMJQuantity_ = 0;
  int range2PerimeterMJID_ = 0;
  int range2PerimeterMJQuantity_ = 0;
  int range3HoleMJID_ = 0;
  int range3HoleMJQuantity_ = 0;
  int range3PerimeterMJID_ = 0;
  int range3PerimeterMJQuantity_ = 0;
  float mJLeadInLength_ = 0.0f;
  float mJLeadInAngle_ = 0.0f;
  float mJLeadOutLength_ = 0.0f;
  float mJLeadOutAngle_ = 0.0f;
  int customPeri_ComCutting_Style_ = 0;
  float customPeri_ComCutting_BeamDiameter_ = 0.0f;
  float customPeri_ComCutting_CuttingOverLength_ = 0.0f;
  float customPeri_ComCutting_MinimumEdge_ = 0.0f;
  int customPeri_ComCutting_StartingCorner_ = 0;
  bool customPeri_ComCutting_xDirection_ = false;
  float customPeri_ComCutting_BridgeSize_ = 0.0f;
  float customPeri_ComCutting_MaxChanLength_ = 0.0f;
  float customPeri_ComCutting_DistancetoSkip_ = 0.0f;
  float lengthLeadinToSplitCutoutsMinWidth_ = 0.0f;
  float lengthLeadinToSplitCutoutsMaxWidth_ = 0.0f;
  float splitCutoutsSlugDestroyPitch_ = 0.0f;
  bool splitCutoutsDoNotPierceNearEdge_ = false;
  float splitCutoutsBeamCompensation_ = 0.0f;
  int periNotchReliefLeadInType_ = 0;
  float periNotchReliefLeadInLength_ = 0.0f;
  float periNotchReliefLeadInFromPierceToCut_ = 0.0f;
  int periNotchReliefLeadOutType_ = 0;
  float periNotchReliefLeadOutLength_ = 0.0f;
  float periNotchReliefLeadOutFromPierceToCut_ = 0.0f;
  float periNotchReliefNotchSplitCutXPitch_ = 0.0f;
  float periNotchReliefNotchSplitCutYPitch_ = 0.0f;
  float periNotchReliefDoubleCutsOffset_ = 0.0f;
  float periNotchReliefAutoPerimeterNotchReliefAutoOffset_ = 0.0f;
  float periNotchReliefAutoPerimeterNotchReliefHeight_ = 0.0f;
  float periNotchReliefNotchCutOutRange_ = 0.0f;
  int splitSheetLeadInType_ = 0;
  float splitSheetLeadInLength_ = 0.0f;
  float splitSheetLeadInAngle_ = 0.0f;
  float splitSheetLeadInFromPierceToCut_ = 0.0f;
  int splitSheetLeadOutType_ = 0;
  float splitSheetLeadOutLength_ = 0.0f;
  float splitSheetLeadOutAngle_ = 0.0f;
  float splitSheetLeadOutFromPierceToCut_ = 0.0f;
  float splitSheetHorizontalSplitCuts_ = 0.0f;
  float splitSheetVerticalSplitCuts_ = 0.0f;
  float splitSheetBottomLeftEdge_ = 0.0f;
  float splitSheetTopRightEdge_ = 0.0f;
  float splitSheetBetweenParts_ = 0.0f;
  float splitSheetMinSpace_ = 0.0f;
  float insideCutouts_MJSize_ = 0.0f;
  float insideCutouts_ExceedsX_ = 0.0f;
  float insideCutouts_IntervalX_ = 0.0f;
  float insideCutouts_ExceedsY_ = 0.0f;
  float insideCutouts_IntervalY_ = 0.0f;
  float outsideCutouts_MJSize_ = 0.0f;
  float outsideCutouts_ExceedsX_ = 0.0f;
  float outsideCutouts_IntervalX_ = 0.0f;
  float outsideCutouts_ExceedsY_ = 0.0f;
  float outsideCutouts_IntervalY_ = 0.0f;
  CString mJTool_;
  CString pierceHoleTool_;
};
