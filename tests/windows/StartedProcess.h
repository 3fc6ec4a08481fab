#pragma once

#include "platform/windows/Handle.h"

#include <windows.h>

#include <stdexcept>
#include <string>

/// A program that runs beside the test, on streams that it inherits.
class StartedProcess {
 public:
  StartedProcess(std::wstring commandLine, HANDLE input, HANDLE output, HANDLE errors,
                 const wchar_t* folder = nullptr) {
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdInput = input;
    start.hStdOutput = output;
    start.hStdError = errors;
    PROCESS_INFORMATION made{};
    if (CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, TRUE, 0, nullptr, folder, &start,
                       &made) == FALSE)
      throw std::runtime_error("a program cannot be started: error " + std::to_string(GetLastError()));
    process_ = qv::Handle(made.hProcess);
    CloseHandle(made.hThread);
  }

  /// Waits for its end and returns its exit code.
  DWORD End() const {
    WaitForSingleObject(process_.Get(), INFINITE);
    DWORD code = 0;
    GetExitCodeProcess(process_.Get(), &code);
    return code;
  }

 private:
  qv::Handle process_;
};
