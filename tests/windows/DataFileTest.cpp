#include "platform/windows/Handle.h"
#include "support/DiagnosticLog.h"
#include "support/Host.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <thread>

namespace {

using host::Path;
constexpr const char* kFormats = R"(<?xml version="1.0" encoding="UTF-8"?>
<CSVOptionSetting Current="Parts"><OptionForm Name="Parts" Line="2" Delimiters="Semicolon" Qualifier="2" Part="Name">
<PartName Order="0"/><PartQuantity Order="1"/></OptionForm></CSVOptionSetting>)";

constexpr const char* kParts = "[FMT_Name=Parts]\r\nName;Quantity\r\nplate;4\r\nlid;1\r\n";

enum class Sharing { Shared, Exclusive };

/// A file that somebody has open while this lives: who it is does not matter to the system.
class HeldFile {
 public:
  HeldFile(const std::string& path, Sharing sharing)
      : file_(CreateFileA(path.c_str(), GENERIC_READ,
                          sharing == Sharing::Shared ? FILE_SHARE_READ | FILE_SHARE_WRITE : 0, nullptr,
                          OPEN_EXISTING, 0, nullptr)) {
    EXPECT_TRUE(file_.IsOpen()) << path;
  }

  void LetGo() { file_.Close(); }

 private:
  qv::Handle file_;
};

/// Calls `work` while the file is held, which is not for long.
template <class Work>
void WhileHeldShortly(const std::string& path, Work work) {
  HeldFile held(path, Sharing::Shared);
  std::thread holder([&] {
    Sleep(150);
    held.LetGo();
  });
  work();
  holder.join();
}

class DataFileTest : public testing::Test {
 protected:
  DataFileTest() { manager_.LoadFormatConfiguration(folder_.Write("formats.xml", kFormats).c_str()); }

  std::string Import(const std::string& path) {
    EXPECT_TRUE(manager_.ImportAssemblyFile(Path(path)));
    std::string parts;
    for (int index = 0; index < manager_.GetPartsCount(); ++index) {
      PartInformation* part = manager_.GetPartInfoAtRank(index);
      parts += host::NameOf(part) + "*" + std::to_string(part->GetPartQuantity()) + " ";
    }
    return parts;
  }

  // Always a list of one part.
  bool Export(const std::string& path) {
    CAssemblyFileMgr manager;
    manager.LoadFormatConfiguration((folder_ / "formats.xml").c_str());
    auto* part = new PartInformation;
    part->SetPartName("bracket");
    part->SetPartQuantity(7);
    manager.AddAndAttachPart(part);
    return manager.ExportAssemblyFile(Path(path));
  }

  TemporaryFolder folder_;
  CAssemblyFileMgr manager_;
};

TEST_F(DataFileTest, ReadsWhatAnotherProcessHasOpenIfThatShares) {
  const std::string path = folder_.Write("parts.txt", kParts);
  {
    const HeldFile held(path, Sharing::Shared);
    EXPECT_EQ(Import(path), "plate*4 lid*1 ");
    char name[256] = "";
    manager_.GetCurrentFormatFromFile(name, Path(path));
    EXPECT_STREQ(name, "Parts");
  }
  const HeldFile held(path, Sharing::Exclusive);
  const DiagnosticLog log;
  EXPECT_EQ(Import(path), "");
  EXPECT_EQ(log.Codes(), "file-not-opened");
}

TEST_F(DataFileTest, KeepsAFileThatAnotherProcessHoldsAndSaysSo) {
  for (const Sharing sharing : {Sharing::Shared, Sharing::Exclusive}) {
    const std::string path = folder_.Write("parts.txt", kParts);
    {
      const HeldFile held(path, sharing);
      const DiagnosticLog log;
      EXPECT_TRUE(Export(path));
      EXPECT_EQ(log.Codes(), "file-not-written");
      manager_.SetCurrentFormatToFile("Other", path.c_str());
    }
    EXPECT_EQ(TemporaryFolder::Read(path), kParts);
    EXPECT_EQ(folder_.Names(), (std::set<std::string>{"formats.xml", "parts.txt"}));
  }
}

TEST_F(DataFileTest, WaitsForAProcessThatLetsGoSoon) {
  const std::string path = folder_.Write("parts.txt", kParts);
  const DiagnosticLog log;
  WhileHeldShortly(path, [&] { EXPECT_TRUE(Export(path)); });
  EXPECT_EQ(log.Codes(), "");
  EXPECT_EQ(Import(path), "bracket*7 ");
  WhileHeldShortly(path, [&] { manager_.SetCurrentFormatToFile("Other", path.c_str()); });
  EXPECT_TRUE(TemporaryFolder::Read(path).starts_with("[FMT_Name=Other]\r\n"));
}

TEST_F(DataFileTest, RenamingKeepsWhatStandsBehindTheTextsEnd) {
  const std::string path = folder_.Write("parts.txt", "[FMT_Name=Old]\nName;Quantity\r\na;1\n\x1A rest");
  manager_.SetCurrentFormatToFile("New", path.c_str());
  EXPECT_EQ(TemporaryFolder::Read(path), "[FMT_Name=New]\r\nName;Quantity\r\na;1\r\n\x1A rest\r\n");
}

// The longest path that programs here are used to.
TEST_F(DataFileTest, WorksAtPathsOf259Characters) {
  constexpr std::size_t kMaxPath = 259;
  for (const std::size_t nameLength : {std::size_t{12}, std::size_t{100}}) {
    std::filesystem::path deep = folder_ / "deep";
    while (deep.string().size() + 1 + nameLength + 51 < kMaxPath) deep /= std::string(50, 'd');
    const std::size_t left = kMaxPath - deep.string().size() - 2 - nameLength;
    deep /= std::string(left, 'e');
    std::filesystem::create_directories("\\\\?\\" + deep.string());
    const std::string path = deep.string() + "\\" + std::string(nameLength - 4, 'f') + ".txt";
    ASSERT_EQ(path.size(), kMaxPath);
    SCOPED_TRACE(path);

    const DiagnosticLog log;
    EXPECT_TRUE(Export(path));
    EXPECT_TRUE(Export(path)) << "over an existing file";
    manager_.SetCurrentFormatToFile("Parts", path.c_str());
    EXPECT_EQ(Import(path), "bracket*7 ");
    EXPECT_EQ(log.Codes(), "");

    const std::string formats = path.substr(0, path.size() - 4) + ".xml";
    std::filesystem::copy_file(folder_ / "formats.xml", "\\\\?\\" + formats);
    CAssemblyFileMgr other;
    EXPECT_TRUE(other.LoadFormatConfiguration(formats.c_str()));
    char name[100];
    other.GetCurrentFormat(name);
    EXPECT_STREQ(name, "Parts");
    std::filesystem::remove_all("\\\\?\\" + (folder_ / "deep"));
  }
}

}  // namespace
