#pragma once

#include <QVAssemblyFile/CAssemblyFileMgr.h>
#include <QVAssemblyFile/RecordKind.h>

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <memory>

/// Files of any length, record by record, in the memory of one record:
///
///   RecordReader<PartInformation> parts(manager, "parts.csv");
///   RecordWriter<PartInformation> list(other, "list.txt");
///   for (PartInformation& part : parts) list.Put(part);
///   if (!parts.HasFailed()) list.Commit();
///
/// Both take the format that is the manager's current one when they are made, and are an import or export of
/// that manager: its records are gone, counts are 0, and it has the headers of the file that is read. From
/// then on they do not need the manager any more, which may do anything, even end. A reader and a writer may
/// be at work at the same time on one file, as a written file takes the place of the old one at the end.
///
/// As for a manager, one thread at a time. Only std::bad_alloc is thrown. What is wrong with the file is
/// reported to the diagnostic handler (Diagnostics.h).

/// Reads the records of a kind that is known at run time only: a record is a pointer to an object of the
/// kind's class.
class QVASSEMBLY_API AnyRecordReader {
 public:
  /// Opens the file and reads up to its header row. What is wrong with the format and with what
  /// precedes the records is reported here.
  AnyRecordReader(CAssemblyFileMgr& manager, RecordKind kind, const char* path);
  /// Closes the file; records that were not read are not reported.
  ~AnyRecordReader();
  AnyRecordReader(const AnyRecordReader&) = delete;
  AnyRecordReader& operator=(const AnyRecordReader&) = delete;

  /// The next record, or null when there is none. It is the reader's, may be changed, and is gone with the
  /// next call. Diagnostics on its row, and on rows left out before it, have been
  /// reported by then. At
  /// the end the file is closed.
  void* Next();

  /// The line, or worksheet row, that was read last: the record's. 0 where there is none yet.
  std::int64_t LineNumber() const;

  /// Whether the file could not be opened, is of a type that is not supported for the kind, or could not be
  /// read to its end. Final when Next() has returned null.
  bool HasFailed() const;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

/// Writes records of a kind that is known at run time only.
class QVASSEMBLY_API AnyRecordWriter {
 public:
  /// Begins the file beside the one that may be there. A workbook is made of copies of the records, by
  /// Finish().
  AnyRecordWriter(CAssemblyFileMgr& manager, RecordKind kind, const char* path);
  /// Without Commit() nothing is written, and the old file stays.
  ~AnyRecordWriter();
  AnyRecordWriter(const AnyRecordWriter&) = delete;
  AnyRecordWriter& operator=(const AnyRecordWriter&) = delete;

  /// Writes a record, which must be of the kind's class and stays the caller's. False when the file cannot be
  /// written any more, and after Finish() or Commit().
  bool Put(const void* record);

  /// Ends the new file without putting it in its place: all that there is to remark on has been reported
  /// then, for those who want to decide by it whether to commit. False when the file cannot be written.
  bool Finish();

  /// Finishes the new file and puts it in the place of the old one. False when the old one stays, and when it
  /// is called again.
  bool Commit();

  /// Whether the file could not be begun or written, or its type is not supported.
  bool HasFailed() const;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

/// Reads the records of one file. They are read once: by Next(), or as a range.
template <class Record>
class RecordReader : public AnyRecordReader {
  static_assert(IsImported(kRecordKindOf<Record>), "records of this class are only written");

 public:
  RecordReader(CAssemblyFileMgr& manager, const char* path)
      : AnyRecordReader(manager, kRecordKindOf<Record>, path) {}

  Record* Next() { return static_cast<Record*>(AnyRecordReader::Next()); }

  struct End {};

  class Iterator {
   public:
    using iterator_concept = std::input_iterator_tag;
    using value_type = Record;
    using difference_type = std::ptrdiff_t;

    explicit Iterator(RecordReader& reader) : reader_(&reader), record_(reader.Next()) {}
    Record& operator*() const { return *record_; }
    Record* operator->() const { return record_; }
    Iterator& operator++() {
      record_ = reader_->Next();
      return *this;
    }
    void operator++(int) { ++*this; }
    bool operator==(End) const { return record_ == nullptr; }

   private:
    RecordReader* reader_;
    Record* record_;
  };
  Iterator begin() { return Iterator(*this); }
  End end() const { return {}; }
};

/// Writes the records of one file.
template <class Record>
class RecordWriter : public AnyRecordWriter {
  static_assert(IsExported(kRecordKindOf<Record>), "records of this class are only read");

 public:
  RecordWriter(CAssemblyFileMgr& manager, const char* path)
      : AnyRecordWriter(manager, kRecordKindOf<Record>, path) {}

  bool Put(const Record& record) { return AnyRecordWriter::Put(&record); }
};
