#include <QVAssemblyFile/ShtInfo.h>

#include "records/Accessors.h"

ShtInfo::ShtInfo() = default;
ShtInfo& ShtInfo::operator=(const ShtInfo& other) = default;
ShtInfo::~ShtInfo() = default;

QV_TEXT(ShtInfo, GetSheetName, SetSheetName, sheetName_)
QV_TEXT(ShtInfo, GetMaterialGroup, SetMaterialGroup, materialGroup_)
QV_TEXT(ShtInfo, GetMaterialType, SetMaterialType, materialType_)
QV_TEXT(ShtInfo, GetSheetSize, SetSheetSize, sheetSize_)
QV_TEXT(ShtInfo, GetThickness, SetThickness, thickness_)
QV_TEXT(ShtInfo, GetLaserMaterialName, SetLaserMaterialName, laserMaterialName_)
QV_TEXT(ShtInfo, GetComments, SetComments, comments_)
QV_TEXT(ShtInfo, GetProgrammer, SetProgrammer, programmer_)
QV_TEXT(ShtInfo, GetCustomer, SetCustomer, customer_)
QV_TEXT(ShtInfo, GetMachineFile, SetMachineFile, machineFile_)
QV_TEXT(ShtInfo, GetInventoryFile, SetInventoryFile, inventoryFile_)
QV_TEXT(ShtInfo, GetMaterialFile, SetMaterialFile, materialFile_)
QV_TEXT(ShtInfo, GetClampPosition, SetClampPosition, clampPosition_)
QV_TEXT(ShtInfo, GetTotalRunTime, SetTotalRunTime, totalRunTime_)
