#pragma once

#include "engines/columns/Cells.h"
#include "engines/columns/ColumnTables.h"

#include <array>

/// What the rows of the tables are made of. A row names a field by the stem of its accessors, and the columns
/// that carry it; how it is reached, its type and its capacity follow from its member. In a table's source,
/// `Record` is the kind's class.
///
///   FIELD(Stem, "Keyword")    a field whose column is read and written
///   READ(Stem, "Keyword")     ... is read only
///   WRITTEN(Stem, "Keyword")  ... is written only
///   WORDS(Stem, "Keyword", choices[, choices written])   a field whose cells are words
///   BARE(Stem)                a field without a column
#define FIELD(Stem, keyword) (qv::Row<&Record::Stem##_>(#Stem, qv::Both<&Record::Stem##_>(keyword)))
#define READ(Stem, keyword) (qv::Row<&Record::Stem##_>(#Stem, qv::Read<&Record::Stem##_>(keyword)))
#define WRITTEN(Stem, keyword) (qv::Row<&Record::Stem##_>(#Stem, qv::Written<&Record::Stem##_>(keyword)))
#define WORDS(Stem, keyword, ...) \
  (qv::Row<&Record::Stem##_>(#Stem, qv::Words<&Record::Stem##_, __VA_ARGS__>(keyword)))
#define BARE(Stem) (qv::Row<&Record::Stem##_>(#Stem))

namespace qv {

/// A row of a table.
template <class Record>
struct Field {
  RecordField field;
  std::array<Column<Record>, 2> columns;

  /// The same field in a file whose column has another keyword.
  constexpr Field Or(std::string_view keyword) const {
    Column<Record> other = columns[0];
    other.keyword = keyword;
    return And(other);
  }
  constexpr Field And(const Column<Record>& column) const {
    Field row = *this;
    row.columns[1] = column;
    return row;
  }

  constexpr Field Raises(bool Record::*flag) const {
    Field row = *this;
    row.columns[0].flag = flag;
    return row;
  }
  constexpr Field ReadBy(CellRemark (*read)(Record&, std::string_view, std::string*)) const {
    Field row = *this;
    row.columns[0].read = read;
    return row;
  }
  constexpr Field WrittenBy(bool (*write)(const Record&, std::size_t, TextBuffer&),
                            CellForm form = CellForm::Word) const {
    Field row = *this;
    row.columns[0].write = write;
    row.columns[0].writtenAs = form;
    return row;
  }
};

// What follows from a member's type.

template <class Text>
inline constexpr std::size_t kCapacityOf = 0;
template <std::size_t Size>
inline constexpr std::size_t kCapacityOf<FixedText<Size>> = Size - 1;
template <std::size_t Size>
inline constexpr std::size_t kCapacityOf<char[Size]> = Size - 1;

template <class Value>
constexpr FieldType FieldTypeOf() {
  if constexpr (std::is_same_v<Value, int>) return FieldType::Int;
  if constexpr (std::is_same_v<Value, float>) return FieldType::Float;
  if constexpr (std::is_same_v<Value, double>) return FieldType::Double;
  if constexpr (std::is_same_v<Value, bool>) return FieldType::Bool;
  return FieldType::Text;
}

template <auto Member>
constexpr RecordField Access(std::string_view stem) {
  using Record = RecordOf<Member>;
  using Value = ValueOf<Member>;
  RecordField field;
  field.stem = stem;
  field.type = FieldTypeOf<Value>();
  field.capacity = kCapacityOf<Value>;
  field.get = [](const void* record) -> FieldValue {
    const auto& value = static_cast<const Record*>(record)->*Member;
    if constexpr (FieldTypeOf<Value>() == FieldType::Text)
      return ViewOf(value);
    else
      return value;
  };
  if constexpr (FieldTypeOf<Value>() == FieldType::Text)
    field.text = [](const void* record) -> std::string_view {
      return ViewOf(static_cast<const Record*>(record)->*Member);
    };
  field.address = [](const void* record) -> const void* {
    return &(static_cast<const Record*>(record)->*Member);
  };
  field.set = [](void* record, const FieldValue& value) {
    auto& member = static_cast<Record*>(record)->*Member;
    if constexpr (FieldTypeOf<Value>() == FieldType::Text)
      StoreText(member, std::get<std::string_view>(value));
    else
      member = std::get<Value>(value);
  };
  return field;
}

// Columns of a member.

template <auto Member>
constexpr CellForm FormOf() {
  if constexpr (std::is_same_v<ValueOf<Member>, int>) return CellForm::Whole;
  if constexpr (std::is_floating_point_v<ValueOf<Member>>) return CellForm::Real;
  return CellForm::Text;
}

template <auto Member>
constexpr Column<RecordOf<Member>> Read(std::string_view keyword) {
  Column<RecordOf<Member>> column;
  column.keyword = keyword;
  column.readAs = FormOf<Member>();
  if constexpr (FormOf<Member>() == CellForm::Whole)
    column.read = ReadInt<Member>;
  else if constexpr (FormOf<Member>() == CellForm::Real)
    column.read = ReadReal<Member>;
  else
    column.read = ReadText<Member>;
  return column;
}

template <auto Member, int Decimals = 6>
constexpr Column<RecordOf<Member>> Written(std::string_view keyword) {
  Column<RecordOf<Member>> column;
  column.keyword = keyword;
  column.writtenAs = FormOf<Member>();
  if constexpr (FormOf<Member>() == CellForm::Whole) {
    column.write = WriteInt<Member>;
  } else if constexpr (FormOf<Member>() == CellForm::Real) {
    column.write = WriteReal<Member, Decimals>;
    column.decimals = Decimals;
  } else {
    column.write = WriteText<Member>;
  }
  return column;
}

template <auto Member, int Decimals = 6>
constexpr Column<RecordOf<Member>> Both(std::string_view keyword) {
  Column<RecordOf<Member>> column = Written<Member, Decimals>(keyword);
  column.readAs = column.writtenAs;
  column.read = Read<Member>(keyword).read;
  return column;
}

template <auto Member, const WordTable& ToRead, const WordTable& ToWrite = ToRead>
constexpr Column<RecordOf<Member>> Words(std::string_view keyword) {
  Column<RecordOf<Member>> column;
  column.keyword = keyword;
  column.readAs = column.writtenAs = CellForm::Word;
  column.readWords = &ToRead;
  column.writtenWords = &ToWrite;
  column.read = ReadWord<Member, ToRead>;
  column.write = WriteWord<Member, ToWrite>;
  return column;
}

template <auto Member>
constexpr Field<RecordOf<Member>> Row(std::string_view stem, const Column<RecordOf<Member>>& column = {}) {
  return {Access<Member>(stem), {column}};
}

/// A list; its elements have fields of their own.
template <auto Member>
constexpr Field<RecordOf<Member>> ListRow(std::string_view stem, const RecordType& elements) {
  using Record = RecordOf<Member>;
  Field<Record> row;
  row.field.stem = stem;
  row.field.type = FieldType::List;
  row.field.elements = &elements;
  row.field.count = [](const void* record) { return (static_cast<const Record*>(record)->*Member).size(); };
  row.field.element = [](void* record, std::size_t index) -> void* {
    return &(static_cast<Record*>(record)->*Member)[index];
  };
  row.field.resize = [](void* record, std::size_t count) {
    (static_cast<Record*>(record)->*Member).resize(count);
  };
  return row;
}

// Tables, given as arrays of rows.

template <const auto& Rows>
constexpr auto FieldsOf() {
  std::array<RecordField, std::size(Rows)> fields;
  for (std::size_t index = 0; index < fields.size(); ++index) {
    fields[index] = Rows[index].field;
    for (std::size_t place = 0; place < 2; ++place) fields[index].columns[place] = Rows[index].columns[place];
  }
  return fields;
}

template <class Record>
constexpr std::size_t CountColumns(std::span<const Field<Record>> rows) {
  std::size_t count = 0;
  for (const Field<Record>& row : rows)
    for (const Column<Record>& column : row.columns) count += !column.keyword.empty();
  return count;
}

template <class Record, const auto&... Tables>
constexpr auto ColumnsOf() {
  std::array<Column<Record>, (... + CountColumns<Record>(Tables))> columns;
  auto end = columns.begin();
  const auto add = [&](std::span<const Field<Record>> rows) {
    for (const Field<Record>& row : rows)
      for (const Column<Record>& column : row.columns)
        if (!column.keyword.empty()) *end++ = column;
  };
  (add(Tables), ...);
  return columns;
}

template <const auto& Rows>
inline constexpr auto kFieldsOf = FieldsOf<Rows>();

/// The columns of several tables, one after the other.
template <class Record, const auto&... Tables>
inline constexpr auto kColumnsOf = ColumnsOf<Record, Tables...>();

/// The whole of a kind: its fields, and their columns together with those of `More`.
template <class Record, const auto& Rows, const auto&... More>
TableOf<Record> MakeTable() {
  return {kFieldsOf<Rows>, kColumnsOf<Record, Rows, More...>};
}

template <class Record>
constexpr RecordType TypeOf(std::string_view name, std::span<const RecordField> fields,
                            bool ignoresCase = false) {
  return {name, ignoresCase, fields, [] { return static_cast<void*>(new Record); },
          [](void* record) { delete static_cast<Record*>(record); }};
}

}  // namespace qv
