#pragma once

#include "tests/windows/ChildProcess.h"

#include <optional>
#include <string>

/// A file that another process has open while this lives, or for some milliseconds.
class HeldFile {
 public:
  enum class Sharing { Shared, Exclusive };

  HeldFile(const std::string& path, Sharing sharing, std::optional<int> milliseconds = {})
      : holder_(CommandLine(path, sharing, milliseconds)) {
    if (holder_.ReadLine() != "held") throw std::runtime_error(path + " cannot be held");
  }

 private:
  static std::wstring CommandLine(const std::string& path, Sharing sharing, std::optional<int> milliseconds) {
    std::string line = "\"" QV_HOLD_FILE "\" \"" + path + "\"";
    line += sharing == Sharing::Shared ? " shared" : " exclusive";
    if (milliseconds) line += " " + std::to_string(*milliseconds);
    return {line.begin(), line.end()};
  }

  ChildProcess holder_;
};
