#include "manager/SettingsFile.h"

#include "platform/DynamicLibrary.h"
#include "platform/FileSystem.h"
#include "platform/ProfileFile.h"
#include "tests/support/DiagnosticLog.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <type_traits>

namespace {

namespace fs = std::filesystem;

static_assert(std::has_virtual_destructor_v<CConfigFile>);

fs::path ProgramFolder() { return fs::path(qv::ProgramPath()).parent_path(); }

std::string SettingsBesideProgram() {
  return (ProgramFolder() / "PARM" / "Setting.ini").make_preferred().string();
}

std::string SettingsWithoutLibrary() {
  const std::string usersOwn = qv::UserSettingsFolder();
  return usersOwn.empty() ? SettingsBesideProgram() : usersOwn + "QVAssemblyFile/Setting.ini";
}

// The settings library stands beside the program while this lives.
class InstalledLibrary {
 public:
  explicit InstalledLibrary(const fs::path& library) : path_(Path(library)) {
    std::error_code notThere;
    fs::remove(path_, notThere);  // one runtime refuses to overwrite
    fs::copy_file(library, path_);
  }
  ~InstalledLibrary() {
    std::error_code stillLoaded;
    fs::remove(path_, stillLoaded);
  }

  static fs::path Path(const fs::path& library) {
    return ProgramFolder() / fs::path("ConfigurationManager").replace_extension(library.extension());
  }

 private:
  fs::path path_;
};

int GetSetupFolder(std::string& folder) {
  std::array<char, 260> buffer{};
  const int result = ConfigFile.GetValue("QVF_DEFAULT_SETUP_PATH", buffer.data());
  folder = buffer.data();
  return result;
}

bool HasNoSettings() {
  std::string folder;
  return GetSetupFolder(folder) == 0 && folder.empty() && SettingsFilePath() == SettingsWithoutLibrary();
}

// For a process of its own, as a library stays loaded. Exits with 0 when the library was found and of no use.
[[noreturn]] void AskALibraryWithoutTheReader() {
  bool asExpected = false;
  {
    const InstalledLibrary library(UNRELATED_LIBRARY);
    asExpected = HasNoSettings() && qv::LoadLibraryByName("ConfigurationManager") != nullptr;
  }
  std::exit(asExpected ? 0 : 1);
}

TEST(SettingsLibraryDeathTest, MayLackTheReader) {
  EXPECT_EXIT(AskALibraryWithoutTheReader(), testing::ExitedWithCode(0), "");
  fs::remove(
      InstalledLibrary::Path(UNRELATED_LIBRARY));  // where a loaded library cannot be removed, it is left
}

TEST(SettingsLibraryTest, NamesTheFolderOnceItIsThere) {
  EXPECT_TRUE(HasNoSettings()) << "no library yet";
  const InstalledLibrary library(SETTINGS_LIBRARY);
  EXPECT_TRUE(HasNoSettings()) << "a library without the setting";

  void* const handle = qv::LoadLibraryByName("ConfigurationManager");
  ASSERT_NE(handle, nullptr);
  const auto setSetupFolder =
      reinterpret_cast<void (*)(const char*)>(qv::FindFunction(handle, "SetSetupFolder"));
  ASSERT_NE(setSetupFolder, nullptr);
  setSetupFolder("/setup/");
  std::string folder;
  EXPECT_EQ(GetSetupFolder(folder), 7) << "what the library returns";
  EXPECT_EQ(folder, "/setup/");
  EXPECT_EQ(SettingsFilePath(), "/setup/Setting.ini");
  setSetupFolder("/setup");
  EXPECT_EQ(SettingsFilePath(), "/setupSetting.ini") << "the folder is used as it is given";
  setSetupFolder("");  // the library stays loaded

  std::array<char, 8> untouched{"x"};
  EXPECT_EQ(CConfigFile().GetValue("ANOTHER_SETTING", untouched.data()), 0);
  EXPECT_STREQ(untouched.data(), "x");
}

TEST(SettingsFileTest, KeepsTheDefaultFormatBesideTheHostsSettings) {
  const TemporaryFolder folder;
  const std::string path = folder / "Setting.ini";
  EXPECT_EQ(ReadDefaultFormat(path), "");
  const std::string hosts = "[Host]" + std::string(qv::kLineEnd) + "Language=de" + std::string(qv::kLineEnd);
  folder.Write("Setting.ini", hosts);
  EXPECT_EQ(ReadDefaultFormat(path), "");
  for (const char* name : {"Form1", "Laser \xC3\xA4", ""}) {
    EXPECT_TRUE(WriteDefaultFormat(path, name));
    EXPECT_EQ(ReadDefaultFormat(path), name);
    EXPECT_TRUE(TemporaryFolder::Read(path).starts_with(hosts));
  }
}

TEST(SettingsFileTest, TellsWhenTheDefaultFormatIsNotKept) {
  const TemporaryFolder folder;
  const DiagnosticLog log;
  EXPECT_FALSE(WriteDefaultFormat(folder / "no/such/folder/Setting.ini", "Form1"));
  EXPECT_TRUE(WriteDefaultFormat(folder / "no/such/folder/Setting.ini", "")) << "nothing is lost";
  EXPECT_EQ(log.Codes(), "file-not-written");
}

}  // namespace
