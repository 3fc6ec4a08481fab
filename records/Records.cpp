#include "records/Records.h"

#include <utility>

namespace qv {

void* AllocateRecord(std::size_t size) { return ::operator new(size); }

void* AllocateRecord(std::size_t size, const std::nothrow_t& quietly) noexcept {
  return ::operator new(size, quietly);
}

void FreeRecord(void* record) noexcept { ::operator delete(record); }

}  // namespace qv

// NOLINTBEGIN(bugprone-macro-parentheses): types as arguments take none.

// What each record class has out of line.
#define QV_LIFE(Class)                                   \
  Class::Class() = default;                              \
  Class& Class::operator=(const Class& other) = default; \
  Class::~Class() = default;

// The bodies of accessors. A member is named after its accessors' stem, so that no pair can reach another's.

#define QV_TEXT(Class, Character, Stem)                               \
  void Class::Get##Stem(Character* buffer) { (Stem##_).Get(buffer); } \
  void Class::Set##Stem(const Character* text) { (Stem##_).Set(text); }

#define QV_VALUE(Class, Type, Stem)           \
  Type Class::Get##Stem() { return Stem##_; } \
  void Class::Set##Stem(Type value) { (Stem##_) = value; }

#define QV_STRING(Class, Taken, Stem)            \
  CString Class::Get##Stem() { return Stem##_; } \
  void Class::Set##Stem(Taken text) { (Stem##_) = std::forward<Taken>(text); }

// NOLINTEND(bugprone-macro-parentheses)

QV_LIFE(PartInformation)

QV_TEXT(PartInformation, char, PartName)
QV_TEXT(PartInformation, char, PartNumber)
QV_TEXT(PartInformation, char, DueDate)
QV_TEXT(PartInformation, char, MaterialType)
QV_TEXT(PartInformation, char, PartComment)
QV_TEXT(PartInformation, char, Revision)
QV_TEXT(PartInformation, char, Machine)
QV_TEXT(PartInformation, char, ToolInventory)
QV_TEXT(PartInformation, char, MaterialGroup)
QV_TEXT(PartInformation, char, Customer)
QV_TEXT(PartInformation, char, RouterNumber)
QV_TEXT(PartInformation, char, WorkOderNumber)
QV_TEXT(PartInformation, char, GroupName)
QV_TEXT(PartInformation, char, PartPositionInGroup)
QV_TEXT(PartInformation, char, MaterialFile)
QV_TEXT(PartInformation, char, RectangularTrueShape)
QV_TEXT(PartInformation, char, CCutPunch)
QV_TEXT(PartInformation, char, GrainDirection)
QV_TEXT(PartInformation, char, RotateSpecificAngle)
QV_TEXT(PartInformation, char, MaterialCode)
QV_TEXT(PartInformation, char, MaterialDescription)
QV_TEXT(PartInformation, char, CustomerMaterialType)
QV_TEXT(PartInformation, char, Coating)
QV_VALUE(PartInformation, int, PartQuantity)
QV_VALUE(PartInformation, int, BinID)
QV_VALUE(PartInformation, int, Rotation)
QV_VALUE(PartInformation, int, CommonCutting)
QV_VALUE(PartInformation, double, MaterialThickness)
QV_VALUE(PartInformation, double, EstimateTime)
QV_VALUE(PartInformation, bool, IsMachineAvailable)
QV_VALUE(PartInformation, bool, IsMaterialTypeAvailable)
QV_VALUE(PartInformation, bool, IsMaterialThicknessAvailable)
QV_VALUE(PartInformation, bool, IsMaterialGroupAvailable)
QV_VALUE(PartInformation, bool, IsPreferredMaterialAvailable)
QV_VALUE(PartInformation, bool, IsPartNumberAvailable)
QV_VALUE(PartInformation, bool, IsCustomerAvailable)
QV_VALUE(PartInformation, bool, IsPartCommentAvailable)
QV_VALUE(PartInformation, bool, IsRevisionAvailable)
QV_VALUE(PartInformation, bool, IsToolInventoryAvailable)
QV_VALUE(PartInformation, bool, IsBinIDAvailable)

