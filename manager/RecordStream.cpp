#include "manager/RecordStream.h"

#include "engines/CAssemblyFile.h"
#include "engines/RecordStreams.h"
#include "manager/ManagerState.h"

#include <utility>

namespace {

/// An engine at work on one file, and the records that come out of it or go into it.
template <class Stream>
struct Work {
  explicit Work(const char* path) : diagnostics(path) {}
  ~Work() {
    stream.reset();
    if (engine != nullptr) engine->StagedRecords.Clear();
  }

  qv::FileDiagnostics diagnostics;
  std::shared_ptr<CAssemblyFile> engine;  // the manager's, as long as that has no other
  std::unique_ptr<Stream> stream;         // null when there can be none
};

}  // namespace

struct AnyRecordReader::State : Work<qv::RecordSource> {
  using Work::Work;
};

struct AnyRecordWriter::State : Work<qv::RecordTarget> {
  using Work::Work;
  bool isFinished = false;
  bool isDone = false;
};

AnyRecordReader::AnyRecordReader(CAssemblyFileMgr& manager, RecordKind kind, const char* path)
    : state_(std::make_unique<State>(path)) {
  if (!qv::StartEngine(manager.configuration_, manager.engine_, kind, state_->diagnostics)) return;
  state_->engine = manager.engine_;
  state_->stream = qv::OpenRecords(*state_->engine, kind, state_->diagnostics);
}

AnyRecordReader::~AnyRecordReader() = default;

void* AnyRecordReader::Next() { return state_->stream == nullptr ? nullptr : state_->stream->Next(); }

std::int64_t AnyRecordReader::LineNumber() const {
  return state_->stream == nullptr ? 0 : state_->stream->LineNumber();
}

bool AnyRecordReader::HasFailed() const { return state_->stream == nullptr || state_->stream->HasFailed(); }

AnyRecordWriter::AnyRecordWriter(CAssemblyFileMgr& manager, RecordKind kind, const char* path)
    : state_(std::make_unique<State>(path)) {
  if (!qv::StartEngine(manager.configuration_, manager.engine_, kind, state_->diagnostics)) return;
  state_->engine = manager.engine_;
  state_->stream = qv::BeginRecords(*state_->engine, kind, state_->diagnostics);
}

AnyRecordWriter::~AnyRecordWriter() = default;

bool AnyRecordWriter::Put(const void* record) {
  return state_->stream != nullptr && !state_->isFinished && state_->stream->Put(record);
}

bool AnyRecordWriter::Finish() {
  if (state_->stream == nullptr || state_->isDone) return false;
  state_->isFinished = true;
  const bool isWritten = state_->stream->Finish();
  state_->engine->StagedRecords.Clear();
  return isWritten;
}

bool AnyRecordWriter::Commit() {
  return Finish() && !std::exchange(state_->isDone, true) && state_->stream->Commit();
}

bool AnyRecordWriter::HasFailed() const { return state_->stream == nullptr || state_->stream->HasFailed(); }
