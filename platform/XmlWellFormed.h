#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace qv {

/// Where and why a text is not well-formed XML.
struct XmlFault {
  std::size_t offset = 0;
  std::string reason;  ///< empty when there is no fault
};

/// Finds the first fault of a document in well-formed UTF-8, its byte-order mark taken off. A document type
/// declaration is a fault, so that nothing it declares can be expanded or fetched, and so is a reference to
/// any entity but the five built-in ones, whose text would be lost without a word.
XmlFault FindXmlFault(std::string_view text);

}  // namespace qv
