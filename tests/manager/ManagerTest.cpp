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
  fresh.GetCurrentFormat(name);
  EXPECT_STREQ(name, "");
  EXPECT_FALSE(fresh.IsPartNameOnly());
  EXPECT_EQ(fresh.GetFormatsCount() + fresh.GetStartLine() + fresh.GetPartsCount() + fresh.GetToolsCount() +
                fresh.GetMatsCount() + fresh.GetShtCount() + fresh.GetPrtCountInMenu() +
                fresh.GetMatAmncITCount() + fresh.GetMatLibraryInfoCount() + fresh.GetHeaderCount(),
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
}

TEST_F(ManagerTest, ReadsByRankAndCutsHeadersToTheCallersBuffer) {
  const std::string path = folder.Write("parts.csv", "note\n" + std::string(300, 'h') + ",b\nA,1\nB,2\n");
  ASSERT_TRUE(manager.ImportAssemblyFile(Path(path)));
  ASSERT_EQ(manager.GetPartsCount(), 2);
  EXPECT_EQ(NameOf(manager.GetPartInfoAtRank(1)), "B");
  for (const int rank : {-1, 2}) EXPECT_EQ(manager.GetPartInfoAtRank(rank), nullptr);
  EXPECT_EQ(manager.GetToolInfoAtRank(0), nullptr);
  manager.ClearParts();
  EXPECT_EQ(manager.GetPartsCount(), 0);

  char header[256];
  std::memset(header, 'x', sizeof header);
  manager.GetHeaderAtRank(1, header);
  EXPECT_STREQ(header, "b");
  EXPECT_EQ(header[255], '\0');
  EXPECT_EQ(Text(manager, &CAssemblyFileMgr::GetHeaderAtRank, 0), std::string(255, 'h'));
  std::vector<std::string> headers;
  manager.GetPartHeaders(headers);
  EXPECT_EQ(headers, (std::vector<std::string>{std::string(300, 'h'), "b"}));
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
  EXPECT_EQ(remarks.Codes(), "file-not-opened file-not-opened file-not-written");
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

TEST_F(ManagerTest, CopiesRecordByRecordAsFarAsIsWanted) {
  const std::string file = folder.Write("a.csv", "\nname,quantity\nA,1\nB,2\nC,3\n");
  const std::string header = "[FMT_Name=Parts]\n\"PartName\",\"PartQuantity\",\n";
  const std::string rows = "\"A\",\"1\"\n\"B\",\"2\"\n\"C\",\"3\"\n";
  CAssemblyFileMgr reading(manager);
  manager.ImportAssemblyFile(Path(file));
  for (const int wanted : {0, 2, 9}) {
    const std::string out = folder.Write("out.csv", "as it was");
    {
      RecordWriter<PartInformation> writer(manager, out.c_str());
      RecordReader<PartInformation> reader(reading, file.c_str());
      int left = wanted;
      for (PartInformation& part : reader) {
        if (left-- == 0) break;
        EXPECT_TRUE(writer.Put(part));
        EXPECT_EQ(reader.LineNumber(), 2 + wanted - left);
      }
      EXPECT_EQ(reading.GetPartsCount() + manager.GetPartsCount(), 0);
      EXPECT_EQ(reading.GetHeaderCount(), 2);
      if (wanted > 0) {
        EXPECT_TRUE(writer.Commit());
        EXPECT_FALSE(writer.Commit() || writer.Put(PartInformation()));
      }
    }
    const std::string all = header + rows.substr(0, static_cast<std::size_t>(std::min(wanted, 3)) * 8);
    EXPECT_EQ(TemporaryFolder::Read(out), wanted > 0 ? host::AsTextFile(all) : "as it was");
  }
  RecordWriter<PartInformation>(manager, (folder / "abandoned.xls").c_str()).Put(PartInformation());
  EXPECT_EQ(manager.GetPartsCount(), 0) << "nothing is kept of it";
  // Onto the file that is read, with one manager for both, which may be gone by then.
  auto both = std::make_unique<CAssemblyFileMgr>(manager);
  RecordReader<PartInformation> reader(*both, file.c_str());
  RecordWriter<PartInformation> writer(*both, file.c_str());
  both.reset();
  for (PartInformation& part : reader) writer.Put(part);
  EXPECT_EQ(reader.Next(), nullptr);
  EXPECT_TRUE(!reader.HasFailed() && writer.Commit());
  EXPECT_EQ(TemporaryFolder::Read(file), host::AsTextFile(header + rows));
}

TEST_F(ManagerTest, StreamsSayThatTheyFailed) {
  const host::Boxes boxes;
  DiagnosticLog log;
  RecordReader<PartInformation> missing(manager, (folder / "missing.csv").c_str());
  RecordReader<PartInformation> unsupported(manager, (folder / "a.doc").c_str());
  RecordWriter<PartInformation> unwritable(manager, (folder / "no/such/folder.csv").c_str());
  AnyRecordReader written(manager, RecordKind::JobProgress, "a.csv");
  AnyRecordWriter read(manager, RecordKind::MaterialLibrary, (folder / "a.csv").c_str());
  EXPECT_TRUE(missing.HasFailed() && unsupported.HasFailed() && written.HasFailed());
  EXPECT_EQ(missing.Next(), nullptr);
  EXPECT_EQ(unsupported.Next(), nullptr);
  EXPECT_TRUE(unwritable.HasFailed() && read.HasFailed());
  EXPECT_FALSE(unwritable.Put(PartInformation()) || unwritable.Commit());
  EXPECT_EQ(log.Codes(), "file-not-opened unsupported-file-type file-not-written");
  EXPECT_EQ(boxes.all, std::vector<std::string>{"File Format Error!"});
}

/// Counts what it is told, and ends the work at a place.
struct Listener {
  int calls = 0;
  int last = 0;  // the call that cancels; 0: none
  std::vector<std::string> told;

  Listener() {
    SetProgressHandler(
        [](const FileProgress& progress, void* self) { return static_cast<Listener*>(self)->Take(progress); },
        this);
  }
  ~Listener() { SetProgressHandler(nullptr, nullptr); }

  bool Take(const FileProgress& progress) {
    const bool isReading = progress.work == FileProgress::Work::Reading;
    told.push_back((isReading ? "read " : "written ") + std::to_string(progress.done) + " of " +
                   std::to_string(progress.total));
    return ++calls != last;
  }
};

TEST_F(ManagerTest, TellsProgressAndCanBeCancelled) {
  constexpr int kBlock = 1 << 18;
  std::string text = "\nname\n";
  while (text.size() < 3 * kBlock) text += "a part with a long name, and its quantity\n";
  const std::string file = folder.Write("a.csv", text);
  const std::string size = std::to_string(text.size());
  const auto rowsIn = [&](std::size_t bytes) {
    return static_cast<int>(
               std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(bytes), '\n')) -
           2;
  };
  for (const int last : {0, 1, 2}) {
    SCOPED_TRACE(last);
    Listener listener;
    listener.last = last;
    DiagnosticLog log;
    manager.ImportAssemblyFile(Path(file));
    EXPECT_EQ(listener.told.front(), "read 262144 of " + size);
    EXPECT_EQ(listener.told.back() == "read " + size + " of " + size, last == 0);
    EXPECT_EQ(manager.GetPartsCount(), last == 0 ? rowsIn(text.size()) : last == 1 ? 0 : rowsIn(kBlock));
    EXPECT_EQ(log.Codes().ends_with("cancelled"), last != 0);
  }
  for (const int last : {0, 1, 3}) {
    const std::string out = folder.Write("out.csv", "as it was");
    manager.ImportAssemblyFile(Path(file));
    for (int index = 0; index < manager.GetPartsCount(); ++index)
      manager.AddAndAttachPart(new PartInformation(*manager.GetPartInfoAtRank(index)));
    Listener listener;
    listener.last = last;
    DiagnosticLog log;
    EXPECT_TRUE(manager.ExportAssemblyFile(Path(out)));
    EXPECT_TRUE(listener.told.back().starts_with("written ")) << listener.told.back();
    EXPECT_EQ(TemporaryFolder::Read(out) == "as it was", last != 0);
    EXPECT_EQ(log.Codes(), last != 0 ? "cancelled" : "");
    manager = CAssemblyFileMgr();
    manager.LoadFormatConfiguration((folder / "formats.xml").c_str());
  }
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
