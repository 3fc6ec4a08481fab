#pragma once

#include "platform/CodePage.h"

#include <string>
#include <string_view>

namespace qv {

struct DecodedXml {
  std::string encoding;
  DecodedText text;  ///< without a byte-order mark
};

/// The bytes of a document as UTF-8. The encoding is told by the byte-order mark, else by the XML
/// declaration, else it is UTF-8.
DecodedXml DecodeXml(std::string_view bytes);

}  // namespace qv
