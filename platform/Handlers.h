#pragma once

#include "platform/FileProgress.h"

#include <QVAssemblyFile/Diagnostics.h>
#include <QVAssemblyFile/MessageBox.h>

#include <cstdint>
#include <string>

/// The library's own side of the handlers that a host sets; hosts do not see it.
namespace qv {

/// Cheap test, for code that would otherwise prepare a diagnostic without a handler for it.
bool DiagnosticsWanted();

/// Hands the diagnostic to the handler, if there is one.
void Report(const Diagnostic& diagnostic);

/// Shows `text` through the handler or the platform's message box.
void ShowMessage(const char* text);

/// Hands `text` to the handler; false when there is none.
bool TellMessageHandler(const char* text);

/// Tells the progress handler how far the work on one file has come. Costs one test a block while there is
/// none.
class ProgressMeter {
 public:
  /// `file` must outlive the meter.
  ProgressMeter(const std::string& file, FileProgress::Work work, FileProgress::Unit unit);

  /// Starts to count anew, up to `total`.
  void Expect(std::int64_t total);

  /// So much more is done. False once the work is cancelled.
  bool Advance(std::int64_t amount) { return handler_ == nullptr || Tell(amount); }

  bool IsCancelled() const { return isCancelled_; }

 private:
  bool Tell(std::int64_t amount);

  ProgressHandler handler_;
  void* context_;
  FileProgress progress_;
  bool isCancelled_ = false;
};

/// While it lives, what this thread has to tell goes to these handlers instead of the process's; without one
/// for message boxes these go where they went. For hosts whose handlers belong to one manager. Nests.
class ThreadHandlers {
 public:
  ThreadHandlers(DiagnosticHandler diagnostic, MessageBoxHandler messageBox, ProgressHandler progress,
                 void* context);
  ~ThreadHandlers();
  ThreadHandlers(const ThreadHandlers&) = delete;
  ThreadHandlers& operator=(const ThreadHandlers&) = delete;

  struct Set {
    DiagnosticHandler diagnostic;
    MessageBoxHandler messageBox;
    ProgressHandler progress;
    void* context;
  };

 private:
  const Set handlers_;
  const Set* const before_;
};

/// The platform's own message box, whatever handler is set.
void ShowPlatformMessage(const char* text);

/// The runtime's invalid-parameter failure: a caller error that ends the process, after the runtime's handler
/// (on Windows one that the host may have set) has been called.
[[noreturn]] void InvalidParameter(const char* what);

}  // namespace qv
