#include "platform/windows/WideText.h"

#include "text/Utf8.h"

#include <windows.h>

#include <algorithm>

namespace qv {
namespace {

constexpr std::size_t kMaxCharacterBytes = 4;  // in any code page
constexpr wchar_t kReplacement = 0xFFFD;

int Length(std::size_t size) { return static_cast<int>(size); }

// Nothing when a byte does not decode. Code pages that switch between sets take no flags.
std::optional<std::wstring> Decode(std::string_view text, unsigned codePage) {
  if (text.empty()) return std::wstring();
  for (const DWORD flags : {DWORD{MB_ERR_INVALID_CHARS}, DWORD{0}}) {
    const int size = MultiByteToWideChar(codePage, flags, text.data(), Length(text.size()), nullptr, 0);
    if (size > 0) {
      std::wstring wide(static_cast<std::size_t>(size), L'\0');
      MultiByteToWideChar(codePage, flags, text.data(), Length(text.size()), wide.data(), size);
      return wide;
    }
    if (GetLastError() != ERROR_INVALID_FLAGS) break;
  }
  return std::nullopt;
}

std::size_t IllFormedLength(std::string_view text, unsigned codePage) {
  return codePage == kUtf8CodePage ? DecodeUtf8(text).length : 1;
}

// The text's first character.
std::wstring DecodeOne(std::string_view& text, unsigned codePage) {
  for (std::size_t length = 1; length <= std::min(kMaxCharacterBytes, text.size()); ++length) {
    if (const auto wide = Decode(text.substr(0, length), codePage)) {
      text.remove_prefix(length);
      return *wide;
    }
  }
  text.remove_prefix(IllFormedLength(text, codePage));
  return {kReplacement};
}

bool TakesNoFlags(unsigned codePage) {
  return codePage == kUtf8CodePage || codePage == 54936 || codePage == 65000 ||
         (codePage >= 50220 && codePage <= 50229) || (codePage >= 57002 && codePage <= 57011);
}

std::string Encode(std::wstring_view wide, unsigned codePage, bool& lost) {
  lost = false;
  if (wide.empty()) return {};
  const bool plain = TakesNoFlags(codePage);
  const DWORD flags = plain ? 0 : WC_NO_BEST_FIT_CHARS;
  const char* const replacement = plain ? nullptr : "?";
  BOOL isLossy = FALSE;
  BOOL* const usedDefault = plain ? nullptr : &isLossy;
  const int count = Length(wide.size());
  const int size =
      WideCharToMultiByte(codePage, flags, wide.data(), count, nullptr, 0, replacement, usedDefault);
  std::string text(static_cast<std::size_t>(size), '\0');
  WideCharToMultiByte(codePage, flags, wide.data(), count, text.data(), size, replacement, usedDefault);
  lost = isLossy != FALSE;
  return text;
}

std::size_t CharacterLength(std::wstring_view wide) {
  return wide.size() > 1 && IS_HIGH_SURROGATE(wide[0]) && IS_LOW_SURROGATE(wide[1]) ? 2 : 1;
}

}  // namespace

std::wstring Widen(std::string_view text, unsigned codePage) {
  if (codePage == kAnsiCodePage) codePage = GetACP();
  if (auto wide = Decode(text, codePage)) return *wide;
  std::wstring wide;
  while (!text.empty()) wide += DecodeOne(text, codePage);
  return wide;
}

std::string Narrow(std::wstring_view wide, unsigned codePage) {
  if (codePage == kAnsiCodePage) codePage = GetACP();
  bool lost = false;
  std::string whole = Encode(wide, codePage, lost);
  if (!lost) return whole;
  std::string text;
  while (!wide.empty()) {
    const std::size_t length = CharacterLength(wide);
    const std::string character = Encode(wide.substr(0, length), codePage, lost);
    text += lost ? "?" : character;
    wide.remove_prefix(length);
  }
  return text;
}

std::optional<std::string> NarrowWhole(std::wstring_view wide) {
  std::string text = Narrow(wide);
  if (Widen(text) != wide) return std::nullopt;
  return text;
}

std::string SystemReason(unsigned long error) {
  wchar_t text[512];
  const DWORD flags =
      FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK;
  const DWORD length =
      FormatMessageW(flags, nullptr, error, 0, text, static_cast<DWORD>(std::size(text)), nullptr);
  std::wstring_view reason(text, length);
  while (!reason.empty() && (reason.back() == L' ' || reason.back() == L'.')) reason.remove_suffix(1);
  return reason.empty() ? "system error " + std::to_string(error) : Narrow(reason);
}

}  // namespace qv
