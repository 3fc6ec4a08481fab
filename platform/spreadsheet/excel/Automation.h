#pragma once

#include "platform/spreadsheet/SpreadsheetApplication.h"
#include "platform/windows/Com.h"

#include <span>

/// Calls to the members of automation objects.
namespace qv {

using AutomationObject = ComPtr<IDispatch>;

/// In which texts are exchanged: their numbers have a decimal point whatever the user's locale says.
inline constexpr LCID kEnglish = MAKELCID(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), SORT_DEFAULT);

// Arguments. They borrow what they are made from.

/// An optional argument that is left out.
VARIANT Omitted();
VARIANT Argument(long number);
VARIANT Argument(const Bstr& text);
VARIANT Argument(bool value);
VARIANT Argument(const AutomationObject& object);

/// The application answered that it will not, in contrast to one that stays busy or is gone.
struct RefusedCall : SpreadsheetError {
  using SpreadsheetError::SpreadsheetError;
};

/// For what an application may refuse without harm.
template <class Work>
void TryTo(Work work) {
  try {
    work();
  } catch (const SpreadsheetError&) {
    // Nothing depends on it.
  }
}

/// The object in a result; null when it holds another value.
AutomationObject ObjectOf(const VARIANT& value);

/// Calls a member by its identifier, with the arguments in the order in which they are declared. `kind` is
/// one of DISPATCH_METHOD, DISPATCH_PROPERTYGET and DISPATCH_PROPERTYPUT. Throws RefusedCall with the
/// application's reason, or another SpreadsheetError.
Variant Invoke(const AutomationObject& object, DISPID member, WORD kind,
               std::span<const VARIANT> arguments = {});

/// The same for members that give an object, most of which are properties.
AutomationObject InvokeForObject(const AutomationObject& object, DISPID member,
                                 std::span<const VARIANT> arguments = {}, WORD kind = DISPATCH_PROPERTYGET);

/// The same for properties that are numbers.
std::int32_t InvokeForNumber(const AutomationObject& object, DISPID property);

/// What InvokeByName() has to say about a failure.
struct ByNameFailure {
  char text[256] = {};
};

/// Calls a member by its name, which is looked up first. Returns 0 on success and 1 on failure; a null object
/// is one, without a text.
int InvokeByName(WORD kind, VARIANT* result, IDispatch* object, const wchar_t* name,
                 std::span<const VARIANT> arguments, ByNameFailure* failure = nullptr);

}  // namespace qv