void PartInformation::GetFullPathNameA(char* buffer) { FullPathName_.Get(buffer); }
void PartInformation::SetFullPathName(const char* text) { FullPathName_.Set(text); }

int PartInformation::StackTableId() const { return StackTableId_; }
void PartInformation::SetStackTableId(int value) { StackTableId_ = value; }
int PartInformation::GetPriority() const { return Priority_; }
void PartInformation::SetPriority(int value) { Priority_ = value; }

QV_LIFE(ToolInformation)

QV_TEXT(ToolInformation, char, ToolShape)
QV_TEXT(ToolInformation, char, ToolDimensions)
QV_TEXT(ToolInformation, char, ToolAngles)
QV_TEXT(ToolInformation, char, ToolClearance)
QV_TEXT(ToolInformation, char, StorageInfo)
QV_TEXT(ToolInformation, char, ToolName)
QV_TEXT(ToolInformation, char, ToolComment)
QV_TEXT(ToolInformation, char, ToolDriverName)
QV_VALUE(ToolInformation, int, ToolID)
QV_VALUE(ToolInformation, int, ToolType)
QV_VALUE(ToolInformation, float, ToolSize)

const char* ToolInformation::GetToolPunchConditionString() const { return ToolPunchConditionString_.c_str(); }
void ToolInformation::SetToolPunchConditionString(const char* text) {
  if (text != nullptr) ToolPunchConditionString_.assign(text);
}

QV_LIFE(MaterialInfomation)
MaterialInfomation::MaterialInfomation(const MaterialInfomation& other) = default;

