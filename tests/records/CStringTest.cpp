#include <QVAssemblyFile/CString.h>

#include <gtest/gtest.h>

#include <random>
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

const char* CharactersOf(const CString& text) { return text.GetString(); }
const char* CharactersOf(const std::string& text) { return text.c_str(); }

template <class String>
void Change(std::mt19937::result_type how, String& text, String& other, const std::string& piece) {
  String taken(how == 4 ? std::move(other) : String());
  if (how == 0) text = piece.c_str();
  if (how == 1) text = std::string_view(piece);
  if (how == 2) text = other;
  if (how == 3) text = String(other);
  if (how == 4) other = "used again";
  if (how == 4) text = std::move(taken);
  if (how == 5) text += other;
  if (how == 6) text += piece.c_str();
  if (how == 7) text += CharactersOf(text);
  if (how == 8)
    text = CharactersOf(text) + std::string_view(CharactersOf(text)).size() / 2;  // a part of itself
  if (how == 9) text = "";
}

// Texts that are made of each other in any order, beside plain ones: they outgrow the object, share their
// characters and are cut again, and none of it shows.
TEST(CStringTest, BehavesAsTextsDo) {
  std::mt19937 random(3);
  CString texts[4];
  std::string expected[4];
  for (int round = 0; round < 20'000; ++round) {
    const std::size_t at = random() % 4, other = random() % 4;
    const std::string piece = Letters(kLengths[random() % kLengths.size()]);
    const auto how = expected[at].size() > 20'000 ? 9 : random() % 9;
    Change(how, texts[at], texts[other], piece);
    Change(how, expected[at], expected[other], piece);
    for (std::size_t index = 0; index < 4; ++index) ExpectText(texts[index], expected[index]);
    ASSERT_FALSE(HasFailure()) << "round " << round;
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

TEST(CStringTest, LongCopiesShareTheirCharacters) {
  const CString source(Letters(100).c_str());
  const CString copy(source);
  EXPECT_EQ(copy.GetString(), source.GetString());
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
