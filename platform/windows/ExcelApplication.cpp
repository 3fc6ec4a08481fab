#include "platform/windows/ExcelApplication.h"

#include "platform/windows/ExcelMembers.h"
#include "platform/windows/ExcelWorkbook.h"
#include "platform/windows/Paths.h"

#include <array>

namespace qv {
namespace {

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

/// For what an application may refuse: a version without the member needs none, and it ends anyway when its
/// last object is released.
template <class Work>
void TryTo(Work work) {
  try {
    work();
  } catch (const SpreadsheetError&) {
    // Nothing depends on it.
  }
}

void Put(const AutomationObject& application, DISPID property, VARIANT value) {
  Variant nothing;
  Invoke(application, property, DISPATCH_PROPERTYPUT, {&value, 1}, nothing);
}

/// What the property stands for is the application's business; it must have been put, and stays what it was.
void PutBack(const AutomationObject& application, DISPID property) {
  Variant value;
  Invoke(application, property, DISPATCH_PROPERTYGET, {}, value);
  Put(application, property, value.Get());
}

}  // namespace

// Nobody sees its window: a question would be waited for without end. What a stranger's file wants to do when
// it is opened is not done.
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

}  // namespace qv
