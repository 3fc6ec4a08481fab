#pragma once

#include "cli/Errors.h"
#include "cli/TextCoding.h"
#include "engines/columns/RecordFields.h"
#include "platform/FileSystem.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

namespace qv {

/// A JSON input of any length: a stream as RapidJSON reads it, which knows the line and column where it is.
class JsonSource {
 public:
  /// `name` is what diagnostics call the file, which must outlive this.
  JsonSource(std::string name, OpenFile& file);

  const std::string& Name() const { return name_; }
  /// 1-based, of the byte that comes next; the column in bytes.
  std::int64_t Line();
  std::int64_t Column();
  bool AtEnd() const { return at_ == end_; }
  /// The number that begins at this place, of which at least the first character has been taken.
  std::string NumberAt(std::size_t place);
  /// Throws FileError when the file could not be read to its end.
  void CheckRead() const;

  using Ch = char;
  /// NUL at the end.
  char Peek() const { return block_[at_]; }
  char Take() {
    const char c = block_[at_];
    if (++at_ >= end_) Refill();
    return c;
  }
  std::size_t Tell() const { return begin_ + at_; }
  // Only for streams that are written to.
  char* PutBegin() { return nullptr; }
  void Put(char) {}
  void Flush() {}
  std::size_t PutEnd(char*) { return 0; }

 private:
  void Refill();
  void CountLines();

  std::string name_;
  OpenFile& file_;
  std::string block_;
  std::size_t at_ = 0;
  std::size_t end_ = 0;
  std::size_t begin_ = 0;      // the place of the block's first byte in the file
  std::size_t counted_ = 0;    // the place up to which lines are counted
  std::size_t lineBegin_ = 0;  // the place where the line begins
  std::int64_t line_ = 1;
  bool finished_ = false;
  bool failed_ = false;
};

/// Reads records of a kind from a document as an import prints it, from a bare array, or from JSON lines, and
/// gives each to `take` as soon as it is whole. Texts are encoded as the coding says. Warnings go to `warn`.
/// Throws FileError when the input is no list of records of the kind, also when it looks so because reading
/// it failed.
void ReadRecordsJson(JsonSource& source, const RecordType& type, const TextCoding& coding,
                     const std::function<void(const Utf8Diagnostic& warning)>& warn,
                     const std::function<void(AnyRecord record)>& take);

}  // namespace qv
