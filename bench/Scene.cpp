#include "Scene.h"

#include <QVAssemblyFile/CAssemblyFileMgr.h>

#include <sys/mman.h>

#include <cstring>
#include <ctime>
#include <fstream>
#include <iterator>

namespace bench {

Scene& Scene::The() {
  static Scene scene;
  return scene;
}

void Scene::SetUp(CAssemblyFileMgr& manager) const {
  manager.LoadFormatConfiguration(formats.c_str());
  manager.SetCurrentFormat(format.c_str());
}

void TouchMemory(std::size_t size) {
  void* const memory = ::mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (memory == MAP_FAILED) return;
  ::madvise(memory, size, MADV_HUGEPAGE);
  std::memset(memory, 1, size);
  benchmark::DoNotOptimize(memory);
  ::munmap(memory, size);
}

double ProcessorSeconds() {
  timespec time{};
  ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

std::string ReadWhole(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace bench
