#include <QVAssemblyFile/PartInformation.h>

#include "records/Accessors.h"

PartInformation::PartInformation() = default;
PartInformation& PartInformation::operator=(const PartInformation& other) = default;
PartInformation::~PartInformation() = default;

QV_TEXT(PartInformation, GetPartName, SetPartName, partName_)
QV_TEXT(PartInformation, GetPartNumber, SetPartNumber, partNumber_)
QV_TEXT(PartInformation, GetFullPathNameA, SetFullPathName, fullPathName_)
QV_TEXT(PartInformation, GetDueDate, SetDueDate, dueDate_)
QV_TEXT(PartInformation, GetMaterialType, SetMaterialType, materialType_)
QV_TEXT(PartInformation, GetPartComment, SetPartComment, partComment_)
QV_TEXT(PartInformation, GetRevision, SetRevision, revision_)
QV_TEXT(PartInformation, GetMachine, SetMachine, machine_)
QV_TEXT(PartInformation, GetToolInventory, SetToolInventory, toolInventory_)
QV_TEXT(PartInformation, GetMaterialGroup, SetMaterialGroup, materialGroup_)
QV_TEXT(PartInformation, GetCustomer, SetCustomer, customer_)
QV_TEXT(PartInformation, GetRouterNumber, SetRouterNumber, routerNumber_)
QV_TEXT(PartInformation, GetWorkOderNumber, SetWorkOderNumber, workOderNumber_)
QV_TEXT(PartInformation, GetGroupName, SetGroupName, groupName_)
QV_TEXT(PartInformation, GetPartPositionInGroup, SetPartPositionInGroup, partPositionInGroup_)
QV_TEXT(PartInformation, GetMaterialFile, SetMaterialFile, materialFile_)
QV_TEXT(PartInformation, GetRectangularTrueShape, SetRectangularTrueShape, rectangularTrueShape_)
QV_TEXT(PartInformation, GetCCutPunch, SetCCutPunch, cCutPunch_)
QV_TEXT(PartInformation, GetGrainDirection, SetGrainDirection, grainDirection_)
QV_TEXT(PartInformation, GetRotateSpecificAngle, SetRotateSpecificAngle, rotateSpecificAngle_)
QV_TEXT(PartInformation, GetMaterialCode, SetMaterialCode, materialCode_)
QV_TEXT(PartInformation, GetMaterialDescription, SetMaterialDescription, materialDescription_)
QV_TEXT(PartInformation, GetCustomerMaterialType, SetCustomerMaterialType, customerMaterialType_)
QV_TEXT(PartInformation, GetCoating, SetCoating, coating_)

QV_VALUE(PartInformation, int, PartQuantity, partQuantity_)
QV_VALUE(PartInformation, double, MaterialThickness, materialThickness_)
QV_VALUE(PartInformation, int, BinID, binID_)
QV_VALUE(PartInformation, double, EstimateTime, estimateTime_)
int PartInformation::StackTableId() const { return stackTableId_; }
void PartInformation::SetStackTableId(int value) { stackTableId_ = value; }
QV_VALUE(PartInformation, int, Rotation, rotation_)
QV_VALUE(PartInformation, int, CommonCutting, commonCutting_)
int PartInformation::GetPriority() const { return priority_; }
void PartInformation::SetPriority(int value) { priority_ = value; }

QV_VALUE(PartInformation, bool, IsMachineAvailable, isMachineAvailable_)
QV_VALUE(PartInformation, bool, IsMaterialTypeAvailable, isMaterialTypeAvailable_)
QV_VALUE(PartInformation, bool, IsMaterialThicknessAvailable, isMaterialThicknessAvailable_)
QV_VALUE(PartInformation, bool, IsMaterialGroupAvailable, isMaterialGroupAvailable_)
QV_VALUE(PartInformation, bool, IsPreferredMaterialAvailable, isPreferredMaterialAvailable_)
QV_VALUE(PartInformation, bool, IsPartNumberAvailable, isPartNumberAvailable_)
QV_VALUE(PartInformation, bool, IsCustomerAvailable, isCustomerAvailable_)
QV_VALUE(PartInformation, bool, IsPartCommentAvailable, isPartCommentAvailable_)
QV_VALUE(PartInformation, bool, IsRevisionAvailable, isRevisionAvailable_)
QV_VALUE(PartInformation, bool, IsToolInventoryAvailable, isToolInventoryAvailable_)
QV_VALUE(PartInformation, bool, IsBinIDAvailable, isBinIDAvailable_)
