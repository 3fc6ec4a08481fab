#include "Scene.h"

#include <QVAssemblyFile/PartInformation.h>
#include <QVAssemblyFile/RecordStream.h>

#include <unistd.h>

#include <filesystem>

namespace bench {
namespace {

/// Writes the parts of a file again, as a host does: attached records of its own, one call.
void ExportParts(benchmark::State& state) {
  Scene& scene = Scene::The();
  std::size_t bytes = 0;
  for (auto _ : state) {
    CAssemblyFileMgr source, manager;
    scene.SetUp(source);
    scene.SetUp(manager);
    RecordReader<PartInformation> parts(source, scene.file.c_str());
    for (const PartInformation& part : parts) manager.AddAndAttachPart(new PartInformation(part));
    Time(state, [&] { manager.ExportAssemblyFile(scene.out.data()); });
    bytes = std::filesystem::file_size(scene.out);
    ::unlink(scene.out.c_str());
  }
  Did(state, scene.rows, bytes);
}
BENCHMARK(ExportParts)->UseManualTime()->Unit(benchmark::kMillisecond);

/// One part again and again: what an export costs beside the memory of its records.
void WriteParts(benchmark::State& state) {
  Scene& scene = Scene::The();
  CAssemblyFileMgr manager;
  scene.SetUp(manager);
  const PartInformation hot = *RecordReader<PartInformation>(manager, scene.file.c_str()).Next();
  for (auto _ : state) {
    Time(state, [&] {
      RecordWriter<PartInformation> list(manager, scene.out.c_str());
      for (std::size_t row = 0; row < scene.rows; ++row) list.Put(hot);
      list.Commit();
    });
    ::unlink(scene.out.c_str());
  }
  Did(state, scene.rows, 0);
}
BENCHMARK(WriteParts)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace bench
