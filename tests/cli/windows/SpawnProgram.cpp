#include "cli/SpawnProgram.h"

#include "platform/windows/WideText.h"
#include "support/TemporaryFolder.h"
#include "windows/StartedProcess.h"

namespace {

std::wstring Wide(const std::string& utf8) { return qv::Widen(utf8, qv::kUtf8CodePage); }

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

qv::Handle OpenInherited(const std::string& path, bool isWritten) {
  SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
  qv::Handle file(CreateFileW(Wide(path).c_str(), isWritten ? GENERIC_WRITE : GENERIC_READ,
                              FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited,
                              isWritten ? CREATE_ALWAYS : OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!file.IsOpen()) throw std::runtime_error("a stream cannot be redirected");
  return file;
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
  const qv::Handle in(OpenInherited(streams / "in", false)), out(OpenInherited(streams / "out", true)),
      err(OpenInherited(streams / "err", true));
  std::wstring line = Quoted(call.program);
  for (const std::string& argument : call.arguments) line += L" " + Quoted(argument);
  const EnvironmentScope environment(call.environment);
  const StartedProcess process(line, in.Get(), out.Get(), err.Get(), Wide(call.folder).c_str());
  return static_cast<int>(process.End());
}

}  // namespace

ProgramResult SpawnProgram(const ProgramCall& call) {
  const TemporaryFolder streams;
  streams.Write("in", call.input);
  const int code = Run(call, streams);
  return {code, TemporaryFolder::Read(streams / "out"), TemporaryFolder::Read(streams / "err")};
}
