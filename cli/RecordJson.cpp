#include "cli/RecordJson.h"

#include "cli/JsonText.h"

#include <cmath>

namespace qv {
namespace {

class RecordWriter {
 public:
  RecordWriter(std::string& out, const TextCoding& coding) : out_(out), coding_(coding) {}

  void Write(const RecordType& type, void* record) {
    char separator = '{';
    for (const RecordField& field : type.fields) {
      out_ += separator;
      separator = ',';
      out_.append("\"").append(field.stem).append("\":");
      stem_ = field.stem;
      if (field.type == FieldType::List)
        WriteList(field, record);
      else
        std::visit(*this, field.get(record));
    }
    out_ += '}';
  }

  void operator()(const std::string& text) { AppendJsonText(out_, coding_.Decode(text)); }
  void operator()(int value) { out_ += std::to_string(value); }
  void operator()(bool value) { out_ += value ? "true" : "false"; }
  void operator()(float value) { WriteReal(value); }
  void operator()(double value) { WriteReal(value); }

  std::string_view Unwritable() const { return unwritable_; }

 private:
  void WriteList(const RecordField& field, void* record) {
    out_ += '[';
    bool isFirst = true;
    for (const AnyRecord& element : field.getList(record)) {
      if (!isFirst) out_ += ',';
      isFirst = false;
      Write(*field.elements, element.Pointer());
    }
    out_ += ']';
  }

  template <class Real>
  void WriteReal(Real value) {
    if (!std::isfinite(value)) {
      out_ += "null";
      unwritable_ = stem_;
      return;
    }
    const std::string text = TextOf(value);
    out_ += text;
    // So that a reader sees that this is no whole number by nature.
    if (text.find_first_of(".e") == std::string::npos) out_ += ".0";
  }

  std::string& out_;
  const TextCoding& coding_;
  std::string_view stem_;
  std::string_view unwritable_;
};

}  // namespace

std::string_view AppendRecordJson(std::string& out, const RecordType& type, void* record,
                                  const TextCoding& coding) {
  RecordWriter writer(out, coding);
  writer.Write(type, record);
  return writer.Unwritable();
}

}  // namespace qv
