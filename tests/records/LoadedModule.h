#pragma once

#include <cstddef>

/// A shared library that is loaded as a host's own would be, and unloaded with the object.
class LoadedModule {
 public:
  explicit LoadedModule(const char* path);
  ~LoadedModule();
  LoadedModule(const LoadedModule&) = delete;
  LoadedModule& operator=(const LoadedModule&) = delete;

  /// Null when there is none, or no module.
  void* Function(const char* name) const;

  static bool IsLoaded(const char* path);

 private:
  void* handle_;
};

/// What this process has of the system's memory.
std::size_t CommittedBytes();
