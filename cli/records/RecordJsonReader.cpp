#include "cli/JsonWriter.h"
#include "cli/records/RecordJson.h"
#include "platform/CodePage.h"
#include "text/Ascii.h"
#include "text/Numbers.h"
#include "text/Utf8.h"

#include <QVAssemblyFile/Diagnostics.h>

#include <rapidjson/error/en.h>
#include <rapidjson/reader.h>
#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <set>
#include <utility>
#include <vector>

namespace qv {
namespace {

using WarningHandler = std::function<void(const Utf8Diagnostic& warning)>;
using RecordHandler = std::function<void(AnyRecord record)>;

constexpr std::size_t kBlock = std::size_t{1} << 16;
constexpr std::size_t kKept = 1024;  // bytes of the block before, more than a number has

constexpr std::array<std::string_view, 4> kDocumentKeys = {"kind", "format", "headers", "records"};

// What a field takes, in the order of FieldType.
constexpr const char* kWanted[] = {"a text",   "a whole number", "a number",
                                   "a number", "true or false",  "an array of objects"};

constexpr const char* kTooLarge = "is a number that the field cannot hold";

// A key that differs from a field's name in nothing but case or punctuation.
std::string LikelyKey(const RecordType& type, std::string_view key) {
  const auto folded = [](std::string_view name) {
    std::string out;
    for (const char c : name)
      if (c != '_' && c != '-' && c != ' ') out += ToLower(c);
    return out;
  };
  for (const RecordField& field : type.fields)
    if (folded(field.stem) == folded(key)) return "; did you mean \"" + std::string(field.stem) + "\"?";
  return {};
}

/// A JSON input of any length: a stream as RapidJSON reads it, which knows the line and column where it is.
class JsonSource {
 public:
  /// `name` is what diagnostics call the file.
  JsonSource(std::string name, OpenFile& file)
      : name_(std::move(name)), file_(file), block_(kKept + kBlock + 1, '\0') {
    Refill();
    std::size_t taken = 0;
    for (; taken < kUtf8Mark.size() && Peek() == kUtf8Mark[taken]; ++taken) Take();
    if (taken < kUtf8Mark.size()) at_ = 0;
  }

  const std::string& Name() const { return name_; }

  /// 1-based, of the byte that comes next; the column in bytes.
  std::int64_t Line() {
    CountLines();
    return line_;
  }
  std::int64_t Column() {
    CountLines();
    return static_cast<std::int64_t>(Tell() - lineBegin_) + 1;
  }

  bool AtEnd() const { return at_ == end_; }

  void SkipBlanks() {
    while (std::string_view(" \t\r\n").find(Peek()) != std::string_view::npos) Take();
  }

  /// The number that begins at this place, of which at least the first character has been taken.
  std::string NumberAt(std::size_t place) {
    const std::size_t first = std::max(place, begin_) - begin_;
    std::string number = block_.substr(first, at_ - first);
    while (IsDigit(Peek()) || std::string_view(".eE+-").find(Peek()) != std::string_view::npos)
      number += Take();
    return number;
  }

  /// Throws FileError when the file could not be read to its end.
  void CheckRead() const {
    if (failed_)
      throw FileError({name_, 0, "", DiagnosticCodeName(DiagnosticCode::FileNotOpened), "",
                       "cannot be read: " + ToUtf8(file_.Reason())});
  }

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
  // Keeps what the block ends with before what follows it. Not inlined into Take(), which each byte calls.
  [[gnu::noinline]] void Refill() {
    at_ = end_;
    if (finished_) return;
    CountLines();
    const std::size_t dropped = end_ - std::min(end_, kKept);
    std::copy(block_.data() + dropped, block_.data() + end_, block_.data());
    begin_ += dropped;
    at_ = end_ -= dropped;
    const std::ptrdiff_t count = file_.Read(block_.data() + end_, kBlock);
    failed_ = count < 0;
    finished_ = count <= 0;
    if (!finished_) end_ += static_cast<std::size_t>(count);
    block_[end_] = '\0';
  }

