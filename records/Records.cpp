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

// QV_EACH(Bodies, Class, Type, Stem...) is Bodies(Class, Type, Stem) for each of the stems. Every scan of the
// preprocessor takes one of them off the list.
#define QV_EACH(Bodies, Class, Type, ...) QV_SCAN125(QV_FIRST(Bodies, Class, Type, __VA_ARGS__))
#define QV_FIRST(Bodies, Class, Type, Stem, ...) \
  Bodies(Class, Type, Stem) __VA_OPT__(QV_OTHERS QV_PARENTHESES(Bodies, Class, Type, __VA_ARGS__))
#define QV_OTHERS() QV_FIRST
#define QV_PARENTHESES ()
#define QV_SCAN125(...) QV_SCAN25(QV_SCAN25(QV_SCAN25(QV_SCAN25(QV_SCAN25(__VA_ARGS__)))))
#define QV_SCAN25(...) QV_SCAN5(QV_SCAN5(QV_SCAN5(QV_SCAN5(QV_SCAN5(__VA_ARGS__)))))
#define QV_SCAN5(...) QV_SCAN(QV_SCAN(QV_SCAN(QV_SCAN(QV_SCAN(__VA_ARGS__)))))
#define QV_SCAN(...) __VA_ARGS__

QV_LIFE(PartInformation)

QV_EACH(QV_TEXT, PartInformation, char, PartName, PartNumber, DueDate, MaterialType, PartComment, Revision,
        Machine, ToolInventory, MaterialGroup, Customer, RouterNumber, WorkOderNumber, GroupName,
        PartPositionInGroup, MaterialFile, RectangularTrueShape, CCutPunch, GrainDirection,
        RotateSpecificAngle, MaterialCode, MaterialDescription, CustomerMaterialType, Coating)
QV_EACH(QV_VALUE, PartInformation, int, PartQuantity, BinID, Rotation, CommonCutting)
QV_EACH(QV_VALUE, PartInformation, double, MaterialThickness, EstimateTime)
QV_EACH(QV_VALUE, PartInformation, bool, IsMachineAvailable, IsMaterialTypeAvailable,
        IsMaterialThicknessAvailable, IsMaterialGroupAvailable, IsPreferredMaterialAvailable,
        IsPartNumberAvailable, IsCustomerAvailable, IsPartCommentAvailable, IsRevisionAvailable,
        IsToolInventoryAvailable, IsBinIDAvailable)

void PartInformation::GetFullPathNameA(char* buffer) { FullPathName_.Get(buffer); }
void PartInformation::SetFullPathName(const char* text) { FullPathName_.Set(text); }

int PartInformation::StackTableId() const { return StackTableId_; }
void PartInformation::SetStackTableId(int value) { StackTableId_ = value; }
int PartInformation::GetPriority() const { return Priority_; }
void PartInformation::SetPriority(int value) { Priority_ = value; }

QV_LIFE(ToolInformation)

QV_EACH(QV_TEXT, ToolInformation, char, ToolShape, ToolDimensions, ToolAngles, ToolClearance, StorageInfo,
        ToolName, ToolComment, ToolDriverName)
QV_EACH(QV_VALUE, ToolInformation, int, ToolID, ToolType)
QV_EACH(QV_VALUE, ToolInformation, float, ToolSize)

const char* ToolInformation::GetToolPunchConditionString() const { return ToolPunchConditionString_.c_str(); }
void ToolInformation::SetToolPunchConditionString(const char* text) {
  if (text != nullptr) ToolPunchConditionString_.assign(text);
}

QV_LIFE(MaterialInfomation)
MaterialInfomation::MaterialInfomation(const MaterialInfomation& other) = default;

QV_EACH(QV_STRING, MaterialInfomation, CString, MatType, MJTool, PierceHoleTool)
QV_EACH(QV_TEXT, MaterialInfomation, char, MatFile, MachineFile, MatComment, InLeadInType, InLeadOutType,
        ExLeadInType, ExLeadOutType)
