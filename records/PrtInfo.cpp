#include <QVAssemblyFile/PrtInfo.h>

#include "records/Accessors.h"

PrtInfo::PrtInfo() = default;
PrtInfo::PrtInfo(const PrtInfo& other) = default;
PrtInfo& PrtInfo::operator=(const PrtInfo& other) = default;
PrtInfo::~PrtInfo() = default;

QV_TEXT(PrtInfo, GetPartName, SetPartName, partName_)
QV_TEXT(PrtInfo, GetCustomer, SetCustomer, customer_)
QV_TEXT(PrtInfo, GetPartNumber, SetPartNumber, partNumber_)
QV_TEXT(PrtInfo, GetProgrammerName, SetProgrammerName, programmerName_)
QV_TEXT(PrtInfo, GetRevision, SetRevision, revision_)
QV_TEXT(PrtInfo, GetComments, SetComments, comments_)
QV_TEXT(PrtInfo, GetMachine, SetMachine, machine_)
QV_TEXT(PrtInfo, GetToolInventory, SetToolInventory, toolInventory_)
QV_TEXT(PrtInfo, GetMaterialFile, SetMaterialFile, materialFile_)
QV_TEXT(PrtInfo, GetMaterialGroup, SetMaterialGroup, materialGroup_)
QV_TEXT(PrtInfo, GetMaterialType, SetMaterialType, materialType_)
QV_TEXT(PrtInfo, GetClampPosition, SetClampPosition, clampPosition_)

QV_VALUE(PrtInfo, float, PartSizeX, partSizeX_)
QV_VALUE(PrtInfo, float, PartSizeY, partSizeY_)
QV_VALUE(PrtInfo, float, DefaultRotation, defaultRotation_)
QV_VALUE(PrtInfo, double, EstimateTime, estimateTime_)
QV_VALUE(PrtInfo, int, PartDefaultPosition, partDefaultPosition_)
QV_VALUE(PrtInfo, double, AverProcessTime, averProcessTime_)
QV_VALUE(PrtInfo, float, GridSpacingH, gridSpacingH_)
QV_VALUE(PrtInfo, float, GridSpacingV, gridSpacingV_)
QV_VALUE(PrtInfo, float, MarginTop, marginTop_)
QV_VALUE(PrtInfo, float, MarginBottom, marginBottom_)
QV_VALUE(PrtInfo, float, MarginLeft, marginLeft_)
QV_VALUE(PrtInfo, float, MarginRight, marginRight_)
QV_VALUE(PrtInfo, float, SheetSizeX, sheetSizeX_)
QV_VALUE(PrtInfo, float, SheetSizeY, sheetSizeY_)
QV_VALUE(PrtInfo, float, MaterialThickness, materialThickness_)

// A copy made first keeps the record whole when memory runs out, and lets the caller pass a list that it got.
#define QV_LIST(Element, field)                                            \
  void PrtInfo::Get##Element(std::vector<Element>& list) { list = field; } \
  void PrtInfo::Set##Element(std::vector<Element>& list) {                 \
    std::vector<Element> copy(list);                                       \
    (field).swap(copy);                                                    \
  }

QV_LIST(UsedToolInfo, usedToolInfo_)
QV_LIST(HoleInfo, holeInfo_)
QV_LIST(BendInfo, bendInfo_)
