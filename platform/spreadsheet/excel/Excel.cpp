// The application that is registered as "Excel.Application", driven by automation.

#include "platform/spreadsheet/WorkbookFacts.h"
#include "platform/spreadsheet/excel/Automation.h"
#include "platform/windows/Paths.h"

#include <set>
#include <vector>

namespace qv {
namespace {

// The identifiers that the application's type library publishes for the members in use.
namespace member {

constexpr DISPID kApplicationWorkbooks = 572;
constexpr DISPID kApplicationBeforeAdd = 1038;  // left as it is, but put before a workbook is added
constexpr DISPID kApplicationQuit = 302;
constexpr DISPID kApplicationAlerts = 343;   // whether it asks its user
constexpr DISPID kApplicationMacros = 1941;  // what the macros of a file that is opened may do

constexpr DISPID kWorkbooksOpen = 682;
constexpr DISPID kWorkbooksClose = 277;

constexpr DISPID kWorkbookWorksheets = 494;
constexpr DISPID kWorkbookSheets = 485;
constexpr DISPID kWorkbookActiveSheet = 307;
constexpr DISPID kWorkbookClose = 277;
constexpr DISPID kWorkbookSaveAs = 284;

constexpr DISPID kSheetsItem = 170;
constexpr DISPID kSheetsAdd = 181;
constexpr DISPID kSheetsCount = 118;

constexpr DISPID kWorksheetUsedRange = 412;
constexpr DISPID kWorksheetActivate = 304;
constexpr DISPID kCells = 238;

constexpr DISPID kRangeRow = 257;
constexpr DISPID kRangeRows = 258;
constexpr DISPID kRangeColumns = 241;
constexpr DISPID kRangeCount = 118;
constexpr DISPID kRangeItem = 170;
constexpr DISPID kRangeValue = 6;
constexpr DISPID kRangeValue2 = 1388;

}  // namespace member

constexpr long kMacrosNever = 3;
constexpr long kExcel97Format =
    56;  // so that content and extension agree, whatever the application's default

constexpr std::size_t kSaveAsArguments = 11;
constexpr std::size_t kAddArguments = 4, kAddAfter = 1;
constexpr std::size_t kOpenArguments = 13;

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
  const bool isDate = value.vt == VT_DATE;
  Variant text;
  if (FAILED(VariantChangeTypeEx(text.Receive(), const_cast<VARIANT*>(&value),
                                 isDate ? LOCALE_USER_DEFAULT : kEnglish, isDate ? 0 : VARIANT_NOUSEROVERRIDE,
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

class ExcelSheet final : public Worksheet {
 public:
  explicit ExcelSheet(AutomationObject sheet) : sheet_(std::move(sheet)) {}

  std::int32_t UsedRows() override { return CountOfUsed(member::kRangeRows); }
  std::int32_t UsedColumns() override { return CountOfUsed(member::kRangeColumns); }
  std::int32_t FirstUsedRow() override { return InvokeForNumber(UsedRange(), member::kRangeRow); }

  std::string ReadCell(std::int32_t row, std::int32_t column) override {
    const Variant cell = CellAt(row, column);
    const AutomationObject range = ObjectOf(cell.Get());
    if (!range) return CellText(cell.Get());
    return CellText(Invoke(range, member::kRangeValue, DISPATCH_PROPERTYGET).Get());
  }

  // What is put as a text is taken as if it had been typed, so that only a cell for texts keeps it.
  void WriteCell(std::int32_t row, std::int32_t column, std::string_view text,
                 std::optional<double> number) override {
    const AutomationObject range = ObjectOf(CellAt(row, column).Get());
    if (!number && !textColumns_.contains(column)) PutTextFormat(range);
    const Bstr value(text);
    const VARIANT arguments[] = {Argument(value)};
    try {
      Invoke(range, member::kRangeValue2, DISPATCH_PROPERTYPUT, arguments);
    } catch (const RefusedCall& refused) {
      throw CellRefused(row, column, text, refused.what());
    }
  }

  void Flush() override {}

  void FormatAsText(std::int32_t column) override {
    TryTo([&] {
      textColumns_.insert(column);
      if (!columns_) columns_ = InvokeForObject(sheet_, member::kRangeColumns);
      const VARIANT place[] = {Argument(static_cast<long>(column))};
      PutTextFormat(InvokeForObject(columns_, member::kRangeItem, place));
    });
  }

  void Activate() override {
    // The sheet that is shown first matters less than what the sheets hold.
    TryTo([this] { Invoke(sheet_, member::kWorksheetActivate, DISPATCH_METHOD); });
  }

 private:
  const AutomationObject& UsedRange() {
    if (!usedRange_) usedRange_ = InvokeForObject(sheet_, member::kWorksheetUsedRange);
    return usedRange_;
  }

  std::int32_t CountOfUsed(DISPID part) {
    return InvokeForNumber(InvokeForObject(UsedRange(), part), member::kRangeCount);
  }

  Variant CellAt(std::int32_t row, std::int32_t column) {
    if (!cells_) cells_ = InvokeForObject(sheet_, member::kCells);
    const VARIANT place[] = {Argument(static_cast<long>(row)), Argument(static_cast<long>(column))};
    return Invoke(cells_, member::kRangeItem, DISPATCH_PROPERTYGET, place);
  }

  AutomationObject sheet_;
  AutomationObject usedRange_;  // asked for once
  AutomationObject cells_;      // likewise
  AutomationObject columns_;    // likewise
  std::set<std::int32_t> textColumns_;
};

class ExcelWorkbook final : public Workbook {
 public:
  /// `path` is the file that the workbook was opened from; empty for a new one.
  ExcelWorkbook(AutomationObject workbook, std::wstring path)
      : workbook_(std::move(workbook)), path_(std::move(path)) {}
  ~ExcelWorkbook() override {
    if (!isOpen_) return;
    // Asked whether to save, an application without a window would wait for ever.
    TryTo([this] { CloseWith(Argument(false), Omitted()); });
  }

  std::unique_ptr<Worksheet> ActiveSheet() override {
    // The sheets are asked for first, as the application has always been driven.
    const AutomationObject sheets = InvokeForObject(workbook_, member::kWorkbookWorksheets);
    return std::make_unique<ExcelSheet>(InvokeForObject(workbook_, member::kWorkbookActiveSheet));
  }

  std::unique_ptr<Worksheet> FindSheet(const char* name) override {
    const AutomationObject& sheets = Sheets();
    const Bstr text{std::string_view(name)};
    const VARIANT arguments[] = {Argument(text)};
    try {
      return std::make_unique<ExcelSheet>(InvokeForObject(sheets, member::kSheetsItem, arguments));
    } catch (const RefusedCall&) {
      return nullptr;  // which is how the application says that there is none
    }
  }

  std::unique_ptr<Worksheet> AddSheet() override {
    const VARIANT lastIndex[] = {
        Argument(static_cast<long>(InvokeForNumber(Sheets(), member::kSheetsCount)))};
    const AutomationObject last = InvokeForObject(Sheets(), member::kSheetsItem, lastIndex);
    std::vector<VARIANT> arguments(kAddArguments, Omitted());
    arguments[kAddAfter] = Argument(last);
    return std::make_unique<ExcelSheet>(
        InvokeForObject(Sheets(), member::kSheetsAdd, arguments, DISPATCH_METHOD));
  }

  void SaveAs(const std::string& path) override {
    path_ = FullPath(path);
    const Bstr name{std::wstring_view(path_)};
    std::vector<VARIANT> arguments(kSaveAsArguments, Omitted());
    arguments[0] = Argument(name);
    arguments[1] = Argument(kExcel97Format);
    Invoke(workbook_, member::kWorkbookSaveAs, DISPATCH_METHOD, arguments);
  }

  void Close() override {
    const Bstr name{std::wstring_view(path_)};
    CloseWith(Omitted(), Argument(name));
  }

 private:
  const AutomationObject& Sheets() {
    if (!sheets_) sheets_ = InvokeForObject(workbook_, member::kWorkbookSheets);
    return sheets_;
  }

  void CloseWith(const VARIANT& saveChanges, const VARIANT& fileName) {
    const VARIANT arguments[] = {saveChanges, fileName, Omitted()};
    Invoke(workbook_, member::kWorkbookClose, DISPATCH_METHOD, arguments);
    isOpen_ = false;
  }

  AutomationObject workbook_;
  AutomationObject sheets_;  // asked for once
  std::wstring path_;
  bool isOpen_ = true;
};

AutomationObject StartApplication() {
  CLSID id;
  HRESULT result = CLSIDFromProgID(L"Excel.Application", &id);
  AutomationObject application;
  if (SUCCEEDED(result))
    result = CoCreateInstance(id, nullptr, CLSCTX_LOCAL_SERVER,
                              IID_PPV_ARGS(application.ReleaseAndGetAddressOf()));
  if (FAILED(result)) throw SpreadsheetError(SystemReason(static_cast<unsigned long>(result)));
  return application;
}

class ExcelApplication final : public SpreadsheetApplication {
 public:
  /// Throws SpreadsheetError when there is none, or it does not start.
  ExcelApplication() : application_(StartApplication()) {
    // Older versions lack these members and need them not. Its window is not shown: a question would never be
    // answered. What a stranger's file wants to do when it is opened is not done.
    TryTo([this] { Put(member::kApplicationAlerts, Argument(false)); });
    TryTo([this] { Put(member::kApplicationMacros, Argument(kMacrosNever)); });
  }
  ~ExcelApplication() override {
    TryTo([this] { CloseWorkbooks(); });
    if (isRunning_) TryTo([this] { Quit(); });
  }

  std::unique_ptr<Workbook> OpenWorkbook(const std::string& path) override {
    InspectWorkbook(path);  // the application would take anything for text
    TakeWorkbooks();
    const std::wstring fullPath = FullPath(path);
    const Bstr name{std::wstring_view(fullPath)};
    std::vector<VARIANT> arguments(kOpenArguments, Omitted());
    arguments[0] = Argument(name);
    return std::make_unique<ExcelWorkbook>(
        InvokeForObject(workbooks_, member::kWorkbooksOpen, arguments, DISPATCH_METHOD), fullPath);
  }

  std::unique_ptr<Workbook> AddWorkbook() override {
    // The property must be put before a workbook is added; its value stays what it was.
    TryTo([this] {
      const Variant value = Invoke(application_, member::kApplicationBeforeAdd, DISPATCH_PROPERTYGET);
      Put(member::kApplicationBeforeAdd, value.Get());
    });
    TakeWorkbooks();
    Variant workbook;
    if (InvokeByName(DISPATCH_METHOD, workbook.Receive(), workbooks_.Get(), L"Add", {}) != 0 ||
        !ObjectOf(workbook.Get()))
      throw SpreadsheetError("the spreadsheet application adds no workbook");
    return std::make_unique<ExcelWorkbook>(ObjectOf(workbook.Get()), std::wstring());
  }

  void CloseWorkbooks() override {
    if (!workbooks_) return;
    Invoke(workbooks_, member::kWorkbooksClose, DISPATCH_METHOD);
    workbooks_.Reset();
  }

  void Quit() override {
    Invoke(application_, member::kApplicationQuit, DISPATCH_METHOD);
    isRunning_ = false;
  }

 private:
  void TakeWorkbooks() { workbooks_ = InvokeForObject(application_, member::kApplicationWorkbooks); }

  void Put(DISPID property, const VARIANT& value) {
    Invoke(application_, property, DISPATCH_PROPERTYPUT, {&value, 1});
  }

  ComScope com_;  // first, so that it goes last
  AutomationObject application_;
  AutomationObject workbooks_;  // null until they are needed, and after they were closed
  bool isRunning_ = true;
};

}  // namespace

std::unique_ptr<SpreadsheetApplication> StartPlatformSpreadsheet(std::string& reason) {
  try {
    return std::make_unique<ExcelApplication>();
  } catch (const SpreadsheetError& error) {
    reason = error.what();
    return nullptr;
  }
}

}  // namespace qv
