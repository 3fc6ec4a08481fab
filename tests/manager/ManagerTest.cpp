#include <gtest/gtest.h>

#include "support/CaseFile.h"
#include "support/DiagnosticLog.h"
#include "support/Host.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <thread>

namespace {

using host::NameOf;
using host::Path;

constexpr const char* kConfiguration = R"(<?xml version="1.0" encoding="UTF-8"?>
<CSVOptionSetting Current="Parts">
  <OptionForm Name="Parts" Line="2" Delimiters="Comma" Other="" Qualifier="0" TreatAsOne="0" Part="Name">
    <PartName Order="0"/><PartQuantity Order="1"/>
  </OptionForm>
  <OptionForm Name="Tools" Line="1" Delimiters="Tab" Other="" Qualifier="2" TreatAsOne="0" Part="Path">
    <ID Order="0"/><PunchCondition Order="1"/>
  </OptionForm>
  <OptionForm Name="50%% off %d %s %08.3lf%" Line="2" Part="Name"><PartName Order="0"/></OptionForm>
</CSVOptionSetting>)";

class ManagerTest : public testing::Test {
 protected:
  ManagerTest() { manager.LoadFormatConfiguration(folder.Write("formats.xml", kConfiguration).c_str()); }

  static PartInformation* NewPart(const char* name) {
    auto* part = new PartInformation;
    part->SetPartName(name);
    return part;
  }

  TemporaryFolder folder;
  CAssemblyFileMgr manager;
};

TEST_F(ManagerTest, ListsAndChoosesFormats) {
  char name[100];
  ASSERT_EQ(manager.GetFormatsCount(), 3);
  manager.GetFormatAtRank(1, name);
  EXPECT_STREQ(name, "Tools");
  manager.GetFormatAtRank(99, nullptr);
  manager.GetCurrentFormat(name);
  EXPECT_STREQ(name, "Parts");
  EXPECT_EQ(manager.GetStartLine(), 2);
  EXPECT_TRUE(manager.IsPartNameOnly());
  manager.SetCurrentFormat("Tools");
  manager.SetCurrentFormat(nullptr);
  EXPECT_EQ(manager.GetStartLine(), 1);
  EXPECT_FALSE(manager.IsPartNameOnly());
  manager.SetCurrentFormat("tools");
  EXPECT_EQ(manager.GetStartLine(), 0);
  EXPECT_FALSE(manager.IsPartNameOnly());
}

TEST_F(ManagerTest, WorksBeforeAnythingIsLoaded) {
  CAssemblyFileMgr fresh;
  char name[100] = "x";
  EXPECT_EQ(fresh.GetFormatsCount(), 0);
  fresh.GetCurrentFormat(name);
  EXPECT_STREQ(name, "");
  EXPECT_EQ(fresh.GetStartLine(), 0);
  EXPECT_FALSE(fresh.IsPartNameOnly());
  EXPECT_EQ(fresh.GetPartsCount() + fresh.GetToolsCount() + fresh.GetMatsCount() + fresh.GetShtCount() +
                fresh.GetPrtCountInMenu() + fresh.GetMatAmncITCount() + fresh.GetMatLibraryInfoCount() +
                fresh.GetHeaderCount(),
            0);
  EXPECT_EQ(fresh.GetMatAmncITInfoAtRank(0), nullptr);
  fresh.ClearParts();
  fresh.ClearTools();
  std::vector<std::string> headers{"old"};
  fresh.GetPartHeaders(headers);
  EXPECT_TRUE(headers.empty());
  EXPECT_TRUE(fresh.OpenAssemblyFile());
  const std::string path = folder.Write("a.csv", "h\n\nA1\n");
  EXPECT_TRUE(fresh.ImportAssemblyFile(Path(path)));
  EXPECT_EQ(fresh.GetHeaderCount(), 1);
  fresh.SetCurrentFormat("later");
  fresh.GetCurrentFormat(name);
  EXPECT_STREQ(name, "later");
}