QV_STRING(MaterialInfomation, CString, MatType)
QV_STRING(MaterialInfomation, CString, MJTool)
QV_STRING(MaterialInfomation, CString, PierceHoleTool)
QV_TEXT(MaterialInfomation, char, MatFile)
QV_TEXT(MaterialInfomation, char, MachineFile)
QV_TEXT(MaterialInfomation, char, MatComment)
QV_TEXT(MaterialInfomation, char, InLeadInType)
QV_TEXT(MaterialInfomation, char, InLeadOutType)
QV_TEXT(MaterialInfomation, char, ExLeadInType)
QV_TEXT(MaterialInfomation, char, ExLeadOutType)
QV_VALUE(MaterialInfomation, float, InLeadInLength)
QV_VALUE(MaterialInfomation, float, InLeadInAngle)
QV_VALUE(MaterialInfomation, float, InLeadInAngleRad)
QV_VALUE(MaterialInfomation, float, InLeadInLineToTangentArc)
QV_VALUE(MaterialInfomation, float, InLeadInTwoLineSplit)
QV_VALUE(MaterialInfomation, float, InLeadInFromPierceToCut)
QV_VALUE(MaterialInfomation, float, InLeadOutLength)
QV_VALUE(MaterialInfomation, float, InLeadOutAngle)
QV_VALUE(MaterialInfomation, float, InLeadOutArcRad)
QV_VALUE(MaterialInfomation, float, InLeadOutLineToTangentArc)
QV_VALUE(MaterialInfomation, float, InLeadOutOverUnderCutAmount)
QV_VALUE(MaterialInfomation, float, InLeadOutFromCutToEnd)
QV_VALUE(MaterialInfomation, float, ExLeadInLength)
QV_VALUE(MaterialInfomation, float, ExLeadInAngle)
QV_VALUE(MaterialInfomation, float, ExLeadInAngleRad)
QV_VALUE(MaterialInfomation, float, ExLeadInLineToTangentArc)
QV_VALUE(MaterialInfomation, float, ExLeadInTwoLineSplit)
QV_VALUE(MaterialInfomation, float, ExLeadInFromPierceToCut)
QV_VALUE(MaterialInfomation, float, ExLeadOutLength)
QV_VALUE(MaterialInfomation, float, ExLeadOutAngle)
QV_VALUE(MaterialInfomation, float, ExLeadOutArcRad)
QV_VALUE(MaterialInfomation, float, ExLeadOutLineToTangentArc)
QV_VALUE(MaterialInfomation, float, ExLeadOutOverUnderCutAmount)
QV_VALUE(MaterialInfomation, float, ExLeadOutFromCutToEnd)
QV_VALUE(MaterialInfomation, float, StandardPierceDataM103Ax)
QV_VALUE(MaterialInfomation, float, RecoveryDisM105XY)
QV_VALUE(MaterialInfomation, float, LaserPierceCondition)
QV_VALUE(MaterialInfomation, float, DwellBeforePierceValue)
QV_VALUE(MaterialInfomation, float, DwellAfterPierceValue)
QV_VALUE(MaterialInfomation, float, CutterCompensationBeamDiameter)
QV_VALUE(MaterialInfomation, float, CutterCompensationCutterComp)
QV_VALUE(MaterialInfomation, float, MJLeadInLength)
QV_VALUE(MaterialInfomation, float, MJLeadInAngle)
QV_VALUE(MaterialInfomation, float, MJLeadOutLength)
QV_VALUE(MaterialInfomation, float, MJLeadOutAngle)
QV_VALUE(MaterialInfomation, float, CustomPeri_ComCutting_BeamDiameter)
QV_VALUE(MaterialInfomation, float, CustomPeri_ComCutting_CuttingOverLength)
QV_VALUE(MaterialInfomation, float, CustomPeri_ComCutting_MinimumEdge)
QV_VALUE(MaterialInfomation, float, CustomPeri_ComCutting_BridgeSize)
QV_VALUE(MaterialInfomation, float, CustomPeri_ComCutting_MaxChanLength)
QV_VALUE(MaterialInfomation, float, CustomPeri_ComCutting_DistancetoSkip)
QV_VALUE(MaterialInfomation, float, LengthLeadinToSplitCutoutsMinWidth)
QV_VALUE(MaterialInfomation, float, LengthLeadinToSplitCutoutsMaxWidth)
QV_VALUE(MaterialInfomation, float, SplitCutoutsSlugDestroyPitch)
QV_VALUE(MaterialInfomation, float, SplitCutoutsBeamCompensation)
QV_VALUE(MaterialInfomation, float, PeriNotchReliefLeadInLength)
QV_VALUE(MaterialInfomation, float, PeriNotchReliefLeadInFromPierceToCut)
QV_VALUE(MaterialInfomation, float, PeriNotchReliefLeadOutLength)
QV_VALUE(MaterialInfomation, float, PeriNotchReliefLeadOutFromPierceToCut)
QV_VALUE(MaterialInfomation, float, PeriNotchReliefNotchSplitCutXPitch)
QV_VALUE(MaterialInfomation, float, PeriNotchReliefNotchSplitCutYPitch)
QV_VALUE(MaterialInfomation, float, PeriNotchReliefDoubleCutsOffset)
QV_VALUE(MaterialInfomation, float, PeriNotchReliefAutoPerimeterNotchReliefAutoOffset)
QV_VALUE(MaterialInfomation, float, PeriNotchReliefAutoPerimeterNotchReliefHeight)
QV_VALUE(MaterialInfomation, float, PeriNotchReliefNotchCutOutRange)
QV_VALUE(MaterialInfomation, float, SplitSheetLeadInLength)
QV_VALUE(MaterialInfomation, float, SplitSheetLeadInAngle)
QV_VALUE(MaterialInfomation, float, SplitSheetLeadInFromPierceToCut)
QV_VALUE(MaterialInfomation, float, SplitSheetLeadOutLength)
QV_VALUE(MaterialInfomation, float, SplitSheetLeadOutAngle)
QV_VALUE(MaterialInfomation, float, SplitSheetLeadOutFromPierceToCut)
QV_VALUE(MaterialInfomation, float, SplitSheetHorizontalSplitCuts)
QV_VALUE(MaterialInfomation, float, SplitSheetVerticalSplitCuts)
QV_VALUE(MaterialInfomation, float, SplitSheetBottomLeftEdge)
QV_VALUE(MaterialInfomation, float, SplitSheetTopRightEdge)
QV_VALUE(MaterialInfomation, float, SplitSheetBetweenParts)
QV_VALUE(MaterialInfomation, float, SplitSheetMinSpace)
QV_VALUE(MaterialInfomation, float, InsideCutouts_MJSize)
QV_VALUE(MaterialInfomation, float, InsideCutouts_ExceedsX)
QV_VALUE(MaterialInfomation, float, InsideCutouts_IntervalX)
QV_VALUE(MaterialInfomation, float, InsideCutouts_ExceedsY)
QV_VALUE(MaterialInfomation, float, InsideCutouts_IntervalY)
QV_VALUE(MaterialInfomation, float, OutsideCutouts_MJSize)
QV_VALUE(MaterialInfomation, float, OutsideCutouts_ExceedsX)
QV_VALUE(MaterialInfomation, float, OutsideCutouts_IntervalX)
QV_VALUE(MaterialInfomation, float, OutsideCutouts_ExceedsY)
QV_VALUE(MaterialInfomation, float, OutsideCutouts_IntervalY)
QV_VALUE(MaterialInfomation, int, PierceType)
QV_VALUE(MaterialInfomation, int, DwellBeforePierce)
QV_VALUE(MaterialInfomation, int, DwellAfterPierce)
QV_VALUE(MaterialInfomation, int, AfterCutConditionsInformation)
QV_VALUE(MaterialInfomation, int, Range1HoleMJID)
QV_VALUE(MaterialInfomation, int, Range1HoleMJQuantity)
QV_VALUE(MaterialInfomation, int, Range1PerimeterMJID)
QV_VALUE(MaterialInfomation, int, Range1PerimeterMJQuantity)
QV_VALUE(MaterialInfomation, int, Range2HoleMJID)
QV_VALUE(MaterialInfomation, int, Range2HoleMJQuantity)
QV_VALUE(MaterialInfomation, int, Range2PerimeterMJID)
QV_VALUE(MaterialInfomation, int, Range2PerimeterMJQuantity)
QV_VALUE(MaterialInfomation, int, Range3HoleMJID)
QV_VALUE(MaterialInfomation, int, Range3HoleMJQuantity)
QV_VALUE(MaterialInfomation, int, Range3PerimeterMJID)
QV_VALUE(MaterialInfomation, int, Range3PerimeterMJQuantity)
QV_VALUE(MaterialInfomation, int, CustomPeri_ComCutting_Style)
QV_VALUE(MaterialInfomation, int, CustomPeri_ComCutting_StartingCorner)
QV_VALUE(MaterialInfomation, int, PeriNotchReliefLeadInType)
QV_VALUE(MaterialInfomation, int, PeriNotchReliefLeadOutType)
QV_VALUE(MaterialInfomation, int, SplitSheetLeadInType)
QV_VALUE(MaterialInfomation, int, SplitSheetLeadOutType)
QV_VALUE(MaterialInfomation, bool, PrePierceYesNo)
QV_VALUE(MaterialInfomation, bool, AfterCutConditionsDwell)
QV_VALUE(MaterialInfomation, bool, AfterCutConditionsRaise)
QV_VALUE(MaterialInfomation, bool, CustomPeri_ComCutting_xDirection)
QV_VALUE(MaterialInfomation, bool, SplitCutoutsDoNotPierceNearEdge)

