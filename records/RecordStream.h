#pragma once

/// How a host and the library pass records on one by one, so that a list of any length takes no more memory
/// than one of its records.

/// Takes a record that has just been read. The record stays the library's and is gone when the call returns;
/// until then it may be changed. False ends the reading.
///
/// Called on the thread that reads, before the call returns that started it. It must not throw, and of the
/// manager at work it may ask for nothing but the headers.
template <class Record>
using RecordHandler = bool (*)(Record* record, void* context);

/// Where the records of one file go while it is written.
template <class Record>
class RecordSink {
 public:
  /// Writes the record, which stays the caller's. False when the file cannot be written any more; what is
  /// written then is lost, and the file stays as it was.
  virtual bool Write(const Record& record) = 0;

 protected:
  ~RecordSink() = default;
};

/// Writes the records of a file into the sink, which is gone when the call returns. False gives the file up:
/// it stays as it was, and nothing is told about it.
///
/// Called once, on the thread that writes. It must not throw, and must not call back into the manager at
/// work; another manager may read meanwhile, even the same file.
template <class Record>
using RecordFeed = bool (*)(RecordSink<Record>& sink, void* context);
