#pragma once

#include "platform/windows/Handle.h"

#include <windows.h>

#include <stdexcept>
#include <string>

/// A program that runs beside the test, with pipes on its standard input and output.
class ChildProcess {
 public:
  explicit ChildProcess(const std::wstring& commandLine) {
    qv::Handle childInput, childOutput;
    MakePipe(childInput, input_);
    MakePipe(output_, childOutput);
    SetHandleInformation(childInput.Get(), HANDLE_FLAG_INHERIT, HANDLE_FLAG_INHERIT);
    SetHandleInformation(childOutput.Get(), HANDLE_FLAG_INHERIT, HANDLE_FLAG_INHERIT);
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdInput = childInput.Get();
    start.hStdOutput = childOutput.Get();
    start.hStdError = GetStdHandle(STD_ERROR_HANDLE);
    std::wstring line = commandLine;
    PROCESS_INFORMATION made{};
    if (CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start, &made) ==
        FALSE) {
      throw std::runtime_error("a program cannot be started");
    }
    process_ = qv::Handle(made.hProcess);
    CloseHandle(made.hThread);
  }
  ~ChildProcess() { End(); }

  /// The next line of its output, without the line's end; what is left at the end of the output.
  std::string ReadLine() {
    std::string line;
    char c = 0;
    DWORD count = 0;
    while (ReadFile(output_.Get(), &c, 1, &count, nullptr) != FALSE && count == 1 && c != '\n') line += c;
    if (line.ends_with('\r')) line.pop_back();
    return line;
  }

  /// Closes its input, waits for its end and returns its exit code.
  DWORD End() {
    input_.Close();
    WaitForSingleObject(process_.Get(), INFINITE);
    DWORD code = 0;
    GetExitCodeProcess(process_.Get(), &code);
    return code;
  }

 private:
  static void MakePipe(qv::Handle& reader, qv::Handle& writer) {
    HANDLE ends[2];
    if (CreatePipe(&ends[0], &ends[1], nullptr, 0) == FALSE) throw std::runtime_error("no pipe");
    reader = qv::Handle(ends[0]);
    writer = qv::Handle(ends[1]);
  }

  qv::Handle input_;
  qv::Handle output_;
  qv::Handle process_;
};
