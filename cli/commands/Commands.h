#pragma once

#include "cli/Session.h"
#include "engines/columns/RecordFields.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace qv {

/// What is asked of a kind.
enum class KindUse { Import, Export, Convert, Any };

/// The kind by its name. Throws UsageError for an unknown name, and for a kind that cannot be used so.
RecordKind KindForUse(const std::string& name, KindUse use);

/// The names of all kinds that can be used so: "parts, tools, …".
std::string KindNames(KindUse use);

/// The kind of that name, or all kinds where none is named.
std::span<const RecordType> KindsFor(const std::string& name);

/// The options that most commands have.
struct FileOptions {
  std::string kind;
  std::optional<std::string> config;
  std::optional<std::string> format;
  std::optional<std::string> type;
  std::string file;
  bool hasDecimalComma = false;
};

/// An option with a value, which the help calls `type`.
template <class Value>
CLI::Option* AddOption(CLI::App& command, const std::string& name, Value& value, const std::string& type,
                       const std::string& what) {
  return command.add_option(name, value, what)->type_name(type);
}

/// An option whose value is one of these words.
template <class Value>
void AddChoice(CLI::App& command, const std::string& name, Value& value, const std::string& type,
               const std::vector<std::string>& words, const std::string& what) {
  AddOption(command, name, value, type, what)->check(CLI::IsMember(words));
}

/// A positional argument, which must be there.
inline void AddArgument(CLI::App& command, const std::string& name, std::string& value,
                        const std::string& what) {
  AddOption(command, name, value, "", what)->required();
}

inline void AddKindOption(CLI::App& command, FileOptions& options, KindUse use) {
  AddOption(command, "--kind", options.kind, "KIND",
            "what the file lists: " + KindNames(use) + " (required)");
}

inline void AddConfigOption(CLI::App& command, std::optional<std::string>& config) {
  AddOption(command, "--config", config, "FILE", "the format file");
}

inline void AddFormatOptions(CLI::App& command, FileOptions& options) {
  AddConfigOption(command, options.config);
  AddOption(command, "--format", options.format, "NAME",
            "the file's format (default: the one the file names, else the current one)");
}

inline void AddTypeOption(CLI::App& command, std::optional<std::string>& type) {
  AddChoice(command, "--type", type, "TYPE", {"csv", "txt"}, "csv or txt: what a file that is - holds");
}

/// Of commands that read data files, and of those that write them.
inline void AddDecimalCommaOption(CLI::App& command, bool& hasDecimalComma) {
  command.add_flag("--decimal-comma", hasDecimalComma,
                   "numbers that are read have a decimal comma: 1,5 or 1.234,5");
}
inline void AddToDecimalCommaOption(CLI::App& command, bool& hasDecimalComma) {
  command.add_flag("--to-decimal-comma", hasDecimalComma, "numbers that are written get a decimal comma");
}

/// Adds a command that does its work after the whole command line has been read; `run` returns an exit code.
template <class Options>
CLI::App& AddCommand(CLI::App& parent, Session& session, const std::string& name, const std::string& what,
                     const std::shared_ptr<Options>& options,
                     int (*run)(Session& session, Options& options)) {
  CLI::App& command = *parent.add_subcommand(name, what);
  command.callback([&session, options, run] {
    session.command = [&session, options, run] { return run(session, *options); };
  });
  return command;
}

/// Each adds one command to the program.
void AddImportCommand(CLI::App& program, Session& session);
void AddExportCommand(CLI::App& program, Session& session);
void AddConvertCommand(CLI::App& program, Session& session);
void AddHeadersCommand(CLI::App& program, Session& session);
void AddCheckCommand(CLI::App& program, Session& session);
void AddFormatsCommand(CLI::App& program, Session& session);
void AddKeywordsCommand(CLI::App& program, Session& session);
void AddFormatNameCommand(CLI::App& program, Session& session);
void AddOptionsCommand(CLI::App& program, Session& session);

}  // namespace qv
