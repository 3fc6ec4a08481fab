#include "platform/spreadsheet/excel/Automation.h"

#include <cstdio>
#include <vector>

namespace qv {
namespace {

constexpr int kMaxAttempts = 50;
constexpr DWORD kRetryMilliseconds = 100;

/// What an object says about a call that it refused.
class Exception {
 public:
  Exception() = default;
  ~Exception() {
    SysFreeString(info_.bstrSource);
    SysFreeString(info_.bstrDescription);
    SysFreeString(info_.bstrHelpFile);
  }
  Exception(const Exception&) = delete;
  Exception& operator=(const Exception&) = delete;

  EXCEPINFO* Receive() { return &info_; }

  std::string Reason(HRESULT result) {
    if (info_.pfnDeferredFillIn != nullptr) info_.pfnDeferredFillIn(&info_);
    if (result == DISP_E_EXCEPTION && SysStringLen(info_.bstrDescription) > 0)
      return Narrow({info_.bstrDescription, SysStringLen(info_.bstrDescription)});
    if (result == DISP_E_EXCEPTION && info_.scode != 0) result = info_.scode;
    return SystemReason(static_cast<unsigned long>(result));
  }

 private:
  EXCEPINFO info_{};
};

HRESULT InvokeOnce(IDispatch* object, DISPID member, LCID locale, WORD kind,
                   std::span<const VARIANT> arguments, VARIANT* result, EXCEPINFO* exception) {
  std::vector<VARIANT> reversed(arguments.rbegin(), arguments.rend());
  DISPID value = DISPID_PROPERTYPUT;
  const bool isPut = kind == DISPATCH_PROPERTYPUT;
  DISPPARAMS parameters{reversed.data(), isPut ? &value : nullptr, static_cast<UINT>(reversed.size()),
                        isPut ? 1u : 0u};
  return object->Invoke(member, IID_NULL, locale, kind, &parameters, result, exception, nullptr);
}

/// An application that is still busy with itself asks to be called again.
bool IsBusy(HRESULT result) {
  constexpr auto kIgnored = static_cast<HRESULT>(0x800AC472);  // while it recalculates
  return result == RPC_E_CALL_REJECTED || result == RPC_E_SERVERCALL_RETRYLATER || result == kIgnored;
}

/// The answer is the system's: the application did not give one.
bool IsGone(HRESULT result) {
  constexpr int kFirstOfCalls = 1700, kLastOfCalls = 1999;  // the system's errors of remote procedure calls
  const int code = HRESULT_CODE(result);
  return HRESULT_FACILITY(result) == FACILITY_RPC ||
         (HRESULT_FACILITY(result) == FACILITY_WIN32 && code >= kFirstOfCalls && code <= kLastOfCalls);
}

/// The same, until the application has time.
HRESULT InvokePatiently(IDispatch* object, DISPID member, WORD kind, std::span<const VARIANT> arguments,
                        VARIANT* result, std::string& reason) {
  for (int attempt = 1;; ++attempt) {
    Exception exception;
    const HRESULT outcome =
        InvokeOnce(object, member, kEnglish, kind, arguments, result, exception.Receive());
    if (FAILED(outcome)) reason = exception.Reason(outcome);
    if (!IsBusy(outcome) || attempt == kMaxAttempts) return outcome;
    Sleep(kRetryMilliseconds);
  }
}

}  // namespace

VARIANT Omitted() {
  VARIANT variant{};
  variant.vt = VT_ERROR;
  variant.scode = DISP_E_PARAMNOTFOUND;
  return variant;
}

VARIANT Argument(long number) {
  VARIANT variant{};
  variant.vt = VT_I4;
  variant.lVal = number;
  return variant;
}

VARIANT Argument(const Bstr& text) {
  VARIANT variant{};
  variant.vt = VT_BSTR;
  variant.bstrVal = text.Get();
  return variant;
}

VARIANT Argument(bool value) {
  VARIANT variant{};
  variant.vt = VT_BOOL;
  variant.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
  return variant;
}

VARIANT Argument(const AutomationObject& object) {
  VARIANT variant{};
  variant.vt = VT_DISPATCH;
  variant.pdispVal = object.Get();
  return variant;
}

AutomationObject ObjectOf(const VARIANT& value) {
  AutomationObject object;
  if (value.vt == VT_DISPATCH && value.pdispVal != nullptr)
    value.pdispVal->QueryInterface(IID_PPV_ARGS(object.ReleaseAndGetAddressOf()));
  return object;
}

Variant Invoke(const AutomationObject& object, DISPID member, WORD kind, std::span<const VARIANT> arguments) {
  if (!object) throw SpreadsheetError("the spreadsheet application gave no object");
  Variant result;
  std::string reason;
  const HRESULT outcome = InvokePatiently(object.Get(), member, kind, arguments, result.Receive(), reason);
  if (IsBusy(outcome)) throw SpreadsheetError("the spreadsheet application is busy: " + reason);
  if (IsGone(outcome)) throw SpreadsheetError("the spreadsheet application is gone: " + reason);
  if (FAILED(outcome)) throw RefusedCall("the spreadsheet application refuses: " + reason);
  return result;
}

AutomationObject InvokeForObject(const AutomationObject& object, DISPID member,
                                 std::span<const VARIANT> arguments, WORD kind) {
  AutomationObject found = ObjectOf(Invoke(object, member, kind, arguments).Get());
  if (!found) throw SpreadsheetError("the spreadsheet application gave no object");
  return found;
}

std::int32_t InvokeForNumber(const AutomationObject& object, DISPID property) {
  const Variant number = Invoke(object, property, DISPATCH_PROPERTYGET);
  if (number.Get().vt != VT_I4) throw SpreadsheetError("the spreadsheet application gave no number");
  return number.Get().lVal;
}

int InvokeByName(WORD kind, VARIANT* result, IDispatch* object, const wchar_t* name,
                 std::span<const VARIANT> arguments, ByNameFailure* failure) {
  if (object == nullptr) return 1;
  ByNameFailure unseen;
  char(&text)[256] = (failure != nullptr ? *failure : unseen).text;
  const std::string narrowName = Narrow(name);
  DISPID member = 0;
  OLECHAR* names = const_cast<OLECHAR*>(name);
  if (FAILED(object->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &member))) {
    // Both texts end as they always have: without the number that they seem to announce.
    std::snprintf(text, sizeof text, "IDispatch::GetIDsOfNames(\"%s\") failed w/err 0xlx",
                  narrowName.c_str());
    return 1;
  }
  std::string unsaid;
  if (SUCCEEDED(InvokePatiently(object, member, kind, arguments, result, unsaid))) return 0;
  std::snprintf(text, sizeof text, "IDispatch::Invoke(\"%s\"=lx) failed w/err 0xlx", narrowName.c_str());
  return 1;
}

}  // namespace qv
