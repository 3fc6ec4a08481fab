#pragma once

#include "cli/Progress.h"
#include "platform/FileSystem.h"

#include <cstdint>
#include <memory>
#include <string>

namespace qv {

/// Stands before the file system while it lives: tells the progress of what the library reads or writes, and
/// can end every file after so many lines, for those who want to know only how it starts.
class WatchedFiles final : public FileSystem {
 public:
  static constexpr std::int64_t kAllLines = -1;

  WatchedFiles(Progress& progress, OpenMode counted, std::int64_t lines = kAllLines);
  ~WatchedFiles() override;

  std::unique_ptr<OpenFile> Open(const std::string& path, OpenMode mode, std::string& reason) override;
  std::unique_ptr<WorkingFile> PrepareWorkingFile(const std::string& target, WorkingPlace place,
                                                  std::string& reason) override {
    return files_.PrepareWorkingFile(target, place, reason);
  }
  bool Replace(const std::string& from, const std::string& to, std::string& reason) override {
    return files_.Replace(from, to, reason);
  }
  bool Remove(const std::string& path, std::string& reason) override { return files_.Remove(path, reason); }
  bool Exists(const std::string& path) override { return files_.Exists(path); }
  bool CreateFolders(const std::string& path, std::string& reason) override {
    return files_.CreateFolders(path, reason);
  }
  bool RemoveFolder(const std::string& path, std::string& reason) override {
    return files_.RemoveFolder(path, reason);
  }

 private:
  FileSystem& files_;
  Progress& progress_;
  OpenMode counted_;
  std::int64_t lines_;
};

}  // namespace qv
