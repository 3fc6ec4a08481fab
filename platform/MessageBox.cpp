#include <QVAssemblyFile/MessageBox.h>

namespace {

MessageBoxHandler currentHandler = nullptr;
void* currentContext = nullptr;

}  // namespace

void SetMessageBoxHandler(MessageBoxHandler handler, void* context) {
  currentHandler = handler;
  currentContext = context;
}

namespace qv {

void ShowMessage(const char* text) {
  if (currentHandler != nullptr) {
    currentHandler(text, currentContext);
  } else {
    ShowPlatformMessage(text);
  }
}

}  // namespace qv
