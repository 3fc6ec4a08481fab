#include "cli/RunProgram.h"
#include "platform/FileSystem.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <sstream>

// Commands that write are killed before each of their calls of the file system, one after another, until they
// come to their end. Whenever it happens, the file is the old one or the new one, and the next run leaves
// nothing behind.

namespace qv {
namespace {

/// Counts the calls and kills the process at the one whose turn it is.
class KillingFiles final : public FileSystem {
 public:
  explicit KillingFiles(int turn) : turn_(turn) { SetFileSystem(this); }

  void Count() {
    if (--turn_ == 0) ::kill(::getpid(), SIGKILL);
  }

  std::unique_ptr<OpenFile> Open(const std::string& path, OpenMode mode, std::string& reason) override;
  std::unique_ptr<WorkingFile> PrepareWorkingFile(const std::string& target, WorkingPlace place,
                                                  std::string& reason) override {
    Count();
    return files_.PrepareWorkingFile(target, place, reason);
  }
  bool Replace(const std::string& from, const std::string& to, std::string& reason) override {
    Count();
    return files_.Replace(from, to, reason);
  }
  bool Remove(const std::string& path, std::string& reason) override {
    Count();
    return files_.Remove(path, reason);
  }
  bool Exists(const std::string& path) override { return files_.Exists(path); }

 private:
  FileSystem& files_ = PlatformFiles();
  int turn_;
};

class KillingFile final : public OpenFile {
 public:
  KillingFile(KillingFiles& files, std::unique_ptr<OpenFile> file) : files_(files), file_(std::move(file)) {}

  std::ptrdiff_t Read(char* buffer, std::size_t capacity) override {
    files_.Count();
    return file_->Read(buffer, capacity);
  }
  // A write is cut in two, so that a half-written file is met too.
  bool Write(std::string_view bytes) override {
    files_.Count();
    const std::size_t half = bytes.size() / 2;
    const bool isWritten = file_->Write(bytes.substr(0, half));
    files_.Count();
    return isWritten && file_->Write(bytes.substr(half));
  }
  bool Flush() override {
    files_.Count();
    return file_->Flush();
  }
  bool Close() override {
    files_.Count();
    return file_->Close();
  }

 private:
  KillingFiles& files_;
  std::unique_ptr<OpenFile> file_;
};

std::unique_ptr<OpenFile> KillingFiles::Open(const std::string& path, OpenMode mode, std::string& reason) {
  Count();
  auto file = files_.Open(path, mode, reason);
  if (file == nullptr) return nullptr;
  return std::make_unique<KillingFile>(*this, std::move(file));
}

/// Runs the program in a process of its own that is killed at the turn (0: never); its exit code, -1 when
/// killed.
int RunKilledAt(int turn, const std::vector<std::string>& arguments) {
  const pid_t child = ::fork();
  if (child == 0) {
    KillingFiles files(turn);
    std::istringstream in;
    std::ostringstream out;
    ::_exit(RunProgram(arguments, Streams{in, out, out}));
  }
  int status = 0;
  EXPECT_EQ(::waitpid(child, &status, 0), child);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

class KilledRunTest : public testing::TestWithParam<RewritingCommand> {};

TEST_P(KilledRunTest, LeavesTheOldFileOrTheNewOne) {
  const TemporaryFolder folder;
  ASSERT_EQ(::chdir((folder / ".").c_str()), 0);
  const auto start = [&] {
    for (const auto& [name, text] : GetParam().files) folder.Write(name, text);
  };
  std::vector<std::string> arguments = {"qvassembly"};
  arguments.insert(arguments.end(), GetParam().arguments.begin(), GetParam().arguments.end());
  const std::string target = folder / GetParam().target;
  start();
  const std::set<std::string> names = folder.Names();
  const std::string old = TemporaryFolder::Read(target);
  const int done = RunKilledAt(0, arguments);
  ASSERT_LT(done, 2);
  const std::string fresh = TemporaryFolder::Read(target);
  ASSERT_NE(fresh, old);
  int turn = 0;
  int code = -1;
  while (code == -1) {
    start();
    code = RunKilledAt(++turn, arguments);
    const std::string found = TemporaryFolder::Read(target);
    ASSERT_TRUE(found == fresh || (found == old && code == -1)) << "killed at call " << turn << ": " << found;
  }
  EXPECT_EQ(code, done);
  EXPECT_GT(turn, 6) << "too few calls to have been the whole run";
  EXPECT_EQ(folder.Names(), names) << "what killed runs leave goes with the next one";
  ASSERT_EQ(::chdir("/"), 0);
}

class InterruptedRunTest : public testing::TestWithParam<int> {};

// The program itself, in the middle of a list that never ends.
TEST_P(InterruptedRunTest, ClearsUpAndEndsByTheSignal) {
  const TemporaryFolder folder;
  folder.Write("out.csv", "old");
  const std::string config = folder.Write("f.xml", kOneFormat);
  const std::string pipe = folder / "in.csv", out = folder / "out.csv";
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  const std::set<std::string> names = folder.Names();
  const pid_t child = ::fork();
  if (child == 0) {
    ::execl(QV_PROGRAM, QV_PROGRAM, "convert", "--kind", "parts", "--config", config.c_str(), pipe.c_str(),
            out.c_str(), nullptr);
    ::_exit(127);
  }
  std::ofstream list(pipe);
  list << "name,qty\nA1,5\n" << std::flush;
  while (folder.Names() == names) ::usleep(1000);  // until there is a working file
  ::kill(child, GetParam());
  list.close();  // a read that starts after the signal would wait for ever
  int status = 0;
  ASSERT_EQ(::waitpid(child, &status, 0), child);
  EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == GetParam()) << status;
  EXPECT_EQ(folder.Names(), names);
  EXPECT_EQ(TemporaryFolder::Read(out), "old");
}

INSTANTIATE_TEST_SUITE_P(Signals, InterruptedRunTest, testing::Values(SIGINT, SIGTERM, SIGHUP));
INSTANTIATE_TEST_SUITE_P(Commands, KilledRunTest, testing::ValuesIn(RewritingCommands()),
                         [](const auto& test) { return test.param.name; });

}  // namespace
}  // namespace qv