TEST_F(ManagerTest, ReadsByRank) {
  const std::string path = folder.Write("parts.csv", "note\nname,qty\nA,1\nB,2\n");
  ASSERT_TRUE(manager.ImportAssemblyFile(Path(path)));
  ASSERT_EQ(manager.GetPartsCount(), 2);
  EXPECT_EQ(NameOf(manager.GetPartInfoAtRank(1)), "B");
  EXPECT_EQ(manager.GetPartInfoAtRank(2), nullptr);
  EXPECT_EQ(manager.GetPartInfoAtRank(-1), nullptr);
  EXPECT_EQ(manager.GetToolInfoAtRank(0), nullptr);
  manager.ClearParts();
  EXPECT_EQ(manager.GetPartsCount(), 0);
  EXPECT_EQ(manager.GetHeaderCount(), 2);
}

TEST_F(ManagerTest, CutsHeadersToTheCallersBuffer) {
  const std::string path = folder.Write("parts.csv", "note\n" + std::string(300, 'h') + ",b\n");
  manager.ImportAssemblyFile(Path(path));
  char header[256];
  std::memset(header, 'x', sizeof header);
  manager.GetHeaderAtRank(1, header);
  EXPECT_STREQ(header, "b");
  EXPECT_EQ(header[255], '\0');
  manager.GetHeaderAtRank(0, header);
  EXPECT_EQ(std::strlen(header), 255u);
  std::vector<std::string> headers;
  manager.GetPartHeaders(headers);
  EXPECT_EQ(headers.front().size(), 300u);
}

TEST_F(ManagerTest, RefusesOtherFileTypes) {
  host::Boxes boxes;
  const std::string csv = folder.Write("parts.csv", "\nname\nA\n");
  manager.ImportAssemblyFile(Path(csv));
  for (const char* path : {"parts.xlsx", "parts", ""}) {
    EXPECT_FALSE(manager.ImportAssemblyFile(const_cast<char*>(path)));
    EXPECT_FALSE(manager.ExportAssemblyFile(const_cast<char*>(path)));
    EXPECT_EQ(manager.GetPartsCount(), 0);
  }
  EXPECT_FALSE(manager.ImportToolsAssemblyFile(nullptr));
  EXPECT_EQ(boxes.all, std::vector<std::string>(7, "File Format Error!"));
}

TEST_F(ManagerTest, ReportsSuccessWhateverWasReadOrWritten) {
  DiagnosticLog remarks;
  EXPECT_TRUE(manager.ImportAssemblyFile(Path(folder / "missing.csv")));
  std::filesystem::create_directory(folder / "folder.csv");
  EXPECT_TRUE(manager.ImportAssemblyFile(Path(folder / "folder.csv")));
  EXPECT_TRUE(manager.ExportAssemblyFile(Path(folder / "no/such/folder.csv")));
  EXPECT_EQ(std::count_if(remarks.Remarks.begin(), remarks.Remarks.end(),
                          [](const Diagnostic& d) { return d.code == DiagnosticCode::FileNotOpened; }),
            2);
  EXPECT_EQ(remarks.Remarks.back().code, DiagnosticCode::FileNotWritten);
}

