#include "platform/XmlDocument.h"

#include <windows.h>

#include <objbase.h>

namespace qv {

// A thread that has COM of another kind keeps it, and there is nothing to give back.
XmlLoadScope::XmlLoadScope() : active_(SUCCEEDED(CoInitialize(nullptr))) {}

XmlLoadScope::~XmlLoadScope() {
  if (active_) CoUninitialize();
}

}  // namespace qv
