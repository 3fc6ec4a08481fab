#include "engines/LineReader.h"

#include <cstring>

namespace qv {
namespace {

constexpr std::size_t kBlockSize = std::size_t{1} << 18;

}  // namespace

LineReader::LineReader(OpenFile& file) : file_(file), block_(kBlockSize) {}

bool LineReader::Next(std::string_view& line) {
  while (true) {
    const char* const from = block_.data() + scanned_;
    const void* const found = end_ == scanned_ ? nullptr : std::memchr(from, '\n', end_ - scanned_);
    if (found != nullptr) {
      const char* const start = block_.data() + begin_;
      auto length = static_cast<std::size_t>(static_cast<const char*>(found) - start);
      begin_ += length + 1;
      scanned_ = begin_;
      if (length > 0 && start[length - 1] == '\r') --length;
      line = {start, length};
      break;
    }
    scanned_ = end_;
    if (Refill()) continue;
    if (begin_ == end_) return false;
    line = {block_.data() + begin_, end_ - begin_};
    begin_ = end_;
    break;
  }
  ++lineNumber_;
  return true;
}

// Moves what is left of the block to its front and fills the rest; a line longer than the block makes it
// grow.
bool LineReader::Refill() {
  if (atEnd_) return false;
  std::memmove(block_.data(), block_.data() + begin_, end_ - begin_);
  end_ -= begin_;
  scanned_ -= begin_;
  begin_ = 0;
  if (end_ == block_.size()) block_.resize(block_.size() * 2);
  const std::ptrdiff_t count = file_.Read(block_.data() + end_, block_.size() - end_);
  failed_ = count < 0;
  atEnd_ = count <= 0;
  if (atEnd_) return false;
  const char* const fresh = block_.data() + end_;
  end_ += static_cast<std::size_t>(count);
  if (kEndOfText < 0) return true;
  if (const void* const mark = std::memchr(fresh, kEndOfText, static_cast<std::size_t>(count))) {
    end_ = static_cast<std::size_t>(static_cast<const char*>(mark) - block_.data());
    atEnd_ = true;
  }
  return true;
}

}  // namespace qv
