#include "engines/columns/RecordFields.h"

#include "engines/columns/FieldRows.h"

#include <algorithm>

namespace qv {
namespace {

template <class Record>
RecordType KindType(std::string_view name) {
  return TypeOf<Record>(name, ColumnTable<Record>::Fields(), IgnoresCase(kRecordKindOf<Record>));
}

template <class Condition>
const RecordField* FindIf(const RecordType& type, Condition condition) {
  const auto found = std::find_if(type.fields.begin(), type.fields.end(), condition);
  return found == type.fields.end() ? nullptr : &*found;
}

struct ToText {
  std::string operator()(std::string_view text) const { return std::string(text); }
  std::string operator()(int value) const { return std::to_string(value); }
  std::string operator()(bool value) const { return value ? "true" : "false"; }
  std::string operator()(auto value) const {
    std::string text;
    AppendShortest(text, value);
    return text;
  }
};

}  // namespace

std::span<const RecordType> RecordTypes() {
  static const RecordType kTypes[] = {
      KindType<PartInformation>("parts"),           KindType<ToolInformation>("tools"),
      KindType<MaterialInfomation>("materials"),    KindType<ShtInfo>("sheets"),
      KindType<PrtInfo>("part-programs"),           KindType<MatAmncITInfo>("material-inventory"),
      KindType<MatLibraryInfo>("material-library"), KindType<JobProgressInfo>("job-progress"),
  };
  return kTypes;
}

const RecordType& RecordTypeOf(RecordKind kind) { return RecordTypes()[static_cast<std::size_t>(kind)]; }

const RecordField* FindField(const RecordType& type, std::string_view stem) {
  return FindIf(type, [&](const RecordField& field) { return field.stem == stem; });
}

const RecordField* FindFieldOfColumn(const RecordType& type, std::string_view keyword) {
  if (keyword.empty()) return nullptr;
  return FindIf(type, [&](const RecordField& field) {
    return std::any_of(field.columns.begin(), field.columns.end(), [&](const FieldColumn& column) {
      return Matches(type.ignoresCase, column.keyword, keyword);
    });
  });
}

std::vector<KindColumn> AllColumns(const RecordType& type) {
  std::vector<KindColumn> columns;
  for (const RecordField& field : type.fields) {
    for (const FieldColumn& column : field.columns)
      if (!column.keyword.empty()) columns.push_back({&field, &column});
    if (field.type != FieldType::List) continue;
    const std::vector<KindColumn> ofList = AllColumns(*field.elements);
    columns.insert(columns.end(), ofList.begin(), ofList.end());
  }
  return columns;
}

std::string GetText(const void* record, const RecordField& field) {
  if (field.type == FieldType::List) return std::to_string(field.count(record));
  return std::visit(ToText(), field.get(record));
}

}  // namespace qv
