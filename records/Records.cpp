#include <QVAssemblyFile/JobProgressInfo.h>
#include <QVAssemblyFile/MatAmncITInfo.h>
#include <QVAssemblyFile/MatLibraryInfo.h>
#include <QVAssemblyFile/MaterialInfomation.h>
#include <QVAssemblyFile/PartInformation.h>
#include <QVAssemblyFile/PrtInfo.h>
#include <QVAssemblyFile/ShtInfo.h>
#include <QVAssemblyFile/ToolInformation.h>

#include <utility>

namespace qv {

void* AllocateRecord(std::size_t size) { return ::operator new(size); }

void* AllocateRecord(std::size_t size, const std::nothrow_t& quietly) noexcept {
  return ::operator new(size, quietly);
}

void FreeRecord(void* record) noexcept { ::operator delete(record); }

}  // namespace qv

// The bodies of accessors. A member is named after its accessors' stem, so that no pair can reach another's.

#define QV_TEXT(Class, Stem)                                     \
  void Class::Get##Stem(char* buffer) { (Stem##_).Get(buffer); } \
  void Class::Set##Stem(const char* text) { (Stem##_).Set(text); }

#define QV_VALUE(Class, Type, Stem)           \
  Type Class::Get##Stem() { return Stem##_; } \
  void Class::Set##Stem(Type value) { (Stem##_) = value; }

#define QV_STRING_BY_VALUE(Class, Stem)          \
  CString Class::Get##Stem() { return Stem##_; } \
  void Class::Set##Stem(CString text) { (Stem##_) = std::move(text); }

#define QV_STRING_BY_REFERENCE(Class, Stem)      \
  CString Class::Get##Stem() { return Stem##_; } \
  void Class::Set##Stem(const CString& text) { (Stem##_) = text; }

PartInformation::PartInformation() = default;
PartInformation& PartInformation::operator=(const PartInformation& other) = default;
PartInformation::~PartInformation() = default;

QV_TEXT(PartInformation, PartName)
QV_TEXT(PartInformation, PartNumber)
void PartInformation::GetFullPathNameA(char* buffer) { FullPathName_.Get(buffer); }
void PartInformation::SetFullPathName(const char* text) { FullPathName_.Set(text); }
QV_TEXT(PartInformation, DueDate)
QV_TEXT(PartInformation, MaterialType)
QV_TEXT(PartInformation, PartComment)
QV_TEXT(PartInformation, Revision)
QV_TEXT(PartInformation, Machine)
QV_TEXT(PartInformation, ToolInventory)
QV_TEXT(PartInformation, MaterialGroup)
QV_TEXT(PartInformation, Customer)
QV_TEXT(PartInformation, RouterNumber)
QV_TEXT(PartInformation, WorkOderNumber)
QV_TEXT(PartInformation, GroupName)
QV_TEXT(PartInformation, PartPositionInGroup)
QV_TEXT(PartInformation, MaterialFile)
QV_TEXT(PartInformation, RectangularTrueShape)
QV_TEXT(PartInformation, CCutPunch)
QV_TEXT(PartInformation, GrainDirection)
QV_TEXT(PartInformation, RotateSpecificAngle)
QV_TEXT(PartInformation, MaterialCode)
QV_TEXT(PartInformation, MaterialDescription)
QV_TEXT(PartInformation, CustomerMaterialType)
QV_TEXT(PartInformation, Coating)

QV_VALUE(PartInformation, int, PartQuantity)
QV_VALUE(PartInformation, double, MaterialThickness)
QV_VALUE(PartInformation, int, BinID)
QV_VALUE(PartInformation, double, EstimateTime)
int PartInformation::StackTableId() const { return StackTableId_; }
void PartInformation::SetStackTableId(int value) { StackTableId_ = value; }
QV_VALUE(PartInformation, int, Rotation)
QV_VALUE(PartInformation, int, CommonCutting)
int PartInformation::GetPriority() const { return Priority_; }
void PartInformation::SetPriority(int value) { Priority_ = value; }

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

