#pragma once

#include <QVAssemblyFile/RecordKind.h>

#include <array>
#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace qv {

/// Records of any kind by the names of their fields, for whoever learns of the kind at run time: what each
/// field is called, of what type it is, which columns carry it, and how it is read and set. The tables of the
/// columns hold it all.

enum class FieldType : unsigned char { Text, Int, Float, Double, Bool, List };

/// The value of a field that is no list. A text is a view of the bytes in the record, whatever they encode,
/// and holds until the record changes.
using FieldValue = std::variant<std::string_view, int, float, double, bool>;

/// What the cells of a column hold.
enum class CellForm : unsigned char { None, Text, Whole, Real, Word, Duration };

struct WordTable;

/// A column that carries a field.
struct FieldColumn {
  std::string_view keyword;  ///< empty: there is no column
  CellForm readAs = CellForm::None;
  CellForm writtenAs = CellForm::None;
  int decimals = 0;                      ///< of a real number that is written
  const WordTable* readWords = nullptr;  ///< the choices of a column of words
  const WordTable* writtenWords = nullptr;

  constexpr bool IsRead() const { return readAs != CellForm::None; }
  constexpr bool IsWritten() const { return writtenAs != CellForm::None; }
};

struct RecordType;

struct RecordField {
  std::string_view stem;  ///< of the accessors' names
  FieldType type = FieldType::Text;
  std::size_t capacity = 0;  ///< the most bytes that a text keeps; 0: any number
  std::array<FieldColumn, 2> columns;

  /// Of fields that are no lists. A value that is set must be of the field's type; a text ends at a NUL and
  /// is cut at the capacity.
  FieldValue (*get)(const void* record) = nullptr;
  void (*set)(void* record, const FieldValue& value) = nullptr;

  /// For those who read many records of one type: the value of a text, and where the value of a number or
  /// flag is, at the same distance from the start of every record of the type.
  std::string_view (*text)(const void* record) = nullptr;
  const void* (*address)(const void* record) = nullptr;

  /// Of lists. An element is a record of the type `elements`; its address holds until the list is resized.
  const RecordType* elements = nullptr;
  std::size_t (*count)(const void* record) = nullptr;
  void* (*element)(void* record, std::size_t index) = nullptr;
  void (*resize)(void* record, std::size_t count) = nullptr;

  /// Whether an import fills the field.
  constexpr bool IsRead() const { return columns[0].IsRead() || columns[1].IsRead(); }
};

struct RecordType {
  std::string_view name;  ///< of the kind ("part-programs"), or of the structure that a list holds
  bool ignoresCase;       ///< an import matches column keywords whatever their case
  std::span<const RecordField> fields;  ///< in the order in which the record declares them
  void* (*create)();
  void (*destroy)(void* record);
};

/// A record of any kind, with what it takes to look inside.
class AnyRecord {
 public:
  /// A fresh record.
  explicit AnyRecord(const RecordType& type) : type_(&type), record_(type.create(), type.destroy) {}

  const RecordType& Type() const { return *type_; }
  void* Pointer() const { return record_.get(); }

  /// Gives the record away.
  void* Release() { return record_.release(); }

 private:
  const RecordType* type_;
  std::unique_ptr<void, void (*)(void* record)> record_;
};

/// All kinds, in the order of RecordKind.
std::span<const RecordType> RecordTypes();
const RecordType& RecordTypeOf(RecordKind kind);

/// Null when there is none. Stems are compared exactly, keywords as an import of the kind does.
const RecordField* FindField(const RecordType& type, std::string_view stem);
const RecordField* FindFieldOfColumn(const RecordType& type, std::string_view keyword);

/// A column of a kind or of one of its lists, and the field that it carries.
struct KindColumn {
  const RecordField* field;
  const FieldColumn* column;
};

/// All of them, in the order of the fields.
std::vector<KindColumn> AllColumns(const RecordType& type);

/// The value as text: numbers in the shortest form that reads back as the same number ("1.1", "nan", "-inf"),
/// "true" or "false". A list gives the number of its elements.
std::string GetText(const void* record, const RecordField& field);

}  // namespace qv
