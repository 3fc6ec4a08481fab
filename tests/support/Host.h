#pragma once

#include <QVAssemblyFile/QVAssemblyFile.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

/// What tests of the public interface share: a folder of their own, files in it, and listeners.
namespace host {

/// A folder that goes with the test.
class Folder {
 public:
  Folder() {
    static int count = 0;
    path_ = std::filesystem::temp_directory_path() /
            ("qv-host-" + std::to_string(::testing::UnitTest::GetInstance()->random_seed()) + "-" +
             std::to_string(++count));
    std::filesystem::remove_all(path_);
    std::filesystem::create_directories(path_);
  }
  ~Folder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;

  std::string operator/(std::string_view name) const { return (path_ / name).string(); }

  std::string Write(std::string_view name, std::string_view content) const {
    const std::string path = *this / name;
    std::ofstream(path, std::ios::binary).write(content.data(), static_cast<std::streamsize>(content.size()));
    return path;
  }

  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(path_))
      names.push_back(entry.path().filename().string());
    return names;
  }

 private:
  std::filesystem::path path_;
};

inline std::string Read(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// The bytes of a text file with these lines, as the platform writes text.
inline std::string AsTextFile(const std::string& text) {
  const Folder folder;
  const std::string path = folder / "text";
  std::ofstream(path) << text;
  return Read(path);
}

/// Collects diagnostics while it lives.
class Remarks {
 public:
  Remarks() {
    SetDiagnosticHandler([](const Diagnostic& diagnostic,
                            void* context) { static_cast<Remarks*>(context)->all.push_back(diagnostic); },
                         this);
  }
  ~Remarks() { SetDiagnosticHandler(nullptr, nullptr); }
  Remarks(const Remarks&) = delete;
  Remarks& operator=(const Remarks&) = delete;

  std::vector<Diagnostic> all;
};

/// Collects message boxes while it lives.
class Boxes {
 public:
  Boxes() {
    SetMessageBoxHandler(
        [](const char* text, void* context) { static_cast<Boxes*>(context)->all.emplace_back(text); }, this);
  }
  ~Boxes() { SetMessageBoxHandler(nullptr, nullptr); }
  Boxes(const Boxes&) = delete;
  Boxes& operator=(const Boxes&) = delete;

  std::vector<std::string> all;
};

/// The manager takes paths as char*, though it does not change them.
inline char* Path(const std::string& path) { return const_cast<char*>(path.c_str()); }

}  // namespace host
