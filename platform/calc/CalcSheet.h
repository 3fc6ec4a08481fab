#pragma once

#include "platform/SpreadsheetApplication.h"

#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/sheet/XCellRangeData.hpp>
#include <com/sun/star/sheet/XSheetCellCursor.hpp>
#include <com/sun/star/sheet/XSpreadsheet.hpp>
#include <com/sun/star/table/CellRangeAddress.hpp>
#include <com/sun/star/table/XCellCursor.hpp>
#include <com/sun/star/util/XNumberFormats.hpp>

#include <map>
#include <optional>

namespace qv {

/// A sheet of a Calc document. One cursor of the size of a cell moves over it: that spares the office an
/// object, and the line three calls, for every cell.
class CalcSheet : public Worksheet {
 public:
  /// Throws css::uno::Exception.
  CalcSheet(const css::uno::Reference<css::uno::XInterface>& sheet,
            const css::uno::Reference<css::frame::XModel>& document);

  std::int32_t UsedRows() override;
  std::int32_t UsedColumns() override;
  std::string ReadCell(std::int32_t row, std::int32_t column) override;
  void WriteCell(std::int32_t row, std::int32_t column, std::string_view text) override;
  void Activate() override;

 private:
  enum class NumberKind { General, Number, Boolean, Date };

  const css::table::CellRangeAddress& UsedRange();
  void GoTo(std::int32_t row, std::int32_t column);
  std::string NumberCellText(double value);
  NumberKind KindOfFormat(sal_Int32 key);
  bool IsLogicalFormula();
  std::string ShownText();

  css::uno::Reference<css::sheet::XSpreadsheet> sheet_;
  css::uno::Reference<css::table::XCellCursor> cursor_;
  css::uno::Reference<css::sheet::XCellRangeData> data_;
  css::uno::Reference<css::beans::XPropertySet> properties_;
  css::uno::Reference<css::util::XNumberFormats> formats_;
  std::map<sal_Int32, NumberKind> kinds_;
  css::table::CellRangeAddress end_;
  std::optional<css::table::CellRangeAddress> used_;
  std::int32_t row_ = 1;  // where the cursor stands
  std::int32_t column_ = 1;
};

}  // namespace qv
