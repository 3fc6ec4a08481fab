#include "cli/RunProgram.h"
#include "cli/SpawnProgram.h"
#include "support/CaseFile.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <thread>

// A pipe gives its bytes once, to whoever opens it first: no command looks twice, and none waits for more.

namespace qv {
namespace {

constexpr const char* kList = "name,qty\nA1,5\n";

class PipeTest : public testing::Test {
 protected:
  void SetUp() override {
    folder_.Write("list.csv", kList);
    folder_.Write("out.csv", "old");
    folder_.Write("f.xml", kOneFormat);
    ASSERT_EQ(::mkfifo((folder_ / "pipe.csv").c_str(), 0600), 0);
    std::filesystem::current_path(folder_ / ".");
  }
  void TearDown() override { std::filesystem::current_path("/"); }

  const TemporaryFolder folder_;
};

TEST_F(PipeTest, IsReadOnce) {
  for (const auto& row : ReadTable("cli/tables/pipes.table")) {
    SCOPED_TRACE(row[1]);
    std::thread writer([&] {
      const std::string text = row[0] == "list" ? kList : row[0] == "formats" ? kOneFormat : row[0];
      if (!text.empty()) std::ofstream("pipe.csv") << text;
    });
    const Outcome run = RunOn(SplitArguments(row[1]));
    EXPECT_EQ(run.code, std::stoi(row[2]));
    EXPECT_NE((run.out + run.error).find(row[3]), std::string::npos) << run.out << run.error;
    writer.join();
  }
  EXPECT_EQ(TemporaryFolder::Read("out.csv"), "\"PartName\",\"PartQuantity\",\n\"A1\",\"5\"\n");
}

// The program itself, in the middle of a list that never ends.
TEST_F(PipeTest, ASignalClearsUpAndEndsTheProgram) {
  const std::set<std::string> names = folder_.Names();
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    const pid_t child = ::fork();
    if (child == 0) {
      ::execl(QV_PROGRAM, QV_PROGRAM, "convert", "--kind", "parts", "--config", "f.xml", "pipe.csv",
              "out.csv", nullptr);
      ::_exit(127);
    }
    std::ofstream list("pipe.csv");
    list << kList << std::flush;
    while (folder_.Names() == names) ::usleep(1000);  // until there is a working file
    ::kill(child, signal);
    list.close();  // a read that starts after the signal would wait for ever
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == signal) << status;
    EXPECT_EQ(folder_.Names(), names);
    EXPECT_EQ(TemporaryFolder::Read("out.csv"), "old");
  }
}

}  // namespace
}  // namespace qv
