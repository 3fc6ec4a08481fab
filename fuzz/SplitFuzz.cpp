#include "engines/text/CTxtAssembly.h"
#include "fuzz/ByteSource.h"
#include "support/ReferenceSplitter.h"

// Any line under any rules splits as the plain walk over its characters says, kept whole or in part.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

constexpr const char* kNames[] = {"",      "Comma", "Tab,Comma",      "Semicolon,",
                                  "Space", "Other", "Tab,Space,Other"};
constexpr const char* kCharacters[] = {"", ",", "\t,", ";", " ", "", "\t "};

void CheckViews(const CTxtAssembly& engine, const std::string& line, const std::vector<std::string>& expected,
                std::size_t keep) {
  qv::FieldSplitter splitter(*engine.Rules());
  splitter.KeepAtMost(keep);
  qv::FieldViews row;
  splitter.Split(line, row);
  Require(row.total == expected.size());
  Require(row.fields.size() == std::min(keep, expected.size()));
  for (std::size_t index = 0; index < row.fields.size(); ++index)
    Require(row.fields[index] == expected[index]);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  ByteSource source(data, size);
  const bool isCsv = source.Flag();
  CTxtAssembly text;
  CCSVAssembly csv;
  CTxtAssembly& engine = isCsv ? csv : text;
  const unsigned names = source.Below(std::size(kNames));
  engine.Delimiters = kNames[names];
  engine.Qualifier = static_cast<int>(source.Below(4));
  engine.TreatAsOne = source.Flag();
  engine.OtherDelimiters = source.Text();
  const std::size_t keep = source.Byte();
  const std::string line = source.Rest();

  const bool hasOther = engine.Delimiters.find("Other") != std::string::npos;
  const reference::Rules rules{isCsv, engine.Qualifier != 2, engine.Qualifier == 1 ? '\'' : '"',
                               kCharacters[names] + (hasOther ? engine.OtherDelimiters : ""),
                               engine.TreatAsOne};
  const std::vector<std::string> expected = reference::Split(rules, line);
  std::vector<std::string> fields;
  engine.SplitLine(line, fields);
  Require(fields == expected);
  CheckViews(engine, line, expected, keep);
  return 0;
}
