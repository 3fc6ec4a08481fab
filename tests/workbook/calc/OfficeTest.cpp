#include "engines/workbook/CXLSAssembly.h"
#include "platform/spreadsheet/SpreadsheetApplication.h"
#include "platform/spreadsheet/calc/CalcPlugin.h"
#include "support/DiagnosticLog.h"
#include "support/Host.h"
#include "support/TemporaryFolder.h"
#include "workbook/RecordRows.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <thread>

// The office's headers keep one type description for ever.
extern "C" __attribute__((visibility("default"))) const char* __lsan_default_suppressions() {
  return "leak:theRuntimeExceptionType\n";
}

namespace {

namespace fs = std::filesystem;

/// Sets an environment variable while it lives.
class Variable {
 public:
  Variable(const char* name, const char* value) : name_(name) {
    const char* const before = std::getenv(name);
    if (before != nullptr) before_ = before;
    wasSet_ = before != nullptr;
    setenv(name, value, 1);
  }
  ~Variable() { wasSet_ ? setenv(name_, before_.c_str(), 1) : unsetenv(name_); }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;

 private:
  const char* name_;
  std::string before_;
  bool wasSet_;
};

/// The processes whose command line names the folder.
std::vector<pid_t> ProcessesNaming(const std::string& folder) {
  std::vector<pid_t> found;
  for (const auto& entry : fs::directory_iterator("/proc")) {
    const std::string name = entry.path().filename().string();
    if (name.find_first_not_of("0123456789") != std::string::npos) continue;
    std::ifstream file(entry.path() / "cmdline");
    const std::string line{std::istreambuf_iterator<char>(file), {}};
    if (line.find(folder) != std::string::npos) found.push_back(std::stoi(name));
  }
  return found;
}

/// The sockets of offices that are gone. They lie about in a folder of the office's own choice, among those
/// of others that may be at work.
std::set<std::string> LeftSockets() {
  std::set<std::string> sockets;
  for (const auto& entry : fs::directory_iterator("/tmp"))
    if (entry.path().filename().string().starts_with("OSL_PIPE_")) sockets.insert(entry.path().string());
  std::ifstream open("/proc/net/unix");
  for (std::string line; std::getline(open, line);) sockets.erase(line.substr(line.rfind(' ') + 1));
  return sockets;
}

/// Gives every office of a test a folder to work in, which must be empty in the end.
class Office : public testing::Test {
 protected:
  void SetUp() override {
    if (qv::FindOfficeFolder().empty()) GTEST_SKIP() << "NOT TESTED: LibreOffice Calc is not installed";
  }

  /// The guard of a killed program cleans up after it, which takes a moment.
  void ExpectNothingLeft() {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    std::set<std::string> left = Left();
    for (; !left.empty() && std::chrono::steady_clock::now() < deadline; left = Left())
      std::this_thread::sleep_for(std::chrono::milliseconds(20));
    EXPECT_EQ(left, std::set<std::string>());
  }

  std::string Folder() const { return folder_ / ""; }

 private:
  /// Processes, working folders and sockets.
  std::set<std::string> Left() const {
    std::set<std::string> left = LeftSockets();
    for (const std::string& socket : sockets_) left.erase(socket);
    for (const std::string& name : folder_.Names())
      if (name.starts_with("qvassembly-")) left.insert(name);
    for (const pid_t process : ProcessesNaming(Folder())) left.insert("process " + std::to_string(process));
    return left;
  }

  const std::set<std::string> sockets_ = LeftSockets();
  const TemporaryFolder folder_;
  const Variable temporary_{"TMPDIR", Folder().c_str()};
};

TEST_F(Office, RunsOnceForEachOperation) {
  const TemporaryFolder files;
  const std::string path = files / "parts.xls";
  CXLSAssembly out, in;
  out.StartLine = in.StartLine = 1;
  out.Columns(RecordKind::Parts) = in.Columns(RecordKind::Parts) = {"PartName"};
  workbook::Add<PartInformation>(out, {"PartName"}, {"A1"});
  ASSERT_TRUE(out.Export(path.c_str()));
  ExpectNothingLeft();
  EXPECT_TRUE(in.ImportParts(path.c_str()));
  EXPECT_EQ(workbook::RowsOf<PartInformation>(in, {"PartName"}), (std::vector<workbook::Texts>{{"A1"}}));
  ExpectNothingLeft();
  EXPECT_EQ(files.Names(), (std::set<std::string>{"parts.xls"}));
}

TEST_F(Office, MayDieInTheMiddle) {
  std::string reason;
  {
    const auto application = qv::StartPlatformSpreadsheet(reason);
    ASSERT_NE(application, nullptr) << reason;
    const auto workbook = application->AddWorkbook();
    const auto sheet = workbook->FindSheet("sheet1");
    const std::vector<pid_t> offices = ProcessesNaming(Folder());
    ASSERT_EQ(offices.size(), 1u);
    kill(offices[0], SIGKILL);
    sheet->WriteCell(1, 1, "x");
    EXPECT_THROW(for (int turn = 0; turn < 1000; ++turn) sheet->ReadCell(turn + 1, 1), qv::SpreadsheetError);
    sheet->WriteCell(1, 1, "x");
    EXPECT_THROW(sheet->Flush(), qv::SpreadsheetError);
    EXPECT_THROW(workbook->Close(), qv::SpreadsheetError);
  }
  ExpectNothingLeft();
}

TEST_F(Office, GoesWithAProgramThatIsKilled) {
  testing::FLAGS_gtest_death_test_style = "threadsafe";
  EXPECT_EXIT(
      {
        std::string reason;
        const auto application = qv::StartPlatformSpreadsheet(reason);
        const auto workbook = application->AddWorkbook();
        std::raise(SIGKILL);
      },
      testing::KilledBySignal(SIGKILL), "");
  ExpectNothingLeft();
}

TEST(MissingOffice, IsAMissingApplication) {
  const struct {
    const char *variable, *value, *reason;
  } cases[] = {{"QVASSEMBLY_OFFICE", "/nowhere", "LibreOffice is not installed"},
               {"QVASSEMBLY_CALC", "/nowhere/QVAssemblyFileCalc.so",
                "the component QVAssemblyFileCalc.so is not installed"},
               {"QVASSEMBLY_CALC", "/dev/null", nullptr}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.value);
    const Variable missing(c.variable, c.value);
    std::string reason;
    EXPECT_EQ(qv::StartPlatformSpreadsheet(reason), nullptr);
    if (qv::FindOfficeFolder().empty())
      EXPECT_EQ(reason, "LibreOffice is not installed");
    else if (c.reason != nullptr)
      EXPECT_EQ(reason, c.reason);
    else
      EXPECT_NE(reason, "");

    const TemporaryFolder folder;
    const std::string path = folder.Write("parts.xls", "old");
    host::Boxes boxes;
    DiagnosticLog log;
    CXLSAssembly engine;
    EXPECT_TRUE(engine.ImportParts(path.c_str()));
    EXPECT_FALSE(engine.Export(path.c_str()));
    EXPECT_EQ(boxes.all, std::vector<std::string>{"Error"});
    EXPECT_EQ(log.Codes(), "no-spreadsheet no-spreadsheet");
    EXPECT_EQ(TemporaryFolder::Read(path), "old");
    EXPECT_EQ(folder.Names().size(), 1u);
  }
}

}  // namespace
