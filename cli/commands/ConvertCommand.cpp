#include "cli/DataFile.h"
#include "cli/commands/Commands.h"
#include "text/Utf8.h"

namespace qv {
namespace {

constexpr const char* kConvertFooter = R"(
Without --to-encoding texts are copied byte by byte, whatever they encode.

Examples:
  qvassembly convert --kind parts --from orders --to laser-list parts.csv list.txt
  qvassembly convert --kind tools --to tools tools.txt tools.csv
  qvassembly convert --kind parts --encoding windows-1252 --to-encoding utf-8 \
      --from erp --to orders erp.txt parts.csv
  zcat parts.csv.gz |
    qvassembly convert --kind parts --type csv --to laser-list - list.txt)";

struct ConvertOptions {
  FileOptions in;  // with the kind and the configuration of both
  std::optional<std::string> outFormat;
  std::string out;
  std::string toEncoding;
  bool toDecimalComma = false;
};

/// Writes the texts of records anew in another encoding.
class Recoder {
 public:
  Recoder(Session& session, const Utf8Path& file, const std::string& toEncoding)
      : session_(session), file_(file), to_(toEncoding, "--to-encoding") {}

  /// `line` is where the record comes from.
  void Recode(void* record, const RecordType& type, std::int64_t line) {
    for (const RecordField& field : type.fields) {
      if (field.type == FieldType::Text) RecodeText(record, field, line);
      if (field.type != FieldType::List) continue;
      for (std::size_t index = 0; index < field.count(record); ++index)
        Recode(field.element(record, index), *field.elements, line);
    }
  }

 private:
  void RecodeText(void* record, const RecordField& field, std::int64_t line) {
    const std::string old(std::get<std::string_view>(field.get(record)));
    if (IsAscii(old)) return;
    const std::string text = session_.coding.Decode(old);
    std::string buffer;
    const std::string_view bytes = to_.Encode(text, buffer);
    field.set(record, bytes);
    const auto warn = [&](const char* code, const std::string& message) {
      session_.diagnostics.Warn({file_, line, std::string(field.columns[0].keyword), code, text, message});
    };
    if (text.find(kReplacementCharacter) != text.npos && old.find(kReplacementCharacter) == old.npos)
      warn("character-lost", "the text holds bytes that are not " + session_.coding.Name());
    else if (to_.Decode(bytes) != text)
      warn("character-lost",
           "the text holds characters that " + to_.Name() + " does not have; \"?\" replaces them");
    if (field.capacity != 0 && bytes.size() > field.capacity)
      warn(DiagnosticCodeName(DiagnosticCode::TextCut), "the text is longer than the field in " + to_.Name() +
                                                            "; its first " + std::to_string(field.capacity) +
                                                            " bytes are kept");
  }

  Session& session_;
  const Utf8Path& file_;
  const TextCoding to_;
};

int RunConvert(Session& session, ConvertOptions& options) {
  FileOptions& in = options.in;
  TakeStreams(session, in.type, &in.file, &options.out);
  const RecordKind kind = KindForUse(in.kind, KindUse::Convert);
  std::optional<Recoder> recoder;
  if (!options.toEncoding.empty()) recoder.emplace(session, in.file, options.toEncoding);
  const FormatFile formats(in.config, {in.file, options.out}, session.diagnostics);
  const OptionForm& from = formats.FindFor(in.format, in.file, session);
  const OptionForm& to = formats.FindFor(options.outFormat, options.out, session);
  OutputFile target(session, {options.out, kind, formats, to, options.toDecimalComma});
  InputFile source(session, {in.file, kind, formats, from, in.hasDecimalComma});
  while (void* const record = source.Next()) {
    if (recoder) recoder->Recode(record, RecordTypeOf(kind), source.LineNumber());
    target.Put(record);
  }
  target.Commit();
  return kDone;
}

}  // namespace

void AddConvertCommand(CLI::App& program, Session& session) {
  const auto options = std::make_shared<ConvertOptions>();
  CLI::App& command = AddCommand(program, session, "convert", "Write a data file's records in another format",
                                 options, RunConvert);
  AddKindOption(command, options->in, KindUse::Convert);
  AddConfigOption(command, options->in.config);
  AddOption(command, "--from", options->in.format, "NAME",
            "the format of IN (default: the one it names, else the current one)");
  AddOption(command, "--to", options->outFormat, "NAME",
            "the format of OUT (default: the one it names if it is there, else the current one)");
  AddDecimalCommaOption(command, options->in.hasDecimalComma);
  AddToDecimalCommaOption(command, options->toDecimalComma);
  AddOption(command, "--to-encoding", options->toEncoding, "NAME",
            "encoding of the texts in OUT (default: the bytes that IN has)");
  AddTypeOption(command, options->in.type);
  AddArgument(command, "IN", options->in.file, "the data file that is read; - for standard input");
  AddArgument(command, "OUT", options->out, "the data file that is written; - for standard output");
  command.footer(kConvertFooter);
}

}  // namespace qv
