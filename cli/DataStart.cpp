#include "cli/DataStart.h"

#include "cli/Errors.h"
#include "cli/StandardStreams.h"
#include "manager/FileStart.h"
#include "platform/CodePage.h"
#include "platform/ConsoleProgram.h"
#include "platform/FileSystem.h"
#include "text/Ascii.h"

#include <algorithm>

namespace qv {

bool IsStream(const Utf8Path& file) { return LeadsToStream(PathFromUtf8(file)); }

bool IsSameFile(const Utf8Path& left, const Utf8Path& right) {
  std::error_code ignored;
  return left == right || std::filesystem::equivalent(NativePath(left), NativePath(right), ignored);
}

bool IsWorkbook(const Utf8Path& file) { return EndsWithIgnoringCase(file, ".xls"); }

bool IsCsv(const Utf8Path& file) { return EndsWithIgnoringCase(file, ".csv"); }

const std::string& DataStart::Bytes() const {
  if (bytes_) return *bytes_;
  std::string reason;
  bytes_ = ReadFile(PathFromUtf8(file_), reason, kSize);
  if (!bytes_) throw FileError({file_, 0, "", "file-not-opened", "", "cannot be read: " + ToUtf8(reason)});
  if (kEndOfText >= 0) bytes_->resize(std::min(bytes_->find(static_cast<char>(kEndOfText)), bytes_->size()));
  return *bytes_;
}

std::string DataStart::FormatName(const TextCoding& coding) const {
  const bool isText = IsCsv(file_) || EndsWithIgnoringCase(file_, ".txt");
  const std::string name = isText && !IsStream(file_) && !IsStandardStream(file_)
                               ? FormatNameIn(Bytes())
                               : StoredFormatName(PathFromUtf8(file_).c_str());
  return FromUtf8(ToUtf8(name)) == name ? name : FromUtf8(coding.Decode(name));
}

}  // namespace qv
