#include "engines/FieldSplitter.h"

#include "engines/CCSVAssembly.h"
#include "engines/CTxtAssembly.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using Fields = std::vector<std::string>;

/// The rules that a format sets on an engine. CSV engines must not care.
struct Rules {
  const char* delimiters = "Comma";
  const char* other = "";
  int qualifier = 0;
  bool treatAsOne = false;
};

constexpr Rules kComma;
constexpr Rules kCommaAsOne{.treatAsOne = true};
constexpr Rules kSingle{.qualifier = 1};
constexpr Rules kBare{.qualifier = 2};
constexpr Rules kBareAsOne{.qualifier = 2, .treatAsOne = true};
constexpr Rules kOther{.delimiters = "Other", .other = "|#"};
constexpr Rules kTabComma{.delimiters = "Tab,Comma"};
constexpr Rules kSpaceAsOne{.delimiters = "Space,", .treatAsOne = true};
constexpr Rules kUnknownQualifier{.qualifier = 7};

struct Case {
  const char* why;
  Rules rules;
  std::string line;
  Fields fields;
};

template <class Engine>
Engine& Configure(Engine& engine, const Rules& rules) {
  engine.Delimiters = rules.delimiters;
  engine.OtherDelimiters = rules.other;
  engine.Qualifier = rules.qualifier;
  engine.TreatAsOne = rules.treatAsOne;
  return engine;
}

template <class Engine>
void Check(const std::vector<Case>& cases) {
  for (const Case& c : cases) {
    SCOPED_TRACE(c.why);
    Engine engine;
    Configure(engine, c.rules);
    Fields fields{"kept"};
    EXPECT_TRUE(engine.SplitLine(c.line, fields));
    Fields expected{"kept"};
    expected.insert(expected.end(), c.fields.begin(), c.fields.end());
    EXPECT_EQ(fields, expected);
  }
}

TEST(SplitText, FollowsTheFormatsRules) {
  Check<CTxtAssembly>({
      {"qualified field keeps the delimiter", kComma, R"("a, b",c)", {"a, b", "c"}},
      {"empty field between delimiters", kComma, "a,,b", {"a", "", "b"}},
      {"runs count as one", kCommaAsOne, "a,,b", {"a", "b"}},
      {"leading delimiter", kComma, ",a", {"", "a"}},
      {"leading delimiter as one", kCommaAsOne, ",a", {"a"}},
      {"no field after the last delimiter", kComma, "a,", {"a"}},
      {"a doubled qualifier closes", kComma, R"("x""y",z)", {"x", "y,z"}},
      {"every other delimiter counts", kOther, "a|b#c,d", {"a", "b", "c,d"}},
      {"tab and comma together", kTabComma, "a\tb,c", {"a", "b", "c"}},
      {"blanks only, between", kComma, "a,   ,b", {"a", "", "b"}},
      {"blanks only, last", kComma, "a,   ", {"a"}},
      {"empty line", kComma, "", {}},
      {"qualified empty field", kComma, R"("",b)", {"", "b"}},
      {"qualified empty last field is kept", kComma, R"(a,"")", {"a", ""}},
      {"the delimiter after a closed field is taken with it", kComma, R"("a",,b)", {"a", "", "b"}},
      {"a qualifier in the middle opens", kComma, R"(a"b,c"d)", {"ab,c\"d"}},
      {"characters put together across a qualifier", kComma, R"(ab"c",d)", {"abc", "d"}},
      {"still open at the end", kComma, R"("a,b)", {"a,b"}},
      {"lone qualifiers vanish", kComma, R"(""")", {""}},
      {"trimmed to a lone quote: dropped", kSingle, R"( """ ,b)", {"b"}},
      {"blanks trimmed, tabs kept", kComma, " a\t , b ", {"a\t", "b"}},
      {"double quotes are stripped from bare text", kBare, R"("a" ,"b,c")", {"a", "b", "c"}},
      {"bare runs as one", kBareAsOne, ",,a,,b,,", {"a", "b"}},
      {"single quotes qualify", kSingle, "'a, b',c'", {"a, b", "c"}},
      {"double quotes under single ones are stripped", kSingle, R"("a",'b')", {"a", "b"}},
      {"an unknown code reads as double quotes", kUnknownQualifier, R"("a,b",c)", {"a,b", "c"}},
      {"aligned by blanks", kSpaceAsOne, "a   b c", {"a", "b", "c"}},
      {"NUL after a qualifier closes", kComma, std::string("\"a\"\0b,c", 7), {"a", "b", "c"}},
  });
}

TEST(SplitText, NothingSplitsWithoutDelimiters) {
  Check<CTxtAssembly>({{"no names", {.delimiters = ""}, "a,b;c\td e", {"a,b;c\td e"}},
                       {"Other without characters", {.delimiters = "Other"}, "a,b", {"a,b"}},
                       {"characters without Other", {.delimiters = "Tab", .other = "|"}, "a|b", {"a|b"}}});
}

