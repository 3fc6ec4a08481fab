#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <string_view>

/// A folder of a test's own, removed with everything in it. Names of entries are UTF-8.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    static int count = 0;
    do path_ = std::filesystem::temp_directory_path() / ("qvtest-" + std::to_string(++count));
    while (!std::filesystem::create_directory(path_));
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  /// The path of an entry, which need not exist.
  std::string operator/(const std::string& name) const { return (path_ / name).string(); }

  /// Makes the folders that a name such as "a/b.txt" needs.
  std::string Write(const std::string& name, std::string_view bytes) const {
    const std::filesystem::path path = path_ / std::u8string(name.begin(), name.end());
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << bytes;
    return *this / name;
  }

  static std::string Read(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  /// The names of everything in the folder, hidden or not.
  std::set<std::string> Names() const {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(path_)) {
      const std::u8string name = entry.path().filename().u8string();
      names.emplace(name.begin(), name.end());
    }
    return names;
  }

 private:
  std::filesystem::path path_;
};
