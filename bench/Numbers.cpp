// Numbers beside what the C library and the standard library take for the same texts.

#include "text/Numbers.h"
#include "Scene.h"
#include "engines/columns/TextBuffer.h"

#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace bench {
namespace {

std::vector<std::string> Texts(int decimals) {
  std::vector<std::string> texts;
  std::uint64_t random = 11;
  for (int count = 0; count < 4096; ++count) {
    random = random * 6364136223846793005u + 1442695040888963407u;
    const auto whole = static_cast<double>(random >> 54);
    char text[32];
    std::snprintf(text, sizeof text, "%.*f", decimals, whole + static_cast<double>(random >> 40 & 255) / 256);
    texts.emplace_back(text);
  }
  return texts;
}

template <class Parse>
void EachText(benchmark::State& state, int decimals, Parse parse) {
  const std::vector<std::string> texts = Texts(decimals);
  std::size_t at = 0;
  for (auto _ : state) benchmark::DoNotOptimize(parse(texts[at++ % texts.size()]));
}

void ParseInt(benchmark::State& state) {
  EachText(state, 0, [](const std::string& text) { return qv::ParseInt(text).value; });
}
void ParseIntByAtoi(benchmark::State& state) {
  EachText(state, 0, [](const std::string& text) { return std::atoi(text.c_str()); });
}
void ParseReal(benchmark::State& state) {
  EachText(state, 3, [](const std::string& text) { return qv::ParseReal(text).value; });
}
void ParseRealByAtof(benchmark::State& state) {
  EachText(state, 3, [](const std::string& text) { return std::atof(text.c_str()); });
}
void ParseRealByFromChars(benchmark::State& state) {
  EachText(state, 3, [](const std::string& text) {
    double value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
  });
}
BENCHMARK(ParseInt);
BENCHMARK(ParseIntByAtoi);
BENCHMARK(ParseReal);
BENCHMARK(ParseRealByAtof);
BENCHMARK(ParseRealByFromChars);

template <class Write>
void EachNumber(benchmark::State& state, Write write) {
  std::vector<double> values;
  for (const std::string& text : Texts(3)) values.push_back(std::atof(text.c_str()));
  std::size_t at = 0;
  for (auto _ : state) write(values[at++ % values.size()]);
}

void WriteFixed(benchmark::State& state) {
  qv::TextBuffer text;
  EachNumber(state, [&](double value) {
    text.Clear();
    qv::AppendFixed(text, value, 6);
    benchmark::DoNotOptimize(text.View().data());
  });
}
void WriteFixedBySnprintf(benchmark::State& state) {
  char text[64];
  EachNumber(state, [&](double value) {
    std::snprintf(text, sizeof text, "%f", value);
    benchmark::DoNotOptimize(text);
  });
}
BENCHMARK(WriteFixed);
BENCHMARK(WriteFixedBySnprintf);

}  // namespace
}  // namespace bench
