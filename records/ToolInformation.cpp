#include <QVAssemblyFile/ToolInformation.h>

#include "records/Accessors.h"

ToolInformation::ToolInformation() = default;
ToolInformation& ToolInformation::operator=(const ToolInformation& other) = default;
ToolInformation::~ToolInformation() = default;

QV_TEXT(ToolInformation, GetToolShape, SetToolShape, toolShape_)
QV_TEXT(ToolInformation, GetToolDimensions, SetToolDimensions, toolDimensions_)
QV_TEXT(ToolInformation, GetToolAngles, SetToolAngles, toolAngles_)
QV_TEXT(ToolInformation, GetToolClearance, SetToolClearance, toolClearance_)
QV_TEXT(ToolInformation, GetStorageInfo, SetStorageInfo, storageInfo_)
QV_TEXT(ToolInformation, GetToolName, SetToolName, toolName_)
QV_TEXT(ToolInformation, GetToolComment, SetToolComment, toolComment_)
QV_TEXT(ToolInformation, GetToolDriverName, SetToolDriverName, toolDriverName_)

QV_VALUE(ToolInformation, int, ToolID, toolID_)
QV_VALUE(ToolInformation, int, ToolType, toolType_)
QV_VALUE(ToolInformation, float, ToolSize, toolSize_)

const char* ToolInformation::GetToolPunchConditionString() const { return toolPunchConditionString_.c_str(); }
void ToolInformation::SetToolPunchConditionString(const char* text) {
  if (text != nullptr) toolPunchConditionString_.assign(text);
}