QV_LIFE(ShtInfo)

QV_TEXT(ShtInfo, char, SheetName)
QV_TEXT(ShtInfo, char, MaterialGroup)
QV_TEXT(ShtInfo, char, MaterialType)
QV_TEXT(ShtInfo, char, SheetSize)
QV_TEXT(ShtInfo, char, Thickness)
QV_TEXT(ShtInfo, char, LaserMaterialName)
QV_TEXT(ShtInfo, char, Comments)
QV_TEXT(ShtInfo, char, Programmer)
QV_TEXT(ShtInfo, char, Customer)
QV_TEXT(ShtInfo, char, MachineFile)
QV_TEXT(ShtInfo, char, InventoryFile)
QV_TEXT(ShtInfo, char, MaterialFile)
QV_TEXT(ShtInfo, char, ClampPosition)
QV_TEXT(ShtInfo, char, TotalRunTime)

QV_LIFE(PrtInfo)
PrtInfo::PrtInfo(const PrtInfo& other) = default;

QV_TEXT(PrtInfo, char, PartName)
QV_TEXT(PrtInfo, char, Customer)
QV_TEXT(PrtInfo, char, PartNumber)
QV_TEXT(PrtInfo, char, ProgrammerName)
QV_TEXT(PrtInfo, char, Revision)
QV_TEXT(PrtInfo, char, Comments)
QV_TEXT(PrtInfo, char, Machine)
QV_TEXT(PrtInfo, char, ToolInventory)
QV_TEXT(PrtInfo, char, MaterialFile)
QV_TEXT(PrtInfo, char, MaterialGroup)
QV_TEXT(PrtInfo, char, MaterialType)
QV_TEXT(PrtInfo, char, ClampPosition)
QV_VALUE(PrtInfo, float, PartSizeX)
QV_VALUE(PrtInfo, float, PartSizeY)
QV_VALUE(PrtInfo, float, DefaultRotation)
QV_VALUE(PrtInfo, float, GridSpacingH)
QV_VALUE(PrtInfo, float, GridSpacingV)
QV_VALUE(PrtInfo, float, MarginTop)
QV_VALUE(PrtInfo, float, MarginBottom)
QV_VALUE(PrtInfo, float, MarginLeft)
QV_VALUE(PrtInfo, float, MarginRight)
QV_VALUE(PrtInfo, float, SheetSizeX)
QV_VALUE(PrtInfo, float, SheetSizeY)
QV_VALUE(PrtInfo, float, MaterialThickness)
QV_VALUE(PrtInfo, double, EstimateTime)
QV_VALUE(PrtInfo, double, AverProcessTime)
QV_VALUE(PrtInfo, int, PartDefaultPosition)

