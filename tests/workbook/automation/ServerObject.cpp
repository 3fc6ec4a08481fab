#include "workbook/automation/ServerObject.h"

#include "platform/windows/WideText.h"

#include <oleauto.h>

#include <algorithm>
#include <iterator>
#include <vector>

namespace server {
namespace {

constexpr const char* kKindNames[] = {"application", "workbooks", "workbook", "sheets", "worksheet", "range"};

constexpr DISPID kAdd = 181;
constexpr DISPID kNumberFormat = 193;
constexpr long kExcel97 = 56;

using Arguments = std::vector<const VARIANT*>;  // in the order of their declaration

std::string TextOf(const VARIANT& value) { return qv::Narrow({value.bstrVal, SysStringLen(value.bstrVal)}); }

void SetLong(VARIANT* result, long number) {
  result->vt = VT_I4;
  result->lVal = number;
}

HRESULT OpenBook(Object& object, const Arguments& arguments, VARIANT* result) {
  Session& session = object.GetSession();
  if (!session.book.Load(arguments[0]->bstrVal)) return E_FAIL;
  return object.Give(result, Kind::Workbook);
}

HRESULT AddBook(Object& object, const Arguments&, VARIANT* result) {
  Session& session = object.GetSession();
  session.book = {};
  for (long number = 1; number <= session.conversation.GetPlan().sheets; ++number)
    session.book.sheets.push_back({"Sheet" + std::to_string(number), {}, {}});
  return object.Give(result, Kind::Workbook);
}

// As the application does, which would ask a person about a file that is there.
HRESULT SaveBook(Object& object, const Arguments& arguments, VARIANT*) {
  if (arguments[1]->lVal != kExcel97 || std::filesystem::exists(arguments[0]->bstrVal)) return E_FAIL;
  return object.GetSession().book.Save(arguments[0]->bstrVal) ? S_OK : E_FAIL;
}

HRESULT FindSheet(Object& object, const Arguments& arguments, VARIANT* result) {
  const Book& book = object.GetSession().book;
  const std::size_t index = book.Find(TextOf(*arguments[0]));
  if (index == book.sheets.size()) return DISP_E_BADINDEX;
  return object.Give(result, Kind::Worksheet, book.sheets[index].name);
}

HRESULT FindSheetByIndex(Object& object, const Arguments& arguments, VARIANT* result) {
  const Book& book = object.GetSession().book;
  const auto index = static_cast<std::size_t>(arguments[0]->lVal - 1);
  if (index >= book.sheets.size()) return DISP_E_BADINDEX;
  return object.Give(result, Kind::Worksheet, book.sheets[index].name);
}

HRESULT AddSheet(Object& object, const Arguments& arguments, VARIANT* result) {
  Book& book = object.GetSession().book;
  const auto& after = static_cast<const Object&>(*arguments[1]->pdispVal);
  return object.Give(result, Kind::Worksheet, book.sheets[book.AddAfter(book.Find(after.SheetName()))].name);
}

HRESULT GiveActive(Object& object, const Arguments&, VARIANT* result) {
  const Book& book = object.GetSession().book;
  return object.Give(result, Kind::Worksheet, book.sheets[book.active].name);
}

HRESULT GiveUsed(Object& object, const Arguments&, VARIANT* result) {
  const auto [firstRow, lastRow] = object.GetSheet().UsedRows();
  const auto [firstColumn, lastColumn] = object.GetSheet().UsedColumns();
  return object.Give(result, Kind::Range, object.SheetName(),
                     {lastRow - firstRow + 1, lastColumn - firstColumn + 1, firstRow, firstColumn});
}

HRESULT GiveCell(Object& object, const Arguments& arguments, VARIANT* result) {
  const long row = arguments[0]->lVal, column = arguments[1]->lVal;
  if (row < 1 || column < 1) return E_INVALIDARG;
  return object.Give(result, Kind::Range, object.SheetName(), {1, 1, row, column});
}

HRESULT ReadCell(Object& object, const Arguments&, VARIANT* result) {
  object.GetSheet().Read(object.GetArea().row, object.GetArea().column, *result);
  return S_OK;
}

HRESULT TypeCell(Object& object, const Arguments& arguments, VARIANT*) {
  const Area& area = object.GetArea();
  return object.GetSheet().Type(area.row, area.column, TextOf(*arguments[0])) ? S_OK : E_FAIL;
}

HRESULT GiveColumn(Object& object, const Arguments& arguments, VARIANT* result) {
  return object.Give(result, Kind::Range, object.SheetName(), {0, 1, 0, arguments[0]->lVal});
}

HRESULT FormatCells(Object& object, const Arguments& arguments, VARIANT*) {
  if (TextOf(*arguments[0]) != "@") return E_INVALIDARG;
  object.GetSheet().textCells.insert({object.GetArea().row, object.GetArea().column});
  return S_OK;
}

HRESULT DoNothing(Object&, const Arguments&, VARIANT*) { return S_OK; }

/// Gives an object of the kind on the same sheet, of the size that remains.
template <Kind GivenKind>
HRESULT Give(Object& object, const Arguments&, VARIANT* result) {
  return object.Give(result, GivenKind, object.SheetName());
}

/// What a member must be given, a letter for each argument: s text, i number, b boolean, o object, - left
/// out. Two ways are set apart by a bar.
struct Member {
  Kind object;
  DISPID id;
  WORD kind;
  const char* arguments;
  HRESULT (*run)(Object& object, const Arguments& arguments, VARIANT* result);
};

constexpr WORD kGet = DISPATCH_PROPERTYGET, kPut = DISPATCH_PROPERTYPUT, kMethod = DISPATCH_METHOD;

constexpr Member kMembers[] = {
    {Kind::Application, 572, kGet, "", Give<Kind::Workbooks>},
    {Kind::Application, 1038, kGet, "",
     [](Object&, const Arguments&, VARIANT* result) {
       SetLong(result, 7);
       return S_OK;
     }},
    {Kind::Application, 1038, kPut, "i",
     [](Object&, const Arguments& arguments, VARIANT*) { return arguments[0]->lVal == 7 ? S_OK : E_FAIL; }},
    {Kind::Application, 343, kPut, "b", DoNothing},
    {Kind::Application, 1941, kPut, "i", DoNothing},
    {Kind::Application, 302, kMethod, "",
     [](Object& object, const Arguments&, VARIANT*) {
       object.GetSession().hasQuit = true;
       return S_OK;
     }},
    {Kind::Workbooks, 682, kMethod, "s------------", OpenBook},
    {Kind::Workbooks, kAdd, kMethod, "", AddBook},
    {Kind::Workbooks, 277, kMethod, "", DoNothing},
    {Kind::Workbook, 494, kGet, "", Give<Kind::Sheets>},
    {Kind::Workbook, 485, kGet, "", Give<Kind::Sheets>},
    {Kind::Workbook, 307, kGet, "", GiveActive},
    {Kind::Workbook, 277, kMethod, "-s-|b--", DoNothing},
    {Kind::Workbook, 284, kMethod, "si---------", SaveBook},
    {Kind::Sheets, 170, kGet, "s", FindSheet},
    {Kind::Sheets, 170, kGet, "i", FindSheetByIndex},
    {Kind::Sheets, 118, kGet, "",
     [](Object& object, const Arguments&, VARIANT* result) {
       SetLong(result, static_cast<long>(object.GetSession().book.sheets.size()));
       return S_OK;
     }},
    {Kind::Sheets, kAdd, kMethod, "-o--", AddSheet},
    {Kind::Worksheet, 412, kGet, "", GiveUsed},
    {Kind::Worksheet, 238, kGet, "", Give<Kind::Range>},
    {Kind::Worksheet, 304, kMethod, "",
     [](Object& object, const Arguments&, VARIANT*) {
       object.GetSession().book.active = object.GetSession().book.Find(object.SheetName());
       return S_OK;
     }},
    {Kind::Range, 257, kGet, "",
     [](Object& object, const Arguments&, VARIANT* result) {
       SetLong(result, object.GetArea().row);
       return S_OK;
     }},
    {Kind::Range, 258, kGet, "",
     [](Object& object, const Arguments&, VARIANT* result) {
       return object.Give(result, Kind::Range, object.SheetName(), {object.GetArea().rows, 1, 0, 0});
     }},
    {Kind::Range, 241, kGet, "",
     [](Object& object, const Arguments&, VARIANT* result) {
       return object.Give(result, Kind::Range, object.SheetName(), {1, object.GetArea().columns, 0, 0});
     }},
    {Kind::Range, 118, kGet, "",
     [](Object& object, const Arguments&, VARIANT* result) {
       SetLong(result, object.GetArea().rows * object.GetArea().columns);
       return S_OK;
     }},
    {Kind::Worksheet, 241, kGet, "", Give<Kind::Range>},
    {Kind::Range, 170, kGet, "ii", GiveCell},
    {Kind::Range, 170, kGet, "i", GiveColumn},
    {Kind::Range, kNumberFormat, kPut, "s", FormatCells},
    {Kind::Range, 6, kGet, "", ReadCell},
    {Kind::Range, 1388, kPut, "s", TypeCell},
};

const char* CallName(WORD kind) { return kind == kGet ? "get" : kind == kPut ? "put" : "method"; }

char LetterOf(const VARIANT& value) {
  if (value.vt == VT_ERROR && value.scode == DISP_E_PARAMNOTFOUND) return '-';
  return value.vt == VT_BSTR       ? 's'
         : value.vt == VT_I4       ? 'i'
         : value.vt == VT_BOOL     ? 'b'
         : value.vt == VT_DISPATCH ? 'o'
                                   : '?';
}

std::string Shown(const VARIANT& value) {
  switch (LetterOf(value)) {
    case '-':
      return "-";
    case 's':
      return '"' + TextOf(value) + '"';
    case 'i':
      return std::to_string(value.lVal);
    case 'o':
      return "<" + static_cast<const Object&>(*value.pdispVal).SheetName() + ">";
    case 'b':
      return value.boolVal == VARIANT_FALSE ? "false" : "true";
    default:
      return "?" + std::to_string(value.vt);
  }
}

/// Whether the letters are one of the ways that a bar sets apart.
bool Fit(const std::string& letters, const std::string& ways) {
  return ("|" + ways + "|").find("|" + letters + "|") != std::string::npos;
}

}  // namespace

Object::Object(std::shared_ptr<Session> session, Kind kind, std::string sheet, Area area)
    : session_(std::move(session)), kind_(kind), sheet_(std::move(sheet)), area_(area) {
  ++session_->objects;
}

Object::~Object() {
  if (--session_->objects == 0) session_->conversation.End(session_->hasQuit);
}

HRESULT Object::QueryInterface(REFIID id, void** object) {
  const bool isKnown = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IDispatch);
  *object = isKnown ? this : nullptr;
  if (isKnown) AddRef();
  return isKnown ? S_OK : E_NOINTERFACE;
}

