// Compares the splitters with the rules walked character by character, over some million random lines.

#include "engines/text/CTxtAssembly.h"
#include "engines/text/TextRows.h"
#include "support/FakeFileSystem.h"
#include "support/ReferenceSplitter.h"

#include <gtest/gtest.h>

#include <optional>
#include <random>
#include <string>
#include <vector>

namespace {

using Fields = std::vector<std::string>;
using Random = std::mt19937_64;

std::size_t Below(Random& random, std::size_t limit) { return random() % limit; }

Fields WalkLine(const CTxtAssembly& engine, const std::string& line) {
  const std::pair<const char*, std::string> kinds[] = {
      {"Tab", "\t"}, {"Semicolon", ";"}, {"Comma", ","}, {"Space", " "}, {"Other", engine.OtherDelimiters}};
  reference::Rules rules{dynamic_cast<const CCSVAssembly*>(&engine) != nullptr, engine.Qualifier != 2,
                         engine.Qualifier == 1 ? '\'' : '"', "", engine.TreatAsOne};
  for (const auto& [name, characters] : kinds)
    if (engine.Delimiters.find(name) != std::string::npos) rules.delimiters += characters;
  return reference::Split(rules, line);
}

/// Mostly short lines of characters that matter, now and then a longer stretch of others or a stray word.
std::string RandomLine(Random& random, const std::string& special) {
  std::string line;
  for (std::size_t pieces = Below(random, 20); pieces > 0; --pieces) {
    const std::size_t choice = Below(random, 12);
    if (choice < 7)
      line += special[Below(random, special.size())];
    else if (choice < 11)
      line.append(Below(random, 4), static_cast<char>('a' + choice));
    else
      line += Below(random, 3) == 0 ? "CRLF" : std::string(Below(random, 150), 'x');
  }
  return line;
}

void SetRandomRules(CTxtAssembly& engine, Random& random) {
  const char* const delimiters[] = {"Comma", "Tab,Semicolon,", "Space", "Other", "Comma,Other", ""};
  const std::string others[] = {"|#", std::string("\0;", 2), "\"", "'", "\r", "0123456789|"};
  engine.Delimiters = delimiters[Below(random, 6)];
  engine.OtherDelimiters = others[Below(random, 6)];
  engine.Qualifier = static_cast<int>(Below(random, 4));
  engine.TreatAsOne = Below(random, 2) == 0;
}

/// Reads the lines as a file whose blocks end anywhere.
void CheckFile(CTxtAssembly& engine, const std::vector<std::string>& lines, Random& random) {
  std::string text;
  for (const std::string& line : lines) text += line + (Below(random, 3) == 0 ? "\r\n" : "\n");
  FakeFileSystem files;
  files.Contents["a.txt"] = text;
  files.LargestRead = 1 + Below(random, 3 * text.size() / 2);
  const qv::FileDiagnostics diagnostics("a.txt");
  qv::TextRows rows(engine, diagnostics);
  const std::size_t kept = Below(random, 2) == 0 ? 3 : 1000;
  rows.KeepAtMost(kept);
  for (const std::string& line : lines) {
    ASSERT_TRUE(rows.Next());
    Fields expected = WalkLine(engine, line);
    const bool sameTotal = rows.Row().line == line && rows.Row().total == expected.size();
    expected.resize(std::min(kept, expected.size()));
    ASSERT_TRUE(sameTotal && std::ranges::equal(rows.Row().fields, expected)) << testing::PrintToString(line);
  }
  EXPECT_FALSE(rows.Next());
}

template <class Engine>
void CompareFiles(std::uint64_t seed, int files) {
  Random random(seed);
  for (int count = 0; count < files && !testing::Test::HasFatalFailure(); ++count) {
    Engine engine;
    SetRandomRules(engine, random);
    std::vector<std::string> lines(1 + Below(random, 1000));
    // A line that ends with a carriage return would lose it to its line end.
    for (std::string& line : lines) do
        line = RandomLine(random, std::string(",;\t |#'\"\"\"\r0 \0", 15));
      while (line.ends_with('\r'));
    CheckFile(engine, lines, random);
  }
}

class SplitReference : public testing::TestWithParam<qv::SimdLevel> {
 protected:
  void SetUp() override {
    if (!qv::UseSimdLevel(GetParam())) GTEST_SKIP() << "this processor does not have them";
  }
  void TearDown() override {
    for (const auto wide : {qv::SimdLevel::Sse2, qv::SimdLevel::Avx2}) qv::UseSimdLevel(wide);
  }
};

INSTANTIATE_TEST_SUITE_P(Instructions, SplitReference,
                         testing::Values(qv::SimdLevel::Portable, qv::SimdLevel::Sse2, qv::SimdLevel::Avx2));

TEST_P(SplitReference, AgreesOnFiles) {
  CompareFiles<CTxtAssembly>(1, 300);
  CompareFiles<CCSVAssembly>(2, 150);
}

// A line that is handed in may hold line ends; they are characters like others.
TEST_P(SplitReference, AgreesOnSingleLines) {
  Random random(3);
  for (int count = 0; count < 30'000; ++count) {
    CTxtAssembly engine;
    SetRandomRules(engine, random);
    const std::string line = RandomLine(random, std::string(",;\t |#'\"\"\r\n\n0 \0", 16));
    Fields fields;
    engine.SplitLine(line, fields);
    ASSERT_EQ(fields, WalkLine(engine, line)) << testing::PrintToString(line);
  }
}

}  // namespace
