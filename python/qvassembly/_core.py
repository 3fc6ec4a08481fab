"""Calls of the C interface with Python's texts, numbers and exceptions."""

from __future__ import annotations

import ctypes
from ctypes import byref, c_double, c_int32, c_void_p
from dataclasses import dataclass
from enum import IntEnum
from functools import lru_cache
from typing import Any, Callable

from ._library import library

OK, END, CANCELLED, NOT_AVAILABLE, SHORT_BUFFER, INVALID_ARGUMENT, NOT_FOUND = range(7)
NOT_ENCODABLE, TOO_LONG, FILE_ERROR, FILE_TYPE, OUT_OF_MEMORY, INTERNAL_ERROR = range(7, 13)


class QVAssemblyError(Exception):
    """A call of the library that failed. Its text is a sentence for a person."""


class AssemblyFileError(QVAssemblyError, OSError):
    """A file that cannot be read or written, or whose type is not supported. An existing file stays as it was."""


class FieldError(QVAssemblyError, ValueError):
    """A value that a field cannot hold, or a name that is none of a format, a kind or a field."""


class Cancelled(QVAssemblyError):
    """The progress function said to stop."""


_EXCEPTIONS: dict[int, type[Exception]] = {
    CANCELLED: Cancelled,
    NOT_AVAILABLE: FieldError,
    NOT_FOUND: FieldError,
    INVALID_ARGUMENT: FieldError,
    NOT_ENCODABLE: FieldError,
    TOO_LONG: FieldError,
    FILE_ERROR: AssemblyFileError,
    FILE_TYPE: AssemblyFileError,
    OUT_OF_MEMORY: MemoryError,
}


def error(status: int) -> Exception:
    """The exception for a status, with the library's sentence."""
    sentence = library.qva_last_error().decode() or library.qva_status_text(status).decode()
    return _EXCEPTIONS.get(status, QVAssemblyError)(sentence)


def check(status: int) -> None:
    if status != OK:
        raise error(status)


def text_of(function: Callable[..., int], *arguments: Any) -> str:
    """The text that a function with buffer, size and needed length gives."""
    needed = c_int32()
    size = 256
    while True:
        buffer = ctypes.create_string_buffer(size)
        status = function(*arguments, buffer, size, byref(needed))
        if status != SHORT_BUFFER:
            check(status)
            return buffer.raw[: needed.value].decode()
        size = needed.value + 1


def int_of(function: Callable[..., int], *arguments: Any) -> int:
    value = c_int32()
    check(function(*arguments, byref(value)))
    return value.value


def handle_of(function: Callable[..., int], *arguments: Any) -> c_void_p:
    handle = c_void_p()
    check(function(*arguments, byref(handle)))
    return handle


class FieldType(IntEnum):
    TEXT = 0
    INTEGER = 1
    NUMBER = 2
    FLAG = 3
    LIST = 4


@dataclass(frozen=True)
class Field:
    """One field of a kind of record."""

    index: int
    name: str
    #: The keyword of the column that carries it in a file; empty where none does.
    keyword: str
    type: FieldType
    #: The most bytes that a text may have in the system's code page; 0: no limit.
    capacity: int
    #: The record type of a list's elements.
    elements: int | None


@dataclass(frozen=True)
class RecordType:
    """A kind of record, or the type of a list's elements."""

    number: int
    name: str
    fields: dict[str, Field]

    def field(self, name: str) -> Field:
        try:
            return self.fields[name]
        except KeyError:
            raise KeyError(f"{self.name} have no field {name!r}; they have {', '.join(self.fields)}") from None


@lru_cache(maxsize=None)
def record_type(number: int) -> RecordType:
    fields = {}
    for index in range(int_of(library.qva_field_count, number)):
        name = text_of(library.qva_field_name, number, index)
        field_type = FieldType(int_of(library.qva_field_type, number, index))
        is_list = field_type is FieldType.LIST
        fields[name] = Field(
            index,
            name,
            text_of(library.qva_field_keyword, number, index),
            field_type,
            int_of(library.qva_field_capacity, number, index),
            int_of(library.qva_field_elements, number, index) if is_list else None,
        )
    return RecordType(number, text_of(library.qva_kind_name, number), fields)


def kind_number(kind: str) -> int:
    return int_of(library.qva_kind_find, kind.encode())


def encoded(text: str) -> bytes:
    """As UTF-8 for the library, which ends a text at its first NUL."""
    if "\0" in text:
        raise FieldError("a text cannot hold a NUL character")
    return text.encode()


def get_value(record: c_void_p, field: Field) -> str | int | float | bool:
    if field.type is FieldType.TEXT:
        return text_of(library.qva_record_get_text, record, field.index)
    if field.type is FieldType.INTEGER:
        return int_of(library.qva_record_get_integer, record, field.index)
    if field.type is FieldType.FLAG:
        return bool(int_of(library.qva_record_get_flag, record, field.index))
    value = c_double()
    check(library.qva_record_get_number(record, field.index, byref(value)))
    return value.value


def set_value(record: c_void_p, field: Field, value: Any) -> None:
    if field.type is FieldType.TEXT:
        if not isinstance(value, str):
            raise TypeError(f"{field.name} takes a str, not {type(value).__name__}")
        check(library.qva_record_set_text(record, field.index, encoded(value)))
    elif field.type is FieldType.INTEGER:
        number = value.__index__()
        if not -(2**31) <= number < 2**31:
            raise FieldError(f"{field.name}: {number} does not fit 32 bits")
        check(library.qva_record_set_integer(record, field.index, number))
    elif field.type is FieldType.FLAG:
        check(library.qva_record_set_flag(record, field.index, bool(value)))
    else:
        check(library.qva_record_set_number(record, field.index, float(value)))
