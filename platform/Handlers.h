#pragma once

#include "platform/FileProgress.h"

#include <QVAssemblyFile/Diagnostics.h>
#include <QVAssemblyFile/MessageBox.h>

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

/// Where a file's progress goes.
struct ProgressListener {
  ProgressHandler handler = nullptr;  ///< null: nowhere
  void* context = nullptr;
};
ProgressListener CurrentProgressListener();

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

}  // namespace qv
