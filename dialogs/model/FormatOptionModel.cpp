#include "dialogs/model/FormatOptionModel.h"

#include "format/FormatConfiguration.h"
#include "manager/SettingsFile.h"
#include "text/Ascii.h"
#include "text/Phrases.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace qv {

namespace {

// Why the file will not come through an OK; empty when it will, or when there is none.
std::string WhyReplaced(const LoadedFormats& loaded) {
  const XmlError& error = loaded.error;
  if (error.problem == XmlProblem::MissingFile) return {};
  if (loaded.IsRead()) return loaded.IsFormatFile() ? "" : "it is an XML file of another kind";
  std::string where;
  if (error.line > 0)
    where = "line " + std::to_string(error.line) + ", column " + std::to_string(error.column) + ": ";
  return where + error.reason;
}

// What the controls show when the file holds no format of the name: the built-in one.
OptionForm NewForm(const std::string& name) {
  OptionForm form = BuiltInFormats().Formats.front();
  form.Name = name;
  return form;
}

std::string WithoutOuterBlanks(const std::string& text) {
  const std::size_t first = text.find_first_not_of(" \t");
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

// XML has no way to hold most of them, and no control shows the line ends. A tab is a delimiter like others.
bool HasControlCharacter(const std::string& text) {
  return std::any_of(text.begin(), text.end(),
                     [](char c) { return static_cast<unsigned char>(c) < ' ' && c != '\t'; });
}

constexpr std::size_t kMaxSteps = 100;

constexpr const char* kControlCharacters =
    "The format name and the other delimiters cannot hold control characters.";

void AddLine(std::string& text, const std::string& line) { text += (text.empty() ? "" : "\n") + line; }

void DropUnwritableItems(FormatList& list) {
  for (OptionForm& form : list.Formats)
    std::erase_if(form.Items, [](const FormatItem& item) { return item.Name.starts_with('#'); });
}

}  // namespace

bool DefaultChoice::IsDefault(const std::string& formatName) const {
  return !Name().empty() && EqualsIgnoringCase(Name(), formatName);
}

void DefaultChoice::Clear(const std::string& formatName) {
  chosen_.clear();
  if (EqualsIgnoringCase(remembered_, formatName)) remembered_.clear();
}

std::string DefaultChoice::Confirmed(bool isTicked, const std::string& formatName,
                                     const std::string& stored) const {
  if (isTicked) return formatName;
  const bool isStored = EqualsIgnoringCase(formatName, stored) && EqualsIgnoringCase(Name(), stored);
  return isStored ? std::string() : Name();
}

std::string FormatOptionModel::Open(const std::string& formatName) {
  FormatConfiguration configuration;
  std::string whyReplaced;
  if (!files_.configuration.empty()) {
    const LoadedFormats loaded = LoadFormats(files_.configuration);
    TakeFormats(configuration, loaded, files_.configuration);
    whyReplaced = WhyReplaced(loaded);
  }
  FormatList& list = edits_.formats = configuration.Formats.value_or(FormatList{});
  if (!formatName.empty()) list.CurrentFormat = formatName;
  // A file that names no current format still has formats to show.
  if (list.CurrentFormat.empty() && !list.Formats.empty()) list.CurrentFormat = list.Formats.front().Name;
  edits_.defaultChoice = DefaultChoice(ReadDefaultFormat(files_.settings));

  OptionForm form = NewForm(list.CurrentFormat);
  FindFormat(list, list.CurrentFormat, form);
  ShowForm(form);
  lastStep_ = edits_;

  if (whyReplaced.empty()) return {};
  return "The format file " + Quoted(files_.configuration) + " cannot be read (" + whyReplaced +
         "). OK will replace it by the formats shown.";
}

std::size_t FormatOptionModel::ShownIndex() const {
  const auto& formats = Formats();
  const auto found = std::find_if(formats.begin(), formats.end(),
                                  [this](const OptionForm& form) { return form.Name == edits_.shown.Name; });
  return static_cast<std::size_t>(found - formats.begin());
}

bool FormatOptionModel::ShowFormat(std::size_t index, std::string& complaint) {
  if (index >= Formats().size()) return true;
  if (IsEdited()) {
    std::string unheard;
    if (!HasUsableName(unheard)) edits_.controls.FormatName = edits_.shown.Name;
    if (!StoreForm(complaint)) return false;
  }
  ShowForm(OptionForm(Formats()[index]));
  return true;
}

std::string FormatOptionModel::NameHint() const {
  const std::string name = Form().Name;
  OptionForm other;
  if (name.empty() || name == edits_.shown.Name) return {};
  if (FindFormat(edits_.formats, name, other)) return "There is such a format already.";
  if (ShownIndex() == Formats().size()) return "A new format will be made.";
  return "A copy of " + Quoted(edits_.shown.Name) + " will be made.";
}

void FormatOptionModel::DeleteShown() {
  std::vector<OptionForm>& formats = edits_.formats.Formats;
  const std::size_t index = ShownIndex();
  if (edits_.defaultChoice.IsDefault(edits_.shown.Name)) edits_.defaultChoice.Clear(edits_.shown.Name);
  if (index < formats.size()) formats.erase(formats.begin() + static_cast<std::ptrdiff_t>(index));
  ShowForm(formats.empty() ? NewForm("") : OptionForm(formats[std::min(index, formats.size() - 1)]));
}

bool FormatOptionModel::IsEdited() const {
  OptionControls controls = edits_.controls;
  controls.FormatName = edits_.controlsAsShown.FormatName;
  controls.SetAsDefault = edits_.controlsAsShown.SetAsDefault;
  return controls != edits_.controlsAsShown || edits_.columns.Sequence() != edits_.sequenceAsShown;
}

void FormatOptionModel::ShowForm(const OptionForm& form) {
  edits_.shown = form;
  OptionControls& controls = edits_.controls;
  controls.FormatName = form.Name;
  controls.SetAsDefault = edits_.defaultChoice.IsDefault(form.Name);
  controls.StartLine = form.StartLine;
  controls.Qualifier = form.Qualifier;
  for (std::size_t box = 0; box < kDelimiterNames.size(); ++box)
    controls.Delimiters[box] = HasDelimiter(form.Delimiters, static_cast<Delimiter>(box));
  controls.OtherDelimiters = form.OtherDelimiters;
  controls.PartName = form.PartKey == "Name" ? PartNameMode::NameOnly : PartNameMode::NameWithFullPath;
  controls.TreatAsOne = form.TreatAsOne;
  edits_.columns.Show(form.Items);
  edits_.controlsAsShown = controls;
  edits_.sequenceAsShown = edits_.columns.Sequence();
  edits_.enabling.OtherDelimiters = controls.Ticked(Delimiter::Other);
  UpdateEnabling();
}

void FormatOptionModel::SetAsDefault(bool isTicked) {
  edits_.controls.SetAsDefault = isTicked;
  if (isTicked)
    edits_.defaultChoice.Tick(edits_.controls.FormatName);
  else
    edits_.defaultChoice.Clear(edits_.controls.FormatName);
}

void FormatOptionModel::TickOther(bool isTicked) {
  edits_.controls.Ticked(Delimiter::Other) = isTicked;
  edits_.enabling.OtherDelimiters = isTicked;
}

void FormatOptionModel::Add(Selection planItems) {
  edits_.columns.Add(std::move(planItems));
  edits_.enabling.Sequence = true;
  edits_.enabling.Down = !edits_.columns.Sequence().empty();
}

void FormatOptionModel::TakeLayout(const SplitRules& layout) {
  OptionControls& controls = edits_.controls;
  controls.Delimiters = {};
  std::string others;
  for (const char delimiter : layout.delimiters) {
    const std::size_t box = std::min(kDelimiterCharacters.find(delimiter), kDelimiterCharacters.size());
    controls.Delimiters[box] = true;  // "Other" stands after those that have characters
    if (box == kDelimiterCharacters.size()) others += delimiter;
  }
  if (!others.empty()) controls.OtherDelimiters = others;
  controls.Qualifier = layout.qualifier == '"' ? 0 : layout.qualifier == '\0' ? 2 : 1;
  controls.TreatAsOne = layout.treatAsOne;
  edits_.enabling.OtherDelimiters = controls.Ticked(Delimiter::Other);
}

void FormatOptionModel::UpdateEnabling() {
  edits_.enabling.Sequence = !edits_.columns.Sequence().empty();
  edits_.enabling.Delete = edits_.columns.CanDelete();
  edits_.enabling.Up = edits_.columns.CanMoveUp();
  edits_.enabling.Down = edits_.columns.CanMoveDown();
}

bool FormatOptionModel::IsStep() const {
  return edits_.controls != lastStep_.controls || edits_.shown.Name != lastStep_.shown.Name ||
         edits_.columns.Sequence() != lastStep_.columns.Sequence();
}

FormatOptionModel::TypedInto FormatOptionModel::WhatWasTypedInto(const OptionControls& before,
                                                                 const OptionControls& after) {
  const auto isAll = [&](auto OptionControls::*field) {
    OptionControls typed = before;
    typed.*field = after.*field;
    return typed != before && typed == after;
  };
  if (isAll(&OptionControls::FormatName)) return TypedInto::FormatName;
  if (isAll(&OptionControls::StartLine)) return TypedInto::StartLine;
  return isAll(&OptionControls::OtherDelimiters) ? TypedInto::OtherDelimiters : TypedInto::Nothing;
}

void FormatOptionModel::EndStep() {
  if (IsStep()) {
    const TypedInto typedInto = WhatWasTypedInto(lastStep_.controls, edits_.controls);
    if (typedInto == TypedInto::Nothing || typedInto != typedInto_) undo_.push_back(std::move(lastStep_));
    if (undo_.size() > kMaxSteps) undo_.erase(undo_.begin());
    redo_.clear();
    typedInto_ = typedInto;
  }
  lastStep_ = edits_;
}

bool FormatOptionModel::GoBack(History& from, History& to) {
  if (from.empty()) return false;
  to.push_back(std::move(edits_));
  edits_ = std::move(from.back());
  from.pop_back();
  lastStep_ = edits_;
  typedInto_ = TypedInto::Nothing;
  return true;
}

OptionForm FormatOptionModel::Form() const {
  const OptionControls& controls = edits_.controls;
  OptionForm form = edits_.shown;
  if (controls.FormatName != form.Name) form.Name = WithoutOuterBlanks(controls.FormatName);
  form.StartLine = controls.StartLine;
  form.Qualifier = controls.Qualifier;
  form.Delimiters.clear();
  for (std::size_t box = 0; box < kDelimiterNames.size(); ++box) {
    if (!controls.Delimiters[box]) continue;
    form.Delimiters += kDelimiterNames[box];
    if (static_cast<Delimiter>(box) != Delimiter::Other) form.Delimiters += ',';
  }
  if (controls.Ticked(Delimiter::Other)) form.OtherDelimiters = controls.OtherDelimiters;
  form.PartKey = controls.PartName == PartNameMode::NameOnly ? "Name" : "Path";
  form.TreatAsOne = controls.TreatAsOne;
  form.Items = edits_.columns.Items();
  return form;
}

bool FormatOptionModel::HasUsableName(std::string& complaint) const {
  const std::string name = Form().Name;
  const bool isNew = name != edits_.shown.Name;
  OptionForm other;
  if (name.empty())
    complaint = "Please enter a format name.";
  else if (isNew && name.size() > kMaxFormatName)
    complaint =
        "The format name is too long; it can have at most " + std::to_string(kMaxFormatName) + " characters.";
  else if (HasControlCharacter(name))
    complaint = kControlCharacters;
  else if (isNew && FindFormat(edits_.formats, name, other))
    complaint = "There is a format " + Quoted(name) +
                " already. Choose it in the list to change it, or enter another name.";
  else
    return true;
  return false;
}

bool FormatOptionModel::StoreForm(std::string& complaint) {
  if (!HasUsableName(complaint)) return false;
  const OptionForm form = Form();
  if (HasControlCharacter(form.OtherDelimiters)) {
    complaint = kControlCharacters;
    return false;
  }
  return AddFormat(edits_.formats, &form);
}

bool FormatOptionModel::Save(std::string& complaint) const {
  std::string reason;
  const bool isXml = SaveToFile({edits_.formats}, files_.configuration.c_str(), &reason);
  if (isXml && reason.empty()) return true;
  complaint = "The format file " + Quoted(files_.configuration) + " was not written";
  if (!reason.empty()) complaint += " (" + reason + ")";
  complaint += ".";
  return false;
}

std::string FormatOptionModel::RemarksOnSaved(const OptionForm& form) const {
  std::string remarks;
  if (edits_.columns.Sequence().empty())
    AddLine(remarks,
            "The format " + Quoted(form.Name) +
                " was saved without columns. Add the items that a file's columns hold to its sequence.");
  std::string flagged;
  for (const OptionForm& saved : Formats())
    if (saved.TreatAsOne) flagged += (flagged.empty() ? "" : ", ") + Quoted(saved.Name);
  if (!flagged.empty())
    AddLine(remarks,
            "The setting to treat consecutive delimiters as one (" + flagged +
                ") is saved as TreatAsOne=\"1\", which is read back as off; to keep it, put \"true\" "
                "there in the format file.");
  return remarks;
}

bool FormatOptionModel::Ok(std::string& sentence) {
  const FormatList before = edits_.formats;
  if (!StoreForm(sentence)) return false;
  const OptionForm form = Form();
  edits_.formats.CurrentFormat = form.Name;
  DropUnwritableItems(edits_.formats);
  if (!Save(sentence)) {
    edits_.formats = before;
    return false;
  }
  sentence = RemarksOnSaved(form);
  // Only now: a choice whose formats could not be saved is not kept either.
  const std::string chosen = edits_.defaultChoice.Confirmed(edits_.controls.SetAsDefault, form.Name,
                                                            ReadDefaultFormat(files_.settings));
  if (!WriteDefaultFormat(files_.settings, chosen))
    AddLine(sentence, "The default format could not be kept in " + Quoted(files_.settings) + ".");
  return true;
}

}  // namespace qv
