#include "cli/RecordJsonReader.h"

#include "cli/RecordValue.h"

#include <QVAssemblyFile/Diagnostics.h>

#include <algorithm>
#include <nlohmann/json.hpp>
#include <utility>

namespace qv {
namespace {

using Json = nlohmann::json;

constexpr std::array<std::string_view, 4> kDocumentKeys = {"kind", "format", "headers", "records"};

bool IsDocumentKey(std::string_view key) {
  return std::find(kDocumentKeys.begin(), kDocumentKeys.end(), key) != kDocumentKeys.end();
}

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

// A key that differs from a field's name in nothing but case or punctuation.
std::string LikelyKey(const RecordType& type, std::string_view key) {
  const auto folded = [](std::string_view name) {
    std::string out;
    for (const char c : name)
      if (c != '_' && c != '-' && c != ' ') out += Lower(c);
    return out;
  };
  for (const RecordField& field : type.fields)
    if (folded(field.stem) == folded(key)) return "; did you mean \"" + std::string(field.stem) + "\"?";
  return {};
}

/// An object that is being read into a record, or into an element of a record's list.
struct OpenRecord {
  explicit OpenRecord(const RecordType& type) : record(type), seen(type.fields.size()) {}

  AnyRecord record;
  std::vector<bool> seen;              // the fields whose keys were there
  std::size_t next = 0;                // the field most likely to come next
  const RecordField* field = nullptr;  // whose value comes next
  std::vector<AnyRecord> elements;     // of that field, when it is a list
};

/// Builds records from what the parser meets, without a document in between: a records file may be far larger
/// than memory would like to hold twice, and a key that comes twice must be seen.
class RecordsBuilder final : public nlohmann::json_sax<Json> {
 public:
  RecordsBuilder(JsonSource& source, const RecordType& type, const TextCoding& coding,
                 const JsonRemarkHandler& warn)
      : source_(source), type_(type), coding_(coding), warn_(warn) {}

  std::vector<AnyRecord> Take() { return std::move(records_); }
  /// Whether the input was a document or an array, which nothing may follow.
  bool IsWhole() const { return isWhole_; }

  bool null() override {
    // What an import prints for a number that JSON cannot write, such as infinity.
    if (IsInRecord() && (Field().type == FieldType::Float || Field().type == FieldType::Double)) {
      warn_({source_.Line(), std::string(Field().stem), "json-no-value", "null",
             Place() + ": there is no number; the record keeps its default"});
      return true;
    }
    return Value("null", [](auto&) { return std::nullopt; });
  }
  bool boolean(bool flag) override {
    return Value(flag ? "true" : "false",
                 [&](ValueFault& fault) { return ValueFromFlag(Field(), flag, fault); });
  }
  bool number_integer(number_integer_t number) override {
    return Value(std::to_string(number),
                 [&](ValueFault& fault) { return ValueFromInteger(Field(), number, fault); });
  }
  bool number_unsigned(number_unsigned_t number) override {
    const std::string literal = std::to_string(number);
    if (number <= std::numeric_limits<number_integer_t>::max())
      return number_integer(static_cast<number_integer_t>(number));
    return Value(literal, [&](ValueFault& fault) {
      return ValueFromReal(Field(), static_cast<double>(number), literal, fault);
    });
  }
  bool number_float(number_float_t number, const string_t& literal) override {
    return Value(literal, [&](ValueFault& fault) { return ValueFromReal(Field(), number, literal, fault); });
  }
  bool string(string_t& text) override {
    if (TakesDocumentText(text)) return true;
    return Value(text, [&](ValueFault& fault) {
      auto value = ValueFromText(Field(), text, coding_, fault);
      if (value) WarnOfLoss(text, std::get<std::string>(*value));
      return value;
    });
  }
  bool binary(binary_t&) override { return false; }

  bool start_object(std::size_t) override;
  bool key(string_t& name) override;
  bool end_object() override;
  bool start_array(std::size_t) override;
  bool end_array() override;

  bool parse_error(std::size_t, const std::string& token, const Json::exception& error) override {
    // A number that no double holds is well formed.
    if (dynamic_cast<const Json::out_of_range*>(&error) != nullptr)
      return number_float(std::numeric_limits<double>::infinity(), token);
    // "[json.exception…] parse error at line 3, column 5: what": the line is counted here.
    const std::string what = error.what();
    const std::size_t colon = what.find(": ");
    Throw("", "json-malformed", "",
          "not well-formed JSON: " + (colon == std::string::npos ? what : what.substr(colon + 2)));
  }