  void CountLines() {
    const std::string_view taken(block_.data(), at_);
    std::size_t at = counted_ - begin_;
    for (std::size_t end; (end = taken.find('\n', at)) != std::string_view::npos; at = end + 1) {
      ++line_;
      lineBegin_ = begin_ + end + 1;
    }
    counted_ = Tell();
  }

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

/// An object that is being read into a record, or into an element of a record's list.
struct OpenRecord {
  const RecordType* type;
  void* pointer;
  std::vector<bool> seen = std::vector<bool>(type->fields.size());  // the fields whose keys were there
  std::size_t next = 0;                                             // the field most likely to come next
  const RecordField* field = nullptr;                               // whose value comes next
};

/// Builds records from what the parser meets, without a document in between: a records file may be of any
/// length, and a key that comes twice must be seen. Numbers come as they are written, so that they are
/// rounded once.
class RecordsBuilder final : public rapidjson::BaseReaderHandler<rapidjson::UTF8<>, RecordsBuilder> {
 public:
  RecordsBuilder(JsonSource& source, const RecordType& type, const TextCoding& coding,
                 const WarningHandler& warn, const RecordHandler& take)
      : source_(source), type_(type), coding_(coding), warn_(warn), take_(take) {}

  /// Whether the input was a document or an array, which nothing may follow.
  bool IsWhole() const { return isWhole_; }

  bool Null() {
    CheckPlace("null");
    if (Field().type != FieldType::Float && Field().type != FieldType::Double) RefuseType("null");
    // What an import prints for a number that JSON cannot write, such as infinity.
    Warn("json-no-value", "null", "there is no number; the record keeps its default");
    return true;
  }

  bool Bool(bool flag) {
    CheckPlace(flag ? "true" : "false");
    if (Field().type != FieldType::Bool) RefuseType(flag ? "true" : "false");
    return Set(flag);
  }

  bool RawNumber(const char* text, rapidjson::SizeType size, bool) { return Number({text, size}); }
  bool Number(std::string_view literal) {
    CheckPlace(literal);
    switch (Field().type) {
      case FieldType::Int:
        return Set(IntFrom(literal));
      case FieldType::Float:
        return Set(FloatFrom(literal));
      case FieldType::Double:
        return Set(DoubleFrom(literal));
      default:
        RefuseType(literal);
    }
  }

  bool String(const char* data, rapidjson::SizeType size, bool) {
    const std::string_view text(data, size);
    CheckUtf8(text);
    if (TakesDocumentText(text)) return true;
    CheckPlace(text);
    if (Field().type != FieldType::Text) RefuseType(text);
    std::string buffer;
    const std::string_view bytes = coding_.Encode(text, buffer);
    if (bytes.find('\0') != std::string_view::npos)
      Refuse(text, "holds a NUL character, which no record can keep");
    WarnOfLoss(text, bytes);
    return Set(bytes);
  }

  bool StartObject() {
    switch (Now()) {
      case Level::Top:
        levels_.push_back(Level::Undecided);
        return true;
      case Level::Records:
        BeginRecord();
        return true;
      case Level::List:
        BeginElement();
        return true;
      default:
        CheckPlace("{");
        RefuseType("{");
    }
  }

  // The first key tells a document from a record in JSON lines; no record has a key of a document's.
  bool Key(const char* text, rapidjson::SizeType size, bool) {
    const std::string_view name(text, size);
    if (Now() == Level::Undecided) {
      levels_.pop_back();
      if (IsDocumentKey(name)) {
        BeginWhole();
        levels_.push_back(Level::Document);
      } else {
        BeginRecord();
      }
    }
    return Now() == Level::Document ? DocumentKey(name) : RecordKey(name);
  }

  bool EndObject(rapidjson::SizeType) {
    const Level level = Now();
    levels_.pop_back();
    if (level == Level::Document) {
      if (!documentKeys_.contains("records"))
        Throw("records", "json-missing-key", "", "the document has no records");
      return true;
    }
    if (level == Level::Undecided) {
      record_.emplace(type_);
      EndRecord();
      return true;
    }
    open_.pop_back();
    if (level == Level::Record) EndRecord();
    return true;
  }

  bool StartArray() {
    const bool isRecords = Now() == Level::Top || (Now() == Level::Document && documentKey_ == "records");
    if (Now() == Level::Top) BeginWhole();
    if (isRecords) {
      levels_.push_back(Level::Records);
    } else if (Now() == Level::Document && documentKey_ == "headers") {
      levels_.push_back(Level::Headers);
    } else if (IsInRecord() && Field().type == FieldType::List) {
      Field().resize(Open().pointer, 0);
      levels_.push_back(Level::List);
    } else {
      CheckPlace("[");
      RefuseType("[");
    }
    return true;
  }

  bool EndArray(rapidjson::SizeType) {
    levels_.pop_back();
    return true;
  }

