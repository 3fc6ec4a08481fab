#include "platform/ReplacingFile.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <random>
#include <string>
#include <thread>

namespace {

namespace fs = std::filesystem;
using qv::ReplacingFile;
using qv::WorkingPlace;
using Names = std::set<std::string>;

bool Rewrite(const std::string& target, const std::string& content) {
  ReplacingFile file(target, WorkingPlace::BesideTarget);
  bool written = file.Open();
  for (std::size_t at = 0; written && at < content.size(); at += 4096)
    written = file.Write(content.substr(at, 4096));
  return written && file.Commit();
}

std::string Content(int writer) {
  return std::string(200'000 + 1000 * static_cast<std::size_t>(writer), static_cast<char>('a' + writer));
}

// Whether the text is the whole content of some writer.
bool IsWhole(const std::string& text) { return !text.empty() && text == Content(text[0] - 'a'); }

// A child process that rewrites the target for ever, or `times` times.
pid_t StartWriter(const std::string& target, int writer, int times = -1) {
  const pid_t child = fork();
  if (child != 0) return child;
  bool written = true;
  for (int i = 0; i != times; ++i) written = Rewrite(target, Content(times < 0 ? i % 2 : writer)) && written;
  _exit(written ? 0 : 1);
}

// Several at once, as each of them leaves a place of its own.
TEST(ReplacingFilePosixTest, LeavesAWholeFileWheneverItIsKilled) {
  const TemporaryFolder folder;
  const std::string target = folder / "jobs.csv";
  ASSERT_TRUE(Rewrite(target, Content(0)));
  std::mt19937 random(1);
  std::size_t left = 0;
  for (int round = 0; round < 100; ++round) {
    const pid_t children[] = {StartWriter(target, 0), StartWriter(target, 0), StartWriter(target, 0)};
    std::this_thread::sleep_for(std::chrono::microseconds(random() % 8000));
    for (const pid_t child : children) kill(child, SIGKILL);
    for (const pid_t child : children) {
      int status = 0;
      ASSERT_EQ(waitpid(child, &status, 0), child);
      ASSERT_TRUE(WIFSIGNALED(status)) << "the writer stopped by itself";
    }
    ASSERT_TRUE(IsWhole(TemporaryFolder::Read(target))) << "round " << round;
    left = std::max(left, folder.Names().size() - 1);
    if (round % 4 != 0) continue;
    ASSERT_TRUE(Rewrite(target, Content(2)));
    EXPECT_EQ(TemporaryFolder::Read(target), Content(2));
    EXPECT_EQ(folder.Names(), Names{"jobs.csv"}) << "what killed runs leave goes with the next one";
  }
  EXPECT_GT(left, 1U) << "places were to be left";
}

TEST(ReplacingFilePosixTest, LetsSeveralProcessesWriteAtOnce) {
  const TemporaryFolder folder;
  const std::string target = folder / "jobs.csv";
  ASSERT_TRUE(Rewrite(target, Content(0)));
  constexpr int kWriters = 4;
  for (int writer = 0; writer < kWriters; ++writer) StartWriter(target, writer, 40);
  int running = kWriters;
  while (running > 0) {
    ASSERT_TRUE(IsWhole(TemporaryFolder::Read(target)));
    int status = 0;
    if (waitpid(-1, &status, WNOHANG) <= 0) continue;
    --running;
    EXPECT_EQ(status, 0) << "a writer failed";
  }
  EXPECT_EQ(folder.Names(), Names{"jobs.csv"});
}

// Places are given back and claimed again all the time, so that the moments between are hit.
TEST(ReplacingFilePosixTest, NeverSharesAPlaceThatIsBeingGivenBack) {
  const TemporaryFolder folder;
  const std::string target = folder / "jobs.csv";
  constexpr int kWriters = 6;
  for (int writer = 0; writer < kWriters; ++writer) {
    if (fork() != 0) continue;
    bool alone = true;
    for (int i = 0; i < 1000; ++i) {
      const ReplacingFile file(target, WorkingPlace::BesideTarget);
      const int mine = open(file.WorkingPath().c_str(), O_WRONLY | O_CREAT | O_EXCL, 0600);
      alone = alone && mine >= 0;
      close(mine);
    }
    _exit(alone ? 0 : 1);
  }
  for (int writer = 0; writer < kWriters; ++writer) {
    int status = 0;
    wait(&status);
    EXPECT_EQ(status, 0) << "two writers had one place";
  }
  EXPECT_EQ(folder.Names(), Names{});
}

TEST(ReplacingFilePosixTest, KeepsThePermissions) {
  const TemporaryFolder folder;
  const std::string target = folder.Write("a.csv", "old");
  for (const mode_t mode : {0600, 0664, 0755}) {
    ASSERT_EQ(chmod(target.c_str(), mode), 0);
    ASSERT_TRUE(Rewrite(target, "new"));
    struct stat status {};
    ASSERT_EQ(stat(target.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, mode);
  }
  const mode_t mask = umask(027);
  ASSERT_TRUE(Rewrite(folder / "fresh.csv", "new"));
  umask(mask);
  struct stat status {};
  stat((folder / "fresh.csv").c_str(), &status);
  EXPECT_EQ(status.st_mode & 07777, mode_t{0640});
}

TEST(ReplacingFilePosixTest, ReplacesTheFileBehindALink) {
  const TemporaryFolder folder;
  fs::create_directory(folder / "real");
  fs::create_symlink("real/a.csv", folder / "one.csv");
  fs::create_symlink("one.csv", folder / "two.csv");
  for (const char* content : {"made through a link to nothing", "replaced"}) {
    ASSERT_TRUE(Rewrite(folder / "two.csv", content));
    EXPECT_TRUE(fs::is_symlink(folder / "one.csv") && fs::is_symlink(folder / "two.csv"));
    EXPECT_EQ(TemporaryFolder::Read(folder / "real/a.csv"), content);
  }
  EXPECT_EQ(folder.Names(), (Names{"one.csv", "real", "two.csv"}));

  fs::create_symlink("b.csv", folder / "b.csv");
  EXPECT_FALSE(Rewrite(folder / "b.csv", "a link to itself"));
}

TEST(ReplacingFilePosixTest, WritesStraightToWhatIsNoRegularFile) {
  const TemporaryFolder folder;
  const std::string pipe = folder / "pipe.csv";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  std::string received;
  std::thread reader([&] { received = TemporaryFolder::Read(pipe); });
  EXPECT_TRUE(Rewrite(pipe, "through"));
  reader.join();
  EXPECT_EQ(received, "through");
  EXPECT_TRUE(fs::is_fifo(pipe));
  EXPECT_EQ(folder.Names(), Names{"pipe.csv"});

  EXPECT_TRUE(Rewrite("/dev/null", "gone"));
  ReplacingFile full("/dev/full", WorkingPlace::BesideTarget);
  EXPECT_FALSE(full.Open() && full.Write("x") && full.Commit());
  EXPECT_EQ(full.Reason(), "No space left on device");
}

TEST(FileSystemPosixTest, SaysWhyAWriteOrAReadFailed) {
  std::string reason;
  const auto full = qv::PlatformFiles().Open("/dev/full", qv::OpenMode::Write, reason);
  ASSERT_NE(full, nullptr) << reason;
  EXPECT_FALSE(full->Write("x"));
  EXPECT_EQ(full->Reason(), "No space left on device");
  EXPECT_TRUE(full->Flush()) << "a device has nothing to make durable";

  const TemporaryFolder folder;
  const auto writeOnly = qv::PlatformFiles().Open(folder / "a", qv::OpenMode::Write, reason);
  char byte = 0;
  EXPECT_EQ(writeOnly->Read(&byte, 1), -1);
  EXPECT_EQ(writeOnly->Reason(), "Bad file descriptor");
  EXPECT_TRUE(writeOnly->Close());
  EXPECT_FALSE(writeOnly->Write("behind the end"));
}

TEST(ReplacingFilePosixTest, DoesNotTakeARedirectedStreamFromUnderItsOwner) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("out.csv", "");
  const int stream = open(path.c_str(), O_WRONLY);
  ASSERT_TRUE(Rewrite("/dev/fd/" + std::to_string(stream), "x"));
  struct stat held {
  }, named{};
  EXPECT_EQ(fstat(stream, &held) + stat(path.c_str(), &named), 0);
  EXPECT_EQ(held.st_ino, named.st_ino);
  EXPECT_EQ(TemporaryFolder::Read(path), "x");
  close(stream);
}

TEST(ReplacingFilePosixTest, TakesNamesOfAnyLength) {
  const TemporaryFolder folder;
  for (const std::string& name : {std::string(251, 'n') + ".csv", "." + std::string(254, 'n'),
                                  std::string("a b%d.csv"), std::string(".lock"), std::string("-")}) {
    EXPECT_TRUE(Rewrite(folder / name, "x")) << name;
    EXPECT_EQ(TemporaryFolder::Read(folder / name), "x") << name;
  }
  EXPECT_EQ(folder.Names().size(), 5U);
}

TEST(ReplacingFilePosixTest, ClearsWhatOtherComponentsLeftBesideTheWorkingFile) {
  const TemporaryFolder folder;
  {
    ReplacingFile file(folder / "a.xls", WorkingPlace::BesideTarget);
    const fs::path place = fs::path(file.WorkingPath()).parent_path();
    std::ofstream(place / ".~lock.a.xls#") << "x";
    std::ofstream(file.WorkingPath()) << "workbook";
    fs::create_directories(place / "deeper/still");
    EXPECT_TRUE(file.Commit());
  }
  EXPECT_EQ(folder.Names(), Names{"a.xls"});
}

// A planted entry under the working folder's name must be neither followed nor cleared.
TEST(ReplacingFilePosixTest, KeepsOffPlacesThatAreNotItsOwn) {
  const TemporaryFolder folder;
  const std::string target = folder / "a.csv";
  std::string place;
  {
    const ReplacingFile probe(target, WorkingPlace::BesideTarget);
    place = fs::path(probe.WorkingPath()).parent_path();
  }
  fs::create_directory(folder / "victim");
  folder.Write("victim/precious", "x");
  fs::create_symlink(folder / "victim", place);
  EXPECT_TRUE(Rewrite(target, "new"));
  EXPECT_TRUE(fs::exists(folder / "victim/precious"));
  EXPECT_TRUE(fs::is_symlink(place));
}

// Write protection does not hold for the superuser, so the test becomes somebody else for its time.
class OrdinaryUser {
 public:
  OrdinaryUser() { static_cast<void>(::seteuid(geteuid() == 0 ? 65534 : geteuid())); }
  ~OrdinaryUser() { static_cast<void>(::seteuid(getuid())); }
};

TEST(ReplacingFilePosixTest, LeavesAWriteProtectedFileAlone) {
  const TemporaryFolder folder;
  fs::permissions(folder / ".", fs::perms::all);
  const std::string target = folder.Write("a.csv", "old");
  ASSERT_EQ(chmod(target.c_str(), 0444), 0);
  const OrdinaryUser user;
  if (!Rewrite(folder / "b.csv", "x")) GTEST_SKIP() << "the temporary folder is closed to other users";
  ReplacingFile file(target, WorkingPlace::BesideTarget);
  EXPECT_FALSE(file.Open());
  EXPECT_EQ(file.Reason(), "Permission denied");
  EXPECT_EQ(TemporaryFolder::Read(target), "old");
}

}  // namespace
