#include "engines/columns/Cells.h"
#include "engines/columns/ColumnTables.h"

namespace qv {

std::span<const Column<ShtInfo>> ColumnTable<ShtInfo>::Columns() {
  using S = ShtInfo;
  static constexpr Column<S> kColumns[] = {
      TextWritten<&S::sheetName_>("SheetName"),
      Text<&S::materialGroup_>("MaterialGroup"),
      Text<&S::materialType_>("MaterialType"),
      Text<&S::sheetSize_>("SheetSize"),
      Text<&S::thickness_>("Thickness"),
      Text<&S::laserMaterialName_>("LaserMaterialName"),
      Text<&S::comments_>("Comments"),
      Text<&S::programmer_>("Programmer"),
      Text<&S::customer_>("Customer"),
      Text<&S::machineFile_>("MachineFile"),
      Text<&S::inventoryFile_>("InventoryFile"),
      Text<&S::materialFile_>("MaterialFile"),
      TextWritten<&S::clampPosition_>("ClampPosition"),
      TextWritten<&S::totalRunTime_>("TotalRunTime"),
  };
  return kColumns;
}

}  // namespace qv
