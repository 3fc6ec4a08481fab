#pragma once

#include <QVAssemblyFile/Export.h>

/// Receives the text of a message box, in the system's code page, instead of the user, on the thread that is
/// inside the library. It must not throw, and must not call back into the manager that is at work.
using MessageBoxHandler = void (*)(const char* text, void* context);

/// Replaces the message box (Windows: a modal box with an OK button, owned by the active window; elsewhere: a
/// line on standard error) by a handler of the host's own. Null brings the message box back. Not to be called
/// while another thread is inside the library.
QVASSEMBLY_API void SetMessageBoxHandler(MessageBoxHandler handler, void* context);