// Records belong to the library once exported: exporting again, copying the manager and attaching one record
// twice must neither reach a deleted record nor delete one twice. The sanitizers watch.
TEST_F(ManagerTest, KeepsAttachedRecordsAcrossExports) {
  const std::string first = folder / "1.csv", second = folder / "2.csv";
  auto* twice = NewPart("twice");
  manager.AddAndAttachPart(twice);
  manager.AddAndAttachPart(NewPart("once"));
  manager.AddAndAttachPart(twice);
  manager.AddAndAttachPart(nullptr);
  ASSERT_TRUE(manager.ExportAssemblyFile(Path(first)));
  EXPECT_EQ(manager.GetPartsCount(), 3);
  auto copy = std::make_unique<CAssemblyFileMgr>(manager);
  ASSERT_TRUE(manager.ExportAssemblyFile(Path(second)));
  EXPECT_EQ(TemporaryFolder::Read(first), TemporaryFolder::Read(second));
  manager.ImportAssemblyFile(Path(first));
  EXPECT_EQ(manager.GetPartsCount(), 3);
  EXPECT_EQ(copy->GetPartsCount(), 3);
  EXPECT_EQ(NameOf(copy->GetPartInfoAtRank(0)), "twice");
  ASSERT_TRUE(copy->ExportAssemblyFile(Path(second)));
  EXPECT_EQ(TemporaryFolder::Read(first), TemporaryFolder::Read(second));
  copy->ClearParts();
  EXPECT_EQ(copy->GetPartsCount(), 0);
  ASSERT_TRUE(copy->ExportAssemblyFile(Path(second)));
  EXPECT_EQ(TemporaryFolder::Read(first), TemporaryFolder::Read(second));
}

// What a host does that converts a file of any length: the one manager reads while the other writes.
struct Copying {
  CAssemblyFileMgr& reader;
  std::string from;
  int left;    // how many records to ask for
  bool gives;  // whether the feed ends well
  RecordSink<PartInformation>* sink = nullptr;

  static bool Take(PartInformation* part, void* self) {
    auto& copying = *static_cast<Copying*>(self);
    return copying.sink->Write(*part) && --copying.left > 0;
  }
  static bool Feed(RecordSink<PartInformation>& sink, void* self) {
    auto& copying = *static_cast<Copying*>(self);
    copying.sink = &sink;
    return copying.reader.ReadAssemblyFile(Path(copying.from), Take, self) && copying.gives;
  }
};

TEST_F(ManagerTest, CopiesRecordByRecordAsFarAsIsWanted) {
  const std::string file = folder.Write("a.csv", "\nname,quantity\nA,1\nB,2\nC,3\n");
  CAssemblyFileMgr reader(manager);
  const std::string header = "[FMT_Name=Parts]\n\"PartName\",\"PartQuantity\",\n";
  const struct {
    int wanted;
    bool gives;
    std::string written;
  } cases[] = {{9, true, "\"A\",\"1\"\n\"B\",\"2\"\n\"C\",\"3\"\n"},
               {2, true, "\"A\",\"1\"\n\"B\",\"2\"\n"},
               {1, true, "\"A\",\"1\"\n"},
               {9, false, {}}};
  for (const auto& c : cases) {
    const std::string out = folder.Write("out.csv", "as it was");
    Copying copying{reader, file, c.wanted, c.gives};
    EXPECT_TRUE(manager.WriteAssemblyFile(Path(out), Copying::Feed, &copying));
    EXPECT_EQ(TemporaryFolder::Read(out), c.gives ? host::AsTextFile(header + c.written) : "as it was");
    EXPECT_EQ(reader.GetPartsCount() + manager.GetPartsCount(), 0);
    EXPECT_EQ(reader.GetHeaderCount(), 2);
  }
  Copying onto{reader, file, 9, true};
  EXPECT_TRUE(manager.WriteAssemblyFile(Path(file), Copying::Feed, &onto));
  EXPECT_EQ(TemporaryFolder::Read(file), host::AsTextFile(header + cases[0].written));
  // Without columns there is nothing to write, but the feed may still find that there is nothing to read.
  manager.SetCurrentFormat("none");
  Copying fruitless{reader, file, 9, false};
  const std::string out = folder.Write("out.csv", "as it was");
  EXPECT_TRUE(manager.WriteAssemblyFile(Path(out), Copying::Feed, &fruitless));
  EXPECT_EQ(TemporaryFolder::Read(out), "as it was");
  EXPECT_NE(fruitless.sink, nullptr);
  EXPECT_TRUE(reader.ReadAssemblyFile(Path(file), nullptr, nullptr));
  const host::Boxes boxes;
  EXPECT_FALSE(reader.ReadAssemblyFile(Path(folder / "a.doc"), nullptr, nullptr));
  EXPECT_EQ(boxes.all, std::vector<std::string>{"File Format Error!"});
}

