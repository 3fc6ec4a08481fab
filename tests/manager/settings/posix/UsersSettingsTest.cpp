#include "manager/SettingsFile.h"
#include "platform/FileSystem.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>

namespace {

namespace fs = std::filesystem;

TEST(UsersSettingsTest, AreUsedWhereTheProgramHasNoFolder) {
  const TemporaryFolder home;
  setenv("XDG_CONFIG_HOME", (home / "config").c_str(), 1);
  const std::string path = SettingsFilePath();
  EXPECT_EQ(path, home / "config/QVAssemblyFile/Setting.ini");
  EXPECT_EQ(ReadDefaultFormat(path), "");
  EXPECT_TRUE(WriteDefaultFormat(path, ""));
  EXPECT_TRUE(home.Names().empty()) << "no folder for nothing";
  EXPECT_TRUE(WriteDefaultFormat(path, "Form1"));
  EXPECT_EQ(ReadDefaultFormat(SettingsFilePath()), "Form1");

  const fs::path beside = fs::path(qv::ProgramPath()).parent_path() / "PARM";
  fs::create_directory(beside);
  EXPECT_EQ(SettingsFilePath(), beside / "Setting.ini");
  fs::remove(beside);

  setenv("XDG_CONFIG_HOME", "not/absolute", 1);
  setenv("HOME", (home / "me").c_str(), 1);
  EXPECT_EQ(SettingsFilePath(), home / "me/.config/QVAssemblyFile/Setting.ini");
  setenv("HOME", "", 1);
  EXPECT_EQ(SettingsFilePath(), beside / "Setting.ini");
}

}  // namespace
