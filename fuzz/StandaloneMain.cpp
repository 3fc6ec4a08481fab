#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

// Runs a fuzz target without a fuzzing engine: over its seeds, and over a fixed sequence of mutations of
// them.
//   TARGET RUNS SEEDS...

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

using Bytes = std::vector<std::uint8_t>;

std::vector<Bytes> ReadSeeds(int count, char** folders) {
  std::vector<Bytes> seeds{Bytes()};
  for (int i = 0; i < count; ++i)
    for (const auto& entry : std::filesystem::directory_iterator(folders[i])) {
      std::ifstream file(entry.path(), std::ios::binary);
      seeds.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    }
  return seeds;
}

Bytes Mutated(Bytes bytes, const std::vector<Bytes>& seeds, std::mt19937& random) {
  static constexpr char kSpecial[] = "\",;\t '\n\r\0|=%<>&-1\xFF\x1A";
  for (unsigned count = random() % 8; count > 0; --count) {
    const std::size_t at = bytes.empty() ? 0 : random() % bytes.size();
    const auto place = bytes.begin() + static_cast<std::ptrdiff_t>(at);
    switch (random() % 4) {
      case 0:
        bytes.insert(place, static_cast<std::uint8_t>(kSpecial[random() % (sizeof kSpecial - 1)]));
        break;
      case 1:
        if (!bytes.empty()) bytes.erase(place);
        break;
      case 2:
        if (!bytes.empty()) *place = static_cast<std::uint8_t>(random());
        break;
      default: {
        const Bytes& other = seeds[random() % seeds.size()];
        bytes.insert(place, other.begin(), other.begin() + static_cast<std::ptrdiff_t>(other.size() / 2));
      }
    }
  }
  return bytes;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) return 2;
  const int runs = std::stoi(argv[1]);
  const std::vector<Bytes> seeds = ReadSeeds(argc - 2, argv + 2);
  std::mt19937 random(1);
  for (const Bytes& seed : seeds) LLVMFuzzerTestOneInput(seed.data(), seed.size());
  for (int run = 0; run < runs; ++run) {
    const Bytes bytes = Mutated(seeds[random() % seeds.size()], seeds, random);
    LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
  }
  std::printf("%zu seeds and %d mutations\n", seeds.size(), runs);
  return 0;
}
