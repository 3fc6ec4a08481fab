#include <QVAssemblyFile/CString.h>

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

namespace {

std::string Letters(std::size_t length) {
  std::string text;
  for (std::size_t rank = 0; rank < length; ++rank) text += static_cast<char>('a' + rank % 26);
  return text;
}

// On both sides of the length that fits into the object.
const std::vector<std::size_t> kLengths = {0, 1, 14, 15, 16, 17, 255, 5000};

void ExpectText(const CString& actual, const std::string& expected) {
  EXPECT_EQ(std::string(actual.GetString()), expected.c_str());
  EXPECT_EQ(actual.GetLength(), static_cast<int>(expected.size()));
  EXPECT_EQ(actual.IsEmpty(), expected.empty());
}

TEST(CStringTest, KeepsTextsOfAnyLength) {
  for (const std::size_t length : kLengths) {
    const std::string text = Letters(length);
    ExpectText(CString(text.c_str()), text);
    ExpectText(CString(std::string_view(text)), text);
    ExpectText(CString((text + "more").c_str(), static_cast<int>(length)), text);
    CString assigned("something else that is long enough");
    assigned = text.c_str();
    ExpectText(assigned, text);
  }
}

TEST(CStringTest, NullIsAnEmptyText) {
  const char* none = nullptr;
  CString text(none);
  ExpectText(text, "");
  ExpectText(CString(none, 5), "");
  ExpectText(CString("text", -1), "");
  text += none;
  ExpectText(text + none, "");
  EXPECT_TRUE(text == none);
  EXPECT_EQ(text.Compare(nullptr), 0);
  text = none;
  ExpectText(text, "");
}

TEST(CStringTest, CopiesAndMovesLeaveTheOtherSideWhole) {
  for (const std::size_t length : kLengths) {
    const std::string text = Letters(length);
    CString source(text.c_str());
    CString copy(source);
    CString& itself = copy;
    copy = itself;
    ExpectText(copy, text);
    CString moved(std::move(source));
    ExpectText(moved, text);
    source = "used again";
    ExpectText(source, "used again");
    moved = std::move(itself);
    ExpectText(moved, text);
  }
}

TEST(CStringTest, LongCopiesShareTheirCharactersUntilOneChanges) {
  const std::string text = Letters(100);
  const CString source(text.c_str());
  CString copy(source);
  EXPECT_EQ(copy.GetString(), source.GetString());
  copy.SetAt(0, 'X');
  EXPECT_NE(copy.GetString(), source.GetString());
  ExpectText(copy, "X" + text.substr(1));
  ExpectText(source, text);
}

TEST(CStringTest, EveryChangeStaysInItsOwnCopy) {
  using Change = void (*)(CString&);
  const std::vector<Change> changes = {
      [](CString& text) { text.SetAt(1, '!'); }, [](CString& text) { text += "!"; },
      [](CString& text) { text += '!'; },        [](CString& text) { text += text; },
      [](CString& text) { text.MakeUpper(); },   [](CString& text) { text.Trim(); },
      [](CString& text) { text.Empty(); },       [](CString& text) { text = text.GetString() + 3; },
  };
  for (const std::size_t length : {std::size_t{5}, std::size_t{14}, std::size_t{40}}) {
    const std::string text = " " + Letters(length);
    for (const Change change : changes) {
      const CString source(text.c_str());
      CString copy(source);
      change(copy);
      EXPECT_FALSE(copy == source);
      ExpectText(source, text);
    }
  }
}

TEST(CStringTest, AppendingBuildsTheWholeText) {
  CString text;
  std::string expected;
  for (int round = 0; round < 500; ++round) {
    const std::string piece = Letters(static_cast<std::size_t>(round) % 7);
    text += piece.c_str();
    text += ';';
    expected += piece + ';';
    ASSERT_STREQ(text.GetString(), expected.c_str());
  }
  ExpectText(text, expected);
  for (const std::size_t length : kLengths) {
    CString doubled(Letters(length).c_str());
    doubled += doubled.GetString();
    ExpectText(doubled, Letters(length) + Letters(length));
  }
}

TEST(CStringTest, JoinsTexts) {
  const CString a("left");
  const CString b(" and a right part that is long");
  ExpectText(a + b, "left and a right part that is long");
  ExpectText(a + " side", "left side");
  ExpectText("the " + a, "the left");
  ExpectText(a + '!', "left!");
}

TEST(CStringTest, ComparesByByte) {
  struct Case {
    const char* a;
    const char* b;
    int order;
  };
  const std::vector<Case> cases = {
      {"", "", 0},         {"", "a", -1},
      {"a", "b", -1},      {"B", "a", -1},
      {"a", "aa", -1},     {"\xe9", "z", 1},
      {"same", "same", 0}, {"a text beyond the object", "a text beyond the objecT", 1},
  };
  const auto sign = [](int value) { return value < 0 ? -1 : value > 0 ? 1 : 0; };
  for (const Case& c : cases) {
    const CString a(c.a), b(c.b);
    EXPECT_EQ(sign(a.Compare(c.b)), c.order) << c.a << " " << c.b;
    EXPECT_EQ(a == b, c.order == 0);
    EXPECT_EQ(a != c.b, c.order != 0);
    EXPECT_EQ(c.a == b, c.order == 0);
    EXPECT_EQ(a < b, c.order < 0);
    EXPECT_EQ(a > c.b, c.order > 0);
    EXPECT_EQ(c.a < b, c.order < 0);
  }
}

TEST(CStringTest, ComparesWithoutCaseInAscii) {
  EXPECT_EQ(CString("PartName").CompareNoCase("pARTnAME"), 0);
  EXPECT_LT(CString("PartName").CompareNoCase("partnumber"), 0);
  EXPECT_GT(CString("z").CompareNoCase("A"), 0);
  EXPECT_NE(CString("\xe9").CompareNoCase("\xc9"), 0);
  EXPECT_GT(CString("ab").CompareNoCase("A"), 0);
}

TEST(CStringTest, PartsAreDrawnToTheEndsOfTheText) {
  const CString text("0123456789abcdefghij");
  ExpectText(text.Left(3), "012");
  ExpectText(text.Left(-1), "");
  ExpectText(text.Left(99), text.GetString());
  ExpectText(text.Right(2), "ij");
  ExpectText(text.Right(99), text.GetString());
  ExpectText(text.Mid(18), "ij");
  ExpectText(text.Mid(2, 17), "23456789abcdefghi");
  ExpectText(text.Mid(-5, 2), "01");
  ExpectText(text.Mid(20, 1), "");
  ExpectText(text.Mid(30), "");
}

TEST(CStringTest, FindsFromAPosition) {
  const CString text("one;two;three");
  EXPECT_EQ(text.Find(';'), 3);
  EXPECT_EQ(text.Find(';', 4), 7);
  EXPECT_EQ(text.Find(';', 8), -1);
  EXPECT_EQ(text.Find("two"), 4);
  EXPECT_EQ(text.Find("Two"), -1);
  EXPECT_EQ(text.Find("e", 99), -1);
  EXPECT_EQ(text.ReverseFind(';'), 7);
  EXPECT_EQ(text.ReverseFind('x'), -1);
}

TEST(CStringTest, TrimsAndChangesCase) {
  ExpectText(CString(" \t a b \r\n").Trim(), "a b");
  ExpectText(CString("  x  ").TrimLeft(), "x  ");
  ExpectText(CString("  x  ").TrimRight(), "  x");
  ExpectText(CString(" \t ").Trim(), "");
  ExpectText(CString("Thickness 2mm of \xe9toffe").MakeUpper(), "THICKNESS 2MM OF \xe9TOFFE");
  ExpectText(CString("SHELF").MakeLower(), "shelf");
}

TEST(CStringTest, PositionsOutsideReadAsNulAndAreNotWritten) {
  for (const char* given : {"abc", "a text that lies outside the object"}) {
    CString text(given);
    const int length = text.GetLength();
    EXPECT_EQ(text[0], 'a');
    for (const int position : {-1, length, length + 1}) {
      EXPECT_EQ(text.GetAt(position), '\0');
      text.SetAt(position, 'X');
    }
    ExpectText(text, given);
  }
}

TEST(CStringTest, KeepsNulBytesInside) {
  const std::string text("a\0b", 3);
  const CString kept(text.data(), 3);
  EXPECT_EQ(kept.GetLength(), 3);
  EXPECT_EQ(kept[2], 'b');
  EXPECT_FALSE(kept == CString("a"));
}

TEST(CStringTest, CopiesAreUsedByManyThreadsAtOnce) {
  const std::string text = Letters(64);
  const CString source(text.c_str());
  const auto work = [&source, &text](char mark) {
    for (int round = 0; round < 20000; ++round) {
      CString copy(source);
      CString second = copy;
      second.SetAt(round % 64, mark);
      copy += mark;
      if (second[round % 64] != mark || copy.GetLength() != 65) ADD_FAILURE();
      if (round % 1000 == 0) ExpectText(CString(source), text);
    }
  };
  std::vector<std::thread> threads;
  for (char mark = '0'; mark < '4'; ++mark) threads.emplace_back(work, mark);
  for (std::thread& thread : threads) thread.join();
  ExpectText(source, text);
}

}  // namespace
