#include "cli/JsonSource.h"

#include <utility>

namespace qv {
namespace {

constexpr std::size_t kBlock = 1 << 16;

}  // namespace

JsonSource::JsonSource(Read read) : read_(std::move(read)), block_(kBlock) {}

bool JsonSource::AtEnd() {
  if (at_ < end_) return false;
  if (finished_) return true;
  const std::ptrdiff_t count = read_(block_.data(), block_.size());
  failed_ = count < 0;
  finished_ = count <= 0;
  at_ = 0;
  end_ = finished_ ? 0 : static_cast<std::size_t>(count);
  return finished_;
}

void JsonSource::Next() {
  if (AtEnd()) return;
  if (tookLineEnd_) ++line_;
  tookLineEnd_ = block_[at_++] == '\n';
}

}  // namespace qv