 private:
  enum class Level { Top, Undecided, Document, Headers, Records, Record, List, Element };

  Level Now() const { return levels_.back(); }
  OpenRecord& Open() { return open_.back(); }
  const RecordField& Field() { return *Open().field; }
  bool IsInRecord() const { return Now() == Level::Record || Now() == Level::Element; }

  [[noreturn]] void Throw(std::string key, const char* code, std::string text, const std::string& message) {
    throw JsonError({source_.Line(), std::move(key), code, std::move(text), message});
  }

  /// The record's place in the input: "record 3", "record 3, element 2 of HoleInfo".
  std::string Place() const {
    std::string place = "record " + std::to_string(records_.size() + 1);
    if (open_.size() > 1 || Now() == Level::List)
      place += ", element " + std::to_string(open_.front().elements.size() + 1) + " of " +
               std::string(open_.front().field->stem);
    return place;
  }

  void OpenRecordOf(const RecordType& type, Level level) {
    open_.emplace_back(type);
    levels_.push_back(level);
  }

  void BeginWhole() {
    if (!records_.empty())
      Throw("", "json-malformed", "", "a document or an array of records stands behind other records");
    isWhole_ = true;
  }

  bool DocumentKey(const std::string& name);
  bool RecordKey(const std::string& name);
  bool TakesDocumentText(const std::string& text);
  void WarnOfLoss(const std::string& text, const std::string& bytes);
  template <class Convert>
  bool Value(const std::string& literal, Convert convert);

