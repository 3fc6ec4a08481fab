#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// A list of texts in one buffer: a header row of a million fields costs its bytes and eight more per field.
class TextList {
 public:
  void Append(std::string_view text) {
    bytes_.append(text);
    ends_.push_back(bytes_.size());
  }
  void Clear() {
    bytes_.clear();
    ends_.clear();
  }
  std::size_t Size() const { return ends_.size(); }
  bool IsEmpty() const { return ends_.empty(); }
  std::string_view operator[](std::size_t rank) const {
    const std::size_t begin = rank == 0 ? 0 : ends_[rank - 1];
    return std::string_view(bytes_).substr(begin, ends_[rank] - begin);
  }

 private:
  std::string bytes_;
  std::vector<std::size_t> ends_;
};
