#pragma once

#include "platform/SpreadsheetApplication.h"
#include "platform/calc/OfficeText.h"

#include <com/sun/star/uno/Exception.hpp>

#include <string>
#include <type_traits>

namespace qv {

/// Makes calls to the office and turns what it throws into a SpreadsheetError that says first what went
/// wrong.
template <class Calls>
auto CallOffice(const std::string& what, Calls&& calls) -> std::invoke_result_t<Calls> {
  try {
    return calls();
  } catch (const css::uno::Exception& exception) {
    const std::string reason = FromOffice(exception.Message);
    throw SpreadsheetError(reason.empty() ? what : what + ": " + reason);
  } catch (const SpreadsheetError& error) {
    throw SpreadsheetError(what + ": " + error.what());
  }
}

}  // namespace qv
