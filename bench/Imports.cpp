#include "ImportKind.h"
#include "PlainDesign.h"
#include "Scene.h"

#include <QVAssemblyFile/Diagnostics.h>
#include <QVAssemblyFile/MatAmncITInfo.h>
#include <QVAssemblyFile/PartInformation.h>
#include <QVAssemblyFile/RecordStream.h>
#include <QVAssemblyFile/qvassembly.hpp>

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

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
  for (auto _ : state)
    Time(state, [&] {
      rows = 0;
      for (RecordReader<PartInformation> parts(manager, scene.file.c_str()); parts.Next() != nullptr;) ++rows;
    });
  Did(state, rows, std::filesystem::file_size(scene.file));
}
BENCHMARK(ReadParts)->UseManualTime()->Unit(benchmark::kMillisecond);

/// What a host does that reads the inventory record by record, takes all values and wants to know what was
/// not taken as it stood, as the C interface always does.
void ReadInventory(benchmark::State& state) {
  Scene& scene = Scene::The();
  CAssemblyFileMgr manager;
  scene.SetUp(manager);
  SetDiagnosticHandler([](const Diagnostic&, void*) {}, nullptr);
  std::size_t rows = 0;
  for (auto _ : state)
    Time(state, [&] {
      rows = 0;
      RecordReader<MatAmncITInfo> entries(manager, scene.file.c_str());
      while (MatAmncITInfo* const entry = entries.Next()) {
        benchmark::DoNotOptimize(entry->GetShelfNo() + entry->GetQuantity());
        benchmark::DoNotOptimize(entry->GetThickness() + entry->GetSizeX() + entry->GetSizeY());
        benchmark::DoNotOptimize(entry->GetMaterialName());
        benchmark::DoNotOptimize(entry->GetPalletkind());
        ++rows;
      }
    });
  SetDiagnosticHandler(nullptr, nullptr);
  Did(state, rows, std::filesystem::file_size(scene.file));
}
BENCHMARK(ReadInventory)->UseManualTime()->Unit(benchmark::kMillisecond);

/// The same values through the C interface, a thousand records a call.
void FetchInventory(benchmark::State& state) {
  Scene& scene = Scene::The();
  qva::Manager manager;
  manager.loadFormats(scene.formats);
  manager.selectFormat(scene.format);
  constexpr std::int32_t kBatch = 1000;
  constexpr std::int32_t kFields = 7;  // each takes at most 16 bytes a record
  std::array<std::int32_t, kFields> fields{};
  std::array<std::vector<std::int64_t>, kFields> values;
  std::array<void*, kFields> arrays{};
  for (std::int32_t field = 0; field < kFields; ++field) {
    const auto at = static_cast<std::size_t>(field);
    fields[at] = field;
    values[at].resize(2 * kBatch);
    arrays[at] = values[at].data();
  }
  std::vector<char> texts(1 << 20);
  std::size_t rows = 0;
  for (auto _ : state)
    Time(state, [&] {
      rows = 0;
      const qva::Reader entries = manager.read(scene.file, qva::Kind::MaterialInventory);
      std::int32_t records = 0;
      while (qva_reader_fetch(entries.handle(), fields.data(), kFields, kBatch, arrays.data(), texts.data(),
                              static_cast<std::int64_t>(texts.size()), &records) == QVA_OK)
        rows += static_cast<std::size_t>(records);
    });
  Did(state, rows, std::filesystem::file_size(scene.file));
}
BENCHMARK(FetchInventory)->UseManualTime()->Unit(benchmark::kMillisecond);

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
