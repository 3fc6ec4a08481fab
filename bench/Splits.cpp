#include "Scene.h"
#include "engines/text/FieldSplitter.h"
#include "engines/text/LineReader.h"

#include <algorithm>
#include <cstring>

namespace bench {
namespace {

/// A file that lies in memory already.
class MemoryFile final : public qv::OpenFile {
 public:
  explicit MemoryFile(std::string_view text) : text_(text) {}
  std::ptrdiff_t Read(char* buffer, std::size_t capacity) override {
    const std::size_t count = std::min(capacity, text_.size());
    std::memcpy(buffer, text_.data(), count);
    text_.remove_prefix(count);
    return static_cast<std::ptrdiff_t>(count);
  }
  bool Write(std::string_view) override { return false; }
  bool Flush() override { return false; }
  bool Close() override { return true; }

 private:
  std::string_view text_;
};

/// Lines and fields of the whole text, as views; nothing is stored.
void Split(benchmark::State& state, const qv::SplitRules& rules) {
  const std::string text = ReadWhole(Scene::The().file);
  std::size_t fields = 0;
  for (auto _ : state)
    Time(state, [&] {
      MemoryFile file(text);
      qv::LineReader lines(file);
      qv::FieldSplitter splitter(rules);
      qv::FieldViews row;
      std::string_view line;
      fields = 0;
      while (lines.Next(line)) {
        splitter.Split(line, row);
        fields += row.total;
        benchmark::DoNotOptimize(row.fields.data());
      }
    });
  Did(state, fields, text.size());
}

void SplitCsv(benchmark::State& state) { Split(state, qv::SplitRules::Csv()); }
BENCHMARK(SplitCsv)->UseManualTime()->Unit(benchmark::kMillisecond);

void SplitQualified(benchmark::State& state) { Split(state, {",", '"'}); }
BENCHMARK(SplitQualified)->UseManualTime()->Unit(benchmark::kMillisecond);

void SplitUnqualified(benchmark::State& state) { Split(state, {";"}); }
BENCHMARK(SplitUnqualified)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace bench