ToolInformation::ToolInformation() = default;
ToolInformation& ToolInformation::operator=(const ToolInformation& other) = default;
ToolInformation::~ToolInformation() = default;

QV_TEXT(ToolInformation, ToolShape)
QV_TEXT(ToolInformation, ToolDimensions)
QV_TEXT(ToolInformation, ToolAngles)
QV_TEXT(ToolInformation, ToolClearance)
QV_TEXT(ToolInformation, StorageInfo)
QV_TEXT(ToolInformation, ToolName)
QV_TEXT(ToolInformation, ToolComment)
QV_TEXT(ToolInformation, ToolDriverName)

QV_VALUE(ToolInformation, int, ToolID)
QV_VALUE(ToolInformation, int, ToolType)
QV_VALUE(ToolInformation, float, ToolSize)

const char* ToolInformation::GetToolPunchConditionString() const { return ToolPunchConditionString_.c_str(); }
void ToolInformation::SetToolPunchConditionString(const char* text) {
  if (text != nullptr) ToolPunchConditionString_.assign(text);
}

MaterialInfomation::MaterialInfomation() = default;
MaterialInfomation::MaterialInfomation(const MaterialInfomation& other) = default;
MaterialInfomation& MaterialInfomation::operator=(const MaterialInfomation& other) = default;
MaterialInfomation::~MaterialInfomation() = default;

QV_STRING_BY_VALUE(MaterialInfomation, MatType)
QV_STRING_BY_VALUE(MaterialInfomation, MJTool)
QV_STRING_BY_VALUE(MaterialInfomation, PierceHoleTool)

QV_TEXT(MaterialInfomation, MatFile)
QV_TEXT(MaterialInfomation, MachineFile)
QV_TEXT(MaterialInfomation, MatComment)
QV_TEXT(MaterialInfomation, InLeadInType)
QV_TEXT(MaterialInfomation, InLeadOutType)
QV_TEXT(MaterialInfomation, ExLeadInType)
QV_TEXT(MaterialInfomation, ExLeadOutType)

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

QV_VALUE(MaterialInfomation, int, PierceType)
QV_VALUE(MaterialInfomation, bool, PrePierceYesNo)
QV_VALUE(MaterialInfomation, float, StandardPierceDataM103Ax)
QV_VALUE(MaterialInfomation, float, RecoveryDisM105XY)
QV_VALUE(MaterialInfomation, float, LaserPierceCondition)
QV_VALUE(MaterialInfomation, int, DwellBeforePierce)
QV_VALUE(MaterialInfomation, float, DwellBeforePierceValue)
QV_VALUE(MaterialInfomation, int, DwellAfterPierce)
QV_VALUE(MaterialInfomation, float, DwellAfterPierceValue)
QV_VALUE(MaterialInfomation, float, CutterCompensationBeamDiameter)
QV_VALUE(MaterialInfomation, float, CutterCompensationCutterComp)

QV_VALUE(MaterialInfomation, int, AfterCutConditionsInformation)
QV_VALUE(MaterialInfomation, bool, AfterCutConditionsDwell)
QV_VALUE(MaterialInfomation, bool, AfterCutConditionsRaise)

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
QV_VALUE(MaterialInfomation, float, MJLeadInLength)
QV_VALUE(MaterialInfomation, float, MJLeadInAngle)
QV_VALUE(MaterialInfomation, float, MJLeadOutLength)
QV_VALUE(MaterialInfomation, float, MJLeadOutAngle)

