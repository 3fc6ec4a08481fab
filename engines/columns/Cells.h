#pragma once

#include "engines/columns/Column.h"
#include "engines/columns/ShortNumbers.h"
#include "engines/columns/Words.h"
#include "text/Numbers.h"

#include <QVAssemblyFile/CString.h>
#include <QVAssemblyFile/FixedText.h>

#include <algorithm>
#include <cmath>
#include <string>

/// How cells are read into a record and written from one: one function template per way of doing it.
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
inline std::string_view ViewOf(const std::string& text) { return text; }
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

/// Stores the characters up to the first NUL; false when not all of them fit.
template <std::size_t Capacity>
bool StoreText(FixedText<Capacity>& field, std::string_view text) {
  return field.Assign(text);
}
template <std::size_t Capacity>
bool StoreText(char (&field)[Capacity], std::string_view text) {
  text = UpToNul(text);
  *std::copy_n(text.data(), std::min(text.size(), Capacity - 1), field) = '\0';
  return text.size() < Capacity;
}
template <class String>
bool StoreText(String& field, std::string_view text) {
  field = UpToNul(text);
  return true;
}

template <auto Field>
CellRemark ReadText(RecordOf<Field>& record, std::string_view text, std::string* stored) {
  if (StoreText(record.*Field, text)) return CellRemark::None;
  if (stored != nullptr) *stored = ViewOf(record.*Field);
  return CellRemark::TextCut;
}

constexpr CellRemark RemarkOn(NumberFault fault) {
  constexpr CellRemark kRemarks[] = {CellRemark::None, CellRemark::EmptyValue, CellRemark::NotANumber,
                                     CellRemark::TrailingText, CellRemark::NumberOutOfRange};
  return kRemarks[static_cast<std::size_t>(fault)];  // they are in its order
}

/// Stores a number or choice. An empty cell is worth a remark only where it changes what a fresh record
/// holds.
template <auto Field, class Value>
CellRemark StoreValue(RecordOf<Field>& record, Value value, CellRemark remark) {
  if (remark == CellRemark::EmptyValue && record.*Field == value) remark = CellRemark::None;
  record.*Field = value;
  return remark;
}

template <auto Field>
[[gnu::noinline]] CellRemark ReadIntSlowPath(RecordOf<Field>& record, std::string_view text,
                                             std::string* stored) {
  const Parsed<int> parsed = ParseInt(text);
  if (stored != nullptr) *stored = std::to_string(parsed.value);
  return StoreValue<Field>(record, parsed.value, RemarkOn(parsed.fault));
}

template <auto Field>
CellRemark ReadInt(RecordOf<Field>& record, std::string_view text, std::string* stored) {
  int value;
  if (!ParseShortInt(text, value)) return ReadIntSlowPath<Field>(record, text, stored);
  record.*Field = value;
  return CellRemark::None;
}

template <auto Field>
[[gnu::noinline]] CellRemark ReadRealSlowPath(RecordOf<Field>& record, std::string_view text,
                                              std::string* stored) {
  using Value = ValueOf<Field>;
  const Parsed<double> parsed = ParseReal(text);
  const auto value = static_cast<Value>(parsed.value);
  const bool vanished = value == 0 && parsed.value != 0;
  const bool overflowed = std::isfinite(parsed.value) && !std::isfinite(value);
  if (stored != nullptr) AppendShortest(*stored, value);
  return StoreValue<Field>(record, value,
                           vanished || overflowed ? CellRemark::NumberOutOfRange : RemarkOn(parsed.fault));
}

template <auto Field>
CellRemark ReadReal(RecordOf<Field>& record, std::string_view text, std::string* stored) {
  double value;
  if (!ParseShortReal(text, value)) return ReadRealSlowPath<Field>(record, text, stored);
  record.*Field = static_cast<ValueOf<Field>>(value);
  return CellRemark::None;
}

template <auto Field, const WordTable& Words>
CellRemark ReadWord(RecordOf<Field>& record, std::string_view text, std::string* stored) {
  const Word* const word = FindWord(Words, text);
  const int number = word != nullptr ? word->value : Words.otherValue;
  if (stored != nullptr) *stored = TextOf(Words, number);
  const CellRemark remark = word != nullptr ? CellRemark::None
                            : text.empty()  ? CellRemark::EmptyValue
                                            : CellRemark::UnknownWord;
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

}  // namespace qv
