#include "cli/JsonWriter.h"
#include "cli/commands/Commands.h"
#include "cli/formats/FormatBuilder.h"
#include "cli/formats/FormatFile.h"
#include "cli/terminal/DisplayText.h"
#include "format/FormatColumns.h"
#include "guess/KeywordGuess.h"
#include "platform/CodePage.h"

#include <algorithm>
#include <charconv>

namespace qv {
namespace {

constexpr const char* kFormatsFooter = R"(
Without --config and QVASSEMBLY_CONFIG the format file is AssemblyFormats.xml in
the current folder.

Examples:
  qvassembly formats init --config AssemblyFormats.xml
  qvassembly formats add orders --start-line 1 --delimiters Comma \
      --columns PartName,Ignore,PartQuantity,MaterialType
  qvassembly formats add orders --from-headers orders.csv --kind parts
  qvassembly formats show orders --as json)";

struct FormatsOptions {
  std::optional<std::string> config;
  std::string as = "text";
  FormatWishes wishes;  // with the name, for all commands that take one
  std::string kind;
  std::optional<std::string> headersFile;
};

void WriteFormat(JsonWriter& json, const OptionForm& form) {
  json.BeginObject();
  json.Member("Name", ToUtf8(form.Name));
  json.Member("StartLine", form.StartLine);
  json.Member("Delimiters", ToUtf8(form.Delimiters));
  json.Member("OtherDelimiters", ToUtf8(form.OtherDelimiters));
  json.Member("Qualifier", form.Qualifier);
  json.Member("TreatAsOne", form.TreatAsOne);
  json.Member("PartKey", ToUtf8(form.PartKey));
  json.Key("Items").BeginArray();
  for (const FormatItem& item : form.Items) {
    json.BeginObject();
    json.Member("Name", ToUtf8(item.Name));
    json.Member("Order", ToUtf8(item.Order));
    json.EndObject();
  }
  json.EndArray();
  json.EndObject();
}

void WriteFormatList(JsonWriter& json, const FormatList& list) {
  json.BeginObject();
  json.Member("Current", ToUtf8(list.CurrentFormat));
  json.Key("Formats").BeginArray();
  for (const OptionForm& form : list.Formats) WriteFormat(json, form);
  json.EndArray();
  json.EndObject();
}

int ListFormats(Session& session, FormatsOptions& options) {
  const FormatFile formats(options.config, {}, session.diagnostics);
  if (options.as == "json") {
    session.Write(JsonLine([&](JsonWriter& json) { WriteFormatList(json, formats.List()); }));
    return kDone;
  }
  for (const OptionForm& form : formats.List().Formats) {
    const bool isCurrent = form.Name == formats.List().CurrentFormat;
    session.Write((isCurrent ? "* " : "  ") + Harmless(ToUtf8(form.Name)) + "\n");
  }
  return kDone;
}

std::string QualifierName(int qualifier) {
  constexpr const char* kNames[] = {"double quote", "single quote", "none"};
  return qualifier >= 0 && qualifier <= 2 ? kNames[qualifier] : std::to_string(qualifier);
}

std::string TreatAsOneText(const OptionForm& form, bool hasSavedFlag) {
  if (form.TreatAsOne) return "yes";
  return hasSavedFlag ? "no (the file says \"1\"; only \"true\" sets it)" : "no";
}

/// The names without the comma that files have after the last one.
std::string DelimitersOf(const OptionForm& form) {
  std::string names = ToUtf8(form.Delimiters);
  names.erase(names.find_last_not_of(',') + 1);
  return names;
}

std::string DescriptionOf(const OptionForm& form, bool hasSavedFlag) {
  const std::pair<const char*, std::string> lines[] = {
      {"Name:             ", ToUtf8(form.Name)},
      {"Start line:       ", std::to_string(form.StartLine)},
      {"Delimiters:       ", DelimitersOf(form)},
      {"Other delimiters: ", ToUtf8(form.OtherDelimiters)},
      {"Qualifier:        ", QualifierName(form.Qualifier)},
      {"Treat as one:     ", TreatAsOneText(form, hasSavedFlag)},
      {"Part key:         ", ToUtf8(form.PartKey)},
  };
  std::string text;
  for (const auto& [label, value] : lines) {
    text += label + Harmless(value);
    text.erase(text.find_last_not_of(' ') + 1);
    text += '\n';
  }
  text += "Columns:\n";
  for (const FormatColumn& column : ColumnsOf(form)) {
    const std::string position = std::to_string(column.position);
    text += std::string(6 - std::min<std::size_t>(position.size(), 5), ' ') + position + "  " +
            Harmless(ToUtf8(column.keyword)) + "\n";
  }
  return text;
}

int ShowFormat(Session& session, FormatsOptions& options) {
  const FormatFile formats(options.config, {}, session.diagnostics);
  const OptionForm& form = formats.Find(options.wishes.name);
  session.Write(options.as == "json" ? JsonLine([&](JsonWriter& json) { WriteFormat(json, form); })
                                     : DescriptionOf(form, formats.HasSavedFlag(form)));
  return kDone;
}

int InitFormats(Session& session, FormatsOptions& options) {
  FormatFile formats(options.config, {}, session.diagnostics, FormatFile::Use::Create);
  if (formats.IsFile())
    throw FileError(
        {formats.Path(), 0, "", "file-not-written", "", "the file is there already; it is left as it is"});
  formats.Save(session.diagnostics);
  return kDone;
}

void WarnOfUnknownColumns(Session& session, const FormatFile& formats, const FormatWishes& wishes,
                          std::span<const RecordType> kinds) {
  for (const std::string& column : SplitList(wishes.columns)) {
    const std::string keyword(KeywordOf(column));
    const auto isKnown = [&](const RecordType& kind) { return Knows(kind, FromUtf8(keyword)); };
    if (keyword == kIgnore || std::ranges::any_of(kinds, isKnown)) continue;
    const std::string who = kinds.size() == 1 ? "the kind " + std::string(kinds[0].name) : "no kind";
    session.diagnostics.Warn({formats.Path(), 0, column, DiagnosticCodeName(DiagnosticCode::UnknownColumn),
                              column,
                              who + " has " + (kinds.size() == 1 ? "no" : "a") + " column \"" + column +
                                  "\"; \"qvassembly keywords\" lists them"});
  }
}

/// The columns that a format got for the headings of a file, a line each.
void PrintMapping(Session& session, const FormatWishes& wishes, const std::vector<std::string>& headings) {
  const std::vector<std::string> columns = SplitList(wishes.columns);
  for (std::size_t index = 0; index < headings.size(); ++index)
    session.Write(Harmless(headings[index]) + " -> " +
                  (index < columns.size() ? columns[index] : std::string(kIgnore)) + "\n");
}

int AddFormatCommand(Session& session, FormatsOptions& options) {
  FormatWishes wishes = options.wishes;
  if (options.headersFile)
    KindForUse(options.kind, KindUse::Any);  // without a kind, no heading means a column
  const std::span<const RecordType> kinds = KindsFor(options.kind);
  std::vector<std::string> headings;
  if (options.headersFile) headings = CompleteFromHeaders(wishes, *options.headersFile, kinds[0], session);
  const OptionForm form = BuildFormat(wishes);
  FormatFile formats(options.config, {}, session.diagnostics, FormatFile::Use::Create);
  WarnOfUnknownColumns(session, formats, wishes, kinds);
  if (formats.IsFile() && formats.Lookup(form.Name) != nullptr)
    session.diagnostics.Note("qvassembly: the format \"" + ToUtf8(form.Name) + "\" of " + formats.Path() +
                             " is replaced");
  FormatList& list = formats.List();
  OptionForm current;
  // The built-in format has no columns, so a new file starts with the format that it is made for.
  if (!formats.IsFile() || !FindFormat(list, list.CurrentFormat, current)) list.CurrentFormat = form.Name;
  AddFormat(list, &form);
  formats.Save(session.diagnostics);
  PrintMapping(session, wishes, headings);
  return kDone;
}

/// Loads the file, which must be there, changes its list and saves it.
template <class Change>
int EditFormats(Session& session, const FormatsOptions& options, Change change) {
  FormatFile formats(options.config, {}, session.diagnostics, FormatFile::Use::Change);
  if (!formats.IsFile())
    throw FileError({formats.Path(), 0, "", "configuration-missing", "",
                     "there is no format file; \"qvassembly formats init\" makes one"});
  const std::string name = formats.Find(options.wishes.name).Name;
  change(formats.List(), name);
  formats.Save(session.diagnostics);
  return kDone;
}

int RemoveFormat(Session& session, FormatsOptions& options) {
  return EditFormats(session, options, [&](FormatList& list, const std::string& name) {
    std::erase_if(list.Formats, [&](const OptionForm& form) { return form.Name == name; });
    if (list.CurrentFormat != name || list.Formats.empty()) return;
    list.CurrentFormat = list.Formats.front().Name;
    session.diagnostics.Note("qvassembly: the current format is now \"" + ToUtf8(list.CurrentFormat) + "\"");
  });
}

int UseFormat(Session& session, FormatsOptions& options) {
  return EditFormats(session, options,
                     [](FormatList& list, const std::string& name) { list.CurrentFormat = name; });
}

void AddNameArgument(CLI::App& command, FormatsOptions& options) {
  AddArgument(command, "NAME", options.wishes.name, "the format");
}

void AddAsOption(CLI::App& command, FormatsOptions& options) {
  AddChoice(command, "--as", options.as, "FORM", {"text", "json"}, "text or json");
}

// Decimal, whatever it starts with: the parser would take 010 for eight.
int WholeNumber(const std::string& option, const std::string& text) {
  int number = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, trouble] = std::from_chars(text.data(), end, number);
  if (trouble != std::errc() || stop != end)
    throw CLI::ValidationError(option, "\"" + text + "\" is no whole number that a format can hold");
  return number;
}

