#include "Scene.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

/// Takes the options of this program out of the command line; the rest is the benchmark library's.
void TakeOptions(int& count, char** arguments) {
  bench::Scene& scene = bench::Scene::The();
  const struct {
    const char* name;
    std::string* text;
    std::size_t* number;
  } options[] = {{"--file=", &scene.file, nullptr},       {"--format=", &scene.format, nullptr},
                 {"--formats=", &scene.formats, nullptr}, {"--out=", &scene.out, nullptr},
                 {"--rows=", nullptr, &scene.rows},       {"--touch=", nullptr, &scene.touch}};
  int kept = 1;
  for (int at = 1; at < count; ++at) {
    bool taken = false;
    for (const auto& option : options) {
      const std::size_t length = std::strlen(option.name);
      if (std::strncmp(arguments[at], option.name, length) != 0) continue;
      if (option.text != nullptr) *option.text = arguments[at] + length;
      if (option.number != nullptr) *option.number = std::strtoull(arguments[at] + length, nullptr, 10);
      taken = true;
    }
    if (!taken) arguments[kept++] = arguments[at];
  }
  count = kept;
}

}  // namespace

int main(int count, char** arguments) {
  TakeOptions(count, arguments);
  benchmark::Initialize(&count, arguments);
  if (benchmark::ReportUnrecognizedArguments(count, arguments)) return 2;
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
