#pragma once

#include <string>
#include <utility>

namespace qv {

/// Which format the dialog's box makes the user's default. Names are compared without regard to case, and an
/// empty name means no default.
class DefaultChoice {
 public:
  DefaultChoice() = default;
  explicit DefaultChoice(std::string stored) : remembered_(std::move(stored)) {}

  /// Whether the box is ticked when this format is shown.
  bool IsDefault(const std::string& formatName) const;

  /// The box was ticked or cleared while the combo box read `formatName`. Clearing it on the default leaves
  /// no default; clearing it on another format takes back what ticking it there had done.
  void Tick(const std::string& formatName) { chosen_ = formatName; }
  void Clear(const std::string& formatName);

  /// The name to store when the dialog ends with OK, the box and the combo box being as given and `stored`
  /// being what is stored now.
  std::string Confirmed(bool isTicked, const std::string& formatName, const std::string& stored) const;

 private:
  const std::string& Name() const { return chosen_.empty() ? remembered_ : chosen_; }

  std::string remembered_;  // as stored when the dialog opened
  std::string chosen_;      // ticked since
};

}  // namespace qv