void AddHeadersOptions(CLI::App& command, FormatsOptions& options) {
  AddOption(command, "--from-headers", options.headersFile, "FILE",
            "a data file: takes from it what the options below do not say, and prints which column "
            "each heading becomes");
  AddOption(command, "--kind", options.kind, "KIND",
            "whose columns they are: " + KindNames(KindUse::Any) + " (required with --from-headers)");
}

void AddWishOptions(CLI::App& command, FormatWishes& wishes) {
  command
      .add_option_function<std::string>(
          "--start-line",
          [&wishes](const std::string& text) { wishes.startLine = WholeNumber("--start-line", text); },
          "line of the header row (default: 2)")
      ->type_name("N");
  AddOption(command, "--delimiters", wishes.delimiters, "NAMES",
            "some of Tab,Semicolon,Comma,Space,Other (default: Tab,Comma)");
  AddOption(command, "--other", wishes.otherDelimiters, "CHARS", "further delimiter characters");
  AddOption(command, "--qualifier", wishes.qualifier, "WHICH", "double, single or none (default: double)");
  command.add_flag("--treat-as-one", wishes.treatAsOne, "consecutive delimiters count as one");
  AddOption(command, "--part-key", wishes.partKey, "KEY",
            "what identifies a part: Name or Path (default: Name)");
  AddOption(command, "--columns", wishes.columns, "KEYWORDS",
            "the column keywords in their order, Ignore for others");
  AddOption(command, "--set", wishes.settings, "KEYWORD=ORDER",
            "set one item's order text as it is; may be repeated")
      ->expected(1)
      ->take_all()
      ->allow_extra_args(false);  // with them, brackets would make a list of the text
}

}  // namespace

