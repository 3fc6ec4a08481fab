#include "engines/text/LineReader.h"

#include "support/FakeFileSystem.h"
#include "text/Phrases.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

std::vector<std::string> LinesOf(const std::string& text, std::size_t step) {
  FakeFileSystem files;
  const auto file = files.OpenText(text, step);
  qv::LineReader reader(*file);
  std::vector<std::string> lines;
  for (std::string_view line; reader.Next(line);) lines.emplace_back(line);
  EXPECT_EQ(reader.LineNumber(), static_cast<std::int64_t>(lines.size()));
  return lines;
}

TEST(LineReader, EndsLinesAtLfAndCrLf) {
  const std::string text = "one\ntwo\r\n\r\n\nlone\rcr\r\r\nlast\r";
  const std::vector<std::string> lines = {"one", "two", "", "", "lone\rcr\r", "last\r"};
  for (const std::size_t step : {1u, 2u, 3u, 7u, 100u})
    EXPECT_EQ(LinesOf(text, step), lines) << "read " << step << " bytes at a time";
}

// Old programs fill the last block of a file up with the byte that ends a text.
TEST(LineReader, TellsTextBehindTheEndByteFromFilling) {
  for (const std::size_t step : {1u, 2u, 3u, 100u})
    for (const bool goesOn : {false, true}) {
      FakeFileSystem files;
      const auto file = files.OpenText("a\nb" + std::string(5, '\x1a') + (goesOn ? "c\n" : ""), step);
      qv::LineReader reader(*file, 0x1A);
      std::string_view line;
      ASSERT_TRUE(reader.Next(line) && reader.Next(line));
      EXPECT_EQ(line, "b");
      EXPECT_FALSE(reader.Next(line));
      EXPECT_EQ(reader.WasCutOff(), goesOn) << "read " << step << " bytes at a time";
    }
}

TEST(LineReader, GrowsForALongLine) {
  const std::string longLine(3'000'000, 'x');
  EXPECT_EQ(LinesOf("a\n" + longLine + "\nb\n", 100'000), (std::vector<std::string>{"a", longLine, "b"}));
}

// A person gets to see it, so it never ends inside a character of UTF-8.
TEST(QuotedBriefly, CutsALongTextBehindACharacter) {
  const auto quoted = [](std::size_t plain, const char* character) {
    return qv::QuotedBriefly(std::string(plain, 'x') + character + "yyy");
  };
  const auto cut = [](std::size_t kept, const char* last = "") {
    return '"' + std::string(kept, 'x') + last + "...\"";
  };
  EXPECT_EQ(quoted(60, ""), cut(60));
  EXPECT_EQ(quoted(59, "\xC3\x9F"), cut(59));
  EXPECT_EQ(quoted(58, "\xC3\x9F"), cut(58, "\xC3\x9F"));
  EXPECT_EQ(quoted(57, "\xF0\x9F\x94\xA9"), cut(57));
}

}  // namespace
