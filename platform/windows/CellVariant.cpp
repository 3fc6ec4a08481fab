#include "platform/windows/CellVariant.h"

#include "platform/SpreadsheetApplication.h"

namespace qv {
namespace {

struct ErrorName {
  int number;
  const char* name;
};

constexpr ErrorName kErrorNames[] = {{2000, "#NULL!"}, {2007, "#DIV/0!"}, {2015, "#VALUE!"}, {2023, "#REF!"},
                                     {2029, "#NAME?"}, {2036, "#NUM!"},   {2042, "#N/A"}};

/// The conversion knows no text for an error, but a person who looks for the cell does.
std::string ErrorText(SCODE code) {
  const int number = SCODE_CODE(code);
  for (const ErrorName& error : kErrorNames)
    if (error.number == number) return error.name;
  return "Error " + std::to_string(number);
}

}  // namespace

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

}  // namespace qv
