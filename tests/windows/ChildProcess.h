#pragma once

#include "tests/windows/StartedProcess.h"

#include <optional>
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
    process_.emplace(commandLine, childInput.Get(), childOutput.Get(), GetStdHandle(STD_ERROR_HANDLE));
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
    return process_->End();
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
  std::optional<StartedProcess> process_;
};