QV_EACH(QV_VALUE, MaterialInfomation, float, InLeadInLength, InLeadInAngle, InLeadInAngleRad,
        InLeadInLineToTangentArc, InLeadInTwoLineSplit, InLeadInFromPierceToCut, InLeadOutLength,
        InLeadOutAngle, InLeadOutArcRad, InLeadOutLineToTangentArc, InLeadOutOverUnderCutAmount,
        InLeadOutFromCutToEnd, ExLeadInLength, ExLeadInAngle, ExLeadInAngleRad, ExLeadInLineToTangentArc,
        ExLeadInTwoLineSplit, ExLeadInFromPierceToCut, ExLeadOutLength, ExLeadOutAngle, ExLeadOutArcRad,
        ExLeadOutLineToTangentArc, ExLeadOutOverUnderCutAmount, ExLeadOutFromCutToEnd,
        StandardPierceDataM103Ax, RecoveryDisM105XY, LaserPierceCondition, DwellBeforePierceValue,
        DwellAfterPierceValue, CutterCompensationBeamDiameter, CutterCompensationCutterComp, MJLeadInLength,
        MJLeadInAngle, MJLeadOutLength, MJLeadOutAngle, CustomPeri_ComCutting_BeamDiameter,
        CustomPeri_ComCutting_CuttingOverLength, CustomPeri_ComCutting_MinimumEdge,
        CustomPeri_ComCutting_BridgeSize, CustomPeri_ComCutting_MaxChanLength,
        CustomPeri_ComCutting_DistancetoSkip, LengthLeadinToSplitCutoutsMinWidth,
        LengthLeadinToSplitCutoutsMaxWidth, SplitCutoutsSlugDestroyPitch, SplitCutoutsBeamCompensation,
        PeriNotchReliefLeadInLength, PeriNotchReliefLeadInFromPierceToCut, PeriNotchReliefLeadOutLength,
        PeriNotchReliefLeadOutFromPierceToCut, PeriNotchReliefNotchSplitCutXPitch,
        PeriNotchReliefNotchSplitCutYPitch, PeriNotchReliefDoubleCutsOffset,
        PeriNotchReliefAutoPerimeterNotchReliefAutoOffset, PeriNotchReliefAutoPerimeterNotchReliefHeight,
        PeriNotchReliefNotchCutOutRange, SplitSheetLeadInLength, SplitSheetLeadInAngle,
        SplitSheetLeadInFromPierceToCut, SplitSheetLeadOutLength, SplitSheetLeadOutAngle,
        SplitSheetLeadOutFromPierceToCut, SplitSheetHorizontalSplitCuts, SplitSheetVerticalSplitCuts,
        SplitSheetBottomLeftEdge, SplitSheetTopRightEdge, SplitSheetBetweenParts, SplitSheetMinSpace,
        InsideCutouts_MJSize, InsideCutouts_ExceedsX, InsideCutouts_IntervalX, InsideCutouts_ExceedsY,
        InsideCutouts_IntervalY, OutsideCutouts_MJSize, OutsideCutouts_ExceedsX, OutsideCutouts_IntervalX,
        OutsideCutouts_ExceedsY, OutsideCutouts_IntervalY)
QV_EACH(QV_VALUE, MaterialInfomation, int, PierceType, DwellBeforePierce, DwellAfterPierce,
        AfterCutConditionsInformation, Range1HoleMJID, Range1HoleMJQuantity, Range1PerimeterMJID,
        Range1PerimeterMJQuantity, Range2HoleMJID, Range2HoleMJQuantity, Range2PerimeterMJID,
        Range2PerimeterMJQuantity, Range3HoleMJID, Range3HoleMJQuantity, Range3PerimeterMJID,
        Range3PerimeterMJQuantity, CustomPeri_ComCutting_Style, CustomPeri_ComCutting_StartingCorner,
        PeriNotchReliefLeadInType, PeriNotchReliefLeadOutType, SplitSheetLeadInType, SplitSheetLeadOutType)
QV_EACH(QV_VALUE, MaterialInfomation, bool, PrePierceYesNo, AfterCutConditionsDwell, AfterCutConditionsRaise,
        CustomPeri_ComCutting_xDirection, SplitCutoutsDoNotPierceNearEdge)

QV_LIFE(ShtInfo)

QV_EACH(QV_TEXT, ShtInfo, char, SheetName, MaterialGroup, MaterialType, SheetSize, Thickness,
        LaserMaterialName, Comments, Programmer, Customer, MachineFile, InventoryFile, MaterialFile,
        ClampPosition, TotalRunTime)

QV_LIFE(PrtInfo)
PrtInfo::PrtInfo(const PrtInfo& other) = default;

QV_EACH(QV_TEXT, PrtInfo, char, PartName, Customer, PartNumber, ProgrammerName, Revision, Comments, Machine,
        ToolInventory, MaterialFile, MaterialGroup, MaterialType, ClampPosition)
QV_EACH(QV_VALUE, PrtInfo, float, PartSizeX, PartSizeY, DefaultRotation, GridSpacingH, GridSpacingV,
        MarginTop, MarginBottom, MarginLeft, MarginRight, SheetSizeX, SheetSizeY, MaterialThickness)
QV_EACH(QV_VALUE, PrtInfo, double, EstimateTime, AverProcessTime)
QV_EACH(QV_VALUE, PrtInfo, int, PartDefaultPosition)

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

QV_EACH(QV_VALUE, MatAmncITInfo, int, ShelfNo, Quantity)
QV_EACH(QV_STRING, MatAmncITInfo, CString, MaterialName, Palletkind)
QV_EACH(QV_VALUE, MatAmncITInfo, float, Thickness, SizeX, SizeY)

QV_LIFE(MatLibraryInfo)
MatLibraryInfo::MatLibraryInfo(const MatLibraryInfo& other) = default;

QV_LIFE(JobProgressInfo)
JobProgressInfo::JobProgressInfo(const JobProgressInfo& other) = default;

QV_EACH(QV_STRING, JobProgressInfo, const CString&, JobName, JobProgress, StartTime, EndTime, TotalPartQty,
        TotalDoneQty, MatType, Thickness)
