#pragma once

#include <QVAssemblyFile/QVAssemblyFile.h>

#include "support/TemporaryFolder.h"

#include <fstream>
#include <string>
#include <vector>

/// What tests of the public interface share.
namespace host {

/// The bytes of a text file with these lines, as the platform writes text.
inline std::string AsTextFile(const std::string& text) {
  const TemporaryFolder folder;
  const std::string path = folder / "text";
  std::ofstream(path) << text;
  return TemporaryFolder::Read(path);
}

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

inline std::string NameOf(PartInformation* part) { return Text(*part, &PartInformation::GetPartName); }

/// The manager takes paths as char*, though it does not change them.
inline char* Path(const std::string& path) { return const_cast<char*>(path.c_str()); }

}  // namespace host
