// What the machine can do at best, measured in the same run as the library.

#include "HotParse.h"
#include "PlainPart.h"
#include "Scene.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstring>
#include <memory>
#include <new>
#include <vector>

namespace bench {
namespace {

constexpr std::size_t kSamples = 256;

/// Texts of the usual lengths, ready to be copied without any parsing.
struct Filler {
  Filler() {
    std::uint64_t random = 7;
    std::string row;
    const DataTable& table = *FindTable("parts");
    for (std::size_t sample = 0; sample < kSamples; ++sample) {
      row.clear();
      AppendRow(row, table, Dress::Bare, random);
      std::size_t at = 0, text = 0;
      for (const DataColumn& column : table.columns) {
        const std::size_t end = row.find_first_of(";\n", at);
        if (column.type == Type::Text) texts[sample][text++] = row.substr(at, end - at);
        at = end + 1;
      }
    }
  }

  void Fill(PlainPart& part, std::size_t index) const {
    const auto& sample = texts[index % kSamples];
    for (std::size_t text = 0; text < PlainPart::kTexts; ++text)
      std::memcpy(part.texts[text], sample[text].c_str(), sample[text].size() + 1);
    for (int& number : part.ints) number = static_cast<int>(index);
    for (double& number : part.reals) number = static_cast<double>(index);
    std::memset(part.flags, 1, sizeof part.flags);
  }

  std::string texts[kSamples][PlainPart::kTexts];
};

/// Records side by side in large pages.
class Slab {
 public:
  static constexpr std::size_t kAlignment = std::size_t{2} << 20;

  explicit Slab(std::size_t records) : size_(records * sizeof(PlainPart) + kAlignment) {
    memory_ = ::mmap(nullptr, size_, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    ::madvise(memory_, size_, MADV_HUGEPAGE);
  }
  ~Slab() { ::munmap(memory_, size_); }
  Slab(const Slab&) = delete;
  Slab& operator=(const Slab&) = delete;
  PlainPart* Records() {
    const auto address = reinterpret_cast<std::uintptr_t>(memory_);
    return reinterpret_cast<PlainPart*>((address + kAlignment - 1) & ~(kAlignment - 1));
  }

 private:
  std::size_t size_;
  void* memory_;
};

void FillSlab(benchmark::State& state) {
  const std::size_t rows = Scene::The().rows;
  const Filler filler;
  for (auto _ : state) {
    std::unique_ptr<Slab> slab;
    TouchMemory(rows * sizeof(PlainPart));
    Time(state, [&] {
      slab = std::make_unique<Slab>(rows);
      for (std::size_t row = 0; row < rows; ++row) filler.Fill(slab->Records()[row], row);
    });
  }
  Did(state, rows, 0);
}
BENCHMARK(FillSlab)->UseManualTime()->Unit(benchmark::kMillisecond);

void FillNew(benchmark::State& state) {
  const std::size_t rows = Scene::The().rows;
  const Filler filler;
  for (auto _ : state) {
    std::vector<std::unique_ptr<PlainPart>> records;
    TouchMemory(rows * sizeof(PlainPart));
    Time(state, [&] {
      for (std::size_t row = 0; row < rows; ++row) {
        records.emplace_back(new PlainPart);
        filler.Fill(*records.back(), row);
      }
    });
  }
  Did(state, rows, 0);
}
BENCHMARK(FillNew)->UseManualTime()->Unit(benchmark::kMillisecond);

void ParseHot(benchmark::State& state) {
  const auto record = std::make_unique<PlainPart>();
  std::size_t rows = 0;
  for (auto _ : state) Time(state, [&] { rows = ParseIntoOneRecord(Scene::The().file, *record); });
  benchmark::DoNotOptimize(record->ints[0]);
  Did(state, rows, 0);
}
BENCHMARK(ParseHot)->UseManualTime()->Unit(benchmark::kMillisecond);

void Separators(benchmark::State& state) {
  const std::string text = ReadWhole(Scene::The().file);
  const char delimiter = text.substr(0, text.find('\n')).find(';') != std::string::npos ? ';' : ',';
  std::vector<std::uint32_t> positions(text.size() + 64);
  std::size_t count = 0;
  for (auto _ : state) Time(state, [&] { count = FindSeparators(text, delimiter, positions); });
  benchmark::DoNotOptimize(positions.data());
  Did(state, count, text.size());
}
BENCHMARK(Separators)->UseManualTime()->Unit(benchmark::kMillisecond);

/// One write for each line of the file, to another file.
void WriteLines(benchmark::State& state) {
  const std::string text = ReadWhole(Scene::The().file);
  std::size_t lines = 0;
  for (auto _ : state) {
    const int file = ::open(Scene::The().out.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    Time(state, [&] {
      lines = 0;
      for (std::size_t at = 0; at < text.size(); ++lines) {
        const std::size_t end = text.find('\n', at) + 1;
        if (::write(file, text.data() + at, end - at) < 0) return state.SkipWithError("cannot write");
        at = end;
      }
    });
    ::close(file);
    ::unlink(Scene::The().out.c_str());
  }
  Did(state, lines, text.size());
}
BENCHMARK(WriteLines)->UseManualTime()->Unit(benchmark::kMillisecond);

/// Every text of every record, read once into a small buffer.
void ReadTexts(benchmark::State& state) {
  const std::size_t rows = Scene::The().rows;
  const Filler filler;
  Slab slab(rows);
  for (std::size_t row = 0; row < rows; ++row) filler.Fill(slab.Records()[row], row);
  std::vector<char> line(PlainPart::kTexts * 256);
  for (auto _ : state)
    Time(state, [&] {
      for (std::size_t row = 0; row < rows; ++row) {
        char* out = line.data();
        for (const char(&text)[256] : slab.Records()[row].texts) {
          const std::size_t size = std::strlen(text);
          std::memcpy(out, text, size);
          out += size;
        }
        benchmark::ClobberMemory();
      }
    });
  Did(state, rows, 0);
}
BENCHMARK(ReadTexts)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace bench
