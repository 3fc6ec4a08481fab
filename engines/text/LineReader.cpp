#include "engines/text/LineReader.h"

#include <array>
#include <cstring>

namespace qv {
namespace {

constexpr std::size_t kBlockSize = std::size_t{1} << 18;

}  // namespace

LineReader::LineReader(OpenFile& file, int endOfText, ProgressMeter* meter)
    : file_(file), endOfText_(endOfText), meter_(meter), block_(kBlockSize) {}

bool LineReader::Next(std::string_view& line) {
  if (begin_ == whole_ && !FillToLineEnd()) return false;
  line = {block_.data() + begin_, whole_ - begin_};
  if (const void* const found = std::memchr(line.data(), '\n', line.size())) {
    line = {line.data(), static_cast<std::size_t>(static_cast<const char*>(found) - line.data())};
    begin_ += line.size() + 1;
    if (line.ends_with('\r')) line.remove_suffix(1);
  } else {
    begin_ = whole_;
  }
  ++lineNumber_;
  return true;
}

bool LineReader::NextLines(std::string_view& lines) {
  if (begin_ == whole_ && !FillToLineEnd()) return false;
  lines = {block_.data() + begin_, whole_ - begin_};
  begin_ = whole_;
  return true;
}

// Reads until the block holds a whole line. False at the end of the file; what it ends with is a line too.
bool LineReader::FillToLineEnd() {
  while (!atEnd_) {
    const std::string_view fresh = Fill();
    const std::size_t lineFeed = fresh.rfind('\n');
    if (lineFeed == std::string_view::npos) continue;
    whole_ = end_ - fresh.size() + lineFeed + 1;
    return true;
  }
  whole_ = end_;
  return begin_ != end_;
}

// Moves what is left of the block to its front and fills the rest; a line longer than the block makes it
// grow. Returns what was read.
std::string_view LineReader::Fill() {
  std::memmove(block_.data(), block_.data() + begin_, end_ - begin_);
  end_ -= begin_;
  begin_ = whole_ = 0;
  if (end_ == block_.size()) block_.resize(block_.size() * 2);
  const std::ptrdiff_t count = file_.Read(block_.data() + end_, block_.size() - end_);
  failed_ = count < 0;
  atEnd_ = count <= 0;
  if (atEnd_) return {};
  if (meter_ != nullptr && !meter_->Advance(count)) {
    atEnd_ = true;
    end_ = 0;  // the start of a line is no line
    return {};
  }
  std::string_view fresh(block_.data() + end_, static_cast<std::size_t>(count));
  if (endOfText_ >= 0)
    if (const auto mark = fresh.find(static_cast<char>(endOfText_)); mark != std::string_view::npos) {
      cutOff_ = GoesOn(fresh.substr(mark));
      fresh = fresh.substr(0, mark);
      atEnd_ = true;
    }
  end_ += fresh.size();
  return fresh;
}

// Whether there is more than the byte that ends a text: old programs fill their files up with it.
bool LineReader::GoesOn(std::string_view rest) {
  std::array<char, 4096> more;
  while (rest.find_first_not_of(static_cast<char>(endOfText_)) == std::string_view::npos) {
    const std::ptrdiff_t count = file_.Read(more.data(), more.size());
    failed_ = count < 0;
    if (count <= 0) return false;
    rest = {more.data(), static_cast<std::size_t>(count)};
  }
  return true;
}

}  // namespace qv
