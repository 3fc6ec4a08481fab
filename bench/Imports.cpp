#include "ImportKind.h"
#include "PlainDesign.h"
#include "Scene.h"

#include <QVAssemblyFile/CAssemblyFileMgr.h>

#include <filesystem>

namespace bench {
namespace {

void Import(benchmark::State& state) {
  Scene& scene = Scene::The();
  const ImportKind& kind = KindOfFormat(scene.format);
  int rows = 0;
  for (auto _ : state) {
    CAssemblyFileMgr manager;
    scene.SetUp(manager);
    TouchMemory(scene.rows * kind.recordSize);
    Time(state, [&] { (manager.*kind.import)(scene.file.data()); });
    rows = (manager.*kind.count)();
  }
  Did(state, static_cast<std::size_t>(rows), std::filesystem::file_size(scene.file));
}
BENCHMARK(Import)->UseManualTime()->Unit(benchmark::kMillisecond);

/// A file of parts record by record: what an import costs beside the memory of its records.
void ReadParts(benchmark::State& state) {
  Scene& scene = Scene::The();
  CAssemblyFileMgr manager;
  scene.SetUp(manager);
  std::size_t rows = 0;
  const auto count = [](PartInformation*, void* counter) {
    return ++*static_cast<std::size_t*>(counter) > 0;
  };
  for (auto _ : state) {
    rows = 0;
    Time(state, [&] { manager.ReadAssemblyFile(scene.file.data(), count, &rows); });
  }
  Did(state, rows, std::filesystem::file_size(scene.file));
}
BENCHMARK(ReadParts)->UseManualTime()->Unit(benchmark::kMillisecond);

void ImportPlainly(benchmark::State& state) {
  std::size_t rows = 0;
  for (auto _ : state) {
    PlainRecords records;
    TouchMemory(Scene::The().rows * sizeof(PlainPart));
    Time(state, [&] { records = ReadPlainly(Scene::The().file); });
    rows = records.size();
  }
  Did(state, rows, std::filesystem::file_size(Scene::The().file));
}
BENCHMARK(ImportPlainly)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace bench