TEST(SplitCsv, IgnoresTheFormat) {
  Check<CCSVAssembly>({
      {"quoted comma", kBare, R"(a,"b,c",d)", {"a", "b,c", "d"}},
      {"last field CRLF is dropped", kComma, "a,b,CRLF", {"a", "b"}},
      {"CRLF elsewhere stays", kComma, "CRLF,b", {"CRLF", "b"}},
      {"empty fields are kept, the last is not", kCommaAsOne, "a,,", {"a", ""}},
      {"a quoted field keeps its blanks", kComma, R"(" a ",b)", {" a ", "b"}},
      {"other fields are trimmed", kComma, "  a , b ", {"a", "b"}},
      {"the last quote goes with trimming", kComma, R"(a,"b")", {"a", "b"}},
      {"doubled quotes are kept doubled", kComma, R"("x ""y"" z",b)", {R"(x ""y"" z)", "b"}},
      {"semicolons and single quotes are text",
       {.delimiters = "Semicolon", .qualifier = 1},
       "'a;b',c",
       {"'a;b'", "c"}},
      {"quoted empty field", kComma, R"("",b)", {"", "b"}},
      {"quoted empty last field is dropped", kComma, R"(a,"")", {"a"}},
      {"quote in the middle", kComma, R"(12" pipe,5)", {"12 pipe,5"}},
  });
}

struct Flags {
  const char* why;
  const char* line;
  bool open;
  bool dropped;
};

void CheckFlags(qv::FieldSplitter splitter, const std::vector<Flags>& cases) {
  for (const Flags& c : cases) {
    SCOPED_TRACE(c.why);
    qv::FieldViews row;
    splitter.Split(c.line, row);
    EXPECT_EQ(row.openQualifier, c.open);
    EXPECT_EQ(row.droppedEmptyLast, c.dropped);
  }
}

TEST(FieldSplitter, TellsWhatItHadToGuess) {
  CTxtAssembly engine;
  Configure(engine, kComma);
  CheckFlags(qv::FieldSplitter::Qualified(engine), {{"closed", R"(a,"b")", false, false},
                                                    {"open", R"(a,"b)", true, false},
                                                    {"open by a doubled one", R"("x""y",z)", true, false},
                                                    {"ends with a delimiter", "a,b,", false, true},
                                                    {"ends with blanks", "a,b,  ", false, true},
                                                    {"delimiter in an open field", R"(a,"b,)", true, false},
                                                    {"empty line", "", false, false}});
  CheckFlags(qv::FieldSplitter::Csv(), {{"closed at the end", R"(a,"b")", false, false},
                                        {"closed before blanks", R"(a,"b"  )", false, false},
                                        {"open", R"(a,"b)", true, false},
                                        {"opened at the very end", R"(a,")", true, false},
                                        {"text after the closing quote", R"(a,"b"c)", true, false},
                                        {"ends with a delimiter", R"("a",)", false, true},
                                        {"ends with quotes", R"(a,"")", false, true}});
}

TEST(FieldSplitter, CountsWhatItDoesNotKeep) {
  auto splitter = qv::FieldSplitter::Csv();
  splitter.KeepAtMost(2);
  qv::FieldViews row;
  splitter.Split("a,b,c,d", row);
  EXPECT_EQ(row.fields.size(), 2u);
  EXPECT_EQ(row.total, 4u);
}

// A field put together from pieces must not move the pieces of the fields before it.
TEST(FieldSplitter, KeepsEarlierViewsOfALine) {
  std::string line;
  for (int field = 0; field < 2000; ++field) line += "a\"b\"" + std::to_string(field) + "\"c\",";
  CTxtAssembly engine;
  Configure(engine, kComma);
  Fields fields;
  engine.SplitLine(line, fields);
  ASSERT_GE(fields.size(), 2000u);
  EXPECT_EQ(fields.front().substr(0, 4), "ab\"0");
}

class UpperCaseEngine : public CTxtAssembly {
 public:
  bool SplitUnqualifiedLine(std::string line, std::vector<std::string>& fields) override {
    CTxtAssembly::SplitUnqualifiedLine(std::move(line), fields);
    for (std::string& field : fields) field += "!";
    return true;
  }
};

TEST(SplitText, CallsAnEnginesOwnRules) {
  UpperCaseEngine engine;
  Configure(engine, kBare);
  Fields fields;
  engine.SplitLine("a,b", fields);
  EXPECT_EQ(fields, (Fields{"a!", "b!"}));
  EXPECT_FALSE(engine.ViewSplitter().has_value());
}

}  // namespace
