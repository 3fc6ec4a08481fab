#include "Scene.h"

#include <QVAssemblyFile/CAssemblyFileMgr.h>
#include <QVAssemblyFile/PartInformation.h>

#include <unistd.h>

#include <filesystem>
#include <memory>

namespace bench {
namespace {

/// Writes the parts of a file again, as a host does: attached records of its own, one call.
void ExportParts(benchmark::State& state) {
  Scene& scene = Scene::The();
  const auto attach = [](PartInformation* part, void* manager) {
    static_cast<CAssemblyFileMgr*>(manager)->AddAndAttachPart(new PartInformation(*part));
    return true;
  };
  std::size_t bytes = 0;
  for (auto _ : state) {
    CAssemblyFileMgr source, manager;
    scene.SetUp(source);
    scene.SetUp(manager);
    source.ReadAssemblyFile(scene.file.data(), attach, &manager);
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
  std::unique_ptr<PartInformation> hot;
  const auto keep = [](PartInformation* part, void* copy) {
    static_cast<std::unique_ptr<PartInformation>*>(copy)->reset(new PartInformation(*part));
    return false;
  };
  manager.ReadAssemblyFile(scene.file.data(), keep, &hot);
  const auto feed = [](RecordSink<PartInformation>& sink, void* part) {
    for (std::size_t row = 0; row < Scene::The().rows; ++row)
      sink.Write(*static_cast<PartInformation*>(part));
    return true;
  };
  for (auto _ : state) {
    Time(state, [&] { manager.WriteAssemblyFile(scene.out.data(), feed, hot.get()); });
    ::unlink(scene.out.c_str());
  }
  Did(state, scene.rows, 0);
}
BENCHMARK(WriteParts)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace bench
