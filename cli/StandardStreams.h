#pragma once

#include "cli/Program.h"
#include "platform/FileSystem.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace qv {

enum class StandardStream { Input, Output };

/// What the library knows a standard stream by: a path that no file can have, with the type as its extension.
std::string PathOfStream(StandardStream stream, const std::string& type);

bool IsStandardStream(std::string_view path);

/// The path for a person: "standard input" for the one of that stream.
std::string ShownPath(std::string_view path);

/// Lets the library read standard input and write standard output by these paths, for as long as it lives.
/// The start of standard input can be read any number of times, what follows it once.
class StandardStreams final : public FileSystem {
 public:
  /// An output that is held back appears when it is whole, as a file does.
  StandardStreams(const Streams& streams, bool holdsOutput);
  ~StandardStreams() override { SetFileSystem(&files_); }
  StandardStreams(const StandardStreams&) = delete;
  StandardStreams& operator=(const StandardStreams&) = delete;

  std::unique_ptr<OpenFile> Open(const std::string& path, OpenMode mode, std::string& reason) override;
  std::unique_ptr<WorkingFile> PrepareWorkingFile(const std::string& target, WorkingPlace place,
                                                  std::string& reason) override;
  bool Replace(const std::string& from, const std::string& to, std::string& reason) override;
  bool Remove(const std::string& path, std::string& reason) override { return files_.Remove(path, reason); }
  bool Exists(const std::string& path) override;

 private:
  class Reader;
  class Writer;

  const Streams& streams_;
  FileSystem& files_;  // all that are no standard streams
  const bool holdsOutput_;
  std::string start_;        // of standard input, as far as it was read
  std::uint64_t taken_ = 0;  // bytes of standard input that were read
};

}  // namespace qv
