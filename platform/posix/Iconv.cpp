#include "platform/posix/Iconv.h"

#include <array>
#include <cerrno>

namespace qv {
namespace {

const iconv_t kNone = reinterpret_cast<iconv_t>(-1);

// The system reads a slash as the start of an option ("//IGNORE") that would change what this class promises.
bool IsPlainName(const std::string& name) { return !name.empty() && name.find('/') == std::string::npos; }

}  // namespace

Iconv::Iconv(const std::string& to, const std::string& from)
    : handle_(IsPlainName(to) && IsPlainName(from) ? iconv_open(to.c_str(), from.c_str()) : kNone) {}

Iconv::~Iconv() {
  if (IsOpen()) iconv_close(handle_);
}

bool Iconv::IsOpen() const { return handle_ != kNone; }

bool Iconv::Convert(std::string_view& text, std::string& out) {
  std::array<char, 4096> buffer;
  while (!text.empty()) {
    char* input = const_cast<char*>(text.data());  // iconv() does not write to it
    std::size_t inputLeft = text.size();
    char* output = buffer.data();
    std::size_t outputLeft = buffer.size();
    const std::size_t result = iconv(handle_, &input, &inputLeft, &output, &outputLeft);
    const int error = errno;
    out.append(buffer.data(), buffer.size() - outputLeft);
    text.remove_prefix(text.size() - inputLeft);
    if (result == static_cast<std::size_t>(-1) && error != E2BIG) return false;
  }
  return true;
}

void Iconv::Finish(std::string& out) {
  std::array<char, 64> buffer;
  char* output = buffer.data();
  std::size_t outputLeft = buffer.size();
  iconv(handle_, nullptr, nullptr, &output, &outputLeft);
  out.append(buffer.data(), buffer.size() - outputLeft);
}

}  // namespace qv
