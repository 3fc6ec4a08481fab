#pragma once

#include <windows.h>

#include <filesystem>
#include <string>

/// What the test tells its spreadsheet server to do, and what the server tells the test. Both are files
/// beside the server's program, as nothing else is common to the two on every system.
namespace server {

/// The class under which the server is registered.
inline constexpr CLSID kClass = {
    0x6f0d7e52, 0x3c41, 0x4b8e, {0x9a, 0x1d, 0x52, 0x0b, 0xd3, 0x77, 0xc8, 0x14}};
inline constexpr wchar_t kClassText[] = L"{6F0D7E52-3C41-4B8E-9A1D-520BD377C814}";

inline std::filesystem::path FileBeside(const std::filesystem::path& program, const char* extension) {
  return std::filesystem::path(program).replace_extension(extension);
}

/// The plan is words: "fail N" makes the n-th call fail, "busy N" makes it be rejected once, or "times N"
/// often, "formats 0" lets cells have none, "sheets N" is how many sheets a new workbook has, "client N" is
/// the test's process, with which the server ends.
struct Plan {
  long fail = 0;
  long busy = 0;
  long times = 1;
  long sheets = 3;
  long formats = 1;  // 0: cells have no formats
  unsigned long client = 0;

  static Plan Read(const std::filesystem::path& program);
};

/// The record of one application's life: a line for every call, one that begins with "VIOLATION" for every
/// call that is not as it must be, and a last one "ended" with "quit" if the application was told to.
class Conversation {
 public:
  explicit Conversation(const std::filesystem::path& program);

  /// Counts and records a call. S_OK if it may go on.
  HRESULT Call(const std::string& line);
  void Violation(const std::string& line) { Write("VIOLATION " + line); }
  void End(bool hasQuit) { Write(hasQuit ? "ended quit" : "ended"); }

  const Plan& GetPlan() const { return plan_; }

 private:
  void Write(const std::string& line);

  Plan plan_;
  std::filesystem::path log_;
  long calls_ = 0;
};

}  // namespace server
