#include "cli/RunProgram.h"
#include "cli/SpawnProgram.h"
#include "cli/terminal/Progress.h"
#include "support/CaseFile.h"
#include "support/FakeFileSystem.h"
#include "support/FakeSpreadsheet.h"
#include "support/Host.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

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

TEST_F(ProgramTest, ADocumentIsEndedOnlyWhenTheFileIsReadToItsEnd) {
  files_.FailAt(3, "read a.txt");
  files_.LargestRead = 8;
  const Outcome run = RunOn({"import", "--kind", "parts", "--config", "f.xml", "--format", "f", "a.txt"});
  EXPECT_EQ(run.code, 3);
  EXPECT_FALSE(run.out.ends_with("]}\n")) << run.out;
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

TEST_F(ProgramTest, NoFileIsOpenedAgainForWhatIsKnown) {
  for (const char* const line :
       {"check --kind parts --config f.xml a.txt", "import --kind parts --config f.xml a.txt",
        "headers --config f.xml a.txt", "convert --kind parts --config f.xml a.txt b.csv",
        "formats list --config f.xml", "formats use --config f.xml f"}) {
    SCOPED_TRACE(line);
    files_.Calls.clear();
    EXPECT_LT(RunOn(SplitArguments(line)).code, 2);
    EXPECT_EQ(std::count(files_.Calls.begin(), files_.Calls.end(), "open-read f.xml"), 1);
    EXPECT_LE(std::count(files_.Calls.begin(), files_.Calls.end(), "open-read a.txt"), 2);
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

TEST_F(ProgramTest, NoMoreIsReadWhenNobodyReadsTheOutput) {
  struct ClosedPipe final : std::streambuf {};
  files_.LargestRead = 1 << 10;
  std::string rows = "name,qty\n";
  for (int row = 0; row < 4000; ++row) rows += "A1,x\n";
  files_.Contents["a.txt"] = rows;
  for (const char* const line :
       {"import --as json", "import --as jsonl", "import --as table", "check --as json"}) {
    files_.Calls.clear();
    ClosedPipe pipe;
    std::ostream out(&pipe);
    std::istringstream in;
    std::ostringstream error;
    EXPECT_EQ(RunProgram(SplitArguments("qvassembly " + std::string(line) +
                                        " --kind parts --config f.xml --format f a.txt"),
                         Streams{in, out, error}),
              3);
    const auto reads = std::count(files_.Calls.begin(), files_.Calls.end(), "read a.txt");
    EXPECT_TRUE(reads > 0 && reads < 10) << line << ": " << reads;
  }
}

TEST_F(ProgramTest, WorkbooksGoThroughTheSameCommands) {
  FakeSpreadsheet office;
  files_.Contents["t.json"] = "{}";
  FakeSpreadsheet::Store("b.xls", {{"name", "qty"}, {"A1", "5"}, {"A2", "x"}});
  const auto run = [](const std::string& line) {
    const Outcome outcome = RunOn(SplitArguments(line + " --config f.xml"));
    return std::to_string(outcome.code) + " " + outcome.out + outcome.error;
  };
  for (const auto& row : ReadTable("cli/tables/workbooks.table")) {
    office.Calls.clear();
    const std::string told = run(row[0]);
    EXPECT_TRUE(MatchesPattern(told, row[1])) << row[0] << ": " << told;
    const std::string calls =
        std::to_string(office.CountCalls("start")) + " " + std::to_string(office.CountCalls("read"));
    EXPECT_TRUE(row[2].empty() || row[2] == calls) << row[0] << ": " << calls;
  }
  EXPECT_EQ(files_.Contents["out.csv"],
            host::AsTextFile("\"PartName\",\"PartQuantity\",\n\"A1\",\"5\"\n\"A2\",\"0\"\n"));
  EXPECT_FALSE(files_.Contents.contains("t.xls"));
  EXPECT_EQ(FakeSpreadsheet::Load("b.xls", "Sheet1"),
            (SheetRows{{"PartName", "PartQuantity"}, {"A1", "5"}, {"A2", "0"}}));
  EXPECT_EQ(FakeSpreadsheet::Load("new.xls", "Sheet1").size(), 2U);
  office.Installed = false;
  EXPECT_EQ(run("check --kind parts b.xls").front(), '3');
  EXPECT_EQ(office.Running + office.Objects, 0);
}

TEST_F(ProgramTest, TheFormatFileBesideTheInputComesBeforeTheOneBesideTheOutput) {
  std::string formats = kOneFormat;
  formats.replace(formats.find("PartQuantity"), 12, "Customer");
  const auto formatsIn = [](const char* folder) {
    return (std::filesystem::path(folder) / "AssemblyFormats.xml").string();
  };
  files_.Contents[formatsIn("in")] = kOneFormat;
  files_.Contents[formatsIn("out")] = formats;
  files_.Contents["in/a.txt"] = files_.Contents["none/a.txt"] = "h\nA1,5\n";
  for (const auto& [input, columns] : {std::pair("in/a.txt", "PartName,PartQuantity,\nA1,5\n"),
                                       std::pair("none/a.txt", "PartName,Customer,\nA1,5\n")}) {
    EXPECT_EQ(RunOn({"convert", "--kind", "parts", input, "out/a.txt"}).error, "");
    EXPECT_EQ(files_.Contents["out/a.txt"], host::AsTextFile(columns));
  }
  EXPECT_TRUE(MatchesPattern(RunOn({"headers", "none/a.txt"}).error,
                             "qvassembly: no format file was found (looked for none{*}AssemblyFormats.xml, "
                             "AssemblyFormats.xml); the built-in format is used, which has no columns\n"));
}

// Whichever call fails, the file is the old one or the new one, and the exit code tells which. A failure that
// lasts stands for a killed program, too.
TEST(ProgramFailureTest, AFileIsWholeOrNotThere) {
  const std::map<std::string, std::string> start = {{"f.xml", kOneFormat},
                                                    {"in.txt", "name,qty\nA1,5\n,2\n\nA2,x\n"},
                                                    {"r.json", "[{\"PartName\":\"A1\"}]"},
                                                    {"out.txt", "old\n"}};
  for (const auto& row : ReadTable("cli/tables/rewriting.table")) {
    SCOPED_TRACE(row[0]);
    const std::vector<std::string> arguments = SplitArguments(row[0]);
    const std::string target = row[1], old = start.at(target);
    std::string fresh;
    int done = 0;
    {
      FakeFileSystem files;
      files.Contents = start;
      done = RunOn(arguments).code;
      fresh = files.Contents[target];
    }
    ASSERT_TRUE(done < 2 && fresh != old);
    int code = 0;
    int failures = 0;
    ForEachFailure(
        start, [&](FakeFileSystem&) { code = RunOn(arguments).code; },
        [&](FakeFileSystem& files) {
          failures += code != done;
          EXPECT_EQ(files.Contents[target], code == done ? fresh : old) << "exit code " << code;
          EXPECT_TRUE(code == done || code == 3) << code;
          EXPECT_FALSE(files.Contents.contains(FakeFileSystem::WorkingPathOf(target)) && !files.Failed());
        });
    EXPECT_GT(failures, 5);
  }
}

TEST(Progress, WaitsASecondThenTellsOnATerminalOnly) {
  using std::chrono::milliseconds;
  using enum FileProgress::Unit;
  const struct {
    std::int64_t total;
    FileProgress::Unit unit;
    const char* half;
    const char* whole;
  } cases[] = {{200, Bytes, "50 %", "100 %"},
               {200, Cells, "50 %", "100 %"},
               {0, Bytes, "0 MB", "0 MB"},
               {0, Cells, "100 cells", "250 cells"}};
  for (const auto& c : cases) {
    for (const bool isTerminal : {true, false}) {
      std::istringstream in;
      std::ostringstream out;
      std::ostringstream error;
      const Streams streams{in, out, error, isTerminal, isTerminal, true, 80};
      {
        Progress progress(streams);
        const auto start = Progress::Clock::now();
        const auto tell = [&](int time, std::int64_t done,
                              FileProgress::Work work = FileProgress::Work::Reading) {
          progress.ShowAt(start + milliseconds(time), {"a.csv", work, c.unit, done, c.total});
        };
        tell(0, 10);
        tell(900, 50);
        EXPECT_EQ(error.str(), "");
        tell(1100, 100);
        tell(1150, 150);                                                     // too soon after the last
        if (c.unit == Bytes) tell(1450, 1000, FileProgress::Work::Writing);  // the copy of what is read
        tell(1500, 250);
      }
      const std::string line = "\r\x1b[Kreading a.csv  ";
      EXPECT_EQ(error.str(), isTerminal ? line + c.half + line + c.whole + "\r\x1b[K" : "");
    }
  }
}

}  // namespace
}  // namespace qv
