#include "platform/spreadsheet/excel/Automation.h"

#include <gtest/gtest.h>

namespace {

/// Knows one member, "Add", that fails. How members are called is for the conversations to say.
class Target final : public IDispatch {
 public:
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
  HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                   UINT*) override {
    return member == 5 ? E_FAIL : DISP_E_MEMBERNOTFOUND;
  }
};

TEST(InvokeByName, SaysInItsOwnWayWhatFailed) {
  Target target;
  qv::ByNameFailure failure;
  EXPECT_EQ(qv::InvokeByName(DISPATCH_METHOD, nullptr, &target, L"Remove", {}, &failure), 1);
  EXPECT_STREQ(failure.text, "IDispatch::GetIDsOfNames(\"Remove\") failed w/err 0xlx");
  EXPECT_EQ(qv::InvokeByName(DISPATCH_METHOD, nullptr, &target, L"Add", {}, &failure), 1);
  EXPECT_STREQ(failure.text, "IDispatch::Invoke(\"Add\"=lx) failed w/err 0xlx");
  const std::wstring longName(300, L'x');
  EXPECT_EQ(qv::InvokeByName(DISPATCH_METHOD, nullptr, &target, longName.c_str(), {}, &failure), 1);
  EXPECT_EQ(std::string(failure.text),
            ("IDispatch::GetIDsOfNames(\"" + std::string(300, 'x')).substr(0, 255));
  qv::ByNameFailure unsaid;
  EXPECT_EQ(qv::InvokeByName(DISPATCH_METHOD, nullptr, nullptr, L"Add", {}, &unsaid), 1);
  EXPECT_STREQ(unsaid.text, "") << "without an object";
}

}  // namespace
