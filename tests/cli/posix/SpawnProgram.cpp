#include "cli/SpawnProgram.h"

#include "support/TemporaryFolder.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <stdexcept>

namespace {

void Redirect(int stream, const std::string& path, int flags) {
  const int file = ::open(path.c_str(), flags, 0600);
  if (file < 0 || ::dup2(file, stream) < 0) ::_exit(126);
}

[[noreturn]] void Become(const ProgramCall& call, const TemporaryFolder& streams) {
  Redirect(0, streams / "in", O_RDONLY);
  Redirect(1, streams / "out", O_WRONLY | O_CREAT);
  Redirect(2, streams / "err", O_WRONLY | O_CREAT);
  for (const auto& [name, value] : call.environment)
    value.empty() ? ::unsetenv(name.c_str()) : ::setenv(name.c_str(), value.c_str(), 1);
  std::vector<char*> arguments{const_cast<char*>(call.program.c_str())};
  for (const std::string& argument : call.arguments) arguments.push_back(const_cast<char*>(argument.c_str()));
  arguments.push_back(nullptr);
  if (::chdir(call.folder.c_str()) == 0) ::execv(call.program.c_str(), arguments.data());
  ::_exit(127);
}

}  // namespace

ProgramResult SpawnProgram(const ProgramCall& call) {
  const TemporaryFolder streams;
  streams.Write("in", call.input);
  const pid_t child = ::fork();
  if (child < 0) throw std::runtime_error("fork failed");
  if (child == 0) Become(call, streams);
  int status = 0;
  if (::waitpid(child, &status, 0) != child) throw std::runtime_error("waitpid failed");
  const int code = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  if (code == 126 || code == 127) throw std::runtime_error(call.program + " cannot be started");
  return {code, TemporaryFolder::Read(streams / "out"), TemporaryFolder::Read(streams / "err")};
}
