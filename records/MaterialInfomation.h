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
  /// What a text getter's buffer holds.
  static constexpr std::size_t kTextSize = 260;

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

  /// A text setter keeps the first 259 bytes and ignores null. A text getter needs a buffer of kTextSize
  /// (260) bytes, writes the text with its terminator and a NUL into the last byte, and ignores null. Text()
  /// brings the buffer along: Text(record, &MaterialInfomation::GetMatFile).
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

  CString MatType_;
  qv::FixedText<kTextSize> MatFile_, MachineFile_, MatComment_, InLeadInType_;
  float InLeadInLength_ = 0, InLeadInAngle_ = 0, InLeadInAngleRad_ = 0, InLeadInLineToTangentArc_ = 0,
        InLeadInTwoLineSplit_ = 0, InLeadInFromPierceToCut_ = 0;
  qv::FixedText<kTextSize> InLeadOutType_;
  float InLeadOutLength_ = 0, InLeadOutAngle_ = 0, InLeadOutArcRad_ = 0, InLeadOutLineToTangentArc_ = 0,
        InLeadOutOverUnderCutAmount_ = 0, InLeadOutFromCutToEnd_ = 0;
  qv::FixedText<kTextSize> ExLeadInType_;
  float ExLeadInLength_ = 0, ExLeadInAngle_ = 0, ExLeadInAngleRad_ = 0, ExLeadInLineToTangentArc_ = 0,
        ExLeadInTwoLineSplit_ = 0, ExLeadInFromPierceToCut_ = 0;
  qv::FixedText<kTextSize> ExLeadOutType_;
  float ExLeadOutLength_ = 0, ExLeadOutAngle_ = 0, ExLeadOutArcRad_ = 0, ExLeadOutLineToTangentArc_ = 0,
        ExLeadOutOverUnderCutAmount_ = 0, ExLeadOutFromCutToEnd_ = 0;
  int PierceType_ = 0;
  bool PrePierceYesNo_ = false;
  float StandardPierceDataM103Ax_ = 0, RecoveryDisM105XY_ = 0, LaserPierceCondition_ = 0;
  int DwellBeforePierce_ = 0;
  float DwellBeforePierceValue_ = 0;
  int DwellAfterPierce_ = 0;
  float DwellAfterPierceValue_ = 0, CutterCompensationBeamDiameter_ = 0, CutterCompensationCutterComp_ = 0;
  int AfterCutConditionsInformation_ = 0;
  bool AfterCutConditionsDwell_ = false, AfterCutConditionsRaise_ = false;
  int Range1HoleMJID_ = 0, Range1HoleMJQuantity_ = 0, Range1PerimeterMJID_ = 0,
      Range1PerimeterMJQuantity_ = 0, Range2HoleMJID_ = 0, Range2HoleMJQuantity_ = 0,
      Range2PerimeterMJID_ = 0, Range2PerimeterMJQuantity_ = 0, Range3HoleMJID_ = 0,
      Range3HoleMJQuantity_ = 0, Range3PerimeterMJID_ = 0, Range3PerimeterMJQuantity_ = 0;
  float MJLeadInLength_ = 0, MJLeadInAngle_ = 0, MJLeadOutLength_ = 0, MJLeadOutAngle_ = 0;
  int CustomPeri_ComCutting_Style_ = 0;
  float CustomPeri_ComCutting_BeamDiameter_ = 0, CustomPeri_ComCutting_CuttingOverLength_ = 0,
        CustomPeri_ComCutting_MinimumEdge_ = 0;
  int CustomPeri_ComCutting_StartingCorner_ = 0;
  bool CustomPeri_ComCutting_xDirection_ = false;
  float CustomPeri_ComCutting_BridgeSize_ = 0, CustomPeri_ComCutting_MaxChanLength_ = 0,
        CustomPeri_ComCutting_DistancetoSkip_ = 0, LengthLeadinToSplitCutoutsMinWidth_ = 0,
        LengthLeadinToSplitCutoutsMaxWidth_ = 0, SplitCutoutsSlugDestroyPitch_ = 0;
  bool SplitCutoutsDoNotPierceNearEdge_ = false;
  float SplitCutoutsBeamCompensation_ = 0;
  int PeriNotchReliefLeadInType_ = 0;
  float PeriNotchReliefLeadInLength_ = 0, PeriNotchReliefLeadInFromPierceToCut_ = 0;
  int PeriNotchReliefLeadOutType_ = 0;
  float PeriNotchReliefLeadOutLength_ = 0, PeriNotchReliefLeadOutFromPierceToCut_ = 0,
        PeriNotchReliefNotchSplitCutXPitch_ = 0, PeriNotchReliefNotchSplitCutYPitch_ = 0,
        PeriNotchReliefDoubleCutsOffset_ = 0, PeriNotchReliefAutoPerimeterNotchReliefAutoOffset_ = 0,
        PeriNotchReliefAutoPerimeterNotchReliefHeight_ = 0, PeriNotchReliefNotchCutOutRange_ = 0;
  int SplitSheetLeadInType_ = 0;
  float SplitSheetLeadInLength_ = 0, SplitSheetLeadInAngle_ = 0, SplitSheetLeadInFromPierceToCut_ = 0;
  int SplitSheetLeadOutType_ = 0;
  float SplitSheetLeadOutLength_ = 0, SplitSheetLeadOutAngle_ = 0, SplitSheetLeadOutFromPierceToCut_ = 0,
        SplitSheetHorizontalSplitCuts_ = 0, SplitSheetVerticalSplitCuts_ = 0, SplitSheetBottomLeftEdge_ = 0,
        SplitSheetTopRightEdge_ = 0, SplitSheetBetweenParts_ = 0, SplitSheetMinSpace_ = 0,
        InsideCutouts_MJSize_ = 0, InsideCutouts_ExceedsX_ = 0, InsideCutouts_IntervalX_ = 0,
        InsideCutouts_ExceedsY_ = 0, InsideCutouts_IntervalY_ = 0, OutsideCutouts_MJSize_ = 0,
        OutsideCutouts_ExceedsX_ = 0, OutsideCutouts_IntervalX_ = 0, OutsideCutouts_ExceedsY_ = 0,
        OutsideCutouts_IntervalY_ = 0;
  CString MJTool_, PierceHoleTool_;
};
