#include "engines/CAssemblyFile.h"
#include "engines/RecordStreams.h"
#include "engines/columns/RecordFields.h"
#include "engines/columns/Words.h"
#include "format/Delimiters.h"
#include "support/DiagnosticLog.h"
#include "support/FakeFileSystem.h"

#include <gtest/gtest.h>

#include <clocale>
#include <map>
#include <random>
#include <set>

// What holds for any records in any format, tried on generated ones: what is written reads back, but for the
// fields listed here, and nothing depends on line ends, blocks, places in the file, or the locale.

namespace qv {
namespace {

using Random = std::mt19937;

struct Kind {
  RecordKind kind;
  std::set<std::string> changed;  ///< the fields that a file does not bring back as they were
};

const Kind kKinds[] = {
    // Written as hours:minutes:seconds and read as a number.
    {RecordKind::Parts, {"EstimateTime"}},
    {RecordKind::Tools, {}},
    // Columns that are only written, a keyword that is read with a blank at its end and written without, and
    // a
    // corner whose word means another number when it is read.
    {RecordKind::Materials,
     {"RecoveryDisM105XY", "PierceHoleTool", "MJTool", "OutsideCutouts_ExceedsY",
      "CustomPeri_ComCutting_StartingCorner"}},
    // Columns that are only written; the lists of a part program are written too and never read.
    {RecordKind::Sheets, {"SheetName", "ClampPosition", "TotalRunTime"}},
    {RecordKind::PartPrograms,
     {"PartName", "PartSizeX", "PartSizeY", "EstimateTime", "PartDefaultPosition", "AverProcessTime",
      "GridSpacingH", "GridSpacingV", "MarginTop", "MarginBottom", "MarginLeft", "MarginRight",
      "ClampPosition"}},
};

struct Setting {
  std::string path;
  OptionForm form;
  bool hasDecimalComma = false;
};

bool HasColumn(const RecordField& field) { return !field.columns[0].keyword.empty(); }
bool HasOneColumn(const RecordField& field) { return HasColumn(field) && field.columns[1].keyword.empty(); }

Setting AnySetting(Random& random, const RecordType& type) {
  constexpr const char* kDelimiters[] = {"Tab", "Semicolon,", "Comma,Tab,", "Other"};
  Setting setting;
  setting.path = random() % 2 == 0 ? "a.csv" : "a.txt";
  setting.form.Name = "F";
  setting.form.StartLine = static_cast<int>(random() % 4);
  setting.form.Delimiters = kDelimiters[random() % std::size(kDelimiters)];
  setting.form.OtherDelimiters = "|";
  setting.form.Qualifier = static_cast<int>(random() % 3);
  const bool hasBareCommas = setting.path == "a.txt" && setting.form.Qualifier == 2 &&
                             HasDelimiter(setting.form.Delimiters, Delimiter::Comma);
  setting.hasDecimalComma = !hasBareCommas && random() % 4 == 0;
  int position = 0;
  for (const RecordField& field : type.fields)
    if (HasOneColumn(field))  // of two, none is both read and written
      setting.form.Items.push_back({std::string(field.columns[0].keyword), std::to_string(position++)});
  return setting;
}

// Characters that no format takes for anything but themselves; not empty, as some columns know no empty cell.
std::string AnyText(Random& random) {
  constexpr std::string_view kPlain = "abzAZ09-_.:/\\#%&()[]{}<>?!*+=@~^$\xC3\xA4\xE9\x80\xFF";
  std::string text = "x";
  for (auto length = random() % 30; length > 0; --length) text += kPlain[random() % kPlain.size()];
  if (random() % 4 == 0) text += " in two";
  return text;
}

/// A text is put into `text`.
FieldValue AnyValue(Random& random, const RecordField& field, std::string& text) {
  const auto whole = static_cast<int>(random()) >> (random() % 32);
  // Of choices, a number that has no word is not brought back.
  if (const WordTable* const choices = field.columns[0].readWords;
      choices != nullptr && field.type == FieldType::Int)
    return choices->words[random() % choices->words.size()].value;
  switch (field.type) {
    case FieldType::Int:
      return whole;
    case FieldType::Bool:
      return random() % 2 == 0;
    case FieldType::Float:
      return static_cast<float>(whole % 100000) / 8;
    case FieldType::Double:
      return static_cast<double>(whole % 10000000) / 64;
    default:
      return text = AnyText(random);
  }
}

AnyRecord GeneratedRecord(Random& random, const RecordType& type) {
  AnyRecord record(type);
  std::string text;
  for (const RecordField& field : type.fields)
    if (HasColumn(field)) field.set(record.Pointer(), AnyValue(random, field, text));
  return record;
}

std::unique_ptr<CAssemblyFile> EngineFor(const Setting& setting, const Kind& kind) {
  auto engine = CreateAssemblyEngine(setting.path.c_str());
  engine->KindFlags[static_cast<std::size_t>(kind.kind)] = true;
  ApplyFormat(*engine, setting.form, setting.path.c_str());
  engine->FormatName = setting.form.Name;
  engine->ReadsDecimalComma = engine->WritesDecimalComma = setting.hasDecimalComma;
  return engine;
}

std::string Export(const Setting& setting, const Kind& kind, const std::vector<AnyRecord>& records) {
  FakeFileSystem files;
  const auto engine = EngineFor(setting, kind);
  const FileDiagnostics diagnostics(setting.path.c_str());
  const auto target = BeginRecords(*engine, kind.kind, diagnostics);
  for (const AnyRecord& record : records) target->Put(record.Pointer());
  target->Commit();
  return files.Contents[setting.path];
}

/// All that an import gives: the fields of every record and what was remarked on.
struct Imported {
  std::vector<std::vector<std::string>> records;
  std::vector<std::string> headers;
  std::string codes;
  bool operator==(const Imported&) const = default;
};

Imported Import(const Setting& setting, const Kind& kind, const std::string& content,
                std::size_t largestRead = 1 << 20) {
  FakeFileSystem files;
  files.Contents[setting.path] = content;
  files.LargestRead = largestRead;
  const DiagnosticLog log;
  const auto engine = EngineFor(setting, kind);
  const FileDiagnostics diagnostics(setting.path.c_str());
  const auto source = OpenRecords(*engine, kind.kind, diagnostics);
  Imported imported{{}, engine->HeaderFields.All(), {}};
  while (void* const record = source->Next()) {
    auto& fields = imported.records.emplace_back();
    for (const RecordField& field : RecordTypeOf(kind.kind).fields) fields.push_back(GetText(record, field));
  }
  imported.codes = log.Codes();
  return imported;
}

std::string WithLineEnds(const std::string& content, const char* lineEnd) {
  std::string out;
  for (const char c : content)
    if (c == '\n')
      out += lineEnd;
    else if (c != '\r')
      out += c;
  return out;
}

// Lines before the header row move everything behind them in the read buffer.
Imported ImportShifted(Setting setting, const Kind& kind, const std::string& content, std::size_t shift) {
  const int first = std::max(setting.form.StartLine, 1);
  setting.form.StartLine = first + 1;
  return Import(setting, kind, std::string(shift, '-') + "\n" + content);
}

/// A locale with a decimal comma while it lives, as a host may set one.
class CommaLocale {
 public:
  CommaLocale() {
    for (const char* name : {"de_DE.UTF-8", "de_DE", "fr_FR.UTF-8", "German_Germany.1252"})
      if (std::setlocale(LC_ALL, name) != nullptr) return;
  }
  ~CommaLocale() { std::setlocale(LC_ALL, "C"); }
};

TEST(CommaLocaleTest, IsThere) {
  const CommaLocale locale;
  if (*std::localeconv()->decimal_point != ',') GTEST_SKIP() << "NOT TESTED: no locale has a decimal comma";
}

class PropertiesTest : public testing::TestWithParam<Kind> {
 protected:
  const Kind& kind_ = GetParam();
  const RecordType& type_ = RecordTypeOf(kind_.kind);
};

TEST_P(PropertiesTest, WhatIsWrittenReadsBack) {
  std::set<std::string> changed;
  for (unsigned round = 0; round < 60; ++round) {
    Random random(round);
    const Setting setting = AnySetting(random, type_);
    std::vector<AnyRecord> records;
    for (auto count = random() % 6; count > 0; --count) records.push_back(GeneratedRecord(random, type_));
    const std::string written = Export(setting, kind_, records);
    const Imported read = Import(setting, kind_, written);
    ASSERT_EQ(read.records.size(), records.size()) << written;
    for (std::size_t index = 0; index < records.size(); ++index)
      for (std::size_t field = 0; field < type_.fields.size(); ++field)
        if (HasColumn(type_.fields[field]) &&
            GetText(records[index].Pointer(), type_.fields[field]) != read.records[index][field])
          changed.emplace(type_.fields[field].stem);
    // What has been through a file once goes through files unchanged.
    const CommaLocale locale;
    ASSERT_EQ(Export(setting, kind_, records), written);
    ASSERT_EQ(Import(setting, kind_, written), read);
  }
  EXPECT_EQ(changed, kind_.changed);
}

// Any text between any delimiters, so that all that can be odd about a file is there too.
std::string AnyContent(Random& random) {
  constexpr std::string_view kNul("\0", 1);
  constexpr std::string_view kPieces[] = {",",  ";", "\t", "|",  "\"", "'",  " ",  "\n",   "\r\n", "\r",
                                          "-1", "7", "ab", "1.", "Y",  "RO", kNul, "CRLF", "=",    "\xFF"};
  std::string content;
  for (auto count = random() % 400; count > 0; --count) content += kPieces[random() % std::size(kPieces)];
  return content;
}

TEST_P(PropertiesTest, NothingDependsOnHowTheBytesArrive) {
  for (unsigned round = 0; round < 100; ++round) {
    Random random(round);
    const Setting setting = AnySetting(random, type_);
    const std::string content = AnyContent(random);
    SCOPED_TRACE(testing::PrintToString(content));
    const Imported read = Import(setting, kind_, content);
    for (const std::size_t block : {1, 2, 7, 64}) ASSERT_EQ(Import(setting, kind_, content, block), read);
    for (const std::size_t shift : {1, 63, 4096}) {
      const Imported shifted = ImportShifted(setting, kind_, content, shift);
      ASSERT_EQ(shifted.records, read.records);
    }
    const CommaLocale locale;
    ASSERT_EQ(Import(setting, kind_, content), read);
    const std::string plain = WithLineEnds(content, "\n");
    ASSERT_EQ(Import(setting, kind_, plain), Import(setting, kind_, WithLineEnds(plain, "\r\n")));
  }
}

INSTANTIATE_TEST_SUITE_P(Kinds, PropertiesTest, testing::ValuesIn(kKinds), [](const auto& kind) {
  std::string name(RecordTypeOf(kind.param.kind).name);
  std::erase(name, '-');
  return name;
});

}  // namespace
}  // namespace qv