ULONG Object::Release() {
  const ULONG left = --references_;
  if (left == 0) delete this;
  return left;
}

HRESULT Object::GetTypeInfoCount(UINT* count) {
  *count = 0;
  return S_OK;
}

HRESULT Object::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID locale, DISPID* members) {
  const std::string name = qv::Narrow(names[0]);
  const std::string line = std::string(kKindNames[static_cast<int>(kind_)]) + " name \"" + name + "\"";
  const DISPID id = kind_ == Kind::Workbooks && name == "Add"        ? kAdd
                    : kind_ == Kind::Range && name == "NumberFormat" ? kNumberFormat
                                                                     : DISPID_UNKNOWN;
  if (id == DISPID_UNKNOWN || count != 1 || locale != LOCALE_USER_DEFAULT) {
    session_->conversation.Violation(line);
    return DISP_E_UNKNOWNNAME;
  }
  const HRESULT result = session_->conversation.Call(line);
  const bool isThere = id == kAdd || session_->conversation.GetPlan().formats != 0;
  lookedUp_ = SUCCEEDED(result) && isThere;
  *members = id;
  return isThere ? result : DISP_E_UNKNOWNNAME;
}

HRESULT Object::Invoke(DISPID id, REFIID, LCID, WORD kind, DISPPARAMS* parameters, VARIANT* result,
                       EXCEPINFO*, UINT*) {
  Arguments arguments;
  for (UINT index = parameters->cArgs; index-- > 0;) arguments.push_back(&parameters->rgvarg[index]);
  std::string line =
      std::string(kKindNames[static_cast<int>(kind_)]) + " " + CallName(kind) + " " + std::to_string(id);
  std::string letters;
  for (const VARIANT* argument : arguments) {
    letters += LetterOf(*argument);
    line += " " + Shown(*argument);
  }
  const auto member = std::find_if(std::begin(kMembers), std::end(kMembers), [&](const Member& there) {
    return there.object == kind_ && there.id == id && there.kind == kind && Fit(letters, there.arguments);
  });
  const bool namesValue =
      parameters->cNamedArgs == 1 && parameters->rgdispidNamedArgs[0] == DISPID_PROPERTYPUT;
  const bool mustBeLookedUp =
      (kind_ == Kind::Workbooks && id == kAdd) || (kind_ == Kind::Range && id == kNumberFormat);
  if (member == std::end(kMembers) || namesValue != (kind == kPut) || mustBeLookedUp != lookedUp_) {
    session_->conversation.Violation(line);
    return DISP_E_MEMBERNOTFOUND;
  }
  lookedUp_ = false;
  const HRESULT outcome = session_->conversation.Call(line);
  VARIANT unwanted{};
  return FAILED(outcome) ? outcome : member->run(*this, arguments, result != nullptr ? result : &unwanted);
}

HRESULT Object::Give(VARIANT* result, Kind kind, std::string sheet, Area area) const {
  result->vt = VT_DISPATCH;
  result->pdispVal = new Object(session_, kind, std::move(sheet), area);
  return S_OK;
}

}  // namespace server
