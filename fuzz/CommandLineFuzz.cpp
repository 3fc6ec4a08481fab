#include "cli/Program.h"
#include "fuzz/ByteSource.h"
#include "support/FakeFileSystem.h"

#include <iterator>
#include <sstream>
#include <string>
#include <vector>

// Command lines of real words and any texts, on files in memory: the exit code is one of those that are
// promised, a failure says why, and a data file that is only read stays as it was.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

constexpr const char* kCommands[] = {"import",  "export",   "convert",     "headers", "check",
                                     "formats", "keywords", "format-name", "--help",  "--version"};
constexpr const char* kWords[] = {"--kind",
                                  "parts",
                                  "tools",
                                  "materials",
                                  "part-programs",
                                  "material-inventory",
                                  "job-progress",
                                  "--format",
                                  "orders",
                                  "--config",
                                  "f.xml",
                                  "--as",
                                  "json",
                                  "jsonl",
                                  "table",
                                  "--from",
                                  "--to",
                                  "--strict",
                                  "--diagnostics",
                                  "json",
                                  "--encoding",
                                  "utf-8",
                                  "windows-1252",
                                  "--to-encoding",
                                  "--records",
                                  "r.json",
                                  "list",
                                  "show",
                                  "add",
                                  "remove",
                                  "use",
                                  "init",
                                  "set",
                                  "get",
                                  "--columns",
                                  "PartName,PartQuantity",
                                  "--from-headers",
                                  "--start-line",
                                  "2",
                                  "--delimiters",
                                  "Comma",
                                  "Semicolon",
                                  "--qualifier",
                                  "--other",
                                  "|",
                                  "--part-key",
                                  "--treat-as-one",
                                  "--set",
                                  "Line=3",
                                  "--decimal-comma",
                                  "--to-decimal-comma",
                                  "--rejects",
                                  "out.csv",
                                  "--all-remarks",
                                  "--type",
                                  "csv",
                                  "txt",
                                  "-",
                                  "--",
                                  "a.csv",
                                  "b.txt",
                                  "missing.csv",
                                  "f.xml",
                                  "--help"};

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  ByteSource source(data, size);
  FakeFileSystem files;
  files.Contents["f.xml"] =
      "<CSVOptionSetting Current=\"orders\"><OptionForm Name=\"orders\" Line=\"1\" Delimiters=\"Comma\" "
      "Qualifier=\"0\"><PartName Order=\"0\"/><PartQuantity Order=\"1\"/></OptionForm></CSVOptionSetting>";
  std::vector<std::string> arguments = {"qvassembly", kCommands[source.Below(std::size(kCommands))]};
  for (unsigned count = source.Below(10); count > 0; --count) {
    const unsigned word = source.Byte();
    arguments.push_back(word < 240 ? kWords[word % std::size(kWords)] : source.Text());
  }
  files.Contents["a.csv"] = source.Text();
  files.Contents["b.txt"] = source.Text();
  files.Contents["r.json"] = source.Text();
  if (source.Below(8) == 0) files.FailAt(static_cast<int>(source.Byte()));
  const bool writes = arguments[1] == "export" || arguments[1] == "convert" || arguments[1] == "format-name";
  const auto before = files.Contents;

  std::istringstream in(source.Rest());
  std::ostringstream out, error;
  const int code = qv::RunProgram(arguments, {in, out, error});
  Require(code >= 0 && code <= 3);
  Require(code < 2 || !error.str().empty());
  for (const char* name : {"a.csv", "b.txt", "r.json"})
    Require(writes || files.Contents[name] == before.at(name));
  for (const auto& [name, content] : files.Contents) Require(!name.ends_with(".working"));
  return 0;
}
