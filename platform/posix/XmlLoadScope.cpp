#include "platform/XmlDocument.h"

namespace qv {

XmlLoadScope::XmlLoadScope() : active_(true) {}

XmlLoadScope::~XmlLoadScope() = default;

}  // namespace qv
