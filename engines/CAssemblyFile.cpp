#include "engines/CAssemblyFile.h"

#include <array>
#include <string_view>

namespace {

struct WrittenDelimiter {
  std::string_view name;
  char character;
};

// The order in which an export looks for a delimiter. Reading takes all that the format names.
constexpr std::array kWrittenDelimiters = {WrittenDelimiter{"Comma", ','}, WrittenDelimiter{"Semicolon", ';'},
                                           WrittenDelimiter{"Tab", '\t'}, WrittenDelimiter{"Space", ' '}};

}  // namespace

CAssemblyFile::CAssemblyFile() = default;
CAssemblyFile::~CAssemblyFile() = default;

void CAssemblyFile::QualifyField(std::string& text) const {
  if (Qualifier != 0 && Qualifier != 1) return;
  const char qualifier = Qualifier == 0 ? '"' : '\'';
  text.insert(text.begin(), qualifier);
  text += qualifier;
}

void CAssemblyFile::AppendDelimiter(std::string& text) const {
  for (const WrittenDelimiter& delimiter : kWrittenDelimiters)
    if (Delimiters.find(delimiter.name) != std::string::npos) {
      text += delimiter.character;
      return;
    }
  const bool hasOther = Delimiters.find("Other") != std::string::npos && !OtherDelimiters.empty();
  text += hasOther ? OtherDelimiters.front() : '\0';
}
