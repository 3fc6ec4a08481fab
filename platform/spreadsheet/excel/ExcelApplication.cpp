#include "platform/spreadsheet/WorkbookFacts.h"
#include "platform/spreadsheet/excel/Excel.h"
#include "platform/spreadsheet/excel/ExcelMembers.h"
#include "platform/windows/Paths.h"

#include <array>

namespace qv {
namespace {

// So that content and extension agree, whatever the application's default.
constexpr long kExcel97Format = 56;

constexpr std::size_t kSaveAsArguments = 11;
constexpr std::size_t kAddArguments = 4, kAddAfter = 1;
constexpr std::size_t kOpenArguments = 13;

AutomationObject StartApplication() {
  CLSID id;
  HRESULT result = CLSIDFromProgID(L"Excel.Application", &id);
  AutomationObject application;
  if (SUCCEEDED(result))
    result = CoCreateInstance(id, nullptr, CLSCTX_LOCAL_SERVER, IID_IDispatch,
                              reinterpret_cast<void**>(application.Receive()));
  if (FAILED(result)) throw SpreadsheetError(SystemReason(static_cast<unsigned long>(result)));
  return application;
}

void Put(const AutomationObject& application, DISPID property, VARIANT value) {
  Variant nothing;
  Invoke(application, property, DISPATCH_PROPERTYPUT, {&value, 1}, nothing);
}

/// The property must be put before a workbook is added; its value stays what it was.
void PutBack(const AutomationObject& application, DISPID property) {
  Variant value;
  Invoke(application, property, DISPATCH_PROPERTYGET, {}, value);
  Put(application, property, value.Get());
}

}  // namespace

// Older versions lack these members and need them not. Its window is not shown: a question would never be
// answered. What a stranger's file wants to do when it is opened is not done.
ExcelApplication::ExcelApplication() : application_(StartApplication()) {
  TryTo([this] { Put(application_, excel::kApplicationAlerts, Argument(false)); });
  TryTo([this] { Put(application_, excel::kApplicationMacros, Argument(excel::kMacrosNever)); });
}

ExcelApplication::~ExcelApplication() {
  TryTo([this] { CloseWorkbooks(); });
  if (isRunning_) TryTo([this] { Quit(); });
}

void ExcelApplication::TakeWorkbooks() {
  workbooks_ = InvokeForObject(application_, excel::kApplicationWorkbooks, DISPATCH_PROPERTYGET);
}

std::unique_ptr<Workbook> ExcelApplication::OpenWorkbook(const std::string& path) {
  InspectWorkbook(path);  // the application would take anything for text
  TakeWorkbooks();
  const std::wstring fullPath = FullPath(path);
  const Bstr name{std::wstring_view(fullPath)};
  std::array<VARIANT, kOpenArguments> arguments;
  arguments.fill(Omitted());
  arguments[0] = Argument(name);
  return std::make_unique<ExcelWorkbook>(
      InvokeForObject(workbooks_, excel::kWorkbooksOpen, DISPATCH_METHOD, arguments), fullPath);
}

std::unique_ptr<Workbook> ExcelApplication::AddWorkbook() {
  TryTo([this] { PutBack(application_, excel::kApplicationBeforeAdd); });
  TakeWorkbooks();
  Variant workbook;
  if (InvokeByName(DISPATCH_METHOD, workbook.Receive(), workbooks_.Get(), L"Add", {}) != 0 ||
      !ObjectOf(workbook.Get()))
    throw SpreadsheetError("the spreadsheet application adds no workbook");
  return std::make_unique<ExcelWorkbook>(ObjectOf(workbook.Get()), std::wstring());
}

void ExcelApplication::CloseWorkbooks() {
  if (!workbooks_) return;
  Variant nothing;
  Invoke(workbooks_, excel::kWorkbooksClose, DISPATCH_METHOD, {}, nothing);
  workbooks_.Reset();
}

void ExcelApplication::Quit() {
  Variant nothing;
  Invoke(application_, excel::kApplicationQuit, DISPATCH_METHOD, {}, nothing);
  isRunning_ = false;
}

ExcelWorkbook::~ExcelWorkbook() {
  if (!isOpen_) return;
  // Asked whether to save, an application without a window would wait for ever.
  TryTo([this] { CloseWith(Argument(false), Omitted()); });
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
  } catch (const RefusedCall&) {
    return nullptr;  // which is how the application says that there is none
  }
}

std::unique_ptr<Worksheet> ExcelWorkbook::AddSheet() {
  const VARIANT lastIndex[] = {Argument(static_cast<long>(InvokeForNumber(Sheets(), excel::kSheetsCount)))};
  const AutomationObject last =
      InvokeForObject(Sheets(), excel::kSheetsItem, DISPATCH_PROPERTYGET, lastIndex);
  std::array<VARIANT, kAddArguments> arguments;
  arguments.fill(Omitted());
  arguments[kAddAfter] = Argument(last);
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

std::unique_ptr<SpreadsheetApplication> StartPlatformSpreadsheet(std::string& reason) {
  try {
    return std::make_unique<ExcelApplication>();
  } catch (const SpreadsheetError& error) {
    reason = error.what();
    return nullptr;
  }
}

}  // namespace qv