  [[noreturn]] void ThrowMalformed(const char* what) {
    Throw("", "json-malformed", "",
          "not well-formed JSON: column " + std::to_string(source_.Column()) + ": " + what);
  }

 private:
  enum class Level { Top, Undecided, Document, Headers, Records, Record, List, Element };

  Level Now() const { return levels_.back(); }
  OpenRecord& Open() { return open_.back(); }
  const RecordField& Field() { return *Open().field; }
  bool IsInRecord() const { return Now() == Level::Record || Now() == Level::Element; }

  [[noreturn]] void Throw(std::string key, const char* code, std::string text, const std::string& message) {
    throw FileError({source_.Name(), source_.Line(), std::move(key), code, std::move(text), message});
  }
  void Warn(const char* code, const std::string& text, const std::string& message) {
    warn_({source_.Name(), source_.Line(), std::string(Field().stem), code, text, Place() + ": " + message});
  }

  /// The record's place in the input: "record 3", "record 3, element 2 of HoleInfo".
  std::string Place() const {
    std::string place = "record " + std::to_string(count_ + 1);
    if (Now() != Level::List && Now() != Level::Element) return place;
    const OpenRecord& record = open_.front();
    const std::size_t begun = record.field->count(record.pointer);
    return place + ", element " + std::to_string(Now() == Level::List ? begun + 1 : begun) + " of " +
           std::string(record.field->stem);
  }

  void BeginRecord() {
    record_.emplace(type_);
    open_.push_back({&type_, record_->Pointer()});
    levels_.push_back(Level::Record);
  }
  void BeginElement() {
    const RecordField& list = Field();
    void* const record = Open().pointer;
    const std::size_t index = list.count(record);
    list.resize(record, index + 1);
    open_.push_back({list.elements, list.element(record, index)});
    levels_.push_back(Level::Element);
  }

  void EndRecord() {
    take_(std::move(*record_));
    ++count_;
  }

  void BeginWhole() {
    if (count_ > 0)
      Throw("", "json-malformed", "", "a document or an array of records follows other records");
    isWhole_ = true;
  }

  /// Throws where no value of a field can stand.
  void CheckPlace(std::string_view literal) {
    if (IsInRecord()) return;
    if (Now() == Level::Records || Now() == Level::List || Now() == Level::Top)
      Throw("", "json-wrong-type", std::string(literal),
            Place() + ": this is no object with the fields of a record");
    Throw(documentKey_, "json-wrong-type", std::string(literal), "this value does not belong here");
  }

  [[noreturn]] void Refuse(std::string_view literal, const std::string& reason) {
    Throw(std::string(Field().stem), "json-wrong-type", std::string(literal),
          Place() + ": " + JsonText(literal) + " " + reason);
  }
  [[noreturn]] void RefuseType(std::string_view literal) {
    Refuse(literal, std::string("is not ") + kWanted[static_cast<int>(Field().type)]);
  }

  bool Set(const FieldValue& value) {
    Field().set(Open().pointer, value);
    return true;
  }

  int IntFrom(std::string_view literal) {
    int whole = 0;
    const char* const end = literal.data() + literal.size();
    const auto [stop, error] = std::from_chars(literal.data(), end, whole);
    if (error == std::errc() && stop == end) return whole;
    const double number = ParseReal(literal).value;
    if (number != std::trunc(number)) RefuseType(literal);
    if (number < std::numeric_limits<int>::min() || number > std::numeric_limits<int>::max())
      Refuse(literal, kTooLarge);
    return static_cast<int>(number);
  }

  // From the number's text and not from a double, for rounding twice may end one step aside.
  float FloatFrom(std::string_view literal) {
    float value = 0;
    const auto result = std::from_chars(literal.data(), literal.data() + literal.size(), value);
    if (result.ec == std::errc()) return value;
    const double number = ParseReal(literal).value;
    if (std::abs(number) > 1) Refuse(literal, kTooLarge);
    return static_cast<float>(number);
  }

  double DoubleFrom(std::string_view literal) {
    const double number = ParseReal(literal).value;
    if (std::isinf(number)) Refuse(literal, kTooLarge);
    return number;
  }

  void CheckUtf8(std::string_view text) {
    if (IsAscii(text)) return;
    while (!text.empty()) {
      const Utf8Character character = DecodeUtf8(text);
      if (character.code == kIllFormed) ThrowMalformed("The text is not UTF-8.");
      text.remove_prefix(character.length);
    }
  }

