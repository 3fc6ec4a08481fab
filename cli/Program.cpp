#include "cli/Program.h"

#include "cli/Errors.h"
#include "cli/commands/Commands.h"

#include <algorithm>
#include <ostream>

namespace qv {
namespace {

constexpr const char* kProgramFooter = R"(
Examples:
  qvassembly import --kind parts --as table parts.csv
  qvassembly convert --kind parts --from orders --to laser-list parts.csv list.txt
  qvassembly check --kind tools tools.txt
  qvassembly formats list --config AssemblyFormats.xml

The format file is the one that --config names, else the one that the variable
QVASSEMBLY_CONFIG names, else AssemblyFormats.xml beside the data file (of two
files: beside the one that is read, then beside the one that is written), else
the one in the current folder.

Exit codes: 0 done; 1 done with warnings, under --strict or check; 2 the command
line is wrong; 3 a file could not be read or written.)";

struct CommonOptions {
  std::string diagnostics = "text";
  std::string encoding;
};

void AddCommonOptions(CLI::App& program, CommonOptions& options, DiagnosticStyle& style) {
  AddChoice(program, "--diagnostics", options.diagnostics, "FORM", {"text", "json"},
            "how warnings are written: text or json");
  AddOption(program, "--encoding", options.encoding, "NAME",
            "encoding of the texts in data files (default: the system's code page)");
  program.add_flag("--strict", style.isStrict, "end with 1 when there was a warning, and write no file then");
  program.add_flag("--all-remarks", style.showsAll,
                   "print all remarks, not only the first ten of each code and column");
}

void AddCommands(CLI::App& program, Session& session) {
  for (const auto add :
       {AddImportCommand, AddExportCommand, AddConvertCommand, AddHeadersCommand, AddCheckCommand,
        AddFormatsCommand, AddKeywordsCommand, AddFormatNameCommand, AddOptionsCommand})
    add(program, session);
}

// The options of all commands are on the program's own page; each command's page points there.
void PointToCommonOptions(CLI::App& command) {
  for (CLI::App* const sub : command.get_subcommands(nullptr)) {
    sub->footer(
        "\nCommon options (see \"qvassembly --help\"): --diagnostics, --encoding, "
        "--strict,\n--all-remarks\n" +
        sub->get_footer());
    PointToCommonOptions(*sub);
  }
}

/// The command that was asked for, or the deepest one that was reached.
const CLI::App& ReachedCommand(const CLI::App& program) {
  const auto reached = program.get_subcommands();
  return reached.empty() ? program : ReachedCommand(*reached.front());
}

std::string FullName(const CLI::App& command) {
  const CLI::App* const parent = command.get_parent();
  return parent == nullptr ? "qvassembly" : FullName(*parent) + " " + command.get_name();
}

// Diagnostics go out as they come, but a wrong command line may have been found before --diagnostics was.
bool WantsJson(const std::vector<std::string>& arguments) {
  const auto option = std::find(arguments.begin(), arguments.end(), "--diagnostics");
  return (option != arguments.end() && option + 1 != arguments.end() && option[1] == "json") ||
         std::find(arguments.begin(), arguments.end(), "--diagnostics=json") != arguments.end();
}

bool IsOption(const std::string& argument) { return argument.size() > 1 && argument.front() == '-'; }

// The parser takes the next argument for the value when nothing follows the equals sign.
std::vector<std::string> WithEmptyValues(const std::vector<std::string>& arguments) {
  std::vector<std::string> apart;
  bool mayBeOption = true;
  for (const std::string& argument : arguments) {
    mayBeOption = mayBeOption && argument != "--";
    const bool isEmpty =
        mayBeOption && argument.starts_with("--") && argument.find('=') == argument.size() - 1;
    apart.push_back(isEmpty ? argument.substr(0, argument.size() - 1) : argument);
    if (isEmpty) apart.emplace_back();
  }
  return apart;
}

/// The commands below this one: "list, show, …"; empty when it is complete.
std::string Choices(const CLI::App& command) {
  std::string names;
  if (command.get_require_subcommand_min() > 0)
    for (const CLI::App* const sub : command.get_subcommands(nullptr))
      names.append(names.empty() ? "" : ", ").append(sub->get_name());
  return names;
}

// The parser tells of what is missing first, though that mostly comes from what is there and wrong.
std::string WhatIsWrong(const CLI::App& program, const CLI::ParseError& error) {
  const bool isAboutArguments = dynamic_cast<const CLI::RequiredError*>(&error) != nullptr ||
                                dynamic_cast<const CLI::ExtrasError*>(&error) != nullptr;
  if (!isAboutArguments) return error.what();
  const CLI::App& command = ReachedCommand(program);
  const std::string choices = Choices(command);
  std::vector<std::string> unknown = program.remaining(true);
  std::erase(unknown, "--");
  if (unknown.empty())
    return choices.empty() ? error.what() : "a command is missing; it is one of " + choices;
  const std::string& first = unknown.front();
  if (IsOption(first)) {
    const std::string name = first.substr(0, first.find('='));
    const bool isTooEarly = command.get_option_no_throw(name) != nullptr;
    return isTooEarly ? name + " must come after \"" + FullName(command) + "\""
                      : "\"" + FullName(command) + "\" has no option " + name;
  }
  if (choices.empty()) return "unexpected argument \"" + first + "\"";
  return "\"" + first + "\" is no command; it is one of " + choices;
}

int TellUsage(Session& session, const CLI::App& program, const std::string& what) {
  session.diagnostics.Fail({"", 0, "", "command-line", "", what});
  if (!session.diagnostics.style.isJson)
    session.streams.error << "Run \"" << FullName(ReachedCommand(program)) << " --help\" for its options.\n";
  return kWrongUsage;
}

int RunCommand(Session& session, const CommonOptions& options) {
  if (!options.encoding.empty()) session.coding = TextCoding(options.encoding);
  const int code = session.command();
  const bool isWarned = session.diagnostics.style.isStrict && session.diagnostics.Warnings() > 0;
  return code == kDone && isWarned ? kWarned : code;
}

int Run(CLI::App& program, const std::vector<std::string>& arguments, Session& session,
        const CommonOptions& options) {
  try {
    // The parser takes its arguments from the back.
    const std::vector<std::string> apart = WithEmptyValues(arguments);
    program.parse(std::vector<std::string>(apart.rbegin(), apart.rend() - 1));
    return RunCommand(session, options);
  } catch (const CLI::Success& help) {
    program.exit(help, session.streams.out, session.streams.error);
    return kDone;
  } catch (const CLI::ParseError& error) {
    return TellUsage(session, program, WhatIsWrong(program, error));
  } catch (const UsageError& error) {
    return TellUsage(session, program, error.what());
  } catch (const FileError& error) {
    session.diagnostics.Fail(error.diagnostic);
  } catch (const ReportedFileError&) {
  }
  return kFileTrouble;
}

bool Fits(RecordKind kind, KindUse use) {
  if (use == KindUse::Any) return true;
  const bool isRead = use == KindUse::Export || IsImported(kind);
  const bool isWritten = use == KindUse::Import || IsExported(kind);
  return isRead && isWritten;
}

}  // namespace

