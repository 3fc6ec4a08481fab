#include "engines/columns/Cells.h"
#include "engines/columns/ColumnTables.h"

namespace qv {

std::span<const Column<MatAmncITInfo>> ColumnTable<MatAmncITInfo>::Columns() {
  using M = MatAmncITInfo;
  static constexpr Column<M> kColumns[] = {
      IntRead<&M::shelfNo_>("ShelfNo"),        IntRead<&M::quantity_>("Quantity"),
      TextRead<&M::materialName_>("MatName"),  RealRead<&M::thickness_>("Thickness"),
      RealRead<&M::sizeX_>("SizeX"),           RealRead<&M::sizeY_>("SizeY"),
      TextRead<&M::palletkind_>("PalletKind"),
  };
  return kColumns;
}

std::span<const Column<MatLibraryInfo>> ColumnTable<MatLibraryInfo>::Columns() {
  using M = MatLibraryInfo;
  static constexpr Column<M> kColumns[] = {
      TextRead<&M::MaterialCode>("MaterialCode"),
      TextRead<&M::MaterialDescription>("MaterialDescription"),
      TextRead<&M::CustomerMaterialType>("CustomerMaterialType"),
      TextRead<&M::MaterialType>("MaterialType"),
      RealRead<&M::SizeX>("SizeX"),
      RealRead<&M::SizeY>("SizeY"),
      RealRead<&M::Thickness>("Thickness"),
      RealRead<&M::Thickness>("MaterialThickness"),
      IntRead<&M::Coating>("Coating"),
      IntRead<&M::Quantity>("Quantity"),
      IntRead<&M::ShelfNo>("ShelfNo"),
  };
  return kColumns;
}

std::span<const Column<JobProgressInfo>> ColumnTable<JobProgressInfo>::Columns() {
  using J = JobProgressInfo;
  static constexpr Column<J> kColumns[] = {
      TextWritten<&J::jobName_>("JobName"),           TextWritten<&J::jobProgress_>("JobProgress"),
      TextWritten<&J::startTime_>("StartTime"),       TextWritten<&J::endTime_>("EndTime"),
      TextWritten<&J::totalPartQty_>("TotalPartQty"), TextWritten<&J::totalDoneQty_>("TotalDoneQty"),
      TextWritten<&J::matType_>("MaterialType"),      TextWritten<&J::thickness_>("Thickness"),
  };
  return kColumns;
}

}  // namespace qv
