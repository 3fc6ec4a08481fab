#include "cli/records/RecordJson.h"
#include "fuzz/ByteSource.h"
#include "support/FakeFileSystem.h"

#include <optional>

// Any bytes as a records file of any kind: they are records or an error with a place, however they arrive,
// and records that are written and read again are the same records.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

struct Outcome {
  std::optional<std::string> records;  // written again as JSON lines; none after an error
  std::string diagnostics;
  bool operator==(const Outcome&) const = default;
};

Outcome Read(const qv::RecordType& type, const std::string& text, std::size_t step) {
  FakeFileSystem files;
  const auto file = files.OpenText(text, step);
  const qv::TextCoding coding;
  Outcome outcome;
  const auto add = [&](const qv::Utf8Diagnostic& told) {
    Require(!told.code.empty() && !told.message.empty());
    outcome.diagnostics += std::to_string(told.line) + told.code + told.column + told.message + "\n";
  };
  try {
    std::string written;
    qv::ReadRecordsJson("r.json", *file, type, coding, add, [&](const qv::AnyRecord& record) {
      qv::JsonWriter json(written);
      qv::WriteRecordJson(json, type, record.Pointer(), coding);
      written += '\n';
    });
    outcome.records = written;
  } catch (const qv::FileError& error) {
    Require(error.diagnostic.line > 0);
    add(error.diagnostic);
  }
  return outcome;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  ByteSource source(data, size);
  const auto types = qv::RecordTypes();
  const qv::RecordType& type = types[source.Below(static_cast<unsigned>(types.size()))];
  const std::size_t step = source.Byte() + 1;
  const std::string text = source.Rest();
  const Outcome whole = Read(type, text, text.size() + 1);
  Require(whole == Read(type, text, step));
  if (!whole.records || !whole.diagnostics.empty() || whole.records->empty()) return 0;
  const Outcome again = Read(type, *whole.records, whole.records->size());
  Require(again.records == whole.records && again.diagnostics.empty());
  return 0;
}