// A copy made first keeps the record whole when memory runs out, and lets the caller pass a list that it got.
#define QV_LIST(Stem)                                                  \
  void PrtInfo::Get##Stem(std::vector<Stem>& list) { list = Stem##_; } \
  void PrtInfo::Set##Stem(std::vector<Stem>& list) {                   \
    std::vector<Stem> copy(list);                                      \
    (Stem##_).swap(copy);                                              \
  }

QV_LIST(UsedToolInfo)
QV_LIST(HoleInfo)
QV_LIST(BendInfo)

QV_LIFE(MatAmncITInfo)
MatAmncITInfo::MatAmncITInfo(const MatAmncITInfo& other) = default;

QV_VALUE(MatAmncITInfo, int, ShelfNo)
QV_VALUE(MatAmncITInfo, int, Quantity)
QV_STRING(MatAmncITInfo, CString, MaterialName)
QV_STRING(MatAmncITInfo, CString, Palletkind)
QV_VALUE(MatAmncITInfo, float, Thickness)
QV_VALUE(MatAmncITInfo, float, SizeX)
QV_VALUE(MatAmncITInfo, float, SizeY)

QV_LIFE(MatLibraryInfo)
MatLibraryInfo::MatLibraryInfo(const MatLibraryInfo& other) = default;

QV_LIFE(JobProgressInfo)
JobProgressInfo::JobProgressInfo(const JobProgressInfo& other) = default;

QV_STRING(JobProgressInfo, const CString&, JobName)
QV_STRING(JobProgressInfo, const CString&, JobProgress)
QV_STRING(JobProgressInfo, const CString&, StartTime)
QV_STRING(JobProgressInfo, const CString&, EndTime)
QV_STRING(JobProgressInfo, const CString&, TotalPartQty)
QV_STRING(JobProgressInfo, const CString&, TotalDoneQty)
QV_STRING(JobProgressInfo, const CString&, MatType)
QV_STRING(JobProgressInfo, const CString&, Thickness)
