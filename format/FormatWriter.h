#pragma once

#include "format/FormatList.h"
#include "platform/XmlDocument.h"

#include <stdexcept>
#include <string>
#include <utility>

/// A node that cannot be made: what() says of which kind it is, Detail() which one and why.
class NodeError : public std::runtime_error {
 public:
  NodeError(const char* what, std::string detail) : std::runtime_error(what), detail_(std::move(detail)) {}
  const std::string& Detail() const { return detail_; }

 private:
  std::string detail_;
};

/// Builds the format file of `list` in an empty document. Throws NodeError.
void WriteFormats(const FormatList& list, qv::XmlDocument& document);
