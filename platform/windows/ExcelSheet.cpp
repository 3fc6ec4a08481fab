#include "platform/windows/ExcelSheet.h"

#include "platform/windows/CellVariant.h"
#include "platform/windows/ExcelMembers.h"

namespace qv {

std::int32_t ExcelSheet::CountOfUsed(DISPID part) {
  if (!usedRange_) usedRange_ = InvokeForObject(sheet_, excel::kWorksheetUsedRange, DISPATCH_PROPERTYGET);
  const AutomationObject lines = InvokeForObject(usedRange_, part, DISPATCH_PROPERTYGET);
  Variant count;
  Invoke(lines, excel::kRangeCount, DISPATCH_PROPERTYGET, {}, count);
  if (count.Get().vt != VT_I4) throw SpreadsheetError("the spreadsheet application gave no count");
  return count.Get().lVal;
}

std::int32_t ExcelSheet::UsedRows() { return CountOfUsed(excel::kRangeRows); }
std::int32_t ExcelSheet::UsedColumns() { return CountOfUsed(excel::kRangeColumns); }

void ExcelSheet::CellAt(std::int32_t row, std::int32_t column, Variant& cell) {
  if (!cells_) cells_ = InvokeForObject(sheet_, excel::kCells, DISPATCH_PROPERTYGET);
  const VARIANT place[] = {Argument(static_cast<long>(row)), Argument(static_cast<long>(column))};
  Invoke(cells_, excel::kRangeItem, DISPATCH_PROPERTYGET, place, cell);
}

std::string ExcelSheet::ReadCell(std::int32_t row, std::int32_t column) {
  Variant cell;
  CellAt(row, column, cell);
  const AutomationObject range = ObjectOf(cell.Get());
  if (!range) return CellText(cell.Get());
  Variant value;
  Invoke(range, excel::kRangeValue, DISPATCH_PROPERTYGET, {}, value);
  return CellText(value.Get());
}

void ExcelSheet::WriteCell(std::int32_t row, std::int32_t column, std::string_view text) {
  Variant cell, nothing;
  CellAt(row, column, cell);
  const Bstr value(text);
  const VARIANT arguments[] = {Argument(value)};
  Invoke(ObjectOf(cell.Get()), excel::kRangeValue2, DISPATCH_PROPERTYPUT, arguments, nothing);
}

void ExcelSheet::Activate() {
  try {
    Variant nothing;
    Invoke(sheet_, excel::kWorksheetActivate, DISPATCH_METHOD, {}, nothing);
  } catch (const SpreadsheetError&) {
    // The sheet that is shown first matters less than what the sheets hold.
  }
}

}  // namespace qv