std::string KindNames(KindUse use) {
  std::string names;
  for (std::size_t index = 0; index < kRecordKindCount; ++index)
    if (const auto kind = static_cast<RecordKind>(index); Fits(kind, use))
      names.append(names.empty() ? "" : ", ").append(RecordTypeOf(kind).name);
  return names;
}

RecordKind KindForUse(const std::string& name, KindUse use) {
  const std::string choice = "; the kind is one of " + KindNames(use);
  if (name.empty()) throw UsageError("--kind is missing" + choice);
  const auto found = std::ranges::find(RecordTypes(), name, &RecordType::name);
  if (found == RecordTypes().end()) throw UsageError("--kind " + name + ": there is no such kind" + choice);
  const auto kind = static_cast<RecordKind>(found - RecordTypes().begin());
  if (Fits(kind, use)) return kind;
  throw UsageError("--kind " + name + ": this kind is only ever " + (IsImported(kind) ? "read" : "written") +
                   choice);
}

std::span<const RecordType> KindsFor(const std::string& name) {
  if (name.empty()) return RecordTypes();
  return {&RecordTypeOf(KindForUse(name, KindUse::Any)), 1};
}

void Session::Write(std::string_view text) {
  if (streams.outIsTerminal) progress.Stop();
  streams.out.write(text.data(), static_cast<std::streamsize>(text.size()));
  if (!streams.out) throw ReportedFileError();  // as it is when the program ends
}

void TakeStreams(Session& session, const std::optional<std::string>& type, std::string* read,
                 std::string* written) {
  const auto isStream = [](const std::string* file) { return file != nullptr && *file == "-"; };
  if (!isStream(read) && !isStream(written)) {
    if (type) throw UsageError("--type is for a file that is -; others tell their type by their names");
    return;
  }
  if (!type) throw UsageError("a file that is - needs --type csv or --type txt, which tells what it holds");
  session.standardStreams = WithStandardStreams(session.streams, session.diagnostics.style.isStrict);
  if (isStream(read)) *read = PathOfStream(StandardStream::Input, *type);
  if (!isStream(written)) return;
  *written = PathOfStream(StandardStream::Output, *type);
  if (session.streams.outIsTerminal) session.progress.Stop();
}

int RunProgram(const std::vector<std::string>& arguments, const Streams& streams) {
  Session session(streams);
  session.diagnostics.style.isJson = WantsJson(arguments);
  CLI::App program("Reads and writes sheet-metal job data as tables.", "qvassembly");
  program.set_version_flag("--version", std::string("qvassembly ") + QVASSEMBLY_VERSION);
  program.footer(kProgramFooter);
  program.require_subcommand(1);
  program.fallthrough();
  program.allow_windows_style_options(false);  // what starts with a slash is a path, on every platform
  CommonOptions options;
  AddCommonOptions(program, options, session.diagnostics.style);
  AddCommands(program, session);
  PointToCommonOptions(program);
  const int code = Run(program, arguments, session, options);
  session.diagnostics.PrintOmitted();
  session.progress.Clear();
  streams.out.flush();
  if (streams.out || session.diagnostics.HasFailed()) return code;
  session.diagnostics.Fail(
      {"", 0, "", "file-not-written", "", "standard output does not take what is written to it"});
  return kFileTrouble;
}

}  // namespace qv
