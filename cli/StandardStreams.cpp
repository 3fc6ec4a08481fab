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

class StandardStreams::Reader final : public OpenFile {
 public:
  explicit Reader(StandardStreams& owner) : owner_(owner) {}

  std::ptrdiff_t Read(char* buffer, std::size_t capacity) override {
    const std::ptrdiff_t count =
        at_ < owner_.start_.size() ? ReadAgain(buffer, capacity) : ReadOn(buffer, capacity);
    at_ += static_cast<std::uint64_t>(std::max<std::ptrdiff_t>(count, 0));
    return count;
  }
  bool Write(std::string_view) override { return false; }
  bool Flush() override { return false; }
  bool Close() override { return true; }

 private:
  std::ptrdiff_t ReadAgain(char* buffer, std::size_t capacity) const {
    return static_cast<std::ptrdiff_t>(owner_.start_.copy(buffer, capacity, static_cast<std::size_t>(at_)));
  }

  // What is there already, so that nobody waits for more than a line.
  std::ptrdiff_t ReadOn(char* buffer, std::size_t capacity) {
    std::istream& in = owner_.streams_.in;
    if (at_ != owner_.taken_) return Fail("it can be read only once");
    if (in.peek() == std::istream::traits_type::eof())
      return in.bad() ? Fail("standard input reports an error") : 0;
    const std::streamsize count = in.readsome(buffer, static_cast<std::streamsize>(capacity));
    const auto size = static_cast<std::size_t>(count);
    owner_.taken_ += size;
    owner_.start_.append(buffer, std::min(size, DataStart::kSize - owner_.start_.size()));
    return count;
  }

  std::ptrdiff_t Fail(const char* reason) {
    reason_ = reason;
    return -1;
  }

  StandardStreams& owner_;
  std::uint64_t at_ = 0;
};

class StandardStreams::Writer final : public OpenFile {
 public:
  explicit Writer(std::ostream& out) : out_(out) {}

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

StandardStreams::StandardStreams(const Streams& streams, bool holdsOutput)
    : streams_(streams), files_(Files()), holdsOutput_(holdsOutput) {
  SetFileSystem(this);
}

std::unique_ptr<OpenFile> StandardStreams::Open(const std::string& path, OpenMode mode, std::string& reason) {
  if (!IsStandardStream(path)) return files_.Open(path, mode, reason);
  if (mode == OpenMode::Read) return std::make_unique<Reader>(*this);
  return std::make_unique<Writer>(streams_.out);
}

std::unique_ptr<WorkingFile> StandardStreams::PrepareWorkingFile(const std::string& target,
                                                                 WorkingPlace place, std::string& reason) {
  if (!IsStandardStream(target)) return files_.PrepareWorkingFile(target, place, reason);
  if (!holdsOutput_) return std::make_unique<WorkingFile>(target, target);
  const auto name = std::filesystem::temp_directory_path() / "qvassembly-output.txt";
  auto working = files_.PrepareWorkingFile(PathFromUtf8(Utf8Of(name)), place, reason);
  if (working == nullptr) return nullptr;
  return std::make_unique<HeldBackFile>(target, std::move(working));
}

bool StandardStreams::Replace(const std::string& from, const std::string& to, std::string& reason) {
  if (!IsStandardStream(to)) return files_.Replace(from, to, reason);
  const auto file = files_.Open(from, OpenMode::Read, reason);
  if (file == nullptr) return false;
  std::vector<char> block(DataStart::kSize);
  std::ptrdiff_t count = 0;
  while (streams_.out && (count = file->Read(block.data(), block.size())) > 0)
    streams_.out.write(block.data(), count);
  reason = count < 0 ? file->Reason() : "it does not take what is written to it";
  std::string ignored;
  return count == 0 && streams_.out.flush() && files_.Remove(from, ignored);
}

bool StandardStreams::Exists(const std::string& path) {
  return IsStandardStream(path) ? path.find(kNames[0]) != std::string::npos : files_.Exists(path);
}

}  // namespace qv
