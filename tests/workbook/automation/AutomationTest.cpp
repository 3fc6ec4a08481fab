#include "engines/workbook/CXLSAssembly.h"
#include "support/CaseFile.h"
#include "support/DiagnosticLog.h"
#include "support/Host.h"
#include "support/TemporaryFolder.h"
#include "workbook/RecordRows.h"
#include "workbook/RoundTrip.h"
#include "workbook/automation/Server.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <regex>

namespace {

using workbook::Texts;

class Automation : public testing::Test {
 protected:
  void SetUp() override {
    if (!Server::IsAllowed()) GTEST_SKIP() << "NOT TESTED: this may be a machine with a real application";
    server_ = std::make_unique<Server>();
  }

  Server& TheServer() { return *server_; }
  const TemporaryFolder& Folder() const { return folder_; }

  /// The conversation with what differs from run to run taken out: the folder and the working file's name.
  Texts Conversation() const {
    Texts lines = server_->Record();
    for (std::string& line : lines) {
      for (std::size_t at; (at = line.find(folder_ / "")) != std::string::npos;)
        line.replace(at, (folder_ / "").size(), "<folder>\\");
      line = std::regex_replace(line, std::regex("~qv[0-9a-f]+"), "<working>");
    }
    return lines;
  }

  /// Every application must have been told to quit, must have been let go, and must have had nothing to
  /// complain about. Returns its record.
  Texts ExpectGoodEnd() const {
    const Texts lines = server_->Record();
    EXPECT_FALSE(lines.empty()) << "an object of the application is still held";
    EXPECT_TRUE(lines.empty() || lines.back() == "ended quit");
    for (const std::string& line : lines) EXPECT_FALSE(line.starts_with("VIOLATION")) << line;
    return lines;
  }

  /// Calls `work` with the first call failing, then the second, until there is none left to fail.
  template <class Work>
  void FailEachCall(const std::string& plan, Work work) {
    for (std::size_t n = 1;; ++n) {
      SCOPED_TRACE("call " + std::to_string(n));
      server_->SetPlan(plan + " fail " + std::to_string(n));
      work();
      const Texts lines = ExpectGoodEnd();
      ASSERT_TRUE(!lines.empty() && n < 200);
      if (lines.size() - 1 < n) break;
    }
  }