QV_VALUE(MaterialInfomation, int, CustomPeri_ComCutting_Style)
QV_VALUE(MaterialInfomation, float, CustomPeri_ComCutting_BeamDiameter)
QV_VALUE(MaterialInfomation, float, CustomPeri_ComCutting_CuttingOverLength)
QV_VALUE(MaterialInfomation, float, CustomPeri_ComCutting_MinimumEdge)
QV_VALUE(MaterialInfomation, int, CustomPeri_ComCutting_StartingCorner)
QV_VALUE(MaterialInfomation, bool, CustomPeri_ComCutting_xDirection)
QV_VALUE(MaterialInfomation, float, CustomPeri_ComCutting_BridgeSize)
QV_VALUE(MaterialInfomation, float, CustomPeri_ComCutting_MaxChanLength)
QV_VALUE(MaterialInfomation, float, CustomPeri_ComCutting_DistancetoSkip)

QV_VALUE(MaterialInfomation, float, LengthLeadinToSplitCutoutsMinWidth)
QV_VALUE(MaterialInfomation, float, LengthLeadinToSplitCutoutsMaxWidth)
QV_VALUE(MaterialInfomation, float, SplitCutoutsSlugDestroyPitch)
QV_VALUE(MaterialInfomation, bool, SplitCutoutsDoNotPierceNearEdge)
QV_VALUE(MaterialInfomation, float, SplitCutoutsBeamCompensation)

QV_VALUE(MaterialInfomation, int, PeriNotchReliefLeadInType)
QV_VALUE(MaterialInfomation, float, PeriNotchReliefLeadInLength)
QV_VALUE(MaterialInfomation, float, PeriNotchReliefLeadInFromPierceToCut)
QV_VALUE(MaterialInfomation, int, PeriNotchReliefLeadOutType)
QV_VALUE(MaterialInfomation, float, PeriNotchReliefLeadOutLength)
QV_VALUE(MaterialInfomation, float, PeriNotchReliefLeadOutFromPierceToCut)
QV_VALUE(MaterialInfomation, float, PeriNotchReliefNotchSplitCutXPitch)
QV_VALUE(MaterialInfomation, float, PeriNotchReliefNotchSplitCutYPitch)
QV_VALUE(MaterialInfomation, float, PeriNotchReliefDoubleCutsOffset)
QV_VALUE(MaterialInfomation, float, PeriNotchReliefAutoPerimeterNotchReliefAutoOffset)
QV_VALUE(MaterialInfomation, float, PeriNotchReliefAutoPerimeterNotchReliefHeight)
QV_VALUE(MaterialInfomation, float, PeriNotchReliefNotchCutOutRange)

QV_VALUE(MaterialInfomation, int, SplitSheetLeadInType)
QV_VALUE(MaterialInfomation, float, SplitSheetLeadInLength)
QV_VALUE(MaterialInfomation, float, SplitSheetLeadInAngle)
QV_VALUE(MaterialInfomation, float, SplitSheetLeadInFromPierceToCut)
QV_VALUE(MaterialInfomation, int, SplitSheetLeadOutType)
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

ShtInfo::ShtInfo() = default;
ShtInfo& ShtInfo::operator=(const ShtInfo& other) = default;
ShtInfo::~ShtInfo() = default;

QV_TEXT(ShtInfo, SheetName)
QV_TEXT(ShtInfo, MaterialGroup)
QV_TEXT(ShtInfo, MaterialType)
QV_TEXT(ShtInfo, SheetSize)
QV_TEXT(ShtInfo, Thickness)
QV_TEXT(ShtInfo, LaserMaterialName)
QV_TEXT(ShtInfo, Comments)
QV_TEXT(ShtInfo, Programmer)
QV_TEXT(ShtInfo, Customer)
QV_TEXT(ShtInfo, MachineFile)
QV_TEXT(ShtInfo, InventoryFile)
QV_TEXT(ShtInfo, MaterialFile)
QV_TEXT(ShtInfo, ClampPosition)
QV_TEXT(ShtInfo, TotalRunTime)

