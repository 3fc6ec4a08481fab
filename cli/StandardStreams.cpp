#include "cli/StandardStreams.h"

#include "cli/DataStart.h"
#include "platform/ConsoleProgram.h"

#include <algorithm>
#include <filesystem>
#include <istream>
#include <ostream>
#include <utility>
#include <vector>

namespace qv {
namespace {

// Nothing lies below what is no folder, and other platforms take no such characters.
constexpr std::string_view kStart = "/dev/null/<";
constexpr char kEnd = '>';

constexpr const char* kNames[] = {"standard input", "standard output"};

/// A place that is copied to standard output instead of being put there.
class HeldBackFile final : public WorkingFile {
 public:
  HeldBackFile(const std::string& target, std::unique_ptr<WorkingFile> place)
      : WorkingFile(target, place->Path()), place_(std::move(place)) {}

 private:
  std::unique_ptr<WorkingFile> place_;
};

/// Standard input as far as it was read.
struct InputSoFar {
  std::istream& in;
  std::string start;
  std::uint64_t taken = 0;  // bytes
};

class InputReader final : public OpenFile {
 public:
  explicit InputReader(InputSoFar& input) : input_(input) {}

  std::ptrdiff_t Read(char* buffer, std::size_t capacity) override {
    const std::ptrdiff_t count =
        at_ < input_.start.size()
            ? static_cast<std::ptrdiff_t>(input_.start.copy(buffer, capacity, static_cast<std::size_t>(at_)))
            : ReadOn(buffer, capacity);
    at_ += static_cast<std::uint64_t>(std::max<std::ptrdiff_t>(count, 0));
    return count;
  }
  bool Write(std::string_view) override { return false; }
  bool Flush() override { return false; }
  bool Close() override { return true; }

 private:
  // What is there already, so that nobody waits for more than a line.
  std::ptrdiff_t ReadOn(char* buffer, std::size_t capacity) {
    if (at_ != input_.taken) return Fail("it can be read only once");
    if (input_.in.peek() == std::istream::traits_type::eof())
      return input_.in.bad() ? Fail("standard input reports an error") : 0;
    const std::streamsize count = input_.in.readsome(buffer, static_cast<std::streamsize>(capacity));
    const auto size = static_cast<std::size_t>(count);
    input_.taken += size;
    input_.start.append(buffer, std::min(size, DataStart::kSize - input_.start.size()));
    return count;
  }

  std::ptrdiff_t Fail(const char* reason) {
    reason_ = reason;
    return -1;
  }

  InputSoFar& input_;
  std::uint64_t at_ = 0;
};

class OutputWriter final : public OpenFile {
 public:
  explicit OutputWriter(std::ostream& out) : out_(out) {}

  std::ptrdiff_t Read(char*, std::size_t) override { return -1; }
  bool Write(std::string_view bytes) override {
    return Done(out_.write(bytes.data(), static_cast<std::streamsize>(bytes.size())));
  }
  bool Flush() override { return Done(out_.flush()); }
  bool Close() override { return true; }

 private:
  bool Done(const std::ostream& out) {
    if (!out) reason_ = "it does not take what is written to it";
    return static_cast<bool>(out);
  }

  std::ostream& out_;
};

class StandardStreams final : public FileSystem {
 public:
  StandardStreams(const Streams& streams, bool holdsOutput)
      : input_{streams.in, {}}, out_(streams.out), files_(Files()), holdsOutput_(holdsOutput) {
    SetFileSystem(this);
  }
  ~StandardStreams() override { SetFileSystem(&files_); }
  StandardStreams(const StandardStreams&) = delete;
  StandardStreams& operator=(const StandardStreams&) = delete;

  std::unique_ptr<OpenFile> Open(const std::string& path, OpenMode mode, std::string& reason) override {
    if (!IsStandardStream(path)) return files_.Open(path, mode, reason);
    if (mode == OpenMode::Read) return std::make_unique<InputReader>(input_);
    return std::make_unique<OutputWriter>(out_);
  }

  std::unique_ptr<WorkingFile> PrepareWorkingFile(const std::string& target, WorkingPlace place,
                                                  std::string& reason) override {
    if (!IsStandardStream(target)) return files_.PrepareWorkingFile(target, place, reason);
    if (!holdsOutput_) return std::make_unique<WorkingFile>(target, target);
    const auto name = std::filesystem::temp_directory_path() / "qvassembly-output.txt";
    auto working = files_.PrepareWorkingFile(PathFromUtf8(Utf8Of(name)), place, reason);
    if (working == nullptr) return nullptr;
    return std::make_unique<HeldBackFile>(target, std::move(working));
  }

  bool Replace(const std::string& from, const std::string& to, std::string& reason) override {
    if (!IsStandardStream(to)) return files_.Replace(from, to, reason);
    const auto file = files_.Open(from, OpenMode::Read, reason);
    if (file == nullptr) return false;
    std::vector<char> block(DataStart::kSize);
    std::ptrdiff_t count = 0;
    while (out_ && (count = file->Read(block.data(), block.size())) > 0) out_.write(block.data(), count);
    reason = count < 0 ? file->Reason() : "it does not take what is written to it";
    std::string ignored;
    return count == 0 && out_.flush() && files_.Remove(from, ignored);
  }

  bool Remove(const std::string& path, std::string& reason) override { return files_.Remove(path, reason); }

  bool Exists(const std::string& path) override {
    return IsStandardStream(path) ? path.find(kNames[0]) != std::string::npos : files_.Exists(path);
  }

 private:
  InputSoFar input_;
  std::ostream& out_;
  FileSystem& files_;  // all that are no standard streams
  const bool holdsOutput_;
};

}  // namespace

std::string PathOfStream(StandardStream stream, const std::string& type) {
  return std::string(kStart) + kNames[static_cast<int>(stream)] + kEnd + "." + type;
}

bool IsStandardStream(std::string_view path) { return path.starts_with(kStart); }

std::string ShownPath(std::string_view path) {
  if (!IsStandardStream(path)) return std::string(path);
  path.remove_prefix(kStart.size());
  return std::string(path.substr(0, path.find(kEnd)));
}

std::unique_ptr<FileSystem> WithStandardStreams(const Streams& streams, bool holdsOutput) {
  return std::make_unique<StandardStreams>(streams, holdsOutput);
}

}  // namespace qv
