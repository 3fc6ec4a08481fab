#include "cli/DataFile.h"

#include <CLI/CLI.hpp>

#include <memory>

namespace qv {
namespace {

constexpr const char* kConvertFooter = R"(
Texts are copied byte by byte, whatever they encode.

Examples:
  qvassembly convert --kind parts --from orders --to laser-list parts.csv list.txt
  qvassembly convert --kind tools --to tools tools.txt tools.csv)";

struct ConvertOptions {
  FileOptions in;  // with the kind and the configuration of both
  std::optional<std::string> outFormat;
  std::string out;
};

int RunConvert(Session& session, const ConvertOptions& options) {
  const FileOptions& in = options.in;
  const RecordKind kind = KindForUse(in.kind, KindUse::Convert);
  const FormatFile formats(in.config, {in.file, options.out}, session.remarks);
  const OptionForm& from = formats.FindFor(in.format, in.file, session);
  const OptionForm& to = formats.FindFor(options.outFormat, options.out, session);
  ConvertFile(session, {in.file, kind, formats, from}, {options.out, kind, formats, to});
  return kDone;
}

}  // namespace

void AddConvertCommand(CLI::App& program, Session& session) {
  CLI::App* const command =
      program.add_subcommand("convert", "Write a data file's records in another format");
  const auto options = std::make_shared<ConvertOptions>();
  AddKindOption(*command, options->in, KindNames(KindUse::Convert));
  AddConfigOption(*command, options->in.config);
  command
      ->add_option("--from", options->in.format,
                   "the format of IN (default: the one it names, else the current one)")
      ->type_name("NAME");
  command
      ->add_option("--to", options->outFormat,
                   "the format of OUT (default: the one it names if it is there, else the current one)")
      ->type_name("NAME");
  AddFileArgument(*command, options->in, "IN", "the data file that is read");
  command->add_option("OUT", options->out, "the data file that is written")->required()->type_name("");
  command->footer(kConvertFooter);
  command->callback([&session, options] {
    session.command = [&session, options] { return RunConvert(session, *options); };
  });
}

}  // namespace qv
