#include "support/DiagnosticLog.h"
#include "support/Host.h"
#include "tests/windows/HeldFile.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace {

using host::Path;
using Sharing = HeldFile::Sharing;

constexpr const char* kFormats = R"(<?xml version="1.0" encoding="UTF-8"?>
<CSVOptionSetting Current="Parts"><OptionForm Name="Parts" Line="2" Delimiters="Semicolon" Qualifier="2" Part="Name">
<PartName Order="0"/><PartQuantity Order="1"/></OptionForm></CSVOptionSetting>)";

constexpr const char* kParts = "[FMT_Name=Parts]\r\nName;Quantity\r\nplate;4\r\nlid;1\r\n";

class DataFileTest : public testing::Test {
 protected:
  DataFileTest() { manager_.LoadFormatConfiguration(folder_.Write("formats.xml", kFormats).c_str()); }

  std::string Import(const std::string& path) {
    EXPECT_TRUE(manager_.ImportAssemblyFile(Path(path)));
    std::string parts;
    for (int rank = 0; rank < manager_.GetPartsCount(); ++rank) {
      PartInformation* part = manager_.GetPartInfoAtRank(rank);
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
  {
    const HeldFile held(path, Sharing::Shared, 150);
    const DiagnosticLog log;
    EXPECT_TRUE(Export(path));
    EXPECT_EQ(log.Codes(), "");
  }
  EXPECT_EQ(Import(path), "bracket*7 ");
  const HeldFile held(path, Sharing::Shared, 150);
  manager_.SetCurrentFormatToFile("Other", path.c_str());
  EXPECT_TRUE(TemporaryFolder::Read(path).starts_with("[FMT_Name=Other]\r\n"));
}

TEST_F(DataFileTest, TakesTextAsTextFilesHereHoldIt) {
  const struct {
    const char* why;
    std::string text;
    const char* parts;
  } cases[] = {
      {"line ends of both kinds", "x\nName;Quantity\r\na;1\nb;2\r\n", "a*1 b*2 "},
      {"a last line without an end", "x\r\nName;Quantity\r\na;1", "a*1 "},
      {"an end-of-file character ends the text", "x\r\nName;Quantity\r\na;1\r\n\x1A\r\nb;2\r\n", "a*1 "},
      {"also within a line", "x\r\nName;Quantity\r\na;1\r\nb;2\x1A;3\r\nc;3\r\n", "a*1 b*2 "},
      {"and behind the last line", "x\r\nName;Quantity\r\na;1\r\n\x1A", "a*1 "},
      {"a carriage return alone is a character", "x\r\nName;Quantity\r\na\rb;1\r\n", "a\rb*1 "},
  };
  for (const auto& test : cases) {
    SCOPED_TRACE(test.why);
    EXPECT_EQ(Import(folder_.Write("parts.txt", test.text)), test.parts);
  }
}

TEST_F(DataFileTest, RenamingKeepsWhatStandsBehindTheTextsEnd) {
  const std::string path = folder_.Write("parts.txt", "[FMT_Name=Old]\nName;Quantity\r\na;1\n\x1A rest");
  manager_.SetCurrentFormatToFile("New", path.c_str());
  EXPECT_EQ(TemporaryFolder::Read(path), "[FMT_Name=New]\r\nName;Quantity\r\na;1\r\n\x1A rest\r\n");
}

// The longest path that programs here are used to.
TEST_F(DataFileTest, WorksAtPathsOf259Characters) {
  constexpr std::size_t kLongest = 259;
  for (const std::size_t nameLength : {std::size_t{12}, std::size_t{100}}) {
    std::filesystem::path deep = folder_ / "deep";
    while (deep.string().size() + 1 + nameLength + 51 < kLongest) deep /= std::string(50, 'd');
    const std::size_t left = kLongest - deep.string().size() - 2 - nameLength;
    deep /= std::string(left, 'e');
    std::filesystem::create_directories("\\\\?\\" + deep.string());
    const std::string path = deep.string() + "\\" + std::string(nameLength - 4, 'f') + ".txt";
    ASSERT_EQ(path.size(), kLongest);
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
