#include "engines/columns/ShortNumbers.h"
#include "engines/columns/TextBuffer.h"
#include "support/CaseFile.h"
#include "text/Numbers.h"

#include <gtest/gtest.h>

#include <bit>
#include <climits>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <random>
#include <string>
#include <vector>

namespace {

using qv::NumberFault;

// What is no number is 0; one runtime gives -0 for a lone sign.
double RuntimesReal(const char* text) {
  char* end = nullptr;
  const double value = std::strtod(text, &end);
  return end == text ? 0.0 : value;
}

TEST(Numbers, AreReadAsTheTableSays) {
  const std::map<std::string, NumberFault> remarks = {{"-", NumberFault::None},
                                                      {"trailing", NumberFault::TrailingText},
                                                      {"no number", NumberFault::NoDigits},
                                                      {"empty", NumberFault::Empty},
                                                      {"out of range", NumberFault::OutOfRange}};
  for (const auto& row : ReadTable("engines/tables/numbers.table")) {
    SCOPED_TRACE(row[0]);
    if (!row[1].empty()) {
      EXPECT_EQ(std::to_string(qv::ParseInt(row[0]).value), row[1]);
      EXPECT_EQ(qv::ParseInt(row[0]).fault, remarks.at(row[2]));
    }
    const auto real = qv::ParseReal(row[0]);
    const double expected = RuntimesReal(row[0].c_str());
    EXPECT_TRUE(std::bit_cast<std::uint64_t>(real.value) == std::bit_cast<std::uint64_t>(expected) ||
                (std::isnan(real.value) && std::isnan(expected)))
        << real.value;
    EXPECT_TRUE(row[3].empty() || real.fault == remarks.at(row[3]));
  }
}

TEST(Numbers, WithADecimalCommaBecomeThoseWithAPoint) {
  for (const auto& row : ReadTable("engines/tables/decimal-commas.table")) {
    std::string real, whole;
    qv::AppendWithPoint(real, row[0], false);
    qv::AppendWithPoint(whole, row[0], true);
    EXPECT_EQ(real, row[1]) << row[0];
    EXPECT_EQ(whole, row[2].empty() ? row[1] : row[2]) << row[0];
  }
}

/// Texts that look like numbers, more or less.
std::string RandomNumberText(std::mt19937_64& random) {
  const auto digits = [&](std::string& text) {
    for (auto count = random() % 12; count > 0; --count) text += static_cast<char>('0' + random() % 10);
  };
  std::string text = random() % 8 == 0 ? " " : "";
  if (random() % 4 == 0) text += random() % 2 == 0 ? '-' : '+';
  digits(text);
  if (random() % 3 != 0) text += '.';
  digits(text);
  if (random() % 6 == 0) text += "e" + std::to_string(static_cast<int>(random() % 80) - 40);
  if (random() % 6 == 0) text += "eE+-.,x 0\t"[random() % 10];
  return text;
}

TEST(Numbers, AreReadAsTheRuntimeDoes) {
  std::mt19937_64 random(7);
  for (int count = 0; count < 1'000'000; ++count) {
    const std::string text = RandomNumberText(random);
    ASSERT_EQ(std::bit_cast<std::uint64_t>(qv::ParseReal(text).value),
              std::bit_cast<std::uint64_t>(RuntimesReal(text.c_str())))
        << text;
    const long long exact = std::atoll(text.c_str());
    const bool fits = exact >= INT_MIN && exact <= INT_MAX;
    ASSERT_TRUE(!fits || qv::ParseInt(text).value == exact) << text;
  }
}

// Plain numbers of up to eight characters are told as such and give what the long way gives; of all other
// texts nothing is taken that the long way would see differently.
TEST(ParseShort, AgreesWithTheLongWay) {
  std::mt19937_64 random(9);
  for (int count = 0; count < 300'000; ++count) {
    std::string text = RandomNumberText(random).substr(0, 10);
    if (random() % 4 == 0 && !text.empty()) text[random() % text.size()] = static_cast<char>(random());
    int whole = 0;
    double real = 0;
    const bool isInt = qv::ParseShortInt(text, whole), isReal = qv::ParseShortReal(text, real);
    const auto longInt = qv::ParseInt(text);
    const auto longReal = qv::ParseReal(text);
    ASSERT_TRUE(!isInt || (longInt.value == whole && longInt.fault == NumberFault::None)) << text;
    ASSERT_TRUE(!isReal ||
                (std::bit_cast<std::uint64_t>(longReal.value) == std::bit_cast<std::uint64_t>(real) &&
                 longReal.fault == NumberFault::None))
        << text;
    const std::string digits = text.substr(text.starts_with('-'));
    const bool isPlain =
        !digits.empty() && digits.size() <= 8 && digits.find_first_not_of("0123456789") == std::string::npos;
    ASSERT_EQ(isInt, isPlain) << text;
    ASSERT_TRUE(isReal || !isPlain) << text;
  }
}

std::string Printed(double value, int decimals) {
  char text[400];
  std::snprintf(text, sizeof text, "%.*f", decimals, value);
  return text;
}

std::string Fixed(double value, int decimals) {
  qv::TextBuffer out;
  qv::AppendFixed(out, value, decimals);
  return std::string(out.View());
}

TEST(AppendFixed, PrintsAsTheRuntime) {
  std::vector<double> values;
  for (const auto& row : ReadTable("engines/tables/printed-numbers.table"))
    values.push_back(std::stod(row[0]));
  std::mt19937_64 random(20260101);
  for (int i = 0; i < 200000; ++i) {
    const double bits = std::bit_cast<double>(random());
    if (std::isfinite(bits)) values.push_back(bits);
    values.push_back(static_cast<double>(random() % 1'000'000'000'000) / 1e6);
    values.push_back(static_cast<double>(static_cast<float>(random() % 100'000) / 1000.0f));
    values.push_back(std::ldexp(static_cast<double>(random() % 4096), -8 - static_cast<int>(random() % 8)));
  }
  for (const double value : values)
    for (const int decimals : {3, 6}) ASSERT_EQ(Fixed(value, decimals), Printed(value, decimals)) << value;
}

}  // namespace
