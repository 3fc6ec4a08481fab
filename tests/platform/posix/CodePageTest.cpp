#include "platform/CodePage.h"
#include "tests/support/CaseFile.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using Text = std::optional<std::string>;

constexpr const char* kFffd = "\xEF\xBF\xBD";

TEST(CodePageTest, ReplacesEachIllFormedStretchOnce) {
  for (const auto& row : ReadTable("platform/tables/ill-formed.table")) {
    SCOPED_TRACE(row[0]);
    EXPECT_EQ(qv::ToUtf8(row[1]), row[2]);
    EXPECT_EQ(qv::DecodeText(row[1], "UTF-8"), row[2]);
  }
}

TEST(CodePageTest, ConvertsNamedEncodings) {
  const struct {
    const char* encoding;
    std::string bytes;
    std::string utf8;
  } cases[] = {
      {"windows-1252", "\x80\xE4", "€ä"},
      {"ISO-8859-1", "\xE4", "ä"},
      {"shift_jis", "\x94\xC2\x8C\xFA", "板厚"},
      {"utf-16le", std::string("A\0\xE4\0", 4), "Aä"},
      {"utf8", "ä", "ä"},
      {"ISO-2022-JP", "\x1B$BHD\x1B(B", "板"},
  };
  for (const auto& test : cases) {
    SCOPED_TRACE(test.encoding);
    EXPECT_EQ(qv::DecodeText(test.bytes, test.encoding), Text(test.utf8));
    EXPECT_EQ(qv::EncodeText(test.utf8, test.encoding), Text(test.bytes));
  }
}

TEST(CodePageTest, ReplacesWhatDoesNotConvert) {
  EXPECT_EQ(qv::DecodeText("a\x81z", "windows-1252"), Text(std::string("a") + kFffd + "z"));
  EXPECT_EQ(qv::DecodeText("a\x94", "shift_jis"), Text(std::string("a") + kFffd)) << "cut in a character";
  EXPECT_EQ(qv::EncodeText("a板ä", "ISO-8859-1"), Text("a?\xE4"));
  EXPECT_EQ(qv::EncodeText("板", "utf-16be").value().size(), 2U);
  EXPECT_EQ(qv::EncodeText("a\xFFz", "ISO-8859-1"), Text("a?z")) << "what is no UTF-8";
  const std::string large(10'000, '\xE4');
  EXPECT_EQ(qv::EncodeText(qv::DecodeText(large, "ISO-8859-1").value(), "ISO-8859-1"), Text(large));
}

TEST(CodePageTest, KnowsNoOtherNames) {
  for (const char* name : {"", "no-such", "windows-1252//IGNORE", "UTF-8//TRANSLIT", "/"}) {
    EXPECT_EQ(qv::DecodeText("a", name), std::nullopt) << name;
    EXPECT_EQ(qv::EncodeText("a", name), std::nullopt) << name;
  }
}

}  // namespace
