#include "platform/spreadsheet/WorkbookFacts.h"
#include "platform/spreadsheet/excel/Excel.h"
#include "platform/spreadsheet/excel/ExcelMembers.h"

namespace qv {
namespace {

// The conversion knows no text for an error, but a person who looks for the cell does.
std::string ErrorText(SCODE code) {
  constexpr int kFirst = 2000;  // what the numbers of files are counted from here
  const char* const name = ErrorName(SCODE_CODE(code) - kFirst);
  return name != nullptr ? name : "Error " + std::to_string(SCODE_CODE(code));
}

// By the standard conversion: numbers as English has them, dates in the user's order, an error by its name.
std::string CellText(const VARIANT& value) {
  if (value.vt == VT_EMPTY || value.vt == VT_NULL) return {};
  if (value.vt == VT_ERROR) return ErrorText(value.scode);
  // A number with a decimal comma would be read as its whole part. A date is text to everyone but the user.
  const LCID english = MAKELCID(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), SORT_DEFAULT);
  const bool isDate = value.vt == VT_DATE;
  Variant text;
  if (FAILED(VariantChangeTypeEx(text.Receive(), const_cast<VARIANT*>(&value),
                                 isDate ? LOCALE_USER_DEFAULT : english, isDate ? 0 : VARIANT_NOUSEROVERRIDE,
                                 VT_BSTR)))
    throw SpreadsheetError("a cell holds something that is no text");
  return Narrow({text.Get().bstrVal, SysStringLen(text.Get().bstrVal)});
}

// An application that refuses it may make other things of texts, but is used all the same.
void PutTextFormat(const AutomationObject& range) {
  const Bstr text(std::wstring_view(L"@"));
  const VARIANT arguments[] = {Argument(text)};
  InvokeByName(DISPATCH_PROPERTYPUT, nullptr, range.Get(), L"NumberFormat", arguments);
}

}  // namespace

const AutomationObject& ExcelSheet::UsedRange() {
  if (!usedRange_) usedRange_ = InvokeForObject(sheet_, excel::kWorksheetUsedRange, DISPATCH_PROPERTYGET);
  return usedRange_;
}

std::int32_t ExcelSheet::CountOfUsed(DISPID part) {
  return InvokeForNumber(InvokeForObject(UsedRange(), part, DISPATCH_PROPERTYGET), excel::kRangeCount);
}

std::int32_t ExcelSheet::UsedRows() { return CountOfUsed(excel::kRangeRows); }
std::int32_t ExcelSheet::UsedColumns() { return CountOfUsed(excel::kRangeColumns); }

std::int32_t ExcelSheet::FirstUsedRow() { return InvokeForNumber(UsedRange(), excel::kRangeRow); }

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

// What is put as a text is taken as if it had been typed, so that only a cell for texts keeps it.
void ExcelSheet::WriteCell(std::int32_t row, std::int32_t column, std::string_view text,
                           std::optional<double> number) {
  Variant cell, nothing;
  CellAt(row, column, cell);
  const AutomationObject range = ObjectOf(cell.Get());
  if (!number && !textColumns_.contains(column)) PutTextFormat(range);
  const Bstr value(text);
  const VARIANT arguments[] = {Argument(value)};
  try {
    Invoke(range, excel::kRangeValue2, DISPATCH_PROPERTYPUT, arguments, nothing);
  } catch (const RefusedCall& refused) {
    throw CellRefused(row, column, text, refused.what());
  }
}

void ExcelSheet::FormatAsText(std::int32_t column) {
  TryTo([&] {
    textColumns_.insert(column);
    if (!columns_) columns_ = InvokeForObject(sheet_, excel::kRangeColumns, DISPATCH_PROPERTYGET);
    const VARIANT place[] = {Argument(static_cast<long>(column))};
    PutTextFormat(InvokeForObject(columns_, excel::kRangeItem, DISPATCH_PROPERTYGET, place));
  });
}

void ExcelSheet::Activate() {
  // The sheet that is shown first matters less than what the sheets hold.
  TryTo([this] {
    Variant nothing;
    Invoke(sheet_, excel::kWorksheetActivate, DISPATCH_METHOD, {}, nothing);
  });
}

}  // namespace qv
