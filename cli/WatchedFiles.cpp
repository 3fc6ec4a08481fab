#include "cli/WatchedFiles.h"

#include <algorithm>
#include <utility>

namespace qv {
namespace {

class WatchedFile final : public OpenFile {
 public:
  WatchedFile(std::unique_ptr<OpenFile> file, Progress& progress, std::int64_t lines)
      : file_(std::move(file)), progress_(progress), linesLeft_(lines) {}

  std::ptrdiff_t Read(char* buffer, std::size_t capacity) override {
    if (linesLeft_ == 0) return 0;
    const std::ptrdiff_t count = file_->Read(buffer, capacity);
    if (count < 0) return Fail(count);
    progress_.Advance(count);
    return linesLeft_ == WatchedFiles::kAllLines ? count : CutAfterLines(buffer, count);
  }

  bool Write(std::string_view bytes) override {
    if (!file_->Write(bytes)) return Fail(false);
    progress_.Advance(static_cast<std::int64_t>(bytes.size()));
    return true;
  }

  bool Flush() override { return file_->Flush() || Fail(false); }
  bool Close() override { return file_->Close() || Fail(false); }

 private:
  template <class Result>
  Result Fail(Result result) {
    reason_ = file_->Reason();
    return result;
  }

  std::ptrdiff_t CutAfterLines(const char* buffer, std::ptrdiff_t count) {
    const char* at = buffer;
    const char* const end = buffer + count;
    while (linesLeft_ > 0 && (at = std::find(at, end, '\n')) != end) {
      ++at;
      --linesLeft_;
    }
    return at - buffer;
  }

  std::unique_ptr<OpenFile> file_;
  Progress& progress_;
  std::int64_t linesLeft_;
};

}  // namespace

WatchedFiles::WatchedFiles(Progress& progress, OpenMode counted, std::int64_t lines)
    : files_(Files()), progress_(progress), counted_(counted), lines_(lines) {
  SetFileSystem(this);
}

WatchedFiles::~WatchedFiles() { SetFileSystem(&files_ == &PlatformFiles() ? nullptr : &files_); }

std::unique_ptr<OpenFile> WatchedFiles::Open(const std::string& path, OpenMode mode, std::string& reason) {
  auto file = files_.Open(path, mode, reason);
  if (file == nullptr || mode != counted_) return file;
  return std::make_unique<WatchedFile>(std::move(file), progress_, lines_);
}

}  // namespace qv
