#pragma once

/// The bodies of accessors that differ in nothing but names.

#define QV_TEXT(Class, Getter, Setter, field)               \
  void Class::Getter(char* buffer) { (field).Get(buffer); } \
  void Class::Setter(const char* text) { (field).Set(text); }

#define QV_VALUE(Class, Type, Stem, field)  \
  Type Class::Get##Stem() { return field; } \
  void Class::Set##Stem(Type value) { (field) = value; }

#define QV_STRING_BY_VALUE(Class, Stem, field) \
  CString Class::Get##Stem() { return field; } \
  void Class::Set##Stem(CString text) { (field) = std::move(text); }

#define QV_STRING_BY_REFERENCE(Class, Stem, field) \
  CString Class::Get##Stem() { return field; }     \
  void Class::Set##Stem(const CString& text) { (field) = text; }
