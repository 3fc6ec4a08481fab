#include <QVAssemblyFile/Diagnostics.h>

#include "platform/InvalidParameter.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace {

TEST(HandlersTest, EveryDiagnosticCodeHasANameOfItsOwn) {
  std::set<std::string> names;
  const int last = static_cast<int>(DiagnosticCode::Cancelled);
  for (int code = 0; code <= last; ++code) {
    const std::string name = DiagnosticCodeName(static_cast<DiagnosticCode>(code));
    EXPECT_NE(name, "unknown") << code;
    EXPECT_EQ(name.find_first_not_of("abcdefghijklmnopqrstuvwxyz-"), std::string::npos) << name;
    EXPECT_TRUE(names.insert(name).second) << name;
  }
  EXPECT_STREQ(DiagnosticCodeName(static_cast<DiagnosticCode>(last + 1)), "unknown");
}

TEST(HandlersDeathTest, AnInvalidParameterEndsTheProcess) {
  EXPECT_DEATH(qv::InvalidParameter("an index outside the list"), "");
}

}  // namespace