PrtInfo::PrtInfo() = default;
PrtInfo::PrtInfo(const PrtInfo& other) = default;
PrtInfo& PrtInfo::operator=(const PrtInfo& other) = default;
PrtInfo::~PrtInfo() = default;

QV_TEXT(PrtInfo, PartName)
QV_TEXT(PrtInfo, Customer)
QV_TEXT(PrtInfo, PartNumber)
QV_TEXT(PrtInfo, ProgrammerName)
QV_TEXT(PrtInfo, Revision)
QV_TEXT(PrtInfo, Comments)
QV_TEXT(PrtInfo, Machine)
QV_TEXT(PrtInfo, ToolInventory)
QV_TEXT(PrtInfo, MaterialFile)
QV_TEXT(PrtInfo, MaterialGroup)
QV_TEXT(PrtInfo, MaterialType)
QV_TEXT(PrtInfo, ClampPosition)

QV_VALUE(PrtInfo, float, PartSizeX)
QV_VALUE(PrtInfo, float, PartSizeY)
QV_VALUE(PrtInfo, float, DefaultRotation)
QV_VALUE(PrtInfo, double, EstimateTime)
QV_VALUE(PrtInfo, int, PartDefaultPosition)
QV_VALUE(PrtInfo, double, AverProcessTime)
QV_VALUE(PrtInfo, float, GridSpacingH)
QV_VALUE(PrtInfo, float, GridSpacingV)
QV_VALUE(PrtInfo, float, MarginTop)
QV_VALUE(PrtInfo, float, MarginBottom)
QV_VALUE(PrtInfo, float, MarginLeft)
QV_VALUE(PrtInfo, float, MarginRight)
QV_VALUE(PrtInfo, float, SheetSizeX)
QV_VALUE(PrtInfo, float, SheetSizeY)
QV_VALUE(PrtInfo, float, MaterialThickness)

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

MatAmncITInfo::MatAmncITInfo() = default;
MatAmncITInfo::MatAmncITInfo(const MatAmncITInfo& other) = default;
MatAmncITInfo& MatAmncITInfo::operator=(const MatAmncITInfo& other) = default;
MatAmncITInfo::~MatAmncITInfo() = default;

QV_VALUE(MatAmncITInfo, int, ShelfNo)
QV_VALUE(MatAmncITInfo, int, Quantity)
QV_STRING_BY_VALUE(MatAmncITInfo, MaterialName)
QV_VALUE(MatAmncITInfo, float, Thickness)
QV_VALUE(MatAmncITInfo, float, SizeX)
QV_VALUE(MatAmncITInfo, float, SizeY)
QV_STRING_BY_VALUE(MatAmncITInfo, Palletkind)

MatLibraryInfo::MatLibraryInfo() = default;
MatLibraryInfo::MatLibraryInfo(const MatLibraryInfo& other) = default;
MatLibraryInfo& MatLibraryInfo::operator=(const MatLibraryInfo& other) = default;
MatLibraryInfo::~MatLibraryInfo() = default;

JobProgressInfo::JobProgressInfo() = default;
JobProgressInfo::JobProgressInfo(const JobProgressInfo& other) = default;
JobProgressInfo& JobProgressInfo::operator=(const JobProgressInfo& other) = default;
JobProgressInfo::~JobProgressInfo() = default;

QV_STRING_BY_REFERENCE(JobProgressInfo, JobName)
QV_STRING_BY_REFERENCE(JobProgressInfo, JobProgress)
QV_STRING_BY_REFERENCE(JobProgressInfo, StartTime)
QV_STRING_BY_REFERENCE(JobProgressInfo, EndTime)
QV_STRING_BY_REFERENCE(JobProgressInfo, TotalPartQty)
QV_STRING_BY_REFERENCE(JobProgressInfo, TotalDoneQty)
QV_STRING_BY_REFERENCE(JobProgressInfo, MatType)
QV_STRING_BY_REFERENCE(JobProgressInfo, Thickness)
