#include <QVAssemblyFile/Diagnostics.h>
#include <QVAssemblyFile/MessageBox.h>

#include "platform/InvalidParameter.h"
#include "tests/support/DiagnosticLog.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace {

TEST(HandlersTest, EveryDiagnosticCodeHasANameOfItsOwn) {
  std::set<std::string> names;
  const int last = static_cast<int>(DiagnosticCode::EndOfText);
  for (int code = 0; code <= last; ++code) {
    const std::string name = DiagnosticCodeName(static_cast<DiagnosticCode>(code));
    EXPECT_NE(name, "unknown") << code;
    EXPECT_EQ(name.find_first_not_of("abcdefghijklmnopqrstuvwxyz-"), std::string::npos) << name;
    EXPECT_TRUE(names.insert(name).second) << name;
  }
  EXPECT_STREQ(DiagnosticCodeName(static_cast<DiagnosticCode>(last + 1)), "unknown");
}

TEST(HandlersTest, RemarksReachTheHandlerWhileThereIsOne) {
  const Diagnostic remark{"a.csv", 3, "PartName", DiagnosticCode::TextCut, "long", "lon", "It was cut."};
  qv::Report(remark);
  EXPECT_FALSE(qv::DiagnosticsWanted());
  const DiagnosticLog log;
  EXPECT_TRUE(qv::DiagnosticsWanted());
  qv::Report(remark);
  ASSERT_EQ(log.Remarks.size(), 1U);
  EXPECT_EQ(log.Remarks[0].column, "PartName");
  EXPECT_EQ(log.Codes(), "text-cut");
}

TEST(HandlersTest, AMessageGoesToTheHandlerInsteadOfTheUser) {
  std::string shown;
  SetMessageBoxHandler([](const char* text, void* context) { *static_cast<std::string*>(context) += text; },
                       &shown);
  qv::ShowMessage("File Format Error!");
  SetMessageBoxHandler(nullptr, nullptr);
  EXPECT_EQ(shown, "File Format Error!");
}

TEST(HandlersDeathTest, AnInvalidParameterEndsTheProcess) {
  EXPECT_DEATH(qv::InvalidParameter("a rank outside the list"), "");
}

}  // namespace
