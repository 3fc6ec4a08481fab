#include "dialogs/FormatOptionModel.h"

#include "manager/SettingsFile.h"
#include "platform/XmlDocument.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace qv {

namespace {

std::string Quoted(const std::string& text) { return '"' + text + '"'; }

// Why the file will not come through an OK, where loading it gave the built-in format or none at all.
std::string WhyNotUnderstood(const std::string& path) {
  const XmlLoadScope scope;
  const std::unique_ptr<XmlDocument> document = XmlDocument::Create();
  XmlError error;
  if (document == nullptr) return "there is no XML component";
  if (document->Load(path.c_str(), error)) {
    const std::unique_ptr<XmlNode> root = document->Root();
    const bool isFormatFile = root != nullptr && root->Name() == "CSVOptionSetting";
    return isFormatFile ? std::string() : "it is an XML file of another kind";
  }
  if (error.missing) return {};
  std::string where;
  if (error.line > 0)
    where = "line " + std::to_string(error.line) + ", column " + std::to_string(error.column) + ": ";
  return where + error.reason;
}

// What the controls show when the file holds no format of the name: the built-in one.
OptionForm NewForm(const std::string& name) {
  FormatConfiguration builtIn;
  CreateDefaultConfiguration(builtIn);
  OptionForm form = builtIn.Formats->Formats.front();
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

void DropUnwritableItems(FormatList& list) {
  for (OptionForm& form : list.Formats)
    std::erase_if(form.Items, [](const FormatItem& item) { return item.Name.starts_with('#'); });
}

}  // namespace

FormatOptionModel::FormatOptionModel(FormatOptionFiles files) : files_(std::move(files)) {
  configuration_.Formats.emplace();
}

std::string FormatOptionModel::Open(const std::string& formatName) {
  LoadFromFile(configuration_, files_.configuration.c_str());
  if (!configuration_.Formats) configuration_.Formats.emplace();
  FormatList& list = *configuration_.Formats;
  if (!formatName.empty()) list.CurrentFormat = formatName;
  // A file that names no current format still has formats to show.
  if (list.CurrentFormat.empty() && !list.Formats.empty()) list.CurrentFormat = list.Formats.front().Name;
  default_ = DefaultChoice(ReadDefaultFormat(files_.settings));

  OptionForm form = NewForm(list.CurrentFormat);
  FindFormat(list, list.CurrentFormat, form);
  ShowForm(form);

  if (files_.configuration.empty()) return {};
  const std::string reason = WhyNotUnderstood(files_.configuration);
  if (reason.empty()) return {};
  return "The format file " + Quoted(files_.configuration) + " cannot be read (" + reason +
         "). OK will replace it by the formats shown.";
}

std::size_t FormatOptionModel::ShownRank() const {
  const auto& formats = Formats();
  const auto found = std::find_if(formats.begin(), formats.end(),
                                  [this](const OptionForm& form) { return form.Name == shown_.Name; });
  return static_cast<std::size_t>(found - formats.begin());
}

void FormatOptionModel::ShowFormat(std::size_t rank) {
  if (rank < Formats().size()) ShowForm(OptionForm(Formats()[rank]));
}

void FormatOptionModel::ShowForm(const OptionForm& form) {
  shown_ = form;
  controls_.FormatName = form.Name;
  controls_.SetAsDefault = default_.IsDefault(form.Name);
  controls_.StartLine = form.StartLine;
  controls_.Qualifier = form.Qualifier;
  for (std::size_t box = 0; box < kDelimiterNames.size(); ++box)
    controls_.Delimiters[box] = form.Delimiters.find(kDelimiterNames[box]) != std::string::npos;
  controls_.OtherDelimiters = form.OtherDelimiters;
  controls_.PartName = form.PartKey == "Name" ? PartNameMode::NameOnly : PartNameMode::NameWithFullPath;
  controls_.TreatAsOne = form.TreatAsOne;
  columns_.Show(form.Items);
  enabling_.OtherDelimiters = controls_.Delimiter(DelimiterBox::Other);
  SuitSequenceSelection();
}

void FormatOptionModel::SetAsDefault(bool isTicked) {
  controls_.SetAsDefault = isTicked;
  if (isTicked)
    default_.Tick(controls_.FormatName);
  else
    default_.Clear(controls_.FormatName);
}

void FormatOptionModel::TickOther(bool isTicked) {
  controls_.Delimiter(DelimiterBox::Other) = isTicked;
  enabling_.OtherDelimiters = isTicked;
}

void FormatOptionModel::SelectSequence(Selection ranks) {
  columns_.SelectSequence(std::move(ranks));
  SuitSequenceSelection();
}

void FormatOptionModel::Add() {
  columns_.Add();
  enabling_.Sequence = true;
  enabling_.Down = !columns_.Sequence().empty();
}

void FormatOptionModel::Delete() {
  columns_.Delete();
  SuitSequenceSelection();
}

void FormatOptionModel::MoveUp() {
  columns_.MoveUp();
  SuitSequenceSelection();
}

void FormatOptionModel::MoveDown() {
  columns_.MoveDown();
  SuitSequenceSelection();
}

void FormatOptionModel::SuitSequenceSelection() {
  enabling_.Sequence = !columns_.Sequence().empty();
  enabling_.Delete = columns_.CanDelete();
  enabling_.Up = columns_.CanMoveUp();
  enabling_.Down = columns_.CanMoveDown();
}

OptionForm FormatOptionModel::Form() const {
  OptionForm form = shown_;
  if (controls_.FormatName != shown_.Name) form.Name = WithoutOuterBlanks(controls_.FormatName);
  form.StartLine = controls_.StartLine;
  form.Qualifier = controls_.Qualifier;
  form.Delimiters.clear();
  for (std::size_t box = 0; box < kDelimiterNames.size(); ++box) {
    if (!controls_.Delimiters[box]) continue;
    form.Delimiters += kDelimiterNames[box];
    if (static_cast<DelimiterBox>(box) != DelimiterBox::Other) form.Delimiters += ',';
  }
  if (controls_.Delimiter(DelimiterBox::Other)) form.OtherDelimiters = controls_.OtherDelimiters;
  form.PartKey = controls_.PartName == PartNameMode::NameOnly ? "Name" : "Path";
  form.TreatAsOne = controls_.TreatAsOne;
  form.Items = columns_.Items();
  return form;
}

bool FormatOptionModel::CheckName(std::string& complaint) const {
  const OptionForm form = Form();
  OptionForm other;
  if (form.Name.empty()) {
    complaint = "Please enter a format name.";
  } else if (form.Name != shown_.Name && form.Name.size() > kLongestFormatName) {
    complaint = "The format name is too long; it can have at most " + std::to_string(kLongestFormatName) +
                " characters.";
  } else if (HasControlCharacter(form.Name) || HasControlCharacter(form.OtherDelimiters)) {
    complaint = "The format name and the other delimiters cannot hold control characters.";
  } else if (form.Name != shown_.Name && FindFormat(*configuration_.Formats, form.Name, other)) {
    complaint = "There is a format " + Quoted(form.Name) +
                " already. Choose it in the list to change it, or enter another name.";
  } else {
    return true;
  }
  return false;
}

bool FormatOptionModel::StoreForm(std::string& complaint) {
  if (!CheckName(complaint)) return false;
  const OptionForm form = Form();
  return AddFormat(*configuration_.Formats, &form);
}

bool FormatOptionModel::Save(const FormatConfiguration& configuration, std::string& complaint) const {
  const XmlLoadScope scope;
  std::string reason;
  const bool isXml = SaveToFile(configuration, files_.configuration.c_str(), &reason);
  if (isXml && reason.empty()) return true;
  complaint = "The format file " + Quoted(files_.configuration) + " was not written";
  if (!reason.empty()) complaint += " (" + reason + ")";
  complaint += ".";
  return false;
}

bool FormatOptionModel::Ok(std::string& complaint) {
  const FormatConfiguration before = configuration_;
  if (!StoreForm(complaint)) return false;
  const std::string name = Form().Name;
  configuration_.Formats->CurrentFormat = name;
  DropUnwritableItems(*configuration_.Formats);
  if (!Save(configuration_, complaint)) {
    configuration_ = before;
    return false;
  }
  // Only now: a choice whose formats could not be saved is not kept either.
  WriteDefaultFormat(files_.settings,
                     default_.Confirmed(controls_.SetAsDefault, name, ReadDefaultFormat(files_.settings)));
  return true;
}

}  // namespace qv
