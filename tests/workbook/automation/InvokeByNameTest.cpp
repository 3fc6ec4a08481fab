#include "platform/spreadsheet/excel/Automation.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

/// Knows one member, "Add", number 5, and remembers how it was called.
class Target final : public IDispatch {
 public:
  HRESULT invokeResult = S_OK;
  WORD kind = 0;
  std::vector<long> arguments;  // in the order of their declaration
  std::vector<DISPID> named;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void**) override { return E_NOINTERFACE; }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID locale,
                                          DISPID* members) override {
    *members = 5;
    return names[0] == std::wstring(L"Add") && locale == LOCALE_USER_DEFAULT ? S_OK : DISP_E_UNKNOWNNAME;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID, LCID, WORD called, DISPPARAMS* parameters,
                                   VARIANT* result, EXCEPINFO*, UINT*) override {
    if (member != 5) return DISP_E_MEMBERNOTFOUND;
    kind = called;
    for (UINT index = parameters->cArgs; index-- > 0;) arguments.push_back(parameters->rgvarg[index].lVal);
    named.assign(parameters->rgdispidNamedArgs, parameters->rgdispidNamedArgs + parameters->cNamedArgs);
    if (result != nullptr) *result = qv::Argument(42L);
    return invokeResult;
  }
};

TEST(InvokeByName, CallsWhatItHasLookedUp) {
  Target target;
  VARIANT result{};
  const VARIANT arguments[] = {qv::Argument(1L), qv::Argument(2L), qv::Argument(3L)};
  EXPECT_EQ(qv::InvokeByName(DISPATCH_METHOD, &result, &target, L"Add", arguments), 0);
  EXPECT_EQ(target.kind, DISPATCH_METHOD);
  EXPECT_EQ(target.arguments, (std::vector<long>{1, 2, 3}));
  EXPECT_TRUE(target.named.empty());
  EXPECT_EQ(result.lVal, 42);
}

TEST(InvokeByName, NamesTheValueOfAPropertyPut) {
  Target target;
  const VARIANT value = qv::Argument(7L);
  EXPECT_EQ(qv::InvokeByName(DISPATCH_PROPERTYPUT, nullptr, &target, L"Add", {&value, 1}), 0);
  EXPECT_EQ(target.named, std::vector<DISPID>{DISPID_PROPERTYPUT});
}

TEST(InvokeByName, SaysInItsOwnWayWhatFailed) {
  Target target;
  qv::ByNameFailure failure;
  EXPECT_EQ(qv::InvokeByName(DISPATCH_METHOD, nullptr, &target, L"Remove", {}, &failure), 1);
  EXPECT_STREQ(failure.text, "IDispatch::GetIDsOfNames(\"Remove\") failed w/err 0xlx");
  target.invokeResult = E_FAIL;
  EXPECT_EQ(qv::InvokeByName(DISPATCH_METHOD, nullptr, &target, L"Add", {}, &failure), 1);
  EXPECT_STREQ(failure.text, "IDispatch::Invoke(\"Add\"=lx) failed w/err 0xlx");
  const std::wstring longName(300, L'x');
  EXPECT_EQ(qv::InvokeByName(DISPATCH_METHOD, nullptr, &target, longName.c_str(), {}, &failure), 1);
  EXPECT_EQ(std::string(failure.text),
            ("IDispatch::GetIDsOfNames(\"" + std::string(300, 'x')).substr(0, 255));
}

TEST(InvokeByName, FailsAtOnceWithoutAnObject) {
  qv::ByNameFailure failure;
  EXPECT_EQ(qv::InvokeByName(DISPATCH_METHOD, nullptr, nullptr, L"Add", {}, &failure), 1);
  EXPECT_STREQ(failure.text, "");
}

}  // namespace
