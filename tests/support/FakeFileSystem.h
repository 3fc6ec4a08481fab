#pragma once

#include "platform/FileSystem.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// A file system in memory, in use from its construction to its destruction. It records every call and can be
/// told to fail one of them, or every one from some call on, as a full disk does.
///
///   FakeFileSystem files;
///   files.Contents["a.csv"] = "old";
///   files.FailAt(3);
class FakeFileSystem final : public qv::FileSystem {
 public:
  static constexpr const char* kReason = "the disk is on fire";

  FakeFileSystem() { qv::SetFileSystem(this); }
  ~FakeFileSystem() override { qv::SetFileSystem(nullptr); }

  std::map<std::string, std::string> Contents;  ///< what stands where; a test may set and read it
  std::set<std::string> Folders;                ///< opening one of them fails
  std::vector<std::string> Calls;               ///< "open-write a.csv", "write 12 a.csv", ...
  std::size_t LargestRead = 1 << 20;            ///< a smaller one makes every read a short one

  /// Makes the n-th call from now (from 1) fail, of those whose record starts with `kind`.
  void FailAt(int n, std::string kind = "") {
    countdown_ = n;
    kind_ = std::move(kind);
    persistent_ = failed_ = false;
  }
  /// The same, and every later call of that kind too.
  void FailFrom(int n, std::string kind = "") {
    FailAt(n, std::move(kind));
    persistent_ = true;
  }
  /// Lets every call succeed from now on; Failed() stays.
  void StopFailing() { countdown_ = 0; }
  /// Whether a call was made to fail.
  bool Failed() const { return failed_; }

  /// Opens a file that holds the text and hands out so many bytes at a time.
  std::unique_ptr<qv::OpenFile> OpenText(std::string text, std::size_t step) {
    Contents["text"] = std::move(text);
    LargestRead = step;
    std::string reason;
    return Open("text", qv::OpenMode::Read, reason);
  }

  /// The path that a new content of `target` is written to.
  static std::string WorkingPathOf(const std::string& target) { return target + ".working"; }

  std::unique_ptr<qv::OpenFile> Open(const std::string& path, qv::OpenMode mode,
                                     std::string& reason) override {
    const bool reading = mode == qv::OpenMode::Read;
    if (Fails((reading ? "open-read " : "open-write ") + path, reason)) return nullptr;
    if (Folders.contains(path)) return Refuse("Is a directory", reason), nullptr;
    if (reading && !Contents.contains(path)) return Refuse("No such file or directory", reason), nullptr;
    if (!reading) Contents[path].clear();
    return std::make_unique<File>(*this, path);
  }

  std::unique_ptr<qv::WorkingFile> PrepareWorkingFile(const std::string& target, qv::WorkingPlace,
                                                      std::string& reason) override {
    if (Fails("prepare " + target, reason)) return nullptr;
    return std::make_unique<qv::WorkingFile>(target, WorkingPathOf(target));
  }

  bool Replace(const std::string& from, const std::string& to, std::string& reason) override {
    if (Fails("replace " + to, reason)) return false;
    if (!Contents.contains(from)) return Refuse("No such file or directory", reason);
    Contents[to] = std::exchange(Contents[from], {});
    Contents.erase(from);
    return true;
  }

  bool Remove(const std::string& path, std::string& reason) override {
    if (Fails("remove " + path, reason)) return false;
    return Contents.erase(path) > 0 || Refuse("No such file or directory", reason);
  }

  bool Exists(const std::string& path) override { return Contents.contains(path) || Folders.contains(path); }

 private:
  class File final : public qv::OpenFile {
   public:
    File(FakeFileSystem& files, std::string path) : files_(files), path_(std::move(path)) {}

    std::ptrdiff_t Read(char* buffer, std::size_t capacity) override {
      if (files_.Fails("read " + path_, reason_)) return -1;
      const std::string_view rest = std::string_view(files_.Contents[path_]).substr(at_);
      const std::size_t count = rest.copy(buffer, std::min(capacity, files_.LargestRead));
      at_ += count;
      return static_cast<std::ptrdiff_t>(count);
    }

    // A failing write has written half, as on a disk that fills up.
    bool Write(std::string_view bytes) override {
      const bool fails = files_.Fails("write " + std::to_string(bytes.size()) + " " + path_, reason_);
      files_.Contents[path_] += bytes.substr(0, fails ? bytes.size() / 2 : bytes.size());
      return !fails;
    }

    bool Flush() override { return !files_.Fails("flush " + path_, reason_); }
    bool Close() override { return !files_.Fails("close " + path_, reason_); }

   private:
    FakeFileSystem& files_;
    std::string path_;
    std::size_t at_ = 0;
  };

  static bool Refuse(const char* why, std::string& reason) {
    reason = why;
    return false;
  }

  bool Fails(std::string call, std::string& reason) {
    const bool counts = call.starts_with(kind_);
    Calls.push_back(std::move(call));
    if (!counts || countdown_ == 0) return false;
    if (countdown_ > 1) {
      --countdown_;
      return false;
    }
    if (!persistent_) countdown_ = 0;
    failed_ = true;
    reason = kReason;
    return true;
  }

  int countdown_ = 0;  // calls until the failing one; 0 for none
  std::string kind_;
  bool persistent_ = false;
  bool failed_ = false;
};

/// Runs `work(files)` again and again on a file system that holds `start`, failing the first call, then the
/// second, and so on until the work meets no failure any more; then the same with a failure that lasts. After
/// each run `check(files)` looks at the outcome. Returns the number of runs.
template <class Work, class Check>
int ForEachFailure(const std::map<std::string, std::string>& start, Work work, Check check) {
  int runs = 0;
  for (const bool lasting : {false, true}) {
    for (int n = 1;; ++n) {
      FakeFileSystem files;
      files.Contents = start;
      lasting ? files.FailFrom(n) : files.FailAt(n);
      work(files);
      check(files);
      ++runs;
      if (!files.Failed()) break;
    }
  }
  return runs;
}
