#include "PlainDesign.h"
#include "Scene.h"

#include <QVAssemblyFile/CAssemblyFileMgr.h>
#include <QVAssemblyFile/MatAmncITInfo.h>
#include <QVAssemblyFile/PartInformation.h>
#include <QVAssemblyFile/ShtInfo.h>

#include <filesystem>

namespace bench {
namespace {

using Import = bool (CAssemblyFileMgr::*)(char*);
using Count = int (CAssemblyFileMgr::*)();

void ImportKind(benchmark::State& state, Import import, Count count) {
  Scene& scene = Scene::The();
  int rows = 0;
  for (auto _ : state) {
    CAssemblyFileMgr manager;
    manager.LoadFormatConfiguration(scene.formats.c_str());
    manager.SetCurrentFormat(scene.format.c_str());
    TouchMemory();
    Time(state, [&] { (manager.*import)(scene.file.data()); });
    rows = (manager.*count)();
  }
  Did(state, static_cast<std::size_t>(rows), std::filesystem::file_size(scene.file));
}

void ImportParts(benchmark::State& state) {
  ImportKind(state, &CAssemblyFileMgr::ImportAssemblyFile, &CAssemblyFileMgr::GetPartsCount);
}
BENCHMARK(ImportParts)->UseManualTime()->Unit(benchmark::kMillisecond);

/// The same file record by record: what an import costs beside the memory of its records.
void ReadParts(benchmark::State& state) {
  Scene& scene = Scene::The();
  CAssemblyFileMgr manager;
  manager.LoadFormatConfiguration(scene.formats.c_str());
  manager.SetCurrentFormat(scene.format.c_str());
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

void ImportInventory(benchmark::State& state) {
  ImportKind(state, &CAssemblyFileMgr::ImportMatAmncITAssemblyFile, &CAssemblyFileMgr::GetMatAmncITCount);
}
BENCHMARK(ImportInventory)->UseManualTime()->Unit(benchmark::kMillisecond);

void ImportSheets(benchmark::State& state) {
  ImportKind(state, &CAssemblyFileMgr::ImportShtInfoAssemblyFile, &CAssemblyFileMgr::GetShtCount);
}
BENCHMARK(ImportSheets)->UseManualTime()->Unit(benchmark::kMillisecond);

void ImportPartsPlainly(benchmark::State& state) {
  std::size_t rows = 0;
  for (auto _ : state) {
    PlainRecords records;
    TouchMemory();
    Time(state, [&] { records = ReadPlainly(Scene::The().file); });
    rows = records.size();
  }
  Did(state, rows, std::filesystem::file_size(Scene::The().file));
}
BENCHMARK(ImportPartsPlainly)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace bench
