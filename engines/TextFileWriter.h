#pragma once

#include "engines/columns/TextBuffer.h"
#include "platform/ReplacingFile.h"

#include <string>
#include <string_view>

namespace qv {

/// Writes a text file in large blocks and puts it in its target's place when it is whole.
class TextFileWriter {
 public:
  TextFileWriter(const char* path, WorkingPlace place) : file_(path, place), open_(file_.Open()) {}

  bool IsOpen() const { return open_; }

  /// False once something could not be written: all that follows is in vain.
  bool IsWhole() const { return open_ && whole_; }

  /// The text that has not been written yet; append to it, then end the line.
  TextBuffer& Pending() { return pending_; }

  void EndLine() {
    pending_ += '\n';
    if (pending_.Size() >= kBlockSize) WritePending();
  }

  /// False, with Reason() set, when the target stays as it was.
  bool Commit() {
    WritePending();
    return open_ && file_.Commit();
  }

  const std::string& Reason() const { return file_.Reason(); }

 private:
  static constexpr std::size_t kBlockSize = std::size_t{1} << 18;

  void WritePending() {
    if (open_ && !file_.Write(AsPlatformText(pending_.View()))) whole_ = false;
    pending_.Clear();
  }

  // A line feed in a cell becomes what it is in the platform's text files, as the one behind the line does.
  std::string_view AsPlatformText(std::string_view text) {
    if (kLineEnd == "\n") return text;
    platformText_.clear();
    for (std::size_t end; (end = text.find('\n')) != std::string_view::npos; text.remove_prefix(end + 1))
      platformText_.append(text.substr(0, end)).append(kLineEnd);
    return platformText_.append(text);
  }

  ReplacingFile file_;
  bool open_;
  bool whole_ = true;
  TextBuffer pending_;
  std::string platformText_;
};

}  // namespace qv
