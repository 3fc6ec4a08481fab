// Compares the splitters with the rules walked character by character, over some million random lines.

#include "engines/CCSVAssembly.h"
#include "engines/CTxtAssembly.h"
#include "engines/FieldTrim.h"
#include "engines/RowReader.h"
#include "support/Trickle.h"

#include <gtest/gtest.h>

#include <optional>
#include <random>
#include <string>
#include <vector>

namespace {

using Fields = std::vector<std::string>;
using Random = std::mt19937_64;

std::size_t Below(Random& random, std::size_t limit) { return random() % limit; }

/// The rules as simply as they can be written.
class Walk {
 public:
  Walk(const CTxtAssembly& engine, const std::string& line) : engine_(engine), line_(line) {}

  Fields Qualified() {
    const char q = engine_.Qualifier == 1 ? '\'' : '"';
    for (std::size_t i = 0; i < line_.size(); ++i) {
      const char c = line_[i];
      const char next = i + 1 < line_.size() ? line_[i + 1] : '\0';
      if (c == q && !inside_) {
        inside_ = true;
      } else if (c == q && (IsDelimiter(next) || next == '\0' || next == q)) {
        AppendUnlessQuote();
        inside_ = false;
        ++i;
      } else if (c != q && !inside_ && IsDelimiter(c)) {
        Delimit();
      } else {
        field_ += c;
      }
    }
    return End();
  }

  Fields Unqualified() {
    for (const char c : line_)
      if (IsDelimiter(c))
        Delimit();
      else
        field_ += c;
    const std::string last(qv::TrimField(field_));
    if (!last.empty()) fields_.push_back(last);
    return fields_;
  }

  Fields Csv() {
    for (std::size_t i = 0; i < line_.size(); ++i) {
      const char c = line_[i];
      if (c == '"' && !inside_) {
        inside_ = true;
      } else if (c == '"' && i + 1 < line_.size() && line_[i + 1] == ',') {
        fields_.push_back(field_);
        field_.clear();
        inside_ = false;
        ++i;
      } else if (c == ',' && !inside_) {
        AppendUnlessQuote();
      } else {
        field_ += c;
      }
    }
    if (qv::TrimField(field_) == "CRLF") return fields_;
    return End();
  }

 private:
  bool IsDelimiter(char c) const {
    const auto names = [&](const char* name) { return engine_.Delimiters.find(name) != std::string::npos; };
    return (c == '\t' && names("Tab")) || (c == ';' && names("Semicolon")) || (c == ',' && names("Comma")) ||
           (c == ' ' && names("Space")) ||
           (engine_.OtherDelimiters.find(c) != std::string::npos && names("Other"));
  }

  void Delimit() {
    if (!field_.empty())
      AppendUnlessQuote();
    else if (!engine_.TreatAsOne)
      fields_.emplace_back();
  }

  void AppendUnlessQuote() {
    field_ = qv::TrimField(field_);
    if (field_ != "\"") fields_.push_back(field_);
    field_.clear();
  }

  Fields End() {
    if (!qv::TrimField(field_).empty()) AppendUnlessQuote();
    return fields_;
  }

  const CTxtAssembly& engine_;
  const std::string& line_;
  std::string field_;
  bool inside_ = false;
  Fields fields_;
};

Fields WalkLine(const CTxtAssembly& engine, const std::string& line) {
  Walk walk(engine, line);
  if (dynamic_cast<const CCSVAssembly*>(&engine) != nullptr) return walk.Csv();
  return engine.Qualifier == 2 ? walk.Unqualified() : walk.Qualified();
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
  Trickle file(text, 1 + Below(random, 3 * text.size() / 2));
  qv::LineReader reader(file);
  qv::RowReader rows(engine, reader);
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

class SplitReference : public testing::TestWithParam<qv::MarkInstructions> {
 protected:
  void SetUp() override {
    if (!qv::UseMarkInstructions(GetParam())) GTEST_SKIP() << "this processor does not have them";
  }
  void TearDown() override {
    for (const auto wide : {qv::MarkInstructions::Sse2, qv::MarkInstructions::Avx2})
      qv::UseMarkInstructions(wide);
  }
};

INSTANTIATE_TEST_SUITE_P(Instructions, SplitReference,
                         testing::Values(qv::MarkInstructions::Portable, qv::MarkInstructions::Sse2,
                                         qv::MarkInstructions::Avx2));

TEST_P(SplitReference, AgreesOnFiles) {
  CompareFiles<CTxtAssembly>(1, 1000);
  CompareFiles<CCSVAssembly>(2, 500);
}

// A line that is handed in may hold line ends; they are characters like others.
TEST_P(SplitReference, AgreesOnSingleLines) {
  Random random(3);
  for (int count = 0; count < 100'000; ++count) {
    CTxtAssembly engine;
    SetRandomRules(engine, random);
    const std::string line = RandomLine(random, std::string(",;\t |#'\"\"\r\n\n0 \0", 16));
    Fields fields;
    engine.SplitLine(line, fields);
    ASSERT_EQ(fields, WalkLine(engine, line)) << testing::PrintToString(line);
  }
}

}  // namespace
