#pragma once

#include "platform/spreadsheet/SpreadsheetApplication.h"

#include <com/sun/star/uno/Exception.hpp>
#include <osl/file.hxx>
#include <rtl/string.hxx>
#include <rtl/ustring.hxx>

#include <string>
#include <string_view>
#include <type_traits>

/// Texts and calls between this process and the office.
namespace qv {

using rtl::OString;
using rtl::OUString;

/// From UTF-8, a byte that does not decode becoming U+FFFD.
inline OUString ToOffice(std::string_view text) {
  return OStringToOUString(OString(text.data(), static_cast<sal_Int32>(text.size())), RTL_TEXTENCODING_UTF8);
}

inline std::string FromOffice(const OUString& text) {
  const OString bytes = OUStringToOString(text, RTL_TEXTENCODING_UTF8);
  return {bytes.getStr(), static_cast<std::size_t>(bytes.getLength())};
}

/// The path, which must be absolute, as a file: URL; empty when it is none.
inline OUString FileUrl(const std::string& path) {
  OUString url;
  osl::FileBase::getFileURLFromSystemPath(ToOffice(path), url);
  return url;
}

/// Makes calls to the office and turns what it throws into a SpreadsheetError that says first what went
/// wrong.
template <class Calls>
auto CallOffice(const std::string& what, Calls&& calls) -> std::invoke_result_t<Calls> {
  try {
    return calls();
  } catch (const css::uno::Exception& exception) {
    const std::string reason = FromOffice(exception.Message);
    throw SpreadsheetError(reason.empty() ? what : what + ": " + reason);
  } catch (const CellRefused&) {
    throw;
  } catch (const SpreadsheetError& error) {
    throw SpreadsheetError(what + ": " + error.what());
  }
}

}  // namespace qv
