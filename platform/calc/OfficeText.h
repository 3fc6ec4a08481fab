#pragma once

#include <osl/file.hxx>
#include <rtl/string.hxx>
#include <rtl/ustring.hxx>

#include <string>
#include <string_view>

/// Text between this system (UTF-8) and the office (UTF-16). A byte that does not decode becomes U+FFFD.
namespace qv {

using rtl::OString;
using rtl::OUString;

inline OUString ToOffice(std::string_view text) {
  return OStringToOUString(OString(text.data(), static_cast<sal_Int32>(text.size())), RTL_TEXTENCODING_UTF8);
}

inline std::string FromOffice(const OUString& text) {
  const OString bytes = OUStringToOString(text, RTL_TEXTENCODING_UTF8);
  return {bytes.getStr(), static_cast<std::size_t>(bytes.getLength())};
}

/// The path, which must be absolute, as a file: URL; empty when it is none.
inline OUString FileUrl(const std::string& path) {
  OUString url;
  osl::FileBase::getFileURLFromSystemPath(ToOffice(path), url);
  return url;
}

}  // namespace qv
