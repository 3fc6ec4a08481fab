#include "engines/columns/Cells.h"
#include "engines/columns/ColumnTables.h"

#include <string>

namespace qv {
namespace {

using T = ToolInformation;

Remark ReadPunchCondition(T& tool, std::string_view text, std::string*) {
  tool.SetToolPunchConditionString(std::string(UpToNul(text)).c_str());
  return Remark::None;
}

bool WritePunchCondition(const T& tool, std::size_t, TextBuffer& out) {
  return AppendText(out, tool.GetToolPunchConditionString());
}

}  // namespace

std::span<const Column<T>> ColumnTable<T>::Columns() {
  static constexpr Column<T> kColumns[] = {
      Int<&T::toolID_>("ID"),
      Words<&T::toolType_, kToolTypes>("Type"),
      Text<&T::toolShape_>("Shape"),
      Text<&T::toolDimensions_>("Dimensions"),
      Real<&T::toolSize_>("Size"),
      Text<&T::toolAngles_>("Angles"),
      Text<&T::toolClearance_>("Clearances"),
      Text<&T::storageInfo_>("StorageInfo"),
      Text<&T::toolName_>("ToolName"),
      Text<&T::toolComment_>("ToolComment"),
      Text<&T::toolDriverName_>("DriverName"),
      {"PunchCondition", ReadPunchCondition, WritePunchCondition},
  };
  return kColumns;
}

}  // namespace qv
