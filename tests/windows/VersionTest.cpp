#include <gtest/gtest.h>
#include <windows.h>

#include <string>
#include <vector>

namespace {

std::string VersionText(const char* file, const char* key) {
  const std::string block = std::string("\\StringFileInfo\\040904b0\\") + key;
  const DWORD size = GetFileVersionInfoSizeA(file, nullptr);
  std::vector<char> information(size);
  void* text = nullptr;
  UINT length = 0;
  if (size == 0 || GetFileVersionInfoA(file, 0, size, information.data()) == FALSE ||
      VerQueryValueA(information.data(), block.c_str(), &text, &length) == FALSE) {
    return {};
  }
  return static_cast<const char*>(text);
}

TEST(VersionTest, StandsInTheFilesProperties) {
  char path[MAX_PATH] = "";
  GetModuleFileNameA(GetModuleHandleA("QVAssemblyFile.dll"), path, MAX_PATH);
  EXPECT_EQ(VersionText(path, "ProductVersion"), QV_VERSION);
  EXPECT_EQ(VersionText(path, "OriginalFilename"), "QVAssemblyFile.dll");
}

}  // namespace
