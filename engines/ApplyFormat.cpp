#include "engines/CAssemblyFile.h"
#include "engines/FileReport.h"
#include "engines/columns/Numbers.h"

#include <algorithm>
#include <map>

namespace {

using qv::FileReport;

constexpr std::string_view kIgnore = "Ignore";
constexpr std::string_view kAbsent = "-1";

/// Collects which keyword stands at which position; the first claim of a position holds.
class PositionMap {
 public:
  PositionMap(const OptionForm& form, const FileReport& report) : form_(form), report_(report) {}

  void Claim(const FormatItem& item, std::string_view order, std::string_view keyword) {
    const auto position = qv::ParseInt(order);
    if (position.remark != qv::Remark::None)
      Tell(DiagnosticCode::InvalidPosition, item,
           "its position " + qv::Quoted(order) + " is taken as " + std::to_string(position.value));
    const auto [place, isFirst] = keywords_.try_emplace(position.value, keyword);
    if (!isFirst)
      Tell(DiagnosticCode::PositionTaken, item,
           "its position " + std::to_string(position.value) + " is taken by " + std::string(place->second) +
               " already; it is no column");
  }

  void Tell(DiagnosticCode code, const FormatItem& item, const std::string& what) const {
    if (report_.IsWanted())
      report_.Tell(code, 0, item.Name, item.Order, {},
                   "in the format " + qv::Quoted(form_.Name) + ", " + what);
  }

  auto begin() const { return keywords_.begin(); }
  auto end() const { return keywords_.end(); }

 private:
  const OptionForm& form_;
  const FileReport& report_;
  std::map<int, std::string_view> keywords_;
};

// The order of an ignored column lists all its positions, each with a comma behind it; what follows the last
// comma is no position.
void ClaimIgnored(PositionMap& positions, const FormatItem& item) {
  std::string_view rest = item.Order;
  for (std::size_t comma; (comma = rest.find(',')) != std::string_view::npos; rest.remove_prefix(comma + 1))
    positions.Claim(item, rest.substr(0, comma), kIgnore);
  if (!rest.empty())
    positions.Tell(DiagnosticCode::InvalidPosition, item,
                   "its position " + qv::Quoted(rest) + " is not used, as no comma follows it");
}

// An XML tag cannot hold a slash, so the format file spells two keywords without it.
std::string_view ColumnKeyword(std::string_view itemName) {
  if (itemName == "RectangularTrueShape") return "Rectangular/TrueShape";
  if (itemName == "C-CutPunch") return "C-Cut/Punch";
  return itemName;
}

}  // namespace

void ApplyFormat(CAssemblyFile& engine, const OptionForm& form, const char* path) {
  engine.StartLine = form.StartLine;
  engine.Qualifier = form.Qualifier;
  engine.Delimiters = form.Delimiters;
  engine.OtherDelimiters = form.OtherDelimiters;
  engine.TreatAsOne = form.TreatAsOne;
  engine.PartKeyIsName = form.PartKey == "Name";

  const FileReport report(path);
  PositionMap positions(form, report);
  for (const FormatItem& item : form.Items) {
    if (item.Order == kAbsent) continue;
    if (item.Name == kIgnore)
      ClaimIgnored(positions, item);
    else
      positions.Claim(item, item.Order, ColumnKeyword(item.Name));
  }
  const auto flag = std::find(engine.KindFlags.begin(), engine.KindFlags.end(), true);
  if (flag == engine.KindFlags.end()) return;
  auto& columns = engine.ColumnOrder[static_cast<std::size_t>(flag - engine.KindFlags.begin())];
  for (const auto& [position, keyword] : positions) columns.emplace_back(keyword);
}
