#include "tests/cli/SpawnProgram.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace {

namespace fs = std::filesystem;

// A program installed at C:\App\bin while this lives.
class InstalledProgram {
 public:
  InstalledProgram() {
    fs::create_directories("C:\\App\\bin\\PARM");
    fs::copy_file(QV_SETTINGS_PROGRAM, "C:\\App\\bin\\app.exe", fs::copy_options::overwrite_existing);
    for (const auto& entry : fs::directory_iterator(fs::path(QV_SETTINGS_PROGRAM).parent_path())) {
      const std::string name = entry.path().filename().string();
      const bool isRuntime = name.starts_with("lib") && name.ends_with(".dll");
      if (isRuntime)
        fs::copy_file(entry.path(), "C:\\App\\bin\\" + name, fs::copy_options::overwrite_existing);
    }
  }
  ~InstalledProgram() { fs::remove_all("C:\\App"); }
  InstalledProgram(const InstalledProgram&) = delete;
  InstalledProgram& operator=(const InstalledProgram&) = delete;
};

TEST(InstalledProgramTest, KeepsItsSettingsInTheFolderBesideIt) {
  const InstalledProgram installed;
  const std::string settings = "C:\\App\\bin\\PARM\\Setting.ini";
  std::ofstream(settings) << "[Host]\nLanguage=de\n[CsvXlsFormat]\nDefaultFormat=Laser\n";
  const auto run = [](std::vector<std::string> arguments) {
    return SpawnProgram({"C:\\App\\bin\\app.exe", std::move(arguments), "C:\\", "", {}}).output;
  };
  EXPECT_EQ(run({}), settings + "\r\nLaser\r\n");
  EXPECT_EQ(run({"Punch"}), settings + "\r\nPunch\r\n");
  const std::string text = TemporaryFolder::Read(settings);
  EXPECT_NE(text.find("Language=de"), std::string::npos);
  EXPECT_NE(text.find("DefaultFormat=Punch"), std::string::npos);
}

}  // namespace