  JsonSource& source_;
  const RecordType& type_;
  const TextCoding& coding_;
  const JsonRemarkHandler& warn_;
  std::vector<AnyRecord> records_;
  std::vector<Level> levels_ = {Level::Top};
  std::vector<OpenRecord> open_;  // the record and, inside a list, its element
  std::string documentKey_;
  std::vector<std::string> documentKeys_;
  bool isWhole_ = false;
};

template <class Convert>
bool RecordsBuilder::Value(const std::string& literal, Convert convert) {
  if (!IsInRecord()) {
    if (Now() == Level::Records || Now() == Level::List || Now() == Level::Top)
      Throw("", "json-wrong-type", literal, Place() + ": this is no object with the fields of a record");
    Throw(documentKey_, "json-wrong-type", literal, "this value does not belong here");
  }
  ValueFault fault;
  const std::optional<FieldValue> value = convert(fault);
  if (!value) {
    if (fault.reason.empty()) fault.reason = std::string("is not ") + WantedOf(Field());
    Throw(std::string(Field().stem), "json-wrong-type", literal,
          Place() + ": " + Json(literal).dump() + " " + fault.reason);
  }
  Field().set(Open().record.Pointer(), *value);
  return true;
}

void RecordsBuilder::WarnOfLoss(const std::string& text, const std::string& bytes) {
  const std::string stem(Field().stem);
  if (coding_.Decode(bytes) != text)
    warn_({source_.Line(), stem, "character-lost", text,
           Place() + ": the text holds characters that the encoding has not; \"?\" stands in for them"});
  if (Field().capacity != 0 && bytes.size() > Field().capacity)
    warn_({source_.Line(), stem, DiagnosticCodeName(DiagnosticCode::TextCut), text,
           Place() + ": the text is longer than the field; its first " + std::to_string(Field().capacity) +
               " bytes are kept"});
}

bool RecordsBuilder::TakesDocumentText(const std::string& text) {
  if (Now() == Level::Headers) return true;
  if (Now() != Level::Document) return false;
  if (documentKey_ == "kind" && text != type_.name)
    Throw("kind", "json-wrong-kind", text,
          "the records are of the kind \"" + text + "\", not \"" + std::string(type_.name) + "\"");
  return documentKey_ == "kind" || documentKey_ == "format";
}

bool RecordsBuilder::start_object(std::size_t) {
  switch (Now()) {
    case Level::Top:
      levels_.push_back(Level::Undecided);
      return true;
    case Level::Records:
      OpenRecordOf(type_, Level::Record);
      return true;
    case Level::List:
      OpenRecordOf(*Field().elements, Level::Element);
      return true;
    default:
      return Value("{", [](auto&) { return std::nullopt; });
  }
}

// The first key tells a document from a record in JSON lines; no record has a key of a document's.
bool RecordsBuilder::key(string_t& name) {
  if (Now() == Level::Undecided) {
    levels_.pop_back();
    if (IsDocumentKey(name)) {
      BeginWhole();
      levels_.push_back(Level::Document);
    } else {
      OpenRecordOf(type_, Level::Record);
    }
  }
  return Now() == Level::Document ? DocumentKey(name) : RecordKey(name);
}

bool RecordsBuilder::DocumentKey(const std::string& name) {
  if (!IsDocumentKey(name)) Throw(name, "json-unknown-key", name, "a document of records has no such key");
  if (std::find(documentKeys_.begin(), documentKeys_.end(), name) != documentKeys_.end())
    Throw(name, "json-duplicate-key", name, "the key is there twice");
  documentKeys_.push_back(documentKey_ = name);
  return true;
}

bool RecordsBuilder::RecordKey(const std::string& name) {
  OpenRecord& open = Open();
  const auto& fields = open.record.Type().fields;
  std::size_t rank = open.next;
  if (rank >= fields.size() || fields[rank].stem != name) {
    const RecordField* const field = FindField(open.record.Type(), name);
    if (field == nullptr)
      Throw(name, "json-unknown-key", name,
            Place() + ": there is no such key in " + std::string(open.record.Type().name) +
                LikelyKey(open.record.Type(), name));
    rank = static_cast<std::size_t>(field - fields.data());
  }
  if (open.seen[rank]) Throw(name, "json-duplicate-key", name, Place() + ": the key is there twice");
  open.seen[rank] = true;
  open.next = rank + 1;
  open.field = &fields[rank];
  return true;
}

bool RecordsBuilder::end_object() {
  const Level level = Now();
  levels_.pop_back();
  if (level == Level::Document) {
    if (std::find(documentKeys_.begin(), documentKeys_.end(), "records") == documentKeys_.end())
      Throw("records", "json-missing-key", "", "the document has no records");
    return true;
  }
  if (level == Level::Undecided) {
    records_.emplace_back(type_);
    return true;
  }
  AnyRecord record = std::move(Open().record);
  open_.pop_back();
  (level == Level::Element ? Open().elements : records_).push_back(std::move(record));
  return true;
}

bool RecordsBuilder::start_array(std::size_t) {
  const bool isRecords = Now() == Level::Top || (Now() == Level::Document && documentKey_ == "records");
  if (Now() == Level::Top) BeginWhole();
  if (isRecords) {
    levels_.push_back(Level::Records);
  } else if (Now() == Level::Document && documentKey_ == "headers") {
    levels_.push_back(Level::Headers);
  } else if (IsInRecord() && Field().type == FieldType::List) {
    Open().elements.clear();
    levels_.push_back(Level::List);
  } else {
    return Value("[", [](auto&) { return std::nullopt; });
  }
  return true;
}

bool RecordsBuilder::end_array() {
  if (Now() == Level::List) Field().setList(Open().record.Pointer(), Open().elements);
  levels_.pop_back();
  return true;
}

void SkipBlanks(JsonSource& source) {
  while (!source.AtEnd() && std::string_view(" \t\r\n").find(source.Peek()) != std::string_view::npos)
    source.Next();
}

}  // namespace

std::vector<AnyRecord> ReadRecordsJson(JsonSource& source, const RecordType& type, const TextCoding& coding,
                                       const JsonRemarkHandler& warn) {
  RecordsBuilder builder(source, type, coding, warn);
  SkipBlanks(source);
  if (source.AtEnd() && !source.HasFailed()) warn({0, "", "no-records", "", "there are no records"});
  for (SkipBlanks(source); !source.AtEnd(); SkipBlanks(source)) {
    if (builder.IsWhole())
      throw JsonError(
          {source.Line(), "", "json-malformed", "", "there is more after the end of the records"});
    Json::sax_parse(JsonSource::Iterator(&source), JsonSource::Iterator(), &builder,
                    nlohmann::detail::input_format_t::json, false);
  }
  return builder.Take();
}

}  // namespace qv
