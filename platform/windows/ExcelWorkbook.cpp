#include "platform/windows/ExcelWorkbook.h"

#include "platform/windows/ExcelMembers.h"
#include "platform/windows/ExcelSheet.h"
#include "platform/windows/Paths.h"

#include <array>

namespace qv {
namespace {

constexpr long kExcel97Format =
    56;  // so that content and extension agree, whatever the application's default

constexpr std::size_t kSaveAsArguments = 11;
constexpr std::size_t kAddArguments = 4;

}  // namespace

ExcelWorkbook::~ExcelWorkbook() {
  if (!isOpen_) return;
  try {
    // Asked whether to save, an application without a window would wait for ever.
    CloseWith(Argument(false), Omitted());
  } catch (const SpreadsheetError&) {
    // What the application will not close goes with the application.
  }
}

std::unique_ptr<Worksheet> ExcelWorkbook::ActiveSheet() {
  // The sheets are asked for first, as the application has always been driven.
  const AutomationObject sheets =
      InvokeForObject(workbook_, excel::kWorkbookWorksheets, DISPATCH_PROPERTYGET);
  return std::make_unique<ExcelSheet>(
      InvokeForObject(workbook_, excel::kWorkbookActiveSheet, DISPATCH_PROPERTYGET));
}

const AutomationObject& ExcelWorkbook::Sheets() {
  if (!sheets_) sheets_ = InvokeForObject(workbook_, excel::kWorkbookSheets, DISPATCH_PROPERTYGET);
  return sheets_;
}

std::unique_ptr<Worksheet> ExcelWorkbook::FindSheet(const char* name) {
  const AutomationObject& sheets = Sheets();
  const Bstr text{std::string_view(name)};
  const VARIANT arguments[] = {Argument(text)};
  try {
    return std::make_unique<ExcelSheet>(
        InvokeForObject(sheets, excel::kSheetsItem, DISPATCH_PROPERTYGET, arguments));
  } catch (const SpreadsheetError&) {
    return nullptr;  // which is how the application says that there is none
  }
}

std::unique_ptr<Worksheet> ExcelWorkbook::AddSheet() {
  std::array<VARIANT, kAddArguments> arguments;
  arguments.fill(Omitted());
  return std::make_unique<ExcelSheet>(
      InvokeForObject(Sheets(), excel::kSheetsAdd, DISPATCH_METHOD, arguments));
}

void ExcelWorkbook::SaveAs(const std::string& path) {
  path_ = FullPath(path);
  const Bstr name{std::wstring_view(path_)};
  std::array<VARIANT, kSaveAsArguments> arguments;
  arguments.fill(Omitted());
  arguments[0] = Argument(name);
  arguments[1] = Argument(kExcel97Format);
  Variant nothing;
  Invoke(workbook_, excel::kWorkbookSaveAs, DISPATCH_METHOD, arguments, nothing);
}

void ExcelWorkbook::CloseWith(const VARIANT& saveChanges, const VARIANT& fileName) {
  const VARIANT arguments[] = {saveChanges, fileName, Omitted()};
  Variant nothing;
  Invoke(workbook_, excel::kWorkbookClose, DISPATCH_METHOD, arguments, nothing);
  isOpen_ = false;
}

void ExcelWorkbook::Close() {
  const Bstr name{std::wstring_view(path_)};
  CloseWith(Omitted(), Argument(name));
}

}  // namespace qv
