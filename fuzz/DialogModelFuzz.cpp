#include "dialogs/model/FormatOptionModel.h"
#include "format/OptionForm.h"
#include "fuzz/ByteSource.h"
#include "support/FakeFileSystem.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

// What a person does in the dialog, in any order, on any format file: undoing everything leads back to what
// was opened and redoing it to what was left, the lists stay what they must be, and what OK saves is what the
// next dialog shows.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

constexpr const char* kConfiguration = "formats.xml";
constexpr const char* kNames[] = {"Parts", "Stock", "New", "parts", "", " Parts "};

// All that a person sees and OK saves.
struct Seen {
  explicit Seen(const qv::FormatOptionModel& model)
      : controls(model.Controls()),
        sequence(model.Columns().Sequence()),
        plan(model.Columns().PlanItems()),
        index(model.ShownIndex()) {
    for (const OptionForm& form : model.Formats()) {
      formats += form.Name + '\n';
      for (const FormatItem& item : form.Items) formats += item.Name + '=' + item.Order + '\n';
    }
  }
  bool operator==(const Seen&) const = default;

  qv::OptionControls controls;
  std::vector<std::string> sequence, plan;
  std::size_t index;
  std::string formats;
};

class Person {
 public:
  Person(ByteSource& source, qv::FormatOptionModel& model) : source_(source), model_(model) {}

  void Act() {
    static constexpr void (Person::*kActs[])() = {&Person::Tick,   &Person::Type,    &Person::Arrange,
                                                  &Person::Choose, &Person::Replace, &Person::GoBack};
    (this->*kActs[source_.Below(std::size(kActs))])();
    model_.EndStep();
    Require(model_.ShownIndex() <= model_.Formats().size());
    Require(model_.Columns().UsedPlanItems().size() == model_.Columns().PlanItems().size());
    const std::size_t entries = model_.Columns().Sequence().size();
    for (const std::size_t index : model_.Columns().SequenceSelection()) Require(index < entries);
    Require(!model_.Columns().Cursor() || *model_.Columns().Cursor() < entries);
  }

 private:
  qv::Selection Some() {
    qv::Selection selection;
    for (unsigned count = source_.Below(4); count > 0; --count) selection.push_back(source_.Below(24));
    return selection;
  }

  void Tick() {
    qv::OptionControls& controls = model_.Controls();
    bool& box = controls.Delimiters[source_.Below(static_cast<unsigned>(controls.Delimiters.size()))];
    box = !box;
    controls.Qualifier = static_cast<int>(source_.Below(qv::kQualifierCount));
    controls.TreatAsOne = source_.Flag();
    if (source_.Flag()) model_.TickOther(source_.Flag());
    if (source_.Flag()) model_.SetAsDefault(source_.Flag());
  }

  void Type() {
    qv::OptionControls& controls = model_.Controls();
    if (source_.Flag()) controls.FormatName = source_.Flag() ? kNames[source_.Below(6)] : source_.Text();
    if (source_.Flag()) controls.StartLine = static_cast<int>(source_.Byte()) - 2;
    if (source_.Flag()) controls.OtherDelimiters = source_.Text();
    model_.NameHint();
  }

  void Arrange() {
    using qv::ColumnLists;
    static constexpr void (ColumnLists::*kMoves[])() = {&ColumnLists::Delete, &ColumnLists::MoveUp,
                                                        &ColumnLists::MoveDown};
    model_.Change(&ColumnLists::SelectSequence, Some());
    switch (const unsigned move = source_.Below(7)) {
      case 3:
        return model_.Add(Some());
      case 4:
        return model_.Change(&ColumnLists::Insert, Some(), source_.Below(24));
      case 5:
        return model_.Change(&ColumnLists::MoveTo, source_.Below(24));
      case 6:
        return;
      default:
        return model_.Change(kMoves[move]);
    }
  }

  void Choose() {
    std::string complaint;
    if (source_.Below(4) == 0)
      model_.DeleteShown();
    else if (!model_.ShowFormat(source_.Below(6), complaint))
      Require(!complaint.empty());
  }

  // Headings stand for each keyword once, except for Ignore.
  void Replace() {
    static constexpr const char* kKeywords[] = {"Ignore", "PartName", "PartQuantity", "Customer", "Unknown"};
    std::vector<std::string> keywords;
    for (unsigned count = source_.Below(6); count > 0; --count) {
      const std::string keyword = kKeywords[source_.Below(5)];
      if (keyword == "Ignore" || std::find(keywords.begin(), keywords.end(), keyword) == keywords.end())
        keywords.push_back(keyword);
    }
    model_.Change(&qv::ColumnLists::Replace, keywords);
  }

  void GoBack() {
    if (source_.Flag())
      model_.Undo();
    else
      model_.Redo();
  }

  ByteSource& source_;
  qv::FormatOptionModel& model_;
};

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  ByteSource source(data, size);
  FakeFileSystem files;
  files.Contents[kConfiguration] =
      "<CSVOptionSetting Current=\"Parts\"><OptionForm Name=\"Parts\" Line=\"1\" Delimiters=\"Comma\" "
      "Qualifier=\"0\"><PartName Order=\"0\"/><PartQuantity Order=\"1\"/></OptionForm><OptionForm "
      "Name=\"Stock\"/></CSVOptionSetting>";
  if (source.Below(4) == 0) files.Contents[kConfiguration] = source.Text();
  qv::FormatOptionModel model({kConfiguration, "Setting.ini"});
  model.Open(source.Flag() ? "" : kNames[source.Below(6)]);
  model.EndStep();
  const Seen opened(model);

  Person person(source, model);
  while (!source.IsEmpty()) person.Act();
  while (model.Redo()) continue;
  const Seen left(model);
  while (model.Undo()) continue;
  Require(Seen(model) == opened);
  while (model.Redo()) continue;
  Require(Seen(model) == left);

  const std::string before = files.Contents[kConfiguration];
  std::string sentence;
  if (!model.Ok(sentence)) {
    Require(!sentence.empty() && files.Contents[kConfiguration] == before);
    return 0;
  }
  qv::FormatOptionModel next({kConfiguration, "Setting.ini"});
  Require(next.Open("").empty());
  Require(next.Columns().Sequence() == model.Columns().Sequence());
  // A sentence tells what is saved otherwise than it was shown.
  qv::OptionControls saved = model.Controls();
  saved.FormatName = model.Form().Name;
  // Other delimiters that are off may be kept or not.
  if (!saved.Ticked(qv::Delimiter::Other)) saved.OtherDelimiters = next.Controls().OtherDelimiters;
  Require(!sentence.empty() || next.Controls() == saved);
  return 0;
}
