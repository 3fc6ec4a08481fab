#pragma once

#include <string>
#include <vector>

namespace qv {

/// The headers that the header window lists.
class HeaderNames {
 public:
  /// Takes the names over; `names` is empty afterwards.
  void Set(std::vector<std::string>& names);

  const std::vector<std::string>& All() const { return names_; }
  /// Without the two names that the dialogs never show.
  std::vector<std::string> Shown() const;

 private:
  std::vector<std::string> names_;
};

}  // namespace qv
