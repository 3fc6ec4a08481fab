#include "cli/formats/FormatBuilder.h"

#include "cli/DataFile.h"
#include "cli/Errors.h"
#include "cli/check/EncodingGuess.h"
#include "cli/check/Suggestions.h"
#include "dialogs/model/FormatOptionModel.h"
#include "format/FormatColumns.h"
#include "format/FormatConfiguration.h"
#include "guess/Headings.h"
#include "guess/LayoutGuess.h"
#include "manager/FileStart.h"
#include "platform/CodePage.h"
#include "platform/ConsoleProgram.h"
#include "text/Utf8.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <set>
#include <sstream>
#include <string_view>

namespace qv {

std::vector<std::string> SplitList(const std::string& list) {
  std::vector<std::string> entries;
  std::istringstream text(list);
  for (std::string entry; std::getline(text, entry, ',');) entries.push_back(entry);
  return entries;
}

namespace {

constexpr std::array<std::string_view, kQualifierCount> kQualifiers = {"double", "single", "none"};

template <class Names>
std::size_t IndexOf(const Names& names, const std::string& name, const std::string& option) {
  const auto found = std::find(names.begin(), names.end(), name);
  if (found != names.end()) return static_cast<std::size_t>(found - names.begin());
  std::string all;
  for (const auto& known : names) all.append(all.empty() ? "" : ", ").append(known);
  throw UsageError(option + ": there is no \"" + name + "\"; it is one of " + all);
}

std::string ItemName(const std::string& keyword) { return std::string(ItemNameOf(FromUtf8(keyword))); }

// An item is an element of the format file, named after its keyword.
void CheckKeyword(const std::string& keyword) {
  if (FindXmlRefusal({ItemName(keyword), {}, {}}))
    throw UsageError("\"" + keyword + "\" is no keyword that a format file can hold");
}

OptionControls ControlsFor(const FormatWishes& wishes) {
  OptionControls controls;
  controls.FormatName = FromUtf8(wishes.name);
  controls.StartLine = wishes.startLine.value_or(2);
  controls.Qualifier =
      static_cast<int>(IndexOf(kQualifiers, wishes.qualifier.value_or("double"), "--qualifier"));
  controls.Delimiters = {};
  for (const std::string& name : SplitList(wishes.delimiters.value_or("Tab,Comma")))
    controls.Delimiters[IndexOf(kDelimiterNames, name, "--delimiters")] = true;
  if (!wishes.otherDelimiters.empty()) controls.Ticked(Delimiter::Other) = true;
  if (controls.Ticked(Delimiter::Other) && wishes.otherDelimiters.empty())
    throw UsageError("--delimiters Other needs --other with the characters");
  controls.OtherDelimiters = FromUtf8(wishes.otherDelimiters);
  constexpr std::array<std::string_view, 2> kPartKeys = {"Name", "Path"};
  controls.PartName = static_cast<PartNameMode>(IndexOf(kPartKeys, wishes.partKey, "--part-key"));
  controls.TreatAsOne = wishes.treatAsOne;
  return controls;
}

std::vector<std::string> CheckedColumns(const std::string& list) {
  std::vector<std::string> columns;
  std::set<std::string> seen;
  for (const std::string& column : SplitList(list)) {
    CheckKeyword(column);
    const std::string name = ItemName(column);
    if (name != kIgnore && !seen.insert(name).second)
      throw UsageError("--columns: \"" + column + "\" is there twice; only Ignore may be");
    columns.push_back(name);
  }
  return columns;
}

FormatItem& ItemOf(OptionForm& form, const std::string& name) {
  const auto found = std::ranges::find(form.Items, name, &FormatItem::Name);
  return found != form.Items.end() ? *found : form.Items.emplace_back(FormatItem{name, std::string(kAbsent)});
}

void PlaceHiddenColumns(OptionForm& form, const std::vector<std::string>& columns) {
  std::string ignored;
  for (std::size_t position = 0; position < columns.size(); ++position) {
    if (columns[position] == kIgnore) ignored += std::to_string(position) + ",";
    if (!IsShownName(columns[position])) ItemOf(form, columns[position]).Order = std::to_string(position);
  }
  ItemOf(form, std::string(kIgnore)).Order = ignored.empty() ? kAbsent : ignored;
}

// The dialog never offers two of the keywords: they are ignored columns there and get their place afterwards.
void AddToSequence(FormatOptionModel& model, const std::string& column) {
  const auto& plan = model.Columns().PlanItems();
  const auto found = std::ranges::find(plan, IsShownName(column) ? KeywordOf(column) : kIgnore);
  model.Add({static_cast<std::size_t>(found - plan.begin())});
}

void ApplySetting(OptionForm& form, const std::string& setting) {
  const std::size_t equals = setting.find('=');
  if (equals == std::string::npos || equals == 0)
    throw UsageError("--set " + setting + ": this is not KEYWORD=ORDER");
  const std::string keyword = setting.substr(0, equals);
  CheckKeyword(keyword);
  ItemOf(form, ItemName(keyword)).Order = FromUtf8(setting.substr(equals + 1));
}

}  // namespace

OptionForm BuildFormat(const FormatWishes& wishes) {
  const std::vector<std::string> columns = CheckedColumns(wishes.columns);
  OptionForm start;
  CompleteWithKeywords(start);
  for (const std::string& column : columns) ItemOf(start, column);

  FormatOptionModel model(FormatOptionFiles{});
  model.ShowForm(start);
  model.Controls() = ControlsFor(wishes);
  std::string complaint;
  if (!model.StoreForm(complaint)) throw UsageError(ToUtf8(complaint));
  for (const std::string& column : columns) AddToSequence(model, column);
  OptionForm form = model.Form();
  PlaceHiddenColumns(form, columns);
  for (const std::string& setting : wishes.settings) ApplySetting(form, setting);
  CompleteWithKeywords(form);
  // What XML cannot hold is found here, before any file is looked at.
  if (const std::string why = WhyNotXml({"", {form}}); !why.empty()) throw UsageError(ToUtf8(why));
  return form;
}

namespace {

/// The start of the file in UTF-8, by the encoding that it surely is of where that is another; that is told.
std::string StartOf(const DataStart& start, Session& session) {
  std::string_view bytes = start.Bytes();
  if (bytes.starts_with(kUtf8Mark)) bytes.remove_prefix(kUtf8Mark.size());
  std::string text = session.coding.Decode(bytes);
  const EncodingGuess guess =
      IsAscii(bytes) ? EncodingGuess() : GuessEncoding(SampleLines(bytes, true), session.coding);
  if (!guess.isSure) return text;
  session.diagnostics.Advise(
      {start.File(), 0, "", "suggest-encoding", "",
       "the texts are of another encoding; read the file with --encoding " + guess.names.front()});
  return TextCoding(guess.names.front()).Decode(bytes);
}

void TakeDelimiter(FormatWishes& wishes, char delimiter) {
  if (delimiter == '\0') return;
  const std::size_t known = kDelimiterCharacters.find(delimiter);
  const bool isOther = known == kDelimiterCharacters.npos;
  wishes.delimiters = kDelimiterNames[isOther ? static_cast<std::size_t>(Delimiter::Other) : known];
  if (isOther) wishes.otherDelimiters = delimiter;
}

/// The headings of a text file, after its layout has been found as far as the user does not give it.
std::vector<std::string> TextHeadings(FormatWishes& wishes, const Utf8Path& file, const RecordType& type,
                                      Session& session) {
  const DataStart start(file);
  if (const auto shape = OtherShapeOf(start)) throw FileError(*shape);
  const std::string text = StartOf(start, session);
  const auto lines = SampleLines(text, start.Bytes().size() < DataStart::kSize);
  const LayoutProposal found = ProposeLayout(lines, type);
  const bool isGiven = wishes.delimiters || !wishes.otherDelimiters.empty() || wishes.qualifier ||
                       wishes.startLine || wishes.treatAsOne;
  if (IsCsv(file) && !isGiven && found.delimiter != ',' && found.delimiter != '\0')
    session.diagnostics.Advise(
        {file, 0, "", "suggest-delimiter", "",
         "the columns are not separated by commas, but a .csv file always is; name the "
         "file .txt"});
  if (!wishes.delimiters && wishes.otherDelimiters.empty()) TakeDelimiter(wishes, found.delimiter);
  if (!wishes.qualifier)
    wishes.qualifier = found.qualifier == '"' ? "double" : found.qualifier == '\0' ? "none" : "single";
  if (!wishes.startLine) wishes.startLine = static_cast<int>(found.headerLine);
  if (!isGiven) return found.headings;
  const auto header = static_cast<std::size_t>(std::max(*wishes.startLine, 1)) - 1;
  FormatWishes layout = wishes;
  layout.settings.clear();
  if (header >= lines.size()) return {};
  return PlainFields(lines[header], LayoutOf(BuildFormat(layout), false));
}

std::vector<std::string> SheetHeadings(FormatWishes& wishes, const Utf8Path& file, Session& session) {
  if (!wishes.startLine) wishes.startLine = 1;
  const auto headings = ReadHeaders(BuildFormat(wishes), PathFromUtf8(file).c_str());
  if (session.diagnostics.HasFailed()) throw ReportedFileError();
  return DecodedHeaders(session, headings);
}

/// Keeps a proposed column out of the way of one that the user sets: "KEYWORD=ORDER".
void GiveWayTo(const std::string& setting, std::vector<std::string>& columns) {
  const std::size_t equals = std::min(setting.find('='), setting.size() - 1);
  const std::string keyword = setting.substr(0, equals);
  for (std::string& column : columns)
    if (ItemNameOf(column) == ItemNameOf(keyword)) column = kIgnore;
  std::size_t position = columns.size();
  std::from_chars(setting.data() + equals + 1, setting.data() + setting.size(), position);
  if (position < columns.size()) columns[position] = keyword;
}

}  // namespace

std::vector<std::string> CompleteFromHeaders(FormatWishes& wishes, const Utf8Path& file,
                                             const RecordType& type, Session& session) {
  std::vector<std::string> headings =
      IsWorkbook(file) ? SheetHeadings(wishes, file, session) : TextHeadings(wishes, file, type, session);
  if (headings.empty())
    throw FileError({file, wishes.startLine.value_or(0), "", DiagnosticCodeName(DiagnosticCode::NoHeaderRow),
                     "", "there is no header row"});
  if (wishes.columns.empty()) {
    std::vector<std::string> columns = ProposeColumns(type, headings);
    for (const std::string& setting : wishes.settings) GiveWayTo(setting, columns);
    for (const std::string& column : columns)
      wishes.columns.append(wishes.columns.empty() ? "" : ",").append(column);
  }
  return headings;
}

}  // namespace qv
