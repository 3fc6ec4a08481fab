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
  for (std::size_t index = 0; index < length; ++index) text += static_cast<char>('a' + index % 26);
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
    CString assigned("something else that is long enough");
    assigned = text.c_str();
    ExpectText(assigned, text);
  }
}

TEST(CStringTest, NullIsAnEmptyText) {
  const char* none = nullptr;
  CString text(none);
  ExpectText(text, "");
  text += none;
  EXPECT_TRUE(text == none);
  text = "text";
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

TEST(CStringTest, LongCopiesShareTheirCharacters) {
  const CString source(Letters(100).c_str());
  const CString copy(source);
  EXPECT_EQ(copy.GetString(), source.GetString());
}

// Texts that were appended to, as a buffer may have room for more then.
TEST(CStringTest, EveryChangeStaysInItsOwnCopy) {
  using Change = void (*)(CString&);
  const std::vector<Change> changes = {
      [](CString& text) { text += "!"; },
      [](CString& text) { text += text; },
      [](CString& text) { text += Letters(200).c_str(); },
      [](CString& text) { text = text.GetString() + 3; },
      [](CString& text) { text = "another"; },
  };
  for (const std::size_t length : {5, 14, 15, 40, 4000}) {
    for (const Change change : changes) {
      CString source(Letters(length).c_str());
      source += "+";
      CString copy(source), other(source);
      change(copy);
      EXPECT_FALSE(copy == source);
      change(other);
      EXPECT_TRUE(other == copy);
      ExpectText(source, Letters(length) + "+");
    }
  }
}

TEST(CStringTest, AppendingBuildsTheWholeText) {
  CString text;
  std::string expected;
  for (int round = 0; round < 100; ++round) {
    const std::string piece = Letters(static_cast<std::size_t>(round) % 7);
    text += piece.c_str();
    expected += piece;
    ASSERT_STREQ(text.GetString(), expected.c_str());
  }
  ExpectText(text, expected);
  for (const std::size_t length : kLengths) {
    CString doubled(Letters(length).c_str());
    doubled += doubled.GetString();
    ExpectText(doubled, Letters(length) + Letters(length));
  }
}

TEST(CStringTest, ComparesByByteAndKeepsNulBytesInside) {
  EXPECT_TRUE(CString("text") == "text");
  EXPECT_TRUE("text" == CString("text"));
  EXPECT_TRUE(CString("text") != "Text");
  EXPECT_TRUE(CString("a text beyond the object") != CString("a text beyond the objecT"));
  const CString kept(std::string_view("a\0b", 3));
  EXPECT_EQ(kept.GetLength(), 3);
  EXPECT_EQ(kept.GetString()[2], 'b');
  EXPECT_FALSE(kept == CString("a"));
}

TEST(CStringTest, CopiesAreUsedByManyThreadsAtOnce) {
  const std::string text = Letters(64);
  const CString source(text.c_str());
  const auto work = [&source, &text](const char* mark) {
    for (int round = 0; round < 20000; ++round) {
      CString copy(source);
      CString second = copy;
      copy += mark;
      second = copy;
      if (second.GetString()[64] != *mark || copy.GetLength() != 65) ADD_FAILURE();
      if (round % 1000 == 0) ExpectText(CString(source), text);
    }
  };
  std::vector<std::thread> threads;
  for (const char* mark : {"0", "1", "2", "3"}) threads.emplace_back(work, mark);
  for (std::thread& thread : threads) thread.join();
  ExpectText(source, text);
}

}  // namespace
