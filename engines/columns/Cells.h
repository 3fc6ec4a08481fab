#pragma once

#include "engines/columns/Column.h"
#include "engines/columns/CopyTerminated.h"
#include "engines/columns/Numbers.h"
#include "engines/columns/ShortNumbers.h"
#include "engines/columns/Words.h"

#include <QVAssemblyFile/CString.h>
#include <QVAssemblyFile/FixedText.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <type_traits>

/// What the rows of the column tables are made of: one function template per way of reading or writing a
/// field.
namespace qv {

inline constexpr std::size_t kWidestText = 259;  ///< the most characters of a text that an export writes

template <class Member>
struct MemberTraits;
template <class Owner, class Type>
struct MemberTraits<Type Owner::*> {
  using Record = Owner;
  using Value = Type;
};
template <auto Field>
using RecordOf = typename MemberTraits<decltype(Field)>::Record;
template <auto Field>
using ValueOf = typename MemberTraits<decltype(Field)>::Value;

inline std::string_view UpToNul(std::string_view text) { return text.substr(0, text.find('\0')); }

/// Appends at most kWidestText characters; false when there were more.
inline bool AppendText(TextBuffer& out, std::string_view text) {
  out += text.substr(0, kWidestText);
  return text.size() <= kWidestText;
}

template <std::size_t Capacity>
std::string_view ViewOf(const FixedText<Capacity>& text) {
  return text.View();
}
inline std::string_view ViewOf(const CString& text) {
  return {text.GetString(), static_cast<std::size_t>(text.GetLength())};
}
template <std::size_t Capacity>
std::string_view ViewOf(const char (&text)[Capacity]) {
  return {text, ::strnlen(text, Capacity)};
}

/// The same for what a record holds.
template <class Text>
bool AppendField(TextBuffer& out, const Text& field) {
  return AppendText(out, ViewOf(field));
}
template <std::size_t Capacity>
bool AppendField(TextBuffer& out, const FixedText<Capacity>& field) {
  static_assert(Capacity >= kReadAtLeast && Capacity <= kWidestText + 1);
  out.EndAt(CopyTerminated(out.Room(Capacity), field.Characters()));
  return true;
}

template <std::size_t Capacity>
bool StoreText(FixedText<Capacity>& field, std::string_view text) {
  return field.Assign(text);
}
inline bool StoreText(CString& field, std::string_view text) {
  field = UpToNul(text);
  return true;
}

template <auto Field>
Remark ReadText(RecordOf<Field>& record, std::string_view text, std::string* stored) {
  if (StoreText(record.*Field, text)) return Remark::None;
  if (stored != nullptr) *stored = ViewOf(record.*Field);
  return Remark::TextCut;
}

/// Stores a number or choice. An empty cell is worth a remark only where it changes what a fresh record
/// holds.
template <auto Field, class Value>
Remark StoreValue(RecordOf<Field>& record, Value value, Remark remark) {
  if (remark == Remark::EmptyValue && record.*Field == value) remark = Remark::None;
  record.*Field = value;
  return remark;
}

template <auto Field>
[[gnu::noinline]] Remark ReadOddInt(RecordOf<Field>& record, std::string_view text, std::string* stored) {
  const Parsed<int> parsed = ParseInt(text);
  if (stored != nullptr) *stored = std::to_string(parsed.value);
  return StoreValue<Field>(record, parsed.value, parsed.remark);
}

template <auto Field>
Remark ReadInt(RecordOf<Field>& record, std::string_view text, std::string* stored) {
  int value;
  if (!ParseShortInt(text, value)) return ReadOddInt<Field>(record, text, stored);
  record.*Field = value;
  return Remark::None;
}

/// The shortest text that reads back as the same number.
void AppendReal(std::string& out, float value);
void AppendReal(std::string& out, double value);

template <auto Field>
[[gnu::noinline]] Remark ReadOddReal(RecordOf<Field>& record, std::string_view text, std::string* stored) {
  using Value = ValueOf<Field>;
  Parsed<double> parsed = ParseReal(text);
  const auto value = static_cast<Value>(parsed.value);
  const bool vanished = value == 0 && parsed.value != 0;
  if (vanished || (std::isfinite(parsed.value) && !std::isfinite(value)))
    parsed.remark = Remark::NumberOutOfRange;
  if (stored != nullptr) AppendReal(*stored, value);
  return StoreValue<Field>(record, value, parsed.remark);
}

template <auto Field>
Remark ReadReal(RecordOf<Field>& record, std::string_view text, std::string* stored) {
  double value;
  if (!ParseShortReal(text, value)) return ReadOddReal<Field>(record, text, stored);
  record.*Field = static_cast<ValueOf<Field>>(value);
  return Remark::None;
}

template <auto Field, const WordTable& Words>
Remark ReadWord(RecordOf<Field>& record, std::string_view text, std::string* stored) {
  const Word* const word = FindWord(Words, text);
  const int number = word != nullptr ? word->value : Words.otherValue;
  if (stored != nullptr) *stored = TextOf(Words, number);
  const Remark remark = word != nullptr ? Remark::None
                        : text.empty()  ? Remark::EmptyValue
                                        : Remark::UnknownWord;
  return StoreValue<Field>(record, static_cast<ValueOf<Field>>(number), remark);
}

template <auto Field>
bool WriteText(const RecordOf<Field>& record, std::size_t, TextBuffer& out) {
  return AppendField(out, record.*Field);
}

template <auto Field>
bool WriteInt(const RecordOf<Field>& record, std::size_t, TextBuffer& out) {
  AppendInt(out, record.*Field);
  return true;
}

template <auto Field, int Decimals>
bool WriteReal(const RecordOf<Field>& record, std::size_t, TextBuffer& out) {
  AppendFixed(out, static_cast<double>(record.*Field), Decimals);
  return true;
}

template <auto Field, const WordTable& Words>
bool WriteWord(const RecordOf<Field>& record, std::size_t, TextBuffer& out) {
  out += TextOf(Words, static_cast<int>(record.*Field));
  return true;
}

template <class Record>
bool WriteNothing(const Record&, std::size_t, TextBuffer&) {
  return true;
}

// The rows themselves.

template <auto Field>
constexpr Column<RecordOf<Field>> Text(std::string_view keyword, bool RecordOf<Field>::*flag = nullptr) {
  return {keyword, ReadText<Field>, WriteText<Field>, flag};
}

template <auto Field>
constexpr Column<RecordOf<Field>> TextRead(std::string_view keyword) {
  return {keyword, ReadText<Field>};
}

template <auto Field>
constexpr Column<RecordOf<Field>> TextWritten(std::string_view keyword) {
  return {keyword, nullptr, WriteText<Field>};
}

template <auto Field>
constexpr Column<RecordOf<Field>> Int(std::string_view keyword, bool RecordOf<Field>::*flag = nullptr) {
  return {keyword, ReadInt<Field>, WriteInt<Field>, flag};
}

template <auto Field>
constexpr Column<RecordOf<Field>> IntRead(std::string_view keyword) {
  return {keyword, ReadInt<Field>};
}

template <auto Field>
constexpr Column<RecordOf<Field>> IntWritten(std::string_view keyword) {
  return {keyword, nullptr, WriteInt<Field>};
}

template <auto Field, int Decimals = 6>
constexpr Column<RecordOf<Field>> Real(std::string_view keyword, bool RecordOf<Field>::*flag = nullptr) {
  return {keyword, ReadReal<Field>, WriteReal<Field, Decimals>, flag};
}

template <auto Field>
constexpr Column<RecordOf<Field>> RealRead(std::string_view keyword) {
  return {keyword, ReadReal<Field>};
}

template <auto Field, int Decimals = 6>
constexpr Column<RecordOf<Field>> RealWritten(std::string_view keyword) {
  return {keyword, nullptr, WriteReal<Field, Decimals>};
}

template <auto Field, const WordTable& Read, const WordTable& Written = Read>
constexpr Column<RecordOf<Field>> Words(std::string_view keyword) {
  return {keyword, ReadWord<Field, Read>, WriteWord<Field, Written>};
}

}  // namespace qv