  void WarnOfLoss(std::string_view text, std::string_view bytes) {
    if (bytes.data() != text.data() && coding_.Decode(bytes) != text)
      Warn("character-lost", std::string(text),
           "the text holds characters that the encoding does not have; \"?\" replaces them");
    if (Field().capacity != 0 && bytes.size() > Field().capacity)
      Warn(DiagnosticCodeName(DiagnosticCode::TextCut), std::string(text),
           "the text is longer than the field; its first " + std::to_string(Field().capacity) +
               " bytes are kept");
  }

  bool TakesDocumentText(std::string_view text) {
    if (Now() == Level::Headers) return true;
    if (Now() != Level::Document) return false;
    if (documentKey_ == "kind" && text != type_.name)
      Throw("kind", "json-wrong-kind", std::string(text),
            "the records are of the kind \"" + std::string(text) + "\", not \"" + std::string(type_.name) +
                "\"");
    return documentKey_ == "kind" || documentKey_ == "format";
  }

  static bool IsDocumentKey(std::string_view key) {
    return std::find(kDocumentKeys.begin(), kDocumentKeys.end(), key) != kDocumentKeys.end();
  }

  bool DocumentKey(std::string_view name) {
    documentKey_ = name;
    if (!IsDocumentKey(name))
      Throw(documentKey_, "json-unknown-key", documentKey_, "a document of records has no such key");
    if (!documentKeys_.insert(documentKey_).second)
      Throw(documentKey_, "json-duplicate-key", documentKey_, "the key is there twice");
    return true;
  }

  bool RecordKey(std::string_view name) {
    OpenRecord& open = Open();
    const auto& fields = open.type->fields;
    std::size_t index = open.next;
    if (index >= fields.size() || fields[index].stem != name) {
      const RecordField* const field = FindField(*open.type, name);
      if (field == nullptr)
        Throw(std::string(name), "json-unknown-key", std::string(name),
              Place() + ": there is no such key in " + std::string(open.type->name) +
                  LikelyKey(*open.type, name));
      index = static_cast<std::size_t>(field - fields.data());
    }
    if (open.seen[index])
      Throw(std::string(name), "json-duplicate-key", std::string(name), Place() + ": the key is there twice");
    open.seen[index] = true;
    open.next = index + 1;
    open.field = &fields[index];
    return true;
  }

  JsonSource& source_;
  const RecordType& type_;
  const TextCoding& coding_;
  const WarningHandler& warn_;
  const RecordHandler& take_;
  std::int64_t count_ = 0;           // of the records that were given away
  std::optional<AnyRecord> record_;  // the one that is open
  std::vector<Level> levels_ = {Level::Top};
  std::vector<OpenRecord> open_;  // the record and, inside a list, its element
  std::string documentKey_;
  std::set<std::string> documentKeys_;
  bool isWhole_ = false;
};

void ReadValue(RecordsBuilder& builder, JsonSource& source, rapidjson::Reader& reader) {
  constexpr unsigned kFlags = rapidjson::kParseStopWhenDoneFlag | rapidjson::kParseNumbersAsStringsFlag;
  const rapidjson::ParseResult result = reader.Parse<kFlags>(source, builder);
  // A number that no double holds is well formed.
  if (result.Code() == rapidjson::kParseErrorNumberTooBig) builder.Number(source.NumberAt(result.Offset()));
  if (result.IsError()) builder.ThrowMalformed(rapidjson::GetParseError_En(result.Code()));
}

}  // namespace

void ReadRecordsJson(const std::string& name, OpenFile& file, const RecordType& type,
                     const TextCoding& coding, const WarningHandler& warn, const RecordHandler& take) {
  JsonSource source(name, file);
  rapidjson::Reader reader;
  RecordsBuilder builder(source, type, coding, warn, take);
  source.SkipBlanks();
  if (source.AtEnd()) {
    source.CheckRead();
    warn({source.Name(), 0, "", "no-records", "", "there are no records"});
  }
  try {
    for (std::int64_t line = 1; !source.AtEnd(); source.SkipBlanks()) {
      if (builder.IsWhole())
        throw FileError({name, line, "", "json-malformed", "", "there is more after the end of the records"});
      ReadValue(builder, source, reader);
      line = source.Line();
    }
  } catch (const FileError&) {
    source.CheckRead();  // what could not be read to its end looks like JSON that breaks off
    throw;
  }
  source.CheckRead();
}

}  // namespace qv
