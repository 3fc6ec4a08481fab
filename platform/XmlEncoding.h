#pragma once

#include "platform/XmlDocument.h"

#include <optional>
#include <string>
#include <string_view>

namespace qv {

/// The bytes of a document as UTF-8 without a byte-order mark. The encoding is told by the byte-order mark,
/// else by the XML declaration, else it is UTF-8. Nothing, with `error`, when the bytes are not of it.
std::optional<std::string> DecodeXml(std::string_view bytes, XmlError& error);

/// Whether a declaration may name an encoding so, known or not.
bool IsXmlEncodingName(std::string_view name);

/// Sets the line and column (both from 1, in characters) of an offset into a UTF-8 text.
void LocateXmlError(std::string_view text, std::size_t offset, XmlError& error);

}  // namespace qv