 private:
  std::unique_ptr<Server> server_;
  const TemporaryFolder folder_;
};

Texts LinesOf(const std::string& text) {
  std::istringstream in(text);
  Texts lines;
  for (std::string line; std::getline(in, line);) lines.push_back(line.substr(0, line.find('\r')));
  return lines;
}

Texts ExpectedConversation(const char* name) {
  return LinesOf(TemporaryFolder::Read(std::string(QV_CONVERSATIONS "/") + name));
}

constexpr const char* kTwoParts =
    "<workbook>\nactive 1\nsheet Other\ncell 1 1 t Wrong\nsheet Parts\n"
    "cell 1 1 t Name\ncell 1 2 t Qty\ncell 2 1 t A1\ncell 2 2 n 5\ncell 3 1 t A2\ncell 3 2 n 6\n";

void ConfigureParts(CAssemblyFile& engine) {
  engine.StartLine = 1;
  engine.Columns(RecordKind::Parts) = {"PartName", "PartQuantity"};
}

void ConfigurePrograms(CAssemblyFile& engine) {
  engine.StartLine = 2;
  engine.FormatName = "Form1";
  engine.Columns(RecordKind::PartPrograms) = {"PartName", "ToolType", "HoleType", "BendAngle"};
  workbook::AddProgram(engine, "P1", {"RO"});
}

TEST_F(Automation, ReadsByTheGivenMembers) {
  const std::string path = Folder().Write("parts.xls", kTwoParts);
  CXLSAssembly engine;
  ConfigureParts(engine);
  EXPECT_TRUE(engine.ImportParts(path.c_str()));
  EXPECT_EQ(workbook::RowsOf<PartInformation>(engine, engine.Columns(RecordKind::Parts)),
            (std::vector<Texts>{{"A1", "5"}, {"A2", "6"}}));
  EXPECT_EQ(Conversation(), ExpectedConversation("import.conversation"));
}

TEST_F(Automation, WritesByTheGivenMembers) {
  TheServer().SetPlan("sheets 1");
  CXLSAssembly engine;
  ConfigurePrograms(engine);
  EXPECT_TRUE(engine.Export((Folder() / "out.xls").c_str()));
  EXPECT_EQ(Conversation(), ExpectedConversation("export.conversation"));
  EXPECT_EQ(LinesOf(TemporaryFolder::Read(Folder() / "out.xls")), ExpectedConversation("export.workbook"));
  EXPECT_EQ(Folder().Names(), (std::set<std::string>{"out.xls"}));
}

TEST_F(Automation, TurnsValuesIntoTextByTheStandardConversion) {
  std::string file = "<workbook>\nactive 0\nsheet A\ncell 1 1 t Text\n";
  std::vector<Texts> expected;
  int row = 1;
  for (const auto& value : ReadTable("workbook/automation/values.table")) {
    file += "cell " + std::to_string(++row) + " 1 " + value[0] + "\n";
    expected.push_back({value[1]});
  }
  const std::string path = Folder().Write("a.xls", file);
  CXLSAssembly engine;
  engine.StartLine = 1;
  engine.Columns(RecordKind::Parts) = {"PartName"};
  engine.ImportParts(path.c_str());
  EXPECT_EQ(workbook::RowsOf<PartInformation>(engine, {"PartName"}), expected);
  ExpectGoodEnd();
}

TEST_F(Automation, OutlivesAFailureOfEachCallOfAnImport) {
  const std::string path = Folder().Write("parts.xls", kTwoParts);
  FailEachCall("", [&] {
    CXLSAssembly engine;
    ConfigureParts(engine);
    EXPECT_TRUE(engine.ImportParts(path.c_str()));
  });
}

TEST_F(Automation, KeepsTheOldFileWhicheverCallOfAnExportFails) {
  const std::string path = Folder() / "out.xls";
  FailEachCall("sheets 1", [&] {
    Folder().Write("out.xls", "old");
    CXLSAssembly engine;
    ConfigurePrograms(engine);
    const bool done = engine.Export(path.c_str());
    EXPECT_EQ(TemporaryFolder::Read(path) == "old", !done);
    EXPECT_EQ(Folder().Names().size(), 1u) << "a working file was left";
  });
}

TEST_F(Automation, AsksABusyApplicationAgain) {
  const std::string path = Folder().Write("parts.xls", kTwoParts);
  for (const int call : {1, 7, 20}) {
    TheServer().SetPlan("busy " + std::to_string(call));
    CXLSAssembly engine;
    ConfigureParts(engine);
    engine.ImportParts(path.c_str());
    EXPECT_EQ(Conversation(), ExpectedConversation("import.conversation"));
  }
}

// An application without formats takes a text for whatever it looks like, but not for a formula that is none.
TEST_F(Automation, NamesTheCellThatIsRefused) {
  const std::string path = Folder().Write("out.xls", "old");
  TheServer().SetPlan("formats 0");
  DiagnosticLog log;
  CXLSAssembly engine;
  ConfigureParts(engine);
  for (const char* name : {"A1", "=> see drawing", "A2"})
    workbook::Add<PartInformation>(engine, {"PartName"}, {name});
  EXPECT_FALSE(engine.Export(path.c_str()));
  EXPECT_EQ(log.Lines(),
            (Texts{"3 PartName formula-like", "3 PartName spreadsheet-failed", "0 - spreadsheet-failed"}));
  EXPECT_EQ(TemporaryFolder::Read(path), "old");
  EXPECT_EQ(std::ranges::count(ExpectGoodEnd(), "range put 1388 \"A2\""), 1);
}

// An application that has no time must not be taken for one that has no such sheet.
TEST_F(Automation, TellsAnApplicationThatStaysBusy) {
  const std::string path = Folder().Write("out.xls", "old");
  constexpr const char* kFindsSheet = "busy 9 times 50";
  TheServer().SetPlan(kFindsSheet);
  DiagnosticLog log;
  CXLSAssembly engine;
  ConfigurePrograms(engine);
  EXPECT_FALSE(engine.Export(path.c_str()));
  EXPECT_EQ(log.Codes(), "spreadsheet-failed");
  EXPECT_NE(log.Remarks[0].message.find("is busy"), std::string::npos) << log.Remarks[0].message;
  EXPECT_EQ(TemporaryFolder::Read(path), "old");
  ExpectGoodEnd();
}

TEST_F(Automation, TellsAFileThatCannotBeOpened) {
  for (const std::string& path : {Folder() / "missing.xls", Folder().Write("damaged.xls", "\1\2\3")}) {
    DiagnosticLog log;
    CXLSAssembly engine;
    ConfigureParts(engine);
    EXPECT_TRUE(engine.ImportParts(path.c_str()));
    EXPECT_EQ(log.Codes(), "file-not-opened");
    for (const std::string& line : ExpectGoodEnd()) EXPECT_EQ(line.find("method 682"), std::string::npos);
  }
}

TEST_F(Automation, IsMissedWhenItIsNotRegistered) {
  TheServer().Unregister();
  host::Boxes boxes;
  DiagnosticLog log;
  CXLSAssembly engine;
  ConfigureParts(engine);
  EXPECT_TRUE(engine.ImportParts("parts.xls"));
  EXPECT_FALSE(engine.Export((Folder() / "out.xls").c_str()));
  EXPECT_EQ(boxes.all, Texts{"Error"});
  EXPECT_EQ(log.Codes(), "no-spreadsheet no-spreadsheet");
  EXPECT_TRUE(Folder().Names().empty());
}

template <class Record>
class AutomationRoundTrip : public Automation {};
TYPED_TEST_SUITE(AutomationRoundTrip, workbook::KindsBothWays);

TYPED_TEST(AutomationRoundTrip, GivesTheRecordsBack) {
  workbook::ExpectRoundTrip<TypeParam>((this->Folder() / "out.xls").c_str(), 6);  // a call takes its time
  this->ExpectGoodEnd();
}

}  // namespace
