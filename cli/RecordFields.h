#pragma once

#include <QVAssemblyFile/RecordKind.h>

#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace qv {

/// What a record's fields are called, of what type they are and how they are read and set: one table per
/// kind, in the order in which the record declares them.

enum class FieldType { Text, Int, Float, Double, Bool, List };

/// The value of a field that is no list. A text is in the bytes of the record, whatever they encode.
using FieldValue = std::variant<std::string, int, float, double, bool>;

struct RecordType;

/// A record of any kind, or an element of a record's list, with what it takes to look inside.
class AnyRecord {
 public:
  /// A fresh record.
  explicit AnyRecord(const RecordType& type);

  const RecordType& Type() const { return *type_; }
  void* Pointer() const { return record_.get(); }

  /// Gives the record away.
  void* Release() { return record_.release(); }

 private:
  const RecordType* type_;
  std::unique_ptr<void, void (*)(void* record)> record_;
};

struct RecordField {
  std::string_view stem;
  FieldType type;
  std::size_t capacity;       ///< the most bytes that a text keeps; 0: any number
  std::string_view keyword;   ///< of the column that carries the field; empty when none does
  std::string_view keyword2;  ///< another one; empty when there is none
  bool isRead;                ///< an import reads the column; else it is only written, or there is none

  /// Of fields that are no lists. The value's alternative must fit the type.
  FieldValue (*get)(void* record);
  void (*set)(void* record, const FieldValue& value);

  /// Of lists.
  const RecordType* elements;
  std::vector<AnyRecord> (*getList)(void* record);
  void (*setList)(void* record, const std::vector<AnyRecord>& elements);
};

struct RecordType {
  std::string_view name;  ///< of the kind ("part-programs"), or of the structure that a list holds
  bool ignoresCase;       ///< an import matches column keywords whatever their case
  std::span<const RecordField> fields;
  void* (*create)();
  void (*destroy)(void* record);
};

/// All kinds, in the order of RecordKind.
std::span<const RecordType> RecordTypes();

const RecordType& RecordTypeOf(RecordKind kind);

/// Null when there is none. Stems are compared exactly, keywords as an import of the kind does.
const RecordField* FindField(const RecordType& type, std::string_view stem);
const RecordField* FindFieldOfColumn(const RecordType& type, std::string_view keyword);

/// The value as text: numbers in the shortest form that reads back as the same number, "true" or "false".
/// A list gives the number of its elements.
std::string GetText(void* record, const RecordField& field);

/// The number in the shortest form that reads back as the same one ("1.1", "nan", "-inf").
std::string TextOf(float value);
std::string TextOf(double value);

}  // namespace qv
