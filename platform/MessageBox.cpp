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

bool TellMessageHandler(const char* text) {
  if (currentHandler == nullptr) return false;
  currentHandler(text, currentContext);
  return true;
}

void ShowMessage(const char* text) {
  if (!TellMessageHandler(text)) ShowPlatformMessage(text);
}

}  // namespace qv
