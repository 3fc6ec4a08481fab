// Random sequences of commands, played on the model and on a second, naive description of the same rules.

#include "dialogs/FormatOptionModel.h"
#include "tests/support/FormatText.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <set>
#include <string>
#include <vector>

namespace {

using qv::FormatOptionModel;
using qv::Selection;

using Words = std::vector<std::string>;

const char* const kColumns[] = {
    "PartName=0 Customer=1 Machine=2",
    "Ignore=0,3, ID=1 Priority=2 RectangularTrueShape=4 C-CutPunch",
    "PartName",
    "Coating=3 PartName=9 id=0 Ignore=x,,7 GroupName=2 Nobody=-4",
};

struct Reference {
  Words sequence;
  Selection selection;

  static bool IsKey(std::string name) {
    std::transform(name.begin(), name.end(), name.begin(), ::tolower);
    return name == "partname" || name == "id";
  }
  void Add(const Words& chosen) {
    for (const std::string& name : chosen)
      if (name == "Ignore" || std::count(sequence.begin(), sequence.end(), name) == 0)
        sequence.push_back(name);
  }
  void Delete() {
    for (std::size_t last = selection.size(); last-- > 0;) {
      const std::size_t rank = selection[last];
      if (IsKey(sequence[rank])) continue;
      sequence.erase(sequence.begin() + static_cast<std::ptrdiff_t>(rank));
      selection.erase(selection.begin() + static_cast<std::ptrdiff_t>(last));
      for (std::size_t later = last; later < selection.size(); ++later) --selection[later];
    }
  }
  void Move(int by) {
    if (selection.size() != 1) return;
    const auto to = static_cast<std::ptrdiff_t>(selection[0]) + by;
    if (to < 0 || to >= static_cast<std::ptrdiff_t>(sequence.size())) return;
    std::swap(sequence[selection[0]], sequence[static_cast<std::size_t>(to)]);
    selection[0] = static_cast<std::size_t>(to);
  }
};

class Walk {
 public:
  Walk(unsigned seed, const std::string& config) : random_(seed), model_({config, config + ".ini"}) {
    model_.Open("");
    Restart(model_.ShownRank());
  }

  void Step() {
    switch (Below(8)) {
      case 0:
      case 1:
        Select();
        break;
      case 2:
      case 3:
        Add();
        break;
      case 4:
        model_.Delete();
        reference_.Delete();
        break;
      case 5:
        model_.MoveUp();
        reference_.Move(-1);
        break;
      case 6:
        model_.MoveDown();
        reference_.Move(1);
        break;
      default:
        if (Below(20) == 0) Restart(Below(model_.Formats().size()));
    }
  }

  void Check() const {
    const qv::ColumnLists& columns = model_.Columns();
    ASSERT_EQ(columns.Sequence(), reference_.sequence);
    ASSERT_EQ(columns.SequenceSelection(), reference_.selection);
    CheckKeysAndRepeats();
    CheckPositions();
  }

  FormatOptionModel& Model() { return model_; }

 private:
  std::size_t Below(std::size_t limit) { return random_() % limit; }

  Selection SomeRanks(std::size_t count) {
    Selection ranks;
    for (std::size_t n = Below(4); n > 0 && count > 0; --n) ranks.push_back(Below(count));
    return ranks;
  }

  void Select() {
    const Selection ranks = SomeRanks(reference_.sequence.size());
    model_.SelectSequence(ranks);
    reference_.selection = ranks;
    std::sort(reference_.selection.begin(), reference_.selection.end());
    const auto end = std::unique(reference_.selection.begin(), reference_.selection.end());
    reference_.selection.erase(end, reference_.selection.end());
  }

  void Add() {
    const Words& plan = model_.Columns().PlanItems();
    Selection ranks = SomeRanks(plan.size());
    model_.SelectPlanItems(ranks);
    model_.Add();
    std::sort(ranks.begin(), ranks.end());
    ranks.erase(std::unique(ranks.begin(), ranks.end()), ranks.end());
    Words chosen;
    for (const std::size_t rank : ranks) chosen.push_back(plan[rank]);
    reference_.Add(chosen);
  }

  void Restart(std::size_t rank) {
    model_.ShowFormat(rank);
    reference_ = {model_.Columns().Sequence(), {}};
    keys_.clear();
  }

  // A key column that ever stood in the sequence stands there still; nothing but Ignore stands there twice.
  void CheckKeysAndRepeats() const {
    std::map<std::string, int> counts;
    for (const std::string& name : model_.Columns().Sequence()) ++counts[name];
    for (const auto& [name, count] : counts) {
      ASSERT_TRUE(count == 1 || name == "Ignore") << name << " stands there " << count << " times";
      if (Reference::IsKey(name)) keys_.insert(name);
    }
    for (const std::string& key : keys_) ASSERT_EQ(counts[key], 1) << key;
  }

  // The positions of the form are exactly the sequence that is shown.
  void CheckPositions() const {
    std::map<std::size_t, std::string> columns;
    const OptionForm form = model_.Form();
    for (const FormatItem& item : form.Items) {
      if (item.Order == "-1") continue;
      ASSERT_FALSE(item.Order.empty()) << item.Name;
      std::string order = item.Order;
      ASSERT_EQ(order.back() == ',', item.Name == "Ignore") << item.Name << " " << order;
      for (std::size_t at = 0; at < order.size();) {
        const std::size_t comma = std::min(order.find(',', at), order.size());
        const auto place = std::stoul(order.substr(at, comma - at));
        ASSERT_TRUE(columns.emplace(place, item.Name).second) << item.Name << " " << order;
        at = comma + 1;
      }
    }
    Words shown;
    for (const auto& [place, name] : columns) {
      ASSERT_EQ(place, shown.size()) << "a gap before " << name;
      shown.push_back(qv::ShownItemName(name));
    }
    ASSERT_EQ(shown, model_.Columns().Sequence());
  }

  std::mt19937 random_;
  FormatOptionModel model_;
  Reference reference_;
  mutable std::set<std::string> keys_;
};

TEST(RandomWalkTest, TheModelFollowsTheRules) {
  const TemporaryFolder folder;
  std::string formats;
  for (const char* columns : kColumns) formats += FormatElement(columns, columns);
  for (unsigned seed = 1; seed <= 40; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    const std::string config = folder.Write("formats.xml", FormatFile(kColumns[seed % 4], formats));
    Walk walk(seed, config);
    for (int step = 0; step < 500; ++step) {
      walk.Step();
      walk.Check();
      if (testing::Test::HasFatalFailure()) FAIL() << "step " << step;
    }
    // What was shown at the end is what the file says, and showing the file again changes nothing.
    std::string complaint;
    ASSERT_TRUE(walk.Model().Ok(complaint)) << complaint;
    FormatOptionModel again({config, config + ".ini"});
    again.Open("");
    EXPECT_EQ(again.Columns().Sequence(), walk.Model().Columns().Sequence());
    EXPECT_EQ(again.Form().Delimiters, walk.Model().Form().Delimiters);
  }
}

}  // namespace
