#include "cli/SpawnProgram.h"

#include "support/TemporaryFolder.h"

#include <windows.h>

#include <stdexcept>

namespace {

std::wstring Wide(const std::string& utf8) {
  const int length = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), static_cast<int>(utf8.size()), nullptr, 0);
  std::wstring wide(static_cast<std::size_t>(length), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, utf8.data(), static_cast<int>(utf8.size()), wide.data(), length);
  return wide;
}

// As the C runtime takes a command line apart: backslashes count double before a quote only.
std::wstring Quoted(const std::string& argument) {
  std::wstring out = L"\"";
  std::size_t backslashes = 0;
  for (const wchar_t c : Wide(argument)) {
    if (c == L'"') out.append(backslashes + 1, L'\\');
    backslashes = c == L'\\' ? backslashes + 1 : 0;
    out += c;
  }
  return out.append(backslashes, L'\\') + L"\"";
}

class Handle {
 public:
  explicit Handle(HANDLE handle) : handle_(handle) {
    if (handle == INVALID_HANDLE_VALUE) throw std::runtime_error("a stream cannot be redirected");
  }
  ~Handle() { CloseHandle(handle_); }
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;
  HANDLE Get() const { return handle_; }

 private:
  HANDLE handle_;
};

HANDLE OpenInherited(const std::string& path, bool isWritten) {
  SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
  return CreateFileW(Wide(path).c_str(), isWritten ? GENERIC_WRITE : GENERIC_READ,
                     FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited,
                     isWritten ? CREATE_ALWAYS : OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
}

/// Changes this process's environment, which the program takes over, and brings it back.
class EnvironmentScope {
 public:
  explicit EnvironmentScope(const std::map<std::string, std::string>& variables) {
    for (const auto& [name, value] : variables) {
      wchar_t before[4096] = L"";
      GetEnvironmentVariableW(Wide(name).c_str(), before, 4096);
      before_[Wide(name)] = before;
      Set(Wide(name), Wide(value));
    }
  }
  ~EnvironmentScope() {
    for (const auto& [name, value] : before_) Set(name, value);
  }
  EnvironmentScope(const EnvironmentScope&) = delete;
  EnvironmentScope& operator=(const EnvironmentScope&) = delete;

 private:
  static void Set(const std::wstring& name, const std::wstring& value) {
    SetEnvironmentVariableW(name.c_str(), value.empty() ? nullptr : value.c_str());
  }
  std::map<std::wstring, std::wstring> before_;
};

int Run(const ProgramCall& call, const TemporaryFolder& streams) {
  const Handle in(OpenInherited(streams / "in", false));
  const Handle out(OpenInherited(streams / "out", true));
  const Handle err(OpenInherited(streams / "err", true));
  STARTUPINFOW start{};
  start.cb = sizeof start;
  start.dwFlags = STARTF_USESTDHANDLES;
  start.hStdInput = in.Get();
  start.hStdOutput = out.Get();
  start.hStdError = err.Get();
  std::wstring line = Quoted(call.program);
  for (const std::string& argument : call.arguments) line += L" " + Quoted(argument);
  const EnvironmentScope environment(call.environment);
  PROCESS_INFORMATION process{};
  if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, Wide(call.folder).c_str(),
                      &start, &process))
    throw std::runtime_error(call.program + " cannot be started: error " + std::to_string(GetLastError()));
  const Handle thread(process.hThread);
  const Handle child(process.hProcess);
  WaitForSingleObject(child.Get(), INFINITE);
  DWORD code = 0;
  GetExitCodeProcess(child.Get(), &code);
  return static_cast<int>(code);
}

}  // namespace

ProgramResult SpawnProgram(const ProgramCall& call) {
  const TemporaryFolder streams;
  streams.Write("in", call.input);
  const int code = Run(call, streams);
  return {code, TemporaryFolder::Read(streams / "out"), TemporaryFolder::Read(streams / "err")};
}
