#include "Scene.h"

#include <algorithm>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

/// Takes the options of this program out of the command line; the rest is the benchmark library's.
void TakeOptions(int& count, char** arguments) {
  bench::Scene& scene = bench::Scene::The();
  std::string rows;
  const struct {
    std::string_view name;
    std::string& text;
  } options[] = {{"--file=", scene.file},
                 {"--format=", scene.format},
                 {"--formats=", scene.formats},
                 {"--out=", scene.out},
                 {"--rows=", rows}};
  const auto take = [&](std::string_view argument) {
    for (const auto& option : options)
      if (argument.starts_with(option.name)) {
        option.text = argument.substr(option.name.size());
        return true;
      }
    return false;
  };
  count = static_cast<int>(std::remove_if(arguments + 1, arguments + count, take) - arguments);
  scene.rows = std::strtoull(rows.c_str(), nullptr, 10);
}

}  // namespace

int main(int count, char** arguments) {
  TakeOptions(count, arguments);
  benchmark::Initialize(&count, arguments);
  if (benchmark::ReportUnrecognizedArguments(count, arguments)) return 2;
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
