#include "cli/Progress.h"
#include "cli/RunProgram.h"
#include "cli/SpawnProgram.h"
#include "cli/WatchedFiles.h"
#include "support/FakeFileSystem.h"
#include "support/FakeSpreadsheet.h"
#include "support/Host.h"

#include <gtest/gtest.h>

// The program on streams of the test's own, and on files that fail.

namespace qv {
namespace {

class ProgramTest : public testing::Test {
 protected:
  ProgramTest() {
    files_.Contents = {
        {"f.xml", kOneFormat}, {"a.txt", "name,qty\nA1,x\n"}, {"r.json", "[{\"PartName\":\"A1\"}]"}};
  }
  FakeFileSystem files_;
};

TEST_F(ProgramTest, ATerminalGetsATableInColour) {
  const std::vector<std::string> import = {"import", "--kind", "parts", "--config", "f.xml", "a.txt"};
  const Outcome coloured = RunOn(import, true);
  EXPECT_EQ(coloured.out,
            "\x1b[1mPartName  PartQuantity\x1b[0m\n"
            "────────  ────────────\n"
            "A1                   0\n");
  EXPECT_EQ(coloured.error, "\x1b[1ma.txt:2:\x1b[0m PartQuantity: \"x\" is not a number; stored as \"0\"\n");
  const Outcome plain = RunOn(import, true, false);
  EXPECT_EQ(plain.out.find('\x1b'), std::string::npos);
  EXPECT_EQ(plain.error.find('\x1b'), std::string::npos);
  EXPECT_EQ(RunOn(import).out.substr(0, 15), "{\"kind\":\"parts\"");
}

TEST_F(ProgramTest, HelpAndVersionAreNoErrors) {
  EXPECT_EQ(RunOn({"--help"}).code, 0);
  EXPECT_NE(RunOn({"formats", "add", "--help"}).out.find("--treat-as-one"), std::string::npos);
  EXPECT_EQ(RunOn({"--version"}).out.substr(0, 11), "qvassembly ");
}

TEST_F(ProgramTest, AFileThatCannotBeReadToItsEndPrintsNothing) {
  files_.FailAt(3, "read a.txt");
  files_.LargestRead = 8;
  const Outcome run = RunOn({"import", "--kind", "parts", "--config", "f.xml", "--format", "f", "a.txt"});
  EXPECT_EQ(run.code, 3);
  EXPECT_EQ(run.out, "");
  EXPECT_NE(run.error.find("a.txt:"), std::string::npos) << run.error;
}

TEST_F(ProgramTest, RecordsThatCannotBeReadToTheirEndAreNotWritten) {
  files_.LargestRead = 8;
  for (const int failing : {1, 2}) {
    files_.FailAt(failing, "read r.json");
    const Outcome run =
        RunOn({"export", "--kind", "parts", "--config", "f.xml", "--records", "r.json", "out.csv"});
    EXPECT_EQ(run.code, 3);
    EXPECT_EQ(run.error, std::string("r.json: cannot be read: ") + FakeFileSystem::kReason + "\n");
    EXPECT_FALSE(files_.Contents.contains("out.csv"));
  }
}

TEST_F(ProgramTest, AWrongCommandLineIsExplainedAndTouchesNothing) {
  const auto before = files_.Contents;
  for (const auto& row : ReadTable("cli/tables/wrong-command-lines.table")) {
    SCOPED_TRACE(row[0]);
    const Outcome run = RunOn(SplitArguments(row[0]));
    EXPECT_EQ(run.code, 2);
    EXPECT_EQ(run.out, "");
    const std::string told = "qvassembly: " + row[1] + "\nRun \"qvassembly{*} --help\" for its options.\n";
    EXPECT_TRUE(MatchesPattern(run.error, told)) << run.error;
    EXPECT_EQ(files_.Contents, before);
  }
}

// As a full disk does: what is written fits the buffer, and the buffer goes nowhere.
TEST_F(ProgramTest, OutputThatGoesNowhereIsToldOnce) {
  struct FullDisk final : std::stringbuf {
    int sync() override { return -1; }
  };
  const std::string told = "qvassembly: standard output does not take what is written to it\n";
  for (const char* const line :
       {"--help", "formats list --config f.xml", "headers --config f.xml a.txt",
        "import --kind parts --config f.xml --as jsonl a.txt", "format-name get --config f.xml n.txt",
        "check --kind parts --config f.xml --as json a.txt"}) {
    files_.Contents["n.txt"] = "[FMT_Name=f]\n";
    FullDisk disk;
    std::ostream out(&disk);
    std::istringstream in;
    std::ostringstream error;
    std::vector<std::string> arguments = SplitArguments(line);
    arguments.insert(arguments.begin(), "qvassembly");
    EXPECT_EQ(RunProgram(arguments, Streams{in, out, error}), 3) << line;
    EXPECT_EQ(error.str().find(told), error.str().size() - told.size()) << line << ": " << error.str();
  }
}

TEST_F(ProgramTest, WorkbooksGoThroughTheSameCommands) {
  FakeSpreadsheet office;
  FakeSpreadsheet::Store("b.xls", {{"name", "qty"}, {"A1", "5"}, {"A2", "x"}});
  const auto run = [](std::vector<std::string> arguments) {
    arguments.insert(arguments.end(), {"--config", "f.xml"});
    const Outcome outcome = RunOn(arguments);
    return std::to_string(outcome.code) + " " + outcome.out + outcome.error;
  };
  const std::string remark = "b.xls:3: PartQuantity: \"x\" is not a number; stored as \"0\"\n";
  EXPECT_EQ(run({"headers", "b.xls"}), "0 name\nqty\n");
  EXPECT_EQ(office.CountCalls("read"), 3);  // the format's name, and the header row alone
  EXPECT_EQ(run({"convert", "--kind", "parts", "--to", "f", "b.xls", "out.csv"}), "0 " + remark);
  EXPECT_EQ(files_.Contents["out.csv"],
            host::AsTextFile("\"PartName\",\"PartQuantity\",\n\"A1\",\"5\"\n\"A2\",\"0\"\n"));
  EXPECT_EQ(run({"convert", "--kind", "parts", "--to", "f", "b.xls", "b.xls"}), "0 " + remark);
  EXPECT_EQ(FakeSpreadsheet::Load("b.xls", "Sheet1"),
            (SheetRows{{"PartName", "PartQuantity"}, {"A1", "5"}, {"A2", "0"}}));
  EXPECT_EQ(run({"export", "--kind", "parts", "--records", "r.json", "new.xls"}), "0 ");
  EXPECT_EQ(FakeSpreadsheet::Load("new.xls", "Sheet1").size(), 2U);
  EXPECT_NE(run({"import", "--kind", "material-library", "b.xls"}).find("not read from workbooks"),
            std::string::npos);
  office.Installed = false;
  EXPECT_EQ(run({"check", "--kind", "parts", "b.xls"}).front(), '3');
  EXPECT_EQ(office.Running + office.Objects, 0);
}

// Whichever call fails, the file is the old one or the new one, and the exit code tells which.
TEST(ProgramFailureTest, AFileIsWholeOrNotThere) {
  for (const RewritingCommand& command : RewritingCommands()) {
    SCOPED_TRACE(command.name);
    std::string fresh;
    int done = 0;
    {
      FakeFileSystem files;
      files.Contents = command.files;
      done = RunOn(command.arguments).code;
      fresh = files.Contents[command.target];
    }
    ASSERT_TRUE(done < 2 && fresh != command.files.at(command.target));
    int code = 0;
    int failures = 0;
    ForEachFailure(
        command.files, [&](FakeFileSystem&) { code = RunOn(command.arguments).code; },
        [&](FakeFileSystem& files) {
          failures += code != done;
          const std::string& old = command.files.at(command.target);
          EXPECT_EQ(files.Contents[command.target], code == done ? fresh : old) << "exit code " << code;
          EXPECT_TRUE(code == done || code == 3) << code;
          EXPECT_FALSE(files.Contents.contains(FakeFileSystem::WorkingPathOf(command.target)) &&
                       !files.Failed());
        });
    EXPECT_GT(failures, 5);
  }
}

TEST(Progress, WaitsASecondThenTellsOnATerminalOnly) {
  using std::chrono::milliseconds;
  const struct {
    std::int64_t total;
    Progress::Unit unit;
    const char* half;
    const char* whole;
  } cases[] = {{200, Progress::Unit::Bytes, "50 %", "100 %"},
               {200, Progress::Unit::Cells, "50 %", "100 %"},
               {0, Progress::Unit::Bytes, "0 MB", "0 MB"},
               {0, Progress::Unit::Cells, "100 cells", "250 cells"}};
  for (const auto& c : cases) {
    for (const bool isTerminal : {true, false}) {
      std::istringstream in;
      std::ostringstream out;
      std::ostringstream error;
      const Streams streams{in, out, error, isTerminal, isTerminal, true, 80};
      {
        Progress progress(streams);
        const auto start = Progress::Clock::now();
        progress.Start("reading a.csv", c.total, c.unit);
        progress.AdvanceAt(start + milliseconds(900), 50);
        EXPECT_EQ(error.str(), "");
        progress.AdvanceAt(start + milliseconds(1100), 50);
        progress.AdvanceAt(start + milliseconds(1150), 50);  // too soon after the last
        progress.AdvanceAt(start + milliseconds(1500), 100);
      }
      const std::string line = "\r\x1b[Kreading a.csv  ";
      EXPECT_EQ(error.str(), isTerminal ? line + c.half + line + c.whole + "\r\x1b[K" : "");
    }
  }
}

TEST(WatchedFiles, EndAfterSoManyLinesInAnyBlocks) {
  for (const std::size_t block : {std::size_t{1}, std::size_t{3}, std::size_t{100}}) {
    FakeFileSystem files;
    files.Contents["a.txt"] = "one\ntwo\nthree\nfour";
    files.LargestRead = block;
    std::istringstream in;
    std::ostringstream out;
    const Streams streams{in, out, out};
    Progress progress(streams);
    const WatchedFiles watched(progress, OpenMode::Read, 2);
    std::string reason;
    const auto file = Files().Open("a.txt", OpenMode::Read, reason);
    std::string text;
    char buffer[64];
    for (std::ptrdiff_t count = 0; (count = file->Read(buffer, sizeof buffer)) > 0;)
      text.append(buffer, static_cast<std::size_t>(count));
    EXPECT_EQ(text, "one\ntwo\n");
  }
}

}  // namespace
}  // namespace qv