void AddFormatsCommand(CLI::App& program, Session& session) {
  CLI::App* const formats = program.add_subcommand("formats", "Show and change the formats of a format file");
  formats->require_subcommand(1);
  formats->fallthrough();
  formats->footer(kFormatsFooter);
  const auto options = std::make_shared<FormatsOptions>();
  AddConfigOption(*formats, options->config);
  const auto add = [&](const char* name, const char* what, auto action) -> CLI::App& {
    CLI::App& command = AddCommand(*formats, session, name, what, options, action);
    AddConfigOption(command, options->config);
    return command;
  };
  AddAsOption(add("list", "Print the names; a star marks the current format", ListFormats), *options);
  CLI::App& show = add("show", "Print one format with its columns", ShowFormat);
  AddNameArgument(show, *options);
  AddAsOption(show, *options);
  add("init", "Make a format file with the built-in format", InitFormats);
  CLI::App& addition = add("add", "Make or replace a format", AddFormatCommand);
  AddNameArgument(addition, *options);
  AddHeadersOptions(addition, *options);
  AddWishOptions(addition, options->wishes);
  AddNameArgument(add("remove", "Take a format out", RemoveFormat), *options);
  AddNameArgument(add("use", "Make a format the current one", UseFormat), *options);
}

}  // namespace qv