TEST_F(ManagerTest, LeavesUnexportedRecordsToTheHost) {
  const auto part = std::make_unique<PartInformation>();
  {
    CAssemblyFileMgr local(manager);
    local.AddAndAttachPart(part.get());
    auto assigned = local;
    assigned = manager;
  }
  part->SetPartName("still here");
  EXPECT_EQ(NameOf(part.get()), "still here");
}

TEST_F(ManagerTest, SharesOneRecordBetweenTwoManagers) {
  auto* part = NewPart("shared");
  const std::string path = folder / "out.csv";
  auto other = std::make_unique<CAssemblyFileMgr>();
  other->LoadFormatConfiguration((folder / "formats.xml").c_str());
  other->AddAndAttachPart(part);
  manager.AddAndAttachPart(part);
  manager.ExportAssemblyFile(Path(path));
  other->ExportAssemblyFile(Path(path));
  other.reset();
  manager.ExportAssemblyFile(Path(path));
  EXPECT_NE(TemporaryFolder::Read(path).find("shared"), std::string::npos);
}

TEST_F(ManagerTest, CopiesShareTheConfigurationAndTheEngine) {
  const std::string path = folder.Write("parts.csv", "\nname,qty\nA,1\n");
  manager.ImportAssemblyFile(Path(path));
  auto source = std::make_unique<CAssemblyFileMgr>(manager);
  CAssemblyFileMgr copy(*source);
  source->SetCurrentFormat("Tools");
  source.reset();
  char name[100];
  copy.GetCurrentFormat(name);
  EXPECT_STREQ(name, "Tools");
  EXPECT_EQ(copy.GetPartsCount(), 1);
}

TEST_F(ManagerTest, ManagersOfSeveralThreadsDoNotMeet) {
  std::vector<std::thread> threads;
  for (int worker = 0; worker < 4; ++worker)
    threads.emplace_back([this, worker] {
      const std::string path = folder / ("out" + std::to_string(worker) + ".csv");
      CAssemblyFileMgr own;
      own.LoadFormatConfiguration((folder / "formats.xml").c_str());
      for (int i = 0; i < 200; ++i) own.AddAndAttachPart(NewPart("p"));
      for (int i = 0; i < 5; ++i) {
        own.ExportAssemblyFile(Path(path));
        own.ImportAssemblyFile(Path(path));
        EXPECT_EQ(own.GetPartsCount(), 200);
      }
    });
  for (std::thread& thread : threads) thread.join();
}

TEST_F(ManagerTest, FindsTheFormatNameInAFile) {
  for (const auto& row : ReadTable("manager/tables/format-names.table")) {
    char name[256] = "?";
    const std::string path = folder.Write("a.txt", row[0] + "\n");
    manager.GetCurrentFormatFromFile(name, Path(path));
    EXPECT_EQ(name, row[1]) << row[0];
  }
  manager.GetCurrentFormatFromFile(nullptr, Path(folder / "a.txt"));
}

using ManagerDeathTest = ManagerTest;

TEST_F(ManagerDeathTest, EndsOnACallersError) {
  testing::GTEST_FLAG(death_test_style) = "threadsafe";
  char name[256];
  EXPECT_DEATH(manager.GetFormatAtRank(3, name), "rank");
  EXPECT_DEATH(manager.GetFormatAtRank(-1, name), "rank");
  EXPECT_DEATH(manager.GetHeaderAtRank(0, name), "rank");
  manager.SetCurrentFormat(std::string(99, 'n').c_str());
  manager.GetCurrentFormat(name);
  EXPECT_EQ(std::strlen(name), 99u);
  manager.SetCurrentFormat(std::string(100, 'n').c_str());
  EXPECT_DEATH(manager.GetCurrentFormat(name), "100 characters");
}

}  // namespace
