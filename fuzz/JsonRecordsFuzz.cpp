#include "cli/RecordJson.h"
#include "cli/RecordJsonReader.h"
#include "fuzz/ByteSource.h"
#include "support/Trickle.h"

#include <optional>

// Any bytes as a records file of any kind: they are records or an error with a place, however they arrive,
// and records that are written and read again are the same records.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

struct Outcome {
  std::optional<std::string> records;  // written again as JSON lines; none after an error
  std::string remarks;
  bool operator==(const Outcome&) const = default;
};

Outcome Read(const qv::RecordType& type, const std::string& text, std::size_t step) {
  Trickle file(text, step);
  qv::JsonSource source([&](char* buffer, std::size_t capacity) { return file.Read(buffer, capacity); });
  const qv::TextCoding coding;
  Outcome outcome;
  const auto add = [&](const qv::JsonRemark& remark) {
    Require(!remark.code.empty() && !remark.message.empty());
    outcome.remarks += std::to_string(remark.line) + remark.code + remark.key + remark.message + "\n";
  };
  try {
    std::string written;
    for (const qv::AnyRecord& record : qv::ReadRecordsJson(source, type, coding, add)) {
      qv::AppendRecordJson(written, type, record.Pointer(), coding);
      written += '\n';
    }
    outcome.records = written;
  } catch (const qv::JsonError& error) {
    Require(error.remark.line > 0);
    add(error.remark);
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
  if (!whole.records || !whole.remarks.empty() || whole.records->empty()) return 0;
  const Outcome again = Read(type, *whole.records, whole.records->size());
  Require(again.records == whole.records && again.remarks.empty());
  return 0;
}
