#include "platform/calc/CalcSheet.h"

#include "platform/calc/CellText.h"
#include "platform/calc/OfficeCall.h"

#include <com/sun/star/sheet/XCellRangeAddressable.hpp>
#include <com/sun/star/sheet/XCellRangeFormula.hpp>
#include <com/sun/star/sheet/XUsedAreaCursor.hpp>
#include <com/sun/star/table/XCell.hpp>
#include <com/sun/star/text/XTextRange.hpp>
#include <com/sun/star/util/NumberFormat.hpp>
#include <com/sun/star/util/XNumberFormatsSupplier.hpp>

namespace qv {
namespace {

constexpr sal_Unicode kFeature = 1;  // stands for a tab in the value of a cell of several lines

template <class Interface>
css::uno::Reference<Interface> As(const css::uno::Reference<css::uno::XInterface>& object) {
  return css::uno::Reference<Interface>(object, css::uno::UNO_QUERY_THROW);
}

std::string CellName(std::int32_t row, std::int32_t column) {
  return "the cell in row " + std::to_string(row) + ", column " + std::to_string(column);
}

}  // namespace

CalcSheet::CalcSheet(const css::uno::Reference<css::uno::XInterface>& sheet,
                     const css::uno::Reference<css::frame::XModel>& document)
    : sheet_(sheet, css::uno::UNO_QUERY_THROW) {
  const auto firstCell = As<css::sheet::XSheetCellRange>(sheet_->getCellRangeByPosition(0, 0, 0, 0));
  cursor_ = As<css::table::XCellCursor>(sheet_->createCursorByRange(firstCell));
  data_ = As<css::sheet::XCellRangeData>(cursor_);
  properties_ = As<css::beans::XPropertySet>(cursor_);
  end_ = As<css::sheet::XCellRangeAddressable>(sheet_)->getRangeAddress();
  formats_ = As<css::util::XNumberFormatsSupplier>(document)->getNumberFormats();
}

const css::table::CellRangeAddress& CalcSheet::UsedRange() {
  if (!used_) {
    const auto area = As<css::sheet::XUsedAreaCursor>(sheet_->createCursor());
    area->gotoStartOfUsedArea(false);
    area->gotoEndOfUsedArea(true);
    used_ = As<css::sheet::XCellRangeAddressable>(area)->getRangeAddress();
  }
  return *used_;
}

std::int32_t CalcSheet::UsedRows() {
  return CallOffice("the used range cannot be read",
                    [this] { return UsedRange().EndRow - UsedRange().StartRow + 1; });
}

std::int32_t CalcSheet::UsedColumns() {
  return CallOffice("the used range cannot be read",
                    [this] { return UsedRange().EndColumn - UsedRange().StartColumn + 1; });
}

void CalcSheet::GoTo(std::int32_t row, std::int32_t column) {
  // A cursor would not move, and stay silent about it.
  if (row < 1 || column < 1 || row > end_.EndRow + 1 || column > end_.EndColumn + 1)
    throw SpreadsheetError("there is no such cell");
  if (row != row_ || column != column_) cursor_->gotoOffset(column - column_, row - row_);
  row_ = row;
  column_ = column;
}

std::string CalcSheet::ReadCell(std::int32_t row, std::int32_t column) {
  return CallOffice(CellName(row, column) + " cannot be read", [&] {
    GoTo(row, column);
    const css::uno::Any value = data_->getDataArray()[0][0];
    if (OUString text; value >>= text) return text.indexOf(kFeature) < 0 ? FromOffice(text) : ShownText();
    if (double number = 0; value >>= number) return NumberCellText(number);
    return ShownText();  // an error has no value, only a name
  });
}

std::string CalcSheet::NumberCellText(double value) {
  sal_Int32 format = 0;
  properties_->getPropertyValue("NumberFormat") >>= format;
  NumberKind kind = KindOfFormat(format);
  if (kind == NumberKind::General && (value == 0 || value == 1) && IsLogicalFormula())
    kind = NumberKind::Boolean;
  if (kind == NumberKind::Boolean) return BooleanText(value != 0);
  return kind == NumberKind::Date ? DateText(value) : NumberText(value);
}

CalcSheet::NumberKind CalcSheet::KindOfFormat(sal_Int32 key) {
  if (const auto known = kinds_.find(key); known != kinds_.end()) return known->second;
  namespace NumberFormat = css::util::NumberFormat;
  sal_Int16 type = NumberFormat::NUMBER;
  formats_->getByKey(key)->getPropertyValue("Type") >>= type;
  bool isStandard = false;
  formats_->getByKey(key)->getPropertyValue("StandardFormat") >>= isStandard;
  NumberKind kind = NumberKind::Number;
  if ((type & NumberFormat::LOGICAL) != 0)
    kind = NumberKind::Boolean;
  else if ((type & NumberFormat::DATETIME) != 0)
    kind = NumberKind::Date;
  else if ((type & NumberFormat::NUMBER) != 0 && isStandard)
    kind = NumberKind::General;
  kinds_[key] = kind;
  return kind;
}

/// A formula without a format of its own shows its truth value as a word but holds a number.
bool CalcSheet::IsLogicalFormula() {
  const auto formulas = As<css::sheet::XCellRangeFormula>(cursor_)->getFormulaArray();
  if (!formulas[0][0].startsWith("=")) return false;
  const std::string shown = ShownText();
  return shown != "0" && shown != "1";
}

std::string CalcSheet::ShownText() {
  const auto cell = sheet_->getCellByPosition(column_ - 1, row_ - 1);
  return FromOffice(As<css::text::XTextRange>(cell)->getString());
}

void CalcSheet::WriteCell(std::int32_t row, std::int32_t column, std::string_view text) {
  CallOffice(CellName(row, column) + " cannot be written", [&] {
    GoTo(row, column);
    const css::uno::Any value(ToOffice(text));  // taken as text, whatever it looks like
    const css::uno::Sequence<css::uno::Any> cells(&value, 1);
    data_->setDataArray({&cells, 1});
  });
}

void CalcSheet::Activate() {
  // A document without a window is saved with its first sheet as the active one, and sheets are only ever
  // added behind that.
}

}  // namespace qv
