#include "platform/CodePage.h"
#include "platform/ConsoleProgram.h"
#include "platform/windows/WideText.h"
#include "tests/support/CaseFile.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>
#include <string>

namespace {

// The tests' Windows is a western one.
TEST(CodePageWindowsTest, ConvertsBetweenTheCodePageAndUtf8) {
  ASSERT_EQ(GetACP(), 1252U);
  for (const auto& row : ReadTable("windows/tables/code-page.table")) {
    SCOPED_TRACE(row[0]);
    EXPECT_EQ(qv::FromUtf8(row[1]), row[2]);
    EXPECT_EQ(qv::ToUtf8(row[2]), row[3]);
  }
}

TEST(CodePageWindowsTest, ReplacesEachByteThatDoesNotDecode) {
  for (const auto& row : ReadTable("windows/tables/ill-formed.table")) {
    const auto codePage = static_cast<unsigned>(std::stoul(row[1]));
    EXPECT_EQ(qv::Narrow(qv::Widen(row[2], codePage), qv::kUtf8CodePage), row[3]) << row[0];
  }
}

TEST(CodePageWindowsTest, GivesEveryPathANarrowForm) {
  const TemporaryFolder folder;
  const auto inFolder = [&](const char* utf8) { return (folder / "") + utf8; };
  EXPECT_EQ(qv::PathFromUtf8(inFolder("Größe.csv")), (folder / "") +
                                                         "Gr\xF6\xDF"
                                                         "e.csv");
  EXPECT_EQ(qv::PathFromUtf8(inFolder("板厚.csv")), (folder / "") + "??.csv") << "nothing is there";

  const std::filesystem::path wide = std::filesystem::path(folder / "") / L"板";
  std::filesystem::create_directory(wide);
  const std::string shortFolder = qv::PathFromUtf8(inFolder("板"));
  EXPECT_EQ(shortFolder.find('?'), std::string::npos);
  EXPECT_TRUE(std::filesystem::equivalent(shortFolder, wide));
  EXPECT_EQ(qv::PathFromUtf8(inFolder("板\\parts.csv")), shortFolder + "\\parts.csv") << "yet to be made";
}

}  // namespace
